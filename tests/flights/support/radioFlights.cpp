// VOR and localizer: from heading select onto the course, and along it.

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "FlightCase.h"
#include "autoflight/clsXAutoP.h"
#include "conditions.h"
#include "figures.h"

namespace vorlent {
namespace {

/// A beam to be flown in to: the station's end of it, where it comes from, and how it is tuned.
struct Beam {
  const char* name;
  Place end;
  double course_deg;        ///< true
  std::uint16_t frequency;  ///< packed digits without the leading 1
  double width_deg;         ///< from the course to full deflection
};

constexpr double variation_deg = HomeRunway.magneticVariation_deg;
constexpr Beam localizer{"loc", HomeRunway.threshold, 240, 0x1030, 1.86};
constexpr Beam noordwal{"vor", {52.11534, 4.89151}, 250, 0x1360, 10};

/// Degrees off the beam as seen from its end, right positive.
double offBeam_deg(const Beam& beam, const Sample& s) {
  return signedAngle(bearing_deg(beam.end, {s.latitude_deg, s.longitude_deg}) -
                     (beam.course_deg + 180)) *
         -1;
}

/// `distance_nm` out and `aside_nm` to the right of the beam, flying across it by 30 degrees.
Condition nearBeam(Condition condition, const Beam& beam, double distance_nm, double aside_nm) {
  const Place on = placeFrom(beam.end, beam.course_deg + 180, distance_nm * MetresPerNauticalMile);
  condition.at.place = placeFrom(on, beam.course_deg + 90, aside_nm * MetresPerNauticalMile);
  condition.at.heading_deg = compass(beam.course_deg + (aside_nm > 0 ? -30 : 30));
  return condition;
}

Figures capture(const std::string& name, const Condition& condition, const Beam& beam,
                const std::string& tuning) {
  Flight flight(condition, tuning);
  flight.memory().write(0x0350, beam.frequency);
  flight.memory().write(
      0x0C4E, static_cast<std::uint16_t>(std::lround(compass(beam.course_deg - variation_deg))));
  flight.engageLevel();
  // The pilot waits for the needle: before, the law would steer by the heading alone.
  const bool alive = flight.flyUntil(
      [&] { return flight.now().needle != 0 && std::fabs(flight.now().needle) < 120; }, 300);
  const double side = offBeam_deg(beam, flight.now()) > 0 ? 1 : -1;
  flight.press(Press::VorLoc);
  const auto begun = flight.mark();
  flight.fly(150);
  const auto settled = flight.mark();
  flight.fly(60);
  const Samples all = flight.since(begun);
  const Samples end = flight.since(settled);
  const double overshoot_deg =
      largest(all, [&](const Sample& s) { return -side * offBeam_deg(beam, s); });
  const double off_deg =
      largest(end, [&](const Sample& s) { return std::fabs(offBeam_deg(beam, s)); });
  flight.writeTrace(name);
  return {{"needle missed", "times", alive ? 0.0 : 1.0, 0},
          {"overshoot of full deflection", "%", overshoot_deg / beam.width_deg * 100, 50},
          {"off course of full deflection", "%", off_deg / beam.width_deg * 100, 10},
          {"bank swing", "deg", swing(end, &Sample::bank_deg), 1},
          {"bank beyond the limit", "deg", bankBeyondLimit_deg(all), 2}};
}

}  // namespace

std::vector<FlightCase> radioFlights() {
  std::vector<FlightCase> all;
  for (const NamedCondition& at : conditions()) {
    const bool slow = at.condition.flapDetent > 0;
    if (at.condition.altitude_ft > 20000 || (!slow && at.condition.altitude_ft < 10000)) continue;
    for (const double side : {1.0, -1.0}) {
      const Beam& beam = slow ? localizer : noordwal;
      Condition c = nearBeam(at.condition, beam, slow ? 17 : 35, side * (slow ? 2 : 8));
      if (slow) c.altitude_ft = 3000;
      const std::string name = std::string(beam.name) + (side > 0 ? "-right-" : "-left-") + at.name;
      all.push_back(
          {name, [=](const std::string& tuning) { return capture(name, c, beam, tuning); }});
    }
  }
  return all;
}

}  // namespace vorlent
