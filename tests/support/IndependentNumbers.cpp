#include "support/IndependentNumbers.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <string>

namespace vorlent::independent {
namespace {

/// Takes digits off the front and gives how many there were.
std::size_t takeDigits(std::string_view& text) {
  const std::size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
  text.remove_prefix(count);
  return count;
}

void takeSign(std::string_view& text) {
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
}

bool isDecimal(std::string_view text) {
  takeSign(text);
  std::size_t digits = takeDigits(text);
  if (text.starts_with('.')) {
    text.remove_prefix(1);
    digits += takeDigits(text);
  }
  if (digits == 0) return false;
  if (!text.starts_with('e') && !text.starts_with('E')) return text.empty();
  text.remove_prefix(1);
  takeSign(text);
  return takeDigits(text) > 0 && text.empty();
}

}  // namespace

Single& Single::operator=(double value) {
  if (!(std::fabs(value) <= double{FLT_MAX})) throw Fault{};
  value_ = static_cast<float>(value);
  return *this;
}

std::int32_t wholeWithin(double value, double lowest, double highest) {
  const double whole = std::nearbyint(value);
  if (!(whole >= lowest && whole <= highest)) throw Fault{};
  return static_cast<std::int32_t>(whole);
}

Word& Word::operator=(double value) {
  value_ = wholeWithin(value, -32768, 32767);
  return *this;
}

Long& Long::operator=(double value) {
  value_ = wholeWithin(value, -2147483648.0, 2147483647.0);
  return *this;
}

double decimal(std::string_view text) {
  const std::string digits(trim(text));
  if (!isDecimal(digits)) throw Fault{};
  return std::strtod(digits.c_str(), nullptr);
}

double over(double dividend, double divisor) {
  if (divisor == 0) throw Fault{};
  return dividend / divisor;
}

std::string_view trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace vorlent::independent
