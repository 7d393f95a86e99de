#pragma once

#include <cstdint>

namespace vorlent {

class clsFSUIPC;

/// What the members of clsAutoP, clsEng, clsFsOpt, clsRadio and clsSrv write with: one value, one
/// round trip. A value that has no place in its type raises Overflow before anything is sent; a
/// round trip that fails ends the process.

/// One byte: the value cut to a whole number. Raises Overflow outside 0..255.
void writeByte(clsFSUIPC& link, std::uint32_t offset, double value);

/// The value rounded, half to even, to an integer of 32 bits, of which the low two bytes go out. So
/// 65536 goes out as 0, and a negative value as its two's complement. Raises Overflow outside 32
/// bits only.
void writeLowHalf(clsFSUIPC& link, std::uint32_t offset, double value);

/// Four bytes: the value rounded, half to even. Raises Overflow outside 32 bits.
void writeLong(clsFSUIPC& link, std::uint32_t offset, double value);

/// Two bytes, as they are.
void writeInt(clsFSUIPC& link, std::uint32_t offset, std::int16_t value);

/// Eight bytes. Raises Overflow for a NaN or an infinity.
void writeDouble(clsFSUIPC& link, std::uint32_t offset, double value);

}  // namespace vorlent
