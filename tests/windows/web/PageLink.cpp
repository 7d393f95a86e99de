#include "windows/web/PageLink.h"

#include <winsock2.h>

#include <array>
#include <stdexcept>

namespace vorlent {
namespace {

using Clock = std::chrono::steady_clock;

}  // namespace

PageLink::PageLink(std::uint16_t port) {
  WSADATA data{};
  if (WSAStartup(MAKEWORD(2, 2), &data) != 0) throw std::runtime_error("no sockets");
  socket_ = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in server{};
  server.sin_family = AF_INET;
  server.sin_port = htons(port);
  server.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (connect(socket_, reinterpret_cast<const sockaddr*>(&server), sizeof server) != 0)
    throw std::runtime_error("nobody listens at " + std::to_string(port));
}

PageLink::~PageLink() {
  closesocket(socket_);
  WSACleanup();
}

void PageLink::get(const std::string& target, const std::string& headers) const {
  send("GET " + target + " HTTP/1.1\r\n" + headers + "\r\n");
}

void PageLink::upgrade(const std::string& host, const std::string& origin) const {
  get("/live", "Host: " + host + "\r\nOrigin: " + origin +
                   "\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
                   "Sec-WebSocket-Version: 13\r\nSec-WebSocket-Key: AAAAAAAAAAAAAAAAAAAAAA==\r\n");
}

void PageLink::sendText(const std::string& text) const {
  constexpr int Masked = 0x80;
  constexpr int LengthInTwoBytes = 126;
  const auto byte = [](std::size_t value) { return std::string(1, static_cast<char>(value)); };
  std::string frame = "\x81";  // all of a text
  if (text.size() < LengthInTwoBytes)
    frame += byte(Masked + text.size());
  else
    frame += byte(Masked + LengthInTwoBytes) + byte(text.size() / 256) + byte(text.size() % 256);
  // A mask of zeros leaves the text as it is.
  send(frame + std::string(4, '\0') + text);
}

void PageLink::send(const std::string& bytes) const {
  ::send(socket_, bytes.data(), static_cast<int>(bytes.size()), 0);
}

PageLink::Turn PageLink::readMore(Clock::time_point until) {
  const auto left = std::chrono::duration_cast<std::chrono::microseconds>(until - Clock::now());
  fd_set waiting{1, {socket_}};
  timeval most{static_cast<long>(left.count() / 1000000),
               static_cast<long>(left.count() % 1000000)};
  if (left.count() <= 0 || select(0, &waiting, nullptr, nullptr, &most) <= 0) return Turn::Late;
  std::array<char, 65536> buffer;
  const int count = recv(socket_, buffer.data(), buffer.size(), 0);
  if (count <= 0) return Turn::End;
  received_.append(buffer.data(), static_cast<std::size_t>(count));
  return Turn::More;
}

bool PageLink::comes(const std::string& part, std::chrono::milliseconds limit) {
  const auto until = Clock::now() + limit;
  while (received_.find(part) == std::string::npos)
    if (readMore(until) != Turn::More) return false;
  return true;
}

bool PageLink::ends(std::chrono::milliseconds limit) {
  const auto until = Clock::now() + limit;
  Turn turn = Turn::More;
  while (turn == Turn::More) turn = readMore(until);
  return turn == Turn::End;
}

std::string statusLine(std::uint16_t port, const std::string& target, const std::string& headers) {
  PageLink link(port);
  link.get(target, headers);
  link.comes("\r\n\r\n");
  return link.received().substr(0, link.received().find('\r'));
}

}  // namespace vorlent
