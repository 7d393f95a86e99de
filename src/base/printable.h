#pragma once

#include <string>
#include <string_view>

namespace vorlent {

/// The text as a terminal or a log may show it: each byte of a control character other than a tab,
/// of one that turns the direction of writing, and each that is not UTF-8, is written as `\xNN`.
/// All else stays as it is.
std::string printable(std::string_view text);

}  // namespace vorlent
