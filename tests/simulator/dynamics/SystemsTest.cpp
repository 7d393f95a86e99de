// Electrics, hydraulics, fuel and starting as somebody at the offsets sees them.

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "LinkedAircraft.h"
#include "simulator/StationTable.h"

namespace vorlent {
namespace {

class Systems : public testing::Test {
 protected:
  modPublic& after(double seconds) {
    linked.fly(seconds);
    return linked.polled();
  }
  void write(const std::function<void(Server&)>& control) { linked.write(control); }

  LinkedAircraft linked;
};

TEST_F(Systems, ColdAndDarkIsDark) {
  linked.restart(StartingState::Cold);
  const modPublic& v = after(10);
  EXPECT_EQ(v.MasterBattery, 0);
  EXPECT_EQ(v.AvionicsMaster, 0);
  for (const int off : {v.LightsByte1, v.LightsByte2, v.LightsByte3, v.LandingLights, v.PitotHeat})
    EXPECT_EQ(off, 0);
  // Load and battery load of the hot battery bus, the battery, and of the buses that one alone.
  constexpr std::array<double, 11> electrical{2, 2, 25.4, 0, 0, 0, 0, 25.4, 2, 0, 0};
  for (int i = 1; i <= 11; ++i)
    EXPECT_NEAR(v.Electrical(i), electrical[static_cast<std::size_t>(i - 1)], 0.01) << i;
  EXPECT_EQ(v.Double0B18, 0);
  EXPECT_EQ(v.EngineCombustionBits, 0);
  for (int n = 1; n <= 2; ++n) {
    const auto& engine = v.Engines(n);
    for (const double nothing :
         {double{engine.N1}, double{engine.N2}, engine.FuelFlow, double{engine.OilPressure},
          double{engine.HydPressure}, double{engine.Vibration}, double{engine.GeneratorA},
          double{engine.GeneratorB}})
      EXPECT_EQ(nothing, 0) << n;
    EXPECT_EQ(engine.Combustion, 0);
    EXPECT_NEAR(engine.Egt, 15, 1.1);
    EXPECT_NEAR(engine.OilTemp, 15, 0.1);
    EXPECT_NEAR(engine.Epr, 1, 0.001);
  }
}

TEST_F(Systems, EveryStateButTheColdOneIsLit) {
  for (const StartingState state :
       {StartingState::Runway, StartingState::Level, StartingState::Cruise, StartingState::Final}) {
    linked.restart(state);
    const modPublic& v = after(1);
    EXPECT_EQ(v.MasterBattery, 1);
    EXPECT_NEAR(v.Electrical(4), 28, 0.001);
    EXPECT_NEAR(v.Electrical(6), 28, 0.001);
    EXPECT_NEAR(v.Engines(1).GeneratorA, 28.5, 0.001);
    EXPECT_NEAR(v.Engines(1).HydPressure, 3000, 1);
    EXPECT_NEAR(v.Double0B18, 5, 0.001);
  }
}

// Starter, light-off at about a fifth of N2, temperature and oil pressure up, generator on line.
TEST_F(Systems, AnEngineStartShowsItselfStepByStep) {
  linked.restart(StartingState::Cold);
  write([](Server& s) { s.accessors.fsOpt->Battery(1); });
  write([](Server& s) { s.accessors.eng->Magneto(1, 4); });
  const modPublic& v = after(20);
  EXPECT_GT(v.Engines(1).N2, 20);
  EXPECT_LT(v.Engines(1).Egt, 20);
  EXPECT_EQ(v.Engines(1).Combustion, 0);
  EXPECT_EQ(v.Engines(1).GeneratorA, 0);
  EXPECT_LT(v.Engines(1).HydPressure, 2000);
  write([](Server& s) { s.accessors.eng->Mixture(1, 100); });
  after(8);
  EXPECT_EQ(v.Engines(1).Combustion, 1);
  EXPECT_GT(v.Engines(1).Egt, 350);
  EXPECT_GT(v.Engines(1).FuelFlow, 200);
  after(30);
  EXPECT_NEAR(v.Engines(1).N2, 61.8, 2);
  EXPECT_GT(v.Engines(1).OilPressure, 25);
  EXPECT_NEAR(v.Engines(1).HydPressure, 3000, 1);
  EXPECT_NEAR(v.Engines(1).GeneratorA, 28.5, 0.001);
  EXPECT_EQ(v.Engines(2).GeneratorA, 0);
  EXPECT_EQ(v.Engines(2).HydPressure, 0);
  EXPECT_LE(v.Electrical(2), 0);
  EXPECT_EQ(v.EngineCombustionBits, 1);
}

TEST_F(Systems, TheStarterNeedsTheBattery) {
  linked.restart(StartingState::Cold);
  write([](Server& s) { s.accessors.eng->Magneto(1, 4); });
  EXPECT_EQ(after(20).Engines(1).N2, 0);
}

/// An ILS before the nose, ten miles out on its approach.
class Radios : public testing::Test {
 protected:
  Radios() {
    settings.start = StartingState::Final;
    settings.stations = stationsFrom(table);
    aircraft.emplace(memory, settings);
    memory.write<std::uint16_t>(0x0350, 0x1030);
    aircraft->step(0.1);
  }
  char firstOfIdent() const { return memory.read<char>(0x3000); }
  void set(std::size_t offset, std::uint8_t value) {
    memory.write(offset, value);
    aircraft->step(0.1);
  }

  static constexpr const char* table =
      "runway HOME 24  52 5  240 3000 20 2\n"
      "ils IVR 110.30 HOME 24 3 50 300 7400 1050 250 yes no  HOME ILS\n";
  OffsetMemory memory;
  TwinJet::Settings settings;
  std::optional<TwinJet> aircraft;
};

TEST_F(Radios, AreDeadWithoutAvionicsSwitchOrBatterySwitch) {
  EXPECT_EQ(firstOfIdent(), 'I');
  set(0x2E80, 0);
  EXPECT_EQ(firstOfIdent(), 0);
  EXPECT_EQ(memory.read<std::uint8_t>(0x0C4A), 0);
  set(0x2E80, 1);
  EXPECT_EQ(firstOfIdent(), 'I');
  set(0x281C, 0);
  EXPECT_EQ(firstOfIdent(), 0);
  set(0x281C, 1);
  EXPECT_EQ(firstOfIdent(), 'I');
}

TEST_F(Systems, HydraulicPressureGoesWithItsEngine) {
  write([](Server& s) { s.accessors.eng->Mixture(2, 0); });
  const modPublic& v = after(40);
  EXPECT_LT(v.Engines(2).HydPressure, 500);
  EXPECT_NEAR(v.Engines(1).HydPressure, 3000, 1);
  EXPECT_EQ(v.Engines(1).HydQuantity, 88);
}

TEST_F(Systems, AFuelSelectorAtOneTankFeedsBothEnginesFromIt) {
  const auto levels = [this](float position) {
    linked.restart(StartingState::Cruise);
    write([position](Server& s) { s.accessors.srv->TankSelector(position); });
    const auto level = [this](int tank) { return double{linked.polled().FuelTanks(tank).Level}; };
    const std::array<int, 3> tanks{Tank::Centre, Tank::LeftMain, Tank::RightMain};
    std::array<double, 3> used;
    for (std::size_t i = 0; i < 3; ++i) used[i] = level(tanks[i]);
    linked.fly(60);
    for (std::size_t i = 0; i < 3; ++i) used[i] -= level(tanks[i]);
    return used;
  };
  // 2100 to 2600 kg/h are 77 to 95.5 pounds a minute: of the centre tank's 28800 pounds and a main
  // tank's 8628.
  constexpr double centre_pct = 0.300;
  constexpr double main_pct = 1.000;
  constexpr float positions[] = {0, 1, 2, 3, 6, 13, 14, 15};
  constexpr double expected[][3] = {{centre_pct, 0, 0}, {centre_pct, 0, 0}, {0, main_pct, 0},
                                    {0, 0, main_pct},   {centre_pct, 0, 0}, {centre_pct, 0, 0},
                                    {0, main_pct, 0},   {0, 0, main_pct}};
  for (std::size_t i = 0; i < std::size(positions); ++i) {
    const auto used = levels(positions[i]);
    for (std::size_t tank = 0; tank < 3; ++tank)
      EXPECT_NEAR(used[tank], expected[i][tank], 0.11 * expected[i][tank])
          << positions[i] << " " << tank;
  }
}

TEST_F(Systems, AClosedCrossfeedLeavesAnEngineItsOwnSideAlone) {
  write([](Server& s) { s.accessors.srv->CentPct(0); });
  write([](Server& s) { s.accessors.srv->LeftMainPct(0); });
  write([](Server& s) { s.accessors.srv->Crossfeed(1); });
  EXPECT_EQ(after(1).EngineCombustionBits, 3);
  write([](Server& s) { s.accessors.srv->Crossfeed(0); });
  EXPECT_EQ(after(1).EngineCombustionBits, 2);
}

TEST_F(Systems, WithTheSelectorAtATankThatIsNotThereTheEnginesStarve) {
  for (const float position : {4.0F, 5.0F}) {
    linked.restart(StartingState::Level);
    EXPECT_EQ(linked.polled().EngineCombustionBits, 3);
    write([position](Server& s) { s.accessors.srv->TankSelector(position); });
    EXPECT_EQ(after(1).EngineCombustionBits, 0) << position;
  }
}

TEST_F(Systems, AnEmptyTankStarvesWhoeverDrawsFromIt) {
  write([](Server& s) { s.accessors.srv->TankSelector(2); });
  write([](Server& s) { s.accessors.srv->LeftMainPct(0); });
  EXPECT_EQ(after(1).EngineCombustionBits, 0);
}

TEST_F(Systems, FuelOnOneSideRollsTheAircraftAndShiftsItsInertia) {
  const auto& mass = linked.aircraft->model().mass();
  const double before_kgm2 = mass.x_kgm2;
  write([](Server& s) { s.accessors.srv->LeftMainPct(0); });
  linked.fly(5);
  EXPECT_LT(mass.x_kgm2, before_kgm2);
  EXPECT_GT(mass.centre_m.y, 0.1);
  EXPECT_GT(linked.sample().bankRight_deg, 1);
}

TEST_F(Systems, TheTopOfTheSurfaceWindIsAThousandFeetAboveTheField) {
  EXPECT_EQ(linked.memory.read<std::uint16_t>(0x0EEE), 325);
}

}  // namespace
}  // namespace vorlent
