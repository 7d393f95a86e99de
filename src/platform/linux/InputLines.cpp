#include "platform/linux/InputLines.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace vorlent {
namespace {

/// Asked right before the read in place of O_NONBLOCK, which belongs to the open file: on a
/// terminal it would also fall on standard output and on the shell.
bool isReadable(int descriptor) {
  pollfd waiting{descriptor, POLLIN, 0};
  return poll(&waiting, 1, 0) > 0;
}

}  // namespace

std::optional<std::string> InputLines::next() {
  if (pending_.find('\n') == std::string::npos) readAvailable();
  const std::size_t end = std::min(pending_.find('\n'), pending_.size());
  const bool whole = end < pending_.size();
  if (!whole && (!ended_ || pending_.empty())) return std::nullopt;
  std::string line = pending_.substr(0, end);
  pending_.erase(0, end + 1);
  if (line.ends_with('\r')) line.pop_back();
  line.resize(std::min(line.size(), LongestLine_bytes));
  return line;
}

void InputLines::readAvailable() {
  if (ended_ || !isReadable(descriptor_)) return;
  std::array<char, LongestLine_bytes> part;
  const ssize_t length = read(descriptor_, part.data(), part.size());
  if (length > 0)
    pending_.append(part.data(), static_cast<std::size_t>(length));
  else if (length == 0 || (errno != EAGAIN && errno != EINTR))
    ended_ = true;
  if (pending_.find('\n') == std::string::npos)
    pending_.resize(std::min(pending_.size(), LongestLine_bytes));
}

}  // namespace vorlent
