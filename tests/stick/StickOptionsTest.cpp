#include "stick/StickOptions.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

std::string complaintOf(const std::vector<std::string>& arguments) {
  try {
    stickOptionsFrom(arguments);
    return "nothing";
  } catch (const StepError& error) {
    return error.what();
  }
}

TEST(StickOptions, WithoutArgumentsItIsAStickThatReadsItsInput) {
  const auto options = stickOptionsFrom({});
  ASSERT_TRUE(options);
  EXPECT_EQ(options->name, "stick");
  EXPECT_EQ(options->hold_ms, std::nullopt);
  EXPECT_TRUE(options->steps.empty());
}

TEST(StickOptions, StandBeforeTheSteps) {
  const auto options = stickOptionsFrom({"--name", "yoke", "--hold", "2.5", "x=1", "press", "3"});
  ASSERT_TRUE(options);
  EXPECT_EQ(options->name, "yoke");
  EXPECT_EQ(options->hold_ms, 2500);
  EXPECT_EQ(options->steps.size(), 2U);
}

TEST(StickOptions, HelpIsAllThatIsDone) {
  EXPECT_FALSE(stickOptionsFrom({"--help"}));
  EXPECT_FALSE(stickOptionsFrom({"--name", "a", "--help", "nonsense"}));
}

TEST(StickOptions, TheHoldIsZeroToADay) {
  EXPECT_EQ(stickOptionsFrom({"--hold", "0"})->hold_ms, 0);
  EXPECT_EQ(stickOptionsFrom({"--hold", "86400"})->hold_ms, 86400000);
  for (const std::string text : {"-1", "86401", "long", "nan", "inf", ""})
    EXPECT_EQ(complaintOf({"--hold", text}),
              "--hold needs a number of seconds from 0 to 86400, not \"" + text + "\"");
}

TEST(StickOptions, WhatIsWrongIsNamed) {
  EXPECT_EQ(complaintOf({"--name"}), "--name needs a value behind it");
  EXPECT_EQ(complaintOf({"--hold"}), "--hold needs a value behind it");
  EXPECT_EQ(complaintOf({"--loud"}), "There is no option \"--loud\"");
  EXPECT_EQ(complaintOf({"--name", "a/b"}),
            "--name needs 1 to 32 letters, digits, \"-\" and \"_\", not \"a/b\"");
  EXPECT_EQ(complaintOf({"x=1", "--hold"}), "There is no step \"--hold\"");
}

TEST(StickOptions, TheHelpNamesEveryOptionAndStep) {
  for (const std::string_view word : {"--name", "--hold", "--help", "x=", "slider1",
                                      "pov0=", "press", "release", "tap", "sweep", "wait", "await"})
    EXPECT_NE(stickUsage.find(word), std::string_view::npos) << word;
}

}  // namespace
}  // namespace vorlent
