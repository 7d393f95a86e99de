#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/EventLoop.h"

namespace vorlent {

/// Virtual time: a day passes in the time that its ticks take. Posted events and due timers run in
/// pump() and advance(); sleep() lets time pass and runs nothing.
class VirtualEventLoop : public EventLoop {
 public:
  std::unique_ptr<Timer> createTimer(std::function<void()> onTick) override;
  void pump() override;
  void sleep(int duration_ms) override;
  std::uint32_t tickCount_ms() override { return static_cast<std::uint32_t>(now_ms_); }
  LocalTime localTime() override { return timeOfDay; }
  void end(int exitStatus) override { exitStatus_ = exitStatus; }

  /// Lets time pass and runs every tick at its moment, in the order of those moments.
  void advance(int duration_ms);
  /// Runs at the next pump.
  void post(std::function<void()> event) { posted_.push_back(std::move(event)); }
  /// Stands still.
  LocalTime timeOfDay{12, 34, 56};
  /// Called at each sleep, with its length, before time passes.
  std::function<void(int)> onSleep;

  std::int64_t now_ms() const { return now_ms_; }
  std::optional<int> exitStatus() const { return exitStatus_; }
  int sleptInTotal_ms() const { return slept_ms_; }
  /// How many timers of this interval are started.
  int running(int interval_ms) const;

 private:
  class VirtualTimer;
  VirtualTimer* nextDue(std::int64_t until_ms) const;

  std::int64_t now_ms_ = 1000000;
  int slept_ms_ = 0;
  std::optional<int> exitStatus_;
  std::vector<VirtualTimer*> timers_;
  std::vector<std::function<void()>> posted_;
};

}  // namespace vorlent
