#include "plan/airspeed.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

using namespace airspeed;

TEST(Airspeed, AtSeaLevelTrueAndCalibratedAreTheSame) {
  EXPECT_NEAR(trueFromCalibrated_kt(250, 0), 250, 1e-9);
  EXPECT_NEAR(calibratedFromMach_kt(0.5, 0), 330.7394, 1e-3);
}

// The usual figure of the tables: 250 knots at 10000 feet are 288 true.
TEST(Airspeed, TrueSpeedGrowsWithTheAltitude) {
  EXPECT_NEAR(trueFromCalibrated_kt(250, 10000), 288, 1);
}

// Sound at 35000 feet: 661.48 x sqrt(218.81 / 288.15) = 576.4 knots; pressure 0.2353 of that at
// sea.
TEST(Airspeed, MachAt35000Feet) {
  EXPECT_NEAR(trueFromMach_kt(0.78, 35000), 449.6, 0.1);
  EXPECT_NEAR(calibratedFromMach_kt(0.78, 35000), 264.4, 0.3);
}

// 45000 feet: the temperature stays, the pressure is 0.1455 of that at sea.
TEST(Airspeed, AboveTheTropopauseSoundStaysAsItIs) {
  EXPECT_NEAR(trueFromMach_kt(0.78, 45000), 447.4, 0.1);
  EXPECT_NEAR(calibratedFromMach_kt(0.78, 45000), 209.8, 0.5);
}

}  // namespace
}  // namespace vorlent
