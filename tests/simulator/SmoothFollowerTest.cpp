#include "simulator/SmoothFollower.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

constexpr FollowerLimits limits{2.0, 0.5, 3.0};
constexpr double dt_s = 0.02;

TEST(SmoothFollower, KeepsItsRateAndItsAccelerationWithinTheLimits) {
  SmoothFollower follower;
  double rateBefore = 0;
  for (int i = 0; i < 3000; ++i) {
    follower.step(i < 1000 ? 30 : -5, limits, dt_s);
    EXPECT_LE(std::fabs(follower.rate()), 2.0 + 1e-12);
    EXPECT_LE(std::fabs(follower.rate() - rateBefore), 0.5 * dt_s + 1e-12);
    rateBefore = follower.rate();
  }
}

TEST(SmoothFollower, ComesToTheTargetWithoutPassingItByMoreThanATwentieth) {
  SmoothFollower follower;
  double highest = 0;
  for (int i = 0; i < 3000; ++i) {
    follower.step(10, limits, dt_s);
    highest = std::max(highest, follower.value());
  }
  EXPECT_LT(highest, 10.5);
  EXPECT_NEAR(follower.value(), 10, 0.001);
}

}  // namespace
}  // namespace vorlent
