#include "flightplan/legCheck.h"

#include <initializer_list>
#include <utility>

#include "base/angles.h"
#include "base/text.h"
#include "flightplan/greatCircle.h"

namespace vorlent {
namespace {

constexpr std::int32_t LowUpTo_ft = 50;

double nauticalMiles(double radians) { return radians * 60 * angles::DegreesPerRadian; }
double signedCourse(double degrees) { return degrees > 180 ? degrees - 360 : degrees; }

std::string placeLine(const char* label, float latitude, float longitude) {
  return label + singleText(latitude) + " " + singleText(longitude);
}

/// `headline`, and where the aircraft stands on the leg.
std::vector<std::string> logBlock(const char* headline, const Leg& leg,
                                  const FlightPlanRecord& waypoint, const LegCheckInput& in) {
  std::vector<std::string> lines = {
      headline,
      waypoint.Name,
      placeLine("Coordinates: ", waypoint.Latitude, waypoint.Longitude),
      placeLine("Position: ", in.Latitude, in.Longitude),
      "Waypoint: " + waypoint.Name,
  };
  const auto crossTrack_nm = static_cast<float>(nauticalMiles(leg.CrossTrack));
  for (const auto& [label, value] : std::initializer_list<std::pair<const char*, float>>{
           {"Course in GC proj:", leg.CourseGcProjection},
           {"Course directly to wpt:", leg.CourseDirect},
           {"Course to crossing:", leg.CourseToCrossing},
           {"Dx to CG proj:", crossTrack_nm},
           {"Dx to Crossing:", leg.DxToCrossing},
           {"DxToNextWpt:", leg.DxToNextWpt}})
    lines.push_back(label + singleText(value));
  return lines;
}

bool isPastTurnPoint(const Leg& leg) {
  return leg.PrevDxToTurnPoint > 0 && leg.DxToTurnPoint > leg.PrevDxToTurnPoint;
}

LegCheck checkNearTrack(const Leg& leg, PlanRows plan, const LegCheckInput& in) {
  if (leg.DxToNextWpt > in.apMaxTrackOffset) return {1, {}, false, {}};
  if (in.ActiveFpIndex != 0) return {0, {}, false, {}};
  const FlightPlanRecord* next = rowBehind(plan, leg);
  if (!isPastTurnPoint(leg) || !next) return {1, {}, false, {}};
  return {1, next->Name, false,
          logBlock("DX within turningrange", leg, planRow(plan, leg.LegToRow), in)};
}

LegCheck checkOffTrack(const Leg& leg, PlanRows plan, const LegCheckInput& in) {
  const FlightPlanRecord& from = planRow(plan, leg.LegFromRow);
  const FlightPlanRecord& to = planRow(plan, leg.LegToRow);
  const auto lost = [&](const char* headline) {
    return LegCheck{
        0, {}, true, in.LogVerbose ? logBlock(headline, leg, to, in) : std::vector<std::string>()};
  };
  if (!IsTowardLeg(signedCourse(to.Course), signedCourse(in.TrueHeading), leg.InterceptSide))
    return lost("Impossible Intercept");
  const bool crosses = IsBetween(leg.CrossingLat, from.Latitude, to.Latitude) &&
                       IsBetween(leg.CrossingLon, from.Longitude, to.Longitude);
  return crosses ? LegCheck{1, {}, false, {}} : lost("Past Crossing Intercept");
}

}  // namespace

LegCheck checkLeg(const Leg& leg, PlanRows plan, const LegCheckInput& in) {
  if (in.RadioAltitude <= LowUpTo_ft) return {1, {}, false, {}};
  const bool nearTrack = nauticalMiles(leg.PrevCrossTrack) <= in.apMaxTrackOffset;
  return nearTrack ? checkNearTrack(leg, plan, in) : checkOffTrack(leg, plan, in);
}

}  // namespace vorlent
