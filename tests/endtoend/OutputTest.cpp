#include <gmock/gmock.h>
#include <signal.h>
#include <sys/wait.h>

#include <optional>
#include <string>

#include "endtoend/Cockpit.h"
#include "endtoend/TerminalSession.h"
#include "support/eventually.h"

namespace vorlent {
namespace {

using testing::HasSubstr;

constexpr char CtrlS = '\x13';
constexpr char CtrlQ = '\x11';

/// A display that is greeted only once the server has carried out all commands before: its session
/// answers as long as the flight goes on.
void expectFlightGoesOn(const Cockpit& cockpit) {
  const DisplaySocket display;
  display.send(cockpit.basePort, "Connection on a b 50 localhost");
  for (int record = 0; record < 5; ++record) EXPECT_TRUE(display.receive("Data ")) << record;
}

/// Each answer to the command has more than 500 bytes, so all of them are far more than the pipe
/// (64 KB) and the queue (256 KB) hold.
constexpr int ManyCommands = 2000;
const std::string LongAnswer = "list frmMainClient";

TEST(OutputThatNobodyReads, DoesNotStopTheFlightAndTellsWhatWasDropped) {
  Cockpit cockpit;
  cockpit.startSimulator();
  cockpit.bringServerUp();
  for (int i = 0; i < ManyCommands; ++i) cockpit.server->type(LongAnswer);
  cockpit.server->type("set frmMainClient.txtPoll 75");
  expectFlightGoesOn(cockpit);
  EXPECT_TRUE(cockpit.server->waitForLine(" lines dropped)"));
  cockpit.server->type("get frmMainClient.txtPoll");
  EXPECT_EQ(cockpit.server->waitForLine("= "), "= 75");
}

TEST(OutputThatNobodyReads, DoesNotHoldUpTheExit) {
  Cockpit cockpit;
  cockpit.startSimulator();
  cockpit.bringServerUp();
  cockpit.server->type("set frmMainClient.txtPoll 75");
  for (int i = 0; i < ManyCommands; ++i) cockpit.server->type(LongAnswer);
  expectFlightGoesOn(cockpit);
  cockpit.server->signal(SIGTERM);
  // waitForEnd() reads: before that, the process is to have ended.
  const auto hasEnded = [&] {
    siginfo_t end{};
    const auto id = static_cast<id_t>(cockpit.server->id());
    return waitid(P_PID, id, &end, WEXITED | WNOWAIT | WNOHANG) == 0 && end.si_pid != 0;
  };
  ASSERT_TRUE(eventually(hasEnded));
  EXPECT_EQ(cockpit.server->waitForEnd(), 0);
  EXPECT_THAT(cockpit.folder.read("Vorlent.ini"), HasSubstr("Polling=75\r\n"));
}

class OnATerminal : public testing::Test {
 protected:
  OnATerminal() {
    cockpit.startSimulator();
    server.emplace(cockpit.folder / "vorlentd", cockpit.folder / "bus");
  }

  Cockpit cockpit;
  std::optional<TerminalSession> server;
};

TEST_F(OnATerminal, OutputThatIsStoppedDoesNotStopTheFlight) {
  ASSERT_TRUE(server->waitFor("1| OK"));
  server->type({CtrlS});
  server->type("set frmMainClient.txtPoll 75\n");
  for (int i = 0; i < 3; ++i) expectFlightGoesOn(cockpit);
  server->type({CtrlQ});
  server->type("get frmMainClient.txtPoll\n");
  EXPECT_TRUE(server->waitFor("= 75"));
}

TEST_F(OnATerminal, OutputThatIsStoppedDoesNotHoldUpTheExit) {
  ASSERT_TRUE(server->waitFor("1| OK"));
  server->type({CtrlS});
  kill(server->id(), SIGTERM);
  EXPECT_EQ(server->waitForEnd(), 0);
}

TEST_F(OnATerminal, ItsEndIsAnOrderlyExit) {
  ASSERT_TRUE(server->waitFor("1| OK"));
  server->type("set frmMainClient.txtPoll 75\n");
  ASSERT_TRUE(server->waitFor("\n="));
  server->closeTerminal();
  EXPECT_EQ(server->waitForEnd(), 0);
  EXPECT_THAT(cockpit.folder.read("Vorlent.ini"), HasSubstr("Polling=75\r\n"));
  EXPECT_THAT(cockpit.folder.read("log.txt"), testing::EndsWith("Vorlent close\r\nQuit\r\n"));
}

}  // namespace
}  // namespace vorlent
