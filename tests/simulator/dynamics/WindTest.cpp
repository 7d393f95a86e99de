#include "simulator/dynamics/Wind.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vorlent {
namespace {

constexpr double knot_m_s = 1852.0 / 3600;

// ln(h / 0.15 ft) / ln(20 ft / 0.15 ft): 1 at 20 feet, 1.3289 at 100, 1.7995 from 1000 on.
TEST(Wind, GrowsWithTheLogarithmOfTheHeightToAThousandFeet) {
  WindSettings settings;
  settings.from_deg = 250;
  settings.speed_kt = 20;
  EXPECT_NEAR(steadyWind(settings, 6.096, 20).speed_m_s / knot_m_s, 20, 0.001);
  EXPECT_NEAR(steadyWind(settings, 30.48, 20).speed_m_s / knot_m_s, 26.58, 0.01);
  EXPECT_NEAR(steadyWind(settings, 304.8, 20).speed_m_s / knot_m_s, 35.99, 0.01);
  EXPECT_EQ(steadyWind(settings, 5000, 20).speed_m_s, steadyWind(settings, 304.8, 20).speed_m_s);
  EXPECT_EQ(steadyWind(settings, 5000, 20).from_deg, 250);
}

/// West wind of 60 knots at 10000 feet, north wind of 80 at 20000, in the wrong order, and one that
/// lies too low. The ground is at the sea, so that heights are altitudes.
WindSettings aloft() {
  WindSettings settings;
  settings.from_deg = 270;
  settings.speed_kt = 10;
  settings.layers = {{20000, 0, 80}, {10000, 270, 60}, {900, 90, 50}};
  return settings;
}

void expectWind(double height_ft, double from_deg, double speed_kt) {
  const SteadyWind wind = steadyWind(aloft(), height_ft * 0.3048, 0);
  EXPECT_NEAR(wind.from_deg, from_deg, 0.01) << height_ft;
  EXPECT_NEAR(wind.speed_m_s / knot_m_s, speed_kt, 0.01) << height_ft;
}

// Half way between 60 from the west and 80 from the north are 30 and 40: 50 from 360 - 36.87.
TEST(Wind, RunsStraightFromLayerToLayerInItsNorthAndEastParts) {
  expectWind(10000, 270, 60);
  expectWind(15000, 323.13, 50);
  expectWind(20000, 0, 80);
  expectWind(45000, 0, 80);
}

// 17.995 knots at 1000 feet and 60 at 10000: 38.998 half way.
TEST(Wind, RunsStraightFromTheTopOfTheSurfaceWindToTheLowestLayer) {
  expectWind(20, 270, 10);
  expectWind(950, 270, 17.897);
  expectWind(1000, 270, 17.995);
  expectWind(5500, 270, 38.998);
}

TEST(Wind, LayersAreAltitudesAboveTheSeaAndSurfaceWindIsAboveTheGround) {
  const SteadyWind wind = steadyWind(aloft(), 2000 * 0.3048, 8000 * 0.3048);
  EXPECT_NEAR(wind.speed_m_s / knot_m_s, 60, 0.01);
}

// At 500 feet: 0.177 + 0.000823 x 500 = 0.5885; 500 / 0.5885^1.2 = 944.6 ft; a tenth of 30 knots is
// 1.5433 m/s, over 0.5885^0.4 1.9078 m/s.
TEST(Wind, TurbulenceHasTheScalesOfTheStandardNearTheGround) {
  const auto scale = DrydenTurbulence::scaleAt(Turbulence::Moderate, 500 * 0.3048);
  EXPECT_NEAR(scale.lengthAlong_m, 944.6 * 0.3048, 0.1);
  EXPECT_NEAR(scale.lengthUp_m, 152.4, 0.001);
  EXPECT_NEAR(scale.up_m_s, 1.5433, 0.001);
  EXPECT_NEAR(scale.along_m_s, 1.9078, 0.001);
}

TEST(Wind, TurbulenceIsIsotropicAboveTwoThousandFeet) {
  const auto scale = DrydenTurbulence::scaleAt(Turbulence::Light, 3000);
  EXPECT_NEAR(scale.lengthAlong_m, 533.4, 0.001);
  EXPECT_EQ(scale.lengthAlong_m, scale.lengthUp_m);
  EXPECT_EQ(scale.along_m_s, scale.up_m_s);
}

// MIL-F-8785C, figure 7, for chances of 1 in 100, 1000 and 100000, in feet a second.
TEST(Wind, TurbulenceHasTheIntensitiesOfTheStandardAloft) {
  const auto deviation_ft_s = [](Turbulence level, double height_ft) {
    return DrydenTurbulence::scaleAt(level, height_ft * 0.3048).up_m_s / 0.3048;
  };
  EXPECT_NEAR(deviation_ft_s(Turbulence::Light, 15000), 4.6, 0.001);
  EXPECT_NEAR(deviation_ft_s(Turbulence::Light, 30000), 1.55, 0.001);
  EXPECT_NEAR(deviation_ft_s(Turbulence::Light, 50000), 0, 0.001);
  EXPECT_NEAR(deviation_ft_s(Turbulence::Moderate, 3750), 10.6, 0.001);
  EXPECT_NEAR(deviation_ft_s(Turbulence::Moderate, 35000), 5.0, 0.001);
  EXPECT_NEAR(deviation_ft_s(Turbulence::Severe, 7500), 23.6, 0.001);
  EXPECT_NEAR(deviation_ft_s(Turbulence::Severe, 35000), 16.0, 0.001);
}

// Moderate: 1000 feet and 5.0635 ft/s (a tenth of 30 knots) at the lower end, 1750 feet and
// 9.6 + 250 / 2000 = 9.725 ft/s at the upper one; half way are 1375 feet and 7.394 ft/s. Along: the
// form at 1000 feet is 1, so the lengths and deviations are the same.
TEST(Wind, BetweenOneAndTwoThousandFeetScalesRunStraight) {
  const auto scale = DrydenTurbulence::scaleAt(Turbulence::Moderate, 1500 * 0.3048);
  EXPECT_NEAR(scale.lengthUp_m / 0.3048, 1375, 0.1);
  EXPECT_NEAR(scale.up_m_s / 0.3048, 7.394, 0.002);
  EXPECT_NEAR(scale.lengthAlong_m / 0.3048, 1375, 0.1);
  EXPECT_NEAR(scale.along_m_s / 0.3048, 7.394, 0.002);
  const auto top = DrydenTurbulence::scaleAt(Turbulence::Moderate, 2000 * 0.3048);
  EXPECT_NEAR(top.lengthUp_m / 0.3048, 1750, 0.001);
  EXPECT_NEAR(top.up_m_s / 0.3048, 9.725, 0.001);
}

TEST(Wind, GustsHaveTheStandardDeviationsOfTheirScale) {
  DrydenTurbulence turbulence(Turbulence::Moderate, 3, 34.3);
  const auto scale = DrydenTurbulence::scaleAt(Turbulence::Moderate, 200);
  double along = 0, side = 0, up = 0;
  constexpr int steps = 4'000'000;
  for (int i = 0; i < steps; ++i) {
    turbulence.step(200, 100, 1.0 / 120);
    const Vector3& gust = turbulence.gust().velocity_m_s;
    along += gust.x * gust.x;
    side += gust.y * gust.y;
    up += gust.z * gust.z;
  }
  EXPECT_NEAR(std::sqrt(along / steps), scale.along_m_s, 0.06 * scale.along_m_s);
  EXPECT_NEAR(std::sqrt(side / steps), scale.along_m_s, 0.06 * scale.along_m_s);
  EXPECT_NEAR(std::sqrt(up / steps), scale.up_m_s, 0.06 * scale.up_m_s);
}

// The spectrum 0.8 (pi L / 4 b)^(1/3) s^2 / L over 1 + (4 b W / pi)^2, summed over all wave numbers
// W: with L = 200 m, b = 34.3 m it is X = 4.5796, s / L sqrt(0.8 X^(4/3) pi / 2) = 3.0914 s / L.
TEST(Wind, RollingGustsHaveTheDeviationOfTheirSpectrum) {
  DrydenTurbulence turbulence(Turbulence::Moderate, 4, 34.3);
  const auto scale = DrydenTurbulence::scaleAt(Turbulence::Moderate, 200);
  ASSERT_NEAR(scale.lengthUp_m, 200, 0.001);
  double sum = 0;
  constexpr int steps = 2'000'000;
  for (int i = 0; i < steps; ++i) {
    turbulence.step(200, 100, 1.0 / 120);
    sum += turbulence.gust().rates_rad_s.x * turbulence.gust().rates_rad_s.x;
  }
  const double expected = 3.0914 * scale.up_m_s / 200;
  EXPECT_NEAR(std::sqrt(sum / steps), expected, 0.06 * expected);
}

TEST(Wind, StillAirHasNoGusts) {
  DrydenTurbulence turbulence(Turbulence::None, 3, 34.3);
  for (int i = 0; i < 1000; ++i) turbulence.step(200, 100, 1.0 / 120);
  EXPECT_EQ(length(turbulence.gust().velocity_m_s), 0);
  EXPECT_EQ(length(turbulence.gust().rates_rad_s), 0);
}

}  // namespace
}  // namespace vorlent
