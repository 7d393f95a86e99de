#include "platform/AddressRanges.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace vorlent {
namespace {

/// A decimal number without signs, blanks or leading zeros.
std::optional<std::uint32_t> wholeNumber(std::string_view text, std::uint32_t greatest) {
  std::uint32_t value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  const bool padded = text.size() > 1 && text.front() == '0';
  if (error != std::errc() || stop != end || padded || value > greatest) return std::nullopt;
  return value;
}

std::optional<std::uint32_t> dotted(std::string_view text) {
  std::uint32_t address = 0;
  for (int part = 0; part < 4; ++part) {
    const auto dot = part < 3 ? text.find('.') : text.size();
    if (dot == std::string_view::npos) return std::nullopt;
    const auto byte = wholeNumber(text.substr(0, dot), 255);
    if (!byte) return std::nullopt;
    address = address << 8 | *byte;
    text.remove_prefix(std::min(text.size(), dot + 1));
  }
  return address;
}

constexpr std::uint32_t maskOf(std::uint32_t prefix) {
  return prefix == 0 ? 0 : UINT32_MAX << (32 - prefix);
}

}  // namespace

bool AddressRanges::add(std::string_view text) {
  const auto slash = text.find('/');
  const auto address = dotted(text.substr(0, slash));
  const auto prefix = slash == std::string_view::npos ? std::optional<std::uint32_t>(32)
                                                      : wholeNumber(text.substr(slash + 1), 32);
  if (!address || !prefix) return false;
  ranges_.push_back({*address & maskOf(*prefix), maskOf(*prefix)});
  return true;
}

bool AddressRanges::contains(std::string_view address) const {
  const auto number = dotted(address);
  return number && std::any_of(ranges_.begin(), ranges_.end(), [&](const Range& range) {
           return (*number & range.mask) == range.network;
         });
}

}  // namespace vorlent
