#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "commands/Keystrokes.h"
#include "support/RecordingKeyboard.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

class SendKeysTest : public testing::Test {
 protected:
  using Presses = std::vector<KeyCombination>;

  /// What reaches the keyboard.
  Presses pressesOf(std::string_view keys) {
    SendKeys(keyboard, keys);
    return std::exchange(keyboard.pressed, {});
  }
  int refusalOf(std::string_view keys) {
    const int fault = raisedBy([&] { SendKeys(keyboard, keys); });
    EXPECT_TRUE(keyboard.pressed.empty()) << keys;
    return fault;
  }

  RecordingKeyboard keyboard;
};

TEST_F(SendKeysTest, ALetterIsItsKeyWithoutShift) {
  EXPECT_EQ(pressesOf("{A}"), (Presses{{.key = U'a'}}));
  EXPECT_EQ(pressesOf("+{A}"), (Presses{{.Shift = true, .key = U'a'}}));
  EXPECT_EQ(pressesOf("{Z}"), (Presses{{.key = U'z'}}));
}

TEST_F(SendKeysTest, EachSignHoldsItsModifier) {
  EXPECT_EQ(pressesOf("^{C}"), (Presses{{.Ctrl = true, .key = U'c'}}));
  EXPECT_EQ(pressesOf("%{F4}"), (Presses{{.Alt = true, .key = NamedKey::F4}}));
  EXPECT_EQ(pressesOf("^%{DELETE}"),
            (Presses{{.Ctrl = true, .Alt = true, .key = NamedKey::Delete}}));
  EXPECT_EQ(pressesOf("+%{TAB}"), (Presses{{.Shift = true, .Alt = true, .key = NamedKey::Tab}}));
  EXPECT_EQ(pressesOf("^+{END}"), (Presses{{.Shift = true, .Ctrl = true, .key = NamedKey::End}}));
}

TEST_F(SendKeysTest, OtherCharactersAreTypedAsTheyStand) {
  for (const char character : {'0', '9', ';', '=', ',', '-', '.', '/', '`', '[', '\\', ']', '\''})
    EXPECT_EQ(pressesOf(std::string("{") + character + "}"),
              (Presses{{.key = static_cast<char32_t>(character)}}));
  EXPECT_EQ(pressesOf("{\xC3\xA4}"), (Presses{{.key = char32_t{0xE4}}}));
  EXPECT_EQ(pressesOf("+{+}"), (Presses{{.Shift = true, .key = U'+'}}));
}

TEST_F(SendKeysTest, EveryNameOfTheServiceIsItsKey) {
  const std::vector<std::pair<std::string, NamedKey>> names = {{"BACKSPACE", NamedKey::Backspace},
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
                                                               {"F16", NamedKey::F16}};
  for (const auto& [name, key] : names)
    EXPECT_EQ(pressesOf("{" + name + "}"), (Presses{{.key = key}})) << name;
}

TEST_F(SendKeysTest, NamesThatTheServiceDoesNotKnowAreRefused) {
  for (const std::string name :
       {"GREY + ",   "CANCEL",      "CONTROL",      "GREY . ",      "GREY /",      "DOWN ARROW",
        "EXECUTE",   "LEFT MOUSE",  "LEFT ARROW",   "MIDDLE MOUSE", "ALT",         "GREY *",
        "PAGE DOWN", "PAGE UP",     "PAUSE",        "PRINT SCREEN", "RIGHT MOUSE", "RIGHT ARROW",
        "SELECT",    "SCROLL LOCK", "NUMPAD ENTER", "SHIFT",        "SNAPSHOT",    "SPACE",
        "GREY -",    "UP ARROW",    "NUMPAD 0",     "NUMPAD 9",     "F17",         "Tab"})
    EXPECT_EQ(refusalOf("{" + name + "}"), 5) << name;
}

TEST_F(SendKeysTest, ControlCharactersAreNoKeys) {
  for (const int code : {0, 1, 10, 31, 127, 128, 159})
    EXPECT_EQ(refusalOf("{" +
                        (code < 128 ? std::string(1, static_cast<char>(code))
                                    : std::string{'\xC2', static_cast<char>(code)}) +
                        "}"),
              5)
        << code;
}

TEST_F(SendKeysTest, ATextOfAnotherFormIsRefused) {
  for (const std::string_view keys : {"", "A", "{}", "{", "}", "+", "^%", "+{", "{A", "A}",
                                      "{A}{B}", "x{A}", "{A}+", "{\xC3}\xC3}"})
    EXPECT_EQ(refusalOf(keys), 5) << keys;
}

TEST_F(SendKeysTest, WhatTheKeyboardRaisesIsPassedOn) {
  keyboard.error = RuntimeError(RuntimeError::InternalError, "There is no display to send keys to");
  EXPECT_EQ(refusalOf("{A}"), 51);
}

TEST_F(SendKeysTest, EveryLetterDigitAndFunctionKeyThatIsCapturedCanBeSent) {
  for (int keyCode = 48; keyCode <= 90; ++keyCode)
    EXPECT_EQ(pressesOf(KeyString(keystrokeCode(keyCode, 0))).size(), 1u) << keyCode;
  for (int keyCode = 112; keyCode <= 127; ++keyCode)
    EXPECT_EQ(pressesOf(KeyString(keystrokeCode(keyCode, Modifier::Ctrl))).size(), 1u) << keyCode;
}

}  // namespace
}  // namespace vorlent
