#include "flightplan/verticalProfile.h"

#include <algorithm>

#include "base/text.h"

namespace vorlent {
namespace {

bool isNamed(const FlightPlanRecord& row, std::string_view name) {
  return trimmed(row.Name) == name;
}

}  // namespace

bool isEndOfDescent(const FlightPlanRecord& row) { return isNamed(row, "E/D"); }

bool isOnCentreLine(const FlightPlanRecord& row) { return row.Name.starts_with("RX-"); }

TopOfDescent FindTodPassed(PlanRows profile, std::string_view activeName) {
  const auto behindFirst = profile.begin() + (profile.empty() ? 0 : 1);
  const auto tod =
      std::find_if(behindFirst, profile.end(), [](const auto& row) { return isNamed(row, "T/D"); });
  TopOfDescent result;
  if (tod != profile.end()) result.distance = tod->Distance;
  const auto beyond = tod != profile.end() ? tod : profile.begin();
  const std::string name = trimmed(activeName);
  result.found =
      std::any_of(beyond, profile.end(), [&name](const auto& row) { return isNamed(row, name); });
  return result;
}

bool descentBegins(const FlightPlanRecord& active, double DxToNextWpt, double DxToTurnPoint) {
  return DxToNextWpt > DxToTurnPoint && DxToNextWpt < active.Distance;
}

bool approachBegins(const FlightPlanRecord& active, double DxToNextWpt) {
  constexpr double FromCentreLine_nm = 4;
  constexpr double FromEndOfDescent_nm = 8;
  if (isOnCentreLine(active)) return DxToNextWpt < FromCentreLine_nm;
  return isEndOfDescent(active) && DxToNextWpt < FromEndOfDescent_nm;
}

double climbTarget_ft(const FlightPlanRecord& active, const VerticalSituation& at) {
  const bool stopsShort =
      at.apMcpAltitude < active.Altitude && at.AircraftAltitude < at.apMcpAltitude;
  return stopsShort ? at.apMcpAltitude : at.CruiseAlt;
}

std::optional<double> descentTarget_ft(const FlightPlanRecord& active,
                                       const VerticalSituation& at) {
  constexpr double AboveEndOfDescent_ft = 400;
  if (!(at.AircraftAltitude > at.apMcpAltitude && at.apMcpAltitude < at.CruiseAlt))
    return std::nullopt;
  const double row = active.Altitude + (isEndOfDescent(active) ? AboveEndOfDescent_ft : 0);
  return std::max(at.apMcpAltitude, row);
}

}  // namespace vorlent
