#include "base/numbers.h"
#include "base/roundTo.h"
#include "commands/encoderFamilies.h"
#include "commands/frequencies.h"
#include "commands/heldValues.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

void turnRose(CommandContext& context, float detents) {
  float& held_deg = RadioSet(context, Radio::Rose);
  held_deg = Wrap360(held_deg, detents);
}

/// What is held stays: it is the simulator's setting.
void turnAltimeter(CommandContext& context, float detents) {
  const double held_hPa = ControlSet(context, ControlItem::Barometer);
  context.accessors.fsOpt->AltSet(toSingle(held_hPa + detents));
}

/// Moves what is held for a target of the simulator's autopilot and gives it.
double turned(CommandContext& context, int held, double by) {
  float& target = McpSet(context, held);
  target = toSingle(target + by);
  return target;
}

void turnAltitude(CommandContext& context, float detents) {
  const double feet = turned(context, Mcp::Altitude, detents * 100.0);
  context.accessors.autoP->apAltitude(toSingle(RoundTo(feet, -2)));
}

void turnHeading(CommandContext& context, float detents) {
  float& held_deg = McpSet(context, Mcp::Heading);
  held_deg = Wrap360(held_deg, detents);
  context.accessors.autoP->apHeading(held_deg);
}

void turnMach(CommandContext& context, float detents) {
  context.accessors.autoP->ApMachNumber(toSingle(turned(context, Mcp::Mach, detents * 0.01)));
}

void turnAirspeed(CommandContext& context, float detents) {
  const double knots = turned(context, Mcp::AirSpeed, detents * 10.0);
  context.accessors.autoP->apAirSpeed(toSingle(RoundTo(knots, -1)));
}

void turnVerticalSpeed(CommandContext& context, float detents) {
  const double feetPerMinute = turned(context, Mcp::VertSpeed, detents * 10.0);
  context.accessors.autoP->apVertSpeed(toSingle(RoundTo(feetPerMinute, -1)));
}

void turnClientValue(CommandContext& context, float detents) {
  float& value = context.store.ClientValueC;
  value = toSingle(double{value} + detents);
}

constexpr CommandRow Rows[] = {
    {0, "Rose", turnRose},
    {5, "Altimeter setting", turnAltimeter},
    {6, "A/P altitude", turnAltitude},
    {7, "A/P heading", turnHeading},
    {9, "A/P Mach number", turnMach},
    {10, "A/P airspeed", turnAirspeed},
    {11, "A/P vertical speed", turnVerticalSpeed},
    {18, "A/P heading (second)", turnHeading},
    {48, "Panel value", turnClientValue},
};

}  // namespace

std::span<const CommandRow> panelEncoderRows() { return Rows; }

}  // namespace vorlent
