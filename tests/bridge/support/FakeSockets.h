#pragma once

#include <deque>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/PolledSockets.h"

namespace vorlent {

/// The network of a bridge in virtual time: what it sends is kept, and what it is to receive is
/// laid before it.
class FakeSockets : public PolledSockets {
 public:
  struct Sent {
    Endpoint receiver;
    std::string bytes;
  };
  /// A TCP connection as the server at its other end has it.
  struct Line {
    PolledConnection::State state = PolledConnection::State::Open;
    std::string toBridge;
    std::string fromBridge;
  };

  std::string addressOf(const std::string& host) override { return host; }
  std::unique_ptr<PolledDatagrams> datagrams(const std::string& address,
                                             std::uint16_t port) override;
  std::unique_ptr<PolledDatagrams> group(const std::string& group, std::uint16_t port) override;
  std::unique_ptr<PolledConnection> connect(const Endpoint& server) override;

  /// Lays a datagram before the socket that is bound to this port; 0 is the one on any port.
  void deliver(std::uint16_t port, const std::string& from, const std::string& bytes) {
    (*waiting_)[port].push_back({{from, 40000}, bytes});
  }
  /// What was sent since the last time.
  std::vector<Sent> takeSent() { return std::exchange(*sent_, {}); }

  std::set<std::uint16_t> taken;  ///< ports that another program has
  bool multicast = true;
  bool servesLines = true;
  std::shared_ptr<Line> line;  ///< the newest connection
  int connections = 0;

 private:
  using Waiting = std::map<std::uint16_t, std::deque<PolledDatagrams::Datagram>>;

  std::shared_ptr<Waiting> waiting_ = std::make_shared<Waiting>();
  std::shared_ptr<std::vector<Sent>> sent_ = std::make_shared<std::vector<Sent>>();

  class Socket;
  class Connection;
};

}  // namespace vorlent
