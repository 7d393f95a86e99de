#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/EventLoop.h"
#include "recording/Event.h"

namespace vorlent {

class Tape;

/// Goes through what happened while the server waited in this call.
using Wait = std::function<void(recorded::Call call)>;

/// Timers that tick when they ticked in the recording, and its clock.
class ReplayLoop : public EventLoop {
 public:
  ReplayLoop(Tape& tape, Wait wait) : tape_(tape), wait_(std::move(wait)) {}

  std::unique_ptr<Timer> createTimer(std::function<void()> onTick) override;
  void pump() override { wait_(recorded::Call::Pump); }
  void sleep(int duration_ms) override;
  std::uint32_t tickCount_ms() override;
  LocalTime localTime() override;
  void end(int exitStatus) override;

  /// The timers count from 0, in the order in which they were made. One that does not run now, or
  /// is not there, does not tick.
  void tick(std::uint32_t timer);
  std::optional<int> exitStatus() const { return exitStatus_; }

 private:
  class ReplayTimer;

  Tape& tape_;
  Wait wait_;
  std::vector<ReplayTimer*> timers_;
  std::optional<int> exitStatus_;
};

}  // namespace vorlent
