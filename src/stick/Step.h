#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/Controllers.h"

namespace vorlent {

/// A step that is wrong, with a sentence that says what was wanted.
struct StepError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

using Axis = std::int32_t& (*)(ControllerState& state);

struct SetAxis {
  Axis axis;
  std::int32_t value;
};
struct SetButton {
  std::size_t button;  ///< 0 .. 31
  bool pressed;
};
/// Presses, holds for a tenth of a second, and releases.
struct Tap {
  std::size_t button;
};
/// Moves an axis evenly to a value.
struct Sweep {
  Axis axis;
  std::int32_t value;
  int duration_ms;
};
struct Wait {
  int duration_ms;
};
/// Waits until somebody reads the stick.
struct Await {};

using Step = std::variant<SetAxis, SetButton, Tap, Sweep, Wait, Await>;

/// The steps of a command line, or of a line of input: all of them or a StepError.
///   x=0 .. x=65535, also y z rx ry rz slider0 slider1
///   pov0=0 .. pov0=35999 or -1, also pov1 pov2 pov3
///   press N  release N  tap N     buttons 1 to 32
///   sweep AXIS VALUE MS           MS 0 to 3600000, as of wait
///   wait MS
///   await
std::vector<Step> stepsFrom(const std::vector<std::string>& words);

/// Splits at blanks and tabs.
std::vector<std::string> wordsOf(std::string_view line);

}  // namespace vorlent
