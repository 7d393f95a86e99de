#include "platform/qt/QtEventLoop.h"

#include <QBasicTimer>
#include <QCoreApplication>
#include <QObject>
#include <QTime>
#include <chrono>
#include <thread>
#include <utility>

#include "platform/qt/timerType.h"

namespace vorlent {
namespace {

/// An event of its own in place of QTimer's signal: with many displays a tick is what the loop does
/// most.
class QtTimer : public Timer, private QObject {
 public:
  explicit QtTimer(std::function<void()> onTick) : onTick_(std::move(onTick)) {}
  void start(int interval_ms) override { timer_.start(interval_ms, timerType(interval_ms), this); }
  void stop() override { timer_.stop(); }

 private:
  void timerEvent(QTimerEvent*) noexcept override { onTick_(); }

  std::function<void()> onTick_;
  QBasicTimer timer_;
};

}  // namespace

std::unique_ptr<Timer> QtEventLoop::createTimer(std::function<void()> onTick) {
  return std::make_unique<QtTimer>(std::move(onTick));
}

void QtEventLoop::pump() { QCoreApplication::processEvents(); }

void QtEventLoop::sleep(int duration_ms) {
  std::this_thread::sleep_for(std::chrono::milliseconds(duration_ms));
}

std::uint32_t QtEventLoop::tickCount_ms() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint32_t>(
      std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

LocalTime QtEventLoop::localTime() {
  const QTime now = QTime::currentTime();
  return {now.hour(), now.minute(), now.second()};
}

void QtEventLoop::end(int exitStatus) {
  if (!exitStatus_) exitStatus_ = exitStatus;
  QCoreApplication::exit(*exitStatus_);
}

int QtEventLoop::exec() {
  if (exitStatus_) return *exitStatus_;
  const int status = QCoreApplication::exec();
  return exitStatus_.value_or(status);
}

}  // namespace vorlent
