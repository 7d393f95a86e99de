#include "autoflight/rollLaws.h"

#include <cmath>

#include "base/numbers.h"
#include "base/units.h"

namespace vorlent {
namespace {

constexpr double FadeFrom_ft = 10000;
/// Needle deflections at which a beam counts as gone, and as out of sight.
constexpr int BeamEdge = 125;
constexpr int FullScale = 127;

/// 1 rolls toward the target, -1 away, 0 not at all. docs/peculiarities.md: aileron sign bands.
int rollDirection(double error_deg) {
  if (error_deg <= 0.02) return 0;
  if (error_deg < 0.1) return -1;
  return error_deg == 0.1 ? 0 : 1;
}

}  // namespace

double signedDegrees(double degrees) { return degrees > 180 ? degrees - 360 : degrees; }

Aileron aileronFor(double bank_deg, double target_deg, double altitude_ft, double factor) {
  const double error = std::fabs(bank_deg - target_deg);
  const double deflection = altitude_ft < FadeFrom_ft
                                ? error * factor
                                : error * ((42000 - altitude_ft) * factor / 32000 + factor) / 2;
  const int direction = (bank_deg > target_deg ? 1 : -1) * rollDirection(error);
  // Not a product where it is 0: with a negative deflection that would be a negative zero.
  return {direction == 0 ? 0 : direction * deflection, deflection};
}

double turnBank(double targetHeading_deg, double heading_deg, double fullBank_deg,
                double fullBankError_deg) {
  const double difference = signedDegrees(heading_deg) - signedDegrees(targetHeading_deg);
  if (difference == 0) return 0;
  const double full = std::fabs(difference) > 180 ? -fullBank_deg : fullBank_deg;
  const double toward = difference < 0 ? -full : full;
  double error = std::fabs(targetHeading_deg - heading_deg);
  if (error > 360) error -= 360;
  if (error > 180) error = 360 - error;
  if (error > fullBankError_deg) return toward;
  if (error < 0.1) return 0;
  return quotient(toward * error, fullBankError_deg);
}

double turnRateBank(double tas_kt, double rate, double limit_deg) {
  const double bank = std::atan(tas_kt * rate / 374.714) * CoarseDegreesPerRadian;
  const double limited = bank > limit_deg ? limit_deg : bank;
  return limited == 0 ? 5 : limited;
}

double ArcSin(double x) {
  if (x == 1) return std::acos(0.0);
  if (std::fabs(x) > 1) throw RuntimeError(RuntimeError::InvalidCall);
  return std::atan(quotient(x, std::sqrt(1 - x * x)));
}

double windCorrection(double course_deg, double windSpeed_kt, double windFrom_deg, double ias_kt) {
  const double across = quotient(
      windSpeed_kt * std::sin((windFrom_deg - course_deg) * CoarseRadiansPerDegree), ias_kt);
  // docs/peculiarities.md: lost course.
  const double course =
      std::fabs(across) <= 1 ? WindDegreesPerRadian * ArcSin(across) + course_deg : 0;
  return course < 0 ? course + 360 : course;
}

double beamCourse(const RadioBeam& beam) {
  const int size = std::abs(beam.needle);
  if (size >= FullScale) return beam.heading_deg;
  if (size >= BeamEdge)
    return beam.course_deg + (beam.needle < 0 ? -beam.interceptNeedle : beam.interceptNeedle);
  if (beam.needle == 0) return beam.course_deg;
  const double far = beam.dme_nm > 60 ? 1.2 : 1;
  return beam.needle * far / beam.interceptNeedle * beam.deflection_deg + beam.course_deg;
}

double trackCourse(const Track& track) {
  if (track.crossTrack_nm >= track.maxOffset_nm) return track.heading_deg;
  if (track.crossTrack_nm <= 0) return track.course_deg;
  return track.side * track.crossTrack_nm / track.maxOffset_nm * track.deflection_deg +
         track.course_deg;
}

}  // namespace vorlent
