#include "replay/ReplayConsole.h"

#include <gtest/gtest.h>

#include "replay/PlayClock.h"

namespace vorlent {
namespace {

class ReplayConsoleTest : public testing::Test {
 protected:
  PlayClock clock{120};
  ReplayConsole console{clock};
};

TEST_F(ReplayConsoleTest, PausesAndPlays) {
  EXPECT_EQ(console.execute("pause"), "=");
  EXPECT_FALSE(clock.playing());
  EXPECT_EQ(console.execute("play"), "=");
  EXPECT_TRUE(clock.playing());
}

TEST_F(ReplayConsoleTest, SeeksInSeconds) {
  EXPECT_EQ(console.execute("seek 61.5"), "=");
  EXPECT_EQ(clock.position_s(), 61.5);
}

TEST_F(ReplayConsoleTest, SeekPastTheEndIsRefusedAndItStays) {
  console.execute("seek 60");
  EXPECT_EQ(console.execute("seek 121"), "error: it takes a number from 0 to 120, not \"121\"");
  EXPECT_EQ(clock.position_s(), 60);
}

TEST_F(ReplayConsoleTest, SpeedOfZeroIsRefused) {
  EXPECT_EQ(console.execute("speed 0"), "error: it takes a number from 0.1 to 20, not \"0\"");
  EXPECT_EQ(console.execute("speed fast"), "error: it takes a number from 0.1 to 20, not \"fast\"");
  clock.advance(1);
  EXPECT_EQ(clock.position_s(), 1);
}

TEST_F(ReplayConsoleTest, SpeedAndLoopAreTaken) {
  EXPECT_EQ(console.execute("speed 2"), "=");
  EXPECT_EQ(console.execute("loop on"), "=");
  clock.advance(61);
  EXPECT_EQ(clock.position_s(), 2);
  EXPECT_EQ(console.execute("loop off"), "=");
  clock.advance(100);
  EXPECT_EQ(clock.position_s(), 120);
}

TEST_F(ReplayConsoleTest, TellsWhereItStands) {
  clock.advance(12.34);
  EXPECT_EQ(console.execute("where"), "= 12.3 of 120.0 s, playing");
  console.execute("pause");
  EXPECT_EQ(console.execute(" where "), "= 12.3 of 120.0 s, standing");
}

TEST_F(ReplayConsoleTest, WrongLinesChangeNothing) {
  EXPECT_EQ(console.execute("fly"), "error: no command \"fly\"");
  EXPECT_EQ(console.execute(""), "error: no command \"\"");
  EXPECT_EQ(console.execute("pause now"), "error: too much: now");
  EXPECT_EQ(console.execute("loop maybe"), "error: it takes on or off, not \"maybe\"");
  EXPECT_EQ(console.execute("seek"), "error: it takes a number from 0 to 120, not \"\"");
  EXPECT_TRUE(clock.playing());
  EXPECT_FALSE(console.ended());
}

TEST_F(ReplayConsoleTest, HelpListsAllCommands) {
  EXPECT_EQ(console.execute("help"),
            "= pause, play, seek SECONDS, speed FACTOR, loop on|off, where, exit, help");
}

TEST_F(ReplayConsoleTest, ExitEndsIt) {
  EXPECT_EQ(console.execute("exit"), "=");
  EXPECT_TRUE(console.ended());
}

}  // namespace
}  // namespace vorlent
