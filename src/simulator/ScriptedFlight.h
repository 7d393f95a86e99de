#pragma once

#include <array>
#include <cstddef>

#include "simulator/Aircraft.h"
#include "simulator/CockpitControls.h"
#include "simulator/FixedSteps.h"
#include "simulator/FlightMotion.h"
#include "simulator/FlightScript.h"
#include "simulator/FuelTanks.h"
#include "simulator/NavReceivers.h"
#include "simulator/OffsetMemory.h"
#include "simulator/OffsetScales.h"
#include "simulator/Turbofan.h"

namespace vorlent {

/// A twin-jet that flies a script by itself, the same way every time, and begins again on
/// the runway when the script is through. It cannot be steered: an instrument for tests and a first
/// sight for somebody without a simulator.
///
/// What it shows of itself it writes over in each step. Switches, radios and levers are written at
/// the start and when the script moves them; in between, what a client wrote stays. Fuel and the
/// pause flag at 0x0264 are obeyed.
class ScriptedFlight : public Aircraft {
 public:
  ScriptedFlight(OffsetMemory& memory, FlightScript script, const NavStations& stations = {},
                 const OffsetScales& scales = FsuipcScales);

  /// Time goes on in parts of TimeStep_s, however it is cut.
  void step(double dt_s) override;
  AircraftState state() const override;

  static constexpr double TimeStep_s = 0.02;

 private:
  void advance();
  void beginAgain();
  void show();
  const FlightSegment& segmentNow() const;
  EngineState engineState(std::size_t engine) const;
  double mass_kg() const;

  OffsetMemory& memory_;
  FlightScript script_;
  CockpitControls controls_;
  FuelTanks tanks_;
  NavReceivers receivers_;
  FlightMotion motion_;
  std::array<Turbofan, EngineCount> engines_;
  long ticks_ = 0;  ///< parts of TimeStep_s since the flight began
  OffsetScales scales_;
  FixedSteps steps_{TimeStep_s};
};

}  // namespace vorlent
