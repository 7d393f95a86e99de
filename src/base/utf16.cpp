#include "base/utf16.h"

#include <cstddef>
#include <cstdint>

#include "base/bytes.h"

namespace vorlent {
namespace {

constexpr char32_t FirstAboveUnits = 0x10000;
constexpr char32_t HighSurrogate = 0xD800;
constexpr char32_t LowSurrogate = 0xDC00;
constexpr char32_t BehindSurrogates = 0xE000;

bool isHigh(char32_t unit) { return unit >= HighSurrogate && unit < LowSurrogate; }
bool isLow(char32_t unit) { return unit >= LowSurrogate && unit < BehindSurrogates; }

void appendByte(std::string& to, char32_t value) {
  to += static_cast<char>(static_cast<unsigned char>(value));
}

void appendUtf8(std::string& to, char32_t code) {
  if (code < 0x80) return appendByte(to, code);
  const int followers = code < 0x800 ? 1 : code < FirstAboveUnits ? 2 : 3;
  constexpr char32_t Leads[] = {0, 0xC0, 0xE0, 0xF0};
  appendByte(to, Leads[followers] | (code >> (6 * followers)));
  for (int left = followers - 1; left >= 0; --left)
    appendByte(to, 0x80 | ((code >> (6 * left)) & 0x3F));
}

void appendUnit(std::string& to, char32_t unit) {
  appendByte(to, unit & 0xFF);
  appendByte(to, unit >> 8);
}

void appendUtf16(std::string& to, char32_t code) {
  if (code < FirstAboveUnits) return appendUnit(to, code);
  const char32_t above = code - FirstAboveUnits;
  appendUnit(to, HighSurrogate + (above >> 10));
  appendUnit(to, LowSurrogate + (above & 0x3FF));
}

/// The code at the start of `text`, which loses it.
char32_t cutCode(std::string_view& text) {
  const auto byte = [&text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const char32_t lead = byte(0);
  const std::size_t length = lead < 0xC0 || lead > 0xF4 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  constexpr char32_t Smallest[] = {0, 0, 0x80, 0x800, FirstAboveUnits};
  char32_t code = length == 1 ? lead : lead & (0x7F >> length);
  bool whole = length <= text.size();
  for (std::size_t at = 1; whole && at < length; ++at) {
    whole = (byte(at) & 0xC0) == 0x80;
    code = (code << 6) | (byte(at) & 0x3F);
  }
  whole = whole && code >= Smallest[length] && code <= 0x10FFFF;
  text.remove_prefix(whole ? length : 1);
  return whole ? code : lead;
}

}  // namespace

std::string utf8OfUtf16(std::string_view units) {
  const std::size_t count = units.size() / 2;
  const auto unit = [units](std::size_t at) -> char32_t {
    return load<std::uint16_t>(units.data() + 2 * at);
  };
  std::string text;
  for (std::size_t at = 0; at < count; ++at) {
    char32_t code = unit(at);
    if (isHigh(code) && at + 1 < count && isLow(unit(at + 1))) {
      ++at;
      code = FirstAboveUnits + ((code - HighSurrogate) << 10) + (unit(at) - LowSurrogate);
    }
    appendUtf8(text, code);
  }
  return text;
}

std::string utf16OfUtf8(std::string_view text) {
  std::string units;
  while (!text.empty()) appendUtf16(units, cutCode(text));
  return units;
}

}  // namespace vorlent
