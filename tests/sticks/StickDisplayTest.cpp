#include "core/frmMainClient.h"
#include "sticks/LastMoved.h"
#include "sticks/StickTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;

using Row = std::optional<StickRow>;
constexpr StickRow axis(int index) { return {StickRow::Axis, index}; }
constexpr StickRow line(int index) { return {StickRow::Line, index}; }
constexpr StickRow extra(int index) { return {StickRow::Extra, index}; }

/// Plain lines, all at rest.
class LastMovedTest : public ::testing::Test {
 protected:
  void SetUp() override { EXPECT_EQ(tick(), Row()); }
  Row tick() { return moved.moved(now); }

  LastMoved moved;
  LastMoved::Readings now{{1000, 1000, 1000, 1000}, {}, false, 0, {}};
};

TEST_F(LastMovedTest, AnAxisIsFoundWhenItHasMovedByMoreThanATwentieth) {
  now.axes[2] = 1000 + 1638;  // 32767 / 20
  EXPECT_EQ(tick(), Row());
  now.axes[2] = 1000 + 1639;
  EXPECT_EQ(tick(), Row(axis(2)));
  EXPECT_EQ(tick(), Row());
  now.axes[2] = 900;
  EXPECT_EQ(tick(), Row(axis(2)));
}

TEST_F(LastMovedTest, OfTwoAxesTheOneThatWentFurther) {
  now.axes = {5000, 9000, 1000, 1000};
  EXPECT_EQ(tick(), Row(axis(1)));
  EXPECT_EQ(tick(), Row());  // the other one has gone with it
}

TEST_F(LastMovedTest, AnAxisOfAnEncoderIsItsFirst) {
  now.axisEncoders = true;
  now.axes[3] = 32767;
  EXPECT_EQ(tick(), Row(axis(2)));
}

TEST_F(LastMovedTest, APushButtonIsFoundOnItsSecondTickAndNotWhenItIsLetGo) {
  now.buttons[1] = 1;
  EXPECT_EQ(tick(), Row());
  EXPECT_EQ(tick(), Row(line(1)));
  EXPECT_EQ(tick(), Row());
  now.buttons[1] = 0;
  tick();
  EXPECT_EQ(tick(), Row());
}

TEST_F(LastMovedTest, ASwitchIsFoundBothWays) {
  now.isSwitch[3] = true;
  now.buttons[3] = 1;
  tick();
  EXPECT_EQ(tick(), Row(line(3)));
  now.buttons[3] = 0;
  tick();
  EXPECT_EQ(tick(), Row(line(3)));
}

TEST_F(LastMovedTest, AnEncoderIsFoundAtEveryEdge) {
  now.lineMode = 2;
  now.buttons[3] = 1;
  EXPECT_EQ(tick(), Row(line(2)));
  now.buttons[3] = 0;
  EXPECT_EQ(tick(), Row(line(2)));
}

TEST_F(LastMovedTest, TheFirstLineOfACodeIsNoButton) {
  now.lineMode = 1;
  now.buttons[0] = 1;
  EXPECT_EQ(tick(), Row());
  now.buttons[0] = 0;
  now.buttons[11] = 1;
  EXPECT_EQ(tick(), Row());
  EXPECT_EQ(tick(), Row(extra(7)));
}

TEST_F(LastMovedTest, InputsBehindTheLinesCountForNothingUnlessTheyAreDecoded) {
  now.buttons[5] = 1;
  tick();
  EXPECT_EQ(tick(), Row());
}

/// A stick's window in sight; axes 1 to 4, switches 11 to 14.
class StickDisplayTest : public StickTest {
 protected:
  void SetUp() override {
    StickTest::SetUp();
    click(1);
    stick().Visible(true);
    tick();
  }
  void hold(std::size_t button, bool down = true) { board().buttons[button] = down ? 0x80 : 0; }
};

TEST_F(StickDisplayTest, BarsShowTheReadingAndWhatItIsAfterSmoothingAndInversion) {
  stick().chkInvert(1).Value(1);
  board().y = 20000;
  tick();
  EXPECT_EQ(stick().prgRaw(1).Value(), 10000);
  EXPECT_EQ(stick().prgValue(1).Value(), 22767);
  EXPECT_EQ(stick().txtValue(1).Text(), "22767");
}

TEST_F(StickDisplayTest, EachLineHasALampThatIsRedWhileItIsClosed) {
  hold(2);
  tick();
  EXPECT_EQ(stick().shpLine(2).FillColor(), Shape::Red);
  EXPECT_EQ(stick().shpLine(1).FillColor(), Shape::White);
  hold(2, false);
  tick();
  EXPECT_EQ(stick().shpLine(2).FillColor(), Shape::White);
}

TEST_F(StickDisplayTest, NothingIsShownWhileTheWindowIsOutOfSight) {
  stick().cmdCancel.press();
  board().x = 20000;
  hold(0);
  tick();
  EXPECT_EQ(stick().prgRaw(0).Value(), 0);
  EXPECT_EQ(stick().shpLine(0).FillColor(), Shape::White);
  EXPECT_EQ(stick().lblSentA(0).Caption(), "");
}

TEST_F(StickDisplayTest, EachRowTellsWhatItSends) {
  board().x = 200;
  hold(1);
  EXPECT_THAT(tick(), ElementsAre("A 1 100", "T 12 1"));
  EXPECT_EQ(stick().lblSentA(0).Caption(), "A 1 100");
  EXPECT_EQ(stick().lblSentA(1).Caption(), "");
  EXPECT_EQ(stick().lblSentBtn(1).Caption(), "T 12 1");
}

TEST_F(StickDisplayTest, ExtraButtonsTellWhatTheySendInTheirOwnWindow) {
  for (int i = 0; i < 4; ++i) stick().OnOff(i).Value(0);
  hold(0);
  hold(1);  // button 5
  tick();
  EXPECT_EQ(more().lblSent(0).Caption(), "P 105 1");
  EXPECT_EQ(more().shpOnOff(0).FillColor(), Shape::Red);
}

TEST_F(StickDisplayTest, WhatIsMovedIsSelectedWhileTheBoxIsChecked) {
  board().z = 0;
  board().slider[0] = 40000;
  tick();
  EXPECT_TRUE(stick().optAxes(0).Value());
  stick().chkFind.Value(1);
  tick();
  board().slider[0] = 10000;
  tick();
  EXPECT_TRUE(stick().optAxes(2).Value());
  EXPECT_EQ(stick().SSTab1.ListIndex(), frmCStick::AxisPage);
  hold(3);
  ticks(2);
  EXPECT_TRUE(stick().optSwitches(3).Value());
  EXPECT_EQ(stick().SSTab1.ListIndex(), frmCStick::ButtonPage);
  stick().chkFind.Value(0);
  board().x = 60000;
  ticks(2);
  EXPECT_TRUE(stick().optAxes(2).Value());
}

TEST_F(StickDisplayTest, WhatMovesRightAfterTheBoxIsCheckedIsFound) {
  tick();
  stick().chkFind.Value(1);
  board().slider[0] = 10000;
  tick();
  EXPECT_TRUE(stick().optAxes(2).Value());
  stick().chkFind.Value(0);
  tick();
  stick().chkFind.Value(1);
  hold(3);
  ticks(2);
  EXPECT_TRUE(stick().optSwitches(3).Value());
}

TEST_F(StickDisplayTest, AnExtraButtonIsSelectedInItsWindow) {
  for (int i = 0; i < 4; ++i) stick().OnOff(i).Value(0);
  stick().chkFind.Value(1);
  tick();
  hold(0);
  hold(1);
  ticks(3);
  EXPECT_TRUE(more().optSwitches(0).Value());
  EXPECT_FALSE(stick().optSwitches(0).Value() && stick().optSwitches(1).Value());
}

TEST_F(StickDisplayTest, ABoardThatIsUnpluggedIsToldUntilItIsBack) {
  t.controllers.all[0].pluggedIn = false;
  t.loop.advance(300);
  EXPECT_EQ(stick().lblBoard.Caption(), "The board is unplugged");
  EXPECT_TRUE(stick().lblBoard.Alarm());
  t.controllers.all[0].pluggedIn = true;
  t.loop.advance(300);
  EXPECT_EQ(stick().lblBoard.Caption(), "");
  EXPECT_FALSE(stick().lblBoard.Alarm());
}

TEST_F(StickDisplayTest, BesideWhatARowSendsStandsWhatTheSimulatorHolds) {
  t.server.commands = std::make_unique<Commands>(t.server.commandContext());
  stick().optAxes(0).Tag("13");  // the ailerons, 0x0BB6
  stick().optAxes(1).Tag("61");  // nothing
  board().x = 65535;
  board().y = 65535;
  t.loop.advance(300);
  EXPECT_EQ(stick().lblSentA(0).Caption(), "A 13 -16384");  // 16383 - 32767
  EXPECT_EQ(stick().lblAnswerA(0).Caption(), "0BB6 holds -16384");
  EXPECT_EQ(stick().lblAnswerA(1).Caption(), "stays in the server");
}

}  // namespace
}  // namespace vorlent
