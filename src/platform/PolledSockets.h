#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/UdpSocket.h"

namespace vorlent {

/// One IPv4 datagram socket that is looked at when there is time. Nothing here waits.
class PolledDatagrams {
 public:
  struct Datagram {
    Endpoint sender;
    std::string bytes;
  };

  virtual ~PolledDatagrams() = default;
  /// The oldest that waits, cut off behind 65507 bytes.
  virtual std::optional<Datagram> receive() = 0;
  /// One attempt. Whether the system took it.
  virtual bool send(const Endpoint& receiver, std::string_view bytes) = 0;
};

/// One TCP connection that this side opens. Nothing here waits.
class PolledConnection {
 public:
  enum class State { Opening, Open, Closed };

  virtual ~PolledConnection() = default;
  virtual State state() = 0;
  /// What has come since the last time.
  virtual std::string receive() = 0;
  /// Whether all of it was taken; false closes the connection.
  virtual bool send(std::string_view bytes) = 0;
};

/// Sockets for a program that turns in a loop of its own.
class PolledSockets {
 public:
  virtual ~PolledSockets() = default;
  /// The IPv4 address of a machine, empty when the name is not known. May wait for the name
  /// service.
  virtual std::string addressOf(const std::string& host) = 0;
  /// Bound to the port, 0 for any; an address of this machine or 0.0.0.0. Raises RuntimeError with
  /// a sentence for the user.
  virtual std::unique_ptr<PolledDatagrams> datagrams(const std::string& address,
                                                     std::uint16_t port) = 0;
  /// What is sent to a multicast group. Other programs of this machine may listen as well. Raises
  /// as datagrams() does.
  virtual std::unique_ptr<PolledDatagrams> group(const std::string& group, std::uint16_t port) = 0;
  /// Closed at once when there is no way there.
  virtual std::unique_ptr<PolledConnection> connect(const Endpoint& server) = 0;
  /// A descriptor that can be read while something waits at one of these sockets, for a loop that
  /// waits for other things too; -1 where the system has none.
  virtual int arrivals() const { return -1; }
};

std::unique_ptr<PolledSockets> systemSockets();

}  // namespace vorlent
