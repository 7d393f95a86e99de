#include "platform/linux/EvdevState.h"

#include <libevdev/libevdev.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace vorlent {
namespace {

struct AxisRow {
  unsigned code;
  std::int32_t ControllerState::*axis;
};

constexpr std::array AxisRows{
    AxisRow{ABS_X, &ControllerState::x},   AxisRow{ABS_Y, &ControllerState::y},
    AxisRow{ABS_Z, &ControllerState::z},   AxisRow{ABS_RX, &ControllerState::rx},
    AxisRow{ABS_RY, &ControllerState::ry}, AxisRow{ABS_RZ, &ControllerState::rz},
};
constexpr std::array<unsigned, 5> SliderCodes{ABS_THROTTLE, ABS_RUDDER, ABS_WHEEL, ABS_GAS,
                                              ABS_BRAKE};

bool hasAxis(const libevdev* device, unsigned code) {
  return libevdev_has_event_code(device, EV_ABS, code) != 0;
}

/// Of an axis that is there.
std::int32_t axisValue(const libevdev* device, unsigned code) {
  const input_absinfo& axis = *libevdev_get_abs_info(device, code);
  return scaledAxis(axis.value, axis.minimum, axis.maximum);
}

int sign(std::int32_t value) { return (value > 0) - (value < 0); }

void readSliders(const libevdev* device, ControllerState& state) {
  std::size_t next = 0;
  for (const unsigned code : SliderCodes)
    if (next < state.slider.size() && hasAxis(device, code))
      state.slider[next++] = axisValue(device, code);
}

void readHats(const libevdev* device, ControllerState& state) {
  for (unsigned hat = 0; hat < state.POV.size(); ++hat) {
    const unsigned right = ABS_HAT0X + 2 * hat;
    state.POV[hat] = povDirection(libevdev_get_event_value(device, EV_ABS, right),
                                  libevdev_get_event_value(device, EV_ABS, right + 1));
  }
}

/// Adds the buttons from `first` to `last` behind the `count` that are there.
void readButtons(const libevdev* device, unsigned first, unsigned last, ControllerState& state,
                 std::size_t& count) {
  for (unsigned code = first; code <= last && count < state.buttons.size(); ++code)
    if (libevdev_has_event_code(device, EV_KEY, code))
      state.buttons[count++] =
          libevdev_get_event_value(device, EV_KEY, code) ? ControllerState::Pressed : 0;
}

}  // namespace

std::int32_t scaledAxis(std::int32_t value, std::int32_t lowest, std::int32_t highest) {
  if (lowest >= highest) return ControllerState::AxisMax / 2;
  const std::int64_t range = std::int64_t{highest} - lowest;
  const std::int64_t above = std::int64_t{std::clamp(value, lowest, highest)} - lowest;
  return static_cast<std::int32_t>((above * ControllerState::AxisMax + range / 2) / range);
}

std::int32_t povDirection(std::int32_t right, std::int32_t down) {
  constexpr std::int32_t Directions[3][3] = {
      {31500, 0, 4500},                         // up
      {27000, ControllerState::Centred, 9000},  //
      {22500, 18000, 13500},                    // down
  };
  return Directions[sign(down) + 1][sign(right) + 1];
}

ControllerState evdevState(const libevdev* device) {
  ControllerState state;
  for (const AxisRow& row : AxisRows)
    if (hasAxis(device, row.code)) state.*row.axis = axisValue(device, row.code);
  readSliders(device, state);
  readHats(device, state);
  std::size_t buttons = 0;
  readButtons(device, BTN_JOYSTICK, KEY_MAX, state, buttons);
  readButtons(device, BTN_MISC, BTN_JOYSTICK - 1, state, buttons);
  return state;
}

}  // namespace vorlent
