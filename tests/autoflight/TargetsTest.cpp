#include "autoflight/AutoflightTest.h"

namespace vorlent {
namespace {

class Targets : public AutoflightTest {};

TEST_F(Targets, HeadingGoesToTheSimulatorsBugOnlyWhenItDiffersFromIt) {
  ap().apHeading(90);
  EXPECT_EQ(written(), Texts{"7CC=16384"});
  ap().apHeading(90);
  EXPECT_EQ(written(), Texts{});
  store().ApHeadingSim = 180;
  ap().apHeading(180);
  EXPECT_EQ(written(), Texts{});
  EXPECT_EQ(ap().apHeading(), 180);
}

TEST_F(Targets, CourseIsStored) {
  ap().apCourse(123.5F);
  EXPECT_EQ(ap().apCourse(), 123.5F);
  EXPECT_EQ(written(), Texts{});
}

TEST_F(Targets, AltitudesStandOverABiasOf25Feet) {
  EXPECT_EQ(ap().apAltitude(), 0);
  EXPECT_EQ(ap().apMcpAltitude(), -25);
  ap().apAltitude(5000);
  EXPECT_EQ(ap().apAltitude(), 5000);
  EXPECT_EQ(written(), Texts{});
}

TEST_F(Targets, SelectedAltitudeMovesTheWorkingOne) {
  ap().apMcpAltitude(10000);
  EXPECT_EQ(ap().apMcpAltitude(), 10000);
  EXPECT_EQ(ap().apAltitude(), 10000);
  EXPECT_EQ(written(), Texts{"7D4=199753722"});
}

TEST_F(Targets, SelectedAltitudeDoesNotMoveAHeldOne) {
  ap().apAltitude(5000);
  ap().apAltitudeHold(1);
  bus.writes.clear();
  ap().apMcpAltitude(10000);
  EXPECT_EQ(ap().apMcpAltitude(), 10000);
  EXPECT_EQ(ap().apAltitude(), 5000);
  EXPECT_EQ(written(), Texts{"7D4=199753722"});
}

TEST_F(Targets, SelectedAltitudeThatTheSimulatorShowsIsNotWritten) {
  store().ApAltitudeSim = 10000;
  ap().apMcpAltitude(10000);
  EXPECT_EQ(ap().apAltitude(), 10000);
  EXPECT_EQ(written(), Texts{});
}

TEST_F(Targets, SpeedGoesToTheAutothrottleAndEndsTheMachTarget) {
  ap().ApMachNumber(0.78F);
  ap().apAirSpeed(250);
  EXPECT_EQ(ap().apAirSpeed(), 250);
  EXPECT_EQ(at().apAirSpeed(), 250);
  EXPECT_EQ(ap().ApMachNumber(), 0);
  EXPECT_EQ(at().ApMachNumber(), 0);
  EXPECT_EQ(written(), Texts{});
}

TEST_F(Targets, SpeedThatStaysKeepsTheMachTarget) {
  ap().apAirSpeed(250);
  ap().ApMachNumber(0.78F);
  at().apAirSpeed(0);
  ap().apAirSpeed(250);
  EXPECT_EQ(ap().ApMachNumber(), 0.78F);
  EXPECT_EQ(at().apAirSpeed(), 0);
}

TEST_F(Targets, SpeedEndsTheSimulatorsMachToo) {
  store().ApMachSim = 0.7F;
  ap().apAirSpeed(250);
  EXPECT_EQ(written(), (Texts{"7E8=0", "7E4=0"}));
  at().apChangeover(1);
  bus.writes.clear();
  ap().apAirSpeed(260);
  EXPECT_EQ(written(), (Texts{"7E8=0", "7E4=1"}));
}

TEST_F(Targets, SelectedSpeedIsWrittenWhereTheSimulatorShowsAnother) {
  ap().apMcpAirSpeed(250);
  EXPECT_EQ(ap().apMcpAirSpeed(), 250);
  EXPECT_EQ(ap().apAirSpeed(), 0);
  EXPECT_EQ(written(), Texts{"7E2=250"});
  store().ApIasSim = 260;
  ap().apMcpAirSpeed(260);
  EXPECT_EQ(written(), Texts{});
}

TEST_F(Targets, MachGoesToTheAutothrottle) {
  ap().ApMachNumber(0.78F);
  EXPECT_EQ(at().ApMachNumber(), 0.78F);
  EXPECT_EQ(written(), Texts{});
}

TEST_F(Targets, VerticalSpeedIsLimitedUnevenlyAndCutToHundredths) {
  struct Row {
    float set;
    float stored;
  };
  constexpr Row Rows[] = {
      {1500, 1500},        {5999, 5999},          {6000, 6000},      {6001, 6000},    {99999, 6000},
      {-7899, -7899},      {-7900, -8000},        {-8000, -8000},    {-20000, -8000}, {0, 0},
      {100.127F, 100.12F}, {-100.127F, -100.13F}, {-0.001F, -0.01F},
  };
  for (const auto& [set, stored] : Rows) {
    ap().apVertSpeed(set);
    EXPECT_FLOAT_EQ(ap().apVertSpeed(), stored) << set;
  }
}

TEST_F(Targets, VerticalSpeedTakesTheSelectedAltitudeBackWhereTheSimulatorShowsAnother) {
  ap().apMcpAltitude(10000);
  ap().apAltitude(5000);
  bus.writes.clear();
  store().ApVsSim = 1500;
  ap().apVertSpeed(1500);
  EXPECT_EQ(ap().apAltitude(), 5000);
  EXPECT_EQ(written(), Texts{});
  ap().apVertSpeed(-1000);
  EXPECT_EQ(ap().apAltitude(), 10000);
  EXPECT_EQ(written(), Texts{"7F2=64535"});
}

TEST_F(Targets, BankNeverExceedsItsLimit) {
  ap().apBankLimit(27.6F);
  EXPECT_EQ(ap().apBankLimit(), 28);
  ap().apBank(25);
  EXPECT_EQ(ap().apBank(), 25);
  ap().apBank(29);
  EXPECT_EQ(ap().apBank(), 28);
}

TEST_F(Targets, TurnRateAtNoAirspeedGivesABankOf5Degrees) {
  for (const float rate : {1.F, 3.F, 0.F}) {
    ap().apTurnRate(rate);
    EXPECT_EQ(ap().apBank(), 5) << rate;
  }
}

TEST_F(Targets, TurnRateSetsTheBankForTheTrueAirspeed) {
  store().Tas = 200;  // arctangent of 0.533741
  ap().apTurnRate(1);
  EXPECT_EQ(ap().apTurnRate(), 1);
  EXPECT_NEAR(ap().apBank(), 28.0906, 1e-3);
  store().Tas = 450;
  ap().apTurnRate(1);
  EXPECT_EQ(ap().apBank(), 30);
}

TEST_F(Targets, OldAltitudeIsStored) {
  ap().apOldAltitude(7000);
  EXPECT_EQ(ap().apOldAltitude(), 7000);
}

}  // namespace
}  // namespace vorlent
