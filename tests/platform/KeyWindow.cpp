#include "platform/KeyWindow.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <poll.h>

#include <chrono>
#include <stdexcept>
#include <utility>

namespace vorlent {
namespace {

using Clock = std::chrono::steady_clock;

/// Waits for the next event, at most until `limit`.
void awaitEvent(Display* display, Clock::time_point limit) {
  if (XPending(display) > 0) return;
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(limit - Clock::now());
  pollfd waiting{ConnectionNumber(display), POLLIN, 0};
  if (left.count() <= 0 || poll(&waiting, 1, static_cast<int>(left.count())) <= 0)
    throw std::runtime_error("no event came");
}

}  // namespace

KeyWindow::KeyWindow(const std::string& display) : display_(XOpenDisplay(display.c_str())) {
  if (display_ == nullptr) throw std::runtime_error("no display " + display);
  window_ = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 100, 50, 0, 0, 0);
  XSelectInput(display_, window_,
               KeyPressMask | KeyReleaseMask | StructureNotifyMask | FocusChangeMask);
  XMapWindow(display_, window_);
  const auto limit = Clock::now() + std::chrono::seconds(10);
  while (!focused_) {
    awaitEvent(display_, limit);
    note();
  }
}

KeyWindow::~KeyWindow() { XCloseDisplay(display_); }

void KeyWindow::note() {
  XEvent event;
  XNextEvent(display_, &event);
  if (event.type == MapNotify)
    XSetInputFocus(display_, window_, RevertToParent, CurrentTime);
  else if (event.type == FocusIn)
    focused_ = true;
  else if (event.type == MappingNotify)
    XRefreshKeyboardMapping(&event.xmapping);
  if (event.type != KeyPress && event.type != KeyRelease) return;
  KeySym symbol = NoSymbol;
  XLookupString(&event.xkey, nullptr, 0, &symbol, nullptr);
  const char* name = XKeysymToString(symbol);
  received_ += received_.empty() ? "" : " ";
  received_ += event.type == KeyPress ? "+" : "-";
  received_ += name != nullptr ? name : "?";
  ++eventCount_;
}

std::string KeyWindow::received(int eventCount) {
  const auto limit = Clock::now() + std::chrono::seconds(10);
  while (eventCount_ < eventCount) {
    awaitEvent(display_, limit);
    while (XPending(display_) > 0) note();
  }
  XSync(display_, False);
  while (XPending(display_) > 0) note();
  eventCount_ = 0;
  return std::exchange(received_, {});
}

}  // namespace vorlent
