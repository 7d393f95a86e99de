#include "platform/win32/SendInputKeyboard.h"

#include <windows.h>

#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "gtest/gtest.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

/// "+VK/SCAN" for a key that goes down and "-VK/SCAN" for one that goes up, in hexadecimal, "e" in
/// front of an extended scan code.
std::vector<std::string> seen;

std::string hexOf(DWORD number) {
  char text[16];
  wsprintfA(text, "%02X", number);
  return text;
}

/// Sees what is sent before any window does, and keeps it from them.
LRESULT CALLBACK note(int code, WPARAM message, LPARAM data) {
  if (code != HC_ACTION) return CallNextHookEx(nullptr, code, message, data);
  const auto& key = *reinterpret_cast<const KBDLLHOOKSTRUCT*>(data);
  const bool up = (key.flags & LLKHF_UP) != 0;
  const bool extended = (key.flags & LLKHF_EXTENDED) != 0;
  seen.push_back((up ? "-" : "+") + hexOf(key.vkCode) + "/" + (extended ? "e" : "") +
                 hexOf(key.scanCode));
  return 1;
}

class SendInputKeyboardTest : public testing::Test {
 protected:
  SendInputKeyboardTest()
      : hook_(SetWindowsHookExA(WH_KEYBOARD_LL, note, GetModuleHandleA(nullptr), 0)) {
    seen.clear();
  }
  ~SendInputKeyboardTest() override { UnhookWindowsHookEx(hook_); }

  /// What the combination makes the system see, as one text.
  std::string seenFor(const KeyCombination& combination, std::size_t eventCount) {
    EXPECT_NE(hook_, nullptr);
    keyboard.press(combination);
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (seen.size() < eventCount && std::chrono::steady_clock::now() < limit) pump();
    pump();
    std::string all;
    for (const auto& one : std::exchange(seen, {})) all += (all.empty() ? "" : " ") + one;
    return all;
  }

  SendInputKeyboard keyboard;

 private:
  static void pump() {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != 0;)
      DispatchMessageA(&message);
  }

  HHOOK hook_;
};

TEST_F(SendInputKeyboardTest, AKeyGoesDownAndUpWithItsScanCode) {
  EXPECT_EQ(seenFor({.key = U'a'}, 2), "+41/1E -41/1E");
  EXPECT_EQ(seenFor({.key = NamedKey::F5}, 2), "+74/3F -74/3F");
}

TEST_F(SendInputKeyboardTest, ModifiersGoDownFirstAndUpLast) {
  EXPECT_EQ(seenFor({.Shift = true, .Ctrl = true, .key = U'c'}, 6),
            "+A2/1D +A0/2A +43/2E -43/2E -A0/2A -A2/1D");
  EXPECT_EQ(seenFor({.Alt = true, .key = NamedKey::F4}, 4), "+A4/38 +73/3E -73/3E -A4/38");
}

TEST_F(SendInputKeyboardTest, ACharacterBehindShiftIsTypedWithShift) {
  EXPECT_EQ(seenFor({.key = U'?'}, 4), "+A0/2A +BF/35 -BF/35 -A0/2A");
  EXPECT_EQ(seenFor({.key = U'/'}, 2), "+BF/35 -BF/35");
}

TEST_F(SendInputKeyboardTest, EveryNamedKeyHasTheCodesOfItsKey) {
  const std::vector<std::pair<NamedKey, std::string>> codes = {
      {NamedKey::Backspace, "08/0E"}, {NamedKey::Tab, "09/0F"},      {NamedKey::Clear, "0C/4C"},
      {NamedKey::Enter, "0D/1C"},     {NamedKey::CapsLock, "14/3A"}, {NamedKey::Escape, "1B/01"},
      {NamedKey::End, "23/e4F"},      {NamedKey::Home, "24/e47"},    {NamedKey::Insert, "2D/e52"},
      {NamedKey::Delete, "2E/e53"},   {NamedKey::Help, "2F/63"},     {NamedKey::NumLock, "90/e45"},
      {NamedKey::F1, "70/3B"},        {NamedKey::F10, "79/44"},      {NamedKey::F11, "7A/57"},
      {NamedKey::F12, "7B/58"},       {NamedKey::F16, "7F/67"}};
  for (const auto& [key, code] : codes)
    EXPECT_EQ(seenFor({.key = key}, 2), "+" + code + " -" + code);
}

TEST_F(SendInputKeyboardTest, AKeyThatTheKeyboardLacksIsRefusedAndNothingIsPressed) {
  for (const char32_t lacking : {U'\u0416', U'\U0001F6EB'})
    EXPECT_EQ(raisedBy([&] { keyboard.press({.Ctrl = true, .key = lacking}); }), 5);
  EXPECT_EQ(seenFor({.key = U'a'}, 2), "+41/1E -41/1E");
}

}  // namespace
}  // namespace vorlent
