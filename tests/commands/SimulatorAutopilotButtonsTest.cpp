#include "commands/CommandTest.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SimulatorAutopilotButtons : public CommandTest {};

struct SwitchButton {
  int code;
  int item;  ///< of the held values
  std::uint32_t offset;
};

class SimulatorAutopilotSwitches : public CommandTest,
                                   public testing::WithParamInterface<SwitchButton> {};

TEST_P(SimulatorAutopilotSwitches, Flips) {
  const auto& [code, item, offset] = GetParam();
  EXPECT_THAT(press(code), ElementsAre(Write{offset, {1}}));
  EXPECT_EQ(v.ApValues(item), 1);
  EXPECT_THAT(press(code), ElementsAre(Write{offset, {0}}));
  EXPECT_EQ(v.ApValues(item), 0);
}

TEST_P(SimulatorAutopilotSwitches, StartsFromWhatTheSimulatorHas) {
  const auto& [code, item, offset] = GetParam();
  v.ApValues(item) = 256;
  EXPECT_THAT(press(code, 0), ElementsAre(Write{offset, {0}}));
  EXPECT_EQ(v.ApValues(item), 0);
}

INSTANTIATE_TEST_SUITE_P(Codes, SimulatorAutopilotSwitches,
                         testing::Values(SwitchButton{26, 3, 0x07FC}, SwitchButton{27, 4, 0x07D8},
                                         SwitchButton{28, 5, 0x0804}, SwitchButton{29, 6, 0x07C8},
                                         SwitchButton{30, 7, 0x0800}, SwitchButton{34, 9, 0x07BC},
                                         SwitchButton{35, 10, 0x07C4}, SwitchButton{40, 11, 0x07C0},
                                         SwitchButton{41, 12, 0x0810}, SwitchButton{42, 13, 0x080C},
                                         SwitchButton{125, 19, 0x0808}),
                         [](const auto& row) { return "Code" + std::to_string(row.param.code); });

TEST_F(SimulatorAutopilotButtons, AirspeedHoldTakesThePresentSpeedFirst) {
  v.Ias = 250;
  const Write target{0x07E2, {250, 0}};
  EXPECT_THAT(press(22), ElementsAre(target, Write{0x07DC, {1}}));
  EXPECT_EQ(v.ApValues(1), 1);
  EXPECT_EQ(v.ApValues(17), 250);
  EXPECT_THAT(press(22), ElementsAre(target, Write{0x07DC, {0}}));
  EXPECT_EQ(v.ApValues(1), 0);
}

TEST_F(SimulatorAutopilotButtons, AltitudeHoldTakesThePresentAltitudeFirst) {
  v.AircraftAltitude = 10000;
  const Write target{0x07D4, {0xFA, 0xFF, 0xE7, 0x0B}};
  EXPECT_THAT(press(23), ElementsAre(target, Write{0x07D0, {1}}));
  EXPECT_EQ(v.ApValues(2), 1);
  EXPECT_EQ(v.ApValues(14), 10000);
  EXPECT_THAT(press(23), ElementsAre(target, Write{0x07D0, {0}}));
  EXPECT_EQ(v.ApValues(2), 0);
}

TEST_F(SimulatorAutopilotButtons, MachHoldTakesThePresentMachFirst) {
  v.Mach = 0.78F;
  const Write target{0x07E8, {0x92, 0xC7}};  // 51090
  EXPECT_THAT(press(31), ElementsAre(target, Write{0x07E4, {1}}));
  EXPECT_EQ(v.ApValues(8), 1);
  EXPECT_EQ(v.ApValues(16), 0.78F);
  EXPECT_THAT(press(31), ElementsAre(target, Write{0x07E4, {0}}));
  EXPECT_EQ(v.ApValues(8), 0);
}

TEST_F(SimulatorAutopilotButtons, ATargetThatDoesNotFitLeavesTheHoldAsItIs) {
  v.AircraftAltitude = 200000;
  EXPECT_THAT(press(23), IsEmpty());
  EXPECT_EQ(status(), "SetButtonValues Overflow");
  EXPECT_EQ(v.ApValues(2), 0);
}

TEST_F(SimulatorAutopilotButtons, AltitudeTurnsBy100Feet) {
  v.ApValues(14) = 10100;
  EXPECT_THAT(press(24), ElementsAre(Write{0x07D4, {0xFA, 0xFF, 0xE7, 0x0B}}));
  EXPECT_EQ(v.ApValues(14), 10000);
  v.ApValues(14) = -200;
  EXPECT_THAT(press(25), ElementsAre(Write{0x07D4, {0x1F, 0x85, 0xE1, 0xFF}}));  // -1997537
  EXPECT_EQ(v.ApValues(14), -100);
}

TEST_F(SimulatorAutopilotButtons, MachTurnsByAHundredthAndGoesOutOneHigher) {
  v.ApValues(16) = 0.78F;
  EXPECT_THAT(press(33), ElementsAre(Write{0x07E8, {0xFD, 0xC9}}));  // 117245 - 65536
  EXPECT_NEAR(v.ApValues(16), 0.79, 1e-6);
  EXPECT_THAT(press(32), ElementsAre(Write{0x07E8, {0x6E, 0xC7}}));  // 116590 - 65536
  EXPECT_NEAR(v.ApValues(16), 0.78, 1e-6);
}

TEST_F(SimulatorAutopilotButtons, AirspeedTurnsBy10AndStaysAbove0) {
  v.ApValues(17) = 20;
  EXPECT_THAT(press(37), ElementsAre(Write{0x07E2, {30, 0}}));
  EXPECT_THAT(press(36), ElementsAre(Write{0x07E2, {20, 0}}));
  EXPECT_THAT(press(36), ElementsAre(Write{0x07E2, {10, 0}}));
  EXPECT_THAT(press(36), ElementsAre(Write{0x07E2, {10, 0}}));
  EXPECT_EQ(v.ApValues(17), 10);
}

TEST_F(SimulatorAutopilotButtons, VerticalSpeedTurnsBy100) {
  v.ApValues(18) = 0;
  EXPECT_THAT(press(38), ElementsAre(Write{0x07F2, {0x9B, 0xFF}}));  // 65535 - 100
  EXPECT_EQ(v.ApValues(18), -100);
  EXPECT_THAT(press(39), ElementsAre(Write{0x07F2, {0, 0}}));
  EXPECT_THAT(press(39), ElementsAre(Write{0x07F2, {100, 0}}));
  EXPECT_EQ(v.ApValues(18), 100);
}

TEST_F(SimulatorAutopilotButtons, HeadingAt0WithCode66Gives359) {
  for (const float before : {0.F, -3.F}) {
    v.ApValues(15) = before;
    EXPECT_THAT(press(66), ElementsAre(Write{0x07CC, {0x4A, 0xFF}}));
    EXPECT_EQ(v.ApValues(15), 359);
  }
}

TEST_F(SimulatorAutopilotButtons, HeadingTurnsByOneDegree) {
  v.ApValues(15) = 91;
  EXPECT_THAT(press(66), ElementsAre(Write{0x07CC, {0x00, 0x40}}));
  EXPECT_EQ(v.ApValues(15), 90);
  press(67);
  EXPECT_EQ(v.ApValues(15), 91);
}

TEST_F(SimulatorAutopilotButtons, HeadingAbove359WithCode67Gives0) {
  v.ApValues(15) = 358;
  EXPECT_THAT(press(67), ElementsAre(Write{0x07CC, {0x4A, 0xFF}}));
  EXPECT_THAT(press(67), ElementsAre(Write{0x07CC, {0, 0}}));
  EXPECT_EQ(v.ApValues(15), 0);
}

TEST_F(SimulatorAutopilotButtons, Code136FlipsTheHeldMachAlone) {
  v.ApValues(16) = 0.78F;
  EXPECT_THAT(press(136), IsEmpty());
  EXPECT_EQ(v.ApValues(16), 0);
  EXPECT_THAT(press(136), IsEmpty());
  EXPECT_EQ(v.ApValues(16), 1);
}

TEST_F(SimulatorAutopilotButtons, AHeldButtonRepeatsTheStepWhateverItsValue) {
  v.ApValues(15) = 10;
  for (const float value : {1.F, 0.F, 1.F, 0.F}) press(67, value);
  EXPECT_EQ(v.ApValues(15), 14);
}

}  // namespace
}  // namespace vorlent
