#include "support/IndependentAutoflight.h"

namespace vorlent {

// What a mode clears is cleared by its setter, and only when it is on.

void IndependentAutoflight::KillPitchModes() {
  if (on.apGlideslopeHold) apGlideslopeHold(0);
  if (on.apAltitudeHold) apAltitudeHold(0);
  if (on.apAirspeedHoldByPitch) apAirspeedHoldByPitch(0);
  if (on.apVSpeedHold) apVSpeedHold(0);
  if (on.apAttitudeHold) apAttitudeHold(0);
  if (on.apCwsPitchMode) apCwsPitchMode(0);
  fma.CwsPitch = "_";
  if (on.apToGa) apToGa(0);
}

void IndependentAutoflight::KillRollModes() {
  if (on.apWaypointHold) apWaypointHold(0);
  if (on.apHeadingHold) apHeadingHold(0);
  if (on.apBackCourseHold) apBackCourseHold(0);
  on.apYawDamper = 0;
  tune.workingRollFactor = tune.apRollControlFactor;
  on.apCwsRollMode = 0;
  fma.CwsRoll = "_";
}

void IndependentAutoflight::apMaster(int value) {
  on.apMaster = value;
  lamp(11, value);
}

void IndependentAutoflight::ApEngaged(int value) {
  on.ApEngaged = value;
  if (on.apHeadingHold) apHeadingHold(1);
  if (on.apLocalizerHold) apLocalizerHold(1);
  if (on.apBackCourseHold) apBackCourseHold(1);
  if (on.apAirspeedHoldByPitch) apAirspeedHoldByPitch(1);
  if (on.apAltitudeHold) apAltitudeHold(1);
  if (on.apAttitudeHold) apAttitudeHold(1);
  if (on.apGlideslopeHold) apGlideslopeHold(1);

  if (on.PitchModeActive || value < 1) {
    apCwsPitchMode(0);
    fma.CwsPitch = "_";
  } else if (value == 1) {
    apCwsPitchMode(1);
    fma.CwsPitch = "CWS_P";
  }
  if (on.RollModeActive || value < 1) {
    apCwsRollMode(0);
    fma.CwsRoll = "_";
  } else if (value == 1) {
    apCwsRollMode(1);
    fma.CwsRoll = "CWS_R";
  }
}

void IndependentAutoflight::command(Word& flag, int value, int lampNumber) {
  fma.Autopilot = value == 1 ? "CMD" : "FD";
  flag = value;
  lamp(lampNumber, value);
}
void IndependentAutoflight::apCmdLeft(int value) { command(on.apCmdLeft, value, 4); }
void IndependentAutoflight::apCmdRight(int value) { command(on.apCmdRight, value, 5); }
void IndependentAutoflight::apCmdCenter(int value) { on.apCmdCenter = value; }

void IndependentAutoflight::wheelSteering(Word& flag, int value, int lampNumber) {
  if (value == 1) {
    KillPitchModes();
    KillRollModes();
    fma.Autopilot = "CWS";
    fma.Roll = fma.RollArmed = fma.Pitch = fma.PitchArmed = "_";
  } else {
    fma.Autopilot = "FD";
  }
  flag = value;
  apCwsRollMode(value);
  apCwsPitchMode(value);
  lamp(lampNumber, value);
}
void IndependentAutoflight::apCwsLeft(int value) { wheelSteering(on.apCwsLeft, value, 6); }
void IndependentAutoflight::apCwsRight(int value) { wheelSteering(on.apCwsRight, value, 7); }

void IndependentAutoflight::apCwsRollMode(int value) { on.apCwsRollMode = value; }
void IndependentAutoflight::apCwsPitchMode(int value) {
  on.apCwsPitchMode = value;
  target.apPitch = in.Pitch + 0.2;
}

void IndependentAutoflight::rollFallsToCws() {
  apCwsRollMode(1);
  fma.CwsRoll = "CWS_R";
  on.RollModeActive = 0;
}

void IndependentAutoflight::apNav1Hold(int value) {
  if (value == 1) {
    KillRollModes();
    (on.ApEngaged ? fma.Roll : fma.RollArmed) = on.ApEngaged ? "VOR/LOC" : "_";
    on.RollModeActive = 1;
  } else {
    fma.Roll = "_";
    AileronTrim(0);
    rollFallsToCws();
  }
  on.apNav1Hold = value;
  lamp(18, value);
  apLocalizerCapture(0);
}

void IndependentAutoflight::apWaypointHold(int value) {
  if (value == 1) {
    KillRollModes();
    fma.Roll = "LNAV";
  } else if (value < 1) {
    fma.Roll = "_";
    AileronTrim(0);
  }
  on.apWaypointHold = value;
}

void IndependentAutoflight::apHeadingHold(int value) {
  if (!on.LNAV) {
    if (value == 1) {
      KillRollModes();
      if (on.apToGa || on.ApEngaged)
        fma.Roll = "HDG_SEL";
      else
        fma.RollArmed = "_";
      on.RollModeActive = 1;
    } else {
      fma.Roll = fma.RollArmed = "_";
      if (!on.apNav1Hold && !on.apLocalizerHold) {
        AileronTrim(0);
        rollFallsToCws();
      }
    }
  }
  on.apHeadingHold = value;
  lamp(17, value);
}

void IndependentAutoflight::apAltitudeHold(int value) {
  target.apPitch = in.Pitch + 0.4;
  if (value == 1) {
    KillPitchModes();
    if (on.apLevelChange) apLevelChange(0);
    if (on.apAltAcquire) apAltAcquire(0);
    ResetRelay(1);
    fma.Pitch = on.ApEngaged ? "ALT_HOLD" : "ARM";
    on.PitchModeActive = 1;
  } else {
    fma.Pitch = "_";
    fma.CwsPitch = "CWS_P";
    on.PitchModeActive = 0;
  }
  on.apAltitudeHold = value;
  lamp(16, value);
}

void IndependentAutoflight::apAttitudeHold(int value) {
  if (value == 1) KillPitchModes();
  on.PitchModeActive = on.RollModeActive = value == 1 ? 1 : 0;
  on.apAttitudeHold = value;
  target.apPitch = in.Pitch;
}

void IndependentAutoflight::apAirspeedHoldByPitch(int value) {
  fma.Pitch = value == 1 ? "MCP_SPD" : "_";
  on.PitchModeActive = value == 1 ? 1 : 0;
  on.apAirspeedHoldByPitch = value;
  memory.PitchMemorySlow = memory.PitchMemoryFast = in.Pitch;
}

void IndependentAutoflight::apVSpeedHold(int value) {
  if (value == 1) {
    KillPitchModes();
    ResetRelay(1);
    on.PitchModeActive = 1;
    fma.Pitch = "V/S";
  } else {
    fma.Pitch = "_";
    fma.CwsPitch = "CWS_P";
    on.PitchModeActive = 0;
  }
  lamp(21, value);
  on.apVSpeedHold = value;
}

void IndependentAutoflight::apGlideslopeHold(int value) {
  if (value == 1) {
    KillPitchModes();
    on.PitchModeActive = 1;
  } else {
    fma.Pitch = "_";
    apCwsPitchMode(1);
    fma.CwsPitch = "CWS_P";
    on.PitchModeActive = 0;
  }
  lamp(20, value);
  on.apGlideslopeHold = value;
}

void IndependentAutoflight::apLocalizerHold(int value) {
  if (value == 1) {
    (on.ApEngaged ? fma.Roll : fma.RollArmed) = on.ApEngaged ? "VOR/LOC" : "_";
    on.RollModeActive = 1;
  } else {
    fma.Roll = "_";
    rollFallsToCws();
  }
  on.apLocalizerHold = value;
}

void IndependentAutoflight::apApproachHold(int value) {
  const auto canCapture = [this] { return on.apHeadingHold || on.apWaypointHold > 0; };
  if (value < 1) {
    fma.Roll = "_";
    AileronTrim(0);
    rollFallsToCws();
  } else if (canCapture()) {
    tune.workingRollFactor = 2 * tune.apRollControlFactor;
    ResetRelay(1);
    fma.Roll = "VOR/LOC";
    on.RollModeActive = 1;
  }
  on.apLocalizerHold = value;
  apLocalizerCapture(0);
  if (value < 1) {
    fma.Pitch = "_";
    apCwsPitchMode(1);
    fma.CwsPitch = "CWS_P";
    on.PitchModeActive = 0;
  } else if (canCapture()) {
    KillPitchModes();
    on.PitchModeActive = 1;
  }
  on.apGlideslopeHold = value;
  apGsCapture(0);
  on.apApproachHold = value;
  lamp(19, value);
}

void IndependentAutoflight::apBackCourseHold(int value) {
  if (value == 1) KillRollModes();
  on.RollModeActive = value == 1 ? 1 : 0;
  on.apBackCourseHold = value;
}

void IndependentAutoflight::apYawDamper(int value) { on.apYawDamper = value; }
void IndependentAutoflight::apGsCapture(int value) { on.apGsCapture = value; }

void IndependentAutoflight::apLocalizerCapture(int value) {
  if (value == 1) fma.Roll = "VOR/LOC";
  on.apLocalizerCapture = value;
}

void IndependentAutoflight::apToGa(int value) {
  if (value == 1) {
    fma.AT = "N1";
    on.apToGa = value;
    if (!on.LNAV && !on.RollModeActive) apHeadingHold(1);
  } else {
    on.apToGa = value;
    fma.AT = ifArmed("ARM");
  }
  lamp(10, value);
}

void IndependentAutoflight::apLevelChange(int value) {
  if (value == 1) {
    KillPitchModes();
    apAltitude(apMcpAltitude());
    fma.Pitch = on.VNAV ? "VNAV_SPD" : "MCP_SPD";
    on.PitchModeActive = 1;
  } else {
    apAirspeedHoldByPitch(0);
    on.PitchModeActive = 0;
  }
  on.apLevelChange = value;
  lamp(1, value);
}

void IndependentAutoflight::apAltAcquire(int value) {
  if (value == 1) {
    KillPitchModes();
    ResetRelay(1);
    fma.Pitch = "ALT_ACQ";
    on.PitchModeActive = 1;
  } else {
    fma.Pitch = "ALT_HOLD";
    on.PitchModeActive = 0;
  }
  on.apAltAcquire = value;
}

void IndependentAutoflight::LNAV(int value) {
  if (plan.MaxWaypointId < 1) {
    on.LNAV = 0;
    return;
  }
  KillRollModes();
  if (value == 1) {
    leg.ToRow = memory.ActiveFpIndex + 1;
    leg.FromRow = memory.ActiveFpIndex;
  }
  apWaypointHold(value == 1 ? 1 : 0);
  on.LNAV = value;
  fma.Roll = value == 1 ? "LNAV" : "_";
  lamp(2, value);
}

void IndependentAutoflight::VNAV(int value) {
  if (plan.MaxWaypointId < 1) return;
  if (value == 1) {
    KillPitchModes();
    if (on.apLevelChange) apLevelChange(0);
    if (on.apAltAcquire) apAltAcquire(0);
    if (memory.PhaseOfFlightEnum < 4) {
      memory.PhaseOfFlightEnum = 3;
      if (on.apToGa) apToGa(0);
    }
    on.VNAV = 1;
    fma.Pitch = "VNAV_SPD";
    fma.AT = "FMC_SPD";
  } else {
    on.VNAV = value;
    fma.Pitch = "_";
    fma.AT = "ARM";
  }
  lamp(3, value);
}

}  // namespace vorlent
