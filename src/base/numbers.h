#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

#include "base/RuntimeError.h"

/// Checked arithmetic. Whatever is stored goes through one of these, so that a division by zero, a
/// NaN, an infinity or a value out of range is a fault and never a stored number.
namespace vorlent {

/// Rounds half to even into an integer type; raises Overflow outside its range and for a NaN.
template <class Integer>
Integer rounded(double x) {
  const double whole = std::nearbyint(x);
  if (!(whole >= static_cast<double>(std::numeric_limits<Integer>::min()) &&
        whole <= static_cast<double>(std::numeric_limits<Integer>::max())))
    throw RuntimeError(RuntimeError::Overflow);
  return static_cast<Integer>(whole);
}

inline std::int16_t toInt16(double x) { return rounded<std::int16_t>(x); }
inline std::int32_t toInt32(double x) { return rounded<std::int32_t>(x); }
inline std::uint8_t toByte(double x) { return rounded<std::uint8_t>(x); }

/// The value itself; raises Overflow for a NaN or an infinity.
inline double finite(double x) {
  if (!std::isfinite(x)) throw RuntimeError(RuntimeError::Overflow);
  return x;
}

/// Nearest single; raises Overflow when that is not a finite number.
inline float toSingle(double x) {
  constexpr double FirstThatRoundsToInfinity = 0x1.ffffffp+127;
  if (!(std::fabs(x) < FirstThatRoundsToInfinity)) throw RuntimeError(RuntimeError::Overflow);
  return static_cast<float>(x);
}

/// Raises DivisionByZero.
inline double quotient(double dividend, double divisor) {
  if (divisor == 0) throw RuntimeError(RuntimeError::DivisionByZero);
  return dividend / divisor;
}

/// Byte addition: raises Overflow above 255.
inline std::uint8_t addBytes(std::uint8_t a, std::uint8_t b) { return toByte(double{0} + a + b); }

}  // namespace vorlent
