#include "simulator/dynamics/Electrics.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

ElectricalInputs switches(double n2_pct) {
  ElectricalInputs in;
  in.n2_pct = {n2_pct, n2_pct};
  return in;
}

ElectricalState stateOf(const ElectricalInputs& in) { return Electrics(in).state(); }

TEST(Electrics, GeneratorsFeedEveryBusAndShareTheLoad) {
  ElectricalInputs in = switches(62);
  in.navigationLights = in.strobeLights = in.landingLights = in.pitotHeat = true;
  const ElectricalState s = stateOf(in);
  EXPECT_EQ(s.mainBus.voltage_V, 28);
  EXPECT_EQ(s.avionicsBus.voltage_V, 28);
  EXPECT_EQ(s.batteryBus.voltage_V, 28);
  EXPECT_NEAR(s.hotBatteryBus.voltage_V, 25.4, 0.001);
  EXPECT_EQ(s.mainBus.current_A, 45);
  EXPECT_EQ(s.totalLoad_A, 75);
  EXPECT_EQ(s.batteryLoad_A, 0);
  EXPECT_EQ(s.generators[0].current_A, 37.5);
  EXPECT_EQ(s.generators[1].voltage_V, 28.5);
}

TEST(Electrics, OneGeneratorCarriesAll) {
  ElectricalInputs in = switches(62);
  in.n2_pct[1] = 20;
  const ElectricalState s = stateOf(in);
  EXPECT_EQ(s.generators[0].current_A, s.totalLoad_A);
  EXPECT_EQ(s.generators[1].voltage_V, 0);
  EXPECT_EQ(s.generators[1].current_A, 0);
}

TEST(Electrics, LightsAndHeatAreLoads) {
  const double none_A = stateOf(switches(62)).totalLoad_A;
  ElectricalInputs in = switches(62);
  in.navigationLights = true;
  EXPECT_EQ(stateOf(in).totalLoad_A, none_A + 3);
  in.strobeLights = true;
  EXPECT_EQ(stateOf(in).totalLoad_A, none_A + 7);
  in.landingLights = true;
  EXPECT_EQ(stateOf(in).totalLoad_A, none_A + 21);
  in.pitotHeat = true;
  EXPECT_EQ(stateOf(in).totalLoad_A, none_A + 29);
}

TEST(Electrics, WithoutSwitchesOnlyTheHotBatteryBusIsAlive) {
  ElectricalInputs in = switches(0);
  in.battery = in.avionics = false;
  const Electrics electrics(in);
  const ElectricalState& s = electrics.state();
  for (const ElectricalFlow& bus : {s.mainBus, s.avionicsBus, s.batteryBus, s.generators[0]}) {
    EXPECT_EQ(bus.voltage_V, 0);
    EXPECT_EQ(bus.current_A, 0);
  }
  EXPECT_NEAR(s.hotBatteryBus.voltage_V, 25.4, 0.001);
  EXPECT_EQ(s.totalLoad_A, 2);
  EXPECT_EQ(s.batteryLoad_A, 2);
  EXPECT_FALSE(electrics.avionicsPowered());
  EXPECT_FALSE(electrics.canStart());
}

TEST(Electrics, AvionicsNeedTheirSwitchAndTheBatterys) {
  ElectricalInputs in = switches(62);
  EXPECT_TRUE(Electrics(in).avionicsPowered());
  in.avionics = false;
  EXPECT_FALSE(Electrics(in).avionicsPowered());
  in.avionics = true;
  in.battery = false;
  EXPECT_FALSE(Electrics(in).avionicsPowered());
  EXPECT_TRUE(Electrics(in).canStart());
}

// 16 + 20 + 8 + 2 amperes: 46. Of 48 ampere hours half is left after 1878 s, all gone after 3757.
TEST(Electrics, TheBatteryCarriesTheAircraftForAnHourAndIsEmpty) {
  const ElectricalInputs in = switches(0);
  Electrics electrics(in);
  EXPECT_EQ(electrics.state().batteryLoad_A, 46);
  EXPECT_NEAR(electrics.state().mainBus.voltage_V, 25.4, 0.001);
  for (int second = 0; second < 1878; ++second) electrics.step(in, 1);
  EXPECT_NEAR(electrics.state().battery_V, 23.7, 0.01);
  for (int second = 0; second < 2000; ++second) electrics.step(in, 1);
  EXPECT_EQ(electrics.state().battery_V, 0);
  EXPECT_EQ(electrics.state().totalLoad_A, 0);
  EXPECT_FALSE(electrics.avionicsPowered());
}

// 20 A times what is missing: the gap closes with 48 Ah / 20 A = 8640 s. Of a half 0.0944 are left
// after four hours: 25.4 - 0.0944 x 3.4.
TEST(Electrics, GeneratorsChargeTheBatteryAgain) {
  Electrics electrics(switches(0));
  for (int second = 0; second < 1878; ++second) electrics.step(switches(0), 1);
  electrics.step(switches(62), 1);
  EXPECT_NEAR(electrics.state().batteryLoad_A, -10, 0.05);
  EXPECT_NEAR(electrics.state().generators[0].current_A, (46 + 10) / 2.0, 0.05);
  for (int second = 0; second < 4 * 3600; ++second) electrics.step(switches(62), 1);
  EXPECT_NEAR(electrics.state().battery_V, 25.079, 0.005);
}

}  // namespace
}  // namespace vorlent
