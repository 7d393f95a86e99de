#include <gmock/gmock.h>

#include "windows/support/WindowsCockpit.h"

namespace vorlent {
namespace {

using testing::HasSubstr;

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

}  // namespace
}  // namespace vorlent
