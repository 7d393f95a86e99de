#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "autoflight/modes.h"
#include "autoflight/planSteps.h"
#include "base/numbers.h"
#include "flightplan/verticalProfile.h"
#include "store/modPublic.h"

namespace vorlent::autoflight {
namespace {

const FlightPlanRecord& toRow(const clsAfds& afds) {
  return planRow(afds.plan.FlightPlan, afds.leg.LegToRow);
}
const FlightPlanRecord& fromRow(const clsAfds& afds) {
  return planRow(afds.plan.FlightPlan, afds.leg.LegFromRow);
}

VerticalSituation situation(const Autoflight& autoflight) {
  return {autoflight.store.AircraftAltitude, autoflight.xAutoP->apMcpAltitude(),
          static_cast<double>(autoflight.afds->performance.CruiseAlt())};
}

void changeLevel(clsXAutoP& ap) {
  if (isOn(ap.apAltAcquire()) || isOn(ap.apAltitudeHold()) || isOn(ap.apLevelChange())) return;
  ap.apLevelChange(1);
}

void holdSpeedByThrust(clsXAutoT& at) {
  if (!isOn(at.apAirspeedHoldByRpm())) at.apAirspeedHoldByRpm(1);
}

void holdRow(Autoflight& autoflight, const FlightPlanRecord& row) {
  clsXAutoP& ap = *autoflight.xAutoP;
  holdSpeedByThrust(*autoflight.xAutoT);
  ap.apAltitude(static_cast<float>(row.Altitude));
  if (!isOn(ap.apAltitudeHold())) ap.apAltitudeHold(1);
}

void climb(Autoflight& autoflight) {
  clsXAutoP& ap = *autoflight.xAutoP;
  ap.apAltitude(toSingle(climbTarget_ft(toRow(*autoflight.afds), situation(autoflight))));
  changeLevel(ap);
}

/// docs/peculiarities.md: T/D at cruise level; panel first; panel at cruise level.
void descend(Autoflight& autoflight) {
  clsXAutoP& ap = *autoflight.xAutoP;
  const auto target_ft = descentTarget_ft(toRow(*autoflight.afds), situation(autoflight));
  if (target_ft) ap.apAltitude(toSingle(*target_ft));
  changeLevel(ap);
}

void approach(Autoflight& autoflight) {
  constexpr std::int32_t LeversClosedBelow_ft = 100;
  const modPublic& v = autoflight.store;
  clsXAutoT& at = *autoflight.xAutoT;
  holdSpeedByThrust(at);
  autoflight.xAutoP->apAltitude(static_cast<float>(toRow(*autoflight.afds).Altitude));
  if (v.RadioAltitude >= LeversClosedBelow_ft || v.Engines(1).ThrustLever <= 0) return;
  at.apRpm(0);
  at.apThrottleHold(1);
}

}  // namespace

void FlyVnavProfile(Autoflight& autoflight) {
  const clsAfds& afds = *autoflight.afds;
  autoflight.xAutoP->apAirSpeed(afds.performance.FmcSpeed);
  switch (afds.fmc.PhaseOfFlightEnum) {
    case Phase::Climb:
      return climb(autoflight);
    case Phase::Cruise:
      return holdRow(autoflight, toRow(afds));
    case Phase::PreDescent:
      return holdRow(autoflight, fromRow(afds));
    case Phase::Descent:
      return descend(autoflight);
    case Phase::Approach:
      return approach(autoflight);
    default:
      return;
  }
}

}  // namespace vorlent::autoflight
