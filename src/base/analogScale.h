#pragma once

#include <cstdint>

/// The scale on which sticks send levers and commands take them.
namespace vorlent {

constexpr std::int16_t AnalogMax = 32767;
/// docs/peculiarities.md: lever's middle.
constexpr std::int16_t AnalogMiddle = 16383;

}  // namespace vorlent
