#pragma once

#include <cstdint>

namespace vorlent {

/// The four routines in which every input ends, local or from a client. None does anything yet: no
/// code has an action.
class Commands {
 public:
  virtual ~Commands() = default;
  virtual void SetAnalogValues(std::int16_t /*id*/, float /*value*/) {}
  virtual void SetButtonValues(std::int16_t /*id*/, float /*value*/) {}
  virtual void SetToggleValues(std::int16_t /*id*/, float /*value*/) {}
  virtual void SetEncoderValues(std::int16_t /*id*/, float /*value*/) {}
};

}  // namespace vorlent
