#pragma once

namespace vorlent {

/// The ICAO standard atmosphere (Doc 7488) up to 20 km, and the airspeeds that follow from it.
struct Air {
  double temperature_K;
  double pressure_Pa;
  double density_kg_m3;
  double soundSpeed_m_s;
};

constexpr double SeaLevelPressure_Pa = 101325.0;
constexpr double SeaLevelTemperature_K = 288.15;
constexpr double StandardGravity_m_s2 = 9.80665;

/// Geopotential altitude, -5000 to 20000 m.
Air standardAir(double altitude_m);

/// Calibrated airspeed is the speed that gives the same impact pressure at sea level.
double machOfCalibrated(double calibrated_m_s, double pressure_Pa);
double calibratedOfMach(double mach, double pressure_Pa);
/// Total temperature of air brought to rest without loss.
double totalTemperature(double temperature_K, double mach);

}  // namespace vorlent
