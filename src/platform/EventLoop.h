#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace vorlent {

/// A repeating timer. A late tick is not made up for by others.
class Timer {
 public:
  virtual ~Timer() = default;
  /// Starts, or starts anew with another interval of at least 1 ms.
  virtual void start(int interval_ms) = 0;
  virtual void stop() = 0;
};

/// A moment of the computer's own day.
struct LocalTime {
  int hour = 0;    ///< 0..23
  int minute = 0;  ///< 0..59
  int second = 0;  ///< 0..59
};

/// The one thread's source of events.
class EventLoop {
 public:
  virtual ~EventLoop() = default;
  virtual std::unique_ptr<Timer> createTimer(std::function<void()> onTick) = 0;
  /// Dispatches the events that wait now and returns.
  virtual void pump() = 0;
  /// Blocks without dispatching anything.
  virtual void sleep(int duration_ms) = 0;
  /// Milliseconds since some fixed moment; wraps at 2^32.
  virtual std::uint32_t tickCount_ms() = 0;
  /// By the clock on the wall, in the zone that the computer is set to.
  virtual LocalTime localTime() = 0;
  /// Leaves the loop, nested ones included; the process then ends with this status.
  virtual void end(int exitStatus) = 0;
};

}  // namespace vorlent
