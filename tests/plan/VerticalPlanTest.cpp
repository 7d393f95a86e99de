#include "plan/VerticalPlan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

using testing::StartsWith;

AircraftPerformance twinJet() {
  AircraftPerformance aircraft = *performanceOf("737-700");
  aircraft.climbSpeed_kt = 280;
  aircraft.climbMach = 0.78;
  aircraft.descentSpeed_kt = 280;
  aircraft.descentMach = 0.78;
  aircraft.lowClimb_fpm = 2000;
  aircraft.climb_fpm = 1500;
  aircraft.lowDescent_fpm = 1000;
  aircraft.descent_fpm = 2000;
  aircraft.approachDescent_fpm = 1000;
  aircraft.climbFuel_lbph = 9000;
  aircraft.cruiseFuel_lbph = 5000;
  aircraft.descentFuel_lbph = 1800;
  return aircraft;
}

// Five minutes to 10000 feet at 2000 a minute and 250 knots, which are 268.5 true in their middle.
TEST(VerticalPlan, TheClimbTakesTheTimeOfItsRateAndTheWayOfItsTrueSpeed) {
  const VerticalPlan plan(twinJet(), {0, 10000, 0, 200});
  EXPECT_NEAR(plan.topOfClimb_nm(), 268.5 * 5 / 60, 0.2);
}

// Ten minutes from 10000 feet at 1000 a minute.
TEST(VerticalPlan, TheDescentIsCountedBackFromItsEnd) {
  const VerticalPlan plan(twinJet(), {0, 10000, 0, 200});
  EXPECT_NEAR(plan.topOfDescent_nm(), 200 - 268.5 * 10 / 60, 0.3);
}

// The last 8 miles at 500 feet a minute and about 252 knots take 114.3 seconds, 952 feet; at 1000
// feet a minute they would take half of the time and of the way.
TEST(VerticalPlan, TheDescentIsSlowerInTheApproachPhase) {
  AircraftPerformance aircraft = twinJet();
  aircraft.approachDescent_fpm = 500;
  const VerticalPlan slow(aircraft, {0, 10000, 0, 200});
  EXPECT_NEAR(slow.topOfDescent_nm(),
              VerticalPlan(twinJet(), {0, 10000, 0, 200}).topOfDescent_nm() - 4, 0.6);
  EXPECT_NEAR(slow.altitudeAt_ft(192), 952, 10);
}

// At 10000 feet 280 knots are 322.8 true, 250 knots 288.7: 4612 and 3690 feet of height (v squared
// over 2g), 922 feet between them, which take 55.3 seconds at 1000 feet a minute: 4.70 miles at
// 305.7 knots. Besides there are 8 minutes at 1000 feet a minute below, and 2.5 at 2000 above.
TEST(VerticalPlan, SlowingDownTo250KnotsTakesLevelFlight) {
  const VerticalPlan plan(twinJet(), {0, 15000, 2000, 300});
  const double level_nm = 4.70;
  const double way_nm = 300 - plan.topOfDescent_nm();
  EXPECT_NEAR(way_nm, 8 / 60.0 * 272.3 + level_nm + 2.5 / 60 * 334.8, 0.4);
}

// Another 6 minutes 40 to 20000 feet at 1500 a minute and 280 knots, 347.5 true in their middle.
TEST(VerticalPlan, Above10000FeetAnotherRateAndSpeedHold) {
  const VerticalPlan plan(twinJet(), {0, 20000, 0, 300});
  EXPECT_NEAR(plan.topOfClimb_nm(), 268.5 * 5 / 60 + 347.5 * 20 / 3 / 60, 0.2);
  EXPECT_EQ(plan.speedAt_kt(5), 250);
  EXPECT_EQ(plan.speedAt_kt(40), 280);
}

TEST(VerticalPlan, AltitudesRiseStayAndFall) {
  const VerticalPlan plan(twinJet(), {400, 20000, 2100, 300});
  EXPECT_EQ(plan.altitudeAt_ft(0), 400);
  double before = 0;
  for (double way = 0; way <= plan.topOfClimb_nm(); way += 0.5) {
    EXPECT_GT(plan.altitudeAt_ft(way), before);
    before = plan.altitudeAt_ft(way);
  }
  EXPECT_EQ(plan.altitudeAt_ft(plan.topOfClimb_nm()), 20000);
  EXPECT_EQ(plan.altitudeAt_ft(plan.topOfDescent_nm()), 20000);
  EXPECT_LT(plan.altitudeAt_ft(plan.topOfDescent_nm() + 1), 20000);
  EXPECT_EQ(plan.altitudeAt_ft(300), 2100);
  EXPECT_EQ(plan.altitudeAt_ft(320), 2100);
}

TEST(VerticalPlan, BehindTheEndOfTheDescentTheApproachSpeedIsFlown) {
  const VerticalPlan plan(twinJet(), {0, 20000, 2000, 300});
  EXPECT_EQ(plan.speedAt_kt(300), 250);
  EXPECT_EQ(plan.speedAt_kt(301), 190);
}

// 35000 feet: Mach 0.78 shows 264 knots, less than the 280 of the climb.
TEST(VerticalPlan, HighUpTheMachNumberLimitsTheSpeed) {
  const VerticalPlan plan(twinJet(), {0, 35000, 0, 800});
  EXPECT_NEAR(plan.speedAt_kt(400), 264.4, 0.3);
}

TEST(VerticalPlan, ACruiseForWhichTheWayIsTooShortIsLowered) {
  const VerticalPlan plan(twinJet(), {0, 20000, 0, 80});
  EXPECT_EQ(plan.cruise_ft(), 10000);
  EXPECT_GE(plan.topOfDescent_nm() - plan.topOfClimb_nm(), 5);
}

TEST(VerticalPlan, AWayWithoutRoomForAnyCruiseIsRefused) {
  try {
    const VerticalPlan plan(twinJet(), {0, 20000, 2000, 6});
    FAIL() << plan.cruise_ft();
  } catch (const RuntimeError& error) {
    EXPECT_THAT(error.description(), StartsWith("the route is too short"));
  }
}

TEST(VerticalPlan, ACruiseBelowTheApproachIsRefused) {
  try {
    const VerticalPlan plan(twinJet(), {0, 2500, 2000, 200});
    FAIL() << plan.cruise_ft();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.description(), "a cruise at 2500 feet is too low, the least is 3000");
  }
}

// 5 minutes of climb at 9000 lb/h, 10 of descent at 1800, and 132.9 NM at 288 knots at 5000 lb/h.
TEST(VerticalPlan, TripFuelIsThatOfClimbCruiseAndDescent) {
  AircraftPerformance aircraft = twinJet();
  aircraft.climbSpeed_kt = 250;
  const VerticalPlan plan(aircraft, {0, 10000, 0, 200});
  EXPECT_NEAR(plan.tripFuel_lb(), 750 + 300 + 132.9 / 288 * 5000, 20);
}

TEST(AircraftPerformance, EveryAircraftOfTheServersTableIsKnown) {
  EXPECT_EQ(knownAircraft(), (std::vector<std::string>{"737-300", "737-400", "737-700"}));
  EXPECT_FALSE(performanceOf("747-400"));
  for (const std::string& name : knownAircraft()) EXPECT_EQ(performanceOf(name)->name, name);
}

}  // namespace
}  // namespace vorlent
