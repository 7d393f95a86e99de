#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vorlent {

class CheckBox;
class Keyboard;
class StatusLine;
class TextBox;
class clsFSUIPC;
struct Accessors;
struct Autoflight;
struct modPublic;

/// The frequencies that the cockpit has stored, a list for each kind of radio. The current item of
/// each is in modPublic::ButtonStates.
struct FrequencyMemory {
  std::vector<float> com, nav1, nav2, adf;
};

/// The main window's boxes for a fuel selector for each engine.
struct FuelSelectorBoxes {
  const CheckBox& enabled;
  TextBox& left;
  TextBox& right;
};

/// What a command works on, and what the commands keep for themselves.
struct CommandContext {
  modPublic& store;
  clsFSUIPC& link;
  Accessors& accessors;
  Autoflight& autoflight;
  Keyboard& keyboard;
  StatusLine& status;
  FuelSelectorBoxes fuelSelectors;
  FrequencyMemory memory{};
};

/// One code of a routine: what it is called and what it does. A code without a row does nothing.
struct CommandRow {
  std::int16_t code;
  const char* name;
  void (*act)(CommandContext& context, float value);
};

/// The rows in the order of their codes.
std::span<const CommandRow> analogRows();
std::span<const CommandRow> buttonRows();
std::span<const CommandRow> toggleRows();
std::span<const CommandRow> encoderRows();

}  // namespace vorlent
