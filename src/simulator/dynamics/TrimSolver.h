#pragma once

#include "simulator/dynamics/FlightModel.h"

namespace vorlent {

/// What steady level flight asks for.
struct TrimPoint {
  double altitude_m;
  double trueAirspeed_m_s;
  double flapDetent = 0;
  bool gearDown = false;
};

struct TrimResult {
  double pitch_deg;     ///< angle of attack as well, in level flight
  double elevatorTrim;  ///< -1 to 1
  double lever;         ///< 0 to 1, of each engine
};

/// Finds attitude, trim and thrust that leave no acceleration, by Newton's method. Raises Overflow
/// when there are none within the travels of the controls.
TrimResult trimmed(const PlantData& plant, const MassProperties& mass, const TrimPoint& point);

}  // namespace vorlent
