#pragma once

#include <algorithm>
#include <cstdint>

namespace vorlent {

/// Lets through `burst` at once and `perSecond` for good; what is more is refused and costs
/// nothing.
class RateLimit {
 public:
  RateLimit(double burst, double perSecond, std::uint32_t now_ms)
      : burst_(burst), perSecond_(perSecond), left_(burst), at_ms_(now_ms) {}

  /// `now_ms` may wrap at 2^32.
  bool take(double amount, std::uint32_t now_ms) {
    left_ = std::min(burst_, left_ + perSecond_ * (now_ms - at_ms_) / 1000.0);
    at_ms_ = now_ms;
    if (amount > left_) return false;
    left_ -= amount;
    return true;
  }

 private:
  double burst_;
  double perSecond_;
  double left_;
  std::uint32_t at_ms_;
};

}  // namespace vorlent
