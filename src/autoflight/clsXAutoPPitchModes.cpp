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
    pitch_.active = 1;
  } else {
    leavePitchMode();
  }
  pitch_.altitudeHold = value;
  autoflight_.accessors.autoP->apMcpModes(AltitudeHoldLamp, value);
}

void clsXAutoP::apAttitudeHold(std::int16_t value) {
  if (isOn(value)) KillPitchModes();
  pitch_.active = roll_.active = isOn(value) ? 1 : 0;
  pitch_.attitudeHold = value;
  apPitch(autoflight_.store.Pitch);
}

void clsXAutoP::apAirspeedHoldByPitch(std::int16_t value) {
  if (isOn(value))
    autoflight_.annunciators.speedByPitchFlies();
  else
    autoflight_.annunciators.pitchModeEnds();
  pitch_.active = isOn(value) ? 1 : 0;
  pitch_.airspeedHold = value;
  memory_.speed = {autoflight_.store.Pitch, autoflight_.store.Pitch};
}

void clsXAutoP::apVSpeedHold(std::int16_t value) {
  if (isOn(value)) {
    KillPitchModes();
    autoflight_.afds->ResetRelay(1);
    pitch_.active = 1;
    autoflight_.annunciators.verticalSpeedFlies();
  } else {
    leavePitchMode();
  }
  autoflight_.accessors.autoP->apMcpModes(VSpeedHoldLamp, value);
  pitch_.vSpeedHold = value;
}

/// Shows the column's steering whether or not the autopilot is engaged.
void clsXAutoP::leavePitchMode() {
  autoflight_.annunciators.pitchModeEnds();
  autoflight_.annunciators.columnTakesPitch();
  pitch_.active = 0;
}

void clsXAutoP::leaveGlideslope() {
  apCwsPitchMode(1);
  leavePitchMode();
}

/// Where the glide path is flown, a level change or a capture gives up the pitch channel too.
void clsXAutoP::takeGlideslope() {
  KillPitchModes();
  if (autoflight_.Glideslope) {
    clear(*this, modes::LevelChange);
    clear(*this, modes::AltAcquire);
    if (!isOn(*autoflight_.xAutoT, modes::AirspeedHoldByRpm))
      autoflight_.xAutoT->apAirspeedHoldByRpm(1);
    autoflight_.afds->ResetRelay(1);
    autoflight_.annunciators.glideslopeFlies();
    memory_.glideslope = {autoflight_.store.AircraftAltitude, presentAngleOfAttack_deg(), 0, false};
    apGsCapture(0);
    apPitch(autoflight_.store.Pitch);
  }
  pitch_.active = 1;
}

void clsXAutoP::apGlideslopeHold(std::int16_t value) {
  if (isOn(value))
    takeGlideslope();
  else
    leaveGlideslope();
  autoflight_.accessors.autoP->apMcpModes(GlideslopeHoldLamp, value);
  pitch_.glideslopeHold = value;
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
    pitch_.active = 1;
  } else {
    apAirspeedHoldByPitch(0);
    pitch_.active = 0;
  }
  pitch_.levelChange = value;
  autoflight_.accessors.autoP->apMcpModes(LevelChangeLamp, value);
}

/// Leaving it shows altitude hold at once: the cycle engages that next.
void clsXAutoP::apAltAcquire(std::int16_t value) {
  if (isOn(value)) {
    KillPitchModes();
    autoflight_.afds->ResetRelay(1);
    autoflight_.annunciators.altitudeCaptureFlies();
    pitch_.active = 1;
  } else {
    autoflight_.annunciators.altitudeHoldFlies();
    pitch_.active = 0;
  }
  pitch_.altAcquire = value;
}

}  // namespace vorlent
