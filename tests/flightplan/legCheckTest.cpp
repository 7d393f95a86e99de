#include "flightplan/legCheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "base/RuntimeError.h"
#include "sphere.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LegCheckTest : public ::testing::Test {
 protected:
  LegCheckTest() {
    plan[1].Course = 45;
    leg.DxToNextWpt = 2;
    leg.PrevDxToTurnPoint = 0.5F;
    leg.DxToTurnPoint = 0.75F;
    leg.InterceptSide = 1;
    leg.CrossingLat = 50.25F;
    leg.CrossingLon = 10.25F;
  }

  LegCheck check() const { return checkLeg(leg, plan, in); }
  void flyOffTrack() { leg.PrevCrossTrack = 0.001F; }  // 3.4377 miles

  std::vector<FlightPlanRecord> plan = {sphere::waypoint("FROM ", 50, 10),
                                        sphere::waypoint("TO   ", 50.5, 10.5),
                                        sphere::waypoint("NEXT ", 50, 11)};
  Leg leg;
  LegCheckInput in{1000, 50.25F, 10.125F, 60, 3, 0, false};
};

TEST_F(LegCheckTest, LowTheLegAlwaysStands) {
  flyOffTrack();
  in.TrueHeading = 300;
  in.RadioAltitude = 50;
  EXPECT_EQ(check().LnavCriteria, 1);
  EXPECT_FALSE(check().lost);
  in.RadioAltitude = 51;
  EXPECT_EQ(check().LnavCriteria, 0);
  EXPECT_TRUE(check().lost);
}

TEST_F(LegCheckTest, FarFromTheWaypointTheLegStands) {
  leg.DxToNextWpt = 3.01F;
  in.ActiveFpIndex = 1;
  EXPECT_EQ(check().LnavCriteria, 1);
  EXPECT_FALSE(check().announced);
}

TEST_F(LegCheckTest, PastTheTurnPointTheNextWaypointIsAnnounced) {
  const LegCheck result = check();
  EXPECT_EQ(result.LnavCriteria, 1);
  EXPECT_EQ(result.announced, "NEXT ");
  EXPECT_FALSE(result.lost);
}

TEST_F(LegCheckTest, TheAnnouncementIsRepeatedUntilTheWaypointIsFarAway) {
  EXPECT_TRUE(check().announced);
  leg.PrevDxToTurnPoint = 0.75F;
  leg.DxToTurnPoint = 1;
  leg.DxToNextWpt = 3;
  EXPECT_TRUE(check().announced);
  leg.DxToNextWpt = 3.01F;
  EXPECT_FALSE(check().announced);
}

TEST_F(LegCheckTest, BeforeTheTurnPointNothingIsAnnounced) {
  leg.DxToTurnPoint = 0.5F;
  EXPECT_EQ(check().LnavCriteria, 1);
  EXPECT_FALSE(check().announced);
}

TEST_F(LegCheckTest, InTheFirstCycleNothingIsAnnounced) {
  leg.PrevDxToTurnPoint = 0;
  EXPECT_EQ(check().LnavCriteria, 1);
  EXPECT_FALSE(check().announced);
  EXPECT_THAT(check().log, IsEmpty());
}

TEST_F(LegCheckTest, NearTheWaypointOfAnotherActiveRowTheLegIsOver) {
  in.ActiveFpIndex = 1;
  EXPECT_EQ(check().LnavCriteria, 0);
  EXPECT_FALSE(check().announced);
  EXPECT_FALSE(check().lost);
}

TEST_F(LegCheckTest, BehindThePlansLastRowNothingIsAnnounced) {
  plan.resize(2);
  EXPECT_EQ(check().LnavCriteria, 1);
  EXPECT_FALSE(check().announced);
  EXPECT_THAT(check().log, IsEmpty());
}

TEST_F(LegCheckTest, TheAnnouncementIsLoggedWhetherOrNotTheLogIsVerbose) {
  leg.CourseGcProjection = 44.5F;
  leg.CourseDirect = 46.25F;
  leg.CourseToCrossing = 47;
  leg.CrossTrack = 0.001F;
  leg.DxToCrossing = 1.5F;
  // 0.001 radians are 0.05729578 degrees.
  const auto lines = ElementsAre(
      "DX within turningrange", "TO   ", "Coordinates: 50.5 10.5", "Position: 50.25 10.125",
      "Waypoint: TO   ", "Course in GC proj:44.5", "Course directly to wpt:46.25",
      "Course to crossing:47", "Dx to CG proj:3.437747", "Dx to Crossing:1.5", "DxToNextWpt:2");
  EXPECT_THAT(check().log, lines);
  in.LogVerbose = true;
  EXPECT_THAT(check().log, lines);
}

TEST_F(LegCheckTest, TheTracksEdgeItselfIsNearIt) {
  leg.PrevCrossTrack = 0.000872F;  // 2.9977 miles
  in.ActiveFpIndex = 1;
  EXPECT_FALSE(check().lost);
  leg.PrevCrossTrack = 0.000873F;  // 3.0012 miles
  in.TrueHeading = 300;
  EXPECT_TRUE(check().lost);
}

TEST_F(LegCheckTest, OffTrackTowardACrossingWithinTheLegItStands) {
  flyOffTrack();
  const LegCheck result = check();
  EXPECT_EQ(result.LnavCriteria, 1);
  EXPECT_FALSE(result.lost);
  EXPECT_FALSE(result.announced);
}

TEST_F(LegCheckTest, OffTrackAwayFromItTheLegIsLost) {
  flyOffTrack();
  in.TrueHeading = 30;  // to the left, and the leg is to the right
  const LegCheck result = check();
  EXPECT_EQ(result.LnavCriteria, 0);
  EXPECT_TRUE(result.lost);
  EXPECT_THAT(result.log, IsEmpty());
  leg.InterceptSide = -1;
  EXPECT_FALSE(check().lost);
}

TEST_F(LegCheckTest, CoursesAbove180CountAsNegative) {
  flyOffTrack();
  plan[1].Course = 350;  // -10
  in.TrueHeading = 10;
  EXPECT_FALSE(check().lost);
  plan[1].Course = 10;
  in.TrueHeading = 350;
  EXPECT_TRUE(check().lost);
}

TEST_F(LegCheckTest, ACrossingAtOrBeyondAnEndOfTheLegIsLost) {
  flyOffTrack();
  for (const auto& [latitude, longitude] : {std::pair{50.5F, 10.25F},
                                            {50.25F, 10.5F},
                                            {50.0F, 10.25F},
                                            {50.25F, 9.0F},
                                            {51.0F, 11.0F}}) {
    leg.CrossingLat = latitude;
    leg.CrossingLon = longitude;
    EXPECT_TRUE(check().lost) << latitude << " " << longitude;
    EXPECT_EQ(check().LnavCriteria, 0);
  }
}

TEST_F(LegCheckTest, AVerboseLogTellsHowALegWasLost) {
  flyOffTrack();
  in.LogVerbose = true;
  leg.CrossingLat = 51;
  auto log = check().log;
  ASSERT_EQ(log.size(), 11U);
  EXPECT_EQ(log[0], "Past Crossing Intercept");
  EXPECT_EQ(log[1], "TO   ");
  EXPECT_EQ(log[10], "DxToNextWpt:2");
  in.TrueHeading = 300;
  log = check().log;
  ASSERT_EQ(log.size(), 11U);
  EXPECT_EQ(log[0], "Impossible Intercept");
}

TEST_F(LegCheckTest, APlanWithoutTheLegIsASubscriptOutOfRange) {
  plan.resize(1);
  flyOffTrack();
  EXPECT_EQ(raisedBy([this] { check(); }), RuntimeError::SubscriptOutOfRange);
}

/// A whole approach to a waypoint and past it, as the cycle flies it.
TEST(LegCheckInFlight, TheNextWaypointIsAnnouncedFromTheTurnPointOn) {
  std::vector<FlightPlanRecord> plan = {sphere::waypoint("FROM ", 50, 10),
                                        sphere::waypoint("TO   ", 50.5, 10.5),
                                        sphere::waypoint("NEXT ", 50.25, 11)};
  sphere::connect(plan[0], plan[1]);
  sphere::connect(plan[1], plan[2]);
  Leg leg;
  double announcedAt_nm = 0;
  for (double longitude = 10.3; longitude < 10.499; longitude += 0.001) {
    const double latitude = sphere::latitudeOn(sphere::at(plan[0]), sphere::at(plan[1]), longitude);
    const auto here = static_cast<float>(latitude);
    const auto there = static_cast<float>(longitude);
    updateLeg(leg, plan, {here, there, 180, 1});
    const LegCheck result = checkLeg(leg, plan, {5000, here, there, 32, 3, 0, false});
    EXPECT_EQ(result.LnavCriteria, 1);
    if (result.announced && announcedAt_nm == 0) announcedAt_nm = leg.DxToNextWpt;
    EXPECT_EQ(result.announced.has_value(), announcedAt_nm > 0);
    EXPECT_EQ(result.announced.value_or("NEXT "), "NEXT ");
  }
  EXPECT_GT(leg.TurnAnticipation, 1);
  EXPECT_NEAR(announcedAt_nm, leg.TurnAnticipation, 0.2);
}

}  // namespace
}  // namespace vorlent
