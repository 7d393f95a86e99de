#include <memory>
#include <mutex>
#include <utility>

#include "base/BackgroundWrite.h"
#include "base/win32/readSome.h"
#include "platform/InputLines.h"

namespace vorlent {
namespace {

/// Where the reading thread leaves what it read.
class Inbox {
 public:
  void deliver(const std::string& bytes) {
    const std::lock_guard lock(mutex_);
    bytes_ += bytes;
    ended_ = bytes.empty();
  }
  std::optional<std::string> take() {
    const std::lock_guard lock(mutex_);
    if (bytes_.empty() && ended_) return std::nullopt;
    return std::exchange(bytes_, {});
  }

 private:
  std::mutex mutex_;
  std::string bytes_;
  bool ended_ = false;
};

}  // namespace

/// A thread of its own reads, because nothing tells that a console or a pipe has something to read.
InputLines::Read readStandardInput() {
  auto inbox = std::make_shared<Inbox>();
  startBackgroundThread([inbox] {
    constexpr int StandardInput = 0;
    std::string bytes;
    do {
      bytes = readSome(StandardInput);
      inbox->deliver(bytes);
    } while (!bytes.empty());
  });
  return [inbox] { return inbox->take(); };
}

}  // namespace vorlent
