#include "autoflight/clsAfds.h"

#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "autoflight/modeFlags.h"
#include "base/numbers.h"
#include "clientlink/frmConnect.h"
#include "core/Server.h"
#include "core/frmMainClient.h"
#include "core/modMain.h"
#include "simlink/clsAutoP.h"
#include "simlink/clsSrv.h"

namespace vorlent {

using namespace autoflight;

void clsAfds::Init() {
  server_.xAutoP->apTurnRate(1);
  server_.srv->AileronTrim(0);
  setDefaults();
  server_.autoP->apMaster(0);
  server_.autoP->apAltitudeHold(0);
  server_.autoP->apAutoThrottle(0);
  server_.xAutoP->apMaster(1);
  PhaseOfFlightEnum = Phase::Initial;
  server_.xAutoP->apIntCourseDeflectionWpt = 30;
  server_.xAutoP->apVertSpeedMax(1500);
  server_.xAutoP->apVertSpeed(1500);
  clearModeStrings();
  if (server_.store.OperatorStart == 1) takeOperatorsStart();
  server_.srv->AutoRudder(1);
  server_.main->PollDispatch();
  if (server_.store.CycleRunning) readAircraft();
  N1SwitchStatus(3);
  server_.xAutoT->apRpm(ClimbN1_);
  server_.xAutoP->ApMachNumber(ClimbMach);
}

void clsAfds::setDefaults() {
  clsXAutoP& ap = *server_.xAutoP;
  ap.apMaxTrackOffset = 3;
  ap.apBankLimit(30);
  ap.apBank(25);
  ap.apRollControlFactor(0.4F);
  ap.apTurnRangeVor = 5;
  ap.apTurnRangeWpt = 3;
  ap.apBankLimitLowAlt = 8;
  ap.apBankLimitHighAlt = 30;
  ap.apMaxBankCourseDeviation = 30;
}

void clsAfds::clearModeStrings() {
  for (std::string* mode : {&ATEngagedMode, &RollEngagedMode, &PitchEngagedMode, &RollArmedMode,
                            &PitchArmedMode, &CwsRollEngagedMode, &CwsPitchEngagedMode})
    *mode = "_";
  AutopilotMode = "FD";
}

void clsAfds::takeOperatorsStart() {
  if (!server_.connect.empty()) server_.mainClient->FmcName(server_.connect.front()->remoteHost());
  ExecFlightplan_ = 1;
  ExtraPollEachCycle_ = true;
}

void clsAfds::ResetRelay(int n) { Relay_ = toInt16(n); }

void clsAfds::LNAV(std::int16_t value) {
  if (MaxWaypointId < 1) {
    LNAV_ = 0;
    return;
  }
  clsXAutoP& ap = *server_.xAutoP;
  ap.KillRollModes();
  if (value == 1) {
    setActiveLeg();
    ap.apWaypointHold(1);
  } else {
    ap.apWaypointHold(0);
  }
  LNAV_ = value;
  RollEngagedMode = value == 1 ? "LNAV" : "_";
  server_.autoP->apMcpModes(LnavLamp, value);
}

void clsAfds::VNAV(std::int16_t value) {
  if (MaxWaypointId < 1) return;
  clsXAutoP& ap = *server_.xAutoP;
  if (value == 1) {
    ap.KillPitchModes();
    clear(ap, &clsXAutoP::apLevelChange, &clsXAutoP::apLevelChange);
    clear(ap, &clsXAutoP::apAltAcquire, &clsXAutoP::apAltAcquire);
    if (PhaseOfFlightEnum < Phase::Cruise) {
      PhaseOfFlightEnum = Phase::Climb;
      clear(ap, &clsXAutoP::apToGa, &clsXAutoP::apToGa);
    }
  }
  VNAV_ = value;
  PitchEngagedMode = value == 1 ? "VNAV_SPD" : "_";
  ATEngagedMode = value == 1 ? "FMC_SPD" : "ARM";
  server_.autoP->apMcpModes(VnavLamp, value);
}

void clsAfds::setActiveLeg() {
  LegToRow_ = toInt16(ActiveFpIndex_ + 1);
  LegFromRow_ = ActiveFpIndex_;
}

}  // namespace vorlent
