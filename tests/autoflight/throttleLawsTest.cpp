#include "autoflight/throttleLaws.h"

namespace vorlent {
namespace {

TEST(ThrottleLaws, N1ThatALeverSettlesAt) {
  EXPECT_DOUBLE_EQ(GetN1Target(0), 23.03027);
  EXPECT_NEAR(GetN1Target(50), 67.179065, 1e-9);
  EXPECT_NEAR(GetN1Target(100), 101.41721, 1e-9);
}

struct RpmRow {
  double target_pct;
  double trend_pct_s;
  double lever_pct;
};

TEST(ThrottleLaws, LeverForN1) {
  // From a lever of 60 at an N1 of 80.
  constexpr RpmRow Rows[] = {
      {89, 0, 60.9},        // 9 x 0.1
      {89, 8.5, 60.9},      //
      {89, -8.5, 60.9},     //
      {71, 0, 59.1},        //
      {89, 9, 52},          // 60 + 9 / 9 - 9
      {89, -9, 70},         //
      {80, 2, 58},          //
      {80, 0, 60},          //
      {100, 10, 62},        // 20 x 0.1
      {100, 12.5, 60.16},   // 20 x 0.1 / 12.5
      {100, -12.5, 59.84},  // the trend keeps its sign
  };
  for (const auto& [target, trend, lever] : Rows)
    EXPECT_NEAR(leverForN1({target, 80, trend, 60}), lever, 1e-12) << target << " " << trend;
}

struct SpeedRow {
  double target_kt;
  double trend_kt_s;
  double lever_pct;  ///< where it stands
  double sent_pct;
};

TEST(ThrottleLaws, LeverForSpeed) {
  // From 250 kt with a factor of 0.1.
  constexpr SpeedRow Rows[] = {
      {270, 0, 60, 62},        // 20 x 0.1
      {270, 1, 60, 62},        //
      {270, 1.25, 60, 61.6},   // 20 x 0.1 / 1.25
      {270, -1.25, 60, 61.6},  // the size of the trend
      {230, 0, 60, 58},        //
      {259, 0.9, 60, 60.425},  // 60 + (9 / 9 - 0.9) x 4.25
      {259, 2, 60, 55.75},     // (1 - 2) x 4.25
      {250, 0, 60, 60},        //
      {250, 0, 0, 20},         // never from below 20
      {230, 0, 10, 18},        //
      {250, 0, 20.5, 20.5},    //
  };
  for (const auto& [target, trend, lever, sent] : Rows)
    EXPECT_NEAR(leverForSpeed({target, 250, trend, lever, 0.1}), sent, 1e-9)
        << target << " " << trend << " " << lever;
}

}  // namespace
}  // namespace vorlent
