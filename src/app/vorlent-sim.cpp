// The built-in aircraft, or a scripted flight, as a process of its own behind the simulator
// interface.

#include <chrono>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/files.h"
#include "base/print.h"
#include "commandline/CommandLineEnd.h"
#include "platform/EndSignals.h"
#include "platform/ProgramFolder.h"
#include "platform/RequestListener.h"
#include "simulator/FlightTrace.h"
#include "simulator/OffsetMemory.h"
#include "simulator/ScriptedFlight.h"
#include "simulator/SimulatorHost.h"
#include "simulator/SimulatorOptions.h"
#include "simulator/StationTable.h"
#include "simulator/TraceFile.h"
#include "simulator/dynamics/TwinJet.h"

namespace {

using namespace vorlent;

/// A step of the flight model takes 8.3 ms.
constexpr int StepInterval_ms = 8;

void complain(const std::string& text) { printError("vorlent-sim: " + text + "\n"); }

std::unique_ptr<Aircraft> aircraftFor(const SimulatorOptions& options, OffsetMemory& memory) {
  TwinJet::Settings flight = options.flight;
  if (options.host.asXPlane) flight.scales = XpuipcScales;
  flight.stations = loadStations(joinedPath(programFolder(), "Stations.txt"), complain);
  if (!options.script.empty())
    return std::make_unique<ScriptedFlight>(memory, readFlightScript(options.script),
                                            flight.stations, flight.scales);
  return std::make_unique<TwinJet>(memory, flight);
}

void serve(SimulatorHost& host, bool asXPlane, const volatile std::sig_atomic_t& ended) {
  using Clock = std::chrono::steady_clock;
  const auto listener =
      listenForRequests({"UIPCMAIN", asXPlane ? "X-System" : "FS98MAIN"},
                        [&host](std::span<std::byte> block) { return host.answer(block); });
  print("ready\n");
  auto last = Clock::now();
  while (!ended) {
    listener->serve(StepInterval_ms);
    const auto now = Clock::now();
    host.advance(std::chrono::duration<double>(now - last).count());
    last = now;
  }
}

/// The status to end with.
int fly(const SimulatorOptions& options, const volatile std::sig_atomic_t& ended) {
  OffsetMemory memory;
  const auto aircraft = aircraftFor(options, memory);
  std::optional<TraceFile> file;
  std::optional<FlightTrace> trace;
  if (!options.trace.empty()) {
    file.emplace(options.trace, complain);
    trace.emplace(*aircraft, memory, [&file](std::string_view line) { file->write(line); });
  }
  SimulatorHost host(memory, trace ? *trace : *aircraft, options.host, complain);
  serve(host, options.host.asXPlane, ended);
  return file && !file->complete() ? 1 : 0;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const volatile std::sig_atomic_t& ended = catchEndSignals();
  try {
    return fly(readSimulatorOptions(argumentsOf(argumentCount, arguments)), ended);
  } catch (const CommandLineEnd& end) {
    return tell(end);
  } catch (const std::exception& error) {
    complain(error.what());
    return 1;
  }
}
