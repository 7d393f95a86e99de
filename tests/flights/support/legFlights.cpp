// LNAV: along legs of every direction and hemisphere, in wind from every side, and from leg to leg.

#include <algorithm>
#include <cmath>

#include "FlightCase.h"
#include "RouteFlight.h"
#include "autoflight/clsAfds.h"
#include "base/units.h"
#include "conditions.h"
#include "figures.h"
#include "simulator/angles.h"

namespace vorlent {
namespace {

constexpr Place Home{52, 5};
constexpr double Aside_nm = 0.5;
constexpr double Behind_nm = 5;
constexpr double Leg_nm = 80;

Place farther(Place from, double course_deg, double distance_nm) {
  return placeFrom(from, course_deg, distance_nm * MetresPerNauticalMile);
}

/// Legs one behind the other, each of a length, a course at its beginning, and a level.
FlownRoute routeFrom(Place begin, double altitude_ft,
                     const std::vector<std::pair<double, double>>& legs) {
  FlownRoute route{{"START", begin, static_cast<int>(altitude_ft)}};
  double course_deg = 0;
  for (const auto& [length_nm, turn_deg] : legs) {
    course_deg += turn_deg;
    FlownPoint point = route.back();
    point.name = "WPT" + std::to_string(route.size());
    point.place = farther(route.back().place, course_deg, length_nm);
    route.push_back(point);
  }
  return route;
}

/// On the first leg of the route, `Aside_nm` to its left or right, flying along.
Condition besideLeg(Condition condition, const FlownRoute& route, double side) {
  const double course_deg = bearing_deg(route[0].place, route[1].place);
  const Place on = farther(route[0].place, course_deg, Behind_nm);
  condition.at.place = farther(on, course_deg + 90, side * Aside_nm);
  condition.at.heading_deg = course_deg;
  return condition;
}

void engage(RouteFlight& route) {
  route.flight().engageLevel();
  route.flight().press(Press::Lnav);
}

double farthestOff_nm(const RouteFlight& route, Samples samples) {
  return largest(samples, [&](const Sample& s) { return std::fabs(route.crossTrack_nm(s)); });
}

/// Changes of the side to which the aircraft banks; what is less than 3 degrees is no bank.
double bankReversals(Samples samples) {
  int changes = 0;
  double side = 0;
  for (const Sample& s : samples) {
    if (std::fabs(s.bank_deg) < 3) continue;
    const double now = s.bank_deg > 0 ? 1 : -1;
    if (side != 0 && now != side) ++changes;
    side = now;
  }
  return changes;
}

double lnavLost(RouteFlight& route) { return route.flight().afds().LNAV() == 1 ? 0 : 1; }

Figures alongLeg(const std::string& name, const Condition& condition, const FlownRoute& plan,
                 const std::string& tuning) {
  RouteFlight route(condition, plan, tuning);
  engage(route);
  route.fly(60);
  const auto settled = route.flight().mark();
  route.fly(240);
  const Samples after = route.flight().since(settled);
  route.flight().writeTrace(name);
  return {{"LNAV lost", "times", lnavLost(route), 0},
          {"off the leg after a minute", "NM", farthestOff_nm(route, after), 0.3},
          {"off the leg at rest", "NM", farthestOff_nm(route, route.flight().last(60)), 0.1},
          {"bank swing at rest", "deg", swing(route.flight().last(60), &Sample::bank_deg), 1}};
}

Figures changeLeg(const std::string& name, const Condition& condition, const FlownRoute& plan,
                  const std::string& tuning) {
  RouteFlight route(condition, plan, tuning);
  engage(route);
  const bool changed = route.flyUntil([&] { return route.active() == 2; }, 400);
  const auto turned = route.flight().mark();
  route.fly(60);
  const auto settled = route.flight().mark();
  route.fly(180);
  route.flight().writeTrace(name);
  return {{"leg not changed", "times", changed ? 0.0 : 1.0, 0},
          {"LNAV lost", "times", lnavLost(route), 0},
          {"off the leg a minute after the change", "NM",
           farthestOff_nm(route, route.flight().since(settled)), 0.3},
          {"off the leg at rest", "NM", farthestOff_nm(route, route.flight().last(60)), 0.1},
          {"reversals of bank", "times", bankReversals(route.flight().since(turned)), 1}};
}

struct Region {
  const char* name;
  Place place;
};

const Condition& middling() {
  static const Condition at = [] {
    Condition c;
    c.altitude_ft = 15000;
    c.speed_kt = 280;
    return c;
  }();
  return at;
}

FlightCase legFlight(const std::string& name, const Condition& condition, const FlownRoute& route,
                     double side) {
  const Condition beside = besideLeg(condition, route, side);
  return {name, [=](const std::string& tuning) { return alongLeg(name, beside, route, tuning); }};
}

void addDirections(std::vector<FlightCase>& all) {
  const std::pair<const char*, double> directions[] = {
      {"north", 0},   {"northeast", 50},  {"east", 90},  {"southeast", 130},
      {"south", 180}, {"southwest", 230}, {"west", 270}, {"northwest", 310}};
  for (const auto& [name, course_deg] : directions)
    for (const double side : {-1.0, 1.0})
      all.push_back(legFlight(
          std::string("leg-") + name + (side < 0 ? "-left" : "-right"), middling(),
          routeFrom(Home, middling().altitude_ft, {{Leg_nm, course_deg}, {20, 0}}), side));
}

void addWinds(std::vector<FlightCase>& all) {
  constexpr double course_deg = 50;
  const std::pair<const char*, double> winds[] = {
      {"head", 0}, {"right", 90}, {"tail", 180}, {"left", 270}};
  for (const auto& [name, from_deg] : winds) {
    Condition c = middling();
    c.wind.layers = {{2000, compass(course_deg + from_deg), 60}};
    all.push_back(legFlight(std::string("leg-wind-") + name, c,
                            routeFrom(Home, c.altitude_ft, {{Leg_nm, course_deg}, {20, 0}}), -1));
  }
}

void addConditions(std::vector<FlightCase>& all) {
  for (const NamedCondition& at : conditions()) {
    if (at.condition.flapDetent > 0) continue;
    all.push_back(legFlight("leg-" + at.name, at.condition,
                            routeFrom(Home, at.condition.altitude_ft, {{Leg_nm, 50}, {20, 0}}),
                            -1));
  }
}

void addRegions(std::vector<FlightCase>& all) {
  const Region regions[] = {{"western", {45, -75}},
                            {"southern", {-33, 150}},
                            {"southwestern", {-33, -70}},
                            {"dateline", {50, 179.5}}};
  for (const Region& region : regions)
    all.push_back(
        legFlight(std::string("leg-") + region.name, middling(),
                  routeFrom(region.place, middling().altitude_ft, {{Leg_nm, 70}, {20, 0}}), -1));
}

/// As much to the south as before to the north, or the other way round: along a meridian the
/// distance from a leg means nothing.
void addTurns(std::vector<FlightCase>& all) {
  for (const double turn_deg : {10.0, 30.0, 60.0, 90.0, 120.0})
    for (const double side : {-1.0, 1.0}) {
      const FlownRoute route =
          routeFrom(Home, middling().altitude_ft,
                    {{20, 90 - side * turn_deg / 2}, {40, side * turn_deg}, {20, 0}});
      const std::string name =
          "corner-" + std::to_string(static_cast<int>(turn_deg)) + (side < 0 ? "-left" : "-right");
      const Condition beside = besideLeg(middling(), route, 0);
      all.push_back({name, [=](const std::string& tuning) {
                       return changeLeg(name, beside, route, tuning);
                     }});
    }
}

}  // namespace

std::vector<FlightCase> legFlights() {
  std::vector<FlightCase> all;
  addDirections(all);
  addWinds(all);
  addConditions(all);
  addRegions(all);
  addTurns(all);
  return all;
}

}  // namespace vorlent
