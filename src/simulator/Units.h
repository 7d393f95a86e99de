#pragma once

#include <cmath>
#include <numbers>

namespace vorlent {

constexpr double metresPerFoot = 0.3048;
constexpr double metresPerNauticalMile = 1852.0;
constexpr double metresPerSecondPerKnot = 1852.0 / 3600.0;
constexpr double metresPerSecondPerFpm = 0.3048 / 60.0;
constexpr double kilogramsPerPound = 0.45359237;
constexpr double newtonsPerPoundForce = 4.4482216152605;
constexpr double kelvinAtZeroCelsius = 273.15;
constexpr double radiansPerDegree = std::numbers::pi / 180.0;

/// The same direction, 0 up to but not including 360.
inline double compass(double angle_deg) {
  const double turn = std::fmod(angle_deg, 360.0);
  const double positive = turn < 0 ? turn + 360.0 : turn;
  return positive < 360.0 ? positive : 0.0;
}

/// The same direction, -180 up to but not including 180.
inline double signedAngle(double angle_deg) { return compass(angle_deg + 180.0) - 180.0; }

}  // namespace vorlent
