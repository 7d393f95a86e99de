#include "simulator/StandardAtmosphere.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

// Temperatures, pressures, densities and speeds of sound from the tables of ICAO Doc 7488.
struct Row {
  double altitude_m, temperature_K, pressure_Pa, density_kg_m3, soundSpeed_m_s;
};

constexpr Row table[] = {
    {0, 288.15, 101325, 1.225, 340.294},         {1000, 281.65, 89874.6, 1.11164, 336.434},
    {5000, 255.65, 54019.9, 0.736116, 320.529},  {10000, 223.15, 26436.3, 0.412707, 299.463},
    {11000, 216.65, 22632.1, 0.363918, 295.069}, {15000, 216.65, 12044.6, 0.193674, 295.069},
    {20000, 216.65, 5474.89, 0.0880349, 295.069}};

TEST(StandardAtmosphere, IsTheOneOfTheTables) {
  for (const Row& row : table) {
    const Air air = standardAir(row.altitude_m);
    EXPECT_NEAR(air.temperature_K, row.temperature_K, 0.001) << row.altitude_m;
    EXPECT_NEAR(air.pressure_Pa / row.pressure_Pa, 1, 1e-5) << row.altitude_m;
    EXPECT_NEAR(air.density_kg_m3 / row.density_kg_m3, 1, 1e-5) << row.altitude_m;
    EXPECT_NEAR(air.soundSpeed_m_s, row.soundSpeed_m_s, 0.001) << row.altitude_m;
  }
}

// Worked by hand from Saint-Venant's equation: at 22632.06 Pa and Mach 0.8 the impact pressure is
// 22632.06 (1.128^3.5 - 1) = 11867 Pa, which at sea level is Mach 0.40093, or 136.43 m/s.
TEST(StandardAtmosphere, Mach80AtTheTropopauseIs136MetresASecondCalibrated) {
  EXPECT_NEAR(calibratedOfMach(0.8, 22632.06), 136.43, 0.02);
  EXPECT_NEAR(machOfCalibrated(136.43, 22632.06), 0.8, 0.0001);
}

TEST(StandardAtmosphere, CalibratedAndTrueAirspeedAreTheSameAtSeaLevel) {
  EXPECT_NEAR(machOfCalibrated(340.294 / 2, 101325), 0.5, 1e-6);
}

TEST(StandardAtmosphere, TotalTemperatureRisesByAFifthOfTheSquareOfMach) {
  EXPECT_NEAR(totalTemperature(250, 0.6), 268, 1e-9);
}

}  // namespace
}  // namespace vorlent
