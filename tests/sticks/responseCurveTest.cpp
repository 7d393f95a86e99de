#include "sticks/responseCurve.h"

#include <gtest/gtest.h>

#include <limits>

namespace vorlent {
namespace {

TEST(ResponseCurve, TheDefaultGivesOutWhatComesInAtEveryPoint) {
  for (int value = 0; value <= 32767; ++value)
    ASSERT_EQ(curveOutput({}, static_cast<std::int16_t>(value)), value);
}

TEST(ResponseCurve, EachSegmentHasItsSlopeAndBeginsWhereTheOneBeforeEnds) {
  // 25 % of travel are 8191.75, 50 % are 16383.5. From 10 % up: 10 + 2 * 25 = 60 % at the first
  // break, 60 + 0.4 * 25 = 70 % at the second, 70 + 0.6 * 50 = 100 % at the end.
  const ResponseCurve curve{10, 25, 50, 2, 0.4F, 0.6F};
  EXPECT_EQ(curveOutput(curve, 0), 3277);       // 3276.7
  EXPECT_EQ(curveOutput(curve, 4000), 11277);   // 3276.7 + 8000
  EXPECT_EQ(curveOutput(curve, 8192), 19660);   // 60 % = 19660.2, and 0.4 * 0.25
  EXPECT_EQ(curveOutput(curve, 12000), 21184);  // 19660.2 + 0.4 * 3808.25 = 21183.5
  EXPECT_EQ(curveOutput(curve, 16384), 22937);  // 70 % = 22936.9, and 0.6 * 0.5
  EXPECT_EQ(curveOutput(curve, 32767), 32767);  // 32767.0
}

TEST(ResponseCurve, AThirdBreakpointOfZeroMakesItAParabola) {
  // x * x / 100: half of the travel gives a quarter.
  const ResponseCurve curve{0, 0, 0, 0.01F, 0, 0};
  EXPECT_EQ(curveOutput(curve, 0), 0);
  EXPECT_EQ(curveOutput(curve, 16384), 8192);  // 16384² / 32767 = 8192.25
  EXPECT_EQ(curveOutput(curve, 32767), 32767);
}

TEST(ResponseCurve, TheParabolaHasItsOwnSlopeAndIntercept) {
  // 0.005 * 400 + 0.3 * 20 + 5 = 13 % at 20 %, whatever the intercept of the segments is.
  const ResponseCurve curve{90, 20, 0, 0.005F, 0.3F, 5};
  EXPECT_EQ(curveOutput(curve, 6553), 4260);  // 4259.7
}

/// Where a result is a half, what singles lose on the way decides. Each expected value was computed
/// with the operations in their written order, each result rounded to 24 bits; doubles would give
/// one less or one more.
TEST(ResponseCurve, EveryStepIsOfSinglePrecision) {
  const ResponseCurve steep{20, 29, 64, 1.3F, 1.8F, 1.8F};
  EXPECT_EQ(curveOutput(steep, 527), 7239);  // 7238.50049
  const ResponseCurve middle{3, 30, 69, 0.5F, 1.6F, 1.3F};
  EXPECT_EQ(curveOutput(middle, 11121), 7964);
  const ResponseCurve end{20, 38, 52, 0.3F, 1.8F, 1.1F};
  EXPECT_EQ(curveOutput(end, 17091), 18604);
  const ResponseCurve square{0, 50, 0, 0.01F, 0, 0};
  EXPECT_EQ(curveOutput(square, 8072), 1989);
  EXPECT_EQ(curveOutput(square, 32639), 32512);
  const ResponseCurve parabola{0, 50, 0, 0.0096F, 0.04F, 0};
  EXPECT_EQ(curveOutput(parabola, 21401), 14275);
  EXPECT_EQ(curveOutput(parabola, 32523), 32290);
}

TEST(ResponseCurve, AResultOf40000IsClampedTo32767) {
  // 32767 + 7233 from an intercept of 22.074 %.
  const ResponseCurve curve{22.074F, 33, 66, 1, 1, 1};
  EXPECT_EQ(curveOutput(curve, 32767), 32767);
}

TEST(ResponseCurve, ABreakpointIsTheFirstValueOfTheSegmentBehindIt) {
  // At 50 % = 16383.5: flat before, then 2 for each 1.
  const ResponseCurve curve{0, 50, 75, 0, 2, 0};
  EXPECT_EQ(curveOutput(curve, 16383), 0);
  EXPECT_EQ(curveOutput(curve, 16384), 1);
  EXPECT_EQ(curveOutput(curve, 16385), 3);
  EXPECT_EQ(curveOutput(curve, 24575), 16383);  // 75 % = 24575.25
  EXPECT_EQ(curveOutput(curve, 24576), 16384);  // 16383.5, rounded to the even
  EXPECT_EQ(curveOutput(curve, 32767), 16384);
}

TEST(ResponseCurve, ANegativeResultIsClampedToZero) {
  const ResponseCurve curve{-10, 33, 66, 1, 1, 1};
  EXPECT_EQ(curveOutput(curve, 0), 0);
  EXPECT_EQ(curveOutput(curve, 3276), 0);
  EXPECT_EQ(curveOutput(curve, 3278), 1);
}

TEST(ResponseCurve, ExtremeNumbersStayWithinTheTravel) {
  constexpr float Largest = std::numeric_limits<float>::max();
  for (const float x3 : {0.F, Largest, -Largest, 66.F})
    for (const float m : {Largest, -Largest}) {
      const auto out = curveOutput({m, 33, x3, m, -m, m}, 12345);
      EXPECT_TRUE(out == 0 || out == 32767) << x3 << " " << m << " " << out;
    }
}

}  // namespace
}  // namespace vorlent
