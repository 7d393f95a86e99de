#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/Transcript.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using Shown = RecordingOperator::Shown;

/// The operator's answer to the tip window of a start.
class TipWindow : public ::testing::Test {
 protected:
  void startAnd(const std::function<void()>& whileShown) {
    host.op.onShow = [this, whileShown](const Form& form) {
      if (form.name() != "FrmTip") return;
      whileShown();
      tip.cmdExit.press();
    };
    host.start();
  }

  TestServer host;
  FrmTip& tip = *host.server.tip;
};

TEST_F(TipWindow, ShowsTheCheckListAtTheStartWhenItIsConfigured) {
  host.configure("ShowTip", "1");
  startAnd([&] {
    EXPECT_EQ(tip.Text1.Text(),
              "Please check the following:\n"
              "\n"
              "\t1. There is a network card (ethernet adapter) in your computer\n"
              "\t2. Your computer has an IP address in the local range\n"
              "\t3. Your client PC's have IP addresses in the same range\n"
              "\t4. Your regional settings on all the PC's in your network are the same\n"
              "\t5. DirectX 8 or later is installed on this computer\n"
              "\t6. FS is running\n"
              "\t7. Tarnwick is running on all your clients\n"
              "\n"
              "Recommendations:\n"
              "\n"
              "\t1. Your firewall may need reconfiguration");
    EXPECT_TRUE(tip.chkNotShow.Visible());
    EXPECT_EQ(tip.chkNotShow.Caption(), "Do not show this window again");
    EXPECT_TRUE(host.op.pointers.empty());
    EXPECT_EQ(host.bus.requests, 0);
    EXPECT_EQ(host.form.sbStatusBar.panelText(2), "");
  });
  EXPECT_THAT(host.op.shown, ElementsAre(Shown{"frmMainClient", "Vorlent", false},
                                         Shown{"FrmTip", "Please check....", true}));
  EXPECT_THAT(host.op.hidden, ElementsAre("FrmTip"));
}

TEST_F(TipWindow, IsNotShownForAnyOtherValueThanOne) {
  host.configure("ShowTip", "2");
  host.start();
  EXPECT_THAT(host.op.shown, ElementsAre(Shown{"frmMainClient", "Vorlent", false}));
}

TEST_F(TipWindow, TickedIsNotShownAtTheNextStart) {
  host.configure("ShowTip", "1");
  startAnd([this] { tip.chkNotShow.Value(1); });
  EXPECT_EQ(host.store.ShowTipValue, 0);
  host.server.failureDomain.run([this] { host.form.cmdExit4.press(); });
  EXPECT_EQ(clsIniRw().ReadKey("Vorlent", "ShowTip", host.folder / "Vorlent.ini").asText(), "0");
}

TEST_F(TipWindow, UntickedIsShownAgain) {
  host.configure("ShowTip", "1");
  startAnd([] {});
  EXPECT_EQ(host.store.ShowTipValue, 1);
}

TEST_F(TipWindow, ComesUpUntickedEachTime) {
  tip.showModal("Please check....", "list", true);
  tip.chkNotShow.Value(1);
  tip.close();
  tip.showModal("Please check....", "list", true);
  EXPECT_EQ(tip.chkNotShow.Value(), 0);
  tip.close();
  EXPECT_EQ(host.store.ShowTipValue, 1);
}

TEST_F(TipWindow, GivesAdviceWhenTheAddressCannotBeBound) {
  host.configure("Ip", "10.0.0.9");
  startAnd([this] {
    EXPECT_EQ(tip.Text1.Text(),
              "This program will find its IP address automatically, if you empty the IP box and "
              "start it again.\n"
              "\n"
              "This will go wrong if you start both Vorlent and Tarnwick on the same machine. The "
              "program that is started secondly will be unable to use that same IP address. In "
              "that case you need to add an extra IP address.\n"
              "\n"
              "You can type one manually if you want. If it is not an IP address, or not on this "
              "network, the error will be displayed.");
    EXPECT_FALSE(tip.chkNotShow.Visible());
    EXPECT_EQ(host.op.pointers.back(), Pointer::Normal);
    EXPECT_EQ(host.form.sbStatusBar.panelText(1), "OK");
    EXPECT_EQ(host.loop.running(400), 1);
  });
  EXPECT_EQ(host.op.takeBoxes().size(), 1U);
  EXPECT_THAT(host.op.shown,
              ElementsAre(Shown{"frmMainClient", "Vorlent", false},
                          Shown{"FrmTip", "Something went wrong with the network...", true}));
  EXPECT_TRUE(host.store.BindError);
}

TEST_F(TipWindow, WithoutTheOfferLeavesTheChoiceOfTheCheckList) {
  host.store.ShowTipValue = 1;
  tip.chkNotShow.Value(1);
  tip.showModal("Something went wrong with the network...", "advice", false);
  tip.cmdExit.press();
  EXPECT_EQ(host.store.ShowTipValue, 1);
}

TEST_F(TipWindow, TheHelpMenusListDoesNotTakeThePlaceOfTheStarts) {
  host.configure("ShowTip", "1");
  int shown = 0;
  startAnd([&] {
    if (++shown > 1) return;
    host.form.mnuHelp(2).press();
    EXPECT_TRUE(tip.chkNotShow.Visible());
    tip.chkNotShow.Value(1);
  });
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(host.store.ShowTipValue, 0);
}

TEST_F(TipWindow, ClosedWithoutBeingShownDecidesNothing) {
  host.store.ShowTipValue = 0;
  tip.close();
  EXPECT_EQ(host.store.ShowTipValue, 0);
  EXPECT_TRUE(host.op.hidden.empty());
}

TEST_F(TipWindow, AnExitWhileItIsShownEndsTheStart) {
  host.configure("ShowTip", "1");
  host.op.onShow = [this](const Form& form) {
    if (form.name() == "FrmTip")
      host.server.failureDomain.run([this] { host.form.mnuFile(2).press(); });
  };
  host.start();
  EXPECT_EQ(host.exitStatus(), 0);
  EXPECT_EQ(host.bus.requests, 0);
  EXPECT_EQ(host.log(), "Save configuration\r\nVorlent close\r\nQuit\r\n");
}

}  // namespace
}  // namespace vorlent
