#pragma once

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

 private:
  void record();

  Server& server_;
};

}  // namespace vorlent
