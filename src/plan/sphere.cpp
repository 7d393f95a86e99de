#include "plan/sphere.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/units.h"

namespace vorlent::sphere {
namespace {

constexpr double DegreesPerRadian = 180 / std::numbers::pi;
constexpr double MinutesPerDegree = 60;
/// The largest single below 90.
constexpr double HighestLatitude_deg = 89.9999923706055;

struct Vector {
  double x;  ///< to latitude 0, longitude 0
  double y;  ///< to 90 degrees east of it
  double z;  ///< to the north pole
};

Vector directionTo(GeoPoint place) {
  const double latitude = place.latitude_deg * RadiansPerDegree;
  const double longitude = place.longitude_deg * RadiansPerDegree;
  return {std::cos(latitude) * std::cos(longitude), std::cos(latitude) * std::sin(longitude),
          std::sin(latitude)};
}

Vector cross(Vector a, Vector b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double dot(Vector a, Vector b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
double length(Vector v) { return std::sqrt(dot(v, v)); }

GeoPoint placeOf(Vector v) {
  return {std::atan2(v.z, std::hypot(v.x, v.y)) * DegreesPerRadian,
          std::atan2(v.y, v.x) * DegreesPerRadian};
}

double withinTurn(double degrees) {
  const double rest = std::fmod(degrees, 360);
  return rest < 0 ? rest + 360 : rest;
}

}  // namespace

double distance_nm(GeoPoint from, GeoPoint to) {
  const Vector a = directionTo(from);
  const Vector b = directionTo(to);
  return std::atan2(length(cross(a, b)), dot(a, b)) * DegreesPerRadian * MinutesPerDegree;
}

double courseAtStart_deg(GeoPoint from, GeoPoint to) {
  const double fromLatitude = from.latitude_deg * RadiansPerDegree;
  const double toLatitude = to.latitude_deg * RadiansPerDegree;
  const double apart = (to.longitude_deg - from.longitude_deg) * RadiansPerDegree;
  const double east = std::sin(apart) * std::cos(toLatitude);
  const double north = std::cos(fromLatitude) * std::sin(toLatitude) -
                       std::sin(fromLatitude) * std::cos(toLatitude) * std::cos(apart);
  return withinTurn(std::atan2(east, north) * DegreesPerRadian);
}

double courseAtEnd_deg(GeoPoint from, GeoPoint to) {
  return withinTurn(courseAtStart_deg(to, from) + 180);
}

GeoPoint pointAlong(GeoPoint from, double course_deg, double distance_nm) {
  const double latitude = from.latitude_deg * RadiansPerDegree;
  const double longitude = from.longitude_deg * RadiansPerDegree;
  const double course = course_deg * RadiansPerDegree;
  const double angle = distance_nm / MinutesPerDegree * RadiansPerDegree;
  const Vector start = directionTo(from);
  const Vector north = {-std::sin(latitude) * std::cos(longitude),
                        -std::sin(latitude) * std::sin(longitude), std::cos(latitude)};
  const Vector east = {-std::sin(longitude), std::cos(longitude), 0};
  const auto along = [&](double s, double n, double e) {
    return std::cos(angle) * s + std::sin(angle) * (std::cos(course) * n + std::sin(course) * e);
  };
  return placeOf({along(start.x, north.x, east.x), along(start.y, north.y, east.y),
                  along(start.z, north.z, 0)});
}

// The point of the circle in the direction of the pole: the axis c takes away its own part of it.
GeoPoint northernmostPoint(GeoPoint from, GeoPoint to) {
  const Vector axis = cross(directionTo(from), directionTo(to));
  const double side = std::copysign(1.0, axis.z);
  const double latitude =
      std::atan2(std::hypot(axis.x, axis.y), std::fabs(axis.z)) * DegreesPerRadian;
  return {std::min(latitude, HighestLatitude_deg),
          std::atan2(-side * axis.y, -side * axis.x) * DegreesPerRadian};
}

std::optional<GeoPoint> dateLineCrossing(GeoPoint from, GeoPoint to) {
  if (std::fabs(to.longitude_deg - from.longitude_deg) <= 180) return std::nullopt;
  const Vector axis = cross(directionTo(from), directionTo(to));
  return GeoPoint{std::atan(axis.x / axis.z) * DegreesPerRadian,
                  std::copysign(180.0, from.longitude_deg)};
}

}  // namespace vorlent::sphere
