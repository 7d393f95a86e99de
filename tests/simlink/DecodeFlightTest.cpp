#include <cmath>

#include "support/DecodeRow.h"

// Aircraft, air data, attitude and position.

namespace vorlent {
namespace {

using V = const modPublic&;

TEST(DecodeFlight, EveryVariableHasItsOffsetAndConversion) {
  constexpr DecodeCase Rows[] = {
      {"EngineCount", 0x0AEC, 1, 3, [](V v) -> double { return v.EngineCount; }, 3},
      {"EngineCount2", 0x0AEC, 1, 255, [](V v) -> double { return v.EngineCount2; }, 255},
      {"EngineTypeRaw", 0x0609, 1, 5, [](V v) -> double { return v.EngineTypeRaw; }, 5},
      {"EngineType", 0x0609, 1, 1, [](V v) -> double { return v.EngineType; }, 1},
      {"ZuluTime hours", 0x023B, 1, 13, [](V v) -> double { return v.ZuluTime; }, 13},
      {"ZuluTime", 0x023C, 1, 45, [](V v) -> double { return v.ZuluTime; }, 13.45F},
      {"AutoCoordination", 0x0278, 1, 1, [](V v) -> double { return v.AutoCoordination; }, 1},
      {"FrameRateByte", 0x0274, 1, 77, [](V v) -> double { return v.FrameRateByte; }, 77},
      {"LightsByte1", 0x0280, 1, 1, [](V v) -> double { return v.LightsByte1; }, 1},
      {"LightsByte2", 0x0281, 1, 2, [](V v) -> double { return v.LightsByte2; }, 2},
      {"LightsByte3", 0x0282, 1, 250, [](V v) -> double { return v.LightsByte3; }, 250},
      {"LandingLights", 0x028C, 1, 1, [](V v) -> double { return v.LandingLights; }, 1},
      {"PitotHeat", 0x029C, 1, 1, [](V v) -> double { return v.PitotHeat; }, 1},
      {"MagVar", 0x02A0, 2, 16384, [](V v) -> double { return v.MagVar; }, 90},
      {"BarberPole", 0x02C4, 2, 43520, [](V v) -> double { return v.BarberPole; }, 340},
      {"AltimeterQnh", 0x0330, 2, 16212, [](V v) -> double { return v.AltimeterQnh; }, 1013.25},
      {"OnGround", 0x0366, 2, 1, [](V v) -> double { return v.OnGround; }, 1},
      {"Word378", 0x0378, 2, 513, [](V v) -> double { return v.Word378; }, 513},
      {"Double0B18", 0x0B18, 8, 1234.5678, [](V v) -> double { return v.Double0B18; }, 1234.5678F},
      {"OutsideAirTemp", 0x0E8C, 2, 3840, [](V v) -> double { return v.OutsideAirTemp; }, 15},
      {"WindSpeedKt", 0x0E90, 2, 40000, [](V v) -> double { return v.WindSpeedKt; }, 40000},
      {"WindDirection", 0x0E92, 2, 49152, [](V v) -> double { return v.WindDirection; }, 270},
      {"AmbientQnh", 0x0EC6, 2, 15800, [](V v) -> double { return v.AmbientQnh; }, 987.5},
      {"Word0EEE", 0x0EEE, 2, 1000, [](V v) -> double { return v.Word0EEE; }, 3281},
      {"Word0EEE", 0x0EEE, 2, 65535, [](V v) -> double { return v.Word0EEE; }, 215010},
      {"GForce", 0x11BA, 2, 750, [](V v) -> double { return v.GForce; }, 1.2F},
      {"AngleOfAttack", 0x11BE, 2, 0, [](V v) -> double { return v.AngleOfAttack; }, 180},
      {"AngleOfAttack", 0x11BE, 2, 49152, [](V v) -> double { return v.AngleOfAttack; }, -90},
      {"Mach", 0x11C6, 2, 15974, [](V v) -> double { return v.Mach; }, 0.77998046875F},
      {"TotalAirTemp", 0x11D0, 2, 128, [](V v) -> double { return v.TotalAirTemp; }, 0.5},
      {"Word0C3EDeg", 0x0C3E, 2, 65535, [](V v) -> double { return v.Word0C3EDeg; },
       359.9945068359375F},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeFlight, MagVarIsSignedAbove180) {
  constexpr auto MagVar = [](V v) -> double { return v.MagVar; };
  constexpr DecodeCase Rows[] = {{"just 180", 0x02A0, 2, 32768, MagVar, 180},
                                 {"one more", 0x02A0, 2, 32769, MagVar, -179.9945068359375F},
                                 {"west", 0x02A0, 2, 65535, MagVar, -0.0054931640625F}};
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeFlight, SpeedsRoundHalfToEvenAndKeepTheirValueBeyond16Bits) {
  constexpr auto GroundSpeed = [](V v) -> double { return v.GroundSpeed; };
  constexpr auto Tas = [](V v) -> double { return v.Tas; };
  constexpr DecodeCase Rows[] = {
      {"100 m/s", 0x02B4, 4, 6553600, GroundSpeed, 194},
      {"too fast", 0x02B4, 4, 4294967295, GroundSpeed, 194},
      {"128ths of a knot", 0x02B8, 4, 32000, Tas, 250},
      {"250.5", 0x02B8, 4, 32064, Tas, 250},
      {"251.5", 0x02B8, 4, 32192, Tas, 252},
      {"32767.49", 0x02B8, 4, 4194239, Tas, 32767},
      {"32767.5", 0x02B8, 4, 4194240, Tas, 32767},
      {"300", 0x02B8, 4, 38400, Tas, 300},
      {"32768", 0x02B8, 4, 4194304, Tas, 300},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeFlight, IasReadsZeroWhilePausedAndTheOtherSpeedsDoNot) {
  PolledServer sim;
  sim.bus.put(0x02B4, std::uint32_t{6553600});
  sim.bus.put(0x02B8, std::uint32_t{32000});
  EXPECT_EQ(sim.polled(0x02BC, std::uint32_t{32032}, &modPublic::Ias), 250.25F);
  EXPECT_EQ(sim.polled(0x0264, std::uint8_t{1}, &modPublic::Ias), 0);
  EXPECT_EQ(sim.store.Paused, 1);
  EXPECT_EQ(sim.store.Tas, 250);
  EXPECT_EQ(sim.store.GroundSpeed, 194);
  EXPECT_EQ(sim.polled(0x0264, std::uint8_t{0}, &modPublic::Ias), 250.25F);
}

TEST(DecodeFlight, VerticalSpeedAndTurnRateFoldAt65535) {
  constexpr auto VerticalSpeed = [](V v) -> double { return v.VerticalSpeed; };
  constexpr auto TurnRate = [](V v) -> double { return v.TurnRate; };
  constexpr DecodeCase Rows[] = {
      {"1 m/s", 0x02C8, 2, 256, VerticalSpeed, 196.8504F},
      {"highest", 0x02C8, 2, 32767, VerticalSpeed, 25196.082253125F},
      {"lowest", 0x02C8, 2, 32768, VerticalSpeed, -25196.082253125F},
      {"one below zero", 0x02C8, 2, 65534, VerticalSpeed, -0.768946875F},
      {"zero from below", 0x02C8, 2, 65535, VerticalSpeed, 0},
      {"right", 0x037C, 2, 32767, TurnRate, 32767},
      {"left", 0x037C, 2, 32768, TurnRate, -32767},
      {"zero from below", 0x037C, 2, 65535, TurnRate, 0},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeFlight, TemperaturesFoldAt65535) {
  constexpr auto Outside = [](V v) -> double { return v.OutsideAirTemp; };
  constexpr auto Total = [](V v) -> double { return v.TotalAirTemp; };
  constexpr DecodeCase Rows[] = {
      {"hottest", 0x0E8C, 2, 32767, Outside, 127.99609375},
      {"coldest", 0x0E8C, 2, 32768, Outside, -127.99609375},
      {"zero", 0x0E8C, 2, 65535, Outside, 0},
      {"hottest", 0x11D0, 2, 32767, Total, 127.99609375},
      {"coldest", 0x11D0, 2, 32768, Total, -127.99609375},
      {"-56.5", 0x11D0, 2, 51071, Total, -56.5},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeFlight, TheSlowTemperatureCreepsAndIsKeptFromPollToPoll) {
  PolledServer sim;
  EXPECT_EQ(sim.polled(0x11D0, std::uint16_t{25600}, &modPublic::TotalAirTempSlow), 0.002F);
  sim.poll();
  EXPECT_EQ(sim.store.TotalAirTempSlow, 0.00399996F);
}

TEST(DecodeFlight, TheBallIsSignedAndTurnsAt128) {
  constexpr auto Ball = [](V v) -> double { return v.TurnCoordinatorBall; };
  constexpr DecodeCase Rows[] = {{"", 0x036E, 1, 1, Ball, -1},
                                 {"", 0x036E, 1, 127, Ball, -127},
                                 {"", 0x036E, 1, 128, Ball, 127},
                                 {"", 0x036E, 1, 255, Ball, 0}};
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeFlight, PositionFoldsWithItsOwnConstants) {
  constexpr auto Latitude = [](V v) -> double { return v.Latitude; };
  constexpr auto Longitude = [](V v) -> double { return v.Longitude; };
  constexpr DecodeCase Rows[] = {
      {"north", 0x0564, 4, 5000875, Latitude, 45.0000098420298F},
      {"equator", 0x0564, 4, 0, Latitude, 0},
      {"above 90", 0x0564, 4, 4289966421, Latitude, 59.60544951999327F},
      {"east", 0x056C, 4, 536870912, Longitude, 45},
      {"west", 0x056C, 4, 3758096384, Longitude, -45},
      {"half-way round", 0x056C, 4, 2147483648, Longitude, -180},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeFlight, SouthernLatitudesFoldByAWholeCircleOf32Bits) {
  PolledServer sim;
  sim.store.SouthernLatitudes = true;
  const auto latitudeAt = [&sim](std::uint32_t raw) {
    return double{sim.polled(0x0564, raw, &modPublic::Latitude)};
  };
  EXPECT_FLOAT_EQ(static_cast<float>(latitudeAt(4289966421)), -45.0000098420298F);
  EXPECT_FLOAT_EQ(static_cast<float>(latitudeAt(5000875)), 45.0000098420298F);
}

TEST(DecodeFlight, AltitudeIsMetresAndTheirFractionAndFoldsAbove32767) {
  PolledServer sim;
  sim.bus.put(0x0570, std::uint32_t{0x80000000});
  constexpr auto Altitude = &modPublic::AircraftAltitude;
  EXPECT_DOUBLE_EQ(sim.polled(0x0574, std::uint32_t{1000}, Altitude), 3282.790575);
  EXPECT_DOUBLE_EQ(sim.polled(0x0574, std::uint32_t{0xFFFFFFFF}, Altitude), -1.640575);
  sim.bus.put(0x0570, std::uint32_t{0});
  EXPECT_DOUBLE_EQ(sim.polled(0x0574, std::uint32_t{32767}, Altitude), 107513.44205);
  EXPECT_DOUBLE_EQ(sim.polled(0x0574, std::uint32_t{32768}, Altitude), -14092324426.5472);
}

TEST(DecodeFlight, AltitudeOfTheOldestSimulatorIsWholeMetresIn16Bits) {
  PolledServer sim;
  sim.store.FsVersionCode = 1;
  sim.bus.put(0x0570, std::uint32_t{0x80000000});
  EXPECT_DOUBLE_EQ(sim.polled(0x0574, std::uint32_t{0x00011000}, &modPublic::AircraftAltitude),
                   13439.5904);
  EXPECT_DOUBLE_EQ(sim.polled(0x0574, std::uint32_t{0x00018000}, &modPublic::AircraftAltitude),
                   -14092324426.5472);
}

TEST(DecodeFlight, RadioAltitudeUsesOneFactorAboveSeaLevelAndAnotherBelow) {
  PolledServer sim;
  sim.bus.put(0x0574, std::uint32_t{1000});
  constexpr auto Height = &modPublic::RadioAltitude;
  EXPECT_EQ(sim.polled(0x0B4C, std::uint16_t{900}, Height), 328);
  EXPECT_EQ(sim.polled(0x0B4C, std::uint16_t{30000}, Height), -95153);
  EXPECT_EQ(sim.polled(0x0B4C, std::uint16_t{35536}, Height), 101706);
}

TEST(DecodeFlight, RadioAltitudeKeepsItsValueBeyond32Bits) {
  PolledServer sim;
  sim.bus.put(0x0B4C, std::uint16_t{900});
  EXPECT_EQ(sim.polled(0x0574, std::uint32_t{1000}, &modPublic::RadioAltitude), 328);
  EXPECT_EQ(sim.polled(0x0574, std::uint32_t{32768}, &modPublic::RadioAltitude), 328);
}

TEST(DecodeFlight, AttitudeUsesAllOfItsFullCircle) {
  constexpr auto Pitch = [](V v) -> double { return v.Pitch; };
  constexpr auto Bank = [](V v) -> double { return v.Bank; };
  constexpr auto Heading = [](V v) -> double { return v.TrueHeading; };
  constexpr DecodeCase Rows[] = {
      {"nose down", 0x0578, 4, 0x10000000, Pitch, -22.5},
      {"nose up", 0x0578, 4, 0xF0000000, Pitch, 22.5},
      {"just 90", 0x0578, 4, 0x40000000, Pitch, -90},
      {"upside down", 0x0578, 4, 0x80000000, Pitch, 180},
      {"bank stays unsigned", 0x057C, 4, 0xC0000000, Bank, 270},
      {"heading", 0x0580, 4, 0x80000000, Heading, 180},
      {"nearly round", 0x0580, 4, 0xFFFFFFFF, Heading, 360},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeFlight, MagneticHeadingStaysBetween0And360) {
  PolledServer sim;
  const auto heading = [&sim](std::uint32_t trueHeading, std::uint16_t variation) {
    sim.bus.put(0x02A0, variation);
    return sim.polled(0x0580, trueHeading, &modPublic::MagHeading);
  };
  EXPECT_EQ(heading(0x20000000, 4096), 22.5F);
  EXPECT_EQ(heading(0x10000000, 8192), 337.5F);
  EXPECT_EQ(heading(0xF0000000, 57344), 22.5F);
  EXPECT_EQ(heading(0xE0000000, 57344), 360);
}

TEST(DecodeFlight, GrossWeightRoundsHalfToEvenAndKeepsItsValueOnFaults) {
  constexpr auto GrossWeight = [](V v) -> double { return v.GrossWeight; };
  constexpr DecodeCase Rows[] = {
      {"", 0x30C0, 8, 150000.5, GrossWeight, 150000},
      {"", 0x30C0, 8, 150001.5, GrossWeight, 150002},
      {"", 0x30C0, 8, 2147483648.0, GrossWeight, 150002},
      {"", 0x30C0, 8, NAN, GrossWeight, 150002},
      {"", 0x30C0, 8, -HUGE_VAL, GrossWeight, 150002},
      {"", 0x30C0, 8, 2147483647.0, GrossWeight, 2147483647},
  };
  PolledServer sim;
  expectDecoded(sim, Rows);
}

TEST(DecodeFlight, SixteenBitsOverflowKeepsTheValue) {
  constexpr auto OnGround = [](V v) -> double { return v.OnGround; };
  constexpr auto Word378 = [](V v) -> double { return v.Word378; };
  constexpr DecodeCase Rows[] = {{"", 0x0366, 2, 32767, OnGround, 32767},
                                 {"", 0x0366, 2, 32768, OnGround, 32767},
                                 {"", 0x0378, 2, 5, Word378, 5},
                                 {"", 0x0378, 2, 65535, Word378, 5}};
  PolledServer sim;
  expectDecoded(sim, Rows);
}

}  // namespace
}  // namespace vorlent
