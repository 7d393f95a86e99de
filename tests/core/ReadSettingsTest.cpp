#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/Transcript.h"
#include "support/Sticks.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;

/// What a start takes from Vorlent.ini.
class ReadSettings : public ::testing::Test {
 protected:
  void startWith(const std::string& key, const std::string& value) {
    host.configure(key, value);
    host.start();
  }

  TestServer host;
  frmMainClient& form = host.form;
};

TEST_F(ReadSettings, TakesEveryKeyOfTheFile) {
  addSticks(host, 4);
  host.configure("Cockpit", "A-first");
  host.configure("Port", "6100");
  host.configure("Clients", "3");
  host.configure("Joysticks", "4");
  host.configure("JoysticksOn", "1");
  host.configure("Polling", "75");
  host.configure("SoundOn", "True");
  host.configure("IDSoundDevice", "2");
  host.configure("AutoTQ", "True");
  host.configure("FSOnTop", "True");
  host.configure("FSMax", "True");
  host.configure("WriteMcpOffsets", "True");
  host.start();
  EXPECT_EQ(form.cboDir.Text(), "A-first");
  EXPECT_EQ(host.store.CockpitName, "A-first");
  EXPECT_EQ(host.store.CockpitPath, host.folder.path() + "\\Cockpits\\A-first\\");
  EXPECT_EQ(host.store.BasePort, 6100);
  EXPECT_EQ(form.txtPort.Text(), "6100");
  EXPECT_EQ(host.store.ClientCount, 3);
  EXPECT_EQ(form.txtClients.Text(), "3");
  EXPECT_EQ(host.server.connect.size(), 3U);
  EXPECT_EQ(form.txtSticks.Text(), "4");
  EXPECT_EQ(host.store.JoysticksOnValue, 1);
  EXPECT_EQ(form.txtPoll.Text(), "75");
  EXPECT_EQ(host.store.SoundDeviceId, 2);
  for (int entry = 0; entry <= 4; ++entry) EXPECT_TRUE(form.Settings(entry).Checked()) << entry;
  EXPECT_TRUE(form.cmdSound.Enabled());
}

TEST_F(ReadSettings, LeavesTheMenuUncheckedWhereTheFileSaysFalse) {
  host.start();
  for (int entry = 0; entry <= 4; ++entry) EXPECT_FALSE(form.Settings(entry).Checked()) << entry;
  EXPECT_FALSE(form.cmdSound.Enabled());
  EXPECT_EQ(host.store.ShowTipValue, 0);
}

TEST_F(ReadSettings, ChecksOnlyTheEntryThatIsMeant) {
  startWith("AutoTQ", "True");
  EXPECT_TRUE(form.Settings(0).Checked());
  for (int entry = 1; entry <= 4; ++entry) EXPECT_FALSE(form.Settings(entry).Checked()) << entry;
}

TEST_F(ReadSettings, NoClientsCountAsOne) {
  startWith("Clients", "0");
  EXPECT_EQ(host.store.ClientCount, 1);
  EXPECT_EQ(form.txtClients.Text(), "1");
  EXPECT_EQ(host.server.connect.size(), 1U);
}

TEST_F(ReadSettings, SoundDeviceZeroSelectsTheFirst) {
  startWith("IDSoundDevice", "0");
  EXPECT_EQ(host.store.SoundDeviceId, 1);
}

TEST_F(ReadSettings, ListsTheSticksFromOneAndSelectsTheFirst) {
  startWith("Joysticks", "3");
  std::vector<std::string> sticks;
  for (const auto& item : form.cboStick.Items()) sticks.push_back(item.text);
  EXPECT_THAT(sticks, ElementsAre("1", "2", "3"));
  EXPECT_EQ(form.cboStick.ListIndex(), 0);
}

TEST_F(ReadSettings, NoStickCountsAsOne) {
  startWith("Joysticks", "0");
  EXPECT_EQ(form.txtSticks.Text(), "1");
  EXPECT_EQ(form.cboStick.Items().size(), 1U);
}

TEST_F(ReadSettings, NineSticksCountAsEight) {
  startWith("Joysticks", "9");
  EXPECT_EQ(form.txtSticks.Text(), "8");
  EXPECT_EQ(form.cboStick.Items().size(), 8U);
}

TEST_F(ReadSettings, RoundsDecimalsHalfToEven) {
  host.configure("Polling", "50.5");
  host.configure("Joysticks", "1.5");
  host.start();
  EXPECT_EQ(form.txtPoll.Text(), "50");
  EXPECT_EQ(form.txtSticks.Text(), "2");
}

TEST_F(ReadSettings, ReadsWithAPointAlsoUnderADecimalComma) {
  host.regional.mark = ",";
  startWith("Polling", "75.4");
  EXPECT_EQ(form.txtPoll.Text(), "75");
}

TEST_F(ReadSettings, PreparesTheWorkingFrequencies) {
  host.start();
  EXPECT_EQ(host.store.StandbyValues(1), 118.F);
  EXPECT_EQ(host.store.StandbyValues(2), 119.F);
  EXPECT_EQ(host.store.StandbyValues(3), 108.F);
  EXPECT_EQ(host.store.StandbyValues(4), 109.F);
  EXPECT_EQ(host.store.StandbyValues(5), 200.F);
}

TEST_F(ReadSettings, SeparatesTheRecordByOneBlank) {
  host.start();
  EXPECT_EQ(host.store.Sep, " ");
}

TEST_F(ReadSettings, StartsTheFuelTimer) {
  EXPECT_EQ(host.loop.running(30000), 0);
  host.start();
  EXPECT_EQ(host.loop.running(30000), 1);
}

TEST_F(ReadSettings, WriteMcpOffsetsHoldsFromTheLinksStart) {
  startWith("WriteMcpOffsets", "True");
  EXPECT_EQ(host.server.accessors.autoP->Do_Write_Offsets, 1);
}

TEST_F(ReadSettings, AClickTogglesTheEntry) {
  host.start();
  form.Settings(0).press();
  EXPECT_TRUE(form.Settings(0).Checked());
  form.Settings(0).press();
  EXPECT_FALSE(form.Settings(0).Checked());
}

TEST_F(ReadSettings, AClickOnSoundSwitchesItsButton) {
  host.start();
  form.Settings(1).press();
  EXPECT_TRUE(form.cmdSound.Enabled());
  form.Settings(1).press();
  EXPECT_FALSE(form.cmdSound.Enabled());
}

TEST_F(ReadSettings, AClickOnWriteOffsetsReachesTheLamps) {
  host.start();
  EXPECT_EQ(host.server.accessors.autoP->Do_Write_Offsets, 0);
  form.Settings(4).press();
  EXPECT_EQ(host.server.accessors.autoP->Do_Write_Offsets, 1);
  form.Settings(4).press();
  EXPECT_EQ(host.server.accessors.autoP->Do_Write_Offsets, 0);
}

TEST_F(ReadSettings, TheMenuHasItsCaptions) {
  EXPECT_EQ(form.Settings(0).Caption(), "&Automatic TQ");
  EXPECT_EQ(form.Settings(1).Caption(), "&Enable acft sound");
  EXPECT_EQ(form.Settings(2).Caption(), "FS on &top");
  EXPECT_EQ(form.Settings(3).Caption(), "FS &maximized");
  EXPECT_EQ(form.Settings(4).Caption(), "&Write MCP offsets");
}

}  // namespace
}  // namespace vorlent
