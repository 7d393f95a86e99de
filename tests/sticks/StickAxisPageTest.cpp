#include "core/frmMainClient.h"
#include "sticks/StickTest.h"
#include "sticks/frmXY.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr int LightRed = 12632319;  // hex C0C0FF

/// The page of the axes: "Heading" is 8 and "Flaps, lever" 22 for levers, "Course" 3 and "#Speed" 5
/// for encoders.
class StickAxisPage : public StickTest {
 protected:
  void SetUp() override {
    StickTest::SetUp();
    click(1);
    form = &stick();
  }
  void choose(int axis) { form->optAxes(axis).Value(true); }
  void useEncoders() { form->cmdCoderAxis.press(); }
  /// As the operator turns a box over.
  void turn(CheckBox& box) { box.Value(1 - box.Value()); }
  void press(Control& control, int keyCode, int shift) {
    control.getFocus();
    control.keyDown(keyCode, shift);
  }
  static std::string shownOf(const std::vector<const Control*>& controls) {
    std::string names;
    for (const Control* control : controls)
      if (control->Visible()) names += (names.empty() ? "" : " ") + control->name();
    return names;
  }
  template <class Array>
  static std::string visible(const Array& controls) {
    std::string marks;
    for (int i = 0; i < controls.count(); ++i) marks += controls(i).Visible() ? '1' : '0';
    return marks;
  }

  frmCStick* form = nullptr;
};

TEST_F(StickAxisPage, BoxesForEncodersHaveTwoRowsOfWhichTheFirstIsSelected) {
  for (const ComboBox* box :
       {&form->cboEncA(0), &form->cboEncA(1), &form->cboEncBtn(0), &form->cboEncBtn(1)}) {
    EXPECT_THAT(box->Items(), ElementsAre(ComboBox::Item{"Half cycle (CRS288)"},
                                          ComboBox::Item{"Full cycle (CRS290"}));
    EXPECT_EQ(box->ListIndex(), 0);
  }
}

TEST_F(StickAxisPage, TheKindOfAnEncoderIsStoredNowhere) {
  form->cboEncA(0).ListIndex(1);
  form->cboEncBtn(1).ListIndex(1);
  form->cmdOK.press();
  EXPECT_EQ(t.folder.read(stickFileOf(0)), PlainStickFile);
  useEncoders();
  useEncoders();
  EXPECT_EQ(form->cboEncA(0).ListIndex(), 1);
  click(0);
  click(1);
  EXPECT_EQ(stick().cboEncA(0).ListIndex(), 0);
}

TEST_F(StickAxisPage, HeadingsAndButtonsHaveTheirNames) {
  const std::vector<std::pair<const Label*, std::string>> headings = {
      {&form->lblNull, "Null zone"},     {&form->lblValue, "Value"},
      {&form->lblDamp, "Damp"},          {&form->lblInv, "Invert Axis"},
      {&form->lblAccA, "Accelleration"}, {&form->lblType, "Type"},
      {&form->lblAccBtn, "Acceleration"}};
  for (const auto& [label, text] : headings) EXPECT_EQ(label->Caption(), text) << label->name();
  for (const CheckBox* box : {&form->chkKeyA, &form->chkKeyBtn})
    EXPECT_EQ(box->Caption(), "Send Key") << box->name();
  EXPECT_EQ(form->cmdSens.Caption(), "Sensitivity");
  EXPECT_EQ(form->cmdMore.Caption(), "Button 5-15...");
  EXPECT_EQ(form->OnOff(3).Caption(), "On/Off switch");
  EXPECT_EQ(form->SSTab1.Items().at(frmCStick::ButtonPage).text, "Buttons/Switches");
  const std::vector<std::string> axes = {"X-Axis", "Y-Axis", "Z-Axis", "R-Axis"};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(form->optAxes(i).Caption(), axes.at(static_cast<std::size_t>(i)));
    EXPECT_EQ(form->optSwitches(i).Caption(), "Button " + std::to_string(i + 1));
  }
}

TEST_F(StickAxisPage, PlainAxesShowFourRowsAndWhatBelongsToLevers) {
  EXPECT_EQ(form->AxisMode(), 0);
  EXPECT_EQ(visible(form->optAxes), "1111");
  EXPECT_EQ(visible(form->txtNull), "1111");
  EXPECT_EQ(visible(form->chkDamp), "1111");
  EXPECT_EQ(visible(form->chkInvert), "1111");
  EXPECT_EQ(visible(form->txtAccA), "0000");
  EXPECT_EQ(visible(form->cboEncA), "00");
  EXPECT_EQ(shownOf({&form->cboAxes, &form->cboACoder, &form->cmdSens, &form->lblNull,
                     &form->lblDamp, &form->lblInv}),
            "cboAxes cmdSens lblNull lblDamp lblInv");
  EXPECT_EQ(visible(form->shpAxis), "0000");
  EXPECT_FALSE(form->lblAccA.Visible());
  EXPECT_EQ(form->optAxes(2).Caption(), "Z-Axis");
  EXPECT_EQ(form->cmdCoderAxis.Caption(), "Encoder...");
  EXPECT_EQ(form->lblValue.Caption(), "Value");
}

TEST_F(StickAxisPage, EncodersShowTwoRowsAndWhatBelongsToThem) {
  useEncoders();
  EXPECT_EQ(form->AxisMode(), 1);
  EXPECT_EQ(visible(form->optAxes), "1010");
  EXPECT_EQ(visible(form->txtValue), "1010");
  EXPECT_EQ(visible(form->txtNull), "0000");
  EXPECT_EQ(visible(form->chkDamp), "0000");
  EXPECT_EQ(visible(form->chkInvert), "0000");
  EXPECT_EQ(visible(form->txtAccA), "1010");
  EXPECT_EQ(visible(form->cboEncA), "11");
  EXPECT_EQ(shownOf({&form->cboAxes, &form->cboACoder, &form->cmdSens, &form->lblNull,
                     &form->lblDamp, &form->lblInv}),
            "cboACoder");
  EXPECT_EQ(visible(form->shpAxis), "1010");
  EXPECT_TRUE(form->lblAccA.Visible());
  EXPECT_EQ(form->optAxes(0).Caption(), "Encoder 1");
  EXPECT_EQ(form->optAxes(2).Caption(), "Encoder 2");
  EXPECT_EQ(form->cmdCoderAxis.Caption(), "Axes...");
  EXPECT_EQ(form->lblValue.Caption(), "Active");
  for (int i = 0; i < 4; ++i) EXPECT_EQ(form->chkDamp(i).Tag(), "1");
  useEncoders();
  EXPECT_EQ(form->AxisMode(), 0);
  EXPECT_EQ(form->chkDamp(3).Tag(), "0");
  EXPECT_EQ(form->optAxes(0).Caption(), "X-Axis");
}

TEST_F(StickAxisPage, EncodersTurnEachAxisOverByItself) {
  form->chkDamp(1).Tag("1");
  useEncoders();
  EXPECT_EQ(form->chkDamp(1).Tag(), "0");
  EXPECT_EQ(form->chkDamp(3).Tag(), "1");
}

TEST_F(StickAxisPage, ARowGivesTheChannelAndTheOthersAreCleared) {
  choose(2);
  EXPECT_EQ(form->ChannelID(), 2);
  EXPECT_EQ(form->lblAxisName.Caption(), "Z-Axis");
  EXPECT_FALSE(form->optAxes(0).Value());
  useEncoders();
  EXPECT_EQ(form->ChannelID(), 0);
  EXPECT_TRUE(form->optAxes(0).Value());
}

TEST_F(StickAxisPage, ARowShowsItsEntryAndAssignsNothing) {
  form->optAxes(1).Tag("22");
  choose(1);
  EXPECT_EQ(form->cboAxes.Text(), "Flaps, lever");
  choose(2);  // code 3 is in no row of levers
  EXPECT_EQ(form->cboAxes.ListIndex(), -1);
  EXPECT_EQ(form->optAxes(2).Tag(), "3");
  EXPECT_EQ(form->optAxes(1).Tag(), "22");
}

TEST_F(StickAxisPage, ATagThatIsNoNumberShowsAnEmptyBoxAndStays) {
  form->optAxes(1).Tag("one");
  choose(1);
  EXPECT_EQ(form->cboAxes.ListIndex(), -1);
  EXPECT_EQ(form->optAxes(1).Tag(), "one");
}

TEST_F(StickAxisPage, AnEntryIsAssignedToTheSelectedRowByItsCode) {
  choose(3);
  form->cboAxes.ListIndex(1);
  EXPECT_EQ(form->optAxes(3).Tag(), "22");
  EXPECT_EQ(form->optAxes(0).Tag(), "1");
  useEncoders();
  choose(2);
  form->cboACoder.ListIndex(1);
  EXPECT_EQ(form->optAxes(2).Tag(), "5");
}

TEST_F(StickAxisPage, CheckingSendKeyOpensTheBoxForTheKeyAndAssignsNothing) {
  useEncoders();
  turn(form->chkKeyA);
  EXPECT_TRUE(form->txtKeyA.Enabled());
  EXPECT_EQ(shownOf({&form->cboAxes, &form->cboACoder}), "");
  EXPECT_EQ(form->txtKeyA.Text(), "");  // a command has no key's name
  EXPECT_EQ(form->optAxes(0).Tag(), "1");
}

TEST_F(StickAxisPage, ClearingSendKeyTakesTheFirstEntry) {
  useEncoders();
  turn(form->chkKeyA);
  turn(form->chkKeyA);
  EXPECT_FALSE(form->txtKeyA.Enabled());
  EXPECT_EQ(shownOf({&form->cboAxes, &form->cboACoder}), "cboACoder");
  EXPECT_EQ(form->optAxes(0).Tag(), "3");
  EXPECT_EQ(form->cboACoder.Text(), "Course");
}

TEST_F(StickAxisPage, ClearingSendKeyOfAnEmptyCatalogueTakesNothing) {
  form->cboAxes.clear();
  turn(form->chkKeyA);
  turn(form->chkKeyA);
  EXPECT_EQ(form->optAxes(0).Tag(), "1");
}

TEST_F(StickAxisPage, AKeyOfAnEncoderIsShownByItsName) {
  useEncoders();
  form->optAxes(2).Tag("2065");
  choose(2);
  EXPECT_EQ(form->chkKeyA.Value(), 1);
  EXPECT_EQ(form->txtKeyA.Text(), "Shft-A");
  EXPECT_EQ(shownOf({&form->cboAxes, &form->cboACoder}), "");
  choose(0);
  EXPECT_EQ(form->chkKeyA.Value(), 0);
  EXPECT_EQ(form->txtKeyA.Text(), "");
  EXPECT_EQ(form->optAxes(2).Tag(), "2065");
  EXPECT_EQ(form->optAxes(0).Tag(), "1");
}

TEST_F(StickAxisPage, AKeyOfAPlainAxisStaysAndShowsAsAnEmptyBox) {
  form->optAxes(1).Tag("1065");
  choose(1);
  EXPECT_EQ(form->chkKeyA.Value(), 0);
  EXPECT_EQ(shownOf({&form->cboAxes}), "cboAxes");
  EXPECT_EQ(form->cboAxes.ListIndex(), -1);
  EXPECT_EQ(form->optAxes(1).Tag(), "1065");
}

TEST_F(StickAxisPage, ThatAKeyOfAPlainAxisDoesNothingIsToldUntilACommandIsChosen) {
  const std::string told =
      "An axis sends no key, and does nothing with one: choose a command for it";
  turn(form->chkKeyA);
  EXPECT_EQ(form->lblKeyA.Caption(), "");
  press(form->txtKeyA, 65, 1);
  EXPECT_EQ(form->lblKeyA.Caption(), told);
  choose(1);
  EXPECT_EQ(form->lblKeyA.Caption(), "");
  choose(0);
  EXPECT_EQ(form->lblKeyA.Caption(), told);
  form->cboAxes.ListIndex(1);
  EXPECT_EQ(form->lblKeyA.Caption(), "");
}

TEST_F(StickAxisPage, OfAnEncodersKeyNothingIsTold) {
  useEncoders();
  turn(form->chkKeyA);
  press(form->txtKeyA, 65, 1);
  EXPECT_EQ(form->lblKeyA.Caption(), "");
}

TEST_F(StickAxisPage, AKeystrokeThatIsInTheCatalogueIsAnEntry) {
  form->cboACoder.addItem("Own", 2065);
  useEncoders();
  form->optAxes(0).Tag("2065");
  choose(2);
  choose(0);
  EXPECT_EQ(form->chkKeyA.Value(), 0);
  EXPECT_EQ(form->cboACoder.Text(), "Own");
}

TEST_F(StickAxisPage, AKeyIsTakenWhileItsBoxHasTheFocusAlone) {
  turn(form->chkKeyA);
  press(form->txtNull(0), 65, 0);
  EXPECT_EQ(form->optAxes(0).Tag(), "1");
  press(form->txtKeyA, 65, 1);
  EXPECT_EQ(form->optAxes(0).Tag(), "2065");
  EXPECT_EQ(form->txtKeyA.Text(), "Shft-A");
  press(form->txtKeyA, 112, 7);  // Alt and Ctrl win over Shift
  EXPECT_EQ(form->optAxes(0).Tag(), "8112");
  EXPECT_EQ(form->txtKeyA.Text(), "Ctrl-Alt-F1");
}

TEST_F(StickAxisPage, TheBoxForAKeyIsRedWhileItHasTheFocusAndThenLikeItsTwin) {
  turn(form->chkKeyA);
  form->txtKeyA.getFocus();
  EXPECT_EQ(form->txtKeyA.BackColor(), LightRed);
  EXPECT_TRUE(form->KeyPreview());
  form->txtKeyBtn.BackColor(12345);
  form->txtNull(0).getFocus();
  EXPECT_EQ(form->txtKeyA.BackColor(), 12345);
  EXPECT_FALSE(form->KeyPreview());
}

TEST_F(StickAxisPage, ABoxForAKeyThatIsSwitchedOffOrOutOfSightTakesNoMoreKeys) {
  turn(form->chkKeyA);
  form->txtKeyA.getFocus();
  turn(form->chkKeyA);
  EXPECT_FALSE(form->KeyPreview());
  turn(form->chkKeyA);
  form->Visible(true);
  form->txtKeyA.getFocus();
  form->cmdCancel.press();
  EXPECT_FALSE(form->KeyPreview());
  EXPECT_EQ(form->txtKeyA.BackColor(), TextBox::WindowBackground);
}

TEST_F(StickAxisPage, BoxesTakeDigitsOnly) {
  const std::string forty(40, '7');
  for (const std::string text : {"12a", "-5", "1.5", "1\n2", " 5", "+3"}) {
    form->txtNull(0).Text("9");
    form->txtNull(0).Text(text);
    EXPECT_EQ(form->txtNull(0).Text(), "0") << text;
    form->txtAccA(1).Text("9");
    form->txtAccA(1).Text(text);
    EXPECT_EQ(form->txtAccA(1).Text(), "1") << text;
  }
  form->txtNull(0).Text("");
  form->txtAccA(1).Text("");
  EXPECT_EQ(form->txtNull(0).Text(), "0");
  EXPECT_EQ(form->txtAccA(1).Text(), "1");
  form->txtNull(0).Text(forty);
  EXPECT_EQ(form->txtNull(0).Text(), forty);
  board().x = 65535;
  EXPECT_THAT(tick(), IsEmpty());  // within a null zone of forty digits
}

TEST_F(StickAxisPage, AnAccelerationOfFortyOrFourHundredDigitsKeepsTheServerRunning) {
  for (const std::size_t digits : {40U, 300U, 308U, 400U}) {
    useEncoders();
    form->txtAccA(0).Text(std::string(digits, '9'));
    for (int edge = 0; edge < 8; ++edge) {
      board().x = edge % 4 < 2 ? 65535 : 0;
      board().y = (edge + 1) % 4 < 2 ? 65535 : 0;
      tick();
    }
    EXPECT_EQ(t.exitStatus(), std::nullopt);
    useEncoders();
  }
}

TEST_F(StickAxisPage, ShowingFollowsTheSelectedRowFromTheMomentTheWindowIsSeen) {
  choose(2);
  form->ChannelID(0);
  form->Visible(true);
  EXPECT_TRUE(form->Showing());
  EXPECT_EQ(form->ChannelID(), 2);
}

TEST_F(StickAxisPage, SensitivityOpensTheEditorOfTheSelectedAxisModally) {
  choose(1);
  board().y = 32768;
  tick();
  t.op.shown.clear();
  form->cmdSens.press();
  EXPECT_THAT(t.op.shown, ElementsAre(RecordingOperator::Shown{"frmXY", "Sensitivity", true}));
  EXPECT_EQ(t.server.sticks.XY->stick(), 0);
  EXPECT_THAT(t.server.sticks.XY->Pic1.Description(),
              StartsWith("Linear: 0,0 33,33 66,66 100,100; input 50, output 50"));
}

TEST_F(StickAxisPage, EditsStayLiveWhenTheWindowIsCancelledUntilTheSticksAreBuiltAnew) {
  form->Visible(true);
  choose(0);
  form->cboAxes.ListIndex(1);
  form->cmdCancel.press();
  EXPECT_EQ(t.folder.read(stickFileOf(0)), PlainStickFile);
  board().x = 200;
  EXPECT_THAT(tick(), ElementsAre("A 22 100"));
  click(0);
  click(1);
  EXPECT_EQ(stick().optAxes(0).Tag(), "1");
}

TEST_F(StickAxisPage, SwitchingTheSticksOffTakesTheirWindowsAway) {
  form->Visible(true);
  form->cmdSens.press();
  more().Visible(true);
  t.op.hidden.clear();
  click(0);
  EXPECT_THAT(t.op.hidden, ElementsAre("frmXY", "frmCMore(0)", "frmCStick(0)"));
  EXPECT_FALSE(t.server.sticks.XY->Visible());
  t.server.sticks.XY->cmdDefault.press();
  t.server.sticks.XY->cmdOK.press();
  EXPECT_EQ(t.exitStatus(), std::nullopt);
}

TEST_F(StickAxisPage, CataloguesWithDoublesShowTheFirstAndWithoutRowsNothing) {
  form->cboAxes.Items({{"First", 8}, {"Second", 8}});
  form->optAxes(1).Tag("8");
  choose(1);
  EXPECT_EQ(form->cboAxes.Text(), "First");
  form->cboAxes.ListIndex(1);
  EXPECT_EQ(form->optAxes(1).Tag(), "8");
  form->cboAxes.clear();
  choose(0);
  choose(1);
  EXPECT_EQ(form->cboAxes.ListIndex(), -1);
  EXPECT_EQ(form->optAxes(1).Tag(), "8");
}

}  // namespace
}  // namespace vorlent
