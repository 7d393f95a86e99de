#include <filesystem>

#include "core/frmMainClient.h"
#include "input/StickTest.h"
#include "support/OrdinaryUser.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

using ::testing::Contains;

TEST_F(StickTest, AFileThatMayNotBeReadIsToldAndLeavesTheDefaults) {
  for (const std::string name : {"", "log.txt"}) fs::permissions(t.folder / name, fs::perms::all);
  fs::permissions(t.folder / stickFileOf(0), fs::perms::none);
  {
    const OrdinaryUser user;
    click(1);
  }
  EXPECT_THAT(statusLines, Contains(t.folder.path() +
                                    "\\Cockpits\\737-700\\stick\\stick0.cfg: Permission denied"));
  EXPECT_EQ(stick().optAxes(0).Tag(), "0");
  EXPECT_EQ(t.exitStatus(), std::nullopt);
}

}  // namespace
}  // namespace vorlent
