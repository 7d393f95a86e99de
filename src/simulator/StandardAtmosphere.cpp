#include "simulator/StandardAtmosphere.h"

#include <algorithm>
#include <cmath>

namespace vorlent {
namespace {

constexpr double GasConstant_J_kgK = 287.05287;
constexpr double HeatRatio = 1.4;
constexpr double LapseRate_K_m = 0.0065;
constexpr double Tropopause_m = 11000.0;

double soundSpeed(double temperature_K) {
  return std::sqrt(HeatRatio * GasConstant_J_kgK * temperature_K);
}

/// Impact pressure over static pressure, for air brought to rest without loss below Mach 1.
double impactRatio(double mach) { return std::pow(1 + 0.2 * mach * mach, 3.5) - 1; }
double machOfImpactRatio(double ratio) { return std::sqrt(5 * (std::pow(ratio + 1, 1 / 3.5) - 1)); }

}  // namespace

Air standardAir(double altitude_m) {
  const double inTroposphere_m = std::min(altitude_m, Tropopause_m);
  const double temperature_K = SeaLevelTemperature_K - LapseRate_K_m * inTroposphere_m;
  double pressure_Pa =
      SeaLevelPressure_Pa * std::pow(temperature_K / SeaLevelTemperature_K,
                                     StandardGravity_m_s2 / (LapseRate_K_m * GasConstant_J_kgK));
  pressure_Pa *= std::exp(-StandardGravity_m_s2 * (altitude_m - inTroposphere_m) /
                          (GasConstant_J_kgK * temperature_K));
  return {temperature_K, pressure_Pa, pressure_Pa / (GasConstant_J_kgK * temperature_K),
          soundSpeed(temperature_K)};
}

double machOfCalibrated(double calibrated_m_s, double pressure_Pa) {
  const double seaLevelMach = calibrated_m_s / soundSpeed(SeaLevelTemperature_K);
  return machOfImpactRatio(impactRatio(seaLevelMach) * SeaLevelPressure_Pa / pressure_Pa);
}

double calibratedOfMach(double mach, double pressure_Pa) {
  return soundSpeed(SeaLevelTemperature_K) *
         machOfImpactRatio(impactRatio(mach) * pressure_Pa / SeaLevelPressure_Pa);
}

double totalTemperature(double temperature_K, double mach) {
  return temperature_K * (1 + 0.2 * mach * mach);
}

}  // namespace vorlent
