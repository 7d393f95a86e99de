#pragma once

#include <cstdint>

namespace vorlent {

/// The simulator's autopilot and the lamps of the mode control panel. Only the lamps' settings are
/// there yet: nothing is written.
class clsAutoP {
 public:
  /// `writeOffsets`: whether the lamps are mirrored to user offsets from the start.
  explicit clsAutoP(bool writeOffsets) : Do_Write_Offsets(writeOffsets ? 1 : 0) {}

  std::int32_t Offset_LVLCH = 0;
  std::int32_t Offset_LNAV = 0;
  std::int32_t Offset_VNAV = 0;
  std::int32_t Offset_CMDL = 0;
  std::int32_t Offset_CMDR = 0;
  std::int32_t Offset_CWSL = 0;
  std::int32_t Offset_CWSR = 0;
  std::int32_t Offset_CO = 0;
  std::int32_t Offset_AT = 0;
  std::int32_t Offset_TOGA = 0;
  std::int32_t Offset_AP = 0;
  std::int32_t Offset_INTV = 0;
  std::int32_t Offset_EXEC = 0;
  std::int32_t Offset_HOLDIAS = 0;
  std::int32_t Offset_HOLDMACH = 0;
  std::int32_t Offset_HOLDALT = 0;
  std::int32_t Offset_HOLDHDG = 0;
  std::int32_t Offset_HOLDNAV1 = 0;
  std::int32_t Offset_HOLDLOC = 0;
  std::int32_t Offset_HOLDGS = 0;
  std::int32_t Offset_HOLDVS = 0;
  std::int32_t Offset_HOLDN1 = 0;
  std::int32_t Do_Write_Offsets;
};

}  // namespace vorlent
