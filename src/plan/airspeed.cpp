#include "plan/airspeed.h"

#include <cmath>

// ICAO Doc 7488: temperature falls by 6.5 K a kilometre to 36089 feet and stays from there on. The
// airspeed indicator shows what the impact pressure would mean at sea level.

namespace vorlent::airspeed {
namespace {

constexpr double Tropopause_ft = 36089.24;
constexpr double SoundAtSea_kt = 661.4788;
constexpr double LapsePerFoot = 0.0065 * 0.3048 / 288.15;  ///< as a part of the temperature at sea
constexpr double PressureExponent = 5.255880;
constexpr double ScaleHeightAbove_ft = 20805.83;

double temperatureRatio(double altitude_ft) {
  return 1 - LapsePerFoot * std::fmin(altitude_ft, Tropopause_ft);
}

double pressureRatio(double altitude_ft) {
  const double below = std::pow(temperatureRatio(altitude_ft), PressureExponent);
  const double above_ft = std::fmax(altitude_ft - Tropopause_ft, 0);
  return below * std::exp(-above_ft / ScaleHeightAbove_ft);
}

double impactPressure(double mach) { return std::pow(1 + 0.2 * mach * mach, 3.5) - 1; }
double machOf(double impactPressure) {
  return std::sqrt(5 * (std::pow(impactPressure + 1, 1 / 3.5) - 1));
}

}  // namespace

double trueFromMach_kt(double mach, double altitude_ft) {
  return mach * SoundAtSea_kt * std::sqrt(temperatureRatio(altitude_ft));
}

double trueFromCalibrated_kt(double calibrated_kt, double altitude_ft) {
  const double impact = impactPressure(calibrated_kt / SoundAtSea_kt);
  return trueFromMach_kt(machOf(impact / pressureRatio(altitude_ft)), altitude_ft);
}

double calibratedFromMach_kt(double mach, double altitude_ft) {
  return SoundAtSea_kt * machOf(impactPressure(mach) * pressureRatio(altitude_ft));
}

}  // namespace vorlent::airspeed
