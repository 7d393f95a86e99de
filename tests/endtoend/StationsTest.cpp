#include <gmock/gmock.h>

#include <filesystem>

#include "endtoend/Cockpit.h"

namespace vorlent {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

/// The first lines of vorlent-sim, up to "ready", in a program folder of its own.
class StationsOfTheProgram : public testing::Test {
 protected:
  std::string saidAtTheStart() {
    cockpit.startSimulator();
    return cockpit.simulator->output();
  }

  Cockpit cockpit{1};
  const std::string path = cockpit.folder / "Stations.txt";
};

TEST_F(StationsOfTheProgram, TheShippedTableIsReadWithoutAWord) {
  EXPECT_EQ(saidAtTheStart(), "ready\n");
}

TEST_F(StationsOfTheProgram, AMissingTableIsToldAndTheFlightGoesOn) {
  std::filesystem::remove(path);
  const std::string said = saidAtTheStart();
  EXPECT_THAT(said,
              HasSubstr(path + ": File not found; the flight goes on without radio stations\n"));
  EXPECT_THAT(said, EndsWith("ready\n"));
}

TEST_F(StationsOfTheProgram, AWrongRowIsToldWithItsLineAndTheFlightGoesOn) {
  cockpit.folder.write("Stations.txt", "# mine\nndb VR 381.0 LOM 52.0\n");
  const std::string said = saidAtTheStart();
  EXPECT_THAT(said, HasSubstr(path + ": line 2: longitude is missing; the flight goes on without "
                                     "radio stations\n"));
  EXPECT_THAT(said, EndsWith("ready\n"));
}

}  // namespace
}  // namespace vorlent
