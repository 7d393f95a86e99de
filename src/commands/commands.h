#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "commands/CommandTable.h"

namespace vorlent {

/// Button codes above this are keystrokes (commands/Keystrokes.h).
constexpr std::int16_t LastButtonCommand = 1000;

/// A field of the simulator: where it is, and 1, 2, 4 or 8 bytes.
struct SimulatorField {
  std::uint32_t offset = 0;
  std::uint32_t size_bytes = 0;
  bool operator==(const SimulatorField&) const = default;
};

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

  /// From now on what commands write is noted, or no more.
  void watchSimulator(bool watched);
  /// What has been written since this was asked last, each field once.
  std::vector<SimulatorField> takeWritten();
  /// What the simulator holds there: a real number of 8 bytes, a whole one of fewer. Nothing when
  /// it does not answer. One round trip.
  std::optional<double> held(const SimulatorField& field);

 private:
  CommandContext context_;
  std::vector<SimulatorField> written_;
};

/// A triple of this kind and code does something: there is a row for it, or it is a keystroke.
bool isCommand(std::string_view kind, std::int16_t code);
/// A lever of a stick can set it; other analog commands come from displays and programs alone.
bool takesLever(std::int16_t code);

}  // namespace vorlent
