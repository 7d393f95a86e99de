#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "autoflight/modeFlags.h"
#include "base/numbers.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {

using namespace autoflight;

clsXAutoP::clsXAutoP(Autoflight& autoflight) : autoflight_(autoflight) {
  autoflight_.store.ApEngaged = 0;
}

std::int16_t clsXAutoP::ApEngaged() const { return autoflight_.store.ApEngaged; }

void clsXAutoP::apMaster(std::int16_t value) {
  apMaster_ = value;
  autoflight_.accessors.autoP->apMcpModes(MasterLamp, value);
}

void clsXAutoP::ApEngaged(std::int16_t value) {
  autoflight_.store.ApEngaged = value;
  rewriteAnnunciators();
  steerWhereNoMode(value);
}

void clsXAutoP::rewriteAnnunciators() {
  struct Mode {
    std::int16_t (clsXAutoP::*read)() const;
    void (clsXAutoP::*write)(std::int16_t);
  };
  constexpr Mode Modes[] = {
      {&clsXAutoP::apHeadingHold, &clsXAutoP::apHeadingHold},
      {&clsXAutoP::apLocalizerHold, &clsXAutoP::apLocalizerHold},
      {&clsXAutoP::apBackCourseHold, &clsXAutoP::apBackCourseHold},
      {&clsXAutoP::apAirspeedHoldByPitch, &clsXAutoP::apAirspeedHoldByPitch},
      {&clsXAutoP::apAltitudeHold, &clsXAutoP::apAltitudeHold},
      {&clsXAutoP::apAttitudeHold, &clsXAutoP::apAttitudeHold},
      {&clsXAutoP::apGlideslopeHold, &clsXAutoP::apGlideslopeHold},
  };
  for (const Mode& mode : Modes)
    if (isOn((this->*mode.read)())) (this->*mode.write)(1);
}

/// A channel with a mode of its own leaves control-wheel steering, another one takes it up when the
/// autopilot is engaged. Either way the present attitude becomes the pitch target, so that engaging
/// does not jerk.
void clsXAutoP::steerWhereNoMode(std::int16_t engaged) {
  clsAfds& afds = *autoflight_.afds;
  if (isOn(PitchModeActive_) || engaged < 1) {
    apCwsPitchMode(0);
    afds.CwsPitchEngagedMode = "_";
  } else if (engaged == 1) {
    apCwsPitchMode(1);
    afds.CwsPitchEngagedMode = "CWS_P";
  }
  if (isOn(RollModeActive_) || engaged < 1) {
    apCwsRollMode(0);
    afds.CwsRollEngagedMode = "_";
  } else if (engaged == 1) {
    apCwsRollMode(1);
    afds.CwsRollEngagedMode = "CWS_R";
  }
}

void clsXAutoP::setCmd(std::int16_t& flag, std::int16_t value, std::int16_t lamp) {
  autoflight_.afds->AutopilotMode = value == 1 ? "CMD" : "FD";
  flag = value;
  autoflight_.accessors.autoP->apMcpModes(lamp, value);
}

void clsXAutoP::apCmdLeft(std::int16_t value) { setCmd(apCmdLeft_, value, CmdLeftLamp); }
void clsXAutoP::apCmdRight(std::int16_t value) { setCmd(apCmdRight_, value, CmdRightLamp); }

void clsXAutoP::setCws(std::int16_t& flag, std::int16_t value, std::int16_t lamp) {
  clsAfds& afds = *autoflight_.afds;
  if (value == 1) {
    KillPitchModes();
    KillRollModes();
    afds.AutopilotMode = "CWS";
    afds.RollEngagedMode = afds.RollArmedMode = "_";
    afds.PitchEngagedMode = afds.PitchArmedMode = "_";
  } else {
    afds.AutopilotMode = "FD";
  }
  flag = value;
  apCwsRollMode(value);
  apCwsPitchMode(value);
  autoflight_.accessors.autoP->apMcpModes(lamp, value);
}

void clsXAutoP::apCwsLeft(std::int16_t value) { setCws(apCwsLeft_, value, CwsLeftLamp); }
void clsXAutoP::apCwsRight(std::int16_t value) { setCws(apCwsRight_, value, CwsRightLamp); }

void clsXAutoP::apCwsPitchMode(std::int16_t value) {
  apCwsPitchMode_ = value;
  apPitch(toSingle(double{autoflight_.store.Pitch} + 0.2));
}

void clsXAutoP::apToGa(std::int16_t value) {
  clsAfds& afds = *autoflight_.afds;
  apToGa_ = value;
  if (value == 1) {
    afds.ATEngagedMode = "N1";
    if (!isOn(afds.LNAV()) && !isOn(RollModeActive_)) apHeadingHold(1);
  } else {
    afds.ATEngagedMode = isOn(autoflight_.xAutoT->apAutoThrottle()) ? "ARM" : "_";
  }
  autoflight_.accessors.autoP->apMcpModes(ToGaLamp, value);
}

void clsXAutoP::KillPitchModes() {
  clear(*this, &clsXAutoP::apGlideslopeHold, &clsXAutoP::apGlideslopeHold);
  clear(*this, &clsXAutoP::apAltitudeHold, &clsXAutoP::apAltitudeHold);
  clear(*this, &clsXAutoP::apAirspeedHoldByPitch, &clsXAutoP::apAirspeedHoldByPitch);
  clear(*this, &clsXAutoP::apVSpeedHold, &clsXAutoP::apVSpeedHold);
  clear(*this, &clsXAutoP::apAttitudeHold, &clsXAutoP::apAttitudeHold);
  clear(*this, &clsXAutoP::apCwsPitchMode, &clsXAutoP::apCwsPitchMode);
  autoflight_.afds->CwsPitchEngagedMode = "_";
  clear(*this, &clsXAutoP::apToGa, &clsXAutoP::apToGa);
}

/// The radio modes survive, the yaw damper does not. docs/peculiarities.md: yaw damper.
void clsXAutoP::KillRollModes() {
  clear(*this, &clsXAutoP::apWaypointHold, &clsXAutoP::apWaypointHold);
  clear(*this, &clsXAutoP::apHeadingHold, &clsXAutoP::apHeadingHold);
  clear(*this, &clsXAutoP::apBackCourseHold, &clsXAutoP::apBackCourseHold);
  apYawDamper(0);
  workingRollFactor_ = apRollControlFactor_;
  apCwsRollMode(0);
  autoflight_.afds->CwsRollEngagedMode = "_";
}

}  // namespace vorlent
