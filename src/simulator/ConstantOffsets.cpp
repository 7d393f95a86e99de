#include "simulator/ConstantOffsets.h"

#include "base/numbers.h"

namespace vorlent {
namespace {

using Kind = ConstantOffset::Kind;

constexpr ConstantOffset Constants[] = {
    {0x0274, Kind::Word, 1, 546, "frame rate", "32768 / 546 is 60 pictures a second"},
    {0x0282, Kind::Byte, 1, 0, "third byte of the lights", "no switch of the cockpit lies there"},
    {0x0609, Kind::Byte, 1, 1, "engine type", "jet"},
    {0x08B2, Kind::Word, 1, 0, "anti-ice, engine 1", "there is no ice"},
    {0x094A, Kind::Word, 1, 0, "anti-ice, engine 2", "there is no ice"},
    {0x08DC, Kind::Word, 1, 14418, "hydraulic quantity, engine 1", "88 percent: nothing leaks"},
    {0x0974, Kind::Word, 1, 14418, "hydraulic quantity, engine 2", "88 percent: nothing leaks"},
    {0x08E8, Kind::Double, 1, 0, "cylinder heads, engine 1", "a turbofan has none"},
    {0x0980, Kind::Double, 1, 0, "cylinder heads, engine 2", "a turbofan has none"},
    {0x0AEC, Kind::Word, 1, 2, "number of engines", "a twin jet"},
    {0x0AF4, Kind::Word, 1, 1715, "weight of fuel", "6.7 lb/gal x 256 at any temperature"},
    {0x0B00, Kind::Word, 1, 61440, "lower limit of the thrust levers", "-25 percent x 163.84"},
    {0x0B71, Kind::Byte, 1, 0, "failure flag", "nothing fails"},
    {0x0B88, Kind::Long, 1, 0, "capacity of the left aux tank", "there is none"},
    {0x0B90, Kind::Long, 1, 0, "capacity of the left tip tank", "there is none"},
    {0x0BA0, Kind::Long, 1, 0, "capacity of the right aux tank", "there is none"},
    {0x0BA8, Kind::Long, 1, 0, "capacity of the right tip tank", "there is none"},
    {0x0BCA, Kind::Word, 1, 0, "brake indicator", "no autobrake and no lamp of its own"},
    {0x0C3E, Kind::Word, 1, 0, "gyro drift", "the compass is slaved"},
    {0x0EC6, Kind::Word, 1, 16212, "pressure at the sea", "1013.25 hPa x 16: standard atmosphere"},
    {0x2028, Kind::Double, 1, 0, "torque, engine 1", "a turbofan has no shaft"},
    {0x2128, Kind::Double, 1, 0, "torque, engine 2", "a turbofan has no shaft"},
    {0x2EE8, Kind::Double, 1, 0, "flight director pitch",
     "the simulator's own director stays away"},
    {0x2EF0, Kind::Double, 1, 0, "flight director bank", "the simulator's own director stays away"},
    {0x32F8, Kind::Byte, 1, 0, "failure flag", "nothing fails"},
    {0x3BD6, Kind::Byte, 18, 0, "failure flags", "nothing fails"},
    {0x3BFA, Kind::Word, 1, 2047, "from one flap detent to the next", "nine detents on 16383"},
};

std::size_t sizeOf(Kind kind) {
  switch (kind) {
    case Kind::Byte:
      return 1;
    case Kind::Word:
      return 2;
    case Kind::Long:
      return 4;
    case Kind::Double:
      break;
  }
  return 8;
}

void writeAs(OffsetMemory& memory, Kind kind, std::size_t offset, double value) {
  switch (kind) {
    case Kind::Byte:
      return memory.write(offset, rounded<std::uint8_t>(value));
    case Kind::Word:
      return memory.write(offset, rounded<std::uint16_t>(value));
    case Kind::Long:
      return memory.write(offset, rounded<std::uint32_t>(value));
    case Kind::Double:
      return memory.write(offset, value);
  }
}

}  // namespace

std::span<const ConstantOffset> constantOffsets() { return Constants; }

std::size_t offsetOf(const ConstantOffset& constant, int index) {
  return constant.offset + static_cast<std::size_t>(index) * sizeOf(constant.kind);
}

void writeConstantOffsets(OffsetMemory& memory) {
  for (const ConstantOffset& constant : Constants)
    for (int i = 0; i < constant.count; ++i)
      writeAs(memory, constant.kind, offsetOf(constant, i), constant.value);
}

}  // namespace vorlent
