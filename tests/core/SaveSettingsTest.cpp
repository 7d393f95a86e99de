#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "base/files.h"
#include "core/Transcript.h"
#include "support/Sticks.h"
#include "support/places.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

/// What the exit writes into Vorlent.ini.
class SaveSettings : public ::testing::Test {
 protected:
  std::string saved() {
    host.server.failureDomain.run([this] { host.form.cmdExit4.press(); });
    return host.folder.read("Vorlent.ini");
  }
  std::string savedValue(const std::string& key) {
    saved();
    return clsIniRw().ReadKey("Vorlent", key, host.folder / "Vorlent.ini").asText();
  }

  TestServer host;
  frmMainClient& form = host.form;
};

TEST_F(SaveSettings, AStartAndAnExitChangeNothingButTheAddress) {
  host.start();
  EXPECT_EQ(saved(),
            "; a cockpit in a test\r\n"
            "[Vorlent]\r\n"
            "Cockpit=737-700\r\n"
            "Port=5000\r\n"
            "Ip=127.0.0.1\r\n"
            "Clients=2\r\n"
            "Joysticks=1\r\n"
            "JoysticksOn=0\r\n"
            "Polling=50\r\n"
            "SoundOn=False\r\n"
            "ShowTip=0\r\n"
            "IDSoundDevice=1\r\n"
            "AutoTQ=False\r\n"
            "FSOnTop=False\r\n"
            "FSMax=False\r\n"
            "WriteMcpOffsets=False\r\n");
}

TEST_F(SaveSettings, WritesWhatTheOperatorHasSet) {
  addSticks(host, 4);
  host.start();
  form.cboDir.ListIndex(1);
  form.txtPort.Text("5100");
  form.txtPort.loseFocus();
  form.txtClients.Text("3");
  form.txtSticks.Text("4");
  form.chkStick.Value(1);
  form.txtPoll.Text("80");
  host.store.SoundDeviceId = 2;
  host.store.ShowTipValue = 1;
  for (int entry = 0; entry <= 4; ++entry) form.Settings(entry).press();
  EXPECT_EQ(saved(),
            "; a cockpit in a test\r\n"
            "[Vorlent]\r\n"
            "Cockpit=A-first\r\n"
            "Port=5100\r\n"
            "Ip=127.0.0.1\r\n"
            "Clients=3\r\n"
            "Joysticks=4\r\n"
            "JoysticksOn=1\r\n"
            "Polling=80\r\n"
            "SoundOn=True\r\n"
            "ShowTip=1\r\n"
            "IDSoundDevice=2\r\n"
            "AutoTQ=True\r\n"
            "FSOnTop=True\r\n"
            "FSMax=True\r\n"
            "WriteMcpOffsets=True\r\n");
  EXPECT_EQ(host.store.CockpitName, "A-first");
}

TEST_F(SaveSettings, TheShippedFileKeepsItsTableOfTheMachinesKeys) {
  const std::string shipped = readFile(dataFolder() + "/Vorlent.ini");
  const std::string table = shipped.substr(shipped.find("[Platform]"));
  ASSERT_NE(table.find("; SouthernLatitudes |"), std::string::npos);
  host.folder.write("Vorlent.ini", shipped);
  host.configure("Polling", "70");
  host.start();
  const std::string text = saved();
  EXPECT_NE(text.find("Polling=70"), std::string::npos);
  EXPECT_TRUE(text.ends_with(table)) << text;
}

TEST_F(SaveSettings, CommentsBlankLinesAndUnknownKeysSurvive) {
  host.folder.write("Vorlent.ini",
                    "; the cockpit in the cellar\n"
                    "\n"
                    "[Platform]\n"
                    "ShareRoot=/srv/share\n"
                    "\n"
                    "[Vorlent]\n"
                    "; ports from here up\n"
                    "port = 5000\n"
                    "MyOwnKey=kept\n"
                    "Cockpit=737-700\n"
                    "Ip=127.0.0.1\n"
                    "Clients=2\n"
                    "Joysticks=1\n"
                    "JoysticksOn=0\n"
                    "Polling=50\n"
                    "SoundOn=False\n"
                    "ShowTip=0\n"
                    "IDSoundDevice=0\n"
                    "AutoTQ=false\n"
                    "FSOnTop=0\n"
                    "\n"
                    "FSMax=False\n"
                    "WriteMcpOffsets=False\n"
                    "; the end");
  host.start();
  EXPECT_EQ(saved(),
            "; the cockpit in the cellar\n"
            "\n"
            "[Platform]\n"
            "ShareRoot=/srv/share\n"
            "\n"
            "[Vorlent]\n"
            "; ports from here up\n"
            "port = 5000\n"
            "MyOwnKey=kept\n"
            "Cockpit=737-700\n"
            "Ip=127.0.0.1\n"
            "Clients=2\n"
            "Joysticks=1\n"
            "JoysticksOn=0\n"
            "Polling=50\n"
            "SoundOn=False\n"
            "ShowTip=0\n"
            "IDSoundDevice=1\n"
            "AutoTQ=False\n"
            "FSOnTop=False\n"
            "\n"
            "FSMax=False\n"
            "WriteMcpOffsets=False\n"
            "; the end");
}

TEST_F(SaveSettings, AnnouncesItselfOnTheStatusLine) {
  host.start();
  form.SaveCFG();
  EXPECT_EQ(form.sbStatusBar.panelText(1), "Save configuration");
}

TEST_F(SaveSettings, TakesThePortFromTheNumberInForceNotFromTheBox) {
  host.start();
  form.txtPort.Text("6000");
  EXPECT_EQ(savedValue("Port"), "5000");
}

TEST_F(SaveSettings, TakesTheStickBoxAsItIs) {
  addSticks(host, 1);
  host.configure("JoysticksOn", "1");
  host.start();
  form.chkStick.Value(0);
  EXPECT_EQ(savedValue("JoysticksOn"), "0");
}

TEST_F(SaveSettings, AnExitBeforeTheSticksAreStartedKeepsTheirState) {
  host.configure("JoysticksOn", "1");
  host.bus.windows.clear();
  host.start();
  EXPECT_EQ(host.op.takeBoxes().size(), 1u);
  EXPECT_EQ(clsIniRw().ReadKey("Vorlent", "JoysticksOn", host.folder / "Vorlent.ini").asText(),
            "1");
}

TEST_F(SaveSettings, ANumberTypedWithADecimalCommaIsWrittenWithAPoint) {
  host.start();
  form.txtIP.Text("12,5");
  EXPECT_EQ(savedValue("Ip"), "12.5");
}

TEST_F(SaveSettings, ABoxThatIsNoNumberEndsTheProcessKeepsItsKeyAndSavesAllOthers) {
  host.start();
  form.Settings(0).press();
  form.txtPoll.Text("many");
  const std::string after = saved();
  EXPECT_THAT(after, HasSubstr("\r\nPolling=50\r\n"));
  EXPECT_THAT(after, HasSubstr("\r\nIp=127.0.0.1\r\n"));
  EXPECT_THAT(after, HasSubstr("\r\nAutoTQ=True\r\n"));
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(criticalBox("Run-time error '13':\n\nType mismatch")));
  EXPECT_EQ(host.exitStatus(), 1);
}

TEST_F(SaveSettings, ABoxThatIsNoNumberIsToldWithItsKeyAndWhatItNeeds) {
  host.start();
  form.txtPoll.Text("many");  // the box takes digits alone
  saved();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(criticalBox("Run-time error '13':\n\nType mismatch")));
  EXPECT_EQ(form.sbStatusBar.panelText(1),
            "The box for Polling holds \"\", its old value stays. Needs a number from 0 to 32767");
}

TEST_F(SaveSettings, EmptiedBoxesForPortAndClientsSaveWhatHolds) {
  host.start();
  form.txtPort.Text("");
  form.txtPort.loseFocus();
  form.txtClients.Text("");
  const std::string after = saved();
  EXPECT_THAT(after, HasSubstr("\r\nPort=5000\r\n"));
  EXPECT_THAT(after, HasSubstr("\r\nClients=2\r\n"));
  EXPECT_EQ(host.exitStatus(), 0);
}

TEST_F(SaveSettings, ABoxBeyond16BitsEndsTheProcessKeepsItsKeyAndSavesAllOthers) {
  host.start();
  form.Settings(3).press();
  form.txtPoll.Text("32768");
  const std::string after = saved();
  EXPECT_THAT(after, HasSubstr("\r\nPolling=50\r\n"));
  EXPECT_THAT(after, HasSubstr("\r\nFSMax=True\r\n"));
  EXPECT_THAT(host.op.takeBoxes(), ElementsAre(criticalBox("Run-time error '6':\n\nOverflow")));
  EXPECT_EQ(host.exitStatus(), 1);
}

TEST_F(SaveSettings, ASaveThatFailsLeavesTheOldFile) {
  host.start();
  const std::string before = host.folder.read("Vorlent.ini");
  fs::create_directories(host.folder / "Vorlent.ini.new");
  form.Settings(0).press();
  EXPECT_EQ(saved(), before);
  // A folder in the way is no path for a file to one system, and denied by another.
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(AnyOf(criticalBox("Run-time error '75':\n\nPath/File access error"),
                                criticalBox("Run-time error '70':\n\nPermission denied"))));
  EXPECT_THAT(form.sbStatusBar.panelText(1), StartsWith("Vorlent.ini was not saved: "));
  EXPECT_EQ(host.exitStatus(), 1);
}

}  // namespace
}  // namespace vorlent
