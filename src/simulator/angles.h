#pragma once

#include <cmath>

namespace vorlent {

/// The same direction, 0 up to but not including 360.
inline double compass(double angle_deg) {
  const double turn = std::fmod(angle_deg, 360.0);
  const double positive = turn < 0 ? turn + 360.0 : turn;
  return positive < 360.0 ? positive : 0.0;
}

/// The same direction, -180 up to but not including 180.
inline double signedAngle(double angle_deg) { return compass(angle_deg + 180.0) - 180.0; }

}  // namespace vorlent
