#pragma once

#include <cstddef>

namespace vorlent {

/// Whether standard output is a terminal that draws with ECMA-48 control sequences.
bool outputIsTerminal();
/// Whether standard input is a terminal, at which somebody types.
bool inputIsTerminal();
/// Characters in a line of that terminal at the moment; 80 when it does not tell.
std::size_t terminalWidth();

}  // namespace vorlent
