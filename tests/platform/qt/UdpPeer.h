#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <string>

namespace vorlent {

/// The other side of a conversation: a bare socket on 127.0.0.1 with a free port.
class UdpPeer {
 public:
  UdpPeer() : descriptor_(socket(AF_INET, SOCK_DGRAM, 0)) {
    sockaddr_in address = loopback(0);
    bind(descriptor_, reinterpret_cast<sockaddr*>(&address), sizeof address);
    socklen_t size = sizeof address;
    getsockname(descriptor_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
  }
  ~UdpPeer() { close(descriptor_); }
  UdpPeer(const UdpPeer&) = delete;
  UdpPeer& operator=(const UdpPeer&) = delete;

  std::uint16_t port() const { return port_; }

  void sendTo(std::uint16_t port, const std::string& text) const {
    const sockaddr_in to = loopback(port);
    sendto(descriptor_, text.data(), text.size(), 0, reinterpret_cast<const sockaddr*>(&to),
           sizeof to);
  }

  /// Waits 10 s at most; "(nothing)" then. `lastSenderPort()` tells where it came from.
  std::string receive() {
    std::array<char, 65536> buffer;
    sockaddr_in from{};
    socklen_t size = sizeof from;
    pollfd waiting{descriptor_, POLLIN, 0};
    const bool ready = poll(&waiting, 1, 10000) > 0;
    const auto count = ready ? recvfrom(descriptor_, buffer.data(), buffer.size(), 0,
                                        reinterpret_cast<sockaddr*>(&from), &size)
                             : -1;
    lastSenderPort_ = ntohs(from.sin_port);
    return count < 0 ? "(nothing)" : std::string(buffer.data(), static_cast<std::size_t>(count));
  }
  std::uint16_t lastSenderPort() const { return lastSenderPort_; }

 private:
  static sockaddr_in loopback(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
  }

  int descriptor_;
  std::uint16_t port_ = 0;
  std::uint16_t lastSenderPort_ = 0;
};

}  // namespace vorlent
