#include "platform/linux/SimulatorConnection.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>

#include "base/bytes.h"
#include "platform/linux/UnixAddress.h"

namespace vorlent {
namespace {

using Clock = std::chrono::steady_clock;

int remaining_ms(Clock::time_point deadline) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
  return static_cast<int>(left);
}

}  // namespace

bool SimulatorConnection::open() {
  const int error = connectNow();
  // Somebody listens but does not take connections at the moment: a window that hangs.
  if (error == EAGAIN) state_ = State::Late;
  return error == 0 || error == EAGAIN;
}

bool SimulatorConnection::isAlive() const {
  if (state_ != State::Connected) return false;
  pollfd end{socket_.number(), POLLIN | POLLRDHUP, 0};
  return poll(&end, 1, 0) == 0;
}

SendResult SimulatorConnection::request(std::string_view message, std::string_view atom,
                                        int timeout_ms) {
  if (state_ == State::Late) {
    const int error = connectNow();
    if (error == EAGAIN) return timedOut();
    if (error != 0) return failed(error);
  }
  if (state_ == State::Closed) return failed(ENOTCONN);
  if (!sendRequest(message, atom)) return errno == EAGAIN ? timedOut() : failed(errno);
  return awaitAnswer(timeout_ms);
}

/// 0 or the error number.
int SimulatorConnection::connectNow() {
  drop(State::Closed);
  const auto address = unixAddress(path_);
  if (!address) return ENAMETOOLONG;
  socket_ = newPacketSocket();
  if (!socket_ || !connectTo(socket_, *address)) {
    const int error = errno;
    drop(State::Closed);
    return error;
  }
  if (!isOwnPeer(socket_)) {
    drop(State::Closed);
    return EACCES;
  }
  fcntl(socket_.number(), F_SETFL, fcntl(socket_.number(), F_GETFL) & ~O_NONBLOCK);
  answerTimeout_ms_ = 0;
  state_ = State::Connected;
  return 0;
}

bool SimulatorConnection::sendRequest(std::string_view message, std::string_view atom) {
  // In one piece, which costs the system less than the parts one by one.
  packet_.assign(message).append("\n").append(atom);
  return send(socket_.number(), packet_.data(), packet_.size(), MSG_NOSIGNAL | MSG_DONTWAIT) >= 0;
}

SendResult SimulatorConnection::awaitAnswer(int timeout_ms) {
  const auto deadline = Clock::now() + std::chrono::milliseconds(std::max(timeout_ms, 1));
  // Room for more than an answer, so that a longer packet is noticed.
  std::array<std::byte, 8> packet;
  ssize_t size = -1;
  answerTimeout(std::max(timeout_ms, 1));
  while ((size = recv(socket_.number(), packet.data(), packet.size(), 0)) < 0 && errno == EINTR) {
    const int left = remaining_ms(deadline);
    if (left <= 0) return timedOut();
    answerTimeout(left);
  }
  if (size == sizeof(std::int32_t)) return {true, load<std::int32_t>(packet.data()), 0};
  if (size < 0) return errno == EAGAIN ? timedOut() : failed(errno);
  return failed(size == 0 ? ECONNRESET : EPROTO);
}

void SimulatorConnection::answerTimeout(int timeout_ms) {
  if (timeout_ms == answerTimeout_ms_) return;
  const timeval time{timeout_ms / 1000, timeout_ms % 1000 * 1000L};
  setsockopt(socket_.number(), SOL_SOCKET, SO_RCVTIMEO, &time, sizeof time);
  answerTimeout_ms_ = timeout_ms;
}

SendResult SimulatorConnection::timedOut() {
  drop(State::Late);
  return {};
}

SendResult SimulatorConnection::failed(int systemError) {
  drop(State::Closed);
  return {false, 0, static_cast<std::uint32_t>(systemError)};
}

void SimulatorConnection::drop(State next) {
  socket_ = Descriptor();
  state_ = next;
}

}  // namespace vorlent
