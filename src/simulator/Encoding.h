#pragma once

#include <cmath>
#include <cstdint>
#include <string_view>

#include "base/numbers.h"
#include "base/simulatorUnits.h"
#include "simulator/OffsetMemory.h"

/// The scales of the interface that many offsets share.
namespace vorlent {

/// Rounded into T; raises Overflow outside its range.
template <class T>
void writeRounded(OffsetMemory& memory, std::size_t offset, double value) {
  memory.write(offset, rounded<T>(value));
}

/// Any angle.
inline std::uint16_t angle16(double angle_deg) {
  return static_cast<std::uint16_t>(
      rounded<std::int32_t>(std::fmod(angle_deg, 360) / 360 * Turn16));
}

/// Any angle.
inline std::uint32_t angle32(double angle_deg) {
  return static_cast<std::uint32_t>(std::llround(finite(std::fmod(angle_deg, 360) / 360 * Turn32)));
}

inline std::uint16_t percent16(double percent) {
  return rounded<std::uint16_t>(percent / 100 * FullScale);
}

/// Two decimal digits, 0 to 99, in the two halves of a byte.
inline std::uint8_t packedDigits(int value) {
  return static_cast<std::uint8_t>(value / 10 * 16 + value % 10);
}

/// Text in a field of `size` bytes, filled up with zeros; at least one closes it.
inline void writeText(OffsetMemory& memory, std::size_t offset, std::size_t size,
                      std::string_view text) {
  for (std::size_t i = 0; i < size; ++i)
    memory.write(offset + i, i < text.size() && i + 1 < size ? text[i] : '\0');
}

}  // namespace vorlent
