#include "simlink/clsAutoP.h"

#include <array>

#include "base/simulatorUnits.h"
#include "simlink/controlWriters.h"

namespace vorlent {
namespace {

/// Turn16 / 360, cut where it always was.
constexpr double UnitsPerDegree = 182.044444444444;
/// Altitudes are metres x 65536. docs/peculiarities.md: units per foot.
constexpr double UnitsPerFoot = 19975.372161;

constexpr std::array<std::int32_t clsAutoP::*, 22> LampOffsets = {
    &clsAutoP::Offset_LVLCH,   &clsAutoP::Offset_LNAV,    &clsAutoP::Offset_VNAV,
    &clsAutoP::Offset_CMDL,    &clsAutoP::Offset_CMDR,    &clsAutoP::Offset_CWSL,
    &clsAutoP::Offset_CWSR,    &clsAutoP::Offset_CO,      &clsAutoP::Offset_AT,
    &clsAutoP::Offset_TOGA,    &clsAutoP::Offset_AP,      &clsAutoP::Offset_INTV,
    &clsAutoP::Offset_EXEC,    &clsAutoP::Offset_HOLDIAS, &clsAutoP::Offset_HOLDMACH,
    &clsAutoP::Offset_HOLDALT, &clsAutoP::Offset_HOLDHDG, &clsAutoP::Offset_HOLDNAV1,
    &clsAutoP::Offset_HOLDLOC, &clsAutoP::Offset_HOLDGS,  &clsAutoP::Offset_HOLDVS,
    &clsAutoP::Offset_HOLDN1,
};

}  // namespace

void clsAutoP::apMaster(float on) { writeByte(link_, 0x07BC, on); }
void clsAutoP::apWingLeveller(float on) { writeByte(link_, 0x07C0, on); }
void clsAutoP::apNav1Hold(float on) { writeByte(link_, 0x07C4, on); }
void clsAutoP::apHeadingHold(float on) { writeByte(link_, 0x07C8, on); }
void clsAutoP::apHeading(float degrees) { writeLowHalf(link_, 0x07CC, degrees * UnitsPerDegree); }
void clsAutoP::apAltitudeHold(float on) { writeByte(link_, 0x07D0, on); }
void clsAutoP::apAltitude(float feet) { writeLong(link_, 0x07D4, feet * UnitsPerFoot); }
void clsAutoP::apAttitudeHold(float on) { writeByte(link_, 0x07D8, on); }
void clsAutoP::apAirspeedHold(float on) { writeByte(link_, 0x07DC, on); }
void clsAutoP::apAirSpeed(float knots) { writeLowHalf(link_, 0x07E2, knots); }
void clsAutoP::apMachNumberHold(float on) { writeByte(link_, 0x07E4, on); }
void clsAutoP::ApMachNumber(float mach) { writeLowHalf(link_, 0x07E8, mach * UnitsPerMach); }
void clsAutoP::apVSpeedHold(float on) { writeByte(link_, 0x07EC, on); }
void clsAutoP::apVertSpeed(float feetPerMinute) {
  // -1000 goes out as -1001. docs/peculiarities.md: 65535 beside 65536.
  const double bias = feetPerMinute < 0 ? OnesComplement16 : 0;
  writeLowHalf(link_, 0x07F2, feetPerMinute + bias);
}
void clsAutoP::apRpm(float value) { writeLong(link_, 0x07F8, value); }
void clsAutoP::apGlideslopeHold(float on) { writeByte(link_, 0x07FC, on); }
void clsAutoP::apLocalizerHold(float on) { writeByte(link_, 0x0800, on); }
void clsAutoP::apBackCourseHold(float on) { writeByte(link_, 0x0804, on); }
void clsAutoP::apYawDamper(float on) { writeByte(link_, 0x0808, on); }
void clsAutoP::apToGa(float on) { writeByte(link_, 0x080C, on); }
void clsAutoP::apAutoThrottle(float on) { writeByte(link_, 0x0810, on); }

void clsAutoP::apMcpModes(std::int16_t mode, std::int32_t value) {
  if (Do_Write_Offsets < 1 || mode < 1 || mode > static_cast<int>(LampOffsets.size())) return;
  const std::int32_t offset = this->*LampOffsets[static_cast<std::size_t>(mode) - 1];
  writeByte(link_, static_cast<std::uint32_t>(offset), value);
}

}  // namespace vorlent
