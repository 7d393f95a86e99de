// Level changes and vertical speed.

#include <algorithm>
#include <cmath>

#include "FlightCase.h"
#include "autoflight/clsXAutoP.h"
#include "conditions.h"
#include "figures.h"

namespace vorlent {
namespace {

enum class Way { Up = 1, Down = -1 };

constexpr double steadyAfter_s = 40;
constexpr double levelChange_ft = 4000;

/// The server starts with 85 percent for the climb, which is too little high up: there a pilot
/// turns the selector to both and dials.
void selectClimbThrust(Flight& flight, double to_ft) {
  if (to_ft < 20000) return;
  flight.press(Press::N1SelectorUp);
  flight.dial(Dial::N1, 95);
}

double overshootOf(Samples samples, double to_ft, Way way) {
  return way == Way::Up ? highest(samples, &Sample::altitude_ft) - to_ft
                        : to_ft - lowest(samples, &Sample::altitude_ft);
}

/// Ends, or in the climb to cruise begins, at the altitude of the condition.
Figures changeLevel(const std::string& name, const Condition& condition, Way way,
                    const std::string& tuning) {
  Flight flight(condition, tuning);
  flight.engageLevel();
  flight.fly(60);
  const double to_ft =
      std::round(condition.altitude_ft) + levelChange_ft * static_cast<double>(way);
  flight.dial(Dial::Altitude, to_ft);
  const auto start = flight.mark();
  if (way == Way::Up) selectClimbThrust(flight, to_ft);
  flight.press(Press::LevelChange);
  flight.fly(steadyAfter_s);
  const auto steady = flight.mark();
  const auto byPitch = [&] { return flight.autopilot().apAirspeedHoldByPitch() == 1; };
  flight.flyUntil([&] { return !byPitch(); }, 600);
  const auto captured = flight.mark();
  flight.fly(180);
  const Samples after = flight.since(captured);
  flight.writeTrace(name);
  Figures figures{
      {"overshoot", "ft", overshootOf(after, to_ft, way), 150},
      {"load", "g", largestLoad_g(flight.since(start)), 0.2},
      {"level again", "ft", largestError(flight.last(60), &Sample::altitude_ft, to_ft), 30}};
  if (captured > steady)
    figures.push_back(
        {"speed by pitch", "kt", speedError_kt(flight.since(steady).first(captured - steady)), 7});
  return figures;
}

struct VerticalSpeedFlown {
  double largest_fpm;
  double mean_fpm;
  double load_g;
  double speed_kt;
};

/// 1000 feet a minute for three minutes, engaged `later_s` after a minute of level flight.
VerticalSpeedFlown flyVerticalSpeed(const std::string& name, const Condition& condition, Way way,
                                    const std::string& tuning, double later_s) {
  constexpr double outOfTheWay_ft = 6000;
  Flight flight(condition, tuning);
  flight.engageLevel();
  flight.fly(60 + later_s);
  const double wanted_fpm = 1000 * static_cast<double>(way);
  flight.dial(Dial::Altitude,
              std::round(condition.altitude_ft) + outOfTheWay_ft * static_cast<double>(way));
  const auto start = flight.mark();
  flight.press(Press::VerticalSpeed);
  flight.dial(Dial::VerticalSpeed, wanted_fpm);
  flight.fly(steadyAfter_s);
  const auto steady = flight.mark();
  flight.fly(140);
  const Samples climb = flight.since(steady);
  flight.writeTrace(name);
  return {largestError(climb, &Sample::climb_fpm, wanted_fpm),
          std::fabs(mean(climb, &Sample::climb_fpm) - wanted_fpm),
          largestLoad_g(flight.since(start)), speedError_kt(climb)};
}

/// The law sees the polls' 60 ms against the cycle's 400 ms always at the same point of their
/// common 1.2 s, which the moment of the engagement decides: there are three.
Figures changeByVerticalSpeed(const std::string& name, const Condition& condition, Way way,
                              const std::string& tuning) {
  constexpr double cycle_s = 0.4;
  VerticalSpeedFlown worst{0, 0, 0, 0};
  double leastMean_fpm = INFINITY;
  for (const int moment : {0, 1, 2}) {
    const VerticalSpeedFlown flown = flyVerticalSpeed(name + "-" + std::to_string(moment),
                                                      condition, way, tuning, moment * cycle_s);
    worst = {std::max(worst.largest_fpm, flown.largest_fpm),
             std::max(worst.mean_fpm, flown.mean_fpm), std::max(worst.load_g, flown.load_g),
             std::max(worst.speed_kt, flown.speed_kt)};
    leastMean_fpm = std::min(leastMean_fpm, flown.mean_fpm);
  }
  return {{"vertical speed", "ft/min", worst.largest_fpm, 100},
          {"its mean", "ft/min", worst.mean_fpm, 100},
          {"its mean at the best moment", "ft/min", leastMean_fpm, 100},
          {"load", "g", worst.load_g, 0.2},
          {"speed by throttle", "kt", worst.speed_kt, 5}};
}

Condition below(Condition condition, double feet) {
  condition.altitude_ft -= feet;
  return condition;
}

}  // namespace

std::vector<FlightCase> verticalFlights() {
  std::vector<FlightCase> all;
  const auto plan = [&all](const std::string& name, const Condition& condition, Way way,
                           auto manoeuvre) {
    all.push_back(
        {name, [=](const std::string& tuning) { return manoeuvre(name, condition, way, tuning); }});
  };
  for (const NamedCondition& at : conditions()) {
    // A climb that ends at cruise altitude: no aircraft could do it from there.
    const bool high = at.condition.altitude_ft > 20000;
    const Condition climbs = high ? below(at.condition, levelChange_ft) : at.condition;
    plan("climb-" + at.name, climbs, Way::Up, changeLevel);
    plan("descent-" + at.name, at.condition, Way::Down, changeLevel);
    plan("vs-up-" + at.name, climbs, Way::Up, changeByVerticalSpeed);
    plan("vs-down-" + at.name, at.condition, Way::Down, changeByVerticalSpeed);
  }
  return all;
}

}  // namespace vorlent
