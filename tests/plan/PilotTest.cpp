#include "plan/Pilot.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "display/records.h"
#include "plan/planRows.h"

namespace vorlent {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr double Look_s = 0.5;
constexpr int TowardsTop = 2;        ///< the leg that ends at T/D
constexpr int TowardsGlidePath = 6;  ///< the leg behind E/D

/// XAAA, ALPHA, T/D, BRAVO, 8/ED, E/D, RX-09, XBBB: eastwardFlight along the equator, 240 miles.
PlannedFlight eastwardFlight() {
  PlanTask task;
  task.aircraft = *performanceOf("737-700");
  task.runway = ArrivalRunway{{0, 4}, 90, 100};
  return planFlight(
      {{{"XAAA", {0, 0}, 100}, {"ALPHA", {0, 1}}, {"BRAVO", {0, 3}}, {"XBBB", {0, 4}, 100}}, 20000},
      task);
}

/// What the record shows; to begin with, of an aircraft on the runway with all off.
struct Shown {
  double altitude_ft = 109;
  int radioAltitude_ft = 9;
  bool onGround = true;
  double pitch_deg = 0;
  double speed_kt = 0;
  int needle = 0;
  int glideNeedle = 0;
  int director = 0;
  int bits[3] = {0, 0, 0};
  int phase = 1;
  double ahead_nm = 10;
  double courseAhead_deg = 90;

  Record record() const {
    RecordText text;
    text.position = fields("0 0 %g %d 3 %d ", altitude_ft, radioAltitude_ft, onGround ? 1 : 0);
    text.attitude = fields("%g 0 87 0 ", pitch_deg);
    text.speeds = fields("0 0 %g 340 0 0 ", speed_kt);
    text.navigation = fields(
        "1 2 %d 73 %d 254.4 4 1 12 180 0 1 0 12.3 210 45.6 199 271.5 10 11 55.5 56.5 70 9000.5 "
        "6.7 ",
        needle, glideNeedle);
    text.autopilot =
        fields("%d %d %d 10000 250 73 0.74 210 1500 90.1 0.4512 ", bits[0], bits[1], bits[2]);
    text.time = fields(
        "16 05 09 14.05 %d -2.5 1.5 133000 33.3 1.5 21 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 ", director);
    text.management =
        fields("1 0 0 0 %d %g %g _ _ _ _ _ _ _ CMD 200 RTT ", phase, ahead_nm, courseAhead_deg);
    return RecordReader().read(text.text());
  }

 private:
  template <class... Values>
  static std::string fields(const char* form, Values... values) {
    char text[400];
    std::snprintf(text, sizeof text, form, values...);
    return text;
  }
};

// Bits of the record's three words of the autopilot.
constexpr int AltitudeHold = 2;  // of the first
constexpr int HeadingHold = 32;  // of the first
constexpr int Autothrottle = 1;  // of the third
constexpr int ToGa = 2;          // of the third
constexpr int Lnav = 16;         // of the third
constexpr int Vnav = 32;         // of the third

class PilotTest : public testing::Test {
 protected:
  /// "P 183 1" for each command.
  std::vector<std::string> look(const Shown& shown, std::size_t leg = 1) {
    std::vector<std::string> texts;
    for (const Command& c : pilot.look(shown.record(), leg)) {
      char text[60];
      std::snprintf(text, sizeof text, "%s %d %g", c.kind.c_str(), c.id, double{c.value});
      texts.emplace_back(text);
    }
    return texts;
  }
  std::vector<std::string> lookFor(double seconds, const Shown& shown, std::size_t leg = 1) {
    std::vector<std::string> all;
    for (double t = 0; t < seconds; t += Look_s)
      for (const std::string& text : look(shown, leg)) all.push_back(text);
    return all;
  }
  /// Gear and flaps up, command A with LNAV and VNAV, on the way up.
  Shown inTheAir() {
    look({});
    Shown shown;
    shown.onGround = false;
    shown.altitude_ft = 5100;
    shown.radioAltitude_ft = 5009;
    shown.speed_kt = 250;
    shown.bits[2] = Autothrottle | Lnav | Vnav;
    shown.phase = 3;
    lookFor(60, shown);
    return shown;
  }
  /// On the leg behind E/D, level at 2100 feet.
  Shown atTheEndOfTheDescent() {
    Shown shown = inTheAir();
    shown.altitude_ft = 2100;
    shown.radioAltitude_ft = 2009;
    shown.phase = 7;
    return shown;
  }

  PlannedFlight flight = eastwardFlight();
  std::vector<std::string> told;
  Pilot pilot{
      flight, {108.9, 90}, Look_s, [this](const std::string& line) { told.push_back(line); }};
};

/// The magnetic variation is 3 degrees east.
TEST_F(PilotTest, OnTheRunwayHeTunesDialsAndCallsForTakeOffThrust) {
  EXPECT_THAT(look({}), ElementsAre("A 74 108.9", "A 80 87", "A 81 20000", "A 84 320", "P 188 1",
                                    "P 163 1", "P 214 1"));
  EXPECT_THAT(told, Contains("0:00  109 ft  0 kt  NAV1 108.90, course 87, altitude 20000"));
}

TEST_F(PilotTest, WhatIsOnHeLeavesOn) {
  Shown shown;
  shown.director = 1;
  shown.bits[2] = Autothrottle | ToGa;
  EXPECT_THAT(look(shown), ElementsAre("A 74 108.9", "A 80 87", "A 81 20000", "A 84 320"));
}

TEST_F(PilotTest, TheBrakesAreReleasedAfterThreeSeconds) {
  look({});
  EXPECT_THAT(lookFor(2.5, {}), IsEmpty());
  EXPECT_THAT(look({}), ElementsAre("T 46 0"));
}

/// Six percent of the column's way for each degree that is missing and each degree a second that is
/// too fast, half of it at most.
TEST_F(PilotTest, At140KnotsHeRotatesToTenDegrees) {
  Shown shown;
  lookFor(5, shown);
  shown.speed_kt = 139;
  EXPECT_THAT(look(shown), IsEmpty());
  shown.speed_kt = 141;
  EXPECT_THAT(look(shown), ElementsAre("A 14 8192"));
  shown.pitch_deg = 8;
  look(shown);
  EXPECT_THAT(look(shown), ElementsAre("A 14 1966"));
  shown.pitch_deg = 9;
  EXPECT_THAT(look(shown), ElementsAre("A 14 -983"));
}

/// The radio altimeter shows 9 feet on the ground.
TEST_F(PilotTest, TheGearGoesUpAt100FeetAndTheAutopilotTakesOverAt500) {
  look({});
  Shown shown;
  shown.onGround = false;
  shown.radioAltitude_ft = 109;
  EXPECT_THAT(lookFor(5, shown), Not(Contains("P 65 1")));
  shown.radioAltitude_ft = 110;
  EXPECT_THAT(look(shown), Contains("P 65 1"));
  EXPECT_THAT(lookFor(5, shown), Not(Contains("P 183 1")));
  shown.radioAltitude_ft = 510;
  EXPECT_THAT(look(shown), testing::IsSupersetOf({"P 183 1", "P 169 1"}));
}

TEST_F(PilotTest, TheColumnGoesBackWhenTheAutopilotFlies) {
  look({});
  Shown shown;
  shown.onGround = false;
  shown.speed_kt = 150;
  shown.radioAltitude_ft = 300;
  look(shown);
  shown.radioAltitude_ft = 600;
  const auto commands = lookFor(60, shown);
  EXPECT_THAT(commands, Contains("A 14 0"));
  EXPECT_THAT(told.back(), HasSubstr("column released"));
  EXPECT_THAT(lookFor(10, shown), IsEmpty());
}

TEST_F(PilotTest, FlapsGoUpADetentAtATimeAndVnavComesOnAt3000Feet) {
  look({});
  Shown shown;
  shown.onGround = false;
  shown.radioAltitude_ft = 810;
  shown.speed_kt = 196;
  const auto flaps = lookFor(5, shown);
  EXPECT_EQ(std::ranges::count(flaps, "P 52 1"), 2);
  shown.radioAltitude_ft = 3010;
  shown.speed_kt = 211;
  EXPECT_THAT(look(shown), testing::IsSupersetOf({"P 52 1", "P 168 1"}));
}

TEST_F(PilotTest, TheCaptureOfTheCruiseAltitudeEndsVnavAndHeEngagesItAgain) {
  Shown shown = inTheAir();
  shown.phase = 4;
  shown.bits[2] = Lnav;
  EXPECT_THAT(look(shown), ElementsAre("P 168 1"));
  EXPECT_THAT(lookFor(20, shown), IsEmpty());
}

TEST_F(PilotTest, ThePanelGoesDownWhenTopOfDescentIsFlownTo) {
  ASSERT_EQ(legEnd(flight, TowardsTop).name, "T/D");
  Shown shown = inTheAir();
  shown.phase = 5;
  EXPECT_THAT(look(shown, TowardsTop), ElementsAre("A 81 2100"));
  EXPECT_THAT(lookFor(20, shown, TowardsTop), IsEmpty());
}

TEST_F(PilotTest, VnavThatALevelHasEndedIsEngagedAgainEveryTenSeconds) {
  Shown shown = inTheAir();
  shown.phase = 6;
  shown.altitude_ft = 3000;
  shown.bits[0] = AltitudeHold;
  shown.bits[2] = Lnav;
  EXPECT_THAT(lookFor(15, shown, 4), ElementsAre("P 168 1", "P 168 1"));
  shown.altitude_ft = 2700;
  EXPECT_THAT(lookFor(15, shown, 4), IsEmpty());
}

TEST_F(PilotTest, InTheApproachPhaseALevelThatIsTooHighIsLeftByALevelChange) {
  Shown shown = inTheAir();
  shown.phase = 7;
  shown.altitude_ft = 3000;
  shown.bits[0] = AltitudeHold;
  shown.bits[2] = Lnav;
  EXPECT_THAT(lookFor(2, shown, 5), ElementsAre("P 167 1"));
}

TEST_F(PilotTest, WhereLnavGivesUpHeTurnsToTheWaypointAndTriesAgain) {
  Shown shown = inTheAir();
  shown.bits[2] = Vnav;
  shown.courseAhead_deg = 2;
  EXPECT_THAT(look(shown), ElementsAre("A 82 359", "P 172 1"));
  shown.bits[0] = HeadingHold;
  EXPECT_THAT(lookFor(9, shown), IsEmpty());
  EXPECT_THAT(lookFor(2, shown), ElementsAre("P 169 1"));
}

TEST_F(PilotTest, WhatIsTooHighForThreeSecondsGoesByTheSpeedBrake) {
  const double planned_ft = legEnd(flight, 3).altitude_ft;
  Shown shown = inTheAir();
  shown.phase = 6;
  shown.ahead_nm = 0;
  shown.altitude_ft = planned_ft + 290;
  EXPECT_THAT(lookFor(10, shown, 3), IsEmpty());
  shown.altitude_ft = planned_ft + 310;
  EXPECT_THAT(lookFor(2.5, shown, 3), IsEmpty());
  EXPECT_THAT(lookFor(1, shown, 3), ElementsAre("A 48 4914.9"));
  shown.altitude_ft = planned_ft - 10;
  EXPECT_THAT(lookFor(5, shown, 3), ElementsAre("A 48 0"));
}

TEST_F(PilotTest, BehindTheEndOfTheDescentHeSlowsDownAndWaitsForTheLocalizer) {
  ASSERT_EQ(legEnd(flight, TowardsGlidePath - 1).name, "E/D");
  Shown shown = atTheEndOfTheDescent();
  EXPECT_THAT(look(shown, TowardsGlidePath), ElementsAre("P 168 1", "A 84 170"));
  shown.speed_kt = 215;
  EXPECT_THAT(lookFor(2, shown, TowardsGlidePath), ElementsAre("P 54 1", "P 54 1"));
  shown.needle = 127;
  EXPECT_THAT(lookFor(2, shown, TowardsGlidePath), IsEmpty());
  shown.needle = 99;
  EXPECT_THAT(look(shown, TowardsGlidePath), ElementsAre("P 171 1"));
}

TEST_F(PilotTest, TheGlidePathBringsGearFlapsAndTheLastSpeed) {
  Shown shown = atTheEndOfTheDescent();
  shown.needle = 5;
  shown.speed_kt = 200;
  lookFor(5, shown, TowardsGlidePath);
  shown.glideNeedle = -127;
  EXPECT_THAT(lookFor(5, shown, TowardsGlidePath), IsEmpty());
  shown.glideNeedle = -114;
  EXPECT_THAT(look(shown, TowardsGlidePath), ElementsAre("P 63 1"));
  shown.speed_kt = 171;
  EXPECT_THAT(lookFor(5, shown, TowardsGlidePath), ElementsAre("P 54 1", "P 54 1"));
  shown.glideNeedle = -39;
  EXPECT_THAT(look(shown, TowardsGlidePath), ElementsAre("A 84 145", "P 54 1"));
}

TEST_F(PilotTest, HeHasArrived50FeetAboveTheRunway) {
  Shown shown = atTheEndOfTheDescent();
  shown.needle = 5;
  shown.glideNeedle = 5;
  lookFor(5, shown, TowardsGlidePath);
  shown.radioAltitude_ft = 59;
  look(shown, TowardsGlidePath);
  EXPECT_FALSE(pilot.arrived());
  shown.radioAltitude_ft = 58;
  look(shown, TowardsGlidePath);
  EXPECT_TRUE(pilot.arrived());
  EXPECT_THAT(told.back(), HasSubstr("50 feet above the runway"));
  EXPECT_THAT(lookFor(5, shown, TowardsGlidePath), IsEmpty());
}

}  // namespace
}  // namespace vorlent
