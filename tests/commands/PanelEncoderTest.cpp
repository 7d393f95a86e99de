#include <set>

#include "commands/CommandTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PanelEncoder : public CommandTest {
 protected:
  void expectTarget(int code, int held, float before, float step, const Write& write, float after) {
    SCOPED_TRACE(std::to_string(code) + " at " + std::to_string(before));
    v.ApValues(held) = before;
    EXPECT_THAT(encoder(code, step), ElementsAre(write));
    EXPECT_FLOAT_EQ(v.ApValues(held), after);
  }
};

TEST_F(PanelEncoder, Code0IsADialThatNothingIsSentFor) {
  v.RadioValues(12) = 358;
  EXPECT_THAT(encoder(0, 2), IsEmpty());
  EXPECT_EQ(v.RadioValues(12), 360);
  encoder(0, 2);
  EXPECT_EQ(v.RadioValues(12), 0);
  encoder(0, -2);
  EXPECT_EQ(v.RadioValues(12), 358);
}

TEST_F(PanelEncoder, AltimeterStepsFromTheSimulatorsSettingAndHoldsNothing) {
  v.StateValues(14) = 1012.25F;
  for (int turn = 0; turn < 2; ++turn)
    EXPECT_THAT(encoder(5, 1), ElementsAre(Write{0x0330, {0x54}}, Write{0x0331, {0x3F}}));
  EXPECT_EQ(v.StateValues(14), 1012.25F);
}

TEST_F(PanelEncoder, AltitudeGoesOutInWholeHundreds) {
  expectTarget(6, 14, 11900, 1, {0x07D4, {0x92, 0x99, 0x49, 0x0E}}, 12000);
  expectTarget(6, 14, 34949, 1, {0x07D4, {0xEA, 0xFF, 0xAB, 0x29}}, 35049);
  expectTarget(6, 14, 35150, -2, {0x07D4, {0xEA, 0xFF, 0xAB, 0x29}}, 34950);
}

TEST_F(PanelEncoder, HeadingAt359WithAStepOf1Gives360AndThen0) {
  for (const int code : {7, 18}) {
    expectTarget(code, 15, 359, 1, {0x07CC, {0x00, 0x00}}, 360);
    expectTarget(code, 15, 360, 1, {0x07CC, {0x00, 0x00}}, 0);
  }
}

TEST_F(PanelEncoder, HeadingAt0WithAStepOfMinus1Gives359) {
  for (const int code : {7, 18}) expectTarget(code, 15, 0, -1, {0x07CC, {0x4A, 0xFF}}, 359);
}

TEST_F(PanelEncoder, MachStepsByHundredths) {
  expectTarget(9, 16, 0.77F, 1, {0x07E8, {0x92, 0xC7}}, 0.78F);
  expectTarget(9, 16, 0.8F, -2, {0x07E8, {0x92, 0xC7}}, 0.78F);
}

TEST_F(PanelEncoder, AirspeedGoesOutInWholeTens) {
  expectTarget(10, 17, 240, 1, {0x07E2, {0xFA, 0x00}}, 250);
  expectTarget(10, 17, 235, 1, {0x07E2, {0xFA, 0x00}}, 245);
  expectTarget(10, 17, 264, -1, {0x07E2, {0xFA, 0x00}}, 254);
}

TEST_F(PanelEncoder, VerticalSpeedGoesOutInWholeTens) {
  expectTarget(11, 18, 1490, 1, {0x07F2, {0xDC, 0x05}}, 1500);
  expectTarget(11, 18, -990, -1, {0x07F2, {0x17, 0xFC}}, -1000);
  expectTarget(11, 18, -995, 0, {0x07F2, {0x17, 0xFC}}, -995);
}

TEST_F(PanelEncoder, TargetThatTheSimulatorDoesNotTakeIsHeldAndTold) {
  v.ApValues(14) = 100000;
  EXPECT_THAT(encoder(6, 1000), IsEmpty());
  EXPECT_EQ(v.ApValues(14), 200000);
  EXPECT_EQ(status(), "SetEncoderValues Overflow");
}

TEST_F(PanelEncoder, Code48MovesTheClientsValue) {
  v.ClientValueC = 1.5F;
  EXPECT_THAT(encoder(48, -2), IsEmpty());
  EXPECT_EQ(v.ClientValueC, -0.5F);
}

TEST_F(PanelEncoder, CodesWithoutAnActionDoNothing) {
  for (const int code : {8, 32, 33, 34, 35, 45, 46, 47, 49, 999, 1000, 32767, -1, -32768}) {
    EXPECT_THAT(encoder(code, 1), IsEmpty()) << code;
    EXPECT_EQ(status(), "") << code;
  }
}

TEST_F(PanelEncoder, StepThatIsNoNumberIsToldAndMovesNothing) {
  EXPECT_THAT(encoder(48, NaN), IsEmpty());
  EXPECT_EQ(v.ClientValueC, 0);
  EXPECT_EQ(status(), "SetEncoderValues Overflow");
}

TEST(EncoderRows, AreTheCodesWithAnActionAndTheOneForNoneInOrder) {
  const std::set<int> without = {32, 33, 34, 35, 45, 46, 47};
  std::vector<int> expected;
  for (int code = 0; code <= 48; ++code)
    if (!without.contains(code)) expected.push_back(code);
  std::vector<int> codes;
  for (const CommandRow& row : encoderRows()) codes.push_back(row.code);
  EXPECT_EQ(codes, expected);
}

}  // namespace
}  // namespace vorlent
