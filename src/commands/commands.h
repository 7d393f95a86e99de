#pragma once

#include <cstdint>
#include <string_view>

#include "commands/CommandTable.h"

namespace vorlent {

/// Button codes above this are keystrokes (commands/Keystrokes.h).
constexpr std::int16_t LastButtonCommand = 1000;

/// The four routines in which every input ends, local or from a client. A fault of theirs is told
/// on the status line.
class Commands {
 public:
  explicit Commands(const CommandContext& context) : context_(context) {}
  virtual ~Commands() = default;
  /// `value` 0..32767 of the lever on `channel`, 0..3, in the unit in which SetAnalogValues takes
  /// it.
  virtual AnalogResult AnalogValue(std::int16_t code, float value, std::int16_t channel);
  virtual void SetAnalogValues(std::int16_t code, float value);
  virtual void SetButtonValues(std::int16_t code, float value);
  virtual void SetToggleValues(std::int16_t code, float value);
  virtual void SetEncoderValues(std::int16_t code, float value);

 private:
  CommandContext context_;
};

/// A triple of this kind and code does something: there is a row for it, or it is a keystroke.
bool isCommand(std::string_view kind, std::int16_t code);

}  // namespace vorlent
