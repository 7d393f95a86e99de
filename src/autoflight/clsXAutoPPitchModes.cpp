#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/lamps.h"
#include "autoflight/modes.h"
#include "base/numbers.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {

using namespace autoflight;

void clsXAutoP::apAltitudeHold(std::int16_t value) {
  Annunciators& shown = autoflight_.annunciators;
  apPitch(toSingle(double{autoflight_.store.Pitch} + 0.4));
  if (isOn(value)) {
    KillPitchModes();
    clear(*this, modes::LevelChange);
    clear(*this, modes::AltAcquire);
    autoflight_.afds->ResetRelay(1);
    if (isOn(ApEngaged()))
      shown.altitudeHoldFlies();
    else
      shown.altitudeHoldWaits();
    PitchModeActive_ = 1;
  } else {
    leavePitchMode();
  }
  apAltitudeHold_ = value;
  autoflight_.accessors.autoP->apMcpModes(AltitudeHoldLamp, value);
}

void clsXAutoP::apAttitudeHold(std::int16_t value) {
  if (isOn(value)) KillPitchModes();
  PitchModeActive_ = RollModeActive_ = isOn(value) ? 1 : 0;
  apAttitudeHold_ = value;
  apPitch(autoflight_.store.Pitch);
}

void clsXAutoP::apAirspeedHoldByPitch(std::int16_t value) {
  if (isOn(value))
    autoflight_.annunciators.speedByPitchFlies();
  else
    autoflight_.annunciators.pitchModeEnds();
  PitchModeActive_ = isOn(value) ? 1 : 0;
  apAirspeedHoldByPitch_ = value;
  pitchMemory_ = {autoflight_.store.Pitch, autoflight_.store.Pitch};
}

void clsXAutoP::apVSpeedHold(std::int16_t value) {
  if (isOn(value)) {
    KillPitchModes();
    autoflight_.afds->ResetRelay(1);
    PitchModeActive_ = 1;
    autoflight_.annunciators.verticalSpeedFlies();
  } else {
    leavePitchMode();
  }
  autoflight_.accessors.autoP->apMcpModes(VSpeedHoldLamp, value);
  apVSpeedHold_ = value;
}

/// The column takes the channel over, as far as the annunciators go.
void clsXAutoP::leavePitchMode() {
  autoflight_.annunciators.pitchModeEnds();
  autoflight_.annunciators.columnTakesPitch();
  PitchModeActive_ = 0;
}

void clsXAutoP::leaveGlideslope() {
  apCwsPitchMode(1);
  leavePitchMode();
}

void clsXAutoP::apGlideslopeHold(std::int16_t value) {
  if (isOn(value)) {
    KillPitchModes();
    PitchModeActive_ = 1;
  } else {
    leaveGlideslope();
  }
  autoflight_.accessors.autoP->apMcpModes(GlideslopeHoldLamp, value);
  apGlideslopeHold_ = value;
}

void clsXAutoP::apLevelChange(std::int16_t value) {
  Annunciators& shown = autoflight_.annunciators;
  if (isOn(value)) {
    KillPitchModes();
    apAltitude(apMcpAltitude());
    if (isOn(autoflight_.afds->VNAV()))
      shown.vnavFlies();
    else
      shown.speedByPitchFlies();
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
  if (isOn(value)) {
    KillPitchModes();
    autoflight_.afds->ResetRelay(1);
    autoflight_.annunciators.altitudeCaptureFlies();
    PitchModeActive_ = 1;
  } else {
    autoflight_.annunciators.altitudeHoldFlies();
    PitchModeActive_ = 0;
  }
  apAltAcquire_ = value;
}

}  // namespace vorlent
