#include "commands/frequencies.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/RuntimeError.h"
#include "base/numbers.h"
#include "base/text.h"

namespace vorlent {
namespace {

constexpr double LowestNav_MHz = 108;

float wrappedNav(float held_MHz, double stepped_MHz, double lastHeld_MHz) {
  if (held_MHz >= toSingle(lastHeld_MHz)) return toSingle(LowestNav_MHz);
  return toSingle(std::max(stepped_MHz, LowestNav_MHz));
}

double rastered(double frequency_MHz) {
  const double tenths = frequency_MHz * 10;
  const double rest = (tenths - std::trunc(tenths)) * 10;
  const double hundredths = std::nearbyint(rest);
  if (hundredths == 4 || hundredths == 9) return frequency_MHz + 0.01;
  if (hundredths == 3 || hundredths == 8) return frequency_MHz - 0.01;
  constexpr double BelowZero = -0.001;
  return rest <= BelowZero ? 0.97 : tenths / 10;
}

struct Tenths {
  double whole;
  double rest;
};

Tenths tenthsOf(float fraction_MHz) {
  const double tenths = fraction_MHz * 10.0;
  const double whole = std::trunc(tenths);
  return {whole, tenths - whole};
}

}  // namespace

float AdfLimit(double stepped_kHz) {
  const float frequency_kHz = toSingle(stepped_kHz);
  return frequency_kHz < 200 || frequency_kHz >= 999 ? 200 : frequency_kHz;
}

float AdfTurned(float held_kHz, double turn_kHz) {
  return held_kHz >= 999 ? 200 : AdfLimit(held_kHz + turn_kHz);
}

double ComRaster(double frequency_MHz) {
  // A single misses a frequency by up to 0.000008 MHz; its fraction reaches 1 all the same.
  constexpr double Inexactness_MHz = 0.0001;
  const double result = rastered(frequency_MHz);
  return std::trunc(result + Inexactness_MHz) == 1 ? 0 : result;
}

float ComFraction(float fraction_MHz) {
  const auto [whole, rest] = tenthsOf(fraction_MHz);
  const double cut = rest > 0.75 ? 0.74 : rest > 0.5 ? 0.5 : rest > 0.25 ? 0.24 : 0;
  return toSingle((whole + cut) / 10);
}

float NavFraction(float fraction_MHz) {
  const auto [whole, rest] = tenthsOf(fraction_MHz);
  return toSingle((whole + (rest > 0.5 ? 0.5 : 0)) / 10);
}

float NavWrapFrac(float held_MHz, float steps) {
  return wrappedNav(held_MHz, held_MHz + double{steps} * 0.05, 117.9);
}

float NavWrapWhole(float held_MHz, float step_MHz) {
  return wrappedNav(held_MHz, double{held_MHz} + step_MHz, 117);
}

float Wrap360(float held_deg, float steps_deg) {
  const double turned_deg = held_deg > 359 ? 0 : double{held_deg} + steps_deg;
  return toSingle(turned_deg < 0 ? turned_deg + 360 : turned_deg);
}

float XpndrDigit(float code, int position) {
  constexpr std::size_t Digits = 4;
  std::string text = singleText(code);
  if (text.size() < Digits) text.append(Digits - text.size(), '0');
  if (position < 1 || position > static_cast<int>(text.size()))
    throw RuntimeError(RuntimeError::InvalidCall);
  char& digit = text[static_cast<std::size_t>(position - 1)];
  if (digit < '0' || digit > '9') throw RuntimeError(RuntimeError::TypeMismatch);
  digit = digit >= '7' ? '0' : static_cast<char>(digit + 1);
  return toSingle(numberOf(text));
}

}  // namespace vorlent
