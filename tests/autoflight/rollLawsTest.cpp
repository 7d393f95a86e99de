#include "autoflight/rollLaws.h"

#include <cmath>

#include "support/raisedBy.h"

namespace vorlent {
namespace {

TEST(RollLaws, DegreesAbove180BecomeNegative) {
  EXPECT_EQ(signedDegrees(0), 0);
  EXPECT_EQ(signedDegrees(180), 180);
  EXPECT_EQ(signedDegrees(180.5), -179.5);
  EXPECT_EQ(signedDegrees(359), -1);
}

struct BankRow {
  double bank_deg;
  double target_deg;
  double output_deg;
};

TEST(RollLaws, AileronTurnsItsSignInTheBandBelowATenthOfADegree) {
  constexpr BankRow Rows[] = {
      {10, 0, 5},           // left of the target: rolls right
      {-10, 0, -5},         // right of it: rolls left
      {10, 25, -7.5},       //
      {0.11, 0, 0.055},     //
      {-0.11, 0, -0.055},   //
      {0.1, 0, 0},          //
      {-0.1, 0, 0},         //
      {0.09, 0, -0.045},    // the signs change places
      {-0.09, 0, 0.045},    //
      {0.03, 0, -0.015},    //
      {-0.03, 0, 0.015},    //
      {0.021, 0, -0.0105},  // from just outside 0.02
      {-0.021, 0, 0.0105},  //
      {0.02, 0, 0},         //
      {-0.02, 0, 0},        //
      {0, 0, 0},            //
  };
  for (const auto& [bank, target, output] : Rows)
    EXPECT_DOUBLE_EQ(aileronFor(bank, target, 5000, 0.5).output, output) << bank;
}

TEST(RollLaws, AileronOfZeroIsPositiveZero) {
  EXPECT_FALSE(std::signbit(aileronFor(-0.01, 0, 5000, 0.5).output));
  EXPECT_FALSE(std::signbit(aileronFor(-0.1, 0, 5000, 0.5).output));
}

TEST(RollLaws, AileronOfZeroIsPositiveZeroAlsoWhereTheFadedFactorIsNegative) {
  // From 74000 feet on the factor is below 0: 10 x ((42000 - 106000) x 0.5 / 32000 + 0.5) / 2.
  EXPECT_EQ(aileronFor(10, 0, 106000, 0.5).output, -2.5);
  EXPECT_FALSE(std::signbit(aileronFor(0.01, 0, 106000, 0.5).output));
  EXPECT_FALSE(std::signbit(aileronFor(-0.01, 0, 5000, -0.5).output));
}

TEST(RollLaws, DeflectionIsTheAmountWhetherOrNotItIsSent) {
  EXPECT_DOUBLE_EQ(aileronFor(0.1, 0, 5000, 0.5).deflection, 0.05);
  EXPECT_DOUBLE_EQ(aileronFor(-10, 0, 5000, 0.5).deflection, 5);
}

TEST(RollLaws, FactorFadesWithAltitudeFrom10000Feet) {
  // Half of the factor stays; of the other half (42000 - altitude) / 32000.
  EXPECT_DOUBLE_EQ(aileronFor(10, 0, 9999, 0.4).output, 4);
  EXPECT_DOUBLE_EQ(aileronFor(10, 0, 10000, 0.4).output, 4);
  EXPECT_DOUBLE_EQ(aileronFor(10, 0, 26000, 0.4).output, 3);
  EXPECT_DOUBLE_EQ(aileronFor(10, 0, 42000, 0.4).output, 2);
}

struct RollTurnRow {
  double target_deg;
  double heading_deg;
  double bank_deg;  ///< left positive
};

TEST(RollLaws, TurnTakesTheShortWay) {
  constexpr RollTurnRow Rows[] = {
      {90, 90, 0},
      {100, 40, -25},
      {40, 100, 25},  // 60 degrees either way
      {100, 85, -12.5},
      {85, 100, 12.5},  // 15 of 30 degrees
      {10, 350, -50. / 3},
      {350, 10, 50. / 3},  // 20 degrees across north
      {5, 275, -25},
      {275, 5, 25},  // 90 degrees across north
      {190, 170, -50. / 3},
      {170, 190, 50. / 3},  // across south
      {170, 349.5, 25},     //
      {349.5, 170, -25},    // 179.5 degrees, where the signed difference is 180.5
      {120.05, 120, 0},
      {120, 120.05, 0},  // close enough
      {120.2, 120, -0.5 / 3},
      {130, 100, -25},
      {131, 100, -25},
  };
  for (const auto& [target, heading, bank] : Rows)
    EXPECT_NEAR(turnBank(target, heading, 25, 30), bank, 1e-9) << target << " from " << heading;
}

TEST(RollLaws, TurnOf180DegreesGoesTheWayOfTheSign) {
  EXPECT_EQ(turnBank(180, 0, 25, 30), -25);
  EXPECT_EQ(turnBank(0, 180, 25, 30), 25);
}

TEST(RollLaws, HeadingBeyondATurnCountsFromNorth) {
  // 365 less 4 is 361: one degree.
  EXPECT_NEAR(turnBank(365, 4, 30, 30), -1, 1e-9);
}

TEST(RollLaws, TurnRateGivesTheBankOfACoordinatedTurn) {
  EXPECT_NEAR(turnRateBank(100, 1, 30), 14.942304, 1e-6);
  EXPECT_NEAR(turnRateBank(450, 2, 80), 67.395649, 1e-6);
  EXPECT_EQ(turnRateBank(450, 1, 30), 30);
  EXPECT_EQ(turnRateBank(0, 1, 30), 5);
}

TEST(RollLaws, WindCorrectionSteersIntoTheWind) {
  // 50 kt across at 250 kt: the inverse sine of 0.2.
  EXPECT_NEAR(windCorrection(0, 50, 90, 250), 11.536959, 1e-6);
  EXPECT_NEAR(windCorrection(0, 50, 270, 250), 348.463041, 1e-6);
  EXPECT_NEAR(windCorrection(90, 50, 90, 250), 90, 1e-6);
  EXPECT_NEAR(windCorrection(180, 50, 270, 250), 191.536959, 1e-6);
  EXPECT_NEAR(windCorrection(355, 50, 85, 250), 366.536959, 1e-6);
}

TEST(RollLaws, WindThatNothingHoldsAgainstLosesTheCourse) {
  EXPECT_EQ(windCorrection(123, 300, 213, 250), 0);
  EXPECT_EQ(windCorrection(123, 300, 33, 250), 0);
}

TEST(RollLaws, WindOfTheAirspeedStraightAcrossIsHeldAgainstFromTheRightOnly) {
  // The factor of degrees is a little above pi / 180: at 89.9999975 degrees the sine is 1.
  EXPECT_NEAR(windCorrection(0.0000025, 250, 90, 250), 90.0000025, 1e-6);
  EXPECT_EQ(raisedBy([] { windCorrection(-0.0000025, 250, -90, 250); }), 11);
}

TEST(RollLaws, WindCorrectionWithoutAirspeedIsAFault) {
  EXPECT_EQ(raisedBy([] { windCorrection(90, 10, 0, 0); }), 11);
}

TEST(RollLaws, InverseSine) {
  EXPECT_DOUBLE_EQ(ArcSin(1), 1.5707963267948966);
  EXPECT_NEAR(ArcSin(0.5), 0.5235987755982989, 1e-15);
  EXPECT_NEAR(ArcSin(-0.5), -0.5235987755982989, 1e-15);
  EXPECT_EQ(ArcSin(0), 0);
  EXPECT_EQ(raisedBy([] { ArcSin(-1); }), 11);
  EXPECT_EQ(raisedBy([] { ArcSin(1.1); }), 5);
}

RadioBeam beamAt(int needle, double dme_nm = 20) {
  return {static_cast<std::int16_t>(needle), 90, dme_nm, 50, 30, 200};
}

TEST(RollLaws, BeamIsInterceptedInProportionToTheNeedle) {
  EXPECT_EQ(beamCourse(beamAt(0)), 90);
  EXPECT_EQ(beamCourse(beamAt(50)), 120);
  EXPECT_EQ(beamCourse(beamAt(-25)), 75);
  EXPECT_DOUBLE_EQ(beamCourse(beamAt(1)), 90.6);
  EXPECT_DOUBLE_EQ(beamCourse(beamAt(-1)), 89.4);
  EXPECT_DOUBLE_EQ(beamCourse(beamAt(124)), 164.4);
  EXPECT_DOUBLE_EQ(beamCourse(beamAt(-124)), 15.6);
}

TEST(RollLaws, FarBeamIsInterceptedAFifthSteeper) {
  EXPECT_DOUBLE_EQ(beamCourse(beamAt(50, 60)), 120);
  EXPECT_DOUBLE_EQ(beamCourse(beamAt(50, 60.1)), 126);
  EXPECT_EQ(beamCourse(beamAt(0, 61)), 90);
}

TEST(RollLaws, NeedleAtItsEdgeInterceptsByItsOwnNumber) {
  for (const int needle : {125, 126}) {
    EXPECT_EQ(beamCourse(beamAt(needle)), 140);
    EXPECT_EQ(beamCourse(beamAt(-needle)), 40);
  }
}

TEST(RollLaws, NeedleOutOfSightHoldsTheHeading) {
  for (const int needle : {127, -127, -128}) EXPECT_EQ(beamCourse(beamAt(needle)), 200);
}

Track trackAt(double crossTrack_nm, int side = 1) {
  return {crossTrack_nm, 90, static_cast<std::int16_t>(side), 3, 30, 200};
}

TEST(RollLaws, TrackIsInterceptedInProportionToItsDistance) {
  EXPECT_EQ(trackCourse(trackAt(1.5)), 105);
  EXPECT_EQ(trackCourse(trackAt(1.5, -1)), 75);
  EXPECT_DOUBLE_EQ(trackCourse(trackAt(0.3)), 93);
  EXPECT_EQ(trackCourse(trackAt(0)), 90);
  EXPECT_EQ(trackCourse(trackAt(-1)), 90);
}

TEST(RollLaws, AtOrBeyondMaxTrackOffsetThePresentHeadingIsKept) {
  EXPECT_EQ(trackCourse(trackAt(3)), 200);
  EXPECT_EQ(trackCourse(trackAt(10)), 200);
}

}  // namespace
}  // namespace vorlent
