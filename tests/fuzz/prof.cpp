#include <cstddef>
#include <cstdint>
#include <string>

#include "flightplan/ExecutedPlan.h"
#include "flightplan/verticalProfile.h"
#include "planProperties.h"

// An input is a PROF. It is read as a second reading reads it, and its tops are found.

namespace {

using namespace vorlent;

std::string trimmedName(const FlightPlanRecord& row) {
  std::string name = row.Name;
  while (!name.empty() && name.front() == ' ') name.erase(0, 1);
  while (!name.empty() && name.back() == ' ') name.pop_back();
  return name;
}

void requireTops(const ExecutedPlan& plan, std::size_t wholeRows) {
  std::size_t toc = 0;
  std::size_t tod = 0;
  for (std::size_t row = 0; row < wholeRows; ++row) {
    if (plan.ProfilePlan[row].Name == "T/C  ") toc = row;
    if (plan.ProfilePlan[row].Name == "T/D  ") tod = row;
  }
  VORLENT_REQUIRE(static_cast<std::size_t>(plan.TocRow) == toc);
  VORLENT_REQUIRE(static_cast<std::size_t>(plan.TodRow) == tod);
}

/// Rows of the same name as a row at the top of descent or behind it are passed, no others.
void requirePassed(const ExecutedPlan& plan) {
  constexpr std::size_t most = 20;
  const auto& rows = plan.ProfilePlan;
  std::size_t tod = 1;
  while (tod < rows.size() && trimmedName(rows[tod]) != "T/D") ++tod;
  const bool has = tod < rows.size();
  for (std::size_t active = 0; active < rows.size() && active < most; ++active) {
    bool passed = false;
    for (std::size_t row = has ? tod : 0; row < rows.size(); ++row)
      passed = passed || trimmedName(rows[row]) == trimmedName(rows[active]);
    const TopOfDescent result = FindTodPassed(rows, rows[active].Name);
    VORLENT_REQUIRE(result.found == passed);
    VORLENT_REQUIRE(result.distance.has_value() == has);
    VORLENT_REQUIRE(!has || *result.distance == rows[tod].Distance);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  const PlanFile file = plan_properties::readAndRequire(text);
  ExecutedPlan plan;
  VORLENT_REQUIRE(takeProf(text, plan).has_value() == file.fault.has_value());
  VORLENT_REQUIRE(plan.ProfileMaxId == file.n.value_or(0));
  VORLENT_REQUIRE(plan.ProfilePlan == file.rows);
  requireTops(plan, file.wholeRows);
  requirePassed(plan);
  return 0;
}
