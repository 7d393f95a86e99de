#include "autoflight/Autoflight.h"
#include "autoflight/Mode.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/lamps.h"
#include "base/numbers.h"
#include "simlink/Accessors.h"

namespace vorlent {

using namespace autoflight;

/// Without an engaged autopilot the mode shows nothing.
void clsXAutoP::annunciateRoll(void (Annunciators::*flies)()) {
  if (isOn(ApEngaged()))
    (autoflight_.annunciators.*flies)();
  else
    autoflight_.annunciators.armedRollModeEnds();
}

void clsXAutoP::fallToCwsRoll() {
  apCwsRollMode(1);
  autoflight_.annunciators.wheelTakesRoll();
  RollModeActive_ = 0;
}

void clsXAutoP::leaveNav1() {
  autoflight_.annunciators.rollModeEnds();
  autoflight_.accessors.srv->AileronTrim(0);
  fallToCwsRoll();
}

void clsXAutoP::apNav1Hold(std::int16_t value) {
  if (isOn(value)) {
    KillRollModes();
    annunciateRoll(&Annunciators::radioFlies);
    RollModeActive_ = 1;
  } else {
    leaveNav1();
  }
  apNav1Hold_ = value;
  autoflight_.accessors.autoP->apMcpModes(Nav1HoldLamp, value);
  apLocalizerCapture(0);
}

void clsXAutoP::apWaypointHold(std::int16_t value) {
  if (value < 1) {
    autoflight_.annunciators.rollModeEnds();
    autoflight_.accessors.srv->AileronTrim(0);
  } else {
    KillRollModes();
    autoflight_.annunciators.lnavFlies();
  }
  apWaypointHold_ = value;
}

void clsXAutoP::takeHeading() {
  KillRollModes();
  if (isOn(apToGa_))
    autoflight_.annunciators.headingFlies();
  else
    annunciateRoll(&Annunciators::headingFlies);
  RollModeActive_ = 1;
}

void clsXAutoP::leaveHeading() {
  autoflight_.annunciators.rollModeEnds();
  autoflight_.annunciators.armedRollModeEnds();
  if (isOn(apNav1Hold_) || isOn(apLocalizerHold_)) return;
  autoflight_.accessors.srv->AileronTrim(0);
  fallToCwsRoll();
}

void clsXAutoP::apHeadingHold(std::int16_t value) {
  if (!isOn(autoflight_.afds->LNAV())) {
    if (isOn(value))
      takeHeading();
    else
      leaveHeading();
  }
  apHeadingHold_ = value;
  autoflight_.accessors.autoP->apMcpModes(HeadingHoldLamp, value);
}

void clsXAutoP::apLocalizerHold(std::int16_t value) {
  if (isOn(value)) {
    annunciateRoll(&Annunciators::radioFlies);
    RollModeActive_ = 1;
  } else {
    autoflight_.annunciators.rollModeEnds();
    fallToCwsRoll();
  }
  apLocalizerHold_ = value;
}

void clsXAutoP::apLocalizerCapture(std::int16_t value) {
  if (isOn(value)) autoflight_.annunciators.radioFlies();
  apLocalizerCapture_ = value;
}

void clsXAutoP::apApproachHold(std::int16_t value) {
  const bool fromRollMode = isOn(apHeadingHold_) || apWaypointHold_ > 0;
  apApproachHold_ = value;
  if (value < 1) {
    leaveNav1();
  } else if (fromRollMode) {
    workingRollFactor_ = toSingle(2 * double{apRollControlFactor_});
    autoflight_.afds->ResetRelay(1);
    autoflight_.annunciators.radioFlies();
    RollModeActive_ = 1;
  }
  apLocalizerHold_ = value;
  apLocalizerCapture(0);
  if (value < 1) {
    leaveGlideslope();
  } else if (fromRollMode) {
    KillPitchModes();
    PitchModeActive_ = 1;
  }
  apGlideslopeHold_ = value;
  apGsCapture(0);
  autoflight_.accessors.autoP->apMcpModes(ApproachHoldLamp, value);
}

void clsXAutoP::endApproachArming() {
  apApproachHold_ = 0;
  autoflight_.accessors.autoP->apMcpModes(ApproachHoldLamp, 0);
}

void clsXAutoP::apBackCourseHold(std::int16_t value) {
  if (isOn(value)) {
    KillRollModes();
    RollModeActive_ = 1;
  } else {
    RollModeActive_ = 0;
  }
  apBackCourseHold_ = value;
}

}  // namespace vorlent
