#include "commands/CommandTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ControlAnalog : public CommandTest {
 protected:
  void expectTarget(int code, float value, int held, const Write& write) {
    SCOPED_TRACE(code);
    EXPECT_THAT(analog(code, value), ElementsAre(write));
    EXPECT_EQ(v.ApValues(held), value);
  }
};

TEST_F(ControlAnalog, Code5SetsTheAltimeterLowByteFirst) {
  EXPECT_THAT(analog(5, 1013.25F), ElementsAre(Write{0x0330, {0x54}}, Write{0x0331, {0x3F}}));
}

TEST_F(ControlAnalog, TargetsOfTheSimulatorsAutopilotAreSentAndHeld) {
  expectTarget(6, 12000, 14, {0x07D4, {0x92, 0x99, 0x49, 0x0E}});
  expectTarget(7, 35000, 14, {0x07D4, {0xEA, 0xFF, 0xAB, 0x29}});
  expectTarget(8, 273, 15, {0x07CC, {0x22, 0xC2}});
  expectTarget(9, 0.78F, 16, {0x07E8, {0x92, 0xC7}});
  expectTarget(10, 250, 17, {0x07E2, {0xFA, 0x00}});
  expectTarget(11, -1000, 18, {0x07F2, {0x17, 0xFC}});
  expectTarget(12, 1500, 18, {0x07F2, {0xDC, 0x05}});
}

TEST_F(ControlAnalog, TargetThatTheSimulatorDoesNotTakeIsNotHeld) {
  v.ApValues(14) = 5000;
  EXPECT_THAT(analog(6, 200000), IsEmpty());
  EXPECT_EQ(v.ApValues(14), 5000);
  EXPECT_EQ(status(), "SetAnalogValues Overflow");
}

TEST_F(ControlAnalog, AileronsAndRudderBelowZeroCountFrom65536Down) {
  EXPECT_THAT(analog(13, 16383), ElementsAre(Write{0x0BB6, {0xFF, 0x3F}}));
  EXPECT_THAT(analog(13, -16384), ElementsAre(Write{0x0BB6, {0x00, 0xC0}}));
  EXPECT_THAT(analog(16, 1000), ElementsAre(Write{0x0BBA, {0xE8, 0x03}}));
  EXPECT_THAT(analog(16, -1), ElementsAre(Write{0x0BBA, {0xFF, 0xFF}}));
}

TEST_F(ControlAnalog, ElevatorReachesTheSimulatorWithBothHalvesOfItsTravel) {
  EXPECT_THAT(analog(14, 16383), ElementsAre(Write{0x0BB2, {0xFF, 0x3F}}));
  EXPECT_THAT(analog(14, -16383), ElementsAre(Write{0x0BB2, {0x01, 0xC0}}));
  EXPECT_THAT(analog(14, 0), ElementsAre(Write{0x0BB2, {0x00, 0x00}}));
}

TEST_F(ControlAnalog, ElevatorBeyondItsTravelIsDropped) {
  EXPECT_THAT(analog(14, 16384), IsEmpty());
  EXPECT_THAT(analog(14, -16384), IsEmpty());
}

TEST_F(ControlAnalog, TrimIsSentWhileTheAutopilotIsEngaged) {
  EXPECT_THAT(analog(15, 1000), IsEmpty());
  t.server.autoflight.xAutoP->ApEngaged(1);
  EXPECT_THAT(analog(15, 1000), ElementsAre(Write{0x0BC0, {0xE8, 0x03}}));
  EXPECT_THAT(analog(15, -16383), ElementsAre(Write{0x0BC0, {0x01, 0xC0}}));
}

TEST_F(ControlAnalog, TrimIsDroppedWhileTheSimulatorHoldsAPitchMode) {
  t.server.autoflight.xAutoP->ApEngaged(1);
  for (std::int16_t modPublic::*hold : {&modPublic::ApAltHoldSim, &modPublic::ApAttitudeHoldSim,
                                        &modPublic::ApVsHoldSim, &modPublic::ApGsHoldSim}) {
    v.*hold = 1;
    EXPECT_THAT(analog(15, 1000), IsEmpty());
    v.*hold = 0;
  }
  for (std::int16_t modPublic::*other :
       {&modPublic::ApHeadingHoldSim, &modPublic::ApSpeedHoldSim, &modPublic::ApMasterSim})
    v.*other = 1;
  EXPECT_THAT(analog(15, 1000), ElementsAre(Write{0x0BC0, {0xE8, 0x03}}));
}

TEST_F(ControlAnalog, BrakesGetHalfThePedal) {
  EXPECT_THAT(analog(17, 20000),
              ElementsAre(Write{0x0BC4, {0x10, 0x27}}, Write{0x0BC6, {0x10, 0x27}}));
  EXPECT_THAT(analog(18, 32767), ElementsAre(Write{0x0BC4, {0x00, 0x40}}));  // 16383.5
  EXPECT_THAT(analog(19, 5), ElementsAre(Write{0x0BC6, {0x02, 0x00}}));      // 2.5
}

TEST_F(ControlAnalog, FlapsAreSentAndHeld) {
  EXPECT_THAT(analog(22, 4094), ElementsAre(Write{0x0BDC, {0xFE, 0x0F}}));
  EXPECT_EQ(v.StateValues(1), 4094);
}

TEST_F(ControlAnalog, FlapsOfMinusOneAreDropped) {
  v.StateValues(1) = 4094;
  EXPECT_THAT(analog(22, -1), IsEmpty());
  EXPECT_EQ(v.StateValues(1), 4094);
}

TEST_F(ControlAnalog, SpoilersAreSentAndHeld) {
  EXPECT_THAT(analog(48, 16384), ElementsAre(Write{0x0BD0, {0x00, 0x40}}));
  EXPECT_EQ(v.StateValues(2), 16384);
}

TEST_F(ControlAnalog, PositionBeyond16BitsIsToldAndNotHeld) {
  EXPECT_THAT(analog(48, 40000), IsEmpty());
  EXPECT_EQ(v.StateValues(2), 0);
  EXPECT_EQ(status(), "SetAnalogValues Overflow");
}

}  // namespace
}  // namespace vorlent
