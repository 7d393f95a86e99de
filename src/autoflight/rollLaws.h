#pragma once

#include <cstdint>

namespace vorlent {

/// Degrees that turn without a step at north: 0..180 as they are, above that less 360.
double signedDegrees(double degrees);

struct Aileron {
  double output;      ///< degrees of aileron trim, positive rolls right
  double deflection;  ///< its size, whether or not it is sent
};
/// From a bank (left positive) to a target bank (left positive). From 10000 feet on the factor
/// fades with altitude. The sign turns below an error of 0.1 degrees, which lets the aircraft rock
/// about its target instead of sticking beside it.
Aileron aileronFor(double bank_deg, double target_deg, double altitude_ft, double factor);

/// Bank (left positive) that turns from a magnetic heading to another: `fullBank_deg` from an error
/// of `fullBankError_deg` on, in proportion below it, none below 0.1 degrees.
double turnBank(double targetHeading_deg, double heading_deg, double fullBank_deg,
                double fullBankError_deg);

/// Bank of a turn at `rate` times the standard rate, degrees: at most `limit_deg`, and 5 where it
/// would be 0.
double turnRateBank(double tas_kt, double rate, double limit_deg);

/// Course to steer so that the wind does not carry off the track; 0 in a wind that none holds
/// against. Raises DivisionByZero for no airspeed.
double windCorrection(double course_deg, double windSpeed_kt, double windFrom_deg, double ias_kt);

/// Inverse sine by the arctangent. Raises DivisionByZero at -1 and InvalidCall beyond -1..1.
double ArcSin(double x);

struct RadioBeam {
  std::int16_t needle;  ///< -127..127, positive fly right
  double course_deg;    ///< of the beam
  double dme_nm;
  double interceptNeedle;  ///< needle at which the deflection is reached
  double deflection_deg;
  double heading_deg;  ///< held where the beam is out of sight
};
/// Course to steer onto a radio beam.
double beamCourse(const RadioBeam& beam);

struct Track {
  double crossTrack_nm;
  double course_deg;
  std::int16_t side;      ///< -1 or 1, where to turn
  double maxOffset_nm;    ///< from here on the present heading is held
  double deflection_deg;  ///< at that offset
  double heading_deg;
};
/// Course to steer onto a great-circle track.
double trackCourse(const Track& track);

}  // namespace vorlent
