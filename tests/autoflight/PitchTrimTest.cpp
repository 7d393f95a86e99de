#include "autoflight/PitchTrim.h"

namespace vorlent {
namespace {

class PitchTrim : public ::testing::Test {
 protected:
  /// One pass with the simulator's trim at 1000 and a factor of 20.
  std::optional<float> pass(float target_deg, float pitch_deg) {
    const PitchTrimPass done = keepPitch(r, {target_deg, pitch_deg, 1000, 20});
    r = done.after;
    return done.trim;
  }

  PitchTrimState r;
};

TEST_F(PitchTrim, FirstTargetStartsFromTheSimulatorsTrim) {
  EXPECT_EQ(pass(5, 3), 1080);  // 1000 + 2 x 2 x 20
  EXPECT_EQ(r.TrimBase, 1080);
  EXPECT_EQ(r.LastTarget, 5);
  EXPECT_EQ(r.TargetDelta, 2);
  EXPECT_EQ(r.PrevPitch, 3);
  EXPECT_EQ(r.PitchRate, 0);
  EXPECT_EQ(r.PrevError, 2);
}

TEST_F(PitchTrim, ATrimThatIsNotSentLeavesRateErrorAndSaturationAsTheyWere) {
  pass(5, 3);
  keepPitch(r, {5, 2, 1000, 20000});
  EXPECT_EQ(r.TrimBase, 121080);  // 1080 + 2 x 3 x 20000, far beyond the end
  EXPECT_EQ(r.LastTarget, 5);
  EXPECT_EQ(r.PitchRate, 0);
  EXPECT_EQ(r.PrevError, 2);
  EXPECT_EQ(r.PrevPitch, 3);
}

TEST_F(PitchTrim, TrimStaysWhileTheNoseComes) {
  pass(5, 3);
  EXPECT_EQ(pass(5, 3.5F), 1140);  // the rate was 0 in this pass: 1080 + 2 x 1.5 x 20
  EXPECT_EQ(r.PitchRate, 0.5F);
  EXPECT_EQ(pass(5, 4), 1140);
  EXPECT_EQ(pass(5, 4.5F), 1140);
}

TEST_F(PitchTrim, TrimMovesWhileTheNoseGoesAway) {
  pass(5, 3);
  pass(5, 2.5F);
  EXPECT_EQ(r.PitchRate, -0.5F);
  EXPECT_EQ(pass(5, 2), 1300);  // 1080 + 100 + 120
  EXPECT_EQ(pass(1, 2), 960);   // a new target: 1000 - 40
}

TEST_F(PitchTrim, TrimFollowsDownward) {
  EXPECT_EQ(pass(1, 3), 920);
  EXPECT_EQ(pass(1, 2.5F), 860);
  EXPECT_EQ(pass(1, 2), 860);
}

TEST_F(PitchTrim, TrimMovesForHalfADegreeEitherWay) {
  EXPECT_EQ(pass(5, 4.5F), 1020);  // 1000 + 2 x 0.5 x 20
  r = {};
  EXPECT_EQ(pass(5, 5.5F), 980);
}

TEST_F(PitchTrim, ChangeBelowAThousandthOfADegreeIsNoRate) {
  r = {.LastTarget = 5, .PrevPitch = 3};
  pass(5, 3.0009F);
  EXPECT_EQ(r.PitchRate, 0);
  pass(5, 3.002F);
  EXPECT_NEAR(r.PitchRate, 0.0011, 1e-6);
}

TEST_F(PitchTrim, LaterTargetTakesTheSimulatorsTrimAndForgetsTheRate) {
  r = {.LastTarget = 5, .TrimBase = 3000, .PrevPitch = 2, .PitchRate = 0.5F};
  EXPECT_EQ(pass(6, 3), 1120);  // 1000 + 2 x 3 x 20
  EXPECT_EQ(r.LastTarget, 6);
  EXPECT_EQ(r.TargetDelta, 3);
  EXPECT_EQ(r.PitchRate, 1);  // of this pass
}

TEST_F(PitchTrim, TargetAfterSaturationBlendsSixSeventhsOfTheBase) {
  r = {.LastTarget = 99, .TrimBase = 7000, .TrimWork = 14000, .PitchRate = 0.5F};
  EXPECT_EQ(pass(5, 3), 8000);  // (7000 x 6 + 14000) / 7; the rate stays, so the nose comes
  EXPECT_EQ(r.LastTarget, 5);
  EXPECT_EQ(r.TargetDelta, 2);
}

TEST_F(PitchTrim, LargeErrorStartsTheCountAnew) {
  r.Counter = 7;
  pass(5, 3);
  EXPECT_EQ(r.Counter, 0);
}

TEST_F(PitchTrim, InTheDeadBandTheRateEasesTheTrim) {
  // 0.1 x (0.4 - 0.125) x 20^2 x 28 = 308
  const PitchTrimState settling{
      .LastTarget = 5, .TrimBase = 2000, .PitchRate = 0.1F, .PrevError = 0.5F};
  r = settling;
  EXPECT_NEAR(pass(5, 4.875F).value(), 1692, 1e-3);
  EXPECT_NEAR(r.TrimWork, 1692, 1e-3);
  EXPECT_EQ(r.TrimBase, 2000);
  EXPECT_EQ(r.PitchRate, 0.1F);
  EXPECT_EQ(r.PrevPitch, 4.875F);
  r = settling;
  r.PrevError = -0.5F;
  EXPECT_NEAR(pass(5, 5.125F).value(), 2308, 1e-3);
}

TEST_F(PitchTrim, CrossedErrorCountsAsAHundredthTheOtherWay) {
  // 0.1 x 0.39 x 20^2 x 28 = 436.8
  r = {.LastTarget = 5, .TrimBase = 2000, .PitchRate = -0.1F, .PrevError = 0.5F};
  EXPECT_NEAR(pass(5, 5.125F).value(), 2000 - 436.8, 1e-3);
  r = {.LastTarget = 5, .TrimBase = 2000, .PitchRate = -0.1F, .PrevError = -0.5F};
  EXPECT_NEAR(pass(5, 4.875F).value(), 2000 + 436.8, 1e-3);
}

TEST_F(PitchTrim, DeadBandBeforeAnyLargeErrorIsNotCrossed) {
  r = {.LastTarget = 5, .TrimBase = 2000, .PitchRate = 0.1F};
  EXPECT_NEAR(pass(5, 4.875F).value(), 1692, 1e-3);
}

TEST_F(PitchTrim, ErrorOfZeroSendsNothing) {
  r = {.LastTarget = 5, .TrimBase = 2000, .TrimWork = 1500, .PitchRate = 0.1F, .PrevError = 0.5F};
  EXPECT_EQ(pass(5, 5), std::nullopt);
  EXPECT_EQ(r.TrimWork, 1500);
  EXPECT_EQ(r.PrevPitch, 5);
}

TEST_F(PitchTrim, DeadBandEndsAboveAFifthOfADegreeOfTheSingles) {
  r = {.LastTarget = 5, .TrimBase = 2000, .PrevError = 0.5F};
  pass(5, 4.75F);
  EXPECT_EQ(r.PrevError, 0.25F);
  pass(5, 4.799F);
  EXPECT_NEAR(r.PrevError, 0.201, 1e-6);
  // The singles 4.8 and 5 are 0.19999981 apart.
  r.PrevError = 0.5F;
  pass(5, 4.8F);
  EXPECT_EQ(r.PrevError, 0.5F);
}

TEST_F(PitchTrim, SaturationSendsTheExcursionAndThenStandsAtTheEnd) {
  r = {.LastTarget = 5, .TrimBase = 16380};
  EXPECT_EQ(pass(5, 3), 16460);
  EXPECT_EQ(r.TrimBase, 16383);
  EXPECT_EQ(r.LastTarget, 99);
}

TEST_F(PitchTrim, ExcursionBelowEndsUpAtThePositiveEndAndMarksTheTargetWith99) {
  r = {.LastTarget = 5, .TrimBase = -16380};
  EXPECT_EQ(pass(5, 7), -16460);
  EXPECT_EQ(r.TrimBase, 16383);
  EXPECT_EQ(r.LastTarget, 99);
}

TEST_F(PitchTrim, TrimAtTheVeryEndIsNotSaturated) {
  r = {.LastTarget = 5, .TrimBase = 16383, .PitchRate = 1, .PrevError = 2};
  pass(5, 4);
  EXPECT_EQ(r.TrimBase, 16383);
  EXPECT_EQ(r.LastTarget, 5);
}

TEST_F(PitchTrim, WorkingTrimSaturatesByItself) {
  r = {.LastTarget = 5, .TrimBase = 16300, .PitchRate = 0.1F, .PrevError = -0.5F};
  EXPECT_NEAR(pass(5, 5.125F).value(), 16608, 1e-2);
  EXPECT_EQ(r.TrimBase, 16300);
  EXPECT_EQ(r.TrimWork, 16383);
  EXPECT_EQ(r.LastTarget, 99);
}

}  // namespace
}  // namespace vorlent
