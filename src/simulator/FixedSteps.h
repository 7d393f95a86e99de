#pragma once

namespace vorlent {

/// Time in steps of one length. What is left of the time that passed waits for the next call, so
/// what is stepped does not depend on how time is cut.
class FixedSteps {
 public:
  explicit FixedSteps(double step_s) : step_s_(step_s) {}

  /// Calls `advance` once for each step that is due.
  template <class Advance>
  void pass(double dt_s, const Advance& advance) {
    // A rounding error in the sum of the steps must not hold a step back.
    constexpr double Tolerance_s = 1e-6;
    waiting_s_ += dt_s;
    for (; waiting_s_ >= step_s_ - Tolerance_s; waiting_s_ -= step_s_) advance();
  }

 private:
  double step_s_;
  double waiting_s_ = 0;
};

}  // namespace vorlent
