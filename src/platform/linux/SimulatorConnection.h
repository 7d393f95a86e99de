#pragma once

#include <string>
#include <string_view>

#include "platform/SimulatorBus.h"
#include "platform/linux/Descriptor.h"

namespace vorlent {

/// A window of the simulator's, seen from this side: a SOCK_SEQPACKET connection to the socket at
/// `path`. One packet asks ("message", line feed, "atom"), one packet of four bytes answers.
///
///   Closed --open()--> Connected --time-out--> Late --next request()--> Connected
///   Connected or Late --the other side has gone--> Closed
///
/// After a time-out the connection is given up, because an answer that comes after all would be
/// taken for the next request's.
class SimulatorConnection {
 public:
  explicit SimulatorConnection(std::string path) : path_(std::move(path)) {}

  /// False when nobody listens.
  bool open();
  /// Whether the other side still holds the connection.
  bool isAlive() const;
  /// Waits at least 1 ms, and to within a tick of the kernel's clock. A connection that was closed
  /// gives an error, never a time-out.
  SendResult request(std::string_view message, std::string_view atom, int timeout_ms);

 private:
  enum class State { Closed, Connected, Late };

  int connectNow();
  bool sendRequest(std::string_view message, std::string_view atom);
  SendResult awaitAnswer(int timeout_ms);
  void answerTimeout(int timeout_ms);
  SendResult timedOut();
  SendResult failed(int systemError);
  void drop(State next);

  std::string path_;
  Descriptor socket_;
  std::string packet_;        ///< kept for its memory
  int answerTimeout_ms_ = 0;  ///< as set on the socket
  State state_ = State::Closed;
};

}  // namespace vorlent
