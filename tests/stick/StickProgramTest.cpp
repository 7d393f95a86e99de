#include "stick/StickProgram.h"

#include <gtest/gtest.h>

#include <deque>

namespace vorlent {
namespace {

/// A stick in virtual time; it notes what it shows, and when.
class FakeStick : public StickDevice {
 public:
  struct Shown {
    int at_ms;
    ControllerState state;
  };

  void show(const ControllerState& state) override { shown.push_back({now_ms, state}); }
  bool pause(int duration_ms) override {
    now_ms += duration_ms;
    return now_ms < end_ms;
  }
  bool awaitReader() override { return pause(readerComes_ms - now_ms); }
  std::optional<std::string> nextLine() override {
    if (lines.empty()) return std::nullopt;
    std::string line = lines.front();
    lines.pop_front();
    return line;
  }

  std::vector<Shown> shown;
  std::deque<std::string> lines;
  int now_ms = 0;
  int end_ms = 1000000;
  int readerComes_ms = 0;
};

class StickProgramTest : public testing::Test {
 protected:
  void run(const std::vector<std::string>& arguments) {
    StickProgram(stick, [this](const std::string& text) {
      complaints.push_back(text);
    }).run(stickOptionsFrom(arguments));
  }
  void runLine(const std::string& line) { run(wordsOf("--hold 0 " + line)); }
  const ControllerState& last() const { return stick.shown.back().state; }

  FakeStick stick;
  std::vector<std::string> complaints;
};

TEST_F(StickProgramTest, KeepsWhatFormerStepsHaveSet) {
  runLine("x=32768 press 3 press 32 release 3 pov1=9000");
  ControllerState expected;
  expected.x = 32768;
  expected.buttons[31] = 0x80;
  expected.POV[1] = 9000;
  EXPECT_EQ(last(), expected);
  EXPECT_EQ(stick.shown.size(), 5U);
  EXPECT_EQ(stick.shown[1].state.buttons[2], 0x80);
}

TEST_F(StickProgramTest, ATapLastsATenthOfASecond) {
  runLine("tap 1");
  ASSERT_EQ(stick.shown.size(), 2U);
  EXPECT_EQ(stick.shown[0].at_ms, 0);
  EXPECT_EQ(stick.shown[0].state.buttons[0], 0x80);
  EXPECT_EQ(stick.shown[1].at_ms, 100);
  EXPECT_EQ(stick.shown[1].state.buttons[0], 0);
}

TEST_F(StickProgramTest, ASweepMovesEvenlyAndEndsOnTheValue) {
  runLine("x=1000 sweep x 0 25");
  ASSERT_EQ(stick.shown.size(), 5U);
  // 1000 down by 40 a millisecond, shown every 10 ms and at the end.
  EXPECT_EQ(stick.shown[1].at_ms, 10);
  EXPECT_EQ(stick.shown[1].state.x, 600);
  EXPECT_EQ(stick.shown[2].at_ms, 20);
  EXPECT_EQ(stick.shown[2].state.x, 200);
  EXPECT_EQ(stick.shown[3].at_ms, 25);
  EXPECT_EQ(last().x, 0);
}

TEST_F(StickProgramTest, TheLongestSweepOverTheWholeRangeStaysInIt) {
  stick.end_ms = 4000000;
  runLine("sweep slider0 65535 3600000");
  std::int32_t former = 0;
  for (const FakeStick::Shown& shown : stick.shown) {
    ASSERT_GE(shown.state.slider[0], former);
    former = shown.state.slider[0];
  }
  EXPECT_EQ(former, 65535);
}

TEST_F(StickProgramTest, ASweepInNoTimeIsAnAssignment) {
  runLine("sweep rz 5 0");
  ASSERT_EQ(stick.shown.size(), 1U);
  EXPECT_EQ(last().rz, 5);
}

TEST_F(StickProgramTest, WaitsForAReaderAndForTime) {
  stick.readerComes_ms = 300;
  runLine("await x=1 wait 50 x=2");
  ASSERT_EQ(stick.shown.size(), 2U);
  EXPECT_EQ(stick.shown[0].at_ms, 300);
  EXPECT_EQ(stick.shown[1].at_ms, 350);
}

TEST_F(StickProgramTest, StaysForTheHoldAndLeavesTheInputAlone) {
  stick.lines = {"x=5"};
  run({"--hold", "1.5", "wait", "100"});
  EXPECT_EQ(stick.now_ms, 1600);
  EXPECT_TRUE(stick.shown.empty());
}

TEST_F(StickProgramTest, WithoutAHoldLineAfterLineIsCarriedOut) {
  stick.lines = {"x=5 press 2", "", "release 2"};
  run({"y=7"});
  ControllerState expected;
  expected.x = 5;
  expected.y = 7;
  EXPECT_EQ(last(), expected);
  EXPECT_EQ(stick.shown.size(), 4U);
}

TEST_F(StickProgramTest, AWrongLineIsToldAndChangesNothing) {
  stick.lines = {"x=5 jump", "y=6"};
  run({});
  EXPECT_EQ(complaints, std::vector<std::string>{"There is no step \"jump\""});
  EXPECT_EQ(last().x, 0);
  EXPECT_EQ(last().y, 6);
}

TEST_F(StickProgramTest, TheEndLeavesOutTheRestButLetsATapGo) {
  stick.end_ms = 50;
  stick.lines = {"x=5"};
  run({"tap", "1", "y=6"});
  EXPECT_EQ(last(), ControllerState{});
}

}  // namespace
}  // namespace vorlent
