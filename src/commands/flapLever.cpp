#include <cmath>

#include "base/numbers.h"
#include "commands/leverConversions.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

using Table = IndexedArray<FlapDetent, 0, 16>;

/// The detent in which the lever stands, 1 is up; 0 when the table has none there. A detent's limit
/// is its upper end.
int detentAt(const Table& table, double position) {
  for (int row = 1; row <= Table::Last; ++row)
    if (position <= table(row).Limit && table(row - 1).Limit <= position) return row;
  return 0;
}

/// How the oldest simulators spread the degrees of flaps over the axis.
struct Stretch {
  int upTo_deg;
  int upTo_position;
  int width_deg;
  int width_position;
};

constexpr Stretch Stretches[] = {
    {2, 4094, 1, 2047},    {5, 6141, 3, 2047},   {10, 8192, 5, 2051},   {15, 10235, 5, 2043},
    {25, 12282, 10, 2047}, {30, 14329, 5, 2047}, {45, 16383, 15, 2054},
};

AnalogResult positionOf(std::int16_t flaps_deg) {
  if (flaps_deg < 1) return std::int16_t{0};
  for (const Stretch& stretch : Stretches)
    if (flaps_deg <= stretch.upTo_deg) {
      const double missing_deg = stretch.upTo_deg - flaps_deg;
      return toInt16(stretch.upTo_position -
                     missing_deg * stretch.width_position / stretch.width_deg);
    }
  return {};
}

}  // namespace

AnalogResult levers::flaps(const LeverReading& lever) {
  const modPublic& v = lever.store;
  const Table& table = lever.store.FlapTable;
  const int row = detentAt(table, std::trunc(lever.value / 2.0));
  if (row == 0) return {};
  if (v.FsVersionCode >= modPublic::MinFsVersion) return toInt16((row - 1.0) * v.FlapIncrement);
  return positionOf(table(row).Degrees);
}

}  // namespace vorlent
