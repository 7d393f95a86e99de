#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "core/PollTick.h"
#include "simlink/decodeXPlane.h"
#include "support/XPlaneServer.h"

namespace vorlent {
namespace {

using ::testing::Each;
using ::testing::SizeIs;

constexpr std::size_t TokensWithoutEngines = 210;
constexpr std::size_t TokensOfAnEngine = 34;
/// Of an engine's block, counted from 0.
constexpr std::size_t FuelUsedToken = 20;
constexpr std::size_t FirstEngineToken = 43;

class XPlanePoll : public testing::Test {
 protected:
  void oneRequestIsRefused() {
    sim.bus.onRequest = [](SendResult, std::byte*) { return SendResult{true, 0, 0}; };
    sim.server.failureDomain.run([this] { sim.poll(); });
    sim.bus.onRequest = nullptr;
  }
  void poll() {
    sim.server.failureDomain.run([this] { sim.poll(); });
  }

  XPlaneServer sim;
};

TEST_F(XPlanePoll, IsOneRoundTrip) {
  const int before = sim.bus.requests;
  sim.poll();
  EXPECT_EQ(sim.bus.requests, before + 1);
}

TEST_F(XPlanePoll, CountsAsAPollOfTheStatusDisplay) {
  sim.loop.advance(50);
  EXPECT_EQ(sim.server.pollTick->age_ms(), 50U);
  sim.poll();
  EXPECT_EQ(sim.server.pollTick->age_ms(), 0U);
}

TEST_F(XPlanePoll, ReadsNothingThatASnapshotDoesNotClear) {
  const auto whole = snapshot_detail::extentOf(SnapshotReads);
  for (const SnapshotRead& read : xplaneReads()) {
    EXPECT_GE(read.offset, whole.begin) << read.mirror;
    EXPECT_LE(read.offset + read.size, whole.end) << read.mirror;
  }
}

/// What no read fetches must not be looked at: every byte outside the reads is changed.
TEST_F(XPlanePoll, DecodesNothingButItsReads) {
  sim.bus.put(0x0AEC, std::uint8_t{4});
  sim.poll();
  const std::string before = sim.store.DataRecord;
  std::vector<bool> isRead(sim.bus.offsets.size());
  for (const SnapshotRead& read : xplaneReads())
    std::fill_n(isRead.begin() + read.offset, read.size, true);
  std::fill_n(isRead.begin() + 0x07CC, 16, true);
  for (std::size_t at = 0; at < isRead.size(); ++at)
    if (!isRead[at]) sim.bus.offsets[at] = 0x5A;
  sim.poll();
  EXPECT_EQ(sim.store.DataRecord, before);
}

TEST_F(XPlanePoll, OneRefusedRoundTripReadsZeroAndTheNextReadsAgain) {
  sim.bus.put(0x02B8, std::uint32_t{32000});
  sim.poll();
  EXPECT_EQ(sim.store.Tas, 250);
  oneRequestIsRefused();
  EXPECT_EQ(sim.store.Tas, 0);
  EXPECT_EQ(sim.exitStatus(), std::nullopt);
  poll();
  EXPECT_EQ(sim.store.Tas, 250);
}

TEST_F(XPlanePoll, TwoRefusedRoundTripsInARowEndTheProcess) {
  oneRequestIsRefused();
  oneRequestIsRefused();
  EXPECT_EQ(sim.exitStatus(), 1);
  EXPECT_EQ(sim.form.sbStatusBar.panelText(1),
            "XPUIPC Process error IPC request contains bad data");
}

TEST_F(XPlanePoll, ReadsThatCannotBeQueuedLeaveWhatWasRead) {
  sim.bus.put(0x02B8, std::uint32_t{32000});
  poll();
  sim.server.fsuipc->Close();
  sim.bus.put(0x02B8, std::uint32_t{64000});
  for (int again = 0; again < 3; ++again) poll();
  EXPECT_EQ(sim.store.Tas, 250);
  EXPECT_EQ(sim.exitStatus(), std::nullopt);
}

TEST_F(XPlanePoll, TheRecordHasOneBlockAnEngineAndNoneWithoutEngines) {
  for (const int engines : {0, 1, 2, 3, 4}) {
    sim.bus.put(0x0AEC, static_cast<std::uint8_t>(engines));
    sim.poll();
    EXPECT_THAT(sim.fields(), SizeIs(TokensWithoutEngines +
                                     TokensOfAnEngine * static_cast<std::size_t>(engines)));
    EXPECT_EQ(sim.fields().front(), std::to_string(engines));
  }
}

TEST_F(XPlanePoll, MoreThanFourEnginesHaveFourBlocks) {
  sim.bus.put(0x0AEC, std::uint8_t{5});
  sim.poll();
  EXPECT_THAT(sim.fields(), SizeIs(TokensWithoutEngines + 4 * TokensOfAnEngine));
}

TEST_F(XPlanePoll, EveryEngineIsDecodedHoweverManyThereAre) {
  sim.bus.put(0x0AEC, std::uint8_t{1});
  for (std::uint32_t n = 0; n < 4; ++n) sim.bus.put(0x0896 + 0x98 * n, std::uint16_t{8192});
  sim.poll();
  std::vector<float> n2;
  for (int n = 1; n <= 4; ++n) n2.push_back(sim.store.Engines(n).N2);
  EXPECT_THAT(n2, Each(50.0F));
}

TEST_F(XPlanePoll, FuelUsedTakesTheWeightOfTheSamePoll) {
  sim.bus.put(0x0AEC, std::uint8_t{1});
  sim.bus.put(0x0AF4, std::uint16_t{1792});  // 7 lb a gallon
  sim.store.FuelBurnt(1) = 100;
  sim.poll();
  EXPECT_EQ(sim.fields().at(FirstEngineToken + FuelUsedToken), "700");
}

TEST_F(XPlanePoll, GreetingSaysXPlaneAndTheIncrementThatThePollHasRead) {
  sim.bus.put(0x0AEC, std::uint8_t{2});
  sim.bus.put(0x3BFA, std::uint16_t{2047});
  sim.poll();
  sim.greet(0);
  const auto sent = sim.network.takeSent();
  ASSERT_FALSE(sent.empty());
  EXPECT_EQ(sent.front().text, "11\\737-700\\2\\2047\\.");
}

TEST_F(XPlanePoll, TheFlapTableIsMadeOfTheFile) {
  EXPECT_EQ(sim.store.FlapTable(0).Degrees, 9);
  EXPECT_EQ(sim.store.FlapTable(9).Degrees, 40);
  EXPECT_EQ(sim.store.FlapTable(9).Position, 16383);
}

}  // namespace
}  // namespace vorlent
