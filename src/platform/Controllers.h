#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vorlent {

/// What a controller tells of itself: the standard joystick state of DirectInput, byte for byte.
struct ControllerState {
  static constexpr std::int32_t AxisMax = 65535;
  static constexpr std::int32_t Centred = -1;
  static constexpr std::uint8_t Pressed = 0x80;

  // Axes and sliders 0 .. AxisMax; those that the device does not have stay 0.
  std::int32_t x = 0;
  std::int32_t y = 0;
  std::int32_t z = 0;
  std::int32_t rx = 0;
  std::int32_t ry = 0;
  std::int32_t rz = 0;
  std::array<std::int32_t, 2> slider{};
  /// Hundredths of a degree clockwise from north, 0 .. 35999, or Centred.
  std::array<std::int32_t, 4> POV{Centred, Centred, Centred, Centred};
  /// Pressed or 0.
  std::array<std::uint8_t, 32> buttons{};

  bool operator==(const ControllerState&) const = default;
};
static_assert(sizeof(ControllerState) == 80);
static_assert(offsetof(ControllerState, slider) == 24);
static_assert(offsetof(ControllerState, POV) == 32);
static_assert(offsetof(ControllerState, buttons) == 48);

struct ControllerInfo {
  std::string name;        ///< as the device calls itself; two equal boards have the same
  std::string connection;  ///< where it is plugged in; different for each device
};

enum class ControllerResult {
  Ok,
  NotAcquired,  ///< no Acquire() has succeeded since the list was made or the device went
  NotReady,     ///< it is there, but its first state has not come yet
  Unplugged,    ///< it is not there at the moment, or there is no device of this number
};

/// The game controllers. Nothing here raises or waits.
class Controllers {
 public:
  static constexpr std::size_t Max = 8;

  virtual ~Controllers() = default;

  /// Looks for the devices that are plugged in now: at most Max, in the order of their connections,
  /// so that equal boards keep their places. A device's number, 0 .. size - 1, stays its own until
  /// the next call, whatever is unplugged meanwhile.
  virtual std::vector<ControllerInfo> devices() = 0;

  /// Takes hold of the device; of one that is held already it does nothing. A device that was
  /// unplugged and is back where it was is held again.
  virtual ControllerResult Acquire(std::size_t device) = 0;
  /// Fetches what the device has told since the last call.
  virtual ControllerResult Poll(std::size_t device) = 0;
  /// The state as of the last Poll(). With any result but Ok, `state` is left as it is.
  virtual ControllerResult GetDeviceState(std::size_t device, ControllerState& state) = 0;
};

}  // namespace vorlent
