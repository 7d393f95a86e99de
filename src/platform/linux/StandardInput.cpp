#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "platform/InputLines.h"

namespace vorlent {
namespace {

/// Asked right before the read in place of O_NONBLOCK, which belongs to the open file: on a
/// terminal it would also fall on standard output and on the shell.
bool isReadable(int descriptor) {
  pollfd waiting{descriptor, POLLIN, 0};
  return poll(&waiting, 1, 0) > 0;
}

}  // namespace

InputLines::Read readStandardInput() {
  return []() -> std::optional<std::string> {
    if (!isReadable(STDIN_FILENO)) return "";
    std::array<char, InputLines::LongestLine_bytes> part;
    const ssize_t length = read(STDIN_FILENO, part.data(), part.size());
    if (length > 0) return std::string(part.data(), static_cast<std::size_t>(length));
    if (length < 0 && (errno == EAGAIN || errno == EINTR)) return "";
    return std::nullopt;
  };
}

}  // namespace vorlent
