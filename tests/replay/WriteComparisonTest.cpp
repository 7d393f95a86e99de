#include "replay/WriteComparison.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

using namespace std::string_literals;

const recorded::Request twoWrites{{true, 0x0BC0, 2}, {false, 0x0560, 8}, {true, 0x0BBA, 2}};

TEST(WriteComparison, EqualWritesAreNoDifference) {
  WriteComparison writes;
  writes.compare(1, twoWrites, "\x01\x02\x03\x04", "\x01\x02\x03\x04");
  EXPECT_EQ(writes.recordedWrites(), 2U);
  EXPECT_EQ(writes.differences(), 0U);
}

TEST(WriteComparison, AChangedByteIsToldWithTimeAndOffset) {
  WriteComparison writes;
  writes.compare(12'345'678, twoWrites, "\x01\x02\x03\x04", "\x01\x02\x03\xFF");
  ASSERT_EQ(writes.first().size(), 1U);
  EXPECT_EQ(writes.first()[0], (WriteDifference{12'345'678, 0x0BBA, "\x03\x04", "\x03\xFF"}));
  EXPECT_EQ(textOf(writes.first()[0]), "12.346 s  0BBA  then 0304  now 03FF");
}

TEST(WriteComparison, AWriteThatIsMissingOrNewIsADifference) {
  WriteComparison writes;
  writes.onlyThen(1'000'000, {{true, 0x0BC0, 1}}, "\x07");
  writes.onlyNow(2'000'000, {{true, 0x0BC2, 1}}, "\0"s);
  EXPECT_EQ(writes.recordedWrites(), 1U);
  ASSERT_EQ(writes.differences(), 2U);
  EXPECT_EQ(textOf(writes.first()[0]), "1.000 s  0BC0  then 07  now nothing");
  EXPECT_EQ(textOf(writes.first()[1]), "2.000 s  0BC2  then nothing  now 00");
}

TEST(WriteComparison, ReadsAloneAreNone) {
  WriteComparison writes;
  writes.onlyThen(1, {{false, 0x0560, 8}}, "");
  writes.onlyNow(1, {{false, 0x0560, 8}}, "");
  EXPECT_EQ(writes.differences(), 0U);
}

TEST(WriteComparison, AllAreCountedAndTheFirstOnesKept) {
  WriteComparison writes;
  for (int i = 0; i < 100; ++i) writes.onlyThen(i, {{true, 0x0BC0, 1}}, "x");
  EXPECT_EQ(writes.differences(), 100U);
  EXPECT_EQ(writes.first().size(), WriteComparison::MostKept);
  EXPECT_EQ(writes.first().front().time_us, 0);
}

}  // namespace
}  // namespace vorlent
