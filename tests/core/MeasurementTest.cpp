#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/Transcript.h"

namespace vorlent {
namespace {

/// The measuring timer of 400 ms and the cycle timer that it starts, which has the same period.
class Measurement : public ::testing::Test {
 protected:
  void press(Button& button) {
    host.server.failureDomain.run([&button] { button.press(); });
  }
  /// Ends the cycle timer if it runs, and nothing else.
  bool cycleTimerRuns() {
    const int before = host.loop.running(400);
    host.form.killCycleTimer();
    return host.loop.running(400) < before;
  }

  TestServer host;
};

TEST_F(Measurement, TheFirstOneRunsAgainstTickCountZero) {
  host.start();
  const double now_ms = static_cast<double>(host.loop.now_ms()) + 400;
  host.loop.advance(400);
  EXPECT_EQ(host.store.Ticks, 1);
  EXPECT_EQ(host.store.EffectivePoll, static_cast<float>(50 * now_ms / 400));
}

TEST_F(Measurement, OnTimeTheEffectivePollIsTheConfiguredOne) {
  host.start();
  host.loop.advance(800);
  EXPECT_EQ(host.store.Ticks, 2);
  EXPECT_EQ(host.store.EffectivePoll, 50.F);
}

TEST_F(Measurement, ALateTickStretchesTheEffectivePoll) {
  host.start();
  host.loop.advance(800);
  host.loop.sleep(600);
  host.loop.advance(0);
  EXPECT_EQ(host.store.Ticks, 3);
  EXPECT_EQ(host.store.EffectivePoll, 75.F);
}

TEST_F(Measurement, TheThirdOneIsWhatStays) {
  host.start();
  host.loop.advance(1200);
  host.form.txtPoll.Text("80");
  host.loop.sleep(1000);
  host.loop.advance(4000);
  EXPECT_EQ(host.store.Ticks, 3);
  EXPECT_EQ(host.store.EffectivePoll, 50.F);
}

TEST_F(Measurement, AnEmptyPollBoxCountsAsZero) {
  host.start();
  host.form.txtPoll.Text("none");
  host.loop.advance(1200);
  EXPECT_EQ(host.store.EffectivePoll, 0.F);
}

TEST_F(Measurement, SurvivesTheWrapOfTheTickCount) {
  host.loop.advance(static_cast<int>(2147483647));
  host.loop.advance(static_cast<int>(2147483647 - 1000000 - 600 - 700));
  host.start();
  host.loop.advance(800);
  EXPECT_GT(host.loop.now_ms(), 4294967296);
  EXPECT_EQ(host.store.EffectivePoll, 50.F);
}

TEST_F(Measurement, TheCycleNeverStartsBefore1200ms) {
  host.start();
  press(host.form.cmdStop);
  host.loop.advance(1199);
  EXPECT_FALSE(cycleTimerRuns());
}

TEST_F(Measurement, TheCycleStartsAtTheThirdTick) {
  host.start();
  press(host.form.cmdStop);
  host.loop.advance(1200);
  EXPECT_EQ(host.loop.running(400), 1);
  EXPECT_TRUE(cycleTimerRuns());
}

TEST_F(Measurement, WithNoClientItKeepsTickingAndTheCycleNeverStarts) {
  host.start();
  host.loop.advance(3600000);
  EXPECT_EQ(host.loop.running(400), 1);
  EXPECT_FALSE(cycleTimerRuns());
}

TEST_F(Measurement, StartWithNoClientStartsTheCycleAtTheNextTickButNoPoll) {
  host.start();
  host.loop.advance(2100);
  press(host.form.cmdStop);
  EXPECT_TRUE(host.store.CycleRunning);
  host.loop.advance(299);
  EXPECT_FALSE(cycleTimerRuns());
  host.loop.advance(1);
  EXPECT_TRUE(cycleTimerRuns());
  EXPECT_EQ(host.loop.running(60), 0);
}

TEST_F(Measurement, AClientStartsTheCycle) {
  host.start();
  host.loop.advance(5000);
  host.greet(0);
  host.loop.advance(200);
  EXPECT_TRUE(cycleTimerRuns());
}

TEST_F(Measurement, TheCycleIsNotStartedASecondTime) {
  host.start();
  host.greet(0);
  host.loop.advance(1200);
  EXPECT_TRUE(cycleTimerRuns());
  host.loop.advance(60000);
  EXPECT_EQ(host.loop.running(400), 0);
}

TEST_F(Measurement, TheCycleThatItStartsHasTheConfiguredPeriod) {
  host.server.installation.platform.CycleTime = 440;
  host.start();
  host.greet(0);
  ASSERT_EQ(host.loop.running(440), 0);
  host.loop.advance(1200);
  EXPECT_EQ(host.loop.running(440), 1);
}

}  // namespace
}  // namespace vorlent
