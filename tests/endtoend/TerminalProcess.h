#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace vorlent {

/// A program on a terminal of its own, which is 24 lines high. Ended at the end of the test if it
/// still runs.
class TerminalProcess {
 public:
  TerminalProcess(const std::string& program, const std::vector<std::string>& arguments,
                  int columns);
  ~TerminalProcess();
  TerminalProcess(const TerminalProcess&) = delete;
  TerminalProcess& operator=(const TerminalProcess&) = delete;

  void type(const std::string& keys) const;
  /// Reads on until this text comes, behind what was waited for before.
  bool waitFor(const std::string& text, std::chrono::milliseconds limit = std::chrono::seconds(20));
  /// The exit status; nothing when it does not end in time or ends by a signal.
  std::optional<int> waitForEnd();
  /// Whether the terminal gives whole lines and echoes them, as a shell leaves it.
  bool givesLines() const;
  const std::string& output() const { return output_; }

 private:
  bool readMore(int limit_ms);

  pid_t id_ = -1;
  int terminal_ = -1;
  int lineSide_ = -1;  ///< kept open, so that the terminal outlives the program
  std::string output_;
  std::size_t searched_ = 0;
  bool ended_ = false;
};

}  // namespace vorlent
