#pragma once

#include <cmath>
#include <cstdlib>

namespace vorlent {

/// Rounds to `decimals` decimals, halves away from zero; a negative number counts places before the
/// mark, so that -2 gives whole hundreds.
inline double RoundTo(double x, int decimals) {
  const double unit = std::pow(10.0, std::abs(decimals));
  return decimals < 0 ? std::round(x / unit) * unit : std::round(x * unit) / unit;
}

}  // namespace vorlent
