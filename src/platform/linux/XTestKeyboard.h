#pragma once

#include <memory>

#include "platform/Keyboard.h"

namespace vorlent {

/// Keys through the XTEST extension of the display that DISPLAY names, which is looked for at the
/// first key and again after it has gone. Under Wayland only programs that use X see them.
class XTestKeyboard : public Keyboard {
 public:
  XTestKeyboard();
  ~XTestKeyboard() override;
  XTestKeyboard(const XTestKeyboard&) = delete;
  XTestKeyboard& operator=(const XTestKeyboard&) = delete;

  void press(const KeyCombination& combination) override;

 private:
  class Connection;
  std::unique_ptr<Connection> connection_;
};

}  // namespace vorlent
