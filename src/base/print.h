#pragma once

#include <string_view>

namespace vorlent {

// Both write UTF-8 at once and wait as long as the reader makes them. A console of Windows shows
// every letter, whatever its code page.

/// To standard output.
void print(std::string_view text);
/// To standard error.
void printError(std::string_view text);

}  // namespace vorlent
