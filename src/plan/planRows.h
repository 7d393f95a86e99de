#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "flightplan/FlightPlanRecord.h"
#include "plan/FlightPlanner.h"

namespace vorlent {

/// The legs of a flight are counted from 1: leg 1 ends at the second waypoint.
std::size_t legCount(const PlannedFlight& flight);
/// The waypoint at which the leg ends.
const PlanPoint& legEnd(const PlannedFlight& flight, std::size_t leg);
/// The indicated speed of a leg: the lower one of its ends, knots.
double legSpeed_kt(const PlannedFlight& flight, std::size_t leg);

/// The rows from the waypoint behind the aircraft on, while it flies a leg: the waypoints alone for
/// EXEC, and with the points of the profile for PROF.
///
/// The leg that is flown has the course at its end, those behind it the course at their beginning:
/// so the difference of the two is the turn at the waypoint.
std::vector<FlightPlanRecord> execRows(const PlannedFlight& flight, std::size_t leg);
std::vector<FlightPlanRecord> profRows(const PlannedFlight& flight, std::size_t leg);

/// The text of an EXEC or a PROF; at least one row.
std::string planFileText(const std::vector<FlightPlanRecord>& rows);

}  // namespace vorlent
