#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <span>

#include "support/PolledServer.h"

namespace vorlent {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

/// What the simulator holds at an offset and what one variable of the store is after a poll. A
/// single is given as a literal of that type, so that the comparison is exact.
struct DecodeCase {
  const char* name;
  std::uint32_t offset;
  int width_bytes;  ///< 1, 2 or 4 for whole numbers, 8 for a double
  double raw;
  double (*variable)(const modPublic& v);
  double expected;
};

inline void putRaw(FakeSimulatorBus& bus, const DecodeCase& row) {
  const auto bits = row.width_bytes == 8 ? std::uint64_t{0} : static_cast<std::uint64_t>(row.raw);
  switch (row.width_bytes) {
    case 1:
      bus.put(row.offset, static_cast<std::uint8_t>(bits));
      break;
    case 2:
      bus.put(row.offset, static_cast<std::uint16_t>(bits));
      break;
    case 4:
      bus.put(row.offset, static_cast<std::uint32_t>(bits));
      break;
    default:
      bus.put(row.offset, row.raw);
  }
}

/// Works the rows through in their order, so that a row that cannot be decoded shows the value of
/// the row before it.
inline void expectDecoded(PolledServer& sim, std::span<const DecodeCase> rows) {
  for (const DecodeCase& row : rows) {
    putRaw(sim.bus, row);
    sim.poll();
    EXPECT_EQ(row.variable(sim.store), row.expected)
        << row.name << " from " << row.raw << " at 0x" << std::hex << row.offset;
  }
}

}  // namespace vorlent
