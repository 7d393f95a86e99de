#pragma once

#include <string>
#include <string_view>

#include "plan/FlightPlanner.h"

namespace vorlent {

/// What the table PerfData tells of a flight. Altitudes are flight levels there, weights pounds.
struct PerfData {
  float ClimbN1;
  int MaxCruiseAlt;
  int CruiseAlt;
  float FuelReserve;
  float TripFuel;
  float ZeroFuelWeight;
  float LandingWeight;
  float TakeoffWeight;
  float TakeoffN1;
  int FMCspeed;
  float ClimbMach;
  float DescentMach;
};

/// While a leg is flown: its speed is the speed of the leg.
PerfData perfDataOf(const PlannedFlight& flight, std::size_t leg);

/// The shipped database with these numbers in the first row of PerfData. Raises InvalidCall when
/// it is not the shipped one.
std::string perfDatabase(std::string_view shipped, const PerfData& data);

}  // namespace vorlent
