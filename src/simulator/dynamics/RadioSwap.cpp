#include "simulator/dynamics/RadioSwap.h"

namespace vorlent {
namespace {

constexpr std::size_t SwapOffset = 0x3123;

struct Radio {
  unsigned bit;
  std::size_t active;
  std::size_t standby;
};

constexpr Radio Radios[] = {
    {8, 0x034E, 0x311A},
    {4, 0x3118, 0x311C},
    {2, 0x0350, 0x311E},
    {1, 0x0352, 0x3120},
};

}  // namespace

void swapFrequencies(OffsetMemory& memory) {
  const unsigned wanted = memory.read<std::uint8_t>(SwapOffset);
  if (wanted == 0) return;
  for (const Radio& radio : Radios) {
    if ((wanted & radio.bit) == 0) continue;
    const auto active = memory.read<std::uint16_t>(radio.active);
    memory.write(radio.active, memory.read<std::uint16_t>(radio.standby));
    memory.write(radio.standby, active);
  }
  memory.write<std::uint8_t>(SwapOffset, 0);
}

}  // namespace vorlent
