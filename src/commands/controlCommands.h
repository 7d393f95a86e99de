#pragma once

#include <cstdint>

#include "base/numbers.h"
#include "base/simulatorUnits.h"
#include "commands/CommandTable.h"
#include "simlink/Accessors.h"

/// What buttons and switches of the flight controls share.
namespace vorlent {

/// One pedal alone goes less far than both.
constexpr double OneBrake = 15000;

// `pressed` is 0 or 1.
inline void applyBrakes(CommandContext& context, float pressed) {
  context.accessors.srv->ApplyBrakes(toInt16(double{pressed} * FullTravel));
}
inline void applyLeftBrake(CommandContext& context, float pressed) {
  context.accessors.srv->ApplyLeftBrake(toInt16(pressed * OneBrake));
}
inline void applyRightBrake(CommandContext& context, float pressed) {
  context.accessors.srv->ApplyRightBrake(toInt16(pressed * OneBrake));
}

}  // namespace vorlent
