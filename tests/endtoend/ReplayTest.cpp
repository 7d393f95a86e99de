#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/files.h"
#include "endtoend/Cockpit.h"
#include "support/places.h"

namespace vorlent {
namespace {

using testing::HasSubstr;

const std::string RecordedClimb = testsFolder() + "/recordings/climb.sqlite";

class ReplayProgram : public testing::Test {
 protected:
  ReplayProgram() { cockpit.addProgram("vorlent-replay"); }

  std::unique_ptr<Process> replay(const std::vector<std::string>& arguments) const {
    return cockpit.program("vorlent-replay", arguments);
  }

  Cockpit cockpit{1};
};

/// The altitude is the record's third number.
double altitudeIn(const std::string& record) {
  double value = 0;
  std::istringstream fields(record.substr(std::string("Data 2 1 ").size()));
  for (int field = 0; field < 3; ++field) fields >> value;
  return value;
}

TEST_F(ReplayProgram, StandsInForTheSimulatorAndADisplayShowsTheFlightAgain) {
  const auto program = replay({RecordedClimb});
  ASSERT_TRUE(program->waitForLine("ready")) << program->output();
  cockpit.bringServerUp();
  const DisplaySocket display;
  display.send(cockpit.basePort, "Connection on a b 50 localhost");
  const auto first = display.receive("Data ");
  ASSERT_TRUE(first);
  EXPECT_NEAR(altitudeIn(*first), 5000, 200);
  program->type("seek 105");
  ASSERT_TRUE(program->waitForLine("=")) << program->output();
  double altitude_ft = 0;
  for (int records = 0; records < 100 && altitude_ft < 5700; ++records)
    altitude_ft = altitudeIn(display.receive("Data ").value_or(*first));
  EXPECT_GE(altitude_ft, 5700) << "it climbs to 6500";
  program->type("exit");
  EXPECT_EQ(program->waitForEnd(), 0);
}

TEST_F(ReplayProgram, APausedFlightStandsUntilItIsPlayed) {
  const auto program = replay({"--speed", "20", RecordedClimb});
  ASSERT_TRUE(program->waitForLine("ready")) << program->output();
  program->type("pause");
  ASSERT_TRUE(program->waitForLine("=")) << program->output();
  program->type("where");
  EXPECT_TRUE(program->waitForLine(", standing")) << program->output();
  program->type("seek 1000000");
  EXPECT_TRUE(program->waitForLine("error: it takes a number from 0 to ")) << program->output();
  program->type("play");
  program->type("where");
  EXPECT_TRUE(program->waitForLine(", playing")) << program->output();
}

TEST_F(ReplayProgram, ChecksARecordingWithoutASimulator) {
  const auto program = replay({"--check", RecordedClimb});
  EXPECT_EQ(program->waitForEnd(), 0) << program->output();
  EXPECT_THAT(program->output(), HasSubstr(", all as then\n"));
}

TEST_F(ReplayProgram, AnUnknownVariableIsToldWithThoseNearIt) {
  const auto program = replay({"--csv", "Iaz", RecordedClimb});
  EXPECT_EQ(program->waitForEnd(), 1);
  EXPECT_EQ(program->output(), "vorlent-replay: no variable \"Iaz\"; near it is Ias\n");
}

TEST_F(ReplayProgram, AFileThatIsNoRecordingIsRefused) {
  const std::string text = cockpit.folder / "text.sqlite";
  replaceFile(text, "this is no recording\n");
  for (const std::string& file : {text, cockpit.folder / "missing.sqlite"})
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{file}, {"--check", file}, {"--csv", "Ias", file}}) {
      const auto program = replay(arguments);
      EXPECT_EQ(program->waitForEnd(), 1);
      EXPECT_THAT(program->output(), HasSubstr("vorlent-replay: " + file)) << program->output();
    }
}

TEST_F(ReplayProgram, AFileThatWasCutInTheMiddleIsTold) {
  const std::string cut = cockpit.folder / "cut.sqlite";
  const std::string whole = readFile(RecordedClimb);
  std::ofstream(cut, std::ios::binary) << whole.substr(0, whole.size() / 2);
  const auto program = replay({"--check", cut});
  EXPECT_EQ(program->waitForEnd(), 1);
  EXPECT_THAT(program->output(), testing::StartsWith("vorlent-replay: ")) << program->output();
}

}  // namespace
}  // namespace vorlent
