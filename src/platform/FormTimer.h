#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "base/RuntimeError.h"
#include "platform/EventLoop.h"

namespace vorlent {

/// A form's timer control. Interval in milliseconds, 0 to 65535; with an interval of 0 it does not
/// tick. Off when made.
class FormTimer {
 public:
  FormTimer(EventLoop& loop, int interval_ms, std::function<void()> onTick)
      : timer_(loop.createTimer(std::move(onTick))), interval_ms_(interval_ms) {}

  int Interval() const { return interval_ms_; }
  /// Raises InvalidCall outside 0..65535 and keeps the former interval then.
  void Interval(int interval_ms) {
    if (interval_ms < 0 || interval_ms > 65535) throw RuntimeError(RuntimeError::InvalidCall);
    if (interval_ms == interval_ms_) return;
    interval_ms_ = interval_ms;
    apply();
  }

  bool Enabled() const { return enabled_; }
  void Enabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    apply();
  }

 private:
  void apply() {
    if (enabled_ && interval_ms_ > 0)
      timer_->start(interval_ms_);
    else
      timer_->stop();
  }

  std::unique_ptr<Timer> timer_;
  int interval_ms_;
  bool enabled_ = false;
};

}  // namespace vorlent
