#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/modeFlags.h"
#include "base/numbers.h"
#include "simlink/Accessors.h"

namespace vorlent {

using namespace autoflight;

void clsXAutoP::annunciateRoll(const char* engaged) {
  if (isOn(ApEngaged()))
    autoflight_.afds->RollEngagedMode = engaged;
  else
    autoflight_.afds->RollArmedMode = "_";
}

void clsXAutoP::fallToCwsRoll() {
  apCwsRollMode(1);
  autoflight_.afds->CwsRollEngagedMode = "CWS_R";
  RollModeActive_ = 0;
}

void clsXAutoP::leaveNav1() {
  autoflight_.afds->RollEngagedMode = "_";
  autoflight_.accessors.srv->AileronTrim(0);
  fallToCwsRoll();
}

void clsXAutoP::apNav1Hold(std::int16_t value) {
  if (value == 1) {
    KillRollModes();
    annunciateRoll("VOR/LOC");
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
    autoflight_.afds->RollEngagedMode = "_";
    autoflight_.accessors.srv->AileronTrim(0);
  } else {
    KillRollModes();
    autoflight_.afds->RollEngagedMode = "LNAV";
  }
  apWaypointHold_ = value;
}

void clsXAutoP::apHeadingHold(std::int16_t value) {
  clsAfds& afds = *autoflight_.afds;
  if (!isOn(afds.LNAV())) {
    if (value == 1) {
      KillRollModes();
      if (isOn(apToGa_))
        afds.RollEngagedMode = "HDG_SEL";
      else
        annunciateRoll("HDG_SEL");
      RollModeActive_ = 1;
    } else {
      afds.RollEngagedMode = afds.RollArmedMode = "_";
      if (!isOn(apNav1Hold_) && !isOn(apLocalizerHold_)) {
        autoflight_.accessors.srv->AileronTrim(0);
        fallToCwsRoll();
      }
    }
  }
  apHeadingHold_ = value;
  autoflight_.accessors.autoP->apMcpModes(HeadingHoldLamp, value);
}

void clsXAutoP::apLocalizerHold(std::int16_t value) {
  if (value == 1) {
    annunciateRoll("VOR/LOC");
    RollModeActive_ = 1;
  } else {
    autoflight_.afds->RollEngagedMode = "_";
    fallToCwsRoll();
  }
  apLocalizerHold_ = value;
}

void clsXAutoP::apLocalizerCapture(std::int16_t value) {
  if (value == 1) autoflight_.afds->RollEngagedMode = "VOR/LOC";
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
    autoflight_.afds->RollEngagedMode = "VOR/LOC";
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
  if (value == 1) {
    KillRollModes();
    RollModeActive_ = 1;
  } else {
    RollModeActive_ = 0;
  }
  apBackCourseHold_ = value;
}

}  // namespace vorlent
