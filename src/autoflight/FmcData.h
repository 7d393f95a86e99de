#pragma once

#include <cstdint>
#include <string>

namespace vorlent {

/// The flight phases that the logic knows.
namespace Phase {
enum : std::int16_t {
  Reset = 0,
  Initial,
  TakeoffRoll,
  Climb,
  Cruise,
  PreDescent,
  Descent,
  Approach,
  Landed,
};
}

/// What flight management says to the displays. Without a plan most of it stays as it starts.
struct FmcData {
  std::int16_t MaxWaypointId = 0;  ///< number of the executed plan's last row, below 1 without one
  std::int16_t LnavCriteria = 0;
  float AfdsValueA = 0;
  float AfdsValueB = 0;
  std::int16_t MessageId = 0;
  std::int16_t PhaseOfFlightEnum = Phase::Reset;
  float DxToNextWaypoint = 0;   ///< nautical miles
  float CrsToNextWaypoint = 0;  ///< degrees true
  std::int16_t Minimums = 0;    ///< feet; set by the cockpit
  std::string ActiveWpt;

  // A speed schedule by segments, stored for whoever plans: no law reads it. Knots, flight levels.
  std::int16_t CruiseIAS = 0;
  std::int16_t ClimbIasLowSegment = 0;
  std::int16_t ClimbIasHighSegment = 0;
  std::int16_t ClimbFlightLevel = 0;
  std::int16_t DescentIasLowSegment = 0;
  std::int16_t DescentIasHighSegment = 0;
  std::int16_t DescentFlightLevel = 0;
};

}  // namespace vorlent
