#include "extras/FuelAccount.h"

#include "base/RuntimeError.h"
#include "base/numbers.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

constexpr int Engines = 4;
/// Of 30 seconds each.
constexpr double BeatsPerHour = 120;

}  // namespace

void FuelAccount::takeBeat() {
  if (store_.Paused == 0)
    for (int n = 1; n <= Engines; ++n) burn(n);
  for (int n = 1; n <= Engines; ++n) beginAtStartOnGround(n);
}

/// Without a density there are no gallons; the other engines are worked out all the same.
void FuelAccount::burn(int n) {
  try {
    const double gallons =
        quotient(store_.Engines(n).FuelFlow, store_.FuelLbPerGallon * BeatsPerHour);
    store_.FuelBurnt(n) = toSingle(store_.FuelBurnt(n) + gallons);
  } catch (const RuntimeError&) {
    return;
  }
}

void FuelAccount::beginAtStartOnGround(int n) {
  const std::int16_t burning = store_.Engines(n).Combustion;
  const bool starts = PreviousCombustion_(n) == 0 && burning != 0;
  if (starts && store_.OnGround >= 1) store_.FuelBurnt(n) = 0;
  PreviousCombustion_(n) = burning;
}

}  // namespace vorlent
