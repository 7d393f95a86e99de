#include "input/responseCurve.h"

#include <algorithm>

#include "base/numbers.h"

namespace vorlent {
namespace {

constexpr double OutputMax = 32767;

double segments(const ResponseCurve& c, double v) {
  const double A = AxisScale;
  const double first = c.y1 * A;
  if (c.x2 * A > v) return first + v * c.m1;
  const double second = first + c.m1 * (c.x2 * A);
  if (c.X3 * A > v) return second + (v - c.x2 * A) * c.m2;
  return second + (c.X3 * A - c.x2 * A) * c.m2 + (v - c.X3 * A) * c.m3;
}

double parabola(const ResponseCurve& c, double v) {
  const double p = v / AxisScale;
  return (c.m1 * p * p + c.m2 * p + c.m3) * AxisScale;
}

}  // namespace

std::int16_t curveOutput(const ResponseCurve& curve, std::int16_t value) {
  const double out = curve.X3 != 0 ? segments(curve, value) : parabola(curve, value);
  return toInt16(static_cast<float>(std::clamp(out, 0.0, OutputMax)));
}

}  // namespace vorlent
