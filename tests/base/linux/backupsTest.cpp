#include "base/backups.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>

#include "support/OrdinaryUser.h"
#include "support/TempFolder.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

/// Saves two contents in turn until it is killed, and tells of each save by a byte.
[[noreturn]] void saveForEver(const std::string& path, int tell) {
  for (bool first = true;; first = !first) {
    replaceKeepingBackups(path, std::string(20000, first ? 'a' : 'b'));
    if (write(tell, "s", 1) != 1) _exit(1);
  }
}

/// Kills a process that saves, after `saves` of them, wherever the next one stands.
void killWhileSaving(const std::string& path, int saves) {
  std::array<int, 2> told{};
  ASSERT_EQ(pipe(told.data()), 0);
  const pid_t saver = fork();
  if (saver == 0) saveForEver(path, told[1]);
  close(told[1]);
  char byte = 0;
  for (int i = 0; i < saves; ++i) ASSERT_EQ(read(told[0], &byte, 1), 1);
  kill(saver, SIGKILL);
  waitpid(saver, nullptr, 0);
  close(told[0]);
}

bool isWhole(const std::string& content) {
  return content == std::string(20000, 'a') || content == std::string(20000, 'b');
}

TEST(BackupsOfAProcessThatIsKilled, AreWholeAndSoIsTheFile) {
  const TempFolder folder;
  for (int kills = 0; kills < 40; ++kills) {
    killWhileSaving(folder / "Vorlent.ini", 1 + kills % 5);
    ASSERT_TRUE(isWhole(folder.read("Vorlent.ini"))) << kills;
    for (const char* name : {"Vorlent.ini.bak1", "Vorlent.ini.bak2", "Vorlent.ini.bak3"})
      ASSERT_TRUE(!fs::exists(folder / name) || isWhole(folder.read(name))) << kills << name;
  }
  replaceKeepingBackups(folder / "Vorlent.ini", "last");
  EXPECT_EQ(folder.read("Vorlent.ini"), "last");
  EXPECT_TRUE(isWhole(folder.read("Vorlent.ini.bak1")));
}

TEST(BackupsInAReadOnlyFolder, OfAFileThatCannotBeSavedLeaveItAsItIs) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "old");
  chmod(folder.path().c_str(), 0555);
  int raised = 0;
  {
    const OrdinaryUser user;
    raised = raisedBy([&] { replaceKeepingBackups(folder / "Vorlent.ini", "new"); });
  }
  chmod(folder.path().c_str(), 0755);
  EXPECT_EQ(raised, 70);
  EXPECT_EQ(folder.read("Vorlent.ini"), "old");
  EXPECT_FALSE(fs::exists(folder / "Vorlent.ini.bak1"));
}

}  // namespace
}  // namespace vorlent
