#pragma once

#include "base/simulatorUnits.h"
#include "base/units.h"

namespace vorlent {

/// In what the two interfaces count differently: units of an offset to one of ours.
struct OffsetScales {
  double latitude_deg;
  double altitude_m;
  double windLayer_m;
  double groundSpeed_m_s;
  double verticalSpeed_m_s;
};

/// The interface measures latitude in metres of a quarter meridian of 10001750 m.
constexpr OffsetScales FsuipcScales{10001750.0 / 90, 1, 1, 65536, 256};

/// Such that the poll behind XPUIPC reads true numbers: its foot is not the true one.
constexpr OffsetScales XpuipcScales{
    LatitudeUnitsPerDegree, 1 / MetresPerFoot / FeetPerMetreOfXPlane,
    1 / MetresPerFoot / FeetPerMetreOfXPlane, 65535, 1 / MetresPerSecondPerFpm};

}  // namespace vorlent
