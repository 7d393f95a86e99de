#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorlent {

/// What the planner knows of an aircraft. Weights in pounds, speeds in knots indicated, rates in
/// feet a minute, thrust in percent of N1.
struct AircraftPerformance {
  std::string_view name;
  double ceiling_ft;
  double emptyWeight_lb;
  double mostWithoutFuel_lb;
  double mostForTakeoff_lb;
  double mostForLanding_lb;
  double usualWithoutFuel_lb;
  double usualReserve_lb;

  double takeoffN1_pct;
  double climbN1_pct;

  double climbSpeed_kt;  ///< above 10000 feet
  double climbMach;
  double cruiseMach;
  double descentSpeed_kt;  ///< above 10000 feet
  double descentMach;
  double approachSpeed_kt;  ///< behind the end of the descent

  double lowClimb_fpm;  ///< up to 10000 feet
  double climb_fpm;     ///< above them, at climbSpeed_kt
  double machClimb_fpm;
  double lowDescent_fpm;
  double descent_fpm;
  double machDescent_fpm;
  /// In the approach phase: the autothrottle that holds the speed there does not go to idle.
  double approachDescent_fpm;

  double climbFuel_lbph;
  double cruiseFuel_lbph;
  double descentFuel_lbph;
};

/// Nothing for an aircraft that the planner does not know.
std::optional<AircraftPerformance> performanceOf(std::string_view aircraft);
std::vector<std::string> knownAircraft();

}  // namespace vorlent
