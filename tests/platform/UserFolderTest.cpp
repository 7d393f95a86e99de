#include "platform/linux/UserFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <vector>

#include "base/RuntimeError.h"
#include "support/OrdinaryUser.h"
#include "support/ScopedEnvironment.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using testing::UnorderedElementsAre;

std::vector<std::string> filesBelow(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    if (!entry.is_directory()) names.push_back(fs::relative(entry.path(), folder));
  return names;
}

template <class Work>
std::string saidBy(Work work) {
  try {
    work();
    return "";
  } catch (const RuntimeError& error) {
    return error.description();
  }
}

TEST(UserFolder, IsInTheFolderThatXdgNames) {
  const ScopedEnvironment data("XDG_DATA_HOME", "/srv/data");
  EXPECT_EQ(userFolder(), "/srv/data/vorlent");
}

TEST(UserFolder, IsInTheHomeWhenXdgNamesNoneOrARelativeOne) {
  const ScopedEnvironment home("HOME", "/home/pilot");
  for (const std::optional<std::string>& value : {std::optional<std::string>(), {""}, {"data"}}) {
    const ScopedEnvironment data("XDG_DATA_HOME", value);
    EXPECT_EQ(userFolder(), "/home/pilot/.local/share/vorlent");
  }
}

/// A package: programs in usr/bin, shipped files in usr/share/vorlent, and a user's home.
class Package : public testing::Test {
 protected:
  Package() {
    folder.write("usr/share/vorlent/Vorlent.ini", "shipped settings");
    folder.write("usr/share/vorlent/butsort.txt", "shipped catalogue");
    folder.write("usr/share/vorlent/Cockpits/737-700/Flaps.cfg", "1,2");
    fs::create_directories(bin);
  }
  std::string own(const std::string& name) const {
    return folder.read("home/.local/share/vorlent/" + name);
  }
  std::string programFolder() const { return programFolderOf(bin); }
  void add() const { addMissingFiles(shipped, user); }

  TempFolder folder;
  const std::string bin = folder / "usr/bin";
  const std::string shipped = folder / "usr/share/vorlent";
  const std::string user = folder / "home/.local/share/vorlent";
  ScopedEnvironment home{"HOME", folder / "home"};
  ScopedEnvironment data{"XDG_DATA_HOME", std::nullopt};
};

TEST_F(Package, MakesTheUsersOwnFolderTheProgramFolderAndFillsIt) {
  EXPECT_EQ(programFolder(), user);
  EXPECT_THAT(filesBelow(user),
              UnorderedElementsAre("Vorlent.ini", "butsort.txt", "Cockpits/737-700/Flaps.cfg"));
  EXPECT_EQ(own("Vorlent.ini"), "shipped settings");
  EXPECT_EQ(own("Cockpits/737-700/Flaps.cfg"), "1,2");
}

TEST_F(Package, GivesWayToSettingsBesideTheExecutable) {
  folder.write("usr/bin/vorlent.INI", "an installation of its own");
  EXPECT_EQ(programFolder(), bin);
  EXPECT_FALSE(fs::exists(folder / "home"));
}

TEST_F(Package, WithoutSettingsIsNoneAndTheExecutablesFolderIsTheProgramFolder) {
  fs::remove(folder / "usr/share/vorlent/Vorlent.ini");
  EXPECT_EQ(programFolder(), bin);
  EXPECT_FALSE(fs::exists(folder / "home"));
}

TEST_F(Package, NeverOverwritesWhatIsThere) {
  folder.write("home/.local/share/vorlent/Vorlent.ini", "my settings");
  folder.write("home/.local/share/vorlent/cockpits/737-700/FLAPS.cfg", "1,2,5");
  add();
  EXPECT_EQ(own("Vorlent.ini"), "my settings");
  EXPECT_THAT(filesBelow(user),
              UnorderedElementsAre("Vorlent.ini", "butsort.txt", "cockpits/737-700/FLAPS.cfg"));
}

TEST_F(Package, LeavesALinkThatLeadsNowhere) {
  fs::create_directories(user);
  fs::create_symlink("elsewhere", user + "/butsort.txt");
  add();
  EXPECT_TRUE(fs::is_symlink(user + "/butsort.txt"));
  EXPECT_FALSE(fs::exists(user + "/elsewhere"));
}

TEST_F(Package, OfANewerVersionAddsItsNewFilesAndLeavesTheChangedOnes) {
  add();
  folder.write("usr/share/vorlent/butsort.txt", "newer catalogue");
  folder.write("usr/share/vorlent/Cockpits/A/Flaps.cfg", "1");
  add();
  EXPECT_EQ(own("butsort.txt"), "shipped catalogue");
  EXPECT_EQ(own("Cockpits/A/Flaps.cfg"), "1");
}

/// The manual as an older package shipped it is in the user's folder.
class PackageWithManual : public Package {
 protected:
  PackageWithManual() {
    folder.write("usr/share/vorlent/Docs/manual.htm", "first manual");
    add();
  }
  void ship(const std::string& manual) {
    folder.write("usr/share/vorlent/Docs/manual.htm", manual);
    add();
  }
};

TEST_F(PackageWithManual, OfANewerVersionReplacesADocumentThatTheUserDidNotChange) {
  ship("second manual");
  EXPECT_EQ(own("Docs/manual.htm"), "second manual");
  ship("third manual");
  EXPECT_EQ(own("Docs/manual.htm"), "third manual");
  EXPECT_FALSE(fs::exists(user + "/Docs/manual.htm.bak"));
}

TEST_F(PackageWithManual, OfANewerVersionLeavesADocumentThatTheUserChanged) {
  folder.write("home/.local/share/vorlent/Docs/manual.htm", "first manual, and my notes");
  ship("second manual");
  ship("third manual");
  EXPECT_EQ(own("Docs/manual.htm"), "first manual, and my notes");
}

TEST_F(PackageWithManual, KeepsADocumentOfWhichNothingIsKnownBesideTheNewOne) {
  fs::remove(user + "/Docs/.shipped");
  ship("second manual");
  EXPECT_EQ(own("Docs/manual.htm"), "second manual");
  EXPECT_EQ(own("Docs/manual.htm.bak"), "first manual");
}

TEST_F(PackageWithManual, BringsADeletedDocumentBackAndNeverWritesThroughALink) {
  fs::remove(user + "/Docs/manual.htm");
  ship("second manual");
  EXPECT_EQ(own("Docs/manual.htm"), "second manual");
  fs::rename(user + "/Docs/manual.htm", user + "/elsewhere");
  fs::create_symlink("../elsewhere", user + "/Docs/manual.htm");
  ship("third manual");
  EXPECT_EQ(own("elsewhere"), "second manual");
}

TEST_F(Package, GivesFilesThatTheUserMayWriteAlsoWhenTheShippedOnesCannotBeWritten) {
  chmod((shipped + "/Vorlent.ini").c_str(), 0444);
  add();
  struct stat status {};
  ASSERT_EQ(stat((user + "/Vorlent.ini").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0200U, 0200U);
}

/// In a process of its own, in which a file that grows beyond 5000 bytes ends it.
void addUntilKilled(const std::string& shipped, const std::string& user) {
  const pid_t child = fork();
  if (child == 0) {
    const rlimit none{0, 0};
    const rlimit small{5000, 5000};
    setrlimit(RLIMIT_CORE, &none);
    setrlimit(RLIMIT_FSIZE, &small);
    addMissingFiles(shipped, user);
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status));
}

TEST_F(Package, CompletesACopyThatWasCutOff) {
  folder.write("usr/share/vorlent/butsort.txt", std::string(100000, 'x'));
  addUntilKilled(shipped, user);
  EXPECT_FALSE(fs::exists(user + "/butsort.txt"));
  EXPECT_FALSE(fs::exists(user + "/Vorlent.ini"));
  add();
  EXPECT_EQ(own("butsort.txt"), std::string(100000, 'x'));
  EXPECT_THAT(filesBelow(user),
              UnorderedElementsAre("Vorlent.ini", "butsort.txt", "Cockpits/737-700/Flaps.cfg"));
}

TEST_F(Package, SaysThatTheDiskIsFullAndLeavesNoHalfFile) {
  folder.write("usr/share/vorlent/butsort.txt", std::string(100000, 'x'));
  rlimit old{};
  getrlimit(RLIMIT_FSIZE, &old);
  const rlimit small{5000, old.rlim_max};
  const auto action = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  const std::string said = saidBy([this] { add(); });
  setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, action);
  EXPECT_EQ(said, "Couldn't copy butsort.txt of " + shipped + " to " + user + ": File too large");
  EXPECT_THAT(filesBelow(user), UnorderedElementsAre("Cockpits/737-700/Flaps.cfg"));
}

TEST_F(Package, SaysThatTheHomeCannotBeWritten) {
  fs::create_directories(folder / "home");
  std::string said;
  {
    const OrdinaryUser user_;
    said = saidBy([this] { add(); });
  }
  EXPECT_EQ(said, "Couldn't copy the files of " + shipped + " to " + user + ": Permission denied");
}

TEST_F(Package, IsFilledOnceByProgramsThatStartTogether) {
  folder.write("usr/share/vorlent/butsort.txt", std::string(1000000, 'x'));
  std::vector<pid_t> starts;
  for (int i = 0; i < 8; ++i) {
    starts.push_back(fork());
    if (starts.back() == 0) {
      const bool whole = saidBy([this] { add(); }).empty() && own("butsort.txt").size() == 1000000;
      _exit(whole ? 0 : 1);
    }
  }
  for (const pid_t start : starts) {
    int status = -1;
    waitpid(start, &status, 0);
    EXPECT_EQ(status, 0);
  }
  EXPECT_EQ(filesBelow(user).size(), 3U);
}

}  // namespace
}  // namespace vorlent
