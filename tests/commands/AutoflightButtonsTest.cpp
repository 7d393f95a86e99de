#include "commands/CommandTest.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Flag bits of the first NAV receiver.
constexpr std::int16_t Tuned = 128;
constexpr std::int16_t Localizer = 2;

class AutoflightButtons : public CommandTest {
 protected:
  void SetUp() override {
    CommandTest::SetUp();
    v.Mach = 0.5F;
  }
  clsXAutoP& ap() { return *t.server.autoflight.xAutoP; }
  clsXAutoT& at() { return *t.server.autoflight.xAutoT; }
  clsAfds& afds() { return *t.server.autoflight.afds; }
  Annunciators& shown() { return t.server.autoflight.annunciators; }
  /// A plan of four waypoints, so that LNAV and VNAV can be engaged.
  void givePlan() { afds().fmc.MaxWaypointId = 4; }
};

TEST_F(AutoflightButtons, MasterFlipsWithItsLamp) {
  EXPECT_THAT(press(162), ElementsAre(lamp(11, 1)));
  EXPECT_EQ(ap().apMaster(), 1);
  EXPECT_THAT(press(162), ElementsAre(lamp(11, 0)));
  EXPECT_EQ(ap().apMaster(), 0);
}

TEST_F(AutoflightButtons, MasterOffDropsTheSideThatIsEngaged) {
  press(162);
  press(185);
  ASSERT_EQ(ap().apCmdRight(), 1);
  EXPECT_THAT(press(162), ElementsAre(lamp(11, 0), lamp(5, 0)));
  EXPECT_EQ(ap().apCmdRight(), 0);
  EXPECT_EQ(ap().ApEngaged(), 0);
  EXPECT_EQ(shown().AutopilotMode, "FD");
}

TEST_F(AutoflightButtons, MasterOffLeavesControlWheelSteering) {
  press(162);
  press(186);
  press(162);
  EXPECT_EQ(ap().apCwsLeft(), 1);
  EXPECT_EQ(ap().ApEngaged(), 1);
}

TEST_F(AutoflightButtons, AutothrottleFlips) {
  EXPECT_THAT(press(163), ElementsAre(lamp(9, 1)));
  EXPECT_EQ(at().apAutoThrottle(), 1);
  EXPECT_EQ(shown().ATEngagedMode, "ARM");
  EXPECT_THAT(press(163), ElementsAre(lamp(9, 0)));
  EXPECT_EQ(at().apAutoThrottle(), 0);
  EXPECT_EQ(shown().ATEngagedMode, "_");
}

TEST_F(AutoflightButtons, N1TakesTheClimbTargetAndFlips) {
  afds().N1SwitchStatus(2);
  v.Engines(1).N1Target = 91.5F;
  at().apAutoThrottle(1);
  EXPECT_THAT(press(164), ElementsAre(lamp(22, 1)));
  EXPECT_EQ(at().apRpm(), 91.5F);
  EXPECT_EQ(at().apRpmHold(), 1);
  EXPECT_EQ(shown().ATEngagedMode, "N1");
  EXPECT_THAT(press(164), ElementsAre(lamp(22, 0)));
  EXPECT_EQ(at().apRpmHold(), 0);
}

TEST_F(AutoflightButtons, SpeedFlipsAndLeavesVnav) {
  givePlan();
  at().apAutoThrottle(1);
  afds().VNAV(1);
  EXPECT_THAT(press(165), ElementsAre(lamp(3, 0), lamp(14, 1)));
  EXPECT_EQ(afds().VNAV(), 0);
  EXPECT_EQ(at().apAirspeedHoldByRpm(), 1);
  EXPECT_EQ(shown().ATEngagedMode, "MCP_SPD");
  EXPECT_THAT(press(165), ElementsAre(lamp(14, 0)));
  EXPECT_EQ(at().apAirspeedHoldByRpm(), 0);
}

TEST_F(AutoflightButtons, ChangeoverFlipsAndTakesThePresentMach) {
  EXPECT_THAT(press(166), ElementsAre(lamp(8, 1)));
  EXPECT_EQ(at().apChangeover(), 1);
  EXPECT_EQ(ap().ApMachNumber(), 0.5F);
  EXPECT_THAT(press(166), ElementsAre(lamp(8, 0)));
  EXPECT_EQ(at().apChangeover(), 0);
}

TEST_F(AutoflightButtons, LevelChangeFlipsAndLeavesVnav) {
  givePlan();
  afds().VNAV(1);
  EXPECT_THAT(press(167), ElementsAre(lamp(3, 0), lamp(1, 1)));
  EXPECT_EQ(afds().VNAV(), 0);
  EXPECT_EQ(ap().apLevelChange(), 1);
  EXPECT_EQ(shown().PitchEngagedMode, "MCP_SPD");
  EXPECT_THAT(press(167), ElementsAre(lamp(1, 0)));
  EXPECT_EQ(ap().apLevelChange(), 0);
}

TEST_F(AutoflightButtons, VnavFlips) {
  givePlan();
  EXPECT_THAT(press(168), ElementsAre(lamp(3, 1)));
  EXPECT_EQ(afds().VNAV(), 1);
  EXPECT_THAT(press(168), ElementsAre(lamp(3, 0)));
  EXPECT_EQ(afds().VNAV(), 0);
}

TEST_F(AutoflightButtons, LnavFlips) {
  givePlan();
  EXPECT_THAT(press(169), ElementsAre(lamp(2, 1)));
  EXPECT_EQ(afds().LNAV(), 1);
  EXPECT_EQ(shown().RollEngagedMode, "LNAV");
  EXPECT_THAT(press(169), ElementsAre(lamp(2, 0)));
  EXPECT_EQ(afds().LNAV(), 0);
}

TEST_F(AutoflightButtons, LnavAndVnavWithoutAPlanDoNotTouchTheirLamps) {
  EXPECT_THAT(press(168), IsEmpty());
  EXPECT_THAT(press(169), IsEmpty());
  EXPECT_EQ(afds().VNAV(), 0);
  EXPECT_EQ(afds().LNAV(), 0);
}

TEST_F(AutoflightButtons, VorLocFliesAVor) {
  v.NavRadios(1).BackCourse = Tuned;
  EXPECT_THAT(press(170), ElementsAre(lamp(18, 1)));
  EXPECT_EQ(ap().apNav1Hold(), 1);
  EXPECT_EQ(ap().apLocalizerHold(), 0);
  EXPECT_THAT(press(170), ElementsAre(lamp(18, 0)));
  EXPECT_EQ(ap().apNav1Hold(), 0);
}

TEST_F(AutoflightButtons, VorLocFliesALocalizerInPlaceOfAVor) {
  ap().ApEngaged(1);
  ap().apNav1Hold(1);
  v.NavRadios(1).BackCourse = Tuned + Localizer;
  const Write noAileronTrim{0x2EB0, {0, 0, 0, 0, 0, 0, 0, 0}};
  EXPECT_THAT(press(170), ElementsAre(noAileronTrim, lamp(18, 0)));
  EXPECT_EQ(ap().apNav1Hold(), 0);
  EXPECT_EQ(ap().apLocalizerHold(), 1);
  EXPECT_EQ(shown().RollEngagedMode, "VOR/LOC");
  EXPECT_THAT(press(170), IsEmpty());
  EXPECT_EQ(ap().apLocalizerHold(), 0);
}

TEST_F(AutoflightButtons, VorLocFliesAVorInPlaceOfALocalizer) {
  ap().apLocalizerHold(1);
  v.NavRadios(1).BackCourse = Tuned;
  EXPECT_THAT(press(170), ElementsAre(lamp(18, 1)));
  EXPECT_EQ(ap().apLocalizerHold(), 0);
  EXPECT_EQ(ap().apNav1Hold(), 1);
  EXPECT_EQ(ap().RollModeActive(), 1);
}

TEST_F(AutoflightButtons, VorLocWithoutASignalClearsBoth) {
  ap().apLocalizerHold(1);
  ap().apNav1Hold(1);
  v.NavRadios(1).BackCourse = Localizer;
  EXPECT_THAT(press(170), ElementsAre(lamp(18, 0)));
  EXPECT_EQ(ap().apLocalizerHold(), 0);
  EXPECT_EQ(ap().apNav1Hold(), 0);
}

TEST_F(AutoflightButtons, VorLocWithoutASignalLeavesAnotherRollModeAsItIs) {
  ap().ApEngaged(1);
  ap().apHeadingHold(1);
  EXPECT_THAT(press(170), IsEmpty());
  EXPECT_EQ(shown().RollEngagedMode, "HDG_SEL");
  EXPECT_EQ(ap().apHeadingHold(), 1);
}

TEST_F(AutoflightButtons, ApproachFlipsWithASignal) {
  v.NavRadios(1).BackCourse = Tuned;
  EXPECT_THAT(press(171), ElementsAre(lamp(19, 1)));
  EXPECT_EQ(ap().apApproachHold(), 1);
  EXPECT_THAT(press(171), ElementsAre(lamp(19, 0)));
  EXPECT_EQ(ap().apApproachHold(), 0);
}

TEST_F(AutoflightButtons, ApproachIsClearedWithoutASignalAndNeverArmed) {
  v.NavRadios(1).BackCourse = Localizer;
  EXPECT_THAT(press(171), IsEmpty());
  EXPECT_EQ(ap().apApproachHold(), 0);
  ap().apApproachHold(1);
  EXPECT_THAT(press(171), ElementsAre(lamp(19, 0)));
  EXPECT_EQ(ap().apApproachHold(), 0);
}

TEST_F(AutoflightButtons, HeadingSelectFlipsAndLeavesLnav) {
  givePlan();
  afds().LNAV(1);
  EXPECT_THAT(press(172), ElementsAre(lamp(2, 0), lamp(17, 1)));
  EXPECT_EQ(afds().LNAV(), 0);
  EXPECT_EQ(ap().apHeadingHold(), 1);
  EXPECT_THAT(press(172), ElementsAre(lamp(17, 0)));
  EXPECT_EQ(ap().apHeadingHold(), 0);
}

TEST_F(AutoflightButtons, AltitudeHoldNearItsAltitudeHoldsThePresentOne) {
  v.AircraftAltitude = 10300;
  v.CalcVerticalSpeed = -600;  // half of it: 300 ft
  ap().apMcpAltitude(10000);
  EXPECT_THAT(press(174), ElementsAre(lamp(16, 1)));
  EXPECT_EQ(ap().apAltitudeHold(), 1);
  EXPECT_EQ(ap().apLevelChange(), 0);
  EXPECT_EQ(ap().apAltitude(), 10300);
  EXPECT_EQ(ap().apMcpAltitude(), 10000);
}

TEST_F(AutoflightButtons, AltitudeHoldFarFromItsAltitudeBecomesALevelChange) {
  v.AircraftAltitude = 10301;
  v.CalcVerticalSpeed = -600;
  ap().apMcpAltitude(10000);
  EXPECT_THAT(press(174), ElementsAre(lamp(16, 1), lamp(16, 0), lamp(1, 1)));
  EXPECT_EQ(ap().apAltitudeHold(), 0);
  EXPECT_EQ(ap().apLevelChange(), 1);
  EXPECT_EQ(ap().apAltitude(), 10301);
}

TEST_F(AutoflightButtons, AltitudeHoldLeavesVnavAndGoesOffWithoutANewAltitude) {
  givePlan();
  afds().VNAV(1);
  v.AircraftAltitude = 5000;
  ap().apAltitude(5000);
  EXPECT_THAT(press(174), ElementsAre(lamp(3, 0), lamp(16, 1)));
  v.AircraftAltitude = 5200;
  EXPECT_THAT(press(174), ElementsAre(lamp(16, 0)));
  EXPECT_EQ(ap().apAltitudeHold(), 0);
  EXPECT_EQ(ap().apAltitude(), 5000);
}

TEST_F(AutoflightButtons, VerticalSpeedTakesThePresentOneWhenItGoesOn) {
  givePlan();
  afds().VNAV(1);
  v.VerticalSpeed = 1500;
  EXPECT_THAT(press(175),
              ElementsAre(lamp(3, 0), lamp(21, 1), Write{0x07F2, {0xDC, 0x05}}));  // 1500
  EXPECT_EQ(ap().apVSpeedHold(), 1);
  EXPECT_EQ(ap().apVertSpeed(), 1500);
  v.VerticalSpeed = 700;
  EXPECT_THAT(press(175), ElementsAre(lamp(21, 0)));
  EXPECT_EQ(ap().apVSpeedHold(), 0);
  EXPECT_EQ(ap().apVertSpeed(), 1500);
}

TEST_F(AutoflightButtons, CodesWithoutAFunctionDoNothing) {
  for (const int code : {173, 176, 177, 178, 179, 180, 215, 216, 217, 219})
    EXPECT_THAT(press(code), IsEmpty()) << code;
  EXPECT_EQ(status(), "");
}

TEST_F(AutoflightButtons, N1SelectorStaysBetween0And4) {
  afds().N1SwitchStatus(3);
  press(181);
  EXPECT_EQ(afds().N1SwitchStatus(), 4);
  press(181);
  EXPECT_EQ(afds().N1SwitchStatus(), 4);
  for (const int expected : {3, 2, 1, 0, 0}) {
    EXPECT_THAT(press(182), IsEmpty());
    EXPECT_EQ(afds().N1SwitchStatus(), expected);
  }
}

struct SideButton {
  int code;
  int lamp;
  std::int16_t (clsXAutoP::*read)() const;
  const char* shown;
};

constexpr SideButton CommandA{183, 4, &clsXAutoP::apCmdLeft, "CMD"};
constexpr SideButton CommandB{185, 5, &clsXAutoP::apCmdRight, "CMD"};
constexpr SideButton CwsA{186, 6, &clsXAutoP::apCwsLeft, "CWS"};
constexpr SideButton CwsB{187, 7, &clsXAutoP::apCwsRight, "CWS"};

class AutopilotSides : public AutoflightButtons,
                       public testing::WithParamInterface<std::pair<SideButton, SideButton>> {
 protected:
  bool on(const SideButton& side) { return (ap().*side.read)() == 1; }
  const SideButton& pressed = GetParam().first;
  const SideButton& other = GetParam().second;
};

TEST_P(AutopilotSides, EngagesWithTheMasterOnAndDisengagesWithASecondPress) {
  ap().apMaster(1);
  EXPECT_THAT(press(pressed.code), ElementsAre(lamp(pressed.lamp, 1)));
  EXPECT_TRUE(on(pressed));
  EXPECT_EQ(ap().ApEngaged(), 1);
  EXPECT_EQ(shown().AutopilotMode, pressed.shown);
  EXPECT_THAT(press(pressed.code), ElementsAre(lamp(pressed.lamp, 0)));
  EXPECT_FALSE(on(pressed));
  EXPECT_EQ(ap().ApEngaged(), 0);
  EXPECT_EQ(shown().AutopilotMode, "FD");
}

TEST_P(AutopilotSides, DoesNotEngageWithTheMasterOff) {
  EXPECT_THAT(press(pressed.code), IsEmpty());
  EXPECT_FALSE(on(pressed));
  EXPECT_EQ(ap().ApEngaged(), 0);
}

TEST_P(AutopilotSides, DoesNotEngageWhileTheOtherSideIsOn) {
  ap().apMaster(1);
  press(other.code);
  EXPECT_THAT(press(pressed.code), IsEmpty());
  EXPECT_FALSE(on(pressed));
  EXPECT_TRUE(on(other));
}

TEST_P(AutopilotSides, DisengagingEndsAGoAround) {
  ap().apMaster(1);
  press(pressed.code);
  ap().apToGa(1);
  // Between the two the heading that the go-around flies is annunciated anew.
  EXPECT_THAT(press(pressed.code),
              ElementsAre(lamp(pressed.lamp, 0), lamp(17, 0), lamp(17, 1), lamp(10, 0)));
  EXPECT_EQ(ap().apToGa(), 0);
  EXPECT_EQ(ap().ApEngaged(), 0);
}

INSTANTIATE_TEST_SUITE_P(Buttons, AutopilotSides,
                         testing::Values(std::pair(CommandA, CommandB),
                                         std::pair(CommandB, CommandA), std::pair(CwsA, CwsB),
                                         std::pair(CwsB, CwsA)));

TEST_F(AutoflightButtons, ASideThatIsOnGoesOffWithTheOtherOne) {
  ap().apMaster(1);
  ap().apCmdLeft(1);
  ap().apCmdRight(1);
  EXPECT_THAT(press(185), ElementsAre(lamp(5, 0), lamp(4, 0)));
  EXPECT_EQ(ap().apCmdLeft(), 0);
  EXPECT_EQ(ap().apCmdRight(), 0);
}

TEST_F(AutoflightButtons, CommandTakesTheAircraftFromControlWheelSteering) {
  ap().apMaster(1);
  press(187);
  EXPECT_THAT(press(183), ElementsAre(lamp(7, 0), lamp(4, 1)));
  EXPECT_EQ(ap().apCwsRight(), 0);
  EXPECT_EQ(ap().apCmdLeft(), 1);
  EXPECT_EQ(ap().ApEngaged(), 1);
  EXPECT_EQ(shown().AutopilotMode, "CMD");
}

TEST_F(AutoflightButtons, ControlWheelSteeringTakesTheAircraftFromCommand) {
  ap().apMaster(1);
  press(183);
  EXPECT_THAT(press(186), ElementsAre(lamp(4, 0), lamp(6, 1)));
  EXPECT_EQ(ap().apCmdLeft(), 0);
  EXPECT_EQ(ap().apCwsLeft(), 1);
  EXPECT_EQ(ap().ApEngaged(), 1);
  EXPECT_EQ(shown().AutopilotMode, "CWS");
  EXPECT_EQ(shown().CwsRollEngagedMode, "CWS_R");
  EXPECT_EQ(shown().CwsPitchEngagedMode, "CWS_P");
}

TEST_F(AutoflightButtons, CommandCFlipsAlone) {
  EXPECT_THAT(press(184), IsEmpty());
  EXPECT_EQ(ap().apCmdCenter(), 1);
  EXPECT_EQ(ap().ApEngaged(), 0);
  press(184);
  EXPECT_EQ(ap().apCmdCenter(), 0);
}

TEST_F(AutoflightButtons, BothFlightDirectorButtonsFlipTheOneDirector) {
  EXPECT_THAT(press(188), IsEmpty());
  EXPECT_EQ(v.FdActive, 1);
  EXPECT_THAT(press(189), IsEmpty());
  EXPECT_EQ(v.FdActive, 0);
  press(189);
  EXPECT_EQ(v.FdActive, 1);
}

TEST_F(AutoflightButtons, N1BugsTurnByTheSelectorCrossed) {
  struct Case {
    std::int16_t selector;
    float first, second;
  };
  for (const Case& row : {Case{0, 80, 70}, Case{1, 80, 70.1F}, Case{2, 80.1F, 70}, Case{3, 80, 70},
                          Case{4, 80.1F, 70.1F}}) {
    afds().N1SwitchStatus(row.selector);
    v.Engines(1).N1Target = 80;
    v.Engines(2).N1Target = 70;
    EXPECT_THAT(press(190), IsEmpty());
    EXPECT_EQ(v.Engines(1).N1Target, row.first) << row.selector;
    EXPECT_EQ(v.Engines(2).N1Target, row.second) << row.selector;
  }
  press(191);
  EXPECT_EQ(v.Engines(1).N1Target, 80);
  EXPECT_EQ(v.Engines(2).N1Target, 70);
}

TEST_F(AutoflightButtons, BankLimitTurnsByOneDegree) {
  ap().apBankLimit(25);
  EXPECT_THAT(press(192), IsEmpty());
  EXPECT_EQ(ap().apBankLimit(), 26);
  press(193);
  press(193);
  EXPECT_EQ(ap().apBankLimit(), 24);
}

TEST_F(AutoflightButtons, CourseTurnsAndGoesOutAsObs) {
  ap().apCourse(90);
  EXPECT_THAT(press(194), ElementsAre(Write{0x0C4E, {91, 0}}));
  EXPECT_THAT(press(195), ElementsAre(Write{0x0C4E, {90, 0}}));
  EXPECT_THAT(press(204), ElementsAre(Write{0x0C4E, {100, 0}}));
  EXPECT_THAT(press(205), ElementsAre(Write{0x0C4E, {90, 0}}));
  EXPECT_EQ(ap().apCourse(), 90);
}

TEST_F(AutoflightButtons, AltitudeTurnsBy10And100Feet) {
  ap().apMcpAltitude(9990);
  // 10000 ft times 19975.372161: 199753722
  EXPECT_THAT(press(196), ElementsAre(Write{0x07D4, {0xFA, 0xFF, 0xE7, 0x0B}}));
  EXPECT_EQ(ap().apMcpAltitude(), 10000);
  press(197);
  EXPECT_EQ(ap().apMcpAltitude(), 9990);
  press(206);
  EXPECT_EQ(ap().apMcpAltitude(), 10090);
  EXPECT_EQ(press(207).size(), 1U);
  EXPECT_EQ(ap().apMcpAltitude(), 9990);
  EXPECT_EQ(ap().apAltitude(), 9990);
}

TEST_F(AutoflightButtons, SpeedTurnsByKnotsBeforeTheChangeover) {
  ap().apMcpAirSpeed(250);
  EXPECT_THAT(press(198), ElementsAre(Write{0x07E2, {251, 0}}));
  EXPECT_THAT(press(199), ElementsAre(Write{0x07E2, {250, 0}}));
  EXPECT_THAT(press(208), ElementsAre(Write{0x07E2, {0x04, 0x01}}));  // 260
  EXPECT_THAT(press(209), ElementsAre(Write{0x07E2, {250, 0}}));
  EXPECT_EQ(ap().apMcpAirSpeed(), 250);
  EXPECT_EQ(ap().ApMachNumber(), 0);
}

TEST_F(AutoflightButtons, SpeedTurnsByMachAfterTheChangeover) {
  at().apChangeover(1);
  EXPECT_THAT(press(198), IsEmpty());
  EXPECT_FLOAT_EQ(ap().ApMachNumber(), 0.51F);
  EXPECT_THAT(press(199), IsEmpty());
  EXPECT_FLOAT_EQ(ap().ApMachNumber(), 0.5F);
  press(208);
  EXPECT_FLOAT_EQ(ap().ApMachNumber(), 0.6F);
  press(209);
  EXPECT_FLOAT_EQ(ap().ApMachNumber(), 0.5F);
  EXPECT_EQ(ap().apMcpAirSpeed(), 0);
}

TEST_F(AutoflightButtons, HeadingTurnsByOneDegree) {
  ap().apHeading(89);
  EXPECT_THAT(press(200), ElementsAre(Write{0x07CC, {0x00, 0x40}}));  // a quarter turn
  EXPECT_EQ(ap().apHeading(), 90);
  press(201);
  EXPECT_EQ(ap().apHeading(), 89);
}

TEST_F(AutoflightButtons, Code211RaisesTheHeadingLike210) {
  ap().apHeading(80);
  EXPECT_THAT(press(210), ElementsAre(Write{0x07CC, {0x00, 0x40}}));
  EXPECT_EQ(ap().apHeading(), 90);
  press(211);
  EXPECT_EQ(ap().apHeading(), 100);
}

TEST_F(AutoflightButtons, VerticalSpeedTurnsBy50And100) {
  ap().apVertSpeed(1000);
  EXPECT_THAT(press(202), ElementsAre(Write{0x07F2, {0x1A, 0x04}}));  // 1050
  EXPECT_THAT(press(203), ElementsAre(Write{0x07F2, {0xE8, 0x03}}));  // 1000
  EXPECT_THAT(press(212), ElementsAre(Write{0x07F2, {0x4C, 0x04}}));  // 1100
  EXPECT_THAT(press(213), ElementsAre(Write{0x07F2, {0xE8, 0x03}}));
  EXPECT_EQ(ap().apVertSpeed(), 1000);
}

TEST_F(AutoflightButtons, ToGaGoesOnAndStays) {
  press(214);
  EXPECT_EQ(ap().apToGa(), 1);
  press(214);
  EXPECT_EQ(ap().apToGa(), 1);
  EXPECT_EQ(shown().ATEngagedMode, "N1");
}

TEST_F(AutoflightButtons, ExecFlips) {
  EXPECT_THAT(press(218), IsEmpty());
  EXPECT_EQ(afds().ExecFlightplan(), 1);
  press(218);
  EXPECT_EQ(afds().ExecFlightplan(), 0);
}

TEST_F(AutoflightButtons, AFaultIsToldAndWhatWasDoneBeforeItStays) {
  ap().apCourse(32767);
  EXPECT_THAT(press(194), IsEmpty());
  EXPECT_EQ(status(), "SetButtonValues Overflow");
  EXPECT_EQ(ap().apCourse(), 32768);
}

}  // namespace
}  // namespace vorlent
