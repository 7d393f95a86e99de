#include <filesystem>

#include "core/frmMainClient.h"
#include "sticks/StickTest.h"
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

TEST_F(StickTest, ACatalogueThatMayNotBeReadIsToldAndListsNothing) {
  for (const std::string name : {"", "log.txt"}) fs::permissions(t.folder / name, fs::perms::all);
  fs::permissions(t.folder / "encoder.txt", fs::perms::none);
  {
    const OrdinaryUser user;
    click(1);
  }
  EXPECT_THAT(statusLines, Contains("encoder.txt: Permission denied"));
  EXPECT_TRUE(stick().cboCoder.Items().empty());
  EXPECT_EQ(stick().cboAxes.Items().size(), 2U);
  EXPECT_EQ(t.exitStatus(), std::nullopt);
}

TEST_F(StickTest, SavingToAWriteProtectedFileEndsTheProcessWithItsMessageAndChangesNothing) {
  click(1);
  stick().optAxes(0).Tag("77");
  fs::permissions(t.folder / "", fs::perms::all);
  fs::permissions(t.folder / stickFileOf(0), fs::perms::owner_read | fs::perms::others_read);
  {
    const OrdinaryUser user;
    t.server.failureDomain.run([this] { stick().cmdOK.press(); });
  }
  EXPECT_THAT(t.op.takeBoxes(),
              ::testing::ElementsAre(RecordingOperator::Box{
                  "Run-time error '70':\n\nPermission denied", BoxIcon::Critical, "Vorlent"}));
  EXPECT_EQ(t.exitStatus(), 1);
  EXPECT_EQ(t.folder.read(stickFileOf(0)), PlainStickFile);
}

}  // namespace
}  // namespace vorlent
