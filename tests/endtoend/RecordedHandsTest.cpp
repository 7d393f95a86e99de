#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <set>

#include "endtoend/OperatorAtTheScreen.h"
#include "recording/sqlite/RecordingReader.h"

namespace vorlent {
namespace {

using recorded::HandMoved;
using testing::HasSubstr;
using testing::IsSupersetOf;

const std::string ExportIt = "^Export cockpit 737", Chooser = "^Export cockpit$";

/// The server is recorded.
class RecordedHands : public OperatorAtTheScreen {
 protected:
  RecordedHands() {
    for (const std::string program :
         {"vorlent", "vorlent-recorder", "vorlent-replay", "vorlent-zip"})
      cockpit.addProgram(program);
    cockpit.folder.write("Vorlent.ini",
                         cockpit.folder.read("Vorlent.ini") + "Recorder=Recordings\r\n");
    cockpit.startSimulator({"--start", "level"});
    startWindows();
  }

  /// Into a file that he chooses.
  void exportIt() {
    desktop.keys(Main, {"alt+f", "c"});
    desktop.keys(ExportIt, {"alt+b"});
    desktop.retype(Chooser, "mine.zip");
    desktop.keys(Chooser, {"Return"});
    desktop.keys(ExportIt, {"Return"});
    EXPECT_TRUE(desktop.comesToFront(Main));
    EXPECT_TRUE(desktop.shows(Main, "Cockpit 737-900 exported to .*")) << desktop.names(Main);
    EXPECT_TRUE(std::filesystem::exists(cockpit.folder / "mine.zip"));
  }

  std::string recording() const {
    for (const auto& entry : std::filesystem::directory_iterator(cockpit.folder / "Recordings"))
      if (entry.path().extension() == ".sqlite") return entry.path();
    return "";
  }
  std::set<HandMoved::Deed> deeds() const {
    RecordingReader reader(recording());
    std::set<HandMoved::Deed> deeds;
    while (const auto event = reader.next())
      if (const auto* hand = std::get_if<HandMoved>(&event->what)) deeds.insert(hand->deed);
    return deeds;
  }
};

// scripts/recordings.sh names a file in KEEP_RECORDING: the recording is kept there.
TEST_F(RecordedHands, AreFlownAgain) {
  const DisplaySocket display;
  display.send(cockpit.basePort, "Connection on a b 50 display");
  ASSERT_TRUE(display.receive("Data "));
  turnByThePanel();
  desktop.keys(Panel, {"Escape"});
  makeAnAircraft();
  desktop.keys(Main, {"alt+a", "Down"});
  EXPECT_TRUE(desktop.shows(Main, "737-900")) << desktop.names(Main);
  exportIt();
  desktop.keys(Main, {"alt+f", "e"});
  ASSERT_EQ(server->waitForEnd(), 0) << server->output();
  using Deed = HandMoved::Deed;
  EXPECT_THAT(deeds(), IsSupersetOf({Deed::Focus, Deed::Text, Deed::Choose, Deed::Press}));
  if (const char* file = std::getenv("KEEP_RECORDING"))
    std::filesystem::copy_file(recording(), file,
                               std::filesystem::copy_options::overwrite_existing);
  const auto check = cockpit.program("vorlent-replay", {"--check", recording()});
  EXPECT_EQ(check->waitForEnd(), 0) << check->output();
  EXPECT_THAT(check->output(), HasSubstr(", all as then\n"));
}

}  // namespace
}  // namespace vorlent
