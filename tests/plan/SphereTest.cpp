#include "plan/sphere.h"

#include <gtest/gtest.h>

#include <GeographicLib/Geodesic.hpp>
#include <cmath>
#include <random>

namespace vorlent {
namespace {

using namespace sphere;

constexpr double Degree = 3.14159265358979323846 / 180;

double angleBetween_deg(double a, double b) { return std::fabs(std::remainder(a - b, 360)); }

TEST(Sphere, AMinuteOfArcIsANauticalMile) {
  EXPECT_NEAR(distance_nm({0, 0}, {0, 90}), 5400, 1e-9);
  EXPECT_NEAR(distance_nm({-30, 17}, {45, 17}), 4500, 1e-9);
  EXPECT_NEAR(distance_nm({50, 8}, {50, 8}), 0, 1e-9);
}

TEST(Sphere, CoursesAlongMeridiansAndTheEquator) {
  EXPECT_NEAR(courseAtStart_deg({10, 20}, {50, 20}), 0, 1e-12);
  EXPECT_NEAR(courseAtStart_deg({50, 20}, {10, 20}), 180, 1e-12);
  EXPECT_NEAR(courseAtStart_deg({0, 20}, {0, 30}), 90, 1e-12);
  EXPECT_NEAR(courseAtEnd_deg({0, 30}, {0, 20}), 270, 1e-12);
}

// From the equator at 45 degrees: a quarter of the globe on, the course is east at 45 north.
TEST(Sphere, ALegTurnsOnItsWay) {
  EXPECT_NEAR(courseAtStart_deg({0, 0}, {45, 90}), 45, 1e-9);
  EXPECT_NEAR(courseAtEnd_deg({0, 0}, {45, 90}), 90, 1e-9);
}

TEST(Sphere, ACourseNeverReaches360) {
  EXPECT_LT(courseAtStart_deg({10, 20}, {50, 19.9999999}), 360);
  EXPECT_GE(courseAtStart_deg({10, 20}, {50, 19.9999999}), 359);
}

TEST(Sphere, TheNorthernmostPointOfALegThatEndsThere) {
  const GeoPoint north = northernmostPoint({0, 0}, {45, 90});
  EXPECT_NEAR(north.latitude_deg, 45, 1e-9);
  EXPECT_NEAR(north.longitude_deg, 90, 1e-9);
}

TEST(Sphere, TheNorthernmostPointIsTheSameBothWaysAndForSouthernLegs) {
  const GeoPoint back = northernmostPoint({45, 90}, {0, 0});
  EXPECT_NEAR(back.latitude_deg, 45, 1e-9);
  EXPECT_NEAR(back.longitude_deg, 90, 1e-9);
  const GeoPoint south = northernmostPoint({0, 0}, {-45, 90});
  EXPECT_NEAR(south.latitude_deg, 45, 1e-9);
  EXPECT_NEAR(south.longitude_deg, -90, 1e-9);
}

TEST(Sphere, TheEquatorIsFarthestNorthAtLatitude0) {
  EXPECT_NEAR(northernmostPoint({0, 10}, {0, 20}).latitude_deg, 0, 1e-12);
}

// At 90 degrees the autoflight's tangent changes its sign.
TEST(Sphere, AMeridianStaysBelow90DegreesAsASingle) {
  const GeoPoint north = northernmostPoint({10, 20}, {50, 20});
  EXPECT_LT(static_cast<float>(north.latitude_deg), 90.0F);
  EXPECT_GT(north.latitude_deg, 89.9999);
  EXPECT_NEAR(angleBetween_deg(north.longitude_deg, 20), 90, 1e-6);
}

TEST(Sphere, APointAlongTheEquatorAndAMeridian) {
  const GeoPoint east = pointAlong({0, 179}, 90, 120);
  EXPECT_NEAR(east.latitude_deg, 0, 1e-9);
  EXPECT_NEAR(east.longitude_deg, -179, 1e-9);
  EXPECT_NEAR(pointAlong({-10, 5}, 180, 60).latitude_deg, -11, 1e-9);
}

// tan(latitude) = tan(10) / cos(10) halfway between two points 20 degrees apart.
TEST(Sphere, ALegOverThe180thMeridianCrossesItOnTheSideItComesFrom) {
  const auto eastward = dateLineCrossing({10, 170}, {10, -170});
  ASSERT_TRUE(eastward);
  EXPECT_NEAR(eastward->latitude_deg, 10.151082, 1e-6);
  EXPECT_EQ(eastward->longitude_deg, 180);
  const auto westward = dateLineCrossing({10, -170}, {10, 170});
  ASSERT_TRUE(westward);
  EXPECT_NEAR(westward->latitude_deg, 10.151082, 1e-6);
  EXPECT_EQ(westward->longitude_deg, -180);
  EXPECT_FALSE(dateLineCrossing({10, -10}, {10, 10}));
}

class SphereAgainstGeographicLib : public testing::Test {
 protected:
  GeoPoint anyPlace() {
    std::uniform_real_distribution<double> latitude(-89.9, 89.9);
    std::uniform_real_distribution<double> longitude(-180, 180);
    const double north = latitude(random);
    return {north, longitude(random)};
  }

  /// A globe on which a minute of arc is a unit.
  const GeographicLib::Geodesic globe{60 / Degree, 0};
  std::mt19937 random{20260101};
};

TEST_F(SphereAgainstGeographicLib, DistancesAndCoursesAgree) {
  for (int i = 0; i < 10000; ++i) {
    const GeoPoint a = anyPlace();
    const GeoPoint b = anyPlace();
    double distance = 0;
    double start = 0;
    double end = 0;
    globe.Inverse(a.latitude_deg, a.longitude_deg, b.latitude_deg, b.longitude_deg, distance, start,
                  end);
    EXPECT_NEAR(distance_nm(a, b), distance, 1e-8);
    EXPECT_LT(angleBetween_deg(courseAtStart_deg(a, b), start), 1e-7);
    EXPECT_LT(angleBetween_deg(courseAtEnd_deg(a, b), end), 1e-7);
  }
}

TEST_F(SphereAgainstGeographicLib, PointsAlongAgree) {
  std::uniform_real_distribution<double> course(0, 360);
  std::uniform_real_distribution<double> way(0, 5000);
  for (int i = 0; i < 10000; ++i) {
    const GeoPoint a = anyPlace();
    const double c = course(random);
    const double d = way(random);
    GeoPoint expected{};
    globe.Direct(a.latitude_deg, a.longitude_deg, c, d, expected.latitude_deg,
                 expected.longitude_deg);
    const GeoPoint found = pointAlong(a, c, d);
    EXPECT_LT(distance_nm(found, expected), 1e-6);
  }
}

// Clairaut: sin(course) x cos(latitude) stays the same along a great circle, and at its
// northernmost point the course is east or west.
TEST_F(SphereAgainstGeographicLib, AtTheNorthernmostPointTheLegGoesEastOrWest) {
  for (int i = 0; i < 10000; ++i) {
    const GeoPoint a = anyPlace();
    const GeoPoint b = anyPlace();
    double start = 0;
    double end = 0;
    globe.Inverse(a.latitude_deg, a.longitude_deg, b.latitude_deg, b.longitude_deg, start, end);
    const double clairaut = std::fabs(std::sin(start * Degree) * std::cos(a.latitude_deg * Degree));
    const GeoPoint north = northernmostPoint(a, b);
    EXPECT_NEAR(std::cos(north.latitude_deg * Degree), clairaut, 2e-7);
    double fromNorth = 0;
    globe.Inverse(north.latitude_deg, north.longitude_deg, a.latitude_deg, a.longitude_deg,
                  fromNorth, end);
    EXPECT_NEAR(std::fabs(fromNorth), 90, 0.01);
  }
}

// The same globe as the autoflight's, by its own functions.
TEST_F(SphereAgainstGeographicLib, TheAutoflightsGreatCircleRunsThroughBothEnds) {
  for (int i = 0; i < 2000; ++i) {
    const GeoPoint a = anyPlace();
    const GeoPoint b = anyPlace();
    const GeoPoint north = northernmostPoint(a, b);
    if (north.latitude_deg > 85) continue;
    const GeoPoint asSingles = {static_cast<float>(north.latitude_deg),
                                static_cast<float>(north.longitude_deg)};
    EXPECT_NEAR(GcLatAtLon(a.longitude_deg, asSingles), a.latitude_deg, 1e-3);
    EXPECT_NEAR(GcLatAtLon(b.longitude_deg, asSingles), b.latitude_deg, 1e-3);
  }
}

}  // namespace
}  // namespace vorlent
