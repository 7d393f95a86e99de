#include "base/bytes.h"

#include <gtest/gtest.h>

#include <array>

namespace vorlent {
namespace {

TEST(Bytes, AreReadLittleEndianAtAnyAlignment) {
  const std::array<std::uint8_t, 5> memory{0xFF, 0x78, 0x56, 0x34, 0x12};
  EXPECT_EQ(load<std::uint16_t>(&memory[1]), 0x5678);
  EXPECT_EQ(load<std::int32_t>(&memory[1]), 0x12345678);
}

TEST(Bytes, AreWrittenLittleEndianAndNoFurther) {
  std::array<std::uint8_t, 4> memory{1, 2, 3, 4};
  store<std::int16_t>(&memory[1], -2);
  EXPECT_EQ(memory, (std::array<std::uint8_t, 4>{1, 0xFE, 0xFF, 4}));
}

TEST(Bytes, HoldDoublesInTheirIeeeForm) {
  std::array<std::uint8_t, 8> memory{};
  store(memory.data(), 1.0);
  EXPECT_EQ(memory, (std::array<std::uint8_t, 8>{0, 0, 0, 0, 0, 0, 0xF0, 0x3F}));
  EXPECT_EQ(load<double>(memory.data()), 1.0);
}

}  // namespace
}  // namespace vorlent
