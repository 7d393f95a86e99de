#include <gtest/gtest.h>

#include <csignal>
#include <string>

#include "endtoend/Cockpit.h"
#include "support/Sticks.h"
#include "support/eventually.h"

namespace vorlent {
namespace {

/// The whole server with a virtual stick, which stands behind the machine's own boards if it has
/// any.
class ServerStick : public testing::Test {
 protected:
  void SetUp() override {
    cockpit.addProgram("vorlent-stick");
    writeCatalogues(cockpit.folder);
    for (int i = 0; i < 8; ++i) cockpit.folder.write(stickFileOf(i), PlainStickFile);
    cockpit.configure("Joysticks", "8");
    cockpit.configure("Polling", "20");
    cockpit.startSimulator();
    cockpit.bringServerUp();
    plugIn("x=32768");
    cockpit.server->type("press frmMainClient.chkStick");
    ASSERT_TRUE(cockpit.server->waitForLine("="));
    number = answerTo("get frmMainClient.txtSticks").substr(2);
  }

  void plugIn(const std::string& step) {
    stick = cockpit.program("vorlent-stick", {"--name", "yoke", step});
    ASSERT_TRUE(stick->waitForLine("ready"));
  }
  std::string answerTo(const std::string& command) const {
    cockpit.server->type(command);
    return cockpit.server->waitForLine("= ").value_or("no answer");
  }
  bool shows(const std::string& value) const {
    const std::string form = "frmCStick(" + std::to_string(std::stoi(number) - 1) + ")";
    return eventually([&] { return answerTo("get " + form + ".txtValue(0)") == "= " + value; });
  }

  Cockpit cockpit;
  std::unique_ptr<Process> stick;
  std::string number;
};

TEST_F(ServerStick, UnpluggedItKeepsItsValueAndPluggedInAgainItWorksWithoutARestart) {
  EXPECT_TRUE(shows("16384"));
  stick->type("x=20000");
  EXPECT_TRUE(shows("10000"));
  stick->signal(SIGTERM);
  EXPECT_TRUE(cockpit.server->waitForLine("1| Joystick " + number + " unplugged"));
  EXPECT_TRUE(shows("10000"));
  plugIn("x=30000");
  EXPECT_TRUE(cockpit.server->waitForLine("1| Joystick " + number + " plugged in again"));
  EXPECT_TRUE(shows("15000"));
}

}  // namespace
}  // namespace vorlent
