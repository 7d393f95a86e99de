#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace vorlent {

/// Fits y = a * x * x + b * x + c by least squares to the points 0 .. lastIndex and stores a, b and
/// c in `coefficients`, rounded to 8 decimals. Gives r squared: 1 for points on a parabola, and -1
/// when all y are equal. Raises DivisionByZero when there are fewer than three different x, and
/// SubscriptOutOfRange without a point; nothing is stored then.
float QuadReg(std::span<const std::int32_t> x, std::span<const std::int32_t> y, int lastIndex,
              std::array<float, 3>& coefficients);

}  // namespace vorlent
