#include "autoflight/AutoflightTest.h"
#include "core/frmMainClient.h"

namespace vorlent {
namespace {

/// APP pressed in heading select, level at 3000 ft and 140 kt over the ground, pitch 2 degrees: the
/// angle of attack is 2 degrees. A glide path of 3 degrees.
class Glideslope : public AutoflightTest {
 protected:
  void SetUp() override {
    AutoflightTest::SetUp();
    t.server.autoflight.Glideslope = true;
    modPublic& v = store();
    v.Ias = v.AvgIas = v.PrevAvgIas = 250;
    v.GroundSpeed = 140;
    v.RadioAltitude = 2000;
    nav1().LocNeedle = 127;
    nav1().IlsSlope = 3;
    setAltitude(3000);
    ap().tuning.apPitchSensitivityFix = 300;
    ap().tuning.apVspeedSensitivityFix = 90;
    ap().tuning.apPitchControlfactor = 20;
    ap().tuning.apMaxBankCourseDeviation = 30;
    ap().ApEngaged(1);
    ap().apHeadingHold(1);
    ap().apAltitudeHold(1);
    press();
  }
  void press() {
    ap().apApproachHold(1);
    bus.writes.clear();
  }
  void setAltitude(double feet) { store().AircraftAltitude = store().PrevAltitude = feet; }
  void setNeedle(int needle, int flag = 1) {
    nav1().GsNeedle = static_cast<std::int16_t>(needle);
    nav1().GsFlag = static_cast<std::int16_t>(flag);
  }
  /// The pitch that a cycle in which the law runs asks for.
  float pitch() {
    afds().ResetRelay(1);
    afds().AFDS();
    return ap().apPitch();
  }
  void capture() {
    setNeedle(0);
    pitch();
    ASSERT_EQ(ap().apGsCapture(), 1);
  }
  std::string told() { return t.form.sbStatusBar.panelText(1); }
};

TEST_F(Glideslope, PressTakesThePitchChannelAndSpeedByThrust) {
  EXPECT_EQ(shown().PitchEngagedMode, "G/S");
  EXPECT_EQ(ap().apAltitudeHold(), 0);
  EXPECT_EQ(ap().PitchModeActive(), 1);
  EXPECT_EQ(at().apAirspeedHoldByRpm(), 1);
  EXPECT_EQ(afds().Relay(), 1);
}

TEST_F(Glideslope, PressEndsALevelChangeAndACapture) {
  ap().apApproachHold(0);
  ap().apLevelChange(1);
  press();
  EXPECT_EQ(ap().apLevelChange(), 0);
  EXPECT_EQ(shown().PitchEngagedMode, "G/S");
  ap().apApproachHold(0);
  ap().apAltAcquire(1);
  press();
  EXPECT_EQ(ap().apAltAcquire(), 0);
  EXPECT_EQ(shown().PitchEngagedMode, "G/S");
}

TEST_F(Glideslope, AltitudeOfThePressIsKeptUntilTheGlidePathIsMet) {
  setNeedle(-26);
  setAltitude(2950);
  EXPECT_NEAR(pitch(), 2 + 0.606170 * 1.01, 1e-4);  // 50 ft in 20 s, a hundredth of it to stay
  setAltitude(3050);
  EXPECT_NEAR(pitch(), 2 - 0.606170, 1e-4);  // the hundredth goes again
  setAltitude(2000);
  EXPECT_NEAR(pitch(), 2 + 1.5 * 1.01, 1e-4);
  EXPECT_EQ(ap().apGsCapture(), 0);
}

TEST_F(Glideslope, NeedleThatIsNotThereMeetsNothing) {
  setNeedle(0, 0);
  EXPECT_EQ(pitch(), 2);
  EXPECT_EQ(ap().apGsCapture(), 0);
  EXPECT_EQ(told(), "");
}

TEST_F(Glideslope, AboveTheGlidePathTheAltitudeIsKept) {
  setNeedle(26);
  EXPECT_EQ(pitch(), 2);
  EXPECT_EQ(ap().apGsCapture(), 0);
}

TEST_F(Glideslope, GlidePathIsFlownFromAFifthOfTheNeedleOn) {
  setNeedle(-25);
  // 25 / 127 of 0.24 x 2000 ft are 94.488 ft below, 283.46 ft/min of 14177.6.
  EXPECT_NEAR(pitch(), 2 - 3 + 1.145416 * 1.01, 1e-4);
  EXPECT_EQ(ap().apGsCapture(), 1);
  setNeedle(0);
  EXPECT_NEAR(pitch(), 2 - 3 + 0.01145416, 1e-4);
  setNeedle(127);
  EXPECT_NEAR(pitch(), 2 - 3 - 1.5 + 0.01145416 - 0.015, 1e-4);
  EXPECT_EQ(shown().PitchEngagedMode, "G/S");
}

TEST_F(Glideslope, AngleOfAttackIsEasedWithEachPass) {
  capture();
  store().Pitch = 3;
  EXPECT_NEAR(pitch(), 2.3 - 3, 1e-4);
  EXPECT_NEAR(pitch(), 2.51 - 3, 1e-4);
}

TEST_F(Glideslope, LawRunsEveryThirdCycleAndTheTrimEachOne) {
  capture();
  const float before = ap().apPitch();
  setNeedle(60);
  for (int cycle = 0; cycle < 2; ++cycle) {
    bus.writes.clear();
    afds().AFDS();
    EXPECT_EQ(ap().apPitch(), before);
    EXPECT_EQ(bus.writesTo(0x0BC0).size(), 1U);
  }
  afds().AFDS();
  EXPECT_NE(ap().apPitch(), before);
}

TEST_F(Glideslope, At50FeetTheAttitudeIsKept) {
  capture();
  store().RadioAltitude = 51;
  const float above = pitch();
  setNeedle(-127);
  store().RadioAltitude = 50;
  EXPECT_EQ(pitch(), above);
  setNeedle(0, 0);
  EXPECT_EQ(pitch(), above);
  EXPECT_EQ(told(), "") << "a needle that dies there is no loss";
}

TEST_F(Glideslope, NeedleThatDiesIsToldOnceAndTheAttitudeKept) {
  capture();
  const float before = ap().apPitch();
  setNeedle(0, 0);
  store().Pitch = 5;
  EXPECT_EQ(pitch(), before);
  EXPECT_EQ(told(), "Glide path lost: the autopilot keeps the attitude");
  t.form.sbStatusBar.panelText(1, "read");
  EXPECT_EQ(pitch(), before);
  EXPECT_EQ(told(), "read");
  setNeedle(0);
  // Three passes eased the angle of attack from 2 toward 5 degrees: 5 - 3 x 0.7^3.
  EXPECT_NEAR(pitch(), 3.971 - 3, 1e-4);
  setNeedle(0, 0);
  pitch();
  EXPECT_EQ(told(), "Glide path lost: the autopilot keeps the attitude");
}

TEST_F(Glideslope, AnotherPitchModeTakesTheChannel) {
  capture();
  ap().apVSpeedHold(1);
  EXPECT_EQ(ap().apGlideslopeHold(), 0);
  press();
  EXPECT_EQ(ap().apVSpeedHold(), 0);
  EXPECT_EQ(ap().apGsCapture(), 0) << "a new press begins anew";
}

TEST_F(Glideslope, PressedInNoRollModeItWaitsForTheModeThatFlies) {
  ap().apApproachHold(0);
  ap().apLocalizerHold(0);
  ap().apHeadingHold(0);
  ap().apAltitudeHold(1);
  press();
  EXPECT_EQ(ap().apAltitudeHold(), 1);
  setNeedle(0);
  setAltitude(2900);
  pitch();
  EXPECT_EQ(ap().apGsCapture(), 0);
  EXPECT_EQ(shown().PitchEngagedMode, "ALT_HOLD");
}

TEST_F(Glideslope, InAGoAroundItRests) {
  capture();
  const float before = ap().apPitch();
  ap().apToGa(1);
  setNeedle(60);
  EXPECT_EQ(pitch(), before);
}

TEST_F(Glideslope, WithoutTheSettingNothingFliesInPitch) {
  t.server.autoflight.Glideslope = false;
  ap().apApproachHold(0);
  ap().apHeadingHold(1);
  ap().apAltitudeHold(1);
  press();
  setNeedle(0);
  pitch();
  EXPECT_EQ(bus.writesTo(0x0BC0).size(), 0U);
  EXPECT_EQ(ap().apGsCapture(), 0);
  EXPECT_NE(shown().PitchEngagedMode, "G/S");
}

}  // namespace
}  // namespace vorlent
