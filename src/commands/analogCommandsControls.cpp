#include "base/numbers.h"
#include "base/simulatorUnits.h"
#include "commands/analogFamilies.h"
#include "commands/heldValues.h"
#include "commands/leverConversions.h"
#include "simlink/Accessors.h"

namespace vorlent {
namespace {

/// A 16-bit position as the simulator counts it: below 0 from 65536 down.
float unsignedPosition(float position) {
  return toSingle(position < 0 ? position + TwosComplement16 : position);
}

void setAltimeter(CommandContext& context, float hectopascals) {
  context.accessors.fsOpt->AltSet(hectopascals);
}

template <void (clsAutoP::*set)(float), int item>
void setTarget(CommandContext& context, float target) {
  (*context.accessors.autoP.*set)(target);
  McpSet(context, item) = target;
}

constexpr auto SetAltitude = setTarget<&clsAutoP::apAltitude, Mcp::Altitude>;
constexpr auto SetHeading = setTarget<&clsAutoP::apHeading, Mcp::Heading>;
constexpr auto SetMach = setTarget<&clsAutoP::ApMachNumber, Mcp::Mach>;
constexpr auto SetAirspeed = setTarget<&clsAutoP::apAirSpeed, Mcp::AirSpeed>;
constexpr auto SetVerticalSpeed = setTarget<&clsAutoP::apVertSpeed, Mcp::VertSpeed>;

void setAilerons(CommandContext& context, float position) {
  context.accessors.srv->AileronPosition(unsignedPosition(position));
}

/// With its sign: the accessor's limit looks at it.
void setElevator(CommandContext& context, float position) {
  context.accessors.srv->ElevatorPosition(position);
}

/// A hold of the simulator's own autopilot trims for itself.
void setElevatorTrim(CommandContext& context, float position) {
  const modPublic& v = context.store;
  for (const std::int16_t hold :
       {v.ApAltHoldSim, v.ApAttitudeHoldSim, v.ApVsHoldSim, v.ApGsHoldSim})
    if (hold != 0) return;
  context.accessors.srv->TrimPosition(unsignedPosition(position));
}

void setRudder(CommandContext& context, float position) {
  context.accessors.srv->RudderPosition(unsignedPosition(position));
}

/// A pedal has twice the travel that the simulator's brake has.
std::int16_t brakeOf(float pedal) { return toInt16(pedal / 2.0); }

void brakeLeft(CommandContext& context, float pedal) {
  context.accessors.srv->ApplyLeftBrake(brakeOf(pedal));
}

void brakeRight(CommandContext& context, float pedal) {
  context.accessors.srv->ApplyRightBrake(brakeOf(pedal));
}

void brakeBoth(CommandContext& context, float pedal) {
  brakeLeft(context, pedal);
  brakeRight(context, pedal);
}

/// A panel that knows no position sends -1.
void setFlaps(CommandContext& context, float position) {
  if (position == -1) return;
  context.accessors.srv->FlapPosition(toInt16(position));
  ControlSet(context, ControlItem::Flaps) = position;
}

void setSpoilers(CommandContext& context, float position) {
  context.accessors.srv->SpoilerPosition(toInt16(position));
  ControlSet(context, ControlItem::Spoilers) = position;
}

constexpr CommandRow Rows[] = {
    {5, "Altimeter setting", setAltimeter, levers::whole<100, 950>},
    {6, "A/P altitude to 65000 ft", SetAltitude, levers::altitude<65>},
    {7, "A/P altitude to 40000 ft", SetAltitude, levers::altitude<40>},
    {8, "A/P heading", SetHeading, levers::real<360>},
    {9, "A/P Mach number", SetMach, levers::real<2>},
    {10, "A/P airspeed", SetAirspeed, levers::whole<500>},
    {11, "A/P vertical speed to 7000 ft/min", SetVerticalSpeed, levers::verticalSpeed<140>},
    {12, "A/P vertical speed to 3500 ft/min", SetVerticalSpeed, levers::verticalSpeed<70>},
    {13, "Ailerons", setAilerons, levers::backward},
    {14, "Elevator", setElevator, levers::backward},
    {15, "Elevator trim", setElevatorTrim, levers::forward},
    {16, "Rudder", setRudder, levers::backward},
    {17, "Brakes", brakeBoth, levers::brake},
    {18, "Left brake", brakeLeft, levers::brake},
    {19, "Right brake", brakeRight, levers::brake},
    {22, "Flaps", setFlaps, levers::flaps},
    {48, "Spoilers", setSpoilers, levers::halfTravel},
};

}  // namespace

std::span<const CommandRow> controlAnalogRows() { return Rows; }

}  // namespace vorlent
