#pragma once

#include "platform/EventLoop.h"
#include "tap/Tap.h"

namespace vorlent {

class TappedEventLoop : public EventLoop {
 public:
  TappedEventLoop(EventLoop& inner, Tap& tap) : inner_(inner), tap_(tap) {}

  std::unique_ptr<Timer> createTimer(std::function<void()> onTick) override {
    return inner_.createTimer([&tap = tap_, number = timers_++, onTick = std::move(onTick)] {
      tap.tell(recorded::TimerTicked{number});
      onTick();
    });
  }

  void pump() override {
    tap_.answer(recorded::Call::Pump, 1);
    tap_.flush();
    inner_.pump();
    tap_.answer(recorded::Call::Pump, 0);
  }

  void sleep(int duration_ms) override {
    tap_.answer(recorded::Call::Sleep, duration_ms);
    tap_.flush();
    inner_.sleep(duration_ms);
  }

  std::uint32_t tickCount_ms() override {
    const std::uint32_t now_ms = inner_.tickCount_ms();
    tap_.answer(recorded::Call::TickCount, now_ms);
    return now_ms;
  }

  LocalTime localTime() override;

  void end(int exitStatus) override {
    tap_.tell(recorded::Ended{exitStatus});
    tap_.flush();
    inner_.end(exitStatus);
  }

 private:
  EventLoop& inner_;
  Tap& tap_;
  std::uint32_t timers_ = 0;
};

}  // namespace vorlent
