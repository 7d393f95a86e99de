#include <cmath>

#include "support/IndependentAutoflight.h"

namespace vorlent {
namespace {

constexpr double Cycle_s = 0.44;

}  // namespace

void IndependentAutoflight::Init(const std::function<void()>& poll) {
  apTurnRate(1);
  AileronTrim(0);
  tune.apMaxTrackOffset = 3;
  apBankLimit(30);
  apBank(25);
  tune.apTurnRangeWpt = 3;
  tune.apBankLimitLowAlt = 8;
  tune.apBankLimitHighAlt = 30;
  tune.apRollControlFactor = tune.workingRollFactor = 0.4;
  tune.apMaxBankCourseDeviation = 30;
  for (const std::uint32_t offset : {0x07BCU, 0x07D0U, 0x0810U}) byte(offset, 0);
  apMaster(1);
  memory.PhaseOfFlightEnum = 1;
  tune.apIntCourseDeflectionWpt = 30;
  target.apVertSpeedMax = 1500;
  apVertSpeed(1500);
  fma = Annunciators{};
  byte(0x0278, 1);
  poll();
  databaseOpen = share.performance.has_value();
  readAircraft();
  N1SwitchStatus(3);
  target.apRpm = memory.ClimbN1;
  ApMachNumber(memory.ClimbMach);
}

bool IndependentAutoflight::AFDS() {
  try {
    if (!(in.IsMaster && in.Paused == 1)) steps();
    memory.Relay = memory.Relay + 1;
    return true;
  } catch (const Fault&) {
    return false;
  }
}

void IndependentAutoflight::steps() {
  if (on.apToGa == 1 && memory.FdActive == 1)
    FlyToGa();
  else if (on.apToGa == 1 && in.RadioAltitude < 400)
    apToGa(0);
  if (memory.ExecFlightplan > 0) executePlan();
  if (plan.MaxWaypointId > 0) {
    UpdateFlightPhase();
    legGeometry();
    leg.Criteria = legCheck();
  }
  if (on.LNAV && plan.MaxWaypointId >= 1)
    flyLnav();
  else
    rollChannel();
  sensitivities();
  speedTarget();
  changeover();
  const Trends trend = filters();

  if (on.apAttitudeHold == 1) {
    if (memory.Relay > 9) ResetRelay(0);
    KeepPitch4();
  }
  if (!on.apToGa) pitchChannel(trend);
  if (!on.apToGa && on.apCwsPitchMode > 0) {
    if (in.ElevatorInput != memory.LastElevatorInput) target.apPitch = in.Pitch + 0.2;
    KeepPitch4();
    memory.LastElevatorInput = in.ElevatorInput;
  }
  if (on.apAirspeedHoldByPitch == 1) {
    if (memory.Relay == 1)
      HoldAirspeedByPitch(trend.Ias);
    else if (memory.Relay > 5)
      ResetRelay(0);
    KeepPitch4();
  }
  if (on.apAutoThrottle == 1) {
    if (on.apRpmHold == 1) HoldRpm(trend.N1);
    if (on.apRetard == 1) {
      if (in.engines[0].N1 >= 40)
        HoldRpm(trend.N1);
      else
        apRetard(0);
    }
    if (on.apAirspeedHoldByRpm == 1) HoldAirspeedByRpm(trend.Ias);
  }
  apTurnRate(1);
}

void IndependentAutoflight::rollChannel() {
  if (on.apHeadingHold == 1) {
    if (!on.apLocalizerHold && !on.apNav1Hold) {
      TurnToHeading();
    } else if (on.apLocalizerCapture > 0) {
      apHeadingHold(0);
      on.apApproachHold = 0;
      lamp(19, 0);
    }
  }
  if (on.apNav1Hold == 1) {
    HoldNav1();
    capture(false);
  }
  if (on.apLocalizerHold == 1) {
    HoldLocalizer();
    capture(true);
  }
  if (on.apCwsRollMode > 0) cwsRoll();
}

void IndependentAutoflight::capture(bool approachToo) {
  if (on.apLocalizerCapture || !LocalizerInRange()) return;
  apLocalizerCapture(1);
  if (!approachToo) return;
  on.apApproachHold = 0;
  lamp(19, 0);
}

void IndependentAutoflight::sensitivities() {
  tune.apPitchSensitivityDyn =
      in.Ias > 0 ? tune.apPitchSensitivityFix * in.Ias / 250 : double{tune.apPitchSensitivityFix};
  const double fix = tune.apVspeedSensitivityFix;
  tune.apVspeedSensitivity =
      in.FlapsControl < 1 ? fix : fix - 2 * (in.FlapsControl / 16383.0 * fix) / 3;
}

void IndependentAutoflight::speedTarget() {
  if (on.VNAV && plan.MaxWaypointId >= 1) {
    FlyVnavProfile();
    return;
  }
  if (on.apToGa) return;
  const double panel = target.apMcpAirSpeed;
  const bool known = in.CycleRunning && plan.MaxWaypointId >= 1 && memory.FmcSpeed >= 1;
  apAirSpeed(known && panel > memory.FmcSpeed ? int{memory.FmcSpeed} : panel);
}

void IndependentAutoflight::changeover() {
  const bool climbing = memory.ClimbFlag >= 1;
  if (!climbing && memory.DescentFlag < 1) return;
  const double known = climbing ? memory.ClimbMach : memory.DescentMach;
  if (known == 0) return;
  if (in.Mach >= known && !on.apMachNumberHoldByRpm) {
    target.throttleMach = known;
    apMachNumberHoldByRpm(1);
  } else if (in.Mach < known && on.apMachNumberHoldByRpm == 1) {
    apMachNumberHoldByRpm(0);
  }
}

IndependentAutoflight::Trends IndependentAutoflight::filters() {
  Trends trend;
  memory.CalcVerticalSpeed = (in.AircraftAltitude - memory.PrevAltitude) * 60 / Cycle_s;
  if (std::fabs(memory.CalcVerticalSpeed - double{in.VerticalSpeed}) > 500)
    memory.CalcVerticalSpeed = in.VerticalSpeed;
  memory.PrevAltitude = in.AircraftAltitude;

  trend.AltError = apAltitude() - in.AircraftAltitude;
  trend.Ias = (memory.AvgIas - memory.PrevAvgIas) / Cycle_s;
  memory.PrevAvgIas = memory.AvgIas;
  trend.N1 = (in.engines[0].N1 - memory.N1Prev) / Cycle_s;
  memory.N1Prev = in.engines[0].N1;
  trend.Bank = (memory.apNormbank - memory.SignedBank) / Cycle_s;
  if (memory.apNormbank < 0) trend.Bank = -trend.Bank;
  memory.SignedBank = in.Bank > 180 ? in.Bank - 360.0 : double{in.Bank};
  memory.AvgIas = (memory.PrevAvgIas + in.Ias) / 2;
  memory.AvgVerticalSpeed = (memory.AvgVerticalSpeed + memory.CalcVerticalSpeed) / 2;
  memory.AvgVerticalSpeedCopy = memory.AvgVerticalSpeed;
  return trend;
}

void IndependentAutoflight::pitchChannel(const Trends& trend) {
  if (on.apLevelChange == 1 || on.apVSpeedHold == 1) {
    if (on.apLevelChange == 1)
      levelChange(trend);
    else
      verticalSpeed(trend);
    captureTest(trend.AltError);
  } else if (on.apAltAcquire == 1) {
    altitudeAcquire(trend.AltError);
  } else if (on.apAltitudeHold == 1) {
    altitudeHold(trend);
  }
}

void IndependentAutoflight::verticalSpeed(const Trends& trend) {
  target.apVertSpeedMax = std::fabs(target.apVertSpeed);
  if (trend.AltError != 0) {
    memory.ClimbFlag = trend.AltError > 0;
    memory.DescentFlag = trend.AltError < 0;
  }
  if (memory.Relay == 1)
    HoldVspeed(trend.Bank, memory.AvgVerticalSpeedCopy);
  else if (memory.Relay > 5)
    ResetRelay(0);
  if (!on.apAirspeedHoldByRpm) apAirspeedHoldByRpm(1);
  KeepPitch4();
}

void IndependentAutoflight::levelChange(const Trends& trend) {
  target.apVertSpeedMax = 1500;
  if (std::fabs(trend.AltError) <= 1000) {
    apLevelChange(0);
    apAltAcquire(1);
    apAirspeedHoldByRpm(1);
    return;
  }
  if (on.apAirspeedHoldByPitch) return;
  const bool climb = trend.AltError > 0;
  memory.ClimbFlag = climb;
  memory.DescentFlag = !climb;
  if (climb) {
    if (!on.apRpmHold) {
      SetEngineN1TargetClimb();
      apRpmHold(1);
    }
    target.apPitch = tune.apClimbPitchFactor * in.Ias;
  } else {
    target.apRpm = 0;
    SetEngineN1TargetIdle();
    apRetard(1);
    target.apPitch = -0.5;
  }
  apAirspeedHoldByPitch(1);
  ResetRelay(4);
}

void IndependentAutoflight::captureTest(double AltError) {
  const double A = std::fabs(AltError);
  if (A >= 1000 && std::fabs(memory.AvgVerticalSpeedCopy / 2) <= A) return;
  if (on.apLevelChange) apLevelChange(0);
  if (on.VNAV) VNAV(0);
  if (on.apAirspeedHoldByPitch) apAirspeedHoldByPitch(0);
  apAltAcquire(1);
  apAirspeedHoldByRpm(1);
  if (AltError > 0) {
    target.apPitch = A < 1000 ? -1 : in.Pitch * 0.6;
    return;
  }
  if (tune.apPitchSensitivityDyn == 0) throw Fault{};
  target.apPitch = 300 / tune.apPitchSensitivityDyn;
}

void IndependentAutoflight::altitudeAcquire(double AltError) {
  const double V = memory.CalcVerticalSpeed;
  if (memory.Relay == 1) {
    if (memory.ClimbFlag >= 1) {
      if (AltError > 750) {
        target.apPitch = in.Pitch * (V > 1800 ? 0.9 : V < 0 ? 1.2 : 1.01);
      } else {
        target.apPitch = in.Pitch * 0.92;
        ResetRelay(0);
      }
    } else if (memory.DescentFlag >= 1) {
      if (AltError >= -750) {
        target.apPitch = in.Pitch * 1.2;
      } else {
        target.apPitch = in.Pitch * (V < -1500 ? 1.05 : V <= 0 ? 0.99 : 0.9);
        if (V > 0) ResetRelay(0);
      }
    }
  } else if (memory.Relay > 9) {
    ResetRelay(0);
  }
  const bool slow = std::fabs(memory.AvgVerticalSpeedCopy) < in.Ias * 8.0;
  if (slow && std::fabs(AltError) < in.Ias * 4.0) {
    apAltAcquire(0);
    apAltitudeHold(1);
    apAirspeedHoldByRpm(1);
    ResetRelay(0);
  } else {
    KeepPitch4();
  }
}

void IndependentAutoflight::altitudeHold(const Trends& trend) {
  if (memory.Relay == 1) {
    target.apVertSpeedMax = std::fabs(target.apVertSpeed);
    HoldAltitude(trend.AltError, trend.Ias, trend.Bank);
  } else if (memory.Relay > 5) {
    ResetRelay(0);
  }
  KeepPitch4();
}

}  // namespace vorlent
