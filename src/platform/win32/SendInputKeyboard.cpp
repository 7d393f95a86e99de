#include "platform/win32/SendInputKeyboard.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <vector>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

struct NamedCode {
  NamedKey key;
  WORD code;
};

constexpr std::array<NamedCode, 12> NamedCodes{{
    {NamedKey::Backspace, VK_BACK},
    {NamedKey::CapsLock, VK_CAPITAL},
    {NamedKey::Clear, VK_CLEAR},
    {NamedKey::Delete, VK_DELETE},
    {NamedKey::End, VK_END},
    {NamedKey::Enter, VK_RETURN},
    {NamedKey::Escape, VK_ESCAPE},
    {NamedKey::Help, VK_HELP},
    {NamedKey::Home, VK_HOME},
    {NamedKey::Insert, VK_INSERT},
    {NamedKey::NumLock, VK_NUMLOCK},
    {NamedKey::Tab, VK_TAB},
}};

/// Keys whose scan code has the prefix E0.
constexpr std::array<WORD, 5> ExtendedKeys{VK_DELETE, VK_END, VK_HOME, VK_INSERT, VK_NUMLOCK};

/// A virtual key code; the high byte tells what typing needs besides: 1 Shift, 2 Ctrl, 4 Alt.
struct KeyPlace {
  WORD code;
  int needs;
};

KeyPlace placeOf(NamedKey key) {
  for (const auto& named : NamedCodes)
    if (named.key == key) return {named.code, 0};
  const int function = static_cast<int>(key) - static_cast<int>(NamedKey::F1);
  return {static_cast<WORD>(VK_F1 + function), 0};
}

KeyPlace placeOf(char32_t character) {
  const SHORT scanned = character < 0x10000 ? VkKeyScanW(static_cast<WCHAR>(character)) : SHORT{-1};
  if (scanned == -1) throw RuntimeError(RuntimeError::InvalidCall);
  return {LOBYTE(scanned), HIBYTE(scanned)};
}

/// The keys of a combination in the order in which they go down.
std::vector<WORD> keysOf(const KeyCombination& combination) {
  const KeyPlace place = std::visit([](auto key) { return placeOf(key); }, combination.key);
  std::vector<WORD> keys;
  if (combination.Ctrl || (place.needs & 2) != 0) keys.push_back(VK_LCONTROL);
  if (combination.Alt || (place.needs & 4) != 0) keys.push_back(VK_LMENU);
  if (combination.Shift || (place.needs & 1) != 0) keys.push_back(VK_LSHIFT);
  keys.push_back(place.code);
  return keys;
}

INPUT inputOf(WORD code, DWORD flags) {
  const bool extended =
      std::find(ExtendedKeys.begin(), ExtendedKeys.end(), code) != ExtendedKeys.end();
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = code;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = flags | (extended ? DWORD{KEYEVENTF_EXTENDEDKEY} : 0);
  return input;
}

}  // namespace

void SendInputKeyboard::press(const KeyCombination& combination) {
  auto keys = keysOf(combination);
  std::vector<INPUT> inputs;
  for (const WORD key : keys) inputs.push_back(inputOf(key, 0));
  std::reverse(keys.begin(), keys.end());
  for (const WORD key : keys) inputs.push_back(inputOf(key, KEYEVENTF_KEYUP));
  const auto count = static_cast<UINT>(inputs.size());
  if (SendInput(count, inputs.data(), sizeof(INPUT)) != count)
    throw RuntimeError(RuntimeError::InternalError, "The system does not let keys be sent");
}

}  // namespace vorlent
