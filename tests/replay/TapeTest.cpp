#include "replay/Tape.h"

#include <gtest/gtest.h>

#include "recordings.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

using recorded::Answered;
using recorded::Call;
using recorded::TimerTicked;

class TapeTest : public testing::Test {
 protected:
  WrittenRecording recording;
};

TEST_F(TapeTest, AStretchEndsWhereSomethingBegins) {
  recording.add(1, Answered{Call::TickCount, 1000, ""});
  recording.add(2, TimerTicked{3});
  recording.add(2, Answered{Call::TickCount, 2000, ""});
  Tape tape(recording.reader());
  EXPECT_EQ(tape.numberOf(Call::TickCount, -1), 1000);
  EXPECT_EQ(tape.numberOf(Call::TickCount, -1), -1) << "the next one belongs to the tick";
  ASSERT_TRUE(tape.boundary());
  EXPECT_EQ(tape.boundary()->what, recorded::What(TimerTicked{3}));
  tape.advance();
  EXPECT_EQ(tape.time_us(), 2'000'000);
  EXPECT_EQ(tape.numberOf(Call::TickCount, -1), 2000);
  EXPECT_FALSE(tape.boundary());
}

TEST_F(TapeTest, EachCallHasItsAnswersInTheirOrder) {
  recording.add(1, Answered{Call::LocalIp, 0, "10.0.0.1"});
  recording.add(1, Answered{Call::TickCount, 1, ""});
  recording.add(1, Answered{Call::TickCount, 2, ""});
  Tape tape(recording.reader());
  EXPECT_EQ(tape.numberOf(Call::TickCount, -1), 1);
  EXPECT_EQ(tape.numberOf(Call::TickCount, -1), 2);
  EXPECT_EQ(tape.textOf(Call::LocalIp), "10.0.0.1");
}

TEST_F(TapeTest, WhatAPortRaisedIsRaisedAgain) {
  recording.add(1, recorded::Raised{Call::Bind, 10048, "in use"});
  Tape tape(recording.reader());
  EXPECT_EQ(raisedBy([&] { tape.answer(Call::Bind); }), 10048);
}

TEST_F(TapeTest, AWaitStandsBetweenItsBeginningAndItsEnd) {
  recording.add(1, Answered{Call::Pump, 1, ""});
  recording.add(2, Answered{Call::Pump, 0, ""});
  recording.add(3, recorded::Ended{0});
  Tape tape(recording.reader());
  EXPECT_TRUE(tape.isAt(Call::Pump, 1));
  tape.advance();
  EXPECT_TRUE(tape.isAt(Call::Pump, 0));
  EXPECT_FALSE(tape.isAt(Call::MessageBox, 0));
  EXPECT_FALSE(tape.isCut());
  tape.advance();
  EXPECT_FALSE(tape.isCut());
  tape.advance();
  EXPECT_TRUE(tape.isCut());
}

TEST_F(TapeTest, WhereEventsAreMissingItIsCut) {
  recording.add(1, recorded::Dropped{12});
  Tape tape(recording.reader());
  EXPECT_TRUE(tape.isCut());
}

TEST_F(TapeTest, LinesAreTheTextsOfAList) {
  recording.add(1, Answered{Call::AttachedNetworks, 0, "10.0.0.0/8\n192.168.0.0/24\n"});
  Tape tape(recording.reader());
  EXPECT_EQ(tape.linesOf(Call::AttachedNetworks),
            (std::vector<std::string>{"10.0.0.0/8", "192.168.0.0/24"}));
}

}  // namespace
}  // namespace vorlent
