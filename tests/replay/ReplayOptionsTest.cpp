#include "replay/ReplayOptions.h"

#include <gtest/gtest.h>

#include "commandline/CommandLineEnd.h"

namespace vorlent {
namespace {

using Task = ReplayOptions::Task;

std::string refusalOf(const std::vector<std::string>& arguments) {
  try {
    readReplayOptions(arguments);
  } catch (const CommandLineEnd& end) {
    EXPECT_EQ(end.status, 2);
    return end.text.substr(0, end.text.find('\n'));
  }
  return "";
}

TEST(ReplayOptions, AFileAloneIsPlayedAtThePaceOfLife) {
  const ReplayOptions options = readReplayOptions({"a.sqlite"});
  EXPECT_EQ(options.task, Task::Play);
  EXPECT_EQ(options.file, "a.sqlite");
  EXPECT_EQ(options.speed, 1);
  EXPECT_FALSE(options.loop);
}

TEST(ReplayOptions, SpeedAndLoopAreTaken) {
  const ReplayOptions options = readReplayOptions({"--speed", "0.1", "--loop", "a.sqlite"});
  EXPECT_EQ(options.speed, 0.1);
  EXPECT_TRUE(options.loop);
}

TEST(ReplayOptions, VariablesStandBeforeTheFile) {
  const ReplayOptions csv = readReplayOptions({"--csv", "Ias", "Engines(1).N1", "a.sqlite"});
  EXPECT_EQ(csv.task, Task::Csv);
  EXPECT_EQ(csv.variables, (std::vector<std::string>{"Ias", "Engines(1).N1"}));
  EXPECT_EQ(csv.file, "a.sqlite");
  EXPECT_EQ(readReplayOptions({"Ias", "a.sqlite", "--plot"}).task, Task::Plot);
}

TEST(ReplayOptions, ACheckTakesOneFile) {
  EXPECT_EQ(readReplayOptions({"--check", "a.sqlite"}).task, Task::Check);
  EXPECT_EQ(refusalOf({"--check", "a.sqlite", "b.sqlite"}),
            "vorlent-replay: it takes one recording");
}

TEST(ReplayOptions, ATextIsPrintedButNotDrawn) {
  EXPECT_EQ(refusalOf({"--plot", "Ias", "vor1id", "a.sqlite"}),
            "vorlent-replay: Vor1Id is a text, which cannot be drawn; --csv prints it");
  EXPECT_EQ(readReplayOptions({"--csv", "Vor1Id", "a.sqlite"}).variables,
            std::vector<std::string>{"Vor1Id"});
}

TEST(ReplayOptions, WhatCannotBeIsRefused) {
  EXPECT_EQ(refusalOf({}), "vorlent-replay: the name of a recording is missing");
  EXPECT_EQ(refusalOf({""}), "vorlent-replay: the name of a recording is missing");
  EXPECT_EQ(refusalOf({"--csv", "a.sqlite"}),
            "vorlent-replay: it takes the names of variables, and the recording behind them");
  EXPECT_EQ(refusalOf({"--speed", "0", "a.sqlite"}),
            "vorlent-replay: --speed: it takes a number from 0.1 to 20, not \"0\"");
  EXPECT_NE(refusalOf({"--csv", "--check", "Ias", "a.sqlite"}), "");
  EXPECT_NE(refusalOf({"--csv", "--plot", "Ias", "a.sqlite"}), "");
}

}  // namespace
}  // namespace vorlent
