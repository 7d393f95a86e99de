#include "stick/Step.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

std::string stepComplaintOf(const std::string& line) {
  try {
    stepsFrom(wordsOf(line));
    return "nothing";
  } catch (const StepError& error) {
    return error.what();
  }
}

/// The state after the assignments of a line.
ControllerState after(const std::string& line) {
  ControllerState state;
  for (const Step& step : stepsFrom(wordsOf(line))) {
    const auto& set = std::get<SetAxis>(step);
    set.axis(state) = set.value;
  }
  return state;
}

TEST(Step, EveryAxisHasItsName) {
  const ControllerState expected{1, 2, 3, 4, 5, 6, {7, 8}, {9, 10, 11, 12}, {}};
  EXPECT_EQ(after("x=1 y=2 z=3 rx=4 ry=5 rz=6 slider0=7 slider1=8 pov0=9 pov1=10 pov2=11 pov3=12"),
            expected);
}

TEST(Step, AxesTakeTheirWholeRangeAndNoMore) {
  EXPECT_EQ(after("x=0").x, 0);
  EXPECT_EQ(after("x=65535").x, 65535);
  EXPECT_EQ(after("pov0=-1").POV[0], -1);
  EXPECT_EQ(after("pov3=35999").POV[3], 35999);
  EXPECT_EQ(stepComplaintOf("x=65536"), "x needs a whole number from 0 to 65535, not \"65536\"");
  EXPECT_EQ(stepComplaintOf("x=-1"), "x needs a whole number from 0 to 65535, not \"-1\"");
  EXPECT_EQ(stepComplaintOf("pov0=36000"),
            "pov0 needs a whole number from -1 to 35999, not \"36000\"");
}

TEST(Step, WhatIsNoWholeNumberIsNoValue) {
  for (const std::string value : {"", "1.5", "0x10", "12a", "99999999999999999999", "+1"})
    EXPECT_EQ(stepComplaintOf("x=" + value),
              "x needs a whole number from 0 to 65535, not \"" + value + "\"");
}

TEST(Step, ButtonsAreCountedFrom1To32) {
  const auto steps = stepsFrom(wordsOf("press 1 release 32 tap 3"));
  ASSERT_EQ(steps.size(), 3U);
  EXPECT_EQ(std::get<SetButton>(steps[0]).button, 0U);
  EXPECT_TRUE(std::get<SetButton>(steps[0]).pressed);
  EXPECT_EQ(std::get<SetButton>(steps[1]).button, 31U);
  EXPECT_FALSE(std::get<SetButton>(steps[1]).pressed);
  EXPECT_EQ(std::get<Tap>(steps[2]).button, 2U);
  EXPECT_EQ(stepComplaintOf("press 0"), "press needs a whole number from 1 to 32, not \"0\"");
  EXPECT_EQ(stepComplaintOf("tap 33"), "tap needs a whole number from 1 to 32, not \"33\"");
}

TEST(Step, WhatIsMissingBehindAStepIsNamed) {
  EXPECT_EQ(stepComplaintOf("press"), "press needs a button from 1 to 32");
  EXPECT_EQ(stepComplaintOf("wait"), "wait needs a time in milliseconds");
  EXPECT_EQ(stepComplaintOf("sweep"), "sweep needs an axis, a value and a time");
  EXPECT_EQ(stepComplaintOf("sweep x"), "sweep needs a value and a time");
  EXPECT_EQ(stepComplaintOf("sweep x 5"), "sweep needs a time in milliseconds");
}

TEST(Step, WhatIsUnknownIsNamed) {
  EXPECT_EQ(stepComplaintOf("jump"), "There is no step \"jump\"");
  EXPECT_EQ(stepComplaintOf("w=5"), "There is no axis \"w\"");
  EXPECT_EQ(stepComplaintOf("=5"), "There is no axis \"\"");
  EXPECT_EQ(stepComplaintOf("sweep w 5 6"), "There is no axis \"w\"");
  EXPECT_EQ(stepComplaintOf("X=5"), "There is no axis \"X\"");
}

TEST(Step, TimesEndAtAnHour) {
  EXPECT_EQ(std::get<Wait>(stepsFrom({"wait", "3600000"}).front()).duration_ms, 3600000);
  EXPECT_EQ(stepComplaintOf("wait 3600001"),
            "wait needs a whole number from 0 to 3600000, not \"3600001\"");
}

TEST(Step, WordsStandBetweenBlanksOfAnyNumber) {
  EXPECT_EQ(wordsOf(""), std::vector<std::string>{});
  EXPECT_EQ(wordsOf(" \t\r"), std::vector<std::string>{});
  EXPECT_EQ(wordsOf("  x=1\t press  3\r"), (std::vector<std::string>{"x=1", "press", "3"}));
}

}  // namespace
}  // namespace vorlent
