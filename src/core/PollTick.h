#pragma once

#include <cstdint>
#include <optional>

namespace vorlent {

class Snapshot;
struct Server;

/// One poll of the simulator and all that follows from it: what was read is decoded, becomes the
/// record that the sessions send, and is heard.
class PollTick {
 public:
  explicit PollTick(Server& server) : server_(server) {}

  void run();
  /// The part between the simulator and the sounds.
  void decodeAndRecord(const Snapshot& snapshot);
  /// How long ago the last poll ended; nothing before the first.
  std::optional<std::uint32_t> age_ms() const;

 private:
  void record();
  bool isXPlane() const;

  Server& server_;
  std::optional<std::uint32_t> lastPoll_ms_;
};

}  // namespace vorlent
