#include "flightplan/ExecutedPlan.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "planText.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

TEST(ExecutedPlan, AnExecBecomesThePlanAndAProfTheProfile) {
  ExecutedPlan plan;
  EXPECT_FALSE(takeExec("1\n" + rowText("A") + rowText("B"), plan));
  EXPECT_FALSE(takeProf("2\n" + rowText("C") + rowText("D") + rowText("E"), plan));
  EXPECT_EQ(plan.MaxWaypointId, 1);
  EXPECT_EQ(plan.ProfileMaxId, 2);
  ASSERT_EQ(plan.FlightPlan.size(), 2U);
  ASSERT_EQ(plan.ProfilePlan.size(), 3U);
  EXPECT_EQ(plan.FlightPlan[1].Name, "B    ");
  EXPECT_EQ(plan.ProfilePlan[2].Name, "E    ");
}

TEST(ExecutedPlan, AnExecOfNoRowsLeavesTheOldPlanWithoutAWaypoint) {
  ExecutedPlan plan;
  takeExec("1\n" + rowText("A") + rowText("B"), plan);
  EXPECT_FALSE(takeExec("0\n", plan));
  EXPECT_EQ(plan.MaxWaypointId, 0);
  ASSERT_EQ(plan.FlightPlan.size(), 2U);
  EXPECT_EQ(plan.FlightPlan[1].Name, "B    ");
}

TEST(ExecutedPlan, AProfOfNoRowsLeavesTheOldProfile) {
  ExecutedPlan plan;
  takeProf("1\n" + rowText("T/C") + rowText("T/D"), plan);
  EXPECT_FALSE(takeProf("-1\n", plan));
  EXPECT_EQ(plan.ProfileMaxId, -1);
  EXPECT_EQ(plan.ProfilePlan.size(), 2U);
  EXPECT_EQ(plan.TodRow, 1);
}

TEST(ExecutedPlan, AFileThatDoesNotSayItsNumberChangesNothing) {
  ExecutedPlan plan;
  takeExec("1\n" + rowText("A") + rowText("B"), plan);
  EXPECT_TRUE(takeExec("many\n" + rowText("C") + rowText("D"), plan));
  EXPECT_EQ(plan.MaxWaypointId, 1);
  EXPECT_EQ(plan.FlightPlan[1].Name, "B    ");
}

TEST(ExecutedPlan, AShortExecCountsAllItsRowsAndHasTheFirstOnes) {
  ExecutedPlan plan;
  takeExec("1\n" + rowText("A") + rowText("B"), plan);
  EXPECT_TRUE(takeExec("3\n" + rowText("C") + rowText("D"), plan));
  EXPECT_EQ(plan.MaxWaypointId, 3);
  ASSERT_EQ(plan.FlightPlan.size(), 4U);
  EXPECT_EQ(plan.FlightPlan[1].Name, "D    ");
  EXPECT_EQ(plan.FlightPlan[2].Name, "     ");
}

TEST(ExecutedPlan, TopsOfClimbAndDescentAreTheLastRowsOfTheirNames) {
  ExecutedPlan plan;
  takeProf(
      "4\n" + rowText("T/C") + rowText("T/D") + rowText("T/C") + rowText("t/d") + rowText("T/C"),
      plan);
  EXPECT_EQ(plan.TocRow, 4);
  EXPECT_EQ(plan.TodRow, 1);
}

TEST(ExecutedPlan, ARowThatIsNotReadWholeIsNoTop) {
  ExecutedPlan plan;
  takeProf("2\n" + rowText("A") + rowText("T/C") + replaced(rowText("T/D"), "26.5", "x"), plan);
  EXPECT_EQ(plan.TocRow, 1);
  EXPECT_EQ(plan.TodRow, 0);
}

TEST(ExecutedPlan, TopsStayWhereAProfileHasNone) {
  ExecutedPlan plan;
  takeProf("2\n" + rowText("A") + rowText("T/C") + rowText("T/D"), plan);
  takeProf("1\n" + rowText("A") + rowText("B"), plan);
  EXPECT_EQ(plan.TocRow, 1);
  EXPECT_EQ(plan.TodRow, 2);
}

TEST(ExecutedPlan, TheProfileIsWalkedUpToItsLastNumber) {
  ExecutedPlan plan;
  takeProf("2\n" + rowText("A") + rowText("B") + rowText("C"), plan);
  EXPECT_EQ(walkedProfile(plan).size(), 3U);
  takeProf("0\n", plan);
  EXPECT_EQ(walkedProfile(plan).size(), 1U);
  takeProf("-5\n", plan);
  EXPECT_TRUE(walkedProfile(plan).empty());
}

TEST(ExecutedPlan, AProfileThatWasNeverReadCannotBeWalked) {
  ExecutedPlan plan;
  EXPECT_EQ(raisedBy([&] { walkedProfile(plan); }), 9);
  takeProf("0\n", plan);
  EXPECT_EQ(raisedBy([&] { walkedProfile(plan); }), 9);
}

}  // namespace
}  // namespace vorlent
