#pragma once

#include "platform/evdev/MockInput.h"

/// Descriptions composed after what boards in cockpits report.
namespace vorlent {

inline std::vector<unsigned> codes(unsigned first, unsigned count) {
  std::vector<unsigned> all(count);
  for (unsigned i = 0; i < count; ++i) all[i] = first + i;
  return all;
}

inline std::vector<unsigned> operator+(std::vector<unsigned> a, const std::vector<unsigned>& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

/// A joystick interface board: eight inputs of 12 bits (ABS_X to ABS_RUDDER), 32 buttons (the
/// kernel numbers the second sixteen elsewhere) and a hat.
inline MockBoard interfaceBoard(const std::string& phys) {
  std::vector<MockAxis> axes;
  for (const unsigned code : codes(ABS_X, 8)) axes.push_back({code, 0, 4095, 2048});
  axes.push_back({ABS_HAT0X, -1, 1, 0});
  axes.push_back({ABS_HAT0Y, -1, 1, 0});
  return {"12-bit interface board", phys, axes,
          codes(BTN_JOYSTICK, 16) + codes(BTN_TRIGGER_HAPPY, 16)};
}

/// A throttle quadrant: levers of 10 bits and six buttons, the slider under a code of its own.
inline MockBoard throttleQuadrant(const std::string& phys) {
  return {"Throttle quadrant",
          phys,
          {{ABS_X, 0, 1023, 0}, {ABS_Y, 0, 1023, 1023}, {ABS_GAS, 0, 1023, 512}},
          codes(BTN_JOYSTICK, 6)};
}

/// A home-made board: two signed axes of 8 bits and no button.
inline MockBoard axesOnly(const std::string& phys) {
  return {"Home-made", phys, {{ABS_X, -127, 127, 0}, {ABS_RZ, -127, 127, -127}}, {}};
}

inline MockBoard keyboard(const std::string& phys) {
  return {"Keyboard", phys, {{ABS_VOLUME, 0, 100, 0}}, codes(KEY_ESC, 88)};
}

inline MockBoard mouse(const std::string& phys) {
  return {"Mouse", phys, {{ABS_X, 0, 100, 0}}, codes(BTN_MOUSE, 5)};
}

inline MockBoard touchPad(const std::string& phys) {
  return {"Touch pad", phys, {{ABS_X, 0, 3000, 0}, {ABS_Y, 0, 2000, 0}}, {BTN_TOUCH}};
}

inline MockBoard motionSensor(const std::string& phys) {
  MockBoard board = axesOnly(phys);
  board.name = "Motion sensor";
  board.properties = {INPUT_PROP_ACCELEROMETER};
  return board;
}

}  // namespace vorlent
