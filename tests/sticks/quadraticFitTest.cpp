#include "sticks/quadraticFit.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/roundTo.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

using Points = std::vector<std::int32_t>;

/// a, b, c and r squared of all points.
struct Fit {
  Fit(const Points& x, const Points& y)
      : rSquared(QuadReg(x, y, static_cast<int>(x.size()) - 1, coefficients)) {}
  std::array<float, 3> coefficients{};
  float rSquared;
};

using Coefficients = std::array<float, 3>;

TEST(RoundTo, HalvesGoAwayFromZero) {
  EXPECT_EQ(RoundTo(2.5, 0), 3);
  EXPECT_EQ(RoundTo(-2.5, 0), -3);
  EXPECT_EQ(RoundTo(2.4999, 0), 2);
  EXPECT_EQ(RoundTo(0.125, 2), 0.13);
  EXPECT_EQ(RoundTo(-0.00166666667, 8), -0.00166667);
}

TEST(RoundTo, NegativeDecimalsAreTensAndHundreds) {
  EXPECT_EQ(RoundTo(1250, -2), 1300);
  EXPECT_EQ(RoundTo(-1250, -2), -1300);
  EXPECT_EQ(RoundTo(1249, -2), 1200);
  EXPECT_EQ(RoundTo(155, -1), 160);
  EXPECT_EQ(RoundTo(49, -2), 0);
}

TEST(QuadReg, ThroughAQuarterAtHalfTheTravelIsASquareOverAHundred) {
  const Fit fit({0, 50, 100}, {0, 25, 100});
  EXPECT_EQ(fit.coefficients, (Coefficients{0.01F, 0, 0}));
  EXPECT_EQ(fit.rSquared, 1);
}

TEST(QuadReg, ThreePointsAreMetExactly) {
  // Slopes 1 up to 40 and 5/6 behind: a = (5/6 - 1) / 100, b = 1 - 40 a, c = 10.
  const Fit fit({0, 40, 100}, {10, 50, 100});
  EXPECT_EQ(fit.coefficients, (Coefficients{-0.00166667F, 1.06666667F, 10}));
  EXPECT_NEAR(fit.rSquared, 1, 1e-6);
}

TEST(QuadReg, AStraightLineHasNoSquare) {
  const Fit fit({0, 30, 100}, {0, 30, 100});
  EXPECT_EQ(fit.coefficients, (Coefficients{0, 1, 0}));
  EXPECT_EQ(fit.rSquared, 1);
}

TEST(QuadReg, FourPointsAreMetInTheLeastSquares) {
  // With the means taken out: Sxx 5, Sxy 13.5, Sxx2 15, Sx2y 43.5, Sx2x2 49; a = 15 / 20,
  // b = 2.25 / 5, c = -0.2 / 4. Errors 0.05, 0.15, 0.15, 0.05; SSE 0.05, SST 38.75.
  const Fit fit({0, 1, 2, 3}, {0, 1, 4, 8});
  EXPECT_EQ(fit.coefficients, (Coefficients{0.75F, 0.45F, -0.05F}));
  EXPECT_NEAR(fit.rSquared, 0.9987097, 1e-6);
}

TEST(QuadReg, PointsBehindTheLastIndexDoNotCount) {
  Coefficients coefficients{};
  QuadReg(Points{0, 50, 100, 7}, Points{0, 25, 100, 99}, 2, coefficients);
  EXPECT_EQ(coefficients, (Coefficients{0.01F, 0, 0}));
}

TEST(QuadReg, WithoutVarianceItGivesMinusOne) {
  const Fit fit({0, 33, 100}, {70, 70, 70});
  EXPECT_EQ(fit.coefficients, (Coefficients{0, 0, 70}));
  EXPECT_EQ(fit.rSquared, -1);
}

TEST(QuadReg, TwoDifferentXAreADivisionByZeroAndNothingIsStored) {
  for (const Points& x :
       {Points{0, 0, 100}, Points{0, 100, 100}, Points{7, 7, 7}, Points{33, 77}}) {
    Coefficients coefficients{1, 2, 3};
    EXPECT_EQ(raisedBy([&] {
                QuadReg(x, Points{1, 20, 99}, static_cast<int>(x.size()) - 1, coefficients);
              }),
              11);
    EXPECT_EQ(coefficients, (Coefficients{1, 2, 3}));
  }
}

TEST(QuadReg, ALastIndexWithoutAPointIsRefused) {
  Coefficients coefficients{};
  for (const int lastIndex : {-1, 3})
    EXPECT_EQ(raisedBy([&] {
                QuadReg(Points{0, 50, 100}, Points{0, 25, 100}, lastIndex, coefficients);
              }),
              9);
}

}  // namespace
}  // namespace vorlent
