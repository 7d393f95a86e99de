#include "sticks/LastMoved.h"

#include <cstdlib>

#include "base/analogScale.h"

namespace vorlent {
namespace {

constexpr int LeastMove = AnalogMax / 20;
constexpr std::size_t Lines = 4;
constexpr std::size_t Decoded = 15;
constexpr int Encoders = 2;

StickRow rowOfButton(std::size_t button) {
  const int index = static_cast<int>(button);
  if (button < Lines) return {StickRow::Line, index};
  return {StickRow::Extra, index - static_cast<int>(Lines)};
}

/// Of two lines or axes that are an encoder the first one's row is that of both.
int encoderRow(std::size_t index) { return static_cast<int>(index - index % 2); }

}  // namespace

std::optional<StickRow> LastMoved::moved(const Readings& now) {
  if (!known_) {
    restAt(now);
    return std::nullopt;
  }
  const auto axis = movedAxis(now);
  const auto button = movedButton(now);
  return button ? button : axis;
}

void LastMoved::restAt(const Readings& now) {
  known_ = true;
  restAxes_ = now.axes;
  last_ = settled_ = now.buttons;
}

std::optional<StickRow> LastMoved::movedAxis(const Readings& now) {
  int furthest = LeastMove;
  std::optional<StickRow> found;
  for (std::size_t i = 0; i < now.axes.size(); ++i) {
    const int way = std::abs(now.axes[i] - restAxes_[i]);
    if (way <= furthest) continue;
    furthest = way;
    found = StickRow{StickRow::Axis, now.axisEncoders ? encoderRow(i) : static_cast<int>(i)};
  }
  if (found) restAxes_ = now.axes;
  return found;
}

std::optional<StickRow> LastMoved::movedButton(const Readings& now) {
  std::optional<StickRow> found;
  for (std::size_t i = 0; i < (now.lineMode == 1 ? Decoded : Lines); ++i) {
    const bool edge = now.buttons[i] != last_[i];
    const bool settled = settles(i, now.buttons[i]);
    const bool counts = now.buttons[i] == 1 || (i < Lines && now.isSwitch[i]);
    if (now.lineMode == Encoders && edge) found = StickRow{StickRow::Line, encoderRow(i)};
    if (now.lineMode != Encoders && settled && counts) found = rowOfButton(i);
  }
  return found;
}

/// Two lines of a code do not close at one moment: the first alone would look like a button.
bool LastMoved::settles(std::size_t button, std::int16_t level) {
  const bool stands = last_[button] == level;
  last_[button] = level;
  if (!stands || settled_[button] == level) return false;
  settled_[button] = level;
  return true;
}

}  // namespace vorlent
