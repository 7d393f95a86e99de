#include "simlink/controlWriters.h"

#include <cmath>

#include "base/numbers.h"
#include "simlink/clsFSUIPC.h"

namespace vorlent {

// The result codes are not looked at: a typed write that fails does not come back.

void writeByte(clsFSUIPC& link, std::uint32_t offset, double value) {
  int result = clsFSUIPC::Okay;
  link.WriteByte(offset, 1, toByte(std::trunc(value)), result);
}

void writeLowHalf(clsFSUIPC& link, std::uint32_t offset, double value) {
  int result = clsFSUIPC::Okay;
  link.WriteLong(offset, 2, toInt32(value), result);
}

void writeLong(clsFSUIPC& link, std::uint32_t offset, double value) {
  int result = clsFSUIPC::Okay;
  link.WriteLong(offset, 4, toInt32(value), result);
}

void writeInt(clsFSUIPC& link, std::uint32_t offset, std::int16_t value) {
  int result = clsFSUIPC::Okay;
  link.WriteInt(offset, 2, value, result);
}

void writeDouble(clsFSUIPC& link, std::uint32_t offset, double value) {
  int result = clsFSUIPC::Okay;
  link.WriteDouble(offset, 8, finite(value), result);
}

}  // namespace vorlent
