#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "recording/samples.h"
#include "recording/sqlite/Database.h"
#include "recording/sqlite/RecordingReader.h"
#include "recording/sqlite/RecordingWriter.h"
#include "support/FullDisk.h"
#include "support/TempFolder.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

using namespace recorded;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class RecordingFile : public testing::Test {
 protected:
  /// The sample, committed behind each `portion` events.
  void write(std::size_t portion = 5) const {
    RecordingWriter writer(path);
    for (const Event& event : sampleStart()) writer.add(event);
    std::size_t count = 0;
    for (const Event& event : sampleEvents()) {
      writer.add(event);
      if (++count % portion == 0) writer.commit();
    }
  }

  static std::vector<Event> eventsOf(RecordingReader& reader) {
    std::vector<Event> events;
    while (auto event = reader.next()) events.push_back(*event);
    return events;
  }

  /// The rows of a query, a blank between columns.
  std::vector<std::string> rows(const std::string& sql, int columns) const {
    const Database database(path, Database::Open::Existing);
    const auto statement = database.statement(sql);
    std::vector<std::string> rows;
    while (statement->step()) {
      std::string row;
      for (int column = 0; column < columns; ++column)
        row += (column > 0 ? " " : "") + statement->text(column);
      rows.push_back(row);
    }
    return rows;
  }

  static std::vector<Event> all() {
    std::vector<Event> events = sampleStart();
    for (const Event& event : sampleEvents()) events.push_back(event);
    return events;
  }

  TempFolder folder;
  std::string path = folder / "a recording.sqlite";
};

TEST_F(RecordingFile, GivesWhatWasWritten) {
  write();
  RecordingReader reader(path);
  EXPECT_EQ(eventsOf(reader), all());
  EXPECT_EQ(reader.fault(), "");
  EXPECT_EQ(reader.summary().version, "1.0");
  EXPECT_EQ(reader.summary().started, "2026-11-22 13:16:00");
  EXPECT_EQ(reader.summary().length_us, 31'000'001);
  EXPECT_EQ(reader.summary().dropped, 12U);
  EXPECT_TRUE(reader.summary().ended);
  reader.rewind();
  EXPECT_EQ(eventsOf(reader), all());
}

TEST_F(RecordingFile, CanBeReadFromATimeOn) {
  write(1);
  RecordingReader reader(path);
  reader.seek(31'000'000);
  const std::vector<Event> last{{31'000'000, TimerTicked{0}}, {31'000'001, Ended{1}}};
  EXPECT_EQ(eventsOf(reader), last);
  reader.seek(30'000'000);
  EXPECT_EQ(eventsOf(reader), sampleEvents());
}

TEST_F(RecordingFile, HasItsTextsInPlain) {
  write();
  EXPECT_THAT(rows("SELECT time_us, kind, who, text FROM line ORDER BY time_us", 4),
              ElementsAre("80000 datagram 127.0.0.1:40000 p A 1 8000",
                          "80002 hand frmMainClient.cmdStop press", "90000 status 1 ready start",
                          "90001 box Vorlent You can only run 1 Vorlent at a time",
                          "90002 session 127.0.0.1:40000 greeting", "90003 dropped  12"));
}

TEST_F(RecordingFile, HasTheWritesThatTheSimulatorTookInPlain) {
  write();
  EXPECT_THAT(rows("SELECT time_us, offset, hex(bytes) FROM written ORDER BY time_us", 3),
              ElementsAre("10 3016 1234", "70010 3016 1234", "70020 3016 1234"));
  EXPECT_THAT(rows("SELECT id, operations FROM request", 2),
              ElementsAre("1 r0560:4 w0BC8:2 r3364:3"));
}

TEST_F(RecordingFile, HasTheFilesOfTheStart) {
  write();
  EXPECT_THAT(rows("SELECT path, size, content IS NULL FROM file ORDER BY path", 3),
              ElementsAre("Cockpits/737-700/Flaps.cfg 7 0",
                          "Cockpits/737-700/sound/bump.wav 70000 1", "Vorlent.ini 0 0"));
  EXPECT_THAT(rows("SELECT value FROM recording WHERE key IN ('dropped', 'ended', 'format')", 1),
              ElementsAre("12", "1", "1"));
}

TEST_F(RecordingFile, ThatIsBeingWrittenHasWhatWasCommitted) {
  RecordingWriter writer(path);
  for (const Event& event : sampleStart()) writer.add(event);
  writer.add(sampleEvents()[0]);
  writer.commit();
  writer.add(sampleEvents()[1]);
  RecordingReader reader(path);
  std::vector<Event> expected = sampleStart();
  expected.push_back(sampleEvents()[0]);
  EXPECT_EQ(eventsOf(reader), expected);
  EXPECT_FALSE(reader.summary().ended);
}

TEST_F(RecordingFile, CopiedWithItsLogWhileItIsWrittenIsWhole) {
  RecordingWriter writer(path);
  for (const Event& event : sampleStart()) writer.add(event);
  writer.add(sampleEvents()[0]);
  writer.commit();
  const std::string copy = folder / "copy.sqlite";
  std::filesystem::copy_file(path, copy);
  std::filesystem::copy_file(path + "-wal", copy + "-wal");
  RecordingReader reader(copy);
  std::vector<Event> expected = sampleStart();
  expected.push_back(sampleEvents()[0]);
  EXPECT_EQ(eventsOf(reader), expected);
}

TEST_F(RecordingFile, OpensWithoutItsLog) {
  RecordingWriter writer(path);
  for (const Event& event : sampleStart()) writer.add(event);
  writer.commit();
  const std::string copy = folder / "copy.sqlite";
  std::filesystem::copy_file(path, copy);
  RecordingReader reader(copy);
  EXPECT_EQ(eventsOf(reader).size(), 1U);  // a start of which nothing is known yet
  EXPECT_EQ(reader.fault(), "");
}

TEST_F(RecordingFile, StandsAloneAfterItsEnd) {
  write();
  EXPECT_TRUE(std::filesystem::exists(path));
  for (const std::string companion : {"-wal", "-shm", "-journal"})
    EXPECT_FALSE(std::filesystem::exists(path + companion)) << companion;
  EXPECT_THAT(rows("PRAGMA journal_mode", 1), ElementsAre("delete"));
}

TEST_F(RecordingFile, IsWrittenOnWhileSomebodyReadsIt) {
  RecordingWriter writer(path);
  for (const Event& event : sampleStart()) writer.add(event);
  writer.commit();
  Database reading(path, Database::Open::Existing);
  reading.execute("BEGIN; SELECT * FROM recording");
  writer.add(sampleEvents()[0]);
  writer.commit();
  RecordingReader reader(path);
  EXPECT_EQ(eventsOf(reader).size(), sampleStart().size() + 1);
}

TEST_F(RecordingFile, ThatIsDamagedGivesWhatStandsBeforeTheDamageAndTellsWhy) {
  write(1);
  Database(path, Database::Open::Existing)
      .execute("UPDATE page SET content = x'0102' WHERE number = 4");
  RecordingReader reader(path);
  EXPECT_EQ(eventsOf(reader).size(), sampleStart().size() + 3);
  EXPECT_EQ(reader.fault(), "The recording cannot be read on: a page is damaged");
}

TEST_F(RecordingFile, ThatWasCutShortIsReadAsFarAsItGoesOrRefused) {
  {
    RecordingWriter writer(path);
    for (const Event& event : sampleStart()) writer.add(event);
    for (int i = 0; i < 2000; ++i) {
      writer.add({i, StatusShown{1, "line " + std::to_string(i * 7919)}});
      if (i % 50 == 0) writer.commit();
    }
  }
  const std::size_t whole = sampleStart().size() + 2000;
  const auto size = std::filesystem::file_size(path);
  std::size_t refused = 0;
  std::size_t readInPart = 0;
  for (std::uintmax_t twentieths = 19; twentieths > 0; --twentieths) {
    std::filesystem::resize_file(path, size * twentieths / 20);
    try {
      RecordingReader reader(path);
      const std::vector<Event> events = eventsOf(reader);
      EXPECT_EQ(reader.fault().empty(), events.size() == whole) << twentieths;
      if (events.size() < whole) ++readInPart;
    } catch (const RuntimeError& error) {
      EXPECT_THAT(error.description(), HasSubstr("cannot be read as a recording: "));
      ++refused;
    }
  }
  EXPECT_GE(refused + readInPart, 15U);
}

TEST_F(RecordingFile, ThatIsNoneIsRefused) {
  const auto why = [](const std::string& file) -> std::string {
    try {
      RecordingReader reader(file);
    } catch (const RuntimeError& error) {
      return error.description();
    }
    return "";
  };
  folder.write("text", "This is no database, however long one reads in it.");
  EXPECT_THAT(why(folder / "text"), HasSubstr("text cannot be read as a recording: "));
  EXPECT_THAT(why(folder / "nothing"), HasSubstr("unable to open"));
  write();
  Database(path, Database::Open::Existing)
      .execute("UPDATE recording SET value = 2 WHERE key = 'format'");
  EXPECT_THAT(why(path), HasSubstr("newer format"));
}

TEST_F(RecordingFile, CannotBeMadeWhereThereIsOne) {
  folder.write("a recording.sqlite", "mine");
  EXPECT_EQ(raisedBy([&] { RecordingWriter writer(path); }), RuntimeError::PathAccess);
  EXPECT_EQ(folder.read("a recording.sqlite"), "mine");
}

TEST_F(RecordingFile, OnAFullDiskCountsWhatIsMissingAndGoesOnLater) {
  RecordingWriter writer(path);
  for (const Event& event : sampleStart()) writer.add(event);
  writer.add({1, sampleExchange("aaaaaaa")});
  writer.commit();
  {
    const FullDisk full(std::filesystem::file_size(path));
    for (int i = 0; i < 10; ++i)
      writer.add({2 + i, StatusShown{1, std::string(5000, static_cast<char>('a' + i))}});
    EXPECT_EQ(raisedBy([&] { writer.commit(); }), RuntimeError::PathAccess);
  }
  writer.add({20, sampleExchange("bbbbbbb")});
  writer.commit();
  RecordingReader reader(path);
  std::vector<Event> expected = sampleStart();
  expected.push_back({1, sampleExchange("aaaaaaa")});
  expected.push_back({20, Dropped{10}});
  expected.push_back({20, sampleExchange("bbbbbbb")});
  EXPECT_EQ(eventsOf(reader), expected);
  EXPECT_EQ(reader.summary().dropped, 10U);
}

}  // namespace
}  // namespace vorlent
