#include "core/frmMainClient.h"
#include "sticks/StickTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Box = RecordingOperator::Box;

const Box Refusal{"Switches are not allowed to have keystrokes assigned!", BoxIcon::Plain,
                  "Vorlent"};

/// The page of the lines: "Gear" is 7 for switches, "LNAV" 169 and "VNAV" 168 for push buttons,
/// "Course" 3 and "#Speed" 5 for encoders. All lines are switches at first.
class StickButtonPage : public StickTest {
 protected:
  void SetUp() override {
    StickTest::SetUp();
    click(1);
    form = &stick();
    form->SSTab1.ListIndex(frmCStick::ButtonPage);
  }
  void choose(int line) { form->optSwitches(line).Value(true); }
  void turn(CheckBox& box) { box.Value(1 - box.Value()); }
  void useButtons() {
    for (int i = 0; i < 4; ++i) form->OnOff(i).Value(0);
  }
  void press(int keyCode, int shift) {
    form->txtKeyBtn.getFocus();
    form->txtKeyBtn.keyDown(keyCode, shift);
  }
  std::string catalogue() const {
    std::string names;
    for (const ComboBox* box : {&form->cboSwitches, &form->cboButtons, &form->cboCoder})
      if (box->Visible()) names += (names.empty() ? "" : " ") + box->name();
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

TEST_F(StickButtonPage, PlainLinesShowFourRowsWithTheirSwitchBoxes) {
  EXPECT_EQ(visible(form->optSwitches), "1111");
  EXPECT_EQ(visible(form->OnOff), "1111");
  EXPECT_EQ(visible(form->shpOnOff), "1111");
  EXPECT_EQ(visible(form->txtAccBtn), "0000");
  EXPECT_EQ(visible(form->cboEncBtn), "00");
  EXPECT_FALSE(form->lblAccBtn.Visible());
  EXPECT_EQ(form->optSwitches(3).Caption(), "Button 4");
  EXPECT_EQ(form->cmdCoderBtn.Caption(), "Encoder...");
  EXPECT_EQ(catalogue(), "cboSwitches");
}

TEST_F(StickButtonPage, EncodersShowTwoRowsAndMakeEveryBoxAPushButtonsWithoutItsHandler) {
  form->cmdCoderBtn.press();
  EXPECT_EQ(form->BtnMode(), 2);
  EXPECT_TRUE(form->BtnEncoder());
  EXPECT_EQ(visible(form->optSwitches), "1010");
  EXPECT_EQ(visible(form->OnOff), "0000");
  EXPECT_EQ(visible(form->shpOnOff), "1010");
  EXPECT_EQ(visible(form->txtAccBtn), "1010");
  EXPECT_EQ(visible(form->cboEncBtn), "11");
  EXPECT_TRUE(form->lblAccBtn.Visible());
  EXPECT_EQ(form->optSwitches(0).Caption(), "Encoder 1");
  EXPECT_EQ(form->optSwitches(2).Caption(), "Encoder 2");
  EXPECT_EQ(form->cmdCoderBtn.Caption(), "Buttons...");
  EXPECT_EQ(catalogue(), "cboCoder");
  EXPECT_FALSE(form->cmdMore.Enabled());
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(form->OnOff(i).Tag(), "2");
    EXPECT_EQ(form->OnOff(i).Value(), 0);
  }
}

TEST_F(StickButtonPage, BackFromEncodersAllLinesArePushButtonsWithACode) {
  form->cmdCoderBtn.press();
  form->cmdCoderBtn.press();
  EXPECT_EQ(form->BtnMode(), 1);
  EXPECT_FALSE(form->BtnEncoder());
  EXPECT_TRUE(form->cmdMore.Enabled());
  for (int i = 0; i < 4; ++i) EXPECT_EQ(form->OnOff(i).Tag(), "0");
  EXPECT_EQ(catalogue(), "cboButtons");
  EXPECT_EQ(visible(form->optSwitches), "1111");
}

TEST_F(StickButtonPage, ExtraButtonsAreThereWhileNoLineIsASwitch) {
  EXPECT_FALSE(form->cmdMore.Enabled());
  EXPECT_EQ(form->BtnMode(), 0);
  useButtons();
  EXPECT_TRUE(form->cmdMore.Enabled());
  EXPECT_EQ(form->BtnMode(), 1);
  turn(form->OnOff(2));
  EXPECT_FALSE(form->cmdMore.Enabled());
  EXPECT_EQ(form->BtnMode(), 0);
}

TEST_F(StickButtonPage, TheKindOfARowChoosesItsCatalogue) {
  form->OnOff(1).Tag("0");
  form->OnOff(2).Tag("2");
  form->optSwitches(0).Tag("7");
  form->optSwitches(1).Tag("168");
  form->optSwitches(2).Tag("5");
  choose(1);
  EXPECT_EQ(catalogue(), "cboButtons");
  EXPECT_EQ(form->cboButtons.Text(), "VNAV");
  choose(2);
  EXPECT_EQ(catalogue(), "cboCoder");
  EXPECT_EQ(form->cboCoder.Text(), "#Speed");
  choose(0);
  EXPECT_EQ(catalogue(), "cboSwitches");
  EXPECT_EQ(form->cboSwitches.Text(), "Gear");
  choose(3);  // code 14 is no switch's
  EXPECT_EQ(form->cboSwitches.ListIndex(), -1);
  EXPECT_EQ(form->optSwitches(3).Tag(), "14");
}

TEST_F(StickButtonPage, AnEntryIsAssignedToTheSelectedRow) {
  choose(2);
  form->cboSwitches.ListIndex(0);
  EXPECT_EQ(form->optSwitches(2).Tag(), "7");
  useButtons();
  form->cboButtons.ListIndex(1);
  EXPECT_EQ(form->optSwitches(2).Tag(), "168");
  EXPECT_EQ(form->optSwitches(0).Tag(), "11");
}

TEST_F(StickButtonPage, ASwitchHasNoBoxForSendingAKey) {
  EXPECT_FALSE(form->chkKeyBtn.Visible());
  turn(form->OnOff(0));
  EXPECT_TRUE(form->chkKeyBtn.Visible());
  EXPECT_EQ(form->OnOff(0).Tag(), "0");
  EXPECT_EQ(catalogue(), "cboButtons");
  turn(form->OnOff(0));
  EXPECT_FALSE(form->chkKeyBtn.Visible());
  EXPECT_EQ(form->OnOff(0).Tag(), "1");
  EXPECT_EQ(catalogue(), "cboSwitches");
}

TEST_F(StickButtonPage, ALineThatIsNotSelectedChangesItsKindWithoutChangingWhatIsShown) {
  turn(form->OnOff(3));
  EXPECT_EQ(form->OnOff(3).Tag(), "0");
  EXPECT_EQ(catalogue(), "cboSwitches");
  EXPECT_FALSE(form->chkKeyBtn.Visible());
}

TEST_F(StickButtonPage, AKeystrokeOnALineThatBecomesASwitchGivesWayToTheFirstSwitch) {
  useButtons();
  form->optSwitches(0).Tag("2065");
  form->optSwitches(3).Tag("1082");
  choose(1);
  choose(0);
  EXPECT_EQ(form->chkKeyBtn.Value(), 1);
  turn(form->OnOff(0));
  EXPECT_EQ(form->optSwitches(0).Tag(), "7");
  EXPECT_EQ(form->chkKeyBtn.Value(), 0);
  EXPECT_EQ(form->cboSwitches.Text(), "Gear");
  turn(form->OnOff(3));
  EXPECT_EQ(form->optSwitches(3).Tag(), "7");
  form->cboSwitches.clear();
  form->optSwitches(2).Tag("1082");
  turn(form->OnOff(2));
  EXPECT_EQ(form->optSwitches(2).Tag(), "1082");
}

TEST_F(StickButtonPage, AKeyThatGivesWayOnAnotherRowLeavesTheEntryOfTheSelectedOne) {
  form->cboSwitches.addItem("Landing lights", 45);
  form->OnOff(3).Value(0);
  form->optSwitches(3).Tag("1082");
  form->optSwitches(1).Tag("45");
  choose(1);
  turn(form->OnOff(3));
  EXPECT_EQ(form->optSwitches(3).Tag(), "7");
  EXPECT_EQ(form->optSwitches(1).Tag(), "45");
  EXPECT_EQ(form->cboSwitches.Text(), "Landing lights");
}

TEST_F(StickButtonPage, ThatAKeyGivesWayToASwitchIsToldUntilAnotherRowIsSelected) {
  useButtons();
  form->optSwitches(0).Tag("2065");
  form->optSwitches(3).Tag("1082");
  turn(form->OnOff(0));
  EXPECT_EQ(form->lblKeyBtn.Caption(),
            "Button 1: a switch sends no key. It does what is chosen for it now");
  turn(form->OnOff(3));
  EXPECT_EQ(form->lblKeyBtn.Caption(),
            "Button 4: a switch sends no key. It does what is chosen for it now");
  choose(1);
  EXPECT_EQ(form->lblKeyBtn.Caption(), "");
  turn(form->OnOff(1));
  EXPECT_EQ(form->lblKeyBtn.Caption(), "") << "it had a command";
}

TEST_F(StickButtonPage, ACommandOnALineThatBecomesASwitchStays) {
  useButtons();
  form->optSwitches(0).Tag("169");
  turn(form->OnOff(0));
  EXPECT_EQ(form->optSwitches(0).Tag(), "169");
  EXPECT_EQ(form->cboSwitches.ListIndex(), -1);
}

TEST_F(StickButtonPage, ClicksOnSwitchBoxesDuringTheStartChangeNothing) {
  form->OnOff(0).Tag("2");
  form->optSwitches(0).Tag("1065");
  form->Form_Init();
  EXPECT_EQ(form->OnOff(0).Value(), 0);
  EXPECT_EQ(form->OnOff(0).Tag(), "2");
  EXPECT_EQ(form->optSwitches(0).Tag(), "1065");
}

TEST_F(StickButtonPage, SendKeyOpensTheBoxForTheKeyAndClearingItTakesTheFirstEntry) {
  useButtons();
  turn(form->chkKeyBtn);
  EXPECT_TRUE(form->txtKeyBtn.Enabled());
  EXPECT_EQ(catalogue(), "");
  EXPECT_EQ(form->txtKeyBtn.Text(), "");
  EXPECT_EQ(form->optSwitches(0).Tag(), "11");
  turn(form->chkKeyBtn);
  EXPECT_FALSE(form->txtKeyBtn.Enabled());
  EXPECT_EQ(catalogue(), "cboButtons");
  EXPECT_EQ(form->optSwitches(0).Tag(), "169");
}

TEST_F(StickButtonPage, ARowWithAKeyShowsItsNameAndTheNextRowClearsItAndAssignsNothing) {
  useButtons();
  form->optSwitches(1).Tag("6116");
  choose(1);
  EXPECT_EQ(form->chkKeyBtn.Value(), 1);
  EXPECT_EQ(form->txtKeyBtn.Text(), "Shft-Alt-F5");
  choose(2);
  EXPECT_EQ(form->chkKeyBtn.Value(), 0);
  EXPECT_EQ(form->optSwitches(1).Tag(), "6116");
  EXPECT_EQ(form->optSwitches(2).Tag(), "13");
}

TEST_F(StickButtonPage, AKeyIsAssignedToThePushButtonOrEncoderThatIsSelected) {
  useButtons();
  choose(2);
  turn(form->chkKeyBtn);
  press(65, 1);
  EXPECT_EQ(form->optSwitches(2).Tag(), "2065");
  EXPECT_EQ(form->txtKeyBtn.Text(), "Shft-A");
  EXPECT_EQ(form->optAxes(0).Tag(), "1");
  form->cmdCoderBtn.press();
  choose(2);
  press(66, 0);
  EXPECT_EQ(form->optSwitches(2).Tag(), "1066");
}

TEST_F(StickButtonPage, ABoxForAKeyComesIntoSightWithTheFocusAndTakesItsOwnPagesKeys) {
  useButtons();
  turn(form->chkKeyBtn);
  turn(form->chkKeyA);
  form->SSTab1.ListIndex(frmCStick::AxisPage);
  press(65, 1);
  EXPECT_EQ(form->SSTab1.ListIndex(), frmCStick::ButtonPage);
  EXPECT_EQ(form->optSwitches(0).Tag(), "2065");
  EXPECT_EQ(form->optAxes(0).Tag(), "1");
  form->txtKeyA.getFocus();
  form->txtKeyA.keyDown(66, 0);
  EXPECT_EQ(form->SSTab1.ListIndex(), frmCStick::AxisPage);
  EXPECT_EQ(form->optAxes(0).Tag(), "1066");
  EXPECT_EQ(form->optSwitches(0).Tag(), "2065");
}

TEST_F(StickButtonPage, ABoxForAKeyLosesTheFocusWithItsPage) {
  useButtons();
  turn(form->chkKeyBtn);
  form->txtKeyBtn.getFocus();
  form->SSTab1.ListIndex(frmCStick::AxisPage);
  EXPECT_FALSE(form->KeyPreview());
  EXPECT_EQ(form->ActiveControl(), nullptr);
  EXPECT_EQ(form->txtKeyBtn.BackColor(), TextBox::WindowBackground);
}

TEST_F(StickButtonPage, ItsBoxForAKeyTakesTheColourOfTheOneOfTheAxes) {
  form->txtKeyBtn.getFocus();
  EXPECT_EQ(form->txtKeyBtn.BackColor(), 12632319);
  form->txtKeyA.BackColor(54321);
  form->cmdOK.getFocus();
  EXPECT_EQ(form->txtKeyBtn.BackColor(), 54321);
}

TEST_F(StickButtonPage, ASwitchKeepsItsAssignmentThoughTheRefusedKeyIsShown) {
  press(65, 2);
  EXPECT_THAT(t.op.takeBoxes(), ElementsAre(Refusal));
  EXPECT_EQ(form->optSwitches(0).Tag(), "11");
  EXPECT_EQ(form->txtKeyBtn.Text(), "Ctrl-A");
}

TEST_F(StickButtonPage, ANumberThatIsNoKeysShowsAnEmptyName) {
  useButtons();
  form->optSwitches(1).Tag("1999");
  form->optSwitches(2).Tag("99999");
  for (const int line : {1, 2}) {
    choose(line);
    EXPECT_EQ(form->chkKeyBtn.Value(), 1);
    EXPECT_EQ(form->txtKeyBtn.Text(), "");
  }
}

TEST_F(StickButtonPage, AccelerationTakesDigitsOnly) {
  for (const std::string text : {"x", "-1", "1.5", ""}) {
    form->txtAccBtn(0).Text("9");
    form->txtAccBtn(0).Text(text);
    EXPECT_EQ(form->txtAccBtn(0).Text(), "1") << text;
  }
  form->txtAccBtn(0).Text("0");
  EXPECT_EQ(form->txtAccBtn(0).Text(), "0");
}

/// The buttons 5 to 15: "LNAV" is 169 and "VNAV" 168.
class ExtraButtonPage : public StickButtonPage {
 protected:
  void SetUp() override {
    StickButtonPage::SetUp();
    useButtons();
    extra = &more();
    form->Visible(true);
    form->cmdMore.press();
  }
  frmCMore* extra = nullptr;
};

TEST_F(ExtraButtonPage, OpensWithItsFirstRow) {
  EXPECT_TRUE(extra->optSwitches(0).Value());
  EXPECT_EQ(extra->optSwitches(0).Caption(), "Button 5");
  EXPECT_EQ(extra->optSwitches(10).Caption(), "Button 15");
  EXPECT_EQ(extra->chkKeyBtn.Value(), 0);
  EXPECT_FALSE(extra->txtKeyBtn.Enabled());
}

TEST_F(ExtraButtonPage, ARowShowsItsEntryOrItsKey) {
  extra->optSwitches(3).Tag("168");
  extra->optSwitches(4).Tag("1112");
  extra->optSwitches(3).Value(true);
  EXPECT_EQ(extra->cboButtons.Text(), "VNAV");
  extra->optSwitches(4).Value(true);
  EXPECT_EQ(extra->chkKeyBtn.Value(), 1);
  EXPECT_EQ(extra->txtKeyBtn.Text(), "F1");
  EXPECT_FALSE(extra->cboButtons.Visible());
  extra->optSwitches(5).Value(true);
  EXPECT_EQ(extra->chkKeyBtn.Value(), 0);
  EXPECT_EQ(extra->cboButtons.ListIndex(), -1);
  EXPECT_EQ(extra->optSwitches(5).Tag(), "110");
  EXPECT_EQ(extra->optSwitches(4).Tag(), "1112");
}

TEST_F(ExtraButtonPage, EntriesAndKeysAreAssignedToTheSelectedRow) {
  extra->optSwitches(10).Value(true);
  extra->cboButtons.ListIndex(0);
  EXPECT_EQ(extra->optSwitches(10).Tag(), "169");
  extra->chkKeyBtn.Value(1);
  EXPECT_EQ(extra->txtKeyBtn.Text(), "");
  extra->txtKeyBtn.getFocus();
  EXPECT_EQ(extra->txtKeyBtn.BackColor(), 12632319);
  extra->txtKeyBtn.keyDown(75, 4);
  EXPECT_EQ(extra->optSwitches(10).Tag(), "5075");
  EXPECT_EQ(extra->txtKeyBtn.Text(), "Alt-K");
  extra->chkKeyBtn.Value(0);
  EXPECT_EQ(extra->optSwitches(10).Tag(), "169");
  EXPECT_FALSE(extra->KeyPreview());
}

TEST_F(ExtraButtonPage, WhatIsAssignedReachesTheFileWithTheSticksOwnAlone) {
  extra->optSwitches(10).Value(true);
  extra->cboButtons.ListIndex(0);
  extra->cmdOK.press();
  EXPECT_FALSE(extra->Visible());
  EXPECT_EQ(t.folder.read(stickFileOf(0)), PlainStickFile);
  form->cmdOK.press();
  EXPECT_TRUE(t.folder.read(stickFileOf(0)).ends_with("Button-15,169\r\n"));
}

}  // namespace
}  // namespace vorlent
