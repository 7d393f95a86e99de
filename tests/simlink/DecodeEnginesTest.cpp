#include <cmath>

#include "simlink/conversions.h"
#include "support/DecodeRow.h"

namespace vorlent {
namespace {

using V = const modPublic&;

TEST(DecodeEngines, EveryWordOfTheSecondEngine) {
  constexpr DecodeCase Rows[] = {
      {"ThrustLever", 0x0924, 2, 8192, [](V v) -> double { return v.Engines(2).ThrustLever; }, 50},
      {"Mixture", 0x0928, 2, 2048, [](V v) -> double { return v.Engines(2).Mixture; }, 12},
      {"Mixture", 0x0928, 2, 6144, [](V v) -> double { return v.Engines(2).Mixture; }, 38},
      {"Starter", 0x092A, 1, 3, [](V v) -> double { return v.Engines(2).Starter; }, 3},
      {"Combustion", 0x092C, 1, 1, [](V v) -> double { return v.Engines(2).Combustion; }, 1},
      {"N2", 0x092E, 2, 12288, [](V v) -> double { return v.Engines(2).N2; }, 75},
      {"N1", 0x0930, 2, 4096, [](V v) -> double { return v.Engines(2).N1; }, 25},
      {"AntiIce", 0x094A, 1, 1, [](V v) -> double { return v.Engines(2).AntiIce; }, 1},
      {"OilPressure", 0x0952, 2, 12800, [](V v) -> double { return v.Engines(2).OilPressure; },
       42.96875F},
      {"Word08C0", 0x0958, 2, 25600, [](V v) -> double { return v.Engines(2).Word08C0; }, 25.8125F},
      {"OilQuantity", 0x0968, 2, 16384, [](V v) -> double { return v.Engines(2).OilQuantity; },
       100},
      {"Vibration", 0x096C, 2, 16384, [](V v) -> double { return v.Engines(2).Vibration; }, 5},
      {"HydPressure", 0x0970, 2, 12003, [](V v) -> double { return v.Engines(2).HydPressure; },
       3000.75F},
      {"HydQuantity", 0x0974, 2, 8192, [](V v) -> double { return v.Engines(2).HydQuantity; }, 50},
      {"Word08F8", 0x0990, 2, 12345, [](V v) -> double { return v.Engines(2).Word08F8; },
       75.347900390625F},
      {"Word0908", 0x09A0, 2, 24576, [](V v) -> double { return v.Engines(2).Word0908; }, 150},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeEngines, EveryDoubleOfTheThirdEngine) {
  constexpr DecodeCase Rows[] = {
      {"PropValue", 0x2608, 8, 0.25, [](V v) -> double { return v.Engines(3).PropValue; }, 0.25},
      {"Epr", 0x2230, 8, 1.5, [](V v) -> double { return v.Engines(3).Epr; }, 1.5},
      {"Egt", 0x39F0, 8, 1000, [](V v) -> double { return v.Engines(3).Egt; }, 282},
      {"Egt", 0x39F0, 8, 400, [](V v) -> double { return v.Engines(3).Egt; }, -50},
      {"Cht", 0x0A18, 8, 0.1, [](V v) -> double { return v.Engines(3).Cht; }, 0.1},
      {"Itt", 0x2238, 8, 1559.67, [](V v) -> double { return v.Engines(3).Itt; }, 593},
      {"Torque", 0x2228, 8, 0.75, [](V v) -> double { return v.Engines(3).Torque; }, 0.75},
      {"FuelFlow", 0x0A48, 8, 2345.6, [](V v) -> double { return v.Engines(3).FuelFlow; }, 2345.6},
      {"GeneratorA", 0x28A0, 8, 28.5, [](V v) -> double { return v.Engines(3).GeneratorA; }, 28.5},
      {"GeneratorB", 0x28A8, 8, 0.1, [](V v) -> double { return v.Engines(3).GeneratorB; }, 0.1F},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeEngines, TheFirstAndTheFourthEngineHaveTheirOwnOffsets) {
  constexpr DecodeCase Rows[] = {
      {"N1", 0x0898, 2, 4096, [](V v) -> double { return v.Engines(1).N1; }, 25},
      {"N1", 0x0A60, 2, 12288, [](V v) -> double { return v.Engines(4).N1; }, 75},
      {"Cht", 0x08E8, 8, 11, [](V v) -> double { return v.Engines(1).Cht; }, 11},
      {"Cht", 0x0980, 8, 12, [](V v) -> double { return v.Engines(2).Cht; }, 12},
      {"Cht", 0x0AB0, 8, 14, [](V v) -> double { return v.Engines(4).Cht; }, 14},
      {"FuelFlow", 0x0918, 8, 21, [](V v) -> double { return v.Engines(1).FuelFlow; }, 21},
      {"FuelFlow", 0x09B0, 8, 22, [](V v) -> double { return v.Engines(2).FuelFlow; }, 22},
      {"FuelFlow", 0x0AE0, 8, 24, [](V v) -> double { return v.Engines(4).FuelFlow; }, 24},
      {"Egt", 0x3B70, 8, 491.67, [](V v) -> double { return v.Engines(1).Egt; }, 0},
      {"Egt", 0x3AB0, 8, 1000, [](V v) -> double { return v.Engines(2).Egt; }, 282},
      {"Egt", 0x3930, 8, 400, [](V v) -> double { return v.Engines(4).Egt; }, -50},
      {"PropValue", 0x2408, 8, 1, [](V v) -> double { return v.Engines(1).PropValue; }, 1},
      {"PropValue", 0x2708, 8, 4, [](V v) -> double { return v.Engines(4).PropValue; }, 4},
      {"GeneratorA", 0x2880, 8, 1, [](V v) -> double { return v.Engines(1).GeneratorA; }, 1},
      {"GeneratorB", 0x28B8, 8, 8, [](V v) -> double { return v.Engines(4).GeneratorB; }, 8},
      {"Epr", 0x2330, 8, 1.25, [](V v) -> double { return v.Engines(4).Epr; }, 1.25},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeEngines, ReverseThrustReadsNegativeAndFoldsBy399) {
  constexpr auto Lever = [](V v) -> double { return v.Engines(1).ThrustLever; };
  constexpr DecodeCase Rows[] = {{"full forward", 0x088C, 2, 16384, Lever, 100},
                                 {"one more", 0x088C, 2, 16385, Lever, -298.993896484375F},
                                 {"full reverse", 0x088C, 2, 61440, Lever, -24},
                                 {"idle from below", 0x088C, 2, 65535, Lever, 0.993896484375F}};
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeEngines, OilTemperatureIsSignedAbove128) {
  PolledServer sim;
  constexpr auto OilTemp = [](V v) -> double { return v.Engines(1).OilTemp; };
  sim.bus.put(0x08B8, std::uint8_t{128});
  constexpr DecodeCase Rows[] = {{"warm", 0x08B9, 1, 85, OilTemp, 187.03125F},
                                 {"just 128", 0x08B9, 1, 128, OilTemp, 281.09375F},
                                 {"below zero", 0x08B9, 1, 129, OilTemp, -276.71875F}};
  expectDecoded(sim, Rows);
}

TEST(DecodeEngines, ATurbopropTakesN1AndFuelFlowFromItsDoubles) {
  PolledServer sim;
  sim.bus.put(0x0609, std::uint8_t{5});
  sim.bus.put(0x0898, std::uint16_t{4096});
  sim.bus.put(0x0918, 100.0);
  sim.bus.put(0x2010, 97.5);
  sim.bus.put(0x2060, 512.25);
  sim.poll();
  EXPECT_EQ(sim.store.Engines(1).N1, 97.5F);
  EXPECT_EQ(sim.store.Engines(1).FuelFlow, 512.25);
  EXPECT_EQ(sim.polled(0x0609, std::uint8_t{1}, &modPublic::Engines)(1).N1, 25);
  EXPECT_EQ(sim.store.Engines(1).FuelFlow, 100);
}

TEST(DecodeEngines, BelowVersion6EprAndEgtComeFromWords) {
  PolledServer sim;
  sim.bus.put(0x08A8, std::uint16_t{1600});
  sim.bus.put(0x08BE, std::uint16_t{40000});
  sim.bus.put(0x2030, 1.75);
  sim.bus.put(0x3B70, 1000.0);
  sim.store.FsVersionCode = 6;
  sim.poll();
  EXPECT_EQ(sim.store.Engines(1).Epr, 1.75F);
  EXPECT_EQ(sim.store.Engines(1).Egt, 282);
  sim.store.FsVersionCode = 5;
  sim.poll();
  EXPECT_EQ(sim.store.Engines(1).Epr, 1.5625F);
  EXPECT_EQ(sim.store.Engines(1).Egt, 1148);
}

TEST(DecodeEngines, BelowVersion2IttAndTorqueComeFromWordsAndNoEngineIsATurboprop) {
  PolledServer sim;
  sim.bus.put(0x0609, std::uint8_t{5});
  sim.bus.put(0x0898, std::uint16_t{4096});
  sim.bus.put(0x0918, 100.0);
  sim.bus.put(0x2010, 97.5);
  sim.bus.put(0x2060, 512.25);
  sim.bus.put(0x08F0, std::uint16_t{16384});
  sim.bus.put(0x08F4, std::uint16_t{8192});
  sim.store.FsVersionCode = 1;
  sim.poll();
  EXPECT_EQ(sim.store.Engines(1).Itt, 37);
  EXPECT_EQ(sim.store.Engines(1).Torque, 0.5F);
  EXPECT_EQ(sim.store.Engines(1).N1, 25);
  EXPECT_EQ(sim.store.Engines(1).FuelFlow, 100);
}

TEST(DecodeEngines, ANaNOrAnInfinityKeepsEachDouble) {
  struct Row {
    std::uint32_t offset;
    double (*variable)(V v);
  };
  constexpr Row Rows[] = {
      {0x2030, [](V v) -> double { return v.Engines(1).Epr; }},
      {0x3B70, [](V v) -> double { return v.Engines(1).Egt; }},
      {0x08E8, [](V v) -> double { return v.Engines(1).Cht; }},
      {0x2038, [](V v) -> double { return v.Engines(1).Itt; }},
      {0x2028, [](V v) -> double { return v.Engines(1).Torque; }},
      {0x0918, [](V v) -> double { return v.Engines(1).FuelFlow; }},
      {0x2880, [](V v) -> double { return v.Engines(1).GeneratorA; }},
      {0x2888, [](V v) -> double { return v.Engines(1).GeneratorB; }},
  };
  PolledServer sim;
  for (const Row& row : Rows) {
    sim.bus.put(row.offset, 1000.0);
    sim.poll();
    const double before = row.variable(sim.store);
    EXPECT_NE(before, 0);
    for (const double bad : {NaN, HUGE_VAL, -HUGE_VAL}) {
      sim.bus.put(row.offset, bad);
      sim.poll();
      EXPECT_EQ(row.variable(sim.store), before) << std::hex << row.offset;
    }
  }
}

TEST(DecodeEngines, ATurbopropKeepsN1AndFuelFlowOnANaN) {
  PolledServer sim;
  sim.bus.put(0x0609, std::uint8_t{5});
  sim.bus.put(0x2010, 97.5);
  sim.bus.put(0x2060, 512.25);
  sim.poll();
  sim.bus.put(0x2010, NaN);
  sim.bus.put(0x2060, -HUGE_VAL);
  sim.poll();
  EXPECT_EQ(sim.store.Engines(1).N1, 97.5F);
  EXPECT_EQ(sim.store.Engines(1).FuelFlow, 512.25);
}

TEST(DecodeEngines, APropDoubleThatFailsLeavesTheValueOfTheWord) {
  PolledServer sim;
  sim.bus.put(0x088E, std::uint16_t{8192});
  sim.bus.put(0x2408, 0.75);
  sim.poll();
  EXPECT_EQ(sim.store.Engines(1).PropValue, 0.75F);
  sim.bus.put(0x2408, NaN);
  sim.poll();
  EXPECT_EQ(sim.store.Engines(1).PropValue, 50);
}

TEST(DecodeEngines, ADoubleTooLargeForItsVariableKeepsIt) {
  constexpr DecodeCase Rows[] = {
      {"Torque", 0x2028, 8, 0.5, [](V v) -> double { return v.Engines(1).Torque; }, 0.5},
      {"Torque", 0x2028, 8, 3.5e38, [](V v) -> double { return v.Engines(1).Torque; }, 0.5},
      {"Itt", 0x2038, 8, 1559.67, [](V v) -> double { return v.Engines(1).Itt; }, 593},
      {"Itt", 0x2038, 8, 1e6, [](V v) -> double { return v.Engines(1).Itt; }, 593},
      {"Egt", 0x3B70, 8, 1000, [](V v) -> double { return v.Engines(1).Egt; }, 282},
      {"Egt", 0x3B70, 8, 1e300, [](V v) -> double { return v.Engines(1).Egt; }, 282},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

struct CountCase {
  int count;
  int decoded;
};

class DecodeEngineCount : public testing::TestWithParam<CountCase> {};

TEST_P(DecodeEngineCount, EnginesBeyondTheCountKeepTheirValues) {
  PolledServer sim;
  sim.bus.put(0x0AEC, static_cast<std::uint8_t>(GetParam().count));
  for (std::uint32_t n = 0; n < 4; ++n) sim.bus.put(0x0898 + 0x98 * n, std::uint16_t{8192});
  for (int n = 1; n <= 4; ++n) sim.store.Engines(n).N1 = 7;
  sim.poll();
  for (int n = 1; n <= 4; ++n)
    EXPECT_EQ(sim.store.Engines(n).N1, n <= GetParam().decoded ? 50 : 7) << n;
}

INSTANTIATE_TEST_SUITE_P(Counts, DecodeEngineCount,
                         testing::Values(CountCase{0, 4}, CountCase{1, 1}, CountCase{2, 2},
                                         CountCase{3, 3}, CountCase{4, 4}, CountCase{5, 4},
                                         CountCase{255, 4}),
                         [](const auto& row) { return std::to_string(row.param.count); });

TEST(DecodeEngines, TheEnginesOwnSettingsAreNotTouched) {
  PolledServer sim;
  sim.store.Engines(2).N1Target = 88.5F;
  sim.store.Engines(2).ClientValueB = 1.5F;
  sim.store.Engines(2).N1Prev = 44;
  sim.poll();
  EXPECT_EQ(sim.store.Engines(2).N1Target, 88.5F);
  EXPECT_EQ(sim.store.Engines(2).ClientValueB, 1.5F);
  EXPECT_EQ(sim.store.Engines(2).N1Prev, 44);
}

TEST(DecodeEngines, CombustionBitsAreAByteAdditionThatKeepsItsValueAbove255) {
  constexpr auto Bits = [](V v) -> double { return v.EngineCombustionBits; };
  constexpr DecodeCase Rows[] = {{"1 + 2", 0x0888, 2, 0x0201, Bits, 3},
                                 {"255 + 0", 0x0888, 2, 0x00FF, Bits, 255},
                                 {"255 + 1", 0x0888, 2, 0x01FF, Bits, 255},
                                 {"200 + 100", 0x0888, 2, 0x64C8, Bits, 255}};
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeEngines, BcdAndFahrenheit) {
  EXPECT_EQ(BcdToDec(0x00), 0);
  EXPECT_EQ(BcdToDec(0x99), 99);
  EXPECT_EQ(BcdToDec(0x1F), 25);
  EXPECT_EQ(BcdToDec(0xFF), 165);
  EXPECT_EQ(FahrenheitToCelsius(32), 0);
  EXPECT_EQ(FahrenheitToCelsius(212), 100);
  EXPECT_EQ(FahrenheitToCelsius(100), 37);
  EXPECT_EQ(FahrenheitToCelsius(0), -17);
}

}  // namespace
}  // namespace vorlent
