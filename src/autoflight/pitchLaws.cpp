#include "autoflight/pitchLaws.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "base/units.h"

namespace vorlent {
namespace {

double steep(double error) { return std::pow(std::fabs(error), 1.9); }
double tangentOfDegrees(double angle_deg) { return std::tan(angle_deg * CoarseRadiansPerDegree); }

/// Within 20 feet only the vertical speed is taken out. docs/peculiarities.md: 1 ft/min.
std::optional<float> levelTarget(const AltitudeInput& in) {
  const double v = in.verticalSpeed_fpm;
  if (std::fabs(v) > 600) return std::nullopt;
  if (v > 300) return toSingle(-v * v * in.sensitivity / 14000);
  if (v < -300) return toSingle(v * v * in.sensitivity / 14000);
  if (v > 1) return toSingle(-v * v * in.sensitivityFix / 7200);
  if (v < 1) return toSingle(v * v * in.sensitivityFix / 7200);
  return in.lastTarget_fpm;
}

float limited(float target, double limit) {
  if (std::fabs(double{target}) <= std::fabs(limit)) return target;
  return toSingle(target <= 0 ? -limit : limit);
}

}  // namespace

double bankSize(double bank_deg) { return bank_deg > 180 ? 360 - bank_deg : bank_deg; }

std::optional<AltitudeTarget> altitudeTarget(const AltitudeInput& in) {
  const double size = std::fabs(in.error_ft);
  const double sign = quotient(in.error_ft, size);
  const double trend = std::clamp(in.iasTrend_kt_s, -0.8, 0.8);
  const auto target = [&](double fpm, std::optional<int> relay) {
    return AltitudeTarget{limited(toSingle(fpm), in.limit_fpm), relay};
  };
  if (size > 300) return target(steep(size) * in.sensitivity * sign / 10000, {});
  if (size > 50)
    return target(steep(in.error_ft - 110 * sign * trend) * in.sensitivityFix * sign / 4000, {});
  if (in.error_ft > 20)
    return target(steep(in.error_ft - 140 * trend) * in.sensitivity * sign / 7000, 3);
  if (in.error_ft < -20)
    return target(steep(in.error_ft + 140 * trend) * in.sensitivity * sign / 7000, 3);
  const std::optional<float> level = levelTarget(in);
  return level ? std::optional(target(*level, {})) : std::nullopt;
}

PitchCommand altitudePitch(double target_fpm, const PitchFeedback& now, double bankSize_deg,
                           double bankRate_deg_s) {
  const auto pitchFor = [&](double fpm) {
    return toSingle(quotient(fpm - now.verticalSpeed_fpm, now.sensitivity) + now.pitch_deg);
  };
  if (bankSize_deg <= 1.5) return {pitchFor(target_fpm), {}};
  if (bankSize_deg <= 5) return {pitchFor(target_fpm), 5};
  double bank = bankSize_deg;
  if (bankRate_deg_s > 0.2) bank += 25;
  if (bankRate_deg_s < -0.25) bank -= 25;
  return {pitchFor(tangentOfDegrees(bank) * 350 + target_fpm), 5};
}

PitchCommand verticalSpeedPitch(double target_fpm, double averageVerticalSpeed_fpm,
                                const PitchFeedback& now, double bankSize_deg,
                                double bankRate_deg_s) {
  const double drift = now.verticalSpeed_fpm - averageVerticalSpeed_fpm;
  const auto pitchFor = [&](double liftLoss_fpm, double gain) {
    const double fpm = target_fpm - 3 * drift + liftLoss_fpm - now.verticalSpeed_fpm;
    return toSingle(quotient(fpm * gain, now.sensitivity) + now.pitch_deg);
  };
  const auto liftLoss = [](double bank_deg) { return tangentOfDegrees(bank_deg) * 330; };
  if (bankSize_deg <= 5) return {pitchFor(0, 1.2), {}};
  if (bankRate_deg_s > 0.25) return {pitchFor(liftLoss(bankSize_deg + 25), 1.2), 5};
  if (bankRate_deg_s < -0.25) return {pitchFor(liftLoss(bankSize_deg - 15), 0.8), 5};
  return {pitchFor(liftLoss(bankSize_deg), 1.2), {}};
}

namespace {

double feetPerMinute(double knots) {
  constexpr double FeetPerMinutePerKnot = MetresPerSecondPerKnot / MetresPerSecondPerFpm;
  return knots * FeetPerMinutePerKnot;
}

double climbAngle_deg(double climb_fpm, double groundSpeed_kt) {
  constexpr double Slowest_kt = 60;
  return std::atan(climb_fpm / feetPerMinute(std::max(groundSpeed_kt, Slowest_kt))) /
         RadiansPerDegree;
}

/// An error is flown off in twenty seconds, since the nose follows its target in ten, but not
/// steeper than this.
double correction_deg(double error_ft, double groundSpeed_kt) {
  constexpr double Faster = 60.0 / 20;
  constexpr double Steepest_deg = 1.5;
  return std::clamp(climbAngle_deg(error_ft * Faster, groundSpeed_kt), -Steepest_deg, Steepest_deg);
}

}  // namespace

double angleOfAttack_deg(const FlightPathInput& in) {
  return in.pitch_deg - climbAngle_deg(in.climb_fpm, in.groundSpeed_kt);
}

double levelCorrection_deg(double error_ft, double groundSpeed_kt) {
  return correction_deg(error_ft, groundSpeed_kt);
}

/// Early enough for the nose to come down: a fifth of the needle.
bool meetsGlidePath(double needle) {
  constexpr double Near = 25;
  return std::fabs(needle) <= Near;
}

double slopeOf_deg(double told_deg) {
  constexpr double Usual_deg = 3;
  constexpr double Steepest_deg = 10;
  return told_deg > 0 && told_deg < Steepest_deg ? told_deg : Usual_deg;
}

/// A full needle is a quarter of the path's own angle (ICAO Annex 10 Volume I, 3.1.5.6: 0.24 times
/// the slope at full deflection), and so, on the path, a quarter of the height.
double glidePathCorrection_deg(double needle, double height_ft, double groundSpeed_kt) {
  constexpr double FullNeedle = 127;
  constexpr double FullPartOfHeight = 0.24;
  return correction_deg(-needle / FullNeedle * FullPartOfHeight * height_ft, groundSpeed_kt);
}

std::optional<float> speedPitch(const SpeedInput& in, SpeedPitchMemory& memory) {
  const double error = in.target_kt - in.averageIas_kt;
  const double trend = in.iasTrend_kt_s;
  if (std::fabs(error) > 2.5) {
    if (std::fabs(trend) <= 0.6 || memory.slow == 0 || memory.fast == 0) {
      memory.slow = memory.fast = toSingle(in.pitch_deg - error / 20);
      return memory.slow;
    }
    float& taken = error > 0 ? memory.slow : memory.fast;
    const float other = error > 0 ? memory.fast : memory.slow;
    taken = toSingle(trend * 5 + other);
    return taken;
  }
  const bool ballooning = error > 0 && in.verticalSpeed_fpm > 450 && trend > 0;
  const bool sagging = error <= 0 && trend < 0;
  if (!ballooning && !sagging) return std::nullopt;
  return toSingle(in.pitch_deg - (error - 7 * trend) / 7);
}

}  // namespace vorlent
