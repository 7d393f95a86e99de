#pragma once

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Fields and numbers, read without the code under test.
namespace independent {

inline std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> fields;
  for (;;) {
    const auto at = text.find(separator);
    fields.emplace_back(text.substr(0, at));
    if (at == std::string_view::npos) return fields;
    text.remove_prefix(at + 1);
  }
}

inline bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// A decimal number: sign, digits with or without a point, exponent. One too small for a double is
/// 0.
inline bool looksLikeANumber(const std::string& text) {
  std::size_t at = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
  const auto digits = [&] {
    const std::size_t begin = at;
    while (at < text.size() && isDigit(text[at])) ++at;
    return at - begin;
  };
  std::size_t count = digits();
  if (at < text.size() && text[at] == '.') {
    ++at;
    count += digits();
  }
  if (count == 0) return false;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    ++at;
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
    if (digits() == 0) return false;
  }
  return at == text.size();
}

inline std::optional<double> number(std::string text) {
  while (!text.empty() && text.front() == '\t') text.erase(0, 1);
  while (!text.empty() && text.back() == '\t') text.pop_back();
  if (!looksLikeANumber(text)) return std::nullopt;
  errno = 0;
  const double value = std::strtod(text.c_str(), nullptr);
  if (errno == ERANGE && std::isinf(value)) return std::nullopt;
  return value;
}

inline std::optional<int> wholeNumber(const std::string& text, int least, int most) {
  const auto value = number(text);
  if (!value) return std::nullopt;
  const double whole = std::nearbyint(*value);
  if (whole < least || whole > most) return std::nullopt;
  return static_cast<int>(whole);
}

}  // namespace independent
