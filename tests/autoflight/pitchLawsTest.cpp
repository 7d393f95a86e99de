#include "autoflight/pitchLaws.h"

#include "support/raisedBy.h"

namespace vorlent {
namespace {

constexpr int DivisionByZero = 11;
constexpr float LastTarget_fpm = 123;

/// Sensitivity 90 with flaps, 100 without, no limit that matters.
AltitudeInput at(double error_ft, double iasTrend_kt_s = 0, double verticalSpeed_fpm = 0) {
  return {error_ft, iasTrend_kt_s, verticalSpeed_fpm, 90, 100, LastTarget_fpm, 6000};
}

double targetOf(const AltitudeInput& in) { return altitudeTarget(in).value().verticalSpeed_fpm; }

TEST(PitchLaws, BankCountsWithoutItsSide) {
  EXPECT_EQ(bankSize(0), 0);
  EXPECT_EQ(bankSize(180), 180);
  EXPECT_EQ(bankSize(181), 179);
  EXPECT_EQ(bankSize(340), 20);
}

struct AltitudeRow {
  double error_ft;
  double iasTrend_kt_s;
  double target_fpm;
  std::optional<int> relay;
};

TEST(PitchLaws, AltitudeErrorGivesAVerticalSpeedBandByBand) {
  const AltitudeRow rows[] = {
      {400, 0, 790.96359, {}},      // 400^1.9 x 90 / 10000
      {400, 0.5, 790.96359, {}},    // the trend does not count here
      {-400, 0, -790.96359, {}},    //
      {300, 0, 1271.95103, {}},     // 300^1.9 x 100 / 4000
      {100, 0.5, 34.597426, {}},    // (100 - 55)^1.9 x 100 / 4000
      {-100, 0.5, -34.597426, {}},  // the lead shrinks either error
      {100, -5, 523.40748, {}},     // (100 + 110 x 0.8)^1.9 x 100 / 4000
      {50, 0, 21.736393, 3},        // 50^1.9 x 90 / 7000
      {-50, 0, -21.736393, 3},      //
      {20.5, 0, 3.9946323, 3},      // 20.5^1.9 x 90 / 7000
      {-20.5, 0, -3.9946323, 3},    //
      {30, 0.1, 2.4944364, 3},      // (30 - 14)^1.9 x 90 / 7000
      {-30, 0.1, -2.4944364, 3},    // |-30 + 14|
      {30, 5, 55.64047, 3},         // |30 - 112|: beyond the error the size counts
  };
  for (const auto& [error, trend, target, relay] : rows) {
    const auto result = altitudeTarget(at(error, trend));
    ASSERT_TRUE(result) << error;
    EXPECT_NEAR(result->verticalSpeed_fpm, target, std::fabs(target) * 1e-6) << error;
    EXPECT_EQ(result->relay, relay) << error;
  }
}

TEST(PitchLaws, Within20FeetTheVerticalSpeedIsTakenOut) {
  struct Row {
    double verticalSpeed_fpm;
    double target_fpm;
  };
  constexpr Row Rows[] = {
      {600, -2314.2857},    // 600^2 x 90 / 14000
      {400, -1028.5714},    //
      {-400, 1028.5714},    //
      {300, -1250},         // 300^2 x 100 / 7200
      {-300, 1250},         //
      {200, -555.55556},    //
      {-200, 555.55556},    //
      {1.5, -0.03125},      // 1.5^2 x 100 / 7200
      {0.5, 0.0034722222},  // below 1 the target is up, whichever way it goes
      {0, 0},               //
      {1, LastTarget_fpm},  //
  };
  for (const double error : {20., 5., -20.})
    for (const auto& [now, target] : Rows)
      EXPECT_NEAR(targetOf(at(error, 0, now)), target, 1e-3) << error << " at " << now;
}

TEST(PitchLaws, Within20FeetMoreThan600FeetPerMinuteLeavesAllAsItIs) {
  EXPECT_FALSE(altitudeTarget(at(10, 0, 601)));
  EXPECT_FALSE(altitudeTarget(at(-10, 0, -601)));
}

TEST(PitchLaws, AltitudeErrorOfZeroIsAFault) {
  EXPECT_EQ(raisedBy([] { altitudeTarget(at(0)); }), DivisionByZero);
}

TEST(PitchLaws, VerticalSpeedTargetIsLimitedToEitherSide) {
  AltitudeInput in = at(1000);
  in.limit_fpm = 1500;
  EXPECT_EQ(targetOf(in), 1500);
  in.error_ft = -1000;
  EXPECT_EQ(targetOf(in), -1500);
  in = at(10, 0, -7.5);  // 56.25 x 100 / 7200 is 0.78
  in.limit_fpm = 0.5;
  EXPECT_EQ(targetOf(in), 0.5);
  in = at(10, 0, 1);
  in.limit_fpm = 100;
  EXPECT_EQ(targetOf(in), 100) << "a target that stays is limited too";
}

/// 500 ft/min up, 3 degrees nose up, 300 ft/min a degree.
constexpr PitchFeedback Climbing = {500, 300, 3};

struct PitchTurnRow {
  double bank_deg;
  double bankRate_deg_s;
  double pitch_deg;
  std::optional<int> relay;
};

TEST(PitchLaws, AltitudePitchAddsTheLiftThatATurnCosts) {
  const PitchTurnRow rows[] = {
      {0, 0, 8, {}},             // (2000 - 500) / 300 + 3
      {1.5, 9, 8, {}},           //
      {1.51, 9, 8, 5},           //
      {5, 9, 8, 5},              //
      {5.1, 0, 8.104122, 5},     // (350 x tan 5.1 + 1500) / 300 + 3
      {20, 0, 8.424632, 5},      // (350 x tan 20 + 1500) / 300 + 3
      {20, 0.2, 8.424632, 5},    //
      {20, 0.201, 9.166667, 5},  // tan 45
      {20, -0.25, 8.424632, 5},
      {20, -0.251, 7.89793, 5},  // tan -5
  };
  for (const auto& [bank, rate, pitch, relay] : rows) {
    const PitchCommand command = altitudePitch(2000, Climbing, bank, rate);
    EXPECT_NEAR(command.pitch_deg, pitch, 1e-5) << bank << " at " << rate;
    EXPECT_EQ(command.relay, relay) << bank << " at " << rate;
  }
}

TEST(PitchLaws, VerticalSpeedPitchDampsByTheDriftAndAddsTheTurn) {
  // 500 ft/min now and 400 on average: 3 x 100 off.
  const PitchTurnRow rows[] = {
      {0, 9, 5.8, {}},                                       // (1500 - 300 - 500) x 1.2 / 300 + 3
      {5, 9, 5.8, {}},                                       //
      {5.1, 0, 5.917807, {}},                                // + 330 x tan 5.1
      {20, 0, 6.280441, {}},                                 // + 330 x tan 20
      {20, 0.25, 6.280441, {}},  {20, 0.251, 7.12, 5},       // + 330 x tan 45
      {20, -0.25, 6.280441, {}}, {20, -0.251, 4.943657, 5},  // + 330 x tan 5, x 0.8
  };
  for (const auto& [bank, rate, pitch, relay] : rows) {
    const PitchCommand command = verticalSpeedPitch(1500, 400, Climbing, bank, rate);
    EXPECT_NEAR(command.pitch_deg, pitch, 1e-5) << bank << " at " << rate;
    EXPECT_EQ(command.relay, relay) << bank << " at " << rate;
  }
}

TEST(PitchLaws, PitchWithoutASensitivityIsAFault) {
  EXPECT_EQ(raisedBy([] { altitudePitch(2000, {500, 0, 3}, 0, 0); }), DivisionByZero);
  EXPECT_EQ(raisedBy([] { verticalSpeedPitch(2000, 0, {500, 0, 3}, 0, 0); }), DivisionByZero);
}

SpeedInput speed(double target_kt, double trend_kt_s, double verticalSpeed_fpm = 0) {
  return {target_kt, 250, trend_kt_s, verticalSpeed_fpm, 3};
}

TEST(PitchLaws, SteadySpeedErrorMovesThePitchByATwentieth) {
  SpeedPitchMemory memory{1, 2};
  EXPECT_FLOAT_EQ(speedPitch(speed(260, 0.6), memory).value(), 2.5F);
  EXPECT_FLOAT_EQ(memory.slow, 2.5F);
  EXPECT_FLOAT_EQ(memory.fast, 2.5F);
  EXPECT_FLOAT_EQ(speedPitch(speed(240, -0.6), memory).value(), 3.5F);
  EXPECT_FLOAT_EQ(memory.slow, 3.5F);
  EXPECT_FLOAT_EQ(memory.fast, 3.5F);
}

TEST(PitchLaws, QuickSpeedChangeIsTakenOutFromTheOtherMemory) {
  SpeedPitchMemory memory{1, 2};
  EXPECT_FLOAT_EQ(speedPitch(speed(260, 0.601), memory).value(), 5.005F);  // 5 x 0.601 + 2
  EXPECT_FLOAT_EQ(speedPitch(speed(260, 0.8), memory).value(), 6);         // 5 x 0.8 + 2
  EXPECT_FLOAT_EQ(memory.slow, 6);
  EXPECT_FLOAT_EQ(memory.fast, 2);
  EXPECT_FLOAT_EQ(speedPitch(speed(240, -0.8), memory).value(), 2);  // -5 x 0.8 + 6
  EXPECT_FLOAT_EQ(memory.slow, 6);
  EXPECT_FLOAT_EQ(memory.fast, 2);
}

TEST(PitchLaws, QuickSpeedChangeWithAnEmptyMemoryCountsAsSteady) {
  for (SpeedPitchMemory memory : {SpeedPitchMemory{0, 2}, SpeedPitchMemory{1, 0}})
    EXPECT_FLOAT_EQ(speedPitch(speed(260, 0.8), memory).value(), 2.5F);
}

TEST(PitchLaws, WithinTwoAndAHalfKnotsOnlyAMovementAwayIsAnswered) {
  struct Row {
    double target_kt;
    double trend_kt_s;
    double verticalSpeed_fpm;
    std::optional<float> pitch_deg;
  };
  const Row rows[] = {
      {252.5, 0.5, 451, 3.142857F},  // 3 - (2.5 - 3.5) / 7
      {252.5, 0.5, 450, {}},         //
      {252.5, 0, 451, {}},           //
      {252.5, -0.5, 451, {}},        //
      {250, 0.5, 451, {}},           //
      {250, -0.5, 0, 2.5F},          // 3 - 3.5 / 7
      {247.5, -0.5, 0, 2.857143F},   // 3 - (-2.5 + 3.5) / 7
      {247.5, 0, 0, {}},             //
      {247.5, 0.5, 451, {}},         //
  };
  for (const auto& [target, trend, climb, pitch] : rows) {
    SpeedPitchMemory memory{1, 2};
    const auto result = speedPitch(speed(target, trend, climb), memory);
    ASSERT_EQ(result.has_value(), pitch.has_value()) << target << " " << trend;
    EXPECT_FLOAT_EQ(result.value_or(0), pitch.value_or(0)) << target << " " << trend;
    EXPECT_EQ(memory.slow, 1);
    EXPECT_EQ(memory.fast, 2);
  }
}

TEST(GlidePath, AltitudeErrorIsFlownOffInTenSecondsButNotFasterThan500) {
  EXPECT_EQ(levelTarget_fpm(50), 250);
  EXPECT_EQ(levelTarget_fpm(-50), -250);
  EXPECT_EQ(levelTarget_fpm(0), 0);
  EXPECT_EQ(levelTarget_fpm(101), 500);
  EXPECT_EQ(levelTarget_fpm(-1000), -500);
}

TEST(GlidePath, IsMetWithTheNeedleNearItsMiddle) {
  for (const double needle : {-20, 0, 20}) EXPECT_TRUE(meetsGlidePath(needle)) << needle;
  for (const double needle : {-127, -21, 21}) EXPECT_FALSE(meetsGlidePath(needle)) << needle;
}

TEST(GlidePath, DescendsByItsSlopeAndTheGroundSpeed) {
  // 101.2686 ft/min to the knot.
  EXPECT_NEAR(glidePathTarget_fpm({0, 3, 140, 1000}), -743.016, 0.01);    // x 140 x tan 3
  EXPECT_NEAR(glidePathTarget_fpm({0, 5.5, 100, 1000}), -975.105, 0.01);  // x 100 x tan 5.5
  EXPECT_EQ(glidePathTarget_fpm({0, 3, 0, 1000}), 0);
}

TEST(GlidePath, NeedleCountsByTheHeight) {
  // A tenth of the needle is 24 ft at 1000 ft, 2.4 ft at 100 ft: 120 and 12 ft/min.
  EXPECT_NEAR(glidePathTarget_fpm({-12.7, 3, 140, 1000}), -743.016 + 120, 0.01);
  EXPECT_NEAR(glidePathTarget_fpm({12.7, 3, 140, 1000}), -743.016 - 120, 0.01);
  EXPECT_NEAR(glidePathTarget_fpm({-12.7, 3, 140, 100}), -743.016 + 12, 0.01);
  EXPECT_NEAR(glidePathTarget_fpm({127, 3, 140, 1000}), -743.016 - 500, 0.01);
}

TEST(GlidePath, SlopeThatIsNoneCountsAsThreeDegrees) {
  for (const double slope : {0.0, 10.0, 360.0, -3.0})
    EXPECT_NEAR(glidePathTarget_fpm({0, slope, 140, 1000}), -743.016, 0.01) << slope;
}

/// 140 knots are 14176 ft/min: 743 ft/min are 3.0002 degrees.
TEST(PathPitch, AsksForMoreThanThreeTimesWhatIsMissing) {
  PathMemory memory;
  EXPECT_NEAR(pathPitch({-743, 0, 140, 2}, memory), 2 - 3.5 * 3.0002, 1e-3);
  EXPECT_NEAR(pathPitch({0, 0, 140, 2}, memory), 2, 1e-4);
}

TEST(PathPitch, TakesWhatTheWingNeedsFromTheMeanOfItsPasses) {
  PathMemory memory;
  // In steady descent at 3.0002 degrees with pitch 2 the wing needs 5.0002.
  EXPECT_NEAR(pathPitch({-743, -743, 140, 2}, memory), 2, 1e-4);
  // A degree more, without a change of pitch, by 743 less 495.2 ft/min: a fifth of it counts.
  EXPECT_NEAR(pathPitch({-743, -743 - 247.8, 140, 2}, memory), 2 + 3.5 * 0.2, 1e-2);
}

TEST(PathPitch, CountsInWhatTheNoseIsComingUpBy) {
  PathMemory memory;
  pathPitch({0, 0, 140, 2}, memory);
  // 0.12 degrees in 1.2 seconds: 0.25 in 2.5; the wing's mean rises by a fifth of 0.12.
  EXPECT_NEAR(pathPitch({0, 0, 140, 2.12}, memory), 2.12 + 3.5 * (2.024 - 2.12 - 0.25), 1e-4);
}

}  // namespace
}  // namespace vorlent
