#include "autoflight/RandomCommands.h"

#include <utility>

#include "core/Server.h"
#include "core/singletons.h"

namespace vorlent {
namespace {

using Twin = IndependentAutoflight;

// A call with the value `v`, by its name, of the product and of the independent one.
// clang-format off
#define BOTH(name, product, independent)                        \
  {#name, [](Server& s, [[maybe_unused]] double v) { product; },  \
          [](Twin& t, [[maybe_unused]] double v) { independent; }}
#define MODE_OF(member, name) \
  BOTH(name, s.autoflight.member->name(static_cast<std::int16_t>(v)), t.name(static_cast<int>(v)))
#define TARGET_OF(name) \
  BOTH(name, s.autoflight.xAutoP->name(static_cast<float>(v)), t.name(static_cast<float>(v)))
#define KILL_OF(member, name) BOTH(name, s.autoflight.member->name(), t.name())
#define TUNE_AP(name) \
  BOTH(name, s.autoflight.xAutoP->tuning.name = static_cast<float>(v), t.tune.name = v)
#define TUNE_FMC(name) \
  BOTH(name, s.autoflight.afds->performance.name = static_cast<float>(v), t.memory.name = v)
// clang-format on

const RandomCommand Modes[] = {
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
       const std::int16_t before = std::exchange(s.autoflight.afds->fmc.MaxWaypointId, 3);
       s.autoflight.afds->LNAV(static_cast<std::int16_t>(v));
       s.autoflight.afds->fmc.MaxWaypointId = before;
     },
     [](Twin& t, double v) {
       const int before = std::exchange(t.plan.MaxWaypointId, 3);
       t.LNAV(static_cast<int>(v));
       t.plan.MaxWaypointId = before;
     }},
    {"VNAV with a plan",
     [](Server& s, double v) {
       const std::int16_t before = std::exchange(s.autoflight.afds->fmc.MaxWaypointId, 3);
       s.autoflight.afds->VNAV(static_cast<std::int16_t>(v));
       s.autoflight.afds->fmc.MaxWaypointId = before;
     },
     [](Twin& t, double v) {
       const int before = std::exchange(t.plan.MaxWaypointId, 3);
       t.VNAV(static_cast<int>(v));
       t.plan.MaxWaypointId = before;
     }},
};

const RandomCommand Targets[] = {
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
    {"apRpm", [](Server& s, double v) { s.autoflight.xAutoT->apRpm(static_cast<float>(v)); },
     [](Twin& t, double v) { t.target.apRpm = v; }},
    {"ResetRelay", [](Server& s, double v) { s.autoflight.afds->ResetRelay(static_cast<int>(v)); },
     [](Twin& t, double v) { t.ResetRelay(static_cast<int>(v)); }},
    MODE_OF(afds, N1SwitchStatus),
    {"N1Target", [](Server& s, double v) { s.store.Engines(1).N1Target = static_cast<float>(v); },
     [](Twin& t, double v) { t.memory.N1Target[0] = v; }},
    KILL_OF(afds, SetEngineN1TargetClimb),
    KILL_OF(afds, SetEngineN1TargetTakeoff),
    KILL_OF(afds, SetEngineN1TargetIdle),
};

const RandomTuning Tunings[] = {
    {TUNE_AP(apMaxBankCourseDeviation), 5, 60},
    {TUNE_AP(apVspeedSensitivityFix), 20, 200},
    {TUNE_AP(apPitchSensitivityFix), 100, 500},
    {TUNE_AP(apPitchControlfactor), 5, 60},
    {TUNE_AP(apClimbPitchFactor), 0.01, 0.06},
    {{"apRollControlFactor",
      [](Server& s, double v) { s.autoflight.xAutoP->apRollControlFactor(static_cast<float>(v)); },
      [](Twin& t, double v) { t.tune.apRollControlFactor = t.tune.workingRollFactor = v; }},
     0.05,
     2},
    {{"apThrottleControlFactor",
      [](Server& s, double v) {
        s.autoflight.xAutoT->apThrottleControlFactor(static_cast<float>(v));
      },
      [](Twin& t, double v) { t.tune.apThrottleControlFactor = v; }},
     0.01,
     0.2},
    {{"ClimbN1", [](Server& s, double v) { s.autoflight.afds->ClimbN1(static_cast<float>(v)); },
      [](Twin& t, double v) { t.memory.ClimbN1 = v; }},
     60,
     100},
    {{"TakeoffN1", [](Server& s, double v) { s.autoflight.afds->TakeoffN1(static_cast<float>(v)); },
      [](Twin& t, double v) { t.memory.TakeoffN1 = v; }},
     60,
     100},
    {TUNE_FMC(ClimbMach), 0.4, 0.9},
    {TUNE_FMC(DescentMach), 0.4, 0.9},
};

}  // namespace

std::span<const RandomCommand> modeCommands() { return Modes; }
std::span<const RandomCommand> targetCommands() { return Targets; }
std::span<const RandomTuning> tunings() { return Tunings; }

}  // namespace vorlent
