#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "flightplan/FlightPlanRecord.h"
#include "flightplan/Leg.h"

namespace vorlent {

struct LegCheckInput {
  std::int32_t RadioAltitude;  ///< feet
  float Latitude;              ///< of the aircraft, degrees
  float Longitude;
  float TrueHeading;           ///< degrees
  float apMaxTrackOffset;      ///< nautical miles; farther off is off the track
  std::int16_t ActiveFpIndex;  ///< as it is stored
  bool LogVerbose;             ///< a lost leg goes into the log
};

struct LegCheck {
  std::int16_t LnavCriteria;  ///< 1: the leg stands, 0: it does not
  /// Past the turn point: the next waypoint, which goes into the file ACTIVE and into `ActiveWpt`.
  /// With it the log becomes verbose.
  std::optional<std::string> announced;
  /// The leg cannot be reached any more: `MessageId` becomes 1, and LNAV goes off.
  bool lost = false;
  std::vector<std::string> log;  ///< lines, in their order
};

/// Whether the leg, as updateLeg() left it, can still be flown. Raises SubscriptOutOfRange for a
/// plan without the leg's rows.
///
///     low, or far enough from the waypoint, or before the turn point:  1
///     near the track and past the turn point:   1, the next waypoint is announced, if there is one
///     off the track, crossing the leg between its ends:                1
///     off the track otherwise:                                         0, lost
LegCheck checkLeg(const Leg& leg, PlanRows plan, const LegCheckInput& in);

}  // namespace vorlent
