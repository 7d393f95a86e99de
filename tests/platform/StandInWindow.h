#pragma once

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <array>
#include <cstdint>
#include <string>
#include <thread>
#include <utility>

#include "platform/linux/Descriptor.h"

namespace vorlent {

/// One end of a connection in the simulator's hand, with bare system calls. A packet is waited for
/// 10 s at most and is "(nothing)" then.
class StandInClient {
 public:
  explicit StandInClient(int listening) {
    pollfd waiting{listening, POLLIN, 0};
    if (poll(&waiting, 1, 10000) > 0) socket_ = Descriptor(accept(listening, nullptr, nullptr));
  }
  std::string receive() const {
    std::array<char, 512> packet;
    pollfd waiting{socket_.number(), POLLIN, 0};
    const bool ready = socket_ && poll(&waiting, 1, 10000) > 0;
    const auto size = ready ? recv(socket_.number(), packet.data(), packet.size(), 0) : -1;
    return size < 0 ? "(nothing)" : std::string(packet.data(), static_cast<std::size_t>(size));
  }
  void sendPacket(const std::string& bytes) const {
    send(socket_.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
  }
  void close() { socket_ = Descriptor(); }

 private:
  Descriptor socket_;
};

/// A window of the simulator's: a socket that listens at folder/class.
class StandInWindow {
 public:
  StandInWindow(const std::string& folder, const std::string& windowClass, int backlog = 16)
      : path_(folder + "/" + windowClass), socket_(socket(AF_UNIX, SOCK_SEQPACKET, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path_.copy(address.sun_path, sizeof address.sun_path - 1);
    bound_ = bind(socket_.number(), reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
             listen(socket_.number(), backlog) == 0;
  }
  ~StandInWindow() { unlink(path_.c_str()); }
  StandInWindow(const StandInWindow&) = delete;
  StandInWindow& operator=(const StandInWindow&) = delete;

  bool bound() const { return bound_; }
  StandInClient accepted() const { return StandInClient(socket_.number()); }
  void stopListening() { socket_ = Descriptor(); }

 private:
  std::string path_;
  Descriptor socket_;
  bool bound_ = false;
};

}  // namespace vorlent
