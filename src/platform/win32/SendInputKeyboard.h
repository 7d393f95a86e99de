#pragma once

#include "platform/Keyboard.h"

namespace vorlent {

/// Keys through SendInput, each with its scan code, since simulators read those.
class SendInputKeyboard : public Keyboard {
 public:
  void press(const KeyCombination& combination) override;
};

}  // namespace vorlent
