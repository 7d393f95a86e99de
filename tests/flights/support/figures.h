#pragma once

#include <algorithm>
#include <cmath>
#include <span>

#include "Flight.h"
#include "simulator/Units.h"

namespace vorlent {

using Samples = std::span<const Sample>;

/// The largest distance from `target` in either direction.
inline double largestError(Samples samples, double Sample::*what, double target) {
  double most = 0;
  for (const Sample& s : samples) most = std::max(most, std::fabs(s.*what - target));
  return most;
}

inline double highest(Samples samples, double Sample::*what) {
  return std::ranges::max(samples, {}, what).*what;
}

inline double lowest(Samples samples, double Sample::*what) {
  return std::ranges::min(samples, {}, what).*what;
}

inline double mean(Samples samples, double Sample::*what) {
  double sum = 0;
  for (const Sample& s : samples) sum += s.*what;
  return sum / static_cast<double>(samples.size());
}

/// Half of the way from the lowest to the highest value.
inline double swing(Samples samples, double Sample::*what) {
  return (highest(samples, what) - lowest(samples, what)) / 2;
}

inline double altitudeError(Samples samples) {
  double most = 0;
  for (const Sample& s : samples)
    most = std::max(most, std::fabs(s.altitude_ft - s.targetAltitude_ft));
  return most;
}

inline double speedError(Samples samples) {
  double most = 0;
  for (const Sample& s : samples) most = std::max(most, std::fabs(s.speed_kt - s.targetSpeed_kt));
  return most;
}

inline double headingError(Samples samples) {
  double most = 0;
  for (const Sample& s : samples)
    most = std::max(most, std::fabs(signedAngle(s.heading_deg - s.targetHeading_deg)));
  return most;
}

/// The largest deviation from the load of a steady turn with the bank of that moment.
inline double largestLoad(Samples samples) {
  double most = 0;
  for (const Sample& s : samples)
    most = std::max(most, std::fabs(s.load - 1 / std::cos(s.bank_deg * radiansPerDegree)));
  return most;
}

}  // namespace vorlent
