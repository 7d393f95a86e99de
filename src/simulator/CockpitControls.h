#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>

#include "simulator/AircraftState.h"
#include "simulator/OffsetMemory.h"

namespace vorlent {

/// Where the flight's own pilot puts the controls.
struct PilotControls {
  std::array<double, EngineCount> thrustLever_pct{};
  std::array<bool, EngineCount> starter{};
  int flapsDetent = 0;
  bool gearDown = true;
  bool parkingBrake = false;
  double spoilers = 0;  ///< 0 to 1
  double aileron = 0;   ///< -1 left to 1 right
  double elevator = 0;  ///< -1 nose down to 1 nose up
  bool landingLights = false;
};

/// Levers, switches and radios: what a client may write too. The pilot's controls are written when
/// the pilot moves them; in between, what a client wrote stays.
class CockpitControls {
 public:
  /// Sets every switch, radio and autopilot offset as before a flight.
  explicit CockpitControls(OffsetMemory& memory);

  void move(const PilotControls& controls);

 private:
  template <class T>
  void moveTo(std::size_t offset, T position);

  OffsetMemory& memory_;
  std::map<std::size_t, std::int64_t> moved_;
};

}  // namespace vorlent
