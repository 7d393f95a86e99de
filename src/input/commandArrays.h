#pragma once

#include "base/numbers.h"
#include "core/Server.h"
#include "input/CommandTable.h"

/// What the commands hold, under the names that they know it by. The poll fills the same arrays, so
/// a step or a flip starts from what the simulator has, and between two polls from what the
/// hardware last set.
namespace vorlent {

/// Items of RadioSet. The rose is told to the displays alone.
namespace Radio {
enum : int {
  Adf2 = 0,
  Com1,
  Nav1,
  Nav2,
  Adf1,
  Transponder,
  Obs1,
  Obs2,
  Com2,
  Dme,
  Rose = 12,
  Com1Standby,
  Com2Standby,
  Nav1Standby,
  Nav2Standby,
};
}

/// Items of McpSet: the switches of the simulator's own autopilot, then its targets.
namespace Mcp {
enum : int {
  AirspeedHold = 1,
  AltitudeHold,
  GlideslopeHold,
  AttitudeHold,
  BackCourseHold,
  HeadingHold,
  LocalizerHold,
  MachHold,
  Master,
  Nav1Hold,
  WingLeveller,
  AutoThrottle,
  ToGa,
  Altitude,
  Heading,
  Mach,
  AirSpeed,
  VertSpeed,
  YawDamper,
};
}

/// Items of ControlSet. The panel switch and the two of the display are for the displays alone.
namespace ControlItem {
enum : int {
  Flaps = 1,
  Spoilers = 2,
  Magneto = 3,
  LandingLights = 5,
  Strobes = 6,
  Gear = 7,
  Tank = 8,
  ParkingBrake = 9,
  PitotHeat = 10,
  StartLever = 11,
  Barometer = 14,
  PanelSwitch = 16,
  NavLights = 17,
  DisplayEvent = 20,
  DisplayValue = 21,
};
}

inline float& RadioSet(CommandContext& context, int item) {
  return context.server.store.RadioValues(item);
}

inline float& McpSet(CommandContext& context, int item) {
  return context.server.store.ApValues(item);
}

inline float& ControlSet(CommandContext& context, int item) {
  return context.server.store.StateValues(item);
}

/// A panel's word as a row's action: the value rounded, half to even. Raises Overflow, and sets
/// nothing then.
template <int word>
void setPanelWord(CommandContext& context, float value) {
  context.server.store.PanelWord(word) = toInt16(value);
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
