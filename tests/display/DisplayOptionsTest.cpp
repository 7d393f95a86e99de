#include "display/DisplayOptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

using testing::HasSubstr;
using Words = std::vector<std::string_view>;

DisplayOptions read(const Words& words) { return readDisplayOptions(words); }

std::string refusalOf(const Words& words) {
  try {
    read(words);
  } catch (const RuntimeError& error) {
    return error.description();
  }
  return "";
}

TEST(DisplayOptions, HaveDefaults) {
  const auto options = read({});
  EXPECT_EQ(options.host, "");
  EXPECT_EQ(options.port, 5000);
  EXPECT_EQ(options.interval_ms, 100);
  EXPECT_EQ(options.name, "");
  EXPECT_FALSE(options.print);
  EXPECT_FALSE(options.seconds);
  EXPECT_FALSE(options.help);
}

TEST(DisplayOptions, AreReadInAnyOrder) {
  const auto options = read({"--print", "192.168.1.20", "--interval", "50", "5002", "--name",
                             "cockpit-1", "--seconds", "30"});
  EXPECT_EQ(options.host, "192.168.1.20");
  EXPECT_EQ(options.port, 5002);
  EXPECT_EQ(options.interval_ms, 50);
  EXPECT_EQ(options.name, "cockpit-1");
  EXPECT_TRUE(options.print);
  EXPECT_EQ(options.seconds, 30);
  EXPECT_TRUE(read({"--help"}).help);
}

TEST(DisplayOptions, HostIsADottedAddress) {
  EXPECT_EQ(read({"0.0.0.0"}).host, "0.0.0.0");
  EXPECT_EQ(read({"255.255.255.255"}).host, "255.255.255.255");
  for (const char* host : {"localhost", "1", "1.2.3", "1.2.3.4.5", "256.1.1.1", "01.2.3.4",
                           "1..2.3", "1.2.3.x", "", "1.2.3.4 "})
    EXPECT_THAT(refusalOf({host}), HasSubstr("HOST is an address")) << host;
}

TEST(DisplayOptions, NumbersHaveTheirRanges) {
  EXPECT_EQ(read({"--interval", "65535"}).interval_ms, 65535);
  EXPECT_EQ(refusalOf({"--interval", "0"}),
            "the interval in milliseconds is a whole number from 1 to 65535, not \"0\"");
  EXPECT_THAT(refusalOf({"--interval", "65536"}), HasSubstr("from 1 to 65535"));
  EXPECT_THAT(refusalOf({"--interval", "10x"}), HasSubstr("not \"10x\""));
  EXPECT_THAT(refusalOf({"--seconds", "0"}), HasSubstr("from 1 to 1000000"));
  EXPECT_EQ(refusalOf({"127.0.0.1", "65536"}),
            "PORT is a whole number from 1 to 65535, not \"65536\"");
  EXPECT_THAT(refusalOf({"127.0.0.1", "0"}), HasSubstr("PORT"));
}

TEST(DisplayOptions, NameIsAMachines) {
  EXPECT_THAT(refusalOf({"--name", "two words"}), HasSubstr("the name of a machine"));
  EXPECT_THAT(refusalOf({"--name", ".."}), HasSubstr("the name of a machine"));
}

TEST(DisplayOptions, WhatIsMissingOrUnknownIsTold) {
  EXPECT_EQ(refusalOf({"--interval"}), "a value is missing behind --interval");
  EXPECT_EQ(refusalOf({"--colour"}), "there is no option --colour");
  EXPECT_EQ(refusalOf({"127.0.0.1", "5000", "more"}), "there is no place for \"more\"");
}

TEST(DisplayOptions, UsageTellsEveryOption) {
  for (const char* option :
       {"[HOST] [PORT]", "--interval MS", "--name NAME", "--print", "--seconds N", "--help"})
    EXPECT_THAT(std::string(displayUsage()), HasSubstr(option));
}

}  // namespace
}  // namespace vorlent
