#include "base/numbers.h"
#include "base/simulatorUnits.h"
#include "input/analogFamilies.h"
#include "input/commandArrays.h"
#include "simlink/clsAutoP.h"
#include "simlink/clsFsOpt.h"
#include "simlink/clsSrv.h"

namespace vorlent {
namespace {

/// A 16-bit position as the simulator counts it: below 0 from 65536 down.
float unsignedPosition(float position) {
  return toSingle(position < 0 ? position + TwosComplement16 : position);
}

void setAltimeter(CommandContext& context, float hectopascals) {
  context.server.fsOpt->AltSet(hectopascals);
}

template <void (clsAutoP::*set)(float), int item>
void setTarget(CommandContext& context, float target) {
  (*context.server.autoP.*set)(target);
  McpSet(context, item) = target;
}

constexpr auto SetAltitude = setTarget<&clsAutoP::apAltitude, Mcp::Altitude>;
constexpr auto SetHeading = setTarget<&clsAutoP::apHeading, Mcp::Heading>;
constexpr auto SetMach = setTarget<&clsAutoP::ApMachNumber, Mcp::Mach>;
constexpr auto SetAirspeed = setTarget<&clsAutoP::apAirSpeed, Mcp::AirSpeed>;
constexpr auto SetVerticalSpeed = setTarget<&clsAutoP::apVertSpeed, Mcp::VertSpeed>;

void setAilerons(CommandContext& context, float position) {
  context.server.srv->AileronPosition(unsignedPosition(position));
}

/// With its sign: the accessor's limit looks at it.
void setElevator(CommandContext& context, float position) {
  context.server.srv->ElevatorPosition(position);
}

/// A hold of the simulator's own autopilot trims for itself.
void setElevatorTrim(CommandContext& context, float position) {
  const modPublic& v = context.server.store;
  for (const std::int16_t hold :
       {v.ApAltHoldSim, v.ApAttitudeHoldSim, v.ApVsHoldSim, v.ApGsHoldSim})
    if (hold != 0) return;
  context.server.srv->TrimPosition(unsignedPosition(position));
}

void setRudder(CommandContext& context, float position) {
  context.server.srv->RudderPosition(unsignedPosition(position));
}

/// A pedal has twice the travel that the simulator's brake has.
std::int16_t brakeOf(float pedal) { return toInt16(pedal / 2.0); }

void brakeLeft(CommandContext& context, float pedal) {
  context.server.srv->ApplyLeftBrake(brakeOf(pedal));
}

void brakeRight(CommandContext& context, float pedal) {
  context.server.srv->ApplyRightBrake(brakeOf(pedal));
}

void brakeBoth(CommandContext& context, float pedal) {
  brakeLeft(context, pedal);
  brakeRight(context, pedal);
}

/// A panel that knows no position sends -1.
void setFlaps(CommandContext& context, float position) {
  if (position == -1) return;
  context.server.srv->FlapPosition(toInt16(position));
  ControlSet(context, ControlItem::Flaps) = position;
}

void setSpoilers(CommandContext& context, float position) {
  context.server.srv->SpoilerPosition(toInt16(position));
  ControlSet(context, ControlItem::Spoilers) = position;
}

constexpr CommandRow Rows[] = {
    {5, "Altimeter setting", setAltimeter},
    {6, "A/P altitude to 65000 ft", SetAltitude},
    {7, "A/P altitude to 40000 ft", SetAltitude},
    {8, "A/P heading", SetHeading},
    {9, "A/P Mach number", SetMach},
    {10, "A/P airspeed", SetAirspeed},
    {11, "A/P vertical speed to 7000 ft/min", SetVerticalSpeed},
    {12, "A/P vertical speed to 3500 ft/min", SetVerticalSpeed},
    {13, "Ailerons", setAilerons},
    {14, "Elevator", setElevator},
    {15, "Elevator trim", setElevatorTrim},
    {16, "Rudder", setRudder},
    {17, "Brakes", brakeBoth},
    {18, "Left brake", brakeLeft},
    {19, "Right brake", brakeRight},
    {22, "Flaps", setFlaps},
    {48, "Spoilers", setSpoilers},
};

}  // namespace

std::span<const CommandRow> controlAnalogRows() { return Rows; }

}  // namespace vorlent
