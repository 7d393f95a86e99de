#include <gmock/gmock.h>
#include <unistd.h>

#include "endtoend/Cockpit.h"

namespace vorlent {
namespace {

using testing::HasSubstr;
using testing::Optional;

class Console : public testing::Test {
 protected:
  void SetUp() override {
    cockpit.startSimulator();
    cockpit.bringServerUp();
  }

  Cockpit cockpit;
};

TEST_F(Console, AnswersEachCommandByALine) {
  Process& server = *cockpit.server;
  server.type("get frmMainClient.txtPort");
  EXPECT_EQ(server.waitForLine("="), "= " + std::to_string(cockpit.basePort));
  server.type("set frmMainClient.txtPoll 60");
  EXPECT_EQ(server.waitForLine("="), "=");
  server.type("get frmMainClient.txtPoll");
  EXPECT_EQ(server.waitForLine("="), "= 60");
  server.type("press frmMainClient.cmdNothing");
  EXPECT_THAT(server.waitForLine("error: "), Optional(HasSubstr("cmdNothing")));
}

TEST_F(Console, ExitEndsTheServerInOrder) {
  cockpit.server->type("help");
  EXPECT_THAT(cockpit.server->waitForLine("="), Optional(HasSubstr("press FORM.CONTROL, ")));
  cockpit.server->type("exit");
  EXPECT_EQ(cockpit.server->waitForEnd(), 0);
}

TEST_F(Console, PressingStartWithNoClientStartsTheCycleAndLeavesTheServerUp) {
  cockpit.server->type("get frmMainClient.cmdStop");
  EXPECT_EQ(cockpit.server->waitForLine("="), "= Stop");
  cockpit.server->type("press frmMainClient.cmdStop");
  EXPECT_EQ(cockpit.server->waitForLine("="), "=");
  cockpit.server->type("press frmMainClient.cmdStop");
  EXPECT_EQ(cockpit.server->waitForLine("="), "=");
  cockpit.server->type("get frmMainClient.cmdStop");
  EXPECT_EQ(cockpit.server->waitForLine("="), "= Start");
}

TEST(Start, TheStartCheckListDoesNotStopTheServer) {
  Cockpit cockpit;
  cockpit.configure("ShowTip", "1");
  cockpit.startSimulator();
  cockpit.startServer();
  EXPECT_TRUE(cockpit.server->waitForLine("show FrmTip"));
  EXPECT_TRUE(cockpit.server->waitForLine("1| OK"));
  cockpit.server->type("get FrmTip.Text1");
  EXPECT_THAT(cockpit.server->waitForLine("="), Optional(HasSubstr("\\n\t6. FS is running\\n")));
  cockpit.server->type("set FrmTip.chkNotShow 1");
  EXPECT_EQ(cockpit.server->waitForLine("="), "=");
  cockpit.server->type("close FrmTip");
  EXPECT_TRUE(cockpit.server->waitForLine("hide FrmTip"));
  cockpit.server->type("press frmMainClient.mnuFile(2)");
  EXPECT_EQ(cockpit.server->waitForEnd(), 0);
  EXPECT_THAT(cockpit.folder.read("Vorlent.ini"), HasSubstr("ShowTip=0\r\n"));
}

}  // namespace
}  // namespace vorlent
