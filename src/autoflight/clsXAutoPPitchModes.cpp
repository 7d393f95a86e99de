#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/modeFlags.h"
#include "base/numbers.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {

using namespace autoflight;

void clsXAutoP::apAltitudeHold(std::int16_t value) {
  clsAfds& afds = *autoflight_.afds;
  apPitch(toSingle(double{autoflight_.store.Pitch} + 0.4));
  if (value == 1) {
    KillPitchModes();
    clear(*this, &clsXAutoP::apLevelChange, &clsXAutoP::apLevelChange);
    clear(*this, &clsXAutoP::apAltAcquire, &clsXAutoP::apAltAcquire);
    afds.ResetRelay(1);
    afds.PitchEngagedMode = isOn(ApEngaged()) ? "ALT_HOLD" : "ARM";
    PitchModeActive_ = 1;
  } else {
    afds.PitchEngagedMode = "_";
    afds.CwsPitchEngagedMode = "CWS_P";
    PitchModeActive_ = 0;
  }
  apAltitudeHold_ = value;
  autoflight_.accessors.autoP->apMcpModes(AltitudeHoldLamp, value);
}

void clsXAutoP::apAttitudeHold(std::int16_t value) {
  if (value == 1) KillPitchModes();
  PitchModeActive_ = RollModeActive_ = value == 1 ? 1 : 0;
  apAttitudeHold_ = value;
  apPitch(autoflight_.store.Pitch);
}

void clsXAutoP::apAirspeedHoldByPitch(std::int16_t value) {
  autoflight_.afds->PitchEngagedMode = value == 1 ? "MCP_SPD" : "_";
  PitchModeActive_ = value == 1 ? 1 : 0;
  apAirspeedHoldByPitch_ = value;
  pitchMemory_ = {autoflight_.store.Pitch, autoflight_.store.Pitch};
}

void clsXAutoP::apVSpeedHold(std::int16_t value) {
  clsAfds& afds = *autoflight_.afds;
  if (value == 1) {
    KillPitchModes();
    afds.ResetRelay(1);
    PitchModeActive_ = 1;
    afds.PitchEngagedMode = "V/S";
  } else {
    afds.PitchEngagedMode = "_";
    afds.CwsPitchEngagedMode = "CWS_P";
    PitchModeActive_ = 0;
  }
  autoflight_.accessors.autoP->apMcpModes(VSpeedHoldLamp, value);
  apVSpeedHold_ = value;
}

void clsXAutoP::leaveGlideslope() {
  autoflight_.afds->PitchEngagedMode = "_";
  apCwsPitchMode(1);
  autoflight_.afds->CwsPitchEngagedMode = "CWS_P";
  PitchModeActive_ = 0;
}

void clsXAutoP::apGlideslopeHold(std::int16_t value) {
  if (value == 1) {
    KillPitchModes();
    PitchModeActive_ = 1;
  } else {
    leaveGlideslope();
  }
  autoflight_.accessors.autoP->apMcpModes(GlideslopeHoldLamp, value);
  apGlideslopeHold_ = value;
}

void clsXAutoP::apLevelChange(std::int16_t value) {
  clsAfds& afds = *autoflight_.afds;
  if (value == 1) {
    KillPitchModes();
    apAltitude(apMcpAltitude());
    afds.PitchEngagedMode = isOn(afds.VNAV()) ? "VNAV_SPD" : "MCP_SPD";
    PitchModeActive_ = 1;
  } else {
    apAirspeedHoldByPitch(0);
    PitchModeActive_ = 0;
  }
  apLevelChange_ = value;
  autoflight_.accessors.autoP->apMcpModes(LevelChangeLamp, value);
}

/// Leaving it shows altitude hold at once: the cycle engages that next.
void clsXAutoP::apAltAcquire(std::int16_t value) {
  clsAfds& afds = *autoflight_.afds;
  if (value == 1) {
    KillPitchModes();
    afds.ResetRelay(1);
    afds.PitchEngagedMode = "ALT_ACQ";
    PitchModeActive_ = 1;
  } else {
    afds.PitchEngagedMode = "ALT_HOLD";
    PitchModeActive_ = 0;
  }
  apAltAcquire_ = value;
}

}  // namespace vorlent
