#include "window/StickWindow.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QCompleter>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>
#include <memory>

#include "core/frmMainClient.h"
#include "sticks/frmCMore.h"
#include "sticks/frmCStick.h"
#include "sticks/frmXY.h"
#include "support/Sticks.h"
#include "window/CurveView.h"
#include "window/QtOperator.h"
#include "window/spoken.h"
#include "window/stickWindows.h"
#include "window/widgets.h"

namespace vorlent {
namespace {

/// A server with one stick, and its window on the screen.
class StickWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    addSticks(server, 1);
    server.start();
    server.form.chkStick.Value(1);
    form = server.server.sticks.CStick[0].get();
    form->Visible(true);
    window = makeStickWindow(*form, guard);
    showActive(*window);
  }
  template <class Widget>
  Widget& the(const char* name) {
    return child<Widget>(*window, name);
  }
  /// The names of as many controls as Tab leads through.
  std::vector<std::string> tabsFrom(const char* first, int count) {
    std::vector<std::string> order;
    the<QWidget>(first).setFocus();
    for (int i = 0; i < count; ++i) {
      order.push_back(window->focusWidget()->objectName().toStdString());
      QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    }
    return order;
  }
  void openLines() { form->SSTab1.ListIndex(frmCStick::ButtonPage); }

  TestServer server;
  Guard guard = [this](const std::function<void()>& work) {
    server.server.failureDomain.run(work);
  };
  frmCStick* form = nullptr;
  std::unique_ptr<QDialog> window;
};

TEST_F(StickWindowTest, ClickOnARowSelectsItAndTheOthersGoOut) {
  click(the<QRadioButton>("optAxes(2)"));
  EXPECT_EQ(form->ChannelID(), 2);
  EXPECT_TRUE(the<QRadioButton>("optAxes(2)").isChecked());
  EXPECT_FALSE(the<QRadioButton>("optAxes(0)").isChecked());
  form->optAxes(1).Value(true);
  EXPECT_TRUE(the<QRadioButton>("optAxes(1)").isChecked());
  EXPECT_FALSE(the<QRadioButton>("optAxes(2)").isChecked());
}

TEST_F(StickWindowTest, ArrowKeysAndAltLettersSelectRowsToo) {
  the<QRadioButton>("optAxes(0)").setFocus();
  QTest::keyClick(window->focusWidget(), Qt::Key_Down);
  EXPECT_EQ(form->ChannelID(), 1);
  QTest::keyClick(window.get(), Qt::Key_R, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return form->ChannelID() == 3; }));
}

TEST_F(StickWindowTest, ACatalogueIsSearchedByAnyPartOfAName) {
  form->optAxes(0).Tag("8");
  form->optAxes(1).Value(true);
  auto& box = the<QComboBox>("cboAxes");
  box.setFocus();
  box.lineEdit()->selectAll();
  QTest::keyClicks(box.lineEdit(), "LEV");
  EXPECT_EQ(box.completer()->completionCount(), 1);
  EXPECT_EQ(box.completer()->currentCompletion(), "Flaps, lever");
  QTest::keyClick(box.lineEdit(), Qt::Key_Return);
  EXPECT_EQ(form->optAxes(1).Tag(), "22");
  EXPECT_EQ(box.currentText(), "Flaps, lever");
  EXPECT_TRUE(form->Visible());
  EXPECT_FALSE(box.completer()->popup()->isVisible());
}

TEST_F(StickWindowTest, TheNamesThatFitGoWithTheirWindow) {
  auto& box = the<QComboBox>("cboAxes");
  box.setFocus();
  box.lineEdit()->selectAll();
  QTest::keyClicks(box.lineEdit(), "lev");
  ASSERT_TRUE(box.completer()->popup()->isVisible());
  window->hide();
  EXPECT_FALSE(box.completer()->popup()->isVisible());
}

TEST_F(StickWindowTest, ANameThatFitsNothingAssignsNothingAndGoesWhenTheBoxIsLeft) {
  form->optAxes(1).Tag("22");
  click(the<QRadioButton>("optAxes(1)"));
  auto& box = the<QComboBox>("cboAxes");
  box.setFocus();
  box.lineEdit()->selectAll();
  QTest::keyClicks(box.lineEdit(), "rudder");
  QTest::keyClick(box.lineEdit(), Qt::Key_Return);
  QTest::keyClick(box.lineEdit(), Qt::Key_Tab);
  EXPECT_EQ(form->optAxes(1).Tag(), "22");
  EXPECT_EQ(box.currentText(), "Flaps, lever");
  EXPECT_TRUE(form->Visible());
}

TEST_F(StickWindowTest, ACatalogueOfTenThousandRowsIsSearchedToo) {
  std::vector<ComboBox::Item> rows;
  for (int i = 0; i < 10000; ++i) rows.push_back({"Row " + std::to_string(i), i});
  form->cboAxes.Items(rows);
  auto& box = the<QComboBox>("cboAxes");
  box.setFocus();
  QTest::keyClicks(box.lineEdit(), "ow 9876");
  QTest::keyClick(box.lineEdit(), Qt::Key_Return);
  EXPECT_EQ(form->optAxes(0).Tag(), "9876");
}

TEST_F(StickWindowTest, KeysAreTakenWhileTheirBoxHasTheFocus) {
  openLines();
  form->OnOff(0).Value(0);
  click(the<QCheckBox>("chkKeyBtn"));
  auto& box = the<QLineEdit>("txtKeyBtn");
  click(box);
  EXPECT_EQ(box.palette().color(QPalette::Base), QColor(0xFF, 0xC0, 0xC0));
  QTest::keyClick(&box, Qt::Key_A, Qt::ShiftModifier);
  EXPECT_EQ(form->optSwitches(0).Tag(), "2065");
  EXPECT_EQ(box.text(), "Shft-A");
  QTest::keyClick(&box, Qt::Key_Escape);
  EXPECT_EQ(box.text(), "ESCAPE");
  EXPECT_TRUE(form->Visible());
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(box.text(), "ENTER");
  QTest::keyClick(&box, Qt::Key_K, Qt::AltModifier);
  EXPECT_EQ(box.text(), "Alt-K");
  EXPECT_EQ(form->chkKeyBtn.Value(), 1);  // Alt+K did not reach "Send Key"
  QTest::keyClick(&box, Qt::Key_5, Qt::KeypadModifier);
  EXPECT_EQ(box.text(), "NUMPAD 5");
  QTest::keyClick(&box, Qt::Key_Exclam, Qt::ShiftModifier);
  EXPECT_EQ(box.text(), "Shft-1");
  QTest::keyClick(&box, Qt::Key_Tab);
  EXPECT_FALSE(box.hasFocus());
  EXPECT_FALSE(form->KeyPreview());
  EXPECT_NE(box.palette().color(QPalette::Base), QColor(0xFF, 0xC0, 0xC0));
  EXPECT_EQ(form->optSwitches(0).Tag(), "2049");
}

TEST_F(StickWindowTest, WhatIsPastedIntoABoxOfDigitsIsFilteredAndAKeyBoxTakesNoText) {
  QGuiApplication::clipboard()->setText("12\n34");
  auto& null = the<QLineEdit>("txtNull(0)");
  click(null);
  null.selectAll();
  null.paste();
  EXPECT_EQ(null.text(), "0");
  click(the<QCheckBox>("chkKeyA"));
  auto& key = the<QLineEdit>("txtKeyA");
  click(key);
  QTest::keyClick(&key, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(key.text(), "Ctrl-V");
}

TEST_F(StickWindowTest, PagesAndHiddenRowsFollowTheModel) {
  openLines();
  EXPECT_EQ(the<QTabWidget>("SSTab1").currentIndex(), 1);
  click(the<QPushButton>("cmdCoderBtn"));
  EXPECT_FALSE(the<QRadioButton>("optSwitches(1)").isVisible());
  EXPECT_EQ(captionOf(the<QRadioButton>("optSwitches(0)")), "Encoder 1");
  EXPECT_TRUE(the<QComboBox>("cboEncBtn(1)").isVisible());
  the<QTabWidget>("SSTab1").setCurrentIndex(0);
  EXPECT_EQ(form->SSTab1.ListIndex(), frmCStick::AxisPage);
}

TEST_F(StickWindowTest, TheCloseBoxAndEscapeAreCancel) {
  QTest::keyClick(window.get(), Qt::Key_Escape);
  EXPECT_FALSE(form->Visible());
  EXPECT_FALSE(form->Showing());
  form->Visible(true);
  window->show();
  window->close();
  EXPECT_FALSE(form->Visible());
}

TEST_F(StickWindowTest, TabGoesThroughTheRowsInReadingOrder) {
  EXPECT_THAT(
      tabsFrom("optAxes(0)", 5),
      testing::ElementsAre("optAxes(0)", "txtNull(0)", "chkDamp(0)", "chkInvert(0)", "txtNull(1)"));
  form->cmdCoderAxis.press();
  EXPECT_THAT(
      tabsFrom("optAxes(0)", 5),
      testing::ElementsAre("optAxes(0)", "txtAccA(0)", "cboEncA(0)", "txtAccA(2)", "cboEncA(1)"));
  openLines();
  form->cmdCoderBtn.press();
  EXPECT_THAT(tabsFrom("optSwitches(0)", 5),
              testing::ElementsAre("optSwitches(0)", "txtAccBtn(0)", "cboEncBtn(0)", "txtAccBtn(2)",
                                   "cboEncBtn(1)"));
}

TEST_F(StickWindowTest, EveryBoxHasANameThatCanBeSpoken) {
  for (const QWidget* widget : window->findChildren<QWidget*>()) {
    const bool box = qobject_cast<const QLineEdit*>(widget) != nullptr ||
                     qobject_cast<const QComboBox*>(widget) != nullptr ||
                     qobject_cast<const QCheckBox*>(widget) != nullptr;
    if (!box || form->control(widget->objectName().toStdString()) == nullptr) continue;
    const auto* check = qobject_cast<const QCheckBox*>(widget);
    EXPECT_TRUE(!widget->accessibleName().isEmpty() || (check && !check->text().isEmpty()))
        << widget->objectName().toStdString();
  }
}

TEST_F(StickWindowTest, NoTwoThingsInSightHaveOneNameOrOneKey) {
  const auto check = [this] {
    QCoreApplication::processEvents();
    expectNamesOfTheirOwn(*window);
    expectDifferentAltKeys(*window);
  };
  check();
  click(the<QPushButton>("cmdCoderAxis"));
  check();
  openLines();
  check();
  EXPECT_EQ(spokenName(the<QCheckBox>("OnOff(2)")), "On/Off switch, Button 3");
  click(the<QPushButton>("cmdCoderBtn"));
  check();
}

TEST_F(StickWindowTest, AListThatIsSearchedSaysWhatItIsFor) {
  EXPECT_EQ(the<QComboBox>("cboAxes").lineEdit()->accessibleName(), "Command of the selected row");
  EXPECT_EQ(the<QComboBox>("cboAxes").accessibleDescription(), "Command of the selected row");
}

TEST_F(StickWindowTest, ThePageOfTheLinesSaysWhatABoardWithoutSwitchesCanDo) {
  openLines();
  std::vector<std::string> seen;
  for (const QLabel* label : window->findChildren<QLabel*>())
    if (label->isVisible()) seen.push_back(label->text().toStdString());
  EXPECT_THAT(seen, testing::IsSupersetOf(
                        {"Type", "If you have no switches, you can use up to 15 buttons"}));
}

/// The buttons 5 to 15 of the stick on the screen.
class MoreWindowTest : public StickWindowTest {
 protected:
  void SetUp() override {
    StickWindowTest::SetUp();
    extra = server.server.sticks.CMore[0].get();
    extra->Visible(true);
    window = makeStickWindow(*extra, guard);
    showActive(*window);
  }
  frmCMore* extra = nullptr;
};

TEST_F(MoreWindowTest, AnEntryGoesToTheRowThatWasClicked) {
  EXPECT_EQ(window->windowTitle(), "Assign additional buttons");
  click(the<QRadioButton>("optSwitches(10)"));
  EXPECT_FALSE(the<QRadioButton>("optSwitches(0)").isChecked());
  auto& box = the<QComboBox>("cboButtons");
  box.setFocus();
  QTest::keyClicks(box.lineEdit(), "vna");
  QTest::keyClick(box.lineEdit(), Qt::Key_Return);
  EXPECT_EQ(extra->optSwitches(10).Tag(), "168");
  EXPECT_EQ(extra->optSwitches(0).Tag(), "105");
}

TEST_F(MoreWindowTest, NoTwoThingsHaveOneNameOrOneKey) {
  expectNamesOfTheirOwn(*window);
  expectDifferentAltKeys(*window);
}

TEST_F(MoreWindowTest, AKeyIsTakenWhileItsBoxHasTheFocus) {
  click(the<QCheckBox>("chkKeyBtn"));
  EXPECT_FALSE(the<QComboBox>("cboButtons").isVisible());
  auto& box = the<QLineEdit>("txtKeyBtn");
  click(box);
  EXPECT_EQ(box.palette().color(QPalette::Base), QColor(0xFF, 0xC0, 0xC0));
  QTest::keyClick(&box, Qt::Key_F5, Qt::ControlModifier);
  EXPECT_EQ(box.text(), "Ctrl-F5");
  EXPECT_EQ(extra->optSwitches(0).Tag(), "3116");
  click(the<QPushButton>("cmdOK"));
  EXPECT_FALSE(extra->Visible());
  EXPECT_FALSE(extra->KeyPreview());
  EXPECT_EQ(server.folder.read(stickFileOf(0)), PlainStickFile);
}

/// The editor of the stick's first axis on the screen.
class CurveWindowTest : public StickWindowTest {
 protected:
  void SetUp() override {
    StickWindowTest::SetUp();
    edit = server.server.sticks.XY.get();
    edit->InitForStick(0, 16384);
    edit->Visible(true);
    window = makeStickWindow(*edit, guard);
    showActive(*window);
    view = &the<QWidget>("Pic1");
  }
  QPoint at(float x, float y) const {
    const double scale = std::min(view->width() / 3350.0, view->height() / 3350.0);
    const QPointF origin((view->width() - 3350 * scale) / 2, (view->height() - 3350 * scale) / 2);
    return (origin + QPointF(200 + 30 * x, 150 + 30 * (100 - y)) * scale).toPoint();
  }
  void drag(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mousePress(view, button, {}, from);
    QTest::mouseMove(view, (from + to) / 2);
    QTest::mouseMove(view, to);
    QTest::mouseRelease(view, button, {}, to);
  }

  frmXY* edit = nullptr;
  QWidget* view = nullptr;
};

TEST_F(CurveWindowTest, TheMouseBendsTheCurve) {
  drag(at(33, 33), at(50, 20));
  EXPECT_NEAR(edit->PointX(2), 50, 0.5);
  EXPECT_NEAR(edit->PointY(2), 20, 0.5);
  EXPECT_NEAR(form->curve(0).m1, 0.4, 0.02);
  EXPECT_EQ(edit->DragIndex(), 0);
  EXPECT_EQ(the<QLineEdit>("txtX").text(), "50");
}

TEST_F(CurveWindowTest, NoTwoThingsHaveOneNameOrOneKey) {
  expectNamesOfTheirOwn(*window);
  expectDifferentAltKeys(*window);
}

TEST_F(CurveWindowTest, TheRightButtonDoesNothing) {
  drag(at(33, 33), at(50, 20), Qt::RightButton);
  EXPECT_EQ(edit->PointX(2), 33);
  EXPECT_EQ(form->curve(0).m1, 1);
}

TEST_F(CurveWindowTest, TheKeysBendTheCurve) {
  ASSERT_TRUE(view->hasFocus());
  for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_Up, Qt::Key_Right})
    QTest::keyClick(view, key);
  QTest::keyClick(view, Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(edit->PointX(2), 34);
  EXPECT_EQ(edit->PointY(2), 44);
}

TEST_F(CurveWindowTest, AWindowThatIsClosedInTheMiddleOfADragLetsThePointGo) {
  QTest::mousePress(view, Qt::LeftButton, {}, at(33, 33));
  QTest::mouseMove(view, at(40, 40));
  window->close();
  EXPECT_FALSE(edit->Visible());
  EXPECT_EQ(edit->DragIndex(), 0);
  QTest::mouseMove(view, at(60, 60));
  EXPECT_NEAR(edit->PointX(2), 40, 0.5);
}

TEST_F(CurveWindowTest, TheGraphIsPaintedAnewWhenTheCurveChanges) {
  const QImage before = view->grab().toImage();
  edit->optMode(1).Value(true);
  EXPECT_NE(view->grab().toImage(), before);
  EXPECT_TRUE(the<QRadioButton>("optMode(1)").isChecked());
  EXPECT_EQ(view->accessibleDescription().section(':', 0, 0), "2nd-degree");
}

/// The operator in front of the screen: windows come up as they do in the program.
class StickScreenTest : public StickWindowTest {
 protected:
  void SetUp() override {
    StickWindowTest::SetUp();
    window.reset();
    form->Visible(false);
    screen.makeWindows([this](Form& asked) { return makeStickWindow(asked, guard); });
    server.op.onShow = [this](Form& shown) { screen.showForm(shown, Modality::Modal); };
  }
  static void then(const std::function<void()>& act) { QTimer::singleShot(0, qApp, act); }
  static QDialog* top() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }

  QtOperator screen;
};

TEST_F(StickScreenTest, WindowsStandOverEachOtherAndGoBackInOrder) {
  std::vector<std::string> seen;
  then([&] {
    seen.push_back(top()->objectName().toStdString());
    then([&] {
      seen.push_back(top()->objectName().toStdString());
      click(child<QPushButton>(*top(), "cmdOK"));
    });
    click(child<QPushButton>(*top(), "cmdSens"));
    seen.push_back(top()->objectName().toStdString());
    click(child<QPushButton>(*top(), "cmdCancel"));
  });
  server.form.cmdStick.press();
  EXPECT_EQ(seen, (std::vector<std::string>{"frmCStick(0)", "frmXY", "frmCStick(0)"}));
  EXPECT_FALSE(form->Visible());
  EXPECT_EQ(top(), nullptr);
}

TEST_F(StickScreenTest, SticksThatAreSwitchedOffTakeTheirOpenWindowsWithThem) {
  then([&] {
    then([&] { guard([&] { server.form.chkStick.Value(0); }); });
    click(child<QPushButton>(*top(), "cmdSens"));
  });
  server.form.cmdStick.press();
  EXPECT_EQ(server.server.sticks.CStick[0], nullptr);
  EXPECT_EQ(top(), nullptr);
  server.form.chkStick.Value(1);
  bool again = false;
  then([&] {
    again = top() != nullptr;
    top()->close();
  });
  server.form.cmdStick.press();
  EXPECT_TRUE(again);
}

}  // namespace
}  // namespace vorlent
