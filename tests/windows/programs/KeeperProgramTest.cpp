#include <gmock/gmock.h>

#include "windows/support/ForeignClient.h"
#include "windows/support/OwnConsole.h"
#include "windows/support/WindowsCockpit.h"

namespace vorlent {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

constexpr std::uint32_t RudderTrim_rad = 0x2EC0;

/// "Vorlent (keeps running)" of the Start menu.
class KeeperProgram : public testing::Test {
 protected:
  void startKeeper() { keeper = cockpit.program("vorlent-keeper"); }
  void waitForServer() { ASSERT_TRUE(keeper->waitForLine("1| OK")) << keeper->output(); }
  /// A session has the server poll, by which it notices that its simulator has gone.
  void greetAndReceive() const {
    const DisplayLink display;
    display.send(cockpit.basePort, "Connection on a b 50 localhost");
    ASSERT_TRUE(display.receive("Data "));
  }

  WindowsCockpit cockpit;
  std::unique_ptr<Program> keeper;
};

TEST_F(KeeperProgram, StartsTheServerWhenTheSimulatorIsThereAndAgainWhenItComesBack) {
  startKeeper();
  ASSERT_TRUE(keeper->waitForLine("waiting for the simulator")) << keeper->output();
  cockpit.startSimulator();
  waitForServer();
  greetAndReceive();
  const std::string before = cockpit.read("Vorlent.ini");
  cockpit.simulator->kill();
  ASSERT_TRUE(keeper->waitForLine("the server ended by itself")) << keeper->output();
  cockpit.startSimulator();
  waitForServer();
  greetAndReceive();
  EXPECT_EQ(cockpit.read("Vorlent.ini"), before);
  EXPECT_THAT(cockpit.read("keeper.txt"),
              HasSubstr("the server ended by itself with status 1. It said last:\n"));
}

TEST_F(KeeperProgram, WhatIsTypedGoesToTheServerWhoseOrderlyEndIsItsOwn) {
  cockpit.startSimulator();
  startKeeper();
  waitForServer();
  keeper->type("get frmMainClient.txtPoll");
  EXPECT_TRUE(keeper->waitForLine("= 50")) << keeper->output();
  keeper->type("exit");
  EXPECT_EQ(keeper->waitForEnd(), 0) << keeper->output();
}

/// "Vorlent (keeps running)" has a console, and its server is in it.
class KeeperInAConsole : public KeeperProgram {
 protected:
  void bringUp() {
    cockpit.startSimulator();
    keeper = std::make_unique<Program>(cockpit.path("vorlent-keeper"), std::vector<std::string>(),
                                       ProcessGroup::Ours);
    waitForServer();
    greetAndReceive();
    ForeignClient().write<double>(RudderTrim_rad, 0.02);
    keeper->type("set frmMainClient.txtPoll 75");
    ASSERT_TRUE(keeper->waitForLine("=")) << keeper->output();
  }
  void expectOrder() {
    EXPECT_EQ(keeper->waitForEnd(), 0) << keeper->output();
    EXPECT_THAT(cockpit.read("Vorlent.ini"), HasSubstr("Polling=75\r\n"));
    EXPECT_THAT(cockpit.read("log.txt"), EndsWith("Vorlent close\r\nQuit\r\n"));
    EXPECT_EQ(ForeignClient().read<double>(RudderTrim_rad), 0);
  }

  OwnConsole console;
};

TEST_F(KeeperInAConsole, CtrlCEndsItAndItsServerInOrder) {
  bringUp();
  console.pressCtrlC();
  expectOrder();
}

}  // namespace
}  // namespace vorlent
