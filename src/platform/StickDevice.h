#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Controllers.h"

namespace vorlent {

/// Whether this can be a virtual stick's name: 1 to 32 ASCII letters, digits, `-` and `_`.
bool isStickName(std::string_view name);

/// What the packet of a virtual stick says, with every value brought into its range: axes cut to
/// 0 .. AxisMax, a POV that is no direction Centred, a button Pressed from 0x80 on. Nothing when it
/// does not have exactly the size of a state.
std::optional<ControllerState> stateFromPacket(std::string_view packet);

/// A virtual stick, which the server lists among the controllers for as long as this lives. Its
/// state is told to whoever reads it, at once and to those who come later.
class StickDevice {
 public:
  virtual ~StickDevice() = default;
  virtual void show(const ControllerState& state) = 0;
  /// Serves the readers for that time. False when the end came first.
  virtual bool pause(int duration_ms) = 0;
  /// Serves until somebody reads the stick. False when the end came first.
  virtual bool awaitReader() = 0;
  /// Serves until there is a line on standard input. Nothing when that or the program ends.
  virtual std::optional<std::string> nextLine() = 0;
};

/// Makes the stick of this name. It ends when SIGINT, SIGTERM or SIGHUP comes. Raises RuntimeError
/// with a plain description when there is one of the name already or it cannot be made.
std::unique_ptr<StickDevice> openStickDevice(const std::string& name);

}  // namespace vorlent
