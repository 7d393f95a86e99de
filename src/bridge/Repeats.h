#pragma once

namespace vorlent {

/// A datagram may be lost on the way: what is written goes out three times, if nothing newer does.
class Repeats {
 public:
  void begin(double now_s) {
    left_ = 2;
    next_s_ = now_s + Pause_s;
  }
  /// Whether it is time for another one; counts it.
  bool due(double now_s) {
    if (left_ == 0 || now_s < next_s_) return false;
    --left_;
    next_s_ = now_s + Pause_s;
    return true;
  }
  bool over() const { return left_ == 0; }

 private:
  static constexpr double Pause_s = 0.05;

  int left_ = 0;
  double next_s_ = 0;
};

}  // namespace vorlent
