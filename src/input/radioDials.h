#pragma once

#include <cmath>

#include "base/numbers.h"
#include "core/Server.h"
#include "input/CommandTable.h"
#include "simlink/clsRadio.h"

/// What the cockpit holds for each radio, and how it is tuned.
namespace vorlent {

/// The places in RadioValues.
namespace RadioDial {
enum : int { Adf2 = 0, Com1, Nav1, Nav2, Adf1, Transponder, Obs1, Obs2, Com2 };
enum : int { FreeDial = 12, Com1Sb, Com2Sb, Nav1Sb, Nav2Sb };
}  // namespace RadioDial

using Tune = void (clsRadio::*)(float frequency);

inline double heldBy(const CommandContext& context, int dial) {
  return context.server.store.RadioValues(dial);
}

inline double wholePartOf(const CommandContext& context, int dial) {
  return std::trunc(heldBy(context, dial));
}

inline double fractionOf(const CommandContext& context, int dial) {
  return heldBy(context, dial) - wholePartOf(context, dial);
}

/// Holds the frequency and sends it. One that the radio does not take is held all the same.
inline void tuneTo(CommandContext& context, int dial, Tune tune, double frequency) {
  float& held = context.server.store.RadioValues(dial);
  held = toSingle(frequency);
  (*context.server.radio.*tune)(held);
}

}  // namespace vorlent
