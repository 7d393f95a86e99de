#include "sticks/curvePoints.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/analogScale.h"
#include "base/numbers.h"
#include "sticks/quadraticFit.h"

namespace vorlent {
namespace {

/// Percent between neighbours, so that no segment is upright.
constexpr float LeastGap = 1;

/// X of a point between its neighbours: their middle where they are too near for the gap, as a file
/// may have them.
float between(float before, float behind, float x) {
  if (before < behind && behind - before < 2 * LeastGap) return (before + behind) / 2;
  return std::max(before + LeastGap, std::min(x, behind - LeastGap));
}

CurvePoints parabolaPoints(const ResponseCurve& curve) {
  CurvePoints points{.linear = false, .PointX = {}, .PointY = {}};
  points.PointX(2) = curve.x2;
  points.PointX(3) = 100;
  points.PointX(4) = 100;
  for (int i = 1; i <= 4; ++i) {
    const double x = points.PointX(i);
    points.PointY(i) = toSingle(curve.m1 * x * x + curve.m2 * x + curve.m3);
  }
  return points;
}

CurvePoints segmentPoints(const ResponseCurve& curve) {
  CurvePoints points;
  points.PointX(2) = curve.x2;
  points.PointX(3) = curve.X3;
  points.PointX(4) = 100;
  points.PointY(1) = curve.y1;
  const std::array<double, 3> slopes{curve.m1, curve.m2, curve.m3};
  for (int i = 2; i <= 4; ++i) {
    const double run = double{points.PointX(i)} - points.PointX(i - 1);
    const double slope = slopes.at(static_cast<std::size_t>(i - 2));
    points.PointY(i) = toSingle(points.PointY(i - 1) + run * slope);
  }
  return points;
}

/// From point i to the next.
float slopeFrom(int i, const CurvePoints& points) {
  const double rise = double{points.PointY(i + 1)} - points.PointY(i);
  return toSingle(quotient(rise, double{points.PointX(i + 1)} - points.PointX(i)));
}

ResponseCurve segmentsThrough(const CurvePoints& points) {
  return {.y1 = points.PointY(1),
          .x2 = points.PointX(2),
          .X3 = points.PointX(3),
          .m1 = slopeFrom(1, points),
          .m2 = slopeFrom(2, points),
          .m3 = slopeFrom(3, points)};
}

/// An X3 of 0 marks the curve as a parabola.
ResponseCurve parabolaThrough(const CurvePoints& points) {
  std::array<std::int32_t, 3> x{};
  std::array<std::int32_t, 3> y{};
  for (int i = 1; i <= 3; ++i) {
    x.at(static_cast<std::size_t>(i - 1)) = toInt32(points.PointX(i));
    y.at(static_cast<std::size_t>(i - 1)) = toInt32(points.PointY(i));
  }
  std::array<float, 3> abc{};
  QuadReg(x, y, points.PointCount() - 1, abc);
  return {.y1 = points.PointY(1),
          .x2 = points.PointX(2),
          .X3 = 0,
          .m1 = abc[0],
          .m2 = abc[1],
          .m3 = abc[2]};
}

}  // namespace

CurvePoints pointsOf(const ResponseCurve& curve) {
  return curve.X3 == 0 ? parabolaPoints(curve) : segmentPoints(curve);
}

ResponseCurve curveThrough(const CurvePoints& points) {
  return points.linear ? segmentsThrough(points) : parabolaThrough(points);
}

CurvePoints pointsOnCurve(const ResponseCurve& curve, bool linear) {
  constexpr float DefaultX3 = 66;
  CurvePoints points;
  points.linear = linear;
  const float behind = linear ? 2 * LeastGap : LeastGap;
  points.PointX(2) = std::clamp(curve.x2, LeastGap, 100 - behind);
  points.PointX(3) = points.PointX(4) = 100;
  if (linear)
    points.PointX(3) = std::clamp(curve.X3 != 0 ? curve.X3 : DefaultX3, points.PointX(2) + LeastGap,
                                  100 - LeastGap);
  for (int i = 1; i <= 4; ++i) {
    const auto value = toInt16(double{points.PointX(i)} / 100 * AnalogMax);
    points.PointY(i) = toSingle(curveOutput(curve, value) / double{AnalogMax} * 100);
  }
  return points;
}

void moveWithinNeighbours(CurvePoints& points, int point, float x, float y) {
  points.PointY(point) = std::clamp(y, 0.0F, 100.0F);
  if (point == 1 || point == points.PointCount()) return;
  points.PointX(point) = between(points.PointX(point - 1), points.PointX(point + 1), x);
}

std::int32_t Uint(float x) {
  const float whole = std::trunc(x);
  return toInt32(x == whole ? whole : whole + 1);
}

}  // namespace vorlent
