#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "core/Transcript.h"

namespace vorlent {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Write = FakeSimulatorBus::Write;

const std::vector<std::uint8_t> EightZeros(8, 0);

class Exit : public ::testing::Test {
 protected:
  Exit() { host.start(); }
  void press(Button& button) {
    host.server.failureDomain.run([&button] { button.press(); });
  }
  void exit() { press(host.form.cmdExit4); }
  std::string flaps() const { return host.folder.read("Cockpits/737-700/Flaps.cfg"); }
  std::string savedPolling() const {
    return clsIniRw().ReadKey("Vorlent", "Polling", host.folder / "Vorlent.ini").asText();
  }

  TestServer host;
};

TEST_F(Exit, EndsInOrderWithStatusZero) {
  exit();
  EXPECT_EQ(host.exitStatus(), 0);
  const std::string log = host.log();
  EXPECT_EQ(log.substr(log.find("OK\r\n")),
            "OK\r\nSave configuration\r\nVorlent close\r\nQuit\r\n");
  EXPECT_THAT(host.op.hidden, ElementsAre("frmMainClient"));
  EXPECT_FALSE(host.form.Visible());
}

TEST_F(Exit, TheCloseBoxIsTheExitButton) {
  host.server.failureDomain.run([this] { host.form.close(); });
  EXPECT_EQ(host.exitStatus(), 0);
  EXPECT_EQ(host.form.sbStatusBar.panelText(1), "Vorlent close");
}

TEST_F(Exit, TheFileMenusEntryIsTheExitButton) {
  EXPECT_EQ(host.form.mnuFile(2).Caption(), "&Exit");
  press(host.form.mnuFile(2));
  EXPECT_EQ(host.exitStatus(), 0);
  EXPECT_EQ(host.form.sbStatusBar.panelText(1), "Vorlent close");
}

TEST_F(Exit, KillsEveryTimer) {
  host.greet(0);
  host.loop.advance(1200);
  EXPECT_EQ(host.loop.running(60), 1);
  EXPECT_EQ(host.loop.running(400), 1);
  exit();
  EXPECT_EQ(host.loop.running(60), 0);
  EXPECT_EQ(host.loop.running(400), 0);
  EXPECT_EQ(host.loop.running(30000), 0);
  EXPECT_EQ(host.loop.running(100), 0);
}

TEST_F(Exit, KillsThePollBeforeAnythingElse) {
  host.greet(0);
  int pollsAtTheTrims = -1;
  host.bus.onRequest = [&](SendResult served, std::byte*) {
    pollsAtTheTrims = host.loop.running(60);
    return served;
  };
  exit();
  EXPECT_EQ(pollsAtTheTrims, 0);
}

TEST_F(Exit, ZeroesTheRudderTrim) {
  host.bus.writes.clear();
  exit();
  EXPECT_THAT(host.bus.writes, ElementsAre(Write{0x2EC0, EightZeros}));
}

TEST_F(Exit, ZeroesTheAileronTrimFirstWhenTheAutopilotIsEngaged) {
  host.bus.writes.clear();
  host.server.autoflight.xAutoP->ApEngaged(1);
  exit();
  EXPECT_THAT(host.bus.writes, ElementsAre(Write{0x2EB0, EightZeros}, Write{0x2EC0, EightZeros}));
}

TEST_F(Exit, ZeroesTheTrimsBeforeItWritesFiles) {
  host.form.txtFlaps.Text("9");
  host.form.txtPoll.Text("80");
  std::string flapsThen;
  host.bus.onRequest = [&](SendResult served, std::byte*) {
    flapsThen = flaps();
    return served;
  };
  exit();
  EXPECT_EQ(flapsThen, "1,2,5,10,15,25,30,40\r\n");
  EXPECT_EQ(flaps().substr(0, 3), "9\r\n");
  EXPECT_EQ(savedPolling(), "80");
}

TEST_F(Exit, WritesTheFlapsThenTheSettingsThenClosesTheLinkAndTheSockets) {
  host.form.txtFlaps.Text("9");
  host.form.txtPoll.Text("80");
  std::vector<std::string> states;
  host.form.sbStatusBar.addView([&](int) {
    states.push_back(host.form.sbStatusBar.panelText(1) + ": flaps " + flaps().substr(0, 1) +
                     ", polling " + savedPolling() + ", blocks " +
                     std::to_string(host.bus.openBlocks) + ", sockets " +
                     std::to_string(host.network.bound().size()) + ", fuel timer " +
                     std::to_string(host.loop.running(30000)));
  });
  exit();
  EXPECT_THAT(
      states,
      ElementsAre("Save configuration: flaps 9, polling 50, blocks 1, sockets 2, fuel timer 1",
                  "Vorlent close: flaps 9, polling 80, blocks 0, sockets 0, fuel timer 0"));
}

TEST_F(Exit, LeavesNothingOfTheLinkBehind) {
  exit();
  EXPECT_EQ(host.bus.openBlocks, 0);
  EXPECT_EQ(host.bus.mappedViews, 0);
  EXPECT_THAT(host.bus.atoms, IsEmpty());
}

TEST_F(Exit, ReleasesSessionsAndClasses) {
  exit();
  EXPECT_THAT(host.server.connect, IsEmpty());
  EXPECT_EQ(host.server.fsuipc, nullptr);
  EXPECT_EQ(host.server.accessors.radio, nullptr);
  EXPECT_EQ(host.server.accessors.autoP, nullptr);
  EXPECT_EQ(host.server.autoflight.xAutoP, nullptr);
  EXPECT_EQ(host.server.sound, nullptr);
  EXPECT_EQ(host.server.accessors.eng, nullptr);
  EXPECT_EQ(host.server.accessors.fsOpt, nullptr);
  EXPECT_EQ(host.server.accessors.srv, nullptr);
}

TEST_F(Exit, NothingRunsAfterTheEnd) {
  host.greet(0);
  exit();
  const int requests = host.bus.requests;
  const std::string log = host.log();
  host.loop.advance(100000);
  exit();
  EXPECT_EQ(host.bus.requests, requests);
  EXPECT_EQ(host.log(), log);
}

TEST_F(Exit, ASimulatorThatIsGoneIsToldAndTheSettingsAreSavedAllTheSame) {
  host.form.Settings(Setting::FsOnTop).press();
  host.form.txtFlaps.Text("1,5");
  host.bus.unansweredRequests = 1000;
  exit();
  EXPECT_EQ(host.exitStatus(), 1);
  EXPECT_THAT(host.log(), HasSubstr("FSUIPC Process error IPC timed out all retries"));
  EXPECT_THAT(host.folder.read("Vorlent.ini"), HasSubstr("\r\nFSOnTop=True\r\n"));
  EXPECT_EQ(host.folder.read("Cockpits/737-700/Flaps.cfg").substr(0, 5), "1,5\r\n");
}

TEST_F(Exit, AFlapFileThatCannotBeWrittenIsToldAndTheSettingsAreSavedAllTheSame) {
  host.form.Settings(Setting::FsOnTop).press();
  std::filesystem::remove(host.folder / "Cockpits/737-700/Flaps.cfg");
  std::filesystem::create_directories(host.folder / "Cockpits/737-700/Flaps.cfg");
  exit();
  EXPECT_EQ(host.exitStatus(), 1);
  EXPECT_EQ(host.op.takeBoxes().size(), 1U);
  EXPECT_THAT(host.log(), HasSubstr("Flaps.cfg was not saved: "));
  EXPECT_THAT(host.folder.read("Vorlent.ini"), HasSubstr("\r\nFSOnTop=True\r\n"));
  EXPECT_THAT(host.bus.writes, Contains(Write{0x2EC0, std::vector<std::uint8_t>(8, 0)}));
}

}  // namespace
}  // namespace vorlent
