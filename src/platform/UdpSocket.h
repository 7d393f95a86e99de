#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"

namespace vorlent {

struct Endpoint {
  std::string address;  ///< dotted IPv4
  std::uint16_t port = 0;
};

/// Numbers of the RuntimeErrors that a socket raises.
namespace SocketError {
constexpr int WouldBlock = 10035;  ///< with the description "SckWouldBlock"
constexpr int ProtocolNotSupported = 10047;
constexpr int AddressInUse = 10048;
constexpr int AddressNotAvailable = 10049;
}  // namespace SocketError

/// One IPv4 datagram socket.
class UdpSocket {
 public:
  static constexpr std::size_t MaxReceived_bytes = 2048;
  /// A datagram, cut off behind MaxReceived_bytes or what receiveUpTo() asks for, and where it came
  /// from.
  using DatagramHandler = std::function<void(const Endpoint& sender, const std::string& text)>;

  virtual ~UdpSocket() = default;
  virtual void onDatagram(DatagramHandler handler) = 0;
  /// For a receiver of larger datagrams; to be called before bind().
  void receiveUpTo(std::size_t size_bytes) { receiveLimit_bytes_ = size_bytes; }
  /// Raises a RuntimeError with a SocketError number or another number and its description.
  virtual void bind(std::uint16_t port, const std::string& address) = 0;
  virtual void close() = 0;
  /// One attempt; raises as bind().
  virtual void send(const Endpoint& receiver, std::string_view datagram) = 0;
  /// The datagrams of all sockets have had their time of this turn of the event loop. A handler
  /// that has more to do leaves it to continueLater().
  virtual bool turnIsOver() const = 0;
  /// For a handler: calls `rest` once in a later turn. The datagrams of this socket wait behind it,
  /// in their order; what overflows the socket meanwhile is lost.
  virtual void continueLater(std::function<void()> rest) = 0;

 protected:
  std::size_t receiveLimit_bytes() const { return receiveLimit_bytes_; }

 private:
  std::size_t receiveLimit_bytes_ = MaxReceived_bytes;
};

class Network {
 public:
  virtual ~Network() = default;
  virtual std::unique_ptr<UdpSocket> createSocket() = 0;
  /// The machine's own address.
  virtual std::string localIp() = 0;
  virtual std::string localHostName() = 0;
  /// The networks that this machine is directly attached to, as "192.168.0.0/24".
  virtual std::vector<std::string> attachedNetworks() = 0;
};

}  // namespace vorlent
