#pragma once

#include <array>
#include <cstdint>

#include "base/analogScale.h"

/// What a stick does with the readings of its device, from the raw number to the one it sends.
/// Analog values run from 0 to AnalogMax.
namespace vorlent {

constexpr int DeviceButtons = 32;

using ButtonLevels = std::array<std::int16_t, DeviceButtons>;

/// Half of a device's 0..AxisMax, rounded down; a reading beyond counts as the nearest end.
std::int16_t halvedAxis(std::int32_t reading);

/// 1 for the byte of a pressed button, 0 for that of a released one.
std::int16_t buttonLevel(std::uint8_t byte);

/// First-order smoothing: the next value of the memory, a quarter of the way to the reading.
std::int16_t smoothed(std::int16_t memory, std::int16_t reading);

std::int16_t mirrored(std::int16_t value);

/// True when a value is further from the last one that was sent than the null zone.
bool leavesNullZone(std::int16_t lastSent, std::int16_t value, double nullZone);

/// Four lines that carry a 4-bit code for fifteen buttons, as a diode matrix puts it on them. A
/// single line stays the button it is and the buttons 4 to 14 are off; a code of two lines or more
/// presses the button that ButtonMap gives it, and the lines themselves are off.
void decodeLines(ButtonLevels& Button);

}  // namespace vorlent
