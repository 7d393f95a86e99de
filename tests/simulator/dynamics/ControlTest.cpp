#include <gtest/gtest.h>

#include "Flying.h"

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

// A unit of the type's 17 is 2 / 17 of the travel; a seventh of it lies between two points.
TEST(Control, EachUnitOfTrimGivesMorePitch) {
  for (const PlantData* plant : {&plant737(), &plantHeavyTwin()}) {
    double before_deg = -90;
    for (const double trim : {-0.56, -0.54, -0.52, -0.50, -0.48, -0.46, -0.44}) {
      const double attack_deg = settledAttack_deg(*plant, trim);
      EXPECT_GT(attack_deg, before_deg + 0.2) << plant->name << " " << trim;
      before_deg = attack_deg;
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

TEST(Control, FlapsGearAndSpoilersTakeTheirTime) {
  Flying flight(StartingState::Final);
  flight.controls.flapDetent = 8;
  flight.controls.gearDown = true;
  flight.controls.spoilers = 1;
  flight.fly(1);
  EXPECT_LT(flight.state.flaps_deg, 20);
  EXPECT_LT(flight.state.gearDown, 0.2);
  flight.fly(4);
  EXPECT_EQ(flight.state.spoilers, 1);
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
