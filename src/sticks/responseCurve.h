#pragma once

#include <cstdint>

namespace vorlent {

/// Axis units to one percent of travel: 100 percent are 32767.
constexpr float AxisScale = 327.67F;

/// The response of one analog channel, in percent of travel both ways. With an `X3` other than 0
/// three straight segments, of the slopes `m1` up to `x2`, `m2` up to `X3` and `m3` behind it, that
/// begin at `y1`. With an `X3` of 0 the parabola m1 * x * x + m2 * x + m3.
struct ResponseCurve {
  float y1 = 0;
  float x2 = 33;
  float X3 = 66;
  float m1 = 1;
  float m2 = 1;
  float m3 = 1;
};

/// What the curve makes of an axis value 0..32767, within 0..32767.
std::int16_t curveOutput(const ResponseCurve& curve, std::int16_t value);

}  // namespace vorlent
