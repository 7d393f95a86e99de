#include <gmock/gmock.h>

#include "windows/support/ForeignClient.h"
#include "windows/support/OwnConsole.h"
#include "windows/support/WindowsCockpit.h"
#include "windows/support/windowsOf.h"

namespace vorlent {
namespace {

using testing::HasSubstr;
using testing::Optional;
using testing::StartsWith;

const std::string Greeting = "Connection on a b 50 localhost";

/// A cockpit that is up, and a display.
class ServerProgram : public testing::Test {
 protected:
  void bringUp() {
    cockpit.startSimulator();
    cockpit.bringServerUp();
  }
  void greetAndReceive() {
    display.send(cockpit.basePort, Greeting);
    ASSERT_TRUE(display.receive("Data "));
  }

  WindowsCockpit cockpit;
  DisplayLink display;
};

TEST_F(ServerProgram, ADisplayThatGreetsGetsTheReplyAndThenTheRecords) {
  bringUp();
  display.send(cockpit.basePort, Greeting);
  EXPECT_EQ(display.receive("8"), "81\\737-700\\2\\2047\\.");
  const auto record = display.receive("Data ");
  ASSERT_TRUE(record);
  EXPECT_THAT(*record, StartsWith("Data 2 1 "));
  EXPECT_THAT(*record, testing::EndsWith(" end "));
}

TEST_F(ServerProgram, TheDisplayProgramPrintsOneRecord) {
  bringUp();
  const auto program = cockpit.program("vorlent-display",
                                       {"127.0.0.1", std::to_string(cockpit.basePort), "--print"});
  EXPECT_EQ(program->waitForEnd(), 0);
  EXPECT_THAT(program->output(), HasSubstr("Latitude"));
  EXPECT_THAT(program->output(), HasSubstr("Engines(2).N1"));
}

TEST_F(ServerProgram, ConsoleCommandsAreAnsweredByALine) {
  bringUp();
  cockpit.server->type("get frmMainClient.txtPort");
  EXPECT_EQ(cockpit.server->waitForLine("="), "= " + std::to_string(cockpit.basePort));
  cockpit.server->type("press frmMainClient.cmdNothing");
  EXPECT_THAT(cockpit.server->waitForLine("error: "), Optional(HasSubstr("cmdNothing")));
}

TEST_F(ServerProgram, StopAndStartLeaveTheServerUp) {
  bringUp();
  greetAndReceive();
  for (const std::string caption : {"= Start", "= Stop"}) {
    cockpit.server->type("press frmMainClient.cmdStop");
    EXPECT_EQ(cockpit.server->waitForLine("="), "=");
    cockpit.server->type("get frmMainClient.cmdStop");
    EXPECT_EQ(cockpit.server->waitForLine("= S"), caption);
  }
  greetAndReceive();
}

TEST_F(ServerProgram, RecognisesXPlane) {
  cockpit.startSimulator({"--xplane"});
  cockpit.bringServerUp();
  EXPECT_THAT(cockpit.server->output(), HasSubstr("2| Waiting for X-Plane..."));
}

TEST_F(ServerProgram, OnlyOneServerRunsInAFolder) {
  bringUp();
  const auto second = cockpit.program("vorlentd");
  EXPECT_EQ(second->waitForEnd(), 1);
  EXPECT_THAT(second->output(),
              HasSubstr("box critical \"Vorlent\": You can only run 1 Vorlent at a time"));
}

TEST_F(ServerProgram, ASecondSimulatorIsRefusedAndTheFirstServesOn) {
  bringUp();
  const auto second = cockpit.program("vorlent-sim");
  EXPECT_EQ(second->waitForEnd(), 1);
  EXPECT_THAT(second->output(), HasSubstr("another simulator is running"));
  greetAndReceive();
}

TEST_F(ServerProgram, WithoutASimulatorItSaysSoAndEndsInOrder) {
  cockpit.startServer();
  EXPECT_EQ(cockpit.server->waitForEnd(), 0);
  EXPECT_THAT(cockpit.server->output(),
              HasSubstr("box critical \"Initialization error\": FSUIPC Connection failed: Cannot "
                        "link to FSUIPC; Possible cause: FSUIPC not installed, inaccessible, or "
                        "wrong version"));
  EXPECT_THAT(cockpit.read("log.txt"), testing::EndsWith("Vorlent close\r\nQuit\r\n"));
}

TEST_F(ServerProgram, ASimulatorThatIsKilledEndsTheServerWithTheWordsOfTheLink) {
  bringUp();
  greetAndReceive();
  cockpit.simulator->kill();
  EXPECT_EQ(cockpit.server->waitForEnd(), 1);
  EXPECT_THAT(cockpit.server->output(),
              HasSubstr("1| FSUIPC Process error IPC sendmessage failed all retries"));
}

/// An orderly exit saves the settings and sets the rudder trim back to 0.
class EndOfTheProgram : public ServerProgram {
 protected:
  void SetUp() override {
    bringUp();
    greetAndReceive();
    ForeignClient().write<double>(RudderTrim_rad, 0.02);
    cockpit.server->type("set frmMainClient.txtPoll 75");
    ASSERT_TRUE(cockpit.server->waitForLine("="));
  }
  void expectOrder() {
    EXPECT_EQ(cockpit.server->waitForEnd(), 0);
    EXPECT_THAT(cockpit.read("Vorlent.ini"), HasSubstr("Polling=75\r\n"));
    EXPECT_THAT(cockpit.read("log.txt"), testing::EndsWith("Vorlent close\r\nQuit\r\n"));
    EXPECT_EQ(ForeignClient().read<double>(RudderTrim_rad), 0);
  }
  HWND endWindow() const { return windowOf(cockpit.server->id(), "VorlentEnd"); }

  static constexpr std::uint32_t RudderTrim_rad = 0x2EC0;
};

TEST_F(EndOfTheProgram, ExitIsInOrder) {
  cockpit.server->type("exit");
  expectOrder();
}

TEST_F(EndOfTheProgram, ALogOffIsAnOrderlyExitBeforeItIsAnswered) {
  ASSERT_NE(endWindow(), nullptr);
  EXPECT_EQ(SendMessageW(endWindow(), WM_QUERYENDSESSION, 0, ENDSESSION_LOGOFF), 1);
  SendMessageW(endWindow(), WM_ENDSESSION, 1, ENDSESSION_LOGOFF);
  EXPECT_THAT(cockpit.read("log.txt"), testing::EndsWith("Vorlent close\r\nQuit\r\n"));
  expectOrder();
}

class EndInAConsole : public EndOfTheProgram {
 protected:
  OwnConsole console;
};

TEST_F(EndInAConsole, CtrlCIsAnOrderlyExit) {
  console.pressCtrlC();
  expectOrder();
}

TEST_F(EndOfTheProgram, BeingAskedToCloseIsAnOrderlyExit) {
  ASSERT_NE(endWindow(), nullptr);
  PostMessageW(endWindow(), WM_CLOSE, 0, 0);
  expectOrder();
}

}  // namespace
}  // namespace vorlent
