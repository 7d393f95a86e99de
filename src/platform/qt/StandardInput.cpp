#include "platform/qt/StandardInput.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace vorlent {
namespace {

// Asked right before the read in place of O_NONBLOCK, which belongs to the open file and not to the
// descriptor: on a terminal it would also fall on standard output and on the shell.
bool readable(int descriptor) {
  pollfd waiting{descriptor, POLLIN, 0};
  return poll(&waiting, 1, 0) > 0;
}

}  // namespace

StandardInput::StandardInput(LineHandler onLine, std::function<void()> onEnd, int descriptor)
    : onLine_(std::move(onLine)),
      onEnd_(std::move(onEnd)),
      descriptor_(descriptor),
      notifier_(descriptor, QSocketNotifier::Read) {
  QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_,
                   [this]() noexcept { readAvailable(); });
}

void StandardInput::readAvailable() {
  if (!readable(descriptor_)) return;
  std::array<char, 4096> buffer;
  const auto count = read(descriptor_, buffer.data(), buffer.size());
  if (count > 0) {
    pending_.append(buffer.data(), static_cast<std::size_t>(count));
    deliverLines();
  } else if (count == 0 || (errno != EINTR && errno != EAGAIN)) {
    finish();
  }
}

void StandardInput::deliverLines() {
  for (auto end = pending_.find('\n'); end != std::string::npos; end = pending_.find('\n')) {
    std::string line = pending_.substr(0, end);
    pending_.erase(0, end + 1);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    line.resize(std::min(line.size(), LongestLine_bytes));
    onLine_(line);
  }
  pending_.resize(std::min(pending_.size(), LongestLine_bytes));
}

void StandardInput::finish() {
  notifier_.setEnabled(false);
  if (!pending_.empty()) {
    pending_ += '\n';
    deliverLines();
  }
  onEnd_();
}

}  // namespace vorlent
