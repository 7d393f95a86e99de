#pragma once

#include <cstdint>

#include "simulator/OffsetMemory.h"

/// What a client asks for before anything else.
namespace vorlent {

/// The version of the interface and the simulator's number. `asXPlane` marks it as XPUIPC.
inline void writeIdentity(OffsetMemory& memory, bool asXPlane) {
  constexpr std::uint32_t Version = 0x49500000;          // 4.950
  constexpr std::uint32_t SimulatorNumber = 0xFADE0008;  // FSX
  memory.write(0x3304, Version);
  memory.write(0x3308, SimulatorNumber);
  memory.write<std::uint8_t>(0x6FFF, asXPlane ? 1 : 0);
}

/// Until it is ready, the server waits.
inline void writeReadiness(OffsetMemory& memory, bool ready) {
  memory.write<std::uint8_t>(0x3364, ready ? 0 : 1);
}

}  // namespace vorlent
