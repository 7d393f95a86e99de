#include "base/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

#include "support/FullDisk.h"
#include "support/OrdinaryUser.h"
#include "support/TempFolder.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

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

TEST(Writing, ToAFullDiskRaisesPathAccess) {
  const TempFolder folder;
  const FullDisk disk(5000);
  EXPECT_EQ(raisedBy([&] { appendToFile(folder / "log.txt", Large); }), 75);
  EXPECT_EQ(raisedBy([&] { overwriteStart(folder / "Flaps.cfg", Large); }), 75);
}

/// Each entry is none that could be read or written to an end.
class EndlessFile : public ::testing::TestWithParam<const char*> {
 protected:
  EndlessFile() {
    mkfifo((folder / "pipe").c_str(), 0600);
    fs::create_symlink("/dev/zero", folder / "device");
  }
  const TempFolder folder;
  const std::string path = folder / GetParam();
};

TEST_P(EndlessFile, IsRefusedAndNotWaitedFor) {
  EXPECT_EQ(raisedBy([&] { readFile(path); }), 75);
  EXPECT_EQ(raisedBy([&] { readFileUpTo(path, 10); }), 75);
  EXPECT_EQ(raisedBy([&] { replaceFile(path, "new"); }), 75);
  EXPECT_EQ(raisedBy([&] { overwriteStart(path, "new"); }), 75);
  EXPECT_EQ(raisedBy([&] { appendToFile(path, "new"); }), 75);
  EXPECT_FALSE(fs::is_regular_file(path));
}

INSTANTIATE_TEST_SUITE_P(All, EndlessFile, ::testing::Values("pipe", "device"));

TEST(AppendToFile, DoesNotFollowALink) {
  const TempFolder folder;
  folder.write("other", "old");
  fs::create_symlink("other", folder / "log.txt");
  fs::create_symlink("nothing", folder / "dangling.txt");
  EXPECT_EQ(raisedBy([&] { appendToFile(folder / "log.txt", "line"); }), 75);
  EXPECT_EQ(raisedBy([&] { appendToFile(folder / "dangling.txt", "line"); }), 75);
  EXPECT_EQ(folder.read("other"), "old");
  EXPECT_FALSE(fs::exists(folder / "nothing"));
}

TEST(ReplaceFile, PutsAFileInPlaceOfALinkWhereLinksAreNotMeant) {
  const TempFolder folder;
  folder.write("other", "old");
  fs::create_symlink("other", folder / "test.txt");
  replaceFile(folder / "test.txt", "new", Link::Replaced);
  EXPECT_EQ(folder.read("other"), "old");
  EXPECT_FALSE(fs::is_symlink(folder / "test.txt"));
  EXPECT_EQ(folder.read("test.txt"), "new");
}

TEST(ReplaceFile, DoesNotWriteThroughALinkInThePlaceOfItsDraft) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "old");
  folder.write("other", "another's");
  fs::create_symlink("other", folder / "Vorlent.ini.new");
  replaceFile(folder / "Vorlent.ini", "new");
  EXPECT_EQ(folder.read("other"), "another's");
  EXPECT_FALSE(fs::is_symlink(folder / "Vorlent.ini"));
  EXPECT_EQ(folder.read("Vorlent.ini"), "new");
}

/// Takes every descriptor that the process may still have.
class NoDescriptors {
 public:
  NoDescriptors() {
    getrlimit(RLIMIT_NOFILE, &old_);
    const rlimit few{std::min<rlim_t>(old_.rlim_cur, 64), old_.rlim_max};
    setrlimit(RLIMIT_NOFILE, &few);
    for (int taken; (taken = open("/dev/null", O_RDONLY | O_CLOEXEC)) >= 0;)
      taken_.push_back(taken);
  }
  ~NoDescriptors() {
    for (const int taken : taken_) close(taken);
    setrlimit(RLIMIT_NOFILE, &old_);
  }
  NoDescriptors(const NoDescriptors&) = delete;
  NoDescriptors& operator=(const NoDescriptors&) = delete;

  bool noneIsLeft() const { return open("/dev/null", O_RDONLY | O_CLOEXEC) < 0 && errno == EMFILE; }

 private:
  rlimit old_{};
  std::vector<int> taken_;
};

TEST(WithoutAFreeDescriptor, SettingsAreReadAndSavedAllTheSame) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "old");
  readFile(folder / "Vorlent.ini");
  {
    const NoDescriptors none;
    ASSERT_TRUE(none.noneIsLeft());
    // In another case of letters, so that the folder is searched too.
    EXPECT_EQ(readFile(folder / "vorlent.INI"), "old");
    replaceFile(folder / "vorlent.INI", "new");
    overwriteStart(folder / "Flaps.cfg", "flaps");
    appendToFile(folder / "log.txt", "Quit");
    EXPECT_TRUE(none.noneIsLeft());
  }
  EXPECT_EQ(folder.read("Vorlent.ini"), "new");
  EXPECT_EQ(folder.read("Flaps.cfg"), "flaps");
  EXPECT_EQ(folder.read("log.txt"), "Quit");
  EXPECT_FALSE(fs::exists(folder / "vorlent.INI"));
}

TEST(ReadFileUpTo, GivesNothingOfALargerFile) {
  const TempFolder folder;
  folder.write("plan", "12345");
  EXPECT_EQ(readFileUpTo(folder / "plan", 5), "12345");
  EXPECT_EQ(readFileUpTo(folder / "plan", 4), std::nullopt);
  EXPECT_EQ(raisedBy([&] { readFileUpTo(folder / "missing", 4); }), 53);
}

TEST(ReadFile, RaisesPathNotFoundBelowAFile) {
  const TempFolder folder;
  folder.write("file", "");
  EXPECT_EQ(raisedBy([&] { readFile(folder / "file/below"); }), 76);
}

TEST(ReadFile, RefusesOneThatIsLargerThanAnyOfOurs) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "");
  fs::resize_file(folder / "Vorlent.ini", LargestReadFile_bytes);
  EXPECT_EQ(readFile(folder / "Vorlent.ini").size(), 67108864U);
  fs::resize_file(folder / "Vorlent.ini", LargestReadFile_bytes + 1);
  EXPECT_EQ(raisedBy([&] { readFile(folder / "Vorlent.ini"); }), 75);
}

/// A file system of one page, which only root can have.
class TinyDisk {
 public:
  explicit TinyDisk(std::string folder)
      : folder_(std::move(folder)),
        mounted_(mount("none", folder_.c_str(), "tmpfs", 0, "size=4096") == 0) {}
  ~TinyDisk() {
    if (mounted_) umount(folder_.c_str());
  }
  TinyDisk(const TinyDisk&) = delete;
  TinyDisk& operator=(const TinyDisk&) = delete;
  bool isThere() const { return mounted_; }

 private:
  std::string folder_;
  bool mounted_;
};

TEST(ReplaceFile, TellsThatTheDiskIsFullAndKeepsTheOldContent) {
  const TempFolder folder;
  const TinyDisk disk(folder.path());
  if (!disk.isThere()) GTEST_SKIP() << "only root can mount a disk that is full";
  folder.write("Vorlent.ini", std::string(4000, 'a'));
  EXPECT_EQ(raisedBy([&] { replaceFile(folder / "Vorlent.ini", std::string(4000, 'b')); }), 61);
  EXPECT_EQ(folder.read("Vorlent.ini"), std::string(4000, 'a'));
}

}  // namespace
}  // namespace vorlent
