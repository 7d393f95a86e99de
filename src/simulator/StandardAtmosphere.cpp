#include "simulator/StandardAtmosphere.h"

#include <algorithm>
#include <cmath>

namespace vorlent {
namespace {

constexpr double gasConstant_J_kgK = 287.05287;
constexpr double heatRatio = 1.4;
constexpr double lapseRate_K_m = 0.0065;
constexpr double tropopause_m = 11000.0;

double soundSpeed(double temperature_K) {
  return std::sqrt(heatRatio * gasConstant_J_kgK * temperature_K);
}

/// Impact pressure over static pressure, for air brought to rest without loss below Mach 1.
double impactRatio(double mach) { return std::pow(1 + 0.2 * mach * mach, 3.5) - 1; }
double machOfImpactRatio(double ratio) { return std::sqrt(5 * (std::pow(ratio + 1, 1 / 3.5) - 1)); }

}  // namespace

Air standardAir(double altitude_m) {
  const double inTroposphere_m = std::min(altitude_m, tropopause_m);
  const double temperature_K = seaLevelTemperature_K - lapseRate_K_m * inTroposphere_m;
  double pressure_Pa =
      seaLevelPressure_Pa * std::pow(temperature_K / seaLevelTemperature_K,
                                     standardGravity_m_s2 / (lapseRate_K_m * gasConstant_J_kgK));
  pressure_Pa *= std::exp(-standardGravity_m_s2 * (altitude_m - inTroposphere_m) /
                          (gasConstant_J_kgK * temperature_K));
  return {temperature_K, pressure_Pa, pressure_Pa / (gasConstant_J_kgK * temperature_K),
          soundSpeed(temperature_K)};
}

double machOfCalibrated(double calibrated_m_s, double pressure_Pa) {
  const double seaLevelMach = calibrated_m_s / soundSpeed(seaLevelTemperature_K);
  return machOfImpactRatio(impactRatio(seaLevelMach) * seaLevelPressure_Pa / pressure_Pa);
}

double calibratedOfMach(double mach, double pressure_Pa) {
  return soundSpeed(seaLevelTemperature_K) *
         machOfImpactRatio(impactRatio(mach) * pressure_Pa / seaLevelPressure_Pa);
}

double totalTemperature(double temperature_K, double mach) {
  return temperature_K * (1 + 0.2 * mach * mach);
}

}  // namespace vorlent
