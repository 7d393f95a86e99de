#pragma once

#include <variant>

namespace vorlent {

/// The keys that have a name in place of a character. F1 to F16 follow each other.
enum class NamedKey {
  Backspace,
  CapsLock,
  Clear,
  Delete,
  End,
  Enter,
  Escape,
  Help,
  Home,
  Insert,
  NumLock,
  Tab,
  // clang-format off
  F1, F2, F3, F4, F5, F6, F7, F8, F9, F10, F11, F12, F13, F14, F15, F16,
  // clang-format on
};

/// A key with what is held down meanwhile.
struct KeyCombination {
  bool Shift = false;
  bool Ctrl = false;
  bool Alt = false;
  /// A character (Unicode) stands for the key that types it; a modifier that typing it needs is
  /// held down too.
  std::variant<NamedKey, char32_t> key = NamedKey::Enter;

  bool operator==(const KeyCombination&) const = default;
};

/// The machine's keyboard, as other programs see it.
class Keyboard {
 public:
  virtual ~Keyboard() = default;
  /// Presses and releases the combination for the program that has the focus, and does not wait
  /// until that has seen it. Raises InvalidCall when the keyboard has no such key, and
  /// InternalError with a plain description when keys cannot be sent at all.
  virtual void press(const KeyCombination& combination) = 0;
};

}  // namespace vorlent
