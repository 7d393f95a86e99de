#pragma once

#include "simulator/AircraftState.h"
#include "simulator/StandardAtmosphere.h"

namespace vorlent {

/// A turbofan of 24000 pounds of static thrust that is asked for a thrust and gives it with the lag
/// of its spools. The curves are simple fits to the size of such an engine: thrust with the 2.3rd
/// power of the corrected fan speed, falling with Mach number; fuel by thrust.
class Turbofan {
 public:
  Turbofan();

  /// `thrust_N` is what the flight asks for; less than idle gives idle.
  void step(double thrust_N, const Air& air, double mach, double dt_s);

  const EngineState& state() const { return state_; }
  /// Where the lever stands for what was asked, 0 to 100 percent.
  double lever_pct() const { return lever_pct_; }

 private:
  void showAuxiliaries(double dt_s);

  EngineState state_;
  double lever_pct_ = 0;
  double exhaustTarget_C_ = 0;
};

}  // namespace vorlent
