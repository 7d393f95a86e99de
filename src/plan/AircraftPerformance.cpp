#include "plan/AircraftPerformance.h"

namespace vorlent {
namespace {

// Speeds, rates and cruise fuel of the 737-700: statistics of its flights in WRAP (Sun, Ellerbroek
// and Hoekstra, Transportation Research Part C 98, 2019), where those leave a range the value near
// which the built-in aircraft was measured (docs/aircraft.md). Its empty and its largest weight are
// those of the built-in aircraft. Ceilings: the types' certificates (FAA A16WE). All else is an
// estimate: weights, thrust, fuel in climb and descent, and every figure of the -300 and the -400,
// which are put beside the -700 by their size.
constexpr AircraftPerformance Known[] = {
    {.name = "737-300",
     .ceiling_ft = 37000,
     .emptyWeight_lb = 72500,
     .mostWithoutFuel_lb = 106500,
     .mostForTakeoff_lb = 138500,
     .mostForLanding_lb = 114000,
     .usualWithoutFuel_lb = 96000,
     .usualReserve_lb = 5500,
     .takeoffN1_pct = 90,
     .climbN1_pct = 88,
     .climbSpeed_kt = 280,
     .climbMach = 0.74,
     .cruiseMach = 0.745,
     .descentSpeed_kt = 280,
     .descentMach = 0.74,
     .approachSpeed_kt = 190,
     .lowClimb_fpm = 2200,
     .climb_fpm = 1600,
     .machClimb_fpm = 1000,
     .lowDescent_fpm = 1150,
     .descent_fpm = 1850,
     .machDescent_fpm = 1700,
     .approachDescent_fpm = 650,
     .climbFuel_lbph = 9500,
     .cruiseFuel_lbph = 5300,
     .descentFuel_lbph = 1700},
    {.name = "737-400",
     .ceiling_ft = 37000,
     .emptyWeight_lb = 76500,
     .mostWithoutFuel_lb = 113000,
     .mostForTakeoff_lb = 150000,
     .mostForLanding_lb = 124000,
     .usualWithoutFuel_lb = 103000,
     .usualReserve_lb = 5500,
     .takeoffN1_pct = 93,
     .climbN1_pct = 90,
     .climbSpeed_kt = 280,
     .climbMach = 0.74,
     .cruiseMach = 0.745,
     .descentSpeed_kt = 280,
     .descentMach = 0.74,
     .approachSpeed_kt = 200,
     .lowClimb_fpm = 2100,
     .climb_fpm = 1500,
     .machClimb_fpm = 900,
     .lowDescent_fpm = 1150,
     .descent_fpm = 1850,
     .machDescent_fpm = 1700,
     .approachDescent_fpm = 650,
     .climbFuel_lbph = 10000,
     .cruiseFuel_lbph = 5700,
     .descentFuel_lbph = 1800},
    {.name = "737-700",
     .ceiling_ft = 41000,
     .emptyWeight_lb = 83001,
     .mostWithoutFuel_lb = 120500,
     .mostForTakeoff_lb = 154500,
     .mostForLanding_lb = 128000,
     .usualWithoutFuel_lb = 113000,
     .usualReserve_lb = 5500,
     .takeoffN1_pct = 94,
     .climbN1_pct = 92,
     .climbSpeed_kt = 290,
     .climbMach = 0.78,
     .cruiseMach = 0.78,
     .descentSpeed_kt = 280,
     .descentMach = 0.78,
     .approachSpeed_kt = 190,
     .lowClimb_fpm = 2350,
     .climb_fpm = 1750,
     .machClimb_fpm = 1200,
     .lowDescent_fpm = 1150,
     .descent_fpm = 1850,
     .machDescent_fpm = 1800,
     .approachDescent_fpm = 650,
     .climbFuel_lbph = 9500,
     .cruiseFuel_lbph = 5200,
     .descentFuel_lbph = 1700},
};

}  // namespace

std::optional<AircraftPerformance> performanceOf(std::string_view aircraft) {
  for (const AircraftPerformance& known : Known)
    if (known.name == aircraft) return known;
  return std::nullopt;
}

std::vector<std::string> knownAircraft() {
  std::vector<std::string> names;
  for (const AircraftPerformance& known : Known) names.emplace_back(known.name);
  return names;
}

}  // namespace vorlent
