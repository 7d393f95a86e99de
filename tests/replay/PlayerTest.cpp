#include "replay/Player.h"

#include <gtest/gtest.h>

#include <array>

#include "base/bytes.h"
#include "recordings.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

/// Three polls, at 1, 2 and 40 seconds.
class PlayerTest : public testing::Test {
 protected:
  PlayerTest() {
    recording.add(1, pollOf(10));
    recording.add(2, pollOf(20));
    recording.add(40, pollOf(40));
  }

  /// The byte that a client reads at 0x0560.
  int shown(Player& player) {
    std::array<std::byte, 64> block{};
    store(&block[0], std::uint32_t{1});
    store(&block[4], std::uint32_t{0x0560});
    store(&block[8], std::uint32_t{1});
    EXPECT_EQ(player.answer(block), RequestServer::Good);
    return static_cast<int>(block[16]);
  }
  void write(Player& player, std::byte value) {
    std::array<std::byte, 64> block{};
    store(&block[0], std::uint32_t{2});
    store(&block[4], std::uint32_t{0x0560});
    store(&block[8], std::uint32_t{1});
    block[12] = value;
    EXPECT_EQ(player.answer(block), RequestServer::Good);
  }

  WrittenRecording recording;
};

TEST_F(PlayerTest, BeforeTheFirstPollItShowsTheFirstPoll) {
  Player player(recording.reader());
  EXPECT_EQ(shown(player), 10);
}

TEST_F(PlayerTest, ShowsWhatWasLastReadAtItsTime) {
  Player player(recording.reader());
  player.advance(1.9);
  EXPECT_EQ(shown(player), 10);
  player.advance(0.1);
  EXPECT_EQ(shown(player), 20);
  player.advance(38);
  EXPECT_EQ(shown(player), 40);
}

TEST_F(PlayerTest, GoesForwardAndBackWhereItIsSent) {
  Player player(recording.reader());
  player.clock().seek(39.9);
  player.advance(0);
  EXPECT_EQ(shown(player), 20);
  player.clock().seek(40);
  player.advance(0);
  EXPECT_EQ(shown(player), 40);
  player.clock().seek(0);
  player.advance(0);
  EXPECT_EQ(shown(player), 10);
  player.clock().play();
  player.advance(2);
  EXPECT_EQ(shown(player), 20) << "and on from there";
}

TEST_F(PlayerTest, ALoopShowsTheBeginningAgain) {
  Player player(recording.reader());
  player.clock().loop(true);
  player.clock().speed(20);
  player.advance(1.95);
  EXPECT_EQ(shown(player), 20);
  player.advance(0.1);
  EXPECT_EQ(player.clock().position_s(), 1);
  EXPECT_EQ(shown(player), 10);
}

TEST_F(PlayerTest, WhatIsWrittenIsTakenAndForgotten) {
  Player player(recording.reader());
  write(player, std::byte{99});
  EXPECT_EQ(shown(player), 10);
}

TEST_F(PlayerTest, KnowsBehindWhichInterfaceItWasRecorded) {
  EXPECT_FALSE(Player(recording.reader()).isXPlane());
  WrittenRecording xplane;
  recorded::Exchanged mark = pollOf(1);
  mark.request = std::make_shared<const recorded::Request>(recorded::Request{{false, 0x6FFF, 1}});
  mark.read = "\x01";
  xplane.add(0.5, mark);
  xplane.add(1, pollOf(10));
  EXPECT_TRUE(Player(xplane.reader()).isXPlane());
}

TEST_F(PlayerTest, ARecordingWithoutAPollCannotBePlayed) {
  WrittenRecording empty;
  EXPECT_EQ(raisedBy([&] { Player player(empty.reader()); }), RuntimeError::InputPastEnd);
}

}  // namespace
}  // namespace vorlent
