#include "core/frmMainClient.h"
#include "sticks/StickTest.h"
#include "sticks/clsJoyst.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A stick whose lines are two encoders of the codes 11 and 13, or whose axes are two of the codes
/// 1 and 3. The poll is 50 ms, so that a pause is longer than 500 ms. The ticks are the test's own:
/// the timer stands still, once the poll has been measured.
class StickEncoder : public StickTest {
 protected:
  void SetUp() override {
    StickTest::SetUp();
    t.loop.advance(1200);
    ASSERT_EQ(t.store.EffectivePoll, 50);
    t.form.txtPoll.Text("32000");
    click(1);
    stick().PollStick();
  }
  void useLines() {
    for (int i = 0; i < 4; ++i) stick().OnOff(i).Tag("2");
    stick().Form_Init();
  }
  void useAxes() {
    stick().chkDamp(3).Tag("1");
    stick().Form_Init();
  }
  /// The lines' levels `ms` later, and which commands they gave.
  Lines lines(int ms, int a, int b, std::size_t first = 0) {
    board().buttons[first] = a != 0 ? 0x80 : 0;
    board().buttons[first + 1] = b != 0 ? 0x80 : 0;
    return poll(ms);
  }
  Lines axes(int ms, int a, int b) {
    board().x = a != 0 ? 65535 : 0;
    board().y = b != 0 ? 65535 : 0;
    return poll(ms);
  }
  Lines poll(int ms) {
    t.loop.advance(ms);
    stick().PollStick();
    return commands->take();
  }
};

TEST_F(StickEncoder, EveryEdgeCountsOneUpWhenATakesTheOldB) {
  useLines();
  EXPECT_THAT(lines(600, 0, 1), ElementsAre("E 11 1"));
  EXPECT_THAT(lines(600, 1, 1), ElementsAre("E 11 1"));
  EXPECT_THAT(lines(600, 1, 0), ElementsAre("E 11 1"));
  EXPECT_THAT(lines(600, 0, 0), ElementsAre("E 11 1"));
  EXPECT_EQ(stick().shpOnOff(0).FillColor(), 255);
}

TEST_F(StickEncoder, EveryEdgeCountsOneDownTheOtherWay) {
  useLines();
  EXPECT_THAT(lines(600, 1, 0), ElementsAre("E 11 -1"));
  EXPECT_THAT(lines(600, 1, 1), ElementsAre("E 11 -1"));
  EXPECT_EQ(stick().shpOnOff(0).FillColor(), 16777215);
  EXPECT_THAT(lines(600, 0, 1), ElementsAre("E 11 -1"));
  EXPECT_THAT(lines(600, 0, 0), ElementsAre("E 11 -1"));
  EXPECT_EQ(stick().shpOnOff(0).FillColor(), 16777215);
}

TEST_F(StickEncoder, WithoutAnEdgeNothingIsSent) {
  useLines();
  lines(600, 0, 1);
  EXPECT_THAT(poll(600), IsEmpty());
}

TEST_F(StickEncoder, TwoLineChangesInOneTickCountOneStep) {
  useLines();
  EXPECT_THAT(lines(600, 1, 1), ElementsAre("E 11 -1"));
}

TEST_F(StickEncoder, TheSecondEncoderHasItsOwnLinesAndCode) {
  useLines();
  EXPECT_THAT(lines(600, 0, 1, 2), ElementsAre("E 13 1"));
  EXPECT_EQ(stick().shpOnOff(2).FillColor(), 255);
}

TEST_F(StickEncoder, QuickEdgesOfLinesAccelerateByOneMoreThanThoseOfAxes) {
  useLines();
  stick().txtAccBtn(0).Text("2");
  lines(600, 0, 1);
  EXPECT_THAT(lines(100, 1, 1), ElementsAre("E 11 11"));  // 2 * 500 / 100 and 1
  EXPECT_THAT(lines(400, 1, 0), ElementsAre("E 11 3"));   // 2.5 and 1
}

TEST_F(StickEncoder, QuickEdgesOfAxesAccelerate) {
  useAxes();
  stick().txtAccA(0).Text("2");
  axes(600, 0, 1);
  EXPECT_THAT(axes(100, 1, 1), ElementsAre("E 1 10"));
  EXPECT_THAT(axes(400, 1, 0), ElementsAre("E 1 2"));
}

TEST_F(StickEncoder, EachEncoderHasItsOwnAcceleration) {
  useLines();
  stick().txtAccBtn(0).Text("7");
  stick().txtAccBtn(2).Text("3");
  lines(600, 0, 1, 2);
  EXPECT_THAT(lines(100, 1, 1, 2), ElementsAre("E 13 16"));  // 3 * 500 / 100 and 1
  useAxes();
  stick().txtAccA(0).Text("7");
  stick().txtAccA(2).Text("3");
  board().rz = 65535;
  poll(600);
  board().slider[0] = 65535;
  EXPECT_THAT(poll(100), ElementsAre("E 3 15"));
}

TEST_F(StickEncoder, AnEdgeOneMillisecondAfterTheLastGivesAStepOf500) {
  useAxes();
  axes(600, 0, 1);
  EXPECT_THAT(axes(1, 1, 1), ElementsAre("E 1 500"));
}

TEST_F(StickEncoder, EdgesInTheSameMillisecondCountOneEach) {
  useAxes();
  axes(600, 0, 1);
  EXPECT_THAT(axes(0, 1, 1), ElementsAre("E 1 1"));
}

TEST_F(StickEncoder, BothEncodersOfAGroupShareTheirTiming) {
  useLines();
  lines(600, 0, 1, 2);
  EXPECT_THAT(lines(250, 0, 1), ElementsAre("E 11 3"));  // 500 / 250 and 1
}

TEST_F(StickEncoder, BothEncodersOfAGroupShareTheirDirection) {
  useLines();
  lines(600, 0, 1, 2);
  EXPECT_THAT(lines(100, 1, 0), IsEmpty());
}

TEST_F(StickEncoder, AReverseEdgeWithinTenPollPeriodsIsDroppedWhateverTheHistorySays) {
  useLines();
  lines(600, 0, 1);
  std::int16_t same = 0;
  stick().push(-1, same);
  stick().push(-1, same);
  EXPECT_EQ(same, 1);
  EXPECT_THAT(lines(500, 0, 0), IsEmpty());
}

TEST_F(StickEncoder, AReverseEdgeAfterAPauseGetsThroughOnlyIfPushSawThatDirectionLast) {
  useLines();
  lines(600, 0, 1);
  EXPECT_THAT(lines(501, 0, 0), IsEmpty());
  EXPECT_THAT(lines(501, 1, 0), ElementsAre("E 11 -1"));
  EXPECT_THAT(lines(501, 0, 0), IsEmpty());
  EXPECT_THAT(lines(501, 0, 1), ElementsAre("E 11 1"));
}

TEST_F(StickEncoder, ADroppedEdgeStillMovesTheLevelsAndTheLamp) {
  useLines();
  lines(600, 0, 1);
  EXPECT_EQ(stick().shpOnOff(0).FillColor(), 255);
  EXPECT_THAT(lines(100, 0, 0), IsEmpty());
  EXPECT_EQ(stick().shpOnOff(0).FillColor(), 16777215);
  EXPECT_THAT(lines(100, 0, 1), ElementsAre("E 11 6"));  // 500 / 100 and 1
}

TEST_F(StickEncoder, AnAxisIsALineThatClosesAboveAQuarterOfItsTravel) {
  useAxes();
  board().y = 16385;  // 8192
  EXPECT_THAT(poll(600), IsEmpty());
  board().y = 16386;  // 8193
  EXPECT_THAT(poll(600), ElementsAre("E 1 1"));
}

TEST_F(StickEncoder, AxesThatAreEncodersSendNoLevers) {
  useAxes();
  board().slider[0] = 200;
  EXPECT_THAT(poll(600), IsEmpty());
  EXPECT_EQ(stick().txtValue(2).Text(), "0");
}

TEST_F(StickEncoder, TheSecondEncoderOfTheAxesIsSliderAndRudder) {
  useAxes();
  board().rz = 65535;
  EXPECT_THAT(poll(600), ElementsAre("E 3 1"));
  EXPECT_EQ(stick().shpAxis(2).FillColor(), 255);
}

TEST_F(StickEncoder, AxesAndLinesHaveADirectionEach) {
  useLines();
  useAxes();
  EXPECT_THAT(lines(600, 0, 1), ElementsAre("E 11 1"));
  EXPECT_THAT(axes(100, 1, 0), ElementsAre("E 1 -1"));
}

TEST_F(StickEncoder, AxesAndLinesShareTheHistoryOfDirections) {
  useLines();
  useAxes();
  EXPECT_THAT(lines(600, 0, 1), ElementsAre("E 11 1"));
  EXPECT_THAT(axes(600, 0, 1), ElementsAre("E 1 1"));
  EXPECT_THAT(lines(600, 0, 0), IsEmpty());
  EXPECT_THAT(axes(600, 0, 0), ElementsAre("E 1 -1"));
}

TEST_F(StickEncoder, BothEncodersOfATickAreOneEdgeAfterTheOther) {
  useLines();
  lines(600, 0, 1);
  board().buttons[2] = 0x80;
  EXPECT_THAT(lines(100, 1, 1), ElementsAre("E 11 6"));  // 13 turns against the group
  board().buttons[2] = 0;
  board().buttons[3] = 0x80;
  EXPECT_THAT(lines(250, 1, 0), ElementsAre("E 11 3", "E 13 1"));  // 13 in the same millisecond
}

TEST_F(StickEncoder, AnInvertedAxisIsAnInvertedLine) {
  useAxes();
  stick().chkInvert(0).Value(1);
  EXPECT_THAT(poll(600), ElementsAre("E 1 -1"));
  board().x = 65535;
  EXPECT_THAT(poll(600), IsEmpty());
}

TEST_F(StickEncoder, AKeyIsPressedWithEachStepThatIsSentEitherWay) {
  useLines();
  stick().optSwitches(0).Tag("2065");
  EXPECT_THAT(lines(600, 0, 1), ElementsAre("E 2065 1", "P 2065 1"));
  EXPECT_THAT(lines(600, 0, 0), IsEmpty());  // against the direction: it has to come twice
  EXPECT_THAT(lines(600, 1, 0), ElementsAre("E 2065 -1", "P 2065 -1"));
  useAxes();
  stick().optAxes(0).Tag("1112");
  EXPECT_THAT(axes(600, 0, 1), ElementsAre("E 1112 1", "P 1112 1"));
}

TEST_F(StickEncoder, AKeyOfAnEncoderReachesTheKeyboardOnce) {
  t.server.commands = std::make_unique<Commands>(t.server.commandContext());
  t.server.sticks.joyst->ProcessLocalStick("E 2065 500 ");
  ASSERT_EQ(t.keyboard.pressed.size(), 1U);
  t.server.sticks.joyst->ProcessLocalStick("E 1000 1 E 48 1 E 3 1 A 1065 1 T 1065 1 ");
  EXPECT_EQ(t.keyboard.pressed.size(), 1U);
}

TEST_F(StickEncoder, BeforeThePollIsMeasuredEveryEdgeCountsOne) {
  t.store.EffectivePoll = 0;
  useAxes();
  EXPECT_THAT(axes(3, 0, 1), ElementsAre("E 1 1"));
  EXPECT_THAT(axes(3, 1, 1), ElementsAre("E 1 1"));
}

}  // namespace
}  // namespace vorlent
