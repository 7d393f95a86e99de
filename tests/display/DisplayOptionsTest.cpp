#include "display/DisplayOptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "commandline/CommandLineEnd.h"

namespace vorlent {
namespace {

using testing::HasSubstr;
using Words = std::vector<std::string>;

DisplayOptions read(const Words& words) { return readDisplayOptions(words); }

std::string refusalOf(const Words& words) {
  try {
    read(words);
  } catch (const CommandLineEnd& end) {
    EXPECT_EQ(end.status, 2);
    return end.text;
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
}

TEST(DisplayOptions, HostIsADottedAddressOrAName) {
  for (const std::string host :
       {"0.0.0.0", "255.255.255.255", "localhost", "sim-pc", "sim.home.arpa", "1x"})
    EXPECT_EQ(read({host}).host, host);
  for (const std::string host :
       {"1", "1.2.3", "1.2.3.4.5", "256.1.1.1", "01.2.3.4", "1..2.3", "..", "", "1.2.3.4 ", "a b"})
    EXPECT_THAT(refusalOf({host}),
                HasSubstr("HOST: it is a name or an address such as 192.168.1.20, not \"" + host))
        << host;
}

TEST(DisplayOptions, NumbersHaveTheirRanges) {
  EXPECT_EQ(read({"--interval", "65535"}).interval_ms, 65535);
  EXPECT_THAT(refusalOf({"--interval", "0"}),
              HasSubstr("--interval: it takes a whole number from 1 to 65535, not \"0\""));
  EXPECT_THAT(refusalOf({"--interval", "65536"}), HasSubstr("from 1 to 65535"));
  EXPECT_THAT(refusalOf({"--seconds", "0"}), HasSubstr("from 1 to 1000000"));
  EXPECT_THAT(refusalOf({"127.0.0.1", "65536"}),
              HasSubstr("PORT: it takes a whole number from 1 to 65535, not \"65536\""));
  EXPECT_THAT(refusalOf({"127.0.0.1", "0"}), HasSubstr("PORT"));
}

TEST(DisplayOptions, NameIsAMachines) {
  EXPECT_THAT(refusalOf({"--name", "two words"}), HasSubstr("the name of a machine"));
  EXPECT_THAT(refusalOf({"--name", ".."}), HasSubstr("the name of a machine"));
}

TEST(DisplayOptions, WhatIsTooMuchIsTold) {
  EXPECT_THAT(refusalOf({"--colour"}), HasSubstr("not expected: --colour"));
  EXPECT_THAT(refusalOf({"127.0.0.1", "5000", "more"}), HasSubstr("not expected: more"));
}

TEST(DisplayOptions, HelpTellsEveryOption) {
  try {
    read({"--help"});
    FAIL();
  } catch (const CommandLineEnd& end) {
    EXPECT_EQ(end.status, 0);
    for (const char* option :
         {"[HOST] [PORT]", "--interval MS", "--name NAME", "--print", "--seconds N", "P 169 1"})
      EXPECT_THAT(end.text, HasSubstr(option));
  }
}

}  // namespace
}  // namespace vorlent
