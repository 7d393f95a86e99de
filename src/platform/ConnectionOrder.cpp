#include "platform/ConnectionOrder.h"

#include <algorithm>
#include <cstddef>

namespace vorlent {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Cuts the digits off the front of `text` and returns them without leading zeros.
std::string_view takeNumber(std::string_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
  std::string_view digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(digits.size());
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return digits;
}

/// Below 0, 0 or above 0.
int compareNumbers(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
  return a.compare(b);
}

}  // namespace

bool comesBefore(std::string_view a, std::string_view b) {
  const std::string_view wholeA = a, wholeB = b;
  while (!a.empty() && !b.empty()) {
    if (isDigit(a.front()) && isDigit(b.front())) {
      if (const int order = compareNumbers(takeNumber(a), takeNumber(b))) return order < 0;
    } else if (a.front() != b.front()) {
      return a.front() < b.front();
    } else {
      a.remove_prefix(1);
      b.remove_prefix(1);
    }
  }
  if (a.empty() && b.empty()) return wholeA < wholeB;  // differ at most in leading zeros
  return a.empty();
}

}  // namespace vorlent
