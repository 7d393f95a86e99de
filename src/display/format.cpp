#include "display/format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/simulatorUnits.h"

namespace vorlent {

std::string fixedText(double value, int decimals) {
  std::array<char, 400> text;  // the largest double has 309 digits before its point
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                 std::chars_format::fixed, decimals)
                       .ptr;
  return {text.data(), end};
}

std::string signedText(double value, int decimals) {
  return (value < 0 ? "" : "+") + fixedText(value, decimals);
}

std::string leftAligned(std::string text, std::size_t width) {
  if (text.size() < width) text.append(width - text.size(), ' ');
  return text;
}

std::string rightAligned(std::string text, std::size_t width) {
  if (text.size() < width) text.insert(0, width - text.size(), ' ');
  return text;
}

std::string printable(std::string_view text) {
  std::string result(text);
  std::replace_if(
      result.begin(), result.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
  return result;
}

std::string endpointText(const Endpoint& endpoint) {
  return endpoint.address + ":" + std::to_string(endpoint.port);
}

std::string latitudeText(double degrees) {
  const auto digits = fixedText(std::fabs(degrees), 5);
  return (degrees < 0 ? "S" : "N") + std::string(digits.size() < 8 ? "0" : "") + digits;
}

std::string longitudeText(double degrees) {
  std::string digits = fixedText(std::fabs(degrees), 5);
  if (digits.size() < 9) digits.insert(0, 9 - digits.size(), '0');
  return (degrees < 0 ? "W" : "E") + digits;
}

std::string bankText(double degrees) {
  return degrees > 180 ? "R" + fixedText(360 - degrees, 1) : "L" + fixedText(degrees, 1);
}

std::string clockText(double hoursAndMinutes) {
  const double hours = std::floor(hoursAndMinutes);
  const auto twoDigits = [](double value) {
    const auto text = fixedText(value, 0);
    return text.size() < 2 ? "0" + text : text;
  };
  return twoDigits(hours) + ":" + twoDigits((hoursAndMinutes - hours) * 100);
}

double travel_percent(double position) { return position / FullTravel * 100; }

}  // namespace vorlent
