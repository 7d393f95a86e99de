#pragma once

#include <chrono>
#include <cstddef>
#include <string>

#include "platform/helper/Message.h"
#include "platform/linux/Descriptor.h"

namespace vorlent {

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

}  // namespace vorlent
