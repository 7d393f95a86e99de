#pragma once

/// Great circles, worked out a second time: degrees, and nautical miles of a minute of arc.
namespace vorlent::independent {

constexpr double RadPerDeg = 0.0174532930056254;
constexpr double DegPerRad = 57.295777918682;
/// Nautical miles for an angle in radians, as 60 of them for a degree.
inline double milesOf(double radians) { return radians * 60 * DegPerRad; }

/// More than half a turn, to the other side.
inline double signedAngle(double degrees) { return degrees > 180 ? degrees - 360 : degrees; }

struct Place {
  double lat;
  double lon;
};

/// Central angle, radians.
double GetDXRadians(Place one, Place two);
inline double GetDX(Place one, Place two) { return milesOf(GetDXRadians(one, two)); }
/// 0 between equal latitudes or equal longitudes; faults where the angle between them is 0.
double GetCourse(Place to, Place from);
/// Latitude of the great circle with this highest point.
double GcLatAtLon(double lon, Place vertex);

}  // namespace vorlent::independent
