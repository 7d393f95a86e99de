#include "sticks/curvePoints.h"

#include <gtest/gtest.h>

#include <array>

#include "support/raisedBy.h"

namespace vorlent {
namespace {

using Four = std::array<float, 4>;

Four listed(const IndexedArray<float, 1, 4>& values) {
  return {values(1), values(2), values(3), values(4)};
}

CurvePoints pointsAt(bool linear, const Four& x, const Four& y) {
  CurvePoints points;
  points.linear = linear;
  for (int i = 1; i <= 4; ++i) {
    points.PointX(i) = x.at(static_cast<std::size_t>(i - 1));
    points.PointY(i) = y.at(static_cast<std::size_t>(i - 1));
  }
  return points;
}

/// y1, x2, X3, m1, m2, m3.
std::array<float, 6> listed(const ResponseCurve& c) { return {c.y1, c.x2, c.X3, c.m1, c.m2, c.m3}; }
using Curve = std::array<float, 6>;

TEST(CurvePoints, TheDefaultCurveIsAStraightLineOfFourPoints) {
  const CurvePoints points = pointsOf({});
  EXPECT_TRUE(points.linear);
  EXPECT_EQ(points.PointCount(), 4);
  EXPECT_EQ(listed(points.PointX), (Four{0, 33, 66, 100}));
  EXPECT_EQ(listed(points.PointY), (Four{0, 33, 66, 100}));
}

TEST(CurvePoints, EachSegmentRisesByItsSlope) {
  // 10, + 20 * 0.5, + 40 * 1.5, + 40 * 0.25
  const CurvePoints points = pointsOf({10, 20, 60, 0.5F, 1.5F, 0.25F});
  EXPECT_EQ(listed(points.PointX), (Four{0, 20, 60, 100}));
  EXPECT_EQ(listed(points.PointY), (Four{10, 20, 80, 90}));
}

TEST(CurvePoints, AThirdBreakpointOfZeroSelectsTheParabola) {
  // 0.005 x² + 0.25 x + 5: at 40 8 + 10 + 5, at 100 50 + 25 + 5.
  const CurvePoints points = pointsOf({99, 40, 0, 0.005F, 0.25F, 5});
  EXPECT_FALSE(points.linear);
  EXPECT_EQ(points.PointCount(), 3);
  EXPECT_EQ(listed(points.PointX), (Four{0, 40, 100, 100}));
  EXPECT_EQ(listed(points.PointY), (Four{5, 23, 80, 80}));
}

TEST(CurvePoints, ACurveBeyondAllNumbersIsAnOverflow) {
  EXPECT_EQ(raisedBy([] { pointsOf({0, 33, 66, 3e38F, 1, 1}); }), 6);
  EXPECT_EQ(raisedBy([] { pointsOf({0, 33, 0, 3e38F, 1, 1}); }), 6);
}

TEST(CurveThroughPoints, SlopesAreRiseOverRun) {
  // 10 / 20, 60 / 40, 10 / 40
  EXPECT_EQ(listed(curveThrough(pointsAt(true, {0, 20, 60, 100}, {10, 20, 80, 90}))),
            (Curve{10, 20, 60, 0.5F, 1.5F, 0.25F}));
}

TEST(CurveThroughPoints, TheParabolaHasItsCoefficientsAndTheMarkOfItsForm) {
  EXPECT_EQ(listed(curveThrough(pointsAt(false, {0, 50, 100, 100}, {0, 25, 100, 100}))),
            (Curve{0, 50, 0, 0.01F, 0, 0}));
}

TEST(CurveThroughPoints, TheParabolaGoesThroughWholePercentsAndKeepsTheDraggedPoint) {
  // Rounded half to even: (0, 0), (50, 26), (100, 100); a = (1.48 - 0.52) / 100, b = 0.52 - 50 a.
  const Curve curve =
      listed(curveThrough(pointsAt(false, {0, 50.5F, 100, 0}, {0.5F, 25.5F, 99.6F, 0})));
  EXPECT_EQ(curve, (Curve{0.5F, 50.5F, 0, 0.0096F, 0.04F, 0}));
}

TEST(CurveThroughPoints, PointsOfOneXAreADivisionByZero) {
  for (const Four& x : {Four{0, 0, 66, 100}, Four{0, 50, 50, 100}, Four{0, 33, 100, 100}})
    EXPECT_EQ(raisedBy([&] { curveThrough(pointsAt(true, x, {0, 10, 20, 30})); }), 11);
  EXPECT_EQ(raisedBy([] {
              curveThrough(pointsAt(false, {0, 0.4F, 100, 100}, {0, 10, 20, 20}));
            }),
            11);
}

TEST(CurveThroughPoints, PointsAndBackLeaveACurveAsItWas) {
  const ResponseCurve linear{10, 25, 50, 2, 0.5F, 0.5F};
  EXPECT_EQ(listed(curveThrough(pointsOf(linear))), listed(linear));
  const ResponseCurve parabola{0, 50, 0, 0.01F, 0, 0};
  EXPECT_EQ(listed(curveThrough(pointsOf(parabola))), listed(parabola));
}

/// What the X of a point becomes that is drawn as far to the left and to the right as it goes.
std::array<float, 2> reachOf(int point, const Four& x) {
  CurvePoints points = pointsAt(true, x, {0, 20, 40, 100});
  moveWithinNeighbours(points, point, -200, 50);
  const float least = points.PointX(point);
  moveWithinNeighbours(points, point, 200, 50);
  return {least, points.PointX(point)};
}
using Reach = std::array<float, 2>;

TEST(MoveWithinNeighbours, APointStaysAPercentAway) {
  EXPECT_EQ(reachOf(2, {0, 33, 66, 100}), (Reach{1, 65}));
  EXPECT_EQ(reachOf(3, {0, 33, 66, 100}), (Reach{34, 99}));
  EXPECT_EQ(reachOf(3, {0, 98, 99, 100}), (Reach{99, 99}));
}

TEST(MoveWithinNeighbours, BetweenNeighboursOfLessThanTwoPercentAPointStandsInTheMiddle) {
  EXPECT_EQ(reachOf(2, {0, 0.5F, 1, 100}), (Reach{0.5F, 0.5F}));
  EXPECT_EQ(reachOf(3, {0, 99, 99.5F, 100}), (Reach{99.5F, 99.5F}));
  EXPECT_EQ(reachOf(3, {0, 99.5F, 99.6F, 100}), (Reach{99.75F, 99.75F}));
}

TEST(MoveWithinNeighbours, OfPointsInTheWrongOrderOneStaysBehindTheOneBefore) {
  EXPECT_EQ(reachOf(2, {0, 50, -10, 100}), (Reach{1, 1}));
}

TEST(Uint, IsTheSmallestWholeNumberAtOrAboveAPositiveOne) {
  EXPECT_EQ(Uint(3), 3);
  EXPECT_EQ(Uint(3.01F), 4);
  EXPECT_EQ(Uint(0), 0);
  EXPECT_EQ(Uint(0.5F), 1);
}

}  // namespace
}  // namespace vorlent
