#include "extras/clsSound.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/RecordingOperator.h"
#include "support/RecordingSoundDevice.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;

class Sound : public ::testing::Test {
 protected:
  Sound() {
    sound.createDevice(2, 42, op);
    device.calls.clear();
  }
  int faultOf(const std::function<void()>& work) const { return raisedBy(work); }

  RecordingOperator op;
  RecordingSoundDevice device;
  clsSound sound{device};
};

TEST(SoundVolume, IsTwentyDecibelADecade) {
  EXPECT_EQ(deviceVolume(100), 0);
  EXPECT_EQ(deviceVolume(50), -603);
  EXPECT_EQ(deviceVolume(10), -2000);
  EXPECT_EQ(deviceVolume(1), -4000);
  EXPECT_EQ(deviceVolume(0.1F), -6000);
}

TEST(SoundVolume, ZeroIsTheDevicesMinimumAndNoFault) {
  EXPECT_EQ(deviceVolume(0), -10000);
  EXPECT_EQ(deviceVolume(-5), -10000);
  EXPECT_EQ(deviceVolume(0.0001F), -10000);
}

TEST(SoundPan, GoesAQuarterOfTheDevicesWay) {
  EXPECT_EQ(devicePan(0), -2400);
  EXPECT_EQ(devicePan(20), -2223);
  EXPECT_EQ(devicePan(80), 2222);
  EXPECT_EQ(devicePan(100), 2400);
}

TEST(SoundPan, FiftyIsTheCentre) { EXPECT_EQ(devicePan(50), 0); }

TEST(SoundPan, FiftyAndATwentiethIsTheCentre) { EXPECT_EQ(devicePan(50.05F), 0); }

TEST(SoundPan, NearTheCentreTheSidesAreCrossed) {
  EXPECT_EQ(devicePan(50.01F), -560);  // 1 / 0.2 = 5: 0.69897 x -800 = -559.2, of a single -559.1
  EXPECT_EQ(devicePan(49.99F), 559);
}

TEST_F(Sound, OpensTheDeviceAtItsPositionForTheSimulatorsWindow) {
  sound.createDevice(2, 42, op);
  EXPECT_THAT(device.calls, ElementsAre("open 2"));
  EXPECT_EQ(device.window, 42);
}

TEST_F(Sound, IdsCountFromOneInTheOrderOfLoading) {
  EXPECT_EQ(sound.Buffers(), 0);
  EXPECT_EQ(sound.dxQueueWave("a.wav"), 1);
  EXPECT_EQ(sound.dxPlayLoop("b.wav", 50), 2);
  EXPECT_EQ(sound.dxQueueWave("a.wav"), 3);
  EXPECT_EQ(sound.Buffers(), 3);
  EXPECT_THAT(device.calls, ElementsAre("load a.wav", "load b.wav", "b.wav volume -603",
                                        "b.wav loop", "load a.wav"));
}

TEST_F(Sound, ALoopWithVolumeZeroKeepsTheDevicesDefault) {
  sound.dxPlayLoop("a.wav", 0);
  EXPECT_THAT(device.calls, ElementsAre("load a.wav", "a.wav loop"));
}

TEST_F(Sound, AQueuedSoundPlayedWithVolumeZeroKeepsItsVolume) {
  const auto id = sound.dxQueueWave("a.wav");
  device.calls.clear();
  sound.dxPlayQueue(id, 0);
  sound.dxPlayQueue(id, 1);
  EXPECT_THAT(device.takeCalls(), ElementsAre("a.wav play", "a.wav volume -4000", "a.wav play"));
}

TEST_F(Sound, StopRewindsAndTheIdPlaysAgain) {
  const auto id = sound.dxPlayLoop("a.wav", 0);
  device.calls.clear();
  sound.dxPlayStop(id);
  sound.dxPlayQueue(id, 0);
  EXPECT_THAT(device.takeCalls(), ElementsAre("a.wav stop", "a.wav rewind", "a.wav play"));
}

TEST_F(Sound, VolumeAndPanGoToTheDeviceInItsUnits) {
  const auto id = sound.dxQueueWave("a.wav");
  device.calls.clear();
  sound.dxWaveVolume(id, 0);
  sound.dxPlayPan(id, 80);
  EXPECT_THAT(device.takeCalls(), ElementsAre("a.wav volume -10000", "a.wav pan 2222"));
}

TEST_F(Sound, AVolumeAboveAHundredIsRefusedAndStays) {
  const auto id = sound.dxQueueWave("a.wav");
  device.calls.clear();
  EXPECT_EQ(faultOf([&] { sound.dxWaveVolume(id, 101); }), 5);
  EXPECT_THAT(device.calls, ElementsAre());
}

TEST_F(Sound, ResetReleasesEverythingWithoutStoppingIt) {
  sound.dxPlayLoop("a.wav", 0);
  sound.dxQueueWave("b.wav");
  device.calls.clear();
  EXPECT_EQ(sound.ResetBuffer(), 0);
  EXPECT_THAT(device.takeCalls(), ElementsAre("a.wav release", "b.wav release"));
  EXPECT_EQ(sound.Buffers(), 0);
}

TEST_F(Sound, AnIdFromBeforeTheResetIsOutOfBounds) {
  const auto id = sound.dxQueueWave("a.wav");
  sound.ResetBuffer();
  EXPECT_EQ(faultOf([&] { sound.dxPlayStop(id); }), 9);
  EXPECT_EQ(faultOf([&] { sound.dxPlayPan(id, 50); }), 9);
  EXPECT_EQ(faultOf([&] { sound.dxWaveVolume(id, 50); }), 9);
  EXPECT_EQ(faultOf([&] { sound.dxPlayQueue(id, 0); }), 9);
  EXPECT_EQ(faultOf([&] { sound.dxPlayStop(-1); }), 9);
}

TEST_F(Sound, IdZeroIsNoSound) {
  sound.dxQueueWave("a.wav");
  EXPECT_EQ(faultOf([&] { sound.dxPlayStop(0); }), 91);
}

TEST_F(Sound, AFileThatCannotBeLoadedLeavesAnEmptyElement) {
  device.missing.insert("gone.wav");
  EXPECT_EQ(faultOf([&] { sound.dxQueueWave("gone.wav"); }), 53);
  EXPECT_EQ(sound.Buffers(), 1);
  EXPECT_EQ(faultOf([&] { sound.dxPlayStop(1); }), 91);
  EXPECT_EQ(sound.dxQueueWave("a.wav"), 2);
}

TEST_F(Sound, ADeviceThatCannotBeOpenedIsToldAndLaterCallsFail) {
  device.opens = false;
  clsSound without(device);
  without.createDevice(1, 0, op);
  EXPECT_THAT(op.takeBoxes(),
              ElementsAre(RecordingOperator::Box{"Could not create Directsound object",
                                                 BoxIcon::Plain, "Vorlent"}));
  EXPECT_EQ(faultOf([&] { without.dxPlayLoop("a.wav", 50); }), 91);
  EXPECT_EQ(faultOf([&] { without.dxQueueWave("a.wav"); }), 91);
  EXPECT_EQ(without.Buffers(), 2);
}

TEST_F(Sound, ThirtyTwoThousandSoundsAreTheMostThatAreCounted) {
  for (int i = 0; i < 32767; ++i) sound.dxQueueWave("a.wav");
  EXPECT_EQ(sound.Buffers(), 32767);
  sound.dxQueueWave("a.wav");
  EXPECT_EQ(faultOf([&] { sound.Buffers(); }), 6);
}

}  // namespace
}  // namespace vorlent
