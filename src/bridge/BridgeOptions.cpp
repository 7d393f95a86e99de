#include "bridge/BridgeOptions.h"

#include <optional>

#include "bridge/FlightGearLink.h"
#include "bridge/flightGearProtocol.h"
#include "bridge/xPlaneDatagrams.h"
#include "commandline/CommandLine.h"

namespace vorlent {
namespace {

std::string whyNoText(const std::string& text) {
  return text.empty() ? "it must not be empty" : "";
}

std::string startOfFlightGear() {
  return "Put the protocol files into FlightGear's folder once, on Debian by\n"
         "    sudo vorlent-bridge --write-protocol /usr/share/games/flightgear/Protocol\n"
         "and start FlightGear with\n    fgfs --aircraft=c172p " +
         flightGearArguments(FlightGearLink::FirstPort) + "\n\ndocs/bridge.md tells more.";
}

/// Where neither says which, there is nothing to run.
BridgeOptions::Simulator simulatorFrom(const CommandLine& line, bool flightGear, bool xPlane,
                                       bool writesProtocol) {
  if (flightGear && xPlane) line.refuse("--flightgear and --xplane are two simulators");
  if (!flightGear && !xPlane && !writesProtocol)
    line.refuse("say which simulator: --flightgear or --xplane");
  if (xPlane && writesProtocol) line.refuse("only FlightGear has protocol files");
  return xPlane ? BridgeOptions::Simulator::XPlane : BridgeOptions::Simulator::FlightGear;
}

}  // namespace

std::string flightGearArguments(std::uint16_t firstPort) {
  const auto port = [firstPort](int which) { return std::to_string(firstPort + which); };
  const std::string rate = std::to_string(RecordsPerSecond);
  return "--generic=socket,out," + rate + ",127.0.0.1," + port(0) + ",udp," + RecordProtocol +
         " --generic=socket,in," + rate + ",127.0.0.1," + port(1) + ",udp," + ControlProtocol +
         " --telnet=socket,bi," + rate + ",127.0.0.1," + port(2) + ",tcp";
}

BridgeOptions readBridgeOptions(const std::vector<std::string>& arguments) {
  BridgeOptions options;
  bool flightGear = false;
  bool xPlane = false;
  std::optional<int> port;
  CommandLine line("vorlent-bridge",
                   "Puts FlightGear or X-Plane behind the simulator interface until it is ended.");
  line.flag("--flightgear", flightGear, "Speak with FlightGear");
  line.flag("--xplane", xPlane, "Speak with X-Plane 11 or 12");
  line.option("--host", "NAME", options.host,
              "The machine of the simulator (this one; X-Plane is found by itself)")
      .check(whyNoText);
  line.option("--port", "N", port,
              "FlightGear: the first of three UDP and TCP ports (5500); X-Plane: its UDP port "
              "(49000)")
      .check(wholeNumberFrom(1, 65533));
  line.option("--aircraft", "NAME", options.aircraft,
              "Take the rows of this aircraft, whatever the simulator says that it flies")
      .check(whyNoText);
  line.flag("--list", options.list, "Print what is mapped and what is not, and end");
  line.option("--write-protocol", "FOLDER", options.protocolFolder,
              "Write FlightGear's two protocol files there, and end")
      .check(whyNoText);
  line.footer(startOfFlightGear());
  line.read(arguments);
  options.simulator = simulatorFrom(line, flightGear, xPlane, !options.protocolFolder.empty());
  const bool isXPlane = options.simulator == BridgeOptions::Simulator::XPlane;
  options.port =
      static_cast<std::uint16_t>(port.value_or(isXPlane ? CommandPort : FlightGearLink::FirstPort));
  return options;
}

}  // namespace vorlent
