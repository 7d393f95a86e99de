#pragma once

#include <cstdint>

namespace vorlent {

/// The four routines in which every input ends, local or from a client. None does anything yet: no
/// code has an action.
class Commands {
 public:
  void SetAnalogValues(std::int16_t /*id*/, float /*value*/) {}
  void SetButtonValues(std::int16_t /*id*/, float /*value*/) {}
  void SetToggleValues(std::int16_t /*id*/, float /*value*/) {}
  void SetEncoderValues(std::int16_t /*id*/, float /*value*/) {}
};

}  // namespace vorlent
