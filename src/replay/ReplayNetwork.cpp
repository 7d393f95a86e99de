#include "replay/ReplayNetwork.h"

#include <utility>

#include "replay/Tape.h"

namespace vorlent {

using recorded::Call;

class ReplayNetwork::Socket : public UdpSocket {
 public:
  explicit Socket(ReplayNetwork& network)
      : tape_(network.tape_), place_(&network.sockets_), number_(network.sockets_.size()) {
    place_->push_back(this);
  }
  ~Socket() override { (*place_)[number_] = nullptr; }

  void onDatagram(DatagramHandler handler) override { handler_ = std::move(handler); }
  void bind(std::uint16_t, const std::string&) override { tape_.answer(Call::Bind); }
  void close() override {}
  void send(const Endpoint&, std::string_view) override { tape_.answer(Call::Send); }
  bool turnIsOver() const override { return tape_.numberOf(Call::TurnIsOver, 0) != 0; }
  void continueLater(std::function<void()> rest) override { rest_ = std::move(rest); }

  /// A datagram can be the end of its socket.
  void deliver(const Endpoint& sender, const std::string& text) const {
    const auto work = handler_;
    if (work) work(sender, text);
  }
  void continueNow() {
    if (rest_) std::exchange(rest_, {})();
  }

 private:
  Tape& tape_;
  std::vector<Socket*>* place_;
  std::size_t number_;
  DatagramHandler handler_;
  std::function<void()> rest_;
};

std::unique_ptr<UdpSocket> ReplayNetwork::createSocket() { return std::make_unique<Socket>(*this); }

std::string ReplayNetwork::localIp() { return tape_.textOf(Call::LocalIp); }

std::string ReplayNetwork::localHostName() { return tape_.textOf(Call::LocalHostName); }

std::vector<std::string> ReplayNetwork::attachedNetworks() {
  return tape_.linesOf(Call::AttachedNetworks);
}

ReplayNetwork::Socket* ReplayNetwork::at(std::uint32_t socket) const {
  return socket < sockets_.size() ? sockets_[socket] : nullptr;
}

void ReplayNetwork::deliver(std::uint32_t socket, const Endpoint& sender,
                            const std::string& text) const {
  if (const Socket* receiver = at(socket)) receiver->deliver(sender, text);
}

void ReplayNetwork::continueOn(std::uint32_t socket) const {
  if (Socket* receiver = at(socket)) receiver->continueNow();
}

}  // namespace vorlent
