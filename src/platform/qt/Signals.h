#pragma once

#include <functional>
#include <memory>

namespace vorlent {

/// SIGINT, SIGTERM and SIGHUP, delivered through the event loop of the program's QCoreApplication,
/// nested pumps included. On Windows Ctrl-C and Ctrl-Break come as SIGINT; a console that is
/// closed, a log-off and a shutdown as SIGTERM, and the system then waits 5 s for the program to
/// end. There is at most one object at a time; when it goes, the signals do what they did before. A
/// SIGHUP that is ignored stays so.
class Signals {
 public:
  /// `onTermination` gets the signal's number and may not let an exception out.
  explicit Signals(std::function<void(int signal)> onTermination);
  ~Signals();
  Signals(const Signals&) = delete;
  Signals& operator=(const Signals&) = delete;

 private:
  class Catch;
  std::unique_ptr<Catch> catch_;
};

}  // namespace vorlent
