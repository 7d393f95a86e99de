#include "platform/linux/helper/MessageSocket.h"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>

#include "base/bytes.h"

namespace vorlent {
namespace {

/// For poll(): -1 without an end, and at least 0.
int timeLeft_ms(MessageSocket::Clock::time_point until) {
  if (until == MessageSocket::Forever) return -1;
  const auto left =
      std::chrono::ceil<std::chrono::milliseconds>(until - MessageSocket::Clock::now());
  return static_cast<int>(std::max<std::int64_t>(left.count(), 0));
}

}  // namespace

MessageSocket::Outcome MessageSocket::send(const Message& message, Clock::time_point until) const {
  const std::string bytes = packed(message);
  std::string_view rest = bytes;
  while (!rest.empty()) {
    const Outcome ready = await(POLLOUT, until);
    if (ready != Outcome::Done) return ready;
    const ssize_t sent =
        ::send(descriptor(), rest.data(), rest.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent > 0) rest.remove_prefix(static_cast<std::size_t>(sent));
    if (sent < 0 && errno != EAGAIN && errno != EINTR) return Outcome::Closed;
  }
  return Outcome::Done;
}

MessageSocket::Outcome MessageSocket::receive(Message& message, std::size_t most_bytes,
                                              Clock::time_point until) const {
  std::string length(sizeof(MessageLength), '\0');
  if (const Outcome head = receiveBytes(length, until); head != Outcome::Done) return head;
  const auto total = load<MessageLength>(length.data());
  if (total > most_bytes) return Outcome::Closed;
  std::string bytes(total, '\0');
  if (const Outcome body = receiveBytes(bytes, until); body != Outcome::Done) return body;
  auto texts = unpacked(bytes);
  if (!texts) return Outcome::Closed;
  message = *std::move(texts);
  return Outcome::Done;
}

MessageSocket::Outcome MessageSocket::await(short events, Clock::time_point until) const {
  pollfd waiting{descriptor(), events, 0};
  for (;;) {
    const int ready = poll(&waiting, 1, timeLeft_ms(until));
    if (ready > 0) return Outcome::Done;
    if (ready == 0) return Outcome::Late;
    if (errno != EINTR) return Outcome::Closed;
  }
}

MessageSocket::Outcome MessageSocket::receiveBytes(std::string& bytes,
                                                   Clock::time_point until) const {
  for (std::size_t got = 0; got < bytes.size();) {
    const Outcome ready = await(POLLIN, until);
    if (ready != Outcome::Done) return ready;
    const ssize_t count = recv(descriptor(), bytes.data() + got, bytes.size() - got, MSG_DONTWAIT);
    if (count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR)) return Outcome::Closed;
    if (count > 0) got += static_cast<std::size_t>(count);
  }
  return Outcome::Done;
}

}  // namespace vorlent
