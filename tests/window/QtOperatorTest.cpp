#include "window/QtOperator.h"

#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <QMessageBox>
#include <QTimer>
#include <optional>
#include <utility>

#include "base/controls.h"
#include "platform/qt/QtEventLoop.h"
#include "window/widgets.h"

namespace vorlent {
namespace {

class QtOperatorTest : public testing::Test {
 protected:
  QtOperatorTest() {
    screen.add(mainForm, mainWindow);
    screen.add(tipForm, tipWindow);
  }

  static QMessageBox* openBox() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  }
  /// What the operator does as soon as events are dispatched.
  static void then(const std::function<void()>& act) { QTimer::singleShot(0, qApp, act); }
  static std::optional<Qt::CursorShape> pointer() {
    const QCursor* cursor = QApplication::overrideCursor();
    return cursor ? std::optional(cursor->shape()) : std::nullopt;
  }

  QtOperator screen;
  Form mainForm{"frmMainClient"};
  Form tipForm{"FrmTip"};
  QMainWindow mainWindow;
  QDialog tipWindow;
};

TEST_F(QtOperatorTest, MessageBoxShowsTextTitleAndIconAndWaits) {
  const std::pair<BoxIcon, QMessageBox::Icon> icons[] = {
      {BoxIcon::Plain, QMessageBox::NoIcon},
      {BoxIcon::Critical, QMessageBox::Critical},
      {BoxIcon::Exclamation, QMessageBox::Warning}};
  for (const auto& [icon, shownIcon] : icons) {
    bool seen = false;
    then([&, expected = shownIcon] {
      QMessageBox* box = openBox();
      ASSERT_NE(box, nullptr);
      seen = true;
      EXPECT_EQ(box->text(), "Master conflict: <Please> resolve\nNo FMS possible");
      EXPECT_EQ(box->textFormat(), Qt::PlainText);
      EXPECT_EQ(box->windowTitle(), "Vorlent");
      EXPECT_EQ(box->icon(), expected);
      QTest::keyClick(box, Qt::Key_Enter);
    });
    screen.messageBox("Master conflict: <Please> resolve\nNo FMS possible", icon, "Vorlent");
    EXPECT_TRUE(seen);
    EXPECT_EQ(openBox(), nullptr);
  }
}

TEST_F(QtOperatorTest, HourglassIsAsOftenAskedForAsItLikesAndGoesAtOnce) {
  screen.pointer(Pointer::Hourglass);
  screen.pointer(Pointer::Hourglass);
  EXPECT_EQ(pointer(), Qt::WaitCursor);
  screen.pointer(Pointer::Normal);
  EXPECT_EQ(pointer(), std::nullopt);
  screen.pointer(Pointer::Normal);
  EXPECT_EQ(pointer(), std::nullopt);
}

TEST_F(QtOperatorTest, BoxInTheMiddleOfLongWorkHasTheArrow) {
  screen.pointer(Pointer::Hourglass);
  std::optional<Qt::CursorShape> overBox;
  then([&] {
    overBox = pointer();
    openBox()->accept();
  });
  screen.messageBox("IP Address in use", BoxIcon::Critical, "Vorlent");
  EXPECT_EQ(overBox, Qt::ArrowCursor);
  EXPECT_EQ(pointer(), Qt::WaitCursor);
  screen.pointer(Pointer::Normal);
}

TEST_F(QtOperatorTest, NonModalFormIsSeenAndDoesNotHoldUp) {
  screen.showForm(mainForm, Modality::NonModal);
  EXPECT_TRUE(mainWindow.isVisible());
  EXPECT_TRUE(mainForm.Visible());
  screen.hideForm(mainForm);
  EXPECT_FALSE(mainWindow.isVisible());
  EXPECT_FALSE(mainForm.Visible());
}

TEST_F(QtOperatorTest, ModalFormHoldsUpUntilItIsHiddenWhileEventsGoOn) {
  bool seen = false;
  then([&] {
    seen = tipWindow.isVisible() && tipForm.Visible();
    screen.hideForm(tipForm);
  });
  screen.showForm(tipForm, Modality::Modal);
  EXPECT_TRUE(seen);
  EXPECT_FALSE(tipWindow.isVisible());
}

TEST_F(QtOperatorTest, ModalFormThatClosesItselfIsLeft) {
  then([&] { tipForm.close(); });
  screen.showForm(tipForm, Modality::Modal);
  EXPECT_FALSE(tipWindow.isVisible());
}

TEST_F(QtOperatorTest, FormWithoutAWindowDoesNotComeIntoSight) {
  Form windowless("frmCStick(0)");
  windowless.Visible(true);
  screen.showForm(windowless, Modality::Modal);
  EXPECT_FALSE(windowless.Visible());
}

TEST_F(QtOperatorTest, EndOfTheProcessLeavesModalFormAndMessageBox) {
  QtEventLoop loop;
  std::vector<std::string> steps;
  then([&] {
    screen.showForm(tipForm, Modality::Modal);
    steps.push_back("form");
  });
  then([&] {
    screen.messageBox("Reading: time-out", BoxIcon::Critical, "Vorlent");
    steps.push_back("box");
  });
  then([&] {
    EXPECT_TRUE(tipWindow.isVisible());
    EXPECT_NE(openBox(), nullptr);
    loop.end(1);
  });
  EXPECT_EQ(loop.exec(), 1);
  EXPECT_EQ(steps, (std::vector<std::string>{"box", "form"}));
  EXPECT_FALSE(tipWindow.isVisible());
}

TEST_F(QtOperatorTest, LeavingWithoutABoxWorksAtOnce) {
  bool worked = false;
  screen.leave([&] { worked = true; });
  EXPECT_TRUE(worked);
}

TEST_F(QtOperatorTest, LeavingWaitsForTheRoutineThatShowedABox) {
  std::vector<std::string> steps;
  then([&] {
    ASSERT_NE(openBox(), nullptr);
    screen.leave([&] { steps.push_back("left"); });
    steps.push_back("asked");
  });
  screen.messageBox("Connection failed", BoxIcon::Critical, "Initialization error");
  steps.push_back("routine went on");
  ASSERT_TRUE(QTest::qWaitFor([&] { return steps.size() == 3; }));
  EXPECT_EQ(steps, (std::vector<std::string>{"asked", "routine went on", "left"}));
}

TEST_F(QtOperatorTest, LeavingAcknowledgesBoxesThatCameOneOverAnother) {
  std::vector<std::string> steps;
  then([&] {
    screen.messageBox("second", BoxIcon::Plain, "Vorlent");
    steps.push_back("second");
  });
  then([&] { screen.leave([&] { steps.push_back("left"); }); });
  screen.messageBox("first", BoxIcon::Plain, "Vorlent");
  steps.push_back("first");
  ASSERT_TRUE(QTest::qWaitFor([&] { return steps.size() == 3; }));
  EXPECT_EQ(steps, (std::vector<std::string>{"second", "first", "left"}));
}

TEST_F(QtOperatorTest, NoBoxComesUpAnyMoreWhenLeaving) {
  screen.leave([] {});
  bool dispatched = false;
  then([&] { dispatched = true; });
  screen.messageBox("Writing: time-out", BoxIcon::Critical, "Vorlent");
  EXPECT_FALSE(dispatched);
  ASSERT_TRUE(QTest::qWaitFor([&] { return dispatched; }));
}

TEST_F(QtOperatorTest, WindowMayGoBeforeItsForm) {
  {
    QDialog shortLived;
    screen.add(tipForm, shortLived);
    screen.showForm(tipForm, Modality::NonModal);
  }
  screen.hideForm(tipForm);
  EXPECT_FALSE(tipForm.Visible());
}

}  // namespace
}  // namespace vorlent
