#pragma once

/// The autoflight's own conversion factors. They are not quite pi / 180 and its inverse, and every
/// law is tuned with them.
namespace vorlent::autoflight {

constexpr double RadiansPerDegree = 0.0174532930056254;
constexpr double DegreesPerRadian = 57.295777918682;
/// What the filters take for a cycle. The timer's 400 ms and the work in it came to this when it
/// was measured.
constexpr double Cycle_s = 0.44;

}  // namespace vorlent::autoflight
