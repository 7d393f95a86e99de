#include <gmock/gmock.h>

#include <filesystem>

#include "endtoend/Cockpit.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Optional;

/// A running server, worked by the console.
class Cockpits : public testing::Test {
 protected:
  void SetUp() override {
    cockpit.addProgram("vorlent-zip");
    cockpit.startSimulator();
    cockpit.bringServerUp();
  }
  void tell(const std::string& command) {
    cockpit.server->type(command);
    EXPECT_EQ(cockpit.server->waitForLine("="), "=") << command;
  }
  std::optional<std::string> answer(const std::string& command) {
    cockpit.server->type(command);
    return cockpit.server->waitForLine("=");
  }

  Cockpit cockpit;
};

TEST_F(Cockpits, SecondAircraftIsMadeOfATemplateChosenExportedAndImported) {
  tell("press frmMainClient.Command1");
  EXPECT_EQ(answer("get frmNew.cboDir"), "= 737-700");
  tell("set frmNew.Text1 737-800");
  tell("press frmNew.cmdOK");
  tell("select frmMainClient.cboDir 737-800");
  EXPECT_THAT(cockpit.folder.read("Vorlent.ini"), HasSubstr("Cockpit=737-800\r\n"));
  EXPECT_TRUE(fs::exists(cockpit.folder / "Cockpits/737-800/stick/stick0.cfg"));

  tell("press frmMainClient.mnuFile(3)");
  tell("set frmZip.txtFile " + cockpit.folder / "out.zip");
  tell("press frmZip.cmdOK");
  EXPECT_TRUE(cockpit.server->waitForLine("1| Cockpit 737-800 exported to "));
  tell("press frmMainClient.mnuFile(4)");
  tell("set frmZip.txtFile " + cockpit.folder / "out.zip");
  tell("set frmZip.txtName 737-900");
  tell("press frmZip.cmdOK");
  EXPECT_TRUE(cockpit.server->waitForLine("1| Cockpit 737-900 imported"));
  EXPECT_EQ(cockpit.folder.read("Cockpits/737-900/stick/stick0.cfg"),
            cockpit.folder.read("Cockpits/737-700/stick/stick0.cfg"));
  tell("select frmMainClient.cboDir 737-900");
}

TEST_F(Cockpits, PanelOnTheScreenFliesTheAutopilot) {
  tell("press frmMainClient.cmdStop");
  tell("press frmMainClient.cmdStop");
  cockpit.server->type("press frmMainClient.Command2");
  EXPECT_TRUE(cockpit.server->waitForLine("show frmTestMCP"));
  EXPECT_EQ(cockpit.server->waitForLine("="), "=");
  tell("set frmTestMCP.Text1(2) 270");
  tell("press frmTestMCP.Command1(9)");
  EXPECT_EQ(answer("get frmTestMCP.Text1(2)"), "= 270");
  EXPECT_NE(answer("get frmTestMCP.Command1(9).BackColor"),
            answer("get frmTestMCP.Command1(8).BackColor"));
  tell("close frmTestMCP");
}

}  // namespace
}  // namespace vorlent
