#include "autoflight/AutoflightTest.h"

namespace vorlent {
namespace {

/// Cycles at 250 kt and a true 10000 ft, level for long.
class Cycle : public AutoflightTest {
 protected:
  void SetUp() override {
    AutoflightTest::SetUp();
    fresh();
  }
  void fresh() {
    renew();
    modPublic& v = store();
    v.Ias = v.AvgIas = v.PrevAvgIas = 250;
    v.AircraftAltitude = v.PrevAltitude = 10000;
    ap().apMcpAirSpeed(250);
    ap().apAirSpeed(250);
    ap().tuning.apPitchSensitivityFix = 300;
    ap().tuning.apVspeedSensitivityFix = 90;
    ap().tuning.apPitchControlfactor = 20;
    ap().tuning.apMaxBankCourseDeviation = 30;
    ap().apBank(25);
    at().apThrottleControlFactor(0.1F);
    bus.writes.clear();
  }
  void cycle() { afds().AFDS(); }
  Texts writtenByCycle() {
    bus.writes.clear();
    cycle();
    return written();
  }
};

TEST_F(Cycle, CountsThePassesInItsLastStep) {
  EXPECT_EQ(relayAfterCycleAt(3), 4);
  EXPECT_EQ(relayAfterCycleAt(100), 101);
}

TEST_F(Cycle, CountStaysAtItsLargestNumber) { EXPECT_EQ(relayAfterCycleAt(32767), 32767); }

TEST_F(Cycle, StepsWriteInTheirOrder) {
  // A climb by V/S with wheel and speed by pitch beside it, a heading that is reached, Mach and the
  // panel's speed about to change, N1 and speed both off, and a go-around that ends.
  ap().ApEngaged(1);
  ap().apHeadingHold(1);
  at().apAutoThrottle(1);
  ap().apVSpeedHold(1);
  ap().apAltitude(20000);
  cycle();
  at().apAirspeedHoldByRpm(0);
  ap().apCwsPitchMode(1);
  ap().apAirspeedHoldByPitch(1);
  ap().apToGa(1);
  ap().apPitch(10);
  ap().apMcpAirSpeed(260);
  store().RadioAltitude = 399;
  store().ApMachSim = 0.5F;
  store().Mach = 0.7F;
  afds().performance.ClimbMach = 0.6F;
  afds().ResetRelay(2);
  Texts actual = writtenByCycle();
  for (std::string& write : actual)
    if (write.starts_with("BC0=") || write.starts_with("88C=") || write.starts_with("924="))
      write.resize(3);
  EXPECT_EQ(actual, (Texts{"lamp 10=0", "2EB0=0", "7E8=0", "7E4=0", "lamp 15=1", "lamp 15=0",
                           "lamp 14=1", "BC0", "BC0", "BC0", "88C", "924"}));
}

TEST_F(Cycle, FaultCutsTheCycleAndTheNextOneRuns) {
  store().Tas = 200;
  ap().apAltitudeHold(1);
  ap().apAltitude(10000);  // an error of exactly 0 divides by zero
  EXPECT_EQ(relayAfterCycleAt(1), 1);
  EXPECT_EQ(ap().apBank(), 25) << "the steps behind the fault did not run";
  EXPECT_EQ(store().PrevAltitude, 10000) << "those before it did";
  ap().apAltitude(10400);
  EXPECT_EQ(relayAfterCycleAt(1), 2);
  EXPECT_NEAR(ap().apBank(), 28.0906, 1e-3);
}

TEST_F(Cycle, FaultOfAServerThatIsNotTheMasterIsNotCaught) {
  store().IsMaster = false;
  ap().apAltitudeHold(1);
  ap().apAltitude(10000);
  afds().ResetRelay(1);
  EXPECT_EQ(raisedBy([&] { cycle(); }), 11);
}

TEST_F(Cycle, PausedOnlyTheCounterGoesOn) {
  engageWithHeadingAndAltitude();
  store().Paused = 1;
  store().PrevAltitude = 1;
  store().Tas = 200;
  bus.requests = 0;
  EXPECT_EQ(relayAfterCycleAt(30), 31);
  EXPECT_EQ(bus.requests, 0);
  EXPECT_EQ(store().PrevAltitude, 1);
  EXPECT_EQ(ap().apBank(), 25);
}

TEST_F(Cycle, PauseOfAServerThatIsNotTheMasterStopsNothing) {
  store().IsMaster = false;
  store().Paused = 1;
  store().PrevAltitude = 1;
  cycle();
  EXPECT_EQ(store().PrevAltitude, 10000);
}

TEST_F(Cycle, WithoutAPlanNoPhaseBegins) {
  afds().fmc.PhaseOfFlightEnum = Phase::Initial;
  store().OnGround = 1;
  store().GroundSpeed = 120;
  cycle();
  EXPECT_EQ(afds().fmc.PhaseOfFlightEnum, Phase::Initial);
}

TEST_F(Cycle, GoAroundWithoutFlightDirectorIsCancelledBelow400Feet) {
  struct Row {
    std::int16_t fdActive;
    std::int32_t radioAltitude_ft;
    int toGa;
  };
  constexpr Row Rows[] = {{0, 400, 1}, {0, 399, 0}, {1, 399, 1}, {1, 2000, 1}};
  for (const auto& [fdActive, radioAltitude, toGa] : Rows) {
    ap().apToGa(1);
    store().FdActive = fdActive;
    store().RadioAltitude = radioAltitude;
    cycle();
    EXPECT_EQ(ap().apToGa(), toGa) << fdActive << " " << radioAltitude;
  }
}

TEST_F(Cycle, PlanThatIsNotThereCutsOneCycle) {
  afds().ExecFlightplan(1);
  EXPECT_EQ(relayAfterCycleAt(5), 5);
  EXPECT_EQ(afds().ExecFlightplan(), 0);
  EXPECT_EQ(afds().fmc.MaxWaypointId, 0);
  EXPECT_EQ(relayAfterCycleAt(5), 6);
}

TEST_F(Cycle, PlanIsAskedForByAnyNumberAboveZero) {
  afds().ExecFlightplan(-1);
  EXPECT_EQ(relayAfterCycleAt(5), 6);
  afds().ExecFlightplan(2);
  EXPECT_EQ(relayAfterCycleAt(5), 5);
}

TEST_F(Cycle, ActiveRowReadsOneAboveWhatIsStored) { EXPECT_EQ(afds().ActiveFpIndex(), 1); }

TEST_F(Cycle, PitchSensitivityGrowsWithTheAirspeed) {
  struct Row {
    float ias_kt;
    float sensitivity;
  };
  constexpr Row Rows[] = {{250, 300}, {125, 150}, {375, 450}, {0, 300}, {-1, 300}};
  for (const auto& [ias, sensitivity] : Rows) {
    store().Ias = ias;
    cycle();
    EXPECT_EQ(ap().gains.apPitchSensitivityDyn, sensitivity) << ias;
  }
}

TEST_F(Cycle, VerticalSpeedSensitivityShrinksWithTheFlaps) {
  struct Row {
    std::int16_t flaps;
    float sensitivity;
  };
  constexpr Row Rows[] = {{0, 90}, {-1, 90}, {16383, 30}, {5461, 70}};
  for (const auto& [flaps, sensitivity] : Rows) {
    store().FlapsControl = flaps;
    cycle();
    EXPECT_FLOAT_EQ(ap().gains.apVspeedSensitivity, sensitivity) << flaps;
  }
}

struct SpeedTargetRow {
  bool cycleRunning;
  int plan;
  float mcp_kt;
  std::int16_t fmc_kt;
  float target_kt;
};

TEST_F(Cycle, SpeedTargetIsThePanelsUnlessThePlanAllowsLess) {
  constexpr SpeedTargetRow Rows[] = {
      {false, 0, 280, 251, 280}, {true, 0, 280, 251, 280}, {false, 2, 280, 251, 280},
      {true, 2, 280, 251, 251},  {true, 2, 240, 251, 240}, {true, 2, 251, 251, 251},
      {true, 2, 280, 0, 280},    {true, 2, 280, 1, 1},
  };
  for (const auto& [running, plan, mcp, fmc, target] : Rows) {
    store().CycleRunning = running;
    givePlan();
    setLastRows(plan, 2);
    afds().performance.FmcSpeed = fmc;
    ap().apMcpAirSpeed(mcp);
    cycle();
    EXPECT_EQ(ap().apAirSpeed(), target) << mcp << " " << fmc;
    EXPECT_EQ(at().apAirSpeed(), target);
  }
}

TEST_F(Cycle, SpeedTargetStaysInAGoAround) {
  store().RadioAltitude = 2000;
  ap().apToGa(1);
  ap().apMcpAirSpeed(280);
  cycle();
  EXPECT_EQ(ap().apAirSpeed(), 250);
}

struct ChangeoverRow {
  double error_ft;  ///< gives the direction
  int byMach;
  float mach;
  int after;
  float target;  ///< 0.5 when it is left alone
};

TEST_F(Cycle, SpeedChangesToMachAndBackByTheDirection) {
  constexpr ChangeoverRow Rows[] = {
      {5000, 0, 0.78F, 1, 0.78F}, {5000, 0, 0.77F, 0, 0.5F},   {5000, 1, 0.8F, 1, 0.5F},
      {5000, 1, 0.77F, 0, 0.5F},  {-5000, 0, 0.74F, 1, 0.74F}, {-5000, 0, 0.73F, 0, 0.5F},
      {-5000, 1, 0.8F, 1, 0.5F},  {-5000, 1, 0.73F, 0, 0.5F},  {0, 0, 0.8F, 0, 0.5F},
      {0, 1, 0.1F, 1, 0.5F},
  };
  for (const auto& [error, byMach, mach, after, target] : Rows) {
    fresh();
    afds().performance.ClimbMach = 0.78F;
    afds().performance.DescentMach = 0.74F;
    if (error != 0) {
      ap().apVSpeedHold(1);
      ap().apAltitude(static_cast<float>(10000 + error));
      cycle();
    }
    at().ApMachNumber(0.5F);
    at().apMachNumberHoldByRpm(static_cast<std::int16_t>(byMach));
    store().Mach = mach;
    cycle();
    EXPECT_EQ(at().apMachNumberHoldByRpm(), after) << error << " " << mach;
    EXPECT_EQ(at().ApMachNumber(), target) << error << " " << mach;
  }
}

TEST_F(Cycle, ChangeoverWithoutAKnownMachIsLeftAlone) {
  ap().apVSpeedHold(1);
  ap().apAltitude(20000);
  cycle();
  store().Mach = 0.8F;
  cycle();
  EXPECT_EQ(at().apMachNumberHoldByRpm(), 0);
  at().apMachNumberHoldByRpm(1);
  store().Mach = 0;
  cycle();
  EXPECT_EQ(at().apMachNumberHoldByRpm(), 1);
}

TEST_F(Cycle, VerticalSpeedIsWorkedOutOfTheAltitude) {
  store().AircraftAltitude = 10004.4;  // 4.4 ft in 0.44 s
  store().VerticalSpeed = 200;
  store().AvgVerticalSpeed = 100;
  cycle();
  EXPECT_NEAR(store().CalcVerticalSpeed, 600, 1e-3);
  EXPECT_NEAR(store().AvgVerticalSpeed, 350, 1e-3);
  EXPECT_EQ(store().PrevAltitude, 10004.4);
}

TEST_F(Cycle, VerticalSpeedMoreThan500OffIsTheSimulators) {
  struct Row {
    float simulators_fpm;
    float taken_fpm;
  };
  constexpr Row Rows[] = {{-500, 0}, {500, 0}, {501, 501}, {-501, -501}};
  for (const auto& [simulators, taken] : Rows) {
    store().VerticalSpeed = simulators;
    cycle();
    EXPECT_EQ(store().CalcVerticalSpeed, taken) << simulators;
  }
}

TEST_F(Cycle, AirspeedIsAveragedWithTheOneBefore) {
  store().AvgIas = 240;
  store().Ias = 260;
  cycle();
  EXPECT_EQ(store().PrevAvgIas, 240);
  EXPECT_EQ(store().AvgIas, 250);
  cycle();
  EXPECT_EQ(store().PrevAvgIas, 250);
  EXPECT_EQ(store().AvgIas, 255);
}

TEST_F(Cycle, AirspeedTrendIsTheChangeOfTheAverageOver440Milliseconds) {
  at().apAutoThrottle(1);
  at().apAirspeedHoldByRpm(1);
  engine(1).ThrustLever = 60;
  store().PrevAvgIas = 247.8F;                                   // 2.2 kt: 5 kt/s
  EXPECT_EQ(writtenByCycle(), (Texts{"88C=6348", "924=6348"}));  // 60 - 5 x 0.1 x 42.5
  EXPECT_EQ(writtenByCycle(), (Texts{"88C=9830", "924=9830"}));  // steady
}

TEST_F(Cycle, N1TrendIsTheChangeSinceTheLastCycle) {
  at().apAutoThrottle(1);
  engine(1).ThrustLever = 60;
  at().apRpmHold(1);
  at().apRpm(at().RpmRamp());
  engine(1).N1 = at().RpmRamp();
  engine(1).N1Prev = engine(1).N1 - 2.2F;                        // 5 percent a second
  EXPECT_EQ(writtenByCycle(), (Texts{"88C=9011", "924=9011"}));  // 60 - 5
  EXPECT_EQ(engine(1).N1Prev, engine(1).N1);
  EXPECT_EQ(writtenByCycle(), (Texts{"88C=9830", "924=9830"}));
}

TEST_F(Cycle, AutothrottleThatIsOffStopsEveryLawAndLeavesTheModes) {
  struct Row {
    const char* mode;
    void (clsXAutoT::*set)(std::int16_t);
    std::string left;
  };
  const Row rows[] = {
      {"speed", &clsXAutoT::apAirspeedHoldByRpm, "apAirspeedHoldByRpm"},
      {"N1", &clsXAutoT::apRpmHold, "apRpmHold"},
      {"retard", &clsXAutoT::apRetard, "apRetard"},
  };
  for (const std::int16_t off : {std::int16_t{0}, std::int16_t{2}})
    for (const Row& row : rows) {
      SCOPED_TRACE(row.mode);
      fresh();
      engine(1).ThrustLever = 60;
      engine(1).N1 = engine(1).N1Prev = 80;
      at().apAutoThrottle(1);
      (at().*row.set)(1);
      at().apRpm(90);
      EXPECT_EQ(writtenByCycle().size(), 2U) << "armed, both levers move";
      at().apAutoThrottle(off);
      EXPECT_EQ(writtenByCycle(), Texts{});
      EXPECT_EQ(state(), (off == 0 ? "" : "apAutoThrottle:2 ") + row.left);
    }
}

TEST_F(Cycle, ModeAtAnotherNumberThanOneFliesNothing) {
  ap().ApEngaged(1);
  ap().apCwsRollMode(0);
  ap().apCwsPitchMode(0);
  ap().apHeadingHold(2);
  ap().apCwsRollMode(0);
  ap().apAltitudeHold(2);
  ap().apVSpeedHold(2);
  ap().apAttitudeHold(2);
  EXPECT_EQ(writtenByCycle(), Texts{});
}

TEST_F(Cycle, AutothrottleThatIsNotArmedDoesNotKeepTheBankFromFollowingTheAirspeed) {
  store().Tas = 200;
  cycle();
  EXPECT_NEAR(ap().apBank(), 28.0906, 1e-3);
}

/// The pitch of a V/S of 1500 in a bank of 20 degrees shows which way the bank was seen to move.
class BankRate : public Cycle {
 protected:
  static constexpr double RollingInPitch_deg = 9.32;        // (1500 + 330 x tan 45) x 1.2 / 300 + 2
  static constexpr double SteadyPitch_deg = 8.480441;       // (1500 + 330 x tan 20) x 1.2 / 300 + 2
  static constexpr double RollingOutPitch_deg = 6.0769898;  // (1500 + 330 x tan 5) x 0.8 / 300 + 2

  void SetUp() override {
    Cycle::SetUp();
    ap().apVSpeedHold(1);
    ap().apVertSpeed(1500);
    ap().apAltitude(20000);
  }
  double pitchAt(float bank_deg) {
    store().Bank = bank_deg;
    afds().ResetRelay(1);
    cycle();
    return ap().apPitch();
  }
  void pass(float bank_deg) {
    store().Bank = bank_deg;
    afds().ResetRelay(2);
    cycle();
  }
};

TEST_F(BankRate, IsWhatTheLastLawTookLessTheLastBank) {
  pass(10);
  EXPECT_EQ(afds().SignedBank(), 10);
  EXPECT_NEAR(pitchAt(20), RollingOutPitch_deg, 1e-4);  // (0 - 10) / 0.44
  EXPECT_NEAR(pitchAt(20), SteadyPitch_deg, 1e-4);      // (20 - 20) / 0.44
  pass(350);
  EXPECT_EQ(afds().SignedBank(), -10);
  EXPECT_NEAR(pitchAt(20), RollingInPitch_deg, 1e-4);  // (20 + 10) / 0.44
}

TEST_F(BankRate, TurnsItsSignWithABankToTheRight) {
  // Heading hold takes the bank with its sign: -20 after -10, and -20 after -30.
  ap().apHeadingHold(1);
  pass(350);
  EXPECT_NEAR(pitchAt(340), RollingInPitch_deg, 1e-4);
  pass(330);
  EXPECT_NEAR(pitchAt(340), RollingOutPitch_deg, 1e-4);
}

}  // namespace
}  // namespace vorlent
