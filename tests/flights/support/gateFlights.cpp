// Whole flights, from runway to runway.

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>

#include "FlightCase.h"
#include "GateToGate.h"
#include "autoflight/clsAfds.h"
#include "base/units.h"
#include "conditions.h"
#include "figures.h"

namespace vorlent {
namespace {

/// Half a dot of an instrument on which two dots are full deflection.
constexpr double HalfDot_pct = 25;
constexpr double FullNeedle = 127;

double phasesOutOfOrder(const std::vector<int>& phases) {
  std::vector<int> from = phases;
  from.erase(from.begin(), std::ranges::find(from, int{Phase::TakeoffRoll}));
  const std::vector<int> normal{Phase::TakeoffRoll, Phase::Climb,   Phase::Cruise,
                                Phase::PreDescent,  Phase::Descent, Phase::Approach};
  return from == normal ? 0 : 1;
}

double needle_pct(Samples samples, double Sample::*needle) {
  return largest(samples, [&](const Sample& s) { return std::fabs(s.*needle); }) / FullNeedle * 100;
}

/// Below 1000 feet above the runway.
Samples shortFinal(const Flight& flight) {
  const Samples all = flight.samples();
  const auto high =
      std::find_if(all.rbegin(), all.rend(), [](const Sample& s) { return s.altitude_ft > 1075; });
  return all.last(static_cast<std::size_t>(high - all.rbegin()));
}

/// NAME-plan.csv beside the trace: each point of the plan with the altitude that is expected there.
void writePlan(const std::string& name, const PlannedFlight& plan) {
  const char* folder = std::getenv("VORLENT_FLIGHT_DATA");
  if (folder == nullptr) return;
  std::ofstream file(std::string(folder) + "/" + name + "-plan.csv");
  file << "name,latitude_deg,longitude_deg,altitude_ft\n";
  for (const PlanPoint& point : plan.points)
    file << point.name << ',' << point.place.latitude_deg << ',' << point.place.longitude_deg << ','
         << point.altitude_ft << '\n';
}

Figures gateToGate(const std::string& name, const Condition& condition, const std::string& tuning) {
  GateToGate gates(condition, tuning);
  gates.fly();
  const Samples final = shortFinal(gates.flight());
  gates.flight().writeTrace(name);
  writePlan(name, gates.plan());
  return {{"runway not reached", "times", gates.arrived() ? 0.0 : 1.0, 0},
          {"phases out of order", "times", phasesOutOfOrder(gates.phases()), 0},
          {"LNAV lost", "times", static_cast<double>(gates.timesLnavWasLost()), 0},
          {"descent begun from the planned point", "NM", gates.descentBegun_nm(), 2},
          {"altitude at E/D", "ft", gates.endOfDescent().altitude_ft, 200},
          {"speed at E/D", "kt", gates.endOfDescent().speed_kt, 10},
          {"off the leg a minute after each change", "NM", gates.offLeg_nm(), 0.3},
          {"localizer below 1000 ft", "%", needle_pct(final, &Sample::needle), HalfDot_pct},
          {"glide path below 1000 ft", "%", needle_pct(final, &Sample::glideNeedle), HalfDot_pct}};
}

}  // namespace

std::vector<FlightCase> gateFlights() {
  std::vector<FlightCase> all;
  const auto add = [&all](const std::string& name, const Condition& condition, bool seldom) {
    all.push_back({name,
                   [=](const std::string& tuning) { return gateToGate(name, condition, tuning); },
                   seldom});
  };
  for (const NamedCondition& at : landingConditions()) add("gate-" + at.name, at.condition, false);
  for (const NamedWind& blowing : routeWinds())
    for (NamedCondition at : landingConditions()) {
      at.condition.wind = blowing.wind;
      add("gate-" + at.name + "-" + blowing.name + "wind", at.condition, at.name != "737-light");
    }
  return all;
}

}  // namespace vorlent
