#include "base/files.h"
#include "support/places.h"
#include "window/MainWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

#include "support/Sticks.h"
#include "window/widgets.h"

namespace vorlent {
namespace {

/// A started server with its main window, without a client.
class MainWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    server.start();
    showActive(window);
  }

  QLineEdit& edit(const char* name) { return child<QLineEdit>(window, name); }
  QPushButton& button(const char* name) { return child<QPushButton>(window, name); }
  QString panel(const char* name) { return child<QLabel>(window, name).text(); }

  QMenu& menu(const char* title) {
    for (QAction* action : window.menuBar()->actions())
      if (action->text() == title) return *action->menu();
    throw std::runtime_error(std::string("no menu ") + title);
  }
  void choose(const char* title, const char* entry) {
    chooseEntry(*window.menuBar(), menu(title), child<QAction>(window, entry));
  }
  static std::vector<QString> texts(const QMenu& menu) {
    std::vector<QString> all;
    for (const QAction* action : menu.actions()) all.push_back(action->text());
    return all;
  }
  bool saved(const std::string& line) {
    return server.folder.read("Vorlent.ini").find("\r\n" + line + "\r\n") != std::string::npos;
  }

  TestServer server;
  MainWindow window{server.form, [this](const std::function<void()>& work) {
                      server.server.failureDomain.run(work);
                    }};
};

TEST_F(MainWindowTest, ShowsWhatTheServerHasRead) {
  EXPECT_EQ(edit("txtIP").text(), "127.0.0.1");
  EXPECT_EQ(edit("txtPort").text(), "5000");
  EXPECT_EQ(edit("txtClients").text(), "2");
  EXPECT_EQ(edit("txtPoll").text(), "50");
  EXPECT_EQ(child<QComboBox>(window, "cboDir").currentText(), "737-700");
  EXPECT_EQ(edit("txtFuelL").text(), "Left Main");
  EXPECT_EQ(edit("txtFuelR").text(), "Right Main");
  EXPECT_EQ(panel("sbStatusBar.1"), "OK");
  EXPECT_EQ(panel("sbStatusBar.2"), "Waiting for clients....");
  EXPECT_EQ(window.windowTitle().toStdString(), server.form.Caption());
}

TEST_F(MainWindowTest, EveryControlOfTheFormIsInTheWindow) {
  ASSERT_FALSE(server.form.controls().empty());
  for (const Control* control : server.form.controls())
    EXPECT_NE(window.findChild<QObject*>(QString::fromStdString(control->name())), nullptr)
        << control->name();
}

TEST_F(MainWindowTest, TypedPortCountsOnlyWhenTheBoxIsLeft) {
  typeInto(edit("txtPort"), "6000");
  EXPECT_EQ(server.store.BasePort, 5000);
  QTest::keyClick(&edit("txtPort"), Qt::Key_Tab);
  EXPECT_EQ(server.store.BasePort, 6000);
  EXPECT_EQ(edit("txtPort").text(), "6000");
}

TEST_F(MainWindowTest, OpeningAMenuDoesNotLeaveTheBox) {
  typeInto(edit("txtPort"), "6000");
  choose("&Settings", "Settings(2)");
  EXPECT_EQ(server.store.BasePort, 5000);
}

TEST_F(MainWindowTest, PortThatIsNoneEmptiesTheBoxAndKeepsTheFormerPort) {
  typeInto(edit("txtPort"), "40000");
  QTest::keyClick(&edit("txtPort"), Qt::Key_Tab);
  EXPECT_EQ(edit("txtPort").text(), "");
  EXPECT_EQ(server.store.BasePort, 5000);
  click(button("cmdExit4"));
  EXPECT_TRUE(saved("Port=5000"));
}

TEST_F(MainWindowTest, LetterInThePortBoxEmptiesItAtOnce) {
  typeInto(edit("txtPort"), "60x");
  EXPECT_EQ(edit("txtPort").text(), "");
  EXPECT_EQ(server.store.BasePort, 5000);
}

TEST_F(MainWindowTest, TypedNumberOfClientsMakesTheSessions) {
  typeInto(edit("txtClients"), "5");
  EXPECT_EQ(server.store.ClientCount, 5);
  EXPECT_EQ(server.server.connect.size(), 5U);
}

TEST_F(MainWindowTest, AddressThatIsNoneIsToldWhenTheBoxIsLeft) {
  typeInto(edit("txtIP"), "fmc1");
  QTest::keyClick(&edit("txtIP"), Qt::Key_Tab);
  EXPECT_EQ(edit("txtIP").text(), "FMC1");
  const std::vector<RecordingOperator::Box> told = {
      {"Incorrect PC Name or IP address,\nplease empty IP box and restart Vorlent\n\nPort 5000, "
       "address FMC1",
       BoxIcon::Plain, "Vorlent"}};
  EXPECT_EQ(server.op.takeBoxes(), told);
}

TEST_F(MainWindowTest, SettingsEntryTurnsOverWithEachChoice) {
  choose("&Settings", "Settings(2)");
  EXPECT_TRUE(server.form.Settings(2).Checked());
  EXPECT_TRUE(child<QAction>(window, "Settings(2)").isChecked());
  choose("&Settings", "Settings(2)");
  EXPECT_FALSE(server.form.Settings(2).Checked());
  EXPECT_FALSE(child<QAction>(window, "Settings(2)").isChecked());
}

TEST_F(MainWindowTest, SoundSettingEnablesTheSoundButton) {
  EXPECT_FALSE(button("cmdSound").isEnabled());
  choose("&Settings", "Settings(1)");
  EXPECT_TRUE(button("cmdSound").isEnabled());
}

TEST_F(MainWindowTest, MenusHoldTheFormsEntriesInTheirOrder) {
  EXPECT_EQ(texts(menu("&File")), (std::vector<QString>{"&Exit"}));
  EXPECT_EQ(texts(menu("&Settings")),
            (std::vector<QString>{"&Automatic TQ", "&Enable acft sound", "FS on &top",
                                  "FS &maximized", "&Write MCP offsets"}));
  EXPECT_EQ(texts(menu("&Network")), (std::vector<QString>{"&Rescan", "&Find FSUIPC"}));
}

TEST_F(MainWindowTest, OnlySettingsEntriesCanBeTicked) {
  EXPECT_TRUE(child<QAction>(window, "Settings(0)").isCheckable());
  EXPECT_FALSE(child<QAction>(window, "mnuFile(2)").isCheckable());
  EXPECT_FALSE(child<QAction>(window, "mnuNetwork(0)").isCheckable());
}

TEST_F(MainWindowTest, RescanBindsTheSessionsToANewPort) {
  typeInto(edit("txtPort"), "6000");
  QTest::keyClick(&edit("txtPort"), Qt::Key_Tab);
  choose("&Network", "mnuNetwork(0)");
  EXPECT_EQ(server.network.bound(), (std::vector<std::string>{"127.0.0.1:6000", "127.0.0.1:6001"}));
}

TEST_F(MainWindowTest, StopButtonSaysWhatItsNextPressDoes) {
  EXPECT_EQ(button("cmdStop").text(), "Stop");
  click(button("cmdStop"));
  EXPECT_TRUE(server.store.CycleRunning);
  EXPECT_EQ(button("cmdStop").text(), "Stop");
  click(button("cmdStop"));
  EXPECT_FALSE(server.store.CycleRunning);
  EXPECT_EQ(button("cmdStop").text(), "Start");
}

TEST_F(MainWindowTest, GreetingIsShownAndTakesTheNumberOfClientsOutOfReach) {
  const std::string shipped = dataFolder() + "/Network/display/Tarnwick/FMS/";
  const std::string acf = "Acft/737-700/737-700.acf";
  server.networkFiles.files = {
      {R"(\\fmc1\Tarnwick\FMS\plan.cfg)", readFile(shipped + "plan.cfg")},
      {R"(\\fmc1\Tarnwick\FMS\Acft\737-700\737-700.acf)", readFile(shipped + acf)}};
  server.greet(0);
  EXPECT_EQ(panel("sbStatusBar.1"), "Call from client 0");
  EXPECT_EQ(panel("sbStatusBar.2"), "Connection on a b 100 fmc1");
  EXPECT_FALSE(edit("txtClients").isEnabled());
  EXPECT_FALSE(button("cmdSound").isEnabled());
}

TEST_F(MainWindowTest, StopClientsEndsTheSessionsAndGivesTheBoxesBack) {
  server.greet(0);
  click(button("cmdStopCts"));
  EXPECT_FALSE(server.server.connect[0]->IsUp());
  EXPECT_TRUE(edit("txtClients").isEnabled());
  EXPECT_TRUE(button("cmdSound").isEnabled());
}

TEST_F(MainWindowTest, StickBoxEnablesTheStickButton) {
  addSticks(server, 1);
  EXPECT_FALSE(button("cmdStick").isEnabled());
  click(child<QCheckBox>(window, "chkStick"));
  EXPECT_TRUE(button("cmdStick").isEnabled());
}

TEST_F(MainWindowTest, ChosenAircraftAndTypedPortAreSavedAtExit) {
  QTest::keyClick(&child<QComboBox>(window, "cboDir"), Qt::Key_Down);
  typeInto(edit("txtPort"), "6000");
  click(button("cmdExit4"));
  EXPECT_EQ(server.exitStatus(), 0);
  EXPECT_FALSE(server.form.Visible());
  EXPECT_TRUE(saved("Cockpit=A-first"));
  EXPECT_TRUE(saved("Port=6000"));
}

TEST_F(MainWindowTest, ExitWithABoxThatHoldsNoNumberIsToldKeepsItsKeyAndSavesTheOthers) {
  typeInto(edit("txtPoll"), "x");
  EXPECT_EQ(edit("txtPoll").text(), "");
  click(button("cmdExit4"));
  const std::vector<RecordingOperator::Box> told = {
      {"Run-time error '13':\n\nType mismatch", BoxIcon::Critical, "Vorlent"}};
  EXPECT_EQ(server.op.takeBoxes(), told);
  EXPECT_EQ(server.exitStatus(), 1);
  const std::string after = server.folder.read("Vorlent.ini");
  EXPECT_NE(after.find("\r\nPolling=50\r\n"), std::string::npos) << after;
  EXPECT_NE(after.find("\r\nIp=127.0.0.1\r\n"), std::string::npos) << after;
}

TEST_F(MainWindowTest, CloseBoxIsTheExitButton) {
  EXPECT_FALSE(server.exitStatus().has_value());
  window.close();
  EXPECT_EQ(server.exitStatus(), 0);
  EXPECT_TRUE(server.log().ends_with("Vorlent close\r\nQuit\r\n")) << server.log();
}

TEST_F(MainWindowTest, FileMenuExitIsTheExitButton) {
  choose("&File", "mnuFile(2)");
  EXPECT_EQ(server.exitStatus(), 0);
  EXPECT_TRUE(server.log().ends_with("Vorlent close\r\nQuit\r\n")) << server.log();
}

TEST_F(MainWindowTest, TabWalksTheControlsThatCanBeUsedInTheFormsOrder) {
  child<QCheckBox>(window, "chkStick").setFocus();
  std::vector<std::string> walked;
  for (int i = 0; i < 20; ++i) {
    QWidget* focused = window.focusWidget();
    ASSERT_NE(focused, nullptr);
    walked.push_back(focused->objectName().toStdString());
    QTest::keyClick(focused, Qt::Key_Tab);
  }
  EXPECT_EQ(walked, (std::vector<std::string>{
                        "chkStick", "txtSticks",   "txtPoll",      "cboStick",   "cboDir",
                        "chkFuel",  "txtLeftMain", "txtRightMain", "txtLeftAux", "txtRightAux",
                        "chkBrake", "chkSound",    "cmdStop",      "cmdExit4",   "txtIP",
                        "txtPort",  "txtClients",  "txtFuelL",     "txtFuelR",   "cmdStopCts"}));
  EXPECT_EQ(window.focusWidget()->objectName(), "chkStick");
}

TEST_F(MainWindowTest, ModelsTextsAndToolTipsAppear) {
  server.form.txtLeftAux.Text("1725.5");
  server.form.txtLeftAux.ToolTipText("Max: 4000");
  EXPECT_EQ(edit("txtLeftAux").text(), "1725.5");
  EXPECT_EQ(edit("txtLeftAux").toolTip(), "Max: 4000");
}

TEST_F(MainWindowTest, FuelSelectorsCannotBeTypedInto) {
  typeInto(edit("txtFuelL"), "off");
  EXPECT_EQ(edit("txtFuelL").text(), "Left Main");
  EXPECT_EQ(server.form.txtFuelL.Text(), "Left Main");
}

TEST_F(MainWindowTest, FlapPositionsAreSeenWithTheirLabelOrNotAtAll) {
  const auto labelSeen = [this] {
    for (const QLabel* label : window.findChildren<QLabel*>())
      if (label->text() == "Flap positions") return label->isVisible();
    throw std::runtime_error("no label");
  };
  EXPECT_FALSE(edit("txtFlaps").isVisible());
  EXPECT_FALSE(labelSeen());
  server.form.txtFlaps.Visible(true);
  EXPECT_TRUE(edit("txtFlaps").isVisible());
  EXPECT_TRUE(labelSeen());
}

TEST_F(MainWindowTest, FaultInAHandlerIsShownAndEndsTheProcess) {
  server.form.cmdStop.onClick([] { throw RuntimeError(RuntimeError::Overflow); });
  click(button("cmdStop"));
  const std::vector<RecordingOperator::Box> told = {
      {"Run-time error '6':\n\nOverflow", BoxIcon::Critical, "Vorlent"}};
  EXPECT_EQ(server.op.takeBoxes(), told);
  EXPECT_EQ(server.exitStatus(), 1);
}

TEST_F(MainWindowTest, NothingInTheWindowWorksAfterTheEnd) {
  click(button("cmdExit4"));
  click(button("cmdStop"));
  choose("&Network", "mnuNetwork(1)");
  window.close();
  EXPECT_EQ(server.exitStatus(), 0);
  EXPECT_FALSE(server.store.CycleRunning);
}

}  // namespace
}  // namespace vorlent
