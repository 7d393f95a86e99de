#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <variant>
#include <vector>

#include "base/analogScale.h"

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
  /// Shows the panel's targets anew on the screen.
  std::function<void()> UpdateMcpDisplay{};
  FrequencyMemory memory{};
};

/// What a lever's code makes of its reading: a whole or a real number in the unit of the code, or
/// nothing for a code that takes no lever.
using AnalogResult = std::variant<std::monostate, std::int16_t, float>;

struct LeverReading {
  modPublic& store;
  float value;  ///< 0..AnalogMax

  /// 0..1 of the travel.
  double travel() const { return value / double{AnalogMax}; }
  /// -16383..16384, 0 in the middle.
  double fromMiddle() const { return value - double{AnalogMiddle}; }
};

/// One code of a routine: what it is called, what it does, and for one that takes a lever what the
/// reading is in the unit of the command. A code without a row, or with nothing to do, does
/// nothing.
struct CommandRow {
  std::int16_t code;
  const char* name;
  void (*act)(CommandContext& context, float value);
  AnalogResult (*lever)(const LeverReading& reading) = nullptr;
};

/// The rows in the order of their codes.
std::span<const CommandRow> analogRows();
std::span<const CommandRow> buttonRows();
std::span<const CommandRow> toggleRows();
std::span<const CommandRow> encoderRows();

}  // namespace vorlent
