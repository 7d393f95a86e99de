#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>

#include "endtoend/Cockpit.h"

namespace vorlent {
namespace {

using testing::HasSubstr;
using testing::Optional;
using testing::StartsWith;

const std::string Greeting = "Connection on a b 50 localhost";

std::string blockOf(pid_t serverId) {
  std::ostringstream hex;
  hex << std::uppercase << std::hex << serverId;
  return "/dev/shm/FSASMLIB.IPC." + hex.str() + ".1";
}

bool leftOverBlock(pid_t serverId) { return std::filesystem::exists(blockOf(serverId)); }

/// A cockpit that is up, and a display.
class Flight : public testing::Test {
 protected:
  void SetUp() override {
    cockpit.startSimulator();
    cockpit.bringServerUp();
  }

  void greetAndReceive() {
    display.send(cockpit.basePort, Greeting);
    ASSERT_TRUE(display.receive("Data "));
  }

  Cockpit cockpit;
  DisplaySocket display;
};
using Exit = Flight;
using Failure = Flight;

TEST_F(Flight, ADisplayThatGreetsGetsTheReplyAndThenTheRecords) {
  display.send(cockpit.basePort, Greeting);
  EXPECT_EQ(display.receive("8"), "81\\737-700\\2\\2047\\.");
  const auto record = display.receive("Data ");
  ASSERT_TRUE(record);
  EXPECT_THAT(*record, StartsWith("Data 2 1 "));
  EXPECT_THAT(*record, testing::EndsWith(" end "));
  EXPECT_TRUE(display.receive("Data "));
}

TEST_F(Flight, EachSessionHasItsOwnPort) {
  const DisplaySocket first;
  const DisplaySocket third;
  first.send(cockpit.basePort, Greeting);
  third.send(static_cast<std::uint16_t>(cockpit.basePort + 2), Greeting);
  EXPECT_TRUE(first.receive("Data "));
  EXPECT_TRUE(third.receive("Data "));
}

TEST(Simulator, TheAircraftMoves) {
  Cockpit cockpit;
  cockpit.startSimulator({"--speed", "20"});
  cockpit.bringServerUp();
  const DisplaySocket display;
  display.send(cockpit.basePort, Greeting);
  const auto early = display.receive("Data ");
  ASSERT_TRUE(early);
  std::optional<std::string> later;
  for (int i = 0; i < 200 && (!later || *later == *early); ++i) later = display.receive("Data ");
  EXPECT_NE(later, early);
}

TEST_F(Flight, StopClientsSendsXtermTwice) {
  greetAndReceive();
  cockpit.server->type("press frmMainClient.cmdStopCts");
  EXPECT_EQ(display.receive("Xterm"), "Xterm");
  EXPECT_EQ(display.receive("Xterm"), "Xterm");
  EXPECT_EQ(display.receive("", 300ms), std::nullopt);
}

TEST_F(Flight, AMessageFromAnotherMachineIsToldAndDropped) {
  greetAndReceive();
  const DisplaySocket stranger("127.0.0.2");
  stranger.send(cockpit.basePort, Greeting);
  EXPECT_THAT(cockpit.server->waitForLine("127.0.0.2"), Optional(HasSubstr("dropped")));
  EXPECT_EQ(stranger.receive("", 300ms), std::nullopt);
  EXPECT_TRUE(display.receive("Data "));
}

TEST_F(Flight, TheDisplayProgramPrintsOneRecord) {
  const auto program = cockpit.program("vorlent-display",
                                       {"127.0.0.1", std::to_string(cockpit.basePort), "--print"});
  EXPECT_EQ(program->waitForEnd(), 0);
  EXPECT_THAT(program->output(), HasSubstr("Latitude"));
  EXPECT_THAT(program->output(), HasSubstr("Engines(2).N1"));
}

TEST(Start, WaitsForASimulatorThatIsNotReady) {
  Cockpit cockpit;
  cockpit.startSimulator({"--not-ready", "1.5"});
  cockpit.startServer();
  EXPECT_TRUE(cockpit.server->waitForLine("2| Waiting for Flight Simulator..."));
  EXPECT_TRUE(cockpit.server->waitForLine("2| FS Ready"));
  EXPECT_TRUE(cockpit.server->waitForLine("1| OK"));
}

TEST(Start, WithoutASimulatorItSaysSoAndEndsInOrder) {
  Cockpit cockpit;
  cockpit.startServer();
  EXPECT_EQ(cockpit.server->waitForEnd(), 0);
  EXPECT_THAT(cockpit.server->output(),
              HasSubstr("box critical \"Initialization error\": FSUIPC Connection failed: Cannot "
                        "link to FSUIPC; Possible cause: FSUIPC not installed, inaccessible, or "
                        "wrong version\n"));
  EXPECT_THAT(cockpit.folder.read("log.txt"), testing::EndsWith("Vorlent close\r\nQuit\r\n"));
}

TEST(Start, RecognisesXPlane) {
  Cockpit cockpit;
  cockpit.startSimulator({"--xplane"});
  cockpit.bringServerUp();
  EXPECT_THAT(cockpit.server->output(), HasSubstr("2| Waiting for X-Plane..."));
}

TEST(Simulator, BehindXpuipcTheRecordShowsTheAircraft) {
  Cockpit cockpit;
  cockpit.startSimulator({"--xplane"});
  cockpit.bringServerUp();
  const DisplaySocket display;
  display.send(cockpit.basePort, Greeting);
  EXPECT_THAT(display.receive("11\\"), Optional(HasSubstr("\\2\\2047\\")));
  const auto record = display.receive("Data 2 1 ");
  ASSERT_TRUE(record);
  double latitude = 0;
  double longitude = 0;
  double altitude_ft = 0;
  std::istringstream(record->substr(9)) >> latitude >> longitude >> altitude_ft;
  EXPECT_NEAR(latitude, 52, 0.5);
  EXPECT_NEAR(altitude_ft, 5000, 100);
}

TEST(Start, OnlyOneServerRunsInAFolder) {
  Cockpit cockpit;
  cockpit.startSimulator();
  cockpit.bringServerUp();
  const auto second = cockpit.program("vorlentd");
  EXPECT_EQ(second->waitForEnd(), 1);
  EXPECT_THAT(second->output(),
              HasSubstr("box critical \"Vorlent\": You can only run 1 Vorlent at a time"));
}

TEST(Start, AnotherFolderIsAnotherInstallation) {
  Cockpit first;
  first.startSimulator();
  first.bringServerUp();
  Cockpit second;
  second.startSimulator();
  second.bringServerUp();
  const DisplaySocket display;
  display.send(second.basePort, Greeting);
  EXPECT_TRUE(display.receive("Data "));
}

TEST_F(Exit, ATerminationSignalSavesTheSettingsAndLeavesNothingBehind) {
  cockpit.server->type("set frmMainClient.txtPoll 75");
  ASSERT_TRUE(cockpit.server->waitForLine("="));
  cockpit.server->signal(SIGTERM);
  EXPECT_EQ(cockpit.server->waitForEnd(), 0);
  EXPECT_THAT(cockpit.folder.read("Vorlent.ini"), HasSubstr("Polling=75\r\n"));
  EXPECT_FALSE(leftOverBlock(cockpit.server->id()));
  cockpit.simulator->signal(SIGTERM);
  EXPECT_EQ(cockpit.simulator->waitForEnd(), 0);
  EXPECT_TRUE(std::filesystem::is_empty(cockpit.folder / "bus"));
}

TEST_F(Exit, ALimitOnTheSizeOfFilesIsToldAndKeepsTheOldSettings) {
  const std::string before = cockpit.folder.read("Vorlent.ini");
  const rlimit tooSmall{100, 100};
  ASSERT_EQ(prlimit(cockpit.server->id(), RLIMIT_FSIZE, &tooSmall, nullptr), 0);
  cockpit.server->type("set frmMainClient.txtPoll 77");
  cockpit.server->signal(SIGTERM);
  EXPECT_TRUE(cockpit.server->waitForLine("1| Vorlent.ini was not saved: "));
  EXPECT_EQ(cockpit.server->waitForEnd(), 1);
  EXPECT_EQ(cockpit.folder.read("Vorlent.ini"), before);
}

TEST(Start, TheExitButtonEndsItWhileItWaitsForTheSimulator) {
  Cockpit cockpit;
  cockpit.startSimulator({"--not-ready", "1000"});
  cockpit.startServer();
  ASSERT_TRUE(cockpit.server->waitForLine("2| Waiting for Flight Simulator..."));
  cockpit.server->type("press frmMainClient.cmdExit4");
  EXPECT_EQ(cockpit.server->waitForEnd(), 0);
  EXPECT_THAT(cockpit.server->output(), HasSubstr("1| Vorlent close\n"));
}

TEST_F(Failure, ASimulatorThatDiesEndsTheServerWithTheWordsOfTheLink) {
  greetAndReceive();
  cockpit.simulator->signal(SIGKILL);
  EXPECT_EQ(cockpit.server->waitForEnd(), 1);
  EXPECT_THAT(cockpit.server->output(),
              HasSubstr("1| FSUIPC Process error IPC sendmessage failed all retries\n"));
  EXPECT_FALSE(leftOverBlock(cockpit.server->id()));
}

TEST_F(Failure, ABlockThatIsCutShortEndsTheServerInOrderAndNotTheSimulator) {
  greetAndReceive();
  std::filesystem::resize_file(blockOf(cockpit.server->id()), 100);
  EXPECT_EQ(cockpit.server->waitForEnd(), 1);
  EXPECT_THAT(cockpit.server->output(), HasSubstr("1| FSUIPC Process error "));
  cockpit.bringServerUp();
  greetAndReceive();
}

/// A folder that is not this user's.
std::string folderOfAnotherUser(const TempFolder& folder) {
  // Nobody's when the tests run as root, otherwise root's.
  constexpr uid_t Nobody = 65534;
  if (chown(folder.path().c_str(), Nobody, Nobody) == 0 && getuid() == 0) return folder.path();
  return "/usr";
}

TEST(Start, ABusFolderOfAnotherUserIsToldAsWhatItIs) {
  const Cockpit cockpit;
  const TempFolder anothers;
  const std::string bus = folderOfAnotherUser(anothers);
  const std::string why =
      "The folder " + bus + " for the simulator interface belongs to another user\n";
  Process simulator(cockpit.folder / "vorlent-sim", {}, {"VORLENT_BUS=" + bus});
  EXPECT_EQ(simulator.waitForEnd(), 1);
  EXPECT_EQ(simulator.output(), "vorlent-sim: " + why);
  Process server(cockpit.folder / "vorlentd", {}, {"VORLENT_BUS=" + bus});
  EXPECT_EQ(server.waitForEnd(), 0);
  EXPECT_THAT(server.output(),
              HasSubstr("box critical \"Initialization error\": FSUIPC Connection failed: " + why));
}

TEST_F(Failure, ASimulatorThatHangsEndsTheServerAfterItsRetries) {
  greetAndReceive();
  cockpit.simulator->signal(SIGSTOP);
  // Two polls of eleven tries each, 2 s a try.
  EXPECT_EQ(cockpit.server->waitForEnd(100s), 1);
  EXPECT_THAT(cockpit.server->output(),
              HasSubstr("1| FSUIPC Process error IPC timed out all retries\n"));
  cockpit.simulator->signal(SIGCONT);
}

}  // namespace
}  // namespace vorlent
