#pragma once

#include <algorithm>
#include <cmath>

namespace vorlent {

/// How a value goes to its target: at most `rate` a second, the rate itself changing by at most
/// `acceleration` a second, and closing the last bit in about `settling_s`.
struct FollowerLimits {
  double rate;
  double acceleration;
  double settling_s;
};

/// A value without jumps in itself or in its rate.
class SmoothFollower {
 public:
  explicit SmoothFollower(double value = 0) : value_(value) {}

  double value() const { return value_; }
  double rate() const { return rate_; }

  void step(double target, const FollowerLimits& limits, double dt_s) {
    const double gap = target - value_;
    // The speed from which half of the acceleration still stops at the target.
    const double stoppable = std::sqrt(limits.acceleration * std::fabs(gap));
    const double most = std::min(limits.rate, stoppable);
    const double wanted = std::clamp(gap / limits.settling_s, -most, most);
    const double change = limits.acceleration * dt_s;
    rate_ += std::clamp(wanted - rate_, -change, change);
    value_ += rate_ * dt_s;
  }

 private:
  double value_;
  double rate_ = 0;
};

}  // namespace vorlent
