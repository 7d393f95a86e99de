#include "platform/linux/RecorderProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <utility>

namespace vorlent {
namespace {

/// Of the socket, where the system grants it: a second of a flight and more.
constexpr int Buffer_bytes = 1 << 20;

}  // namespace

RecorderProcess::RecorderProcess(const std::string& program, const std::string& folder,
                                 int size_MB) {
  std::array<int, 2> ends{-1, -1};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    lose("there is no connection to its helper");
    return;
  }
  socket_ = Descriptor(ends[0]);
  const Descriptor helpers(ends[1]);
  setsockopt(ends[0], SOL_SOCKET, SO_SNDBUF, &Buffer_bytes, sizeof Buffer_bytes);
  std::error_code failed;
  if (std::filesystem::exists(program, failed))
    child_ = ChildProcess::start({program, folder, std::to_string(size_MB)}, helpers.number(), -1);
  if (!child_) lose("its helper " + program + " cannot be started");
}

void RecorderProcess::lose(const std::string& why) {
  socket_ = Descriptor();
  said_ += "Nothing is recorded: " + why + "\n";
}

std::size_t RecorderProcess::send(std::string_view bytes) {
  const ssize_t taken =
      ::send(socket_.number(), bytes.data(), bytes.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
  if (taken >= 0) return static_cast<std::size_t>(taken);
  if (errno != EAGAIN && errno != EINTR) {
    receive();
    lose("its helper has ended");
  }
  return 0;
}

void RecorderProcess::receive() {
  std::array<char, 4096> buffer;
  ssize_t count = 0;
  while ((count = recv(socket_.number(), buffer.data(), buffer.size(), MSG_DONTWAIT)) > 0)
    said_.append(buffer.data(), static_cast<std::size_t>(count));
}

std::optional<std::string> RecorderProcess::news() {
  if (socket_) receive();
  const std::size_t end = said_.find('\n');
  if (end == std::string::npos) return std::nullopt;
  std::string sentence = said_.substr(0, end);
  said_.erase(0, end + 1);
  return sentence;
}

bool RecorderProcess::awaitRoom(int deadline_ms) const {
  pollfd room{socket_.number(), POLLOUT, 0};
  return poll(&room, 1, deadline_ms) > 0;
}

void RecorderProcess::end(std::string_view rest) {
  using Clock = std::chrono::steady_clock;
  const auto until = Clock::now() + std::chrono::milliseconds(LongestFarewell_ms);
  const auto left_ms = [&until] {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(until - Clock::now());
    return std::max(0, static_cast<int>(left.count()));
  };
  while (socket_ && !rest.empty() && awaitRoom(left_ms())) rest.remove_prefix(send(rest));
  socket_ = Descriptor();
  if (child_) child_->awaitEnd(left_ms());
}

}  // namespace vorlent
