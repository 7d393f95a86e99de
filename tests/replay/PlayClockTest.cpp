#include "replay/PlayClock.h"

#include <gtest/gtest.h>

#include "support/raisedBy.h"

namespace vorlent {
namespace {

TEST(PlayClock, GoesAtThePaceOfLifeFromTheBeginning) {
  PlayClock clock(10);
  EXPECT_EQ(clock.position_s(), 0);
  clock.advance(2.5);
  EXPECT_EQ(clock.position_s(), 2.5);
}

TEST(PlayClock, ASpeedIsSecondsOfTheRecordingInASecond) {
  PlayClock clock(100);
  clock.speed(20);
  clock.advance(2);
  EXPECT_EQ(clock.position_s(), 40);
  clock.speed(0.1);
  clock.advance(10);
  EXPECT_EQ(clock.position_s(), 41);
}

TEST(PlayClock, NoOtherSpeedIsTaken) {
  PlayClock clock(100);
  for (const double factor : {0.0, 0.09, 20.1, -1.0}) {
    EXPECT_EQ(raisedBy([&] { clock.speed(factor); }), RuntimeError::InvalidCall) << factor;
  }
  clock.advance(3);
  EXPECT_EQ(clock.position_s(), 3) << "the speed before stays";
}

TEST(PlayClock, StandsWhilePausedAndGoesOnFromThere) {
  PlayClock clock(10);
  clock.advance(1);
  clock.pause();
  clock.advance(5);
  EXPECT_EQ(clock.position_s(), 1);
  clock.play();
  clock.advance(2);
  EXPECT_EQ(clock.position_s(), 3);
}

TEST(PlayClock, StandsAtTheEnd) {
  PlayClock clock(10);
  clock.advance(25);
  EXPECT_EQ(clock.position_s(), 10);
  EXPECT_TRUE(clock.atEnd());
  EXPECT_FALSE(clock.playing());
}

TEST(PlayClock, PlayedFromTheEndItBeginsAnew) {
  PlayClock clock(10);
  clock.advance(10);
  clock.play();
  clock.advance(1);
  EXPECT_EQ(clock.position_s(), 1);
}

TEST(PlayClock, ALoopGoesOnBehindTheEndAtTheBeginning) {
  PlayClock clock(10);
  clock.loop(true);
  clock.advance(23);
  EXPECT_EQ(clock.position_s(), 3);
  EXPECT_TRUE(clock.playing());
}

TEST(PlayClock, ALoopOfNothingStands) {
  PlayClock clock(0);
  clock.loop(true);
  clock.advance(1);
  EXPECT_EQ(clock.position_s(), 0);
  EXPECT_FALSE(clock.playing());
}

TEST(PlayClock, SeeksWithinTheRecordingAlone) {
  PlayClock clock(10);
  clock.seek(7);
  EXPECT_EQ(clock.position_s(), 7);
  clock.seek(10);
  EXPECT_EQ(clock.position_s(), 10);
  EXPECT_EQ(raisedBy([&] { clock.seek(10.1); }), RuntimeError::InvalidCall);
  EXPECT_EQ(raisedBy([&] { clock.seek(-1); }), RuntimeError::InvalidCall);
  EXPECT_EQ(clock.position_s(), 10);
}

}  // namespace
}  // namespace vorlent
