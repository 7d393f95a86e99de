#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "base/text.h"
#include "flightplan/ExecutedPlan.h"
#include "flightplan/Leg.h"
#include "flightplan/legCheck.h"
#include "flightplan/verticalProfile.h"
#include "plan/planRows.h"
#include "plan/sphere.h"

// An aircraft that keeps exactly to the waypoints, watched by the autoflight's own functions, which
// read the planner's files as texts. It is told each next leg when they announce it.

namespace vorlent {
namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

constexpr double GroundSpeed_kt = 420;
constexpr double Cycle_nm = GroundSpeed_kt / 3600 * 0.44;
constexpr float MaxTrackOffset_nm = 3;

class FlownPlan {
 public:
  explicit FlownPlan(PlannedFlight flight) : flight_(std::move(flight)) { take(1); }

  /// To the last waypoint.
  void fly() {
    for (std::size_t leg = 1; leg <= legCount(flight_); ++leg) {
      const PlanPoint& from = legEnd(flight_, leg - 1);
      const PlanPoint& to = legEnd(flight_, leg);
      for (way_ = from.way_nm + 1e-3; way_ < to.way_nm - 1e-3; way_ += Cycle_nm)
        cycle(sphere::pointAlong(from.place, sphere::courseAtStart_deg(from.place, to.place),
                                 way_ - from.way_nm),
              to.place);
    }
  }

  std::vector<std::string> announced;
  std::vector<double> announcedBefore_nm;  ///< how far from the waypoint
  std::vector<std::string> lost;           ///< headlines of the log
  double cruiseEnd_nm = 0;                 ///< the active row lies behind T/D
  double descent_nm = 0;
  double approach_nm = 0;

 private:
  void take(std::size_t leg) {
    onLeg_ = leg;
    ASSERT_FALSE(takeExec(planFileText(execRows(flight_, leg)), plan_));
    ASSERT_FALSE(takeProf(planFileText(profRows(flight_, leg)), plan_));
    leg_.LegFromRow = 0;
    leg_.LegToRow = 1;
  }

  void cycle(GeoPoint here, GeoPoint ahead) {
    const auto latitude = static_cast<float>(here.latitude_deg);
    const auto longitude = static_cast<float>(here.longitude_deg);
    // The phase comes first: at a change of legs it meets the distances of the leg before.
    watchProfile();
    updateLeg(
        leg_, plan_.FlightPlan,
        {latitude, longitude, GroundSpeed_kt, static_cast<float>(turnDiameter_nm(GroundSpeed_kt))});
    const auto heading = static_cast<float>(sphere::courseAtStart_deg(here, ahead));
    const LegCheck check = checkLeg(
        leg_, plan_.FlightPlan, {5000, latitude, longitude, heading, MaxTrackOffset_nm, 0, true});
    if (check.lost) lost.push_back(check.log.front());
    if (check.announced) answer(trimmed(*check.announced));
  }

  void watchProfile() {
    const FlightPlanRecord& active = plan_.FlightPlan[1];
    if (cruiseEnd_nm == 0 && FindTodPassed(plan_.ProfilePlan, active.Name).found)
      cruiseEnd_nm = way_;
    if (cruiseEnd_nm > 0 && descent_nm == 0 &&
        descentBegins(active, leg_.DxToNextWpt, leg_.DxToTurnPoint))
      descent_nm = way_;
    if (descent_nm > 0 && approach_nm == 0 && approachBegins(active, leg_.DxToNextWpt))
      approach_nm = way_;
  }

  void answer(const std::string& waypoint) {
    announced.push_back(waypoint);
    announcedBefore_nm.push_back(legEnd(flight_, onLeg_).way_nm - way_);
    take(onLeg_ + 1);
    ASSERT_EQ(waypoint, legEnd(flight_, onLeg_).name);
  }

  PlannedFlight flight_;
  std::size_t onLeg_ = 1;
  ExecutedPlan plan_;
  Leg leg_;
  double way_ = 0;
};

double wayOf(const PlannedFlight& flight, const std::string& name) {
  for (const PlanPoint& point : flight.points)
    if (point.name == name) return point.way_nm;
  ADD_FAILURE() << "no " << name;
  return 0;
}

PlannedFlight planned(const Route& route, std::optional<ArrivalRunway> runway) {
  PlanTask task;
  task.aircraft = *performanceOf("737-700");
  task.runway = runway;
  return planFlight(route, task);
}

std::vector<std::string> waypointsFromTheSecond(const PlannedFlight& flight) {
  std::vector<std::string> names;
  for (std::size_t leg = 2; leg <= legCount(flight); ++leg)
    names.push_back(legEnd(flight, leg).name);
  return names;
}

/// Legs that run near north or south are for the flights of the autoflight: at the change to one,
/// its cross-track along the meridian can end LNAV.
///
/// Every waypoint is announced before it is passed, no leg is lost, and the phases begin where they
/// were planned.
void expectFlownAsPlanned(const PlannedFlight& flight) {
  FlownPlan flown(flight);
  flown.fly();
  EXPECT_THAT(flown.lost, IsEmpty());
  EXPECT_THAT(flown.announced, ElementsAreArray(waypointsFromTheSecond(flight)));
  for (const double before_nm : flown.announcedBefore_nm) {
    EXPECT_GT(before_nm, 0);
    EXPECT_LE(before_nm, MaxTrackOffset_nm);
  }
  const double topOfDescent_nm = wayOf(flight, "T/D");
  EXPECT_LT(flown.cruiseEnd_nm, topOfDescent_nm);
  EXPECT_NEAR(flown.descent_nm, topOfDescent_nm, 2);
  EXPECT_NEAR(flown.approach_nm, wayOf(flight, "E/D") - 8, 2);
}

TEST(FlownPlan, TheShippedRoute) {
  const PlannedFlight flight =
      planned(loadRoute(VORLENT_DATA_FOLDER "/Routes/varnholt-westerleigh.fms"),
              ArrivalRunway{{51.75, 0.1}, 265, 65.6});
  EXPECT_GT(legCount(flight), 10);
  expectFlownAsPlanned(flight);
}

TEST(FlownPlan, ARouteWithoutRunway) {
  expectFlownAsPlanned(planned({{{"XAAA", {50, 8}, 300},
                                 {"ALPHA", {50.5, 9.5}},
                                 {"BRAVO", {51.2, 11.3}},
                                 {"CHARL", {51.1, 13.5}},
                                 {"XBBB", {50.2, 15.5}, 900}},
                                21000},
                               {}));
}

TEST(FlownPlan, SouthAndWest) {
  expectFlownAsPlanned(planned({{{"XAAA", {-33, -70}, 300},
                                 {"ALPHA", {-34.5, -68}},
                                 {"BRAVO", {-36, -63}},
                                 {"XBBB", {-34, -58}, 60}},
                                25000},
                               ArrivalRunway{{-34, -58}, 70, 60}));
}

}  // namespace
}  // namespace vorlent
