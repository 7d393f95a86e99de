#include "platform/PolledSockets.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/epoll.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <vector>

#include "base/RuntimeError.h"
#include "platform/linux/Descriptor.h"

namespace vorlent {
namespace {

constexpr std::size_t LargestDatagram = 65507;

sockaddr_in addressFrom(const std::string& dotted, std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  inet_pton(AF_INET, dotted.c_str(), &address.sin_addr);
  return address;
}

std::string dottedFrom(const in_addr& address) {
  std::array<char, INET_ADDRSTRLEN> text{};
  inet_ntop(AF_INET, &address, text.data(), text.size());
  return text.data();
}

const sockaddr* plain(const sockaddr_in& address) {
  return reinterpret_cast<const sockaddr*>(&address);
}

/// The reason is that of the last system call.
[[noreturn]] void refuse(const std::string& what) {
  const std::string why =
      errno == EADDRINUSE ? "another program has it" : std::strerror(errno);  // NOLINT
  throw RuntimeError(errno == EADDRINUSE ? SocketError::AddressInUse : RuntimeError::PathAccess,
                     what + ": " + why);
}

Descriptor udpSocket() {
  Descriptor socket(::socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  if (!socket) refuse("No UDP socket");
  return socket;
}

void bindTo(const Descriptor& socket, const std::string& address, std::uint16_t port) {
  const sockaddr_in at = addressFrom(address, port);
  if (bind(socket.number(), plain(at), sizeof at) != 0)
    refuse("UDP port " + std::to_string(port) + " of " + address + " cannot be used");
}

/// All sockets of a program in one descriptor. One that is closed is no longer in it.
class ArrivalWatch {
 public:
  ArrivalWatch() : watch_(epoll_create1(EPOLL_CLOEXEC)) {
    if (!watch_) refuse("No descriptor to watch sockets with");
  }

  int descriptor() const { return watch_.number(); }
  bool add(const Descriptor& socket) const {
    epoll_event readable{};
    readable.events = EPOLLIN;
    return epoll_ctl(descriptor(), EPOLL_CTL_ADD, socket.number(), &readable) == 0;
  }

 private:
  Descriptor watch_;
};

class SystemDatagrams : public PolledDatagrams {
 public:
  explicit SystemDatagrams(Descriptor socket) : socket_(std::move(socket)) {}

  std::optional<Datagram> receive() override {
    sockaddr_in from{};
    socklen_t size = sizeof from;
    const ssize_t length = recvfrom(socket_.number(), buffer_.data(), buffer_.size(), 0,
                                    reinterpret_cast<sockaddr*>(&from), &size);
    // The error that an earlier datagram met elsewhere stands in for one and was fetched with this.
    if (length < 0) return std::nullopt;
    return Datagram{{dottedFrom(from.sin_addr), ntohs(from.sin_port)},
                    {buffer_.data(), static_cast<std::size_t>(length)}};
  }

  bool send(const Endpoint& receiver, std::string_view bytes) override {
    const sockaddr_in to = addressFrom(receiver.address, receiver.port);
    return sendto(socket_.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL, plain(to),
                  sizeof to) == static_cast<ssize_t>(bytes.size());
  }

 private:
  Descriptor socket_;
  std::vector<char> buffer_ = std::vector<char>(LargestDatagram);
};

/// Once closed it has no descriptor: one whose other end has gone could be read for ever.
class SystemConnection : public PolledConnection {
 public:
  SystemConnection(const Endpoint& server, const ArrivalWatch& watch)
      : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)) {
    const sockaddr_in to = addressFrom(server.address, server.port);
    constexpr int On = 1;
    setsockopt(socket_.number(), IPPROTO_TCP, TCP_NODELAY, &On, sizeof On);
    if (::connect(socket_.number(), plain(to), sizeof to) == 0)
      state_ = State::Open;
    else if (errno != EINPROGRESS)
      close();
    if (state_ != State::Closed && !watch.add(socket_)) close();
  }

  State state() override {
    if (state_ == State::Opening) lookWhetherOpen();
    return state_;
  }

  std::string receive() override {
    std::string text;
    std::array<char, 4096> part;
    while (state() == State::Open && text.size() < MostAtOnce) {
      const ssize_t length = recv(socket_.number(), part.data(), part.size(), 0);
      if (length < 0 && (errno == EAGAIN || errno == EINTR)) break;
      if (length <= 0) close();
      if (length > 0) text.append(part.data(), static_cast<std::size_t>(length));
    }
    return text;
  }

  bool send(std::string_view bytes) override {
    if (state() != State::Open) return false;
    const bool all = ::send(socket_.number(), bytes.data(), bytes.size(), MSG_NOSIGNAL) ==
                     static_cast<ssize_t>(bytes.size());
    if (!all) close();
    return all;
  }

 private:
  static constexpr std::size_t MostAtOnce = 65536;

  void lookWhetherOpen() {
    pollfd watched{socket_.number(), POLLOUT, 0};
    if (poll(&watched, 1, 0) == 0) return;
    int fault = 0;
    socklen_t size = sizeof fault;
    getsockopt(socket_.number(), SOL_SOCKET, SO_ERROR, &fault, &size);
    state_ = State::Open;
    if (fault != 0) close();
  }

  void close() {
    socket_ = Descriptor();
    state_ = State::Closed;
  }

  Descriptor socket_;
  State state_ = State::Opening;
};

class SystemSockets : public PolledSockets {
 public:
  std::string addressOf(const std::string& host) override {
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_DGRAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(host.c_str(), nullptr, &hints, &found) != 0) return {};
    sockaddr_in address{};
    std::memcpy(&address, found->ai_addr, sizeof address);
    freeaddrinfo(found);
    return dottedFrom(address.sin_addr);
  }

  std::unique_ptr<PolledDatagrams> datagrams(const std::string& address,
                                             std::uint16_t port) override {
    Descriptor socket = udpSocket();
    bindTo(socket, address, port);
    return watched(std::move(socket));
  }

  std::unique_ptr<PolledDatagrams> group(const std::string& group, std::uint16_t port) override {
    Descriptor socket = udpSocket();
    constexpr int On = 1;
    setsockopt(socket.number(), SOL_SOCKET, SO_REUSEADDR, &On, sizeof On);
    bindTo(socket, "0.0.0.0", port);
    ip_mreq membership{};
    membership.imr_multiaddr = addressFrom(group, port).sin_addr;
    if (setsockopt(socket.number(), IPPROTO_IP, IP_ADD_MEMBERSHIP, &membership,
                   sizeof membership) != 0)
      refuse("Multicast group " + group + " cannot be listened to");
    return watched(std::move(socket));
  }

  std::unique_ptr<PolledConnection> connect(const Endpoint& server) override {
    return std::make_unique<SystemConnection>(server, watch_);
  }

  int arrivals() const override { return watch_.descriptor(); }

 private:
  std::unique_ptr<PolledDatagrams> watched(Descriptor socket) {
    if (!watch_.add(socket)) refuse("A socket cannot be watched");
    return std::make_unique<SystemDatagrams>(std::move(socket));
  }

  ArrivalWatch watch_;
};

}  // namespace

std::unique_ptr<PolledSockets> systemSockets() { return std::make_unique<SystemSockets>(); }

}  // namespace vorlent
