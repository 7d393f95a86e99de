#pragma once

#include <cstdint>

namespace vorlent {

class clsFSUIPC;

/// The simulator's own autopilot, its mode control panel, and the lamps that a cockpit may mirror
/// to user offsets. Write-only: what the simulator's autopilot does is read by the poll. Each call
/// is one round trip; a value outside its type raises Overflow and writes nothing. Switches are one
/// byte, cut to a whole number 0..255: 1 is on, 0 is off.
class clsAutoP {
 public:
  /// `writeOffsets`: whether the lamps are mirrored to user offsets from the start.
  clsAutoP(clsFSUIPC& link, bool writeOffsets)
      : Do_Write_Offsets(writeOffsets ? 1 : 0), link_(link) {}

  void apMaster(float on);
  void apWingLeveller(float on);
  void apNav1Hold(float on);
  void apHeadingHold(float on);
  /// Always to the simulator's own heading bug: clsFSUIPC::Offset_APHeading() is where the bug is
  /// read, never where it is written. Wraps at a full turn: 360 goes out as 0.
  void apHeading(float degrees);
  void apAltitudeHold(float on);
  /// Raises Overflow beyond 107506 ft either way.
  void apAltitude(float feet);
  void apAttitudeHold(float on);
  void apAirspeedHold(float on);
  void apAirSpeed(float knots);
  void apMachNumberHold(float on);
  void ApMachNumber(float mach);
  void apVSpeedHold(float on);
  void apVertSpeed(float feetPerMinute);
  void apRpm(float value);
  void apGlideslopeHold(float on);
  void apLocalizerHold(float on);
  void apBackCourseHold(float on);
  void apYawDamper(float on);
  void apToGa(float on);
  void apAutoThrottle(float on);

  /// Mirrors a lamp, 1..22 in the order of the offsets below, to its user offset as one byte
  /// 0..255; does nothing while Do_Write_Offsets is below 1, and for any other number. An offset
  /// that was never set is 0 and is written like any other.
  void apMcpModes(std::int16_t mode, std::int32_t value);

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
  /// 1: the lamps are mirrored; 0: they are not.
  std::int32_t Do_Write_Offsets;

 private:
  clsFSUIPC& link_;
};

}  // namespace vorlent
