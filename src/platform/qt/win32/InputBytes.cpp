#include "platform/qt/InputBytes.h"

#include <QCoreApplication>
#include <QObject>
#include <mutex>
#include <string>
#include <utility>

#include "base/BackgroundWrite.h"
#include "base/win32/readSome.h"

namespace vorlent {
namespace {

/// Where the reading thread leaves what it read, for as long as somebody wants it.
class Inbox {
 public:
  explicit Inbox(InputBytes::Handler handler) : handler_(std::move(handler)) {}

  /// Whether there is somebody.
  bool deliver(std::string bytes) {
    const std::lock_guard lock(mutex_);
    if (!wanted_) return false;
    QMetaObject::invokeMethod(
        &receiver_, [this, bytes = std::move(bytes)]() noexcept { handler_(bytes); },
        Qt::QueuedConnection);
    return true;
  }

  /// From the thread of the event loop; what was delivered and not handled yet goes.
  void close() {
    const std::lock_guard lock(mutex_);
    wanted_ = false;
    QCoreApplication::removePostedEvents(&receiver_);
  }

 private:
  InputBytes::Handler handler_;
  std::mutex mutex_;
  bool wanted_ = true;
  QObject receiver_;
};

/// A thread of its own reads, because nothing tells that a console or a pipe has something to read.
class ThreadedInput : public InputBytes {
 public:
  ThreadedInput(int descriptor, Handler handler)
      : inbox_(std::make_shared<Inbox>(std::move(handler))) {
    startBackgroundThread([descriptor, inbox = inbox_] {
      std::string bytes;
      do {
        bytes = readSome(descriptor);
      } while (inbox->deliver(bytes) && !bytes.empty());
    });
  }
  ~ThreadedInput() override { inbox_->close(); }

 private:
  std::shared_ptr<Inbox> inbox_;
};

}  // namespace

std::unique_ptr<InputBytes> readInput(int descriptor, InputBytes::Handler handler) {
  return std::make_unique<ThreadedInput>(descriptor, std::move(handler));
}

}  // namespace vorlent
