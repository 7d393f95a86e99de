#pragma once

#include <array>
#include <cmath>

#include "flightplan/FlightPlanRecord.h"

/// Great circles by vectors from the earth's centre, x toward 0 N 0 E, z toward the pole.
namespace vorlent::sphere {

using Vector = std::array<double, 3>;

constexpr double degree = 3.14159265358979323846 / 180;

inline Vector at(double latitude_deg, double longitude_deg) {
  const double across = std::cos(latitude_deg * degree);
  return {across * std::cos(longitude_deg * degree), across * std::sin(longitude_deg * degree),
          std::sin(latitude_deg * degree)};
}

inline double dot(const Vector& a, const Vector& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
inline Vector cross(const Vector& a, const Vector& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
inline double length(const Vector& a) { return std::sqrt(dot(a, a)); }

inline double angle(const Vector& a, const Vector& b) {
  return std::atan2(length(cross(a, b)), dot(a, b));
}
inline double nauticalMiles(const Vector& a, const Vector& b) { return angle(a, b) / degree * 60; }

/// Degrees true, at `from`.
inline double course(const Vector& from, const Vector& to) {
  const Vector east = {-from[1], from[0], 0};
  const Vector north = cross(from, east);
  const double degrees = std::atan2(dot(to, east), dot(to, north)) / degree;
  return degrees < 0 ? degrees + 360 : degrees;
}

/// Latitude of the great circle through both, at a longitude.
inline double latitudeOn(const Vector& a, const Vector& b, double longitude_deg) {
  const Vector axis = cross(a, b);
  return std::atan(-(axis[0] * std::cos(longitude_deg * degree) +
                     axis[1] * std::sin(longitude_deg * degree)) /
                   axis[2]) /
         degree;
}

inline Vector at(const FlightPlanRecord& row) { return at(row.Latitude, row.Longitude); }

inline FlightPlanRecord waypoint(const char* name, double latitude_deg, double longitude_deg) {
  FlightPlanRecord row;
  row.Name = name;
  row.Latitude = static_cast<float>(latitude_deg);
  row.Longitude = static_cast<float>(longitude_deg);
  return row;
}

/// Gives the two rows of a leg its course and its northernmost point.
inline void connect(FlightPlanRecord& from, FlightPlanRecord& to) {
  const Vector axis = cross(at(from), at(to));
  // The pole, less what of it lies along the axis.
  const double along = axis[2] / dot(axis, axis);
  const Vector top = {-along * axis[0], -along * axis[1], 1 - along * axis[2]};
  from.VertexLat = static_cast<float>(std::atan2(top[2], std::hypot(top[0], top[1])) / degree);
  from.VertexLon = static_cast<float>(std::atan2(top[1], top[0]) / degree);
  to.Course = static_cast<float>(course(at(from), at(to)));
}

}  // namespace vorlent::sphere
