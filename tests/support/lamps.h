#pragma once

#include <array>
#include <cstdint>

#include "simlink/clsAutoP.h"

namespace vorlent {

/// The lamps of the mode control panel in the order of their numbers, 1 to 22.
constexpr std::array LampOffsets = {
    &clsAutoP::Offset_LVLCH,   &clsAutoP::Offset_LNAV,    &clsAutoP::Offset_VNAV,
    &clsAutoP::Offset_CMDL,    &clsAutoP::Offset_CMDR,    &clsAutoP::Offset_CWSL,
    &clsAutoP::Offset_CWSR,    &clsAutoP::Offset_CO,      &clsAutoP::Offset_AT,
    &clsAutoP::Offset_TOGA,    &clsAutoP::Offset_AP,      &clsAutoP::Offset_INTV,
    &clsAutoP::Offset_EXEC,    &clsAutoP::Offset_HOLDIAS, &clsAutoP::Offset_HOLDMACH,
    &clsAutoP::Offset_HOLDALT, &clsAutoP::Offset_HOLDHDG, &clsAutoP::Offset_HOLDNAV1,
    &clsAutoP::Offset_HOLDLOC, &clsAutoP::Offset_HOLDGS,  &clsAutoP::Offset_HOLDVS,
    &clsAutoP::Offset_HOLDN1,
};

/// Mirrors every lamp to an offset that tells its number: lamp n to `base` + n.
inline void mirrorLamps(clsAutoP& autopilot, std::uint32_t base) {
  autopilot.Do_Write_Offsets = 1;
  for (const auto lamp : LampOffsets) autopilot.*lamp = static_cast<std::int32_t>(++base);
}

}  // namespace vorlent
