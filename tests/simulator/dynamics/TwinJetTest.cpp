#include "simulator/dynamics/TwinJet.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <optional>
#include <random>
#include <string>

#include "../FlightSample.h"
#include "../ShippedStations.h"
#include "Flying.h"

namespace vorlent {
namespace {

/// The built-in aircraft as somebody at the offsets sees it.
class TwinJetTest : public testing::Test {
 protected:
  void startAs(StartingState state) {
    TwinJet::Settings settings;
    settings.start = state;
    settings.stations = shippedStations();
    aircraft.emplace(memory, settings);
  }
  FlightSample after(double seconds) {
    for (double t = 0; t < seconds; t += 0.05) aircraft->step(0.05);
    return sampleOf(memory);
  }
  std::string textAt(std::size_t at) const {
    std::string found;
    for (; memory.read<char>(at) != 0; ++at) found += memory.read<char>(at);
    return found;
  }
  void write16(std::size_t at, int value) {
    memory.write<std::int16_t>(at, static_cast<std::int16_t>(value));
  }

  OffsetMemory memory;
  std::optional<TwinJet> aircraft;
};

TEST_F(TwinJetTest, ANewcomerFindsItInSteadyFlight) {
  startAs(StartingState::Level);
  const FlightSample s = after(60);
  EXPECT_NEAR(s.altitude_m, 1524, 30);
  EXPECT_NEAR(s.indicated_kt, 250, 2);
  EXPECT_NEAR(s.bankRight_deg, 0, 0.5);
  EXPECT_FALSE(s.onGround);
  EXPECT_EQ(memory.read<std::uint8_t>(0x0889), 3);
}

TEST_F(TwinJetTest, YokeAndTrimMoveItTheWayTheyPoint) {
  startAs(StartingState::Level);
  write16(0x0BB6, 3000);
  EXPECT_GT(after(2).bankRight_deg, 1);
  startAs(StartingState::Level);
  memory.write<double>(0x2EB0, -0.05);
  EXPECT_LT(after(2).bankRight_deg, -1);
  startAs(StartingState::Level);
  const double level_deg = sampleOf(memory).pitchUp_deg;
  write16(0x0BC0, memory.read<std::int16_t>(0x0BC0) + 1000);
  EXPECT_GT(after(3).pitchUp_deg, level_deg + 1);
  startAs(StartingState::Level);
  write16(0x0BB2, -1500);
  EXPECT_LT(after(3).pitchUp_deg, level_deg - 1);
}

/// A plain law of twenty steps a second that has nothing but the trims and the levers: 0.4 degrees
/// of aileron a degree of bank; stabiliser by pitch, pitch by climb, climb by height; levers by
/// speed.
void flyTurnByTrims(const PlantData& plant) {
  OffsetMemory memory;
  TwinJet::Settings settings;
  settings.plant = &plant;
  TwinJet aircraft(memory, settings);
  const double pitch_deg = sampleOf(memory).pitchUp_deg;
  double base = memory.read<std::int16_t>(0x0BC0);
  double lever = memory.read<std::int16_t>(0x088C);
  double before_deg = pitch_deg;
  double before_kt = 250;
  for (int i = 0; i < 20 * 90; ++i) {
    const FlightSample s = sampleOf(memory);
    const double bank_deg = std::clamp(330 - s.heading_deg, -20.0, 20.0);
    memory.write<double>(0x2EB0, 0.4 * (bank_deg - s.bankRight_deg) * 0.0174533);
    const double climb_m_s = std::clamp(0.1 * (1524 - s.altitude_m), -5.0, 5.0);
    const double wanted_deg = pitch_deg + 0.4 * (climb_m_s - s.verticalSpeed_m_s);
    const double error_deg = wanted_deg - s.pitchUp_deg;
    base += 15 * error_deg;
    const double rate_deg_s = (s.pitchUp_deg - before_deg) * 20;
    memory.write<std::int16_t>(
        0x0BC0, static_cast<std::int16_t>(
                    std::clamp(base + 200 * error_deg - 150 * rate_deg_s, -16383.0, 16383.0)));
    lever += 1.5 * (250 - s.indicated_kt) - 500 * (s.indicated_kt - before_kt);
    lever = std::clamp(lever, 0.0, 16383.0);
    for (const std::size_t at : {0x088Cu, 0x0924u})
      memory.write<std::int16_t>(at, static_cast<std::int16_t>(lever));
    before_deg = s.pitchUp_deg;
    before_kt = s.indicated_kt;
    aircraft.step(0.05);
    ASSERT_NEAR(s.altitude_m, 1524, 45) << plant.name << " after " << i / 20.0;
    ASSERT_NEAR(s.indicated_kt, 250, 12) << plant.name << " after " << i / 20.0;
  }
  EXPECT_NEAR(sampleOf(memory).heading_deg, 330, 3) << plant.name;
  EXPECT_NEAR(sampleOf(memory).bankRight_deg, 0, 3) << plant.name;
}

TEST_F(TwinJetTest, TrimsAndLeversAloneFlyALevelTurn) {
  for (const PlantData* plant : {&plant737(), &plantHeavyTwin()}) flyTurnByTrims(*plant);
}

TEST_F(TwinJetTest, OnFinalItHearsItsIlsAndComesUpToTheGlidePathOnTheCourse) {
  startAs(StartingState::Final);
  EXPECT_EQ(textAt(0x3000), "IVR");
  EXPECT_EQ(memory.read<std::int8_t>(0x0C48), 0);
  EXPECT_EQ(memory.read<std::uint8_t>(0x0C4A), 0x82);
  EXPECT_EQ(textAt(0x0C29), "10.2");  // 10 miles, 291 m to the antenna and 3000 feet high
  EXPECT_EQ(memory.read<std::uint16_t>(0x0870), 10922);  // 60 / 360 of 65535
  EXPECT_EQ(textAt(0x301F), "NWD");
  EXPECT_EQ(textAt(0x303E), "VR");
  EXPECT_NEAR(std::remainder(memory.read<std::uint16_t>(0x0C6A) / 65536.0, 1.0), 0, 0.001);
  after(5);
  // 914 m, less 26 for the earth's curve, are 2.77 degrees high 18.4 km away.
  EXPECT_EQ(memory.read<std::uint8_t>(0x0C4C), 1);
  EXPECT_NEAR(memory.read<std::int8_t>(0x0C49), -42, 3);
  after(25);
  EXPECT_NEAR(memory.read<std::int8_t>(0x0C49), 27, 4);  // 3.15 degrees, 16.2 km away
  EXPECT_NEAR(memory.read<std::int8_t>(0x0C48), 0, 3);
}

TEST_F(TwinJetTest, OnTheRunwayTheLocaliserIsCentredAndTheGlidePathFlagged) {
  startAs(StartingState::Runway);
  EXPECT_EQ(memory.read<std::int8_t>(0x0C48), 0);
  EXPECT_EQ(memory.read<std::uint8_t>(0x0C4A), 0x82);
  EXPECT_EQ(memory.read<std::uint8_t>(0x0C4C), 0);
  EXPECT_EQ(textAt(0x0C2E), "000.");
}

TEST_F(TwinJetTest, LeversMoveTheirOwnEngine) {
  startAs(StartingState::Level);
  write16(0x088C, 16383);
  after(10);
  EXPECT_GT(memory.read<std::uint16_t>(0x0898), 0.95 * 16384);
  EXPECT_LT(memory.read<std::uint16_t>(0x0930), 0.75 * 16384);
}

TEST_F(TwinJetTest, RudderTrimYaws) {
  startAs(StartingState::Level);
  memory.write<double>(0x2EC0, 0.1);
  EXPECT_GT(after(3).heading_deg, 240.2);
}

TEST_F(TwinJetTest, ATrimThatIsNotANumberCountsAsZero) {
  startAs(StartingState::Level);
  memory.write<double>(0x2EB0, std::nan(""));
  EXPECT_NEAR(after(5).bankRight_deg, 0, 0.1);
}

TEST_F(TwinJetTest, ThePauseFlagHoldsIt) {
  startAs(StartingState::Cruise);
  after(1);
  const auto place = memory.read<std::int64_t>(0x0560);
  memory.write<std::uint8_t>(0x0264, 1);
  after(10);
  EXPECT_EQ(memory.read<std::int64_t>(0x0560), place);
}

TEST_F(TwinJetTest, HowTimeIsCutDoesNotChangeTheFlight) {
  startAs(StartingState::Final);
  write16(0x0BB6, 1000);
  for (int i = 0; i < 10; ++i) aircraft->step(1);
  OffsetMemory other;
  TwinJet::Settings settings;
  settings.start = StartingState::Final;
  TwinJet cut(other, settings);
  other.write<std::int16_t>(0x0BB6, 1000);
  for (int i = 0; i < 1000; ++i) cut.step(0.01);
  EXPECT_EQ(memory.read<std::int64_t>(0x0560), other.read<std::int64_t>(0x0560));
  EXPECT_EQ(memory.read<std::uint32_t>(0x057C), other.read<std::uint32_t>(0x057C));
}

TEST_F(TwinJetTest, ColdItIsStartedByBatteryStarterAndStartLever) {
  startAs(StartingState::Cold);
  memory.write<std::uint8_t>(0x0892, 4);
  after(5);
  EXPECT_EQ(memory.read<std::uint16_t>(0x0896), 0);
  memory.write<std::uint8_t>(0x281C, 1);
  after(25);
  EXPECT_NEAR(memory.read<std::uint16_t>(0x0896) / 163.84, 24, 2);
  EXPECT_EQ(memory.read<std::uint16_t>(0x0894), 0);
  write16(0x0890, 16383);
  after(40);
  EXPECT_EQ(memory.read<std::uint16_t>(0x0894), 1);
  EXPECT_EQ(memory.read<std::uint8_t>(0x0889), 1);
  EXPECT_NEAR(memory.read<std::uint16_t>(0x0898) / 163.84, 21.5, 1);
}

TEST_F(TwinJetTest, TheParkingBrakeHoldsItAndItsReleaseLetsItRoll) {
  startAs(StartingState::Runway);
  write16(0x088C, 5000);
  write16(0x0924, 5000);
  EXPECT_LT(after(15).groundSpeed_m_s, 0.1);
  memory.write<std::uint16_t>(0x0BC8, 0);
  EXPECT_GT(after(15).groundSpeed_m_s, 5);
  write16(0x088C, 0);
  write16(0x0924, 0);
  write16(0x0BC4, 32767);
  write16(0x0BC6, 32767);
  EXPECT_LT(after(15).groundSpeed_m_s, 0.1);
}

TEST_F(TwinJetTest, ArmedSpoilersRiseWhenItRollsAtIdleAndFallWithThrust) {
  startAs(StartingState::Runway);
  memory.write<std::uint16_t>(0x0BC8, 0);
  write16(0x088C, 16383);
  write16(0x0924, 16383);
  EXPECT_GT(after(25).groundSpeed_m_s, 35);
  write16(0x088C, 0);
  write16(0x0924, 0);
  after(1);
  EXPECT_EQ(memory.read<std::uint32_t>(0x0BD0), 0u);
  memory.write<std::uint8_t>(0x0BCC, 1);
  EXPECT_GT(after(3).spoilers, 16000);
  EXPECT_EQ(memory.read<std::uint32_t>(0x0BD0), 16383u);
  EXPECT_EQ(memory.read<std::uint8_t>(0x0BCC), 0);
  write16(0x088C, 8000);
  EXPECT_LT(after(3).spoilers, 100);
}

// 60 knots from behind, with severe gusts up and down, on an aircraft that may roll.
TEST_F(TwinJetTest, AStormFromBehindDoesNotTurnItOver) {
  TwinJet::Settings settings;
  settings.start = StartingState::Cold;
  settings.wind.from_deg = 60;
  settings.wind.speed_kt = 60;
  settings.wind.turbulence = Turbulence::Severe;
  aircraft.emplace(memory, settings);
  memory.write<std::uint16_t>(0x0BC8, 0);
  for (int i = 0; i < 120; ++i) {
    const FlightSample s = after(1);
    ASSERT_TRUE(s.onGround) << i;
    ASSERT_NEAR(s.bankRight_deg, 0, 5) << i;
    ASSERT_NEAR(s.pitchUp_deg, 0, 3) << i;
  }
}

TEST_F(TwinJetTest, WithItsGearUpItSlidesOnItsBellyAndStops) {
  startAs(StartingState::Runway);
  memory.write<std::uint16_t>(0x0BC8, 0);
  write16(0x088C, 16383);
  write16(0x0924, 16383);
  after(20);
  write16(0x0890, 0);
  write16(0x0928, 0);
  memory.write<std::uint32_t>(0x0BE8, 0);
  const FlightSample s = after(60);
  EXPECT_TRUE(s.onGround);
  EXPECT_LT(s.groundSpeed_m_s, 0.5);
  EXPECT_NEAR(s.altitude_m - 20, 2.3, 0.4);
}

/// Whatever somebody does with the controls, what the aircraft shows fits its offsets.
TEST_F(TwinJetTest, AnyControlsKeepItWithinItsOffsets) {
  std::mt19937 random(5);
  const auto anything = [&random](int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
  };
  for (int flight = 0; flight < 12; ++flight) {
    startAs(flight % 2 == 0 ? StartingState::Final : StartingState::Cruise);
    for (int i = 0; i < 40; ++i) {
      for (const std::size_t at : {0x0BB2u, 0x0BB6u, 0x0BBAu, 0x0BC0u})
        write16(at, anything(-16383, 16383));
      for (const std::size_t at : {0x088Cu, 0x0924u}) write16(at, anything(-4096, 16383));
      write16(0x0BDC, anything(0, 16383));
      write16(0x0BE8, anything(0, 1) * 16383);
      write16(0x0BD0, anything(0, 16383));
      ASSERT_NO_THROW(after(3));
      ASSERT_GE(sampleOf(memory).altitude_m, 19.9);
    }
  }
}

TEST_F(TwinJetTest, RudderSteersItOnTheGround) {
  startAs(StartingState::Runway);
  memory.write<std::uint16_t>(0x0BC8, 0);
  write16(0x088C, 3500);
  write16(0x0924, 3500);
  after(10);
  write16(0x0BBA, 6000);
  EXPECT_GT(after(5).heading_deg, 245);
}

TEST_F(TwinJetTest, FuelIsBurnedFromTheCentreFirst) {
  startAs(StartingState::Cruise);
  const double before_lb = sampleOf(memory).fuel_lb;
  const auto main = memory.read<std::uint32_t>(0x0B7C);
  const auto centre = memory.read<std::uint32_t>(0x0B74);
  const FlightSample s = after(60);
  EXPECT_EQ(memory.read<std::uint32_t>(0x0B7C), main);
  EXPECT_LT(memory.read<std::uint32_t>(0x0B74), centre);
  // The type burns 2100 to 2600 kilograms an hour.
  EXPECT_GT(before_lb - s.fuel_lb, 2100 / 0.45359237 / 60);
  EXPECT_LT(before_lb - s.fuel_lb, 2600 / 0.45359237 / 60);
}

TEST_F(TwinJetTest, WithoutFuelTheEnginesGoOut) {
  startAs(StartingState::Cruise);
  for (const std::size_t tank : {0x0B74u, 0x0B7Cu, 0x0B94u}) memory.write<std::uint32_t>(tank, 0);
  after(5);
  EXPECT_EQ(memory.read<std::uint8_t>(0x0889), 0);
}

// A client writes the highest byte first, a request for each; the engines draw from the left tank
// in between.
TEST_F(TwinJetTest, ALevelThatComesByteByByteInFlightArrivesWhole) {
  for (const std::uint32_t level : {0x00800000u, 0x00400000u, 0x00123456u}) {
    startAs(StartingState::Level);
    memory.write<std::uint8_t>(0x0AF8, 2);
    after(1);
    for (const unsigned byte : {3u, 2u, 1u, 0u}) {
      memory.write(0x0B7C + byte, static_cast<std::uint8_t>(level >> (8 * byte)));
      aircraft->step(0.02);
    }
    EXPECT_EQ(memory.read<std::uint32_t>(0x0B7C), level);
    const double written_lb = sampleOf(memory).fuel_lb;
    const double weight_lb = sampleOf(memory).weight_lb;
    const FlightSample s = after(10);
    // 2930 pounds an hour and engine are 16 in ten seconds.
    EXPECT_NEAR(written_lb - s.fuel_lb, 16, 2) << level;
    EXPECT_NEAR(weight_lb - s.weight_lb, 16, 2) << level;
  }
}

// Told, not asserted: it depends on the machine and on the build.
TEST_F(TwinJetTest, TellsHowFastItRuns) {
  TwinJet::Settings settings;
  settings.wind.turbulence = Turbulence::Moderate;
  aircraft.emplace(memory, settings);
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 3000; ++i) aircraft->step(0.02);
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
  report("speed of the whole aircraft over real time", 60 / took.count(), "x");
  EXPECT_EQ(sampleOf(memory).utc_s, 12 * 3600 + 60);
}

TEST_F(TwinJetTest, EveryPlantStartsInEveryState) {
  for (const PlantData* plant : {&plant737(), &plantHeavyTwin()})
    for (const char* name : {"cold", "runway", "level", "cruise", "final"}) {
      TwinJet::Settings settings;
      settings.plant = plant;
      settings.start = *startingStateNamed(name);
      OffsetMemory own;
      TwinJet flown(own, settings);
      flown.step(5);
      EXPECT_NEAR(sampleOf(own).bankRight_deg, 0, 0.1) << name;
    }
  EXPECT_FALSE(startingStateNamed("hot"));
  EXPECT_EQ(plantNamed("737-700"), &plant737());
  EXPECT_EQ(plantNamed("heavy-twin"), &plantHeavyTwin());
  EXPECT_EQ(plantNamed("glider"), nullptr);
}

}  // namespace
}  // namespace vorlent
