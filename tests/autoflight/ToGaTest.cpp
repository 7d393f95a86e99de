#include "autoflight/PlannedTest.h"
#include "core/frmMainClient.h"

namespace vorlent {
namespace {

class ToGa : public PlannedTest {
 protected:
  void SetUp() override {
    PlannedTest::SetUp();
    stand();
  }
  /// On the runway, TO/GA pressed, the flight director on.
  void stand() {
    takeOff();
    store().OnGround = store().FdActive = 1;
    store().RadioAltitude = 0;
    store().Ias = 0;
    store().FdPitch = 1;
    afds().N1SwitchStatus(3);
    afds().performance.TakeoffN1 = 93;
    afds().performance.FmcSpeed = 251;
    ap().apToGa(1);
    bus.writes.clear();
  }
  /// In the air instead, at a radio altitude.
  void climb(std::int32_t radioAltitude_ft) {
    stand();
    store().OnGround = 0;
    store().RadioAltitude = radioAltitude_ft;
    store().VerticalSpeed = 2000;
  }
  /// Reads the acceleration altitude of 1500 ft from a whole tuning file.
  void tune() {
    const std::string folder = "\\\\fmc1\\Tarnwick\\FMS\\";
    std::string file = "[ApConfig]\n";
    for (const char* key :
         {"TurningRangeVor", "TurningRangeWpt", "RollControlFactor", "PitchControlfactor",
          "ClimbPitchFactor", "PitchSensitivity", "VspeedSensitivity", "ThrottleControlFactor",
          "MaxBankCourseDeviation", "BankLimitLowAltitude", "BankLimitHighAltitude",
          "MaxTrackOffset", "N1ToThr0", "N1ToThr1", "N1ToThr2"})
      file += std::string(key) + "=1\n";
    t.networkFiles.files[folder + "plan.cfg"] = "[Flight]\nAircraft=737-700\n";
    t.networkFiles.files[folder + "Acft\\737-700\\737-700.acf"] = file;
    afds().ReadAircraftConfig(folder + "plan.cfg");
  }
  void fly() { autoflight::FlyToGa(autoflight()); }
};

TEST_F(ToGa, AtRestTakesThrustHeadingAndNoseDown) {
  store().TrueHeading = 271.5F;
  fly();
  EXPECT_EQ(store().FdPitch, 10);
  EXPECT_EQ(shown().PitchEngagedMode, "TO/GA");
  EXPECT_EQ(ap().apHeading(), 271.5F);
  EXPECT_EQ(at().apRpm(), 93);
  EXPECT_EQ(engine(1).N1Target, 93);
  EXPECT_EQ(engine(2).N1Target, 93);
  EXPECT_EQ(at().apRpmHold(), 1);
}

TEST_F(ToGa, ThrustIsTakenOnceAndTheHeadingAgain) {
  fly();
  at().apRpm(50);
  store().TrueHeading = 100;
  fly();
  EXPECT_EQ(at().apRpm(), 50);
  EXPECT_EQ(ap().apHeading(), 100);
}

TEST_F(ToGa, DirectorPitchesUpFrom60Knots) {
  struct Row {
    float ias_kt;
    float pitch_deg;
  };
  constexpr Row Rows[] = {{59.9F, 10}, {60, -15}, {83.9F, -15}, {84, 1}, {140, 1}};
  for (const auto& [ias, pitch] : Rows) {
    stand();
    store().Ias = ias;
    fly();
    EXPECT_EQ(store().FdPitch, pitch) << ias;
    EXPECT_EQ(at().apThrottleHold(), 0);
  }
}

TEST_F(ToGa, FastOnTheGroundTheLeversAreHeldWhereSoundsAreOn) {
  t.form.Settings(Setting::AircraftSound).Checked(true);
  at().apAutoThrottle(1);
  fly();
  ASSERT_EQ(at().apRpmHold(), 1);
  store().Ias = 84;
  fly();
  EXPECT_EQ(at().apThrottleHold(), 1);
  EXPECT_EQ(at().apRpmHold(), 0);
  EXPECT_EQ(shown().ATEngagedMode, "THR_HLD");
}

TEST_F(ToGa, InTheAirTheSpeedIsHeldByPitchOnceItClimbs) {
  climb(900);
  store().VerticalSpeed = 99.9F;
  fly();
  EXPECT_EQ(store().FdPitch, -15);
  EXPECT_EQ(ap().apAirspeedHoldByPitch(), 0);
  store().FdPitch = 1;
  store().VerticalSpeed = 100;
  store().AircraftAltitude = -1;
  fly();
  EXPECT_EQ(store().FdPitch, 1);
  EXPECT_EQ(ap().apAirspeedHoldByPitch(), 1);
  EXPECT_EQ(ap().apAirSpeed(), 251);
  EXPECT_EQ(ap().apToGa(), 1);
}

TEST_F(ToGa, Above800FeetTheLeversAreReleased) {
  for (const std::int32_t height : {800, 801}) {
    climb(height);
    store().AircraftAltitude = -1;
    at().apThrottleHold(1);
    fly();
    EXPECT_EQ(at().apThrottleHold(), height > 800 ? 0 : 1) << height;
  }
}

TEST_F(ToGa, EndsInALevelChangeAboveTheAccelerationAltitude) {
  for (const double altitude : {1500.0, 1500.1}) {
    climb(1400);
    tune();
    ASSERT_EQ(afds().AccelerationAltitude(), 1500);
    ap().apMcpAltitude(9000);
    store().AircraftAltitude = altitude;
    fly();
    const bool ended = altitude > 1500;
    EXPECT_EQ(ap().apLevelChange(), ended ? 1 : 0) << altitude;
    EXPECT_EQ(ap().apToGa(), ended ? 0 : 1);
    EXPECT_EQ(ap().apAltitude(), 9000);
  }
}

TEST_F(ToGa, WithoutATuningFileItEndsAboveSeaLevel) {
  climb(900);
  store().AircraftAltitude = 0.1;
  ASSERT_EQ(afds().AccelerationAltitude(), 0);
  fly();
  EXPECT_EQ(ap().apToGa(), 0);
}

TEST_F(ToGa, GoesOnWhileAnotherPitchModeOrVnavIsOn) {
  const Act modes[] = {[&] { ap().apVSpeedHold(1); }, [&] { ap().apAltitudeHold(1); },
                       [&] { afds().VNAV(1); }};
  for (const Act& mode : modes) {
    climb(5000);
    mode();
    ap().apToGa(1);
    fly();
    EXPECT_EQ(ap().apToGa(), 1);
    EXPECT_EQ(ap().apLevelChange(), 0);
  }
}

TEST_F(ToGa, BankGrowsWithTheHeight) {
  struct Row {
    std::int32_t height_ft;
    int bank_deg;
  };
  constexpr Row Rows[] = {{0, 8}, {200, 8}, {201, 15}, {400, 15}, {401, 30}, {5000, 30}};
  for (const auto& [height, bank] : Rows) {
    store().RadioAltitude = height;
    fly();
    EXPECT_EQ(ap().apBankLimit(), bank) << height;
  }
}

TEST_F(ToGa, FirstPhaseBecomesTheTakeoffRollWithoutAPlanToo) {
  for (const std::int16_t before : {Phase::Reset, Phase::Initial, Phase::Climb, Phase::Landed}) {
    setLastRows(0, 0);
    phase() = before;
    fly();
    EXPECT_EQ(phase(), before == Phase::Initial ? 2 : before);
  }
}

TEST_F(ToGa, IsAStepOfTheCycleWhileTheDirectorIsOn) {
  setLastRows(0, 0);
  afds().AFDS();
  EXPECT_EQ(store().FdPitch, 10);
  stand();
  setLastRows(0, 0);
  store().FdActive = 0;
  store().RadioAltitude = 400;
  afds().AFDS();
  EXPECT_EQ(store().FdPitch, 1);
  EXPECT_EQ(ap().apToGa(), 1);
}

TEST_F(ToGa, WithThrottleArmedTheRollWritesHeadingLampAndThrust) {
  setLastRows(0, 0);
  at().apAutoThrottle(1);
  store().TrueHeading = 90;
  engine(1).N1 = engine(1).N1Prev = 20;
  bus.writes.clear();
  afds().AFDS();
  // From 23.03 the target eases to 30.03, and a tenth of the 10.03 that are missing goes out, of
  // 16383 for 100.
  EXPECT_EQ(written(), (Texts{"7CC=16384", "lamp 22=1", "88C=164", "924=164"}));
}

}  // namespace
}  // namespace vorlent
