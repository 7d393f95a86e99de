#include "support/VirtualEventLoop.h"

#include <algorithm>

namespace vorlent {

class VirtualEventLoop::VirtualTimer : public Timer {
 public:
  VirtualTimer(VirtualEventLoop& loop, std::function<void()> onTick)
      : loop_(loop), onTick_(std::move(onTick)) {
    loop_.timers_.push_back(this);
  }
  ~VirtualTimer() override { std::erase(loop_.timers_, this); }

  void start(int interval_ms) override {
    interval_ms_ = interval_ms;
    due_ms_ = loop_.now_ms_ + interval_ms;
  }
  void stop() override { due_ms_.reset(); }

  std::optional<std::int64_t> due_ms() const { return due_ms_; }
  bool runsEvery(int interval_ms) const { return due_ms_ && interval_ms_ == interval_ms; }
  /// A late tick moves the next ones with it.
  void tick() {
    due_ms_ = std::max(*due_ms_, loop_.now_ms_) + interval_ms_;
    onTick_();
  }

 private:
  VirtualEventLoop& loop_;
  std::function<void()> onTick_;
  int interval_ms_ = 0;
  std::optional<std::int64_t> due_ms_;
};

std::unique_ptr<Timer> VirtualEventLoop::createTimer(std::function<void()> onTick) {
  return std::make_unique<VirtualTimer>(*this, std::move(onTick));
}

VirtualEventLoop::VirtualTimer* VirtualEventLoop::nextDue(std::int64_t until_ms) const {
  VirtualTimer* next = nullptr;
  for (VirtualTimer* timer : timers_) {
    const auto due = timer->due_ms();
    if (due && *due <= until_ms && (next == nullptr || *due < *next->due_ms())) next = timer;
  }
  return next;
}

int VirtualEventLoop::running(int interval_ms) const {
  return static_cast<int>(std::count_if(timers_.begin(), timers_.end(), [=](const auto* timer) {
    return timer->runsEvery(interval_ms);
  }));
}

void VirtualEventLoop::pump() {
  const auto events = std::exchange(posted_, {});
  for (const auto& event : events) event();
  const std::int64_t now = now_ms_;
  while (VirtualTimer* timer = nextDue(now)) timer->tick();
}

void VirtualEventLoop::sleep(int duration_ms) {
  if (onSleep) onSleep(duration_ms);
  now_ms_ += duration_ms;
  slept_ms_ += duration_ms;
}

void VirtualEventLoop::advance(int duration_ms) {
  const std::int64_t until_ms = now_ms_ + duration_ms;
  while (VirtualTimer* timer = nextDue(until_ms)) {
    now_ms_ = std::max(now_ms_, *timer->due_ms());
    timer->tick();
  }
  now_ms_ = std::max(now_ms_, until_ms);
}

}  // namespace vorlent
