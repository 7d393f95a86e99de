#include "simulator/OffsetMemory.h"

#include <array>

#include "base/RuntimeError.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

TEST(OffsetMemory, IsZeroAtFirst) {
  const OffsetMemory memory;
  EXPECT_EQ(memory.read<std::uint64_t>(0), 0u);
  EXPECT_EQ(memory.read<std::uint64_t>(0xFFF8), 0u);
}

TEST(OffsetMemory, KeepsTheLowByteFirst) {
  OffsetMemory memory;
  memory.write<std::uint32_t>(0x0331, 0x11223344);
  EXPECT_EQ(memory.read<std::uint8_t>(0x0331), 0x44);
  EXPECT_EQ(memory.read<std::uint8_t>(0x0334), 0x11);
  EXPECT_EQ(memory.read<std::uint16_t>(0x0332), 0x2233);
}

TEST(OffsetMemory, TheLastByteIsInside) {
  OffsetMemory memory;
  memory.write<std::uint8_t>(0xFFFF, 7);
  EXPECT_EQ(memory.read<std::uint8_t>(0xFFFF), 7);
}

TEST(OffsetMemory, AnAccessAcrossTheEndIsAFaultAndChangesNothing) {
  OffsetMemory memory;
  EXPECT_EQ(raisedBy([&] { memory.write<std::uint32_t>(0xFFFD, 0xFFFFFFFF); }), 9);
  EXPECT_EQ(raisedBy([&] { memory.read<std::uint16_t>(0xFFFF); }), 9);
  EXPECT_EQ(memory.read<std::uint8_t>(0xFFFF), 0);
}

TEST(OffsetMemory, OffsetsThatWouldWrapAroundAreOutside) {
  EXPECT_FALSE(OffsetMemory::contains(0xFFFFFFFF, 4));
  EXPECT_FALSE(OffsetMemory::contains(SIZE_MAX, 2));
  EXPECT_FALSE(OffsetMemory::contains(2, SIZE_MAX));
  EXPECT_TRUE(OffsetMemory::contains(0x10000, 0));
  EXPECT_FALSE(OffsetMemory::contains(0x10001, 0));
}

}  // namespace
}  // namespace vorlent
