#include "sticks/stickFile.h"

#include "base/RuntimeError.h"
#include "core/frmMainClient.h"
#include "sticks/StickTest.h"

namespace vorlent {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsSupersetOf;
using ::testing::Not;

/// The rows of a whole file, of which a test changes some.
class StickFile : public StickTest {
 protected:
  void SetUp() override {
    StickTest::SetUp();
    std::string rest = PlainStickFile;
    while (!rest.empty()) {
      const auto end = rest.find("\r\n");
      rows.push_back(rest.substr(0, end));
      rest.erase(0, end + 2);
    }
    ASSERT_EQ(rows.size(), 19U);
  }
  void load() {
    std::string text;
    for (const std::string& row : rows) text += row + "\r\n";
    loadText(text);
  }
  void loadText(const std::string& text) {
    t.folder.write(stickFileOf(0), text);
    click(1);
    ASSERT_EQ(t.exitStatus(), std::nullopt);
  }
  std::vector<float> curve(int axis) {
    stick().ChannelID(static_cast<std::int16_t>(axis));
    return {stick().y1(), stick().x2(), stick().X3(), stick().m1(), stick().m2(), stick().m3()};
  }
  std::string file() { return t.folder.read(stickFileOf(0)); }

  Lines rows;
};

TEST_F(StickFile, ARowOfThirteenFieldsFillsTheAxis) {
  rows[1] = "Y-Axis, 22,150,1,1,3,5.5,20,60,0.5,1.25,-2,1";
  load();
  EXPECT_EQ(stick().optAxes(1).Tag(), "22");
  EXPECT_EQ(stick().txtNull(1).Text(), "150");
  EXPECT_EQ(stick().chkDamp(1).Value(), 1);
  EXPECT_EQ(stick().chkDamp(1).Tag(), "1");
  EXPECT_EQ(stick().txtAccA(1).Text(), "3");
  EXPECT_THAT(curve(1), ElementsAre(5.5F, 20, 60, 0.5F, 1.25F, -2));
  EXPECT_EQ(stick().chkInvert(1).Value(), 1);
}

TEST_F(StickFile, TheCurveOfEachAxisIsItsOwn) {
  rows[0] = "X-Axis, 1,0,0,0,1,1,2,3,4,5,6,0";
  rows[3] = "R-Axis, 1,0,0,0,1,11,12,13,14,15,16,0";
  load();
  EXPECT_THAT(curve(0), ElementsAre(1, 2, 3, 4, 5, 6));
  EXPECT_THAT(curve(1), ElementsAre(0, 33, 66, 1, 1, 1));
  EXPECT_THAT(curve(3), ElementsAre(11, 12, 13, 14, 15, 16));
}

TEST_F(StickFile, ARowOfFourFieldsGivesNoEncoderAccelerationOneInversionAndTheDefaultCurve) {
  rows[2] = "Z-Axis, 7,25,1";
  load();
  EXPECT_EQ(stick().optAxes(2).Tag(), "7");
  EXPECT_EQ(stick().txtNull(2).Text(), "25");
  EXPECT_EQ(stick().chkDamp(2).Value(), 1);
  EXPECT_EQ(stick().chkDamp(2).Tag(), "0");
  EXPECT_EQ(stick().txtAccA(2).Text(), "1");
  EXPECT_EQ(stick().chkInvert(2).Value(), 1);
  EXPECT_THAT(curve(2), ElementsAre(0, 33, 66, 1, 1, 1));
}

TEST_F(StickFile, ARowOfFourFieldsWithoutDampIsInvertedToo) {
  rows[2] = "Z-Axis, 7,25,0";
  load();
  EXPECT_EQ(stick().chkDamp(2).Value(), 0);
  EXPECT_EQ(stick().chkInvert(2).Value(), 1);
}

TEST_F(StickFile, TheFifthOfExactlyFiveFieldsIsTheInversion) {
  rows[2] = "Z-Axis, 7,25,1,0";
  load();
  EXPECT_EQ(stick().chkInvert(2).Value(), 0);
  EXPECT_EQ(stick().chkDamp(2).Tag(), "0");
  EXPECT_EQ(stick().txtAccA(2).Text(), "1");
  EXPECT_THAT(curve(2), ElementsAre(0, 33, 66, 1, 1, 1));
}

TEST_F(StickFile, ARowOfTwelveFieldsIsInverted) {
  rows[0] = "X-Axis, 1,0,0,0,1,0,33,66,1,1,0";
  load();
  EXPECT_EQ(stick().chkInvert(0).Value(), 1);
  EXPECT_THAT(curve(0), ElementsAre(0, 33, 66, 1, 1, 0));
}

TEST_F(StickFile, AThirdBreakpointOfZeroMakesTheCurveAParabola) {
  rows[0] = "X-Axis, 1,0,0,0,1,0,50,0,0.01,0,0,0";
  load();
  board().x = 32768;
  EXPECT_THAT(tick(), ElementsAre("A 1 8192"));
}

TEST_F(StickFile, AnEmptyNullZoneIsZeroAndAnEmptyAccelerationOne) {
  rows[0] = "X-Axis, 1,,0,0,,0,33,66,1,1,1,0";
  rows[4] = "Button-1,11,1,";
  load();
  EXPECT_EQ(stick().txtNull(0).Text(), "0");
  EXPECT_EQ(stick().txtAccA(0).Text(), "1");
  EXPECT_EQ(stick().txtAccBtn(0).Text(), "1");
}

TEST_F(StickFile, ARowOfAButtonHasAssignmentKindAndAcceleration) {
  rows[6] = "Button-3,42,2,5";
  load();
  EXPECT_EQ(stick().optSwitches(2).Tag(), "42");
  EXPECT_EQ(stick().OnOff(2).Tag(), "2");
  EXPECT_EQ(stick().OnOff(2).Value(), 0);
  EXPECT_EQ(stick().txtAccBtn(2).Text(), "5");
}

TEST_F(StickFile, ARowOfAButtonOfThreeFieldsGivesAccelerationOne) {
  rows[6] = "Button-3,42,1";
  load();
  EXPECT_EQ(stick().OnOff(2).Tag(), "1");
  EXPECT_EQ(stick().OnOff(2).Value(), 1);
  EXPECT_EQ(stick().txtAccBtn(2).Text(), "1");
}

TEST_F(StickFile, AllThatFollowsTheKindOfAButtonIsItsAcceleration) {
  rows[6] = "Button-3,42,2,5,7";
  load();
  EXPECT_EQ(stick().OnOff(2).Tag(), "2");
  EXPECT_EQ(stick().txtAccBtn(2).Text(), "1");  // "5,7" is no number
}

TEST_F(StickFile, TheExtraButtonsFollowInOrder) {
  rows[18] = "Button-15, 1204 ";
  load();
  EXPECT_EQ(more().optSwitches(0).Tag(), "105");
  EXPECT_EQ(more().optSwitches(9).Tag(), "114");
  EXPECT_EQ(more().optSwitches(10).Tag(), "1204");
}

TEST_F(StickFile, MalformedFieldsLeaveWhatWasThereBefore) {
  rows[0] = "X-Axis, 1,wide,yes,0,fast,low,high,,1e99,x,2.5,maybe";
  rows[8] = "Button-5,none";
  rows[9] = "Button-6,40000";
  load();
  EXPECT_EQ(stick().txtNull(0).Text(), "0");
  EXPECT_EQ(stick().chkDamp(0).Value(), 0);
  EXPECT_EQ(stick().txtAccA(0).Text(), "1");
  EXPECT_THAT(curve(0), ElementsAre(0, 33, 66, 1, 1, 2.5F));
  EXPECT_EQ(stick().chkInvert(0).Value(), 1);
  EXPECT_EQ(more().optSwitches(2).Tag(), "107");
}

TEST_F(StickFile, AnAssignmentThatIsNoNumberIsKeptAsItStands) {
  rows[8] = "Button-5,none";
  rows[9] = "Button-6,40000";
  load();
  EXPECT_EQ(more().optSwitches(0).Tag(), "none");
  EXPECT_EQ(more().optSwitches(1).Tag(), "40000");
}

TEST_F(StickFile, AnEmptyFileGivesAStickOfDefaults) {
  loadText("");
  EXPECT_EQ(stick().optAxes(3).Tag(), "0");
  EXPECT_EQ(stick().txtNull(3).Text(), "0");
  EXPECT_EQ(stick().chkInvert(3).Value(), 1);
  EXPECT_THAT(curve(3), ElementsAre(0, 33, 66, 1, 1, 1));
  EXPECT_EQ(stick().OnOff(3).Tag(), "0");
  EXPECT_EQ(more().optSwitches(10).Tag(), "0");
  EXPECT_EQ(file(), "");
}

TEST_F(StickFile, AFileThatBreaksOffLeavesTheRestAtItsDefaultsAndStaysAsItIs) {
  const std::string half = "X-Axis, 13,30,1,0,1,0,33,66,1,1,1,0\r\nY-Axis, 14,3";
  loadText(half);
  EXPECT_EQ(stick().optAxes(1).Tag(), "14");
  EXPECT_EQ(stick().txtNull(1).Text(), "3");
  EXPECT_EQ(stick().chkDamp(1).Value(), 0);
  EXPECT_EQ(stick().chkInvert(1).Value(), 1);
  EXPECT_THAT(curve(1), ElementsAre(0, 33, 66, 1, 1, 1));
  EXPECT_EQ(stick().OnOff(0).Tag(), "0");
  EXPECT_EQ(stick().txtAccBtn(0).Text(), "1");
  click(0);
  EXPECT_EQ(file(), half);
}

TEST_F(StickFile, LinesMayEndInOneCharacterOnly) {
  for (const char* end : {"\n", "\r"}) {
    std::string text;
    for (const std::string& row : rows) text += row + end;
    loadText(text);
    EXPECT_EQ(stick().optAxes(3).Tag(), "4");
    EXPECT_EQ(stick().chkInvert(3).Value(), 0);
    EXPECT_EQ(stick().OnOff(3).Tag(), "1");
    EXPECT_EQ(stick().txtAccBtn(3).Text(), "1");
    EXPECT_EQ(more().optSwitches(10).Tag(), "115");
    click(0);
    EXPECT_EQ(file(), text);
  }
}

TEST_F(StickFile, OfTenThousandRowsTheFirstNineteenCount) {
  std::string text = PlainStickFile;
  for (int row = 19; row < 10000; ++row) text += "Button-15," + std::to_string(row) + "\r\n";
  loadText(text);
  EXPECT_EQ(more().optSwitches(10).Tag(), "115");
  stick().cmdOK.press();
  EXPECT_EQ(file(), text);
}

TEST_F(StickFile, ReadingChangesNoFile) {
  rows[2] = "Z-Axis, 7,25,1,0";
  rows[18] = "nonsense";
  load();
  std::string expected;
  for (const std::string& row : rows) expected += row + "\r\n";
  ticks(3);
  click(0);
  EXPECT_EQ(file(), expected);
}

TEST_F(StickFile, SavingWritesNineteenLinesAsTheyWereRead) {
  load();
  stick().cmdOK.press();
  EXPECT_EQ(file(), PlainStickFile);
}

TEST_F(StickFile, SavingWritesEveryField) {
  load();
  stick().optAxes(0).Tag("1005");
  stick().txtNull(0).Text("12");
  stick().chkDamp(0).Value(1);
  stick().chkDamp(0).Tag("1");
  stick().txtAccA(0).Text("4");
  stick().ChannelID(0);
  stick().y1(-1.5F);
  stick().x2(30);
  stick().X3(0);
  stick().m1(0.123456789F);
  stick().m2(1e10F);
  stick().m3(-0.25F);
  stick().chkInvert(0).Value(1);
  stick().optSwitches(3).Tag("77");
  stick().OnOff(3).Tag("2");
  stick().txtAccBtn(3).Text("9");
  more().optSwitches(10).Tag("1300");
  stick().cmdOK.press();
  EXPECT_TRUE(file().starts_with(
      "X-Axis, 1005,12,1,1,4,-1.5,30,0,0.1234568,1E+10,-0.25,1\r\nY-Axis, 2,0,"));
  EXPECT_NE(file().find("\r\nButton-4,77,2,9\r\nButton-5,105\r\n"), std::string::npos);
  EXPECT_TRUE(file().ends_with("\r\nButton-15,1300\r\n"));
}

TEST_F(StickFile, SavingUnderADecimalCommaWritesPointsThatAreReadAgain) {
  t.store.sDecimal = ",";
  load();
  stick().ChannelID(1);
  stick().m2(0.5F);
  stick().cmdOK.press();
  EXPECT_NE(file().find("Y-Axis, 2,0,0,0,1,0,33,66,1,0.5,1,0\r\n"), std::string::npos);
  click(0);
  click(1);
  EXPECT_THAT(curve(1), ElementsAre(0, 33, 66, 1, 0.5F, 1));
}

TEST_F(StickFile, SavingOverALongerFileLeavesItsTailWhichIsNeverRead) {
  loadText(PlainStickFile + "Button-16,999\r\nold tail\r\n");
  stick().optAxes(0).Tag("5");
  stick().txtNull(0).Text("100");
  stick().cmdOK.press();
  std::string expected = PlainStickFile + "Button-16,999\r\nold tail\r\n";
  expected.replace(0, 12, "X-Axis, 5,100,");
  // Two characters more in front: so many are written over at the end of the old file.
  expected = expected.substr(0, PlainStickFile.size() + 2) +
             (PlainStickFile + "Button-16,999\r\nold tail\r\n").substr(PlainStickFile.size() + 2);
  EXPECT_EQ(file(), expected);
  click(0);
  click(1);
  EXPECT_EQ(stick().optAxes(0).Tag(), "5");
  EXPECT_EQ(stick().txtNull(0).Text(), "100");
  EXPECT_EQ(more().optSwitches(10).Tag(), "115");
}

TEST_F(StickFile, SavingHidesTheWindow) {
  load();
  stick().Visible(true);
  EXPECT_TRUE(stick().Showing());
  stick().cmdOK.press();
  EXPECT_FALSE(stick().Showing());
  EXPECT_THAT(t.op.hidden, ElementsAre("frmCStick(0)"));
}

TEST_F(StickFile, CancellingHidesTheWindowWritesNothingAndKeepsTheEdit) {
  load();
  stick().Visible(true);
  stick().optAxes(0).Tag("5");
  stick().cmdCancel.press();
  EXPECT_FALSE(stick().Showing());
  EXPECT_EQ(file(), PlainStickFile);
  board().x = 200;
  EXPECT_THAT(tick(), ElementsAre("A 5 100"));
}

TEST_F(StickFile, SavingToAFileThatIsGoneEndsTheProcessWithItsMessage) {
  load();
  std::filesystem::remove(t.folder / stickFileOf(0));
  t.server.failureDomain.run([this] { stick().cmdOK.press(); });
  EXPECT_THAT(t.op.takeBoxes(),
              ElementsAre(RecordingOperator::Box{
                  t.folder.path() + "\\Cockpits\\737-700\\stick\\stick0.cfg not found",
                  BoxIcon::Critical, "File error"}));
  EXPECT_EQ(t.exitStatus(), 1);
}

TEST_F(StickFile, AnAssignmentThatIsNoNumberIsToldWithItsLineAndDoesNothing) {
  rows[0] = "X-Axis, one,0,0,0,1,0,33,66,1,1,1,0";
  rows[9] = "Button-6,99999";
  statusLines.clear();
  load();
  const std::string file = t.folder.path() + "\\Cockpits\\737-700\\stick\\stick0.cfg";
  EXPECT_THAT(statusLines,
              IsSupersetOf({file + ", line 1: \"one\" is no code, this control does nothing",
                            file + ", line 10: \"99999\" is no code, this control does nothing"}));
  board().x = 200;
  EXPECT_THAT(tick(), ElementsAre());
  EXPECT_EQ(t.exitStatus(), std::nullopt);
}

TEST_F(StickFile, ALineWithoutACommaIsToldAndCostsNoOther) {
  rows[0] = "garbage";
  rows[5] = "more garbage";
  rows[10] = "rubbish";
  statusLines.clear();
  load();
  const std::string file = t.folder.path() + "\\Cockpits\\737-700\\stick\\stick0.cfg";
  const std::string tail = "\" is no code, this control does nothing";
  EXPECT_THAT(statusLines, IsSupersetOf({file + ", line 1: \"garbage" + tail,
                                         file + ", line 6: \"more garbage" + tail,
                                         file + ", line 11: \"rubbish" + tail}));
  EXPECT_THAT(statusLines, Not(Contains(HasSubstr("line 12"))));
  EXPECT_EQ(more().optSwitches(1).Tag(), "106");
  EXPECT_EQ(more().optSwitches(2).Tag(), "rubbish");
  EXPECT_EQ(more().optSwitches(3).Tag(), "108");
  board().x = 200;
  EXPECT_THAT(tick(), ElementsAre());
  EXPECT_EQ(t.exitStatus(), std::nullopt);
}

TEST_F(StickFile, AFileThatBreaksOffIsToldWithTheFirstMissingLine) {
  statusLines.clear();
  loadText("X-Axis, 13,30,1,0,1,0,33,66,1,1,1,0\r\nY-Axis, 14,3");
  EXPECT_THAT(statusLines,
              Contains(t.folder.path() +
                       "\\Cockpits\\737-700\\stick\\stick0.cfg, line 3 of 19 and what follows is "
                       "missing, these controls keep their defaults"));
}

TEST_F(StickFile, OfALongTextThatIsNoCodeTheBeginningIsTold) {
  rows[0] = std::string(5000, 'x');
  statusLines.clear();
  load();
  EXPECT_THAT(statusLines, Contains(HasSubstr("line 1: \"" + std::string(40, 'x') + "\" is no")));
}

TEST_F(StickFile, AKeyOfAnAxisOrASwitchAndACodeThatNoLeverSetsAreTold) {
  rows[0] = "X-Axis, 1065,0,0,0,1,0,33,66,1,1,1,0";
  rows[1] = "Y-Axis, 81,0,0,0,1,0,33,66,1,1,1,0";
  rows[5] = "Button-2,1065,1,1";
  statusLines.clear();
  load();
  const std::string file = t.folder.path() + "\\Cockpits\\737-700\\stick\\stick0.cfg";
  const std::string noKey = ": 1065 is a key, which no axis and no switch sends";
  const std::string tail = ", this control does nothing";
  EXPECT_THAT(statusLines,
              IsSupersetOf({file + ", line 1" + noKey + tail,
                            file + ", line 2: 81 is for displays, no lever sets it" + tail,
                            file + ", line 6" + noKey + tail}));
}

TEST_F(StickFile, ACodeThatNoRoutineKnowsIsToldWithItsLine) {
  rows[1] = "Y-Axis, 93,0,0,0,1,0,33,66,1,1,1,0";  // no lever
  rows[4] = "Button-1,998,0,1";                    // no button
  rows[5] = "Button-2,900,1,1";                    // no switch
  rows[6] = "Button-3,1082,0,1";                   // a keystroke
  statusLines.clear();
  load();
  const std::string file = t.folder.path() + "\\Cockpits\\737-700\\stick\\stick0.cfg";
  const std::string tail = " is no code of that kind, this control does nothing";
  EXPECT_THAT(statusLines,
              IsSupersetOf({file + ", line 2: 93" + tail, file + ", line 5: 998" + tail,
                            file + ", line 6: 900" + tail}));
  EXPECT_THAT(statusLines, Not(Contains(HasSubstr("line 7"))));
}

}  // namespace
}  // namespace vorlent
