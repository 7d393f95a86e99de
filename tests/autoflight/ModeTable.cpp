#include "autoflight/ModeTable.h"

#include <algorithm>
#include <iterator>

#include "core/Server.h"
#include "core/singletons.h"

namespace vorlent {
namespace {

using Condition = bool (*)(const Server&);

const clsXAutoP& ap(const Server& s) { return *s.autoflight.xAutoP; }
const clsXAutoT& at(const Server& s) { return *s.autoflight.xAutoT; }

bool always(const Server&) { return true; }
bool flyingRadio(const Server& s) { return ap(s).apNav1Hold() || ap(s).apLocalizerHold(); }
bool speedByThrottle(const Server& s) {
  return at(s).apAutoThrottle() && at(s).apAirspeedHoldByRpm();
}

/// An annunciation and what has to be so while it stands. Any other text must not stand at all. A
/// blank, a mode that is only armed, the speed that pitch holds and the take-off say nothing about
/// the flags: what switches them off leaves the text to the mode that comes next.
struct AnnunciationRow {
  const char* annunciator;
  std::string Annunciators::*shown;
  const char* text;
  Condition allowed;
};

#define ROW(annunciator, text, allowed) \
  { #annunciator, &Annunciators::annunciator, text, allowed }

const AnnunciationRow Annunciations[] = {
    ROW(RollEngagedMode, "_", always),
    ROW(RollEngagedMode, "LNAV", [](const Server& s) { return ap(s).apWaypointHold() == 1; }),
    ROW(RollEngagedMode, "VOR/LOC", flyingRadio),
    ROW(RollEngagedMode, "HDG_SEL", [](const Server& s) { return ap(s).apHeadingHold() == 1; }),

    ROW(PitchEngagedMode, "_", always),
    ROW(PitchEngagedMode, "V/S", [](const Server& s) { return ap(s).apVSpeedHold() == 1; }),
    ROW(PitchEngagedMode, "VNAV_SPD",
        [](const Server& s) { return s.autoflight.afds->VNAV() == 1; }),
    ROW(PitchEngagedMode, "MCP_SPD", always),
    ROW(PitchEngagedMode, "TO/GA", always),
    // Shown when altitude acquire is left, too.
    ROW(PitchEngagedMode, "ALT_HOLD", [](const Server& s) { return ap(s).apAltAcquire() == 0; }),
    ROW(PitchEngagedMode, "ALT_ACQ", [](const Server& s) { return ap(s).apAltAcquire() == 1; }),
    // Altitude hold that was pressed while nothing was engaged.
    ROW(PitchEngagedMode, "ARM", [](const Server& s) { return ap(s).apAltitudeHold() == 1; }),

    ROW(ATEngagedMode, "_", always),
    ROW(ATEngagedMode, "ARM", always),
    ROW(ATEngagedMode, "N1",
        [](const Server& s) {
          return (at(s).apRpmHold() && at(s).apAutoThrottle()) || ap(s).apToGa() == 1;
        }),
    ROW(ATEngagedMode, "MCP_SPD", speedByThrottle),
    ROW(ATEngagedMode, "FMC_SPD", [](const Server& s) { return s.autoflight.afds->VNAV() == 1; }),
    ROW(ATEngagedMode, "THR_HLD",
        [](const Server& s) { return at(s).apThrottleHold() && at(s).apAutoThrottle(); }),
    ROW(ATEngagedMode, "RETARD", [](const Server& s) { return at(s).apRetard() == 1; }),

    ROW(AutopilotMode, "FD", always),
    ROW(AutopilotMode, "CMD",
        [](const Server& s) { return ap(s).apCmdLeft() || ap(s).apCmdRight(); }),
    ROW(AutopilotMode, "CWS",
        [](const Server& s) { return ap(s).apCwsLeft() || ap(s).apCwsRight(); }),

    ROW(CwsRollEngagedMode, "_", always),
    ROW(CwsRollEngagedMode, "CWS_R", always),
    ROW(CwsPitchEngagedMode, "_", always),
    ROW(CwsPitchEngagedMode, "CWS_P", always),
    ROW(RollArmedMode, "_", always),
    ROW(PitchArmedMode, "_", always),
};

struct ExclusionRow {
  const char* rule;
  Condition holds;
};

int throttleModes(const Server& s) {
  return at(s).apAirspeedHoldByRpm() + at(s).apRetard() + at(s).apRpmHold() +
         at(s).apThrottleHold();
}
int heldPitchModes(const Server& s) {
  return ap(s).apAltitudeHold() + ap(s).apVSpeedHold() + ap(s).apAttitudeHold();
}

const ExclusionRow Exclusions[] = {
    {"one throttle mode at most", [](const Server& s) { return throttleModes(s) <= 1; }},
    {"one of altitude hold, V/S and attitude hold at most",
     [](const Server& s) { return heldPitchModes(s) <= 1; }},
    {"altitude hold without level change and acquire",
     [](const Server& s) {
       return !ap(s).apAltitudeHold() || !(ap(s).apLevelChange() || ap(s).apAltAcquire());
     }},
};

}  // namespace

std::string brokenModeRows(const Server& server) {
  std::string broken;
  for (const AnnunciationRow& row : Annunciations)
    if (server.autoflight.annunciators.*row.shown == row.text && !row.allowed(server))
      broken += std::string(row.annunciator) + " shows " + row.text + "\n";
  for (const ExclusionRow& row : Exclusions)
    if (!row.holds(server)) broken += std::string("not: ") + row.rule + "\n";
  std::vector<bool> seen(annunciationRows());
  markStanding(server, seen);
  constexpr int AnnunciatorCount = 8;
  if (std::count(seen.begin(), seen.end(), true) != AnnunciatorCount)
    broken += "an annunciator shows a text that is not in the table\n";
  return broken;
}

std::size_t annunciationRows() { return std::size(Annunciations); }

void markStanding(const Server& server, std::vector<bool>& seen) {
  for (std::size_t row = 0; row < annunciationRows(); ++row)
    if (server.autoflight.annunciators.*Annunciations[row].shown == Annunciations[row].text)
      seen[row] = true;
}

std::string annunciationRow(std::size_t row) {
  return std::string(Annunciations[row].annunciator) + " " + Annunciations[row].text;
}

}  // namespace vorlent
