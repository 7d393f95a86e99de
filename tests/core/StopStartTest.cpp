#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/Transcript.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Write = FakeSimulatorBus::Write;

class StopStart : public ::testing::Test {
 protected:
  StopStart() { host.start(); }
  void press(Button& button) {
    host.server.failureDomain.run([&button] { button.press(); });
  }
  std::size_t sentIn(int duration_ms) {
    host.network.takeSent();
    host.loop.advance(duration_ms);
    return host.network.takeSent().size();
  }

  TestServer host;
  frmMainClient& form = host.form;
};

TEST_F(StopStart, StopSilencesTheClientsAndNothingElse) {
  host.greet(0);
  host.loop.advance(1200);
  press(form.cmdStop);
  EXPECT_EQ(form.cmdStop.Caption(), "Start");
  EXPECT_TRUE(form.cmdSound.Enabled());
  EXPECT_FALSE(host.store.CycleRunning);
  const int requests = host.bus.requests;
  EXPECT_EQ(sentIn(600), 0U);
  EXPECT_EQ(host.bus.requests - requests, 10);
  EXPECT_EQ(host.loop.running(400), 1);
  EXPECT_TRUE(host.server.connect[0]->IsUp());
}

TEST_F(StopStart, StartLetsTheClientsHearAgain) {
  host.greet(0);
  press(form.cmdStop);
  press(form.cmdStop);
  EXPECT_EQ(form.cmdStop.Caption(), "Stop");
  EXPECT_FALSE(form.cmdSound.Enabled());
  EXPECT_TRUE(host.store.CycleRunning);
  EXPECT_EQ(sentIn(600), 6U);
}

TEST_F(StopStart, StartsOnlyTheSessionsThatHaveGreeted) {
  host.greet(1);
  press(form.cmdStop);
  press(form.cmdStop);
  EXPECT_FALSE(host.server.connect[0]->TimerConn().Enabled());
  EXPECT_TRUE(host.server.connect[1]->TimerConn().Enabled());
}

TEST_F(StopStart, TheFirstPressWithNobodyThereStarts) {
  EXPECT_EQ(form.cmdStop.Caption(), "Stop");
  press(form.cmdStop);
  EXPECT_EQ(form.cmdStop.Caption(), "Stop");
  EXPECT_TRUE(host.store.CycleRunning);
  EXPECT_FALSE(form.cmdSound.Enabled());
  EXPECT_EQ(host.loop.running(60), 0);
  EXPECT_EQ(host.loop.running(100), 0);
}

TEST_F(StopStart, StopClientsEndsEverySession) {
  host.greet(0);
  host.greet(1, "100", "fmc1", 40001);
  host.loop.advance(60);
  press(form.cmdStopCts);
  EXPECT_FALSE(host.server.connect[0]->IsUp());
  EXPECT_FALSE(host.server.connect[1]->IsUp());
  EXPECT_TRUE(form.cmdSound.Enabled());
  EXPECT_TRUE(form.txtClients.Enabled());
  host.network.takeSent();
  host.loop.advance(40);
  std::vector<std::string> texts;
  for (const auto& sent : host.network.takeSent()) texts.push_back(sent.text);
  EXPECT_THAT(texts, ElementsAre("Xterm", "Xterm", "Xterm", "Xterm"));
  EXPECT_EQ(sentIn(1000), 0U);
}

TEST_F(StopStart, StopClientsSaysNothingOfSoundsThatDoNotPlay) {
  press(form.cmdStopCts);
  EXPECT_EQ(form.sbStatusBar.panelText(1), "OK");
}

TEST_F(StopStart, StopClientsLeavesThePollAndTheRunningMark) {
  host.greet(0);
  press(form.cmdStopCts);
  EXPECT_EQ(host.loop.running(60), 1);
  EXPECT_TRUE(host.store.CycleRunning);
}

class PausePulse : public ::testing::Test {
 protected:
  void startAs(std::uint32_t simulator) {
    host.bus.put(0x3308, 0xFADE0000 + simulator);
    host.start();
    host.greet(0);
    host.bus.writes.clear();
  }

  TestServer host;
};

TEST_F(PausePulse, TheOldestSimulatorIsPausedAndLetGoOnce) {
  startAs(1);
  host.loop.advance(999);
  EXPECT_THAT(host.bus.writesTo(0x0264), IsEmpty());
  host.loop.advance(1);
  EXPECT_THAT(host.bus.writesTo(0x0264), ElementsAre(Write{0x0264, {1}}));
  host.loop.advance(1000);
  EXPECT_THAT(host.bus.writesTo(0x0264), ElementsAre(Write{0x0264, {1}}, Write{0x0264, {0}}));
  host.loop.advance(60000);
  EXPECT_EQ(host.bus.writesTo(0x0264).size(), 2U);
  EXPECT_EQ(host.loop.running(1000), 0);
}

TEST_F(PausePulse, ASimulatorThatIsPausedAlreadyIsLetGo) {
  startAs(1);
  host.bus.put(0x0264, std::uint8_t{1});
  host.loop.advance(60000);
  EXPECT_THAT(host.bus.writesTo(0x0264), ElementsAre(Write{0x0264, {0}}));
}

TEST_F(PausePulse, PausesAgainUntilTheFlagIsSeen) {
  startAs(1);
  host.bus.onRequest = [this](SendResult served, std::byte*) {
    host.bus.put(0x0264, std::uint8_t{0});
    return served;
  };
  host.loop.advance(3000);
  EXPECT_THAT(host.bus.writesTo(0x0264),
              ElementsAre(Write{0x0264, {1}}, Write{0x0264, {1}}, Write{0x0264, {1}}));
}

TEST_F(PausePulse, SimulatorTwoIsNotPaused) {
  startAs(2);
  host.loop.advance(60000);
  EXPECT_THAT(host.bus.writesTo(0x0264), IsEmpty());
  EXPECT_EQ(host.loop.running(1000), 0);
}

}  // namespace
}  // namespace vorlent
