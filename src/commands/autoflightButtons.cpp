#include <algorithm>
#include <cmath>

#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "autoflight/modes.h"
#include "base/numbers.h"
#include "commands/buttonEngagement.h"
#include "commands/buttonFamilies.h"
#include "commands/n1Bugs.h"
#include "platform/StatusLine.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

using namespace autoflight;

clsAfds& afds(CommandContext& context) { return *context.autoflight.afds; }
clsXAutoP& autopilot(CommandContext& context) { return *context.autoflight.xAutoP; }
clsXAutoT& autothrottle(CommandContext& context) { return *context.autoflight.xAutoT; }

clsAfds& ownerOf(const Mode<clsAfds>&, CommandContext& context) { return afds(context); }
clsXAutoP& ownerOf(const Mode<clsXAutoP>&, CommandContext& context) { return autopilot(context); }
clsXAutoT& ownerOf(const Mode<clsXAutoT>&, CommandContext& context) {
  return autothrottle(context);
}

template <const auto& mode>
void press(CommandContext& context, float) {
  flip(ownerOf(mode, context), mode);
}

/// VNAV or LNAV gives way to the mode that is pressed.
template <const auto& navigation, const auto& mode>
void pressInsteadOf(CommandContext& context, float value) {
  clear(afds(context), navigation);
  press<mode>(context, value);
}

void pressMaster(CommandContext& context, float value) {
  press<modes::Master>(context, value);
  clsXAutoP& ap = autopilot(context);
  if (ap.apMaster() != 0) return;
  ApCommand(ap, 1);
  ApCommand(ap, 2);
}

void pressN1(CommandContext& context, float value) {
  afds(context).SetEngineN1TargetClimb();
  press<modes::RpmHold>(context, value);
}

/// Flag bits of a NAV receiver.
bool isLocalizer(const modPublic& v) { return (v.NavRadios(1).BackCourse & 2) != 0; }
bool isTuned(const modPublic& v) { return (v.NavRadios(1).BackCourse & 128) != 0; }

void pressVorLoc(CommandContext& context, float) {
  clsXAutoP& ap = autopilot(context);
  if (!isTuned(context.store)) {
    clear(ap, modes::LocalizerHold);
    clear(ap, modes::Nav1Hold);
  } else if (isLocalizer(context.store)) {
    clear(ap, modes::Nav1Hold);
    flip(ap, modes::LocalizerHold);
  } else {
    clear(ap, modes::LocalizerHold);
    flip(ap, modes::Nav1Hold);
  }
}

void pressApproach(CommandContext& context, float) {
  clsXAutoP& ap = autopilot(context);
  if (isTuned(context.store))
    flip(ap, modes::ApproachHold);
  else
    clear(ap, modes::ApproachHold);
}

/// An altitude that is more than half a minute away at the present vertical speed is flown to by a
/// level change.
void pressAltitudeHold(CommandContext& context, float value) {
  clsXAutoP& ap = autopilot(context);
  const modPublic& v = context.store;
  pressInsteadOf<modes::Vnav, modes::AltitudeHold>(context, value);
  if (!isOn(ap.apAltitudeHold())) return;
  const double distance_ft = std::fabs(ap.apAltitude() - v.AircraftAltitude);
  if (distance_ft > std::fabs(double{v.CalcVerticalSpeed}) / 2) {
    ap.apAltitudeHold(0);
    ap.apLevelChange(1);
  }
  ap.apAltitude(toSingle(v.AircraftAltitude));
}

void pressVerticalSpeed(CommandContext& context, float value) {
  clsXAutoP& ap = autopilot(context);
  pressInsteadOf<modes::Vnav, modes::VSpeedHold>(context, value);
  if (!isOn(ap.apVSpeedHold())) return;
  ap.apVertSpeed(context.store.VerticalSpeed);
  if (context.UpdateMcpDisplay) context.UpdateMcpDisplay();
}

template <int step>
void turnN1Selector(CommandContext& context, float) {
  constexpr int LastPosition = 4;
  const int position = std::clamp(afds(context).N1SwitchStatus() + step, 0, LastPosition);
  afds(context).N1SwitchStatus(static_cast<std::int16_t>(position));
}

template <int side>
void pressCommand(CommandContext& context, float) {
  ApCommand(autopilot(context), side);
}

template <int side>
void pressCws(CommandContext& context, float) {
  ApCws(autopilot(context), side);
}

void pressFlightDirector(CommandContext& context, float) {
  std::int16_t& active = context.store.FdActive;
  active = active == 0 ? 1 : 0;
}

template <int tenths_pct>
void turnN1Bug(CommandContext& context, float) {
  withSelectedN1Bugs(context,
                     [](float& bug_pct) { bug_pct = toSingle(bug_pct + tenths_pct / 10.0); });
}

template <int step_deg>
void turnBankLimit(CommandContext& context, float) {
  clsXAutoP& ap = autopilot(context);
  ap.apBankLimit(toSingle(double{step_deg} + ap.apBankLimit()));
}

/// The course goes out as the OBS of the first NAV radio.
template <int step_deg>
void turnCourse(CommandContext& context, float) {
  clsXAutoP& ap = autopilot(context);
  ap.apCourse(toSingle(double{step_deg} + ap.apCourse()));
  context.accessors.radio->Vor_1_obs(toInt16(ap.apCourse()));
}

template <int step_ft>
void turnAltitude(CommandContext& context, float) {
  clsXAutoP& ap = autopilot(context);
  ap.apMcpAltitude(toSingle(double{step_ft} + ap.apMcpAltitude()));
}

/// A knot on the speed window is a hundredth of Mach after the changeover.
template <int step_kt>
void turnSpeed(CommandContext& context, float) {
  clsXAutoP& ap = autopilot(context);
  if (autothrottle(context).apChangeover() == 0)
    ap.apMcpAirSpeed(toSingle(double{step_kt} + ap.apMcpAirSpeed()));
  else
    ap.ApMachNumber(toSingle(step_kt / 100.0 + ap.ApMachNumber()));
}

template <int step_deg>
void turnHeading(CommandContext& context, float) {
  clsXAutoP& ap = autopilot(context);
  ap.apHeading(toSingle(double{step_deg} + ap.apHeading()));
}

template <int step_fpm>
void turnVerticalSpeed(CommandContext& context, float) {
  clsXAutoP& ap = autopilot(context);
  ap.apVertSpeed(toSingle(double{step_fpm} + ap.apVertSpeed()));
}

void pressToGa(CommandContext& context, float) { autopilot(context).apToGa(1); }

/// An aircraft without a climb thrust of its own would climb with idle engines.
void pressLevelChange(CommandContext& context, float value) {
  pressInsteadOf<modes::Vnav, modes::LevelChange>(context, value);
  if (autopilot(context).apLevelChange() == 1 && afds(context).ClimbN1() == 0)
    context.status.SetStatusText(
        1,
        "Level change climbs with N1 0, that is, idle: the aircraft has no "
        "ClimbN1");
}

constexpr CommandRow Rows[] = {
    {162, "MCP A/P master", pressMaster},
    {163, "MCP A/T arm", press<modes::AutoThrottle>},
    {164, "MCP N1", pressN1},
    {165, "MCP SPEED", pressInsteadOf<modes::Vnav, modes::AirspeedHoldByRpm>},
    {166, "MCP C/O", press<modes::Changeover>},
    {167, "MCP LVL CHG", pressLevelChange},
    {168, "MCP VNAV", press<modes::Vnav>},
    {169, "MCP LNAV", press<modes::Lnav>},
    {170, "MCP VOR LOC", pressVorLoc},
    {171, "MCP APP", pressApproach},
    {172, "MCP HDG SEL", pressInsteadOf<modes::Lnav, modes::HeadingHold>},
    {174, "MCP ALT HLD", pressAltitudeHold},
    {175, "MCP V/S", pressVerticalSpeed},
    {181, "N1 selector up", turnN1Selector<1>},
    {182, "N1 selector down", turnN1Selector<-1>},
    {183, "MCP CMD A", pressCommand<1>},
    {184, "MCP CMD C", press<modes::CmdCenter>},
    {185, "MCP CMD B", pressCommand<2>},
    {186, "MCP CWS A", pressCws<1>},
    {187, "MCP CWS B", pressCws<2>},
    {188, "MCP F/D left", pressFlightDirector},
    {189, "MCP F/D right", pressFlightDirector},
    {190, "N1 bug + 0.1", turnN1Bug<1>},
    {191, "N1 bug - 0.1", turnN1Bug<-1>},
    {192, "MCP bank limit + 1", turnBankLimit<1>},
    {193, "MCP bank limit - 1", turnBankLimit<-1>},
    {194, "MCP course + 1", turnCourse<1>},
    {195, "MCP course - 1", turnCourse<-1>},
    {196, "MCP altitude + 10", turnAltitude<10>},
    {197, "MCP altitude - 10", turnAltitude<-10>},
    {198, "MCP speed + 1 (Mach + 0.01)", turnSpeed<1>},
    {199, "MCP speed - 1 (Mach - 0.01)", turnSpeed<-1>},
    {200, "MCP heading + 1", turnHeading<1>},
    {201, "MCP heading - 1", turnHeading<-1>},
    {202, "MCP vertical speed + 50", turnVerticalSpeed<50>},
    {203, "MCP vertical speed - 50", turnVerticalSpeed<-50>},
    {204, "MCP course + 10", turnCourse<10>},
    {205, "MCP course - 10", turnCourse<-10>},
    {206, "MCP altitude + 100", turnAltitude<100>},
    {207, "MCP altitude - 100", turnAltitude<-100>},
    {208, "MCP speed + 10 (Mach + 0.1)", turnSpeed<10>},
    {209, "MCP speed - 10 (Mach - 0.1)", turnSpeed<-10>},
    {210, "MCP heading + 10", turnHeading<10>},
    // docs/peculiarities.md: second heading button.
    {211, "MCP heading + 10 (second)", turnHeading<10>},
    {212, "MCP vertical speed + 100", turnVerticalSpeed<100>},
    {213, "MCP vertical speed - 100", turnVerticalSpeed<-100>},
    {214, "TO/GA", pressToGa},
    {218, "FMC EXEC flight plan", press<modes::ExecFlightplan>},
};

}  // namespace

std::span<const CommandRow> autoflightButtonRows() { return Rows; }

}  // namespace vorlent
