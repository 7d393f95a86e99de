#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "plan/AircraftPerformance.h"
#include "plan/Route.h"
#include "plan/approach.h"

namespace vorlent {

struct PlanTask {
  AircraftPerformance aircraft;
  std::optional<double> cruise_ft;  ///< without it the route's
  std::optional<ArrivalRunway> runway;
  std::optional<double> weightWithoutFuel_lb;
  std::optional<double> reserve_lb;
};

/// A waypoint of the plan, or a point of its vertical profile.
struct PlanPoint {
  enum class Kind { Waypoint, Profile };

  std::string name;
  GeoPoint place;
  Kind kind = Kind::Waypoint;
  double way_nm = 0;       ///< from the departure
  double altitude_ft = 0;  ///< as the flight is expected to be there
  double speed_kt = 0;     ///< the same
  /// What is flown to on the way to it: the cruise altitude up to T/D, from there on that of E/D.
  double target_ft = 0;
  double descent_nm = 0;  ///< how far back the descent has begun; 0 before it
};

struct PlannedFlight {
  std::vector<PlanPoint> points;
  AircraftPerformance aircraft;
  double cruise_ft = 0;
  double tripFuel_lb = 0;
  double reserve_lb = 0;
  double withoutFuel_lb = 0;
  double takeoff_lb = 0;
  double landing_lb = 0;
  /// What a user should know: a waypoint that was left out, a lower cruise.
  std::vector<std::string> notices;
};

/// Plans the flight. Raises InvalidCall with a sentence for the user when the route, the runway or
/// the weights cannot be flown.
PlannedFlight planFlight(const Route& route, const PlanTask& task);

}  // namespace vorlent
