#include "platform/QueuedOutput.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <string>
#include <utility>

#include "base/BackgroundWrite.h"

namespace vorlent {
namespace {

std::size_t linesIn(std::string_view text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

std::string notice(std::size_t dropped) {
  return "(" + std::to_string(dropped) + (dropped == 1 ? " line" : " lines") + " dropped)\n";
}

}  // namespace

class QueuedOutput::Queue {
 public:
  Queue(int descriptor, std::size_t capacity_bytes)
      : descriptor_(descriptor), capacity_bytes_(capacity_bytes) {}

  void add(std::string_view line) {
    const std::lock_guard lock(mutex_);
    const std::size_t queued_bytes = waiting_.size() + beingWritten_bytes_;
    if (queued_bytes > 0 && queued_bytes + line.size() > capacity_bytes_) {
      ++dropped_;
      return;
    }
    addNotice();
    waiting_ += line;
    changed_.notify_all();
  }

  /// Returns when finish() has been called and nothing waits any more.
  void writeOut() {
    std::unique_lock lock(mutex_);
    while (waitForText(lock)) {
      const std::string text = std::exchange(waiting_, {});
      beingWritten_bytes_ = text.size();
      lock.unlock();
      const std::string_view unwritten = writeAll(descriptor_, text);
      lock.lock();
      beingWritten_bytes_ = 0;
      dropped_ += linesIn(unwritten);
      // A descriptor that takes nothing is not told of that.
      if (unwritten.empty()) addNotice();
    }
    done_ = true;
    changed_.notify_all();
  }

  void finish(std::chrono::milliseconds limit) {
    std::unique_lock lock(mutex_);
    finishing_ = true;
    changed_.notify_all();
    changed_.wait_for(lock, limit, [this] { return done_; });
  }

 private:
  bool waitForText(std::unique_lock<std::mutex>& lock) {
    changed_.wait(lock, [this] { return finishing_ || !waiting_.empty(); });
    return !waiting_.empty();
  }

  void addNotice() {
    if (dropped_ > 0) waiting_ += notice(std::exchange(dropped_, 0));
  }

  const int descriptor_;
  const std::size_t capacity_bytes_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::string waiting_;
  std::size_t beingWritten_bytes_ = 0;
  std::size_t dropped_ = 0;  ///< lines behind those that wait
  bool finishing_ = false;
  bool done_ = false;
};

QueuedOutput::QueuedOutput(int descriptor, std::size_t capacity_bytes)
    : queue_(std::make_shared<Queue>(descriptor, capacity_bytes)) {
  startBackgroundThread([queue = queue_] { queue->writeOut(); });
}

QueuedOutput::~QueuedOutput() { queue_->finish(LongestFarewell); }

void QueuedOutput::write(std::string_view line) { queue_->add(line); }

}  // namespace vorlent
