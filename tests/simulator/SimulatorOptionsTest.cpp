#include "simulator/SimulatorOptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "commandline/CommandLineEnd.h"

namespace vorlent {
namespace {

using testing::HasSubstr;
using testing::StartsWith;
using Words = std::vector<std::string>;

SimulatorOptions read(const Words& words) { return readSimulatorOptions(words); }

std::string refusalOf(const Words& words) {
  try {
    read(words);
  } catch (const CommandLineEnd& end) {
    EXPECT_EQ(end.status, 2);
    return end.text;
  }
  return "";
}

TEST(SimulatorOptions, WithoutAnyTheAircraftFliesLevelInCalmAirInRealTime) {
  const SimulatorOptions options = read({});
  EXPECT_EQ(options.flight.start, StartingState::Level);
  EXPECT_EQ(options.flight.plant->name, "737-700");
  EXPECT_EQ(options.flight.wind.speed_kt, 0);
  EXPECT_EQ(options.flight.wind.turbulence, Turbulence::None);
  EXPECT_EQ(options.flight.addedMass_kg, 0);
  EXPECT_EQ(options.host.speed, 1);
  EXPECT_EQ(options.host.notReady_s, 0);
  EXPECT_FALSE(options.host.asXPlane);
  EXPECT_EQ(options.script, "");
  EXPECT_EQ(options.trace, "");
}

TEST(SimulatorOptions, AreReadInAnyOrder) {
  const SimulatorOptions options =
      read({"--seed", "4294967295", "--wind", "270/15.5", "--xplane", "--start", "final",
            "--not-ready", "2", "--turbulence", "severe", "--speed", "0.5", "--trace", "a.csv",
            "--aircraft", "heavy-twin"});
  EXPECT_EQ(options.flight.start, StartingState::Final);
  EXPECT_EQ(options.flight.wind.seed, 4294967295U);
  EXPECT_EQ(options.flight.wind.from_deg, 270);
  EXPECT_EQ(options.flight.wind.speed_kt, 15.5);
  EXPECT_EQ(options.flight.wind.turbulence, Turbulence::Severe);
  EXPECT_EQ(options.flight.plant->name, "heavy-twin");
  EXPECT_EQ(options.host.speed, 0.5);
  EXPECT_EQ(options.host.notReady_s, 2);
  EXPECT_TRUE(options.host.asXPlane);
  EXPECT_EQ(options.trace, "a.csv");
}

TEST(SimulatorOptions, EveryNameIsTheThingThatItNames) {
  EXPECT_EQ(read({"--start", "cold"}).flight.start, StartingState::Cold);
  EXPECT_EQ(read({"--start", "runway"}).flight.start, StartingState::Runway);
  EXPECT_EQ(read({"--start", "level"}).flight.start, StartingState::Level);
  EXPECT_EQ(read({"--start", "cruise"}).flight.start, StartingState::Cruise);
  EXPECT_EQ(read({"--turbulence", "none"}).flight.wind.turbulence, Turbulence::None);
  EXPECT_EQ(read({"--turbulence", "light"}).flight.wind.turbulence, Turbulence::Light);
  EXPECT_EQ(read({"--turbulence", "moderate"}).flight.wind.turbulence, Turbulence::Moderate);
  EXPECT_EQ(read({"--aircraft", "737-700"}).flight.plant, &plant737());
}

// 18411 pounds are in the tanks: a tenth of 4299 and nine tenths of twice 1288 gallons of 1715/256
// pounds. Without payload and fuel the aircraft weighs 83000, as the model starts 113000 pounds.
TEST(SimulatorOptions, TheMassIsReachedByPayload) {
  constexpr double fuel_lb = (4299 * 0.1 + 2576 * 0.9) * 1715 / 256;
  EXPECT_NEAR(read({"--mass", "140000"}).flight.addedMass_kg,
              (140000 - 113000 - fuel_lb) * 0.45359237, 1);
  EXPECT_NEAR(read({"--mass", "110000"}).flight.addedMass_kg,
              (110000 - 113000 - fuel_lb) * 0.45359237, 1);
}

TEST(SimulatorOptions, TheAircraftStartsWithTheMassThatIsAskedFor) {
  OffsetMemory memory;
  const TwinJet light(memory, read({"--mass", "101412"}).flight);
  EXPECT_NEAR(memory.read<double>(0x30C0), 101412, 0.01);
  const TwinJet heavy(memory, read({"--mass", "154500", "--start", "cruise"}).flight);
  EXPECT_NEAR(memory.read<double>(0x30C0), 154500, 0.01);
}

TEST(SimulatorOptions, AMassThatTheAircraftCannotHaveIsRefusedWithTheOnesThatItCan) {
  EXPECT_EQ(
      refusalOf({"--mass", "101411"}),
      "vorlent-sim: the 737-700 with 18411 lb of fuel weighs from 101412 to 154500 lb, not 101411\n"
      "See vorlent-sim --help.\n");
  EXPECT_THAT(refusalOf({"--mass", "154501"}), HasSubstr("to 154500 lb, not 154501"));
  EXPECT_THAT(refusalOf({"--mass", "193126", "--aircraft", "heavy-twin"}),
              HasSubstr("the heavy-twin with 18411 lb of fuel weighs from 122162 to 193125 lb, not "
                        "193126\n"));
  EXPECT_EQ(refusalOf({"--mass", "193125", "--aircraft", "heavy-twin"}), "");
  EXPECT_THAT(refusalOf({"--mass", "heavy"}),
              HasSubstr("--mass: it takes a number from 0 to 1000000, not \"heavy\""));
}

TEST(SimulatorOptions, NumbersHaveTheirRanges) {
  EXPECT_THAT(refusalOf({"--speed", "0.009"}),
              HasSubstr("--speed: it takes a number from 0.01 to 100, not \"0.009\""));
  EXPECT_THAT(refusalOf({"--speed", "101"}), HasSubstr("from 0.01 to 100"));
  EXPECT_THAT(refusalOf({"--not-ready", "3601"}), HasSubstr("from 0 to 3600"));
  EXPECT_THAT(refusalOf({"--seed", "-1"}), HasSubstr("from 0 to 4294967295, not \"-1\""));
  EXPECT_THAT(refusalOf({"--seed", "4294967296"}), HasSubstr("from 0 to 4294967295"));
}

TEST(SimulatorOptions, TheWindIsADirectionAndASpeed) {
  EXPECT_EQ(read({"--wind", "360/0"}).flight.wind.from_deg, 360);
  for (const std::string wind : {"270", "361/10", "270/61", "270/", "/15", "x/15", ""})
    EXPECT_THAT(refusalOf({"--wind", wind}), HasSubstr("such as 270/15, not \"" + wind + "\""));
}

TEST(SimulatorOptions, UnknownNamesAreToldWithTheKnownOnes) {
  EXPECT_THAT(
      refusalOf({"--start", "parked"}),
      HasSubstr("--start: it is one of cold, runway, level, cruise, final, not \"parked\""));
  EXPECT_THAT(refusalOf({"--turbulence", "some"}),
              HasSubstr("one of none, light, moderate, severe, not \"some\""));
  EXPECT_THAT(refusalOf({"--aircraft", "glider"}),
              HasSubstr("one of 737-700, heavy-twin, not \"glider\""));
  EXPECT_THAT(refusalOf({"--colour"}), HasSubstr("not expected: --colour"));
  EXPECT_THAT(refusalOf({"flight.txt"}), HasSubstr("not expected: flight.txt"));
}

TEST(SimulatorOptions, EveryOptionWithAValueNeedsOne) {
  for (const std::string option : {"--start", "--wind", "--turbulence", "--seed", "--mass",
                                   "--speed", "--trace", "--aircraft", "--script", "--not-ready"})
    EXPECT_THAT(refusalOf({option}), HasSubstr(option + ": 1 required "));
  EXPECT_THAT(refusalOf({"--trace", ""}), HasSubstr("the name of a file is missing"));
}

TEST(SimulatorOptions, AScriptTakesNoOptionOfTheBuiltInAircraft) {
  EXPECT_EQ(read({"--script", "a.txt", "--speed", "2", "--trace", "b.csv"}).script, "a.txt");
  for (const Words& words : {Words{"--start", "final"},
                             {"--wind", "1/1"},
                             {"--turbulence", "light"},
                             {"--seed", "2"},
                             {"--mass", "120000"},
                             {"--aircraft", "737-700"}}) {
    const std::string why = "--script excludes " + words[0];
    EXPECT_THAT(refusalOf({"--script", "a.txt", words[0], words[1]}), HasSubstr(why));
    EXPECT_THAT(refusalOf({words[0], words[1], "--script", "a.txt"}), HasSubstr(why));
  }
}

TEST(SimulatorOptions, HelpTellsEveryOption) {
  try {
    read({"--help"});
    FAIL();
  } catch (const CommandLineEnd& end) {
    EXPECT_EQ(end.status, 0);
    for (const char* option :
         {"--start STATE", "--wind FROM/KT", "--turbulence STRENGTH", "--seed N", "--mass LB",
          "--aircraft NAME", "--script FILE", "--speed FACTOR", "--trace FILE", "--xplane",
          "--not-ready SECONDS", "--help", "--version"})
      EXPECT_THAT(end.text, HasSubstr(option));
  }
}

}  // namespace
}  // namespace vorlent
