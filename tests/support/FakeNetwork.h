#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/UdpSocket.h"

namespace vorlent {

/// A network in memory.
class FakeNetwork : public Network {
 public:
  struct Sent {
    std::uint16_t fromPort;
    Endpoint to;
    std::string text;
    bool operator==(const Sent& other) const {
      return fromPort == other.fromPort && to.address == other.to.address &&
             to.port == other.to.port && text == other.text;
    }
  };

  std::unique_ptr<UdpSocket> createSocket() override;
  std::string localIp() override { return ownAddress; }
  std::string localHostName() override { return "cockpit"; }
  std::vector<std::string> attachedNetworks() override { return attached; }

  /// A datagram for the socket that is bound to `port`; false when there is none.
  bool deliver(std::uint16_t port, const Endpoint& sender, const std::string& text);
  /// What handlers left for a later turn, and the datagrams that wait behind it.
  void nextTurn();
  /// "address:port" of every bound socket, by port.
  std::vector<std::string> bound() const;
  /// What has been sent since the last call.
  std::vector<Sent> takeSent() { return std::exchange(sent_, {}); }

  std::vector<std::string> attached = {"192.168.0.0/24"};
  std::string ownAddress = "127.0.0.1";
  /// Further addresses of this machine.
  std::vector<std::string> otherAddresses;
  /// Raised by the next binds to a port, by port.
  std::map<std::uint16_t, RuntimeError> bindErrors;
  /// Raised by every send while set.
  std::shared_ptr<RuntimeError> sendError;
  /// Whether datagrams have had their time of this turn; without it they have all the time.
  std::function<bool()> turnIsOver;
  /// Called for every datagram as it is sent.
  std::function<void(const Sent&)> onSend;

 private:
  class Socket;
  std::map<std::uint16_t, Socket*> sockets_;
  std::vector<Sent> sent_;
};

}  // namespace vorlent
