#include "simlink/clsEng.h"

#include <cmath>
#include <cstdint>

#include "simlink/controlWriters.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

/// From one engine's block to the next.
constexpr int EngineBlock_bytes = 152;
/// 16383 is the full travel.
constexpr double UnitsPerPercent = 163.83;
/// One less than a turn of a 16-bit counter, so that -4096 goes out as -4097: meant.
constexpr double NegativeThrottleBias = 65535;

std::uint32_t engineOffset(std::uint32_t firstEngine, int engine) {
  return firstEngine + static_cast<std::uint32_t>((engine - 1) * EngineBlock_bytes);
}

}  // namespace

void clsEng::Throttle(int engine, float percent) {
  const double units = std::nearbyint(percent * UnitsPerPercent);
  const double bias = units < 0 ? NegativeThrottleBias : 0;
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
