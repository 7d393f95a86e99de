#include "extras/SoundTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A client is up and the aircraft flies.
class GroundSounds : public SoundTest {
 protected:
  GroundSounds() {
    connect();
    host.server.soundEvents->SoundPollCount = 0;
  }
  void onGround() {
    v.OnGround = 1;
    poll();
  }
  /// Of the last volume that a poll sets, out of the three until the volumes settle.
  Calls settling() {
    Calls last;
    for (int i = 0; i < 3; ++i) last = poll();
    return last;
  }
};

TEST_F(GroundSounds, TouchdownSetsRumbleBumpAndTyresAndPlaysTheTwo) {
  v.OnGround = 1;
  v.GroundSpeed = 35;
  v.VerticalSpeed = -400;
  EXPECT_THAT(poll(), ElementsAre("rumble.wav pan 0", "bump.wav pan 0", "tyres.wav pan 0",
                                  "rumble.wav volume -92",  // (35 - 5) x 1 + 60 = 90
                                  "bump.wav volume -1046",  // 400 x 0.1 / 2 + 10 = 30
                                  "bump.wav play",
                                  "tyres.wav volume -194",  // 80
                                  "tyres.wav play"));
  EXPECT_TRUE(events.WasOnGround);
}

TEST_F(GroundSounds, TheFirstPollOnTheGroundIsATouchdown) {
  EXPECT_FALSE(events.WasOnGround);
  v.OnGround = 1;
  EXPECT_TRUE(has(poll(), "bump.wav play"));
  EXPECT_FALSE(has(poll(), "bump.wav play"));
}

TEST_F(GroundSounds, LiftOffSilencesTheRumble) {
  onGround();
  v.OnGround = 0;
  EXPECT_THAT(poll(), ElementsAre("rumble.wav volume -10000"));
  EXPECT_THAT(poll(), IsEmpty());
}

TEST_F(GroundSounds, TheFirstSettlingIsAtTheFourthPollThenEveryThird) {
  std::vector<int> settled;
  for (int number = 1; number <= 12; ++number)
    if (!poll().empty()) settled.push_back(number);
  EXPECT_THAT(settled, ElementsAre(4, 7, 10));
}

TEST_F(GroundSounds, SettlingSetsRumbleAndBumpWithoutPlaying) {
  onGround();
  v.GroundSpeed = 25;
  v.VerticalSpeed = 0;
  const Calls calls = settling();
  EXPECT_TRUE(has(calls, "rumble.wav volume -194"));  // (25 - 5) x 1 + 60 = 80
  EXPECT_TRUE(has(calls, "bump.wav volume -2000"));   // 10
  EXPECT_FALSE(has(calls, "bump.wav play"));
}

TEST_F(GroundSounds, TheRumbleGrowsWithSpeedUpToItsMaximum) {
  onGround();
  v.GroundSpeed = 15;
  EXPECT_TRUE(has(settling(), "rumble.wav volume -310"));  // 70
  v.GroundSpeed = 25;
  EXPECT_TRUE(has(settling(), "rumble.wav volume -194"));  // 80
  v.GroundSpeed = 200;
  EXPECT_TRUE(has(settling(), "rumble.wav volume -45"));  // 95
}

TEST_F(GroundSounds, BelowTheThresholdTheRumbleIsSilentAndStaysSo) {
  sounds.rumble.Threshold = 20;
  v.GroundSpeed = 10;
  v.OnGround = 1;
  EXPECT_TRUE(has(poll(), "rumble.wav volume -10000"));
  EXPECT_TRUE(has(settling(), "rumble.wav volume -10000"));
  EXPECT_TRUE(has(settling(), "rumble.wav volume -10000"));
}

TEST_F(GroundSounds, WithFactorZeroTheRumbleIsSilentAtEverySpeed) {
  sounds.rumble.Factor = 0;
  v.OnGround = 1;
  v.GroundSpeed = 140;
  EXPECT_TRUE(has(poll(), "rumble.wav volume -10000"));
  EXPECT_TRUE(has(settling(), "rumble.wav volume -10000"));
}

TEST_F(GroundSounds, InTheAirTheSettlingSilencesTheRumble) {
  v.GroundSpeed = 140;
  poll();
  EXPECT_THAT(settling(), ElementsAre("rumble.wav volume -10000", "bump.wav volume -2000"));
}

TEST_F(GroundSounds, FiveHundredFeetAMinuteWithATenthPlaysTheBumpAtThirtyFive) {
  v.VerticalSpeed = -500;
  v.OnGround = 1;
  EXPECT_TRUE(has(poll(), "bump.wav volume -912"));  // 500 x 0.1 / 2 + 10 = 35
}

TEST_F(GroundSounds, FiveHundredFeetAMinuteWithAFifthPlaysTheBumpAtItsMaximum) {
  sounds.bump.Factor = 0.2F;
  v.VerticalSpeed = -500;
  v.OnGround = 1;
  EXPECT_TRUE(has(poll(), "bump.wav volume 0"));  // 110 is beyond 100, though the half gives 60
}

TEST_F(GroundSounds, APositiveVerticalSpeedCountsAsMuch) {
  v.VerticalSpeed = 500;
  v.OnGround = 1;
  EXPECT_TRUE(has(poll(), "bump.wav volume -912"));
}

TEST_F(GroundSounds, TheBankDecidesTheSide) {
  v.OnGround = 1;
  const auto panAt = [this](float bank) {
    v.Bank = bank;
    return poll().front();
  };
  EXPECT_EQ(panAt(0), "rumble.wav pan 0");
  EXPECT_EQ(panAt(1), "rumble.wav pan 0");
  EXPECT_EQ(panAt(1.01F), "rumble.wav pan -2223");
  EXPECT_EQ(panAt(2), "rumble.wav pan -2223");
  EXPECT_EQ(panAt(180), "rumble.wav pan -2223");
  EXPECT_EQ(panAt(181), "rumble.wav pan 2222");
  EXPECT_EQ(panAt(358), "rumble.wav pan 2222");
  EXPECT_EQ(panAt(359), "rumble.wav pan 0");
}

TEST_F(GroundSounds, OnlyTheEnabledSoundsArePannedAndPlayed) {
  sounds.rumble.Enabled = sounds.tyres.Enabled = 0;
  v.OnGround = 1;
  EXPECT_THAT(poll(), ElementsAre("bump.wav pan 0", "bump.wav volume -2000", "bump.wav play"));
}

TEST_F(GroundSounds, TheSettlingDoesNotAskWhatIsEnabled) {
  sounds.rumble.Enabled = sounds.bump.Enabled = 0;
  polls(3);
  EXPECT_THAT(poll(), ElementsAre("rumble.wav volume -10000", "bump.wav volume -2000"));
}

TEST_F(GroundSounds, APausesHundredIsOverwrittenInTheSameStep) {
  v.Paused = 1;
  polls(3);
  EXPECT_THAT(poll(), ElementsAre("rumble.wav volume 0", "rumble.wav volume -10000",
                                  "bump.wav volume -2000"));
}

TEST_F(GroundSounds, WithoutAClientThereAreNone) {
  host.form.cmdStopCts.press();
  device.calls.clear();
  v.OnGround = 1;
  polls(8);
  EXPECT_THAT(device.calls, IsEmpty());
  EXPECT_FALSE(events.WasOnGround);
}

TEST_F(GroundSounds, WithTheMenuOffThereAreNone) {
  host.form.Settings(Setting::AircraftSound).Checked(false);
  v.OnGround = 1;
  for (int i = 0; i < 8; ++i) EXPECT_THAT(poll(), IsEmpty());
}

TEST_F(GroundSounds, AnIdThatIsNoneIsPassedOverAndTheRestRuns) {
  events.RumbleId = 0;
  events.Queue1Id = 77;
  v.OnGround = 1;
  EXPECT_THAT(poll(), ElementsAre("tyres.wav pan 0", "tyres.wav volume -194", "tyres.wav play"));
}

TEST_F(GroundSounds, AVolumeThatTheDeviceRefusesIsPassedOverAndTheBumpPlays) {
  sounds.bump.Volume = 101;
  sounds.bump.MaxVolume = 200;
  v.OnGround = 1;
  const Calls calls = poll();
  EXPECT_TRUE(has(calls, "bump.wav play"));
  EXPECT_FALSE(has(calls, "bump.wav volume 8"));
}

}  // namespace
}  // namespace vorlent
