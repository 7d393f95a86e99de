#pragma once

#include <string>
#include <vector>

namespace vorlent {

/// The window class under which a virtual stick's socket stands in the folder of the simulator
/// interface.
std::string stickSocketName(const std::string& stickName);

/// Names of the virtual sticks that have a socket there, living or left behind, in order.
std::vector<std::string> stickNames(const std::string& folder);

}  // namespace vorlent
