#include "platform/PolledSockets.h"

#include <winsock2.h>
// After winsock2.h.
#include <mswsock.h>
#include <ws2tcpip.h>

#include <array>
#include <system_error>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

constexpr std::size_t LargestDatagram = 65507;

/// Winsock is there from here on, until the process ends.
void openWinsock() {
  static const int failed = [] {
    WSADATA data;
    return WSAStartup(MAKEWORD(2, 2), &data);
  }();
  if (failed != 0) throw RuntimeError(RuntimeError::PathAccess, "There is no network");
}

/// Owns a socket.
class Socket {
 public:
  explicit Socket(SOCKET number = INVALID_SOCKET) : number_(number) {}
  Socket(Socket&& other) noexcept : number_(std::exchange(other.number_, INVALID_SOCKET)) {}
  Socket& operator=(Socket&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Socket() {
    if (number_ != INVALID_SOCKET) closesocket(number_);
  }
  SOCKET number() const { return number_; }
  explicit operator bool() const { return number_ != INVALID_SOCKET; }

 private:
  SOCKET number_;
};

sockaddr_in addressFrom(const std::string& dotted, std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  InetPtonA(AF_INET, dotted.c_str(), &address.sin_addr);
  return address;
}

std::string dottedFrom(const in_addr& address) {
  std::array<char, INET_ADDRSTRLEN> text{};
  InetNtopA(AF_INET, &address, text.data(), text.size());
  return text.data();
}

const sockaddr* plain(const sockaddr_in& address) {
  return reinterpret_cast<const sockaddr*>(&address);
}

/// The reason is that of the last call.
[[noreturn]] void refuse(const std::string& what) {
  const int error = WSAGetLastError();
  // A port that another program has for itself alone is refused as forbidden.
  const bool taken = error == WSAEADDRINUSE || error == WSAEACCES;
  throw RuntimeError(
      taken ? SocketError::AddressInUse : RuntimeError::PathAccess,
      what + ": " + (taken ? "another program has it" : std::system_category().message(error)));
}

void setOption(const Socket& socket, int level, int name, int value) {
  setsockopt(socket.number(), level, name, reinterpret_cast<const char*>(&value), sizeof value);
}

/// None of its calls waits, and no program that is started gets it.
Socket socketOf(int type, int protocol) {
  openWinsock();
  Socket socket(WSASocketW(AF_INET, type, protocol, nullptr, 0, WSA_FLAG_NO_HANDLE_INHERIT));
  u_long on = 1;
  if (socket) ioctlsocket(socket.number(), static_cast<long>(FIONBIO), &on);
  return socket;
}

/// A datagram that a receiver refused is no fault of the socket that sent it.
Socket udpSocket() {
  Socket socket = socketOf(SOCK_DGRAM, IPPROTO_UDP);
  if (!socket) refuse("No UDP socket");
  BOOL off = FALSE;
  DWORD none = 0;
  WSAIoctl(socket.number(), SIO_UDP_CONNRESET, &off, sizeof off, nullptr, 0, &none, nullptr,
           nullptr);
  return socket;
}

void bindTo(const Socket& socket, const std::string& address, std::uint16_t port) {
  const sockaddr_in at = addressFrom(address, port);
  if (bind(socket.number(), plain(at), sizeof at) != 0)
    refuse("UDP port " + std::to_string(port) + " of " + address + " cannot be used");
}

class SystemDatagrams : public PolledDatagrams {
 public:
  explicit SystemDatagrams(Socket socket) : socket_(std::move(socket)) {}

  std::optional<Datagram> receive() override {
    sockaddr_in from{};
    int size = sizeof from;
    const int length = recvfrom(socket_.number(), buffer_.data(), static_cast<int>(buffer_.size()),
                                0, reinterpret_cast<sockaddr*>(&from), &size);
    if (length < 0) return std::nullopt;
    return Datagram{{dottedFrom(from.sin_addr), ntohs(from.sin_port)},
                    {buffer_.data(), static_cast<std::size_t>(length)}};
  }

  bool send(const Endpoint& receiver, std::string_view bytes) override {
    const sockaddr_in to = addressFrom(receiver.address, receiver.port);
    const int length = static_cast<int>(bytes.size());
    return sendto(socket_.number(), bytes.data(), length, 0, plain(to), sizeof to) == length;
  }

 private:
  Socket socket_;
  std::vector<char> buffer_ = std::vector<char>(LargestDatagram);
};

class SystemConnection : public PolledConnection {
 public:
  explicit SystemConnection(const Endpoint& server) : socket_(socketOf(SOCK_STREAM, IPPROTO_TCP)) {
    setOption(socket_, IPPROTO_TCP, TCP_NODELAY, 1);
    const sockaddr_in to = addressFrom(server.address, server.port);
    if (::connect(socket_.number(), plain(to), sizeof to) == 0)
      state_ = State::Open;
    else if (WSAGetLastError() != WSAEWOULDBLOCK)
      state_ = State::Closed;
  }

  State state() override {
    if (state_ == State::Opening) lookWhetherOpen();
    return state_;
  }

  std::string receive() override {
    std::string text;
    std::array<char, 4096> part;
    while (state() == State::Open) {
      const int length = recv(socket_.number(), part.data(), static_cast<int>(part.size()), 0);
      if (length < 0 && WSAGetLastError() == WSAEWOULDBLOCK) break;
      if (length <= 0) state_ = State::Closed;
      if (length > 0) text.append(part.data(), static_cast<std::size_t>(length));
    }
    return text;
  }

  bool send(std::string_view bytes) override {
    if (state() != State::Open) return false;
    const int length = static_cast<int>(bytes.size());
    const bool all = ::send(socket_.number(), bytes.data(), length, 0) == length;
    if (!all) state_ = State::Closed;
    return all;
  }

 private:
  void lookWhetherOpen() {
    fd_set opened{1, {socket_.number()}};
    fd_set failed{1, {socket_.number()}};
    timeval atOnce{0, 0};
    if (select(0, nullptr, &opened, &failed, &atOnce) <= 0) return;
    state_ = failed.fd_count > 0 ? State::Closed : State::Open;
  }

  Socket socket_;
  State state_ = State::Opening;
};

class SystemSockets : public PolledSockets {
 public:
  std::string addressOf(const std::string& host) override {
    openWinsock();
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_DGRAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(host.c_str(), nullptr, &hints, &found) != 0) return {};
    const in_addr address = reinterpret_cast<const sockaddr_in*>(found->ai_addr)->sin_addr;
    freeaddrinfo(found);
    return dottedFrom(address);
  }

  std::unique_ptr<PolledDatagrams> datagrams(const std::string& address,
                                             std::uint16_t port) override {
    Socket socket = udpSocket();
    // Without it another program could take the port a second time.
    setOption(socket, SOL_SOCKET, SO_EXCLUSIVEADDRUSE, 1);
    bindTo(socket, address, port);
    return std::make_unique<SystemDatagrams>(std::move(socket));
  }

  std::unique_ptr<PolledDatagrams> group(const std::string& group, std::uint16_t port) override {
    Socket socket = udpSocket();
    setOption(socket, SOL_SOCKET, SO_REUSEADDR, 1);
    bindTo(socket, "0.0.0.0", port);
    ip_mreq membership{};
    membership.imr_multiaddr = addressFrom(group, port).sin_addr;
    if (setsockopt(socket.number(), IPPROTO_IP, IP_ADD_MEMBERSHIP,
                   reinterpret_cast<const char*>(&membership), sizeof membership) != 0)
      refuse("Multicast group " + group + " cannot be listened to");
    return std::make_unique<SystemDatagrams>(std::move(socket));
  }

  std::unique_ptr<PolledConnection> connect(const Endpoint& server) override {
    return std::make_unique<SystemConnection>(server);
  }
};

}  // namespace

std::unique_ptr<PolledSockets> systemSockets() { return std::make_unique<SystemSockets>(); }

}  // namespace vorlent
