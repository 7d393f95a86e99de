#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "autoflight/AutoflightTest.h"
#include "autoflight/planSteps.h"

namespace vorlent {

/// An autopilot with a plan whose aircraft is halfway along the first leg, 5000 ft above the
/// ground. The plan's host is "fmc1".
class PlannedTest : public AutoflightTest {
 protected:
  void SetUp() override {
    AutoflightTest::SetUp();
    takeOff();
  }

  void takeOff() {
    renew();
    modPublic& v = store();
    v.FmcName = "fmc1";
    v.CycleRunning = true;
    v.Latitude = 50.251F;
    v.Longitude = 10.25F;
    v.RadioAltitude = 5000;
    v.AircraftAltitude = v.PrevAltitude = 10000;
    v.Ias = v.AvgIas = v.PrevAvgIas = 250;
    v.TrueHeading = 33;
    givePlan();
    ap().tuning.apMaxTrackOffset = 3;
    ap().tuning.apPitchSensitivityFix = 300;
    ap().tuning.apVspeedSensitivityFix = 90;
    ap().tuning.apPitchControlfactor = 20;
    ap().tuning.apBankLimitLowAlt = 8;
    ap().tuning.apBankLimitHighAlt = 30;
    bus.writes.clear();
    t.networkFiles.changes.clear();
    t.folder.write("log.txt", "");
  }

  FlightPlanRecord& row(int n) { return afds().plan.FlightPlan.at(static_cast<std::size_t>(n)); }
  std::int16_t& phase() { return afds().fmc.PhaseOfFlightEnum; }
  Autoflight& autoflight() { return t.server.autoflight; }

  /// The lines of log.txt since the last call.
  Texts logged() {
    std::istringstream text(t.log());
    t.folder.write("log.txt", "");
    Texts lines;
    for (std::string line; std::getline(text, line);)
      lines.push_back(line.substr(0, line.find('\r')));
    return lines;
  }
};

}  // namespace vorlent
