#pragma once

#include <algorithm>
#include <cmath>
#include <span>

#include "Flight.h"
#include "base/units.h"
#include "simulator/angles.h"

namespace vorlent {

using Samples = std::span<const Sample>;

/// The largest value of `measure(sample)`, and 0 at least.
template <class Measure>
double largest(Samples samples, const Measure& measure) {
  double most = 0;
  for (const Sample& s : samples) most = std::max(most, measure(s));
  return most;
}

/// The largest distance from `target` in either direction.
inline double largestError(Samples samples, double Sample::*what, double target) {
  return largest(samples, [&](const Sample& s) { return std::fabs(s.*what - target); });
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

inline double altitudeError_ft(Samples samples) {
  return largest(samples,
                 [](const Sample& s) { return std::fabs(s.altitude_ft - s.targetAltitude_ft); });
}

inline double speedError_kt(Samples samples) {
  return largest(samples, [](const Sample& s) { return std::fabs(s.speed_kt - s.targetSpeed_kt); });
}

inline double headingError_deg(Samples samples) {
  return largest(samples, [](const Sample& s) {
    return std::fabs(signedAngle(s.heading_deg - s.targetHeading_deg));
  });
}

inline double bankBeyondLimit_deg(Samples samples) {
  return largest(samples, [](const Sample& s) { return std::fabs(s.bank_deg) - s.bankLimit_deg; });
}

/// The largest deviation from the load of a steady turn with the bank of that moment.
inline double largestLoad_g(Samples samples) {
  return largest(samples, [](const Sample& s) {
    return std::fabs(s.load - 1 / std::cos(s.bank_deg * RadiansPerDegree));
  });
}

}  // namespace vorlent
