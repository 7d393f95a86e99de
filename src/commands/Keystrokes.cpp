#include "commands/Keystrokes.h"

#include <array>

#include "base/RuntimeError.h"
#include "base/numbers.h"
#include "base/utf16.h"

namespace vorlent {
namespace {

struct NameRow {
  int keyCode;
  std::string_view name;
};

/// docs/peculiarities.md: blanks behind key names.
constexpr std::array<NameRow, 49> Names{{
    {1, "LEFT MOUSE"},    {2, "RIGHT MOUSE"},   {3, "CANCEL"},
    {4, "MIDDLE MOUSE"},  {8, "BACKSPACE"},     {9, "TAB"},
    {12, "CLEAR"},        {13, "ENTER"},        {16, "SHIFT"},
    {17, "CONTROL"},      {18, "ALT"},          {19, "PAUSE"},
    {20, "CAPSLOCK"},     {27, "ESCAPE"},       {32, "SPACE"},
    {33, "PAGE UP"},      {34, "PAGE DOWN"},    {35, "END"},
    {36, "HOME"},         {37, "LEFT ARROW"},   {38, "UP ARROW"},
    {39, "RIGHT ARROW"},  {40, "DOWN ARROW"},   {41, "SELECT"},
    {42, "PRINT SCREEN"}, {43, "EXECUTE"},      {44, "SNAPSHOT"},
    {45, "INSERT"},       {46, "DELETE"},       {47, "HELP"},
    {106, "GREY *"},      {107, "GREY + "},     {108, "NUMPAD ENTER"},
    {109, "GREY -"},      {110, "GREY . "},     {111, "GREY /"},
    {144, "NUMLOCK"},     {145, "SCROLL LOCK"}, {186, ";"},
    {187, "="},           {188, ","},           {189, "-"},
    {190, "."},           {191, "/"},           {192, "`"},
    {219, "["},           {220, "\\"},          {221, "]"},
    {222, "'"},
}};

struct ModifierRow {
  int held;
  std::string_view label;
  std::string_view keys;
};

/// The first row of which everything is held counts: with all three, Shift is lost.
constexpr std::array<ModifierRow, 7> ModifierRows{{
    {Modifier::Alt + Modifier::Ctrl, "Ctrl-Alt-", "^%"},
    {Modifier::Alt + Modifier::Shift, "Shft-Alt-", "+%"},
    {Modifier::Alt, "Alt-", "%"},
    {Modifier::Ctrl + Modifier::Shift, "Ctrl-Shft-", "^+"},
    {Modifier::Shift, "Shft-", "+"},
    {Modifier::Ctrl, "Ctrl-", "^"},
    {0, "", ""},
}};

constexpr int ModifierUnit = 1000;

const ModifierRow& modifiersOf(std::int16_t code) {
  const int modifiers = code / ModifierUnit - 1;
  for (const auto& row : ModifierRows)
    if ((modifiers & row.held) == row.held) return row;
  return ModifierRows.back();
}

int keyCodeOf(std::int16_t code) { return code % ModifierUnit; }

}  // namespace

std::int16_t keystrokeCode(int keyCode, int modifiers) {
  return toInt16((modifiers + 1) * double{ModifierUnit} + keyCode);
}

std::string KeyName(int keyCode) {
  if (keyCode < 0 || keyCode > 255) throw RuntimeError(RuntimeError::InvalidCall);
  for (const auto& row : Names)
    if (row.keyCode == keyCode) return std::string(row.name);
  if (keyCode >= 112 && keyCode <= 127) return "F" + std::to_string(keyCode - 111);
  if (keyCode >= 96 && keyCode <= 105) return "NUMPAD " + std::to_string(keyCode - 96);
  const std::array<char, 2> unit{static_cast<char>(keyCode), '\0'};
  return utf8OfUtf16({unit.data(), unit.size()});
}

std::string KeyLabel(std::int16_t code) {
  return std::string(modifiersOf(code).label) + KeyName(keyCodeOf(code));
}

std::string KeyString(std::int16_t code) {
  return std::string(modifiersOf(code).keys) + "{" + KeyName(keyCodeOf(code)) + "}";
}

}  // namespace vorlent
