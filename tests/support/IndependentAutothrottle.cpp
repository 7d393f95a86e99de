#include <algorithm>
#include <cmath>

#include "support/IndependentAutoflight.h"

namespace vorlent {

void IndependentAutoflight::KillThrottleModes() {
  if (on.apAirspeedHoldByRpm) apAirspeedHoldByRpm(0);
  if (on.apMachNumberHoldByRpm) apMachNumberHoldByRpm(0);
  if (on.apRpmHold) apRpmHold(0);
  if (on.apRetard) apRetard(0);
  if (on.apThrottleHold) apThrottleHold(0);
  if (in.ApSpeedHoldSim > 0) byte(0x07DC, 0);
  if (in.ApBcHoldSim >= 1) byte(0x0804, 0);
}

void IndependentAutoflight::apAutoThrottle(int value) {
  on.apAutoThrottle = value;
  fma.AT = value == 1 ? "ARM" : "_";
  if (on.apAirspeedHoldByRpm) apAirspeedHoldByRpm(1);
  if (on.apMachNumberHoldByRpm) apMachNumberHoldByRpm(1);
  lamp(9, value);
}

void IndependentAutoflight::apMachNumberHoldByRpm(int value) {
  on.apMachNumberHoldByRpm = value;
  lamp(15, value);
}

void IndependentAutoflight::apThrottleHold(int value) {
  if (value < 1) {
    fma.AT = ifArmed("ARM");
  } else {
    KillThrottleModes();
    fma.AT = ifArmed("THR_HLD");
  }
  on.apThrottleHold = value;
}

void IndependentAutoflight::apAirspeedHoldByRpm(int value) {
  if (value > 0) KillThrottleModes();
  if (value > 0)
    fma.AT = ifArmed(on.VNAV ? "FMC_SPD" : "MCP_SPD");
  else
    fma.AT = ifArmed("ARM");
  on.apAirspeedHoldByRpm = value;
  lamp(14, value);
}

void IndependentAutoflight::apChangeover(int value) {
  on.apChangeover = value;
  ApMachNumber(in.Mach);
  lamp(8, value);
}

void IndependentAutoflight::apRetard(int value) {
  if (value == 1) KillThrottleModes();
  fma.AT = value == 1 ? "RETARD" : "ARM";
  on.apRetard = value;
}

void IndependentAutoflight::apRpmHold(int value) {
  if (value > 0) {
    KillThrottleModes();
    const double lever = in.engines[0].ThrustLever;
    target.RpmRamp = -0.00198213 * (lever * lever) + 0.9820824 * lever + 23.03027;
    fma.AT = ifArmed("N1");
  } else {
    fma.AT = ifArmed("ARM");
  }
  on.apRpmHold = value;
  lamp(22, value);
}

void IndependentAutoflight::N1SwitchStatus(int value) {
  memory.N1SwitchStatus = value;
  if (value == 3) memory.N1Target[0] = memory.N1Target[1] = memory.ClimbN1;
}

void IndependentAutoflight::setEngineN1Target(double computed) {
  switch (memory.N1SwitchStatus) {
    case 1:
      target.apRpm = memory.N1Target[1];
      break;
    case 2:
    case 4:
      target.apRpm = memory.N1Target[0];
      break;
    case 3:
      target.apRpm = computed;
      memory.N1Target[0] = memory.N1Target[1] = computed;
      break;
    default:
      break;
  }
}

void IndependentAutoflight::HoldRpm(double trend) {
  target.RpmRamp = target.RpmRamp + 0.1 * (target.apRpm - target.RpmRamp);
  const double err = target.RpmRamp - in.engines[0].N1;
  double out = in.engines[0].ThrustLever;
  if (std::fabs(trend) >= std::fabs(err))
    out = out + err / 9 - trend;
  else if (std::fabs(trend) <= 10)
    out = out + err * 0.1;
  else
    out = out + err * 0.1 / trend;
  if (out > 0) SetThrottles(out);
}

void IndependentAutoflight::HoldAirspeedByRpm(double trend) {
  const double base = std::max(20.0, double{in.engines[0].ThrustLever});
  const double err = target.throttleAirSpeed - memory.AvgIas;
  const double factor = tune.apThrottleControlFactor;
  double out = 0;
  if (std::fabs(trend) * 10 >= std::fabs(err))
    out = base + (err / 9 - trend) * factor * 42.5;
  else if (std::fabs(trend) > 1)
    out = base + err * factor / std::fabs(trend);
  else
    out = base + err * factor;
  SetThrottles(out);
  for (std::size_t engine = 0; engine < 2; ++engine)
    memory.N1Target[engine] = in.engines[engine].N1;
}

}  // namespace vorlent
