#include "simulator/dynamics/Wind.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>

#include "base/units.h"
#include "simulator/angles.h"

namespace vorlent {
namespace {

constexpr double LowestHeight_ft = 20;
constexpr double Slowest_m_s = 20;

/// The wind at 20 feet that stands for a level, in knots.
double lowWind_kt(Turbulence level) {
  constexpr std::array Winds_kt{0.0, 15.0, 30.0, 45.0};
  return Winds_kt[static_cast<std::size_t>(level)];
}

/// Standard deviation from 2000 feet upwards, in feet a second (MIL-F-8785C, figure 7): light is
/// exceeded with a chance of 1 in 100, moderate of 1 in 1000, severe of 1 in 100000.
double highDeviation_ft_s(Turbulence level, double height_ft) {
  constexpr std::array<double, 11> Heights_ft{1750,  3750,  7500,  15000, 25000, 35000,
                                              45000, 55000, 65000, 75000, 80000};
  constexpr std::array<std::array<double, 11>, 4> Table{
      {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
       {6.9, 7.4, 6.7, 4.6, 2.7, 0.4, 0, 0, 0, 0, 0},
       {9.6, 10.6, 10.1, 8.0, 6.6, 5.0, 4.2, 2.7, 0, 0, 0},
       {17.6, 23.0, 23.6, 22.1, 20.0, 16.0, 15.1, 12.1, 7.9, 6.2, 5.1}}};
  const auto& row = Table[static_cast<std::size_t>(level)];
  std::size_t i = 1;
  while (i + 1 < Heights_ft.size() && height_ft > Heights_ft[i]) ++i;
  const double share = (height_ft - Heights_ft[i - 1]) / (Heights_ft[i] - Heights_ft[i - 1]);
  return row[i - 1] + std::clamp(share, 0.0, 1.0) * (row[i] - row[i - 1]);
}

DrydenTurbulence::Scale lowScale(Turbulence level, double height_ft) {
  const double h = std::clamp(height_ft, LowestHeight_ft, 1000.0);
  const double form = 0.177 + 0.000823 * h;
  const double up_m_s = 0.1 * lowWind_kt(level) * MetresPerSecondPerKnot;
  return {h / std::pow(form, 1.2) * MetresPerFoot, h * MetresPerFoot, up_m_s / std::pow(form, 0.4),
          up_m_s};
}

DrydenTurbulence::Scale highScale(Turbulence level, double height_ft) {
  constexpr double Length_m = 1750 * MetresPerFoot;
  const double deviation_m_s = highDeviation_ft_s(level, height_ft) * MetresPerFoot;
  return {Length_m, Length_m, deviation_m_s, deviation_m_s};
}

/// Logarithmic up to 1000 feet, constant above.
SteadyWind surfaceWind(const WindSettings& settings, double height_m) {
  constexpr double Roughness_ft = 0.15;
  const double height_ft = std::clamp(height_m, MetresPerFoot, SurfaceWindTop_m) / MetresPerFoot;
  const double growth =
      std::log(height_ft / Roughness_ft) / std::log(LowestHeight_ft / Roughness_ft);
  return {compass(settings.from_deg), settings.speed_kt * MetresPerSecondPerKnot * growth};
}

/// Where the wind comes from, as parts of its speed.
struct WindParts {
  double north_m_s;
  double east_m_s;
};

struct WindPoint {
  double altitude_m;
  WindParts parts;
};

WindParts partsOf(const SteadyWind& wind) {
  const double from = wind.from_deg * RadiansPerDegree;
  return {wind.speed_m_s * std::cos(from), wind.speed_m_s * std::sin(from)};
}

/// Air that stands still comes from `calmFrom_deg`.
SteadyWind windOf(const WindParts& parts, double calmFrom_deg) {
  const double speed_m_s = std::hypot(parts.north_m_s, parts.east_m_s);
  if (speed_m_s == 0) return {calmFrom_deg, 0};
  return {compass(std::atan2(parts.east_m_s, parts.north_m_s) / RadiansPerDegree), speed_m_s};
}

SteadyWind between(const WindPoint& below, const WindPoint& above, double altitude_m) {
  const double share = (altitude_m - below.altitude_m) / (above.altitude_m - below.altitude_m);
  const WindParts parts{std::lerp(below.parts.north_m_s, above.parts.north_m_s, share),
                        std::lerp(below.parts.east_m_s, above.parts.east_m_s, share)};
  return windOf(parts, windOf(below.parts, 0).from_deg);
}

}  // namespace

SteadyWind steadyWind(const WindSettings& settings, double height_m, double groundElevation_m) {
  const SteadyWind low = surfaceWind(settings, height_m);
  if (height_m <= SurfaceWindTop_m || settings.layers.empty()) return low;
  const double altitude_m = groundElevation_m + height_m;
  WindPoint below{groundElevation_m + SurfaceWindTop_m, partsOf(low)};
  std::optional<WindPoint> above;
  for (const WindLayer& layer : settings.layers) {
    const WindPoint point{
        layer.altitude_ft * MetresPerFoot,
        partsOf({compass(layer.from_deg), layer.speed_kt * MetresPerSecondPerKnot})};
    if (point.altitude_m <= altitude_m && point.altitude_m > below.altitude_m) below = point;
    if (point.altitude_m > altitude_m && (!above || point.altitude_m < above->altitude_m))
      above = point;
  }
  return above ? between(below, *above, altitude_m) : windOf(below.parts, low.from_deg);
}

DrydenTurbulence::DrydenTurbulence(Turbulence level, unsigned seed, double span_m)
    : level_(level), span_m_(span_m), random_(seed) {}

DrydenTurbulence::Scale DrydenTurbulence::scaleAt(Turbulence level, double height_m) {
  const double height_ft = height_m / MetresPerFoot;
  const Scale low = lowScale(level, height_ft);
  const Scale high = highScale(level, std::max(height_ft, 2000.0));
  const double share = std::clamp((height_ft - 1000) / 1000, 0.0, 1.0);
  return {low.lengthAlong_m + share * (high.lengthAlong_m - low.lengthAlong_m),
          low.lengthUp_m + share * (high.lengthUp_m - low.lengthUp_m),
          low.along_m_s + share * (high.along_m_s - low.along_m_s),
          low.up_m_s + share * (high.up_m_s - low.up_m_s)};
}

void DrydenTurbulence::step(double height_m, double airspeed_m_s, double dt_s) {
  if (level_ == Turbulence::None) return;
  const Scale scale = scaleAt(level_, height_m);
  const double speed_m_s = std::max(airspeed_m_s, Slowest_m_s);
  const double along_s = scale.lengthAlong_m / speed_m_s;
  const double up_s = scale.lengthUp_m / speed_m_s;
  const double kept = std::exp(-dt_s / along_s);
  gust_.velocity_m_s.x =
      kept * gust_.velocity_m_s.x + scale.along_m_s * std::sqrt(1 - kept * kept) * noise();
  gust_.velocity_m_s.y = side_.step(noise(), scale.along_m_s, along_s, dt_s);
  gust_.velocity_m_s.z = up_.step(noise(), scale.up_m_s, up_s, dt_s);

  turn(scale, speed_m_s, dt_s);
}

/// Rolling gusts have a spectrum of their own. Pitching and yawing ones are the slopes of the
/// others along the path, as a wing and a fin that are not points feel them.
void DrydenTurbulence::turn(const Scale& scale, double speed_m_s, double dt_s) {
  const double wing_m = 4 * span_m_ / std::numbers::pi;
  const double ratio = scale.lengthUp_m / wing_m;
  const double rollDeviation_rad_s =
      scale.up_m_s / scale.lengthUp_m *
      std::sqrt(0.8 * std::cbrt(ratio) * ratio * std::numbers::pi / 2);
  const double kept = std::exp(-dt_s * speed_m_s / wing_m);
  gust_.rates_rad_s.x =
      kept * gust_.rates_rad_s.x + rollDeviation_rad_s * std::sqrt(1 - kept * kept) * noise();
  const double fin_m = 3 * span_m_ / std::numbers::pi;
  smoothUp_m_s_ += (1 - kept) * (gust_.velocity_m_s.z - smoothUp_m_s_);
  smoothSide_m_s_ +=
      (1 - std::exp(-dt_s * speed_m_s / fin_m)) * (gust_.velocity_m_s.y - smoothSide_m_s_);
  // The differences over the times wing_m / V and fin_m / V are the lagged derivatives in time.
  gust_.rates_rad_s.y = -(gust_.velocity_m_s.z - smoothUp_m_s_) / wing_m;
  gust_.rates_rad_s.z = (gust_.velocity_m_s.y - smoothSide_m_s_) / fin_m;
}

/// Two equal lags in a row behind white noise; the variance is that of Dryden's transverse
/// spectrum.
double DrydenTurbulence::Transverse::step(double noise, double deviation, double time_s,
                                          double dt_s) {
  const double drive = noise * std::sqrt(time_s / dt_s);
  const double share = 1 - std::exp(-dt_s / time_s);
  const double before = first;
  first += share * (drive - first);
  second += share * (before - second);
  // (1 + sqrt(3) T s) / (1 + T s)^2 is sqrt(3) of the first lag and 1 - sqrt(3) of the second.
  return deviation * (std::numbers::sqrt3 * first + (1 - std::numbers::sqrt3) * second);
}

double DrydenTurbulence::noise() {
  constexpr double Steps = 9007199254740992.0;  // 2^53
  const auto uniform = [this] { return (static_cast<double>(random_() >> 11) + 0.5) / Steps; };
  const double radius = std::sqrt(-2 * std::log(uniform()));
  return radius * std::cos(2 * std::numbers::pi * uniform());
}

}  // namespace vorlent
