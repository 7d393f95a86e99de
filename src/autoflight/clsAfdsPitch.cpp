#include <cmath>

#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "autoflight/modes.h"
#include "base/numbers.h"
#include "store/modPublic.h"

namespace vorlent {

using namespace autoflight;

/// Whether a law of the pitch channel runs in this cycle; from `longest` on the count starts again.
bool clsAfds::paced(int longest) {
  if (Relay_ == 1) return true;
  if (Relay_ > longest) ResetRelay(0);
  return false;
}

void clsAfds::holdAttitude() {
  paced(9);
  autoflight_.xAutoP->KeepPitch4();
}

void clsAfds::arbitratePitch(const Trends& trends) {
  clsXAutoP& ap = *autoflight_.xAutoP;
  if (isOn(ap.apLevelChange()) || isOn(ap.apVSpeedHold())) {
    if (isOn(ap.apLevelChange()))
      flyLevelChange(trends.altError_ft);
    else
      flyVerticalSpeed(trends);
    const double size = std::fabs(trends.altError_ft);
    if (size < 1000 || std::fabs(double{memory_.averageClimb_fpm} / 2) > size)
      captureAltitude(trends.altError_ft);
  } else if (isOn(ap.apAltAcquire())) {
    acquireAltitude(trends.altError_ft);
  } else if (isOn(ap.apAltitudeHold())) {
    holdAltitude(trends);
  }
}

void clsAfds::flyVerticalSpeed(const Trends& trends) {
  clsXAutoP& ap = *autoflight_.xAutoP;
  ap.apVertSpeedMax(std::fabs(ap.apVertSpeed()));
  if (trends.altError_ft != 0) {
    ClimbFlag_ = trends.altError_ft > 0 ? 1 : 0;
    DescentFlag_ = trends.altError_ft < 0 ? 1 : 0;
  }
  if (paced(5)) ap.HoldVspeed(trends.bank_deg_s, memory_.averageClimb_fpm);
  if (!isOn(autoflight_.xAutoT->apAirspeedHoldByRpm())) autoflight_.xAutoT->apAirspeedHoldByRpm(1);
  ap.KeepPitch4();
}

void clsAfds::flyLevelChange(double altError_ft) {
  clsXAutoP& ap = *autoflight_.xAutoP;
  ap.apVertSpeedMax(1500);
  if (std::fabs(altError_ft) > 1000) {
    if (!isOn(ap.apAirspeedHoldByPitch())) startLevelChange(altError_ft);
    return;
  }
  ap.apLevelChange(0);
  ap.apAltAcquire(1);
  autoflight_.xAutoT->apAirspeedHoldByRpm(1);
}

void clsAfds::startLevelChange(double altError_ft) {
  clsXAutoP& ap = *autoflight_.xAutoP;
  clsXAutoT& at = *autoflight_.xAutoT;
  ClimbFlag_ = altError_ft > 0 ? 1 : 0;
  DescentFlag_ = altError_ft > 0 ? 0 : 1;
  if (isOn(ClimbFlag_)) {
    if (!isOn(at.apRpmHold())) {
      SetEngineN1TargetClimb();
      at.apRpmHold(1);
    }
    ap.apPitch(toSingle(double{ap.tuning.apClimbPitchFactor} * autoflight_.store.Ias));
  } else {
    at.apRpm(0);
    SetEngineN1TargetIdle();
    at.apRetard(1);
    ap.apPitch(-0.5F);
  }
  ap.apAirspeedHoldByPitch(1);
  ResetRelay(4);
}

void clsAfds::captureAltitude(double altError_ft) {
  clsXAutoP& ap = *autoflight_.xAutoP;
  clear(ap, modes::LevelChange);
  clear(*this, modes::Vnav);
  clear(ap, modes::AirspeedHoldByPitch);
  ap.apAltAcquire(1);
  autoflight_.xAutoT->apAirspeedHoldByRpm(1);
  if (altError_ft <= 0)
    ap.apPitch(toSingle(quotient(300, ap.gains.apPitchSensitivityDyn)));
  else if (altError_ft < 1000)
    ap.apPitch(-1);
  else
    scalePitch(0.6);
}

void clsAfds::scalePitch(double factor) {
  autoflight_.xAutoP->apPitch(toSingle(autoflight_.store.Pitch * factor));
}

void clsAfds::acquireAltitude(double altError_ft) {
  clsXAutoP& ap = *autoflight_.xAutoP;
  if (paced(9)) {
    if (ClimbFlag_ >= 1)
      levelOffFromClimb(altError_ft);
    else if (DescentFlag_ >= 1)
      levelOffFromDescent(altError_ft);
  }
  const double ias_kt = autoflight_.store.Ias;
  if (std::fabs(double{memory_.averageClimb_fpm}) < ias_kt * 8 &&
      std::fabs(altError_ft) < ias_kt * 4) {
    ap.apAltAcquire(0);
    ap.apAltitudeHold(1);
    autoflight_.xAutoT->apAirspeedHoldByRpm(1);
    ResetRelay(0);
  } else {
    ap.KeepPitch4();
  }
}

void clsAfds::levelOffFromClimb(double altError_ft) {
  const float climb_fpm = autoflight_.store.CalcVerticalSpeed;
  if (altError_ft <= 750) {
    scalePitch(0.92);
    ResetRelay(0);
  } else if (climb_fpm > 1800) {
    scalePitch(0.9);
  } else {
    scalePitch(climb_fpm < 0 ? 1.2 : 1.01);
  }
}

void clsAfds::levelOffFromDescent(double altError_ft) {
  const float climb_fpm = autoflight_.store.CalcVerticalSpeed;
  if (altError_ft >= -750) {
    scalePitch(1.2);
  } else if (climb_fpm < -1500) {
    scalePitch(1.05);
  } else if (climb_fpm <= 0) {
    scalePitch(0.99);
  } else {
    scalePitch(0.9);
    ResetRelay(0);
  }
}

void clsAfds::holdAltitude(const Trends& trends) {
  clsXAutoP& ap = *autoflight_.xAutoP;
  if (paced(5)) {
    ap.apVertSpeedMax(std::fabs(ap.apVertSpeed()));
    ap.HoldAltitude(trends.altError_ft, trends.ias_kt_s, trends.bank_deg_s);
  }
  ap.KeepPitch4();
}

/// The column's movement takes the attitude that it has reached as the new target.
void clsAfds::steerCwsPitch() {
  clsXAutoP& ap = *autoflight_.xAutoP;
  if (ap.apCwsPitchMode() <= 0) return;
  const double column = autoflight_.store.ElevatorInput;
  if (column != memory_.column) ap.apPitch(toSingle(double{autoflight_.store.Pitch} + 0.2));
  ap.HoldPitch();
  memory_.column = column;
}

/// Where the settings ask for it and no other mode has the pitch channel. Every third cycle, as the
/// trim takes a step with each new target and the glide path asks for small ones.
/// docs/peculiarities.md: glideslope.
void clsAfds::flyGlideslope() {
  clsXAutoP& ap = *autoflight_.xAutoP;
  if (!autoflight_.Glideslope || !isOn(ap.apGlideslopeHold())) return;
  for (const auto& mode : {modes::LevelChange, modes::VSpeedHold, modes::AltAcquire,
                           modes::AltitudeHold, modes::AttitudeHold, modes::AirspeedHoldByPitch})
    if (isOn(ap, mode)) return;
  if (ap.apCwsPitchMode() > 0) return;
  if (paced(2)) ap.FlyGS();
  ap.KeepPitch4();
}

void clsAfds::holdSpeedByPitch(double iasTrend_kt_s) {
  if (paced(5)) autoflight_.xAutoP->HoldAirspeedByPitch(iasTrend_kt_s);
  autoflight_.xAutoP->KeepPitch4();
}

}  // namespace vorlent
