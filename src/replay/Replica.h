#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "core/Server.h"
#include "replay/RecordedFolder.h"
#include "replay/ReplayBus.h"
#include "replay/ReplayHand.h"
#include "replay/ReplayLoop.h"
#include "replay/ReplayNetwork.h"
#include "replay/ReplayPorts.h"
#include "replay/Tape.h"
#include "replay/WriteComparison.h"

namespace vorlent {

/// A server that lives a recording again, in the recording's time: it is given what that one was
/// given, and what it writes is held against what that one wrote.
class Replica {
 public:
  /// Called after each poll.
  using Polled = std::function<void(std::int64_t time_us, const modPublic& store)>;

  /// Raises RuntimeError with a sentence for the user when it cannot be prepared. The reader stands
  /// at its beginning, and outlives this.
  explicit Replica(RecordingReader& reader);

  /// Lives all of it, or up to where events are missing.
  void run(const Polled& polled = nullptr);

  const WriteComparison& writes() const { return writes_; }
  /// Up to here it was lived.
  std::int64_t reached_us() const { return tape_.time_us(); }
  /// Events are missing here, and what follows is no continuation.
  std::optional<std::int64_t> gap_us() const { return gap_us_; }
  /// It ended then, and does so in another way now, or not at all: in a sentence, else empty.
  std::string differenceOfEnd() const;

 private:
  void wait(recorded::Call call);
  void deliverNext();
  void deliver(const recorded::What& what);
  void deliver(const recorded::DatagramCame& datagram);
  void deliver(const recorded::Answered& given);
  void advance();
  void countMissing();
  void note(const Polled& polled);

  Tape tape_;
  RecordedFolder folder_;
  WriteComparison writes_;
  std::optional<std::int64_t> gap_us_;
  std::optional<int> endedThen_;

  ReplayLoop loop_;
  ReplayOperator operator_;
  ReplayNetwork network_;
  ReplayBus bus_;
  ReplayNetworkFiles networkFiles_;
  ReplayPerformanceDb performanceDb_;
  ReplayControllers controllers_;
  ReplaySounds sounds_;
  ReplayMachine machine_;
  ReplayDocuments documents_;
  ReplayZipFiles zipFiles_;
  Server server_;
  ReplayHand hand_;
};

}  // namespace vorlent
