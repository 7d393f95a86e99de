#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vorlent {

/// What vorlent-web is asked to do on its command line.
struct WebOptions {
  std::string host;  ///< of the Vorlent server, dotted IPv4 or a name; empty means this machine
  std::uint16_t port = 5000;
  int interval_ms = 50;
  std::string name;                  ///< of the machine in the greeting; empty means this one's own
  std::string listen = "127.0.0.1";  ///< the address at which browsers find the page
  std::uint16_t webPort = 8737;
  std::string share;  ///< the folder that holds FMS with the flight plan; empty for none
};

/// The arguments without the program's name. Raises CommandLineEnd.
WebOptions readWebOptions(const std::vector<std::string>& arguments);

}  // namespace vorlent
