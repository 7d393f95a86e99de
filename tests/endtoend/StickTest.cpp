#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include "endtoend/Process.h"
#include "platform/linux/LinuxControllers.h"
#include "support/ScopedEnvironment.h"
#include "support/TempFolder.h"
#include "support/eventually.h"

namespace vorlent {
namespace {

/// The program vorlent-stick, seen by the controllers of a server.
class StickProcess : public testing::Test {
 protected:
  std::unique_ptr<Process> stick(const std::vector<std::string>& arguments) const {
    return std::make_unique<Process>(VORLENT_PROGRAMS "/vorlent-stick", arguments,
                                     std::vector<std::string>{"VORLENT_BUS=" + (folder / "bus")});
  }
  /// Its number in the list, in which real devices may stand before it.
  std::optional<std::size_t> numberOf(const std::string& name) {
    const auto list = controllers.devices();
    for (std::size_t i = 0; i < list.size(); ++i)
      if (list[i].connection == "stick " + name) return i;
    return std::nullopt;
  }
  bool shows(std::size_t device, const std::function<bool(const ControllerState&)>& holds) {
    return eventually([&] {
      ControllerState state;
      controllers.Acquire(device);
      controllers.Poll(device);
      return controllers.GetDeviceState(device, state) == ControllerResult::Ok && holds(state);
    });
  }

  TempFolder folder;
  ScopedEnvironment bus{"VORLENT_BUS", folder / "bus"};
  LinuxControllers controllers;
};

TEST_F(StickProcess, ShowsItsStepsAndFollowsItsInputUntilThatEnds) {
  const auto program = stick({"--name", "yoke", "x=32768", "press", "3"});
  ASSERT_TRUE(program->waitForLine("ready"));
  const auto number = numberOf("yoke");
  ASSERT_TRUE(number);
  EXPECT_TRUE(shows(*number, [](const ControllerState& state) {
    return state.x == 32768 && state.buttons[2] == 0x80;
  }));
  program->type("release 3 slider0=65535");
  EXPECT_TRUE(shows(*number, [](const ControllerState& state) {
    return state.slider[0] == 65535 && state.buttons[2] == 0;
  }));
  program->signal(SIGTERM);
  EXPECT_EQ(program->waitForEnd(), 0);
  EXPECT_TRUE(eventually([&] { return controllers.Poll(*number) == ControllerResult::Unplugged; }));
  EXPECT_FALSE(std::filesystem::exists(folder / "bus/stick.yoke"));
}

TEST_F(StickProcess, TheEndOfItsTerminalIsAnOrderlyEnd) {
  const auto program = stick({"--name", "yoke", "x=32768"});
  ASSERT_TRUE(program->waitForLine("ready"));
  program->signal(SIGHUP);
  EXPECT_EQ(program->waitForEnd(), 0);
  EXPECT_FALSE(std::filesystem::exists(folder / "bus/stick.yoke"));
}

TEST_F(StickProcess, EndsAfterItsHold) { EXPECT_EQ(stick({"--hold", "0.01"})->waitForEnd(), 0); }

TEST_F(StickProcess, SaysWhatIsWrongAndHowToGetHelp) {
  const auto program = stick({"jump"});
  EXPECT_TRUE(program->waitForLine("vorlent-stick: There is no step \"jump\""));
  EXPECT_TRUE(program->waitForLine("See vorlent-stick --help."));
  EXPECT_EQ(program->waitForEnd(), 2);
}

TEST_F(StickProcess, ASecondOneOfTheSameNameEnds) {
  const auto first = stick({});
  ASSERT_TRUE(first->waitForLine("ready"));
  const auto second = stick({});
  EXPECT_TRUE(second->waitForLine("another program is listening there"));
  EXPECT_EQ(second->waitForEnd(), 1);
}

}  // namespace
}  // namespace vorlent
