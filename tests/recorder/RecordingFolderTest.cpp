#include "recorder/RecordingFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "base/files.h"
#include "recorder/RecordingClaim.h"
#include "recorder/namesIn.h"
#include "support/TempFolder.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

using testing::ElementsAre;

const std::string First = "Vorlent 2026-11-20 10.00.00.sqlite";
const std::string Second = "Vorlent 2026-11-21 10.00.00.sqlite";
const std::string Third = "Vorlent 2026-11-22 10.00.00.sqlite";

class FolderOfThree : public testing::Test {
 protected:
  FolderOfThree() {
    for (const std::string& name : {Second, Third, First})
      files.write(name, std::string(1000, 'x'));
    files.write("Vorlent notes.txt", std::string(5000, 'x'));
  }
  std::set<std::string> leftWithin(std::uint64_t size_bytes) const {
    RecordingFolder(files.path()).keepWithin(size_bytes);
    std::set<std::string> names = namesIn(files.path());
    EXPECT_EQ(names.erase("Vorlent notes.txt"), 1U);
    return names;
  }

  TempFolder files;
};

TEST_F(FolderOfThree, KeepsAllThatHasRoom) {
  EXPECT_THAT(leftWithin(3000), ElementsAre(First, Second, Third));
}

TEST_F(FolderOfThree, LosesTheOldestFirst) {
  for (const std::string companion : {"-journal", "-wal", "-shm"})
    files.write(First + companion, "");
  EXPECT_THAT(leftWithin(2999), ElementsAre(Second, Third));
  EXPECT_THAT(leftWithin(1000), ElementsAre(Third));
}

TEST_F(FolderOfThree, CountsWhatHasNotGoneIntoTheFileYet) {
  files.write(Third + "-wal", std::string(500, 'x'));
  EXPECT_THAT(leftWithin(3499), ElementsAre(Second, Third, Third + "-wal"));
}

TEST_F(FolderOfThree, NeverLosesOneThatIsBeingWritten) {
  const RecordingClaim claim(files / First);
  EXPECT_THAT(leftWithin(1), ElementsAre(First));
}

TEST(RecordingFolder, IsMadeAndNamesFilesByTheirTime) {
  const TempFolder files;
  const RecordingFolder folder(files / "a/b");
  const std::string path = folder.newFile("2026-11-22 13:16:00");
  EXPECT_EQ(std::filesystem::path(path).filename(), "Vorlent 2026-11-22 13.16.00.sqlite");
  EXPECT_EQ(nativePath(path), nativePath(files / "a/b/Vorlent 2026-11-22 13.16.00.sqlite"));
  files.write("a/b/Vorlent 2026-11-22 13.16.00.sqlite", "");
  EXPECT_EQ(nativePath(folder.newFile("2026-11-22 13:16:00")),
            nativePath(files / "a/b/Vorlent 2026-11-22 13.16.00 (2).sqlite"));
}

TEST(RecordingFolder, ThatCannotBeMadeIsTold) {
  const TempFolder files;
  files.write("file", "");
  EXPECT_EQ(raisedBy([&] { RecordingFolder folder(files / "file"); }), RuntimeError::PathAccess);
}

}  // namespace
}  // namespace vorlent
