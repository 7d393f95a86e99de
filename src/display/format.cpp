#include "display/format.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "base/simulatorUnits.h"

namespace vorlent {

std::string printable(std::string_view text) {
  std::string result(text);
  std::replace_if(
      result.begin(), result.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
  return result;
}

std::string endpointText(const Endpoint& endpoint) {
  return fmt::format("{}:{}", endpoint.address, endpoint.port);
}

std::string latitudeText(double degrees) {
  return fmt::format("{}{:08.5f}", degrees < 0 ? "S" : "N", std::fabs(degrees));
}

std::string longitudeText(double degrees) {
  return fmt::format("{}{:09.5f}", degrees < 0 ? "W" : "E", std::fabs(degrees));
}

std::string bankText(double degrees) {
  return degrees > 180 ? fmt::format("R{:.1f}", 360 - degrees) : fmt::format("L{:.1f}", degrees);
}

std::string clockText(double hoursAndMinutes) {
  const double hours = std::floor(hoursAndMinutes);
  return fmt::format("{:02.0f}:{:02.0f}", hours, (hoursAndMinutes - hours) * 100);
}

double travel_percent(double position) { return position / FullTravel * 100; }

}  // namespace vorlent
