#pragma once

#include <string>
#include <vector>

namespace vorlent {

/// An input device of the kernel's that is a game controller.
struct InputNode {
  std::string path;        ///< such as `/dev/input/event5`; another one at each plugging in
  std::string name;        ///< as the device calls itself
  std::string connection;  ///< where it is plugged in, such as `usb-0000:00:14.0-2/input0`
};

/// The game controllers that are plugged in and may be read, in the order of their connections.
/// Keyboards, mice, touch pads, tablets and motion sensors do not count and are not opened.
std::vector<InputNode> inputNodes();

}  // namespace vorlent
