#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "platform/Keyboard.h"

namespace vorlent {

class RecordingKeyboard : public Keyboard {
 public:
  void press(const KeyCombination& combination) override {
    if (error) throw *error;
    pressed.push_back(combination);
  }

  std::vector<KeyCombination> pressed;
  /// Raised by every press while set.
  std::optional<RuntimeError> error;
};

}  // namespace vorlent
