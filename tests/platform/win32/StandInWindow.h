#pragma once

#include <windows.h>

#include <functional>
#include <future>
#include <string>
#include <thread>
#include <utility>

namespace vorlent {

/// A hidden top-level window on a thread of its own, with bare system calls. It answers every
/// message that is not the system's own with `answer(message, first, second)`, on that thread.
class StandInWindow {
 public:
  using Answer = std::function<LRESULT(UINT message, WPARAM first, LPARAM second)>;

  explicit StandInWindow(const std::string& windowClass, Answer answer = nullptr)
      : answer_(std::move(answer)) {
    std::promise<HWND> made;
    auto window = made.get_future();
    thread_ = std::thread([this, windowClass, &made] { run(windowClass, made); });
    window_ = window.get();
  }
  ~StandInWindow() { close(); }
  StandInWindow(const StandInWindow&) = delete;
  StandInWindow& operator=(const StandInWindow&) = delete;

  HWND window() const { return window_; }
  /// Destroys the window and waits for its end.
  void close() {
    if (!thread_.joinable()) return;
    PostMessageA(window_, WM_CLOSE, 0, 0);
    thread_.join();
  }

 private:
  static LRESULT CALLBACK handle(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* self = reinterpret_cast<StandInWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    constexpr UINT firstRegistered = 0xC000;
    if (self != nullptr && message >= firstRegistered && self->answer_)
      return self->answer_(message, first, second);
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcA(window, message, first, second);
  }

  void run(const std::string& windowClass, std::promise<HWND>& made) {
    WNDCLASSA description{};
    description.lpfnWndProc = handle;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = windowClass.c_str();
    RegisterClassA(&description);
    const HWND window = CreateWindowA(windowClass.c_str(), "", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100,
                                      nullptr, nullptr, description.hInstance, nullptr);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    made.set_value(window);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
    UnregisterClassA(windowClass.c_str(), description.hInstance);
  }

  Answer answer_;
  std::thread thread_;
  HWND window_ = nullptr;
};

}  // namespace vorlent
