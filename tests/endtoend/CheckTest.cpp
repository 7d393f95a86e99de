#include <gmock/gmock.h>

#include "endtoend/Cockpit.h"

namespace vorlent {
namespace {

using testing::HasSubstr;
using testing::Not;

class CheckProgram : public testing::Test {
 protected:
  CheckProgram() { cockpit.addProgram("vorlent-check"); }
  int check(const std::vector<std::string>& options) {
    const auto program = cockpit.program("vorlent-check", options);
    const int status = program->waitForEnd().value_or(-1);
    said = program->output();
    return status;
  }

  Cockpit cockpit{1};
  std::string said;
};

TEST_F(CheckProgram, TheBuiltInAircraftPasses) {
  cockpit.startSimulator({"--start", "level"});
  EXPECT_EQ(check({"--seconds", "2"}), 0) << said;
  EXPECT_THAT(said, Not(HasSubstr("WRONG")));
}

TEST_F(CheckProgram, WithoutASimulatorItSaysSo) {
  EXPECT_EQ(check({}), 1);
  EXPECT_EQ(said, "vorlent-check: no simulator side listens as UIPCMAIN or FS98MAIN\n");
}

TEST_F(CheckProgram, ASimulatorThatIsNotReadyFails) {
  cockpit.startSimulator({"--not-ready", "1000"});
  EXPECT_EQ(check({}), 1);
  EXPECT_THAT(said, HasSubstr("not ready"));
}

}  // namespace
}  // namespace vorlent
