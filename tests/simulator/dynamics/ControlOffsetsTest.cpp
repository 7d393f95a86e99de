#include "simulator/dynamics/ControlOffsets.h"

#include <gtest/gtest.h>

#include "simulator/OffsetMemory.h"
#include "simulator/dynamics/PlantData.h"

namespace vorlent {
namespace {

TEST(ControlOffsets, AStartLeverFromHalfItsTravelUpFeedsTheEngine) {
  OffsetMemory memory;
  const auto feeds = [&memory](std::uint16_t lever) {
    memory.write<std::uint16_t>(0x0890, lever);
    return controlsFrom(memory, plant737().controls).fuelOn[0];
  };
  EXPECT_FALSE(feeds(0));
  EXPECT_FALSE(feeds(8191));  // 8191 of 16383
  EXPECT_TRUE(feeds(8192));
  EXPECT_TRUE(feeds(16383));
}

}  // namespace
}  // namespace vorlent
