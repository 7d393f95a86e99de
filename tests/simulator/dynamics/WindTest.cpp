#include "simulator/dynamics/Wind.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vorlent {
namespace {

// ln(h / 0.15 ft) / ln(20 ft / 0.15 ft): 1 at 20 feet, 1.3289 at 100, 1.7995 from 1000 on.
TEST(Wind, GrowsWithTheLogarithmOfTheHeightToAThousandFeet) {
  WindSettings settings;
  settings.speed_kt = 20;
  const double knot = 1852.0 / 3600;
  EXPECT_NEAR(steadyWind_m_s(settings, 6.096) / knot, 20, 0.001);
  EXPECT_NEAR(steadyWind_m_s(settings, 30.48) / knot, 26.58, 0.01);
  EXPECT_NEAR(steadyWind_m_s(settings, 304.8) / knot, 35.99, 0.01);
  EXPECT_EQ(steadyWind_m_s(settings, 5000), steadyWind_m_s(settings, 304.8));
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
