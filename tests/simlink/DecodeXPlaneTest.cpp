#include <gmock/gmock.h>

#include "support/DecodeRow.h"
#include "support/XPlaneServer.h"

// What X-Plane's poll makes of an offset in another way than the other poll, worked out by hand.

namespace vorlent {
namespace {

using V = const modPublic&;

TEST(DecodeXPlane, ScalesOfItsOwn) {
  constexpr auto GroundSpeed = [](V v) -> double { return v.GroundSpeed; };
  constexpr auto VerticalSpeed = [](V v) -> double { return v.VerticalSpeed; };
  constexpr auto Density = [](V v) -> double { return v.FuelLbPerGallon; };
  constexpr auto Right = [](V v) -> double { return v.FlapsPositionRight; };
  constexpr auto Layer = [](V v) -> double { return v.Word0EEE; };
  constexpr DecodeCase Rows[] = {
      // 2000.5 kt is 67446872.1 in 65536ths of a m/s and 67445842.9 in 65535ths.
      {"above the half in 65535ths alone", 0x02B4, 4, 67446000, GroundSpeed, 2001},
      {"a ground speed beyond 16 bits", 0x02B4, 4, 2147483647, GroundSpeed, 2001},
      {"a ground speed below 0", 0x02B4, 4, 4294967295, GroundSpeed, 0},
      {"feet a minute", 0x02C8, 4, 1800, VerticalSpeed, 1800},
      {"feet a minute down", 0x02C8, 4, 4294966296, VerticalSpeed, -1000},
      {"no weight of the fuel", 0x0AF4, 2, 0, Density, 6.6F},
      {"a weight of the fuel", 0x0AF4, 2, 1715, Density, 6.69921875},
      {"a weight below 0", 0x0AF4, 2, 65535, Density, 6.6F},
      {"right flaps", 0x0BE4, 4, 8191, Right, 8191},
      {"right flaps beyond 16 bits", 0x0BE4, 4, 40000, Right, 8191},
      {"right flaps below 0", 0x0BE4, 4, 4294967295, Right, -1},
      {"layer", 0x0EEE, 2, 1000, Layer, 3283},
      {"layer below 0", 0x0EEE, 2, 65535, Layer, -3},
  };
  XPlaneServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeXPlane, SignsWithoutAFold) {
  constexpr DecodeCase Rows[] = {
      {"TurnRate", 0x037C, 2, 65535, [](V v) -> double { return v.TurnRate; }, -1},
      {"TurnRate", 0x037C, 2, 32768, [](V v) -> double { return v.TurnRate; }, -32768},
      {"OutsideAirTemp", 0x0E8C, 2, 65280, [](V v) -> double { return v.OutsideAirTemp; }, -1},
      {"TotalAirTemp", 0x11D0, 2, 65535, [](V v) -> double { return v.TotalAirTemp; }, -0.00390625},
      {"ElevatorInput", 0x0BB2, 2, 65535, [](V v) -> double { return v.ElevatorInput; }, -1},
      {"ElevatorInput", 0x0BB2, 2, 16384, [](V v) -> double { return v.ElevatorInput; }, 16384},
      {"AileronInput", 0x0BB6, 2, 49153, [](V v) -> double { return v.AileronInput; }, -16383},
      {"RudderInput", 0x0BBA, 2, 32768, [](V v) -> double { return v.RudderInput; }, -32768},
      {"ElevatorTrimInput", 0x0BC0, 2, 32767, [](V v) -> double { return v.ElevatorTrimInput; },
       32767},
      {"MagVar", 0x02A0, 2, 49152, [](V v) -> double { return v.MagVar; }, -90},
      {"ApVsSim", 0x07F2, 2, 64535, [](V v) -> double { return v.ApVsSim; }, -1001},
      {"LocNeedle", 0x0C48, 1, 255, [](V v) -> double { return v.NavRadios(1).LocNeedle; }, -1},
  };
  XPlaneServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeXPlane, AnglesThatTheOtherPollLeavesUnsignedStaySo) {
  constexpr DecodeCase Rows[] = {
      {"Bank", 0x057C, 4, 3221225472, [](V v) -> double { return v.Bank; }, 270},
      {"TrueHeading", 0x0580, 4, 3221225472, [](V v) -> double { return v.TrueHeading; }, 270},
      {"WindDirection", 0x0E92, 2, 49152, [](V v) -> double { return v.WindDirection; }, 270},
      {"IlsSlope", 0x0872, 2, 64988, [](V v) -> double { return v.NavRadios(1).IlsSlope; },
       3.00480651855F},
  };
  XPlaneServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeXPlane, PitchHasNoFoldAt90) {
  constexpr auto Pitch = [](V v) -> double { return v.Pitch; };
  constexpr DecodeCase Rows[] = {{"nose up 5", 0x0578, 4, 4235314972, Pitch, 5},
                                 {"nose down 5", 0x0578, 4, 59652324, Pitch, -5},
                                 {"120 down", 0x0578, 4, 1431655765, Pitch, -120}};
  XPlaneServer sim;
  expectDecoded(sim, Rows);
}

/// The halves of a 64-bit number: whole units above, their fraction below.
void putHalves(XPlaneServer& sim, std::uint32_t offset, std::int32_t whole,
               std::uint32_t fraction) {
  sim.bus.put(offset, fraction);
  sim.bus.put(offset + 4, whole);
}

TEST(DecodeXPlane, LatitudeTakesBothHalvesAndItsSign) {
  XPlaneServer sim;
  putHalves(sim, 0x0560, 5000000, 0);
  sim.poll();
  EXPECT_EQ(sim.store.Latitude, 44.992137F);  // 5000000 / 111130.53125
  putHalves(sim, 0x0560, -3667307, 0);
  sim.poll();
  EXPECT_EQ(sim.store.Latitude, -32.999996F);
  // The fraction counts without a sign: a half above -1 unit.
  putHalves(sim, 0x0560, -1, 0x80000000);
  sim.poll();
  EXPECT_FLOAT_EQ(sim.store.Latitude, -4.4992136e-06F);
}

TEST(DecodeXPlane, LongitudeTakesBothHalvesAndItsSign) {
  XPlaneServer sim;
  putHalves(sim, 0x0568, 0x10000000, 0);
  sim.poll();
  EXPECT_EQ(sim.store.Longitude, 22.5);
  putHalves(sim, 0x0568, -0x40000000, 0x80000000);
  sim.poll();
  EXPECT_EQ(sim.store.Longitude, -90);
}

TEST(DecodeXPlane, AltitudeHasAFactorOfItsOwnAndTheGroundNot) {
  XPlaneServer sim;
  putHalves(sim, 0x0570, 1000, 0x80000000);
  sim.bus.put(0x0B4C, std::int16_t{100});
  sim.poll();
  EXPECT_DOUBLE_EQ(sim.store.AircraftAltitude, 3284.391375);  // 1000.5 x 3.28275
  EXPECT_EQ(sim.store.RadioAltitude, 2956);                   // less 328.084
  sim.bus.put(0x0B4C, std::int16_t{-100});
  sim.poll();
  EXPECT_EQ(sim.store.RadioAltitude, 3612);
  putHalves(sim, 0x0570, -10, 0);
  sim.poll();
  EXPECT_DOUBLE_EQ(sim.store.AircraftAltitude, -32.8275);
}

TEST(DecodeXPlane, AnOldSimulatorsAltitudeIsReadLikeAnyOther) {
  XPlaneServer sim;
  sim.store.FsVersionCode = 1;
  putHalves(sim, 0x0570, 70000, 0x80000000);
  sim.poll();
  EXPECT_DOUBLE_EQ(sim.store.AircraftAltitude, 229794.141375);  // 70000.5 x 3.28275
}

TEST(DecodeXPlane, FrequenciesAreTheDigitsOfTheirWords) {
  constexpr DecodeCase Rows[] = {
      {"Com1Freq", 0x034E, 2, 0x1825, [](V v) -> double { return v.Com1Freq; }, 118.25},
      {"Nav1Freq", 0x0350, 2, 0x0850, [](V v) -> double { return v.Nav1Freq; }, 108.5},
      {"Nav2Freq", 0x0352, 2, 0x0005, [](V v) -> double { return v.Nav2Freq; }, 100.05F},
      {"Com2Freq", 0x3118, 2, 0x3697, [](V v) -> double { return v.Com2Freq; }, 136.97F},
      {"Transponder", 0x0354, 2, 0x7700, [](V v) -> double { return v.TransponderCode; }, 7700},
      {"Transponder", 0x0354, 2, 0x0012, [](V v) -> double { return v.TransponderCode; }, 12},
      {"Adf1 word", 0x034C, 2, 0x0234, [](V v) -> double { return v.Adf1Freq; }, 234},
      {"Adf1 extension", 0x0356, 2, 0x0105, [](V v) -> double { return v.Adf1Freq; }, 1234.5},
      {"Adf2 word", 0x02D4, 2, 0x0890, [](V v) -> double { return v.Adf2Freq; }, 890},
      {"Adf2 extension", 0x02D6, 2, 0x0009, [](V v) -> double { return v.Adf2Freq; }, 890.9F},
  };
  XPlaneServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeXPlane, EngineValuesOfItsOwn) {
  constexpr DecodeCase Rows[] = {
      {"N1", 0x0898, 2, 14746, [](V v) -> double { return v.Engines(1).N1; }, 90.0024414F},
      {"N2 of engine 2", 0x092E, 2, 16384, [](V v) -> double { return v.Engines(2).N2; }, 100},
      {"lever in reverse", 0x088C, 2, 61440, [](V v) -> double { return v.Engines(1).ThrustLever; },
       -25},
      {"lever of engine 4", 0x0A54, 2, 8192, [](V v) -> double { return v.Engines(4).ThrustLever; },
       50},
      {"Epr of engine 3", 0x09D8, 2, 1536, [](V v) -> double { return v.Engines(3).Epr; }, 1.5},
      // 13000 x 860 / 16384 = 682.4 F, which is 361.3 C.
      {"Egt", 0x08BE, 2, 13000, [](V v) -> double { return v.Engines(1).Egt; }, 361},
      {"OilPressure", 0x08BA, 2, 16384, [](V v) -> double { return v.Engines(1).OilPressure; }, 55},
      {"Torque", 0x08F4, 2, 8192, [](V v) -> double { return v.Engines(1).Torque; }, 0.5},
      {"Itt", 0x2138, 8, 1459.67, [](V v) -> double { return v.Engines(2).Itt; }, 537},
      {"combustion", 0x0889, 1, 6, [](V v) -> double { return v.EngineCombustionBits; }, 6},
      {"not the byte before", 0x0888, 1, 3, [](V v) -> double { return v.EngineCombustionBits; },
       6},
  };
  XPlaneServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeXPlane, TheDoublesOfPressureRatioAndExhaustGasAreNotRead) {
  XPlaneServer sim;
  sim.bus.put(0x2030, 1.7);
  sim.bus.put(0x3B70, 2000.0);
  sim.bus.put(0x2028, 0.7);
  sim.poll();
  EXPECT_EQ(sim.store.Engines(1).Epr, 0);
  EXPECT_EQ(sim.store.Engines(1).Egt, -17);
  EXPECT_EQ(sim.store.Engines(1).Torque, 0);
}

TEST(DecodeXPlane, ATurbopropHasItsDoubles) {
  XPlaneServer sim;
  sim.bus.put(0x0609, std::uint8_t{5});
  sim.bus.put(0x2110, 96.5);
  sim.bus.put(0x2160, 620.25);
  sim.poll();
  EXPECT_EQ(sim.store.Engines(2).N1, 96.5);
  EXPECT_EQ(sim.store.Engines(2).FuelFlow, 620.25);
}

TEST(DecodeXPlane, LocalTimeFollowsTheComputersClock) {
  XPlaneServer sim;
  sim.bus.putText(0x0C20, "23:59:58");
  sim.loop.timeOfDay = {9, 5, 0};
  sim.poll();
  EXPECT_EQ(sim.store.LocalTimeText, "9 5 0");
  EXPECT_THAT(sim.store.DataRecord, testing::HasSubstr(" 9 5 0 "));
}

TEST(DecodeXPlane, ZuluTimeIsTheSimulators) {
  XPlaneServer sim;
  sim.bus.put(0x023B, std::uint8_t{13});
  sim.bus.put(0x023C, std::uint8_t{45});
  sim.bus.put(0x023D, std::uint8_t{255});
  sim.poll();
  EXPECT_EQ(sim.store.ZuluTime, 13.45F);
}

TEST(DecodeXPlane, StationsHaveSixCharactersWhateverStandsBetween) {
  XPlaneServer sim;
  sim.bus.putText(0x3000, std::string("OR\0D X7", 7));
  sim.bus.putText(0x301F, "ABCDEFG");
  sim.bus.putText(0x303E, std::string("\0\0\0\0\0Z", 6));
  sim.poll();
  EXPECT_EQ(sim.store.Vor1Id, "ORDX");
  EXPECT_EQ(sim.store.Vor2Id, "ABCDEF");
  EXPECT_EQ(sim.store.Adf1Id, "Z");
}

TEST(DecodeXPlane, TheSecondAdfsNamesEndAtTheirZero) {
  XPlaneServer sim;
  sim.bus.putText(0x02DC, std::string("A B\0C", 5));
  sim.bus.putText(0x02E2, "A NAME OF MORE THAN ONE FIELD");
  sim.poll();
  EXPECT_EQ(sim.store.Adf2Id, "AB");
  EXPECT_EQ(sim.store.Adf2Name, "ANAMEOFMORETHANONEFIELD");
}

}  // namespace
}  // namespace vorlent
