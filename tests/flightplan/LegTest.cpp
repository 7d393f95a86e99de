#include "flightplan/Leg.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "base/RuntimeError.h"
#include "sphere.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

constexpr double degree = sphere::degree;

/// North-east, then a turn of about 80 degrees to the right.
std::vector<FlightPlanRecord> obliquePlan() {
  std::vector<FlightPlanRecord> plan = {sphere::waypoint("FROM ", 50, 10),
                                        sphere::waypoint("TO   ", 50.5, 10.5),
                                        sphere::waypoint("NEXT ", 50, 11)};
  sphere::connect(plan[0], plan[1]);
  sphere::connect(plan[1], plan[2]);
  return plan;
}

/// Along the equator to the east, then to the north: a right angle.
std::vector<FlightPlanRecord> equatorPlan() {
  std::vector<FlightPlanRecord> plan = {sphere::waypoint("FROM ", 0, 10),
                                        sphere::waypoint("TO   ", 0, 12),
                                        sphere::waypoint("NEXT ", 1, 12)};
  plan[1].Course = 90;
  return plan;
}

AircraftOnLeg aircraftAt(double latitude, double longitude) {
  return {static_cast<float>(latitude), static_cast<float>(longitude), 360, 2};
}

Leg updated(const std::vector<FlightPlanRecord>& plan, const AircraftOnLeg& aircraft,
            Leg leg = {}) {
  updateLeg(leg, plan, aircraft);
  return leg;
}

TEST(Leg, TurnDiameterIsThatOfTwoMinutesForAFullTurn) {
  // 180 kt for two minutes are 6 miles of circle.
  EXPECT_NEAR(turnDiameter_nm(180), 6 / 3.14159265, 1e-6);
  EXPECT_EQ(turnDiameter_nm(0), 0);
}

TEST(Leg, ARightAngleIsAnticipatedByATurnDiameterAndTenSeconds) {
  // 2 miles, and 360 kt for ten seconds.
  EXPECT_NEAR(updated(equatorPlan(), aircraftAt(0.01, 11)).TurnAnticipation, 3, 1e-5);
}

TEST(Leg, CourseDifferencesCountAsTheyStand) {
  auto plan = equatorPlan();
  const auto anticipation = [&plan](float course, float next) {
    plan[1].Course = course;
    plan[2].Course = next;
    return updated(plan, aircraftAt(0.01, 11)).TurnAnticipation;
  };
  EXPECT_EQ(anticipation(90, 90), 0);
  EXPECT_NEAR(anticipation(90, 30), 2.1547005, 1e-5);  // 2 tan 30 + 1
  EXPECT_NEAR(anticipation(30, 90), 2.1547005, 1e-5);
  EXPECT_EQ(anticipation(0, 180), 0);
  EXPECT_EQ(anticipation(355, 5), 0);  // counted as 350 degrees
  EXPECT_GT(anticipation(0, 179), 200);
}

TEST(Leg, APlanOfOneLegAnticipatesNothingAndIsFlown) {
  auto plan = equatorPlan();
  plan.resize(2);
  const Leg leg = updated(plan, aircraftAt(0.01, 11));
  EXPECT_EQ(leg.TurnAnticipation, 0);
  EXPECT_NEAR(leg.DxToNextWpt, 60.003, 1e-3);
  EXPECT_NEAR(leg.DxToTurnPoint, 60.003, 1e-2);
}

TEST(Leg, DistancesAndCoursesAgreeWithVectors) {
  const auto plan = obliquePlan();
  const auto from = sphere::at(plan[0]);
  const auto to = sphere::at(plan[1]);
  for (const auto& [latitude, longitude] :
       {std::pair{50.1, 10.2}, {50.2, 10.1}, {50.3, 10.4}, {50.6, 10.6}, {49.9, 9.5}}) {
    const AircraftOnLeg aircraft = aircraftAt(latitude, longitude);
    const auto here = sphere::at(aircraft.Latitude, aircraft.Longitude);
    const double gcLatitude = sphere::latitudeOn(from, to, aircraft.Longitude);
    const Leg leg = updated(plan, aircraft);
    EXPECT_NEAR(leg.DxToNextWpt, sphere::nauticalMiles(here, to), 1e-4);
    EXPECT_NEAR(leg.DxFromPrevWpt, sphere::nauticalMiles(here, from), 1e-4);
    EXPECT_NEAR(leg.CourseDirect, sphere::course(here, to), 1e-3);
    EXPECT_NEAR(leg.CourseGcProjection,
                sphere::course(sphere::at(gcLatitude, aircraft.Longitude), to), 0.01);
    EXPECT_NEAR(leg.CrossTrack, std::fabs(aircraft.Latitude - gcLatitude) * degree, 1e-6);
  }
}

TEST(Leg, AlongTheLegTheCrossTrackIsNoneAndTheDistancesAddUp) {
  const auto plan = obliquePlan();
  const auto from = sphere::at(plan[0]);
  const auto to = sphere::at(plan[1]);
  const double length = sphere::nauticalMiles(from, to);
  for (double longitude = 10.05; longitude < 10.5; longitude += 0.05) {
    const Leg leg = updated(plan, aircraftAt(sphere::latitudeOn(from, to, longitude), longitude));
    EXPECT_NEAR(leg.CrossTrack, 0, 1e-6);
    EXPECT_NEAR(leg.DxFromPrevWpt + leg.DxToNextWpt, length, 1e-3);
  }
}

TEST(Leg, DueNorthOrDueEastTheDirectCourseIs0) {
  const auto plan = obliquePlan();
  EXPECT_EQ(updated(plan, aircraftAt(50.5, 10.2)).CourseDirect, 0);
  EXPECT_EQ(updated(plan, aircraftAt(50.2, 10.5)).CourseDirect, 0);
}

TEST(Leg, TheSideOfTheInterceptIsTowardTheLeg) {
  const auto plan = obliquePlan();
  EXPECT_EQ(updated(plan, aircraftAt(50.3, 10.2)).InterceptSide, 1);   // left of it
  EXPECT_EQ(updated(plan, aircraftAt(50.1, 10.2)).InterceptSide, -1);  // right of it
  // Where both courses are 0, too.
  EXPECT_EQ(updated(equatorPlan(), aircraftAt(0, 11)).InterceptSide, -1);
}

TEST(Leg, TheFirstCycleHasNoCrossTrackBeforeIt) {
  const Leg leg = updated(obliquePlan(), aircraftAt(50.3, 10.2));
  EXPECT_EQ(leg.PrevCrossTrack, 0);
  EXPECT_EQ(leg.PrevDxToNextWpt, 0);
  EXPECT_EQ(leg.PrevDxToTurnPoint, 0);
}

TEST(Leg, TheCrossTrackOfTheCycleBeforeIsTurnedByItsCourse) {
  const auto plan = obliquePlan();
  const Leg first = updated(plan, aircraftAt(50.3, 10.2));
  const Leg second = updated(plan, aircraftAt(50.31, 10.21), first);
  const double off = 50.3 - sphere::latitudeOn(sphere::at(plan[0]), sphere::at(plan[1]), 10.2);
  const double course = sphere::course(sphere::at(50.3, 10.2), sphere::at(plan[1])) * degree;
  EXPECT_NEAR(second.PrevCrossTrack, off * degree * std::sin(course), 1e-6);
}

TEST(Leg, InTheSouthAndInTheWestTheCrossTrackBeforeIsNeverMeasured) {
  const auto plan = equatorPlan();
  for (const auto& [latitude, longitude] :
       {std::pair{-0.02F, 10.0F}, {0.02F, -10.0F}, {-0.02F, -10.0F}, {0.0F, 10.0F}}) {
    Leg leg;
    leg.PrevLatitude = latitude;
    leg.PrevLongitude = longitude;
    leg.PrevCrossTrack = 0.125F;
    leg.CourseDirect = 30;
    EXPECT_NEAR(updated(plan, aircraftAt(0.01, 10.1), leg).PrevCrossTrack, 0.0625, 1e-8);
  }
}

/// Off the equator by 0.02 degrees, then by 0.01: the crossing lies as far ahead again.
TEST(Leg, TheCrossingIsWhereTheTrackMeetsTheLeg) {
  Leg leg;
  leg.PrevLatitude = 0.02F;
  leg.PrevLongitude = 10;
  leg.CourseDirect = 90;
  leg = updated(equatorPlan(), aircraftAt(0.01, 10.1), leg);
  EXPECT_NEAR(leg.CrossingLon, 10.2, 1e-4);
  EXPECT_NEAR(leg.CrossingLat, 0, 1e-6);
  EXPECT_NEAR(leg.DxToCrossing, 6.02993, 0.01);      // the root of 0.01 and 0.0001, in minutes
  EXPECT_NEAR(leg.CourseToCrossing, 95.7106, 0.01);  // 90 and the arctangent of 0.1
}

TEST(Leg, ATrackAlongTheLegKeepsTheLastCrossing) {
  Leg leg;
  leg.CrossingLat = 1;
  leg.CrossingLon = 11;
  leg = updated(equatorPlan(), aircraftAt(0, 10.1), leg);
  EXPECT_EQ(leg.CrossingLat, 1);
  EXPECT_EQ(leg.CrossingLon, 11);
}

TEST(Leg, TheTurnPointLiesTheAnticipationBeforeTheWaypoint) {
  const auto plan = equatorPlan();
  Leg leg = updated(plan, aircraftAt(0, 11));
  EXPECT_NEAR(leg.DxToNextWpt, 60, 1e-3);
  EXPECT_NEAR(leg.DxToTurnPoint, 57, 1e-3);
  leg = updated(plan, aircraftAt(0, 11.5), leg);
  EXPECT_NEAR(leg.DxToNextWpt, 30, 1e-3);
  EXPECT_NEAR(leg.PrevDxToNextWpt, 60, 1e-3);
  EXPECT_NEAR(leg.DxToTurnPoint, 27, 1e-3);
  EXPECT_NEAR(leg.PrevDxToTurnPoint, 57, 1e-3);
}

TEST(Leg, OverTheWaypointTheCycleEndsAtTheTurnPoint) {
  const auto plan = equatorPlan();
  Leg leg = updated(plan, aircraftAt(0, 11));
  const Leg before = leg;
  EXPECT_EQ(raisedBy([&] { updateLeg(leg, plan, aircraftAt(0, 12)); }),
            RuntimeError::DivisionByZero);
  EXPECT_EQ(leg.DxToNextWpt, 0);
  EXPECT_NEAR(leg.PrevDxToNextWpt, 60, 1e-3);
  EXPECT_EQ(leg.DxToTurnPoint, before.DxToTurnPoint);
  EXPECT_EQ(leg.DxFromPrevWpt, before.DxFromPrevWpt);
  EXPECT_EQ(leg.PrevLongitude, 11);
}

TEST(Leg, ThePositionIsKeptForTheNextCycle) {
  const Leg leg = updated(obliquePlan(), aircraftAt(50.25, 10.125));
  EXPECT_EQ(leg.PrevLatitude, 50.25F);
  EXPECT_EQ(leg.PrevLongitude, 10.125F);
}

TEST(Leg, ALegWithoutItsRowsIsASubscriptOutOfRange) {
  Leg leg;
  auto plan = equatorPlan();
  plan.resize(1);
  EXPECT_EQ(raisedBy([&] { updateLeg(leg, plan, aircraftAt(1, 1)); }),
            RuntimeError::SubscriptOutOfRange);
  leg.LegFromRow = -1;
  EXPECT_EQ(raisedBy([&] { updateLeg(leg, plan, aircraftAt(1, 1)); }),
            RuntimeError::SubscriptOutOfRange);
}

struct Sequence {
  std::int16_t to;
  std::int16_t last;
  std::int16_t active;
  std::int16_t expected;
};

TEST(SequenceLeg, GoesOnToTheLastRowButOneAndThenBeginsAnew) {
  constexpr Sequence Rows[] = {{1, 4, 0, 2}, {2, 4, 0, 3}, {3, 4, 0, 1},
                               {1, 1, 0, 1}, {1, 2, 0, 1}, {3, 4, 1, 2}};
  for (const Sequence& row : Rows) {
    Leg leg;
    leg.LegToRow = row.to;
    SequenceLeg(leg, 0, row.last, row.active);
    EXPECT_EQ(leg.LegToRow, row.expected) << row.to << " of " << row.last;
    EXPECT_EQ(leg.LegFromRow, row.expected - 1);
  }
}

TEST(SequenceLeg, StaysWhileTheLegStands) {
  Leg leg;
  SequenceLeg(leg, 1, 4, 0);
  EXPECT_EQ(leg.LegToRow, 1);
  EXPECT_EQ(leg.LegFromRow, 0);
}

}  // namespace
}  // namespace vorlent
