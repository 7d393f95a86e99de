#include "commands/buttonFamilies.h"
#include "commands/heldValues.h"
#include "commands/simulatorTargets.h"
#include "simlink/Accessors.h"

namespace vorlent {
namespace {

template <int item, void (clsAutoP::*write)(float)>
void flipSwitch(CommandContext& context, float) {
  flip(McpSet(context, item), [&](float on) { (*context.accessors.autoP.*write)(on); });
}

/// The target goes out before the switch.
template <int item, void (clsAutoP::*write)(float), void (*takePresent)(CommandContext&)>
void flipHold(CommandContext& context, float value) {
  takePresent(context);
  flipSwitch<item, write>(context, value);
}

template <int item, int by, void (clsAutoP::*write)(float)>
void turn(CommandContext& context, float) {
  step(McpSet(context, item), by);
  (*context.accessors.autoP.*write)(McpSet(context, item));
}

/// A turn to 0 or below is not made.
template <int step_kt>
void turnAirSpeed(CommandContext& context, float) {
  float& held = McpSet(context, Mcp::AirSpeed);
  if (held + double{step_kt} > 0) step(held, step_kt);
  context.accessors.autoP->apAirSpeed(held);
}

/// The simulator is sent one more than is held. docs/peculiarities.md: Mach button.
template <int hundredths>
void turnMach(CommandContext& context, float) {
  float& held = McpSet(context, Mcp::Mach);
  step(held, 1);
  step(held, hundredths / 100.0);
  context.accessors.autoP->ApMachNumber(held);
  step(held, -1);
}

template <int step_deg>
void turnHeading(CommandContext& context, float) {
  constexpr float Last_deg = 359;
  float& held = McpSet(context, Mcp::Heading);
  if (step_deg < 0 && held <= 0)
    held = Last_deg;
  else
    step(held, step_deg);
  if (step_deg > 0 && held > Last_deg) held = 0;
  context.accessors.autoP->apHeading(held);
}

void flipMachUnsent(CommandContext& context, float) {
  flip(McpSet(context, Mcp::Mach), [](float) {});
}

constexpr CommandRow Rows[] = {
    {22, "Simulator A/P airspeed hold",
     flipHold<Mcp::AirspeedHold, &clsAutoP::apAirspeedHold, takePresentSpeed>},
    {23, "Simulator A/P altitude hold",
     flipHold<Mcp::AltitudeHold, &clsAutoP::apAltitudeHold, takePresentAltitude>},
    {24, "Simulator A/P altitude - 100", turn<Mcp::Altitude, -100, &clsAutoP::apAltitude>},
    {25, "Simulator A/P altitude + 100", turn<Mcp::Altitude, 100, &clsAutoP::apAltitude>},
    {26, "Simulator A/P glideslope hold",
     flipSwitch<Mcp::GlideslopeHold, &clsAutoP::apGlideslopeHold>},
    {27, "Simulator A/P attitude hold", flipSwitch<Mcp::AttitudeHold, &clsAutoP::apAttitudeHold>},
    {28, "Simulator A/P back course hold",
     flipSwitch<Mcp::BackCourseHold, &clsAutoP::apBackCourseHold>},
    {29, "Simulator A/P heading hold", flipSwitch<Mcp::HeadingHold, &clsAutoP::apHeadingHold>},
    {30, "Simulator A/P localizer hold",
     flipSwitch<Mcp::LocalizerHold, &clsAutoP::apLocalizerHold>},
    {31, "Simulator A/P Mach hold",
     flipHold<Mcp::MachHold, &clsAutoP::apMachNumberHold, takePresentMach>},
    {32, "Simulator A/P Mach - 0.01", turnMach<-1>},
    {33, "Simulator A/P Mach + 0.01", turnMach<1>},
    {34, "Simulator A/P master", flipSwitch<Mcp::Master, &clsAutoP::apMaster>},
    {35, "Simulator A/P NAV1 hold", flipSwitch<Mcp::Nav1Hold, &clsAutoP::apNav1Hold>},
    {36, "Simulator A/P airspeed - 10", turnAirSpeed<-10>},
    {37, "Simulator A/P airspeed + 10", turnAirSpeed<10>},
    {38, "Simulator A/P vertical speed - 100", turn<Mcp::VertSpeed, -100, &clsAutoP::apVertSpeed>},
    {39, "Simulator A/P vertical speed + 100", turn<Mcp::VertSpeed, 100, &clsAutoP::apVertSpeed>},
    {40, "Simulator A/P wing leveller", flipSwitch<Mcp::WingLeveller, &clsAutoP::apWingLeveller>},
    {41, "Simulator A/T arm", flipSwitch<Mcp::AutoThrottle, &clsAutoP::apAutoThrottle>},
    {42, "Simulator TO/GA", flipSwitch<Mcp::ToGa, &clsAutoP::apToGa>},
    {66, "Simulator A/P heading - 1", turnHeading<-1>},
    {67, "Simulator A/P heading + 1", turnHeading<1>},
    {125, "Simulator yaw damper", flipSwitch<Mcp::YawDamper, &clsAutoP::apYawDamper>},
    {136, "Simulator A/P Mach 0 or 1 (not sent)", flipMachUnsent},
};

}  // namespace

std::span<const CommandRow> simulatorAutopilotButtonRows() { return Rows; }

}  // namespace vorlent
