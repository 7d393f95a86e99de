#include "autoflight/Autoflight.h"
#include "autoflight/clsXAutoT.h"
#include "autoflight/lamps.h"
#include "commands/heldValues.h"
#include "commands/simulatorTargets.h"
#include "commands/toggleFamilies.h"
#include "simlink/Accessors.h"

namespace vorlent {
namespace {

/// What the simulator did not take is not recorded.
template <int item, void (clsAutoP::*write)(float)>
void setSwitch(CommandContext& context, float level) {
  (*context.accessors.autoP.*write)(level);
  McpSet(context, item) = level;
}

/// The target goes out behind the switch.
template <int item, void (clsAutoP::*write)(float), void (*sendPresent)(CommandContext&)>
void setHold(CommandContext& context, float level) {
  (*context.accessors.autoP.*write)(level);
  sendPresent(context);
  McpSet(context, item) = level;
}

void setYawDamper(CommandContext& context, float level) {
  McpSet(context, Mcp::YawDamper) = level;
  context.accessors.autoP->apYawDamper(level);
}

void setExecLamp(CommandContext& context, float level) {
  context.accessors.autoP->apMcpModes(autoflight::ExecLamp, toInt32(level));
}

void armAutothrottle(CommandContext& context, float level) {
  context.autoflight.xAutoT->apAutoThrottle(toInt16(level));
}

constexpr CommandRow Rows[] = {
    {5, "Simulator A/P airspeed hold",
     setHold<Mcp::AirspeedHold, &clsAutoP::apAirspeedHold, sendPresentSpeed>},
    {6, "Simulator A/P altitude hold",
     setHold<Mcp::AltitudeHold, &clsAutoP::apAltitudeHold, sendPresentAltitude>},
    {7, "Simulator A/P glideslope hold",
     setSwitch<Mcp::GlideslopeHold, &clsAutoP::apGlideslopeHold>},
    {8, "Simulator A/P attitude hold", setSwitch<Mcp::AttitudeHold, &clsAutoP::apAttitudeHold>},
    {9, "Simulator A/P back course hold",
     setSwitch<Mcp::BackCourseHold, &clsAutoP::apBackCourseHold>},
    {10, "Simulator A/P heading hold", setSwitch<Mcp::HeadingHold, &clsAutoP::apHeadingHold>},
    {11, "Simulator A/P localizer hold", setSwitch<Mcp::LocalizerHold, &clsAutoP::apLocalizerHold>},
    {12, "Simulator A/P Mach hold",
     setHold<Mcp::MachHold, &clsAutoP::apMachNumberHold, sendPresentMach>},
    {13, "Simulator A/P master", setSwitch<Mcp::Master, &clsAutoP::apMaster>},
    {14, "Simulator A/P NAV1 hold", setSwitch<Mcp::Nav1Hold, &clsAutoP::apNav1Hold>},
    {15, "Simulator A/P wing leveller", setSwitch<Mcp::WingLeveller, &clsAutoP::apWingLeveller>},
    {16, "Simulator A/T arm", setSwitch<Mcp::AutoThrottle, &clsAutoP::apAutoThrottle>},
    {17, "Simulator TO/GA", setSwitch<Mcp::ToGa, &clsAutoP::apToGa>},
    {54, "Simulator yaw damper", setYawDamper},
    {67, "FMC EXEC lamp", setExecLamp},
    {68, "MCP A/T arm", armAutothrottle},
};

}  // namespace

std::span<const CommandRow> autopilotToggleRows() { return Rows; }

}  // namespace vorlent
