#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vorlent {

/// What the display is asked to do on its command line.
struct DisplayOptions {
  std::string host;  ///< dotted IPv4 or a name; empty means this machine
  std::uint16_t port = 5000;
  int interval_ms = 100;
  std::string name;  ///< of the machine in the greeting; empty means this machine's own name
  bool print = false;
  std::optional<int> seconds;  ///< 1 to a million; without it the display runs until it is ended
};

/// The arguments without the program's name. Raises CommandLineEnd.
DisplayOptions readDisplayOptions(const std::vector<std::string>& arguments);

}  // namespace vorlent
