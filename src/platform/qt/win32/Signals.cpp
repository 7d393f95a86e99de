#include "platform/qt/Signals.h"

#include <windows.h>

#include <QCoreApplication>
#include <QObject>
#include <csignal>
#include <mutex>
#include <utility>

namespace vorlent {
namespace {

/// What the system's thread can reach.
struct Caught {
  std::mutex mutex;
  std::function<void(int)> onTermination;
  QObject* receiver = nullptr;
};
Caught caught;

bool deliver(int signal) {
  const std::lock_guard lock(caught.mutex);
  if (!caught.receiver) return false;
  QMetaObject::invokeMethod(
      caught.receiver, [signal]() noexcept { caught.onTermination(signal); }, Qt::QueuedConnection);
  return true;
}

/// Windows ends the program when the answer to a closed console, a log-off or a shutdown comes, or
/// after 5 s; so the answer is left out, and the program ends by itself.
BOOL WINAPI onConsoleEvent(DWORD event) {
  const bool maySayNo = event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT;
  const bool delivered = deliver(maySayNo ? SIGINT : SIGTERM);
  if (delivered && !maySayNo) Sleep(INFINITE);
  return delivered;
}

}  // namespace

class Signals::Catch {
 public:
  explicit Catch(std::function<void(int)> onTermination) {
    const std::lock_guard lock(caught.mutex);
    caught.onTermination = std::move(onTermination);
    caught.receiver = &receiver_;
    SetConsoleCtrlHandler(onConsoleEvent, TRUE);
  }
  ~Catch() {
    SetConsoleCtrlHandler(onConsoleEvent, FALSE);
    const std::lock_guard lock(caught.mutex);
    caught.receiver = nullptr;
  }
  Catch(const Catch&) = delete;
  Catch& operator=(const Catch&) = delete;

 private:
  QObject receiver_;
};

Signals::Signals(std::function<void(int)> onTermination)
    : catch_(std::make_unique<Catch>(std::move(onTermination))) {}

Signals::~Signals() = default;

}  // namespace vorlent
