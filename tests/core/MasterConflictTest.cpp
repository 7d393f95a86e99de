#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/Transcript.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;

const RecordingOperator::Box Conflict =
    plainBox("Master conflict: Please resolve\nNo FMS possible");

class MasterConflict : public ::testing::Test {
 protected:
  MasterConflict() { host.start(); }
  void greetBoth(const std::string& first, const std::string& second) {
    host.greet(0, "100", first);
    host.greet(1, "100", second, 40001);
  }
  bool cycleTimerRuns() {
    const int before = host.loop.running(400);
    host.form.killCycleTimer();
    return host.loop.running(400) < before;
  }

  TestServer host;
};

TEST_F(MasterConflict, ClientsThatAgreeLetTheCycleStart) {
  greetBoth("fmc1", "fmc1");
  host.loop.advance(1200);
  EXPECT_TRUE(cycleTimerRuns());
  EXPECT_EQ(host.form.FmcName(), "fmc1");
}

TEST_F(MasterConflict, ClientsThatDisagreeAreToldAndTheCycleIsNotStarted) {
  greetBoth("fmc1", "fmc2");
  host.loop.advance(1200);
  EXPECT_THAT(host.op.takeBoxes(), ElementsAre(Conflict));
  EXPECT_EQ(host.loop.running(400), 0);
  host.loop.advance(60000);
  EXPECT_EQ(host.loop.running(400), 0);
}

TEST_F(MasterConflict, PollAndSessionsGoOn) {
  greetBoth("fmc1", "fmc2");
  host.loop.advance(1200);
  EXPECT_EQ(host.op.takeBoxes().size(), 1U);
  const int requests = host.bus.requests;
  host.network.takeSent();
  host.loop.advance(600);
  EXPECT_EQ(host.bus.requests - requests, 10);
  EXPECT_EQ(host.network.takeSent().size(), 12U);
}

TEST_F(MasterConflict, TheCaseOfLettersCounts) {
  greetBoth("FMC1", "fmc1");
  host.loop.advance(1200);
  EXPECT_THAT(host.op.takeBoxes(), ElementsAre(Conflict));
}

TEST_F(MasterConflict, AClientThatComesDuringTheCycleDoesNotStopIt) {
  host.greet(0, "100", "fmc1");
  host.loop.advance(1200);
  host.greet(1, "100", "fmc2", 40001);
  host.loop.advance(60000);
  EXPECT_TRUE(cycleTimerRuns());
}

TEST_F(MasterConflict, TheLinksNewStartFindsItAndKillsTheRunningCycle) {
  host.greet(0, "100", "fmc1");
  host.loop.advance(1200);
  host.greet(1, "100", "fmc2", 40001);
  host.server.failureDomain.run([this] { host.server.main->StartSimLink(); });
  EXPECT_THAT(host.op.takeBoxes(), ElementsAre(Conflict));
  EXPECT_FALSE(cycleTimerRuns());
  host.loop.advance(60000);
  EXPECT_EQ(host.loop.running(400), 0);
}

TEST_F(MasterConflict, SessionsThatAreNotUpDoNotCount) {
  greetBoth("fmc1", "fmc2");
  host.server.connect[0]->IsUp(false);
  EXPECT_FALSE(host.server.main->CheckMasterConflict());
  EXPECT_EQ(host.form.FmcName(), "fmc2");
}

TEST_F(MasterConflict, AnEmptyNameTakesThatOfTheFirstLiveSession) {
  greetBoth("fmc1", "fmc2");
  host.form.FmcName("");
  EXPECT_FALSE(host.server.main->CheckMasterConflict());
  EXPECT_EQ(host.form.FmcName(), "fmc1");
}

TEST_F(MasterConflict, WithNobodyThereTheNameStays) {
  host.form.FmcName("fmc7");
  EXPECT_FALSE(host.server.main->CheckMasterConflict());
  EXPECT_EQ(host.form.FmcName(), "fmc7");
}

TEST_F(MasterConflict, SomebodyIsThereAsSoonAsOneSessionIsUp) {
  EXPECT_FALSE(host.server.main->AnyClientUp());
  host.greet(1, "100", "fmc1");
  EXPECT_TRUE(host.server.main->AnyClientUp());
  host.server.connect[1]->IsUp(false);
  EXPECT_FALSE(host.server.main->AnyClientUp());
}

}  // namespace
}  // namespace vorlent
