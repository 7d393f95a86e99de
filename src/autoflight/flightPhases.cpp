#include <string>

#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/modes.h"
#include "autoflight/planSteps.h"
#include "flightplan/verticalProfile.h"
#include "platform/StatusLine.h"
#include "store/modPublic.h"

namespace vorlent::autoflight {
namespace {

/// One cycle's tests, in their order.
class Phases {
 public:
  explicit Phases(Autoflight& autoflight)
      : autoflight_(autoflight),
        v_(autoflight.store),
        ap_(*autoflight.xAutoP),
        afds_(*autoflight.afds),
        phase_(autoflight.afds->fmc.PhaseOfFlightEnum) {}

  void update() {
    takeOff();
    if (phase_ == Phase::TakeoffRoll && !isOn(ap_.apToGa())) endTakeoff();
    if (phase_ == Phase::Climb) climb();
    if (phase_ == Phase::Cruise) cruise();
    if (phase_ == Phase::PreDescent) preDescend();
    if (phase_ == Phase::Descent) descend();
    if (phase_ == Phase::Approach) approach();
  }

 private:
  static constexpr std::int32_t InTheAirFrom_ft = 3001;

  void takeOff() {
    const bool before = phase_ < Phase::TakeoffRoll;
    const bool high = v_.RadioAltitude >= InTheAirFrom_ft;
    if (isOn(ap_.apToGa()) || (before && !high && hasTakeoffThrust()))
      phase_ = Phase::TakeoffRoll;
    else if (before && high)
      phase_ = Phase::Climb;
  }

  bool hasTakeoffThrust() const {
    constexpr float Rolling_kt = 10;
    return v_.Ias > Rolling_kt && double{v_.Engines(1).N1} >= afds_.performance.TakeoffN1;
  }

  void endTakeoff() {
    phase_ = Phase::Climb;
    ap_.apBankLimit(ap_.tuning.apBankLimitHighAlt);
    log("eclimb");
  }

  void climb() {
    constexpr double BelowCruise_ft = 500;
    const double nearCruise_ft = afds_.performance.CruiseAlt() - BelowCruise_ft;
    if (v_.AircraftAltitude > nearCruise_ft && isOn(ap_.apAltitudeHold())) {
      phase_ = Phase::Cruise;
      log("ecruise");
    }
    resetOnGround();
  }

  /// docs/peculiarities.md: profile without T/D.
  void cruise() {
    if (FindTodPassed(walkedProfile(afds_.plan), activeRow().Name).found) {
      phase_ = Phase::PreDescent;
      log("epredescent");
    }
    if (isDescentCommanded()) {
      phase_ = Phase::Descent;
      log("edescent");
    }
    resetOnGround();
  }

  /// A descent that the panel commands is not logged.
  void preDescend() {
    if (descentBegins(activeRow(), afds_.leg.DxToNextWpt, afds_.leg.DxToTurnPoint)) {
      phase_ = Phase::Descent;
      leaveCruiseAltitude();
      log("edescent");
    }
    if (isDescentCommanded()) phase_ = Phase::Descent;
    resetOnGround();
  }

  void leaveCruiseAltitude() {
    const double panel_ft = ap_.apMcpAltitude();
    if (v_.AircraftAltitude <= panel_ft || panel_ft >= afds_.performance.CruiseAlt()) return;
    clear(ap_, modes::AltitudeHold);
    afds_.VNAV(1);
  }

  void descend() {
    constexpr float Stopping_kt = 30;
    if (approachBegins(activeRow(), afds_.leg.DxToNextWpt)) {
      phase_ = Phase::Approach;
      log("eapproach");
    }
    if (v_.Ias < Stopping_kt && v_.OnGround == 1) {
      phase_ = Phase::Landed;
      clear(afds_, modes::Vnav);
      clear(afds_, modes::Lnav);
    }
  }

  void approach() {
    constexpr std::int32_t DirectorOffBelow_ft = 50;
    constexpr std::int32_t LandedBelow_ft = 100;
    if (v_.RadioAltitude < DirectorOffBelow_ft) v_.FdActive = 0;
    if (v_.RadioAltitude >= LandedBelow_ft || v_.Tas != 0) return;
    phase_ = Phase::Landed;
    ap_.apLocalizerCapture(0);
    ap_.apGsCapture(0);
  }

  /// docs/peculiarities.md: vertical speed that waits.
  bool isDescentCommanded() const {
    constexpr float Descending_fpm = -499;
    return ap_.apVertSpeed() < Descending_fpm ||
           (ap_.apLevelChange() >= 1 && afds_.DescentFlag() >= 1);
  }

  void resetOnGround() {
    if (v_.OnGround == 1) phase_ = Phase::Reset;
  }

  const FlightPlanRecord& activeRow() const {
    return planRow(afds_.plan.FlightPlan, afds_.ActiveFpIndex());
  }

  void log(const std::string& word) const {
    if (v_.LogVerbose) autoflight_.status.WriteLog("switch to FlightPhases." + word);
  }

  Autoflight& autoflight_;
  modPublic& v_;
  clsXAutoP& ap_;
  clsAfds& afds_;
  std::int16_t& phase_;
};

}  // namespace

void UpdateFlightPhase(Autoflight& autoflight) { Phases(autoflight).update(); }

}  // namespace vorlent::autoflight
