#include "platform/qt/InputBytes.h"

#include <poll.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <cstddef>
#include <utility>

namespace vorlent {
namespace {

// Asked right before the read in place of O_NONBLOCK, which belongs to the open file and not to the
// descriptor: on a terminal it would also fall on standard output and on the shell.
bool readable(int descriptor) {
  pollfd waiting{descriptor, POLLIN, 0};
  return poll(&waiting, 1, 0) > 0;
}

class NotifiedInput : public InputBytes {
 public:
  NotifiedInput(int descriptor, Handler handler)
      : descriptor_(descriptor),
        handler_(std::move(handler)),
        notifier_(descriptor, QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_,
                     [this]() noexcept { readAvailable(); });
  }

 private:
  void readAvailable() {
    if (!readable(descriptor_)) return;
    std::array<char, 4096> buffer;
    const auto count = read(descriptor_, buffer.data(), buffer.size());
    if (count > 0) {
      handler_({buffer.data(), static_cast<std::size_t>(count)});
    } else if (count == 0 || (errno != EINTR && errno != EAGAIN)) {
      notifier_.setEnabled(false);
      handler_({});
    }
  }

  int descriptor_;
  Handler handler_;
  QSocketNotifier notifier_;
};

}  // namespace

std::unique_ptr<InputBytes> readInput(int descriptor, InputBytes::Handler handler) {
  return std::make_unique<NotifiedInput>(descriptor, std::move(handler));
}

}  // namespace vorlent
