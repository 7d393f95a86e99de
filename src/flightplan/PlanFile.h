#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "flightplan/FlightPlanRecord.h"

/// The files in which a display hands over its flight plan, as texts; docs/plan-files.md tells how
/// to write them.
namespace vorlent {

/// What an EXEC or a PROF says.
struct PlanFile {
  static constexpr std::size_t LargestFile = std::size_t{16} * 1024 * 1024;  ///< bytes

  /// The number of its last row; nothing when the file does not even say that.
  std::optional<std::int16_t> n;
  /// Rows 0 to n; none where n is below 1. The row with a fault has the fields before it, and the
  /// rows behind it are empty.
  std::vector<FlightPlanRecord> rows;
  std::size_t wholeRows = 0;  ///< how many of them were read to their last field
  /// Tells row and field, and what is wrong there.
  std::optional<RuntimeError> fault;
};

/// Raises nothing: a fault is part of the answer. What stands behind row n is passed over.
PlanFile readPlanFile(std::string_view text);

/// The aircraft that a plan.cfg names, empty when it names none.
std::string plannedAircraft(std::string_view planCfg);

/// The content of the file ACTIVE, which tells a display the waypoint that is flown to.
std::string activeFileText(std::string_view waypoint);

}  // namespace vorlent
