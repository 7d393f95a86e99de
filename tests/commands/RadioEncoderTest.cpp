#include "commands/CommandTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RadioEncoder : public CommandTest {
 protected:
  /// The two bytes of a frequency, the high one first, which stands behind the low one.
  static Writes tuned(std::uint32_t lowOffset, std::uint8_t high, std::uint8_t low) {
    return {{lowOffset + 1, {high}}, {lowOffset, {low}}};
  }

  struct Turn {
    int code;
    float held;
    float step;
    Writes writes;
    float after;
  };

  void expectTurns(int dial, const std::vector<Turn>& turns) {
    for (const Turn& turn : turns) {
      SCOPED_TRACE(std::to_string(turn.code) + " at " + std::to_string(turn.held) + " by " +
                   std::to_string(turn.step));
      v.RadioValues(dial) = turn.held;
      EXPECT_EQ(encoder(turn.code, turn.step), turn.writes);
      EXPECT_FLOAT_EQ(v.RadioValues(dial), turn.after);
      EXPECT_EQ(status(), "");
    }
  }

  /// Main high and low, tenths, thousands.
  static Writes adf(std::uint8_t high, std::uint8_t low, std::uint8_t tenths) {
    return {{0x034D, {high}}, {0x034C, {low}}, {0x0356, {tenths}}, {0x0357, {0}}};
  }
};

TEST_F(RadioEncoder, AdfIsTurnedByHundredsTensUnitsAndTenths) {
  expectTurns(4, {{1, 350.5F, 1, adf(0x04, 0x50, 5), 450.5F},
                  {1, 350.5F, -1, adf(0x02, 0x50, 5), 250.5F},
                  {2, 350.5F, 2, adf(0x03, 0x70, 5), 370.5F},
                  {2, 350.5F, -3, adf(0x03, 0x20, 5), 320.5F},
                  {3, 350.5F, 4, adf(0x03, 0x54, 5), 354.5F},
                  {3, 350.5F, -1, adf(0x03, 0x49, 5), 349.5F},
                  {4, 350.5F, 3, adf(0x03, 0x50, 8), 350.8F},
                  {4, 350.5F, -5, adf(0x03, 0x50, 0), 350}});
}

TEST_F(RadioEncoder, AdfAt999WithAnyStepGoes200) {
  for (int code = 1; code <= 4; ++code)
    for (const float step : {-1.0F, 1.0F, 5.0F})
      expectTurns(4, {{code, 999, step, adf(0x02, 0x00, 0), 200}});
}

TEST_F(RadioEncoder, AdfAt200DownOneGives200) {
  for (int code = 1; code <= 4; ++code) expectTurns(4, {{code, 200, -1, adf(0x02, 0x00, 0), 200}});
}

TEST_F(RadioEncoder, AdfTurnedBeyondItsTopGoes200) {
  expectTurns(4, {{1, 950, 1, adf(0x02, 0x00, 0), 200}, {3, 998, 1, adf(0x02, 0x00, 0), 200}});
}

/// The codes of one dial, the place of what it holds, and the offset of its low byte.
struct EncoderDial {
  int fine;
  int coarse;
  int third;
  int held;
  std::uint32_t offset;
};

constexpr EncoderDial ComEncoders[] = {
    {12, 13, 14, 1, 0x034E}, {15, 16, 17, 8, 0x3118}, {36, 37, 38, 14, 0x311C}};
constexpr EncoderDial NavEncoders[] = {{19, 20, 21, 2, 0x0350},
                                       {22, 23, 24, 3, 0x0352},
                                       {39, 40, 41, 15, 0x311E},
                                       {42, 43, 44, 16, 0x3120}};

TEST_F(RadioEncoder, ComFineGoesAlongTheRasterWithCarryAndHoldsIt) {
  for (const EncoderDial& com : ComEncoders)
    expectTurns(com.held, {{com.fine, 118, 1, tuned(com.offset, 0x18, 0x02), 118.02F},
                           {com.fine, 118.02F, 1, tuned(com.offset, 0x18, 0x05), 118.05F},
                           {com.fine, 118.05F, 1, tuned(com.offset, 0x18, 0x07), 118.07F},
                           {com.fine, 118.07F, 1, tuned(com.offset, 0x18, 0x10), 118.1F},
                           {com.fine, 118.97F, 1, tuned(com.offset, 0x19, 0x00), 119},
                           {com.fine, 118.1F, -1, tuned(com.offset, 0x18, 0x07), 118.07F},
                           {com.fine, 118.05F, -1, tuned(com.offset, 0x18, 0x02), 118.02F},
                           {com.fine, 118, -1, tuned(com.offset, 0x17, 0x97), 117.97F}});
}

TEST_F(RadioEncoder, ComCoarseHasNoEnds) {
  for (const EncoderDial& com : ComEncoders)
    expectTurns(com.held, {{com.coarse, 121.5F, 1, tuned(com.offset, 0x22, 0x50), 122.5F},
                           {com.coarse, 121.5F, -2, tuned(com.offset, 0x19, 0x50), 119.5F},
                           {com.coarse, 136.5F, 1, tuned(com.offset, 0x37, 0x50), 137.5F}});
}

TEST_F(RadioEncoder, ComFractionDoesNotCarryAndIsNotHeld) {
  for (const EncoderDial& com : ComEncoders)
    expectTurns(com.held, {{com.third, 118.02F, 1, tuned(com.offset, 0x18, 0x05), 118.02F},
                           {com.third, 118.07F, 1, tuned(com.offset, 0x18, 0x10), 118.07F},
                           {com.third, 118.97F, 1, tuned(com.offset, 0x18, 0x00), 118.97F},
                           {com.third, 118.95F, 2, tuned(com.offset, 0x18, 0x00), 118.95F},
                           {com.third, 118, -1, tuned(com.offset, 0x18, 0x97), 118},
                           {com.third, 118.1F, -1, tuned(com.offset, 0x18, 0x07), 118.1F}});
}

TEST_F(RadioEncoder, NavFineWrapsFrom1179) {
  for (const EncoderDial& nav : NavEncoders)
    expectTurns(nav.held, {{nav.fine, 110.3F, 1, tuned(nav.offset, 0x10, 0x35), 110.35F},
                           {nav.fine, 110.3F, -2, tuned(nav.offset, 0x10, 0x20), 110.2F},
                           {nav.fine, 117.85F, 1, tuned(nav.offset, 0x17, 0x90), 117.9F},
                           {nav.fine, 117.9F, 1, tuned(nav.offset, 0x08, 0x00), 108},
                           {nav.fine, 108, -1, tuned(nav.offset, 0x08, 0x00), 108}});
}

TEST_F(RadioEncoder, NavAt11795WithAStepOf1FineGives108) {
  for (const EncoderDial& nav : NavEncoders)
    expectTurns(nav.held, {{nav.fine, 117.95F, 1, tuned(nav.offset, 0x08, 0x00), 108}});
}

TEST_F(RadioEncoder, NavCoarseWrapsFrom117) {
  for (const EncoderDial& nav : NavEncoders)
    expectTurns(nav.held, {{nav.coarse, 110.5F, 1, tuned(nav.offset, 0x11, 0x50), 111.5F},
                           {nav.coarse, 116.5F, 1, tuned(nav.offset, 0x17, 0x50), 117.5F},
                           {nav.coarse, 117.5F, 1, tuned(nav.offset, 0x08, 0x00), 108},
                           {nav.coarse, 117.5F, -1, tuned(nav.offset, 0x08, 0x00), 108},
                           {nav.coarse, 108.5F, -1, tuned(nav.offset, 0x08, 0x00), 108}});
}

TEST_F(RadioEncoder, NavOfTheSimulatorStepsFromWhatIsTunedAndDoesNotWrap) {
  for (float modPublic::*simulators : {&modPublic::Nav1Freq, &modPublic::Nav2Freq,
                                       &modPublic::Nav1Standby, &modPublic::Nav2Standby})
    v.*simulators = 117.95F;
  for (const EncoderDial& nav : NavEncoders)
    expectTurns(nav.held, {{nav.third, 110, 1, tuned(nav.offset, 0x18, 0x00), 118},
                           {nav.third, 110, -1, tuned(nav.offset, 0x17, 0x90), 117.9F}});
}

TEST_F(RadioEncoder, EachNavOfTheSimulatorStepsFromItsOwn) {
  v.Nav1Freq = 108.25F;
  v.Nav2Freq = 109.25F;
  v.Nav1Standby = 110.25F;
  v.Nav2Standby = 111.25F;
  expectTurns(2, {{21, 0, 1, tuned(0x0350, 0x08, 0x30), 108.3F}});
  expectTurns(3, {{24, 0, 1, tuned(0x0352, 0x09, 0x30), 109.3F}});
  expectTurns(15, {{41, 0, 1, tuned(0x311E, 0x10, 0x30), 110.3F}});
  expectTurns(16, {{44, 0, 1, tuned(0x3120, 0x11, 0x30), 111.3F}});
}

TEST_F(RadioEncoder, ObsWrapsAbove359) {
  struct Obs {
    int code;
    int held;
    std::uint32_t offset;
  };
  for (const Obs obs : {Obs{25, 6, 0x0C4E}, Obs{26, 7, 0x0C5E}})
    expectTurns(obs.held, {{obs.code, 271, 2, {{obs.offset, {0x11, 0x01}}}, 273},
                           {obs.code, 359, 1, {{obs.offset, {0x68, 0x01}}}, 360},
                           {obs.code, 360, 1, {{obs.offset, {0x00, 0x00}}}, 0},
                           {obs.code, 0, -1, {{obs.offset, {0x67, 0x01}}}, 359}});
}

TEST_F(RadioEncoder, TransponderDigitGoesUpWhicheverWayItIsTurned) {
  const auto code = [](std::uint8_t high, std::uint8_t low) {
    return Writes{{0x0355, {high}}, {0x0354, {low}}};
  };
  expectTurns(5, {{28, 1234, 1, code(0x12, 0x35), 1235},
                  {29, 1234, -1, code(0x12, 0x44), 1244},
                  {30, 1234, 5, code(0x13, 0x34), 1334},
                  {31, 1234, -5, code(0x22, 0x34), 2234},
                  {28, 1277, 1, code(0x12, 0x70), 1270},
                  {31, 7700, 1, code(0x07, 0x00), 700},
                  {30, 5, 1, code(0x51, 0x00), 5100}});
}

TEST_F(RadioEncoder, TransponderHasNoDigit0) {
  v.RadioValues(5) = 1234;
  EXPECT_THAT(encoder(27, 1), IsEmpty());
  EXPECT_EQ(v.RadioValues(5), 1234);
  EXPECT_EQ(status(), "SetEncoderValues Invalid procedure call or argument");
}

TEST_F(RadioEncoder, FrequencyThatTheRadioDoesNotTakeIsHeldAndTold) {
  v.RadioValues(1) = 199.5F;
  EXPECT_THAT(encoder(13, 100), IsEmpty());
  EXPECT_EQ(v.RadioValues(1), 299.5F);
  EXPECT_EQ(status(), "SetEncoderValues Overflow");
}

}  // namespace
}  // namespace vorlent
