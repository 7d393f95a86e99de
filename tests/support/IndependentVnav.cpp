#include "support/IndependentAutoflight.h"

namespace vorlent {

namespace field = independent;

// On the ground and in the air after a press on TO/GA.

void IndependentAutoflight::FlyToGa() {
  if (memory.PhaseOfFlightEnum == 1) memory.PhaseOfFlightEnum = 2;
  if (in.OnGround == 1)
    rollOnTheGround();
  else
    flyOut();
  if (in.RadioAltitude > 400)
    apBankLimit(tune.apBankLimitHighAlt);
  else if (in.RadioAltitude > 200)
    apBankLimit(tune.apBankLimitHighAlt / 2.0);
  else
    apBankLimit(tune.apBankLimitLowAlt);
}

void IndependentAutoflight::flyOut() {
  if (in.VerticalSpeed < 100) {
    memory.FdPitch = -15;
    return;
  }
  apAirSpeed(memory.FmcSpeed);
  if (!on.apAirspeedHoldByPitch) apAirspeedHoldByPitch(1);
  if (in.RadioAltitude > 800 && on.apThrottleHold == 1) apThrottleHold(0);
  const bool high = in.AircraftAltitude > memory.AccelerationAltitude;
  if (!high || on.apVSpeedHold || on.apAltitudeHold || on.VNAV) return;
  apLevelChange(1);
  if (on.apToGa) apToGa(0);
}

void IndependentAutoflight::rollOnTheGround() {
  if (in.Ias >= 84) {
    if (in.soundOfAircraft) apThrottleHold(1);
  } else if (in.Ias >= 60) {
    memory.FdPitch = -15;
  } else {
    memory.FdPitch = 10;
    fma.Pitch = "TO/GA";
    apHeading(in.TrueHeading);
    if (on.apRpmHold) return;
    SetEngineN1TargetTakeoff();
    apRpmHold(1);
  }
}

// The phases. One cycle may take more than one step.

void IndependentAutoflight::UpdateFlightPhase() {
  leaveTheGround();
  if (memory.PhaseOfFlightEnum == 3) {
    if (in.AircraftAltitude > double{memory.CruiseAlt} - 500 && on.apAltitudeHold)
      enterPhase(4, "ecruise");
    if (in.OnGround == 1) memory.PhaseOfFlightEnum = 0;
  }
  if (memory.PhaseOfFlightEnum == 4) leaveCruise();
  if (memory.PhaseOfFlightEnum == 5) startDescent();
  if (memory.PhaseOfFlightEnum == 6) leaveDescent();
  if (memory.PhaseOfFlightEnum == 7) land();
}

void IndependentAutoflight::enterPhase(int phase, const std::string& name) {
  memory.PhaseOfFlightEnum = phase;
  tellPhase(name);
}

void IndependentAutoflight::tellPhase(const std::string& name) {
  if (memory.LogVerbose) log.push_back({"switch to FlightPhases." + name, "", {}});
}

void IndependentAutoflight::leaveTheGround() {
  Word& phase = memory.PhaseOfFlightEnum;
  if (on.apToGa == 1) {
    phase = 2;
  } else if (phase < 2) {
    if (in.RadioAltitude >= 3001)
      phase = 3;
    else if (in.Ias > 10 && double{in.engines[0].N1} >= memory.TakeoffN1)
      phase = 2;
  }
  if (phase != 2 || on.apToGa) return;
  enterPhase(3, "eclimb");
  apBankLimit(tune.apBankLimitHighAlt);
}

bool IndependentAutoflight::descentCommanded() const {
  return target.apVertSpeed < -499 || (on.apLevelChange >= 1 && memory.DescentFlag >= 1);
}

void IndependentAutoflight::leaveCruise() {
  if (FindTodPassed()) enterPhase(5, "epredescent");
  if (descentCommanded()) enterPhase(6, "edescent");
  if (in.OnGround == 1) memory.PhaseOfFlightEnum = 0;
}

void IndependentAutoflight::startDescent() {
  if (leg.DxToNextWpt > leg.DxToTurnPoint && leg.DxToNextWpt < activeRow()[field::Distance]) {
    memory.PhaseOfFlightEnum = 6;
    if (in.AircraftAltitude > apMcpAltitude() && apMcpAltitude() < memory.CruiseAlt) {
      if (on.apAltitudeHold) apAltitudeHold(0);
      VNAV(1);
    }
    tellPhase("edescent");
  }
  if (descentCommanded()) memory.PhaseOfFlightEnum = 6;
  if (in.OnGround == 1) memory.PhaseOfFlightEnum = 0;
}

void IndependentAutoflight::leaveDescent() {
  const Row& row = activeRow();
  if (row.texts[field::Name].starts_with("RX-")) {
    if (leg.DxToNextWpt < 4) enterPhase(7, "eapproach");
  } else if (row.trimmedName() == "E/D" && leg.DxToNextWpt < 8) {
    enterPhase(7, "eapproach");
  }
  if (in.Ias >= 30 || in.OnGround != 1) return;
  memory.PhaseOfFlightEnum = 8;
  if (on.VNAV) VNAV(0);
  if (on.LNAV) LNAV(0);
}

void IndependentAutoflight::land() {
  if (in.RadioAltitude < 50) memory.FdActive = 0;
  if (in.RadioAltitude >= 100 || in.Tas != 0) return;
  memory.PhaseOfFlightEnum = 8;
  apLocalizerCapture(0);
  apGsCapture(0);
}

bool IndependentAutoflight::FindTodPassed() const {
  int tod = 1;
  while (tod <= plan.ProfileMaxId && plan.profileRow(tod).trimmedName() != "T/D") ++tod;
  if (tod > plan.ProfileMaxId) tod = 0;
  for (int number = tod; number <= plan.ProfileMaxId; ++number)
    if (plan.profileRow(number).trimmedName() == activeRow().trimmedName()) return true;
  return false;
}

// What VNAV asks for in each phase.

void IndependentAutoflight::FlyVnavProfile() {
  apAirSpeed(memory.FmcSpeed);
  const double atWaypoint = toRow()[field::Altitude];
  const double panel = apMcpAltitude();
  switch (memory.PhaseOfFlightEnum) {
    case 3:
      apAltitude(panel < atWaypoint && in.AircraftAltitude < panel ? panel
                                                                   : double{memory.CruiseAlt});
      changeLevel();
      break;
    case 4:
      holdSpeedAndAltitude(atWaypoint);
      break;
    case 5:
      holdSpeedAndAltitude(fromRow()[field::Altitude]);
      break;
    case 6: {
      const double g = atWaypoint + (toRow().trimmedName() == "E/D" ? 400 : 0);
      if (in.AircraftAltitude > panel && panel < memory.CruiseAlt)
        apAltitude(panel > g ? panel : g);
      changeLevel();
      break;
    }
    case 7:
      if (!on.apAirspeedHoldByRpm) apAirspeedHoldByRpm(1);
      apAltitude(atWaypoint);
      if (in.RadioAltitude < 100 && in.engines[0].ThrustLever > 0) {
        target.apRpm = 0;
        apThrottleHold(1);
      }
      break;
    default:
      break;
  }
}

void IndependentAutoflight::holdSpeedAndAltitude(double feet) {
  if (!on.apAirspeedHoldByRpm) apAirspeedHoldByRpm(1);
  apAltitude(feet);
  if (!on.apAltitudeHold) apAltitudeHold(1);
}

void IndependentAutoflight::changeLevel() {
  if (!on.apAltAcquire && !on.apAltitudeHold && !on.apLevelChange) apLevelChange(1);
}

}  // namespace vorlent
