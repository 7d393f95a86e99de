#include "simlink/clsFsOpt.h"

#include "base/numbers.h"
#include "simlink/controlWriters.h"

namespace vorlent {

void clsFsOpt::FSPaused(float on) { writeByte(link_, 0x0264, on); }
void clsFsOpt::NavLights(float on) { writeByte(link_, 0x0280, on); }
void clsFsOpt::FSStrobeLights(float on) { writeByte(link_, 0x0281, on); }
void clsFsOpt::FSLandingLights(float on) { writeByte(link_, 0x028C, on); }
void clsFsOpt::FSPitotHeat(float on) { writeByte(link_, 0x029C, on); }
void clsFsOpt::FSGpsSwitch(float on) { writeByte(link_, 0x132C, on); }
void clsFsOpt::FSSlew(float on) { writeByte(link_, 0x05DC, on); }
void clsFsOpt::EfisActive(float on) { writeByte(link_, 0x0E5A, on); }
void clsFsOpt::EfisVorElev(float value) { writeByte(link_, 0x0E5C, value); }
void clsFsOpt::EfisDensity(float value) { writeByte(link_, 0x0E5E, value); }
void clsFsOpt::EfisRange(float value) { writeByte(link_, 0x0E60, value); }
void clsFsOpt::EfisMode(float value) { writeByte(link_, 0x0E62, value); }
void clsFsOpt::EfisVorOrIls(float value) { writeByte(link_, 0x0E64, value); }
void clsFsOpt::EfisNav1Or2(float value) { writeByte(link_, 0x0E66, value); }
void clsFsOpt::EfisDisplay(float value) { writeByte(link_, 0x0E68, value); }
void clsFsOpt::FDirActive(float on) { writeByte(link_, 0x2EE0, on); }
void clsFsOpt::Battery(float on) { writeByte(link_, 0x281C, on); }
void clsFsOpt::Avionics(float on) { writeByte(link_, 0x2E80, on); }
void clsFsOpt::Autofeather(float on) { writeByte(link_, 0x2E88, on); }

void clsFsOpt::AltSet(float hectopascals) {
  constexpr double UnitsPerHectopascal = 16;
  const std::int32_t units = toInt32(hectopascals * UnitsPerHectopascal);
  const std::int32_t low = units % 256;
  const std::int32_t high = units / 256;
  writeByte(link_, 0x0330, low);
  writeByte(link_, 0x0331, high);
}

}  // namespace vorlent
