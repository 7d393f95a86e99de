#include <cmath>
#include <string>

#include "support/DecodeRow.h"

// Fuel, controls, flaps, gear, electrics, failures, weather and the simulator's autopilot.

namespace vorlent {
namespace {

using V = const modPublic&;

TEST(DecodeSystems, EveryControlHasItsOffsetAndConversion) {
  constexpr DecodeCase Rows[] = {
      {"FuelSelector", 0x0AF8, 1, 2, [](V v) -> double { return v.FuelSelector; }, 2},
      {"Word0B00", 0x0B00, 2, 2048, [](V v) -> double { return v.Word0B00Percent; }, 12},
      {"Word0B00", 0x0B00, 2, 6144, [](V v) -> double { return v.Word0B00Percent; }, 38},
      {"LeftBrake", 0x0BC4, 2, 32767, [](V v) -> double { return v.LeftBrake; }, 32767},
      {"RightBrake", 0x0BC6, 2, 65535, [](V v) -> double { return v.RightBrake; }, 65535},
      {"ParkingBrake", 0x0BC8, 2, 40000, [](V v) -> double { return v.ParkingBrake; }, 40000},
      {"Word0BCA", 0x0BCA, 2, 33000, [](V v) -> double { return v.Word0BCA; }, 33000},
      {"SpoilersArm", 0x0BCC, 1, 1, [](V v) -> double { return v.SpoilersArm; }, 1},
      {"SpoilersControl", 0x0BD0, 2, 16383, [](V v) -> double { return v.SpoilersControl; }, 16383},
      {"FlapsPosition", 0x0BE0, 2, 8191, [](V v) -> double { return v.FlapsPosition; }, 8191},
      {"GearControl", 0x0BE8, 2, 16383, [](V v) -> double { return v.GearControl; }, 16383},
      {"GearNose", 0x0BEC, 2, 1, [](V v) -> double { return v.GearNose; }, 1},
      {"GearRight", 0x0BF0, 2, 2, [](V v) -> double { return v.GearRight; }, 2},
      {"GearLeft", 0x0BF4, 2, 3, [](V v) -> double { return v.GearLeft; }, 3},
      {"GearLeft beyond", 0x0BF4, 2, 32768, [](V v) -> double { return v.GearLeft; }, 3},
      {"no right flaps", 0x0BE4, 2, 5, [](V v) -> double { return v.FlapsPositionRight; }, 0},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeSystems, InputsFoldAt65536Above16383) {
  constexpr auto Elevator = [](V v) -> double { return v.ElevatorInput; };
  constexpr auto Aileron = [](V v) -> double { return v.AileronInput; };
  constexpr auto Rudder = [](V v) -> double { return v.RudderInput; };
  constexpr auto Trim = [](V v) -> double { return v.ElevatorTrimInput; };
  constexpr DecodeCase Rows[] = {
      {"", 0x0BB2, 2, 16383, Elevator, 16383}, {"", 0x0BB2, 2, 16384, Elevator, -49152},
      {"", 0x0BB2, 2, 65535, Elevator, -1},    {"", 0x0BB6, 2, 49153, Aileron, -16383},
      {"", 0x0BBA, 2, 65534, Rudder, -2},      {"", 0x0BC0, 2, 16384, Trim, -49152},
      {"", 0x0BC0, 2, 77, Trim, 77},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeSystems, FlapsFoldOnlyBelowVersion2) {
  constexpr auto Flaps = [](V v) -> double { return v.FlapsControl; };
  constexpr DecodeCase Modern[] = {{"", 0x0BDC, 2, 16383, Flaps, 16383},
                                   {"", 0x0BDC, 2, 32767, Flaps, 32767},
                                   {"beyond 16 bits", 0x0BDC, 2, 32768, Flaps, 32767}};
  constexpr DecodeCase Old[] = {{"", 0x0BDC, 2, 16384, Flaps, 16384},
                                {"beyond 16 bits", 0x0BDC, 2, 16385, Flaps, 16384},
                                {"", 0x0BDC, 2, 32768, Flaps, -32768},
                                {"", 0x0BDC, 2, 65535, Flaps, -1}};
  PolledServer sim;
  expectDecoded(sim, Modern);
  sim.store.FsVersionCode = 1;
  expectDecoded(sim, Old);
}

TEST(DecodeSystems, FlapPositionsComeFromTheIncrementAndZeroKeepsThem) {
  constexpr auto Increment = [](V v) -> double { return v.FlapIncrement; };
  constexpr auto Positions = [](V v) -> double { return v.FlapPositions; };
  constexpr DecodeCase Rows[] = {
      {"eight detents", 0x3BFA, 2, 2047, Positions, 9},
      {"one", 0x3BFA, 2, 16384, Positions, 2},
      {"finest", 0x3BFA, 2, 1, Positions, 16385},
      {"none", 0x3BFA, 2, 0, Positions, 16385},
      {"none", 0x3BFA, 2, 0, Increment, 0},
      {"again", 0x3BFA, 2, 4096, Positions, 5},
      {"too large", 0x3BFA, 2, 65535, Increment, 4096},
      {"", 0x3BFA, 2, 65535, Positions, 5},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeSystems, TrimsAreDegreesAndKeepTheirValueOnFaults) {
  constexpr auto Elevator = [](V v) -> double { return v.ElevatorTrimDeg; };
  constexpr auto Aileron = [](V v) -> double { return v.AileronTrimDeg; };
  constexpr DecodeCase Rows[] = {
      {"", 0x2EB0, 8, 1, Elevator, 57.295777918682},
      {"", 0x2EC0, 8, -0.5, Aileron, -28.647888959341},
      {"", 0x2EB0, 8, NaN, Elevator, 57.295777918682},
      {"overflow", 0x2EB0, 8, 1.7e308, Elevator, 57.295777918682},
      {"", 0x2EC0, 8, HUGE_VAL, Aileron, -28.647888959341},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeSystems, EveryTankHasItsOwnLevelAndCapacity) {
  PolledServer sim;
  for (std::uint32_t tank = 0; tank < 7; ++tank) {
    sim.bus.put(0x0B74 + 8 * tank, 838860 * (tank + 1));
    sim.bus.put(0x0B78 + 8 * tank, 100 * (tank + 1));
  }
  sim.poll();
  constexpr int InOrderOfOffsets[] = {Tank::Centre,    Tank::LeftMain, Tank::LeftAux, Tank::LeftTip,
                                      Tank::RightMain, Tank::RightAux, Tank::RightTip};
  for (int tank = 0; tank < 7; ++tank) {
    EXPECT_NEAR(sim.store.FuelTanks(InOrderOfOffsets[tank]).Level, 10 * (tank + 1), 0.0001);
    EXPECT_EQ(sim.store.FuelTanks(InOrderOfOffsets[tank]).Capacity, 100 * (tank + 1));
  }
}

TEST(DecodeSystems, TheTanksFactorIsExactInAllOfItsDigits) {
  PolledServer sim;
  sim.bus.put(0x0B74, std::uint32_t{4198356});
  sim.poll();
  EXPECT_EQ(sim.store.FuelTanks(Tank::Centre).Level, 50.048301696777344F);
}

TEST(DecodeSystems, OnlyAnAuxTankWithoutCapacityReadsLevelZero) {
  PolledServer sim;
  for (std::uint32_t tank = 0; tank < 7; ++tank)
    sim.bus.put(0x0B74 + 8 * tank, std::uint32_t{8388608});
  sim.poll();
  for (const int aux : {Tank::LeftAux, Tank::RightAux})
    EXPECT_EQ(sim.store.FuelTanks(aux).Level, 0);
  for (const int other :
       {Tank::Centre, Tank::LeftMain, Tank::LeftTip, Tank::RightMain, Tank::RightTip})
    EXPECT_EQ(sim.store.FuelTanks(other).Level, 100);
  sim.bus.put(0x0B88, std::uint32_t{1});
  sim.poll();
  EXPECT_EQ(sim.store.FuelTanks(Tank::LeftAux).Level, 100);
  EXPECT_EQ(sim.store.FuelTanks(Tank::RightAux).Level, 0);
}

TEST(DecodeSystems, ACapacityBeyond32BitsKeepsItsValue) {
  PolledServer sim;
  sim.bus.put(0x0B78, std::uint32_t{4000});
  sim.poll();
  sim.bus.put(0x0B78, std::uint32_t{0x80000000});
  sim.poll();
  EXPECT_EQ(sim.store.FuelTanks(Tank::Centre).Capacity, 4000);
}

TEST(DecodeSystems, TotalFuelIsThePoundsOfAllSevenTanks) {
  PolledServer sim;
  sim.bus.put(0x0AF4, std::uint16_t{1664});
  sim.bus.put(0x0B74, std::uint32_t{4194304});
  sim.bus.put(0x0B78, std::uint32_t{4000});
  sim.bus.put(0x0BA4, std::uint32_t{8388608});
  sim.bus.put(0x0BA8, std::uint32_t{1000});
  EXPECT_EQ(sim.polled(0x0B8C, std::uint32_t{8388608}, &modPublic::FuelTotalLb), 19500);
  EXPECT_EQ(sim.store.FuelLbPerGallon, 6.5F);
}

TEST(DecodeSystems, ElectricalSwitchesAreLongsAndKeepTheirValueBeyond16Bits) {
  constexpr auto Battery = [](V v) -> double { return v.MasterBattery; };
  constexpr auto Avionics = [](V v) -> double { return v.AvionicsMaster; };
  constexpr DecodeCase Rows[] = {
      {"", 0x281C, 4, 1, Battery, 1},
      {"all bits are -1", 0x281C, 4, 4294967295, Battery, -1},
      {"lowest", 0x281C, 4, 4294934528, Battery, -32768},
      {"below", 0x281C, 4, 4294934527, Battery, -32768},
      {"", 0x2E80, 4, 1, Avionics, 1},
      {"beyond", 0x2E80, 4, 32768, Avionics, 1},
      {"", 0x2E88, 4, 12, [](V v) -> double { return v.Long2E88; }, 12},
      {"", 0x2EC8, 4, 13, [](V v) -> double { return v.Long2EC8; }, 13},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeSystems, ElectricalValuesStandInTheOrderOfTheirOffsets) {
  constexpr std::uint32_t Offsets[] = {0x2824, 0x282C, 0x2834, 0x2840, 0x2848, 0x2850,
                                       0x2858, 0x2860, 0x2868, 0x2870, 0x2878};
  PolledServer sim;
  for (int element = 1; element <= 11; ++element) sim.bus.put(Offsets[element - 1], element + 0.5);
  sim.poll();
  for (int element = 1; element <= 11; ++element)
    EXPECT_EQ(sim.store.Electrical(element), static_cast<float>(element) + 0.5F);
  for (const std::uint32_t offset : Offsets) sim.bus.put(offset, NaN);
  sim.bus.put(0x2840, 99.0);
  sim.poll();
  EXPECT_EQ(sim.store.Electrical(1), 1.5F);
  EXPECT_EQ(sim.store.Electrical(3), 3.5F);
  EXPECT_EQ(sim.store.Electrical(4), 99);
  EXPECT_EQ(sim.store.Electrical(11), 11.5F);
}

TEST(DecodeSystems, FailuresAreTwentyNumbersInOneText) {
  PolledServer sim;
  for (std::uint32_t k = 0; k < 18; ++k) sim.bus.put(0x3BD6 + k, static_cast<std::uint8_t>(k + 1));
  sim.bus.put(0x0B71, std::uint8_t{200});
  sim.bus.put(0x32F8, std::uint8_t{255});
  sim.poll();
  EXPECT_EQ(sim.store.FailureText, "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 200 255 ");
  EXPECT_EQ(sim.store.FailureFlags(1), "1");
  EXPECT_EQ(sim.store.FailureFlags(18), "18");
  EXPECT_EQ(sim.store.FailureFlags(20), "255");
}

TEST(DecodeSystems, WeatherSumsAreByteAdditionsAndTheSecondIsInFeet) {
  PolledServer sim;
  for (std::uint32_t k = 0; k < 8; ++k)
    sim.bus.put(0x0E5A + 2 * k, static_cast<std::uint16_t>(0x6400 + k));
  sim.poll();
  for (const int k : {1, 3, 4, 5, 6, 7, 8}) EXPECT_EQ(sim.store.WeatherSums(k), 99 + k);
  EXPECT_EQ(sim.store.WeatherSums(2), 331);
}

TEST(DecodeSystems, AWeatherSumAbove255KeepsItsValue) {
  PolledServer sim;
  sim.bus.put(0x0E5A, std::uint16_t{0x01FE});
  sim.bus.put(0x0E5C, std::uint16_t{0x01FE});
  sim.poll();
  EXPECT_EQ(sim.store.WeatherSums(1), 255);
  EXPECT_EQ(sim.store.WeatherSums(2), 837);
  sim.bus.put(0x0E5A, std::uint16_t{0x02FE});
  sim.bus.put(0x0E5C, std::uint16_t{0x02FE});
  sim.poll();
  EXPECT_EQ(sim.store.WeatherSums(1), 255);
  EXPECT_EQ(sim.store.WeatherSums(2), 837);
}

TEST(DecodeSystems, EveryVariableOfTheSimulatorsAutopilot) {
  constexpr DecodeCase Rows[] = {
      {"ApMasterSim", 0x07BC, 2, 1, [](V v) -> double { return v.ApMasterSim; }, 1},
      {"ApWingLevelerSim", 0x07C0, 2, 2, [](V v) -> double { return v.ApWingLevelerSim; }, 2},
      {"ApNavHoldSim", 0x07C4, 2, 3, [](V v) -> double { return v.ApNavHoldSim; }, 3},
      {"ApHeadingHoldSim", 0x07C8, 2, 4, [](V v) -> double { return v.ApHeadingHoldSim; }, 4},
      {"ApAltHoldSim", 0x07D0, 2, 5, [](V v) -> double { return v.ApAltHoldSim; }, 5},
      {"ApAttitudeHoldSim", 0x07D8, 2, 6, [](V v) -> double { return v.ApAttitudeHoldSim; }, 6},
      {"ApIasSim", 0x07E2, 2, 250, [](V v) -> double { return v.ApIasSim; }, 250},
      {"ApMachHoldSim", 0x07E4, 2, 7, [](V v) -> double { return v.ApMachHoldSim; }, 7},
      {"ApMachSim", 0x07E8, 2, 32750, [](V v) -> double { return v.ApMachSim; }, 0.5},
      {"ApVsHoldSim", 0x07EC, 2, 8, [](V v) -> double { return v.ApVsHoldSim; }, 8},
      {"ApVsSim", 0x07F2, 2, 1800, [](V v) -> double { return v.ApVsSim; }, 1800},
      {"ApVsSim", 0x07F2, 2, 32768, [](V v) -> double { return v.ApVsSim; }, -32767},
      {"ApVsSim", 0x07F2, 2, 65535, [](V v) -> double { return v.ApVsSim; }, 0},
      {"ApRpmHoldSim", 0x07F4, 2, 9, [](V v) -> double { return v.ApRpmHoldSim; }, 9},
      {"ApRpmSim", 0x07F8, 2, 65535, [](V v) -> double { return v.ApRpmSim; }, 65535},
      {"ApGsHoldSim", 0x07FC, 2, 10, [](V v) -> double { return v.ApGsHoldSim; }, 10},
      {"ApApproachHoldSim", 0x0800, 2, 11, [](V v) -> double { return v.ApApproachHoldSim; }, 11},
      {"ApBcHoldSim", 0x0804, 2, 12, [](V v) -> double { return v.ApBcHoldSim; }, 12},
      {"YawDamperSim", 0x0808, 2, 13, [](V v) -> double { return v.YawDamperSim; }, 13},
      {"ToGaSim", 0x080C, 2, 14, [](V v) -> double { return v.ToGaSim; }, 14},
      {"AutoThrottleArmSim", 0x0810, 2, 15, [](V v) -> double { return v.AutoThrottleArmSim; }, 15},
      {"beyond 16 bits", 0x0810, 2, 32768, [](V v) -> double { return v.AutoThrottleArmSim; }, 15},
      {"ApAltitudeSim", 0x07D4, 4, 199753720, [](V v) -> double { return v.ApAltitudeSim; }, 10000},
      {"ApSpeedHoldSim", 0x07DC, 1, 2, [](V v) -> double { return v.ApSpeedHoldSim; }, 2},
      {"its other byte", 0x07E0, 1, 1, [](V v) -> double { return v.ApSpeedHoldSim; }, 258},
      {"beyond 16 bits", 0x07E0, 1, 128, [](V v) -> double { return v.ApSpeedHoldSim; }, 258},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeSystems, TheHeadingBugComesFromTheOffsetAndTheFactorOfTheSettings) {
  PolledServer sim;
  sim.server.fsuipc->Factor_APHeading(100);
  sim.bus.put(0x66C0, std::uint16_t{0x0102});
  EXPECT_EQ(sim.polled(0x07CC, std::uint16_t{9000}, &modPublic::ApHeadingSim), 90);
  sim.server.fsuipc->Offset_APHeading(0x66C0);
  sim.poll();
  EXPECT_EQ(sim.store.ApHeadingSim, 2.58F);
  sim.server.fsuipc->Factor_APHeading(0);
  sim.bus.put(0x66C0, std::uint16_t{9000});
  sim.poll();
  EXPECT_EQ(sim.store.ApHeadingSim, 2.58F);
}

}  // namespace
}  // namespace vorlent
