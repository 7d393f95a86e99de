#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <cstdlib>
#include <filesystem>

#include "base/files.h"
#include "endtoend/Cockpit.h"

namespace vorlent {
namespace {

using testing::HasSubstr;

class KeptServer : public testing::Test {
 protected:
  KeptServer() {
    cockpit.addProgram("vorlent-keeper");
    for (const char* name : {"vorlent-share", "vorlent-mdb"}) cockpit.addProgram(name);
  }
  void startKeeper() { keeper = cockpit.program("vorlent-keeper"); }
  /// A display that prints a line a second, and what goes wrong.
  void startDisplay() {
    display = cockpit.program("vorlent-display",
                              {"127.0.0.1", std::to_string(cockpit.basePort), "--name", "display"});
  }
  std::string settings() const { return readFile(cockpit.folder / "Vorlent.ini"); }

  Cockpit cockpit{1};
  std::unique_ptr<Process> keeper;
  std::unique_ptr<Process> display;
};

/// How often the simulator is killed; VORLENT_KEEPER_KILLS asks for more.
int kills() {
  const char* asked = std::getenv("VORLENT_KEEPER_KILLS");
  return asked == nullptr ? 3 : std::atoi(asked);
}

TEST_F(KeptServer, ServesItsDisplayWithinFiveSecondsOfEachSimulatorThatComesBack) {
  startKeeper();
  ASSERT_TRUE(keeper->waitForLine("waiting for the simulator")) << keeper->output();
  cockpit.startSimulator();
  ASSERT_TRUE(keeper->waitForLine("1| OK")) << keeper->output();
  startDisplay();
  ASSERT_TRUE(display->waitForLine(" kt ")) << display->output();
  const std::string before = settings();
  for (int kill = 0; kill < kills(); ++kill) {
    cockpit.simulator->signal(SIGKILL);
    ASSERT_TRUE(keeper->waitForLine("the server ended by itself")) << keeper->output();
    ASSERT_TRUE(display->waitForLine("nothing has come")) << display->output();
    cockpit.startSimulator();
    const auto back = std::chrono::steady_clock::now();
    ASSERT_TRUE(display->waitForLine("connected to")) << display->output();
    EXPECT_LT(std::chrono::steady_clock::now() - back, 5s);
    EXPECT_EQ(settings(), before);
  }
  EXPECT_THAT(readFile(cockpit.folder / "keeper.txt"),
              HasSubstr("the server ended by itself with status 1. It said last:\n"));
}

TEST_F(KeptServer, ASimulatorThatIsBackAtOnceIsServedWithinFiveSeconds) {
  cockpit.startSimulator();
  startKeeper();
  ASSERT_TRUE(keeper->waitForLine("1| OK")) << keeper->output();
  startDisplay();
  ASSERT_TRUE(display->waitForLine(" kt ")) << display->output();
  for (int kill = 0; kill < kills(); ++kill) {
    cockpit.simulator->signal(SIGKILL);
    cockpit.simulator->waitForEnd();
    cockpit.startSimulator();
    const auto back = std::chrono::steady_clock::now();
    ASSERT_TRUE(display->waitForLine("nothing has come")) << display->output();
    ASSERT_TRUE(display->waitForLine("connected to")) << display->output();
    EXPECT_LT(std::chrono::steady_clock::now() - back, 5s) << keeper->output();
  }
}

TEST_F(KeptServer, AnOperatorsEndEndsTheKeeper) {
  cockpit.startSimulator();
  startKeeper();
  ASSERT_TRUE(keeper->waitForLine("1| OK")) << keeper->output();
  keeper->type("exit");
  EXPECT_EQ(keeper->waitForEnd(), 0) << keeper->output();
}

TEST_F(KeptServer, ATerminatedKeeperEndsTheServerInOrder) {
  cockpit.startSimulator();
  startKeeper();
  ASSERT_TRUE(keeper->waitForLine("1| OK")) << keeper->output();
  keeper->signal(SIGTERM);
  EXPECT_EQ(keeper->waitForEnd(), 0) << keeper->output();
  EXPECT_FALSE(std::filesystem::exists(cockpit.folder / "keeper.txt"));
}

TEST_F(KeptServer, WhatIsTypedGoesToTheServer) {
  cockpit.startSimulator();
  startKeeper();
  ASSERT_TRUE(keeper->waitForLine("1| OK")) << keeper->output();
  keeper->type("get frmMainClient.txtPoll");
  EXPECT_TRUE(keeper->waitForLine("= 50")) << keeper->output();
}

}  // namespace
}  // namespace vorlent
