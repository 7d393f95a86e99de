#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "recording/Event.h"
#include "replay/PlayClock.h"
#include "simulator/OffsetMemory.h"
#include "simulator/RequestServer.h"

namespace vorlent {

class RecordingReader;

/// A recording in a simulator's place: it has at every offset what was last read there. Before the
/// first poll that is the first poll already, so that a server can start on it. What is written to
/// it is taken and forgotten.
class Player {
 public:
  /// Raises RuntimeError with a sentence for the user when there is no poll in it. The reader
  /// stands at its beginning, and outlives this.
  explicit Player(RecordingReader& reader);

  /// Real time passes, in seconds.
  void advance(double elapsed_s);
  std::int32_t answer(std::span<std::byte> block) { return requests_.serve(block); }
  PlayClock& clock() { return clock_; }
  /// It was recorded behind XPUIPC.
  bool isXPlane() const;

 private:
  void show(std::int64_t time_us);
  void findFirstPoll();
  std::optional<recorded::Event> next();
  void take(const recorded::Event& event);
  void forget(std::size_t offset, std::size_t size);

  RecordingReader& reader_;
  PlayClock clock_;
  OffsetMemory recorded_;
  OffsetMemory memory_;  ///< as `recorded_`, but for a moment where something is written
  RequestServer requests_;
  std::int64_t firstPoll_us_ = 0;
  std::int64_t shown_us_ = 0;
  std::optional<recorded::Event> ahead_;  ///< read already, and not due yet
};

}  // namespace vorlent
