#include "base/printable.h"

#include <algorithm>
#include <cstddef>

#include "base/text.h"

namespace vorlent {
namespace {

unsigned bits(char c) { return static_cast<unsigned char>(c); }

/// The bytes that a character of UTF-8 takes which starts with this one; 0 when none does.
std::size_t sequenceLength(unsigned lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

/// The least second byte of a sequence: below it a shorter one would do, or it is a C1 control
/// character. The other second bytes go from 0x80.
unsigned leastSecond(unsigned lead) {
  if (lead == 0xC2 || lead == 0xE0) return 0xA0;
  return lead == 0xF0 ? 0x90 : 0x80;
}

/// Above it stand the surrogates and what is beyond the last character.
unsigned greatestSecond(unsigned lead) {
  if (lead == 0xED) return 0x9F;
  return lead == 0xF4 ? 0x8F : 0xBF;
}

/// U+202A to U+202E and U+2066 to U+2069: with them a line could be shown as what it is not.
bool turnsDirection(std::string_view character) {
  return (character >= "\xE2\x80\xAA" && character <= "\xE2\x80\xAE") ||
         (character >= "\xE2\x81\xA6" && character <= "\xE2\x81\xA9");
}

/// The length of the character that `text` starts with; 0 when that is a control character other
/// than a tab, one that turns the direction of writing, or no UTF-8.
std::size_t printableLength(std::string_view text) {
  const unsigned lead = bits(text.front());
  const std::size_t length = sequenceLength(lead);
  if (length == 1) return lead == '\t' || (lead >= 0x20 && lead != 0x7F) ? 1 : 0;
  if (length == 0 || length > text.size()) return 0;
  if (bits(text[1]) < leastSecond(lead) || bits(text[1]) > greatestSecond(lead)) return 0;
  if (turnsDirection(text.substr(0, length))) return 0;
  const auto follows = [](char c) { return (bits(c) & 0xC0) == 0x80; };
  return std::all_of(text.begin() + 2, text.begin() + length, follows) ? length : 0;
}

std::string escaped(char c) { return (bits(c) < 0x10 ? "\\x0" : "\\x") + hexText(bits(c)); }

}  // namespace

std::string printable(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = printableLength(text);
    if (length > 0)
      result += text.substr(0, length);
    else
      result += escaped(text.front());
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return result;
}

}  // namespace vorlent
