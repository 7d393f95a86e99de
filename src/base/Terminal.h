#pragma once

namespace vorlent {

/// Whether standard output is a terminal that draws with ECMA-48 control sequences.
bool outputIsTerminal();

}  // namespace vorlent
