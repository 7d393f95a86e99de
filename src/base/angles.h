#pragma once

/// The factors between degrees and radians that the laws and the navigation are tuned with. They
/// are not quite pi / 180 and its inverse.
namespace vorlent::angles {

constexpr double RadiansPerDegree = 0.0174532930056254;
constexpr double DegreesPerRadian = 57.295777918682;

}  // namespace vorlent::angles
