#pragma once

#include <string>

#include "plan/FlightPlanner.h"

namespace vorlent {

/// The plan as a table for people, lines ended by line feeds.
std::string planTable(const PlannedFlight& flight);

}  // namespace vorlent
