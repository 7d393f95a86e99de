#include <gmock/gmock.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "base/clsIniRw.h"
#include "recording/sqlite/Database.h"
#include "recording/sqlite/RecordingReader.h"
#include "support/eventually.h"
#include "windows/support/WindowsCockpit.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// The real server with a recorder beside it.
class RecordedProgram : public testing::Test {
 protected:
  RecordedProgram() {
    setRecorder("Recordings");
    cockpit.startSimulator();
  }

  void setRecorder(const std::string& folder) const {
    clsIniRw().WriteKey("Platform", "Recorder", folder, cockpit.path("Vorlent.ini"));
  }
  /// Has a display send a command and listen for so many records.
  void fly(int records) const {
    const DisplayLink display;
    display.send(cockpit.basePort, "Connection on a b 50 localhost");
    ASSERT_TRUE(display.receive("Data "));
    display.send(cockpit.basePort, "A 81 8000");
    for (int record = 1; record < records; ++record)
      ASSERT_TRUE(display.receive("Data ")) << record;
  }
  void endInOrder() const {
    cockpit.server->type("exit");
    ASSERT_EQ(cockpit.server->waitForEnd(), 0) << cockpit.server->output();
  }
  std::string recording() const {
    for (const auto& entry : std::filesystem::directory_iterator(cockpit.path("Recordings")))
      if (entry.path().extension() == ".sqlite") return entry.path().string();
    return "";
  }
  std::int64_t number(const std::string& sql) const {
    const Database database(recording(), Database::Open::Existing);
    const auto row = database.statement(sql);
    return row->step() ? row->number(0) : -1;
  }

  WindowsCockpit cockpit;
};

TEST_F(RecordedProgram, AShortFlightIsInAFileWithAllItsTables) {
  cockpit.bringServerUp();
  fly(40);
  endInOrder();
  EXPECT_THAT(recording(), HasSubstr("Vorlent 20"));
  {
    const RecordingReader reader(recording());
    EXPECT_TRUE(reader.summary().ended);
    EXPECT_EQ(reader.summary().dropped, 0U);
    EXPECT_GT(reader.summary().length_us, 2'000'000);
  }
  const Database database(recording(), Database::Open::Existing);
  std::vector<std::string> tables;
  const auto rows =
      database.statement("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name");
  while (rows->step()) tables.push_back(rows->text(0));
  EXPECT_THAT(tables, ElementsAre("file", "line", "page", "recording", "request", "written"));
  EXPECT_EQ(number("SELECT value FROM recording WHERE key = 'ended'"), 0);
  EXPECT_EQ(number("SELECT count(*) FROM file WHERE path = 'Vorlent.ini' AND content NOT NULL"), 1);
  EXPECT_EQ(number("SELECT count(*) FROM line WHERE kind = 'datagram' AND text LIKE '%A 81 8000%'"),
            1);
  EXPECT_GT(number("SELECT count(*) FROM written"), 0);
  EXPECT_GT(number("SELECT max(length(operations)) FROM request"), 500);
}

TEST_F(RecordedProgram, TheFlightIsInTheFileWhenTheServerIsKilled) {
  cockpit.bringServerUp();
  fly(60);
  cockpit.server->kill();
  ASSERT_TRUE(cockpit.server->waitForEnd());
  // 60 records at 50 ms; all but the last second of them.
  EXPECT_TRUE(eventually([this] { return number("SELECT max(last_us) FROM page") > 2'000'000; }));
  EXPECT_EQ(number("SELECT count(*) FROM recording WHERE key = 'ended'"), 0);
}

TEST_F(RecordedProgram, TheCheckOfTheRecordingFindsNoDifference) {
  cockpit.bringServerUp();
  fly(40);
  endInOrder();
  const auto check = cockpit.program("vorlent-replay", {"--check", recording()});
  EXPECT_EQ(check->waitForEnd(), 0) << check->output();
  EXPECT_THAT(check->output(), HasSubstr(", all as then"));
}

TEST_F(RecordedProgram, TheRecordingPlaysInTheSimulatorsPlace) {
  cockpit.bringServerUp();
  fly(40);
  endInOrder();
  cockpit.simulator.reset();
  const std::string file = recording();
  setRecorder("");
  const auto replay = cockpit.program("vorlent-replay", {"--loop", file});
  ASSERT_TRUE(replay->waitForLine("ready")) << replay->output();
  cockpit.bringServerUp();
  fly(5);
  replay->type("where");
  EXPECT_TRUE(replay->waitForLine(" s, playing")) << replay->output();
  replay->type("exit");
  EXPECT_EQ(replay->waitForEnd(), 0);
}

TEST_F(RecordedProgram, AFolderThatCannotBeMadeIsToldAndTheFlightGoesOn) {
  setRecorder("Vorlent.ini/Recordings");
  cockpit.bringServerUp();
  EXPECT_TRUE(cockpit.server->waitForLine("1| Nothing is recorded: the folder "))
      << cockpit.server->output();
  fly(5);
}

}  // namespace
}  // namespace vorlent
