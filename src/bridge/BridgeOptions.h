#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vorlent {

/// What vorlent-bridge is asked to do on its command line.
struct BridgeOptions {
  enum class Simulator { FlightGear, XPlane };

  Simulator simulator = Simulator::FlightGear;
  std::string host;            ///< empty: X-Plane is found by its beacon, FlightGear is here
  std::uint16_t port = 0;      ///< FlightGear's first or X-Plane's own
  std::string aircraft;        ///< in place of what the simulator says
  std::string protocolFolder;  ///< where the protocol files go; empty to run
  bool list = false;
};

/// The arguments without the program's name. Raises CommandLineEnd.
BridgeOptions readBridgeOptions(const std::vector<std::string>& arguments);

/// What FlightGear on this machine is started with.
std::string flightGearArguments(std::uint16_t firstPort);

}  // namespace vorlent
