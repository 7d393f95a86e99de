#include "autoflight/RandomFlight.h"

#include <algorithm>
#include <cmath>

namespace vorlent {
namespace {

using Twin = IndependentAutoflight;

struct Command {
  const char* name;
  void (*product)(Server&, double);
  void (*independent)(Twin&, double);
};

#define MODE_OF(member, name)                                                       \
  {                                                                                 \
#name, [](Server& s, double v) { s.member->name(static_cast<std::int16_t>(v)); }, \
   [](Twin& t, double v) { t.name(static_cast<int>(v)); } \
  }
#define TARGET_OF(name)                                                      \
  {                                                                          \
#name, [](Server& s, double v) { s.xAutoP->name(static_cast<float>(v)); }, \
   [](Twin& t, double v) { t.name(static_cast<float>(v)); } \
  }
#define KILL_OF(member, name)                                                               \
  {                                                                                         \
#name, [](Server & s, double) { s.member->name(); }, [](Twin & t, double) { t.name(); } \
  }

const Command Modes[] = {
    MODE_OF(xAutoP, apMaster),
    MODE_OF(xAutoP, ApEngaged),
    MODE_OF(xAutoP, ApEngaged),
    MODE_OF(xAutoP, apCmdLeft),
    MODE_OF(xAutoP, apCmdCenter),
    MODE_OF(xAutoP, apCmdRight),
    MODE_OF(xAutoP, apCwsLeft),
    MODE_OF(xAutoP, apCwsRight),
    MODE_OF(xAutoP, apCwsRollMode),
    MODE_OF(xAutoP, apCwsPitchMode),
    MODE_OF(xAutoP, apNav1Hold),
    MODE_OF(xAutoP, apWaypointHold),
    MODE_OF(xAutoP, apHeadingHold),
    MODE_OF(xAutoP, apHeadingHold),
    MODE_OF(xAutoP, apAltitudeHold),
    MODE_OF(xAutoP, apAltitudeHold),
    MODE_OF(xAutoP, apAttitudeHold),
    MODE_OF(xAutoP, apAirspeedHoldByPitch),
    MODE_OF(xAutoP, apVSpeedHold),
    MODE_OF(xAutoP, apVSpeedHold),
    MODE_OF(xAutoP, apGlideslopeHold),
    MODE_OF(xAutoP, apLocalizerHold),
    MODE_OF(xAutoP, apApproachHold),
    MODE_OF(xAutoP, apApproachHold),
    MODE_OF(xAutoP, apBackCourseHold),
    MODE_OF(xAutoP, apYawDamper),
    MODE_OF(xAutoP, apToGa),
    MODE_OF(xAutoP, apLevelChange),
    MODE_OF(xAutoP, apLevelChange),
    MODE_OF(xAutoP, apGsCapture),
    MODE_OF(xAutoP, apLocalizerCapture),
    MODE_OF(xAutoP, apAltAcquire),
    MODE_OF(xAutoT, apAutoThrottle),
    MODE_OF(xAutoT, apAutoThrottle),
    MODE_OF(xAutoT, apMachNumberHoldByRpm),
    MODE_OF(xAutoT, apThrottleHold),
    MODE_OF(xAutoT, apAirspeedHoldByRpm),
    MODE_OF(xAutoT, apChangeover),
    MODE_OF(xAutoT, apRetard),
    MODE_OF(xAutoT, apRpmHold),
    MODE_OF(afds, LNAV),
    MODE_OF(afds, VNAV),
    KILL_OF(xAutoP, KillPitchModes),
    KILL_OF(xAutoP, KillRollModes),
    KILL_OF(xAutoT, KillThrottleModes),
    {"LNAV with a plan",
     [](Server& s, double v) {
       s.afds->MaxWaypointId = 3;
       s.afds->LNAV(static_cast<std::int16_t>(v));
       s.afds->MaxWaypointId = 0;
     },
     [](Twin& t, double v) {
       t.MaxWaypointId = 3;
       t.LNAV(static_cast<int>(v));
       t.MaxWaypointId = 0;
     }},
    {"VNAV with a plan",
     [](Server& s, double v) {
       s.afds->MaxWaypointId = 3;
       s.afds->VNAV(static_cast<std::int16_t>(v));
       s.afds->MaxWaypointId = 0;
     },
     [](Twin& t, double v) {
       t.MaxWaypointId = 3;
       t.VNAV(static_cast<int>(v));
       t.MaxWaypointId = 0;
     }},
};

const Command Targets[] = {
    TARGET_OF(apHeading),
    TARGET_OF(apAltitude),
    TARGET_OF(apMcpAltitude),
    TARGET_OF(apMcpAltitude),
    TARGET_OF(apAirSpeed),
    TARGET_OF(apMcpAirSpeed),
    TARGET_OF(ApMachNumber),
    TARGET_OF(apVertSpeed),
    TARGET_OF(apVertSpeed),
    TARGET_OF(apBank),
    TARGET_OF(apBankLimit),
    TARGET_OF(apTurnRate),
    {"apRpm", [](Server& s, double v) { s.xAutoT->apRpm(static_cast<float>(v)); },
     [](Twin& t, double v) { t.target.apRpm = v; }},
    {"ResetRelay", [](Server& s, double v) { s.afds->ResetRelay(static_cast<int>(v)); },
     [](Twin& t, double v) { t.ResetRelay(static_cast<int>(v)); }},
    MODE_OF(afds, N1SwitchStatus),
    {"N1Target", [](Server& s, double v) { s.store.Engines(1).N1Target = static_cast<float>(v); },
     [](Twin& t, double v) { t.memory.N1Target[0] = v; }},
    KILL_OF(afds, SetEngineN1TargetClimb),
    KILL_OF(afds, SetEngineN1TargetTakeoff),
    KILL_OF(afds, SetEngineN1TargetIdle),
};

#define TUNE_AP(name)                                                                            \
  {                                                                                              \
#name,                                                                                       \
        [](Server & s,                                                                           \
           double v) { s.xAutoP->name = static_cast<float>(v); },                                \
                                                               [](Twin & t,                      \
                                                                  double v) { t.tune.name = v; } \
  }
#define TUNE_AFDS(name)                                                                          \
  {                                                                                              \
#name,                                                                                       \
        [](Server & s,                                                                           \
           double v) { s.afds->name = static_cast<float>(v); },                                  \
                                                             [](Twin & t,                        \
                                                                double v) { t.memory.name = v; } \
  }

struct Tuning {
  Command command;
  double lowest;
  double highest;
};

const Tuning Tunings[] = {
    {TUNE_AP(apMaxBankCourseDeviation), 5, 60},
    {TUNE_AP(apVspeedSensitivityFix), 20, 200},
    {TUNE_AP(apPitchSensitivityFix), 100, 500},
    {TUNE_AP(apPitchControlfactor), 5, 60},
    {TUNE_AP(apClimbPitchFactor), 0.01, 0.06},
    {{"apRollControlFactor",
      [](Server& s, double v) { s.xAutoP->apRollControlFactor(static_cast<float>(v)); },
      [](Twin& t, double v) { t.tune.apRollControlFactor = t.tune.workingRollFactor = v; }},
     0.05,
     2},
    {{"apThrottleControlFactor",
      [](Server& s, double v) { s.xAutoT->apThrottleControlFactor(static_cast<float>(v)); },
      [](Twin& t, double v) { t.tune.apThrottleControlFactor = v; }},
     0.01,
     1},
    {{"ClimbN1", [](Server& s, double v) { s.afds->ClimbN1(static_cast<float>(v)); },
      [](Twin& t, double v) { t.memory.ClimbN1 = v; }},
     60,
     100},
    {{"TakeoffN1", [](Server& s, double v) { s.afds->TakeoffN1(static_cast<float>(v)); },
      [](Twin& t, double v) { t.memory.TakeoffN1 = v; }},
     60,
     100},
    {TUNE_AFDS(ClimbMach), 0.4, 0.9},
    {TUNE_AFDS(DescentMach), 0.4, 0.9},
};

double targetValue(const std::string& name, double dice, const Twin& t) {
  const auto between = [dice](double from, double to) { return from + (to - from) * dice; };
  const bool seldom = dice > 0.9;
  if (name == "apHeading") return seldom ? t.in.ApHeadingSim : between(0, 400);
  if (name.ends_with("ltitude")) return seldom ? t.in.ApAltitudeSim : between(-100, 42000);
  if (name == "apAirSpeed") return seldom ? double{t.target.apAirSpeed} : between(0, 500);
  if (name == "apMcpAirSpeed") return seldom ? t.in.ApIasSim : between(0, 500);
  if (name == "ApMachNumber") return between(0, 1);
  if (name == "apVertSpeed") return seldom ? t.in.ApVsSim : between(-9000, 7500);
  if (name == "apBank" || name == "apBankLimit") return between(6, 40);
  if (name == "apTurnRate") return between(-1, 3);
  if (name == "ResetRelay") return seldom ? 32760 : between(0, 12);
  if (name == "N1SwitchStatus") return std::floor(between(0, 6));
  return between(0, 110);
}

}  // namespace

std::string RandomFlight::command() {
  const bool target = chance(0.3);
  const Command& which = target ? oneOf(Targets) : oneOf(Modes);
  double value = chance(0.6) ? 1 : 0;
  if (target) value = targetValue(which.name, uniform(0, 1), both_.twin);
  last_ = std::string(which.name) + " = " + std::to_string(value);
  return both_.run([&](Server& s) { which.product(s, value); },
                   [&](Twin& t) { which.independent(t, value); });
}

std::string RandomFlight::retune() {
  const Tuning& which = oneOf(Tunings);
  double value = uniform(which.lowest, which.highest);
  if (chance(0.1)) value = 0;
  last_ = std::string(which.command.name) + " = " + std::to_string(value);
  return both_.run([&](Server& s) { which.command.product(s, value); },
                   [&](Twin& t) { which.command.independent(t, value); });
}

void RandomFlight::move() {
  moveAir();
  moveAttitude();
  moveAltitude();
  moveRadios();
  moveEngines();
  if (chance(0.1)) moveSimulatorAutopilot();
  Twin::Inputs& in = both_.twin.in;
  if (chance(0.02)) in.Paused = 1 - in.Paused;
  if (in.Paused == 1 && chance(0.3)) in.Paused = 0;
  if (chance(0.02)) in.OnGround = 1 - in.OnGround;
  if (chance(0.02)) in.CycleRunning = !in.CycleRunning;
  both_.applyInputs();
}

float RandomFlight::drift(float value, double step, double lowest, double highest) {
  const double moved =
      chance(0.01) ? uniform(lowest, highest) : double{value} + uniform(-step, step);
  return static_cast<float>(std::clamp(moved, lowest, highest));
}

float RandomFlight::turned(float degrees, double step) {
  double moved = chance(0.01) ? uniform(0, 360) : double{degrees} + uniform(-step, step);
  if (moved < 0) moved += 360;
  if (moved >= 360) moved -= 360;
  return static_cast<float>(moved);
}

void RandomFlight::moveAir() {
  Twin::Inputs& in = both_.twin.in;
  in.Ias = drift(in.Ias, 1.5, 0, 450);
  if (chance(0.05)) in.Ias = static_cast<float>(both_.twin.memory.AvgIas);
  if (chance(0.01)) in.Ias = 0;
  if (chance(0.2) && in.Ias > 30)
    in.Ias = static_cast<float>(both_.twin.target.apAirSpeed + uniform(-6, 6));
  in.Ias = std::max(in.Ias, 0.0F);
  in.Tas = chance(0.02) ? 0 : static_cast<int>(in.Ias * 1.3F);
  in.Mach = static_cast<float>(in.Ias / 500.0 + uniform(-0.02, 0.02));
  in.WindSpeedKt = drift(in.WindSpeedKt, 4, 0, 200);
  in.WindDirection = turned(in.WindDirection, 10);
  if (chance(0.02)) in.FlapsControl = whole(0, 2) * 4096;
  if (chance(0.05)) in.ApMachSim = whole(0, 1) == 0 ? 0 : in.Mach;
}

void RandomFlight::moveAttitude() {
  Twin::Inputs& in = both_.twin.in;
  in.Pitch = drift(in.Pitch, 0.3, -25, 25);
  const double wantedPitch = both_.twin.target.apPitch;
  if (chance(0.3) && std::fabs(wantedPitch) < 60)
    in.Pitch = static_cast<float>(wantedPitch + uniform(-0.3, 0.3));
  if (chance(0.01)) in.Pitch = static_cast<float>(both_.twin.target.apPitch);
  in.Bank = turned(in.Bank, 2);
  static constexpr double Banks[] = {0, 1.5, 5, 6, 6.1, 90, 180, 180.5, 354, 359, 359.95};
  if (chance(0.05)) in.Bank = static_cast<float>(oneOf(Banks));
  if (chance(0.2)) in.Bank = static_cast<float>(uniform(0, 0.15));
  if (chance(0.05)) in.Bank = static_cast<float>(both_.twin.tune.apBank);
  in.TrueHeading = turned(in.TrueHeading, 1);
  in.MagHeading = turned(in.TrueHeading, 15);
  if (chance(0.05)) in.MagHeading = static_cast<float>(uniform(-3, 3) + 360);
  if (in.MagHeading > 360 && chance(0.9)) in.MagHeading -= 360;
  static constexpr double Off[] = {0, 0.05, -0.05, 0.1, -0.1, 1, -1, 30, -30, 180, -180, 31};
  if (chance(0.3)) in.MagHeading = static_cast<float>(both_.twin.target.apHeading + oneOf(Off));
  if (in.MagHeading < 0) in.MagHeading += 360;
  in.MagVar = drift(in.MagVar, 0.2, -40, 40);
  for (int* input : {&in.ElevatorInput, &in.AileronInput})
    if (chance(0.2)) *input = whole(-16383, 16383);
}

void RandomFlight::moveAltitude() {
  Twin::Inputs& in = both_.twin.in;
  const double climb_fpm = in.VerticalSpeed + uniform(-200, 200);
  static constexpr double Rates[] = {0,    1,   0.5, -1,  300,  -300, 301,
                                     -301, 450, 451, 600, -601, 1800};
  in.VerticalSpeed = static_cast<float>(std::clamp(climb_fpm, -6000.0, 6000.0));
  if (chance(0.05)) in.VerticalSpeed = static_cast<float>(oneOf(Rates));
  in.AircraftAltitude += in.VerticalSpeed / 60.0 * 0.4;
  static constexpr double Errors[] = {0,    20,   -20,  20.5,  -20.5, 50,  -50,  51,
                                      -51,  300,  -300, 301,   -301,  750, -750, -751,
                                      1000, 1001, -999, -1000, -1001, 3,   -3,   10};
  if (chance(0.15)) in.AircraftAltitude = both_.twin.apAltitude() - oneOf(Errors);
  if (chance(0.01)) in.AircraftAltitude = uniform(-500, 45000);
  if (chance(0.01)) in.AircraftAltitude = 10000;
  in.AircraftAltitude = std::clamp(in.AircraftAltitude, -1000.0, 60000.0);
  in.RadioAltitude = static_cast<int>(in.AircraftAltitude) - (chance(0.5) ? 0 : 600);
  in.ElevatorTrimInput = chance(0.05) ? whole(-16384, 16383) : in.ElevatorTrimInput + whole(-9, 9);
  in.ElevatorTrimInput = std::clamp(in.ElevatorTrimInput, -49153, 16383);
}

void RandomFlight::moveRadios() {
  Twin::Inputs& in = both_.twin.in;
  static constexpr int Needles[] = {0,   9,    -9,  10,   -10, 1,    -1,   124,
                                    125, -125, 126, -126, 127, -127, -128, 60};
  if (chance(0.1)) in.LocNeedle = chance(0.5) ? oneOf(Needles) : whole(-128, 127);
  if (chance(0.02)) in.Obs = whole(0, 360);
  if (chance(0.02)) in.IlsHeading = static_cast<float>(uniform(0, 360));
  if (chance(0.1)) in.DmeDistance = static_cast<float>(chance(0.3) ? 60 : uniform(0, 120));
  if (!chance(0.01)) return;
  // A wind of the airspeed's own size straight across the course.
  in.Obs = 0;
  in.LocNeedle = 0;
  in.WindSpeedKt = in.Ias;
  in.WindDirection = chance(0.5) ? 90 : 270;
}

void RandomFlight::moveEngines() {
  Twin::Inputs& in = both_.twin.in;
  for (auto& engine : in.engines) {
    engine.ThrustLever = drift(engine.ThrustLever, 3, -25, 105);
    engine.N1 = drift(engine.N1, 2, 0, 110);
  }
  if (chance(0.02)) in.EngineCount = whole(0, 4);
}

void RandomFlight::moveSimulatorAutopilot() {
  Twin::Inputs& in = both_.twin.in;
  in.ApHeadingSim = static_cast<float>(uniform(0, 360));
  in.ApAltitudeSim = whole(0, 40000);
  in.ApIasSim = whole(0, 400);
  in.ApVsSim = whole(-3000, 3000);
  in.ApSpeedHoldSim = whole(0, 1);
  in.ApBcHoldSim = whole(0, 1);
}

}  // namespace vorlent
