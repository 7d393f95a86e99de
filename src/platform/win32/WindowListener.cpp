#include "platform/win32/WindowListener.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <utility>

#include "base/RuntimeError.h"
#include "platform/win32/ForeignBlock.h"

namespace vorlent {
namespace {

using Clock = std::chrono::steady_clock;

UINT requestMessage() {
  static const UINT message = RegisterWindowMessageA("FSASMLIB:IPC");
  return message;
}

/// No exception may pass through the system's own frames.
LRESULT CALLBACK handle(HWND window, UINT message, WPARAM atom, LPARAM parameter) noexcept {
  auto* listener = reinterpret_cast<WindowListener*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (listener != nullptr && message == requestMessage())
    return listener->answer(static_cast<std::uint16_t>(atom));
  if (listener == nullptr || message != WM_CLOSE)
    return DefWindowProcA(window, message, atom, parameter);
  listener->endProgram();
  return 0;
}

[[noreturn]] void refuse(const std::string& windowClass, const std::string& why) {
  throw RuntimeError(RuntimeError::PathAccess, "Cannot open a window " + windowClass + ": " + why);
}

void dispatchWhatWaits() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != 0) DispatchMessageA(&message);
}

}  // namespace

/// A window together with its class.
class WindowListener::Window {
 public:
  Window(const std::string& windowClass, WindowListener& listener) : class_(windowClass) {
    if (FindWindowExA(nullptr, nullptr, class_.c_str(), nullptr) != nullptr)
      refuse(class_, "another simulator is running");
    WNDCLASSA description{};
    description.lpfnWndProc = handle;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = class_.c_str();
    RegisterClassA(&description);
    window_ = CreateWindowExA(0, class_.c_str(), "", WS_OVERLAPPEDWINDOW, 0, 0, 0, 0, nullptr,
                              nullptr, description.hInstance, nullptr);
    if (window_ == nullptr) refuse(class_, "the system refuses it");
    SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&listener));
  }
  ~Window() {
    DestroyWindow(window_);
    UnregisterClassA(class_.c_str(), GetModuleHandleA(nullptr));
  }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

 private:
  std::string class_;
  HWND window_ = nullptr;
};

std::unique_ptr<RequestListener> listenForRequests(const std::vector<std::string>& windowClasses,
                                                   BlockServer server) {
  return std::make_unique<WindowListener>(windowClasses, std::move(server));
}

WindowListener::WindowListener(const std::vector<std::string>& windowClasses, BlockServer server)
    : server_(std::move(server)) {
  for (const std::string& windowClass : windowClasses)
    windows_.push_back(std::make_unique<Window>(windowClass, *this));
}

WindowListener::~WindowListener() = default;

void WindowListener::serve(int duration_ms) {
  const auto end = Clock::now() + std::chrono::milliseconds(duration_ms);
  do {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(std::max<long long>(0, left)),
                                QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    dispatchWhatWaits();
  } while (Clock::now() < end);
}

void WindowListener::endProgram() {
  if (!std::exchange(ending_, true)) std::raise(SIGTERM);
}

std::int32_t WindowListener::answer(std::uint16_t atom) {
  constexpr std::size_t LongestAtom = 255;
  std::array<char, LongestAtom + 1> name{};
  if (GlobalGetAtomNameA(atom, name.data(), static_cast<int>(name.size())) == 0) return 0;
  const ForeignBlock block(name.data(), BlockSize);
  return block.memory().empty() ? 0 : server_(block.memory());
}

}  // namespace vorlent
