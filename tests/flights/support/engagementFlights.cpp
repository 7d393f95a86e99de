// From every mode into every other one.

#include <algorithm>
#include <functional>

#include "FlightCase.h"
#include "autoflight/clsXAutoP.h"
#include "conditions.h"
#include "figures.h"

namespace vorlent {
namespace {

struct Mode {
  const char* name;
  void (*engage)(Flight& flight, double altitude_ft);
};

void verticalSpeed(Flight& flight, double altitude_ft, double feetPerMinute) {
  flight.dial(Dial::Altitude, altitude_ft + 6 * feetPerMinute);
  if (flight.autopilot().apVSpeedHold() != 1) flight.press(Press::VerticalSpeed);
  flight.dial(Dial::VerticalSpeed, feetPerMinute);
}

void levelChange(Flight& flight, double altitude_ft, double by_ft) {
  flight.dial(Dial::Altitude, altitude_ft + by_ft);
  if (flight.autopilot().apLevelChange() == 1) flight.press(Press::LevelChange);
  flight.press(Press::LevelChange);
}

constexpr Mode modes[] = {
    {"altitude hold", [](Flight& f, double) { f.press(Press::AltitudeHold); }},
    {"V/S up", [](Flight& f, double at_ft) { verticalSpeed(f, at_ft, 1000); }},
    {"V/S down", [](Flight& f, double at_ft) { verticalSpeed(f, at_ft, -1000); }},
    {"level change up", [](Flight& f, double at_ft) { levelChange(f, at_ft, 6000); }},
    {"level change down", [](Flight& f, double at_ft) { levelChange(f, at_ft, -4000); }},
    {"CWS", [](Flight& f, double) { f.press(Press::CwsA); }},
};

/// The largest load in the 15 seconds after one mode takes over from another.
double loadOfChange(const Condition& condition, const Mode& from, const Mode& to,
                    const std::string& tuning) {
  Flight flight(condition, tuning);
  flight.engageLevel();
  flight.fly(20);
  from.engage(flight, condition.altitude_ft);
  flight.fly(20);
  const auto changed = flight.mark();
  to.engage(flight, condition.altitude_ft);
  flight.fly(15);
  return largestLoad_g(flight.since(changed));
}

Figures intoEveryMode(const Condition& condition, const std::string& tuning) {
  Figures figures;
  for (const Mode& to : modes) {
    double most_g = 0;
    for (const Mode& from : modes)
      if (&from != &to) most_g = std::max(most_g, loadOfChange(condition, from, to, tuning));
    figures.push_back({std::string("load into ") + to.name, "g", most_g, 0.2});
  }
  return figures;
}

}  // namespace

std::vector<FlightCase> engagementFlights() {
  std::vector<FlightCase> all;
  for (const NamedCondition& at : conditions())
    all.push_back({"engage-" + at.name,
                   [=](const std::string& tuning) { return intoEveryMode(at.condition, tuning); }});
  return all;
}

}  // namespace vorlent
