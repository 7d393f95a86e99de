#include <cmath>

#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoT.h"
#include "base/numbers.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

/// Square root of sea level's air density over the density at a flight level.
double rootOfDensityFactor(double flightLevel) {
  const double height_m = flightLevel * 100 * 0.305;
  const double density = height_m * height_m * 2.54e-9 - height_m * 0.0001060188 + 1.211417;
  return std::sqrt(1.225 / density);
}

/// Knots. Raises InvalidCall below absolute zero.
double speedOfSound_kt(double temperature_C) {
  const double ratio = (temperature_C + 273) / 273;
  if (ratio < 0) throw RuntimeError(RuntimeError::InvalidCall);
  return std::sqrt(ratio) * 643;
}

}  // namespace

void clsAfds::TakeoffN1(float percent) { performance.TakeoffN1 = toInt16(percent); }

void clsAfds::N1SwitchStatus(std::int16_t position) {
  thrust_.selector = position;
  if (position != 3) return;
  for (int n = 1; n <= 2; ++n) autoflight_.store.Engines(n).N1Target = performance.ClimbN1;
}

/// Positions 1 and 2 are crossed. docs/peculiarities.md: N1 selector.
void clsAfds::setN1Targets(float computed_pct) {
  auto& engines = autoflight_.store.Engines;
  clsXAutoT& at = *autoflight_.xAutoT;
  if (thrust_.selector == 1) at.apRpm(engines(2).N1Target);
  if (thrust_.selector == 2 || thrust_.selector == 4) at.apRpm(engines(1).N1Target);
  if (thrust_.selector != 3) return;
  at.apRpm(computed_pct);
  engines(1).N1Target = engines(2).N1Target = computed_pct;
}

void clsAfds::SetEngineN1TargetClimb() { setN1Targets(performance.ClimbN1); }
void clsAfds::SetEngineN1TargetTakeoff() { setN1Targets(performance.TakeoffN1); }
void clsAfds::SetEngineN1TargetIdle() { setN1Targets(0); }

double clsAfds::CalcThrottleFromN1(double n1_pct) const {
  return thrust_.n1ToThr[0] * (n1_pct * n1_pct) + thrust_.n1ToThr[1] * n1_pct + thrust_.n1ToThr[2];
}

void clsAfds::CalcCurrentMach(float ias_kt, float& mach) const {
  const modPublic& v = autoflight_.store;
  const double tas_kt = ias_kt * rootOfDensityFactor(toInt32(v.AircraftAltitude / 100));
  const double exact = quotient(tas_kt, speedOfSound_kt(v.OutsideAirTemp));
  mach = toSingle(std::nearbyint(exact * 100) / 100);
}

}  // namespace vorlent
