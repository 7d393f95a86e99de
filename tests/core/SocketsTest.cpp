#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/Transcript.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Box = RecordingOperator::Box;

const Box BindFailed = plainBox(
    "Incorrect PC Name or IP address,\nplease empty IP box and restart Vorlent\n\n"
    "Port 5000, address 10.0.0.9");

class Sockets : public ::testing::Test {
 protected:
  void failBinding(std::uint16_t port, int number, const std::string& description = "why") {
    host.network.bindErrors.emplace(port, RuntimeError(number, description));
  }
  void rescan() {
    host.server.failureDomain.run([this] { host.form.mnuNetwork(0).press(); });
  }

  TestServer host;
};

TEST_F(Sockets, AnEmptyAddressFillsItselfAndBindsAllSessions) {
  host.configure("Clients", "3");
  host.start();
  EXPECT_EQ(host.form.txtIP.Text(), "127.0.0.1");
  EXPECT_THAT(host.network.bound(),
              ElementsAre("127.0.0.1:5000", "127.0.0.1:5001", "127.0.0.1:5002"));
  EXPECT_TRUE(host.store.SockOk);
  EXPECT_FALSE(host.store.BindError);
}

TEST_F(Sockets, EachSessionKnowsItsSlot) {
  host.configure("Clients", "3");
  host.start();
  EXPECT_EQ(host.server.connect[0]->MyID(), 0);
  EXPECT_EQ(host.server.connect[1]->MyID(), 1);
  EXPECT_EQ(host.server.connect[2]->MyID(), 2);
}

TEST_F(Sockets, TheMachinesOwnAddressTypedBindsAllSessions) {
  host.network.ownAddress = "192.168.0.4";
  host.configure("Ip", "192.168.0.4");
  host.start();
  EXPECT_THAT(host.network.bound(), ElementsAre("192.168.0.4:5000", "192.168.0.4:5001"));
}

TEST_F(Sockets, AnotherValidAddressBindsTheFirstSessionOnly) {
  host.network.otherAddresses = {"10.0.0.7"};
  host.configure("Ip", "10.0.0.7");
  host.start();
  EXPECT_THAT(host.network.bound(), ElementsAre("10.0.0.7:5000"));
  EXPECT_EQ(host.form.txtIP.Text(), "10.0.0.7");
  EXPECT_TRUE(host.store.SockOk);
  EXPECT_FALSE(host.store.BindError);
}

TEST_F(Sockets, AnAddressThatCannotBeBoundIsTold) {
  host.configure("Ip", "10.0.0.9");
  host.start();
  EXPECT_THAT(host.op.takeBoxes(), ElementsAre(BindFailed));
  EXPECT_FALSE(host.store.SockOk);
  EXPECT_TRUE(host.store.BindError);
  EXPECT_THAT(host.network.bound(), IsEmpty());
  EXPECT_EQ(host.exitStatus(), std::nullopt);
}

TEST_F(Sockets, MissingProtocolsAreToldInTheirWords) {
  failBinding(5000, 10047);
  host.start();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(criticalBox(
                  "Please check your network setup. Protocols not available?\n\nPort 5000, "
                  "address 127.0.0.1")));
  EXPECT_EQ(host.exitStatus(), std::nullopt);
}

TEST_F(Sockets, AnAddressInUseIsToldInItsWords) {
  failBinding(5000, 10048);
  host.start();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(criticalBox(
                  "IP Address in use, maybe for Vorlent or another Tarnwick on this machine?\n\n"
                  "Port 5000, address 127.0.0.1")));
}

TEST_F(Sockets, AnAddressOfAnotherMachineIsToldInItsWords) {
  failBinding(5000, 10049);
  host.start();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(criticalBox("IP Address does not exist on this machine\n\nPort 5000, "
                                      "address 127.0.0.1")));
}

TEST_F(Sockets, AnyOtherErrorIsToldByItsDescription) {
  failBinding(5000, 10013, "Permission denied");
  host.start();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(Box{"Permission denied\n\nPort 5000, address 127.0.0.1",
                              BoxIcon::Exclamation, "Vorlent"}));
  EXPECT_EQ(host.form.sbStatusBar.panelText(1), "OK");
}

TEST_F(Sockets, SessionsAfterAFailingOneStayUnbound) {
  host.configure("Clients", "3");
  failBinding(5001, 10048);
  host.start();
  EXPECT_EQ(host.op.takeBoxes().size(), 1U);
  EXPECT_THAT(host.network.bound(), ElementsAre("127.0.0.1:5000"));
  EXPECT_EQ(host.server.connect[2]->MyID(), 0);
}

TEST_F(Sockets, AFailureWithTheOwnAddressShowsNoAdvice) {
  failBinding(5000, 10048);
  host.start();
  EXPECT_EQ(host.op.takeBoxes().size(), 1U);
  EXPECT_FALSE(host.store.BindError);
  EXPECT_EQ(host.op.shown.size(), 1U);
}

TEST_F(Sockets, RescanBindsWhatCouldNotBeBoundBefore) {
  failBinding(5001, 10048);
  host.start();
  EXPECT_EQ(host.op.takeBoxes().size(), 1U);
  host.network.bindErrors.clear();
  host.op.pointers.clear();
  rescan();
  EXPECT_THAT(host.network.bound(), ElementsAre("127.0.0.1:5000", "127.0.0.1:5001"));
  EXPECT_THAT(host.op.pointers, ElementsAre(Pointer::Hourglass, Pointer::Normal));
}

TEST_F(Sockets, RescanWithATypedAddressRebindsTheFirstSessionOnly) {
  host.network.otherAddresses = {"10.0.0.7"};
  host.start();
  host.form.txtIP.Text("10.0.0.7");
  rescan();
  EXPECT_THAT(host.network.bound(), ElementsAre("10.0.0.7:5000", "127.0.0.1:5001"));
}

TEST_F(Sockets, TheBindErrorStaysUntilABindSucceeds) {
  host.configure("Ip", "10.0.0.9");
  host.start();
  EXPECT_EQ(host.op.takeBoxes().size(), 1U);
  host.form.txtIP.Text("");
  rescan();
  EXPECT_TRUE(host.store.BindError);
  EXPECT_TRUE(host.store.SockOk);
  host.form.txtIP.loseFocus();
  EXPECT_EQ(host.op.takeBoxes().size(), 0U);
  EXPECT_FALSE(host.store.BindError);
}

TEST_F(Sockets, LeavingTheAddressBoxRebindsTheFirstSessionInUpperCase) {
  host.network.otherAddresses = {"COCKPIT"};
  host.start();
  host.form.txtIP.Text("cockpit");
  host.form.txtIP.loseFocus();
  EXPECT_EQ(host.form.txtIP.Text(), "COCKPIT");
  EXPECT_THAT(host.network.bound(), ElementsAre("COCKPIT:5000", "127.0.0.1:5001"));
  EXPECT_TRUE(host.store.SockOk);
}

TEST_F(Sockets, LeavingTheAddressBoxWithAWrongOneIsTold) {
  host.start();
  host.form.txtIP.Text("nowhere");
  host.form.txtIP.loseFocus();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(plainBox("Incorrect PC Name or IP address,\nplease empty IP box and "
                                   "restart Vorlent\n\nPort 5000, address NOWHERE")));
  EXPECT_FALSE(host.store.SockOk);
  EXPECT_THAT(host.network.bound(), ElementsAre("127.0.0.1:5001"));
}

TEST_F(Sockets, AnAddressThatTheMachineHasNoMoreIsToldWithTheRemedy) {
  host.configure("Ip", "10.0.0.9");
  host.start();
  host.op.takeBoxes();
  EXPECT_THAT(host.log(),
              HasSubstr("Address 10.0.0.9 is none of this machine, which has 127.0.0.1: "
                        "empty the IP box and start again"));
}

TEST_F(Sockets, AFaultOfALaterSessionNamesItsPort) {
  failBinding(5001, 10048);
  host.start();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(criticalBox("IP Address in use, maybe for Vorlent or another Tarnwick on "
                                      "this machine?\n\nPort 5001, address 127.0.0.1")));
}

}  // namespace
}  // namespace vorlent
