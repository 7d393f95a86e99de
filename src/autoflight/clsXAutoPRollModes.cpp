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
  roll_.active = 0;
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
    roll_.active = 1;
  } else {
    leaveNav1();
  }
  roll_.nav1Hold = value;
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
  roll_.waypointHold = value;
}

void clsXAutoP::takeHeading() {
  KillRollModes();
  if (isOn(engagement_.toGa))
    autoflight_.annunciators.headingFlies();
  else
    annunciateRoll(&Annunciators::headingFlies);
  roll_.active = 1;
}

void clsXAutoP::leaveHeading() {
  autoflight_.annunciators.rollModeEnds();
  autoflight_.annunciators.armedRollModeEnds();
  if (isOn(roll_.nav1Hold) || isOn(roll_.localizerHold)) return;
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
  roll_.headingHold = value;
  autoflight_.accessors.autoP->apMcpModes(HeadingHoldLamp, value);
}

void clsXAutoP::apLocalizerHold(std::int16_t value) {
  if (isOn(value)) {
    annunciateRoll(&Annunciators::radioFlies);
    roll_.active = 1;
  } else {
    autoflight_.annunciators.rollModeEnds();
    fallToCwsRoll();
  }
  roll_.localizerHold = value;
}

void clsXAutoP::apLocalizerCapture(std::int16_t value) {
  if (isOn(value)) autoflight_.annunciators.radioFlies();
  roll_.localizerCapture = value;
}

void clsXAutoP::apApproachHold(std::int16_t value) {
  const bool fromRollMode = isOn(roll_.headingHold) || roll_.waypointHold > 0;
  roll_.approachHold = value;
  if (value < 1) {
    leaveNav1();
  } else if (fromRollMode) {
    turning_.workingFactor = toSingle(2 * double{turning_.controlFactor});
    autoflight_.afds->ResetRelay(1);
    autoflight_.annunciators.radioFlies();
    roll_.active = 1;
  }
  roll_.localizerHold = value;
  apLocalizerCapture(0);
  if (value < 1) {
    leaveGlideslope();
  } else if (fromRollMode) {
    takeGlideslope();
  }
  pitch_.glideslopeHold = value;
  apGsCapture(0);
  autoflight_.accessors.autoP->apMcpModes(ApproachHoldLamp, value);
}

void clsXAutoP::endApproachArming() {
  roll_.approachHold = 0;
  autoflight_.accessors.autoP->apMcpModes(ApproachHoldLamp, 0);
}

void clsXAutoP::apBackCourseHold(std::int16_t value) {
  if (isOn(value)) {
    KillRollModes();
    roll_.active = 1;
  } else {
    roll_.active = 0;
  }
  roll_.backCourseHold = value;
}

}  // namespace vorlent
