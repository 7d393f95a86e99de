#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>

namespace vorlent {

/// A program in a session of its own whose terminal is in the test's hand. Killed at the end of the
/// test if it still runs.
class TerminalSession {
 public:
  TerminalSession(const std::string& program, const std::string& busFolder);
  ~TerminalSession();
  TerminalSession(const TerminalSession&) = delete;
  TerminalSession& operator=(const TerminalSession&) = delete;

  void type(const std::string& keys) const;
  /// Reads until this text has come; false when it does not come in time.
  bool waitFor(const std::string& text, std::chrono::milliseconds limit = std::chrono::seconds(20));
  /// As when its window is closed.
  void closeTerminal();
  /// The exit status; nothing when it does not end in time or ends by a signal.
  std::optional<int> waitForEnd(std::chrono::milliseconds limit = std::chrono::seconds(40));
  pid_t id() const { return id_; }

 private:
  pid_t id_ = -1;
  int terminal_ = -1;
  std::string output_;
  std::optional<int> waitStatus_;
};

}  // namespace vorlent
