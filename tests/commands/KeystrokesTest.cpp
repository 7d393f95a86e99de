#include "commands/Keystrokes.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "support/raisedBy.h"

namespace vorlent {
namespace {

const std::map<int, std::string> NamesByHand = {
    {107, "GREY + "},    {8, "BACKSPACE"},     {3, "CANCEL"},       {20, "CAPSLOCK"},
    {12, "CLEAR"},       {17, "CONTROL"},      {110, "GREY . "},    {46, "DELETE"},
    {111, "GREY /"},     {40, "DOWN ARROW"},   {35, "END"},         {27, "ESCAPE"},
    {43, "EXECUTE"},     {47, "HELP"},         {36, "HOME"},        {45, "INSERT"},
    {1, "LEFT MOUSE"},   {37, "LEFT ARROW"},   {4, "MIDDLE MOUSE"}, {18, "ALT"},
    {106, "GREY *"},     {144, "NUMLOCK"},     {34, "PAGE DOWN"},   {33, "PAGE UP"},
    {19, "PAUSE"},       {42, "PRINT SCREEN"}, {2, "RIGHT MOUSE"},  {13, "ENTER"},
    {39, "RIGHT ARROW"}, {145, "SCROLL LOCK"}, {41, "SELECT"},      {108, "NUMPAD ENTER"},
    {16, "SHIFT"},       {44, "SNAPSHOT"},     {32, "SPACE"},       {109, "GREY -"},
    {9, "TAB"},          {38, "UP ARROW"},     {112, "F1"},         {113, "F2"},
    {114, "F3"},         {115, "F4"},          {116, "F5"},         {117, "F6"},
    {118, "F7"},         {119, "F8"},          {120, "F9"},         {121, "F10"},
    {122, "F11"},        {123, "F12"},         {124, "F13"},        {125, "F14"},
    {126, "F15"},        {127, "F16"},         {96, "NUMPAD 0"},    {97, "NUMPAD 1"},
    {98, "NUMPAD 2"},    {99, "NUMPAD 3"},     {100, "NUMPAD 4"},   {101, "NUMPAD 5"},
    {102, "NUMPAD 6"},   {103, "NUMPAD 7"},    {104, "NUMPAD 8"},   {105, "NUMPAD 9"},
    {186, ";"},          {187, "="},           {188, ","},          {189, "-"},
    {190, "."},          {191, "/"},           {192, "`"},          {219, "["},
    {220, "\\"},         {221, "]"},           {222, "'"},
};

/// UTF-8 of a character below 256.
std::string character(int number) {
  if (number < 128) return {static_cast<char>(number)};
  return {static_cast<char>(0xC0 + number / 64), static_cast<char>(0x80 + number % 64)};
}

TEST(KeyName, EveryNamedKeyHasItsName) {
  ASSERT_EQ(NamesByHand.size(), 75u);
  for (const auto& [keyCode, name] : NamesByHand) EXPECT_EQ(KeyName(keyCode), name) << keyCode;
}

TEST(KeyName, LettersAndDigitsAreTheirOwnNames) {
  EXPECT_EQ(KeyName(48), "0");
  EXPECT_EQ(KeyName(57), "9");
  EXPECT_EQ(KeyName(65), "A");
  EXPECT_EQ(KeyName(90), "Z");
}

TEST(KeyName, EveryOtherCodeGivesTheCharacterOfThatNumber) {
  EXPECT_EQ(KeyName(91), "[");
  EXPECT_EQ(KeyName(228), "\xC3\xA4");
  EXPECT_EQ(KeyName(0), std::string(1, '\0'));
  for (int keyCode = 0; keyCode <= 255; ++keyCode)
    if (NamesByHand.count(keyCode) == 0) {
      EXPECT_EQ(KeyName(keyCode), character(keyCode)) << keyCode;
    }
}

TEST(KeyName, ThereIsNoCharacterAbove255) {
  for (const int keyCode : {256, 999, -1})
    EXPECT_EQ(raisedBy([&] { KeyName(keyCode); }), 5) << keyCode;
}

TEST(Keystroke, ACodeIsTheModifiersPlusOneThousandsAndTheKey) {
  EXPECT_EQ(keystrokeCode(65, 0), 1065);
  EXPECT_EQ(keystrokeCode(65, Modifier::Shift), 2065);
  EXPECT_EQ(keystrokeCode(112, Modifier::Ctrl), 3112);
  EXPECT_EQ(keystrokeCode(222, Modifier::Shift + Modifier::Ctrl + Modifier::Alt), 8222);
  EXPECT_EQ(raisedBy([] { keystrokeCode(0, 32); }), 6);
}

struct CodeRow {
  std::int16_t code;
  const char* label;
  const char* keys;
};

/// All eight states of the modifiers.
const std::vector<CodeRow> Codes = {
    {1065, "A", "{A}"},
    {2065, "Shft-A", "+{A}"},
    {3065, "Ctrl-A", "^{A}"},
    {4065, "Ctrl-Shft-A", "^+{A}"},
    {5065, "Alt-A", "%{A}"},
    {6065, "Shft-Alt-A", "+%{A}"},
    {7065, "Ctrl-Alt-A", "^%{A}"},
    {8065, "Ctrl-Alt-A", "^%{A}"},
};

TEST(Keystroke, TheLabelHasAPrefixForItsModifiers) {
  for (const auto& row : Codes) EXPECT_EQ(KeyLabel(row.code), row.label) << row.code;
  EXPECT_EQ(KeyLabel(3107), "Ctrl-GREY + ");
}

TEST(Keystroke, TheTextForSendingHasASignForEachModifier) {
  for (const auto& row : Codes) EXPECT_EQ(KeyString(row.code), row.keys) << row.code;
  EXPECT_EQ(KeyString(1040), "{DOWN ARROW}");
  EXPECT_EQ(KeyString(4123), "^+{F12}");
}

TEST(Keystroke, CtrlAltAndShiftTogetherCountAsCtrlAndAlt) {
  EXPECT_EQ(KeyLabel(8046), "Ctrl-Alt-DELETE");
  EXPECT_EQ(KeyString(8046), "^%{DELETE}");
}

TEST(Keystroke, Code2065IsShiftAndTheLetterA) {
  EXPECT_EQ(KeyLabel(2065), "Shft-A");
  EXPECT_EQ(KeyString(2065), "+{A}");
}

TEST(Keystroke, AKeyAbove255HasNeitherLabelNorText) {
  EXPECT_EQ(raisedBy([] { KeyLabel(1256); }), 5);
  EXPECT_EQ(raisedBy([] { KeyString(32767); }), 5);
}

TEST(Keystroke, EveryCodeOf16BitsGivesATextOrAFault) {
  for (int code = -32768; code <= 32767; ++code) {
    const int fault = raisedBy([&] { KeyString(static_cast<std::int16_t>(code)); });
    ASSERT_TRUE(fault == 0 || fault == 5) << code;
  }
}

}  // namespace
}  // namespace vorlent
