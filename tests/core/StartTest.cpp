#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "core/Transcript.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;

TEST(Start, GoesThroughItsStepsInOrder) {
  TestServer host;
  const Transcript transcript(host);
  host.start();
  EXPECT_THAT(
      transcript.lines,
      ElementsAre("show frmMainClient", "2| Waiting for clients....", "1| Init IPC", "sleep 100",
                  "1| Start ", "2| Waiting for Flight Simulator...", "sleep 500", "2| FS Ready",
                  "2| Waiting for clients....", "1| Init flaps", "1| SetSocks", "1| OK"));
}

TEST(Start, LogsItsStepsInOrder) {
  TestServer host;
  host.folder.write("log.txt", "the flight before\r\n");
  host.start();
  EXPECT_EQ(host.log(),
            "Init IPC\r\n"
            "Start \r\n"
            "ready start\r\n"
            "Init flaps\r\n"
            "SetSocks\r\n"
            "OK\r\n");
}

TEST(Start, ALogThatCannotBeDeletedIsPassedOver) {
  TestServer host;
  host.folder.write("log.txt/in the way", "");
  host.start();
  EXPECT_EQ(host.exitStatus(), std::nullopt);
  EXPECT_EQ(host.form.sbStatusBar.panelText(1), "OK");
}

TEST(Start, ShowsTheMainWindowNonModal) {
  TestServer host;
  host.start();
  EXPECT_THAT(host.op.shown,
              ElementsAre(RecordingOperator::Shown{"frmMainClient", "Vorlent", false}));
  EXPECT_TRUE(host.form.Visible());
}

TEST(Start, ShowsTheHourglassUntilTheLinkAndTheSocketsStand) {
  TestServer host;
  Transcript transcript(host);
  std::vector<Pointer> whileWaiting;
  transcript.onSleep = [&](int) { whileWaiting = host.op.pointers; };
  host.start();
  EXPECT_THAT(whileWaiting, ElementsAre(Pointer::Hourglass));
  EXPECT_THAT(host.op.pointers, ElementsAre(Pointer::Hourglass, Pointer::Normal));
}

TEST(Start, NamesSimulatorAndInterfaceInTheCaption) {
  TestServer host;
  host.start();
  EXPECT_THAT(host.form.Caption(), MatchesRegex("Vorlent .+\\..+ on: FSX, UIPC version: 4\\.950"));
}

TEST(Start, NamesXPlaneInTheCaption) {
  TestServer host;
  host.bus.put(0x6FFF, std::uint8_t{1});
  host.bus.put(0x3304, std::uint32_t{0x50000002});
  host.start();
  EXPECT_THAT(host.form.Caption(),
              MatchesRegex("Vorlent .+\\..+ on: X-Plane, UIPC version: 5\\.000b"));
}

TEST(Start, TakesTheDecimalMarkFromTheRegionalSettings) {
  TestServer host;
  host.regional.mark = ",";
  host.start();
  EXPECT_EQ(host.store.sDecimal, ",");
}

TEST(Start, DispatchesWaitingEventsBeforeTheLinkIsOpened) {
  TestServer host;
  int requestsAtEvent = -1;
  host.loop.post([&] { requestsAtEvent = host.bus.requests; });
  host.start();
  EXPECT_EQ(requestsAtEvent, 0);
}

TEST(Start, MeasuresFromTheEndOfTheStart) {
  TestServer host;
  host.store.Ticks = 7;
  host.start();
  EXPECT_EQ(host.store.Ticks, 0);
  EXPECT_EQ(host.loop.running(400), 1);
  EXPECT_EQ(host.loop.running(30000), 1);
  EXPECT_EQ(host.loop.running(60), 0);
  EXPECT_EQ(host.loop.running(1000), 0);
  EXPECT_EQ(host.loop.running(100), 0);
}

TEST(Start, WithoutSimulatorEndsByTheExitPath) {
  const std::string NoSimulator =
      "No simulator is running: start one (vorlent-sim is the built-in one), then Vorlent";
  TestServer host;
  host.bus.windows.clear();
  const std::string flaps = host.folder.read("Cockpits/737-700/Flaps.cfg");
  const Transcript transcript(host);
  host.start();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(RecordingOperator::Box{
                  "FSUIPC Connection failed: Cannot link to FSUIPC; Possible cause: FSUIPC not "
                  "installed, inaccessible, or wrong version",
                  BoxIcon::Critical, "Initialization error"}));
  EXPECT_EQ(host.exitStatus(), 0);
  EXPECT_THAT(transcript.lines,
              ElementsAre("show frmMainClient", "2| Waiting for clients....", "1| Init IPC",
                          "1| " + NoSimulator, "1| Save configuration", "1| Vorlent close"));
  EXPECT_EQ(host.log(),
            "Init IPC\r\n" + NoSimulator + "\r\nSave configuration\r\nVorlent close\r\nQuit\r\n");
  EXPECT_EQ(host.folder.read("Cockpits/737-700/Flaps.cfg"), flaps);
  EXPECT_EQ(host.form.Caption(), "Vorlent");
  EXPECT_FALSE(host.form.Visible());
  EXPECT_THAT(host.network.bound(), IsEmpty());
  EXPECT_EQ(host.loop.running(400), 0);
}

TEST(Start, WithoutSimulatorWritesTheSettingsAgain) {
  TestServer host;
  host.bus.windows.clear();
  host.configure("IDSoundDevice", "0");
  host.start();
  EXPECT_EQ(host.op.takeBoxes().size(), 1U);
  EXPECT_NE(host.folder.read("Vorlent.ini").find("IDSoundDevice=1\r\n"), std::string::npos);
}

TEST(Start, AFlapFileThatCannotBeUsedIsToldWithItsName) {
  TestServer host;
  host.folder.write("Cockpits/737-700/Flaps.cfg", "");
  host.start();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(criticalBox("Run-time error '62':\n\nInput past end of file")));
  EXPECT_THAT(host.log(), HasSubstr("Flaps.cfg cannot be used: Input past end of file\r\n"));
}

TEST(Start, ARunTimeErrorShowsItsNumberAndEnds) {
  TestServer host;
  host.folder.write("Offsets.ini", "[Mcpbuttons]\r\nAP=lamp\r\n");
  host.start();
  EXPECT_THAT(host.op.takeBoxes(),
              ElementsAre(criticalBox("Run-time error '13':\n\nType mismatch\nOffsets.ini, section "
                                      "Mcpbuttons, key AP: \"lamp\"")));
  EXPECT_EQ(host.exitStatus(), 1);
}

}  // namespace
}  // namespace vorlent
