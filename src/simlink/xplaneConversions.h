#pragma once

#include <string>

#include "base/units.h"
#include "simlink/conversions.h"
#include "simlink/xplaneRows.h"

/// From X-Plane's scales to numbers, as more than one family needs them.
///
/// What this poll converts in a way of its own it takes with its sign. The rest is converted as by
/// the other poll, and taken with a sign where the other poll folds it into one.
namespace vorlent {

/// The digits of the four-digit word at a row's read, as its hexadecimal text shows them: the upper
/// two and the lower two.
inline int upperDigits(const TypedInput& in, std::size_t read) {
  return BcdToDec(in.byte(read, 1));
}
inline int lowerDigits(const TypedInput& in, std::size_t read) { return BcdToDec(in.byte(read)); }

/// The characters of a row's read, 0 bytes and blanks passed over.
inline std::string walkedText(const TypedInput& in) {
  std::string text;
  for (std::uint32_t at = 0; at < in.reads[0].count; ++at)
    if (const std::uint8_t c = in.byte(0, at); c != 0 && c != ' ') text += static_cast<char>(c);
  return text;
}

}  // namespace vorlent
