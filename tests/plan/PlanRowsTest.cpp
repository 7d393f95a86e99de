#include "plan/planRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "flightplan/PlanFile.h"
#include "flightplan/greatCircle.h"

namespace vorlent {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

PlannedFlight flightAlong(Route route) {
  PlanTask task;
  task.aircraft = *performanceOf("737-700");
  return planFlight(route, task);
}

/// East along the equator, then to the north-east.
PlannedFlight bentFlight() {
  return flightAlong({{{"XAAA", {0, 0}, 0}, {"BEND", {0, 2}}, {"XBBB", {3, 5}, 0}}, 20000});
}

std::string namesOf(const std::vector<FlightPlanRecord>& rows) {
  std::string names;
  for (const FlightPlanRecord& row : rows) names += row.Name;
  return names;
}

TEST(PlanRows, ExecHasTheWaypointsAndProfThePointsOfTheProfileToo) {
  EXPECT_EQ(namesOf(execRows(bentFlight(), 1)), "XAAA BEND T/D  8/ED E/D  XBBB ");
  EXPECT_EQ(namesOf(profRows(bentFlight(), 1)), "XAAA T/C  BEND T/D  8/ED E/D  XBBB ");
  EXPECT_EQ(profRows(bentFlight(), 1)[1].Kind, "PRF");
  EXPECT_EQ(profRows(bentFlight(), 1)[2].Kind, "");
}

TEST(PlanRows, ALaterLegBeginsWithTheWaypointBehindTheAircraft) {
  EXPECT_EQ(legCount(bentFlight()), 5);
  EXPECT_EQ(namesOf(execRows(bentFlight(), 2)), "BEND T/D  8/ED E/D  XBBB ");
  EXPECT_EQ(namesOf(profRows(bentFlight(), 2)), "BEND T/D  8/ED E/D  XBBB ");
  EXPECT_EQ(namesOf(execRows(bentFlight(), 5)), "E/D  XBBB ");
  EXPECT_EQ(namesOf(profRows(bentFlight(), 5)), "E/D  XBBB ");
}

TEST(PlanRows, TheTopOfDescentHasTheAltitudeThatTheDescentLeadsTo) {
  const auto rows = profRows(bentFlight(), 1);
  EXPECT_EQ(rows[1].Altitude, 20000);
  EXPECT_EQ(rows[3].Name, "T/D  ");
  EXPECT_EQ(rows[3].Altitude, 2000);
}

// From (0, 2) to (3, 5): course atan2(sin 3 cos 3, sin 3) = 44.9607 degrees at its beginning; at
// its end, by the way back, 45.0393.
TEST(PlanRows, TheLegThatIsFlownHasTheCourseAtItsEndTheOthersThatAtTheirBeginning) {
  Route route = {{{"XAAA", {0, 0}, 0}, {"BEND", {0, 2}}, {"FIRST", {3, 5}}, {"XBBB", {6, 6}, 0}},
                 20000};
  EXPECT_NEAR(execRows(flightAlong(route), 1)[1].Course, 90, 1e-5);
  EXPECT_NEAR(execRows(flightAlong(route), 1)[2].Course, 44.9607, 1e-4);
  EXPECT_NEAR(execRows(flightAlong(route), 2)[1].Course, 45.0393, 1e-4);
}

// Along the equator the courses are 90 at both ends.
TEST(PlanRows, StraightOnThereIsATurnOfATrifle) {
  const PlannedFlight flight =
      flightAlong({{{"XAAA", {0, 0}, 0}, {"MIDDL", {0, 2}}, {"XBBB", {0, 5}, 0}}, 20000});
  const auto rows = execRows(flight, 1);
  EXPECT_NEAR(rows[1].Course, 90, 1e-5);
  EXPECT_NEAR(rows[2].Course, 90.02, 1e-4);
  const auto back = execRows(
      flightAlong({{{"XAAA", {0, 5}, 0}, {"MIDDL", {0, 2}}, {"XBBB", {0, 0}, 0}}, 20000}), 1);
  EXPECT_NEAR(back[1].Course, 270, 1e-5);
  EXPECT_NEAR(back[2].Course, 269.98, 1e-4);
}

TEST(PlanRows, TheGreatCircleOfALegStandsInTheRowWhereItBegins) {
  const auto rows = execRows(bentFlight(), 1);
  EXPECT_NEAR(rows[0].VertexLat, 0, 1e-6);
  for (std::size_t row = 1; row + 1 < rows.size(); ++row)
    for (const FlightPlanRecord& end : {rows[row], rows[row + 1]})
      EXPECT_NEAR(GcLatAtLon(end.Longitude, {rows[row].VertexLat, rows[row].VertexLon}),
                  end.Latitude, 1e-4);
  EXPECT_EQ(rows.back().VertexLat, rows[rows.size() - 2].VertexLat);
}

TEST(PlanRows, APointOnThe180thMeridianLiesOnTheSideOfTheLegThatIsFlown) {
  const PlannedFlight flight =
      flightAlong({{{"XAAA", {10, 176}, 0}, {"XBBB", {12, -174}, 0}}, 15000});
  EXPECT_EQ(execRows(flight, 1)[1].Name, "180/1");
  EXPECT_EQ(execRows(flight, 1)[1].Longitude, 180);
  EXPECT_EQ(execRows(flight, 2)[0].Name, "180/1");
  EXPECT_EQ(execRows(flight, 2)[0].Longitude, -180);
}

TEST(PlanRows, ALegIsFlownWithTheLowerSpeedOfItsEnds) {
  const PlannedFlight flight = bentFlight();
  EXPECT_EQ(legSpeed_kt(flight, 1), 250);
  EXPECT_EQ(legSpeed_kt(flight, 2), 290);
  EXPECT_EQ(legSpeed_kt(flight, 4), 250);
  EXPECT_EQ(legSpeed_kt(flight, 5), 190);
}

TEST(PlanFileText, IsReadBackAsItWasWritten) {
  for (std::size_t leg = 1; leg <= 3; ++leg) {
    const auto rows = profRows(bentFlight(), leg);
    const PlanFile file = readPlanFile(planFileText(rows));
    EXPECT_FALSE(file.fault);
    EXPECT_EQ(file.n, static_cast<std::int16_t>(rows.size() - 1));
    EXPECT_EQ(file.rows, rows);
  }
}

// The coordinates as they are, without an exponent: seven digits would be up to 0.003 miles off.
TEST(PlanFileText, NumbersAreWrittenWithAllTheirDigits) {
  FlightPlanRecord row;
  row.Longitude = 170.12347F;
  row.Latitude = 0.000015F;
  EXPECT_THAT(planFileText({row, row}), HasSubstr(",0.000015,170.12347,0,0\r\n"));
}

TEST(PlanFileText, HasARecordALine) {
  FlightPlanRecord row;
  row.Name = "AB   ";
  row.Course = 62.2F;
  row.Distance = 30;
  row.Altitude = 12000;
  row.Kind = "PRF";
  row.Latitude = 50.2F;
  row.Longitude = -8.5F;
  row.VertexLat = 52;
  row.VertexLon = 33;
  EXPECT_EQ(
      planFileText({row, row}).substr(0, 91),
      "1\r\n\"AB\",\"\",\"\",0,0,62.2,0,0,0,30,0,0,0,0,0,0,0,12000,0,0,\"PRF\",0,50.2,-8.5,52,"
      "33\r\n\"AB\",\"\",\"\"");
}

}  // namespace
}  // namespace vorlent
