#include "support/StampedSocket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <array>
#include <cstring>
#include <ctime>
#include <stdexcept>

namespace vorlent {
namespace {

constexpr std::int64_t Second_ns = 1'000'000'000;
/// Between two greetings to a server that may not be there yet.
constexpr std::chrono::milliseconds GreetingPause{5};
constexpr std::int64_t GreetingLimit_ns = 20 * Second_ns;

sockaddr_in loopback(std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

std::int64_t nanoseconds(const timespec& time) { return time.tv_sec * Second_ns + time.tv_nsec; }

std::int64_t stampOf(msghdr& message) {
  for (cmsghdr* part = CMSG_FIRSTHDR(&message); part != nullptr; part = CMSG_NXTHDR(&message, part))
    if (part->cmsg_level == SOL_SOCKET && part->cmsg_type == SCM_TIMESTAMPNS) {
      timespec stamp{};
      std::memcpy(&stamp, CMSG_DATA(part), sizeof stamp);
      return nanoseconds(stamp);
    }
  throw std::runtime_error("a datagram without a time stamp");
}

}  // namespace

std::int64_t now_ns() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return nanoseconds(now);
}

void sleepUntil_ns(std::int64_t moment_ns) {
  const timespec moment{moment_ns / Second_ns, moment_ns % Second_ns};
  while (clock_nanosleep(CLOCK_REALTIME, TIMER_ABSTIME, &moment, nullptr) == EINTR) {
  }
}

StampedSocket::StampedSocket() : socket_(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
  const int on = 1;
  const sockaddr_in own = loopback(0);
  if (setsockopt(socket_.number(), SOL_SOCKET, SO_TIMESTAMPNS, &on, sizeof on) != 0 ||
      bind(socket_.number(), reinterpret_cast<const sockaddr*>(&own), sizeof own) != 0)
    throw std::runtime_error("no socket for a display");
}

std::uint16_t StampedSocket::port() const {
  sockaddr_in own{};
  socklen_t size = sizeof own;
  getsockname(socket_.number(), reinterpret_cast<sockaddr*>(&own), &size);
  return ntohs(own.sin_port);
}

void StampedSocket::send(std::uint16_t port, std::string_view text) const {
  const sockaddr_in to = loopback(port);
  sendto(socket_.number(), text.data(), text.size(), 0, reinterpret_cast<const sockaddr*>(&to),
         sizeof to);
}

void StampedSocket::drain(const Take& take) const {
  std::array<char, 65536> data;
  alignas(cmsghdr) std::array<char, 128> control;
  for (;;) {
    iovec room{data.data(), data.size()};
    msghdr message{};
    message.msg_iov = &room;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    const ssize_t size = recvmsg(socket_.number(), &message, MSG_DONTWAIT);
    if (size < 0) return;
    take({data.data(), static_cast<std::size_t>(size)}, stampOf(message));
  }
}

bool StampedSocket::drainWithin(std::chrono::milliseconds limit, const Take& take) const {
  pollfd waiting{socket_.number(), POLLIN, 0};
  if (poll(&waiting, 1, static_cast<int>(limit.count())) <= 0) return false;
  drain(take);
  return true;
}

std::int64_t StampedSocket::greetUntilRecord(std::uint16_t port, std::string_view greeting) const {
  std::int64_t first_ns = 0;
  for (const std::int64_t begin_ns = now_ns(); first_ns == 0;) {
    if (now_ns() - begin_ns > GreetingLimit_ns) throw std::runtime_error("no record came");
    send(port, greeting);
    drainWithin(GreetingPause, [&](std::string_view text, std::int64_t stamp_ns) {
      if (first_ns == 0 && text.starts_with("Data ")) first_ns = stamp_ns;
    });
  }
  return first_ns;
}

}  // namespace vorlent
