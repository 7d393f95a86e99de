#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/RuntimeError.h"
#include "flightplan/ExecutedPlan.h"
#include "flightplan/Leg.h"
#include "flightplan/legCheck.h"
#include "planProperties.h"

// An input is an EXEC. It is read as a second reading reads it; then an aircraft flies from its
// first rows on, and whatever they say, only numbers come out.

namespace {

using namespace vorlent;

constexpr int Cycles = 6;

void requireFinite(const Leg& leg) {
  for (const float number :
       {leg.TurnAnticipation, leg.PrevLatitude, leg.PrevLongitude, leg.PrevGcLat,
        leg.PrevCrossTrack, leg.CrossTrack, leg.CourseDirect, leg.CourseGcProjection,
        leg.CourseToCrossing, leg.CrossingLat, leg.CrossingLon, leg.DxToCrossing, leg.DxToNextWpt,
        leg.PrevDxToNextWpt, leg.DxToTurnPoint, leg.PrevDxToTurnPoint, leg.DxFromPrevWpt})
    VORLENT_REQUIRE(std::isfinite(number));
}

void requireCheck(const LegCheck& check, std::size_t rows, const Leg& leg) {
  VORLENT_REQUIRE(check.LnavCriteria == 0 || check.LnavCriteria == 1);
  VORLENT_REQUIRE(!check.lost || check.LnavCriteria == 0);
  VORLENT_REQUIRE(!check.announced || static_cast<std::size_t>(leg.LegToRow) + 1 < rows);
  VORLENT_REQUIRE(check.log.size() == (check.announced || check.lost ? 11U : 0U));
}

void flyOneCycle(Leg& leg, const ExecutedPlan& plan, int cycle) {
  const FlightPlanRecord& from = planRow(plan.FlightPlan, leg.LegFromRow);
  const FlightPlanRecord& to = planRow(plan.FlightPlan, leg.LegToRow);
  // The last cycle stands over the waypoint, if both are on the globe.
  const auto part = static_cast<float>(cycle) / (Cycles - 1);
  const float latitude = std::clamp(to.Latitude, -90.0F, 90.0F) * part +
                         std::clamp(from.Latitude, -90.0F, 90.0F) * (1 - part);
  const float longitude = std::clamp(to.Longitude, -180.0F, 180.0F) * part +
                          std::clamp(from.Longitude, -180.0F, 180.0F) * (1 - part);
  try {
    updateLeg(leg, plan.FlightPlan, {latitude, longitude, 420, 4});
  } catch (const RuntimeError& error) {
    VORLENT_REQUIRE(error.number() == RuntimeError::DivisionByZero ||
                    error.number() == RuntimeError::Overflow);
  }
  requireFinite(leg);
  const LegCheck check =
      checkLeg(leg, plan.FlightPlan, {5000, latitude, longitude, to.Course, 3, 0, true});
  requireCheck(check, plan.FlightPlan.size(), leg);
  SequenceLeg(leg, check.LnavCriteria, plan.MaxWaypointId, 0);
  VORLENT_REQUIRE(leg.LegFromRow == leg.LegToRow - 1);
  VORLENT_REQUIRE(leg.LegToRow >= 1 && leg.LegToRow <= plan.MaxWaypointId);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  const PlanFile file = plan_properties::readAndRequire(text);
  ExecutedPlan plan;
  VORLENT_REQUIRE(takeExec(text, plan).has_value() == file.fault.has_value());
  VORLENT_REQUIRE(plan.MaxWaypointId == file.n.value_or(0));
  VORLENT_REQUIRE(plan.FlightPlan == file.rows);
  if (plan.MaxWaypointId < 1) return 0;
  Leg leg;
  for (int cycle = 0; cycle < Cycles; ++cycle) flyOneCycle(leg, plan, cycle);
  return 0;
}
