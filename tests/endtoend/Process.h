#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace vorlent {

using namespace std::chrono_literals;

/// A program as a child process, its standard input and output on pipes. Ended at the end of the
/// test if it still runs.
class Process {
 public:
  Process(const std::string& program, const std::vector<std::string>& arguments,
          const std::vector<std::string>& environment);
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  void type(const std::string& line) const;
  void signal(int number) const;
  /// The next output line for which this text is a part of it; nothing when none comes in time.
  std::optional<std::string> waitForLine(const std::string& part,
                                         std::chrono::milliseconds limit = 20s);
  /// The exit status; nothing when it does not end in time or ends by a signal.
  std::optional<int> waitForEnd(std::chrono::milliseconds limit = 40s);
  /// All that it has said so far, for messages.
  const std::string& output() const { return output_; }
  pid_t id() const { return id_; }

 private:
  bool readMore(std::chrono::steady_clock::time_point until);

  pid_t id_ = -1;
  int input_ = -1;
  int from_ = -1;
  std::string output_;
  std::size_t searched_ = 0;
  std::optional<int> waitStatus_;
};

}  // namespace vorlent
