#include "commands/controlCommands.h"
#include "commands/heldValues.h"
#include "commands/toggleFamilies.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

clsSrv& controls(CommandContext& context) { return *context.accessors.srv; }

template <void (clsFsOpt::*write)(float)>
void send(CommandContext& context, float level) {
  (*context.accessors.fsOpt.*write)(level);
}

template <int item, void (clsFsOpt::*write)(float)>
void setSwitch(CommandContext& context, float level) {
  send<write>(context, level);
  ControlSet(context, item) = level;
}

void selectDme(CommandContext& context, float level) { context.accessors.radio->Vor_Dme(level); }
void sendHeldDme(CommandContext& context, float) {
  context.accessors.radio->Vor_Dme(RadioSet(context, Radio::Dme));
}

void setGear(CommandContext& context, float level) {
  const std::int16_t position = level == 1 ? FullTravel : std::int16_t{0};
  controls(context).GearPosition(position);
  ControlSet(context, ControlItem::Gear) = position;
}

void setParkingBrake(CommandContext& context, float level) {
  controls(context).ApplyParkingBrake(toInt16(level));
  ControlSet(context, ControlItem::ParkingBrake) = level;
}

void setSpoilers(CommandContext& context, float level) {
  const std::int16_t position = toInt16(double{level} * FullTravel);
  controls(context).SpoilerPosition(position);
  ControlSet(context, ControlItem::Spoilers) = position;
}

void armSpoilers(CommandContext& context, float level) {
  controls(context).ArmSpoiler(level);
  context.store.SpoilersArm = toInt16(level);
}

void setPanelSwitch(CommandContext& context, float level) {
  ControlSet(context, ControlItem::PanelSwitch) = level;
}

/// 2 and 3: a button of this code tells 1.
void setDisplayEvent(CommandContext& context, float level) {
  ControlSet(context, ControlItem::DisplayEvent) = toSingle(double{level} + 2);
}

constexpr CommandRow Rows[] = {
    {18, "Brakes", applyBrakes},
    {19, "Brake left", applyLeftBrake},
    {20, "Brake right", applyRightBrake},
    {21, "DME 1 or 2", selectDme},
    {27, "Gear down", setGear},
    {29, "DME as held", sendHeldDme},
    {45, "Landing lights", setSwitch<ControlItem::LandingLights, &clsFsOpt::FSLandingLights>},
    {46, "Parking brake", setParkingBrake},
    {47, "Pause", send<&clsFsOpt::FSPaused>},
    {48, "Pitot heat", setSwitch<ControlItem::PitotHeat, &clsFsOpt::FSPitotHeat>},
    {50, "Slew", send<&clsFsOpt::FSSlew>},
    {51, "Spoilers", setSpoilers},
    {52, "Spoilers arm", armSpoilers},
    {53, "Strobe lights", setSwitch<ControlItem::Strobes, &clsFsOpt::FSStrobeLights>},
    {61, "Panel switch", setPanelSwitch},
    {62, "Navigation lights", setSwitch<ControlItem::NavLights, &clsFsOpt::NavLights>},
    {69, "Panel word 1", setPanelWord<1>},
    {70, "Panel word 2", setPanelWord<2>},
    {71, "Panel word 3", setPanelWord<3>},
    {72, "Panel word 4", setPanelWord<4>},
    {73, "Panel word 5", setPanelWord<5>},
    {74, "Panel word 6", setPanelWord<6>},
    {75, "Panel word 7", setPanelWord<7>},
    {76, "Panel word 8", setPanelWord<8>},
    {77, "Panel word 9", setPanelWord<9>},
    {80, "GPS or NAV", send<&clsFsOpt::FSGpsSwitch>},
    {81, "Avionics master", send<&clsFsOpt::Avionics>},
    {82, "Battery master", send<&clsFsOpt::Battery>},
    {83, "Autofeather", send<&clsFsOpt::Autofeather>},
    {999, "Display event 2 or 3", setDisplayEvent},
};

}  // namespace

std::span<const CommandRow> systemToggleRows() { return Rows; }

}  // namespace vorlent
