#include "autoflight/clsAfds.h"

#include "autoflight/Autoflight.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "autoflight/lamps.h"
#include "autoflight/modes.h"
#include "base/numbers.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {

using namespace autoflight;

void clsAfds::Init() {
  autoflight_.xAutoP->apTurnRate(1);
  autoflight_.accessors.srv->AileronTrim(0);
  setDefaults();
  autoflight_.accessors.autoP->apMaster(0);
  autoflight_.accessors.autoP->apAltitudeHold(0);
  autoflight_.accessors.autoP->apAutoThrottle(0);
  autoflight_.xAutoP->apMaster(1);
  fmc.PhaseOfFlightEnum = Phase::Initial;
  autoflight_.xAutoP->tuning.apIntCourseDeflectionWpt = 30;
  autoflight_.xAutoP->apVertSpeedMax(1500);
  autoflight_.xAutoP->apVertSpeed(1500);
  autoflight_.annunciators = {};
  if (autoflight_.store.OperatorStart == 1) takeOperatorsStart();
  autoflight_.accessors.srv->AutoRudder(1);
  autoflight_.host.PollDispatch();
  openPerformanceDb();
  if (autoflight_.store.CycleRunning) readAircraft();
  N1SwitchStatus(3);
  autoflight_.xAutoT->apRpm(performance.ClimbN1);
  autoflight_.xAutoP->ApMachNumber(performance.ClimbMach);
}

void clsAfds::setDefaults() {
  clsXAutoP& ap = *autoflight_.xAutoP;
  ap.tuning.apMaxTrackOffset = 3;
  ap.apBankLimit(30);
  ap.apBank(25);
  ap.apRollControlFactor(0.4F);
  ap.tuning.apTurnRangeVor = 5;
  ap.tuning.apTurnRangeWpt = 3;
  ap.tuning.apBankLimitLowAlt = 8;
  ap.tuning.apBankLimitHighAlt = 30;
  ap.tuning.apMaxBankCourseDeviation = 30;
}

void clsAfds::takeOperatorsStart() {
  if (const auto client = autoflight_.host.firstClient()) autoflight_.store.FmcName = *client;
  ExecFlightplan_ = 1;
  ExtraPollEachCycle_ = true;
}

void clsAfds::ResetRelay(int n) { Relay_ = toInt16(n); }

void clsAfds::LNAV(std::int16_t value) {
  if (fmc.MaxWaypointId < 1) {
    LNAV_ = 0;
    return;
  }
  clsXAutoP& ap = *autoflight_.xAutoP;
  ap.KillRollModes();
  if (isOn(value)) {
    setActiveLeg();
    ap.apWaypointHold(1);
  } else {
    ap.apWaypointHold(0);
  }
  LNAV_ = value;
  autoflight_.accessors.autoP->apMcpModes(LnavLamp, value);
}

void clsAfds::VNAV(std::int16_t value) {
  if (fmc.MaxWaypointId < 1) return;
  Annunciators& shown = autoflight_.annunciators;
  if (isOn(value)) {
    clearForVnav();
    shown.vnavFlies();
    shown.planSpeedFlies();
  } else {
    shown.pitchModeEnds();
    shown.thrustWaits();
  }
  VNAV_ = value;
  autoflight_.accessors.autoP->apMcpModes(VnavLamp, value);
}

void clsAfds::clearForVnav() {
  clsXAutoP& ap = *autoflight_.xAutoP;
  ap.KillPitchModes();
  clear(ap, modes::LevelChange);
  clear(ap, modes::AltAcquire);
  if (fmc.PhaseOfFlightEnum >= Phase::Cruise) return;
  fmc.PhaseOfFlightEnum = Phase::Climb;
  clear(ap, modes::ToGa);
}

void clsAfds::setActiveLeg() {
  leg.LegToRow = ActiveFpIndex();
  leg.LegFromRow = ActiveFpIndex_;
}

}  // namespace vorlent
