#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "core/Transcript.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

/// A started server whose operator selects another aircraft.
class CockpitChange : public ::testing::Test {
 protected:
  CockpitChange() {
    host.folder.write("Cockpits/A-first/sound.cfg", "11,1.2,95,40,0.05,90,80,70\r\n5,1,1,1,1");
    host.folder.write("Cockpits/A-first/Flaps.cfg", "10,20\r\n");
    host.start();
  }
  void select(const std::string& cockpit) {
    host.server.failureDomain.run(
        [&] { host.form.cboDir.ListIndex(host.form.cboDir.indexOf(cockpit)); });
  }
  void exit() {
    host.server.failureDomain.run([&] { host.form.cmdExit4.press(); });
  }
  std::string flaps(const std::string& cockpit) const {
    return host.folder.read("Cockpits/" + cockpit + "/Flaps.cfg");
  }

  TestServer host;
};

TEST_F(CockpitChange, TakesTheNewFolderAndItsSoundsAtOnce) {
  select("A-first");
  EXPECT_EQ(host.store.CockpitName, "A-first");
  EXPECT_EQ(host.store.CockpitPath, host.folder.path() + "\\Cockpits\\A-first\\");
  EXPECT_EQ(host.server.soundSettings->rumble.Volume, 11);
  EXPECT_EQ(host.form.cboDir.Text(), "A-first");
  EXPECT_EQ(host.form.sbStatusBar.panelText(1),
            "A-first: its sounds are in use, its flaps from the next start on");
}

TEST_F(CockpitChange, IsSavedAtOnce) {
  select("A-first");
  EXPECT_EQ(clsIniRw().ReadKey("Vorlent", "Cockpit", host.folder / "Vorlent.ini").asText(),
            "A-first");
}

TEST_F(CockpitChange, WritesTheFlapsOfTheOldOneAndLeavesThoseOfTheNewOneAlone) {
  host.form.txtFlaps.Text("3,4");
  select("A-first");
  EXPECT_EQ(flaps("737-700"), "3,4\r\n,10,15,25,30,40\r\n");
  EXPECT_EQ(flaps("A-first"), "10,20\r\n");
  exit();
  EXPECT_EQ(flaps("A-first"), "10,20\r\n");
}

TEST_F(CockpitChange, BackAgainTheOldOnesFlapsAreWrittenAtTheExit) {
  select("A-first");
  select("737-700");
  EXPECT_EQ(flaps("A-first"), "10,20\r\n");
  host.form.txtFlaps.Text("9");
  exit();
  EXPECT_EQ(flaps("737-700").substr(0, 3), "9\r\n");
}

TEST_F(CockpitChange, AFlapFileThatCannotBeWrittenIsToldAndTheSelectionIsSavedAllTheSame) {
  fs::remove(host.folder / "Cockpits/737-700/Flaps.cfg");
  fs::create_directories(host.folder / "Cockpits/737-700/Flaps.cfg");
  select("A-first");
  EXPECT_EQ(host.exitStatus(), 1);
  EXPECT_EQ(host.op.takeBoxes().size(), 1U);
  EXPECT_THAT(host.log(), ::testing::HasSubstr("Flaps.cfg was not saved: "));
  EXPECT_THAT(host.folder.read("Vorlent.ini"), ::testing::HasSubstr("Cockpit=A-first\r\n"));
}

TEST_F(CockpitChange, TheRumbleOfTheOldOneStops) {
  host.server.soundSettings->rumble = {"rumble.wav", 60, 1, 95, 1, 5};
  host.greet(0);
  ASSERT_GT(host.server.soundEvents->RumbleId, 0);
  host.soundDevice.takeCalls();
  select("A-first");
  EXPECT_EQ(host.server.soundEvents->RumbleId, 0);
  EXPECT_THAT(host.soundDevice.takeCalls(), ::testing::Contains("rumble.wav stop"));
}

TEST_F(CockpitChange, TheFuelAccountGoesOn) {
  host.server.connect[0]->IsUp(true);
  host.store.Paused = 0;
  host.store.FuelLbPerGallon = 5;
  host.store.Engines(1).FuelFlow = 2400;
  host.store.Engines(1).Combustion = 1;
  host.store.OnGround = 0;
  host.loop.advance(30000);
  EXPECT_FLOAT_EQ(host.store.FuelBurnt(1), 4);
  host.loop.advance(20000);
  select("A-first");
  host.server.connect[0]->IsUp(true);
  host.loop.advance(10000);
  EXPECT_FLOAT_EQ(host.store.FuelBurnt(1), 8);
}

TEST_F(CockpitChange, EndsTheSessionsInOrderAndTheyCanGreetAgain) {
  host.greet(0);
  host.greet(1, "100", "fmc1", 40001);
  host.network.takeSent();
  select("A-first");
  std::vector<std::string> said;
  for (const auto& sent : host.network.takeSent()) said.push_back(sent.text);
  EXPECT_THAT(said, ElementsAre("Xterm", "Xterm", "Xterm", "Xterm"));
  EXPECT_FALSE(host.server.main->AnyClientUp());
  EXPECT_TRUE(host.form.txtClients.Enabled());
  EXPECT_THAT(host.network.bound(), ElementsAre("127.0.0.1:5000", "127.0.0.1:5001"));
  host.greet(1, "100", "fmc1", 40001);
  EXPECT_TRUE(host.server.connect[1]->IsUp());
}

TEST_F(CockpitChange, WhatWasTypedIsKept) {
  host.form.txtPoll.Text("77");
  host.form.Settings(0).press();
  select("A-first");
  EXPECT_EQ(host.form.txtPoll.Text(), "77");
  EXPECT_TRUE(host.form.Settings(0).Checked());
}

TEST_F(CockpitChange, TheSameOneAgainChangesNothing) {
  host.greet(0);
  host.network.takeSent();
  select("737-700");
  EXPECT_TRUE(host.network.takeSent().empty());
  EXPECT_TRUE(host.server.connect[0]->IsUp());
}

TEST_F(CockpitChange, OneWithoutSoundsEndsInAnInitializationError) {
  fs::remove(host.folder / "Cockpits/A-first/sound.cfg");
  select("A-first");
  EXPECT_THAT(host.op.takeBoxes(), ElementsAre(criticalBox("Initialization error")));
  EXPECT_EQ(host.exitStatus(), 1);
  EXPECT_EQ(host.form.sbStatusBar.panelText(1), host.folder.path() +
                                                    "\\Cockpits\\A-first\\sound.cfg cannot be "
                                                    "used: File not found");
}

}  // namespace
}  // namespace vorlent
