#pragma once

#include <string>
#include <vector>

namespace vorlent {

/// Names for the rows of a plan: the rows are found by them, so each is unlike all others, and none
/// is one with a meaning, such as "T/D" or "RX-24". Of five characters at most: letters, digits,
/// "+" and "."; what a name has besides becomes "_". "ALPHA" that stands a second time becomes
/// "ALPH2".
std::vector<std::string> rowNames(const std::vector<std::string>& names);

}  // namespace vorlent
