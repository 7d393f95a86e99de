#pragma once

#include <optional>

#include "platform/EventLoop.h"

namespace vorlent {

/// The event loop of the program's QCoreApplication, which is made before and goes after. A
/// callback that lets an exception out ends the process: it never unwinds through Qt.
///
/// A program with windows turns off QGuiApplication::quitOnLastWindowClosed: only end() ends it.
class QtEventLoop : public EventLoop {
 public:
  /// Precise to the millisecond, on Windows below 250 ms. A timer does not tick inside its own
  /// tick; ticks that fall due meanwhile become one.
  std::unique_ptr<Timer> createTimer(std::function<void()> onTick) override;
  /// May be called from within a callback.
  void pump() override;
  void sleep(int duration_ms) override;
  std::uint32_t tickCount_ms() override;
  LocalTime localTime() override;
  /// May come before exec(). The first status stays.
  void end(int exitStatus) override;

  /// Runs until end() and returns its status; at once when end() has already been called.
  int exec();

 private:
  std::optional<int> exitStatus_;
};

}  // namespace vorlent
