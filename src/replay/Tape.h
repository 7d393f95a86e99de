#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "recording/Event.h"

namespace vorlent {

class RecordingReader;

/// A recording as a server goes through it a second time, stretch by stretch. A stretch is what the
/// ports answered between two events that began something: a tick, a datagram, the operator's hand,
/// the beginning or the end of a wait.
///
/// Within a stretch the answers stand in a queue for each call, so that a server that asks in
/// another order, or not as often, gets what belongs to the stretch, and the next one begins as it
/// did.
class Tape {
 public:
  struct Exchange {
    std::int64_t time_us = 0;
    recorded::Exchanged what;
  };

  /// Reads the first stretch, the server's start.
  explicit Tape(RecordingReader& reader);

  /// The program folder at the start.
  const std::vector<recorded::FileKept>& files() const { return files_; }
  /// What ends this stretch and begins the next one; nothing at the end of the recording.
  const std::optional<recorded::Event>& boundary() const { return boundary_; }
  /// The boundary is the beginning (1) or the end (0) of a wait in this call.
  bool isAt(recorded::Call wait, std::int64_t number) const;
  /// Behind this stretch the recording was cut off, or events are missing: it may lack its own last
  /// ones, too.
  bool isCut() const;
  /// Goes beyond the boundary, into the next stretch.
  void advance();
  /// When this stretch began.
  std::int64_t time_us() const { return time_us_; }

  /// The next answer of this call, if there is one left. Raises what the port raised.
  std::optional<recorded::Answered> answer(recorded::Call call);
  std::int64_t numberOf(recorded::Call call, std::int64_t otherwise);
  /// As numberOf(), where the answer was yes or no.
  bool isYes(recorded::Call call) { return numberOf(call, 0) != 0; }
  std::string textOf(recorded::Call call);
  std::vector<std::string> linesOf(recorded::Call call);
  /// The messages to the simulator that have not been sent again yet.
  std::deque<Exchange>& exchanges() { return exchanges_; }

 private:
  void readStretch();
  void keep(recorded::Event event);

  RecordingReader& reader_;
  std::vector<recorded::FileKept> files_;
  std::optional<recorded::Event> boundary_;
  std::int64_t time_us_ = 0;
  std::map<recorded::Call, std::deque<std::variant<recorded::Answered, recorded::Raised>>> answers_;
  std::deque<Exchange> exchanges_;
};

}  // namespace vorlent
