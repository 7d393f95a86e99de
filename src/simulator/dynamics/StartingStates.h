#pragma once

#include <optional>
#include <string_view>

#include "base/units.h"
#include "simulator/NavStations.h"
#include "simulator/dynamics/FlightModel.h"
#include "simulator/dynamics/TrimSolver.h"

namespace vorlent {

/// Cold is parked and dark; Runway has idling engines, flaps 5 and the parking brake set; Level is
/// at 5000 feet and 250 knots, clean; Cruise at 35000 feet and Mach 0.78; Final ten miles before
/// the threshold, 3000 feet above it, with flaps 15. The airborne ones are in trim.
enum class StartingState { Cold, Runway, Level, Cruise, Final };

/// "cold", "runway", "level", "cruise", "final".
std::optional<StartingState> startingStateNamed(std::string_view name);

/// Everything that a flight begins with.
struct Departure {
  FlightModel::Start start;
  ControlInputs controls;
};

/// Steady level flight anywhere: without another place 40 miles out on the approach.
struct LevelStart {
  TrimPoint point;
  Place place = onApproach(HomeRunway, 40 * MetresPerNauticalMile);
  double heading_deg = HomeRunway.course_deg;  ///< true
};

/// Raises Overflow when the aircraft cannot fly steadily in that state with this mass.
Departure departureFor(StartingState state, const PlantData& plant, double addedMass_kg,
                       const FuelLoad& fuel);
/// The same for level flight; raises likewise.
Departure departureFor(const LevelStart& start, const PlantData& plant, double addedMass_kg,
                       const FuelLoad& fuel);

}  // namespace vorlent
