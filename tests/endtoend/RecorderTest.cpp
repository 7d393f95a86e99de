#include <gtest/gtest.h>
#include <signal.h>

#include <filesystem>
#include <fstream>

#include "endtoend/Cockpit.h"
#include "recording/sqlite/RecordingReader.h"
#include "support/eventually.h"

namespace vorlent {
namespace {

using namespace recorded;

/// The real server with a recorder beside it.
class RecordedFlight : public testing::Test {
 protected:
  RecordedFlight() {
    cockpit.addProgram("vorlent-recorder");
    setRecorder("Recordings");
    cockpit.startSimulator();
  }

  void setRecorder(const std::string& folder) const {
    cockpit.folder.write("Vorlent.ini",
                         cockpit.folder.read("Vorlent.ini") + "Recorder=" + folder + "\r\n");
  }

  /// Has a display listen for so many records.
  void fly(int records) const {
    const DisplaySocket display;
    display.send(cockpit.basePort, "Connection on a b 50 localhost");
    for (int record = 0; record < records; ++record)
      ASSERT_TRUE(display.receive("Data ")) << record;
  }

  std::string recording() const {
    for (const auto& entry : std::filesystem::directory_iterator(cockpit.folder / "Recordings"))
      if (entry.path().extension() == ".sqlite") return entry.path();
    return "";
  }

  /// The recorder is the server's only child of that name.
  pid_t recorderId() const {
    const std::string id = std::to_string(cockpit.server->id());
    std::ifstream children("/proc/" + id + "/task/" + id + "/children");
    for (pid_t child = 0; children >> child;) {
      std::ifstream name("/proc/" + std::to_string(child) + "/comm");
      std::string text;
      if (name >> text && text.starts_with("vorlent-record")) return child;
    }
    return 0;
  }

  Cockpit cockpit;
};

struct Content {
  int polls = 0;
  int writes = 0;
  std::int64_t length_us = 0;
  bool ended = false;
};

Content contentOf(const std::string& path) {
  RecordingReader reader(path);
  Content content{0, 0, reader.summary().length_us, reader.summary().ended};
  while (const auto event = reader.next()) {
    const auto* exchange = std::get_if<Exchanged>(&event->what);
    if (exchange == nullptr) continue;
    if (exchange->request->size() > 100) ++content.polls;
    if (!exchange->written.empty()) ++content.writes;
  }
  EXPECT_EQ(reader.fault(), "");
  EXPECT_EQ(reader.summary().dropped, 0U);
  return content;
}

TEST_F(RecordedFlight, IsInAFileAfterAnOrderlyEnd) {
  cockpit.bringServerUp();
  fly(40);
  cockpit.server->signal(SIGTERM);
  EXPECT_EQ(cockpit.server->waitForEnd(), 0);
  const Content content = contentOf(recording());
  EXPECT_TRUE(content.ended);
  EXPECT_GT(content.polls, 20);
  EXPECT_GT(content.writes, 0);
  EXPECT_GT(content.length_us, 2'000'000);
}

TEST_F(RecordedFlight, IsInAFileWhenTheServerIsKilled) {
  cockpit.bringServerUp();
  fly(60);
  cockpit.server->signal(SIGKILL);
  cockpit.server->waitForEnd();
  // 60 records at 50 ms; all but the last second of them.
  const auto isThere = [this] { return contentOf(recording()).length_us > 2'000'000; };
  EXPECT_TRUE(eventually(isThere));
  EXPECT_FALSE(contentOf(recording()).ended);
}

TEST_F(RecordedFlight, IsInAFileWhenTheRecorderIsKilledAndGoesOnWithoutIt) {
  cockpit.bringServerUp();
  fly(60);
  const pid_t recorder = recorderId();
  ASSERT_GT(recorder, 0);
  kill(recorder, SIGKILL);
  EXPECT_TRUE(cockpit.server->waitForLine("1| Nothing is recorded: its helper has ended"));
  const Content content = contentOf(recording());
  EXPECT_GT(content.length_us, 2'000'000);
  EXPECT_GT(content.polls, 20);
  fly(10);
  cockpit.server->signal(SIGTERM);
  EXPECT_EQ(cockpit.server->waitForEnd(), 0);
}

TEST_F(RecordedFlight, GoesOnWhileTheRecorderStandsStillAndIsWholeWhenThatWasShort) {
  cockpit.bringServerUp();
  const pid_t recorder = recorderId();
  ASSERT_GT(recorder, 0);
  kill(recorder, SIGSTOP);
  fly(40);
  kill(recorder, SIGCONT);
  cockpit.server->signal(SIGTERM);
  EXPECT_EQ(cockpit.server->waitForEnd(), 0);
  // Two seconds have room in what waits, so nothing is missing here.
  EXPECT_GT(contentOf(recording()).polls, 20);
}

TEST_F(RecordedFlight, GoesOnWhileTheRecorderStandsStillAndCountsWhatIsMissingWhenThatWasLong) {
  cockpit.bringServerUp();
  const pid_t recorder = recorderId();
  ASSERT_GT(recorder, 0);
  kill(recorder, SIGSTOP);
  // What waits has room for 4 MB, and lines on the console are taken one and all. Each is answered,
  // and records go on, so nothing blocks.
  const DisplaySocket display;
  display.send(cockpit.basePort, "Connection on a b 50 localhost");
  const std::string line = "get " + std::string(4000, 'x');
  constexpr std::size_t Flood_bytes = 7'000'000;
  for (std::size_t typed_bytes = 0; typed_bytes < Flood_bytes; typed_bytes += line.size()) {
    cockpit.server->type(line);
    ASSERT_TRUE(cockpit.server->waitForLine("error: ")) << typed_bytes;
  }
  for (int record = 0; record < 20; ++record) ASSERT_TRUE(display.receive("Data ")) << record;
  kill(recorder, SIGCONT);
  for (int record = 0; record < 20; ++record) ASSERT_TRUE(display.receive("Data ")) << record;
  cockpit.server->signal(SIGTERM);
  EXPECT_EQ(cockpit.server->waitForEnd(), 0);

  RecordingReader reader(recording());
  std::uint64_t told = 0;
  while (const auto event = reader.next())
    if (const auto* dropped = std::get_if<Dropped>(&event->what)) told += dropped->events;
  EXPECT_EQ(reader.fault(), "");
  EXPECT_GT(told, 100U);
  EXPECT_EQ(reader.summary().dropped, told);
  EXPECT_TRUE(reader.summary().ended);
}

TEST_F(RecordedFlight, ThatHasNowhereToGoIsToldAndGoesOn) {
  cockpit.folder.write("Recordings", "a file is here");
  cockpit.bringServerUp();
  fly(10);
  EXPECT_TRUE(cockpit.server->waitForLine("1| Nothing is recorded: the folder "));
}

TEST_F(RecordedFlight, WithoutItsHelperIsToldAndGoesOn) {
  std::filesystem::remove(cockpit.folder / "vorlent-recorder");
  cockpit.bringServerUp();
  fly(10);
  EXPECT_TRUE(cockpit.server->waitForLine("1| Nothing is recorded: its helper "));
}

}  // namespace
}  // namespace vorlent
