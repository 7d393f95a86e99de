#pragma once

#include <string>

struct _XDisplay;

namespace vorlent {

/// A window of its own client that has the keyboard's focus and notes what it receives.
class KeyWindow {
 public:
  explicit KeyWindow(const std::string& display);
  ~KeyWindow();
  KeyWindow(const KeyWindow&) = delete;
  KeyWindow& operator=(const KeyWindow&) = delete;

  /// At least this many events, waited for, and all that has come by then: "+Shift_L +A -A
  /// -Shift_L" with the names of X for the symbols that a program sees.
  std::string received(int eventCount);

 private:
  void note();

  _XDisplay* display_;
  unsigned long window_;
  int eventCount_ = 0;
  bool focused_ = false;
  std::string received_;
};

}  // namespace vorlent
