#include "autoflight/clsXAutoT.h"

#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/lamps.h"
#include "autoflight/modes.h"
#include "autoflight/throttleLaws.h"
#include "base/numbers.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {

using namespace autoflight;

void clsXAutoT::annunciate(void (Annunciators::*flies)()) {
  Annunciators& shown = autoflight_.annunciators;
  if (isOn(modes_.autoThrottle))
    (shown.*flies)();
  else
    shown.thrustIsThePilots();
}

void clsXAutoT::apAutoThrottle(std::int16_t value) {
  modes_.autoThrottle = value;
  annunciate(&Annunciators::thrustWaits);
  if (isOn(modes_.airspeedHold)) apAirspeedHoldByRpm(1);
  if (isOn(modes_.machHold)) apMachNumberHoldByRpm(1);
  autoflight_.accessors.autoP->apMcpModes(AutoThrottleLamp, value);
}

void clsXAutoT::apMachNumberHoldByRpm(std::int16_t value) {
  modes_.machHold = value;
  autoflight_.accessors.autoP->apMcpModes(MachHoldByRpmLamp, value);
}

void clsXAutoT::apThrottleHold(std::int16_t value) {
  if (value < 1) {
    annunciate(&Annunciators::thrustWaits);
  } else {
    KillThrottleModes();
    annunciate(&Annunciators::throttlesHold);
  }
  modes_.throttleHold = value;
}

void clsXAutoT::apAirspeedHoldByRpm(std::int16_t value) {
  if (value < 1) {
    annunciate(&Annunciators::thrustWaits);
  } else {
    KillThrottleModes();
    annunciate(isOn(autoflight_.afds->VNAV()) ? &Annunciators::planSpeedFlies
                                              : &Annunciators::speedByThrustFlies);
  }
  modes_.airspeedHold = value;
  autoflight_.accessors.autoP->apMcpModes(AirspeedHoldByRpmLamp, value);
}

void clsXAutoT::apChangeover(std::int16_t value) {
  modes_.changeover = value;
  autoflight_.xAutoP->ApMachNumber(autoflight_.store.Mach);
  autoflight_.accessors.autoP->apMcpModes(ChangeoverLamp, value);
}

void clsXAutoT::apRetard(std::int16_t value) {
  if (isOn(value)) {
    KillThrottleModes();
    autoflight_.annunciators.retardFlies();
  } else {
    autoflight_.annunciators.thrustWaits();
  }
  modes_.retard = value;
}

void clsXAutoT::apRpmHold(std::int16_t value) {
  if (value < 1) {
    annunciate(&Annunciators::thrustWaits);
  } else {
    KillThrottleModes();
    targets_.easedN1_pct = toSingle(GetN1Target(autoflight_.store.Engines(1).ThrustLever));
    annunciate(&Annunciators::n1Flies);
  }
  modes_.rpmHold = value;
  autoflight_.accessors.autoP->apMcpModes(RpmHoldLamp, value);
}

void clsXAutoT::KillThrottleModes() {
  for (const auto& mode : {modes::AirspeedHoldByRpm, modes::MachNumberHoldByRpm, modes::RpmHold,
                           modes::Retard, modes::ThrottleHold})
    clear(*this, mode);
  if (autoflight_.store.ApSpeedHoldSim > 0) autoflight_.accessors.autoP->apAirspeedHold(0);
  if (autoflight_.store.ApBcHoldSim >= 1) autoflight_.accessors.autoP->apBackCourseHold(0);
}

void clsXAutoT::run(double n1Trend_pct_s, double iasTrend_kt_s) {
  constexpr float RetardedN1_pct = 40;
  if (isOn(modes_.rpmHold)) HoldRpm(n1Trend_pct_s);
  if (isOn(modes_.retard)) {
    if (autoflight_.store.Engines(1).N1 >= RetardedN1_pct)
      HoldRpm(n1Trend_pct_s);
    else
      apRetard(0);
  }
  if (isOn(modes_.airspeedHold)) HoldAirspeedByRpm(iasTrend_kt_s);
}

void clsXAutoT::HoldRpm(double trend_pct_s) {
  const Engine& engine = autoflight_.store.Engines(1);
  targets_.easedN1_pct =
      toSingle(targets_.easedN1_pct + 0.1 * (double{targets_.n1_pct} - targets_.easedN1_pct));
  const double lever =
      leverForN1({targets_.easedN1_pct, engine.N1, trend_pct_s, engine.ThrustLever});
  if (lever > 0) autoflight_.accessors.eng->SetThrottles(toSingle(lever));
}

void clsXAutoT::HoldAirspeedByRpm(double trend_kt_s) {
  modPublic& v = autoflight_.store;
  autoflight_.accessors.eng->SetThrottles(toSingle(leverForSpeed(
      {targets_.airSpeed_kt, v.AvgIas, trend_kt_s, v.Engines(1).ThrustLever, controlFactor_})));
  // The bugs follow the engines while the speed law works them.
  for (int n = 1; n <= 2; ++n) v.Engines(n).N1Target = v.Engines(n).N1;
}

}  // namespace vorlent
