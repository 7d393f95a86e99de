#include "extras/SoundTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class StarterSound : public SoundTest {
 protected:
  void piston() { v.EngineType = 0; }
};

TEST_F(StarterSound, AJetsStarterLoopsFromItsEnginesSide) {
  v.Engines(2).Starter = 1;
  EXPECT_THAT(poll(), ElementsAre("open 1", "load start.wav", "start.wav volume -310",
                                  "start.wav loop", "start.wav pan 2222"));
  EXPECT_THAT(poll(), IsEmpty());
  EXPECT_THAT(device.paths, ElementsAre(v.CockpitPath + "sound\\start.wav"));
}

TEST_F(StarterSound, AJetStopsAtThePollAfterItsCombustionComesUp) {
  v.Engines(1).Starter = 1;
  polls(5);
  v.Engines(1).Combustion = 1;
  v.Engines(1).Starter = 0;
  EXPECT_THAT(poll(), ElementsAre("start.wav stop", "start.wav rewind"));
  EXPECT_EQ(events.StarterCount(1), 0);
  EXPECT_THAT(poll(), IsEmpty());
}

TEST_F(StarterSound, AJetsMagnetoIsLeftAlone) {
  v.Engines(1).Starter = 1;
  polls(2);
  host.bus.writes.clear();
  v.Engines(1).Combustion = 1;
  poll();
  EXPECT_THAT(host.bus.writes, IsEmpty());
}

TEST_F(StarterSound, AJetsSwitchReleasedWithinSixtyPollsDoesNotSilenceIt) {
  v.Engines(1).Starter = 1;
  polls(3);
  v.Engines(1).Starter = 0;
  polls(58);
  EXPECT_EQ(events.StarterCount(1), 61);
  EXPECT_TRUE(events.StarterPlaying(1));
  EXPECT_THAT(poll(), ElementsAre("start.wav stop", "start.wav rewind"));
  EXPECT_FALSE(events.StarterPlaying(1));
  EXPECT_EQ(events.StarterCount(1), 0);
}

TEST_F(StarterSound, APistonsGoesOnForTwentyPolls) {
  piston();
  v.Engines(1).Starter = 4;
  poll();
  v.Engines(1).Starter = 3;
  polls(20);
  EXPECT_TRUE(events.StarterPlaying(1));
  EXPECT_THAT(poll(), ElementsAre("start.wav stop", "start.wav rewind"));
}

TEST_F(StarterSound, AHeldSwitchKeepsItPlaying) {
  v.Engines(1).Starter = 1;
  polls(200);
  EXPECT_TRUE(events.StarterPlaying(1));
  EXPECT_EQ(events.StarterCount(1), 200);
}

TEST_F(StarterSound, TheCountStopsAtItsTypesEnd) {
  v.Engines(1).Starter = 1;
  polls(32800);
  EXPECT_EQ(events.StarterCount(1), 32767);
  EXPECT_TRUE(events.StarterPlaying(1));
}

TEST_F(StarterSound, APistonTurnsAtFourAndAJetAtOne) {
  v.Engines(1).Starter = 4;
  EXPECT_THAT(poll(), IsEmpty());
  piston();
  v.Engines(1).Starter = 1;
  EXPECT_THAT(poll(), IsEmpty());
}

TEST_F(StarterSound, APistonThatCatchesGetsItsMagnetoBack) {
  piston();
  v.Engines(2).Starter = 3;
  poll();
  v.Engines(2).Starter = 4;
  polls(5);
  host.bus.writes.clear();
  v.Engines(2).Combustion = 1;
  EXPECT_THAT(poll(), ElementsAre("start.wav stop", "start.wav rewind"));
  EXPECT_THAT(host.bus.writes, ElementsAre(FakeSimulatorBus::Write{0x092A, {3}}));
}

TEST_F(StarterSound, APistonStartedByItsButtonGetsThePositionThatTheButtonRecorded) {
  piston();
  v.Engines(1).Starter = 3;
  poll();
  connect();
  host.deliver(0, "p P 128 1 ");
  EXPECT_EQ(v.Engines(1).Starter, 4);
  polls(5);
  host.bus.writes.clear();
  v.Engines(1).Combustion = 1;
  poll();
  EXPECT_THAT(host.bus.writes, ElementsAre(FakeSimulatorBus::Write{0x0892, {4}}));
}

TEST_F(StarterSound, ARecordedPositionServesOneStart) {
  piston();
  v.Engines(1).Starter = 2;
  v.Engines(1).RecordedStart = 4;
  poll();
  v.Engines(1).Starter = 4;
  poll();
  v.Engines(1).Combustion = 1;
  poll();
  v.Engines(1).Starter = 2;
  v.Engines(1).Combustion = 0;
  poll();
  v.Engines(1).Starter = 4;
  poll();
  host.bus.writes.clear();
  v.Engines(1).Combustion = 1;
  poll();
  EXPECT_THAT(host.bus.writes, ElementsAre(FakeSimulatorBus::Write{0x0892, {2}}));
}

TEST_F(StarterSound, AnAbortedStartOfAPistonLeavesTheMagneto) {
  piston();
  v.Engines(1).Starter = 4;
  poll();
  v.Engines(1).Starter = 3;
  host.bus.writes.clear();
  polls(40);
  EXPECT_FALSE(events.StarterPlaying(1));
  EXPECT_THAT(host.bus.writes, IsEmpty());
}

TEST_F(StarterSound, EachStartLoadsANewSound) {
  for (int start = 1; start <= 3; ++start) {
    v.Engines(1).Starter = 1;
    v.Engines(1).Combustion = 0;
    poll();
    EXPECT_EQ(events.StarterId(1), start);
    v.Engines(1).Starter = 0;
    v.Engines(1).Combustion = 1;
    poll();
  }
  EXPECT_EQ(host.server.sound->Buffers(), 3);
}

TEST_F(StarterSound, AJetsStarterLeftOnWhileItBurnsLoadsAndStopsAtEveryPoll) {
  v.Engines(1).Starter = 1;
  v.Engines(1).Combustion = 1;
  poll();
  EXPECT_THAT(poll(), ElementsAre("load start.wav", "start.wav volume -310", "start.wav loop",
                                  "start.wav pan -2223", "start.wav stop", "start.wav rewind"));
}

TEST_F(StarterSound, OnlyTheAircraftsEnginesAreHeard) {
  v.Engines(3).Starter = 1;
  EXPECT_THAT(poll(), IsEmpty());
  v.EngineCount = 3;
  EXPECT_TRUE(has(poll(), "load start.wav"));
}

TEST_F(StarterSound, SwitchedOffInItsSettingsItIsNotHeard) {
  sounds.start.Enabled = 0;
  v.Engines(1).Starter = 1;
  EXPECT_THAT(poll(), IsEmpty());
}

TEST_F(StarterSound, SoundOffInTheMenuLeavesAPlayingStarterPlaying) {
  v.Engines(1).Starter = 1;
  polls(3);
  host.form.Settings(Setting::AircraftSound).Checked(false);
  v.Engines(1).Combustion = 1;
  EXPECT_THAT(poll(), IsEmpty());
  EXPECT_TRUE(events.StarterPlaying(1));
  EXPECT_EQ(events.StarterCount(1), 3);
}

TEST_F(StarterSound, NeedsNoClient) {
  v.Engines(1).Starter = 1;
  EXPECT_FALSE(host.server.main->AnyClientUp());
  EXPECT_TRUE(has(poll(), "start.wav loop"));
}

TEST_F(StarterSound, AMissingFileCostsTheSoundAlone) {
  device.missing.insert("start.wav");
  v.Engines(1).Starter = 1;
  EXPECT_THAT(poll(), ElementsAre("open 1", "load start.wav"));
  EXPECT_TRUE(events.StarterPlaying(1));
  polls(10);
  EXPECT_EQ(device.paths.size(), 1U) << "it is loaded once a start";
  EXPECT_EQ(host.server.sound->Buffers(), 1);
}

TEST_F(StarterSound, AVolumeThatTheDeviceRefusesLeavesItSilent) {
  sounds.start.Volume = 101;
  v.Engines(1).Starter = 1;
  EXPECT_THAT(poll(), ElementsAre("open 1", "load start.wav"));
  EXPECT_EQ(events.StarterId(1), 0);
}

}  // namespace
}  // namespace vorlent
