#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "autoflight/lamps.h"
#include "autoflight/modes.h"
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
  engagement_.master = value;
  autoflight_.accessors.autoP->apMcpModes(MasterLamp, value);
}

void clsXAutoP::ApEngaged(std::int16_t value) {
  autoflight_.store.ApEngaged = value;
  rewriteAnnunciators();
  steerWhereNoMode(value);
}

void clsXAutoP::rewriteAnnunciators() {
  for (const auto& mode :
       {modes::HeadingHold, modes::LocalizerHold, modes::BackCourseHold, modes::AirspeedHoldByPitch,
        modes::AltitudeHold, modes::AttitudeHold, modes::GlideslopeHold})
    if (isOn(*this, mode)) set(*this, mode, 1);
}

/// A channel with a mode of its own leaves control-wheel steering, another one takes it up when the
/// autopilot is engaged. Either way the present attitude becomes the pitch target, so that engaging
/// does not jerk.
void clsXAutoP::steerWhereNoMode(std::int16_t engaged) {
  Annunciators& shown = autoflight_.annunciators;
  if (isOn(pitch_.active) || engaged < 1) {
    apCwsPitchMode(0);
    shown.columnLeavesPitch();
  } else if (isOn(engaged)) {
    apCwsPitchMode(1);
    shown.columnTakesPitch();
  }
  if (isOn(roll_.active) || engaged < 1) {
    apCwsRollMode(0);
    shown.wheelLeavesRoll();
  } else if (isOn(engaged)) {
    apCwsRollMode(1);
    shown.wheelTakesRoll();
  }
}

void clsXAutoP::setCmd(std::int16_t& flag, std::int16_t value, std::int16_t lamp) {
  Annunciators& shown = autoflight_.annunciators;
  if (isOn(value))
    shown.commandEngages();
  else
    shown.sideDisengages();
  flag = value;
  autoflight_.accessors.autoP->apMcpModes(lamp, value);
}

void clsXAutoP::apCmdLeft(std::int16_t value) { setCmd(engagement_.cmdLeft, value, CmdLeftLamp); }
void clsXAutoP::apCmdRight(std::int16_t value) {
  setCmd(engagement_.cmdRight, value, CmdRightLamp);
}

void clsXAutoP::setCws(std::int16_t& flag, std::int16_t value, std::int16_t lamp) {
  Annunciators& shown = autoflight_.annunciators;
  if (isOn(value)) {
    KillPitchModes();
    KillRollModes();
    shown.wheelSteeringEngages();
  } else {
    shown.sideDisengages();
  }
  flag = value;
  apCwsRollMode(value);
  apCwsPitchMode(value);
  autoflight_.accessors.autoP->apMcpModes(lamp, value);
}

void clsXAutoP::apCwsLeft(std::int16_t value) { setCws(engagement_.cwsLeft, value, CwsLeftLamp); }
void clsXAutoP::apCwsRight(std::int16_t value) {
  setCws(engagement_.cwsRight, value, CwsRightLamp);
}

void clsXAutoP::apCwsPitchMode(std::int16_t value) {
  pitch_.cws = value;
  apPitch(toSingle(double{autoflight_.store.Pitch} + 0.2));
}

void clsXAutoP::apToGa(std::int16_t value) {
  engagement_.toGa = value;
  if (isOn(value)) {
    autoflight_.annunciators.n1Flies();
    if (!isOn(autoflight_.afds->LNAV()) && !isOn(roll_.active)) apHeadingHold(1);
  } else {
    autoflight_.xAutoT->annunciate(&Annunciators::thrustWaits);
  }
  autoflight_.accessors.autoP->apMcpModes(ToGaLamp, value);
}

void clsXAutoP::KillPitchModes() {
  for (const auto& mode : {modes::GlideslopeHold, modes::AltitudeHold, modes::AirspeedHoldByPitch,
                           modes::VSpeedHold, modes::AttitudeHold, modes::CwsPitchMode})
    clear(*this, mode);
  autoflight_.annunciators.columnLeavesPitch();
  clear(*this, modes::ToGa);
}

/// The radio modes survive, the yaw damper does not. docs/peculiarities.md: yaw damper.
void clsXAutoP::KillRollModes() {
  for (const auto& mode : {modes::WaypointHold, modes::HeadingHold, modes::BackCourseHold})
    clear(*this, mode);
  apYawDamper(0);
  turning_.workingFactor = turning_.controlFactor;
  apCwsRollMode(0);
  autoflight_.annunciators.wheelLeavesRoll();
}

}  // namespace vorlent
