#pragma once

#include <cstdint>

#include "base/simulatorUnits.h"

/// From the simulator's scales to numbers, as more than one family of the decode needs them.
namespace vorlent {

/// 0 up to but not including 360.
inline double degrees16(std::uint16_t x) { return x * 360.0 / Turn16; }
inline double degrees32(std::uint32_t x) { return x * 360.0 / Turn32; }

/// A number without a sign that means a negative one when it lies above `above`.
inline double folded(double x, double above, double fold) { return x > above ? x - fold : x; }
/// docs/peculiarities.md: 65535 beside 65536.
inline double foldedOnes(std::uint16_t x) { return folded(x, HighestSigned16, OnesComplement16); }

/// 10 times the high digit plus the low digit.
inline int BcdToDec(std::uint8_t bcd) { return 10 * (bcd >> 4) + (bcd & 0xF); }

/// Degrees C, cut to a whole number toward zero. Raises Overflow.
float FahrenheitToCelsius(double fahrenheit);

}  // namespace vorlent
