#include "FlownRoute.h"

#include <cmath>

#include "base/text.h"
#include "base/units.h"
#include "simulator/dynamics/Vector3.h"

namespace vorlent {
namespace {

constexpr double NauticalMilesPerRadian = 60 / RadiansPerDegree;

/// On a globe of radius 1: towards the meridian of Greenwich, towards 90 degrees east, and north.
Vector3 onGlobe(Place place) {
  const double latitude = place.latitude_deg * RadiansPerDegree;
  const double longitude = place.longitude_deg * RadiansPerDegree;
  return {std::cos(latitude) * std::cos(longitude), std::cos(latitude) * std::sin(longitude),
          std::sin(latitude)};
}

Place placeOf(const Vector3& point) {
  return {std::atan2(point.z, std::hypot(point.x, point.y)) / RadiansPerDegree,
          std::atan2(point.y, point.x) / RadiansPerDegree};
}

Vector3 poleOf(Place from, Place to) { return unit(cross(onGlobe(from), onGlobe(to))); }

std::string number(double value) { return singleText(static_cast<float>(value)); }

std::string row(const FlownPoint& point, double course_deg, Place vertex) {
  const auto zeros = [](int count) {
    std::string text;
    for (; count > 0; --count) text += "0,";
    return text;
  };
  return '"' + point.name + "\",\"\",\"\"," + zeros(2) + number(course_deg) + ',' + zeros(3) +
         number(point.descentAt_nm) + ',' + zeros(7) + std::to_string(point.altitude_ft) + ',' +
         zeros(2) + "\"\",0," + number(point.place.latitude_deg) + ',' +
         number(point.place.longitude_deg) + ',' + number(vertex.latitude_deg) + ',' +
         number(vertex.longitude_deg) + "\r\n";
}

}  // namespace

Place northernmost(Place a, Place b) {
  const Vector3 axis = poleOf(a, b);
  return placeOf(Vector3{0, 0, 1} - axis * axis.z);
}

double crossTrack_nm(Place from, Place to, Place place) {
  return -std::asin(dot(poleOf(from, to), onGlobe(place))) * NauticalMilesPerRadian;
}

double alongTrack_nm(Place from, Place to, Place place) {
  const Vector3 start = onGlobe(from);
  const Vector3 ahead = cross(poleOf(from, to), start);
  const Vector3 at = onGlobe(place);
  return std::atan2(dot(at, ahead), dot(at, start)) * NauticalMilesPerRadian;
}

/// The course of a row is that of the leg which ends there, at its beginning; the great circle is
/// that of the leg which begins there.
std::string planFileText(const FlownRoute& route, std::size_t from) {
  std::string text = std::to_string(route.size() - 1 - from) + "\r\n";
  for (std::size_t i = from; i < route.size(); ++i) {
    const FlownPoint& begun = route[i == 0 ? 0 : i - 1];
    const FlownPoint& ended = route[i == 0 ? 1 : i];
    const FlownPoint& next = route[i + 1 < route.size() ? i + 1 : i];
    const FlownPoint& legFrom = i + 1 < route.size() ? route[i] : begun;
    text += row(route[i], bearing_deg(begun.place, ended.place),
                northernmost(legFrom.place, next.place));
  }
  return text;
}

}  // namespace vorlent
