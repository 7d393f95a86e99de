#include "base/files.h"
#include "support/places.h"
#include "window/MainWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableWidget>
#include <QToolButton>
#include <map>

#include "core/frmStatus.h"
#include "support/Sticks.h"
#include "window/spoken.h"
#include "window/widgets.h"

namespace vorlent {
namespace {

/// A started server with its main window, without a client.
class MainWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    server.start();
    window.resize(Small);
    showActive(window);
  }
  /// What a screen of 1024 by 600 leaves inside the window's frame.
  static constexpr QSize Small{1020, 560};

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
  /// Of the middle of its left edge.
  static QColor frameColour(QWidget& box) {
    return box.grab().toImage().pixelColor(0, box.height() / 2);
  }
  bool saved(const std::string& line) {
    return server.folder.read("Vorlent.ini").find("\r\n" + line + "\r\n") != std::string::npos;
  }

  TestServer server;
  MainWindow window{server.form, *server.server.status, [this](const std::function<void()>& work) {
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
  EXPECT_EQ(texts(menu("&File")),
            (std::vector<QString>{"&Import 6.x panels", "&Save as Template", "Export &cockpit...",
                                  "Im&port cockpit...", "&Exit"}));
  EXPECT_EQ(texts(menu("Ai&rac")), (std::vector<QString>{"&Status"}));
  EXPECT_EQ(texts(menu("&Help")), (std::vector<QString>{"&Manual", "-", "&Show checklist"}));
  EXPECT_TRUE(child<QAction>(window, "mnuHelp(1)").isSeparator());
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
  EXPECT_EQ(captionOf(button("cmdStop")), "Stop");
  click(button("cmdStop"));
  EXPECT_TRUE(server.store.CycleRunning);
  EXPECT_EQ(captionOf(button("cmdStop")), "Stop");
  click(button("cmdStop"));
  EXPECT_FALSE(server.store.CycleRunning);
  EXPECT_EQ(captionOf(button("cmdStop")), "Start");
}

TEST_F(MainWindowTest, GreetingIsShownAndTakesTheNumberOfClientsOutOfReach) {
  const std::string shipped = dataFolder() + "/Network/display/Tarnwick/FMS/";
  const std::string acf = "Acft/737-700/737-700.acf";
  server.networkFiles.files = {
      {R"(\\fmc1\Tarnwick\FMS\plan.cfg)", readFile(shipped + "plan.cfg")},
      {R"(\\fmc1\Tarnwick\FMS\Acft\737-700\737-700.acf)", readFile(shipped + acf)}};
  server.greet(0);
  EXPECT_EQ(panel("sbStatusBar.1"), "Init sound queue 2");
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
  clickMark(child<QCheckBox>(window, "chkStick"));
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
  for (int i = 0; i < 23; ++i) {
    QWidget* focused = window.focusWidget();
    ASSERT_NE(focused, nullptr);
    walked.push_back(focused->objectName().toStdString());
    QTest::keyClick(focused, Qt::Key_Tab);
  }
  EXPECT_EQ(walked, (std::vector<std::string>{
                        "chkStick",    "txtSticks", "txtPoll",     "cboStick",     "cboDir",
                        "Command1",    "chkFuel",   "txtLeftMain", "txtRightMain", "txtLeftAux",
                        "txtRightAux", "chkBrake",  "chkSound",    "cmdStop",      "cmdExit4",
                        "txtIP",       "txtPort",   "txtClients",  "txtFuelL",     "txtFuelR",
                        "cmdStopCts",  "chkLog",    "Command2"}));
  EXPECT_EQ(window.focusWidget()->objectName(), "chkStick");
}

TEST_F(MainWindowTest, ManualOpensByTheButtonAtTheEndOfTheMenuBar) {
  auto& manual = child<QToolButton>(window, "Image1");
  EXPECT_EQ(manual.text(), "Manual");
  EXPECT_TRUE(manual.isVisible());
  click(manual);
  ASSERT_EQ(server.documents.opened.size(), 1U);
  EXPECT_TRUE(server.documents.opened[0].ends_with(nativePath("Docs/manual.htm")));
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
      if (label->buddy() == &edit("txtFlaps")) return label->isVisible();
    throw std::runtime_error("no label");
  };
  EXPECT_FALSE(edit("txtFlaps").isVisible());
  EXPECT_FALSE(labelSeen());
  server.form.txtFlaps.Visible(true);
  EXPECT_TRUE(edit("txtFlaps").isVisible());
  EXPECT_TRUE(labelSeen());
}

TEST_F(MainWindowTest, FitsASmallScreenWhole) {
  const auto& scroll = child<QScrollArea>(window, "settings");
  EXPECT_EQ(window.size(), Small);
  EXPECT_FALSE(scroll.horizontalScrollBar()->isVisible());
  EXPECT_FALSE(scroll.verticalScrollBar()->isVisible());
}

TEST_F(MainWindowTest, FitsASmallScreenWholeAlsoWithFlapPositions) {
  server.form.txtFlaps.Visible(true);
  QCoreApplication::processEvents();
  EXPECT_EQ(window.size(), Small);
  EXPECT_FALSE(child<QScrollArea>(window, "settings").verticalScrollBar()->isVisible());
}

TEST_F(MainWindowTest, ScrollsToTheFocusWhereThereIsNoRoom) {
  window.resize(500, 300);
  QCoreApplication::processEvents();
  const auto seen = [](const QWidget& w) { return !w.visibleRegion().isEmpty(); };
  const auto& last = child<QPushButton>(window, "Command2");
  EXPECT_FALSE(seen(last));
  child<QCheckBox>(window, "chkStick").setFocus();
  QTest::keyClick(window.focusWidget(), Qt::Key_Backtab);
  EXPECT_EQ(window.focusWidget(), &last);
  EXPECT_TRUE(seen(last));
}

TEST_F(MainWindowTest, OpensNoLargerThanTheScreen) {
  MainWindow another(server.form, *server.server.status, [](const auto& work) { work(); });
  const QSize screen = another.screen()->availableSize();
  EXPECT_LT(another.width(), screen.width());
  EXPECT_LT(another.height(), screen.height());
}

TEST_F(MainWindowTest, TabOrderGoesDownTheColumnsFromLeftToRight) {
  server.form.txtFlaps.Visible(true);
  QCoreApplication::processEvents();
  QPoint before(-1, -1);
  int columns = 0;
  for (const Control* control : server.form.controls()) {
    const auto* widget = window.findChild<QWidget*>(QString::fromStdString(control->name()));
    if (!widget || !control->Visible() || control == &server.form.sbStatusBar ||
        control == &server.form.Image1)
      continue;
    const QRect column = widget->parentWidget()->geometry();
    const QPoint place(column.x(), widget->mapTo(&window, QPoint()).y());
    EXPECT_GE(place.x(), before.x()) << control->name();
    if (place.x() == before.x()) {
      EXPECT_GT(place.y(), before.y()) << control->name();
    } else {
      ++columns;
    }
    before = place;
  }
  EXPECT_EQ(columns, 4);
}

TEST_F(MainWindowTest, NoKeyWithAltStandsForTwoThings) {
  std::map<QString, int> keys;
  const auto count = [&keys](const QString& text) {
    const auto key = QKeySequence::mnemonic(text).toString();
    if (!key.isEmpty()) ++keys[key];
  };
  for (const QAction* action : window.menuBar()->actions()) count(action->text());
  for (const auto* widget : window.findChildren<QAbstractButton*>()) count(widget->text());
  for (const auto* label : window.findChildren<QLabel*>())
    if (label->buddy()) count(label->text());
  for (const auto& [key, uses] : keys) EXPECT_EQ(uses, 1) << key.toStdString();
  // Five menus, and every control but the two that are out of sight.
  EXPECT_EQ(keys.size(), 5U + 26U);
  expectNamesOfTheirOwn(window);
}

TEST_F(MainWindowTest, KeysWithAltWorkTheControls) {
  QTest::keyClick(&window, Qt::Key_T, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return server.store.CycleRunning; }));
  QTest::keyClick(&window, Qt::Key_W, Qt::AltModifier);
  EXPECT_EQ(window.focusWidget(), &edit("txtPort"));
  QTest::keyClick(&window, Qt::Key_D, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return server.form.chkFuel.Value() == 1; }));
}

TEST_F(MainWindowTest, KeyStaysWhenTheCaptionChanges) {
  server.store.CycleRunning = true;
  QTest::keyClick(&window, Qt::Key_T, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return button("cmdStop").text() == "S&tart"; }));
  QTest::keyClick(&window, Qt::Key_T, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return server.store.CycleRunning; }));
  EXPECT_EQ(server.form.cmdStop.Caption(), "Stop");
}

TEST_F(MainWindowTest, BoxThatHoldsNoNumberHasARedFrameAndSaysWhy) {
  typeInto(edit("txtPoll"), "x");
  EXPECT_EQ(frameColour(edit("txtPoll")), QColor(0xd3, 0x2f, 0x2f));
  EXPECT_EQ(edit("txtPoll").toolTip(), "Needs a number from 0 to 32767\nGet stick data interval");
  typeInto(edit("txtPoll"), "60");
  EXPECT_NE(frameColour(edit("txtPoll")), QColor(0xd3, 0x2f, 0x2f));
  EXPECT_EQ(edit("txtPoll").toolTip(), "Get stick data interval");
}

TEST_F(MainWindowTest, MarkedBoxKeepsItsSize) {
  const QRect before = edit("txtPoll").geometry();
  typeInto(edit("txtPoll"), "x");
  QCoreApplication::processEvents();
  EXPECT_EQ(edit("txtPoll").geometry(), before);
}

TEST_F(MainWindowTest, EveryControlOfTheStatusIsInTheWindow) {
  ASSERT_FALSE(server.server.status->controls().empty());
  for (const Control* control : server.server.status->controls())
    EXPECT_NE(window.findChild<QWidget*>(QString::fromStdString(control->name())), nullptr)
        << control->name();
}

TEST_F(MainWindowTest, StatusFollowsTheServer) {
  server.greet(0, "100", "captain");
  server.loop.advance(250);
  EXPECT_EQ(child<QLabel>(window, "lblSimulator").text(), "FSX");
  EXPECT_EQ(child<QLabel>(window, "lblAutopilot").text(), "FD");
  const auto& sessions = child<QTableWidget>(window, "lstSessions");
  ASSERT_EQ(sessions.rowCount(), 2);
  EXPECT_EQ(sessions.item(0, 2)->text(), "captain");
  EXPECT_EQ(sessions.item(1, 2)->text(), "waiting");
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
