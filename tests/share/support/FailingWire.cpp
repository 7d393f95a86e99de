#include "share/support/FailingWire.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <array>

#include "share/support/loopback.h"

namespace vorlent {
namespace {

/// How many bytes went from one to the other, at most `most`; 0 when the connection is over.
std::size_t pass(const Descriptor& from, const Descriptor& to, std::size_t most) {
  std::array<char, 4096> buffer;
  const ssize_t count = recv(from.number(), buffer.data(), std::min(buffer.size(), most), 0);
  if (count <= 0) return 0;
  const auto bytes = static_cast<std::size_t>(count);
  return send(to.number(), buffer.data(), bytes, MSG_NOSIGNAL) == count ? bytes : 0;
}

}  // namespace

FailingWire::FailingWire(std::uint16_t serverPort, std::size_t passed_bytes, End end)
    : serverPort_(serverPort),
      passed_bytes_(passed_bytes),
      end_(end),
      listening_(tcpSocket()),
      port_(listenOnFreePort(listening_)),
      stop_(eventfd(0, EFD_CLOEXEC)),
      thread_([this] { serve(); }) {}

FailingWire::~FailingWire() {
  eventfd_write(stop_.number(), 1);
  thread_.join();
}

void FailingWire::serve() {
  for (;;) {
    std::array<pollfd, 2> waiting{{{stop_.number(), POLLIN, 0}, {listening_.number(), POLLIN, 0}}};
    poll(waiting.data(), waiting.size(), -1);
    if (waiting[0].revents != 0) return;
    const Descriptor client(accept4(listening_.number(), nullptr, nullptr, SOCK_CLOEXEC));
    const Descriptor server = tcpSocket();
    if (connectTo(server, serverPort_)) carry(client, server);
  }
}

void FailingWire::carry(const Descriptor& client, const Descriptor& server) const {
  for (std::size_t left = passed_bytes_; left > 0 || end_ == End::IsSilent;) {
    std::array<pollfd, 3> waiting{{{stop_.number(), POLLIN, 0},
                                   {client.number(), POLLIN, 0},
                                   {left > 0 ? server.number() : -1, POLLIN, 0}}};
    poll(waiting.data(), waiting.size(), -1);
    if (waiting[0].revents != 0) return;
    if (waiting[1].revents != 0 && pass(client, server, SIZE_MAX) == 0) return;
    if (waiting[2].revents == 0) continue;
    const std::size_t passed = pass(server, client, left);
    if (passed == 0) return;
    left -= passed;
  }
}

}  // namespace vorlent
