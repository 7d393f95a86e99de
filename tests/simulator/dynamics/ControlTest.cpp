#include <gtest/gtest.h>

#include "Flying.h"
#include "simulator/dynamics/TrimSolver.h"

namespace vorlent {
namespace {

/// The mean angle of attack over whole phugoids is where the aircraft settles.
double settledAttack_deg(const PlantData& plant, double trim) {
  Flying flight(StartingState::Level, plant);
  flight.controls.elevatorTrim = trim;
  flight.fly(20);
  double sum_deg = 0;
  for (int i = 0; i < 200; ++i) {
    flight.fly(1);
    sum_deg += flight.state.angleOfAttack_deg;
  }
  return sum_deg / 200;
}

// A unit of the type's 17 is 2 / 17 of the travel, so this is a third of one a step, over three.
TEST(Control, EachStepOfTrimGivesMorePitch) {
  for (const PlantData* plant : {&plant737(), &plantHeavyTwin()}) {
    double before_deg = -90;
    for (int step = 0; step < 9; ++step) {
      const double trim = -0.54 + 0.04 * step;
      const double attack_deg = settledAttack_deg(*plant, trim);
      EXPECT_GT(attack_deg, before_deg + 0.5) << plant->name << " " << trim;
      before_deg = attack_deg;
    }
  }
}

// Level flight at 5000 feet, slower and slower, in the 737-700's three ways to be flown.
TEST(Control, SlowerLevelFlightTakesMoreTrimAndMorePitch) {
  struct Setting {
    double detent, fast_kt, slow_kt;
  };
  constexpr double altitude_m = 5000 * 0.3048;
  const Air air = standardAir(altitude_m);
  for (const PlantData* plant : {&plant737(), &plantHeavyTwin()}) {
    const MassProperties mass = massProperties(plant->mass, 0, ordinaryFuel);
    for (const auto& [detent, fast_kt, slow_kt] :
         {Setting{0, 330, 210}, Setting{3, 220, 160}, Setting{7, 165, 135}}) {
      TrimResult before{-90, -1, 0};
      for (double speed_kt = fast_kt; speed_kt >= slow_kt; speed_kt -= 5) {
        const double mach = machOfCalibrated(speed_kt * 1852 / 3600, air.pressure_Pa);
        const TrimPoint point{altitude_m, mach * air.soundSpeed_m_s, detent, detent > 5};
        const TrimResult now = trimmed(*plant, mass, point);
        EXPECT_GT(now.pitch_deg, before.pitch_deg) << plant->name << " " << speed_kt;
        EXPECT_GT(now.elevatorTrim, before.elevatorTrim) << plant->name << " " << speed_kt;
        before = now;
      }
    }
  }
}

struct RollCase {
  const char* name;
  StartingState state;
  const PlantData& (*plant)();
};

void PrintTo(const RollCase& rolled, std::ostream* out) { *out << rolled.name; }

class RollTest : public testing::TestWithParam<RollCase> {};

INSTANTIATE_TEST_SUITE_P(
    , RollTest,
    testing::Values(RollCase{"Level", StartingState::Level, plant737},
                    RollCase{"Cruise", StartingState::Cruise, plant737},
                    RollCase{"Final", StartingState::Final, plant737},
                    RollCase{"HeavyTwinLevel", StartingState::Level, plantHeavyTwin},
                    RollCase{"HeavyTwinCruise", StartingState::Cruise, plantHeavyTwin},
                    RollCase{"HeavyTwinFinal", StartingState::Final, plantHeavyTwin}),
    [](const auto& made) { return made.param.name; });

TEST_P(RollTest, FullAileronRollsAtTheRateOfATransport) {
  for (const double side : {1.0, -1.0}) {
    Flying flight(GetParam().state, GetParam().plant());
    flight.controls.aileron = side;
    double most_deg_s = 0;
    while (std::fabs(flight.state.bank_deg) < 45) {
      flight.tick();
      most_deg_s = std::max(most_deg_s, side * flight.model.body().rates_rad_s.x * 57.29578);
      ASSERT_LT(flight.state.elapsed_s, 10);
    }
    report((std::string("roll rate of full aileron, ") + GetParam().name).c_str(), most_deg_s,
           "deg/s");
    EXPECT_GE(most_deg_s, 15);
    EXPECT_LE(most_deg_s, 40);
    EXPECT_GT(side * flight.state.bank_deg, 0);
  }
}

TEST(Control, AileronTrimRollsLikeTheSameAileron) {
  Flying yoke(StartingState::Level);
  Flying trim(StartingState::Level);
  yoke.controls.aileron = 0.1;
  trim.controls.aileronTrim_deg = 2;  // a tenth of the 20 degrees of travel
  yoke.fly(5);
  trim.fly(5);
  EXPECT_GT(trim.state.bank_deg, 3);
  EXPECT_NEAR(trim.state.bank_deg, yoke.state.bank_deg, 1e-9);
}

TEST(Control, ElevatorLiftsTheNoseAndRudderTurnsItRight) {
  Flying up(StartingState::Level);
  up.controls.elevator = 0.1;
  up.fly(2);
  EXPECT_GT(up.state.pitch_deg, up.departure.start.pitch_deg + 1);
  Flying right(StartingState::Level);
  right.controls.rudder = 0.3;
  right.fly(2);
  EXPECT_GT(right.state.heading_deg, 240.5);
  EXPECT_GT(right.state.bank_deg, 0);
}

TEST(Control, AFailedEngineYawsTowardsItself) {
  Flying flight(StartingState::Final);
  flight.controls.fuelOn[1] = false;
  flight.fly(3);
  EXPECT_GT(flight.state.heading_deg, 240.2);
}

TEST(Control, SpoilersGearAndFlapsSlowDown) {
  Flying clean(StartingState::Level);
  clean.fly(20);
  for (int what = 0; what < 3; ++what) {
    Flying flight(StartingState::Level);
    if (what == 0) flight.controls.spoilers = 1;
    if (what == 1) flight.controls.gearDown = true;
    if (what == 2) flight.controls.flapDetent = 3;
    flight.fly(20);
    const auto energyHeight_m = [](const Flying& f) {
      return f.state.altitude_m + f.state.trueAirspeed_m_s * f.state.trueAirspeed_m_s / 19.6133;
    };
    EXPECT_LT(energyHeight_m(flight), energyHeight_m(clean) - 10) << what;
  }
}

// 0.45 of a drag coefficient of 0.05 at 250 knots and 5000 feet, 10060 Pa, is 28.2 kN: of a weight
// of 584.5 kN and 138 m/s it takes 6.7 m/s of height; in cruise, 10150 Pa and 231.3 m/s, 11.3. The
// trimmed speed stays, as much as it can in the first minute, by the angle that the nose goes up.
TEST(Control, WithTheSpeedBrakeOutItSinksByTheDragAndDoesNotDive) {
  struct Case {
    StartingState from;
    double speed_kt;
    double sink_m_s;
  };
  for (const Case& c :
       {Case{StartingState::Level, 250, 6.7}, {StartingState::Cruise, 264.4, 11.3}}) {
    Flying flight(c.from);
    const double top_m = flight.state.altitude_m;
    flight.controls.spoilers = 1;
    for (int i = 0; i < 60; ++i) {
      flight.fly(1);
      ASSERT_NEAR(flight.cas_kt(), c.speed_kt, 15) << i;
      ASSERT_GT(flight.state.pitch_deg, -2) << i;
    }
    EXPECT_NEAR((top_m - flight.state.altitude_m) / 60, c.sink_m_s, 0.35 * c.sink_m_s);
  }
}

TEST(Control, FlapsGearAndSpoilersTakeTheirTime) {
  Flying flight(StartingState::Final);
  flight.controls.flapDetent = 8;
  flight.controls.gearDown = true;
  flight.controls.spoilers = 1;
  flight.fly(1);
  EXPECT_LT(flight.state.flaps_deg, 20);
  EXPECT_LT(flight.state.gearDown, 0.2);
  flight.fly(4);
  EXPECT_EQ(flight.state.spoilers, 0.45);
  EXPECT_LT(flight.state.gearDown, 0.7);
  flight.fly(10);
  EXPECT_EQ(flight.state.flaps_deg, 40);
  EXPECT_EQ(flight.state.gearDown, 1);
}

TEST(Control, CruiseNeedsThePowerAndFuelOfTheType) {
  Flying flight(StartingState::Cruise);
  flight.fly(60);
  const double fuel_kg_h =
      (flight.state.engines[0].fuelFlow_lb_h + flight.state.engines[1].fuelFlow_lb_h) * 0.45359237;
  report("cruise N1", flight.state.engines[0].n1_pct, "%");
  report("cruise fuel flow, total", fuel_kg_h, "kg/h");
  EXPECT_GE(flight.state.engines[0].n1_pct, 85);
  EXPECT_LE(flight.state.engines[0].n1_pct, 92);
  EXPECT_GE(fuel_kg_h, 2100);
  EXPECT_LE(fuel_kg_h, 2600);
}

}  // namespace
}  // namespace vorlent
