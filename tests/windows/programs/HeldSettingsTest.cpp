#include <gmock/gmock.h>
#include <windows.h>

#include "platform/win32/wide.h"
#include "windows/support/ForeignClient.h"
#include "windows/support/WindowsCockpit.h"

namespace vorlent {
namespace {

using testing::HasSubstr;

/// Another program has Vorlent.ini open and lets nobody write it, as editors and backups do.
class HeldSettings : public testing::Test {
 protected:
  void SetUp() override {
    before = cockpit.read("Vorlent.ini");
    held = CreateFileW(wide(cockpit.path("Vorlent.ini")).c_str(), GENERIC_READ, FILE_SHARE_READ,
                       nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    cockpit.startSimulator();
    cockpit.bringServerUp();
  }
  void TearDown() override { CloseHandle(held); }

  static constexpr std::uint32_t RudderTrim_rad = 0x2EC0;
  WindowsCockpit cockpit;
  std::string before;
  HANDLE held = INVALID_HANDLE_VALUE;
};

TEST_F(HeldSettings, AreFlownWithAndTheEndSaysThatTheyWereNotSaved) {
  const DisplayLink display;
  display.send(cockpit.basePort, "Connection on a b 50 localhost");
  ASSERT_TRUE(display.receive("Data 2 1 "));
  ForeignClient().write<double>(RudderTrim_rad, 0.02);
  cockpit.server->type("set frmMainClient.txtPoll 75");
  ASSERT_TRUE(cockpit.server->waitForLine("="));
  cockpit.server->type("exit");
  EXPECT_EQ(cockpit.server->waitForEnd(), 1);
  EXPECT_THAT(cockpit.server->output(),
              HasSubstr("1| Vorlent.ini was not saved: Permission denied"));
  EXPECT_THAT(cockpit.server->output(), HasSubstr("box critical \"Vorlent\": Run-time error '70'"));
  EXPECT_EQ(cockpit.read("Vorlent.ini"), before);
  EXPECT_EQ(ForeignClient().read<double>(RudderTrim_rad), 0);
}

}  // namespace
}  // namespace vorlent
