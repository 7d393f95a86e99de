#pragma once

#include <numbers>

/// Physical units.
namespace vorlent {

// Exact, each by its definition.
constexpr double MetresPerFoot = 0.3048;
constexpr double MetresPerNauticalMile = 1852.0;
constexpr double MetresPerSecondPerKnot = 1852.0 / 3600.0;
constexpr double MetresPerSecondPerFpm = 0.3048 / 60.0;
constexpr double KilogramsPerPound = 0.45359237;
constexpr double NewtonsPerPoundForce = 4.4482216152605;
constexpr double KelvinAtZeroCelsius = 273.15;
constexpr double RankineAtZeroFahrenheit = 459.67;
constexpr double RadiansPerDegree = std::numbers::pi / 180.0;

// What the server counts in instead. Every law is tuned with these and every display shows them:
// docs/peculiarities.md: two feet per metre, degrees per radian.
constexpr double FeetPerMetre = 3.28084;
constexpr double FeetPerMetreOfAltitude = 3.28115;
constexpr double FeetPerMetreOfXPlane = 3.28275;
constexpr double CoarseDegreesPerRadian = 57.295777918682;
constexpr double CoarseRadiansPerDegree = 0.0174532930056254;
constexpr double WindDegreesPerRadian = 57.2957795;

}  // namespace vorlent
