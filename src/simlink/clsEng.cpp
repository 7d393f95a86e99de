#include "simlink/clsEng.h"

#include <cmath>
#include <cstdint>

#include "base/simulatorUnits.h"
#include "simlink/controlWriters.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

constexpr double UnitsPerPercent = FullTravel / 100.0;

std::uint32_t engineOffset(std::uint32_t firstEngine, int engine) {
  return firstEngine + static_cast<std::uint32_t>((engine - 1) * EngineRecord_bytes);
}

}  // namespace

void clsEng::Throttle(int engine, float percent) {
  const double units = std::nearbyint(percent * UnitsPerPercent);
  // -4096 goes out as -4097. docs/peculiarities.md: 65535 beside 65536.
  const double bias = units < 0 ? OnesComplement16 : 0;
  writeLowHalf(link_, engineOffset(0x088C, engine), units + bias);
}

void clsEng::PropAdvance(int engine, float percent) {
  writeLowHalf(link_, engineOffset(0x088E, engine), percent * UnitsPerPercent);
}

void clsEng::Mixture(int engine, float percent) {
  writeLowHalf(link_, engineOffset(0x0890, engine), percent * UnitsPerPercent);
}

void clsEng::Magneto(int engine, float position) {
  writeByte(link_, engineOffset(0x0892, engine), position);
}

void clsEng::SetThrottles(float percent) { forAll(&clsEng::Throttle, percent); }
void clsEng::SetPropAdvanceAll(float percent) { forAll(&clsEng::PropAdvance, percent); }
void clsEng::SetMixtureAll(float percent) { forAll(&clsEng::Mixture, percent); }
void clsEng::SetMagnetoAll(float position) { forAll(&clsEng::Magneto, position); }

void clsEng::forAll(void (clsEng::*set)(int, float), float value) {
  for (int engine = 1; engine <= store_.EngineCount; ++engine) (this->*set)(engine, value);
}

}  // namespace vorlent
