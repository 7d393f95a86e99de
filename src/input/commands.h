#pragma once

#include <cstdint>
#include <variant>

#include "input/CommandTable.h"

namespace vorlent {

struct Server;

/// What a lever's code makes of its reading: a whole or a real number in the unit of the code, or
/// nothing for a code that takes no lever.
using AnalogResult = std::variant<std::monostate, std::int16_t, float>;

/// The four routines in which every input ends, local or from a client. A fault of theirs is told
/// on the status line.
class Commands {
 public:
  explicit Commands(Server& server) : context_{server} {}
  virtual ~Commands() = default;
  /// `value` 0..32767 of the lever on `channel`, 0..3, in the unit in which SetAnalogValues takes
  /// it.
  virtual AnalogResult AnalogValue(std::int16_t /*code*/, float /*value*/,
                                   std::int16_t /*channel*/) {
    return {};
  }
  virtual void SetAnalogValues(std::int16_t id, float value);
  /// A code above 1000 is a keystroke (input/Keystrokes.h).
  virtual void SetButtonValues(std::int16_t id, float value);
  virtual void SetToggleValues(std::int16_t id, float value);
  virtual void SetEncoderValues(std::int16_t id, float value);

 private:
  CommandContext context_;
};

}  // namespace vorlent
