#include "autoflight/AutoflightTest.h"

namespace vorlent {
namespace {

/// The pitch part of a cycle at 250 kt, 300 ft/min a degree, at a true 10000 ft.
class PitchArbitration : public AutoflightTest {
 protected:
  void SetUp() override {
    AutoflightTest::SetUp();
    fresh();
  }

  void fresh() {
    renew();
    ap().tuning.apPitchSensitivityFix = 300;
    ap().tuning.apVspeedSensitivityFix = 100;
    ap().tuning.apPitchControlfactor = 20;
    ap().tuning.apClimbPitchFactor = 0.04F;
    store().Ias = store().AvgIas = store().PrevAvgIas = 250;
    ap().apMcpAirSpeed(250);
    ap().apAirSpeed(250);
    flyAt(10000, 0);
  }

  /// At this altitude, climbing at this rate for long.
  void flyAt(double altitude_ft, float climb_fpm) {
    store().AircraftAltitude = altitude_ft;
    store().PrevAltitude = 0;  // too far off, so that the simulator's own rate is taken
    store().VerticalSpeed = climb_fpm;
    store().AvgVerticalSpeed = climb_fpm;
  }

  /// One cycle with the target this far away and the counter at `relay`.
  void cycle(double error_ft, int relay = 2) {
    ap().apAltitude(static_cast<float>(store().AircraftAltitude + error_ft));
    afds().ResetRelay(relay);
    bus.writes.clear();
    const double altitude = store().AircraftAltitude;
    afds().AFDS();
    ASSERT_EQ(store().PrevAltitude, altitude);
    store().PrevAltitude = 0;
  }
};

TEST_F(PitchArbitration, VerticalSpeedSetsTheDirectionAndTheLimitAndTheThrottle) {
  ap().apVSpeedHold(1);
  ap().apVertSpeed(-1800);
  cycle(5000);
  EXPECT_EQ(ap().apVertSpeedMax(), 1800);
  EXPECT_EQ(afds().ClimbFlag(), 1);
  EXPECT_EQ(afds().DescentFlag(), 0);
  EXPECT_EQ(state(), "apVSpeedHold apAirspeedHoldByRpm PitchModeActive pitch=V/S");
  cycle(-5000);
  EXPECT_EQ(afds().ClimbFlag(), 0);
  EXPECT_EQ(afds().DescentFlag(), 1);
  EXPECT_EQ(written(), Texts{});  // the throttle's speed mode is on already
}

TEST_F(PitchArbitration, VerticalSpeedRunsItsLawAtOneOnly) {
  ap().apVSpeedHold(1);
  ap().apVertSpeed(1500);
  ap().apPitch(9);
  cycle(5000, 2);
  EXPECT_EQ(ap().apPitch(), 9);
  cycle(5000, 1);
  EXPECT_NEAR(ap().apPitch(), 8, 1e-5);  // 1500 x 1.2 / 300 + 2
}

TEST_F(PitchArbitration, VerticalSpeedAtItsAltitudeKeepsTheDirectionAndAcquires) {
  ap().apVSpeedHold(1);
  cycle(-5000);
  cycle(0);
  EXPECT_EQ(afds().DescentFlag(), 1);
  EXPECT_EQ(state(), "apAltAcquire apAirspeedHoldByRpm PitchModeActive pitch=ALT_ACQ");
}

TEST_F(PitchArbitration, LevelChangeClimbTakesN1AndPitchesForTheSpeed) {
  afds().ClimbN1(85);
  afds().N1SwitchStatus(3);
  ap().apLevelChange(1);
  cycle(5000);
  EXPECT_EQ(afds().ClimbFlag(), 1);
  EXPECT_EQ(afds().DescentFlag(), 0);
  EXPECT_EQ(at().apRpm(), 85);
  EXPECT_EQ(ap().apPitch(), 10);  // 0.04 x 250
  EXPECT_EQ(ap().apVertSpeedMax(), 1500);
  EXPECT_EQ(afds().Relay(), 5);
  EXPECT_EQ(state(), "apAirspeedHoldByPitch apLevelChange apRpmHold PitchModeActive pitch=MCP_SPD");
}

TEST_F(PitchArbitration, LevelChangeClimbLeavesAnN1HoldAsItIs) {
  at().apRpmHold(1);
  at().apRpm(77);
  afds().N1SwitchStatus(3);
  ap().apLevelChange(1);
  cycle(5000);
  EXPECT_EQ(at().apRpm(), 77);
}

TEST_F(PitchArbitration, LevelChangeDescentRetards) {
  at().apRpm(85);
  afds().N1SwitchStatus(3);
  engine(1).N1Target = 85;
  ap().apLevelChange(1);
  cycle(-5000);
  EXPECT_EQ(afds().ClimbFlag(), 0);
  EXPECT_EQ(afds().DescentFlag(), 1);
  EXPECT_EQ(at().apRpm(), 0);
  EXPECT_EQ(engine(1).N1Target, 0);
  EXPECT_EQ(ap().apPitch(), -0.5F);
  EXPECT_EQ(afds().Relay(), 5);
  EXPECT_EQ(state(),
            "apAirspeedHoldByPitch apLevelChange apRetard PitchModeActive AT=RETARD "
            "pitch=MCP_SPD");
}

TEST_F(PitchArbitration, LevelChangeStartsOnce) {
  ap().apLevelChange(1);
  cycle(5000);
  ap().apPitch(4);
  cycle(5000);
  EXPECT_EQ(ap().apPitch(), 4);
}

TEST_F(PitchArbitration, LevelChangeWithin1000FeetAcquires) {
  ap().apLevelChange(1);
  cycle(1000);
  EXPECT_EQ(state(), "apAltAcquire apAirspeedHoldByRpm PitchModeActive pitch=ALT_ACQ");
  EXPECT_EQ(written(), (Texts{"lamp 1=0", "lamp 14=1"}));
}

TEST_F(PitchArbitration, CaptureComesWithin1000FeetOrHalfAMinuteAway) {
  struct Row {
    double error_ft;
    float climb_fpm;
    bool captured;
  };
  constexpr Row Rows[] = {
      {1001, 0, false},    {1000, 0, false},    {999, 0, true},     {-999, 0, true},
      {-1000, 0, false},   {1001, 2002, false}, {1001, 2004, true}, {-1001, -2004, true},
      {1001, -2004, true}, {5000, 6000, false},
  };
  for (const auto& [error, climb, captured] : Rows) {
    fresh();
    flyAt(10000, climb);
    ap().apVSpeedHold(1);
    cycle(error);
    EXPECT_EQ(ap().apAltAcquire(), captured ? 1 : 0) << error << " at " << climb;
    EXPECT_EQ(ap().apVSpeedHold(), captured ? 0 : 1) << error << " at " << climb;
  }
}

TEST_F(PitchArbitration, CapturePitchesByTheSideFromWhichItComes) {
  struct Row {
    double error_ft;
    float climb_fpm;
    float pitch_deg;
  };
  constexpr Row Rows[] = {
      {0, 0, 1},           // 300 / 300
      {-500, 0, 1},        //
      {-2000, -6000, 1},   //
      {500, 0, -1},        //
      {2000, 6000, 1.2F},  // 2 x 0.6
  };
  for (const auto& [error, climb, pitch] : Rows) {
    fresh();
    flyAt(10000, climb);
    ap().apVSpeedHold(1);
    cycle(error);
    ASSERT_EQ(ap().apAltAcquire(), 1);
    EXPECT_FLOAT_EQ(ap().apPitch(), pitch) << error;
    EXPECT_EQ(afds().Relay(), 2) << "acquire counts from 1";
  }
}

TEST_F(PitchArbitration, CaptureEndsLevelChangeAndItsSpeedByPitch) {
  ap().apLevelChange(1);
  cycle(5000);
  flyAt(10000, 6000);
  cycle(2000);
  EXPECT_EQ(state(), "apAltAcquire apAirspeedHoldByRpm PitchModeActive pitch=ALT_ACQ");
  EXPECT_EQ(written(), (Texts{"lamp 1=0", "lamp 22=0", "lamp 14=1"}));
}

TEST_F(PitchArbitration, CaptureEndsVnav) {
  givePlan();
  afds().VNAV(1);
  afds().fmc.PhaseOfFlightEnum = Phase::Landed;  // in which VNAV commands no altitude
  ap().apVSpeedHold(1);
  cycle(500);
  EXPECT_EQ(afds().VNAV(), 0);
  EXPECT_EQ(shown().ATEngagedMode, "_");  // "ARM" first, then the speed mode's, not armed
}

struct AcquireRow {
  double error_ft;
  float climb_fpm;
  float pitch_deg;
  int relay;
};

class AltitudeAcquire : public PitchArbitration {
 protected:
  /// A pass of the law after a climb or descent, too fast to end in altitude hold.
  void acquire(const AcquireRow& row, bool climbing, int relay = 1) {
    fresh();
    ap().apVSpeedHold(1);
    cycle(climbing ? 5000 : -5000);
    ap().apAltAcquire(1);
    ap().apPitch(9);
    store().Ias = 50;  // hold begins within 200 ft below 400 ft/min
    flyAt(10000, row.climb_fpm);
    cycle(row.error_ft, relay);
    ASSERT_EQ(ap().apAltAcquire(), 1);
  }
};

TEST_F(AltitudeAcquire, ClimbIsFlattenedByItsRate) {
  constexpr AcquireRow Rows[] = {
      {751, 1801, 1.8F, 2},  {751, 1800, 2.02F, 2}, {751, 0, 2.02F, 2},    {751, -1, 2.4F, 2},
      {750, 1801, 1.84F, 1}, {300, 900, 1.84F, 1},  {-800, 900, 1.84F, 1},
  };
  for (const AcquireRow& row : Rows) {
    acquire(row, true);
    EXPECT_FLOAT_EQ(ap().apPitch(), row.pitch_deg) << row.error_ft << " at " << row.climb_fpm;
    EXPECT_EQ(afds().Relay(), row.relay) << row.error_ft;
  }
}

TEST_F(AltitudeAcquire, DescentIsFlattenedByItsRate) {
  constexpr AcquireRow Rows[] = {
      {-750, -900, 2.4F, 2},   {-300, -900, 2.4F, 2}, {800, -900, 2.4F, 2}, {-751, -1501, 2.1F, 2},
      {-751, -1500, 1.98F, 2}, {-751, 0, 1.98F, 2},   {-751, 1, 1.8F, 1},
  };
  for (const AcquireRow& row : Rows) {
    acquire(row, false);
    EXPECT_FLOAT_EQ(ap().apPitch(), row.pitch_deg) << row.error_ft << " at " << row.climb_fpm;
    EXPECT_EQ(afds().Relay(), row.relay) << row.error_ft;
  }
}

TEST_F(AltitudeAcquire, RunsItsLawEveryTenthPass) {
  struct Row {
    int relay;
    int after;
  };
  constexpr Row Rows[] = {{2, 3}, {9, 10}, {10, 1}, {30, 1}};
  for (const auto& [relay, after] : Rows) {
    acquire({751, 900, 9, 0}, true, relay);
    EXPECT_EQ(ap().apPitch(), 9);
    EXPECT_EQ(afds().Relay(), after);
  }
}

TEST_F(AltitudeAcquire, WithoutADirectionLeavesThePitch) {
  ap().apAltAcquire(1);
  ap().apPitch(9);
  cycle(1200, 1);
  EXPECT_EQ(ap().apPitch(), 9);
  EXPECT_EQ(ap().apAltAcquire(), 1);
}

TEST_F(AltitudeAcquire, EndsInAltitudeHoldWhenSlowAndClose) {
  struct Row {
    double error_ft;
    float climb_fpm;
    bool held;
  };
  constexpr Row Rows[] = {
      {999, 1999, true}, {-999, -1999, true}, {1000, 0, false},
      {-1000, 0, false}, {0, 2000, false},    {0, -2000, false},
  };
  for (const auto& [error, climb, held] : Rows) {
    fresh();
    flyAt(10000, climb);
    ap().apAltAcquire(1);
    cycle(error);
    EXPECT_EQ(ap().apAltitudeHold(), held ? 1 : 0) << error << " at " << climb;
    EXPECT_EQ(ap().apAltAcquire(), held ? 0 : 1) << error << " at " << climb;
  }
}

TEST_F(AltitudeAcquire, HoldThatItEndsInRunsItsLawInTheNextPass) {
  ap().ApEngaged(1);
  ap().apAltAcquire(1);
  cycle(100);
  EXPECT_EQ(state(),
            "ApEngaged apCwsRollMode apAltitudeHold apAirspeedHoldByRpm PitchModeActive "
            "pitch=ALT_HOLD CWS_R");
  EXPECT_EQ(afds().Relay(), 1);
  EXPECT_FLOAT_EQ(ap().apPitch(), 2.4F);
  EXPECT_EQ(bus.writesTo(0x0BC0).size(), 0U) << "no trim in that pass";
}

TEST_F(PitchArbitration, AltitudeHoldRunsItsLawEverySixthPass) {
  ap().apAltitudeHold(1);
  ap().apVertSpeed(-700);
  ap().apVertSpeedMax(1500);
  ap().apPitch(9);
  cycle(2000, 5);
  EXPECT_EQ(afds().Relay(), 6);
  cycle(2000, 6);
  EXPECT_EQ(ap().apPitch(), 9);
  EXPECT_EQ(ap().apVertSpeedMax(), 1500);
  EXPECT_EQ(afds().Relay(), 1);
  cycle(2000, 1);
  EXPECT_EQ(ap().apVertSpeedMax(), 700);
  EXPECT_NEAR(ap().apPitch(), 4.3333333, 1e-5);  // 700 / 300 + 2
}

TEST_F(PitchArbitration, PitchTrimGoesOutEveryPass) {
  ap().ApEngaged(1);
  ap().apAltitudeHold(1);
  ap().apPitch(4);
  for (int pass = 0; pass < 3; ++pass) {
    cycle(2000, 2);
    EXPECT_EQ(bus.writesTo(0x0BC0).size(), 1U);
  }
}

TEST_F(PitchArbitration, NothingIsArbitratedInAGoAround) {
  store().RadioAltitude = 2000;
  ap().apVSpeedHold(1);
  ap().apToGa(1);
  cycle(100, 1);
  EXPECT_EQ(ap().apVSpeedHold(), 1);
  EXPECT_EQ(at().apAirspeedHoldByRpm(), 0);
}

}  // namespace
}  // namespace vorlent
