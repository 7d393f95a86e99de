#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vorlent {

/// What the display is asked to do on its command line.
struct DisplayOptions {
  std::string host;  ///< dotted IPv4; empty means this machine's own address
  std::uint16_t port = 5000;
  int interval_ms = 100;
  std::string name;  ///< of the machine in the greeting; empty means this machine's own name
  bool print = false;
  std::optional<int> seconds;  ///< 1 to a million; without it the display runs until it is ended
  bool help = false;
};

/// The arguments without the program's name. Raises RuntimeError with a description for the user.
DisplayOptions readDisplayOptions(std::span<const std::string_view> arguments);

std::string_view displayUsage();

}  // namespace vorlent
