#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/linux/Descriptor.h"

namespace vorlent {

/// The moment now on the clock that stamps datagrams, in nanoseconds.
std::int64_t now_ns();
/// Sleeps until this moment of that clock.
void sleepUntil_ns(std::int64_t moment_ns);

/// A display's socket on 127.0.0.1. The kernel stamps each datagram when it queues it here, which
/// on loopback happens within the sender's own call: a stamp is the moment of sending, whenever
/// this process comes to read it.
class StampedSocket {
 public:
  using Take = std::function<void(std::string_view datagram, std::int64_t stamp_ns)>;

  StampedSocket();

  std::uint16_t port() const;
  void send(std::uint16_t port, std::string_view text) const;
  /// Hands out all that waits.
  void drain(const Take& take) const;
  /// As drain(), after having waited for a datagram; false when none comes in time.
  bool drainWithin(std::chrono::milliseconds limit, const Take& take) const;
  /// Sends `greeting` again and again until a record has come; its stamp. Raises std::runtime_error
  /// when none comes within 20 s.
  std::int64_t greetUntilRecord(std::uint16_t port, std::string_view greeting) const;

 private:
  Descriptor socket_;
};

}  // namespace vorlent
