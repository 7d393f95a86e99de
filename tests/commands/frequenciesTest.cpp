#include "commands/frequencies.h"

#include <gtest/gtest.h>

#include <utility>

#include "support/raisedBy.h"

namespace vorlent {
namespace {

constexpr int InvalidCall = 5;
constexpr int TypeMismatch = 13;

TEST(AdfDial, WrapsFromItsTopToItsBottomAndStopsThere) {
  for (const auto& [stepped, expected] : {std::pair(199.9, 200.F),
                                          {200, 200.F},
                                          {350.5, 350.5F},
                                          {998.9, 998.9F},
                                          {999, 200.F},
                                          {1098, 200.F},
                                          {-5, 200.F}})
    EXPECT_EQ(AdfLimit(stepped), expected) << stepped;
}

TEST(ComDial, StaysOnTheRasterAsItIsShown) {
  for (const auto& [stepped, expected] : {std::pair(118.0, 118.0),
                                          {118.02, 118.02},
                                          {118.04, 118.05},
                                          {118.07, 118.07},
                                          {118.09, 118.1},
                                          {118.03, 118.02},
                                          {118.08, 118.07},
                                          {118.99, 119.0},
                                          {136.97, 136.97},
                                          {121.5, 121.5}})
    EXPECT_NEAR(ComRaster(stepped), expected, 1e-9) << stepped;
}

TEST(ComDial, PointZeroTwoUpIsPointZeroFiveAndPointZeroSevenUpIsTheNextTenth) {
  EXPECT_NEAR(ComRaster(0.02 + 0.02), 0.05, 1e-9);
  EXPECT_NEAR(ComRaster(0.07 + 0.02), 0.1, 1e-9);
}

TEST(ComDial, AFractionWrapsAtEitherEnd) {
  EXPECT_EQ(ComRaster(0.97 + 0.02), 0);
  EXPECT_EQ(ComRaster(0.0 - 0.02), 0.97);
}

TEST(ComDial, AFractionThatASingleHoldsALittleTooLowWrapsToo) {
  const double heldAs118Point95 = 118.95F - 118.0;  // 0.9499969
  EXPECT_EQ(ComRaster(heldAs118Point95 + 2 * 0.02), 0);
}

TEST(NavDial, TheFineStepWrapsFrom117Point9On) {
  EXPECT_FLOAT_EQ(NavWrapFrac(110.3F, 1), 110.35F);
  EXPECT_FLOAT_EQ(NavWrapFrac(110.3F, -2), 110.2F);
  EXPECT_FLOAT_EQ(NavWrapFrac(117.85F, 1), 117.9F);
  EXPECT_EQ(NavWrapFrac(117.9F, 1), 108);
  EXPECT_EQ(NavWrapFrac(117.95F, 1), 108);
  EXPECT_EQ(NavWrapFrac(117.95F, -1), 108);
  EXPECT_EQ(NavWrapFrac(108, -1), 108);
}

TEST(NavDial, TheWholeStepWrapsFrom117On) {
  EXPECT_FLOAT_EQ(NavWrapWhole(110.3F, 1), 111.3F);
  EXPECT_FLOAT_EQ(NavWrapWhole(116.95F, 1), 117.95F);
  EXPECT_EQ(NavWrapWhole(117, 1), 108);
  EXPECT_EQ(NavWrapWhole(117.3F, -1), 108);
  EXPECT_EQ(NavWrapWhole(108.3F, -1), 108);
}

TEST(TransponderDigit, GoesUpAtItsPositionOnly) {
  EXPECT_EQ(XpndrDigit(1234, 1), 2234);
  EXPECT_EQ(XpndrDigit(1234, 2), 1334);
  EXPECT_EQ(XpndrDigit(1234, 3), 1244);
  EXPECT_EQ(XpndrDigit(1234, 4), 1235);
}

TEST(TransponderDigit, SevenUpGivesZeroAndDoesNotCarry) {
  EXPECT_EQ(XpndrDigit(1277, 4), 1270);
  EXPECT_EQ(XpndrDigit(7777, 1), 777);
}

TEST(TransponderDigit, FewerDigitsAreFilledUpOnTheRight) {
  EXPECT_EQ(XpndrDigit(0, 1), 1000);
  EXPECT_EQ(XpndrDigit(5, 4), 5001);
  EXPECT_EQ(XpndrDigit(12, 3), 1210);
  EXPECT_EQ(XpndrDigit(123, 1), 2230);
}

TEST(TransponderDigit, OutsideTheTextIsAnInvalidCall) {
  EXPECT_EQ(raisedBy([] { XpndrDigit(1200, 0); }), InvalidCall);
  EXPECT_EQ(raisedBy([] { XpndrDigit(1200, 5); }), InvalidCall);
}

TEST(TransponderDigit, WhatIsNoDigitIsATypeMismatch) {
  EXPECT_EQ(raisedBy([] { XpndrDigit(-200, 1); }), TypeMismatch);
  EXPECT_EQ(raisedBy([] { XpndrDigit(1.5F, 2); }), TypeMismatch);
}

TEST(AdfEncoder, AdfAt999WithAnyStepGoes200) {
  for (const double turn : {-100.0, -10.0, -1.0, -0.1, 0.1, 1.0, 10.0, 100.0})
    EXPECT_EQ(AdfTurned(999, turn), 200) << turn;
}

TEST(AdfEncoder, AdfAt200DownOneStays200) { EXPECT_EQ(AdfTurned(200, -1), 200); }

TEST(AdfEncoder, AdfBetweenTheEndsIsTaken) {
  EXPECT_EQ(AdfTurned(350, 100), 450);
  EXPECT_EQ(AdfTurned(998, -0.5), 997.5F);
  EXPECT_EQ(AdfTurned(998, 1), 200);
}

TEST(ComFraction, CutsDownToQuartersOfATenth) {
  EXPECT_NEAR(ComFraction(0.00F), 0.000, 1e-7);
  EXPECT_NEAR(ComFraction(0.024F), 0.000, 1e-7);
  EXPECT_NEAR(ComFraction(0.026F), 0.024, 1e-7);
  EXPECT_NEAR(ComFraction(0.049F), 0.024, 1e-7);
  EXPECT_NEAR(ComFraction(0.051F), 0.050, 1e-7);
  EXPECT_NEAR(ComFraction(0.076F), 0.074, 1e-7);
  EXPECT_NEAR(ComFraction(0.426F), 0.424, 1e-7);
  EXPECT_NEAR(ComFraction(0.975F), 0.974, 1e-7);
}

TEST(ComFraction, FullQuartersBelongToTheOneBelow) {
  EXPECT_NEAR(ComFraction(0.125F), 0.100, 1e-7);
  EXPECT_NEAR(ComFraction(0.375F), 0.350, 1e-7);
}

TEST(NavFraction, CutsDownToHalvesOfATenth) {
  EXPECT_NEAR(NavFraction(0.00F), 0.00, 1e-7);
  EXPECT_NEAR(NavFraction(0.049F), 0.00, 1e-7);
  EXPECT_NEAR(NavFraction(0.051F), 0.05, 1e-7);
  EXPECT_NEAR(NavFraction(0.11F), 0.10, 1e-7);
  EXPECT_NEAR(NavFraction(0.999F), 0.95, 1e-7);
}

TEST(Wrap360, HeadingAt359UpOneIs360AndThen0) {
  EXPECT_EQ(Wrap360(359, 1), 360);
  EXPECT_EQ(Wrap360(360, 1), 0);
}

TEST(Wrap360, HeadingAt0DownOneIs359) { EXPECT_EQ(Wrap360(0, -1), 359); }

TEST(Wrap360, HeadingAbove359GoesTo0WhicheverWayItIsTurned) {
  EXPECT_EQ(Wrap360(360, -1), 0);
  EXPECT_EQ(Wrap360(359.5, -1), 0);
}

TEST(Wrap360, AddsOneTurnAtMost) {
  EXPECT_EQ(Wrap360(10, 500), 510);
  EXPECT_EQ(Wrap360(10, -500), -130);
}

}  // namespace
}  // namespace vorlent
