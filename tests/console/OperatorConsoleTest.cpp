#include "console/OperatorConsole.h"

#include <sstream>
#include <string>

#include "base/ProcessEnd.h"
#include "base/RuntimeError.h"
#include "base/controls.h"
#include "console/ConsoleOperator.h"
#include "gtest/gtest.h"

namespace vorlent {
namespace {

class FrmPanel : public Form {
 public:
  FrmPanel() : Form("FrmPanel") {
    for (Control* control : std::initializer_list<Control*>{
             &cmdStop, &mnuNetwork0, &mnuNetwork1, &txtPoll, &chkStick, &optLeft, &cboDir, &bar})
      add(*control);
  }

  Button cmdStop{"cmdStop", "Stop"};
  MenuItem mnuNetwork0{"mnuNetwork(0)", "&Tip"};
  MenuItem mnuNetwork1{"mnuNetwork(1)", "&Stop Clients"};
  TextBox txtPoll{"txtPoll"};
  CheckBox chkStick{"chkStick", "Sticks"};
  OptionButton optLeft{"optLeft", "Left"};
  ComboBox cboDir{"cboDir"};
  StatusBar bar{"sbStatusBar", 2};
};

class OperatorConsoleTest : public testing::Test {
 protected:
  OperatorConsoleTest() {
    form.cmdStop.onClick([this] { ++stops; });
    form.mnuNetwork1.onClick([this] { ++clientStops; });
    for (const std::string folder : {"737-700", "Classic", "classic", "Cadet"})
      form.cboDir.addItem(folder);
    form.cboDir.ListIndex(0);
  }
  /// Everything that is written while the command is carried out.
  std::string answerTo(const std::string& command) {
    stream.str("");
    console.execute(command);
    return stream.str();
  }

  std::ostringstream stream;
  ConsoleOutput output{[this](std::string_view line) { stream << line; }};
  FrmPanel form;
  Form tip{"FrmTip"};
  OperatorConsole console{output, {&form, &tip}};
  int stops = 0;
  int clientStops = 0;
};

TEST_F(OperatorConsoleTest, PressesAButton) {
  EXPECT_EQ(answerTo("press FrmPanel.cmdStop"), "=\n");
  EXPECT_EQ(stops, 1);
}

TEST_F(OperatorConsoleTest, PressesAMenuEntryOfAControlArray) {
  EXPECT_EQ(answerTo("press FrmPanel.mnuNetwork(1)"), "=\n");
  EXPECT_EQ(clientStops, 1);
}

TEST_F(OperatorConsoleTest, NamesGoInAnyCaseOfLetters) {
  EXPECT_EQ(answerTo("press frmpanel.CMDSTOP"), "=\n");
  EXPECT_EQ(stops, 1);
}

TEST_F(OperatorConsoleTest, PressTurnsACheckBoxOver) {
  answerTo("press FrmPanel.chkStick");
  EXPECT_EQ(form.chkStick.Value(), 1);
  answerTo("press FrmPanel.chkStick");
  EXPECT_EQ(form.chkStick.Value(), 0);
}

TEST_F(OperatorConsoleTest, PressChoosesAnOptionAndKeepsItChosen) {
  answerTo("press FrmPanel.optLeft");
  answerTo("press FrmPanel.optLeft");
  EXPECT_TRUE(form.optLeft.Value());
}

TEST_F(OperatorConsoleTest, ATextBoxCannotBePressed) {
  EXPECT_EQ(answerTo("press FrmPanel.txtPoll"), "error: txtPoll cannot be pressed\n");
}

TEST_F(OperatorConsoleTest, ADisabledControlCannotBePressedOrSet) {
  form.cmdStop.Enabled(false);
  form.txtPoll.Enabled(false);
  form.cboDir.Enabled(false);
  EXPECT_EQ(answerTo("press FrmPanel.cmdStop"), "error: cmdStop is disabled\n");
  EXPECT_EQ(answerTo("set FrmPanel.txtPoll 9"), "error: txtPoll is disabled\n");
  EXPECT_EQ(answerTo("select FrmPanel.cboDir Cadet"), "error: cboDir is disabled\n");
  EXPECT_EQ(stops, 0);
  EXPECT_EQ(form.txtPoll.Text(), "");
  EXPECT_EQ(form.cboDir.Text(), "737-700");
}

TEST_F(OperatorConsoleTest, AnInvisibleControlCannotBePressedOrSet) {
  form.cmdStop.Visible(false);
  form.chkStick.Visible(false);
  EXPECT_EQ(answerTo("press FrmPanel.cmdStop"), "error: cmdStop is not visible\n");
  EXPECT_EQ(answerTo("set FrmPanel.chkStick 1"), "error: chkStick is not visible\n");
  EXPECT_EQ(stops, 0);
  EXPECT_EQ(form.chkStick.Value(), 0);
}

TEST_F(OperatorConsoleTest, SetPutsATextInAndLeavesTheBox) {
  std::string atLeaving;
  form.txtPoll.onLostFocus([&] { atLeaving = form.txtPoll.Text(); });
  EXPECT_EQ(answerTo("set FrmPanel.txtPoll 50 or  more "), "=\n");
  EXPECT_EQ(form.txtPoll.Text(), "50 or  more ");
  EXPECT_EQ(atLeaving, "50 or  more ");
}

TEST_F(OperatorConsoleTest, SetWithoutAValueEmptiesATextBox) {
  form.txtPoll.Text("50");
  EXPECT_EQ(answerTo("set FrmPanel.txtPoll"), "=\n");
  EXPECT_EQ(form.txtPoll.Text(), "");
}

TEST_F(OperatorConsoleTest, SetAnswersWithWhatTheBoxComplainsAbout) {
  form.txtPoll.rule([](const std::string& text) { return text == "60" ? "" : "Needs a 60"; });
  EXPECT_EQ(answerTo("set FrmPanel.txtPoll 6o"), "= Needs a 60\n");
  EXPECT_EQ(answerTo("set FrmPanel.txtPoll 60"), "=\n");
}

TEST_F(OperatorConsoleTest, SetSwitchesCheckBoxesAndOptions) {
  answerTo("set FrmPanel.chkStick true");
  EXPECT_EQ(form.chkStick.Value(), 1);
  answerTo("set FrmPanel.chkStick 0");
  EXPECT_EQ(form.chkStick.Value(), 0);
  answerTo("set FrmPanel.optLeft 1");
  EXPECT_TRUE(form.optLeft.Value());
  answerTo("set FrmPanel.optLeft False");
  EXPECT_FALSE(form.optLeft.Value());
}

TEST_F(OperatorConsoleTest, ASwitchTakesNothingButItsFourWords) {
  EXPECT_EQ(answerTo("set FrmPanel.chkStick 2"), "error: \"2\" is none of 0, 1, True and False\n");
  EXPECT_EQ(answerTo("set FrmPanel.chkStick"), "error: \"\" is none of 0, 1, True and False\n");
  EXPECT_EQ(form.chkStick.Value(), 0);
}

TEST_F(OperatorConsoleTest, ButtonsAndCombosCannotBeSet) {
  EXPECT_EQ(answerTo("set FrmPanel.cmdStop x"), "error: cmdStop cannot be set\n");
  EXPECT_EQ(answerTo("set FrmPanel.cboDir Cadet"), "error: cboDir cannot be set\n");
}

TEST_F(OperatorConsoleTest, SelectTakesAnEntryByItsText) {
  EXPECT_EQ(answerTo("select FrmPanel.cboDir Cadet"), "=\n");
  EXPECT_EQ(form.cboDir.ListIndex(), 3);
}

TEST_F(OperatorConsoleTest, SelectTakesAnotherCaseOfLettersUnlessItIsAmbiguous) {
  EXPECT_EQ(answerTo("select FrmPanel.cboDir CADET"), "=\n");
  EXPECT_EQ(form.cboDir.ListIndex(), 3);
  EXPECT_EQ(answerTo("select FrmPanel.cboDir CLASSIC"), "error: \"CLASSIC\" is ambiguous\n");
  EXPECT_EQ(form.cboDir.ListIndex(), 3);
  EXPECT_EQ(answerTo("select FrmPanel.cboDir classic"), "=\n");
  EXPECT_EQ(form.cboDir.ListIndex(), 2);
}

TEST_F(OperatorConsoleTest, SelectNeedsAnEntryThatIsThere) {
  EXPECT_EQ(answerTo("select FrmPanel.cboDir 747"), "error: cboDir has no entry \"747\"\n");
  EXPECT_EQ(answerTo("select FrmPanel.txtPoll 747"), "error: txtPoll has no entries\n");
  EXPECT_EQ(form.cboDir.ListIndex(), 0);
}

TEST_F(OperatorConsoleTest, GetAnswersWithTheContentOfAnyControl) {
  form.txtPoll.Text("50");
  form.txtPoll.Visible(false);
  EXPECT_EQ(answerTo("get FrmPanel.txtPoll"), "= 50\n");
  EXPECT_EQ(answerTo("get FrmPanel.cmdStop"), "= Stop\n");
  EXPECT_EQ(answerTo("get FrmPanel.cboDir"), "= 737-700\n");
}

TEST_F(OperatorConsoleTest, AnEmptyValueLeavesTheBlank) {
  EXPECT_EQ(answerTo("get FrmPanel.txtPoll"), "= \n");
}

TEST_F(OperatorConsoleTest, EveryKindOfLineBreakInAValueIsWrittenBackslashN) {
  form.txtPoll.Text("a\nb\r\nc\rd");
  EXPECT_EQ(answerTo("get FrmPanel.txtPoll"), "= a\\nb\\nc\\nd\n");
}

TEST_F(OperatorConsoleTest, ListNamesTheControls) {
  EXPECT_EQ(answerTo("list frmpanel"),
            "= cmdStop mnuNetwork(0) mnuNetwork(1) txtPoll chkStick optLeft cboDir "
            "sbStatusBar\n");
}

TEST_F(OperatorConsoleTest, CloseTakesAFormOutOfSightOnce) {
  EXPECT_EQ(answerTo("close FrmTip"), "error: FrmTip is not visible\n");
  tip.Visible(true);
  EXPECT_EQ(answerTo("close FrmTip"), "=\n");
  EXPECT_FALSE(tip.Visible());
}

TEST_F(OperatorConsoleTest, WhatDoesNotExistIsSaid) {
  EXPECT_EQ(answerTo("press FrmOther.cmdStop"), "error: no form \"FrmOther\"\n");
  EXPECT_EQ(answerTo("press FrmPanel.cmdGo"), "error: FrmPanel has no control \"cmdGo\"\n");
  EXPECT_EQ(answerTo("press FrmPanel"), "error: FrmPanel has no control \"\"\n");
  EXPECT_EQ(answerTo("push FrmPanel.cmdStop hard"), "error: no command \"push\"\n");
  EXPECT_EQ(answerTo(""), "error: no command \"\"\n");
}

TEST_F(OperatorConsoleTest, WhatIsTooMuchIsSaidAndNothingDone) {
  EXPECT_EQ(answerTo("press FrmPanel.cmdStop now"), "error: too much: now\n");
  EXPECT_EQ(stops, 0);
  EXPECT_EQ(answerTo("press FrmPanel.cmdStop  "), "=\n");
  EXPECT_EQ(stops, 1);
}

TEST_F(OperatorConsoleTest, HelpListsEveryCommandInOneLine) {
  EXPECT_EQ(answerTo("help"),
            "= press FORM.CONTROL, set FORM.CONTROL VALUE, select FORM.CONTROL ENTRY, "
            "focus FORM.CONTROL, key FORM.CONTROL CODE SHIFT, drag FORM.CONTROL X0 Y0 X1 Y1, "
            "get FORM.CONTROL[.PROPERTY], list FORM, close FORM, exit, help\n");
  EXPECT_EQ(answerTo("help me"), "error: too much: me\n");
}

TEST_F(OperatorConsoleTest, ExitPressesTheExitButtonOfTheMainForm) {
  struct MainForm : Form {
    MainForm() : Form("frmMainClient") { add(cmdExit4); }
    Button cmdExit4{"cmdExit4", "Exit"};
  } mainForm;
  mainForm.cmdExit4.onClick([] { throw ProcessEnd{0}; });
  OperatorConsole server(output, {&mainForm});
  server.execute("exit now");
  EXPECT_EQ(stream.str(), "error: too much: now\n");
  stream.str("");
  EXPECT_THROW(server.execute("exit"), ProcessEnd);
  EXPECT_EQ(stream.str(), "=\n");
}

TEST_F(OperatorConsoleTest, AHandlersFaultGoesThroughBehindTheAnswer) {
  form.cmdStop.onClick([] { throw RuntimeError(RuntimeError::Overflow); });
  EXPECT_THROW(answerTo("press FrmPanel.cmdStop"), RuntimeError);
  EXPECT_EQ(stream.str(), "=\n");
  form.cmdStop.onClick([] { throw ProcessEnd{0}; });
  EXPECT_THROW(answerTo("press FrmPanel.cmdStop"), ProcessEnd);
  EXPECT_EQ(stream.str(), "=\n");
}

TEST_F(OperatorConsoleTest, EveryTextPutIntoAStatusPanelIsToldEvenTheSame) {
  form.bar.panelText(1, "OK");
  form.bar.panelText(2, "Waiting for clients....");
  form.bar.panelText(2, "Waiting for clients....");
  EXPECT_EQ(stream.str(), "1| OK\n2| Waiting for clients....\n2| Waiting for clients....\n");
}

TEST_F(OperatorConsoleTest, MessageBoxesAreLinesWithIconTitleAndText) {
  ConsoleOperator op(output);
  op.messageBox("Overflow", BoxIcon::Critical, "Vorlent");
  op.messageBox("a\r\nb", BoxIcon::Exclamation, "");
  op.messageBox("Share Vorlent created", BoxIcon::Plain, "Vorlent");
  EXPECT_EQ(stream.str(),
            "box critical \"Vorlent\": Overflow\n"
            "box exclamation \"\": a\\nb\n"
            "box plain \"Vorlent\": Share Vorlent created\n");
}

TEST_F(OperatorConsoleTest, FormsAreToldWhenTheyComeAndGoWhoeverDoesIt) {
  ConsoleOperator op(output);
  op.showForm(tip, Modality::Modal);
  EXPECT_TRUE(tip.Visible());
  console.execute("close FrmTip");
  op.showForm(tip, Modality::NonModal);
  op.showForm(tip, Modality::NonModal);
  op.hideForm(tip);
  EXPECT_FALSE(tip.Visible());
  tip.Visible(true);
  EXPECT_EQ(stream.str(), "show FrmTip\nhide FrmTip\n=\nshow FrmTip\nhide FrmTip\nshow FrmTip\n");
}

TEST_F(OperatorConsoleTest, AFormThatWasInSightBeforeItIsShownIsToldOnce) {
  ConsoleOperator op(output);
  tip.Visible(true);
  op.showForm(tip, Modality::Modal);
  EXPECT_EQ(stream.str(), "show FrmTip\n");
}

TEST_F(OperatorConsoleTest, ReachesAFormThatComesAndGoesWhileItIsThere) {
  std::vector<Form*> others;
  OperatorConsole wider(output, {&tip}, [&others] { return others; });
  wider.execute("press FrmPanel.cmdStop");
  EXPECT_EQ(stops, 0);
  others = {&form};
  wider.execute("press FrmPanel.cmdStop");
  EXPECT_EQ(stops, 1);
  others.clear();
  wider.execute("press FrmPanel.cmdStop");
  EXPECT_EQ(stops, 1);
  EXPECT_EQ(stream.str(), "error: no form \"FrmPanel\"\n=\nerror: no form \"FrmPanel\"\n");
}

TEST(ConsoleOutputTest, ShowsControlCharactersByTheirNumbers) {
  std::string written;
  ConsoleOutput output([&written](std::string_view line) { written += line; });
  output.line("1| \x1B]0;title\x07\x9B\tH\xC3\xB6he\n");
  EXPECT_EQ(written, "1| \\x1B]0;title\\x07\\x9B\tH\xC3\xB6he\\n\n");
}

}  // namespace
}  // namespace vorlent
