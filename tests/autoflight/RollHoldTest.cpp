#include "autoflight/AutoflightTest.h"

namespace vorlent {
namespace {

/// Engaged at 250 kt in still air with a roll factor of 0.5, full bank of 25 degrees from an error
/// of 30 degrees on.
class RollHold : public AutoflightTest {
 protected:
  void SetUp() override {
    AutoflightTest::SetUp();
    ap().apBank(25);
    ap().tuning.apMaxBankCourseDeviation = 30;
    ap().tuning.apMaxTrackOffset = 3;
    ap().tuning.apIntCourseDeflectionWpt = 30;
    ap().ApEngaged(1);
    store().Ias = 250;
    bus.writes.clear();
  }

  /// The last aileron trim in degrees.
  double aileron_deg() {
    const auto writes = bus.writesTo(0x2EB0);
    return load<double>(writes.at(writes.size() - 1).bytes.data()) / 0.0174532930056254;
  }
};

TEST_F(RollHold, BankGoesOutInRadiansAndToTheFlightDirector) {
  store().Bank = 350;  // 10 degrees to the right
  ap().HoldBank(0);
  EXPECT_NEAR(aileron_deg(), -5, 1e-9);
  EXPECT_EQ(store().FdBank, 5);
  EXPECT_EQ(ap().BankDeflection(), 5);
  EXPECT_EQ(ap().apNormbank(), -10);
  EXPECT_EQ(bus.writes.size(), 1U);
}

TEST_F(RollHold, BankNotEngagedStillShowsTheFlightDirector) {
  ap().ApEngaged(0);
  store().Bank = 10;
  ap().HoldBank(0);
  EXPECT_EQ(written(), Texts{});
  EXPECT_EQ(store().FdBank, 5);
}

TEST_F(RollHold, HeadingTurnsTowardTheBug) {
  ap().apHeading(100);
  store().MagHeading = 85;  // half of the 30 degrees: 12.5 degrees of bank to the right
  ap().HoldHeading();
  EXPECT_NEAR(aileron_deg(), 6.25, 1e-6);
}

TEST_F(RollHold, WaypointCrossTrackArrivesInRadians) {
  float course = 90;
  float direct = 0;
  float crossTrack = 0.000436332F;  // 1.5 nautical miles
  store().MagHeading = 105;
  ap().HoldWpt(course, direct, crossTrack, 1);
  EXPECT_NEAR(crossTrack, 1.5, 1e-5);
  EXPECT_EQ(ap().CourseTarget(), 90);
  EXPECT_NEAR(ap().apHeading(), 105, 1e-4);
  EXPECT_NEAR(aileron_deg(), 0, 1e-6);
}

TEST_F(RollHold, WaypointSteersIntoTheWindAndTakesTheVariationOff) {
  float course = 0;
  float direct = 0;
  float crossTrack = 0;
  store().WindSpeedKt = 50;
  store().WindDirection = 90;
  store().MagVar = 4;
  ap().HoldWpt(course, direct, crossTrack, 1);
  EXPECT_NEAR(ap().apHeading(), 7.536959, 1e-5);  // inverse sine of 0.2, less 4
}

TEST_F(RollHold, WaypointWithoutAirspeedTakesTheCourseAsItIs) {
  float course = 80;
  float direct = 0;
  float crossTrack = 0;
  store().Ias = 0;
  store().WindSpeedKt = 50;
  ap().HoldWpt(course, direct, crossTrack, 1);
  EXPECT_EQ(ap().apHeading(), 80);
}

TEST_F(RollHold, WaypointAtMaxTrackOffsetKeepsThePresentHeading) {
  float course = 90;
  float direct = 0;
  float crossTrack = 0.00088F;  // 3.03 nautical miles
  store().TrueHeading = 200;
  ap().HoldWpt(course, direct, crossTrack, 1);
  EXPECT_NEAR(ap().apHeading(), 200, 1e-4);
}

TEST_F(RollHold, StrongWindSendsTheTargetToNorth) {
  float course = 90;
  float direct = 0;
  float crossTrack = 0;
  store().WindSpeedKt = 300;
  ap().HoldWpt(course, direct, crossTrack, 1);
  EXPECT_EQ(ap().apHeading(), 0);
}

TEST_F(RollHold, NavFliesTheObsCourse) {
  nav1().Obs = 90;
  nav1().LocNeedle = 25;
  nav1().DmeDistance = 20;
  ap().HoldNav1();
  EXPECT_EQ(ap().intercept.apInterceptCourse, 50);
  EXPECT_EQ(ap().intercept.apInterceptCourseDeflection50, 30);
  EXPECT_EQ(ap().CourseTarget(), 90);
  EXPECT_NEAR(ap().apHeading(), 105, 1e-4);  // 25 / 50 x 30
  EXPECT_EQ(ap().pitchTrim().LastNeedle, 25);
  nav1().DmeDistance = 60.5F;
  ap().HoldNav1();
  EXPECT_NEAR(ap().apHeading(), 108, 1e-4);  // a fifth more
}

TEST_F(RollHold, NavAtTheNeedlesEdge) {
  nav1().Obs = 90;
  store().TrueHeading = 77;
  nav1().LocNeedle = 125;
  ap().HoldNav1();
  EXPECT_NEAR(ap().apHeading(), 140, 1e-4);
  nav1().LocNeedle = -127;
  ap().HoldNav1();
  EXPECT_NEAR(ap().apHeading(), 77, 1e-4);
}

TEST_F(RollHold, NavHeadingHasNoVariationTakenOff) {
  nav1().Obs = 90;
  store().MagVar = 10;
  ap().HoldNav1();
  EXPECT_NEAR(ap().apHeading(), 90, 1e-4);
}

TEST_F(RollHold, NavWithoutAirspeedKeepsTheHeading) {
  ap().apHeading(33);
  nav1().Obs = 90;
  store().Ias = 0;
  ap().HoldNav1();
  EXPECT_EQ(ap().apHeading(), 33);
}

TEST_F(RollHold, LocalizerFliesTheReverseOfItsHeadingLessTheVariation) {
  struct Row {
    float ils_deg;
    float magVar_deg;
    float course_deg;
  };
  constexpr Row Rows[] = {{90, 0, 270}, {90, 10, 260}, {180, 0, 360}, {200, 5, 15}, {200, -5, 25}};
  for (const auto& [ils, magVar, course] : Rows) {
    nav1().IlsHeading = ils;
    store().MagVar = magVar;
    ap().HoldLocalizer();
    EXPECT_EQ(ap().CourseTarget(), course);
  }
  EXPECT_EQ(ap().intercept.apInterceptCourse, 30);
  EXPECT_EQ(ap().intercept.apInterceptCourseDeflection50, 2.5F);
}

TEST_F(RollHold, LocalizerInterceptsByAtMostTheNeedlesShare) {
  nav1().IlsHeading = 90;
  nav1().LocNeedle = 60;
  ap().HoldLocalizer();
  EXPECT_NEAR(ap().apHeading(), 275, 1e-4);  // 60 / 30 x 2.5
  nav1().LocNeedle = -126;
  ap().HoldLocalizer();
  EXPECT_NEAR(ap().apHeading(), 240, 1e-4);
}

struct RangeRow {
  int needle;
  float heading_deg;
  float trueHeading_deg;
  float magVar_deg;
  bool inRange;
};

TEST_F(RollHold, LocalizerIsInRangeWithinTenOfTheNeedleAnd15Degrees) {
  constexpr RangeRow Rows[] = {
      {0, 90, 90, 0, true},   {9, 90, 90, 0, true},    {-9, 90, 90, 0, true},
      {10, 90, 90, 0, false}, {-10, 90, 90, 0, false}, {0, 104.9F, 90, 0, true},
      {0, 105, 90, 0, false}, {0, 75.1F, 90, 0, true}, {0, 75, 90, 0, false},
      {0, 90, 90, 14, true},  {0, 90, 90, 15, false},  {0, 100, 90, -5, false},
      {0, 100, 90, -4, true}, {0, 359, 1, 0, false},
  };
  for (const auto& [needle, heading, trueHeading, magVar, inRange] : Rows) {
    nav1().LocNeedle = static_cast<std::int16_t>(needle);
    ap().apHeading(heading);
    store().TrueHeading = trueHeading;
    store().MagVar = magVar;
    EXPECT_EQ(ap().LocalizerInRange(), inRange) << needle << " " << heading << " " << magVar;
  }
}

}  // namespace
}  // namespace vorlent
