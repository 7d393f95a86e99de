#include "bridge/support/LoopbackSimulators.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <array>
#include <chrono>
#include <cmath>
#include <stdexcept>

#include "bridge/flightGearProtocol.h"
#include "bridge/mappings.h"

namespace vorlent {
namespace {

sockaddr_in loopback(std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

Descriptor bound(int type, std::uint16_t port) {
  Descriptor made(socket(AF_INET, type | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  const sockaddr_in address = loopback(port);
  constexpr int on = 1;
  if (type == SOCK_STREAM) setsockopt(made.number(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  if (bind(made.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
    throw std::runtime_error("port " + std::to_string(port) + " is taken");
  return made;
}

bool readable(const Descriptor& socket, int limit_ms) {
  pollfd watched{socket.number(), POLLIN, 0};
  return poll(&watched, 1, limit_ms) > 0;
}

}  // namespace

LoopbackUdp::LoopbackUdp(std::uint16_t port) : socket_(bound(SOCK_DGRAM, port)) {}

std::uint16_t LoopbackUdp::port() const {
  sockaddr_in address{};
  socklen_t size = sizeof address;
  getsockname(socket_.number(), reinterpret_cast<sockaddr*>(&address), &size);
  return ntohs(address.sin_port);
}

void LoopbackUdp::send(std::uint16_t port, const std::string& bytes) const {
  const sockaddr_in to = loopback(port);
  sendto(socket_.number(), bytes.data(), bytes.size(), 0, reinterpret_cast<const sockaddr*>(&to),
         sizeof to);
}

std::string LoopbackUdp::receive(int limit_ms, std::uint16_t* from) const {
  if (!readable(socket_, limit_ms)) return {};
  std::array<char, 2048> bytes;
  sockaddr_in sender{};
  socklen_t size = sizeof sender;
  const ssize_t length = recvfrom(socket_.number(), bytes.data(), bytes.size(), 0,
                                  reinterpret_cast<sockaddr*>(&sender), &size);
  if (from != nullptr) *from = ntohs(sender.sin_port);
  return length < 0 ? std::string() : std::string(bytes.data(), static_cast<std::size_t>(length));
}

LoopbackFlightGear::LoopbackFlightGear(std::uint16_t firstPort)
    : fg_(recordProtocolFile(flightGearMapping()), controlProtocolFile(flightGearMapping())),
      firstPort_(firstPort),
      controls_(static_cast<std::uint16_t>(firstPort + 1)),
      listening_(bound(SOCK_STREAM, static_cast<std::uint16_t>(firstPort + 2))) {
  listen(listening_.number(), 1);
  fg_.start("737-300");
  thread_ = std::thread([this] {
    while (!ended_) frame();
  });
}

LoopbackFlightGear::~LoopbackFlightGear() {
  ended_ = true;
  thread_.join();
}

void LoopbackFlightGear::frame() {
  constexpr int Frame_ms = 25;
  fg_.pass(Frame_ms * 0.001);
  fg_.tree["/sim/time/utc/second"] = std::floor(fg_.tree["/sim/time/elapsed-sec"]);
  records_.send(firstPort_, fg_.record());
  readable(controls_.socket(), Frame_ms);
  for (std::string text; !(text = controls_.receive(0)).empty();) fg_.takeDatagram(text);
  serveLines();
}

void LoopbackFlightGear::serveLines() {
  if (Descriptor next(accept(listening_.number(), nullptr, nullptr)); next)
    connection_ = std::move(next);
  if (!connection_ || !readable(connection_, 0)) return;
  std::array<char, 4096> text;
  const ssize_t length = recv(connection_.number(), text.data(), text.size(), MSG_DONTWAIT);
  if (length <= 0) return;
  partial_.append(text.data(), static_cast<std::size_t>(length));
  for (std::size_t end; (end = partial_.find("\r\n")) != std::string::npos;) {
    const std::string answer = fg_.answerTo(partial_.substr(0, end));
    partial_.erase(0, end + 2);
    send(connection_.number(), answer.data(), answer.size(), MSG_NOSIGNAL);
  }
}

LoopbackXPlane::LoopbackXPlane() {
  thread_ = std::thread([this] {
    while (!ended_) frame();
  });
}

LoopbackXPlane::~LoopbackXPlane() {
  ended_ = true;
  thread_.join();
}

void LoopbackXPlane::frame() {
  constexpr int Frame_ms = 33;
  xp_.values["sim/cockpit2/clock_timer/zulu_time_seconds"] =
      static_cast<float>(++frames_ / 30 % 60);
  readable(socket_.socket(), Frame_ms);
  for (std::string bytes; !(bytes = socket_.receive(0, &bridge_)).empty();) xp_.takeDatagram(bytes);
  for (const std::string& packet : xp_.frame()) socket_.send(bridge_, packet);
}

}  // namespace vorlent
