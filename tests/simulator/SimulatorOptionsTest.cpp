#include "simulator/SimulatorOptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

using testing::HasSubstr;
using testing::StartsWith;
using Words = std::vector<std::string_view>;

SimulatorOptions read(const Words& words) { return readSimulatorOptions(words); }

std::string refusalOf(const Words& words) {
  try {
    read(words);
  } catch (const RuntimeError& error) {
    return error.description();
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
  EXPECT_FALSE(options.help);
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
  EXPECT_EQ(refusalOf({"--mass", "101411"}),
            "the 737-700 with 18411 lb of fuel weighs from 101412 to 154500 lb, not 101411");
  EXPECT_THAT(refusalOf({"--mass", "154501"}), HasSubstr("to 154500 lb, not 154501"));
  EXPECT_EQ(refusalOf({"--mass", "193126", "--aircraft", "heavy-twin"}),
            "the heavy-twin with 18411 lb of fuel weighs from 122162 to 193125 lb, not 193126");
  EXPECT_EQ(refusalOf({"--mass", "193125", "--aircraft", "heavy-twin"}), "");
  EXPECT_EQ(refusalOf({"--mass", "heavy"}),
            "the mass in pounds is a number from 0 to 1000000, not \"heavy\"");
}

TEST(SimulatorOptions, NumbersHaveTheirRanges) {
  EXPECT_EQ(refusalOf({"--speed", "0.009"}),
            "the speed is a number from 0.01 to 100, not \"0.009\"");
  EXPECT_THAT(refusalOf({"--speed", "101"}), StartsWith("the speed is"));
  EXPECT_THAT(refusalOf({"--not-ready", "3601"}), HasSubstr("from 0 to 3600"));
  EXPECT_THAT(refusalOf({"--seed", "-1"}), HasSubstr("from 0 to 4294967295, not \"-1\""));
  EXPECT_THAT(refusalOf({"--seed", "4294967296"}), StartsWith("the seed is"));
  EXPECT_THAT(refusalOf({"--seed", "1x"}), StartsWith("the seed is"));
}

TEST(SimulatorOptions, TheWindIsADirectionAndASpeed) {
  EXPECT_EQ(read({"--wind", "360/0"}).flight.wind.from_deg, 360);
  EXPECT_THAT(refusalOf({"--wind", "270"}), HasSubstr("such as 270/15, not \"270\""));
  EXPECT_THAT(refusalOf({"--wind", "361/10"}), HasSubstr("direction of the wind in degrees"));
  EXPECT_THAT(refusalOf({"--wind", "270/61"}), HasSubstr("speed of the wind in knots"));
  EXPECT_THAT(refusalOf({"--wind", "270/"}), HasSubstr("speed of the wind in knots"));
}

TEST(SimulatorOptions, UnknownNamesAreToldWithTheKnownOnes) {
  EXPECT_EQ(refusalOf({"--start", "parked"}),
            "the flight starts \"cold\", \"runway\", \"level\", \"cruise\" or \"final\", not "
            "\"parked\"");
  EXPECT_EQ(refusalOf({"--turbulence", "some"}),
            "the turbulence is \"none\", \"light\", \"moderate\" or \"severe\", not \"some\"");
  EXPECT_EQ(refusalOf({"--aircraft", "glider"}),
            "the aircraft is \"737-700\" or \"heavy-twin\", not \"glider\"");
  EXPECT_EQ(refusalOf({"--colour"}), "there is no option --colour");
  EXPECT_EQ(refusalOf({"flight.txt"}), "there is no option flight.txt");
}

TEST(SimulatorOptions, EveryOptionWithAValueNeedsOne) {
  for (const char* option : {"--start", "--wind", "--turbulence", "--seed", "--mass", "--speed",
                             "--trace", "--aircraft", "--script", "--not-ready"})
    EXPECT_EQ(refusalOf({option}), "a value is missing behind " + std::string(option));
  EXPECT_EQ(refusalOf({"--trace", ""}), "the name of a file is missing");
}

TEST(SimulatorOptions, AScriptTakesNoOptionOfTheBuiltInAircraft) {
  EXPECT_EQ(read({"--script", "a.txt", "--speed", "2", "--trace", "b.csv"}).script, "a.txt");
  for (const Words& words : {Words{"--start", "final"},
                             {"--wind", "1/1"},
                             {"--turbulence", "light"},
                             {"--seed", "2"},
                             {"--mass", "120000"},
                             {"--aircraft", "737-700"}}) {
    const std::string why =
        std::string(words[0]) + " is for the built-in aircraft and does not go with --script";
    EXPECT_EQ(refusalOf({"--script", "a.txt", words[0], words[1]}), why);
    EXPECT_EQ(refusalOf({words[0], words[1], "--script", "a.txt"}), why);
  }
}

TEST(SimulatorOptions, UsageTellsEveryOption) {
  for (const char* option : {"--start STATE", "--wind FROM/KT", "--turbulence STRENGTH", "--seed N",
                             "--mass LB", "--aircraft NAME", "--script FILE", "--speed FACTOR",
                             "--trace FILE", "--xplane", "--not-ready SECONDS", "--help"})
    EXPECT_THAT(std::string(simulatorUsage()), HasSubstr(option));
}

}  // namespace
}  // namespace vorlent
