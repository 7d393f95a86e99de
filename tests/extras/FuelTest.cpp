#include <gtest/gtest.h>

#include "autoflight/clsXAutoT.h"
#include "extras/FuelAccount.h"
#include "mcp/frmTestMCP.h"
#include "support/TestServer.h"

namespace vorlent {
namespace {

constexpr int Beat_ms = 30000;

/// A server with a display, whose fuel beats in virtual time. The polls do not go on, so that the
/// store stays as a test sets it. Engine 1 burns 2400 lb/h; at 5 lb a gallon that is 4 gallons in
/// each half minute.
class Fuel : public ::testing::Test {
 protected:
  Fuel() {
    host.start();
    host.server.connect[0]->IsUp(true);
    host.store.Paused = 0;
    host.store.FuelLbPerGallon = 5;
    for (int n = 1; n <= 4; ++n) host.store.Engines(n).FuelFlow = 0;
    host.store.Engines(1).FuelFlow = 2400;
    burns(1);
    burns(2);
    host.store.OnGround = 0;
  }
  void beat() { host.loop.advance(Beat_ms); }
  void burns(int engine, std::int16_t flag = 1) { host.store.Engines(engine).Combustion = flag; }
  float burnt(int engine) const { return host.store.FuelBurnt(engine); }

  TestServer host;
};

TEST_F(Fuel, EachHalfMinuteCountsATwelfthOfTenMinutesFlowInGallons) {
  beat();
  EXPECT_FLOAT_EQ(burnt(1), 4);
  beat();
  beat();
  EXPECT_FLOAT_EQ(burnt(1), 12);
  EXPECT_FLOAT_EQ(burnt(2), 0);
}

TEST_F(Fuel, EachOfTheFourEnginesHasItsOwnAccount) {
  for (int n = 1; n <= 4; ++n) host.store.Engines(n).FuelFlow = 600 * n;
  beat();
  for (int n = 1; n <= 4; ++n) EXPECT_FLOAT_EQ(burnt(n), static_cast<float>(n)) << n;
}

TEST_F(Fuel, WithoutAClientTheAccountStandsStill) {
  host.server.connect[0]->IsUp(false);
  beat();
  EXPECT_FLOAT_EQ(burnt(1), 0);
}

TEST_F(Fuel, APauseBurnsNothingButTheStartAndTheChangeoverStillCount) {
  beat();
  host.store.Paused = 1;
  burns(1, 0);
  beat();
  EXPECT_FLOAT_EQ(burnt(1), 4);
  burns(1);
  host.store.OnGround = 1;
  host.store.Mach = 0.595F;
  beat();
  EXPECT_FLOAT_EQ(burnt(1), 0);
  EXPECT_EQ(host.server.autoflight.xAutoT->apChangeover(), 1);
}

TEST_F(Fuel, AnEngineStartedInTheAirKeepsItsAccount) {
  beat();
  burns(1, 0);
  beat();
  burns(1);
  beat();
  EXPECT_FLOAT_EQ(burnt(1), 12);
}

TEST_F(Fuel, AnEngineRestartedOnTheGroundClearsItsOwnAccountOnly) {
  host.store.Engines(2).FuelFlow = 1200;
  beat();
  host.store.OnGround = 1;
  burns(1, 0);
  beat();
  burns(1);
  beat();
  EXPECT_FLOAT_EQ(burnt(1), 0);
  EXPECT_FLOAT_EQ(burnt(2), 6);
  beat();
  EXPECT_FLOAT_EQ(burnt(1), 4);
}

TEST_F(Fuel, AnEngineThatGoesOnRunningOnTheGroundKeepsItsAccount) {
  host.store.OnGround = 1;
  beat();  // its first beat on the ground begins it
  beat();
  beat();
  EXPECT_FLOAT_EQ(burnt(1), 8);
}

TEST_F(Fuel, WithoutADensityTheAccountsStandAndTheRestOfTheBeatRuns) {
  beat();
  host.store.FuelLbPerGallon = 0;
  host.store.Mach = 0.595F;
  beat();
  EXPECT_FLOAT_EQ(burnt(1), 4);
  EXPECT_EQ(host.server.autoflight.xAutoT->apChangeover(), 1);
  EXPECT_EQ(host.exitStatus(), std::nullopt);
}

TEST_F(Fuel, AFlowThatIsNoNumberLeavesItsEngineAlone) {
  host.store.Engines(1).FuelFlow = 1e300;
  host.store.Engines(2).FuelFlow = 1200;
  beat();
  EXPECT_FLOAT_EQ(burnt(1), 0);
  EXPECT_FLOAT_EQ(burnt(2), 2);
}

TEST_F(Fuel, InsideTheWindowEachBeatTurnsTheSpeedsUnitOverAndThePanelShowsIt) {
  host.store.Mach = 0.595F;
  beat();
  EXPECT_EQ(host.server.autoflight.xAutoT->apChangeover(), 1);
  EXPECT_EQ(host.server.testMcp->Text1(frmTestMCP::Speed).Text(), "0.595");
  beat();
  EXPECT_EQ(host.server.autoflight.xAutoT->apChangeover(), 0);
}

TEST_F(Fuel, TheEndsOfTheWindowAreOutsideOfIt) {
  for (const float mach : {0.59F, 0.6F, 0.58F, 0.61F, 0.F}) {
    host.store.Mach = mach;
    beat();
    EXPECT_EQ(host.server.autoflight.xAutoT->apChangeover(), 0) << mach;
  }
}

}  // namespace
}  // namespace vorlent
