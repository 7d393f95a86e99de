#include <cmath>

#include "support/IndependentAutoflight.h"

namespace vorlent {
namespace {

std::uint64_t bitsOf(independent::Long value) {
  return static_cast<std::uint64_t>(static_cast<std::int64_t>(value));
}

}  // namespace

void IndependentAutoflight::put(std::uint32_t offset, std::size_t size, std::uint64_t bits) {
  FakeSimulatorBus::Write write{offset, {}};
  for (std::size_t at = 0; at < size; ++at)
    write.bytes.push_back(static_cast<std::uint8_t>(bits >> (8 * at) & 0xFF));
  writes.push_back(write);
}

void IndependentAutoflight::byte(std::uint32_t offset, double value) {
  put(offset, 1, static_cast<std::uint64_t>(value));
}

void IndependentAutoflight::signedHalf(std::uint32_t offset, double value, double bias) {
  if (std::fabs(value) > 32767) ++turnedOver;
  lowHalf(offset, value < 0 ? value + bias : value);
}

void IndependentAutoflight::lowHalf(std::uint32_t offset, double value) {
  put(offset, 2, bitsOf(value));
}

void IndependentAutoflight::lamp(int number, int value) {
  if (lampsLit) byte(lampOffset(number), value);
}

void IndependentAutoflight::AileronTrim(double radians) {
  if (on.ApEngaged < 1) return;
  std::uint64_t bits = 0;
  static_assert(sizeof bits == sizeof radians);
  std::memcpy(&bits, &radians, sizeof bits);
  put(0x2EB0, 8, bits);
}

void IndependentAutoflight::TrimPosition(double value) {
  const Single position = value;
  if (on.ApEngaged > 0) signedHalf(0x0BC0, position, 65536);
}

void IndependentAutoflight::SetThrottles(double percent) {
  const Single lever = percent;
  for (int engine = 0; engine < in.EngineCount; ++engine) {
    signedHalf(0x088C + 152 * static_cast<std::uint32_t>(engine), std::nearbyint(lever * 163.83),
               65535);
  }
}

void IndependentAutoflight::apHeading(double degrees) {
  const Single value = degrees;
  if (value == target.apHeading) return;
  target.apHeading = value;
  if (value != in.ApHeadingSim) lowHalf(0x07CC, value * 182.044444444444);
}

void IndependentAutoflight::apAltitude(double feet) {
  const Single value = feet;
  if (apAltitude() != value) target.biasedAltitude = value + 25;
}

void IndependentAutoflight::apMcpAltitude(double feet) {
  const Single value = feet;
  if (apMcpAltitude() != value) target.biasedMcpAltitude = value + 25;
  if (value != in.ApAltitudeSim) put(0x07D4, 4, bitsOf(value * 19975.372161));
  if (!on.apAltitudeHold) apAltitude(value);
}

void IndependentAutoflight::apAirSpeed(double knots) {
  const Single value = knots;
  if (value == target.apAirSpeed) return;
  target.apAirSpeed = value;
  target.throttleAirSpeed = value;
  ApMachNumber(0);
  if (in.ApMachSim != 0) {
    lowHalf(0x07E8, 0);
    byte(0x07E4, on.apChangeover);
  }
}

void IndependentAutoflight::apMcpAirSpeed(double knots) {
  target.apMcpAirSpeed = knots;
  if (target.apMcpAirSpeed != in.ApIasSim) lowHalf(0x07E2, target.apMcpAirSpeed);
}

void IndependentAutoflight::ApMachNumber(double mach) {
  target.ApMachNumber = mach;
  target.throttleMach = mach;
}

void IndependentAutoflight::apVertSpeed(double feetPerMinute) {
  double value = Single(feetPerMinute);
  if (value >= 6000)
    value = 6000;
  else if (value <= -7900)
    value = -8000;
  target.apVertSpeed = std::floor(value * 100) / 100;
  if (target.apVertSpeed == in.ApVsSim) return;
  signedHalf(0x07F2, target.apVertSpeed, 65535);
  apAltitude(apMcpAltitude());
}

void IndependentAutoflight::apBank(double degrees) {
  tune.apBank = std::fmin(degrees, int{tune.apBankLimit});
}

void IndependentAutoflight::apTurnRate(double rate) {
  tune.apTurnRate = rate;
  double bank = std::atan(in.Tas * double{tune.apTurnRate} / 374.714) * 57.295777918682;
  if (bank > tune.apBankLimit) bank = tune.apBankLimit;
  if (bank == 0) bank = 5;
  tune.apBank = bank;
}

void IndependentAutoflight::apBankLimit(double degrees) { tune.apBankLimit = degrees; }

}  // namespace vorlent
