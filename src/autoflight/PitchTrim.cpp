#include "autoflight/PitchTrim.h"

#include <cmath>

#include "base/numbers.h"
#include "base/simulatorUnits.h"

namespace vorlent {
namespace {

constexpr float FirstUse = 0;
constexpr float AfterSaturation = 99;
constexpr double DeadBand_deg = 0.2;
constexpr double StillPitch_deg = 0.001;
/// A crossed error counts as this small in the dead band.
constexpr double CrossedError_deg = 0.01;
constexpr float TrimEnd = FullTravel;

void takeTarget(PitchTrimState& r, const PitchTrimInput& in, double error) {
  if (r.LastTarget == AfterSaturation) {
    r.TrimBase = toSingle((double{r.TrimBase} * 6 + r.TrimWork) / 7);
  } else {
    r.TrimBase = toSingle(in.trim);
    if (r.LastTarget == FirstUse)
      r.PrevPitch = in.pitch_deg;
    else
      r.PitchRate = 0;
  }
  r.TargetDelta = toSingle(error);
  r.LastTarget = in.target_deg;
}

float largeStep(PitchTrimState& r, const PitchTrimInput& in, double error) {
  const bool notComing = (error > 0 && r.PitchRate <= 0) || (error < 0 && r.PitchRate >= 0);
  if (notComing) r.TrimBase = toSingle(r.TrimBase + 2 * error * in.controlFactor);
  return r.TrimBase;
}

void rememberLargeStep(PitchTrimState& r, const PitchTrimInput& in, double error) {
  const double moved = double{in.pitch_deg} - r.PrevPitch;
  r.PitchRate = std::fabs(moved) > StillPitch_deg ? toSingle(moved) : 0;
  r.Counter = 0;
  r.PrevError = toSingle(error);
}

std::optional<float> easeInDeadBand(PitchTrimState& r, const PitchTrimInput& in, double error) {
  double size = std::fabs(error);
  if (error * r.PrevError < 0) {
    error = -error;
    size = CrossedError_deg;
  }
  if (error == 0) return std::nullopt;
  const double factor = in.controlFactor;
  const double amount = std::fabs(double{r.PitchRate}) * (0.4 - size) * (factor * factor) * 28;
  r.TrimWork = toSingle(error > 0 ? r.TrimBase - amount : r.TrimBase + amount);
  return r.TrimWork;
}

/// The limit is the upper one for an excursion to either side. docs/peculiarities.md: trim limit.
void saturate(PitchTrimState& r, float& trim) {
  if (std::fabs(trim) <= TrimEnd) return;
  trim = TrimEnd;
  r.LastTarget = AfterSaturation;
}

}  // namespace

PitchTrimPass keepPitch(PitchTrimState& r, const PitchTrimInput& in) {
  const double error = double{in.target_deg} - in.pitch_deg;
  if (in.target_deg != r.LastTarget) takeTarget(r, in, error);
  const bool large = std::fabs(error) > DeadBand_deg;
  const std::optional<float> trim = large ? largeStep(r, in, error) : easeInDeadBand(r, in, error);
  PitchTrimState after = r;
  if (large) rememberLargeStep(after, in, error);
  after.PrevPitch = in.pitch_deg;
  saturate(after, after.TrimBase);
  saturate(after, after.TrimWork);
  return {trim, after};
}

}  // namespace vorlent
