#include "platform/linux/BusFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "support/ScopedEnvironment.h"
#include "support/TempFolder.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

TEST(BusFolder, IsTheOneInTheVariableAndIsMadeForTheUserAlone) {
  const TempFolder folder;
  const ScopedEnvironment bus("VORLENT_BUS", folder / "bus");
  EXPECT_EQ(busFolder(), folder / "bus");
  EXPECT_EQ(fs::status(folder / "bus").permissions(), fs::perms::owner_all);
}

TEST(BusFolder, IsNamedWithoutASlashAtItsEnd) {
  const TempFolder folder;
  const ScopedEnvironment bus("VORLENT_BUS", folder / "bus//");
  EXPECT_EQ(busFolder(), folder / "bus");
}

TEST(BusFolder, IsInTheRuntimeFolderWhenTheVariableIsEmptyOrAbsent) {
  const TempFolder folder;
  const ScopedEnvironment runtime("XDG_RUNTIME_DIR", folder.path());
  for (const std::optional<std::string>& value : {std::optional<std::string>(), {""}}) {
    const ScopedEnvironment bus("VORLENT_BUS", value);
    EXPECT_EQ(busFolder(), folder / "vorlent");
  }
}

TEST(BusFolder, IsTheUsersOwnInTmpWhenThereIsNoRuntimeFolder) {
  const ScopedEnvironment bus("VORLENT_BUS", std::nullopt);
  const ScopedEnvironment runtime("XDG_RUNTIME_DIR", std::nullopt);
  EXPECT_EQ(busFolder(), "/tmp/vorlent-" + std::to_string(getuid()));
}

TEST(BusFolder, AFolderThatIsAlreadyThereIsTaken) {
  const TempFolder folder;
  fs::permissions(folder.path(), fs::perms::owner_all);
  const ScopedEnvironment bus("VORLENT_BUS", folder.path());
  EXPECT_EQ(busFolder(), folder.path());
  EXPECT_EQ(busFolder(), folder.path());
}

TEST(BusFolder, AFolderThatOthersMayWriteToIsRefused) {
  const TempFolder folder;
  const ScopedEnvironment bus("VORLENT_BUS", folder.path());
  fs::permissions(folder.path(), fs::perms::owner_all | fs::perms::group_write);
  EXPECT_EQ(raisedBy(busFolder), 75);
  fs::permissions(folder.path(), fs::perms::owner_all | fs::perms::others_write);
  EXPECT_EQ(raisedBy(busFolder), 75);
}

TEST(BusFolder, IsForTheUserAloneWhateverTheUmask) {
  const TempFolder folder;
  const ScopedEnvironment bus("VORLENT_BUS", folder / "bus");
  const mode_t former = umask(0777);
  EXPECT_EQ(busFolder(), folder / "bus");
  umask(former);
  EXPECT_EQ(fs::status(folder / "bus").permissions(), fs::perms::owner_all);
}

TEST(BusFolder, ALinkAFileAndAFolderThatCannotBeMadeAreRefused) {
  const TempFolder folder;
  fs::create_directory_symlink(folder.path(), folder / "link");
  folder.write("file", "");
  for (const char* name : {"link", "file", "missing/bus"}) {
    const ScopedEnvironment bus("VORLENT_BUS", folder / name);
    EXPECT_EQ(raisedBy(busFolder), 75) << name;
  }
}

}  // namespace
}  // namespace vorlent
