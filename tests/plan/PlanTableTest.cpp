#include "plan/planTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/files.h"
#include "base/text.h"

namespace vorlent {
namespace {

using testing::HasSubstr;

PlannedFlight shippedFlight() {
  PlanTask task;
  task.aircraft = *performanceOf("737-700");
  task.runway = ArrivalRunway{{51.75, 0.1}, 265, 65.6};
  return planFlight(loadRoute(VORLENT_DATA_FOLDER "/Routes/varnholt-westerleigh.fms"), task);
}

TEST(PlanTable, HasARowForEveryPoint) {
  EXPECT_THAT(planTable(shippedFlight()),
              HasSubstr("\nVARNO    51.8750     4.6500   240.1   15.0   15.0       8028     20000"
                        "      0.0    250\n"));
}

TEST(PlanTable, TheOneInTheDocumentIsOfTheShippedRoute) {
  const std::string indented =
      replaced(replaced("    " + planTable(shippedFlight()), "\n", "\n    "), "\n    \n", "\n\n");
  EXPECT_THAT(readFile(VORLENT_DOCS_FOLDER "/vorlent-plan.md"), HasSubstr(trimmed(indented)));
}

}  // namespace
}  // namespace vorlent
