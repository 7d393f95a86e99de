#include "commands/CommandTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AutoflightAnalog : public CommandTest {
 protected:
  clsXAutoP& ap() { return *t.server.autoflight.xAutoP; }
  clsXAutoT& at() { return *t.server.autoflight.xAutoT; }
};

TEST_F(AutoflightAnalog, Code78IsTheTurnRate) {
  EXPECT_THAT(analog(78, 1.5F), IsEmpty());
  EXPECT_EQ(ap().apTurnRate(), 1.5F);
}

TEST_F(AutoflightAnalog, Code79IsTheBankLimitRounded) {
  EXPECT_THAT(analog(79, 24.5F), IsEmpty());
  EXPECT_EQ(ap().apBankLimit(), 24);
}

TEST_F(AutoflightAnalog, Code80IsTheCourseAndTurnsTheFirstObs) {
  EXPECT_THAT(analog(80, 273.4F), ElementsAre(Write{0x0C4E, {0x11, 0x01}}));
  EXPECT_EQ(ap().apCourse(), 273.4F);
}

TEST_F(AutoflightAnalog, Code81IsTheMcpAltitude) {
  EXPECT_THAT(analog(81, 10000), ElementsAre(Write{0x07D4, {0xFA, 0xFF, 0xE7, 0x0B}}));
  EXPECT_EQ(ap().apMcpAltitude(), 10000);
  EXPECT_EQ(ap().apAltitude(), 10000);
}

TEST_F(AutoflightAnalog, Code82IsTheHeading) {
  EXPECT_THAT(analog(82, 90), ElementsAre(Write{0x07CC, {0x00, 0x40}}));
  EXPECT_EQ(ap().apHeading(), 90);
}

TEST_F(AutoflightAnalog, Code83IsTheMachNumberOfBothClasses) {
  EXPECT_THAT(analog(83, 0.78F), IsEmpty());
  EXPECT_EQ(ap().ApMachNumber(), 0.78F);
  EXPECT_EQ(at().ApMachNumber(), 0.78F);
}

TEST_F(AutoflightAnalog, Code84IsTheMcpSpeedBeforeTheChangeover) {
  EXPECT_THAT(analog(84, 250), ElementsAre(Write{0x07E2, {0xFA, 0x00}}));
  EXPECT_EQ(ap().apMcpAirSpeed(), 250);
}

TEST_F(AutoflightAnalog, Code84IsTheMachNumberAfterTheChangeover) {
  at().apChangeover(1);
  EXPECT_THAT(analog(84, 0.8F), IsEmpty());
  EXPECT_EQ(ap().ApMachNumber(), 0.8F);
  EXPECT_EQ(ap().apMcpAirSpeed(), 0);
}

TEST_F(AutoflightAnalog, Code85IsTheVerticalSpeed) {
  EXPECT_THAT(analog(85, 1500), ElementsAre(Write{0x07F2, {0xDC, 0x05}}));
  EXPECT_EQ(ap().apVertSpeed(), 1500);
}

TEST_F(AutoflightAnalog, Code87IsTheAileronTrimNegatedWhileEngaged) {
  EXPECT_THAT(analog(87, 10), IsEmpty());
  ap().ApEngaged(1);
  EXPECT_THAT(analog(87, 10),
              ElementsAre(Write{0x2EB0, {0x53, 0x55, 0x55, 0x55, 0x18, 0x57, 0xC6, 0xBF}}));
}

TEST_F(AutoflightAnalog, Code88IsTheRudderTrimNegatedAlways) {
  EXPECT_THAT(analog(88, -7.5F),
              ElementsAre(Write{0x2EC0, {0xFE, 0xFF, 0xFF, 0x3F, 0x52, 0xC1, 0xC0, 0x3F}}));
}

TEST_F(AutoflightAnalog, Code89IsTheMinimumsRounded) {
  EXPECT_THAT(analog(89, 199.6F), IsEmpty());
  EXPECT_EQ(t.server.autoflight.afds->fmc.Minimums, 200);
}

TEST_F(AutoflightAnalog, Code94TurnsTheSecondObsToTheCourseWhateverTheValue) {
  ap().apCourse(273);
  EXPECT_THAT(analog(94, 12), ElementsAre(Write{0x0C5E, {0x11, 0x01}}));
  EXPECT_EQ(ap().apCourse(), 273);
}

TEST_F(AutoflightAnalog, Code95IsTheTurnRangeOfAVor) {
  EXPECT_THAT(analog(95, 2.5F), IsEmpty());
  EXPECT_EQ(ap().tuning.apTurnRangeVor, 2.5F);
}

TEST_F(AutoflightAnalog, Code96TurnsTheBugOfTheOtherEngine) {
  struct Row {
    int selector;
    float bugOfEngine1;
    float bugOfEngine2;
  };
  for (const Row row : {Row{0, 10, 20}, Row{1, 10, 91}, Row{2, 91, 20}, Row{3, 10, 20},
                        Row{4, 91, 91}, Row{5, 10, 20}}) {
    t.server.autoflight.afds->N1SwitchStatus(static_cast<std::int16_t>(row.selector));
    v.Engines(1).N1Target = 10;
    v.Engines(2).N1Target = 20;
    EXPECT_THAT(analog(96, 91), IsEmpty());
    EXPECT_EQ(v.Engines(1).N1Target, row.bugOfEngine1) << row.selector;
    EXPECT_EQ(v.Engines(2).N1Target, row.bugOfEngine2) << row.selector;
  }
}

TEST_F(AutoflightAnalog, FaultIsToldOnTheStatusLine) {
  EXPECT_THAT(analog(89, 40000), IsEmpty());
  EXPECT_EQ(t.server.autoflight.afds->fmc.Minimums, 0);
  EXPECT_EQ(status(), "SetAnalogValues Overflow");
}

TEST_F(AutoflightAnalog, CourseThatNoObsTakesIsKeptAndTold) {
  EXPECT_THAT(analog(80, 40000), IsEmpty());
  EXPECT_EQ(ap().apCourse(), 40000);
  EXPECT_EQ(status(), "SetAnalogValues Overflow");
}

}  // namespace
}  // namespace vorlent
