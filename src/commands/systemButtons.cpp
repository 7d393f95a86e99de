#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "base/units.h"
#include "commands/buttonFamilies.h"
#include "commands/controlCommands.h"
#include "commands/heldValues.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

clsSrv& controls(CommandContext& context) { return *context.accessors.srv; }

template <int item, void (clsFsOpt::*write)(float)>
void flipSwitch(CommandContext& context, float) {
  flip(ControlSet(context, item), [&](float on) { (*context.accessors.fsOpt.*write)(on); });
}

template <std::int16_t modPublic::*variable, void (clsFsOpt::*write)(float)>
void flipVariable(CommandContext& context, float) {
  flip(context.store.*variable, [&](float on) { (*context.accessors.fsOpt.*write)(on); });
}

template <int step_hPa>
void turnBarometer(CommandContext& context, float) {
  step(ControlSet(context, ControlItem::Barometer), step_hPa);
  context.accessors.fsOpt->AltSet(ControlSet(context, ControlItem::Barometer));
}

void setStandardBarometer(CommandContext& context, float) {
  constexpr float Standard_hPa = 1013.25F;
  context.accessors.fsOpt->AltSet(Standard_hPa);
}

template <int detents>
void moveFlaps(CommandContext& context, float) {
  float& held = ControlSet(context, ControlItem::Flaps);
  step(held, double{detents} * context.store.FlapIncrement);
  controls(context).FlapPosition(toInt16(held));
}

template <std::int16_t position>
void setFlaps(CommandContext& context, float) {
  controls(context).FlapPosition(position);
  ControlSet(context, ControlItem::Flaps) = position;
}

void setGear(CommandContext& context, std::int16_t position) {
  controls(context).GearPosition(position);
  ControlSet(context, ControlItem::Gear) = position;
}
void lowerGear(CommandContext& context, float) { setGear(context, FullTravel); }
void raiseGear(CommandContext& context, float) { setGear(context, 0); }
void flipGear(CommandContext& context, float) {
  setGear(context, ControlSet(context, ControlItem::Gear) == 0 ? FullTravel : std::int16_t{0});
}

void flipParkingBrake(CommandContext& context, float) {
  flip(ControlSet(context, ControlItem::ParkingBrake),
       [&](float on) { controls(context).ApplyParkingBrake(toInt16(on)); });
}

void flipSpoilers(CommandContext& context, float) {
  float& held = ControlSet(context, ControlItem::Spoilers);
  const std::int16_t position = held == 0 ? FullTravel : std::int16_t{0};
  controls(context).SpoilerPosition(position);
  held = position;
}

void flipSpoilersArm(CommandContext& context, float) {
  flip(context.store.SpoilersArm, [&](float on) { controls(context).ArmSpoiler(on); });
}

/// The angle that stands at the aileron's trim.
template <int step_deg>
void turnAileronTrim(CommandContext& context, float) {
  double& held = context.store.ElevatorTrimDeg;
  held = finite(held + step_deg);
  controls(context).AileronTrim(held * CoarseRadiansPerDegree);
}

/// The angle that stands at the rudder's trim.
template <int step_deg>
void turnRudderTrim(CommandContext& context, float) {
  double& held = context.store.AileronTrimDeg;
  held = finite(held + step_deg);
  controls(context).RudderTrim(held * CoarseRadiansPerDegree);
}

void resetMinimums(CommandContext& context, float) { context.autoflight.afds->fmc.Minimums = 0; }

template <int step_ft>
void turnMinimums(CommandContext& context, float) {
  std::int16_t& held = context.autoflight.afds->fmc.Minimums;
  held = toInt16(held + step_ft);
}

template <int by>
void turnDisplayValue(CommandContext& context, float) {
  step(ControlSet(context, ControlItem::DisplayValue), by);
}

template <int tenths>
void turnClientValue(CommandContext& context, float) {
  step(context.store.ClientValueC, tenths / 10.0);
}

void setDisplayEvent(CommandContext& context, float) {
  ControlSet(context, ControlItem::DisplayEvent) = 1;
}

constexpr CommandRow Rows[] = {
    {13, "Altimeter - 1 hPa", turnBarometer<-1>},
    {14, "Altimeter + 1 hPa", turnBarometer<1>},
    {15, "Altimeter - 1 hPa (second)", turnBarometer<-1>},
    {16, "Altimeter + 1 hPa (second)", turnBarometer<1>},
    {43, "Brakes", applyBrakes},
    {44, "Brake left", applyLeftBrake},
    {45, "Brake right", applyRightBrake},
    {52, "Flaps one detent up", moveFlaps<-1>},
    {53, "Flaps full", setFlaps<FullTravel>},
    {54, "Flaps one detent down", moveFlaps<1>},
    {55, "Flaps up", setFlaps<0>},
    {63, "Gear down", lowerGear},
    {64, "Gear up or down", flipGear},
    {65, "Gear up", raiseGear},
    {84, "Landing lights", flipSwitch<ControlItem::LandingLights, &clsFsOpt::FSLandingLights>},
    {105, "Parking brake", flipParkingBrake},
    {106, "Pause", flipVariable<&modPublic::Paused, &clsFsOpt::FSPaused>},
    {107, "Pitot heat", flipSwitch<ControlItem::PitotHeat, &clsFsOpt::FSPitotHeat>},
    {108, "Slew", [](auto& context, float on) { context.accessors.fsOpt->FSSlew(on); }},
    {109, "Spoilers", flipSpoilers},
    {110, "Spoilers arm", flipSpoilersArm},
    {111, "Strobe lights", flipSwitch<ControlItem::Strobes, &clsFsOpt::FSStrobeLights>},
    {137, "Navigation lights", flipSwitch<ControlItem::NavLights, &clsFsOpt::NavLights>},
    {160, "Altimeter standard", setStandardBarometer},
    {161, "Simulator flight director", flipVariable<&modPublic::FdActive, &clsFsOpt::FDirActive>},
    {220, "Display value - 5", turnDisplayValue<-5>},
    {221, "Display value + 5", turnDisplayValue<5>},
    {222, "Aileron trim - 1", turnAileronTrim<-1>},
    {223, "Aileron trim + 1", turnAileronTrim<1>},
    {224, "Rudder trim - 1", turnRudderTrim<-1>},
    {225, "Rudder trim + 1", turnRudderTrim<1>},
    {228, "Minimums reset", resetMinimums},
    {229, "Minimums - 100", turnMinimums<-100>},
    {230, "Minimums + 100", turnMinimums<100>},
    {232, "GPS or NAV", flipVariable<&modPublic::NavGpsSwitch, &clsFsOpt::FSGpsSwitch>},
    {233, "Avionics master", flipVariable<&modPublic::AvionicsMaster, &clsFsOpt::Avionics>},
    {234, "Battery master", flipVariable<&modPublic::MasterBattery, &clsFsOpt::Battery>},
    {235, "Autofeather", flipVariable<&modPublic::Long2E88, &clsFsOpt::Autofeather>},
    {236, "Panel value + 0.1", turnClientValue<1>},
    {237, "Panel value - 0.1", turnClientValue<-1>},
    {999, "Display event 1", setDisplayEvent},
};

}  // namespace

std::span<const CommandRow> systemButtonRows() { return Rows; }

}  // namespace vorlent
