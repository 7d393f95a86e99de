// Altitude, heading and speed hold, turns and changes of speed.

#include <algorithm>
#include <cmath>

#include "FlightCase.h"
#include "autoflight/clsXAutoP.h"
#include "conditions.h"
#include "figures.h"

namespace vorlent {
namespace {

/// From engagement on, until a flight counts as settled.
constexpr double settling_s = 60;

Figures hold(const std::string& name, const Condition& condition, const std::string& tuning) {
  const bool calm = condition.wind.turbulence == Turbulence::None;
  Flight flight(condition, tuning);
  flight.engageLevel();
  flight.fly(settling_s);
  const auto settled = flight.mark();
  flight.fly(180);
  const Samples held = flight.since(settled);
  Figures figures{{"altitude", "ft", altitudeError_ft(held), calm ? 30.0 : 65.0},
                  {"heading", "deg", headingError_deg(held), 0.5},
                  {"speed", "kt", speedError_kt(held), 5}};
  if (calm) {
    const Samples end = flight.last(120);
    figures.push_back({"altitude swing", "ft", swing(end, &Sample::altitude_ft), 20});
    figures.push_back({"pitch swing", "deg", swing(end, &Sample::pitch_deg), 1});
    figures.push_back({"bank swing", "deg", swing(end, &Sample::bank_deg), 1});
    figures.push_back({"N1 swing", "%", swing(end, &Sample::n1_pct), 2});
  }
  flight.writeTrace(name);
  return figures;
}

/// The farthest beyond `heading_deg` in the direction of the turn, 1 right and -1 left.
double overshoot_deg(Samples turn, double heading_deg, double direction) {
  return largest(
      turn, [&](const Sample& s) { return direction * signedAngle(s.heading_deg - heading_deg); });
}

/// 90 degrees to the right, then 20 to the left.
Figures turn(const std::string& name, const Condition& condition, const std::string& tuning) {
  Flight flight(condition, tuning);
  flight.engageLevel();
  flight.fly(settling_s);
  const auto start = flight.mark();
  double heading_deg = flight.now().targetHeading_deg;
  double beyond_deg = 0;
  double left_deg = 0;
  for (const double by_deg : {90.0, -20.0}) {
    heading_deg = compass(heading_deg + by_deg);
    const auto begun = flight.mark();
    flight.dial(Dial::Heading, heading_deg);
    flight.fly(150);
    const double direction = by_deg > 0 ? 1 : -1;
    beyond_deg = std::max(beyond_deg, overshoot_deg(flight.since(begun), heading_deg, direction));
    left_deg = std::max(left_deg, headingError_deg(flight.last(30)));
  }
  const Samples turns = flight.since(start);
  flight.writeTrace(name);
  return {{"heading overshoot", "deg", beyond_deg, 1.5},
          {"heading", "deg", left_deg, 0.5},
          {"bank beyond the limit", "deg", bankBeyondLimit_deg(turns), 2},
          {"altitude in the turn", "ft", altitudeError_ft(turns), 30}};
}

/// 20 knots less, then as before.
Figures changeSpeed(const std::string& name, const Condition& condition,
                    const std::string& tuning) {
  Flight flight(condition, tuning);
  flight.engageLevel();
  flight.fly(settling_s);
  const double speed_kt = flight.now().targetSpeed_kt;
  double most_kt = 0;
  for (const double wanted_kt : {speed_kt - 20, speed_kt}) {
    flight.dial(Dial::Speed, wanted_kt);
    flight.fly(150);
    most_kt = std::max(most_kt, speedError_kt(flight.last(60)));
  }
  flight.writeTrace(name);
  return {{"speed by throttle", "kt", most_kt, 5}};
}

}  // namespace

std::vector<FlightCase> levelFlights() {
  std::vector<FlightCase> all;
  for (const Turbulence air : {Turbulence::None, Turbulence::Moderate})
    for (const NamedCondition& at : conditions(air)) {
      const std::string name = (air == Turbulence::None ? "hold-" : "rough-") + at.name;
      all.push_back(
          {name, [=](const std::string& tuning) { return hold(name, at.condition, tuning); }});
    }
  for (const NamedCondition& at : conditions()) {
    const std::string turning = "turn-" + at.name;
    all.push_back(
        {turning, [=](const std::string& tuning) { return turn(turning, at.condition, tuning); }});
    const std::string speed = "speed-" + at.name;
    all.push_back({speed, [=](const std::string& tuning) {
                     return changeSpeed(speed, at.condition, tuning);
                   }});
  }
  return all;
}

}  // namespace vorlent
