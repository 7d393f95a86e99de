#include "flightplan/greatCircle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "base/RuntimeError.h"
#include "sphere.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

TEST(GreatCircle, ArcCosOfKnownAngles) {
  EXPECT_NEAR(ArcCos(0.5), 1.0471975512, 1e-10);
  EXPECT_NEAR(ArcCos(0), 1.5707963268, 1e-10);
  EXPECT_NEAR(ArcCos(-0.5), 2.0943951024, 1e-10);
  EXPECT_NEAR(ArcCos(0.999999), 0.0014142137, 1e-10);
}

TEST(GreatCircle, ArcCosAtItsEndsAndJustBeyondThem) {
  // At -1 the square root of 2e-9 short of half a turn.
  EXPECT_EQ(ArcCos(1), 0);
  EXPECT_EQ(ArcCos(std::nextafter(1.0, 2.0)), 0);
  EXPECT_NEAR(ArcCos(-1), 3.1415479322, 1e-9);
  EXPECT_EQ(ArcCos(std::nextafter(-1.0, -2.0)), ArcCos(-1));
}

TEST(GreatCircle, ADegreeOfLatitudeIsSixtyMiles) {
  EXPECT_NEAR(GetDX({50, 8}, {51, 8}), 60, 1e-5);
  EXPECT_NEAR(GetDX({-1, 8}, {1, 8}), 120, 1e-5);
}

TEST(GreatCircle, ADegreeOfLongitudeShrinksTowardThePole) {
  EXPECT_NEAR(GetDX({0, 8}, {0, 9}), 60, 1e-5);
  EXPECT_NEAR(GetDX({60, 8}, {60, 9}), 29.9997146, 1e-5);  // 2 x asin(cos 60 x sin 0.5)
  EXPECT_NEAR(GetDX({0, -170}, {0, 170}), 1200, 1e-3);
}

TEST(GreatCircle, TheSamePointIsNoDistance) {
  EXPECT_EQ(GetDX({0, 0}, {0, 0}), 0);
  EXPECT_NEAR(GetDX({50.03, 8.57}, {50.03, 8.57}), 0, 1e-4);
}

TEST(GreatCircle, RadiansAreTheSameAngle) {
  EXPECT_NEAR(GetDXRadians({0, 0}, {0, 90}), 1.5707963, 1e-6);
}

TEST(GreatCircle, CourseIsEastOfNorthAndThenWestOfIt) {
  // tan = sin 1 x cos 1 / sin 1 = cos 1 degree.
  EXPECT_NEAR(GetCourse({1, 1}, {0, 0}), 44.9956364, 1e-5);
  EXPECT_NEAR(GetCourse({1, -1}, {0, 0}), 315.0043636, 1e-5);
  EXPECT_NEAR(GetCourse({-1, 1}, {0, 0}), 135.0043636, 1e-5);
  EXPECT_NEAR(GetCourse({-1, -1}, {0, 0}), 224.9956364, 1e-5);
}

TEST(GreatCircle, CourseIs0AtEqualLatitudesOrLongitudes) {
  EXPECT_EQ(GetCourse({50, 11}, {50, 10}), 0);
  EXPECT_EQ(GetCourse({51, 10}, {50, 10}), 0);
  EXPECT_EQ(GetCourse({49, 10}, {50, 10}), 0);
}

TEST(GreatCircle, CourseBetweenPointsThatRoundToOneIsADivisionByZero) {
  EXPECT_EQ(raisedBy([] {
              GetCourse({1e-10, 1e-10}, {2e-10, 2e-10});
            }),
            RuntimeError::DivisionByZero);
}

TEST(GreatCircle, DistanceAndCourseAgreeWithVectors) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> latitude(-85, 85);
  std::uniform_real_distribution<double> longitude(-180, 180);
  for (int i = 0; i < 2000; ++i) {
    const GeoPoint a{latitude(random), longitude(random)};
    const GeoPoint b{latitude(random), longitude(random)};
    const auto from = sphere::at(a.latitude_deg, a.longitude_deg);
    const auto to = sphere::at(b.latitude_deg, b.longitude_deg);
    const double distance = sphere::nauticalMiles(from, to);
    if (distance > 10700) continue;  // near the antipode a course means nothing
    EXPECT_NEAR(GetDX(a, b), distance, 2e-3);
    // A longitude difference beyond half a turn has the other sign: the course is mirrored.
    const double expected = sphere::course(from, to);
    const bool wraps = std::fabs(a.longitude_deg - b.longitude_deg) > 180;
    EXPECT_NEAR(GetCourse(b, a), wraps ? 360 - expected : expected, 2e-3) << i;
  }
}

TEST(GreatCircle, LatitudeFollowsFromTheNorthernmostPoint) {
  EXPECT_NEAR(GcLatAtLon(10, {45, 10}), 45, 1e-6);
  EXPECT_NEAR(GcLatAtLon(70, {45, 10}), 26.5650512, 1e-5);  // tan = 1 x cos 60
  EXPECT_NEAR(GcLatAtLon(-50, {45, 10}), 26.5650512, 1e-5);
  EXPECT_NEAR(GcLatAtLon(100, {45, 10}), 0, 1e-5);
  EXPECT_NEAR(GcLatAtLon(190, {45, 10}), -45, 1e-5);
  EXPECT_NEAR(GcLatAtLon(123, {0, 0}), 0, 1e-12);
}

TEST(GreatCircle, ATrackIsDrawnOnToTheCrossing) {
  EXPECT_NEAR(crossingLongitude(2, 10, 1, 11).value(), 12, 1e-6);
  EXPECT_NEAR(crossingLongitude(1, 10, 2, 11).value(), 9, 1e-6);  // flies away: it lies behind
  EXPECT_NEAR(crossingLongitude(0.02, 10, 0, 10.5).value(), 10.5, 1e-6);
  EXPECT_FALSE(crossingLongitude(2, 10, 2, 11));
  EXPECT_FALSE(crossingLongitude(0, 10, 0, 11));
}

struct Heading {
  double legCourse_deg;
  double heading_deg;
  int side;
  bool toward;
};

TEST(GreatCircle, AHeadingLeadsToTheLegFromItsOwnSideOnly) {
  constexpr Heading Rows[] = {
      {90, 60, -1, true},    {90, 60, 1, false},  {90, 120, 1, true},  {90, 120, -1, false},
      {90, 90, 1, false},    {90, 90, -1, false}, {90, 0.1, -1, true}, {90, 0, -1, false},
      {90, 179.9, 1, true},  {90, 180, 1, false}, {90, 60, 0, true},   {0, 30, 1, true},
      {175, -175, 1, false},  // ten degrees, but counted as 350
  };
  for (const Heading& row : Rows)
    EXPECT_EQ(IsTowardLeg(row.legCourse_deg, row.heading_deg, row.side), row.toward)
        << row.legCourse_deg << " " << row.heading_deg << " " << row.side;
}

TEST(GreatCircle, BetweenIsStrictInEitherOrder) {
  EXPECT_TRUE(IsBetween(1.5, 1, 2));
  EXPECT_TRUE(IsBetween(1.5, 2, 1));
  EXPECT_FALSE(IsBetween(1, 1, 2));
  EXPECT_FALSE(IsBetween(2, 1, 2));
  EXPECT_FALSE(IsBetween(1, 1, 1));
  EXPECT_FALSE(IsBetween(3, 2, 1));
}

}  // namespace
}  // namespace vorlent
