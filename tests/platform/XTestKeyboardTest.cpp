#include "platform/linux/XTestKeyboard.h"

#include <string>

#include "base/RuntimeError.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "platform/KeyWindow.h"
#include "platform/XServer.h"
#include "support/ScopedEnvironment.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

class XTestKeyboardTest : public testing::Test {
 protected:
  std::string receivedFor(const KeyCombination& combination, int eventCount) {
    keyboard.press(combination);
    return window.received(eventCount);
  }

  XServer server;
  ScopedEnvironment environment{"DISPLAY", server.display()};
  KeyWindow window{server.display()};
  XTestKeyboard keyboard;
};

TEST_F(XTestKeyboardTest, AKeyGoesDownAndUpAgain) {
  EXPECT_EQ(receivedFor({.key = U'a'}, 2), "+a -a");
}

TEST_F(XTestKeyboardTest, ModifiersGoDownFirstAndUpLast) {
  EXPECT_EQ(receivedFor({.Shift = true, .key = U'a'}, 4), "+Shift_L +A -A -Shift_L");
  EXPECT_EQ(receivedFor({.Ctrl = true, .key = U'c'}, 4), "+Control_L +c -c -Control_L");
  EXPECT_EQ(receivedFor({.Alt = true, .key = NamedKey::F4}, 4), "+Alt_L +F4 -F4 -Alt_L");
  EXPECT_EQ(receivedFor({.Shift = true, .Ctrl = true, .Alt = true, .key = NamedKey::Home}, 8),
            "+Control_L +Alt_L +Shift_L +Home -Home -Shift_L -Alt_L -Control_L");
}

TEST_F(XTestKeyboardTest, EveryNamedKeyArrivesAsItself) {
  const std::vector<std::pair<NamedKey, std::string>> names = {{NamedKey::Backspace, "BackSpace"},
                                                               {NamedKey::Clear, "KP_Begin"},
                                                               {NamedKey::Delete, "Delete"},
                                                               {NamedKey::End, "End"},
                                                               {NamedKey::Enter, "Return"},
                                                               {NamedKey::Escape, "Escape"},
                                                               {NamedKey::Help, "Help"},
                                                               {NamedKey::Home, "Home"},
                                                               {NamedKey::Insert, "Insert"},
                                                               {NamedKey::Tab, "Tab"},
                                                               {NamedKey::F1, "F1"},
                                                               {NamedKey::F2, "F2"},
                                                               {NamedKey::F11, "F11"},
                                                               {NamedKey::F12, "F12"},
                                                               {NamedKey::CapsLock, "Caps_Lock"},
                                                               {NamedKey::NumLock, "Num_Lock"}};
  for (const auto& [key, name] : names)
    EXPECT_EQ(receivedFor({.key = key}, 2), "+" + name + " -" + name);
}

TEST_F(XTestKeyboardTest, ACharacterBehindShiftIsTypedWithShift) {
  EXPECT_EQ(receivedFor({.key = U'?'}, 4), "+Shift_L +question -question -Shift_L");
  EXPECT_EQ(receivedFor({.Shift = true, .key = U'?'}, 4), "+Shift_L +question -question -Shift_L");
}

TEST_F(XTestKeyboardTest, ACharacterOnTheThirdLevelIsTypedWithItsKey) {
  server.layout("de");
  EXPECT_EQ(receivedFor({.key = U'['}, 4),
            "+ISO_Level3_Shift +bracketleft -bracketleft -ISO_Level3_Shift");
  EXPECT_EQ(receivedFor({.key = U'\u00FC'}, 2), "+udiaeresis -udiaeresis");
}

TEST_F(XTestKeyboardTest, AKeyIsTheSameKeyWhicheverLayoutIsInUse) {
  server.layout("ru,us");
  EXPECT_EQ(receivedFor({.key = U'a'}, 2), "+Cyrillic_ef -Cyrillic_ef");
}

TEST_F(XTestKeyboardTest, AChangeOfLayoutIsFollowed) {
  EXPECT_EQ(receivedFor({.key = U'z'}, 2), "+z -z");
  server.layout("de");
  EXPECT_EQ(receivedFor({.key = U'z'}, 2), "+z -z");
}

TEST_F(XTestKeyboardTest, AKeyThatTheKeyboardLacksIsRefusedAndNothingIsPressed) {
  for (const char32_t lacking : {U'\u00FC', U'\u20AC', U'\x01', U'\0'})
    EXPECT_EQ(raisedBy([&] { keyboard.press({.Shift = true, .key = lacking}); }), 5);
  EXPECT_EQ(receivedFor({.key = U'a'}, 2), "+a -a");
}

TEST(XTestKeyboardAlone, WithoutADisplayItSaysSo) {
  const ScopedEnvironment environment("DISPLAY", std::nullopt);
  XTestKeyboard keyboard;
  try {
    keyboard.press({.key = U'a'});
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 51);
    EXPECT_EQ(error.description(), "There is no display to send keys to");
  }
}

TEST(XTestKeyboardAlone, ADisplayThatGoesIsToldAndTheNextOneIsFound) {
  XTestKeyboard keyboard;
  XServer first;
  {
    const ScopedEnvironment environment("DISPLAY", first.display());
    KeyWindow window(first.display());
    keyboard.press({.key = U'a'});
    EXPECT_EQ(window.received(2), "+a -a");
  }
  const ScopedEnvironment environment("DISPLAY", first.display());
  first.stop();
  EXPECT_EQ(raisedBy([&] { keyboard.press({.key = U'a'}); }), 51);
  EXPECT_EQ(raisedBy([&] { keyboard.press({.key = U'a'}); }), 51);
  const XServer second;
  const ScopedEnvironment next("DISPLAY", second.display());
  KeyWindow window(second.display());
  keyboard.press({.key = U'b'});
  EXPECT_EQ(window.received(2), "+b -b");
}

}  // namespace
}  // namespace vorlent
