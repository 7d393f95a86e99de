#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace vorlent {

/// A program, looked for in PATH, that is run without a shell. Of this process's descriptors it has
/// none but those it is given, and a Ctrl-C in the terminal is not meant for it. At the end of the
/// object it is killed, if it still runs, and waited for.
class ChildProcess {
 public:
  /// The descriptors become its standard input and output; -1 is /dev/null, as is its standard
  /// error. Nothing when it could not be started.
  static std::optional<ChildProcess> start(std::vector<std::string> arguments, int input,
                                           int output);
  ChildProcess(ChildProcess&& other) noexcept;
  ChildProcess& operator=(ChildProcess&& other) noexcept;
  ~ChildProcess();

  /// Whether it ended before the deadline.
  bool awaitEnd(int deadline_ms) const;
  pid_t id() const { return id_; }

 private:
  explicit ChildProcess(pid_t id) : id_(id) {}

  pid_t id_;  ///< 0 when moved away
};

/// Runs a program with no input, and waits for it. Gives what it wrote to standard output; past the
/// deadline it is killed and gives what it had written until then. Nothing when it could not be
/// started.
std::optional<std::string> runChild(std::vector<std::string> arguments, int deadline_ms);

}  // namespace vorlent
