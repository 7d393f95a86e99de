#pragma once

#include <cstdint>

#include "flightplan/FlightPlanRecord.h"

namespace vorlent {

/// Where the aircraft stands on the active leg, which is the great circle from row `LegFromRow` to
/// row `LegToRow`. Distances are in nautical miles, angles in degrees, where nothing else is said.
struct Leg {
  std::int16_t LegFromRow = 0;
  std::int16_t LegToRow = 1;

  float TurnAnticipation = 0;  ///< before the waypoint the turn begins

  float PrevLatitude = 0;  ///< of the aircraft, one cycle ago
  float PrevLongitude = 0;
  float PrevGcLat = 0;       ///< of the great circle at `PrevLongitude`
  float PrevCrossTrack = 0;  ///< radians
  float CrossTrack = 0;      ///< radians, along the meridian

  float CourseDirect = 0;        ///< to the waypoint
  float CourseGcProjection = 0;  ///< to it from the great circle's point on the aircraft's meridian
  float CourseToCrossing = 0;

  /// Where the present track crosses the leg.
  float CrossingLat = 0;
  float CrossingLon = 0;
  float DxToCrossing = 0;

  float DxToNextWpt = 0;
  float PrevDxToNextWpt = 0;
  float DxToTurnPoint = 0;
  float PrevDxToTurnPoint = 0;
  float DxFromPrevWpt = 0;

  std::int16_t InterceptSide = 0;  ///< -1 or 1
};

struct AircraftOnLeg {
  float Latitude;
  float Longitude;
  double GroundSpeed_kt;
  float apTurnRangeWpt;  ///< diameter of a turn, nautical miles
};

/// Diameter of a turn at the standard rate, nautical miles.
double turnDiameter_nm(double tas_kt);

/// The geometry of one cycle. The plan must have the rows of the leg (SubscriptOutOfRange); the row
/// behind them may be missing, as it is in a plan of one leg, and then no turn is anticipated.
/// Raises DivisionByZero over the waypoint itself, and what greatCircle.h raises; the steps before
/// the fault stand.
void updateLeg(Leg& leg, PlanRows plan, const AircraftOnLeg& aircraft);

/// Goes on to the next leg where the leg check gave 0; behind the last row but one it begins anew.
/// `MaxWaypointId` is the number of the plan's last row.
void SequenceLeg(Leg& leg, std::int16_t LnavCriteria, std::int16_t MaxWaypointId,
                 std::int16_t ActiveFpIndex);

/// The leg's great circle by its northernmost point, which is told with the row it begins at.
double legLatitudeAt(double longitude_deg, PlanRows plan, const Leg& leg);

/// The row behind the leg, null where the plan ends with the leg.
const FlightPlanRecord* rowBehind(PlanRows plan, const Leg& leg);

}  // namespace vorlent
