#include "core/Transcript.h"
#include "extras/SoundTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// How sounds come and go with the sessions.
class SessionSounds : public SoundTest {
 protected:
  std::string status() const { return host.form.sbStatusBar.panelText(1); }
  bool logged(const std::string& line) const {
    return ("\n" + host.log()).find("\n" + line + "\r\n") != std::string::npos;
  }
};

TEST_F(SessionSounds, TheFirstClientStartsTheRumbleAndQueuesTheOthers) {
  host.greet(0);
  EXPECT_THAT(device.takeCalls(),
              ElementsAre("open 1", "load rumble.wav", "rumble.wav loop",
                          "rumble.wav volume -10000", "load bump.wav", "load tyres.wav"));
  EXPECT_THAT(device.paths,
              ElementsAre(v.CockpitPath + "sound\\rumble.wav", v.CockpitPath + "sound\\bump.wav",
                          v.CockpitPath + "sound\\tyres.wav"));
  EXPECT_EQ(device.window, v.FsWindow);
  EXPECT_TRUE(logged("Start sound "));
  EXPECT_TRUE(logged("Init sound queue 1"));
  EXPECT_TRUE(logged("Init sound queue 2"));
}

TEST_F(SessionSounds, TheDeviceThatIsSetIsOpened) {
  v.SoundDeviceId = 2;
  host.greet(0);
  EXPECT_EQ(device.calls.front(), "open 2");
}

TEST_F(SessionSounds, ASecondClientStartsNothing) {
  host.greet(0);
  device.calls.clear();
  host.greet(1, "100", "fmc1", 40001);
  EXPECT_THAT(device.calls, IsEmpty());
}

TEST_F(SessionSounds, WhatIsEnabledIsLoadedAlsoWithTheMenuOff) {
  host.form.Settings(Setting::AircraftSound).Checked(false);
  sounds.bump.Enabled = 0;
  host.greet(0);
  EXPECT_THAT(device.calls, ElementsAre("open 1", "load rumble.wav", "rumble.wav loop",
                                        "rumble.wav volume -10000", "load tyres.wav"));
}

TEST_F(SessionSounds, WithNothingEnabledNoDeviceIsOpened) {
  host.form.Settings(Setting::AircraftSound).Checked(false);
  sounds = {};
  host.greet(0);
  EXPECT_THAT(device.calls, IsEmpty());
}

TEST_F(SessionSounds, AMissingFileEndsTheGreetingAndIsNamed) {
  device.missing.insert("bump.wav");
  host.greet(0);
  EXPECT_EQ(status(), "Sound " + v.CockpitPath + "sound\\bump.wav: File not found");
  EXPECT_FALSE(host.server.main->AnyClientUp());
  EXPECT_EQ(device.paths.size(), 2U) << "the tyres are not loaded";
  EXPECT_EQ(host.exitStatus(), std::nullopt);
}

TEST_F(SessionSounds, AClientThatGreetsAgainOnceTheFileIsThereIsTaken) {
  device.missing.insert("bump.wav");
  host.greet(0);
  device.missing.clear();
  host.greet(0);
  EXPECT_TRUE(host.server.main->AnyClientUp());
  EXPECT_EQ(events.Queue1Id, 4) << "each load that failed has grown the list";
}

TEST_F(SessionSounds, ADeviceThatCannotBeOpenedIsToldOnceAStart) {
  device.opens = false;
  host.greet(0);
  host.greet(0);
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(RecordingOperator::Box{"Could not create Directsound object",
                                                 BoxIcon::Plain, "Vorlent"}));
  EXPECT_THAT(device.calls, ElementsAre("open 1"));
}

TEST_F(SessionSounds, StopClientsStopsTheRumbleAndReleasesAll) {
  connect();
  host.form.cmdStopCts.press();
  EXPECT_THAT(device.calls,
              ElementsAre("rumble.wav stop", "rumble.wav rewind", "rumble.wav release",
                          "bump.wav release", "tyres.wav release"));
  EXPECT_EQ(events.RumbleId, 0);
  EXPECT_EQ(events.Queue1Id, 0);
  EXPECT_EQ(events.Queue2Id, 0);
  EXPECT_EQ(host.server.sound->Buffers(), 0);
  EXPECT_TRUE(logged("Stop sound"));
  EXPECT_TRUE(logged("Kill sound queue 1"));
  EXPECT_TRUE(logged("Kill sound queue 2"));
  EXPECT_TRUE(host.form.cmdSound.Enabled());
}

TEST_F(SessionSounds, StopClientsWithoutRumbleLeavesTheQueuesOpen) {
  sounds.rumble.Enabled = 0;
  connect();
  host.form.cmdStopCts.press();
  EXPECT_THAT(device.calls, IsEmpty());
  EXPECT_EQ(events.Queue1Id, 1);
  EXPECT_EQ(events.Queue2Id, 2);
  EXPECT_FALSE(logged("Kill sound queue 1"));
}

TEST_F(SessionSounds, AnotherCockpitStopsTheRumbleAndItsNextClientHearsThatCockpitsFiles) {
  connect();
  host.form.Settings(Setting::AircraftSound).Checked(false);
  host.server.failureDomain.run(
      [this] { host.form.cboDir.ListIndex(host.form.cboDir.indexOf("A-first")); });
  EXPECT_THAT(device.takeCalls(),
              ElementsAre("rumble.wav stop", "rumble.wav rewind", "rumble.wav release",
                          "bump.wav release", "tyres.wav release"));
  EXPECT_EQ(events.RumbleId, 0);
  device.paths.clear();
  host.greet(0);
  EXPECT_THAT(device.paths,
              ElementsAre(v.CockpitPath + "sound\\rumble.wav", v.CockpitPath + "sound\\bump.wav",
                          v.CockpitPath + "sound\\tyres.wav"));
  EXPECT_TRUE(v.CockpitPath.ends_with("A-first\\")) << v.CockpitPath;
}

TEST_F(SessionSounds, TheNextFirstClientStartsThemAnew) {
  connect();
  host.form.cmdStopCts.press();
  host.loop.advance(200);
  device.calls.clear();
  host.greet(0);
  EXPECT_TRUE(has(device.calls, "rumble.wav loop"));
  EXPECT_FALSE(has(device.calls, "open 1")) << "the device stays open";
  EXPECT_EQ(events.RumbleId, 1);
}

TEST_F(SessionSounds, ADeviceThatGoesAwayCostsALine) {
  connect();
  device.untold = "Sound device lost";
  poll();
  EXPECT_EQ(status(), "Sound device lost");
}

TEST_F(SessionSounds, TheExitReleasesThem) {
  connect();
  host.server.failureDomain.run([this] { host.form.cmdExit4.press(); });
  EXPECT_THAT(device.calls,
              ElementsAre("rumble.wav release", "bump.wav release", "tyres.wav release"));
}

}  // namespace
}  // namespace vorlent
