#include "clientlink/frmConnect.h"

#include "clientlink/SessionTest.h"

namespace vorlent {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::IsEmpty;

using FrmConnect = RunningSessionTest;

const std::string Greeting = "Connection on a b 250 fmc1";

TEST_F(FrmConnect, IsIdleAtFirst) {
  EXPECT_TRUE(idle(0));
  EXPECT_TRUE(idle(1));
  EXPECT_EQ(session(0).TimerConn().Interval(), 100);
  EXPECT_EQ(session(0).FmcName(), "");
  EXPECT_EQ(session(0).MyID(), 0);
  EXPECT_EQ(session(1).MyID(), 1);
  EXPECT_EQ(sentWithin(1000), 0U);
}

TEST_F(FrmConnect, GreetingTakesItsStepsInOrder) {
  t.form.cmdSound.Enabled(true);
  t.form.cmdSound.Enabled.addView([this] { events.push_back("cmdSound"); });
  t.form.txtClients.Enabled.addView([this] { events.push_back("txtClients"); });
  session(0).Caption.addView(
      [this] { events.push_back("caption " + t.server.connect[0]->Caption()); });
  t.bus.onArrival = [this](const std::byte*) {
    EXPECT_EQ(t.form.FmcName(), "fmc1");
    EXPECT_FALSE(t.form.cmdSound.Enabled());
    EXPECT_FALSE(t.form.txtClients.Enabled());
    events.push_back("request");
  };
  t.bus.onWindowCall = [this] {
    EXPECT_FALSE(t.store.CycleRunning);
    events.push_back("window");
  };
  t.network.onSend = [this](const FakeNetwork::Sent& sent) {
    EXPECT_TRUE(t.store.CycleRunning);
    EXPECT_FALSE(session(0).IsUp());
    EXPECT_FALSE(session(0).TimerConn().Enabled());
    events.push_back("send " + sent.text);
  };
  t.deliver(0, Greeting);
  EXPECT_THAT(events,
              ElementsAre("1| " + Greeting, "2| " + Greeting, "1| " + Greeting,
                          "caption " + Greeting + " 5000", "1| Call from client 0",
                          "plan \\\\fmc1\\Tarnwick\\FMS\\plan.cfg", "cmdSound", "txtClients",
                          "request", "window", "1| Start sound ", "1| Init sound queue 1",
                          "1| Init sound queue 2", "send 81\\737-700\\0\\2047\\."));
  EXPECT_TRUE(live(0));
  EXPECT_EQ(session(0).TimerConn().Interval(), 250);
  EXPECT_EQ(session(0).FmcName(), "fmc1");
}

TEST_F(FrmConnect, GreetingIsLogged) {
  t.deliver(0, Greeting);
  EXPECT_THAT(t.log(), EndsWith(Greeting + "\r\n" + Greeting +
                                "\r\nCall from client 0\r\nStart sound \r\n"
                                "Init sound queue 1\r\nInit sound queue 2\r\n"));
}

TEST_F(FrmConnect, GreetingReadsTheEngineCountAtOnce) {
  t.bus.put<std::uint8_t>(0x0AEC, 4);
  ASSERT_EQ(t.store.EngineCount, 0);
  t.deliver(0, Greeting);
  EXPECT_EQ(t.store.EngineCount, 4);
  EXPECT_EQ(t.bus.requests, 1);
  EXPECT_THAT(sentTexts(), ElementsAre("81\\737-700\\4\\2047\\."));
}

TEST_F(FrmConnect, ReplyGoesWhereTheGreetingCameFrom) {
  t.deliver(1, Greeting, {"127.0.0.9", 4711});
  const auto sent = t.network.takeSent();
  ASSERT_EQ(sent.size(), 1U);
  EXPECT_EQ(sent[0].fromPort, 5001);
  EXPECT_EQ(sent[0].to.address, "127.0.0.9");
  EXPECT_EQ(sent[0].to.port, 4711);
}

TEST_F(FrmConnect, ReplyNamesTheAircraftFolderThatIsSelected) {
  t.form.cboDir.ListIndex(t.form.cboDir.indexOf("A-first"));
  t.deliver(0, Greeting);
  EXPECT_THAT(sentTexts(), ElementsAre("81\\A-first\\0\\2047\\."));
}

TEST_F(FrmConnect, ReplyTellsTheFlapIncrementAsItStands) {
  t.store.FlapIncrement = 1820;
  t.deliver(0, Greeting);
  EXPECT_THAT(sentTexts(), ElementsAre("81\\737-700\\0\\1820\\."));
}

TEST_F(FrmConnect, GreetingIsKnownByItsFirstThirteenCharacters) {
  t.deliver(0, "Connection ontario b c 250 fmc1");
  EXPECT_TRUE(live(0));
  EXPECT_EQ(session(0).FmcName(), "fmc1");
}

TEST_F(FrmConnect, WhatIsNearlyAGreetingIsShownAndDropped) {
  for (const std::string text : {"Connection o", "connection on a b 100 x", "CONNECTION ON a b 1 x",
                                 " Connection on a b 100 x", "Connection  on a b 100 x", "hello"}) {
    events.clear();
    t.deliver(0, text);
    EXPECT_THAT(events, ElementsAre("1| " + text));
    EXPECT_TRUE(idle(0)) << text;
    EXPECT_THAT(sentTexts(), IsEmpty());
  }
}

TEST_F(FrmConnect, StreamRunsAtTheIntervalThatTheClientAskedFor) {
  t.deliver(0, Greeting);
  EXPECT_EQ(sentWithin(249), 0U);
  EXPECT_EQ(sentWithin(1), 1U);
  EXPECT_EQ(sentWithin(2500), 10U);
}

TEST_F(FrmConnect, StreamIsTheLatestRecord) {
  t.deliver(0, Greeting);
  t.loop.advance(250);
  const auto sent = t.network.takeSent();
  EXPECT_EQ(sent.back().text, t.store.DataRecord);
  EXPECT_TRUE(sent.back().text.starts_with("Data "));
  EXPECT_TRUE(sent.back().text.ends_with("end "));
}

TEST_F(FrmConnect, PollRunsEvery60MillisecondsFromTheFirstGreetingOn) {
  t.loop.advance(5000);
  EXPECT_EQ(t.bus.requests, 0);
  t.deliver(0, Greeting);
  EXPECT_EQ(t.bus.requests, 1);
  t.loop.advance(59);
  EXPECT_EQ(t.bus.requests, 1);
  t.loop.advance(1);
  EXPECT_EQ(t.bus.requests, 2);
  t.loop.advance(600);
  // Eleven polls, and the cycle's own start: five writes and a poll.
  EXPECT_EQ(t.bus.requests, 1 + 11 + 6);
}

TEST_F(FrmConnect, PollStartsAnewWithEachGreeting) {
  t.greet(0);
  t.loop.advance(40);
  t.greet(1);
  t.bus.requests = 0;
  t.loop.advance(59);
  EXPECT_EQ(t.bus.requests, 0);
  t.loop.advance(1);
  EXPECT_EQ(t.bus.requests, 1);
}

TEST_F(FrmConnect, FirstClientShowsTheSimulatorsWindow) {
  t.greet(0);
  EXPECT_THAT(t.bus.windowCalls, ElementsAre("show 12"));
}

TEST_F(FrmConnect, FirstClientMaximisesTheSimulatorsWindowAndBringsItToTheFront) {
  t.form.Settings(2).Checked(true);
  t.form.Settings(3).Checked(true);
  t.greet(0);
  EXPECT_THAT(t.bus.windowCalls, ElementsAre("show maximised 12", "front 12"));
}

TEST_F(FrmConnect, SecondClientLeavesTheSimulatorsWindowAlone) {
  t.form.Settings(2).Checked(true);
  t.greet(0);
  t.bus.windowCalls.clear();
  t.greet(1);
  EXPECT_THAT(t.bus.windowCalls, IsEmpty());
  EXPECT_TRUE(live(1));
}

TEST_F(FrmConnect, FirstClientAfterAllHaveEndedShowsTheSimulatorsWindowAgain) {
  t.greet(0);
  t.form.cmdStopCts.press();
  t.loop.advance(200);
  t.bus.windowCalls.clear();
  t.greet(1);
  EXPECT_THAT(t.bus.windowCalls, ElementsAre("show 12"));
}

TEST_F(FrmConnect, OnlyTheFirstClientSetsTheCycleRunning) {
  t.greet(0);
  EXPECT_TRUE(t.store.CycleRunning);
  t.form.cmdStop.press();
  t.greet(1);
  EXPECT_FALSE(t.store.CycleRunning);
}

TEST_F(FrmConnect, SimulatorFromTheSecondOnGetsNoPausePulse) {
  t.store.FsVersionCode = 2;
  t.greet(0);
  t.loop.advance(5000);
  EXPECT_THAT(t.bus.writesTo(0x0264), IsEmpty());
}

TEST_F(FrmConnect, OldestSimulatorIsPausedAndLetGoOnce) {
  t.store.FsVersionCode = 1;
  t.greet(0);
  t.loop.advance(999);
  EXPECT_THAT(t.bus.writesTo(0x0264), IsEmpty());
  t.loop.advance(5000);
  EXPECT_THAT(t.bus.writesTo(0x0264), ElementsAre(FakeSimulatorBus::Write{0x0264, {1}},
                                                  FakeSimulatorBus::Write{0x0264, {0}}));
}

using FrmConnectStart = SessionTest;

TEST_F(FrmConnectStart, ReplyEndsWithTheRegionalDecimalMark) {
  t.regional.mark = ",";
  start();
  t.greet(0);
  EXPECT_THAT(sentTexts(), ElementsAre("81\\737-700\\0\\2047\\,"));
}

TEST_F(FrmConnectStart, ReplyEndsWithTheSeparatorWhereThereIsNoMark) {
  t.regional.mark = "";
  start();
  t.greet(0);
  EXPECT_THAT(sentTexts(), ElementsAre("81\\737-700\\0\\2047\\"));
}

TEST_F(FrmConnectStart, ReplySaysOneForTheOtherInterface) {
  t.bus.put<std::uint8_t>(0x6FFF, 1);
  start();
  t.greet(0);
  EXPECT_THAT(sentTexts(), ElementsAre("11\\737-700\\0\\2047\\."));
}

TEST_F(FrmConnectStart, ReplySaysTheSimulatorsNumberInDecimal) {
  t.bus.put<std::uint32_t>(0x3308, 0xFADE000A);
  start();
  t.greet(0);
  EXPECT_THAT(sentTexts(), ElementsAre("101\\737-700\\0\\2047\\."));
}

TEST_F(FrmConnectStart, ThreeClientsHaveThreePorts) {
  t.configure("Clients", "3");
  start();
  EXPECT_THAT(t.network.bound(), ElementsAre("127.0.0.1:5000", "127.0.0.1:5001", "127.0.0.1:5002"));
  EXPECT_FALSE(t.network.deliver(5003, display, Greeting));
}

TEST_F(FrmConnectStart, ThreeClientsHaveThreeStreams) {
  t.configure("Clients", "3");
  start();
  t.greet(0, "20", "one", 41000);
  t.greet(1, "50", "two", 41001);
  t.greet(2, "100", "three", 41002);
  EXPECT_THAT(events, Contains("1| Call from client 2"));
  EXPECT_EQ(session(2).Caption(), "Connection on a b 100 three 5002");
  t.network.takeSent();
  t.loop.advance(1000);
  std::map<std::uint16_t, int> received;
  for (const auto& sent : t.network.takeSent()) {
    EXPECT_EQ(sent.to.port - 41000, sent.fromPort - 5000);
    ++received[sent.to.port];
  }
  EXPECT_EQ(received, (std::map<std::uint16_t, int>{{41000, 50}, {41001, 20}, {41002, 10}}));
}

}  // namespace
}  // namespace vorlent
