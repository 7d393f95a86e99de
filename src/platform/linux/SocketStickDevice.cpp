#include "platform/linux/SocketStickDevice.h"

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "platform/EndSignals.h"
#include "platform/linux/BusFolder.h"
#include "platform/linux/StickSockets.h"
#include "platform/linux/UnixAddress.h"

namespace vorlent {
namespace {

constexpr std::size_t MostReaders = 16;
/// A signal can come between the look at `ended` and the wait, so waits are not longer.
constexpr int LongestWait_ms = 200;
/// A longer line is cut into several.
constexpr std::size_t LongestLine = 4096;

}  // namespace

std::unique_ptr<StickDevice> openStickDevice(const std::string& name) {
  return std::make_unique<SocketStickDevice>(busFolder(), name, STDIN_FILENO, catchEndSignals());
}

SocketStickDevice::SocketStickDevice(const std::string& folder, const std::string& name, int input,
                                     const volatile std::sig_atomic_t& ended)
    : window_(folder, stickSocketName(name)), input_(input), ended_(ended) {}

void SocketStickDevice::show(const ControllerState& state) {
  if (state == state_) return;
  state_ = state;
  for (auto reader = readers_.begin(); reader != readers_.end();)
    reader = send(*reader) ? std::next(reader) : readers_.erase(reader);
}

bool SocketStickDevice::pause(int duration_ms) {
  const auto end = Clock::now() + std::chrono::milliseconds(duration_ms);
  while (!ended_ && Clock::now() < end) serveOnce(end, false);
  return !ended_;
}

bool SocketStickDevice::awaitReader() {
  while (!ended_ && readers_.empty()) serveOnce(std::nullopt, false);
  return !ended_;
}

std::optional<std::string> SocketStickDevice::nextLine() {
  std::optional<std::string> line;
  while (!ended_ && !(line = takeLine()) && !inputEnded_ && input_ >= 0)
    serveOnce(std::nullopt, true);
  return ended_ ? std::nullopt : line;
}

void SocketStickDevice::serveOnce(std::optional<Clock::time_point> end, bool withInput) {
  watch(withInput);
  int wait_ms = LongestWait_ms;
  if (end) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*end - Clock::now()).count();
    wait_ms = static_cast<int>(std::clamp<std::int64_t>(left, 0, LongestWait_ms));
  }
  if (poll(watched_.data(), watched_.size(), wait_ms) <= 0) return;
  auto watched = watched_.begin() + 1;
  for (auto reader = readers_.begin(); reader != readers_.end(); ++watched)
    reader = watched->revents == 0 || attend(*reader, watched->revents) ? std::next(reader)
                                                                        : readers_.erase(reader);
  if (watched_.front().revents != 0) accept();
  if (withInput && watched_.back().revents != 0) readInput();
}

void SocketStickDevice::watch(bool withInput) {
  watched_.assign(1, {window_.descriptor(), POLLIN, 0});
  for (const Reader& reader : readers_) {
    const int events = reader.behind ? POLLIN | POLLOUT : POLLIN;
    watched_.push_back({reader.socket.number(), static_cast<short>(events), 0});
  }
  if (withInput) watched_.push_back({input_, POLLIN, 0});
}

void SocketStickDevice::accept() {
  Descriptor socket(accept4(window_.descriptor(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
  if (!socket || readers_.size() >= MostReaders || !isOwnPeer(socket)) return;
  Reader reader{std::move(socket)};
  if (send(reader)) readers_.push_back(std::move(reader));
}

bool SocketStickDevice::attend(Reader& reader, short events) {
  // Readers have nothing to say: what comes is their end, or is dropped.
  std::array<char, 64> dropped;
  if (events & ~POLLOUT) {
    const ssize_t length = recv(reader.socket.number(), dropped.data(), dropped.size(), 0);
    if (length == 0 || (length < 0 && errno != EAGAIN && errno != EINTR)) return false;
  }
  return !reader.behind || send(reader);
}

bool SocketStickDevice::send(Reader& reader) const {
  const ssize_t sent = ::send(reader.socket.number(), &state_, sizeof state_, MSG_NOSIGNAL);
  reader.behind = sent != sizeof state_;
  return !reader.behind || errno == EAGAIN || errno == EINTR;
}

void SocketStickDevice::readInput() {
  std::array<char, LongestLine> part;
  const ssize_t length = read(input_, part.data(), part.size());
  if (length > 0)
    pending_.append(part.data(), static_cast<std::size_t>(length));
  else if (length == 0 || (errno != EAGAIN && errno != EINTR))
    inputEnded_ = true;
}

/// Whatever stands behind the last line end counts as a line once the input has ended.
std::optional<std::string> SocketStickDevice::takeLine() {
  const std::size_t end = pending_.find('\n');
  const bool whole = end != std::string::npos;
  if (!whole && pending_.size() < LongestLine && (!inputEnded_ || pending_.empty()))
    return std::nullopt;
  std::string line = pending_.substr(0, end);
  pending_.erase(0, whole ? end + 1 : std::string::npos);
  return line;
}

}  // namespace vorlent
