// The aircraft moved by hand: what somebody writes to place, altitude and attitude.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "../FlightSample.h"
#include "simulator/dynamics/TwinJet.h"

namespace vorlent {
namespace {

class Slewing : public testing::Test {
 protected:
  void startAs(StartingState state) {
    TwinJet::Settings settings;
    settings.start = state;
    aircraft.emplace(memory, settings);
  }
  void slew(bool on) { memory.write<std::uint8_t>(0x05DC, on ? 1 : 0); }
  FlightSample after(double seconds) {
    for (double t = 0; t < seconds; t += 0.05) aircraft->step(0.05);
    return sampleOf(memory);
  }

  OffsetMemory memory;
  std::optional<TwinJet> aircraft;
};

TEST_F(Slewing, MovingInOneWayLeavesItWhereItIsInTheOthers) {
  startAs(StartingState::Final);
  const FlightSample before = sampleOf(memory);
  slew(true);
  after(0.05);
  memory.write<std::int32_t>(0x0574, 1500);
  const FlightSample high = after(0.05);
  EXPECT_NEAR(high.altitude_m, 1500, 1);
  EXPECT_NEAR(high.latitude_deg, before.latitude_deg, 1e-6);
  EXPECT_NEAR(high.longitude_deg, before.longitude_deg, 1e-6);
  EXPECT_NEAR(high.pitchUp_deg, before.pitchUp_deg, 1e-6);
  EXPECT_NEAR(high.bankRight_deg, 0, 1e-6);
  memory.write<std::int32_t>(0x057C, 1 << 27);  // 11.25 degrees to the left
  const FlightSample banked = after(0.05);
  EXPECT_NEAR(banked.bankRight_deg, -11.25, 1e-6);
  EXPECT_NEAR(banked.heading_deg, before.heading_deg, 1e-6);
  EXPECT_NEAR(banked.longitude_deg, before.longitude_deg, 1e-6);
}

// 30 degrees south are a third of -10001750 m; 90 degrees west are -2^62.
TEST_F(Slewing, ItGoesToAnyPlaceOfTheEarth) {
  startAs(StartingState::Level);
  slew(true);
  after(0.05);
  memory.write<std::int32_t>(0x0564, -3333917);
  memory.write<std::int64_t>(0x0568, -(std::int64_t{1} << 62));
  FlightSample s = after(0.05);
  EXPECT_NEAR(s.latitude_deg, -30, 1e-5);
  EXPECT_NEAR(s.longitude_deg, -90, 1e-6);
  EXPECT_NEAR(s.altitude_m, 1524, 0.1);
  slew(false);
  s = after(60);
  EXPECT_NEAR(s.altitude_m, 1524, 30);
  EXPECT_NEAR(s.heading_deg, 240, 1);
}

TEST_F(Slewing, LiftedOffTheRunwayItIsInTheAirAndPutIntoTheGroundItStandsOnIt) {
  startAs(StartingState::Runway);
  after(1);
  const double standing_m = sampleOf(memory).altitude_m;
  slew(true);
  after(0.05);
  memory.write<std::int32_t>(0x0574, 500);
  EXPECT_FALSE(after(0.05).onGround);
  memory.write<std::int32_t>(0x0574, -200);
  const FlightSample put = after(0.05);
  EXPECT_TRUE(put.onGround);
  EXPECT_NEAR(put.altitude_m, standing_m, 0.05);
  slew(false);
  for (int i = 0; i < 100; ++i) {
    const FlightSample s = after(0.05);
    ASSERT_NEAR(s.altitude_m, standing_m, 0.1) << i;
    ASSERT_NEAR(s.load, 1, 0.3) << i;
  }
}

TEST_F(Slewing, FromTheEndsOfItsOffsetsItFallsWithinThem) {
  constexpr auto most = std::numeric_limits<std::int64_t>::max();
  constexpr auto least = std::numeric_limits<std::int64_t>::min();
  for (const std::int64_t altitude : {most, least})
    for (const std::int64_t place : {most, least})
      for (const std::int32_t attitude : {0, 1 << 30, -(1 << 30), 1 << 28}) {
        startAs(StartingState::Cruise);
        slew(true);
        after(0.05);
        memory.write(0x0560, place);
        memory.write(0x0568, place);
        memory.write(0x0570, altitude);
        memory.write(0x0578, attitude);
        memory.write(0x057C, attitude);
        ASSERT_NO_THROW(after(0.05));
        EXPECT_LE(sampleOf(memory).altitude_m, 20000.1);
        EXPECT_LE(std::fabs(sampleOf(memory).latitude_deg), 90);
        slew(false);
        ASSERT_NO_THROW(after(120)) << altitude << " " << place << " " << attitude;
      }
}

}  // namespace
}  // namespace vorlent
