#include "plan/FlightPlanner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Five degrees along the equator, 300 miles, to an airport 100 feet high.
Route equatorRoute() {
  return {{{"XAAA", {0, 0}, 0}, {"MIDDL", {0, 2}}, {"XBBB", {0, 5}, 100}}, 20000};
}

const ArrivalRunway eastward{{0, 5}, 90, 100};

PlanTask taskTo(std::optional<ArrivalRunway> runway) {
  PlanTask task;
  task.aircraft = *performanceOf("737-700");
  task.runway = runway;
  return task;
}

std::string namesOf(const PlannedFlight& flight) {
  std::string names;
  for (const PlanPoint& point : flight.points) names += point.name + " ";
  return names;
}

const PlanPoint& pointIn(const PlannedFlight& flight, const std::string& name) {
  return *std::find_if(flight.points.begin(), flight.points.end(),
                       [&name](const PlanPoint& p) { return p.name == name; });
}

std::string faultOf(const Route& route, const PlanTask& task) {
  try {
    planFlight(route, task);
    return "";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), RuntimeError::InvalidCall);
    return error.description();
  }
}

TEST(FlightPlanner, TheProfileAndTheApproachStandBetweenTheWaypoints) {
  EXPECT_EQ(namesOf(planFlight(equatorRoute(), taskTo(eastward))),
            "XAAA T/C MIDDL T/D 8/ED E/D RX-09 XBBB ");
}

// 2100 feet is the next hundred above 100 + 2000. The glide path of 3 degrees over the threshold at
// 50 feet is as high as that (2100 - 100 - 50) / 0.0524078 / 6076.1155 = 6.1238 NM before it.
TEST(FlightPlanner, TheApproachStandsOnTheCentreLineOfTheRunway) {
  const PlannedFlight flight = planFlight(equatorRoute(), taskTo(eastward));
  EXPECT_NEAR(pointIn(flight, "RX-09").place.longitude_deg, 5 - 6.1238 / 60, 1e-5);
  EXPECT_NEAR(pointIn(flight, "E/D").place.longitude_deg, 5 - 12.1238 / 60, 1e-5);
  EXPECT_NEAR(pointIn(flight, "E/D").place.latitude_deg, 0, 1e-9);
  EXPECT_EQ(pointIn(flight, "E/D").altitude_ft, 2100);
  EXPECT_EQ(pointIn(flight, "RX-09").target_ft, 2100);
}

TEST(FlightPlanner, TheFlightEndsAtTheThresholdNotAtTheAirport) {
  Route route = equatorRoute();
  route.points.back().place = {0.02, 5.03};
  const PlannedFlight flight = planFlight(route, taskTo(eastward));
  EXPECT_EQ(flight.points.back().name, "XBBB");
  EXPECT_EQ(flight.points.back().place.longitude_deg, 5);
}

TEST(FlightPlanner, WithoutARunwayTheDescentEndsTenMilesBeforeTheDestination) {
  const PlannedFlight flight = planFlight(equatorRoute(), taskTo({}));
  EXPECT_EQ(namesOf(flight), "XAAA T/C MIDDL T/D 8/ED E/D XBBB ");
  EXPECT_NEAR(pointIn(flight, "E/D").way_nm, 290, 1e-9);
  EXPECT_NEAR(pointIn(flight, "E/D").place.longitude_deg, 290 / 60.0, 1e-9);
}

TEST(FlightPlanner, UpToTheTopOfDescentTheCruiseIsFlownToAndFromThereTheEndOfDescent) {
  const PlannedFlight flight = planFlight(equatorRoute(), taskTo(eastward));
  std::vector<double> targets;
  for (const PlanPoint& point : flight.points) targets.push_back(point.target_ft);
  EXPECT_THAT(targets, ElementsAre(20000, 20000, 20000, 2100, 2100, 2100, 2100, 2100));
}

TEST(FlightPlanner, RowsTellHowFarBackTheDescentHasBegun) {
  const PlannedFlight flight = planFlight(equatorRoute(), taskTo(eastward));
  const double tod = pointIn(flight, "T/D").way_nm;
  EXPECT_EQ(pointIn(flight, "MIDDL").descent_nm, 0);
  EXPECT_NEAR(pointIn(flight, "E/D").descent_nm, 300 - 12.1238 - tod, 1e-3);
  EXPECT_EQ(pointIn(flight, "T/D").descent_nm, 0);
  EXPECT_NEAR(pointIn(flight, "XBBB").descent_nm, 300 - tod, 1e-3);
}

TEST(FlightPlanner, TheLegToTheEndOfDescentIsAsLongAsTheApproachAtMost) {
  const PlannedFlight flight = planFlight(equatorRoute(), taskTo(eastward));
  EXPECT_NEAR(pointIn(flight, "8/ED").way_nm, pointIn(flight, "E/D").way_nm - 8, 1e-9);
  Route route = equatorRoute();
  route.points.insert(route.points.end() - 1, {"NEAR", {0, 5 - (12.1238 + 8.9) / 60}});
  EXPECT_EQ(namesOf(planFlight(route, taskTo(eastward))),
            "XAAA T/C MIDDL T/D NEAR E/D RX-09 XBBB ");
}

TEST(FlightPlanner, SharpTurnsAndLegsAlongAMeridianAreTold) {
  const auto noticesOf = [](std::vector<RoutePoint> points) {
    return planFlight({std::move(points), 15000}, taskTo({})).notices;
  };
  // East, then by 64 and by 66 degrees to the north of it.
  EXPECT_THAT(noticesOf({{"XAAA", {0, 0}, 0}, {"TURN", {0, 2}}, {"XBBB", {1.7976, 2.8767}, 0}}),
              IsEmpty());
  EXPECT_THAT(
      noticesOf({{"XAAA", {0, 0}, 0}, {"TURN", {0, 2}}, {"XBBB", {1.8271, 2.8134}, 0}}),
      ElementsAre("the turn at TURN has 66 degrees: with more than 65 LNAV may lose the leg"));
  // 10 degrees off south.
  EXPECT_THAT(
      noticesOf({{"XAAA", {50, 8}, 0}, {"XBBB", {46, 9}, 0}}),
      ElementsAre("the leg from XAAA to E/D runs nearly north or south: LNAV may not hold it",
                  "the leg from E/D to XBBB runs nearly north or south: LNAV may not hold "
                  "it"));
}

TEST(FlightPlanner, TheTopOfDescentKeepsAMileFromTheWaypointsAtItsSides) {
  const double tod = pointIn(planFlight(equatorRoute(), taskTo(eastward)), "T/D").way_nm;
  for (const double off_nm : {-0.4, 0.4}) {
    Route route = equatorRoute();
    route.points.insert(route.points.end() - 1, {"NEAR", {0, (tod + off_nm) / 60}});
    const PlannedFlight flight = planFlight(route, taskTo(eastward));
    EXPECT_NEAR(pointIn(flight, "T/D").way_nm, tod + off_nm + (off_nm > 0 ? -1 : 1), 1e-3);
  }
}

TEST(FlightPlanner, WaypointsWithinTheApproachAreLeftOut) {
  Route route = equatorRoute();
  route.points.insert(route.points.end() - 1, {"CLOSE", {0.05, 4.85}});
  const PlannedFlight flight = planFlight(route, taskTo(eastward));
  EXPECT_EQ(namesOf(flight), "XAAA T/C MIDDL T/D 8/ED E/D RX-09 XBBB ");
  EXPECT_THAT(flight.notices, ElementsAre("CLOSE is left out: the approach begins farther out"));
}

TEST(FlightPlanner, AWaypointWhereTheOneBeforeLiesIsLeftOut) {
  Route route = equatorRoute();
  route.points.insert(route.points.begin() + 1, {"XAAA", {0.0001, 0}});
  const PlannedFlight flight = planFlight(route, taskTo(eastward));
  EXPECT_EQ(flight.points[1].name, "T/C");
  EXPECT_THAT(flight.notices, ElementsAre("XAAA is left out: it lies where XAAA lies"));
}

TEST(FlightPlanner, ARouteThatComesBackHasTwoNamesForItsAirport) {
  Route route = {{{"XAAA", {0, 0}, 0}, {"FAR", {2, 3}}, {"XAAA", {0, 0}, 0}}, 15000};
  const PlannedFlight flight = planFlight(route, taskTo({}));
  EXPECT_EQ(flight.points.front().name, "XAAA");
  EXPECT_EQ(flight.points.back().name, "XAAA2");
}

// sin(d / 2) = sin 4 x cos 10: 7.87827 degrees of arc.
TEST(FlightPlanner, ALegOverThe180thMeridianIsCutThere) {
  Route route = {{{"XAAA", {10, 176}, 0}, {"XBBB", {10, -176}, 0}}, 15000};
  const PlannedFlight flight = planFlight(route, taskTo({}));
  EXPECT_EQ(pointIn(flight, "180/1").place.longitude_deg, 180);
  EXPECT_NEAR(flight.points.back().way_nm, 472.696, 0.001);
}

TEST(FlightPlanner, AWaypointOnThe180thMeridianNeedsNoOther) {
  for (const double side : {180.0, -180.0, 179.9999}) {
    const PlannedFlight flight =
        planFlight({{{"XAAA", {10, 176}, 0}, {"EDGE", {10, side}}, {"XBBB", {10, -176}, 0}}, 15000},
                   taskTo({}));
    std::string names;
    for (const PlanPoint& point : flight.points)
      if (point.kind == PlanPoint::Kind::Waypoint) names += point.name + " ";
    EXPECT_EQ(names, "XAAA EDGE T/D 8/ED E/D XBBB ");
    EXPECT_EQ(pointIn(flight, "EDGE").place.longitude_deg, 180);
  }
}

TEST(FlightPlanner, ACruiseThatTheRouteIsTooShortForIsLoweredAndTold) {
  Route route = {{{"XAAA", {0, 0}, 0}, {"XBBB", {0, 1.5}, 0}}, 33000};
  const PlannedFlight flight = planFlight(route, taskTo({}));
  EXPECT_LT(flight.cruise_ft, 20000);
  ASSERT_EQ(flight.notices.size(), 1);
  EXPECT_THAT(flight.notices[0], HasSubstr("the route is too short for 33000"));
}

TEST(FlightPlanner, TheTasksCruiseGoesBeforeTheRoutes) {
  PlanTask task = taskTo(eastward);
  task.cruise_ft = 15000;
  const PlannedFlight flight = planFlight(equatorRoute(), task);
  EXPECT_EQ(flight.cruise_ft, 15000);
  EXPECT_THAT(flight.notices, IsEmpty());
}

TEST(FlightPlanner, WhatCannotBeFlownIsTold) {
  Route route = equatorRoute();
  route.cruise_ft = std::nullopt;
  EXPECT_EQ(faultOf(route, taskTo(eastward)),
            "the route tells no cruise altitude: give a level with --cruise");
  route.cruise_ft = 45000;
  EXPECT_EQ(faultOf(route, taskTo(eastward)),
            "a 737-700 does not cruise above 41000 feet, 45000 were asked for");
  EXPECT_EQ(faultOf(equatorRoute(), taskTo(ArrivalRunway{{1, 5}, 90, 0})),
            "the runway lies 60 NM from XBBB, the end of the route");
  EXPECT_EQ(faultOf({{{"A", {0, 0}}, {"B", {0, 0}}}, 9000}, taskTo({})),
            "the route begins and ends at the same place");
  EXPECT_EQ(faultOf({{{"A", {0, 0}}, {"B", {0, 0.1}}}, 9000}, taskTo({})),
            "the route is too short: it has 6 NM");
  EXPECT_EQ(faultOf({{{"A", {0, 0}}, {"B", {0, 170}}}, 9000}, taskTo({})),
            "the leg from A to E/D has more than 10000 NM");
}

TEST(FlightPlanner, WeightsFollowFromEachOtherAndAreChecked) {
  PlanTask task = taskTo(eastward);
  task.weightWithoutFuel_lb = 110000;
  task.reserve_lb = 6000;
  const PlannedFlight flight = planFlight(equatorRoute(), task);
  EXPECT_EQ(flight.landing_lb, 116000);
  EXPECT_EQ(flight.takeoff_lb, 116000 + flight.tripFuel_lb);
  task.weightWithoutFuel_lb = 130000;
  EXPECT_EQ(faultOf(equatorRoute(), task),
            "a 737-700 has 83001 to 120500 lb without fuel, not 130000");
  task.weightWithoutFuel_lb = 120000;
  task.reserve_lb = 9000;
  EXPECT_EQ(faultOf(equatorRoute(), task),
            "a 737-700 has 83001 to 128000 lb for the landing, not 129000");
}

TEST(ArrivalRunway, IsNumberedByTensOfDegrees) {
  EXPECT_EQ((ArrivalRunway{{0, 0}, 270, 0}).number(), 27);
  EXPECT_EQ((ArrivalRunway{{0, 0}, 0, 0}).number(), 36);
  EXPECT_EQ((ArrivalRunway{{0, 0}, 358, 0}).number(), 36);
  EXPECT_EQ((ArrivalRunway{{0, 0}, 6, 0}).number(), 1);
}

}  // namespace
}  // namespace vorlent
