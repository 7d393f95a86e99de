#include "plan/FlightPlanner.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/RuntimeError.h"
#include "base/printable.h"
#include "base/text.h"
#include "base/units.h"
#include "plan/VerticalPlan.h"
#include "plan/rowNames.h"
#include "plan/sphere.h"

namespace vorlent {
namespace {

using Points = std::vector<PlanPoint>;

/// Without a runway the descent ends so far before the last waypoint.
constexpr double EndWithoutRunway_nm = 10;
constexpr double FarthestRunway_nm = 10;
constexpr double ShortestLeg_nm = 0.1;
constexpr double LongestLeg_nm = 10000;
constexpr double LeastToDescent_nm = 1;
constexpr double SharpestTurn_deg = 65;
constexpr double NearMeridian = 0.34;  // sine of a course less than 20 degrees off north or south
constexpr double HighestAirport_ft = 15000;
constexpr double Level_ft = 100;

[[noreturn]] void refuse(const std::string& why) {
  throw RuntimeError(RuntimeError::InvalidCall, why);
}

std::string whole(double value) { return doubleText(std::round(value)); }

std::string nameOf(const PlanPoint& point) { return printable(point.name.substr(0, 40)); }

double elevationOf(const RoutePoint& airport) {
  const double altitude_ft = airport.altitude_ft.value_or(0);
  return altitude_ft <= HighestAirport_ft ? altitude_ft : 0;
}

PlanPoint pointNamed(std::string name, GeoPoint place,
                     PlanPoint::Kind kind = PlanPoint::Kind::Waypoint) {
  PlanPoint point;
  point.name = std::move(name);
  point.place = place;
  point.kind = kind;
  return point;
}

void measureWays(Points& points) {
  points.front().way_nm = 0;
  for (std::size_t i = 1; i < points.size(); ++i)
    points[i].way_nm =
        points[i - 1].way_nm + sphere::distance_nm(points[i - 1].place, points[i].place);
}

/// Puts a point on the way, behind those that stand at the same place or before it.
void insertAt(Points& points, double way_nm, const char* name, PlanPoint::Kind kind) {
  const auto next = std::find_if(points.begin() + 1, points.end() - 1,
                                 [way_nm](const PlanPoint& p) { return p.way_nm > way_nm; });
  const PlanPoint& before = *std::prev(next);
  PlanPoint point = pointNamed(
      name,
      sphere::pointAlong(before.place, sphere::courseAtStart_deg(before.place, next->place),
                         way_nm - before.way_nm),
      kind);
  point.way_nm = way_nm;
  points.insert(next, point);
}

/// One flight in the making.
class Planning {
 public:
  Planning(const Route& route, const PlanTask& task)
      : route_(route), task_(task), aircraft_(task.aircraft) {
    flight_.aircraft = task.aircraft;
  }

  PlannedFlight run() {
    const double end_ft = takeWaypoints();
    splitAtDateLine();
    measureWays(points_);
    checkLegs();
    tellWhatIsHardToFly();
    const VerticalPlan vertical(
        aircraft_, {elevationOf(route_.points.front()), cruise_ft(), end_ft, wayToEnd_nm()});
    takeProfile(vertical, end_ft);
    takeWeights(vertical);
    flight_.points = std::move(points_);
    return std::move(flight_);
  }

 private:
  /// The waypoints with those of the approach; the altitude at E/D.
  double takeWaypoints() {
    for (const RoutePoint& point : route_.points) addWaypoint(point);
    if (points_.size() < 2) refuse("the route begins and ends at the same place");
    nameWaypoints();
    return task_.runway ? takeRunway(*task_.runway) : takeAirport();
  }

  void addWaypoint(const RoutePoint& point) {
    if (!points_.empty() && sphere::distance_nm(points_.back().place, point.place) < ShortestLeg_nm)
      notice(printable(point.name.substr(0, 40)) + " is left out: it lies where " +
             nameOf(points_.back()) + " lies");
    else
      points_.push_back(pointNamed(point.name, point.place));
  }

  double takeRunway(const ArrivalRunway& runway) {
    const Approach approach = approachTo(runway);
    PlanPoint destination = points_.back();
    const double off_nm = sphere::distance_nm(destination.place, runway.threshold);
    if (off_nm > FarthestRunway_nm)
      refuse("the runway lies " + whole(off_nm) + " NM from " + nameOf(destination) +
             ", the end of the route");
    points_.pop_back();
    leaveOutNear(runway.threshold, approach.end_nm);
    points_.push_back(pointNamed("E/D", approach.endOfDescent));
    points_.push_back(pointNamed(approach.rowName, approach.glidePath));
    destination.place = runway.threshold;
    points_.push_back(destination);
    return approach.altitude_ft;
  }

  /// Waypoints within the approach would lead back and forth.
  void leaveOutNear(GeoPoint threshold, double radius_nm) {
    while (points_.size() > 1 &&
           sphere::distance_nm(points_.back().place, threshold) <= radius_nm + ShortestLeg_nm) {
      notice(nameOf(points_.back()) + " is left out: the approach begins farther out");
      points_.pop_back();
    }
  }

  double takeAirport() {
    measureWays(points_);
    const double way_nm = points_.back().way_nm - EndWithoutRunway_nm;
    if (way_nm < ShortestLeg_nm)
      refuse("the route is too short: it has " + whole(points_.back().way_nm) + " NM");
    insertAt(points_, way_nm, "E/D", PlanPoint::Kind::Waypoint);
    return approachAltitude_ft(elevationOf(route_.points.back()));
  }

  /// The autoflight counts longitudes as they stand, so no leg may run over the 180th meridian.
  void splitAtDateLine() {
    int crossings = 0;
    for (std::size_t i = 1; i < points_.size(); ++i) {
      PlanPoint& from = points_[i - 1];
      PlanPoint& to = points_[i];
      const auto crossing = sphere::dateLineCrossing(from.place, to.place);
      if (!crossing) continue;
      if (sphere::distance_nm(from.place, *crossing) < ShortestLeg_nm)
        from.place = *crossing;
      else if (sphere::distance_nm(to.place, *crossing) < ShortestLeg_nm)
        to.place = *crossing;
      else
        insertCrossing(i++, *crossing, ++crossings);
    }
  }

  /// The name is none that a route can have.
  void insertCrossing(std::size_t before, GeoPoint place, int number) {
    if (number > 9) refuse("the route crosses the 180th meridian more than 9 times");
    points_.insert(points_.begin() + static_cast<std::ptrdiff_t>(before),
                   pointNamed("180/" + std::to_string(number), place));
  }

  void nameWaypoints() {
    std::vector<std::string> names;
    for (const PlanPoint& point : points_) names.push_back(point.name);
    names = rowNames(names);
    for (std::size_t i = 0; i < points_.size(); ++i) points_[i].name = names[i];
  }

  double wayToEnd_nm() const {
    return std::find_if(points_.begin(), points_.end(),
                        [](const PlanPoint& p) { return p.name == "E/D"; })
        ->way_nm;
  }

  void checkLegs() const {
    for (std::size_t i = 1; i < points_.size(); ++i)
      if (points_[i].way_nm - points_[i - 1].way_nm > LongestLeg_nm)
        refuse("the leg from " + points_[i - 1].name + " to " + points_[i].name +
               " has more than " + whole(LongestLeg_nm) + " NM");
  }

  /// docs/flights.md: what the autoflight cannot hold.
  void tellWhatIsHardToFly() {
    for (std::size_t i = 1; i < points_.size(); ++i) {
      const double course = sphere::courseAtStart_deg(points_[i - 1].place, points_[i].place);
      if (std::fabs(std::sin(course * RadiansPerDegree)) < NearMeridian)
        notice("the leg from " + points_[i - 1].name + " to " + points_[i].name +
               " runs nearly north or south: LNAV may not hold it");
      if (i + 1 == points_.size()) return;
      const double turn = turnAt_deg(i);
      if (turn > SharpestTurn_deg)
        notice("the turn at " + points_[i].name + " has " + whole(turn) +
               " degrees: with more than " + whole(SharpestTurn_deg) + " LNAV may lose the leg");
    }
  }

  double turnAt_deg(std::size_t i) const {
    const double before = sphere::courseAtEnd_deg(points_[i - 1].place, points_[i].place);
    const double behind = sphere::courseAtStart_deg(points_[i].place, points_[i + 1].place);
    return std::fabs(std::remainder(behind - before, 360.0));
  }

  double cruise_ft() const {
    const auto asked = task_.cruise_ft ? task_.cruise_ft : route_.cruise_ft;
    if (!asked) refuse("the route tells no cruise altitude: give a level with --cruise");
    if (*asked > aircraft_.ceiling_ft)
      refuse("a " + std::string(aircraft_.name) + " does not cruise above " +
             whole(aircraft_.ceiling_ft) + " feet, " + whole(*asked) + " were asked for");
    return std::floor(*asked / Level_ft) * Level_ft;
  }

  void takeProfile(const VerticalPlan& vertical, double end_ft) {
    if (vertical.cruise_ft() < cruise_ft())
      notice("the cruise is lowered to " + whole(vertical.cruise_ft()) +
             " feet: the route is too short for " + whole(cruise_ft()));
    flight_.cruise_ft = vertical.cruise_ft();
    // The autoflight lets the descent begin where it goes over to a leg of the descent: T/D is
    // flown to as a waypoint.
    const double descent_nm = clearOfWaypoints_nm(vertical.topOfDescent_nm());
    insertAt(points_, descent_nm, "T/D", PlanPoint::Kind::Waypoint);
    insertBeforeEnd();
    insertAt(points_, vertical.topOfClimb_nm(), "T/C", PlanPoint::Kind::Profile);
    for (PlanPoint& point : points_) {
      point.altitude_ft = vertical.altitudeAt_ft(point.way_nm);
      point.speed_kt = vertical.speedAt_kt(point.way_nm);
      point.target_ft = point.way_nm < descent_nm ? vertical.cruise_ft() : end_ft;
      point.descent_nm = std::max(point.way_nm - descent_nm, 0.0);
    }
  }

  /// As the descent, the approach begins at the change to the leg to E/D at the latest: no longer
  /// leg than the approach may lead there.
  void insertBeforeEnd() {
    const double way_nm = wayToEnd_nm() - ApproachBegins_nm;
    const auto end = std::find_if(points_.begin(), points_.end(),
                                  [](const PlanPoint& p) { return p.name == "E/D"; });
    if (way_nm - std::prev(end)->way_nm > LeastToDescent_nm)
      insertAt(points_, way_nm, "8/ED", PlanPoint::Kind::Waypoint);
  }

  /// So that both parts of the leg are long enough to be flown.
  double clearOfWaypoints_nm(double way_nm) const {
    const auto next = std::find_if(points_.begin() + 1, points_.end() - 1,
                                   [way_nm](const PlanPoint& p) { return p.way_nm > way_nm; });
    const double begin_nm = std::prev(next)->way_nm;
    const double least_nm = std::min(LeastToDescent_nm, (next->way_nm - begin_nm) / 2);
    return std::clamp(way_nm, begin_nm + least_nm, next->way_nm - least_nm);
  }

  void takeWeights(const VerticalPlan& vertical) {
    flight_.withoutFuel_lb = task_.weightWithoutFuel_lb.value_or(aircraft_.usualWithoutFuel_lb);
    flight_.reserve_lb = task_.reserve_lb.value_or(aircraft_.usualReserve_lb);
    flight_.tripFuel_lb = vertical.tripFuel_lb();
    flight_.landing_lb = flight_.withoutFuel_lb + flight_.reserve_lb;
    flight_.takeoff_lb = flight_.landing_lb + flight_.tripFuel_lb;
    checkWeight("without fuel", flight_.withoutFuel_lb, aircraft_.mostWithoutFuel_lb);
    checkWeight("for the landing", flight_.landing_lb, aircraft_.mostForLanding_lb);
    checkWeight("for the take-off", flight_.takeoff_lb, aircraft_.mostForTakeoff_lb);
  }

  void checkWeight(const char* when, double weight_lb, double most_lb) const {
    if (weight_lb >= aircraft_.emptyWeight_lb && weight_lb <= most_lb) return;
    refuse("a " + std::string(aircraft_.name) + " has " + whole(aircraft_.emptyWeight_lb) + " to " +
           whole(most_lb) + " lb " + when + ", not " + whole(weight_lb));
  }

  void notice(std::string text) { flight_.notices.push_back(std::move(text)); }

  const Route& route_;
  const PlanTask& task_;
  const AircraftPerformance& aircraft_;
  Points points_;
  PlannedFlight flight_;
};

}  // namespace

PlannedFlight planFlight(const Route& route, const PlanTask& task) {
  return Planning(route, task).run();
}

}  // namespace vorlent
