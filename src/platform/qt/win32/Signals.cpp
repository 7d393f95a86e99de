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

/// A top-level window that nobody sees: a console program that has one is told of a log-off and a
/// shutdown in no other way, and it is what taskkill asks to close.
class EndWindow {
 public:
  explicit EndWindow(const std::function<void(int)>& onTermination)
      : onTermination_(onTermination) {
    WNDCLASSW description{};
    description.lpfnWndProc = handle;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = ClassName;
    RegisterClassW(&description);
    window_ = CreateWindowExW(0, ClassName, L"", WS_OVERLAPPED, 0, 0, 0, 0, nullptr, nullptr,
                              description.hInstance, nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  ~EndWindow() {
    DestroyWindow(window_);
    UnregisterClassW(ClassName, GetModuleHandleW(nullptr));
  }
  EndWindow(const EndWindow&) = delete;
  EndWindow& operator=(const EndWindow&) = delete;

 private:
  static constexpr const wchar_t* ClassName = L"VorlentEnd";

  /// The program is gone as soon as it has answered the end of the session.
  static LRESULT CALLBACK handle(HWND window, UINT message, WPARAM first, LPARAM second) noexcept {
    const auto* self = reinterpret_cast<const EndWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self != nullptr && message == WM_ENDSESSION && first != 0)
      self->onTermination_(SIGTERM);
    else if (self != nullptr && message == WM_CLOSE)
      deliver(SIGTERM);
    else
      return DefWindowProcW(window, message, first, second);
    return 0;
  }

  const std::function<void(int)>& onTermination_;
  HWND window_ = nullptr;
};

}  // namespace

class Signals::Catch {
 public:
  explicit Catch(std::function<void(int)> onTermination) : window_(caught.onTermination) {
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
  EndWindow window_;
};

Signals::Signals(std::function<void(int)> onTermination)
    : catch_(std::make_unique<Catch>(std::move(onTermination))) {}

Signals::~Signals() = default;

}  // namespace vorlent
