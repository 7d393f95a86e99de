#include "core/frmMainClient.h"
#include "sticks/StickTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A stick of plain axes 1 to 4 and switches 11 to 14, which has told its first state.
class PollStick : public StickTest {
 protected:
  void SetUp() override {
    StickTest::SetUp();
    click(1);
    tick();
  }
  void useKinds(const std::string& kinds) {
    for (int i = 0; i < 4; ++i) stick().OnOff(i).Tag(kinds.substr(static_cast<std::size_t>(i), 1));
    stick().Form_Init();
  }
  void hold(std::size_t button, bool down = true) { board().buttons[button] = down ? 0x80 : 0; }
};

TEST_F(PollStick, XYSliderAndRudderAreTheFourAxes) {
  board() = {.x = 200,
             .y = 400,
             .z = 9999,
             .rx = 9999,
             .ry = 9999,
             .rz = 800,
             .slider = {600, 9999},
             .POV = {9000, 9000, 9000, 9000},
             .buttons = {}};
  EXPECT_THAT(tick(), ElementsAre("A 1 100", "A 2 200", "A 3 300", "A 4 400"));
  EXPECT_EQ(stick().txtValue(0).Text(), "100");
  EXPECT_EQ(stick().txtValue(3).Text(), "400");
}

TEST_F(PollStick, AnAxisThatStandsStillSendsNothing) {
  board().x = 200;
  EXPECT_THAT(tick(), ElementsAre("A 1 100"));
  EXPECT_THAT(ticks(5), IsEmpty());
}

TEST_F(PollStick, ANullZoneOfZeroSendsEveryChangeOfOne) {
  board().x = 2;
  EXPECT_THAT(tick(), ElementsAre("A 1 1"));
  board().x = 3;
  EXPECT_THAT(tick(), IsEmpty());
  board().x = 4;
  EXPECT_THAT(tick(), ElementsAre("A 1 2"));
}

TEST_F(PollStick, AChangeOfExactlyTheNullZoneIsNotSent) {
  stick().txtNull(0).Text("50");
  board().x = 100;
  EXPECT_THAT(tick(), IsEmpty());
  board().x = 102;
  EXPECT_THAT(tick(), ElementsAre("A 1 51"));
  board().x = 2;
  EXPECT_THAT(tick(), IsEmpty());
  board().x = 0;
  EXPECT_THAT(tick(), ElementsAre("A 1 0"));
}

TEST_F(PollStick, ADampedAxisApproachesAndShowsWhatItIsAt) {
  stick().chkDamp(0).Value(1);
  board().x = 2000;
  EXPECT_THAT(tick(), ElementsAre("A 1 250"));
  EXPECT_THAT(tick(), ElementsAre("A 1 438"));
  EXPECT_EQ(stick().txtValue(0).Text(), "438");
}

TEST_F(PollStick, TheSmoothingsMemoryIsNotMirrored) {
  board().x = 2000;
  stick().chkDamp(0).Value(1);
  stick().chkInvert(0).Value(1);
  EXPECT_THAT(tick(), ElementsAre("A 1 32517"));
  stick().chkInvert(0).Value(0);
  EXPECT_THAT(tick(), ElementsAre("A 1 438"));
}

TEST_F(PollStick, TheSmoothingsMemoryStandsStillWhileSmoothingIsOff) {
  stick().chkDamp(0).Value(1);
  board().x = 2000;
  EXPECT_THAT(tick(), ElementsAre("A 1 250"));
  stick().chkDamp(0).Value(0);
  EXPECT_THAT(tick(), ElementsAre("A 1 1000"));
  stick().chkDamp(0).Value(1);
  EXPECT_THAT(tick(), ElementsAre("A 1 438"));  // 250 + 0.25 * 750
}

TEST_F(PollStick, TheNullZoneMeasuresWhatTheCurveGivesOut) {
  stick().ChannelID(0);
  stick().m1(0.1F);
  stick().txtNull(0).Text("10");
  board().x = 200;
  EXPECT_THAT(tick(), IsEmpty());
  EXPECT_EQ(stick().txtValue(0).Text(), "100");
  board().x = 220;
  EXPECT_THAT(tick(), ElementsAre("A 1 11"));
}

TEST_F(PollStick, TheNullZoneIsAroundWhatTheCurveGaveOutLast) {
  stick().ChannelID(0);
  stick().y1(10);
  stick().m1(0.1F);
  stick().txtNull(0).Text("10");
  EXPECT_THAT(tick(), ElementsAre("A 1 3277"));  // 10 % = 3276.7
  board().x = 200;
  EXPECT_THAT(tick(), IsEmpty());  // 3286.7
  board().x = 220;
  EXPECT_THAT(tick(), ElementsAre("A 1 3288"));  // 3287.7
}

TEST_F(PollStick, EachAxisHasItsOwnNullZone) {
  stick().txtNull(0).Text("50");
  stick().txtNull(2).Text("100");
  board().x = board().y = board().slider[0] = 160;
  EXPECT_THAT(tick(), ElementsAre("A 1 80", "A 2 80"));
}

TEST_F(PollStick, EachAxisHasItsOwnCurve) {
  stick().ChannelID(1);
  stick().m1(2);
  board().x = 200;
  board().y = 200;
  EXPECT_THAT(tick(), ElementsAre("A 1 100", "A 2 200"));
}

TEST_F(PollStick, AnOpenWindowAppliesTheSelectedAxisCurveToAllFour) {
  stick().ChannelID(1);
  stick().m1(2);
  stick().Visible(true);
  stick().optAxes(1).Value(true);
  EXPECT_FALSE(stick().optAxes(0).Value());
  board().x = 200;
  board().y = 200;
  EXPECT_THAT(tick(), ElementsAre("A 1 200", "A 2 200"));
  stick().cmdCancel.press();
  EXPECT_THAT(tick(), ElementsAre("A 1 100"));
}

TEST_F(PollStick, TheFirstTickSendsEveryAxisBeyondItsNullZoneAndEveryClosedSwitch) {
  click(0);
  board().x = 200;
  board().rz = 40;
  t.folder.write(stickFileOf(0), PlainStickFile);
  hold(1);
  click(1);
  stick().txtNull(3).Text("20");
  EXPECT_THAT(tick(), ElementsAre("A 1 100", "T 12 1"));
}

TEST_F(PollStick, TheLeversReadingGoesThroughItsCodesUnit) {
  commands->analogValue = [](std::int16_t code, float value, std::int16_t channel) -> AnalogResult {
    EXPECT_EQ(code, channel + 1);
    if (code == 1) return value / 8;
    return static_cast<std::int16_t>(-value);
  };
  board().x = 2002;
  board().y = 200;
  EXPECT_THAT(tick(), ElementsAre("A 1 125.125", "A 2 -100"));
}

TEST_F(PollStick, ACodeThatTakesNoLeverEndsTheLine) {
  commands->analogValue = [](std::int16_t code, float value, std::int16_t) -> AnalogResult {
    if (code == 2) return std::monostate();
    return value;
  };
  board().x = board().y = 200;
  board().slider[0] = 200;
  hold(0);
  EXPECT_THAT(tick(), ElementsAre("A 1 100"));
  EXPECT_EQ(t.store.StickMessage, "");
}

TEST_F(PollStick, ASwitchSendsItsLevelWhenItChanges) {
  hold(2);
  EXPECT_THAT(tick(), ElementsAre("T 13 1"));
  EXPECT_EQ(stick().shpOnOff(2).FillColor(), 255);
  EXPECT_THAT(ticks(3), IsEmpty());
  hold(2, false);
  EXPECT_THAT(tick(), ElementsAre("T 13 0"));
  EXPECT_EQ(stick().shpOnOff(2).FillColor(), 16777215);
}

TEST_F(PollStick, AHeldPushButtonRepeatsWithAnAlternatingValue) {
  useKinds("0100");
  hold(0);
  EXPECT_THAT(tick(), ElementsAre("P 11 1"));
  EXPECT_EQ(stick().shpOnOff(0).FillColor(), 255);
  EXPECT_THAT(ticks(3), ElementsAre("P 11 0", "P 11 1", "P 11 0"));
  EXPECT_EQ(stick().shpOnOff(0).FillColor(), 16777215);
  hold(0, false);
  EXPECT_THAT(ticks(2), IsEmpty());
  hold(0);
  EXPECT_THAT(tick(), ElementsAre("P 11 1"));
}

TEST_F(PollStick, AKindIsComparedToTheLetter) {
  useKinds("0100");
  stick().OnOff(0).Tag("0 ");
  hold(0);
  EXPECT_THAT(tick(), IsEmpty());
}

TEST_F(PollStick, BesideASwitchTheExtraButtonsAreNotRead) {
  useKinds("0100");
  hold(4);
  hold(14);
  EXPECT_THAT(tick(), IsEmpty());
}

TEST_F(PollStick, WithoutSwitchesTwoClosedLinesPressAnExtraButton) {
  useKinds("0000");
  hold(0);
  hold(1);
  EXPECT_THAT(tick(), ElementsAre("P 105 1"));
  EXPECT_EQ(more().shpOnOff(0).FillColor(), 255);
  EXPECT_THAT(tick(), ElementsAre("P 105 0"));
  EXPECT_EQ(more().shpOnOff(0).FillColor(), 16777215);
  hold(1, false);
  EXPECT_THAT(tick(), ElementsAre("P 11 1"));
  EXPECT_EQ(stick().shpOnOff(0).FillColor(), 255);
}

TEST_F(PollStick, ADecodedButtonRepeatsWhileItIsHeld) {
  useKinds("0000");
  for (const std::size_t line : {0U, 1U, 2U, 3U}) hold(line);
  EXPECT_THAT(ticks(3), ElementsAre("P 108 1", "P 108 0", "P 108 1"));
}

TEST_F(PollStick, ASixteenthButtonHasNoAssignment) {
  useKinds("0000");
  hold(15);
  EXPECT_THAT(ticks(2), IsEmpty());
  EXPECT_EQ(t.exitStatus(), std::nullopt);
}

TEST_F(PollStick, TheOldestSimulatorGetsWhatTheCockpitHoldsForFiveCodes) {
  useKinds("0100");
  t.store.FsVersionCode = 1;
  for (int i = 0; i <= 8; ++i) t.store.ButtonStates(i) = static_cast<float>(i) + 0.5F;
  hold(0);
  for (const auto& [code, told] :
       std::vector<std::pair<std::string, std::string>>{{"12", "P 12 5.5"},
                                                        {"46", "P 46 1.5"},
                                                        {"95", "P 95 3.5"},
                                                        {"100", "P 100 4.5"},
                                                        {"120", "P 120 8.5"},
                                                        {"119", "P 119 0"}}) {
    stick().optSwitches(0).Tag(code);
    EXPECT_THAT(tick(), ElementsAre(told));
  }
  t.store.FsVersionCode = 2;
  stick().optSwitches(0).Tag("12");
  EXPECT_THAT(tick(), ElementsAre("P 12 1"));
}

TEST_F(PollStick, TheTagOfASwitchGoesOutAsItStands) {
  stick().optSwitches(0).Tag("5 1 P 6");
  hold(0);
  EXPECT_THAT(tick(), ElementsAre("T 5 1", "P 6 1"));
}

TEST_F(PollStick, AControlWithoutANumberDoesNothingAndTheOthersGoOn) {
  stick().optSwitches(1).Tag("gear");
  hold(0);
  hold(1);
  hold(2);
  EXPECT_THAT(tick(), ElementsAre("T 11 1", "T 13 1"));
  stick().optAxes(0).Tag("99999");
  board().x = board().y = 2000;
  EXPECT_THAT(tick(), ElementsAre("A 2 1000"));
  EXPECT_EQ(t.exitStatus(), std::nullopt);
}

TEST_F(PollStick, UnderADecimalCommaTheValuesAreTheSame) {
  t.store.sDecimal = ",";
  commands->analogValue = [](std::int16_t, float value, std::int16_t) { return value / 8; };
  board().x = 202;
  EXPECT_THAT(tick(), ElementsAre("A 1 12.625"));
}

TEST_F(PollStick, AnUnpluggedBoardKeepsItsLastValuesAndIsToldOnce) {
  useKinds("0100");
  board().x = 2000;
  hold(0);
  EXPECT_THAT(tick(), ElementsAre("A 1 1000", "P 11 1"));
  t.controllers.all[0].pluggedIn = false;
  statusLines.clear();
  EXPECT_THAT(ticks(3), ElementsAre("P 11 0", "P 11 1", "P 11 0"));
  EXPECT_THAT(statusLines, ElementsAre("Joystick 1 unplugged"));
  EXPECT_EQ(stick().txtValue(0).Text(), "1000");
  EXPECT_EQ(t.exitStatus(), std::nullopt);
}

TEST_F(PollStick, ABoardThatCannotBeTakenHoldOfAnyMoreIsUnpluggedAlsoWhenItsStateOnlySaysThat) {
  board().x = 600;
  tick();
  t.controllers.all[0].whileAway = ControllerResult::NotAcquired;
  t.controllers.all[0].pluggedIn = false;
  statusLines.clear();
  EXPECT_THAT(ticks(3), IsEmpty());
  EXPECT_THAT(statusLines, ElementsAre("Joystick 1 unplugged"));
  t.controllers.all[0].pluggedIn = true;
  board().x = 800;
  EXPECT_THAT(ticks(3), ElementsAre("A 1 400"));
  EXPECT_THAT(statusLines, ElementsAre("Joystick 1 unplugged", "Joystick 1 plugged in again"));
}

TEST_F(PollStick, ABoardThatIsPluggedInAgainWorksWithoutARestart) {
  t.controllers.all[0].pluggedIn = false;
  tick();
  statusLines.clear();
  t.controllers.all[0].pluggedIn = true;
  board().x = 600;
  EXPECT_THAT(tick(), ElementsAre("A 1 300"));
  EXPECT_THAT(statusLines, ElementsAre("Joystick 1 plugged in again"));
  board().x = 800;
  EXPECT_THAT(ticks(3), ElementsAre("A 1 400"));
  EXPECT_THAT(statusLines, ElementsAre("Joystick 1 plugged in again"));
}

TEST_F(PollStick, ABoardThatTellsNothingForATickKeepsItsLastState) {
  board().x = 600;
  tick();
  t.controllers.all[0].ready = false;
  board().x = 800;
  statusLines.clear();
  EXPECT_THAT(ticks(2), IsEmpty());
  EXPECT_THAT(statusLines, IsEmpty());
}

TEST_F(PollStick, BeforeABoardsFirstStateNothingIsSent) {
  click(0);
  t.controllers.all[0].ready = false;
  click(1);
  stick().chkInvert(0).Value(1);
  EXPECT_THAT(ticks(3), IsEmpty());
  t.controllers.all[0].ready = true;
  EXPECT_THAT(tick(), ElementsAre("A 1 32767"));
}

}  // namespace
}  // namespace vorlent
