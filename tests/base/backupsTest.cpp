#include "base/backups.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/files.h"
#include "support/TempFolder.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

class Backups : public testing::Test {
 protected:
  void save(const std::string& content) const {
    replaceKeepingBackups(folder / "Vorlent.ini", content);
  }
  std::string now() const { return folder.read("Vorlent.ini"); }
  std::string backup(int number) const {
    return folder.read("Vorlent.ini.bak" + std::to_string(number));
  }
  std::ptrdiff_t files() const {
    return std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator());
  }

  TempFolder folder;
};

TEST_F(Backups, AFirstSaveHasNothingToKeep) {
  save("one");
  EXPECT_EQ(now(), "one");
  EXPECT_EQ(files(), 1);
}

TEST_F(Backups, TheNewestIsNumberOne) {
  for (const char* content : {"one", "two", "three"}) save(content);
  EXPECT_EQ(now(), "three");
  EXPECT_EQ(backup(1), "two");
  EXPECT_EQ(backup(2), "one");
  EXPECT_EQ(files(), 3);
}

TEST_F(Backups, TheFourthPushesTheOldestOut) {
  for (const char* content : {"one", "two", "three", "four", "five"}) save(content);
  EXPECT_EQ(now(), "five");
  EXPECT_EQ(backup(1), "four");
  EXPECT_EQ(backup(2), "three");
  EXPECT_EQ(backup(3), "two");
  EXPECT_EQ(files(), 4);
}

TEST_F(Backups, ASaveThatChangesNothingKeepsNothing) {
  for (const char* content : {"one", "two", "two", "two"}) save(content);
  EXPECT_EQ(backup(1), "one");
  EXPECT_EQ(files(), 2);
}

TEST_F(Backups, SavesThatFailPushNoOlderOneOut) {
  for (const char* content : {"one", "two", "three"}) save(content);
  folder.write("Vorlent.ini", "two");  // as if the last save had kept it and gone no farther
  save("four");
  EXPECT_EQ(now(), "four");
  EXPECT_EQ(backup(1), "two");
  EXPECT_EQ(backup(2), "one");
  EXPECT_EQ(files(), 3);
}

TEST_F(Backups, OneThatWasTakenAwayLeavesRoomForTheNext) {
  for (const char* content : {"one", "two", "three", "four"}) save(content);
  fs::remove(folder / "Vorlent.ini.bak2");
  save("five");
  EXPECT_EQ(backup(1), "four");
  EXPECT_EQ(backup(2), "three");
  EXPECT_EQ(backup(3), "one");
}

TEST_F(Backups, ABackupThatCannotBeMadeDoesNotStopTheSave) {
  save("one");
  fs::create_directories(folder / "Vorlent.ini.bak0");
  save("two");
  EXPECT_EQ(now(), "two");
  EXPECT_FALSE(fs::exists(folder / "Vorlent.ini.bak1"));
}

TEST_F(Backups, ABackupThatCannotTakeItsPlaceDoesNotStopTheSave) {
  save("one");
  fs::create_directories(folder / "Vorlent.ini.bak1");
  save("two");
  EXPECT_EQ(now(), "two");
}

TEST_F(Backups, StandBesideTheFileAsItIsWrittenInTheFolder) {
  folder.write("Stick/Stick0.CFG", "one");
  replaceKeepingBackups(folder / "stick\\stick0.cfg", "two");
  EXPECT_EQ(folder.read("Stick/Stick0.CFG"), "two");
  EXPECT_EQ(folder.read("Stick/stick0.cfg.bak1"), "one");
}

TEST_F(Backups, ASaveIntoAFolderThatIsMissingRaisesPathNotFound) {
  EXPECT_EQ(raisedBy([&] { replaceKeepingBackups(folder / "gone/Vorlent.ini", "one"); }), 76);
}

TEST_F(Backups, OverwritingTheStartLeavesTheTailAndKeepsTheWholeOldContent) {
  folder.write("stick0.cfg", "old content");
  overwriteStartKeepingBackups(folder / "stick0.cfg", "new");
  EXPECT_EQ(folder.read("stick0.cfg"), "new content");
  EXPECT_EQ(folder.read("stick0.cfg.bak1"), "old content");
}

TEST_F(Backups, OverwritingTheStartWithTheSameKeepsNothing) {
  folder.write("stick0.cfg", "new content");
  overwriteStartKeepingBackups(folder / "stick0.cfg", "new");
  EXPECT_EQ(folder.read("stick0.cfg"), "new content");
  EXPECT_EQ(files(), 1);
}

TEST_F(Backups, OverwritingTheStartCanMakeTheFileLongerOrNew) {
  overwriteStartKeepingBackups(folder / "stick0.cfg", "one");
  EXPECT_EQ(folder.read("stick0.cfg"), "one");
  overwriteStartKeepingBackups(folder / "stick0.cfg", "one, two");
  EXPECT_EQ(folder.read("stick0.cfg"), "one, two");
  EXPECT_EQ(folder.read("stick0.cfg.bak1"), "one");
}

}  // namespace
}  // namespace vorlent
