#include "simlink/derived.h"

#include "base/numbers.h"
#include "base/simulatorUnits.h"
#include "simlink/statements.h"

namespace vorlent {
namespace {

double magneticHeading(const modPublic& v) {
  const double heading = double{v.TrueHeading} - double{v.MagVar};
  if (heading < 0) return heading + 360;
  return heading > 360 ? heading - 360 : heading;
}

}  // namespace

void deriveMagHeading(modPublic& v) { set(v.MagHeading, magneticHeading(v)); }

void deriveFlapPositions(modPublic& v) {
  set(v.FlapPositions, quotient(FullScale, v.FlapIncrement) + 1);
}

void emptyMissingAuxTanks(modPublic& v) {
  for (const int aux : {Tank::LeftAux, Tank::RightAux})
    if (v.FuelTanks(aux).Capacity == 0) v.FuelTanks(aux).Level = 0;
}

void deriveFuelTotal(modPublic& v) {
  double percentGallons = 0;
  for (int tank = Tank::Centre; tank <= Tank::RightTip; ++tank)
    percentGallons += double{v.FuelTanks(tank).Level} * v.FuelTanks(tank).Capacity;
  set(v.FuelTotalLb, v.FuelLbPerGallon / 100.0 * percentGallons);
}

void deriveSlowTotalAirTemp(modPublic& v) {
  const double slow = v.TotalAirTempSlow;
  set(v.TotalAirTempSlow, slow + 0.00002 * (v.TotalAirTemp - slow));
}

}  // namespace vorlent
