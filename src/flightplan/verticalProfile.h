#pragma once

#include <optional>
#include <string_view>

#include "flightplan/FlightPlanRecord.h"

/// What the rows of plan and profile ask for in the vertical. Altitudes in feet, distances in
/// nautical miles.
namespace vorlent {

/// A row named "E/D", blanks around it apart: the end of the descent.
bool isEndOfDescent(const FlightPlanRecord& row);
/// A row that begins with "RX-", as it is stored: on the runway's extended centre line.
bool isOnCentreLine(const FlightPlanRecord& row);

struct TopOfDescent {
  std::optional<float> distance;  ///< of the row T/D; nothing without such a row
  bool found = false;             ///< the active row lies at it or beyond
};
/// `activeName` is the name of the active row of the plan. The row T/D is the first one of this
/// name from row 1 on; without it the whole profile counts as beyond.
/// docs/peculiarities.md: profile without T/D.
TopOfDescent FindTodPassed(PlanRows profile, std::string_view activeName);

/// The descent begins: past the turn point, and nearer than the row's distance.
bool descentBegins(const FlightPlanRecord& active, double DxToNextWpt, double DxToTurnPoint);
/// Within 4 miles of a row on the centre line, or within 8 of the end of the descent.
bool approachBegins(const FlightPlanRecord& active, double DxToNextWpt);

struct VerticalSituation {
  double AircraftAltitude;
  double apMcpAltitude;
  double CruiseAlt;
};
/// The panel's altitude where it stops the climb short of the row's, otherwise the cruise altitude.
double climbTarget_ft(const FlightPlanRecord& active, const VerticalSituation& at);
/// The row's altitude, with 400 feet on top of the end of the descent, but not below the panel's;
/// nothing, which leaves the target as it is, unless the panel is below both the aircraft and the
/// cruise altitude.
std::optional<double> descentTarget_ft(const FlightPlanRecord& active, const VerticalSituation& at);

}  // namespace vorlent
