// What the instruments of the built-in aircraft show, to which side and of which size.

#include <gtest/gtest.h>

#include <cmath>

#include "LinkedAircraft.h"

namespace vorlent {
namespace {

class Instruments : public testing::Test {
 protected:
  FlightSample after(double seconds) {
    linked.fly(seconds);
    return linked.sample();
  }
  void set(std::size_t offset, int value) {
    linked.memory.write(offset, static_cast<std::int16_t>(value));
  }
  int ball() const { return linked.memory.read<std::int8_t>(0x036E); }

  LinkedAircraft linked;
};

// Rolled into a turn without rudder the aircraft slips towards the lower wing; rudder alone skids
// it outwards.
TEST_F(Instruments, TheBallFallsIntoTheSlipAndOutOfTheSkid) {
  set(0x0BB6, 3000);
  after(4);
  EXPECT_GT(ball(), 10);
  EXPECT_LT(linked.polled().TurnCoordinatorBall, -10);
  linked.restart(StartingState::Level);
  set(0x0BB6, -3000);
  after(4);
  EXPECT_LT(ball(), -10);
  EXPECT_GT(linked.polled().TurnCoordinatorBall, 10);
  linked.restart(StartingState::Level);
  set(0x0BBA, 5000);
  after(2);
  EXPECT_LT(ball(), -10);
  linked.restart(StartingState::Level);
  EXPECT_EQ(after(2).turnRate_deg_s, 0);
  EXPECT_EQ(ball(), 0);
}

// A dead engine lets the ball fall to the other side: "step on the ball".
TEST_F(Instruments, TheBallFallsAwayFromADeadEngine) {
  set(0x0890, 0);
  after(8);
  EXPECT_GT(ball(), 5);
  EXPECT_LT(linked.sample().turnRate_deg_s, -0.2);
}

// In a bank of 20 to 30 degrees at 268 knots g tan(bank) / V is 1.5 to 2.3 degrees a second.
TEST_F(Instruments, TheTurnRateGoesWithTheHeading) {
  set(0x0BB6, 6000);
  while (linked.sample().bankRight_deg < 22) after(0.05);
  set(0x0BB6, 0);
  const FlightSample turning = after(6);
  EXPECT_GT(turning.turnRate_deg_s, 1.2);
  EXPECT_LT(turning.turnRate_deg_s, 2.4);
  const double mean_deg_s = (after(2).heading_deg - turning.heading_deg) / 2;
  EXPECT_NEAR(mean_deg_s, turning.turnRate_deg_s, 0.15);
}

// Raw: nose up and right wing down count backwards from the full turn.
TEST_F(Instruments, NoseUpAndRightWingDownAreNegative) {
  set(0x0BB2, 1500);
  set(0x0BB6, 3000);
  after(2);
  EXPECT_LT(linked.memory.read<std::int32_t>(0x0578), 0);
  EXPECT_LT(linked.memory.read<std::int32_t>(0x057C), 0);
  EXPECT_GT(linked.polled().Pitch, 4);
  EXPECT_GT(linked.polled().Bank, 300);
}

// Standard atmosphere at 35000 feet: 218.81 K, 296.53 m/s. Mach 0.78 is 449.6 knots, or 264.4
// calibrated, and heats by 0.2 x 0.6084 x 218.81 K = 26.62. The barber pole is Mach 0.82.
TEST_F(Instruments, InCruiseTheSpeedsAndTemperaturesBelongTogether) {
  linked.restart(StartingState::Cruise);
  const modPublic& v = linked.polled();
  EXPECT_NEAR(v.Mach, 0.78, 0.0001);
  EXPECT_NEAR(v.Tas, 449.6, 0.5);
  EXPECT_NEAR(v.Ias, 264.4, 0.1);
  EXPECT_NEAR(v.BarberPole, 279.5, 0.1);
  EXPECT_NEAR(v.OutsideAirTemp, -54.34, 0.01);
  EXPECT_NEAR(v.TotalAirTemp, -27.72, 0.01);
  EXPECT_EQ(v.GroundSpeed, v.Tas);
  // 59607.3 kg
  EXPECT_NEAR(v.GrossWeight, 131412, 2);
  EXPECT_NEAR(v.GForce, 1, 0.01);
}

// Near the ground 20 knots, 1.7995 times as much above: 36. They come 30 degrees from the right of
// the nose: 31.2 from ahead and 18 from the side leave 237.9 of 268.4.
TEST_F(Instruments, AWindFromTheRightOfTheNoseSlowsAndDriftsToTheLeft) {
  TwinJet::Settings settings;
  settings.wind.from_deg = 270;
  settings.wind.speed_kt = 20;
  linked.aircraft.emplace(linked.memory, settings);
  linked.fly(1);
  const modPublic& v = linked.polled();
  EXPECT_NEAR(v.WindDirection, 270, 0.01);
  EXPECT_NEAR(v.WindSpeedKt, 36, 0.5);
  EXPECT_NEAR(v.Tas, 268, 1);
  EXPECT_NEAR(v.GroundSpeed, 238, 1);
  const FlightSample first = linked.sample();
  const FlightSample later = after(30);
  EXPECT_NEAR(bearing_deg({first.latitude_deg, first.longitude_deg},
                          {later.latitude_deg, later.longitude_deg}),
              240 - 4.3, 0.2);
}

// The height that the server makes of altitude and ground is that of the centre of gravity: 9.3
// feet on its wheels, whole feet shown.
TEST_F(Instruments, OnTheGroundTheHeightIsThatOfTheCentreOfGravity) {
  linked.restart(StartingState::Runway);
  after(5);
  EXPECT_NEAR(linked.polled().RadioAltitude, 9, 1);
  EXPECT_EQ(linked.polled().OnGround, 1);
  EXPECT_EQ(linked.polled().VerticalSpeed, 0);
}

// The limits of the CFM56-7B: 950 degrees at take-off, N1 104 and N2 105 percent. The ICAO databank
// has 1.103 kg/s at rated thrust, 0.109 at 7 percent of it.
TEST_F(Instruments, EnginesShowThePowerThatTheyGive) {
  linked.restart(StartingState::Runway);
  const modPublic& v = linked.polled();
  EXPECT_NEAR(v.Engines(1).N2, 61.8, 0.5);
  EXPECT_GT(v.Engines(1).Egt, 350);
  EXPECT_LT(v.Engines(1).Egt, 500);
  EXPECT_LT(v.Engines(1).FuelFlow, 0.109 * 3600 / 0.45359237);
  EXPECT_GT(v.Engines(1).OilTemp, 40);
  EXPECT_NEAR(v.Engines(1).OilPressure, 34, 1);
  EXPECT_EQ(v.Engines(1).OilQuantity, 85);
  EXPECT_EQ(v.Engines(1).HydQuantity, 88);
  const double idleEpr = v.Engines(1).Epr;
  for (const std::size_t lever : {0x088CU, 0x0924U}) set(lever, 16383);
  linked.fly(20);
  linked.polled();
  for (int n = 1; n <= 2; ++n) {
    const auto& engine = v.Engines(n);
    EXPECT_GT(engine.N1, 95);
    EXPECT_LT(engine.N1, 104);
    EXPECT_GT(engine.N2, 95);
    EXPECT_LT(engine.N2, 105);
    EXPECT_GT(engine.Egt, 700);
    EXPECT_LT(engine.Egt, 950);
    EXPECT_NEAR(engine.Itt, engine.Egt, 1);
    EXPECT_NEAR(engine.FuelFlow, 1.103 * 3600 / 0.45359237, 300);
    EXPECT_GT(engine.Epr, idleEpr + 0.4);
    EXPECT_GT(engine.OilPressure, 45);
    EXPECT_GT(engine.Vibration, 0.2);
    EXPECT_LT(engine.Vibration, 5);
  }
}

// In the -54.3 degrees of 35000 feet, -65.8 Fahrenheit, an engine that is out cools down to where
// the word of older simulators, Fahrenheit without a sign, has no number for it.
TEST_F(Instruments, AnEngineThatIsOutInTheColdOfCruiseShowsItAndTheFlightGoesOn) {
  linked.restart(StartingState::Cruise);
  set(0x0890, 0);
  after(30);
  const modPublic& v = linked.polled();
  EXPECT_LT(v.Engines(1).Egt, -45);
  EXPECT_NEAR(v.Engines(1).Egt, v.OutsideAirTemp, 2);
  EXPECT_EQ(linked.memory.read<std::uint16_t>(0x08BE), 0);
  EXPECT_GT(v.Engines(2).Egt, 500);
}

}  // namespace
}  // namespace vorlent
