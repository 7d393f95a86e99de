#include "simulator/RoundEarth.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

// A degree of a great circle is pi / 180 of 6371008.8 m.
constexpr double degree_m = 111195.08;

TEST(RoundEarth, ADegreeNorthIsADegreeOfLatitude) {
  const Place place = placeFrom({52, 5}, 0, degree_m);
  EXPECT_NEAR(place.latitude_deg, 53, 1e-6);
  EXPECT_NEAR(place.longitude_deg, 5, 1e-9);
}

TEST(RoundEarth, ADegreeEastOnTheEquatorIsADegreeOfLongitude) {
  const Place place = placeFrom({0, 179.5}, 90, degree_m);
  EXPECT_NEAR(place.latitude_deg, 0, 1e-9);
  EXPECT_NEAR(place.longitude_deg, -179.5, 1e-6);
}

TEST(RoundEarth, DistanceAndBearingLeadBackToThePlace) {
  const Place from{52, 5};
  const Place to = placeFrom(from, 240, 50000);
  EXPECT_NEAR(distanceBetween_m(from, to), 50000, 0.001);
  EXPECT_NEAR(bearing_deg(from, to), 240, 1e-6);
}

TEST(RoundEarth, BearingsGoRoundTheCompass) {
  EXPECT_NEAR(bearing_deg({0, 0}, {0, -1}), 270, 1e-9);
  EXPECT_NEAR(bearing_deg({0, 0}, {-1, 0}), 180, 1e-9);
}

}  // namespace
}  // namespace vorlent
