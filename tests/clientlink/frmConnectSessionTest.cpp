#include <algorithm>

#include "clientlink/SessionTest.h"

namespace vorlent {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class FrmConnectSession : public RunningSessionTest {
 protected:
  void SetUp() override {
    RunningSessionTest::SetUp();
    t.greet(0, "100", "fmc1", DisplayPort);
    t.network.takeSent();
    events.clear();
  }
  /// Where the next record goes.
  Endpoint streamTarget() {
    t.network.takeSent();
    t.loop.advance(100);
    const auto sent = t.network.takeSent();
    return sent.empty() ? Endpoint{} : sent.back().to;
  }
  std::string logSince(std::size_t length) const { return t.log().substr(length); }
};

TEST_F(FrmConnectSession, MessageFromAnotherAddressIsToldAndDropped) {
  t.store.ReceivedText = "before";
  t.deliver(0, "p P 1 2 ", stranger);
  EXPECT_THAT(commands->take(), IsEmpty());
  EXPECT_THAT(events,
              ElementsAre(AllOf(HasSubstr("1| "), HasSubstr("127.0.0.1"), HasSubstr("127.0.0.2"))));
  EXPECT_EQ(t.store.ReceivedText, "before");
}

TEST_F(FrmConnectSession, MessagesFromAnotherAddressAreToldOnceASecond) {
  for (int message = 0; message < 20; ++message) {
    t.deliver(0, "p P 1 2 ", stranger);
    t.loop.advance(100);
  }
  EXPECT_EQ(std::count(events.begin(), events.end(),
                       "1| Client 0 is 127.0.0.1, dropped a message from 127.0.0.2"),
            2);
}

TEST_F(FrmConnectSession, GreetingFromAnotherAddressIsDropped) {
  t.deliver(0, "Connection on a b 50 thief", stranger);
  EXPECT_THAT(sentTexts(), IsEmpty());
  EXPECT_EQ(session(0).FmcName(), "fmc1");
  EXPECT_EQ(session(0).TimerConn().Interval(), 100);
}

TEST_F(FrmConnectSession, StreamStaysWithTheAddressThatGreeted) {
  t.deliver(0, "hello", {"127.0.0.2", 50000});
  const Endpoint target = streamTarget();
  EXPECT_EQ(target.address, "127.0.0.1");
  EXPECT_EQ(target.port, 40000);
}

TEST_F(FrmConnectSession, StreamFollowsThePortOfItsAddress) {
  t.deliver(0, "p P 1 2 ", {"127.0.0.1", 40077});
  EXPECT_THAT(commands->take(), ElementsAre(CommandCall{"button", 1, 2}));
  EXPECT_EQ(streamTarget().port, 40077);
}

TEST_F(FrmConnectSession, RestartedDisplayTakesItsStreamUpAgain) {
  t.deliver(0, "Connection on a b 100 fmc1", {"127.0.0.1", 40078});
  EXPECT_THAT(sentTexts(), IsEmpty());
  EXPECT_EQ(streamTarget().port, 40078);
}

TEST_F(FrmConnectSession, SlotOfAnotherSessionIsFreeForAnotherAddress) {
  t.deliver(1, "Connection on a b 100 fmc1", stranger);
  EXPECT_TRUE(live(1));
}

TEST_F(FrmConnectSession, EndedSessionIsFreeForAnotherAddress) {
  t.form.cmdStopCts.press();
  t.loop.advance(100);
  t.deliver(0, "Connection on a b 100 fmc1", stranger);
  EXPECT_TRUE(live(0));
  EXPECT_EQ(streamTarget().address, "127.0.0.2");
}

TEST_F(FrmConnectSession, ClientThatGoesAwayIsNotNoticed) {
  EXPECT_EQ(sentWithin(5 * 60 * 1000), 3000U);
  EXPECT_TRUE(live(0));
}

TEST_F(FrmConnectSession, EndIsToldTwiceAndThenThereIsSilence) {
  t.form.cmdStopCts.press();
  EXPECT_FALSE(session(0).IsUp());
  EXPECT_TRUE(session(0).Started());
  EXPECT_THAT(sentTexts(), IsEmpty());
  t.loop.advance(99);
  EXPECT_THAT(sentTexts(), IsEmpty());
  t.loop.advance(1);
  EXPECT_THAT(sentTexts(), ElementsAre("Xterm", "Xterm"));
  EXPECT_TRUE(idle(0));
  EXPECT_EQ(sentWithin(10000), 0U);
}

TEST_F(FrmConnectSession, EndGivesBackTheControls) {
  EXPECT_FALSE(t.form.txtClients.Enabled());
  t.form.cmdStopCts.press();
  EXPECT_TRUE(t.form.cmdSound.Enabled());
  EXPECT_TRUE(t.form.txtClients.Enabled());
}

TEST_F(FrmConnectSession, EndOfOneIsTheRecordOfTheOthersUntilTheNextPoll) {
  t.form.cmdStopCts.press();
  t.loop.advance(100);
  t.greet(0, "7", "fmc1", 41000);
  t.greet(1, "10", "fmc1", 41001);
  t.loop.advance(60);  // a poll
  session(0).IsUp(false);
  t.network.takeSent();
  t.loop.advance(10);
  const auto sent = t.network.takeSent();
  ASSERT_EQ(sent.size(), 3U);
  EXPECT_EQ(sent[0].to.port, 41000);
  EXPECT_EQ(sent[1].to.port, 41000);
  EXPECT_EQ(sent[2].to.port, 41001);
  for (const auto& datagram : sent) EXPECT_EQ(datagram.text, "Xterm");
  t.loop.advance(60);
  EXPECT_TRUE(t.network.takeSent().back().text.starts_with("Data "));
}

TEST_F(FrmConnectSession, PollGoesOnAfterAllSessionsHaveEnded) {
  t.form.cmdStopCts.press();
  t.loop.advance(100);
  t.bus.requests = 0;
  t.loop.advance(600);
  EXPECT_EQ(t.bus.requests, 10);
}

TEST_F(FrmConnectSession, StopPausesTheStreamAndStartResumesIt) {
  t.form.cmdStop.press();
  EXPECT_EQ(t.form.cmdStop.Caption(), "Start");
  EXPECT_FALSE(t.store.CycleRunning);
  EXPECT_TRUE(t.form.cmdSound.Enabled());
  EXPECT_EQ(sentWithin(1000), 0U);
  EXPECT_TRUE(session(0).IsUp());
  t.form.cmdStop.press();
  EXPECT_EQ(t.form.cmdStop.Caption(), "Stop");
  EXPECT_TRUE(t.store.CycleRunning);
  EXPECT_FALSE(t.form.cmdSound.Enabled());
  EXPECT_EQ(sentWithin(1000), 10U);
}

TEST_F(FrmConnectSession, PausedSessionTakesCommands) {
  t.form.cmdStop.press();
  EXPECT_THAT(callsOf("p P 1 2 "), ElementsAre(CommandCall{"button", 1, 2}));
}

TEST_F(FrmConnectSession, StartLeavesIdleSlotsAlone) {
  t.form.cmdStop.press();
  t.form.cmdStop.press();
  EXPECT_TRUE(idle(1));
}

TEST_F(FrmConnectSession, SessionThatIsStoppedWhilePausedEndsWithTheNextStart) {
  t.form.cmdStop.press();
  t.form.cmdStopCts.press();
  EXPECT_EQ(sentWithin(1000), 0U);
  t.form.cmdStop.press();
  t.loop.advance(1000);
  EXPECT_THAT(sentTexts(), ElementsAre("Xterm", "Xterm"));
  EXPECT_TRUE(idle(0));
}

TEST_F(FrmConnectSession, SocketThatWouldBlockLosesTheDatagramAndLogsTwoLines) {
  const std::size_t before = t.log().size();
  t.network.sendError = std::make_shared<RuntimeError>(10035, "SckWouldBlock");
  t.loop.advance(100);
  EXPECT_EQ(logSince(before), "SckWouldblock 10035\r\n10035 10035\r\n");
  EXPECT_THAT(sentTexts(), IsEmpty());
  EXPECT_THAT(events, IsEmpty());
  t.network.sendError.reset();
  t.loop.advance(100);
  EXPECT_EQ(sentTexts().size(), 1U);
}

TEST_F(FrmConnectSession, WouldBlockIsKnownByItsTextAndByItsNumber) {
  std::size_t before = t.log().size();
  t.network.sendError = std::make_shared<RuntimeError>(7, "SckWouldBlock");
  t.loop.advance(100);
  EXPECT_EQ(logSince(before), "SckWouldblock 7\r\n");
  before = t.log().size();
  t.network.sendError = std::make_shared<RuntimeError>(10035, "busy");
  t.loop.advance(100);
  EXPECT_EQ(logSince(before), "10035 10035\r\n");
}

TEST_F(FrmConnectSession, OtherSendErrorLosesTheDatagramInSilence) {
  const std::size_t before = t.log().size();
  t.network.sendError = std::make_shared<RuntimeError>(10065, "No route to host");
  t.loop.advance(1000);
  EXPECT_EQ(logSince(before), "");
  EXPECT_EQ(t.exitStatus(), std::nullopt);
  EXPECT_TRUE(live(0));
}

TEST_F(FrmConnectSession, GreetingWhoseReplyIsLostBringsTheSessionUp) {
  t.network.sendError = std::make_shared<RuntimeError>(10035, "SckWouldBlock");
  t.greet(1);
  EXPECT_TRUE(t.log().ends_with("Call from client 1\r\nSckWouldblock 10035\r\n10035 10035\r\n"));
  t.network.sendError.reset();
  EXPECT_TRUE(live(1));
}

TEST_F(FrmConnectSession, SimulatorThatFailsDuringAGreetingEndsTheProcessWithoutAReply) {
  t.bus.unansweredRequests = 1000;
  t.greet(1);
  EXPECT_EQ(t.exitStatus(), 1);
  EXPECT_THAT(sentTexts(), IsEmpty());
  EXPECT_FALSE(session(1).IsUp());
}

}  // namespace
}  // namespace vorlent
