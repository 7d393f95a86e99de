#include "commands/CommandTest.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SystemButtons : public CommandTest {
 protected:
  /// The sixteen bits low byte first.
  static Write word(std::uint32_t offset, int value) {
    return {offset,
            {static_cast<std::uint8_t>(value & 0xFF), static_cast<std::uint8_t>(value >> 8)}};
  }
  /// The eight bytes that a press wrote at the offset, as a double; NaN when it wrote another.
  double doubleWritten(int code, std::uint32_t offset) {
    const Writes writes = press(code);
    if (writes.size() != 1 || writes[0].offset != offset || writes[0].bytes.size() != 8) return NaN;
    return bus.get<double>(offset);
  }
};

TEST_F(SystemButtons, AltimeterTurnsByOneHectopascal) {
  // sixteenths: 16208 is 0x3F50, 16224 is 0x3F60
  const auto low = [](std::uint8_t value) { return Write{0x0330, {value}}; };
  const Write high{0x0331, {0x3F}};
  v.StateValues(14) = 1013;
  EXPECT_THAT(press(14), ElementsAre(low(0x60), high));
  EXPECT_EQ(v.StateValues(14), 1014);
  EXPECT_THAT(press(13), ElementsAre(low(0x50), high));
  EXPECT_EQ(v.StateValues(14), 1013);
  EXPECT_THAT(press(16), ElementsAre(low(0x60), high));
  EXPECT_THAT(press(15), ElementsAre(low(0x50), high));
  EXPECT_EQ(v.StateValues(14), 1013);
}

TEST_F(SystemButtons, AltimeterStandardIs1013Point25) {
  v.StateValues(14) = 990;
  EXPECT_THAT(press(160), ElementsAre(Write{0x0330, {0x54}}, Write{0x0331, {0x3F}}));
}

TEST_F(SystemButtons, BrakesFollowTheValue) {
  EXPECT_THAT(press(43, 1), ElementsAre(word(0x0BC4, 16383), word(0x0BC6, 16383)));
  EXPECT_THAT(press(43, 0), ElementsAre(word(0x0BC4, 0), word(0x0BC6, 0)));
  EXPECT_THAT(press(44, 1), ElementsAre(word(0x0BC4, 15000)));
  EXPECT_THAT(press(44, 0), ElementsAre(word(0x0BC4, 0)));
  EXPECT_THAT(press(45, 1), ElementsAre(word(0x0BC6, 15000)));
  EXPECT_THAT(press(45, 0), ElementsAre(word(0x0BC6, 0)));
}

TEST_F(SystemButtons, FlapsMoveByTheIncrement) {
  v.FlapIncrement = 2047;
  v.StateValues(1) = 4094;
  EXPECT_THAT(press(52), ElementsAre(word(0x0BDC, 2047)));
  EXPECT_EQ(v.StateValues(1), 2047);
  EXPECT_THAT(press(54), ElementsAre(word(0x0BDC, 4094)));
  EXPECT_EQ(v.StateValues(1), 4094);
}

TEST_F(SystemButtons, FlapsGoFullAndUp) {
  EXPECT_THAT(press(53), ElementsAre(word(0x0BDC, 16383)));
  EXPECT_EQ(v.StateValues(1), 16383);
  EXPECT_THAT(press(55), ElementsAre(word(0x0BDC, 0)));
  EXPECT_EQ(v.StateValues(1), 0);
}

TEST_F(SystemButtons, FlapsBeyondSixteenBitsAreToldAndStayHeld) {
  v.FlapIncrement = 2047;
  v.StateValues(1) = 32000;
  EXPECT_THAT(press(54), IsEmpty());
  EXPECT_EQ(status(), "SetButtonValues Overflow");
  EXPECT_EQ(v.StateValues(1), 34047);
}

TEST_F(SystemButtons, GearGoesDownUpAndOver) {
  EXPECT_THAT(press(63), ElementsAre(word(0x0BE8, 16383)));
  EXPECT_EQ(v.StateValues(7), 16383);
  EXPECT_THAT(press(65), ElementsAre(word(0x0BE8, 0)));
  EXPECT_EQ(v.StateValues(7), 0);
  EXPECT_THAT(press(64), ElementsAre(word(0x0BE8, 16383)));
  EXPECT_EQ(v.StateValues(7), 16383);
  EXPECT_THAT(press(64), ElementsAre(word(0x0BE8, 0)));
  EXPECT_EQ(v.StateValues(7), 0);
}

TEST_F(SystemButtons, SwitchesFlipTheirHeldState) {
  struct Case {
    int code, item;
    std::uint32_t offset;
  };
  for (const auto& [code, item, offset] :
       {Case{84, 5, 0x028C}, {107, 10, 0x029C}, {111, 6, 0x0281}, {137, 17, 0x0280}}) {
    EXPECT_THAT(press(code), ElementsAre(Write{offset, {1}})) << code;
    EXPECT_EQ(v.StateValues(item), 1) << code;
    EXPECT_THAT(press(code), ElementsAre(Write{offset, {0}})) << code;
    EXPECT_EQ(v.StateValues(item), 0) << code;
  }
}

TEST_F(SystemButtons, SwitchesFlipTheSimulatorsVariable) {
  struct Case {
    int code;
    std::int16_t modPublic::*variable;
    std::uint32_t offset;
  };
  for (const auto& [code, variable, offset] : {Case{106, &modPublic::Paused, 0x0264},
                                               {110, &modPublic::SpoilersArm, 0x0BCC},
                                               {161, &modPublic::FdActive, 0x2EE0},
                                               {232, &modPublic::NavGpsSwitch, 0x132C},
                                               {233, &modPublic::AvionicsMaster, 0x2E80},
                                               {234, &modPublic::MasterBattery, 0x281C},
                                               {235, &modPublic::Long2E88, 0x2E88}}) {
    EXPECT_THAT(press(code), ElementsAre(Write{offset, {1}})) << code;
    EXPECT_EQ(v.*variable, 1) << code;
    EXPECT_THAT(press(code), ElementsAre(Write{offset, {0}})) << code;
    EXPECT_EQ(v.*variable, 0) << code;
  }
}

TEST_F(SystemButtons, ParkingBrakeFlips) {
  EXPECT_THAT(press(105), ElementsAre(word(0x0BC8, 1)));
  EXPECT_EQ(v.StateValues(9), 1);
  EXPECT_THAT(press(105), ElementsAre(word(0x0BC8, 0)));
  EXPECT_EQ(v.StateValues(9), 0);
}

TEST_F(SystemButtons, SlewTakesTheValue) {
  EXPECT_THAT(press(108, 1), ElementsAre(Write{0x05DC, {1}}));
  EXPECT_THAT(press(108, 0), ElementsAre(Write{0x05DC, {0}}));
}

TEST_F(SystemButtons, SpoilersFlipFromAnyPosition) {
  EXPECT_THAT(press(109), ElementsAre(word(0x0BD0, 16383)));
  EXPECT_EQ(v.StateValues(2), 16383);
  v.StateValues(2) = 5000;
  EXPECT_THAT(press(109), ElementsAre(word(0x0BD0, 0)));
  EXPECT_EQ(v.StateValues(2), 0);
}

TEST_F(SystemButtons, TheDisplayValueStepsBy5) {
  EXPECT_THAT(press(221), IsEmpty());
  EXPECT_EQ(v.StateValues(21), 5);
  press(220);
  press(220);
  EXPECT_EQ(v.StateValues(21), -5);
}

TEST_F(SystemButtons, AileronTrimTurnsByOneDegreeWhileTheAutopilotIsEngaged) {
  t.server.autoflight.xAutoP->ApEngaged(1);
  v.ElevatorTrimDeg = 2;
  EXPECT_NEAR(doubleWritten(222, 0x2EB0), 0.0174532930056254, 1e-15);
  EXPECT_NEAR(doubleWritten(223, 0x2EB0), 0.0349065860112508, 1e-15);
  EXPECT_EQ(v.ElevatorTrimDeg, 2);
  t.server.autoflight.xAutoP->ApEngaged(0);
  EXPECT_THAT(press(223), IsEmpty());
}

TEST_F(SystemButtons, RudderTrimTurnsByOneDegree) {
  v.AileronTrimDeg = 0;
  EXPECT_NEAR(doubleWritten(224, 0x2EC0), -0.0174532930056254, 1e-15);
  EXPECT_NEAR(doubleWritten(225, 0x2EC0), 0, 1e-15);
  EXPECT_NEAR(doubleWritten(225, 0x2EC0), 0.0174532930056254, 1e-15);
  EXPECT_EQ(v.AileronTrimDeg, 1);
}

TEST_F(SystemButtons, MinimumsStepBy100AndReset) {
  std::int16_t& minimums = t.server.autoflight.afds->fmc.Minimums;
  minimums = 200;
  EXPECT_THAT(press(230), IsEmpty());
  EXPECT_EQ(minimums, 300);
  press(229);
  press(229);
  EXPECT_EQ(minimums, 100);
  press(228);
  EXPECT_EQ(minimums, 0);
}

TEST_F(SystemButtons, ThePanelValueStepsByATenth) {
  EXPECT_THAT(press(236), IsEmpty());
  EXPECT_EQ(v.ClientValueC, 0.1F);
  press(237);
  press(237);
  EXPECT_EQ(v.ClientValueC, -0.1F);
}

TEST_F(SystemButtons, CodesThatNoButtonHasDoNothingAndRaiseNothing) {
  for (const int code : {-32768, -999, -1, 126, 144, 151, 226, 227, 231, 239, 500, 998, 1000}) {
    EXPECT_THAT(press(code), IsEmpty()) << code;
    EXPECT_EQ(status(), "") << code;
  }
}

TEST_F(SystemButtons, Code999TellsTheDisplaysOf1WhateverItsValue) {
  EXPECT_THAT(press(999, 0), IsEmpty());
  EXPECT_EQ(v.StateValues(20), 1);
}

}  // namespace
}  // namespace vorlent
