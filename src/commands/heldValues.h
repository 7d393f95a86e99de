#pragma once

#include "base/numbers.h"
#include "commands/CommandTable.h"
#include "store/commandArrays.h"
#include "store/modPublic.h"

/// What the commands hold, under the names that they know it by. The poll fills the same arrays, so
/// a step or a flip starts from what the simulator has, and between two polls from what the
/// hardware last set.
namespace vorlent {

inline float& RadioSet(CommandContext& context, int item) {
  return context.store.RadioValues(item);
}

inline float& McpSet(CommandContext& context, int item) { return context.store.ApValues(item); }

inline float& ControlSet(CommandContext& context, int item) {
  return context.store.StateValues(item);
}

/// A panel's word as a row's action: the value rounded, half to even. Raises Overflow, and sets
/// nothing then.
template <int word>
void setPanelWord(CommandContext& context, float value) {
  context.store.PanelWord(word) = toInt16(value);
}

/// Raises Overflow, and moves nothing then.
inline void step(float& held, double by) { held = toSingle(held + by); }

/// Turns on what is off (0) and off what is on; `write` is called with 1 or 0 first.
template <class Held, class Write>
void flip(Held& held, const Write& write) {
  const Held turned = held == 0 ? Held{1} : Held{0};
  write(turned);
  held = turned;
}

}  // namespace vorlent
