#include "flightplan/ExecutedPlan.h"

#include <algorithm>
#include <cstddef>

#include "flightplan/PlanFile.h"

namespace vorlent {
namespace {

std::optional<RuntimeError> takeFile(std::string_view text, std::int16_t& n,
                                     std::vector<FlightPlanRecord>& rows, std::size_t& wholeRows) {
  PlanFile file = readPlanFile(text);
  if (file.n) n = *file.n;
  if (!file.rows.empty()) rows = std::move(file.rows);
  wholeRows = file.wholeRows;
  return file.fault;
}

}  // namespace

std::optional<RuntimeError> takeExec(std::string_view text, ExecutedPlan& plan) {
  std::size_t wholeRows = 0;
  return takeFile(text, plan.MaxWaypointId, plan.FlightPlan, wholeRows);
}

std::optional<RuntimeError> takeProf(std::string_view text, ExecutedPlan& plan) {
  std::size_t wholeRows = 0;
  auto fault = takeFile(text, plan.ProfileMaxId, plan.ProfilePlan, wholeRows);
  for (std::size_t row = 0; row < wholeRows; ++row) {
    const std::string& name = plan.ProfilePlan[row].Name;
    if (name == "T/C  ") plan.TocRow = static_cast<std::int16_t>(row);
    if (name == "T/D  ") plan.TodRow = static_cast<std::int16_t>(row);
  }
  return fault;
}

PlanRows walkedProfile(const ExecutedPlan& plan) {
  const auto count = static_cast<std::size_t>(std::max(plan.ProfileMaxId + 1, 0));
  if (count > plan.ProfilePlan.size()) throw RuntimeError(RuntimeError::SubscriptOutOfRange);
  return PlanRows(plan.ProfilePlan).first(count);
}

}  // namespace vorlent
