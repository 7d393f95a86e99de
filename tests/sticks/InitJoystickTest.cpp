#include "core/frmMainClient.h"
#include "sticks/StickTest.h"
#include "sticks/clsJoyst.h"

namespace vorlent {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Box = RecordingOperator::Box;

class InitJoystick : public StickTest {
 protected:
  std::string path(const std::string& name) const { return t.folder.path() + "\\" + name; }
  void addBoards(int count) {
    for (int board = 1; board < count; ++board) {
      t.folder.write(stickFileOf(board), PlainStickFile);
      t.controllers.plugIn();
    }
  }
  void remove(const std::string& name) { std::filesystem::remove(t.folder / name); }
  static std::vector<std::string> names(const ComboBox& box) {
    std::vector<std::string> texts;
    for (const auto& item : box.Items())
      texts.push_back(item.text + "=" + std::to_string(item.data));
    return texts;
  }
};

TEST_F(InitJoystick, BuildsAStickForEachBoardWhateverTheNumberInUse) {
  addBoards(3);
  click(1);
  EXPECT_THAT(statusLines, ElementsAre("InitJoystick 0", "InitJoystick 1", "InitJoystick 2"));
  EXPECT_EQ(stick(0).MyID(), 0);
  EXPECT_EQ(stick(2).MyID(), 2);
  EXPECT_EQ(more(2).MyID(), 2);
  EXPECT_EQ(t.server.sticks.CStick[3], nullptr);
  EXPECT_EQ(stick(2).Caption(), "3 setup - 4 axes, 4 buttons/switches");
  EXPECT_TRUE(t.form.cmdStick.Enabled());
}

TEST_F(InitJoystick, WithoutABoardTheStatusLineSaysSoAndTheBoxIsCleared) {
  t.controllers.all.clear();
  click(1);
  EXPECT_THAT(statusLines, ElementsAre("No input devices available"));
  EXPECT_EQ(t.form.chkStick.Value(), 0);
  EXPECT_FALSE(t.form.cmdStick.Enabled());
  EXPECT_EQ(t.server.sticks.CStick[0], nullptr);
}

TEST_F(InitJoystick, MoreSticksThanBoardsAreToldAndTakenBack) {
  addBoards(2);
  t.form.txtSticks.Text("4");
  click(1);
  EXPECT_THAT(t.op.takeBoxes(),
              ElementsAre(Box{"Joystick 4 not detected in Vorlent", BoxIcon::Plain, "Vorlent"}));
  EXPECT_EQ(t.form.txtSticks.Text(), "2");
  EXPECT_EQ(t.form.chkStick.Value(), 1);
  EXPECT_EQ(t.loop.running(50), 2);
}

TEST_F(InitJoystick, AsManySticksAsBoardsArePassedOverInSilence) {
  addBoards(2);
  t.form.txtSticks.Text("2");
  click(1);
  EXPECT_THAT(t.op.takeBoxes(), IsEmpty());
  EXPECT_EQ(t.loop.running(50), 2);
}

TEST_F(InitJoystick, AtMostEightBoardsAreTaken) {
  addBoards(10);
  t.form.txtSticks.Text("8");
  click(1);
  EXPECT_NE(t.server.sticks.CStick[7], nullptr);
  EXPECT_EQ(t.server.sticks.CStick[8], nullptr);
  EXPECT_EQ(t.loop.running(50), 8);
}

TEST_F(InitJoystick, AMissingStickFileEndsTheProcessWithItsMessage) {
  t.controllers.plugIn();
  click(1);
  EXPECT_THAT(t.op.takeBoxes(),
              ElementsAre(Box{path("Cockpits\\737-700\\stick\\stick1.cfg not found"),
                              BoxIcon::Critical, "File error"}));
  EXPECT_EQ(t.exitStatus(), 1);
}

TEST_F(InitJoystick, AFolderInPlaceOfAStickFileCountsAsMissing) {
  remove(stickFileOf(0));
  std::filesystem::create_directory(t.folder / stickFileOf(0));
  click(1);
  EXPECT_THAT(t.op.takeBoxes(),
              ElementsAre(Box{path("Cockpits\\737-700\\stick\\stick0.cfg not found"),
                              BoxIcon::Critical, "File error"}));
  EXPECT_EQ(t.exitStatus(), 1);
}

class InitJoystickCatalogue : public InitJoystick,
                              public ::testing::WithParamInterface<const char*> {};

TEST_P(InitJoystickCatalogue, ThatIsMissingEndsTheProcessWithItsMessage) {
  remove(GetParam());
  click(1);
  EXPECT_THAT(t.op.takeBoxes(),
              ElementsAre(Box{path(GetParam()) + " not found", BoxIcon::Critical, "File error"}));
  EXPECT_EQ(t.exitStatus(), 1);
}

TEST_P(InitJoystickCatalogue, ThatIsAFolderCountsAsMissing) {
  remove(GetParam());
  std::filesystem::create_directory(t.folder / GetParam());
  click(1);
  EXPECT_THAT(t.op.takeBoxes(),
              ElementsAre(Box{path(GetParam()) + " not found", BoxIcon::Critical, "File error"}));
  EXPECT_EQ(t.exitStatus(), 1);
}

INSTANTIATE_TEST_SUITE_P(All, InitJoystickCatalogue,
                         ::testing::Values("anasort.txt", "togsort.txt", "butsort.txt",
                                           "encoder.txt"));

TEST_F(InitJoystick, CataloguesFillTheirBoxesWithoutTheRowsThatAreSwitchedOff) {
  click(1);
  EXPECT_THAT(names(stick().cboAxes), ElementsAre("Heading=8", "Flaps, lever=22"));
  EXPECT_THAT(names(stick().cboSwitches), ElementsAre("Gear=7"));
  EXPECT_THAT(names(stick().cboButtons), ElementsAre("LNAV=169", "VNAV=168"));
  EXPECT_THAT(names(more().cboButtons), ElementsAre("LNAV=169", "VNAV=168"));
}

TEST_F(InitJoystick, TheEncodersCatalogueListsRowsThatBeginWithAHashToo) {
  click(1);
  EXPECT_THAT(names(stick().cboCoder), ElementsAre("Course=3", "#Speed=5"));
  EXPECT_THAT(names(stick().cboACoder), ElementsAre("Course=3", "#Speed=5"));
}

TEST_F(InitJoystick, ACataloguesRowIsSwitchedOffByItsFirstLetterOnly) {
  t.folder.write("anasort.txt",
                 "Engine #1,8\r\n\"#Engine, 2\",9\r\n # Engine 3,10\r\nFlaps,-22\r\n");
  click(1);
  EXPECT_THAT(names(stick().cboAxes), ElementsAre("Engine #1=8", "Flaps=-22"));
}

TEST_F(InitJoystick, ACatalogueThatGoesWrongEndsThereAndIsLeftAsItIs) {
  const std::string bad = "Heading,8\r\nAltitude\r\nFlaps,22\r\n";
  t.folder.write("anasort.txt", bad);
  t.folder.write("togsort.txt", "Gear,7\r\nPitot heat");
  click(1);
  EXPECT_THAT(names(stick().cboAxes), ElementsAre("Heading=8"));
  EXPECT_THAT(names(stick().cboSwitches), ElementsAre("Gear=7"));
  EXPECT_THAT(statusLines, ElementsAre("InitJoystick 0", "anasort.txt: Type mismatch",
                                       "togsort.txt: Input past end of file"));
  EXPECT_EQ(t.folder.read("anasort.txt"), bad);
  EXPECT_EQ(t.exitStatus(), std::nullopt);
}

TEST_F(InitJoystick, ACatalogueOfTenThousandRowsIsListedWhole) {
  std::string rows;
  for (int row = 0; row < 10000; ++row) rows += "Row " + std::to_string(row) + ",61\n";
  t.folder.write("anasort.txt", rows);
  click(1);
  ASSERT_EQ(stick().cboAxes.Items().size(), 10000U);
  EXPECT_EQ(stick().cboAxes.Items().back().text, "Row 9999");
  EXPECT_THAT(statusLines, ElementsAre("InitJoystick 0"));
}

TEST_F(InitJoystick, SticksStartWithTheServerWhereTheyAreConfigured) {
  TestServer other;
  addSticks(other, 1);
  other.configure("JoysticksOn", "1");
  other.start();
  EXPECT_NE(other.server.sticks.CStick[0], nullptr);
  EXPECT_EQ(other.loop.running(50), 1);
  EXPECT_TRUE(other.form.cmdStick.Enabled());
}

TEST_F(InitJoystick, WithoutABoardTheConfiguredBoxIsTriedOnceMoreAndStaysClear) {
  t.controllers.all.clear();
  t.store.JoysticksOnValue = 1;
  t.form.chkStick.Value.setQuietly(1);
  t.form.SetChkStickValue();
  EXPECT_THAT(statusLines, ElementsAre("No input devices available", "No input devices available"));
  EXPECT_EQ(t.form.chkStick.Value(), 0);
}

TEST_F(InitJoystick, AConfiguredBoxThatIsSetBuildsTheSticksOnce) {
  t.store.JoysticksOnValue = 1;
  t.form.chkStick.Value.setQuietly(1);
  t.form.SetChkStickValue();
  EXPECT_THAT(statusLines, ElementsAre("InitJoystick 0"));
  t.store.JoysticksOnValue = 0;
  t.form.SetChkStickValue();
  EXPECT_EQ(t.form.chkStick.Value(), 0);
  EXPECT_EQ(t.server.sticks.CStick[0], nullptr);
}

TEST_F(InitJoystick, ClearingTheBoxReleasesTheSticksAndSettingItBuildsThemAnew) {
  click(1);
  stick().optAxes(0).Tag("77");
  click(0);
  EXPECT_EQ(t.server.sticks.CStick[0], nullptr);
  EXPECT_EQ(t.server.sticks.CMore[0], nullptr);
  EXPECT_EQ(t.loop.running(50), 0);
  EXPECT_FALSE(t.form.cmdStick.Enabled());
  click(1);
  EXPECT_EQ(stick().optAxes(0).Tag(), "1");
  EXPECT_EQ(t.loop.running(50), 1);
}

TEST_F(InitJoystick, OnlyTheSticksInUseAreStartedAndReleased) {
  addBoards(3);
  t.form.txtSticks.Text("2");
  click(1);
  EXPECT_EQ(t.loop.running(50), 2);
  click(0);
  EXPECT_EQ(t.server.sticks.CStick[1], nullptr);
  EXPECT_NE(t.server.sticks.CStick[2], nullptr);
}

TEST_F(InitJoystick, AStickBeyondTheNumberInUseIsNotPolledAnyMore) {
  addBoards(2);
  t.form.txtSticks.Text("2");
  click(1);
  t.form.txtSticks.Text("1");
  board(0).x = 200;
  board(1).x = 400;
  EXPECT_THAT(tick(), ElementsAre("A 1 100"));
  t.form.txtSticks.Text("2");
  EXPECT_THAT(tick(), ElementsAre("A 1 200"));
}

TEST_F(InitJoystick, ThePeriodIsThatOfItsBoxWhenTheSticksStart) {
  t.form.txtPoll.Text("20");
  click(1);
  EXPECT_EQ(t.loop.running(20), 1);
  t.form.txtPoll.Text("80");
  EXPECT_EQ(t.loop.running(20), 1);
  t.server.sticks.joyst->StartAllSticks();
  EXPECT_EQ(t.loop.running(20), 0);
  EXPECT_EQ(t.loop.running(80), 1);
}

TEST_F(InitJoystick, NothingInThePeriodsBoxPollsEveryMillisecond) {
  t.form.txtPoll.Text("");
  click(1);
  EXPECT_EQ(t.loop.running(1), 1);
}

TEST_F(InitJoystick, TheSticksButtonShowsTheChosenStickModally) {
  addBoards(2);
  t.form.txtSticks.Text("2");
  click(1);
  t.op.shown.clear();
  t.form.cboStick.ListIndex(1);
  t.form.cmdStick.press();
  EXPECT_THAT(t.op.shown, ElementsAre(RecordingOperator::Shown{
                              "frmCStick(1)", "2 setup - 4 axes, 4 buttons/switches", true}));
  EXPECT_TRUE(stick(1).Showing());
  EXPECT_FALSE(stick(0).Showing());
}

TEST_F(InitJoystick, TheSticksButtonShowsNothingForAStickWithoutABoard) {
  click(1);
  t.form.txtSticks.Text("2");
  t.op.shown.clear();
  t.form.cboStick.ListIndex(1);
  t.form.cmdStick.press();
  EXPECT_THAT(t.op.shown, IsEmpty());
}

TEST_F(InitJoystick, TheExtraButtonsAreShownFromTheStick) {
  click(1);
  stick().OnOff(0).Tag("0");
  t.op.shown.clear();
  stick().cmdMore.press();
  EXPECT_THAT(t.op.shown, ElementsAre(RecordingOperator::Shown{"frmCMore(0)",
                                                               "Assign additional buttons", true}));
  more().cmdOK.press();
  EXPECT_THAT(t.op.hidden, ElementsAre("frmCMore(0)"));
}

/// What the kinds "0000" and so on of the four lines make of a stick.
struct Modes {
  std::int16_t BtnMode;
  bool moreButtons;
  bool operator==(const Modes&) const = default;
};

TEST_F(InitJoystick, TheKindsOfTheLinesChooseTheButtonMode) {
  click(1);
  const auto modes = [this](const std::string& kinds) {
    for (int i = 0; i < 4; ++i) stick().OnOff(i).Tag(kinds.substr(static_cast<std::size_t>(i), 1));
    stick().Form_Init();
    return Modes{stick().BtnMode(), stick().cmdMore.Enabled()};
  };
  EXPECT_EQ(modes("0000"), (Modes{1, true}));
  EXPECT_EQ(modes("2220"), (Modes{1, true}));
  EXPECT_EQ(modes("0001"), (Modes{0, false}));
  EXPECT_EQ(modes("1000"), (Modes{0, false}));
  EXPECT_EQ(modes("0002"), (Modes{2, false}));
  EXPECT_EQ(modes("1112"), (Modes{2, false}));
}

TEST_F(InitJoystick, TheFirstAxisIsSelectedAndGivesTheChannelAlsoWhereItWasSelectedBefore) {
  click(1);
  EXPECT_TRUE(stick().optAxes(0).Value());
  EXPECT_EQ(stick().ChannelID(), 0);
  stick().ChannelID(2);
  stick().Form_Init();
  EXPECT_TRUE(stick().optAxes(0).Value());
  EXPECT_FALSE(stick().optAxes(3).Value());
  EXPECT_EQ(stick().ChannelID(), 0);
}

TEST_F(InitJoystick, TheLastAxisChoosesTheAxisMode) {
  click(1);
  EXPECT_EQ(stick().AxisMode(), 0);
  stick().chkDamp(0).Tag("1");
  stick().Form_Init();
  EXPECT_EQ(stick().AxisMode(), 0);
  stick().chkDamp(3).Tag("1");
  stick().Form_Init();
  EXPECT_EQ(stick().AxisMode(), 1);
}

}  // namespace
}  // namespace vorlent
