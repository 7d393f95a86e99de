#include "sticks/responseCurve.h"

#include <algorithm>
#include <cmath>

#include "base/analogScale.h"
#include "base/numbers.h"

namespace vorlent {
namespace {

// Each operation is rounded to Real, in the order in which the formulas are written.

template <class Real>
Real segments(const ResponseCurve& c, Real v) {
  const Real A = AxisScale, y1 = c.y1, x2 = c.x2, X3 = c.X3, m1 = c.m1, m2 = c.m2, m3 = c.m3;
  if (x2 * A > v) return y1 * A + v * m1;
  if (X3 * A > v) return y1 * A + m1 * x2 * A + (v - x2 * A) * m2;
  return y1 * A + m1 * x2 * A + (X3 - x2) * A * m2 + (v - X3 * A) * m3;
}

template <class Real>
Real parabola(const ResponseCurve& c, Real v) {
  const Real A = AxisScale, m1 = c.m1, m2 = c.m2, m3 = c.m3;
  const Real p = v / A;
  return (m1 * p * p + m2 * p + m3) * A;
}

template <class Real>
Real output(const ResponseCurve& curve, std::int16_t value) {
  return curve.X3 != 0 ? segments<Real>(curve, value) : parabola<Real>(curve, value);
}

}  // namespace

/// A curve that is too steep for singles still leads to an end of the travel.
std::int16_t curveOutput(const ResponseCurve& curve, std::int16_t value) {
  const double single = output<float>(curve, value);
  const double out = std::isfinite(single) ? single : output<double>(curve, value);
  return toInt16(std::clamp(out, 0.0, double{AnalogMax}));
}

}  // namespace vorlent
