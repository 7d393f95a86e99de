#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/modes.h"
#include "autoflight/planSteps.h"
#include "base/numbers.h"
#include "flightplan/legCheck.h"
#include "platform/StatusLine.h"
#include "store/modPublic.h"

namespace vorlent::autoflight {
namespace {

/// Shows the leg at its end, however the geometry ended.
class Shown {
 public:
  explicit Shown(Autoflight& autoflight) : autoflight_(autoflight) {}
  Shown(const Shown&) = delete;
  Shown& operator=(const Shown&) = delete;
  ~Shown() {
    const Leg& leg = autoflight_.afds->leg;
    autoflight_.afds->fmc.DxToNextWaypoint = leg.DxToNextWpt;
    autoflight_.afds->fmc.CrsToNextWaypoint = leg.CourseDirect;
    autoflight_.store.CrossingLat = leg.CrossingLat;
    autoflight_.store.CrossingLon = leg.CrossingLon;
  }

 private:
  Autoflight& autoflight_;
};

void updateGeometry(Autoflight& autoflight) {
  const Shown shown(autoflight);
  const modPublic& v = autoflight.store;
  float& turnRange = autoflight.xAutoP->tuning.apTurnRangeWpt;
  turnRange = toSingle(turnDiameter_nm(v.Tas));
  clsAfds& afds = *autoflight.afds;
  updateLeg(afds.leg, afds.plan.FlightPlan,
            {v.Latitude, v.Longitude, static_cast<double>(v.GroundSpeed), turnRange});
}

/// docs/peculiarities.md: verbose for good.
void announce(Autoflight& autoflight, const std::string& waypoint) {
  autoflight.afds->WriteFmcFile("ACTIVE", waypoint);
  autoflight.afds->fmc.ActiveWpt = waypoint;
  autoflight.store.LogVerbose = true;
}

/// The bank stays where it is. docs/peculiarities.md: LNAV lost in a turn.
void loseLeg(clsAfds& afds) {
  afds.fmc.MessageId = 1;
  clear(afds, modes::Lnav);
}

LegCheck check(const Autoflight& autoflight) {
  const modPublic& v = autoflight.store;
  const clsAfds& afds = *autoflight.afds;
  const auto stored = static_cast<std::int16_t>(afds.ActiveFpIndex() - 1);
  return checkLeg(afds.leg, afds.plan.FlightPlan,
                  {v.RadioAltitude, v.Latitude, v.Longitude, v.TrueHeading,
                   autoflight.xAutoP->tuning.apMaxTrackOffset, stored, v.LogVerbose});
}

}  // namespace

void updateLegGeometry(Autoflight& autoflight) {
  updateGeometry(autoflight);
  const LegCheck found = check(autoflight);
  if (found.announced) announce(autoflight, *found.announced);
  if (found.lost) loseLeg(*autoflight.afds);
  for (const std::string& line : found.log) autoflight.status.WriteLog(line);
  autoflight.afds->fmc.LnavCriteria = found.LnavCriteria;
}

}  // namespace vorlent::autoflight
