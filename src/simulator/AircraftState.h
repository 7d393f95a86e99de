#pragma once

#include <array>
#include <cstddef>

#include "simulator/RoundEarth.h"

namespace vorlent {

constexpr std::size_t EngineCount = 2;

/// What an engine shows. Percent of full value where nothing else is said.
struct EngineState {
  bool running = true;
  double n1_pct = 0;
  double n2_pct = 0;
  double thrust_N = 0;
  double pressureRatio = 1;
  double fuelFlow_lb_h = 0;
  double exhaustGas_C = 0;
  double oilTemperature_C = 0;
  double oilPressure_psi = 0;
  double oilQuantity_pct = 0;
  double vibration = 0;  ///< 0 to 5
  double hydraulicPressure_psi = 0;
  double hydraulicQuantity_pct = 0;
};

/// What an aircraft shows of itself and of the air around it, in plain units. Altitudes are above
/// the sea; in the standard atmosphere of the built-in aircraft they are pressure altitudes as
/// well.
struct AircraftState {
  double elapsed_s = 0;  ///< since the start of the flight

  Place place{};
  double altitude_m = 0;
  double groundElevation_m = 0;
  bool onGround = true;

  double pitch_deg = 0;              ///< nose up positive
  double bank_deg = 0;               ///< right wing down positive
  double heading_deg = 0;            ///< true, 0 to 360
  double magneticVariation_deg = 0;  ///< east positive
  double turnRate_deg_s = 0;         ///< right positive
  double verticalSpeed_m_s = 0;      ///< up positive

  double calibratedAirspeed_m_s = 0;
  double trueAirspeed_m_s = 0;
  double mach = 0;
  double groundSpeed_m_s = 0;
  double track_deg = 0;       ///< true, 0 to 360
  double limitSpeed_m_s = 0;  ///< calibrated speed of the barber pole
  double angleOfAttack_deg = 0;
  double loadFactor = 1;  ///< G
  double slip = 0;        ///< sideways load in G, as felt; right positive

  double temperature_K = 288.15;
  double totalTemperature_K = 288.15;
  double seaLevelPressure_hPa = 1013.25;
  double windFrom_deg = 0;  ///< true
  double windSpeed_m_s = 0;
  double surfaceWindTop_m = 0;  ///< above the sea

  double flaps_deg = 0;
  double gearDown = 1;  ///< 0 up to 1 down and locked
  double spoilers = 0;  ///< 0 to 1
  double mass_kg = 0;
  bool avionicsPowered = true;

  std::array<EngineState, EngineCount> engines{};
};

}  // namespace vorlent
