#pragma once

#include <cstdint>

#include "base/IndexedArray.h"
#include "sticks/responseCurve.h"

namespace vorlent {

/// A response curve as the points that a builder drags, in percent of travel: input across, output
/// up. Linear: four points that straight lines join. Otherwise the first three, on a parabola.
struct CurvePoints {
  bool linear = true;
  IndexedArray<float, 1, 4> PointX;
  IndexedArray<float, 1, 4> PointY;

  std::int16_t PointCount() const { return linear ? 4 : 3; }
};

/// Raises Overflow when a point is beyond all numbers.
CurvePoints pointsOf(const ResponseCurve& curve);

/// The curve through the points, the parabola from points rounded to whole percents. Raises
/// DivisionByZero when two neighbours (of a parabola: any two) have the same X, and when the second
/// point of a linear curve has X 0.
ResponseCurve curveThrough(const CurvePoints& points);

/// Points of the other form on a curve: 0, `x2` and 100, or 0, `x2`, `X3` (66 where it is 0) and
/// 100, the inner ones at least a percent away from each other and the ends.
CurvePoints pointsOnCurve(const ResponseCurve& curve, bool linear);

/// Moves a point, the first and the last along Y alone, an inner one no nearer to its neighbours
/// than a percent, or in their middle where that is not possible; Y stays within 0 to 100.
void moveWithinNeighbours(CurvePoints& points, int point, float x, float y);

/// The smallest whole number at or above a positive x.
std::int32_t Uint(float x);

}  // namespace vorlent
