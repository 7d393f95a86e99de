#include "sticks/conditioning.h"

#include <gtest/gtest.h>

#include <limits>

namespace vorlent {
namespace {

TEST(Conditioning, AReadingIsHalvedAndRoundedDown) {
  EXPECT_EQ(halvedAxis(0), 0);
  EXPECT_EQ(halvedAxis(1), 0);
  EXPECT_EQ(halvedAxis(2), 1);
  EXPECT_EQ(halvedAxis(32769), 16384);
  EXPECT_EQ(halvedAxis(65534), 32767);
  EXPECT_EQ(halvedAxis(65535), 32767);
}

TEST(Conditioning, AReadingBeyondTheRangeCountsAsItsEnd) {
  EXPECT_EQ(halvedAxis(65536), 32767);
  EXPECT_EQ(halvedAxis(std::numeric_limits<std::int32_t>::max()), 32767);
  EXPECT_EQ(halvedAxis(-1), 0);
  EXPECT_EQ(halvedAxis(std::numeric_limits<std::int32_t>::min()), 0);
}

TEST(Conditioning, APressedByteOf128IsOneAndNoneIsZero) {
  EXPECT_EQ(buttonLevel(128), 1);
  EXPECT_EQ(buttonLevel(0), 0);
  EXPECT_EQ(buttonLevel(64), 0);  // a half goes to the even number
  EXPECT_EQ(buttonLevel(65), 1);
  EXPECT_EQ(buttonLevel(191), 1);
  EXPECT_EQ(buttonLevel(192), 2);
}

TEST(Conditioning, SmoothingGoesAQuarterOfTheWay) {
  EXPECT_EQ(smoothed(0, 1000), 250);
  EXPECT_EQ(smoothed(250, 1000), 438);  // 437.5
  EXPECT_EQ(smoothed(1000, 0), 750);
  EXPECT_EQ(smoothed(32767, 0), 24575);  // 24575.25
}

TEST(Conditioning, SmoothingRoundsHalfToEvenAndSoStaysTwoShort) {
  EXPECT_EQ(smoothed(998, 1000), 998);    // 998.5
  EXPECT_EQ(smoothed(997, 1000), 998);    // 997.75
  EXPECT_EQ(smoothed(1002, 1000), 1002);  // 1001.5
}

TEST(Conditioning, MirroringTurnsTheTravelOver) {
  EXPECT_EQ(mirrored(0), 32767);
  EXPECT_EQ(mirrored(32767), 0);
  EXPECT_EQ(mirrored(10000), 22767);
}

TEST(Conditioning, ANullZoneOfZeroLetsEveryChangeOfOneThrough) {
  EXPECT_TRUE(leavesNullZone(100, 101, 0));
  EXPECT_TRUE(leavesNullZone(100, 99, 0));
  EXPECT_FALSE(leavesNullZone(100, 100, 0));
}

TEST(Conditioning, AChangeOfExactlyTheNullZoneStaysInIt) {
  EXPECT_FALSE(leavesNullZone(1000, 1050, 50));
  EXPECT_FALSE(leavesNullZone(1000, 950, 50));
  EXPECT_TRUE(leavesNullZone(1000, 1051, 50));
  EXPECT_TRUE(leavesNullZone(1000, 949, 50));
  EXPECT_TRUE(leavesNullZone(0, 32767, 32766.5));
}

/// Levels with these buttons pressed.
ButtonLevels pressed(std::initializer_list<std::size_t> buttons) {
  ButtonLevels levels{};
  for (const std::size_t button : buttons) levels[button] = 1;
  return levels;
}

ButtonLevels decoded(std::initializer_list<std::size_t> buttons) {
  ButtonLevels levels = pressed(buttons);
  decodeLines(levels);
  return levels;
}

TEST(DecodeLines, ASingleLineStaysItsButton) {
  EXPECT_EQ(decoded({}), pressed({}));
  EXPECT_EQ(decoded({0}), pressed({0}));
  EXPECT_EQ(decoded({1}), pressed({1}));
  EXPECT_EQ(decoded({2}), pressed({2}));
  EXPECT_EQ(decoded({3}), pressed({3}));
}

TEST(DecodeLines, LinesZeroAndOnePressButtonFourAndAreClearedThemselves) {
  EXPECT_EQ(decoded({0, 1}), pressed({4}));
}

TEST(DecodeLines, EveryCodeOfTwoLinesOrMorePressesItsButton) {
  EXPECT_EQ(decoded({0, 2}), pressed({11}));
  EXPECT_EQ(decoded({1, 2}), pressed({8}));
  EXPECT_EQ(decoded({0, 1, 2}), pressed({5}));
  EXPECT_EQ(decoded({0, 3}), pressed({12}));
  EXPECT_EQ(decoded({1, 3}), pressed({9}));
  EXPECT_EQ(decoded({0, 1, 3}), pressed({6}));
  EXPECT_EQ(decoded({2, 3}), pressed({14}));
  EXPECT_EQ(decoded({0, 2, 3}), pressed({13}));
  EXPECT_EQ(decoded({1, 2, 3}), pressed({10}));
  EXPECT_EQ(decoded({0, 1, 2, 3}), pressed({7}));
}

TEST(DecodeLines, WithoutACodeTheButtonsFourToFourteenAreOff) {
  EXPECT_EQ(decoded({0, 4, 9, 14, 15, 31}), pressed({0, 15, 31}));
}

TEST(DecodeLines, WithACodeTheOtherButtonsStayAsTheyAre) {
  EXPECT_EQ(decoded({0, 1, 9}), pressed({4, 9}));
}

TEST(DecodeLines, LevelsBeyondOneLeadToNoPlaceOutsideTheButtons) {
  ButtonLevels levels{2, 2, 2, 2};
  decodeLines(levels);
  EXPECT_EQ(levels, pressed({7}));
}

}  // namespace
}  // namespace vorlent
