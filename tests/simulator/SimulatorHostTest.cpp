#include "simulator/SimulatorHost.h"

#include <gtest/gtest.h>

#include "simulator/RequestBlock.h"

namespace vorlent {
namespace {

struct CountingAircraft : Aircraft {
  void step(double dt_s) override { flown_s += dt_s; }
  AircraftState state() const override { return {}; }
  double flown_s = 0;
};

class SimulatorHostTest : public testing::Test {
 protected:
  SimulatorHost host(const SimulatorHost::Options& options) {
    return {memory, aircraft, options, [](const std::string&) {}};
  }

  OffsetMemory memory;
  CountingAircraft aircraft;
};

TEST_F(SimulatorHostTest, SaysVersion4950OfFsuipcInFsx) {
  host({});
  EXPECT_EQ(memory.read<std::uint32_t>(0x3304), 0x49500000u);
  EXPECT_EQ(memory.read<std::uint32_t>(0x3308), 0xFADE0008u);
  EXPECT_EQ(memory.read<std::uint8_t>(0x6FFF), 0);
}

TEST_F(SimulatorHostTest, AsXPlaneTheMarkIsNotZero) {
  host({.asXPlane = true});
  EXPECT_NE(memory.read<std::uint8_t>(0x6FFF), 0);
}

TEST_F(SimulatorHostTest, IsReadyAtOnceWhenNothingElseIsAsked) {
  host({});
  EXPECT_EQ(memory.read<std::uint8_t>(0x3364), 0);
}

TEST_F(SimulatorHostTest, IsNotReadyForAsLongAsAsked) {
  SimulatorHost slow = host({.notReady_s = 1.5});
  EXPECT_EQ(memory.read<std::uint8_t>(0x3364), 1);
  slow.advance(1.0);
  EXPECT_EQ(memory.read<std::uint8_t>(0x3364), 1);
  slow.advance(0.5);
  EXPECT_EQ(memory.read<std::uint8_t>(0x3364), 0);
}

TEST_F(SimulatorHostTest, FlightTimeIsRealTimeTimesTheSpeed) {
  SimulatorHost fast = host({.speed = 10});
  for (int i = 0; i < 50; ++i) fast.advance(0.02);
  EXPECT_NEAR(aircraft.flown_s, 10, 1e-9);
}

TEST_F(SimulatorHostTest, ALongHoldUpCountsAsOneSecond) {
  host({}).advance(3600);
  EXPECT_EQ(aircraft.flown_s, 1);
}

TEST_F(SimulatorHostTest, AnswersRequestsFromTheMemory) {
  SimulatorHost simulator = host({});
  RequestBlock block;
  const std::size_t data = block.read(0x3308, 2);
  block.close();
  EXPECT_EQ(simulator.answer(block.bytes()), 1);
  EXPECT_EQ(block.at(data, 2), (std::vector<std::uint8_t>{0x08, 0x00}));
}

}  // namespace
}  // namespace vorlent
