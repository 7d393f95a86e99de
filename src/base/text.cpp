#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/numbers.h"

namespace vorlent {
namespace {

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

constexpr std::string_view Blanks = " \t";
constexpr std::string_view Digits = "0123456789";

std::string_view withoutBlanks(std::string_view text) {
  const auto begin = text.find_first_not_of(Blanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(Blanks) - begin + 1);
}

template <class Real>
void appendReal(std::string& to, Real value, int significantDigits, std::string_view decimalMark) {
  if (value == 0) {
    to += '0';
    return;
  }
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                 std::chars_format::general, significantDigits)
                       .ptr;
  for (const char* c = digits.data(); c != end; ++c) {
    if (*c == '.')
      to += decimalMark;
    else
      to += upper(*c);
  }
}

/// Infinite when there are too many digits.
double wholeNumber(std::string_view digits) {
  double number = 0;
  for (const char digit : digits) number = number * 10 + (digit - '0');
  return number;
}

/// The decimal exponent behind the mark "e" at `mark`; 0 when there is none.
double exponentAt(std::string_view text, std::size_t mark) {
  if (mark == text.size()) return 0;
  const double exponent = wholeNumber(text.substr(text.find_first_of(Digits, mark)));
  return text[mark + 1] == '-' ? -exponent : exponent;
}

/// Of a decimal number that is out of range: whether it is too small, by the place of its first
/// digit that is not 0 and by its exponent.
bool isTooSmall(std::string_view text) {
  const std::size_t mark = std::min(text.find_first_of("eE"), text.size());
  const std::size_t point = std::min(text.find('.'), mark);
  const std::size_t first = text.find_first_of("123456789");
  return static_cast<double>(point) - static_cast<double>(first) + exponentAt(text, mark) < 0;
}

enum class Reading { Number, NoNumber, TooLarge };

Reading readNumber(std::string_view text, double& value) {
  text = withoutBlanks(text);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (end != text.data() + text.size() || error == std::errc::invalid_argument)
    return Reading::NoNumber;
  if (error == std::errc::result_out_of_range) {
    if (!isTooSmall(text)) return Reading::TooLarge;
    value = 0;
    return Reading::Number;
  }
  return std::isfinite(value) ? Reading::Number : Reading::NoNumber;
}

}  // namespace

std::string trimmed(std::string_view text) {
  const auto begin = text.find_first_not_of(' ');
  if (begin == std::string_view::npos) return {};
  return std::string(text.substr(begin, text.find_last_not_of(' ') - begin + 1));
}

std::string upperCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), upper);
  return result;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return upper(x) == upper(y); });
}

bool lessIgnoringCase(std::string_view a, std::string_view b) {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                      [](char x, char y) { return upper(x) < upper(y); });
}

std::string replaced(std::string_view text, std::string_view what, std::string_view with) {
  std::string result;
  for (;;) {
    const auto at = text.find(what);
    result += text.substr(0, at);
    if (at == std::string_view::npos) return result;
    result += with;
    text.remove_prefix(at + what.size());
  }
}

std::string hexText(std::uint32_t value) {
  std::array<char, 8> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16).ptr;
  return upperCase(std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())));
}

void appendSingle(std::string& to, float value, std::string_view decimalMark) {
  appendReal(to, value, 7, decimalMark);
}

void appendDouble(std::string& to, double value, std::string_view decimalMark) {
  appendReal(to, value, 15, decimalMark);
}

void appendInteger(std::string& to, std::int64_t value) {
  std::array<char, 24> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  to.append(digits.data(), end);
}

std::string singleText(float value, std::string_view decimalMark) {
  std::string text;
  appendSingle(text, value, decimalMark);
  return text;
}

std::string doubleText(double value, std::string_view decimalMark) {
  std::string text;
  appendDouble(text, value, decimalMark);
  return text;
}

std::optional<double> numeric(std::string_view text) {
  double value = 0;
  if (readNumber(text, value) != Reading::Number) return std::nullopt;
  return value;
}

double numberOf(std::string_view text) {
  double value = 0;
  switch (readNumber(text, value)) {
    case Reading::Number:
      return value;
    case Reading::TooLarge:
      throw RuntimeError(RuntimeError::Overflow);
    default:
      throw RuntimeError(RuntimeError::TypeMismatch);
  }
}

double regionalNumberOf(std::string_view text, std::string_view decimalMark) {
  if (decimalMark == ".") return numberOf(text);
  if (text.find('.') != std::string_view::npos) throw RuntimeError(RuntimeError::TypeMismatch);
  if (decimalMark.empty()) return numberOf(text);
  return numberOf(replaced(text, decimalMark, "."));
}

std::int16_t int16Of(std::string_view text) { return toInt16(numberOf(text)); }

bool booleanOf(std::string_view text) {
  const auto word = withoutBlanks(text);
  if (equalIgnoringCase(word, "True")) return true;
  if (equalIgnoringCase(word, "False")) return false;
  return numberOf(word) != 0;
}

std::string_view booleanText(bool value) { return value ? "True" : "False"; }

std::string GetNext(std::string& text, std::string_view delimiter) {
  const auto at = text.find(delimiter);
  if (at == std::string::npos) return text;
  std::string field = text.substr(0, at);
  text.erase(0, at + delimiter.size());
  return field;
}

std::string FilterNumber(std::string_view text, DotMode dotMode, bool negativeAllowed) {
  if (text.empty()) return "0";
  auto digits = text;
  if (negativeAllowed && digits.front() == '-') digits.remove_prefix(1);
  const auto dots = std::count(digits.begin(), digits.end(), '.');
  const bool onlyDigits =
      std::all_of(digits.begin(), digits.end(), [](char c) { return isDigit(c) || c == '.'; });
  const bool someDigit = static_cast<std::size_t>(dots) < digits.size();
  const bool accepted = onlyDigits && someDigit && dots <= (dotMode == DotMode::OneDot ? 1 : 0);
  return accepted ? std::string(text) : std::string();
}

bool isHostName(std::string_view text) {
  if (text.empty() || text == "." || text == "..") return false;
  return std::all_of(text.begin(), text.end(), [](char c) {
    return isDigit(c) || (upper(c) >= 'A' && upper(c) <= 'Z') || c == '-' || c == '_' || c == '.';
  });
}

}  // namespace vorlent
