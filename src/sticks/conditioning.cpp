#include "sticks/conditioning.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "base/numbers.h"
#include "platform/Controllers.h"

namespace vorlent {
namespace {

constexpr double PressedByte = 128;
constexpr double Smoothing = 0.25;
constexpr int LineCount = 4;
constexpr int FirstExtraButton = 4;
constexpr int LastExtraButton = 14;

/// By code: the button that it presses. Code 0 is no line at all.
constexpr std::array<std::size_t, 16> ButtonMap = {0, 0,  1, 4, 2,  11, 8,  5,
                                                   3, 12, 9, 6, 14, 13, 10, 7};

}  // namespace

std::int16_t halvedAxis(std::int32_t reading) {
  return static_cast<std::int16_t>(std::clamp(reading, 0, ControllerState::AxisMax) / 2);
}

std::int16_t buttonLevel(std::uint8_t byte) { return toInt16(byte / PressedByte); }

std::int16_t smoothed(std::int16_t memory, std::int16_t reading) {
  return toInt16(memory + Smoothing * (reading - memory));
}

std::int16_t mirrored(std::int16_t value) { return toInt16(double{AnalogMax} - value); }

bool leavesNullZone(std::int16_t lastSent, std::int16_t value, double nullZone) {
  return nullZone < std::abs(lastSent - value);
}

void decodeLines(ButtonLevels& Button) {
  const int closed = Button[0] + Button[1] + Button[2] + Button[3];
  if (closed < 2) {
    std::fill(Button.begin() + FirstExtraButton, Button.begin() + LastExtraButton + 1,
              std::int16_t{0});
    return;
  }
  const int code = Button[0] + 2 * Button[1] + 4 * Button[2] + 8 * Button[3];
  Button[ButtonMap.at(static_cast<std::size_t>(std::min(code, 15)))] = 1;
  std::fill(Button.begin(), Button.begin() + LineCount, std::int16_t{0});
}

}  // namespace vorlent
