#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace vorlent {

/// How a value stands in the offsets: unsigned, two's complement or double.
enum class OffsetForm { U8, S8, U16, S16, U32, S32, Double };

std::size_t sizeOf(OffsetForm form);
/// The number in the first bytes; `bytes` holds at least as many.
double numberIn(std::span<const std::byte> bytes, OffsetForm form);
/// Puts a number that the form can hold there.
void putNumber(std::span<std::byte> bytes, OffsetForm form, double number);

/// What the check does with an offset.
enum class OffsetUse {
  Read,     ///< reads it
  Clock,    ///< reads it, and it has to move
  Written,  ///< writes another value there and the old one back
};

struct OffsetRow {
  std::uint16_t offset;
  OffsetForm form;
  std::string_view name;
  std::string_view unit;
  double perUnit;  ///< steps of the offset to a unit; negative where the signs are opposite
  double lowest;   ///< of what is possible, in units
  double highest;
  OffsetUse use = OffsetUse::Read;
};

/// The numbers that the autopilot's modes and laws take in and put out, and those that a display
/// shows of flight, engines, flaps and gear.
std::span<const OffsetRow> offsetRows();

}  // namespace vorlent
