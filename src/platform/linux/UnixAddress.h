#pragma once

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <optional>
#include <string>

#include "platform/linux/Descriptor.h"

namespace vorlent {

/// Nothing when the path is too long for an address.
inline std::optional<sockaddr_un> unixAddress(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) return std::nullopt;
  std::memcpy(address.sun_path, path.data(), path.size());
  return address;
}

/// False, with the reason in `errno`, when nobody takes the connection.
inline bool connectTo(const Descriptor& socket, const sockaddr_un& address) {
  return connect(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

/// Whether at the other end of the connection is a process of `user`, or of root's, who may do as
/// any user does.
inline bool isOwnPeer(const Descriptor& socket, uid_t user = geteuid()) {
  ucred peer{};
  socklen_t size = sizeof peer;
  return getsockopt(socket.number(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
         (peer.uid == user || peer.uid == 0);
}

/// For packets: none is split or joined, and no call waits.
inline Descriptor newPacketSocket() {
  return Descriptor(socket(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

}  // namespace vorlent
