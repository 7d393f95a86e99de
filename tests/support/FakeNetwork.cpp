#include "support/FakeNetwork.h"

#include <algorithm>
#include <deque>
#include <utility>

namespace vorlent {

class FakeNetwork::Socket : public UdpSocket {
 public:
  explicit Socket(FakeNetwork& network) : network_(network) {}
  ~Socket() override { close(); }

  void onDatagram(DatagramHandler handler) override { handler_ = std::move(handler); }

  void bind(std::uint16_t port, const std::string& address) override {
    const auto error = network_.bindErrors.find(port);
    if (error != network_.bindErrors.end()) throw error->second;
    const auto& others = network_.otherAddresses;
    if (address != network_.ownAddress &&
        std::find(others.begin(), others.end(), address) == others.end())
      throw RuntimeError(SocketError::AddressNotAvailable, "Address is not available");
    if (network_.sockets_.count(port) != 0)
      throw RuntimeError(SocketError::AddressInUse, "Address in use");
    network_.sockets_[port] = this;
    port_ = port;
    address_ = address;
  }

  void close() override {
    const auto self = network_.sockets_.find(port_);
    if (self != network_.sockets_.end() && self->second == this) network_.sockets_.erase(self);
    port_ = 0;
  }

  void send(const Endpoint& receiver, std::string_view datagram) override {
    if (network_.sendError) throw *network_.sendError;
    network_.sent_.push_back({port_, receiver, std::string(datagram)});
    if (network_.onSend) network_.onSend(network_.sent_.back());
  }

  bool turnIsOver() const override { return network_.turnIsOver && network_.turnIsOver(); }
  void continueLater(std::function<void()> rest) override { rest_ = std::move(rest); }

  void receive(const Endpoint& sender, const std::string& text) {
    waiting_.emplace_back(sender, text);
    if (!rest_) takeTurn();
  }
  void takeTurn() {
    if (rest_) std::exchange(rest_, {})();
    while (!rest_ && !waiting_.empty()) {
      const auto [sender, text] = waiting_.front();
      waiting_.pop_front();
      handler_(sender, text);
    }
  }
  std::string name() const { return address_ + ":" + std::to_string(port_); }

 private:
  FakeNetwork& network_;
  DatagramHandler handler_;
  std::uint16_t port_ = 0;
  std::string address_;
  std::deque<std::pair<Endpoint, std::string>> waiting_;
  std::function<void()> rest_;
};

std::unique_ptr<UdpSocket> FakeNetwork::createSocket() { return std::make_unique<Socket>(*this); }

bool FakeNetwork::deliver(std::uint16_t port, const Endpoint& sender, const std::string& text) {
  const auto socket = sockets_.find(port);
  if (socket == sockets_.end()) return false;
  socket->second->receive(sender, text);
  return true;
}

void FakeNetwork::nextTurn() {
  for (const auto& [port, socket] : sockets_) socket->takeTurn();
}

std::vector<std::string> FakeNetwork::bound() const {
  std::vector<std::string> names;
  for (const auto& [port, socket] : sockets_) names.push_back(socket->name());
  return names;
}

}  // namespace vorlent
