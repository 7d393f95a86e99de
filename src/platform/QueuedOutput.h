#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string_view>

namespace vorlent {

/// Lines to a descriptor whose reader may stand still: a pipe that nobody empties, a terminal after
/// Ctrl-S. Nothing here waits for him. Lines keep their order; when too many wait, the next ones
/// are dropped, and where they are missing "(12 lines dropped)" is written once there is room
/// again.
///
/// A thread of its own writes, in place of O_NONBLOCK: that belongs to the open file and not to the
/// descriptor, so it would fall on every process that shares the terminal or pipe. Nor is it enough
/// to ask poll() first: a terminal takes one byte and then lets a writer wait with the rest.
class QueuedOutput {
 public:
  static constexpr std::size_t Capacity_bytes = 262'144;
  static constexpr std::chrono::milliseconds LongestFarewell{200};

  /// `descriptor` stays the caller's and open for as long as the process lives.
  explicit QueuedOutput(int descriptor, std::size_t capacity_bytes = Capacity_bytes);
  /// Waits for what is still queued, at most LongestFarewell.
  ~QueuedOutput();
  QueuedOutput(const QueuedOutput&) = delete;
  QueuedOutput& operator=(const QueuedOutput&) = delete;

  /// `line` with its line feed. One that cannot be written, to a terminal that was closed say, is
  /// dropped. A line larger than the capacity is taken when no other one waits.
  void write(std::string_view line);

 private:
  class Queue;
  /// The thread's as well: it can stand in a write that never ends.
  std::shared_ptr<Queue> queue_;
};

}  // namespace vorlent
