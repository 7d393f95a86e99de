#include "base/files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "support/TempFolder.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Paths, AreJoinedByOneBackslash) {
  EXPECT_EQ(joinedPath("C:\\Vorlent", "log.txt"), "C:\\Vorlent\\log.txt");
  EXPECT_EQ(joinedPath("C:\\Vorlent\\", "log.txt"), "C:\\Vorlent\\log.txt");
  EXPECT_EQ(joinedPath("/opt/vorlent/", "log.txt"), "/opt/vorlent/log.txt");
  EXPECT_EQ(joinedPath("", "log.txt"), "log.txt");
}

TEST(Paths, AreCutAtTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(folderOf("Cockpits\\737\\"), "Cockpits\\737");
  EXPECT_EQ(folderOf("Cockpits\\737/sound.cfg"), "Cockpits\\737");
  EXPECT_EQ(folderOf("sound.cfg"), "");
}

TEST(Files, AreFoundWithBackslashesAndInAnyCaseOfLetters) {
  const TempFolder folder;
  folder.write("Cockpits/B737/Sound.CFG", "volume");
  const auto path = joinedPath(folder.path(), "cockpits\\b737\\SOUND.cfg");
  EXPECT_TRUE(fileExists(path));
  EXPECT_EQ(readFile(path), "volume");
  EXPECT_TRUE(folderExists(joinedPath(folder.path(), "COCKPITS\\b737\\")));
}

TEST(Files, ArePutIntoTheExistingEntryOfAnyCase) {
  const TempFolder folder;
  folder.write("Data/Log.TXT", "one ");
  appendToFile(folder / "data\\LOG.txt", "two");
  EXPECT_EQ(folder.read("Data/Log.TXT"), "one two");
  replaceFile(folder / "DATA\\log.txt", "three");
  EXPECT_EQ(folder.read("Data/Log.TXT"), "three");
  EXPECT_THAT(subFolders(folder.path()), ElementsAre("Data"));
}

TEST(Files, AreToldFromFolders) {
  const TempFolder folder;
  folder.write("file", "");
  EXPECT_TRUE(fileExists(folder / "file"));
  EXPECT_FALSE(folderExists(folder / "file"));
  EXPECT_FALSE(fileExists(folder.path()));
  EXPECT_TRUE(folderExists(folder.path()));
  EXPECT_FALSE(fileExists(folder / "other"));
  EXPECT_FALSE(folderExists(folder / "file\\below"));
}

TEST(SubFolders, AreSortedWithoutRegardToCase) {
  const TempFolder folder;
  for (const char* name : {"b", "A", "c"}) fs::create_directories(folder / name);
  folder.write("aFile", "");
  EXPECT_THAT(subFolders(folder.path()), ElementsAre("A", "b", "c"));
  EXPECT_THAT(subFolders(folder / "missing"), IsEmpty());
}

TEST(ReadFile, GivesEveryByte) {
  const TempFolder folder;
  std::string bytes;
  for (int i = 0; i < 10000; ++i) bytes += static_cast<char>(i);
  folder.write("bytes", bytes);
  EXPECT_EQ(readFile(folder / "bytes"), bytes);
}

TEST(ReadFile, TellsAMissingFileFromAMissingFolder) {
  const TempFolder folder;
  EXPECT_EQ(raisedBy([&] { readFile(folder / "missing.txt"); }), 53);
  EXPECT_EQ(raisedBy([&] { readFile(folder / "missing\\file.txt"); }), 76);
}

TEST(ReadFile, RaisesPathAccessForAFolder) {
  const TempFolder folder;
  EXPECT_EQ(raisedBy([&] { readFile(folder.path()); }), 75);
}

TEST(ReplaceFile, LeavesNothingButTheNewContent) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "a longer old content");
  replaceFile(folder / "Vorlent.ini", "new");
  EXPECT_EQ(folder.read("Vorlent.ini"), "new");
  EXPECT_FALSE(fs::exists(folder / "Vorlent.ini.new"));
}

TEST(ReplaceFile, MakesAMissingFile) {
  const TempFolder folder;
  replaceFile(folder / "Vorlent.ini", "new");
  EXPECT_EQ(folder.read("Vorlent.ini"), "new");
  EXPECT_EQ(raisedBy([&] { replaceFile(folder / "missing\\Vorlent.ini", "new"); }), 76);
  EXPECT_FALSE(fs::exists(folder / "missing"));
}

TEST(ReplaceFile, TakesTheRemainsOfAnEarlierCutOffAway) {
  const TempFolder folder;
  folder.write("Vorlent.ini", "old");
  folder.write("Vorlent.ini.new", "half of what was to be writ");
  replaceFile(folder / "Vorlent.ini", "new");
  EXPECT_EQ(folder.read("Vorlent.ini"), "new");
  EXPECT_FALSE(fs::exists(folder / "Vorlent.ini.new"));
}

TEST(OverwriteStart, KeepsTheTailOfALongerContent) {
  const TempFolder folder;
  folder.write("Flaps.cfg", "0123456789");
  overwriteStart(folder / "Flaps.cfg", "abc");
  EXPECT_EQ(folder.read("Flaps.cfg"), "abc3456789");
}

TEST(OverwriteStart, GrowsAShorterFileAndMakesAMissingOne) {
  const TempFolder folder;
  folder.write("short", "12");
  overwriteStart(folder / "short", "abc");
  EXPECT_EQ(folder.read("short"), "abc");
  overwriteStart(folder / "missing", "abc");
  EXPECT_EQ(folder.read("missing"), "abc");
}

TEST(AppendToFile, MakesAMissingFileAndAddsAtItsEnd) {
  const TempFolder folder;
  appendToFile(folder / "log.txt", "ready start\r\n");
  appendToFile(folder / "log.txt", "Quit\r\n");
  EXPECT_EQ(folder.read("log.txt"), "ready start\r\nQuit\r\n");
}

TEST(DeleteFile, RemovesTheFileOrTellsThatThereIsNone) {
  const TempFolder folder;
  folder.write("Test.txt", "test");
  deleteFile(folder / "test.TXT");
  EXPECT_FALSE(fs::exists(folder / "Test.txt"));
  EXPECT_EQ(raisedBy([&] { deleteFile(folder / "test.txt"); }), 53);
}

}  // namespace
}  // namespace vorlent
