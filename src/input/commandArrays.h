#pragma once

#include "base/numbers.h"
#include "core/Server.h"
#include "input/CommandTable.h"

/// What the commands hold, under the names that they know it by. The poll fills the same arrays, so
/// a step or a flip starts from what the simulator has, and between two polls from what the
/// hardware last set.
namespace vorlent {

inline float& RadioSet(CommandContext& context, int item) {
  return context.server.store.RadioValues(item);
}

inline float& McpSet(CommandContext& context, int item) {
  return context.server.store.ApValues(item);
}

inline float& ControlSet(CommandContext& context, int item) {
  return context.server.store.StateValues(item);
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
