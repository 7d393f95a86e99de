#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

#include "simulator/RoundTrip.h"
#include "simulator/ShippedStations.h"

namespace vorlent {
namespace {

/// What a client writes into the scripted flight.
class CockpitTest : public testing::Test {
 protected:
  void fly(int seconds) {
    for (int i = 0; i < seconds; ++i) aircraft.step(1);
  }
  std::string text(std::size_t at) const {
    std::string found;
    for (; memory.read<char>(at) != 0; ++at) found += memory.read<char>(at);
    return found;
  }
  double fuel_lb(std::size_t tank) const {
    return memory.read<std::uint32_t>(tank) / 8388608.0 * memory.read<std::uint32_t>(tank + 4) *
           6.6992;  // 1715 / 256, as the density reads
  }

  OffsetMemory memory;
  ScriptedFlight aircraft{memory, roundTrip(), shippedStations()};
};

TEST_F(CockpitTest, RadiosSwitchesAndAutopilotStayAsWritten) {
  memory.write<std::uint16_t>(0x034E, 0x1825);
  memory.write<std::uint16_t>(0x0330, 16000);
  memory.write<std::uint8_t>(0x029C, 0);
  memory.write<std::uint32_t>(0x07BC, 1);
  memory.write<double>(0x2EB0, 0.05);
  fly(300);
  EXPECT_EQ(memory.read<std::uint16_t>(0x034E), 0x1825);
  EXPECT_EQ(memory.read<std::uint16_t>(0x0330), 16000);
  EXPECT_EQ(memory.read<std::uint8_t>(0x029C), 0);
  EXPECT_EQ(memory.read<std::uint32_t>(0x07BC), 1u);
  EXPECT_EQ(memory.read<double>(0x2EB0), 0.05);
}

TEST_F(CockpitTest, ALeverStaysAsWrittenUntilThePilotMovesIt) {
  fly(5);
  memory.write<std::uint32_t>(0x0BDC, 2047 * 8);
  memory.write<std::uint16_t>(0x0BC8, 0);
  fly(60);
  EXPECT_EQ(memory.read<std::uint32_t>(0x0BDC), 2047u * 8);
  EXPECT_EQ(memory.read<std::uint16_t>(0x0BC8), 0);
  fly(30);  // flaps 1 in the initial climb
  EXPECT_EQ(memory.read<std::uint32_t>(0x0BDC), 2047u);
}

TEST_F(CockpitTest, WhatTheAircraftShowsOfItselfIsWrittenOver) {
  fly(100);
  const auto altitude = memory.read<std::uint32_t>(0x0574);
  memory.write<std::uint32_t>(0x0574, 9999);
  memory.write<std::uint16_t>(0x0898, 0);
  fly(1);
  EXPECT_NEAR(memory.read<std::uint32_t>(0x0574), altitude, 20);
  EXPECT_GT(memory.read<std::uint16_t>(0x0898), 10000);
}

TEST_F(CockpitTest, ThePauseFlagHoldsEverythingUntilItIsCleared) {
  fly(200);
  const auto place = memory.read<std::int64_t>(0x0560);
  const auto second = memory.read<std::uint8_t>(0x023A);
  memory.write<std::uint8_t>(0x0264, 1);
  fly(100);
  EXPECT_EQ(memory.read<std::int64_t>(0x0560), place);
  EXPECT_EQ(memory.read<std::uint8_t>(0x023A), second);
  memory.write<std::uint8_t>(0x0264, 0);
  fly(1);
  EXPECT_NE(memory.read<std::int64_t>(0x0560), place);
  EXPECT_EQ(memory.read<std::uint8_t>(0x023A), second + 1);
}

TEST_F(CockpitTest, FuelThatIsWrittenIsInTheTankAndInTheWeight) {
  fly(10);
  const double weight_lb = memory.read<double>(0x30C0);
  const double before_lb = fuel_lb(0x0B7C);
  memory.write<std::uint32_t>(0x0B7C, 0x00800000);
  fly(1);
  EXPECT_EQ(memory.read<std::uint32_t>(0x0B7C), 0x00800000u);
  EXPECT_NEAR(memory.read<double>(0x30C0) - weight_lb, fuel_lb(0x0B7C) - before_lb, 1.5);
}

TEST_F(CockpitTest, MoreFuelThanATankHoldsIsAFullTank) {
  memory.write<std::uint32_t>(0x0B7C, 0xFFFFFFFF);
  fly(1);
  EXPECT_EQ(memory.read<std::uint32_t>(0x0B7C), 0x00800000u);
}

TEST_F(CockpitTest, TheCentreTankIsEmptiedFirstThenTheMainTanksEvenly) {
  EXPECT_NEAR(fuel_lb(0x0B74), 2880, 1);
  fly(300);
  EXPECT_LT(fuel_lb(0x0B74), 2500);
  EXPECT_EQ(memory.read<std::uint32_t>(0x0B7C), memory.read<std::uint32_t>(0x0B94));
  memory.write<std::uint32_t>(0x0B74, 0);
  const double main_lb = fuel_lb(0x0B7C);
  fly(60);
  EXPECT_EQ(memory.read<std::uint32_t>(0x0B74), 0u);
  EXPECT_LT(fuel_lb(0x0B7C), main_lb - 50);
  EXPECT_EQ(memory.read<std::uint32_t>(0x0B7C), memory.read<std::uint32_t>(0x0B94));
}

TEST_F(CockpitTest, AnEngineWhoseTankIsEmptyBurnsFromTheOther) {
  memory.write<std::uint32_t>(0x0B74, 0);
  memory.write<std::uint32_t>(0x0B7C, 0);
  fly(1);
  const double right_lb = fuel_lb(0x0B94);
  fly(60);
  EXPECT_EQ(memory.read<std::uint32_t>(0x0B7C), 0u);
  EXPECT_LT(fuel_lb(0x0B94), right_lb - 50);
}

TEST_F(CockpitTest, ThereAreNoOtherTanks) {
  for (const std::size_t tank : {0x0B84u, 0x0B8Cu, 0x0B9Cu, 0x0BA4u})
    EXPECT_EQ(memory.read<std::uint64_t>(tank), 0u);
}

TEST_F(CockpitTest, ARadioThatIsTunedByAClientHearsTheStation) {
  EXPECT_EQ(text(0x3000), "IVR");
  memory.write<std::uint16_t>(0x0350, 0x1360);
  fly(1);
  EXPECT_EQ(text(0x3000), "NWD");
  memory.write<std::uint16_t>(0x0350, 0x0800);
  fly(1);
  EXPECT_EQ(text(0x3000), "");
}

TEST_F(CockpitTest, TwoJetEnginesRunAndNothingHasFailed) {
  EXPECT_EQ(memory.read<std::uint16_t>(0x0AEC), 2);
  EXPECT_EQ(memory.read<std::uint8_t>(0x0609), 1);
  EXPECT_EQ(memory.read<std::uint8_t>(0x0888) + memory.read<std::uint8_t>(0x0889), 3);
  for (std::size_t at = 0x3BD6; at <= 0x3BE7; ++at) EXPECT_EQ(memory.read<std::uint8_t>(at), 0);
  EXPECT_EQ(memory.read<std::uint8_t>(0x0B71), 0);
  EXPECT_EQ(memory.read<std::uint8_t>(0x32F8), 0);
}

TEST_F(CockpitTest, FlapDetentsAre2047Apart) {
  EXPECT_EQ(memory.read<std::uint16_t>(0x3BFA), 2047);
  EXPECT_EQ(memory.read<std::uint32_t>(0x0BDC), 3u * 2047);  // flaps 5 for the take-off
}

TEST_F(CockpitTest, TheTimeTextIsLocalTime) {
  fly(61);
  EXPECT_EQ(text(0x0C20), "13:01:01");
  EXPECT_EQ(memory.read<std::uint8_t>(0x0238), 13);
  EXPECT_EQ(memory.read<std::uint8_t>(0x023B), 12);
}

}  // namespace
}  // namespace vorlent
