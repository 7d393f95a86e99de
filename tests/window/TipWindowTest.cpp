#include "window/TipWindow.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "support/TestServer.h"
#include "window/QtOperator.h"
#include "window/widgets.h"

namespace vorlent {
namespace {

/// A server whose advice comes up in a window; everything else the recording operator takes.
class TipWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    screen.add(*server.server.tip, window);
    server.op.onShow = [this](Form& form) {
      if (&form == server.server.tip.get()) screen.showForm(form, Modality::Modal);
    };
    server.configure("ShowTip", "1");
  }

  /// What the operator does in the window that the start shows.
  void startAndThen(const std::function<void()>& act) {
    QTimer::singleShot(0, &window, act);
    server.start();
    ASSERT_EQ(server.store.Ticks, 0);
    ASSERT_EQ(server.form.sbStatusBar.panelText(1), "OK");
  }

  QCheckBox& notShow() { return child<QCheckBox>(window, "chkNotShow"); }
  QPushButton& exitButton() { return child<QPushButton>(window, "cmdExit"); }

  TestServer server;
  QtOperator screen;
  TipWindow window{*server.server.tip, [this](const std::function<void()>& work) {
                     server.server.failureDomain.run(work);
                   }};
};

TEST_F(TipWindowTest, StartWaitsForTheOperatorToReadTheCheckList) {
  bool seen = false;
  startAndThen([&] {
    seen = window.isVisible();
    EXPECT_TRUE(window.isModal());
    EXPECT_EQ(window.windowTitle(), "Please check....");
    EXPECT_TRUE(child<QLabel>(window, "Text1").text().startsWith("Please check the following:\n"));
    EXPECT_EQ(notShow().text(), "Do not show this window again");
    EXPECT_TRUE(notShow().isVisible());
    EXPECT_EQ(server.form.sbStatusBar.panelText(2), "");
    click(exitButton());
  });
  EXPECT_TRUE(seen);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(TipWindowTest, TickedBoxKeepsTheTipAwayFromTheNextStart) {
  startAndThen([&] {
    click(notShow());
    click(exitButton());
  });
  EXPECT_EQ(server.store.ShowTipValue, 0);
}

TEST_F(TipWindowTest, UntickedBoxShowsTheTipAgainAtTheNextStart) {
  startAndThen([&] { click(exitButton()); });
  EXPECT_EQ(server.store.ShowTipValue, 1);
}

TEST_F(TipWindowTest, CloseBoxTakesTheAnswerToo) {
  startAndThen([&] {
    click(notShow());
    window.close();
  });
  EXPECT_EQ(server.store.ShowTipValue, 0);
  EXPECT_FALSE(server.server.tip->Visible());
}

TEST_F(TipWindowTest, EscapeTakesTheAnswerToo) {
  startAndThen([&] {
    click(notShow());
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  EXPECT_EQ(server.store.ShowTipValue, 0);
}

TEST_F(TipWindowTest, AdviceWithoutTheOfferLeavesTheAnswerAlone) {
  server.store.ShowTipValue = 1;
  server.server.tip->chkNotShow.Value(1);
  QTimer::singleShot(0, &window, [&] {
    EXPECT_EQ(window.windowTitle(), "Something went wrong");
    EXPECT_FALSE(notShow().isVisible());
    click(exitButton());
  });
  server.server.tip->showModal("Something went wrong", "Empty the IP box.", false);
  EXPECT_EQ(server.store.ShowTipValue, 1);
  EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace vorlent
