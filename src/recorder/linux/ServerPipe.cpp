#include "recorder/ServerPipe.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace vorlent {
namespace {

class SocketPair : public ServerPipe {
 public:
  std::optional<std::string_view> read(std::optional<std::int64_t> longest_ms) override {
    pollfd input{STDIN_FILENO, POLLIN, 0};
    if (poll(&input, 1, static_cast<int>(longest_ms.value_or(-1))) <= 0) return "";
    const ssize_t count = ::read(STDIN_FILENO, buffer_.data(), buffer_.size());
    if (count < 0 && errno == EINTR) return "";
    if (count <= 0) return std::nullopt;
    return std::string_view(buffer_.data(), static_cast<std::size_t>(count));
  }

  /// By the way the events come; to nobody where that is a pipe.
  void tell(const std::string& sentence) override {
    const std::string line = sentence + "\n";
    send(STDIN_FILENO, line.data(), line.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
  }

 private:
  std::array<char, 65536> buffer_;
};

}  // namespace

/// A terminal or a service manager tells both at once to go, and the last events are still to come
/// then.
std::unique_ptr<ServerPipe> pipeFromServer() {
  for (const int request : {SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGXFSZ})
    std::signal(request, SIG_IGN);
  return std::make_unique<SocketPair>();
}

}  // namespace vorlent
