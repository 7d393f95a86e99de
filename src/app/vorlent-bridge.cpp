// A simulator behind the simulator interface: FlightGear or X-Plane.

#include <chrono>
#include <exception>
#include <memory>
#include <string>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/print.h"
#include "bridge/Bridge.h"
#include "bridge/BridgeOptions.h"
#include "bridge/FlightGearLink.h"
#include "bridge/XPlaneLink.h"
#include "bridge/flightGearProtocol.h"
#include "bridge/mappings.h"
#include "commandline/CommandLineEnd.h"
#include "platform/EndSignals.h"
#include "platform/PolledSockets.h"
#include "platform/RequestListener.h"

namespace {

using namespace vorlent;

/// What arrives is taken in at once, and before each request. What is to go out later, and what
/// stays away, is looked for that often.
constexpr int Interval_ms = 5;

void complain(const std::string& text) { printError("vorlent-bridge: " + text + "\n"); }

double now_s() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

Mapping mappingFor(BridgeOptions::Simulator simulator) {
  return simulator == BridgeOptions::Simulator::XPlane ? xPlaneMapping() : flightGearMapping();
}

std::string addressOf(PolledSockets& sockets, const std::string& host) {
  std::string address = host.empty() ? host : sockets.addressOf(host);
  if (!host.empty() && address.empty())
    throw RuntimeError(RuntimeError::PathNotFound, "No machine is known as \"" + host + "\"");
  return address;
}

std::unique_ptr<SimulatorLink> linkFor(const BridgeOptions& options, PolledSockets& sockets,
                                       const Mapping& mapping) {
  const std::string address = addressOf(sockets, options.host);
  if (options.simulator == BridgeOptions::Simulator::XPlane)
    return std::make_unique<XPlaneLink>(sockets, address, options.port, mapping, complain);
  return std::make_unique<FlightGearLink>(sockets, address.empty() ? "127.0.0.1" : address,
                                          options.port, mapping, complain);
}

void run(const BridgeOptions& options, const volatile std::sig_atomic_t& ended) {
  const Mapping mapping = mappingFor(options.simulator);
  const auto sockets = systemSockets();
  const auto link = linkFor(options, *sockets, mapping);
  const auto memory = std::make_unique<OffsetMemory>();
  Bridge bridge(*memory, mapping, *link, now_s, complain, options.aircraft);
  const auto listener =
      listenForRequests({"UIPCMAIN", "FS98MAIN"},
                        [&bridge](std::span<std::byte> block) { return bridge.answer(block); });
  listener->endWhenReadable(sockets->arrivals());
  print("ready\n");
  while (!ended) {
    listener->serve(Interval_ms);
    bridge.advance();
  }
}

void writeProtocolFile(const std::string& folder, const char* name, const std::string& content) {
  const std::string path = folder + "/" + name + ".xml";
  try {
    replaceFile(path, content);
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.number(), path + ": " + error.description());
  }
}

void writeProtocol(const std::string& folder) {
  const Mapping mapping = flightGearMapping();
  writeProtocolFile(folder, RecordProtocol, recordProtocolFile(mapping));
  writeProtocolFile(folder, ControlProtocol, controlProtocolFile(mapping));
}

void work(const BridgeOptions& options, const volatile std::sig_atomic_t& ended) {
  if (options.list)
    print(listing(mappingFor(options.simulator)));
  else if (!options.protocolFolder.empty())
    writeProtocol(options.protocolFolder);
  else
    run(options, ended);
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const volatile std::sig_atomic_t& ended = catchEndSignals();
  try {
    work(readBridgeOptions(argumentsOf(argumentCount, arguments)), ended);
    return 0;
  } catch (const CommandLineEnd& end) {
    return tell(end);
  } catch (const std::exception& error) {
    complain(error.what());
    return 1;
  }
}
