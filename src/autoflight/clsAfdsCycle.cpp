#include <algorithm>
#include <cmath>

#include "autoflight/Autoflight.h"
#include "autoflight/Mode.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "autoflight/constants.h"
#include "autoflight/planSteps.h"
#include "autoflight/rollLaws.h"
#include "base/RuntimeError.h"
#include "base/numbers.h"
#include "base/simulatorUnits.h"
#include "store/modPublic.h"

namespace vorlent {

using namespace autoflight;

void clsAfds::AFDS() {
  try {
    cycle();
  } catch (const RuntimeError&) {
    if (!autoflight_.store.IsMaster) throw;
  }
}

void clsAfds::cycle() {
  if (!autoflight_.store.IsMaster || autoflight_.store.Paused != 1) fly();
  Relay_ = toInt16(Relay_ + 1);
}

void clsAfds::fly() {
  goAround();
  if (ExecFlightplan_ > 0) executePlan();
  if (fmc.MaxWaypointId > 0) {
    UpdateFlightPhase(autoflight_);
    updateLegGeometry(autoflight_);
  }
  if (isOn(LNAV_) && fmc.MaxWaypointId >= 1)
    flyLnav();
  else
    flyRadioOrHeading();
  setSensitivities();
  setSpeedTarget();
  changeSpeedUnit();
  const Trends trends = filter();
  const clsXAutoP& ap = *autoflight_.xAutoP;
  if (isOn(ap.apAttitudeHold())) holdAttitude();
  if (!isOn(ap.apToGa())) arbitratePitch(trends);
  if (!isOn(ap.apToGa())) steerCwsPitch();
  if (!isOn(ap.apToGa())) flyGlideslope();
  if (isOn(ap.apAirspeedHoldByPitch())) holdSpeedByPitch(trends.ias_kt_s);
  if (isOn(autoflight_.xAutoT->apAutoThrottle()))
    autoflight_.xAutoT->run(trends.n1_pct_s, trends.ias_kt_s);
  autoflight_.xAutoP->apTurnRate(1);
  if (ExtraPollEachCycle_) autoflight_.host.PollDispatch();
}

void clsAfds::goAround() {
  constexpr std::int32_t CancelledBelow_ft = 400;
  if (!isOn(autoflight_.xAutoP->apToGa())) return;
  if (autoflight_.store.FdActive == 1)
    FlyToGa(autoflight_);
  else if (autoflight_.store.RadioAltitude < CancelledBelow_ft)
    autoflight_.xAutoP->apToGa(0);
}

void clsAfds::flyLnav() {
  clsXAutoP& ap = *autoflight_.xAutoP;
  if (!isOn(ap.apLocalizerHold()) && !isOn(ap.apNav1Hold())) {
    SequenceLeg(leg, fmc.LnavCriteria, fmc.MaxWaypointId, ActiveFpIndex_);
    if (isOn(ap.apWaypointHold())) {
      // docs/peculiarities.md: miles as radians.
      float crossTrack = leg.CrossTrack < leg.DxFromPrevWpt ? leg.CrossTrack : leg.DxFromPrevWpt;
      ap.HoldWpt(leg.CourseGcProjection, leg.CourseDirect, crossTrack, leg.InterceptSide);
    }
  } else if (ap.LocalizerInRange()) {
    LNAV(0);
  }
  if (isOn(ap.apNav1Hold())) {
    ap.HoldNav1();
    captureLocalizer();
  }
  if (isOn(ap.apLocalizerHold())) {
    ap.HoldLocalizer();
    captureLocalizer();
  }
}

void clsAfds::flyRadioOrHeading() {
  clsXAutoP& ap = *autoflight_.xAutoP;
  if (isOn(ap.apHeadingHold())) {
    if (!isOn(ap.apLocalizerHold()) && !isOn(ap.apNav1Hold())) {
      ap.HoldHeading();
    } else if (ap.apLocalizerCapture() > 0) {
      ap.apHeadingHold(0);
      ap.endApproachArming();
    }
  }
  if (isOn(ap.apNav1Hold())) {
    ap.HoldNav1();
    captureLocalizer();
  }
  if (isOn(ap.apLocalizerHold())) {
    ap.HoldLocalizer();
    if (captureLocalizer()) ap.endApproachArming();
  }
  if (ap.apCwsRollMode() > 0) steerCwsRoll();
}

/// True in the cycle of the capture.
bool clsAfds::captureLocalizer() {
  clsXAutoP& ap = *autoflight_.xAutoP;
  if (ap.apLocalizerCapture() != 0 || !ap.LocalizerInRange()) return false;
  ap.apLocalizerCapture(1);
  return true;
}

/// Up to 6 degrees the wings are levelled. Beyond, the bank is kept; while the pilot turns the
/// wheel further, only ever more of it.
void clsAfds::steerCwsRoll() {
  constexpr float LevelledUpTo_deg = 6;
  const modPublic& v = autoflight_.store;
  if (memory_.bank_deg <= LevelledUpTo_deg) {
    autoflight_.xAutoP->HoldBank(0);
    memory_.cwsBank_deg = 0;
    return;
  }
  const double wheel = v.AileronInput;
  if (wheel != memory_.wheel) {
    const bool increasing = std::fabs(memory_.wheel) <= std::fabs(wheel);
    memory_.cwsBank_deg =
        increasing ? std::max(memory_.bank_deg, memory_.cwsBank_deg) : memory_.bank_deg;
  }
  autoflight_.xAutoP->HoldBank(v.Bank < 180 ? memory_.cwsBank_deg : -memory_.cwsBank_deg);
  memory_.wheel = wheel;
}

void clsAfds::setSensitivities() {
  const modPublic& v = autoflight_.store;
  clsXAutoP& ap = *autoflight_.xAutoP;
  const double pitch = ap.tuning.apPitchSensitivityFix;
  ap.gains.apPitchSensitivityDyn = toSingle(v.Ias > 0 ? pitch * v.Ias / 250 : pitch);
  const double vspeed = ap.tuning.apVspeedSensitivityFix;
  ap.gains.apVspeedSensitivity = toSingle(
      v.FlapsControl < 1 ? vspeed
                         : vspeed - 2 * (v.FlapsControl / double{FullTravel} * vspeed) / 3);
}

void clsAfds::setSpeedTarget() {
  clsXAutoP& ap = *autoflight_.xAutoP;
  if (isOn(VNAV_) && fmc.MaxWaypointId >= 1) {
    FlyVnavProfile(autoflight_);
    return;
  }
  if (isOn(ap.apToGa())) return;
  const bool planned = autoflight_.store.CycleRunning && fmc.MaxWaypointId >= 1;
  const auto planSpeed_kt = static_cast<float>(performance.FmcSpeed);
  const bool limited = planned && planSpeed_kt >= 1 && ap.apMcpAirSpeed() > planSpeed_kt;
  ap.apAirSpeed(limited ? planSpeed_kt : ap.apMcpAirSpeed());
}

void clsAfds::changeSpeedUnit() {
  const bool climbing = ClimbFlag_ >= 1;
  if (!climbing && DescentFlag_ < 1) return;
  const float changeMach = climbing ? performance.ClimbMach : performance.DescentMach;
  if (changeMach == 0) return;
  clsXAutoT& at = *autoflight_.xAutoT;
  const bool byMach = isOn(at.apMachNumberHoldByRpm());
  if (autoflight_.store.Mach >= changeMach && !byMach) {
    at.ApMachNumber(changeMach);
    at.apMachNumberHoldByRpm(1);
  }
  if (autoflight_.store.Mach < changeMach && byMach) at.apMachNumberHoldByRpm(0);
}

clsAfds::Trends clsAfds::filter() {
  constexpr double LargestDifference_fpm = 500;
  modPublic& v = autoflight_.store;
  const clsXAutoP& ap = *autoflight_.xAutoP;
  Trends trends;
  v.CalcVerticalSpeed = toSingle((v.AircraftAltitude - v.PrevAltitude) * 60 / Cycle_s);
  if (std::fabs(double{v.CalcVerticalSpeed} - v.VerticalSpeed) > LargestDifference_fpm)
    v.CalcVerticalSpeed = v.VerticalSpeed;
  v.PrevAltitude = v.AircraftAltitude;
  trends.altError_ft = double{ap.apAltitude()} - v.AircraftAltitude;
  trends.ias_kt_s = (double{v.AvgIas} - v.PrevAvgIas) / Cycle_s;
  v.PrevAvgIas = v.AvgIas;
  Engine& first = v.Engines(1);
  trends.n1_pct_s = (double{first.N1} - first.N1Prev) / Cycle_s;
  first.N1Prev = first.N1;
  const double turned = double{ap.apNormbank()} - memory_.bank_deg;
  trends.bank_deg_s = (ap.apNormbank() < 0 ? -turned : turned) / Cycle_s;
  memory_.bank_deg = toSingle(signedDegrees(v.Bank));
  v.AvgIas = toSingle((double{v.PrevAvgIas} + v.Ias) / 2);
  v.AvgVerticalSpeed = toSingle((double{v.AvgVerticalSpeed} + v.CalcVerticalSpeed) / 2);
  memory_.averageClimb_fpm = v.AvgVerticalSpeed;
  return trends;
}

}  // namespace vorlent
