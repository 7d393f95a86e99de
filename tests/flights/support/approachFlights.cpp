// APP from level flight on the localizer, down the glide path to 50 feet.

#include <algorithm>
#include <cmath>

#include "FlightCase.h"
#include "base/units.h"
#include "conditions.h"
#include "figures.h"
#include "simulator/FlightScript.h"

namespace vorlent {
namespace {

/// Half a dot of an instrument on which two dots are full deflection.
constexpr double HalfDot_pct = 25;
constexpr double FullNeedle = 127;
constexpr double Runway_ft =
    HomeRunway.elevation_m / MetresPerFoot + 9;  // of the centre of gravity

struct Weather {
  const char* name;
  WindSettings wind;
};

Samples between(const Flight& flight, double higher_ft, double lower_ft) {
  const Samples all = flight.samples();
  const auto above = [&](double height_ft) {
    return std::ranges::find_if(
        all, [&](const Sample& s) { return s.altitude_ft - Runway_ft < height_ft; });
  };
  return {above(higher_ft), above(lower_ft)};
}

double needle_pct(Samples samples, double Sample::*needle) {
  return largest(samples, [&](const Sample& s) { return std::fabs(s.*needle); }) / FullNeedle * 100;
}

/// Gear, and flaps 30 as the aircraft slows down.
void configure(Flight& flight) {
  flight.press(Press::GearDown);
  flight.dial(Dial::Speed, 145);
  for (int detent = 0; detent < 2; ++detent) {
    flight.fly(5);
    flight.press(Press::FlapsDown);
  }
}

Figures approach(const std::string& name, const Condition& condition, const std::string& tuning) {
  Flight flight(condition, tuning);
  flight.memory().write<std::uint16_t>(0x0350, 0x1030);
  flight.memory().write<std::uint16_t>(0x0C4E, 238);
  flight.engageLevel();
  flight.fly(20);
  flight.press(Press::Approach);
  const bool met = flight.flyUntil(
      [&] { return std::fabs(flight.now().glideNeedle) < 20 && flight.now().glideNeedle != 0; },
      300);
  configure(flight);
  const bool arrived =
      flight.flyUntil([&] { return flight.now().altitude_ft - Runway_ft < 50; }, 400);
  flight.writeTrace(name);
  const Samples high = between(flight, 1000, 200);
  const Samples low = between(flight, 200, 50);
  return {
      {"runway not reached", "times", met && arrived ? 0.0 : 1.0, 0},
      {"localizer from 1000 to 200 ft", "%", needle_pct(high, &Sample::needle), HalfDot_pct},
      {"localizer below 200 ft", "%", needle_pct(low, &Sample::needle), HalfDot_pct},
      {"glide path from 1000 to 200 ft", "%", needle_pct(high, &Sample::glideNeedle), HalfDot_pct},
      {"glide path below 200 ft", "%", needle_pct(low, &Sample::glideNeedle), HalfDot_pct},
      {"speed below 1000 ft", "kt", std::max(speedError_kt(high), speedError_kt(low)), 5}};
}

}  // namespace

std::vector<FlightCase> approachFlights() {
  constexpr double flaps15 = 5;
  std::vector<Weather> weather{{"calm", {}}, {"headwind", {}}, {"crosswind", {}}, {"rough", {}}};
  weather[1].wind.from_deg = 240;
  weather[1].wind.speed_kt = 15;
  weather[2].wind.from_deg = 330;
  weather[2].wind.speed_kt = 10;
  weather[3].wind.turbulence = Turbulence::Light;
  std::vector<FlightCase> all;
  for (const NamedCondition& at : landingConditions())
    for (const Weather& air : weather) {
      Condition c = at.condition;
      c.altitude_ft = 3000;
      c.speed_kt = 165;
      c.flapDetent = flaps15;
      c.wind = air.wind;
      c.at.place = onApproach(HomeRunway, 12.5 * MetresPerNauticalMile);
      const std::string name = std::string("approach-") + air.name + "-" + at.name;
      all.push_back({name, [=](const std::string& tuning) { return approach(name, c, tuning); }});
    }
  return all;
}

}  // namespace vorlent
