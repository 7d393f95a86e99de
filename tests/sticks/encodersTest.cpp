#include "sticks/encoders.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

TEST(EncoderEdge, TurnsUpWhenLineATakesTheOldLevelOfLineB) {
  EXPECT_EQ(edgeDirection(1, 1), 1);
  EXPECT_EQ(edgeDirection(0, 0), 1);
  EXPECT_EQ(edgeDirection(1, 0), -1);
  EXPECT_EQ(edgeDirection(0, 1), -1);
}

TEST(EncoderStep, AnEdgeAfterAPauseCountsOne) {
  EXPECT_EQ(acceleratedStep(501, 500, 7, 0), 1);
  EXPECT_EQ(acceleratedStep(501, 500, 7, 1), 1);
}

TEST(EncoderStep, ASecondEdgeInTheSameMillisecondCountsOne) {
  EXPECT_EQ(acceleratedStep(0, 500, 7, 0), 1);
  EXPECT_EQ(acceleratedStep(0, 500, 7, 1), 1);
}

TEST(EncoderStep, AnEdgeOneMillisecondAfterTheLastCounts500) {
  EXPECT_EQ(acceleratedStep(1, 500, 1, 0), 500);
}

TEST(EncoderStep, AnEdgeAtTheEndOfThePauseStillAccelerates) {
  EXPECT_EQ(acceleratedStep(500, 500, 3, 0), 3);
  EXPECT_EQ(acceleratedStep(500, 500, 3, 1), 4);
}

TEST(EncoderStep, WithoutAccelerationAQuickEdgeCountsTheExtraOneAlone) {
  EXPECT_EQ(acceleratedStep(50, 500, 0, 1), 1);
  EXPECT_EQ(acceleratedStep(50, 500, 0, 0), 0);
}

TEST(EncoderStep, AnEdgeAtEachPollCountsTenTimesTheAccelerationWhateverThePeriod) {
  EXPECT_EQ(acceleratedStep(50, 500, 1, 1), 11);
  EXPECT_EQ(acceleratedStep(10, 100, 1, 1), 11);
  EXPECT_EQ(acceleratedStep(50, 500, 5, 1), 51);
}

TEST(EncoderStep, OnlyTheWholePartCountsAndTheExtraOneBehindIt) {
  EXPECT_EQ(acceleratedStep(300, 500, 2, 0), 3);  // 3.33
  EXPECT_EQ(acceleratedStep(300, 500, 2, 1), 4);
  EXPECT_EQ(acceleratedStep(400, 500, 0.5, 0), 0);  // 0.625
  EXPECT_EQ(acceleratedStep(400, 500, 0.5, 1), 1);
}

TEST(DirectionHistory, KnowsADirectionThatComesTwice) {
  DirectionHistory history;
  EXPECT_FALSE(history.push(1));
  EXPECT_TRUE(history.push(1));
  EXPECT_TRUE(history.push(1));
  EXPECT_FALSE(history.push(-1));
  EXPECT_FALSE(history.push(1));
  EXPECT_TRUE(history.push(1));
}

constexpr bool AfterPause = true;
constexpr bool Quickly = false;

struct HistoryAndGroup {
  DirectionHistory history;
  EncoderGroup group;
  bool accept(std::int16_t direction, bool afterPause) {
    return group.accept(direction, afterPause, [this](auto d) { return history.push(d); });
  }
};

TEST(EncoderGroup, TheFirstEdgeSetsTheDirection) {
  HistoryAndGroup both;
  EXPECT_TRUE(both.accept(-1, Quickly));
  EXPECT_TRUE(both.accept(-1, Quickly));
  EXPECT_FALSE(both.accept(1, Quickly));
}

TEST(EncoderGroup, AReverseEdgeWithoutAPauseIsDroppedWhateverTheHistorySays) {
  HistoryAndGroup both;
  both.accept(1, Quickly);
  both.history.push(-1);
  both.history.push(-1);
  EXPECT_FALSE(both.accept(-1, Quickly));
}

TEST(EncoderGroup, AReverseEdgeAfterAPauseGetsThroughOnlyIfTheHistorySawItLast) {
  HistoryAndGroup both;
  both.accept(1, Quickly);
  EXPECT_FALSE(both.accept(-1, AfterPause));
  EXPECT_TRUE(both.accept(-1, AfterPause));
  EXPECT_TRUE(both.accept(-1, Quickly));
  EXPECT_FALSE(both.accept(1, AfterPause));
  EXPECT_TRUE(both.accept(1, AfterPause));
}

TEST(EncoderGroup, AQuickReverseEdgeDoesNotReachTheHistory) {
  HistoryAndGroup both;
  both.accept(1, Quickly);
  EXPECT_FALSE(both.accept(-1, Quickly));
  EXPECT_FALSE(both.accept(-1, AfterPause));
  EXPECT_TRUE(both.accept(-1, AfterPause));
}

TEST(EncoderGroup, TheTimeCountsFromTheLastEdgeAndAcrossTheWrapOfTheClock) {
  EncoderGroup group;
  EXPECT_EQ(group.sinceLastEdge_ms(0xFFFFFFF0U), 0xFFFFFFF0U);
  EXPECT_EQ(group.sinceLastEdge_ms(0xFFFFFFF5U), 5U);
  EXPECT_EQ(group.sinceLastEdge_ms(0x0000000AU), 21U);
}

}  // namespace
}  // namespace vorlent
