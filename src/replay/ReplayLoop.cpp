#include "replay/ReplayLoop.h"

#include <utility>

#include "recording/portTexts.h"
#include "replay/Tape.h"

namespace vorlent {

using recorded::Call;

class ReplayLoop::ReplayTimer : public Timer {
 public:
  ReplayTimer(ReplayLoop& loop, std::function<void()> onTick)
      : onTick_(std::move(onTick)), place_(&loop.timers_), number_(loop.timers_.size()) {
    place_->push_back(this);
  }
  ~ReplayTimer() override { (*place_)[number_] = nullptr; }

  void start(int) override { runs_ = true; }
  void stop() override { runs_ = false; }
  /// A tick can be the end of its timer.
  void tick() const {
    const auto work = onTick_;
    if (runs_) work();
  }

 private:
  std::function<void()> onTick_;
  std::vector<ReplayTimer*>* place_;
  std::size_t number_;
  bool runs_ = false;
};

std::unique_ptr<Timer> ReplayLoop::createTimer(std::function<void()> onTick) {
  return std::make_unique<ReplayTimer>(*this, std::move(onTick));
}

void ReplayLoop::tick(std::uint32_t timer) {
  if (timer < timers_.size() && timers_[timer] != nullptr) timers_[timer]->tick();
}

void ReplayLoop::sleep(int) { tape_.answer(Call::Sleep); }

std::uint32_t ReplayLoop::tickCount_ms() {
  return static_cast<std::uint32_t>(tape_.numberOf(Call::TickCount, tape_.time_us() / 1000));
}

LocalTime ReplayLoop::localTime() { return recorded::timeOf(tape_.numberOf(Call::LocalTime, 0)); }

void ReplayLoop::end(int exitStatus) {
  if (!exitStatus_) exitStatus_ = exitStatus;
}

}  // namespace vorlent
