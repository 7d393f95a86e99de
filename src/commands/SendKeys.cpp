#include <array>

#include "base/RuntimeError.h"
#include "base/utf16.h"
#include "commands/Keystrokes.h"
#include "platform/Keyboard.h"

namespace vorlent {
namespace {

struct KnownName {
  std::string_view name;
  NamedKey key;
};

/// Without the arrows, the space bar and others. docs/peculiarities.md: SendKeys names.
constexpr std::array<KnownName, 28> KnownNames{{
    {"BACKSPACE", NamedKey::Backspace},
    {"CAPSLOCK", NamedKey::CapsLock},
    {"CLEAR", NamedKey::Clear},
    {"DELETE", NamedKey::Delete},
    {"END", NamedKey::End},
    {"ENTER", NamedKey::Enter},
    {"ESCAPE", NamedKey::Escape},
    {"HELP", NamedKey::Help},
    {"HOME", NamedKey::Home},
    {"INSERT", NamedKey::Insert},
    {"NUMLOCK", NamedKey::NumLock},
    {"TAB", NamedKey::Tab},
    {"F1", NamedKey::F1},
    {"F2", NamedKey::F2},
    {"F3", NamedKey::F3},
    {"F4", NamedKey::F4},
    {"F5", NamedKey::F5},
    {"F6", NamedKey::F6},
    {"F7", NamedKey::F7},
    {"F8", NamedKey::F8},
    {"F9", NamedKey::F9},
    {"F10", NamedKey::F10},
    {"F11", NamedKey::F11},
    {"F12", NamedKey::F12},
    {"F13", NamedKey::F13},
    {"F14", NamedKey::F14},
    {"F15", NamedKey::F15},
    {"F16", NamedKey::F16},
}};

[[noreturn]] void refuse() { throw RuntimeError(RuntimeError::InvalidCall); }

char32_t characterOf(std::string_view name) {
  const std::string units = utf16OfUtf8(name);
  if (units.size() != 2) refuse();
  const auto character = static_cast<char32_t>(static_cast<unsigned char>(units[0]) +
                                               static_cast<unsigned char>(units[1]) * 256);
  const bool control = character < 0x20 || (character >= 0x7F && character < 0xA0);
  if (control) refuse();
  return character >= U'A' && character <= U'Z' ? character + (U'a' - U'A') : character;
}

std::variant<NamedKey, char32_t> keyOf(std::string_view name) {
  for (const auto& known : KnownNames)
    if (known.name == name) return known.key;
  return characterOf(name);
}

/// The modifier that a sign stands for; nullptr for none.
bool* modifierOf(KeyCombination& combination, char sign) {
  switch (sign) {
    case '^':
      return &combination.Ctrl;
    case '%':
      return &combination.Alt;
    case '+':
      return &combination.Shift;
    default:
      return nullptr;
  }
}

}  // namespace

void SendKeys(Keyboard& keyboard, std::string_view keys) {
  KeyCombination combination;
  for (bool* held = nullptr;
       !keys.empty() && (held = modifierOf(combination, keys.front())) != nullptr;
       keys.remove_prefix(1))
    *held = true;
  if (keys.size() < 3 || keys.front() != '{' || keys.back() != '}') refuse();
  combination.key = keyOf(keys.substr(1, keys.size() - 2));
  keyboard.press(combination);
}

}  // namespace vorlent
