#include "recorder/RecordingFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <set>

#include "recorder/RecorderHelper.h"
#include "recording/EventQueue.h"
#include "recording/samples.h"
#include "recording/sqlite/RecordingReader.h"
#include "support/OrdinaryUser.h"
#include "support/TempFolder.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::set<std::string> namesIn(const std::string& folder) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    names.insert(entry.path().filename());
  return names;
}

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
  EXPECT_EQ(path, files / "a/b/Vorlent 2026-11-22 13.16.00.sqlite");
  files.write("a/b/Vorlent 2026-11-22 13.16.00.sqlite", "");
  EXPECT_EQ(folder.newFile("2026-11-22 13:16:00"),
            files / "a/b/Vorlent 2026-11-22 13.16.00 (2).sqlite");
}

TEST(RecordingFolder, ThatCannotBeMadeIsTold) {
  const TempFolder files;
  files.write("file", "");
  EXPECT_EQ(raisedBy([&] { RecordingFolder folder(files / "file"); }), RuntimeError::PathAccess);
}

/// The helper, and what the sample is on its way.
class Helper : public testing::Test {
 protected:
  Helper() : helper(files.path(), 1'000'000, [this](const std::string& s) { told.push_back(s); }) {}

  static std::string sampleBytes() {
    FakeRecorderLink link;
    EventQueue queue(link);
    for (const recorded::Event& event : sampleStart()) queue.add(event);
    for (const recorded::Event& event : sampleEvents()) queue.add(event);
    queue.flush();
    return link.taken;
  }
  std::size_t eventsInTheFile() const {
    RecordingReader reader(files / "Vorlent 2026-11-22 13.16.00.sqlite");
    std::size_t count = 0;
    while (reader.next()) ++count;
    return count;
  }

  TempFolder files;
  std::vector<std::string> told;
  RecorderHelper helper;
};

TEST_F(Helper, PutsWhatComesIntoTheFileInATenthOfASecond) {
  EXPECT_EQ(helper.pause_ms(5000), std::nullopt);
  helper.take(sampleBytes(), 5000);
  EXPECT_EQ(helper.pause_ms(5040), 60);
  helper.work(5099);
  EXPECT_EQ(eventsInTheFile(), 1U);  // a start of which nothing is known yet
  helper.work(5100);
  EXPECT_EQ(eventsInTheFile(), sampleStart().size() + sampleEvents().size());
  EXPECT_EQ(helper.pause_ms(5100), std::nullopt);
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(Helper, LooksAfterTheFolderAtItsStartAndOnceAMinute) {
  const std::string old = "Vorlent 2020-01-01 00.00.00.sqlite";
  files.write(old, std::string(1'000'001, 'x'));
  helper.work(1000);
  EXPECT_THAT(namesIn(files.path()), IsEmpty());
  files.write(old, std::string(1'000'001, 'x'));
  helper.work(60'999);
  EXPECT_THAT(namesIn(files.path()), ElementsAre(old));
  helper.work(61'000);
  EXPECT_THAT(namesIn(files.path()), IsEmpty());
}

/// Another process that reads a recording when it is told to. To be made before this process has
/// opened one: SQLite does not go through a fork.
class OtherReader {
 public:
  explicit OtherReader(const std::string& path) {
    EXPECT_EQ(pipe(pipe_.data()), 0);
    child_ = fork();
    if (child_ != 0) return;
    char go = 0;
    if (::read(pipe_[0], &go, 1) == 1) RecordingReader(path).next();
    _exit(0);
  }
  ~OtherReader() {
    for (const int end : pipe_) close(end);
  }
  OtherReader(const OtherReader&) = delete;
  OtherReader& operator=(const OtherReader&) = delete;

  void read() const {
    EXPECT_EQ(::write(pipe_[1], "g", 1), 1);
    int status = -1;
    EXPECT_EQ(waitpid(child_, &status, 0), child_);
    EXPECT_EQ(status, 0);
  }

 private:
  std::array<int, 2> pipe_{-1, -1};
  pid_t child_ = -1;
};

TEST_F(Helper, LosesNothingWhenAnotherProcessReadsAFileThatIsBeyondTheSize) {
  const OtherReader other(files / "Vorlent 2026-11-22 13.16.00.sqlite");
  RecorderHelper small(files.path(), 1, [](const std::string&) {});
  const std::string bytes = sampleBytes();
  small.take(bytes.substr(0, bytes.size() / 2), 0);
  small.work(60'000);
  other.read();
  small.take(bytes.substr(bytes.size() / 2), 60'000);
  small.work(60'100);
  EXPECT_EQ(eventsInTheFile(), sampleStart().size() + sampleEvents().size());
}

TEST_F(Helper, RefusesWhatDoesNotBeginWithAStart) {
  FakeRecorderLink link;
  EventQueue queue(link);
  queue.add({0, recorded::TimerTicked{0}});
  queue.flush();
  EXPECT_EQ(raisedBy([&] { helper.take(link.taken, 0); }), RuntimeError::InputPastEnd);
}

}  // namespace
}  // namespace vorlent
