#include "commandline/CommandLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

namespace vorlent {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// A program with an option of every kind.
struct Program {
  Program() {
    line.option("PLACE", "", place, "Where");
    line.option("--count", "N", count, "How many").check(wholeNumberFrom(-5, 300));
    line.option("--share", "X", share, "How much").check(numberFrom(0, 1.5));
    line.option("--kind", "KIND", kind, "Which").check(oneOf({"red", "blue"}));
    line.flag("--loud", loud, "Say more");
  }
  CommandLineEnd endOf(const std::vector<std::string>& arguments) {
    try {
      line.read(arguments);
    } catch (const CommandLineEnd& end) {
      return end;
    }
    return {-1, ""};
  }

  CommandLine line{"vorlent-test", "Tests."};
  std::string place;
  int count = 7;
  std::optional<double> share;
  std::string kind = "red";
  bool loud = false;
};

TEST(CommandLine, LeavesWhatIsNotGivenAsItIs) {
  Program program;
  program.line.read({});
  EXPECT_EQ(program.count, 7);
  EXPECT_EQ(program.share, std::nullopt);
  EXPECT_EQ(program.kind, "red");
  EXPECT_FALSE(program.loud);
}

TEST(CommandLine, TakesOptionsInAnyOrderAndTheLastOfTwo) {
  Program program;
  program.line.read({"--count", "1", "here", "--loud", "--share=0.25", "--count", "-5"});
  EXPECT_EQ(program.place, "here");
  EXPECT_EQ(program.count, -5);
  EXPECT_EQ(program.share, 0.25);
  EXPECT_TRUE(program.loud);
}

TEST(CommandLine, HelpGoesBeforeAllThatIsTooMuch) {
  const CommandLineEnd end = Program().endOf({"one", "two", "--help"});
  EXPECT_EQ(end.status, 0);
  EXPECT_THAT(end.text, StartsWith("Tests.\nUsage: vorlent-test [OPTIONS] [PLACE]\n"));
  for (const char* option : {"  --help ", "  --version ", "  --count N ", "  --loud "})
    EXPECT_THAT(end.text, HasSubstr(option));
}

TEST(CommandLine, TheVersionIsThatOfTheProject) {
  const CommandLineEnd end = Program().endOf({"--version"});
  EXPECT_EQ(end.status, 0);
  EXPECT_EQ(end.text, "vorlent-test " VORLENT_VERSION "\n");
}

TEST(CommandLine, WhatIsWrongIsASentenceAndStatusTwo) {
  const auto refusalOf = [](const std::vector<std::string>& arguments) {
    const CommandLineEnd end = Program().endOf(arguments);
    EXPECT_EQ(end.status, 2);
    return end.text;
  };
  const std::string see = "\nSee vorlent-test --help.\n";
  EXPECT_EQ(refusalOf({"--colour"}),
            "vorlent-test: The following argument was not expected: --colour" + see);
  EXPECT_EQ(refusalOf({"here", "there"}),
            "vorlent-test: The following argument was not expected: there" + see);
  EXPECT_EQ(refusalOf({"--count"}), "vorlent-test: --count: 1 required N missing" + see);
  EXPECT_EQ(refusalOf({"--kind", "green"}),
            "vorlent-test: --kind: it is one of red, blue, not \"green\"" + see);
  EXPECT_THAT(refusalOf({"--loud=3"}), HasSubstr("loud was given a disallowed"));
}

TEST(CommandLine, NumbersAreDecimalAndInTheirRange) {
  for (const std::string text : {"301", "-6", "1.5", "0x10", "1x", "", "99999999999999999999"})
    EXPECT_THAT(Program().endOf({"--count", text}).text,
                HasSubstr("--count: it takes a whole number from -5 to 300, not \"" + text + "\""));
  for (const std::string text : {"1.6", "-0.1", "nan", "inf", "1,5", "0x1", ""})
    EXPECT_THAT(Program().endOf({"--share", text}).text,
                HasSubstr("--share: it takes a number from 0 to 1.5, not \"" + text + "\""));
  Program program;
  program.line.read({"--count", "010", "--share", "1E-1"});
  EXPECT_EQ(program.count, 10);
  EXPECT_EQ(program.share, 0.1);
}

TEST(CommandLine, ARefusalOfTheProgramLooksLikeItsOwn) {
  Program program;
  try {
    program.line.refuse("this is not that");
    FAIL();
  } catch (const CommandLineEnd& end) {
    EXPECT_EQ(end.status, 2);
    EXPECT_EQ(end.text, "vorlent-test: this is not that\nSee vorlent-test --help.\n");
  }
}

TEST(CommandLine, AProgramWithoutOptionsTakesNone) {
  EXPECT_NO_THROW(expectNoOptions("vorlent-test", "Tests.", {}));
  EXPECT_THROW(expectNoOptions("vorlent-test", "Tests.", {"--platform"}), CommandLineEnd);
}

}  // namespace
}  // namespace vorlent
