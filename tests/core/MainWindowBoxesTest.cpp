#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/Transcript.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;

class MainWindowBoxes : public ::testing::Test {
 protected:
  TestServer host;
  frmMainClient& form = host.form;
};

TEST_F(MainWindowBoxes, StandInTabOrder) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < 17; ++i) names.push_back(form.controls().at(i)->name());
  EXPECT_THAT(
      names, ElementsAre("chkStick", "txtSticks", "txtPoll", "cmdStick", "cboStick", "cboDir",
                         "Command1", "chkFuel", "txtLeftMain", "txtRightMain", "txtLeftAux",
                         "txtRightAux", "chkBrake", "txtFlaps", "chkSound", "cmdStop", "cmdExit4"));
}

TEST_F(MainWindowBoxes, SayWhatTheyAreFor) {
  const std::vector<std::pair<const Control*, std::string>> toolTips{
      {&form.txtIP, "Empty box and restart wil read IP address"},
      {&form.txtPort, "Lowest port value (for 1st client)"},
      {&form.txtClients, "How many clients you connect"},
      {&form.txtPoll, "Get stick data interval"},
      {&form.txtSticks, "How many to use"},
      {&form.cboStick, "Which one to set"},
      {&form.cmdStick, "Assign FS functions to axes, buttons"},
      {&form.chkStick, "Local sticks on"},
      {&form.cboDir, "Aiircraft must match FS aircraft"},
      {&form.Command1, "Create new a/c from template"},
      {&form.txtFlaps, "Enter flap positions comma separated for joystick input (max 16)"},
      {&form.chkFuel, "Supports a fuel selector for each engine (2-engines only)"},
      {&form.txtFuelL, "Selector 1"},
      {&form.txtFuelR, "Selector 2"}};
  for (const auto& [control, toolTip] : toolTips)
    EXPECT_EQ(control->ToolTipText(), toolTip) << control->name();
}

TEST_F(MainWindowBoxes, HaveTheirCaptions) {
  EXPECT_EQ(form.chkStick.Caption(), "Enable joysticks");
  EXPECT_EQ(form.cmdStick.Caption(), "Stick setup...");
  EXPECT_EQ(form.Command1.Caption(), "Templates...");
  EXPECT_EQ(form.Command2.Caption(), "Test MCP");
  EXPECT_EQ(form.cmdSound.Caption(), "Sound...");
  EXPECT_EQ(form.cmdStop.Caption(), "Stop");
  EXPECT_EQ(form.cmdStopCts.Caption(), "Stop Clients");
  EXPECT_EQ(form.chkLog.Caption(), "Write logfile");
  EXPECT_EQ(form.chkFuel.Caption(), "Enable dual fuel selectors");
  EXPECT_EQ(form.chkSound.Caption(), "Enable Aircraft sounds");
  EXPECT_EQ(form.chkBrake.Caption(), "Steer with differential braking");
}

TEST_F(MainWindowBoxes, APortBelow32767IsTakenWhenItsBoxIsLeft) {
  host.start();
  form.txtPort.Text("32766");
  EXPECT_EQ(host.store.BasePort, 5000);
  form.txtPort.loseFocus();
  EXPECT_EQ(host.store.BasePort, 32766);
}

TEST_F(MainWindowBoxes, APortFrom32767EmptiesTheBoxAndKeepsThePort) {
  host.start();
  for (const char* port : {"32767", "40000", "99999999999999999999"}) {
    form.txtPort.Text(port);
    form.txtPort.loseFocus();
    EXPECT_EQ(form.txtPort.Text(), "");
    EXPECT_EQ(host.store.BasePort, 5000);
  }
}

TEST_F(MainWindowBoxes, TakeDigitsOnly) {
  host.start();
  for (TextBox* box : {&form.txtPort, &form.txtPoll, &form.txtClients}) {
    box->Text("12");
    EXPECT_EQ(box->Text(), "12");
    box->Text("1.2");
    EXPECT_EQ(box->Text(), "");
    box->Text("7");
    box->Text("-7");
    EXPECT_EQ(box->Text(), "");
    for (const std::string& typed : {std::string("12a"), std::string("+5"), std::string("-"),
                                     std::string("."), std::string("5\r\n6"), std::string(" 7")}) {
      box->Text(typed);
      EXPECT_EQ(box->Text(), "") << typed;
    }
  }
}

TEST_F(MainWindowBoxes, AnEmptiedBoxStaysEmptyButThatOfTheIntervalShows0) {
  host.start();
  for (TextBox* box : {&form.txtPort, &form.txtPoll, &form.txtClients}) box->Text("");
  EXPECT_EQ(form.txtPort.Text(), "");
  EXPECT_EQ(form.txtClients.Text(), "");
  EXPECT_EQ(form.txtPoll.Text(), "0");
}

TEST_F(MainWindowBoxes, AnEmptiedPortAndPort0KeepThePort) {
  host.start();
  for (const char* port : {"", "0", "000"}) {
    form.txtPort.Text(port);
    form.txtPort.loseFocus();
    EXPECT_EQ(form.txtPort.Text(), "");
    EXPECT_EQ(host.store.BasePort, 5000);
  }
}

TEST_F(MainWindowBoxes, FortyDigitsEmptyTheBoxesThatCountInSixteenBits) {
  host.start();
  const std::string digits(40, '9');
  form.txtPort.Text(digits);
  form.txtPort.loseFocus();
  EXPECT_EQ(form.txtPort.Text(), "");
  form.txtClients.Text(digits);
  EXPECT_EQ(form.txtClients.Text(), "");
  form.txtPoll.Text(digits);
  EXPECT_EQ(form.txtPoll.Complaint(), "Needs a number from 0 to 32767");
  EXPECT_EQ(host.store.BasePort, 5000);
  EXPECT_EQ(host.store.ClientCount, 2);
}

TEST_F(MainWindowBoxes, TheNumberOfClientsResizesTheSessions) {
  host.start();
  form.txtClients.Text("5");
  EXPECT_EQ(host.store.ClientCount, 5);
  EXPECT_EQ(host.server.connect.size(), 5U);
  form.txtClients.Text("1");
  EXPECT_EQ(host.store.ClientCount, 1);
  EXPECT_EQ(host.server.connect.size(), 1U);
  EXPECT_THAT(host.network.bound(), ElementsAre("127.0.0.1:5000"));
}

TEST_F(MainWindowBoxes, MoreClientsAreBoundByTheNextRescan) {
  host.start();
  form.txtClients.Text("3");
  EXPECT_THAT(host.network.bound(), ElementsAre("127.0.0.1:5000", "127.0.0.1:5001"));
  form.mnuNetwork(0).press();
  EXPECT_THAT(host.network.bound(),
              ElementsAre("127.0.0.1:5000", "127.0.0.1:5001", "127.0.0.1:5002"));
}

TEST_F(MainWindowBoxes, NoClientsKeepTheSessions) {
  host.start();
  form.txtClients.Text("0");
  EXPECT_EQ(host.store.ClientCount, 0);
  EXPECT_EQ(host.server.connect.size(), 2U);
}

TEST_F(MainWindowBoxes, AnEmptiedClientsBoxKeepsTheFormerNumber) {
  host.start();
  form.txtClients.Text("");
  EXPECT_EQ(host.store.ClientCount, 2);
  form.txtClients.Text("many");
  EXPECT_EQ(form.txtClients.Text(), "");
  EXPECT_EQ(host.store.ClientCount, 2);
  form.txtClients.Text("40000");
  EXPECT_EQ(form.txtClients.Text(), "");
  EXPECT_EQ(host.store.ClientCount, 2);
  EXPECT_EQ(host.server.connect.size(), 2U);
}

TEST_F(MainWindowBoxes, FromOneToEightSticksAreInUse) {
  host.start();
  for (const auto& [typed, taken] :
       std::vector<std::pair<std::string, std::string>>{{"3", "3"},
                                                        {"", "1"},
                                                        {"8", "8"},
                                                        {"9", "8"},
                                                        {"0", "1"},
                                                        {"40000", "8"},
                                                        {std::string(400, '9'), "8"},
                                                        {"many", "1"},
                                                        {"2.5", "1"},
                                                        {"-4", "1"}}) {
    form.txtSticks.Text(typed);
    EXPECT_EQ(form.txtSticks.Text(), taken) << typed;
    EXPECT_EQ(std::to_string(form.cboStick.Items().size()), taken) << typed;
  }
}

TEST_F(MainWindowBoxes, TheFlapsBoxIsHiddenAtFirst) { EXPECT_FALSE(form.txtFlaps.Visible()); }

TEST_F(MainWindowBoxes, AStatusTextShowsAsItIsAndGoesToTheLog) {
  form.SetStatusText(1, " two blanks  ");
  EXPECT_EQ(form.sbStatusBar.panelText(1), " two blanks  ");
  EXPECT_EQ(host.log(), " two blanks  \r\n");
}

TEST_F(MainWindowBoxes, TheStateLineIsNotLogged) {
  form.SetStatusText(2, "FS Ready");
  EXPECT_EQ(form.sbStatusBar.panelText(2), "FS Ready");
  EXPECT_EQ(form.sbStatusBar.panelText(1), "");
  EXPECT_EQ(host.log(), "");
}

TEST_F(MainWindowBoxes, ABlankStatusTextChangesNothing) {
  form.SetStatusText(1, "before");
  form.SetStatusText(2, "state");
  form.SetStatusText(1, "");
  form.SetStatusText(1, "   ");
  form.SetStatusText(2, " ");
  EXPECT_EQ(form.sbStatusBar.panelText(1), "before");
  EXPECT_EQ(form.sbStatusBar.panelText(2), "state");
  EXPECT_EQ(host.log(), "before\r\n");
}

TEST_F(MainWindowBoxes, WriteLogfileMakesTheLogOfTheFlightVerbose) {
  host.start();
  EXPECT_FALSE(host.store.LogVerbose);
  form.chkLog.Value(1);
  EXPECT_TRUE(host.store.LogVerbose);
  form.chkLog.Value(0);
  EXPECT_FALSE(host.store.LogVerbose);
}

}  // namespace
}  // namespace vorlent
