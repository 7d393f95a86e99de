#pragma once

#include <string>
#include <string_view>

namespace vorlent {

/// Little-endian UTF-16 as UTF-8 and back. A surrogate without its partner becomes the three bytes
/// that UTF-8's scheme gives its number, so every sequence of units comes back as it was.
/// `units` holds two bytes a unit; a last odd byte is left out.
std::string utf8OfUtf16(std::string_view units);
/// A byte that is no part of UTF-8 becomes the unit of its own number, as in Latin-1.
std::string utf16OfUtf8(std::string_view text);

}  // namespace vorlent
