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
  task.runway = Runway{{52.42267, 6.32637}, 270, 65.6};
  return planFlight(loadRoute(VORLENT_DATA_FOLDER "/Routes/varnholt-drosselby.fms"), task);
}

TEST(PlanTable, HasARowForEveryPoint) {
  EXPECT_THAT(planTable(shippedFlight()),
              HasSubstr("\nVARNO    51.8408     4.5561   240.0   19.0   19.0      10029     24000"
                        "      0.0    290\n"));
}

TEST(PlanTable, TheOneInTheDocumentIsOfTheShippedRoute) {
  const std::string indented =
      replaced(replaced("    " + planTable(shippedFlight()), "\n", "\n    "), "\n    \n", "\n\n");
  EXPECT_THAT(readFile(VORLENT_DOCS_FOLDER "/vorlent-plan.md"), HasSubstr(trimmed(indented)));
}

}  // namespace
}  // namespace vorlent
