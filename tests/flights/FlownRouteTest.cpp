#include <gtest/gtest.h>

#include "flights/support/RouteFlight.h"

namespace vorlent {
namespace {

/// A leg along the equator is its own great circle, 60 nautical miles a degree.
TEST(FlownRoute, DistancesAlongAndAcrossALegAreThoseOfTheGlobe) {
  EXPECT_NEAR(crossTrack_nm({0, 0}, {0, 10}, {-1, 3}), 60, 1e-9);
  EXPECT_NEAR(crossTrack_nm({0, 0}, {0, 10}, {1, 3}), -60, 1e-9);
  EXPECT_NEAR(crossTrack_nm({0, 10}, {0, 0}, {1, 3}), 60, 1e-9);
  EXPECT_NEAR(alongTrack_nm({0, 0}, {0, 10}, {1, 3}), 180, 1e-9);
  EXPECT_NEAR(alongTrack_nm({0, 0}, {0, 10}, {0, -1}), -60, 1e-9);
}

/// From 45 degrees north to 45 degrees north, 180 degrees apart less a hair, over the pole; and a
/// circle that leaves the equator at 30 degrees is farthest north a quarter of the globe ahead.
TEST(FlownRoute, NorthernmostPointIsAQuarterAheadOfTheEquator) {
  const Place ahead = placeFrom({0, 20}, 60, 1'000'000);
  const Place vertex = northernmost({0, 20}, ahead);
  EXPECT_NEAR(vertex.latitude_deg, 30, 1e-6);
  EXPECT_NEAR(vertex.longitude_deg, 110, 1e-6);
}

/// By hand: the leg to B leaves A at 45 degrees less a hair; its circle is that of the row A.
TEST(FlownRoute, FileHasTheRowsFromAPointOn) {
  const FlownRoute route{{"A", {0, 0}, 3000}, {"B", {0, 1}, 4000, 12.5}, {"C", {0, 2}, 5000}};
  EXPECT_EQ(planFileText(route, 1),
            "1\r\n"
            "\"B\",\"\",\"\",0,0,90,0,0,0,12.5,0,0,0,0,0,0,0,4000,0,0,\"\",0,0,1,0,0\r\n"
            "\"C\",\"\",\"\",0,0,90,0,0,0,0,0,0,0,0,0,0,0,5000,0,0,\"\",0,0,2,0,0\r\n");
}

}  // namespace
}  // namespace vorlent
