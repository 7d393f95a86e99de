#include "stick/StickOptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commandline/CommandLineEnd.h"

namespace vorlent {
namespace {

using testing::HasSubstr;

CommandLineEnd endOf(const std::vector<std::string>& arguments) {
  try {
    stickOptionsFrom(arguments);
  } catch (const CommandLineEnd& end) {
    return end;
  }
  return {-1, "nothing"};
}

std::string complaintOf(const std::vector<std::string>& arguments) {
  const CommandLineEnd end = endOf(arguments);
  EXPECT_EQ(end.status, 2);
  return end.text;
}

TEST(StickOptions, WithoutArgumentsItIsAStickThatReadsItsInput) {
  const auto options = stickOptionsFrom({});
  EXPECT_EQ(options.name, "stick");
  EXPECT_EQ(options.hold_ms, std::nullopt);
  EXPECT_TRUE(options.steps.empty());
}

TEST(StickOptions, StandBeforeTheStepsOrBehindThem) {
  const auto options = stickOptionsFrom({"--name", "yoke", "--hold", "2.5", "x=1", "press", "3"});
  EXPECT_EQ(options.name, "yoke");
  EXPECT_EQ(options.hold_ms, 2500);
  EXPECT_EQ(options.steps.size(), 2U);
  EXPECT_EQ(stickOptionsFrom({"x=1", "press", "3", "--hold", "2.5"}).hold_ms, 2500);
}

TEST(StickOptions, ANegativeNumberIsNoOption) {
  EXPECT_EQ(stickOptionsFrom({"sweep", "pov0", "-1", "100", "pov1=-1"}).steps.size(), 2U);
}

TEST(StickOptions, HelpIsAllThatIsDone) {
  EXPECT_EQ(endOf({"--help"}).status, 0);
  EXPECT_EQ(endOf({"--name", "a", "--help", "nonsense"}).status, 0);
}

TEST(StickOptions, TheHoldIsZeroToADay) {
  EXPECT_EQ(stickOptionsFrom({"--hold", "0"}).hold_ms, 0);
  EXPECT_EQ(stickOptionsFrom({"--hold", "86400"}).hold_ms, 86400000);
  for (const std::string text : {"-1", "86401", "long", "nan", "inf", ""})
    EXPECT_THAT(complaintOf({"--hold", text}),
                HasSubstr("--hold: it takes a number from 0 to 86400, not \"" + text + "\""));
}

TEST(StickOptions, WhatIsWrongIsNamed) {
  EXPECT_THAT(complaintOf({"--name"}), HasSubstr("--name: 1 required NAME missing"));
  EXPECT_THAT(complaintOf({"--loud"}), HasSubstr("not expected: --loud"));
  EXPECT_THAT(complaintOf({"--name", "a/b"}),
              HasSubstr("--name: it takes 1 to 32 letters, digits, \"-\" and \"_\", not \"a/b\""));
  EXPECT_THAT(complaintOf({"jump"}), HasSubstr("vorlent-stick: There is no step \"jump\"\n"));
}

TEST(StickOptions, TheHelpNamesEveryOptionAndStep) {
  const std::string help = endOf({"--help"}).text;
  for (const char* word : {"--name", "--hold", "--help", "x=", "slider1", "pov0=", "press",
                           "release", "tap", "sweep", "wait", "await"})
    EXPECT_THAT(help, HasSubstr(word));
}

}  // namespace
}  // namespace vorlent
