#include "base/BackgroundWrite.h"

#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <thread>
#include <utility>

namespace vorlent {
namespace {

/// A thread that is started meanwhile is sent no signal.
class SignalsBlocked {
 public:
  SignalsBlocked() {
    sigset_t all{};
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &former_);
  }
  ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &former_, nullptr); }
  SignalsBlocked(const SignalsBlocked&) = delete;
  SignalsBlocked& operator=(const SignalsBlocked&) = delete;

 private:
  sigset_t former_{};
};

}  // namespace

std::string_view writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(descriptor, text.data(), text.size());
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EAGAIN) {
      // Another process that shares the open file has made it so.
      pollfd waiting{descriptor, POLLOUT, 0};
      poll(&waiting, 1, -1);
    } else if (errno != EINTR) {
      break;
    }
  }
  return text;
}

void startBackgroundThread(std::function<void()> work) {
  const SignalsBlocked blocked;
  std::thread(std::move(work)).detach();
}

}  // namespace vorlent
