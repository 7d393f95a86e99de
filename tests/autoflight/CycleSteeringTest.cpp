#include "autoflight/AutoflightTest.h"

namespace vorlent {
namespace {

/// The roll channel, the wheel and the column in the cycle, engaged with nothing on.
class CycleSteering : public AutoflightTest {
 protected:
  void SetUp() override {
    AutoflightTest::SetUp();
    modPublic& v = store();
    v.Ias = v.AvgIas = v.PrevAvgIas = 250;
    ap().tuning.apPitchSensitivityFix = 300;
    ap().tuning.apPitchControlfactor = 20;
    ap().tuning.apMaxBankCourseDeviation = 30;
    ap().apBank(25);
    ap().ApEngaged(1);
    bus.writes.clear();
  }

  /// The bank that a cycle steers to, from the aileron trim and a roll factor of 0.5.
  std::vector<double> steeredBanks(float bank_deg) {
    store().Bank = bank_deg;
    bus.writes.clear();
    afds().AFDS();
    std::vector<double> banks;
    const double signedBank = bank_deg > 180 ? bank_deg - 360. : bank_deg;
    for (const auto& write : bus.writesTo(0x2EB0))
      banks.push_back(signedBank - load<double>(write.bytes.data()) / 0.0174532930056254 / 0.5);
    return banks;
  }
  double steeredBank(float bank_deg) {
    const auto banks = steeredBanks(bank_deg);
    return banks.size() == 1 ? banks[0] : -999;
  }
  void tuneLocalizer() {
    nav1().IlsHeading = 270;
    nav1().LocNeedle = 50;
    store().TrueHeading = 90;
  }
};

TEST_F(CycleSteering, WheelUpTo6DegreesLevelsTheWings) {
  EXPECT_NEAR(steeredBank(6), 0, 1e-6);
  EXPECT_NEAR(steeredBank(6), 0, 1e-6);
}

TEST_F(CycleSteering, WheelGoesByTheBankOfTheCycleBefore) {
  EXPECT_NEAR(steeredBank(20), 0, 1e-6);
  EXPECT_NEAR(steeredBank(20), 0, 1e-6) << "the wheel has not moved, so no bank is kept";
  store().AileronInput = -1000;
  EXPECT_NEAR(steeredBank(18), 20, 1e-5);
}

TEST_F(CycleSteering, WheelTurnedFurtherKeepsTheLargerBank) {
  steeredBanks(20);
  store().AileronInput = -1000;
  EXPECT_NEAR(steeredBank(15), 20, 1e-5);
  store().AileronInput = -1000;
  EXPECT_NEAR(steeredBank(15), 20, 1e-5) << "a wheel that rests keeps what it has";
  store().AileronInput = 1000;
  EXPECT_NEAR(steeredBank(15), 20, 1e-5) << "as far the other way counts as further";
  store().AileronInput = 999;
  EXPECT_NEAR(steeredBank(15), 15, 1e-5) << "a wheel that comes back takes the bank that is";
}

TEST_F(CycleSteering, BanksToTheRightAreLevelled) {
  steeredBanks(330);
  store().AileronInput = 1000;
  EXPECT_NEAR(steeredBank(330), 0, 1e-6);
}

TEST_F(CycleSteering, BankThatRollsThroughLevelIsKeptOnTheOtherSide) {
  steeredBanks(20);
  store().AileronInput = 1000;
  EXPECT_NEAR(steeredBank(340), -20, 1e-5);
}

TEST_F(CycleSteering, ColumnThatMovesTakesTheAttitude) {
  store().ElevatorInput = 100;
  store().Pitch = 4;
  afds().AFDS();
  EXPECT_FLOAT_EQ(ap().apPitch(), 4.2F);
  store().Pitch = 6;
  afds().AFDS();
  EXPECT_FLOAT_EQ(ap().apPitch(), 4.2F);
  store().ElevatorInput = 0;
  afds().AFDS();
  EXPECT_FLOAT_EQ(ap().apPitch(), 6.2F);
}

TEST_F(CycleSteering, ColumnsPitchIsHeldEveryCycle) {
  ap().apPitch(5);
  for (int pass = 0; pass < 3; ++pass) {
    bus.writes.clear();
    afds().AFDS();
    EXPECT_EQ(bus.writesTo(0x0BC0).size(), 1U);
  }
}

TEST_F(CycleSteering, ColumnIsNotLookedAtInAGoAround) {
  store().RadioAltitude = 2000;
  ap().apToGa(1);
  ap().apPitch(5);
  store().ElevatorInput = 100;
  bus.writes.clear();
  afds().AFDS();
  EXPECT_EQ(ap().apPitch(), 5);
  EXPECT_EQ(bus.writesTo(0x0BC0).size(), 0U);
}

TEST_F(CycleSteering, AttitudeIsHeldEveryCycleAndCountsToTen) {
  ap().apAttitudeHold(1);
  ap().apCwsPitchMode(0);
  ap().apPitch(5);
  struct Row {
    int relay;
    int after;
  };
  constexpr Row Rows[] = {{1, 2}, {9, 10}, {10, 1}};
  for (const auto& [relay, after] : Rows) {
    bus.writes.clear();
    EXPECT_EQ(relayAfterCycleAt(relay), after);
    EXPECT_EQ(bus.writesTo(0x0BC0).size(), 1U);
  }
}

TEST_F(CycleSteering, SpeedByPitchRunsEverySixthCycleAlsoInAGoAround) {
  store().RadioAltitude = 2000;
  ap().apToGa(1);
  ap().apAirspeedHoldByPitch(1);
  ap().apAirSpeed(260);
  ap().apPitch(5);
  EXPECT_EQ(relayAfterCycleAt(5), 6);
  EXPECT_EQ(ap().apPitch(), 5);
  EXPECT_EQ(relayAfterCycleAt(6), 1);
  EXPECT_EQ(relayAfterCycleAt(1), 2);
  EXPECT_FLOAT_EQ(ap().apPitch(), 1.5F);  // 2 - 10 / 20
}

TEST_F(CycleSteering, TurnRateSetsTheBankLimitForTheNextCycle) {
  store().Tas = 450;
  ap().apHeading(90);
  ap().apHeadingHold(1);
  EXPECT_NEAR(steeredBank(0), -25, 1e-5);
  EXPECT_NEAR(steeredBank(0), -30, 1e-5);
}

TEST_F(CycleSteering, NavIsFlownAndCapturedOnce) {
  ap().apNav1Hold(1);
  nav1().Obs = 90;
  nav1().LocNeedle = 50;
  store().TrueHeading = 90;
  steeredBank(0);
  EXPECT_EQ(ap().apLocalizerCapture(), 0);
  EXPECT_NEAR(ap().apHeading(), 120, 1e-4);
  nav1().LocNeedle = 9;
  steeredBank(0);
  EXPECT_EQ(ap().apLocalizerCapture(), 1);
  EXPECT_EQ(shown().RollEngagedMode, "VOR/LOC");
}

TEST_F(CycleSteering, HeadingLeadsToTheLocalizerUntilItIsCaptured) {
  tuneLocalizer();
  ap().apHeading(60);
  ap().apHeadingHold(1);
  ap().apApproachHold(1);
  afds().AFDS();
  EXPECT_EQ(state(),
            "ApEngaged apHeadingHold apLocalizerHold apApproachHold apGlideslopeHold "
            "PitchModeActive RollModeActive roll=VOR/LOC");
  nav1().LocNeedle = 0;
  bus.writes.clear();
  afds().AFDS();
  EXPECT_EQ(state(),
            "ApEngaged apHeadingHold apLocalizerHold apLocalizerCapture apGlideslopeHold "
            "PitchModeActive RollModeActive roll=VOR/LOC");
  // 5 degrees of bank by twice the factor of 0.5, in radians.
  EXPECT_EQ(written(), (Texts{"2EB0=0.087266465028127", "lamp 19=0"}));
}

TEST_F(CycleSteering, HeadingEndsTheCycleAfterTheCapture) {
  tuneLocalizer();
  nav1().LocNeedle = 0;
  ap().apHeadingHold(1);
  ap().apApproachHold(1);
  afds().AFDS();
  bus.writes.clear();
  afds().AFDS();
  EXPECT_EQ(state(),
            "ApEngaged apLocalizerHold apLocalizerCapture apGlideslopeHold PitchModeActive "
            "RollModeActive");
  EXPECT_EQ(written().at(0), "lamp 17=0");
}

TEST_F(CycleSteering, LnavEndsWhereTheLocalizerIsInRange) {
  tuneLocalizer();
  givePlan();
  afds().LNAV(1);
  ap().apLocalizerHold(1);
  ap().apHeading(90);
  afds().AFDS();
  EXPECT_EQ(afds().LNAV(), 1);
  nav1().LocNeedle = 0;
  ap().apHeading(90);
  afds().AFDS();
  EXPECT_EQ(afds().LNAV(), 0);
  EXPECT_EQ(ap().apWaypointHold(), 0);
  EXPECT_EQ(ap().apLocalizerCapture(), 1);
  EXPECT_EQ(shown().RollEngagedMode, "VOR/LOC");
}

TEST_F(CycleSteering, LnavLeavesTheWheelAlone) {
  givePlan();
  afds().LNAV(1);
  ap().apWaypointHold(0);
  ap().apCwsRollMode(1);
  EXPECT_TRUE(steeredBanks(20).empty());
}

}  // namespace
}  // namespace vorlent
