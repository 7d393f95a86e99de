#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cstdint>

#include "platform/linux/Descriptor.h"

namespace vorlent {

inline sockaddr_in loopbackAddress(std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

inline Descriptor tcpSocket() { return Descriptor(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)); }

inline bool connectTo(const Descriptor& socket, std::uint16_t port) {
  const sockaddr_in address = loopbackAddress(port);
  return connect(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

/// The port that the socket takes connections on, a free one.
inline std::uint16_t listenOnFreePort(const Descriptor& socket) {
  sockaddr_in address = loopbackAddress(0);
  socklen_t size = sizeof address;
  constexpr int Waiting = 16;
  if (bind(socket.number(), reinterpret_cast<const sockaddr*>(&address), size) != 0 ||
      listen(socket.number(), Waiting) != 0 ||
      getsockname(socket.number(), reinterpret_cast<sockaddr*>(&address), &size) != 0)
    return 0;
  return ntohs(address.sin_port);
}

/// One that was free a moment ago.
inline std::uint16_t freeTcpPort() { return listenOnFreePort(tcpSocket()); }

/// Whether somebody takes connections there.
inline bool isServed(std::uint16_t port) { return connectTo(tcpSocket(), port); }

}  // namespace vorlent
