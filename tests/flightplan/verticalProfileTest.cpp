#include "flightplan/verticalProfile.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

namespace vorlent {
namespace {

FlightPlanRecord row(const char* name, std::int32_t altitude = 0, float distance = 0) {
  FlightPlanRecord result;
  result.Name = name;
  result.Altitude = altitude;
  result.Distance = distance;
  return result;
}

std::vector<FlightPlanRecord> profile(std::initializer_list<const char*> names) {
  std::vector<FlightPlanRecord> rows;
  for (const char* name : names) rows.push_back(row(name, 0, static_cast<float>(rows.size()) * 10));
  return rows;
}

TEST(TopOfDescentRow, TheActiveRowAtItOrBeyondIsFound) {
  const auto rows = profile({"AAAAA", "BBBBB", "T/D  ", "CCCCC", "E/D  "});
  EXPECT_EQ(FindTodPassed(rows, "BBBBB").distance, 20);
  EXPECT_FALSE(FindTodPassed(rows, "BBBBB").found);
  EXPECT_TRUE(FindTodPassed(rows, "T/D  ").found);
  EXPECT_TRUE(FindTodPassed(rows, "CCCCC").found);
  EXPECT_TRUE(FindTodPassed(rows, "E/D").found);
  EXPECT_FALSE(FindTodPassed(rows, "ZZZZZ").found);
}

TEST(TopOfDescentRow, TheFirstOneCountsAndRow0IsNone) {
  const auto rows = profile({"T/D  ", "AAAAA", " T/D ", "BBBBB", "T/D  "});
  EXPECT_EQ(FindTodPassed(rows, "AAAAA").distance, 20);
  EXPECT_FALSE(FindTodPassed(rows, "AAAAA").found);
  EXPECT_TRUE(FindTodPassed(rows, "BBBBB").found);
}

TEST(TopOfDescentRow, WithoutItTheWholeProfileLiesBeyond) {
  const auto rows = profile({"AAAAA", "BBBBB"});
  EXPECT_FALSE(FindTodPassed(rows, "AAAAA").distance);
  EXPECT_TRUE(FindTodPassed(rows, "AAAAA").found);
  EXPECT_FALSE(FindTodPassed(rows, "CCCCC").found);
}

TEST(TopOfDescentRow, AnEmptyProfileHasNone) {
  EXPECT_FALSE(FindTodPassed({}, "AAAAA").distance);
  EXPECT_FALSE(FindTodPassed({}, "AAAAA").found);
}

TEST(RowNames, TheEndOfDescentIsTrimmedAndTheCentreLineIsNot) {
  EXPECT_TRUE(isEndOfDescent(row("E/D  ")));
  EXPECT_TRUE(isEndOfDescent(row(" E/D ")));
  EXPECT_FALSE(isEndOfDescent(row("E/D1 ")));
  EXPECT_TRUE(isOnCentreLine(row("RX-08")));
  EXPECT_FALSE(isOnCentreLine(row(" RX-0")));
  EXPECT_FALSE(isOnCentreLine(row("RX08 ")));
}

TEST(Descent, BeginsPastTheTurnPointAndInsideTheRowsDistance) {
  const auto active = row("AAAAA", 0, 20);
  EXPECT_TRUE(descentBegins(active, 19, 18));
  EXPECT_FALSE(descentBegins(active, 20, 18));
  EXPECT_FALSE(descentBegins(active, 19, 19));
  EXPECT_FALSE(descentBegins(row("AAAAA"), 19, 18));
}

TEST(Approach, BeginsWithin4MilesOfTheCentreLineAndWithin8OfTheEndOfDescent) {
  EXPECT_TRUE(approachBegins(row("RX-08"), 3.99));
  EXPECT_FALSE(approachBegins(row("RX-08"), 4));
  EXPECT_TRUE(approachBegins(row("E/D  "), 7.99));
  EXPECT_FALSE(approachBegins(row("E/D  "), 8));
  EXPECT_FALSE(approachBegins(row("AAAAA"), 1));
}

TEST(ClimbTarget, IsThePanelsAltitudeBelowTheRowsAndTheCruiseAltitudeOtherwise) {
  const auto active = row("AAAAA", 10000);
  EXPECT_EQ(climbTarget_ft(active, {5000, 8000, 33000}), 8000);
  EXPECT_EQ(climbTarget_ft(active, {8000, 8000, 33000}), 33000);
  EXPECT_EQ(climbTarget_ft(active, {5000, 10000, 33000}), 33000);
}

TEST(DescentTarget, IsTheRowsAltitudeButNotBelowThePanels) {
  const auto active = row("AAAAA", 10000);
  EXPECT_EQ(descentTarget_ft(active, {20000, 5000, 33000}), 10000);
  EXPECT_EQ(descentTarget_ft(active, {20000, 12000, 33000}), 12000);
}

TEST(DescentTarget, IsHigherOverTheEndOfDescentButNotOnTheCentreLine) {
  EXPECT_EQ(descentTarget_ft(row("E/D  ", 2000), {20000, 1000, 33000}), 2400);
  EXPECT_EQ(descentTarget_ft(row("RX-08", 2000), {20000, 1000, 33000}), 2000);
}

TEST(DescentTarget, StaysWithThePanelAboveTheAircraftOrAtCruise) {
  const auto active = row("AAAAA", 10000);
  EXPECT_FALSE(descentTarget_ft(active, {20000, 20000, 33000}));
  EXPECT_FALSE(descentTarget_ft(active, {40000, 33000, 33000}));
}

TEST(DescentTarget, OfTheHighestRowDoesNotOverflow) {
  EXPECT_EQ(descentTarget_ft(row("E/D  ", 2147483647), {20000, 1000, 33000}), 2147484047.0);
}

}  // namespace
}  // namespace vorlent
