#pragma once

#include <cmath>

#include "base/numbers.h"
#include "commands/frequencies.h"
#include "commands/heldValues.h"
#include "simlink/Accessors.h"

/// How the radios are tuned, by the items of RadioSet.
namespace vorlent {

using Tune = void (clsRadio::*)(float frequency);

inline double heldBy(CommandContext& context, int dial) { return RadioSet(context, dial); }

inline double wholePartOf(CommandContext& context, int dial) {
  return std::trunc(heldBy(context, dial));
}

inline double fractionOf(CommandContext& context, int dial) {
  return heldBy(context, dial) - wholePartOf(context, dial);
}

/// Holds the frequency and sends it. One that the radio does not take is held all the same.
inline void tuneTo(CommandContext& context, int dial, Tune tune, double frequency) {
  float& held = RadioSet(context, dial);
  held = toSingle(frequency);
  (*context.accessors.radio.*tune)(held);
}

/// One digit of the transponder's code goes up by one, whatever comes with the command.
template <int position>
void turnXpndrDigit(CommandContext& context, float) {
  const float code = RadioSet(context, Radio::Transponder);
  tuneTo(context, Radio::Transponder, &clsRadio::XpndrCode, XpndrDigit(code, position));
}

}  // namespace vorlent
