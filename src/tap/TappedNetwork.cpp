#include "tap/TappedNetwork.h"

#include <utility>

#include "recording/portTexts.h"

namespace vorlent {

using namespace recorded;

namespace {

// Of the display protocol: what a session begins and ends with.
constexpr std::string_view Greeting = "Connection on";
constexpr std::string_view Farewell = "Xterm";

class TappedSocket : public UdpSocket {
 public:
  TappedSocket(std::unique_ptr<UdpSocket> inner, Tap& tap, std::uint32_t number)
      : inner_(std::move(inner)), tap_(tap), number_(number) {}

  void onDatagram(DatagramHandler handler) override {
    inner_->onDatagram(
        [this, handler = std::move(handler)](const Endpoint& sender, const std::string& text) {
          tap_.tell(DatagramCame{number_, sender.address, sender.port, text});
          greeted_ = text.starts_with(Greeting);
          handler(sender, text);
          greeted_ = false;
        });
  }

  void bind(std::uint16_t port, const std::string& address) override {
    inner_->receiveUpTo(receiveLimit_bytes());
    tap_.asked(Call::Bind, [&] { inner_->bind(port, address); });
    tap_.answer(Call::Bind, port, std::to_string(number_) + " " + address);
  }

  void close() override { inner_->close(); }

  void send(const Endpoint& receiver, std::string_view datagram) override {
    tellSession(receiver, datagram);
    tap_.asked(Call::Send, [&] { inner_->send(receiver, datagram); });
  }

  bool turnIsOver() const override {
    const bool over = inner_->turnIsOver();
    tap_.answer(Call::TurnIsOver, over ? 1 : 0);
    return over;
  }

  void continueLater(std::function<void()> rest) override {
    inner_->continueLater([&tap = tap_, number = number_, rest = std::move(rest)] {
      tap.tell(DatagramContinued{number});
      rest();
    });
  }

 private:
  /// A greeting is answered at once by who takes it.
  void tellSession(const Endpoint& receiver, std::string_view datagram) {
    if (greeted_) tellChange(receiver, SessionChanged::What::Greeted);
    if (isUp_ && datagram == Farewell) tellChange(receiver, SessionChanged::What::Stopped);
    greeted_ = false;
  }

  void tellChange(const Endpoint& other, SessionChanged::What what) {
    isUp_ = what == SessionChanged::What::Greeted;
    tap_.tell(SessionChanged{number_, what, other.address, other.port});
  }

  std::unique_ptr<UdpSocket> inner_;
  Tap& tap_;
  std::uint32_t number_;
  bool greeted_ = false;  ///< the datagram that is being handled is a greeting, without answer yet
  bool isUp_ = false;
};

}  // namespace

std::unique_ptr<UdpSocket> TappedNetwork::createSocket() {
  return std::make_unique<TappedSocket>(inner_.createSocket(), tap_, sockets_++);
}

std::string TappedNetwork::localIp() {
  std::string address = inner_.localIp();
  tap_.answer(Call::LocalIp, 0, address);
  return address;
}

std::string TappedNetwork::localHostName() {
  std::string name = inner_.localHostName();
  tap_.answer(Call::LocalHostName, 0, name);
  return name;
}

std::vector<std::string> TappedNetwork::attachedNetworks() {
  std::vector<std::string> networks = inner_.attachedNetworks();
  tap_.answer(Call::AttachedNetworks, 0, textOfLines(networks));
  return networks;
}

}  // namespace vorlent
