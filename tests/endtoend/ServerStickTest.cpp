#include "endtoend/ServerStick.h"

#include <csignal>

namespace vorlent {
namespace {

TEST_F(ServerStick, UnpluggedItKeepsItsValueAndPluggedInAgainItWorksWithoutARestart) {
  writeCatalogues(cockpit.folder);
  startWith(PlainStickFile, {"x=32768"});
  EXPECT_TRUE(shows("16384"));
  stick->type("x=20000");
  EXPECT_TRUE(shows("10000"));
  stick->signal(SIGTERM);
  EXPECT_TRUE(cockpit.server->waitForLine("1| Joystick " + number + " unplugged"));
  EXPECT_TRUE(shows("10000"));
  plugIn({"x=30000"});
  EXPECT_TRUE(cockpit.server->waitForLine("1| Joystick " + number + " plugged in again"));
  EXPECT_TRUE(shows("15000"));
}

}  // namespace
}  // namespace vorlent
