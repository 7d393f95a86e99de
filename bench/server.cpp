// The whole server beside a scripted flight: how long from its start to the first record, and
// what it needs with 8 displays at the interval that they have when they ask for none.

#include <signal.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "endtoend/Cockpit.h"
#include "support/ProcessCosts.h"
#include "support/StampedSocket.h"
#include "support/figures.h"
#include "support/measure.h"

namespace {

using namespace vorlent;

constexpr int Displays = 8;
constexpr std::string_view Greeting = "Connection on a b 100 localhost";
constexpr int Starts = 5;
constexpr std::int64_t Second_ns = 1'000'000'000;
constexpr std::int64_t WarmUp_ns = 2 * Second_ns;
constexpr std::int64_t Flight_ns = 30 * Second_ns;
constexpr std::int64_t DrainPause_ns = Second_ns / 20;

using DisplaySockets = std::array<StampedSocket, Displays>;

void end(Process& program) {
  program.signal(SIGTERM);
  if (program.waitForEnd() != 0) throw std::runtime_error("no orderly end: " + program.output());
}

void receiveUntil(const DisplaySockets& displays, std::int64_t end_ns) {
  while (now_ns() < end_ns) {
    sleepUntil_ns(now_ns() + DrainPause_ns);
    for (const StampedSocket& display : displays) display.drain([](std::string_view, auto) {});
  }
}

double startToFirstRecord_s(const Cockpit& cockpit, const std::string& name) {
  const StampedSocket display;
  const std::int64_t begin_ns = now_ns();
  const auto server = cockpit.program(name);
  const std::int64_t first_ns = display.greetUntilRecord(cockpit.basePort, Greeting);
  end(*server);
  return static_cast<double>(first_ns - begin_ns) / Second_ns;
}

void measureStart(const Cockpit& cockpit, const std::string& name) {
  std::vector<double> starts_s;
  for (int i = 0; i < Starts; ++i) starts_s.push_back(startToFirstRecord_s(cockpit, name));
  printRow(name + ", start to first record, median of " + std::to_string(Starts), "",
           fixed(quantile(starts_s, 0.5), 2) + " s", "< 1 s");
}

void measureFlight(const Cockpit& cockpit, const std::string& name) {
  const auto server = cockpit.program(name);
  const DisplaySockets displays;
  for (std::size_t i = 0; i < Displays; ++i)
    displays[i].greetUntilRecord(static_cast<std::uint16_t>(cockpit.basePort + i), Greeting);
  receiveUntil(displays, now_ns() + WarmUp_ns);
  const ProcessCosts costs(server->id());
  const std::int64_t begin_ns = now_ns();
  const double begin_s = costs.cpu_s();
  receiveUntil(displays, begin_ns + Flight_ns);
  const double share =
      (costs.cpu_s() - begin_s) / (static_cast<double>(now_ns() - begin_ns) / Second_ns);
  const double peak_MB = costs.peakMemory_MB();
  end(*server);
  printRow(name + ", 8 displays, 30 s of flight: CPU", "", fixed(100 * share, 2) + " % of a core",
           "≤ 2 %");
  printRow(name + ", 8 displays: peak memory", "", fixed(peak_MB, 1) + " MB", "≤ 60 MB");
}

}  // namespace

void vorlent::measure() {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  Cockpit cockpit(Displays);
  cockpit.addProgram("vorlent");
  cockpit.startSimulator({"--script", cockpit.folder / "Flights/round-trip.txt"});
  for (const std::string name : {"vorlentd", "vorlent"}) {
    measureStart(cockpit, name);
    measureFlight(cockpit, name);
  }
}
