// The built-in aircraft as a process of its own behind the simulator interface.

#include <chrono>
#include <csignal>
#include <cstdio>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "base/files.h"
#include "base/text.h"
#include "platform/ProgramFolder.h"
#include "platform/RequestListener.h"
#include "simulator/OffsetMemory.h"
#include "simulator/ScriptedFlight.h"
#include "simulator/SimulatorHost.h"
#include "simulator/StationTable.h"

namespace {

using namespace vorlent;

constexpr std::string_view usage =
    "Usage: vorlent-sim [--xplane] [--speed FACTOR] [--not-ready SECONDS] [--help]\n"
    "Flies a scripted flight behind the simulator interface until it is ended.\n"
    "  --xplane             answer as XPUIPC (X-Plane) instead of FSUIPC\n"
    "  --speed FACTOR       seconds of flight in a second, 0.01 to 100 (1)\n"
    "  --not-ready SECONDS  say so long after the start that the simulator is not ready, 0 to 3600 "
    "(0)\n";

constexpr int stepInterval_ms = 20;

volatile std::sig_atomic_t ended = 0;

struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

double numberArgument(const std::string& option, const char* text, double lowest, double highest) {
  const std::optional<double> number = text ? numeric(text) : std::nullopt;
  if (!number || *number < lowest || *number > highest)
    throw UsageError(option + " needs a number from " + doubleText(lowest) + " to " +
                     doubleText(highest));
  return *number;
}

/// Nothing when only help was asked for.
std::optional<SimulatorHost::Options> optionsFrom(int count, char** arguments) {
  SimulatorHost::Options options;
  for (int i = 1; i < count; ++i) {
    const std::string option = arguments[i];
    if (option == "--help") return std::nullopt;
    if (option == "--xplane")
      options.asXPlane = true;
    else if (option == "--speed")
      options.speed = numberArgument(option, arguments[++i], 0.01, 100);
    else if (option == "--not-ready")
      options.notReady_s = numberArgument(option, arguments[++i], 0, 3600);
    else
      throw UsageError("Unknown option " + option);
  }
  return options;
}

void print(std::FILE* to, std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), to);
  std::fflush(to);
}

void fly(const SimulatorHost::Options& options) {
  using Clock = std::chrono::steady_clock;
  OffsetMemory memory;
  const auto tell = [](const std::string& text) { print(stderr, text + "\n"); };
  ScriptedFlight flight(memory, loadStations(joinedPath(programFolder(), "Stations.txt"), tell));
  SimulatorHost host(memory, flight, options, tell);
  const auto listener =
      listenForRequests({"UIPCMAIN", options.asXPlane ? "X-System" : "FS98MAIN"},
                        [&host](std::span<std::byte> block) { return host.answer(block); });
  print(stdout, "ready\n");
  for (auto last = Clock::now(); !ended;) {
    listener->serve(stepInterval_ms);
    const auto now = Clock::now();
    host.advance(std::chrono::duration<double>(now - last).count());
    last = now;
  }
}

}  // namespace

int main(int argumentCount, char** arguments) {
  for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, [](int) { ended = 1; });
  try {
    const auto options = optionsFrom(argumentCount, arguments);
    if (options)
      fly(*options);
    else
      print(stdout, usage);
    return 0;
  } catch (const UsageError& error) {
    print(stderr, std::string("vorlent-sim: ") + error.what() + "\n" + std::string(usage));
    return 2;
  } catch (const std::exception& error) {
    print(stderr, std::string("vorlent-sim: ") + error.what() + "\n");
    return 1;
  }
}
