#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "flightplan/FlightPlanRecord.h"

namespace vorlent {

/// What the autoflight flies by: the plan and the profile of the last files.
struct ExecutedPlan {
  std::vector<FlightPlanRecord> FlightPlan;
  std::vector<FlightPlanRecord> ProfilePlan;
  std::int16_t MaxWaypointId = 0;  ///< n of the last EXEC; below 1 there is no plan
  std::int16_t ProfileMaxId = 0;   ///< n of the last PROF
  /// Rows of the profile; they keep their value where a profile has no such row.
  std::int16_t TocRow = 0;
  std::int16_t TodRow = 0;
};

/// Take an EXEC and a PROF into the plan. The answer is what is wrong with the file, if anything;
/// what was read before it stands. A file that does not say its number of rows changes nothing, and
/// one with a number below 1 leaves the rows of the file before it.
///
/// A PROF is to be read only after an EXEC without a fault.
std::optional<RuntimeError> takeExec(std::string_view text, ExecutedPlan& plan);
std::optional<RuntimeError> takeProf(std::string_view text, ExecutedPlan& plan);

/// The rows of the profile up to `ProfileMaxId`, which is as far as it is walked
/// (docs/peculiarities.md: shortened profile). Raises
/// SubscriptOutOfRange for a profile that was never read.
PlanRows walkedProfile(const ExecutedPlan& plan);

}  // namespace vorlent
