#include "autoflight/AutoflightTest.h"

namespace vorlent {
namespace {

class PitchHold : public AutoflightTest {
 protected:
  void SetUp() override {
    AutoflightTest::SetUp();
    ap().gains.apPitchSensitivityDyn = 300;
    ap().gains.apVspeedSensitivity = 90;
    ap().tuning.apVspeedSensitivityFix = 100;
    ap().tuning.apPitchControlfactor = 20;
    ap().apVertSpeedMax(1500);
    store().CalcVerticalSpeed = 500;
    store().Pitch = 3;
    afds().ResetRelay(1);
  }
};

TEST_F(PitchHold, AltitudeAimsThePitchAtItsVerticalSpeed) {
  ap().HoldAltitude(400, 0, 0);  // 790.96 ft/min
  EXPECT_NEAR(ap().VsTarget(), 790.96359, 1e-3);
  EXPECT_NEAR(ap().apPitch(), 3.9698786, 1e-5);  // (790.96 - 500) / 300 + 3
  EXPECT_EQ(afds().Relay(), 1);
}

TEST_F(PitchHold, AltitudeNearItsTargetRunsSooner) {
  ap().HoldAltitude(30, 0, 0);
  EXPECT_EQ(afds().Relay(), 3);
}

TEST_F(PitchHold, AltitudeInATurnRunsSoonerStillAndAddsLift) {
  store().Bank = 340;
  ap().HoldAltitude(30, 0, 0);
  EXPECT_EQ(afds().Relay(), 5);
  EXPECT_EQ(ap().apNormbank(), 20);
  // (30^1.9 x 90 / 7000 - 500 + 350 x tan 20) / 300 + 3, 30^1.9 = 640.517
  EXPECT_NEAR(ap().apPitch(), 1.785416, 1e-5);
}

TEST_F(PitchHold, AltitudeAtItsTargetInAFastClimbLeavesAllAsItIs) {
  ap().apPitch(7);
  store().Bank = 20;
  store().CalcVerticalSpeed = 700;
  ap().HoldAltitude(10, 0, 0);
  EXPECT_EQ(ap().apPitch(), 7);
  EXPECT_EQ(ap().VsTarget(), 0);
  EXPECT_EQ(ap().apNormbank(), 0);
}

TEST_F(PitchHold, AltitudeErrorOfZeroIsAFault) {
  ap().apPitch(7);
  EXPECT_EQ(raisedBy([&] { ap().HoldAltitude(0, 0, 0); }), 11);
  EXPECT_EQ(ap().apPitch(), 7);
}

TEST_F(PitchHold, VerticalSpeedAimsThePitch) {
  ap().apVertSpeed(1500);
  store().Bank = 20;
  ap().HoldVspeed(0.3, 400);
  EXPECT_EQ(ap().apNormbank(), 20);
  EXPECT_NEAR(ap().apPitch(), 7.12, 1e-4);
  EXPECT_EQ(afds().Relay(), 5);
}

TEST_F(PitchHold, SpeedByPitchStartsItsMemoriesAtThePresentPitch) {
  ap().apAirspeedHoldByPitch(1);
  ap().apAirSpeed(260);
  store().AvgIas = 250;
  ap().HoldAirspeedByPitch(0.8);
  EXPECT_FLOAT_EQ(ap().apPitch(), 7);  // 5 x 0.8 + 3
}

TEST_F(PitchHold, SpeedByPitchFollowsMachWhileItIsHeld) {
  store().Ias = 280;
  store().AvgIas = 280;
  ap().apAirSpeed(300);
  at().ApMachNumber(0.75F);
  at().apMachNumberHoldByRpm(1);
  store().Mach = 0.875F;  // too fast: 280 - 50 x 0.125
  ap().HoldAirspeedByPitch(0);
  EXPECT_FLOAT_EQ(ap().apPitch(), 3.3125F);  // 3 + 6.25 / 20
  store().Mach = 0.625F;                     // too slow: 280 + 70 x 0.125
  ap().HoldAirspeedByPitch(0);
  EXPECT_FLOAT_EQ(ap().apPitch(), 2.5625F);  // 3 - 8.75 / 20
  EXPECT_EQ(ap().apAirSpeed(), 300);
  EXPECT_EQ(at().ApMachNumber(), 0.75F);
}

TEST_F(PitchHold, SpeedByPitchThatHasNoAnswerKeepsThePitch) {
  ap().apPitch(7);
  store().AvgIas = 250;
  ap().apAirSpeed(250);
  ap().HoldAirspeedByPitch(0);
  EXPECT_EQ(ap().apPitch(), 7);
}

TEST_F(PitchHold, TrimGoesOutWhenEngagedAndAlwaysToTheFlightDirector) {
  store().ElevatorTrimInput = 1000;
  ap().apPitch(5);
  ap().KeepPitch4();
  EXPECT_EQ(store().FdPitch, -2);
  EXPECT_EQ(written(), Texts{});
  ap().ApEngaged(1);  // aims at 3.2
  ap().apPitch(1);
  ap().HoldPitch();
  EXPECT_EQ(store().FdPitch, 2);
  EXPECT_EQ(written(), Texts{"BC0=920"});  // 1000 - 2 x 2 x 20
}

TEST_F(PitchHold, NegativeTrimIsTwosComplement) {
  ap().ApEngaged(1);
  ap().apPitch(1);
  ap().KeepPitch4();
  EXPECT_EQ(written(), Texts{"BC0=65456"});  // 65536 - 80
}

}  // namespace
}  // namespace vorlent
