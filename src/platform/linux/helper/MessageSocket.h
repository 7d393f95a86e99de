#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/Descriptor.h"

namespace vorlent {

/// What a program and its helper tell each other: a few texts, of any bytes. On the wire it is the
/// length of what follows, then for each text its length and its bytes; a length is 32 bits, little
/// endian.
using Message = std::vector<std::string>;

/// One end of the connection of a program and its helper.
class MessageSocket {
 public:
  using Clock = std::chrono::steady_clock;
  static constexpr Clock::time_point Forever = Clock::time_point::max();
  enum class Outcome { Done, Closed, Late };

  explicit MessageSocket(Descriptor socket) : socket_(std::move(socket)) {}

  int descriptor() const { return socket_.number(); }
  /// Late leaves a part of the message sent, after which the connection is of no use.
  Outcome send(const Message& message, Clock::time_point until = Forever) const;
  /// One that is longer than `most_bytes`, or in pieces that do not fit, counts as Closed.
  Outcome receive(Message& message, std::size_t most_bytes,
                  Clock::time_point until = Forever) const;

 private:
  Outcome await(short events, Clock::time_point until) const;
  Outcome receiveBytes(std::string& bytes, Clock::time_point until) const;

  Descriptor socket_;
};

/// The texts of a message's bytes, without the length in front; nothing when they do not fit.
std::optional<Message> unpacked(std::string_view bytes);

}  // namespace vorlent
