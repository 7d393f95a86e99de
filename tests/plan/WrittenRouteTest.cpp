#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "plan/FlightPlanner.h"
#include "plan/planRows.h"
#include "support/places.h"

// Route files as the programs write them today: with the lines of departures and arrivals, airways,
// name spaces, marks of byte order and the line ends of Windows. Places and names are invented.

namespace vorlent {
namespace {

using testing::ElementsAreArray;

struct Written {
  const char* file;
  std::vector<std::string> points;
  std::optional<double> cruise_ft;
};

void PrintTo(const Written& written, std::ostream* out) { *out << written.file; }

class WrittenRoute : public testing::TestWithParam<Written> {};

TEST_P(WrittenRoute, IsTakenAndCanBePlanned) {
  const auto& [file, points, cruise_ft] = GetParam();
  const Route route = loadRoute(testsFolder() + "/plan/routes/" + file);
  std::vector<std::string> names;
  for (const RoutePoint& point : route.points) names.push_back(point.name);
  EXPECT_THAT(names, ElementsAreArray(points));
  EXPECT_EQ(route.cruise_ft, cruise_ft);
  EXPECT_NEAR(route.points.back().place.latitude_deg, 53.630278, 1e-6);
  EXPECT_NEAR(route.points.back().place.longitude_deg, 9.988333, 1e-6);
  PlanTask task;
  task.aircraft = *performanceOf("737-700");
  task.cruise_ft = 34000;
  EXPECT_EQ(legEnd(planFlight(route, task), 0).name, "XKLA");
}

const std::vector<std::string> Departure = {"XKLA",  "ANEKI", "ALOSI", "TABUM", "+51.500_+010.800",
                                            "RIBSO", "XKHB"};
const std::vector<std::string> Named = {"XKLA", "ALOSI", "Über dem Wald", "HBG", "XKHB"};
const std::vector<std::string> Short = {"XKLA", "ALOSI", "HBG", "XKHB"};

INSTANTIATE_TEST_SUITE_P(Every, WrittenRoute,
                         testing::Values(Written{"procedures.fms", Departure, 34000},
                                         Written{"windows.fms", Departure, 34000},
                                         Written{"version3.fms", Short, 21000},
                                         Written{"airways.fpl", Short, std::nullopt},
                                         Written{"prefix.fpl", Short, std::nullopt},
                                         Written{"procedures.lnmpln", Named, 34000},
                                         Written{"windows.lnmpln", Named, 34000}));

/// Two of the table have its name; the route tells which.
TEST(WrittenRoute, APointOfATableIsThatOfItsKindAndCountry) {
  const Route route = loadRoute(testsFolder() + "/plan/routes/airways.fpl");
  EXPECT_NEAR(route.points[2].place.latitude_deg, 52.9, 1e-6);
}

}  // namespace
}  // namespace vorlent
