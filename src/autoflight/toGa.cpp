#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "autoflight/modes.h"
#include "autoflight/planSteps.h"
#include "base/numbers.h"
#include "store/modPublic.h"

namespace vorlent::autoflight {
namespace {

constexpr float NoseUp_deg = -15;

/// docs/peculiarities.md: TO/GA with VNAV.
void accelerate(Autoflight& autoflight) {
  clsXAutoP& ap = *autoflight.xAutoP;
  const clsAfds& afds = *autoflight.afds;
  if (autoflight.store.AircraftAltitude <= afds.AccelerationAltitude()) return;
  if (isOn(ap.apVSpeedHold()) || isOn(ap.apAltitudeHold()) || isOn(afds.VNAV())) return;
  ap.apLevelChange(1);
  clear(ap, modes::ToGa);
}

void climbOut(Autoflight& autoflight) {
  constexpr float Climbing_fpm = 100;
  constexpr std::int32_t LeversReleasedAbove_ft = 800;
  modPublic& v = autoflight.store;
  clsXAutoP& ap = *autoflight.xAutoP;
  if (v.VerticalSpeed < Climbing_fpm) {
    v.FdPitch = NoseUp_deg;
    return;
  }
  ap.apAirSpeed(autoflight.afds->performance.FmcSpeed);
  if (!isOn(ap.apAirspeedHoldByPitch())) ap.apAirspeedHoldByPitch(1);
  if (v.RadioAltitude > LeversReleasedAbove_ft) clear(*autoflight.xAutoT, modes::ThrottleHold);
  accelerate(autoflight);
}

void beginRoll(Autoflight& autoflight) {
  constexpr float NoseDown_deg = 10;
  modPublic& v = autoflight.store;
  v.FdPitch = NoseDown_deg;
  autoflight.annunciators.takeoffFlies();
  autoflight.xAutoP->apHeading(v.TrueHeading);
  if (isOn(autoflight.xAutoT->apRpmHold())) return;
  autoflight.afds->SetEngineN1TargetTakeoff();
  autoflight.xAutoT->apRpmHold(1);
}

/// docs/peculiarities.md: sounds hold the throttles.
void roll(Autoflight& autoflight) {
  constexpr float Rotation_kt = 60;
  constexpr float LeversHeld_kt = 84;
  const float ias_kt = autoflight.store.Ias;
  if (ias_kt < Rotation_kt)
    beginRoll(autoflight);
  else if (ias_kt < LeversHeld_kt)
    autoflight.store.FdPitch = NoseUp_deg;
  else if (autoflight.host.acftSoundEnabled())
    autoflight.xAutoT->apThrottleHold(1);
}

/// Degrees; full where there is room for it.
float bankLimitAt(std::int32_t height_ft, const XAutoPTuning& tuning) {
  const float full_deg = tuning.apBankLimitHighAlt;
  if (height_ft > 400) return full_deg;
  if (height_ft > 200) return full_deg / 2;
  return tuning.apBankLimitLowAlt;
}

}  // namespace

void FlyToGa(Autoflight& autoflight) {
  std::int16_t& phase = autoflight.afds->fmc.PhaseOfFlightEnum;
  if (phase == Phase::Initial) phase = Phase::TakeoffRoll;
  if (autoflight.store.OnGround == 1)
    roll(autoflight);
  else
    climbOut(autoflight);
  clsXAutoP& ap = *autoflight.xAutoP;
  ap.apBankLimit(bankLimitAt(autoflight.store.RadioAltitude, ap.tuning));
}

}  // namespace vorlent::autoflight
