#include "base/files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>

#include "support/OrdinaryUser.h"
#include "support/TempFolder.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

/// No file can grow beyond so many bytes: a disk that is full.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) : oldAction_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &old_);
    const rlimit limit{bytes, old_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, oldAction_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit old_{};
  void (*oldAction_)(int);
};

const std::string Large(100000, 'x');

TEST(ReplaceFileOnAFullDisk, KeepsTheOldContentAndLeavesNothingElse) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "old");
  int raised = 0;
  {
    const FullDisk disk(5000);
    raised = raisedBy([&] { replaceFile(folder / "Vorlent.ini", Large); });
  }
  EXPECT_EQ(raised, 75);
  EXPECT_EQ(folder.read("Vorlent.ini"), "old");
  EXPECT_FALSE(fs::exists(folder / "Vorlent.ini.new"));
}

TEST(ReplaceFileInAProcessThatIsKilled, KeepsTheOldContent) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "old");
  const auto killedWhileWriting = [&] {
    const rlimit none{0, 0};
    const rlimit small{5000, 5000};
    setrlimit(RLIMIT_CORE, &none);
    setrlimit(RLIMIT_FSIZE, &small);
    std::signal(SIGXFSZ, SIG_DFL);
    replaceFile(folder / "Vorlent.ini", Large);
  };
  EXPECT_EXIT(killedWhileWriting(), ::testing::KilledBySignal(SIGXFSZ), "");
  EXPECT_EQ(folder.read("Vorlent.ini"), "old");
  replaceFile(folder / "Vorlent.ini", "new");
  EXPECT_EQ(folder.read("Vorlent.ini"), "new");
}

TEST(ReplaceFileInAReadOnlyFolder, RaisesPermissionDeniedAndKeepsTheOldContent) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "old");
  chmod((folder / "Vorlent.ini").c_str(), 0666);
  chmod(folder.path().c_str(), 0555);
  int raised = 0;
  {
    const OrdinaryUser user;
    raised = raisedBy([&] { replaceFile(folder / "Vorlent.ini", "new"); });
  }
  chmod(folder.path().c_str(), 0755);
  EXPECT_EQ(raised, 70);
  EXPECT_EQ(folder.read("Vorlent.ini"), "old");
}

TEST(ReplaceFileThatIsWriteProtected, RaisesPermissionDeniedAndKeepsIt) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "old");
  chmod((folder / "Vorlent.ini").c_str(), 0444);
  chmod(folder.path().c_str(), 0777);
  int raised = 0;
  {
    const OrdinaryUser user;
    raised = raisedBy([&] { replaceFile(folder / "Vorlent.ini", "new"); });
  }
  EXPECT_EQ(raised, 70);
  EXPECT_EQ(folder.read("Vorlent.ini"), "old");
}

TEST(ReplaceFile, KeepsThePermissionsOfTheOldFile) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "old");
  chmod((folder / "Vorlent.ini").c_str(), 0640);
  replaceFile(folder / "Vorlent.ini", "new");
  struct stat status {};
  ASSERT_EQ(stat((folder / "Vorlent.ini").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0640u);
}

TEST(ReplaceFile, FollowsALinkAndKeepsIt) {
  const TempFolder folder;
  folder.write("kept/Vorlent.ini", "old");
  fs::create_symlink("kept/Vorlent.ini", folder / "Vorlent.ini");
  replaceFile(folder / "Vorlent.ini", "new");
  EXPECT_EQ(folder.read("kept/Vorlent.ini"), "new");
  EXPECT_TRUE(fs::is_symlink(folder / "Vorlent.ini"));
}

TEST(ReplaceFile, RaisesPathAccessWhereAFolderStands) {
  const TempFolder folder;
  fs::create_directories(folder / "Vorlent.ini");
  EXPECT_EQ(raisedBy([&] { replaceFile(folder / "Vorlent.ini", "new"); }), 75);
  EXPECT_TRUE(fs::exists(folder / "Vorlent.ini"));
}

TEST(ReplaceFile, KeepsTheOldContentWhenTheDraftCannotBeMade) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "old");
  fs::create_directories(folder / "Vorlent.ini.new");
  EXPECT_EQ(raisedBy([&] { replaceFile(folder / "Vorlent.ini", "new"); }), 75);
  EXPECT_EQ(folder.read("Vorlent.ini"), "old");
  EXPECT_TRUE(fs::exists(folder / "Vorlent.ini.new"));
}

TEST(Writing, ToAFullDeviceRaisesPathAccess) {
  EXPECT_EQ(raisedBy([] { appendToFile("/dev/full", "line"); }), 75);
  EXPECT_EQ(raisedBy([] { overwriteStart("/dev/full", "line"); }), 75);
}

TEST(ReadFile, RaisesPathNotFoundBelowAFile) {
  const TempFolder folder;
  folder.write("file", "");
  EXPECT_EQ(raisedBy([&] { readFile(folder / "file/below"); }), 76);
}

}  // namespace
}  // namespace vorlent
