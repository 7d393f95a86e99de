#pragma once

#include <QSocketNotifier>
#include <functional>

namespace vorlent {

/// SIGINT, SIGTERM and SIGHUP, delivered through the event loop of the program's QCoreApplication,
/// nested pumps included. There is at most one object at a time; when it goes, the signals do what
/// they did before. A SIGHUP that is ignored stays so.
class Signals {
 public:
  /// `onTermination` gets the signal's number and may not let an exception out.
  explicit Signals(std::function<void(int signal)> onTermination);
  ~Signals();
  Signals(const Signals&) = delete;
  Signals& operator=(const Signals&) = delete;

 private:
  void deliver();

  std::function<void(int)> onTermination_;
  QSocketNotifier notifier_;
};

}  // namespace vorlent
