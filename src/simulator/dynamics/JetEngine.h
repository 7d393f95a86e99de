#pragma once

#include "simulator/AircraftState.h"
#include "simulator/StandardAtmosphere.h"
#include "simulator/dynamics/PlantData.h"

namespace vorlent {

/// What an engine is told and where it runs.
struct EngineInputs {
  double lever = 0;    ///< 0 idle to 1 full; negative is reverse
  bool fuelOn = true;  ///< start lever at idle, and fuel in the tanks
  bool starter = false;
  bool onGround = true;
};

/// A turbofan with two spools. N1 follows the lever along an acceleration schedule; thrust, fuel
/// and temperature follow from N1 corrected to the total temperature ahead of the fan.
class JetEngine {
 public:
  enum class Phase { Off, Starting, Running };

  /// Runs at ground idle, or stands still.
  JetEngine(const EngineData& data, bool running);

  void step(const EngineInputs& inputs, const Air& air, double mach, double dt_s);
  /// As after a long time with this lever.
  void settle(const EngineInputs& inputs, const Air& air, double mach);

  const EngineState& state() const { return state_; }
  Phase phase() const { return phase_; }
  /// Newtons along the body; negative in reverse.
  double thrust_N() const { return state_.thrust_N; }

 private:
  void moveSpools(const EngineInputs& inputs, const Air& air, double mach, double dt_s);
  void crank(const EngineInputs& inputs, double dt_s);
  void showPower(const Air& air, double mach);
  void showAuxiliaries(double dt_s);

  const EngineData* data_;
  EngineState state_;
  Phase phase_;
  double reverser_ = 0;  ///< 0 stowed, 1 deployed
  double sinceLightOff_s_ = 0;
  double gasTarget_C_ = 15;
};

/// N1 that the engine's control makes of a lever, 0 to 1.
double commandedN1_pct(const EngineData& data, double lever, bool onGround, const Air& air,
                       double mach);
/// The lever, 0 to 1, with which an engine in flight settles at this thrust.
double leverForThrust(const EngineData& data, double thrust_N, const Air& air, double mach);

}  // namespace vorlent
