#pragma once

#include <cstdint>

#include "platform/Controllers.h"

struct libevdev;

namespace vorlent {

/// The state that libevdev holds of a device, by the meaning of its axes:
///   x y z rx ry rz   ABS_X ABS_Y ABS_Z ABS_RX ABS_RY ABS_RZ
///   slider           the first two that there are of ABS_THROTTLE, ABS_RUDDER, ABS_WHEEL, ABS_GAS,
///                    ABS_BRAKE; the kernel calls a board's first slider ABS_THROTTLE and the
///                    second one ABS_RUDDER
///   POV              the hats 0 to 3
///   buttons          the first 32 that there are from BTN_JOYSTICK upwards, then from BTN_MISC
ControllerState evdevState(const libevdev* device);

/// Scales from lowest .. highest to 0 .. AxisMax, rounded to the nearest; values beyond an end
/// count as that end. Without a range the middle.
std::int32_t scaledAxis(std::int32_t value, std::int32_t lowest, std::int32_t highest);

/// The direction of a hat in hundredths of a degree; of `right` and `down` only the sign counts.
std::int32_t povDirection(std::int32_t right, std::int32_t down);

}  // namespace vorlent
