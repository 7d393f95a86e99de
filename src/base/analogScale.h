#pragma once

#include <cstdint>

/// The scale on which sticks send levers and commands take them.
namespace vorlent {

constexpr std::int16_t AnalogMax = 32767;
/// Of 0 to AnalogMax, so that the upper half is one longer.
constexpr std::int16_t AnalogMiddle = 16383;

}  // namespace vorlent
