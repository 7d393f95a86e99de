// What a recording costs: the processor time of the server, and of its recorder beside it, in a
// flight of the built-in aircraft on its autopilot with 8 displays; and how large the file becomes.

#include <signal.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "endtoend/Cockpit.h"
#include "recording/sqlite/RecordingReader.h"
#include "support/ProcessCosts.h"
#include "support/StampedSocket.h"
#include "support/figures.h"
#include "support/measure.h"

namespace {

using namespace vorlent;

constexpr int Displays = 8;
constexpr std::string_view Greeting = "Connection on a b 100 display";
/// Autothrottle, command A, heading select, a climb to 12000 ft.
constexpr std::string_view Engagement = "p P 163 1 P 183 1 P 172 1 A 81 12000 P 167 1 ";
constexpr int Rounds = 4;
constexpr std::int64_t Second_ns = 1'000'000'000;
constexpr std::int64_t WarmUp_ns = 3 * Second_ns;
constexpr std::int64_t Flight_ns = 30 * Second_ns;
constexpr std::int64_t DrainPause_ns = Second_ns / 20;

struct Costs {
  double server = 0;       ///< part of a core
  double recorder = 0;     ///< likewise, of the child
  double MB_per_hour = 0;  ///< of the file
};

using DisplaySockets = std::array<StampedSocket, Displays>;

void receiveUntil(const DisplaySockets& displays, std::int64_t end_ns) {
  while (now_ns() < end_ns) {
    sleepUntil_ns(now_ns() + DrainPause_ns);
    for (const StampedSocket& display : displays) display.drain([](std::string_view, auto) {});
  }
}

std::optional<ProcessCosts> costsOfChild(pid_t parent) {
  const std::string id = std::to_string(parent);
  std::ifstream children("/proc/" + id + "/task/" + id + "/children");
  for (pid_t child = 0; children >> child;) {
    std::ifstream name("/proc/" + std::to_string(child) + "/comm");
    std::string text;
    if (name >> text && text.starts_with("vorlent-record")) return ProcessCosts(child);
  }
  return std::nullopt;
}

/// Of the file as it is after its end, without the server's own files that stand in it.
double sizeOfRecording_MB_per_hour(const std::string& path) {
  RecordingReader reader(path);
  auto size_bytes = static_cast<double>(std::filesystem::file_size(path));
  while (const auto event = reader.next())
    if (const auto* file = std::get_if<recorded::FileKept>(&event->what))
      size_bytes -= static_cast<double>(file->content.size());
  return size_bytes / static_cast<double>(reader.summary().length_us) * 3600;
}

/// Takes the recordings away.
double sizeOfRecordings_MB_per_hour(const Cockpit& cockpit) {
  const std::string folder = cockpit.folder / "Recordings";
  double size = 0;
  std::error_code none;
  for (const auto& entry : std::filesystem::directory_iterator(folder, none))
    if (entry.path().extension() == ".sqlite") size = sizeOfRecording_MB_per_hour(entry.path());
  std::filesystem::remove_all(folder, none);
  return size;
}

Costs measureFlight(const Cockpit& cockpit) {
  const auto server = cockpit.program("vorlentd");
  const DisplaySockets displays;
  for (std::size_t i = 0; i < Displays; ++i)
    displays[i].greetUntilRecord(static_cast<std::uint16_t>(cockpit.basePort + i), Greeting);
  displays[0].send(cockpit.basePort, Engagement);
  receiveUntil(displays, now_ns() + WarmUp_ns);
  const ProcessCosts costs(server->id());
  const auto recorder = costsOfChild(server->id());
  const std::int64_t begin_ns = now_ns();
  const double server_s = costs.cpu_s();
  const double recorder_s = recorder ? recorder->cpu_s() : 0;
  receiveUntil(displays, begin_ns + Flight_ns);
  const double flown_s = static_cast<double>(now_ns() - begin_ns) / Second_ns;
  Costs flight;
  flight.server = (costs.cpu_s() - server_s) / flown_s;
  if (recorder) flight.recorder = (recorder->cpu_s() - recorder_s) / flown_s;
  server->signal(SIGTERM);
  if (server->waitForEnd() != 0) throw std::runtime_error("no orderly end: " + server->output());
  flight.MB_per_hour = sizeOfRecordings_MB_per_hour(cockpit);
  return flight;
}

double medianOf(const std::vector<Costs>& flights, double Costs::*part) {
  std::vector<double> values;
  for (const Costs& flight : flights) values.push_back(flight.*part);
  return quantile(values, 0.5);
}

std::string percent(double part) { return fixed(100 * part, 2) + " %"; }

}  // namespace

void vorlent::measure() {
  Cockpit cockpit(Displays);
  cockpit.addProgram("vorlent-recorder");
  const std::string plain = cockpit.folder.read("Vorlent.ini");
  cockpit.startSimulator();
  std::vector<Costs> with;
  std::vector<Costs> without;
  for (int round = 0; round < Rounds; ++round) {
    cockpit.folder.write("Vorlent.ini", plain);
    without.push_back(measureFlight(cockpit));
    cockpit.folder.write("Vorlent.ini", plain + "Recorder=Recordings\r\n");
    with.push_back(measureFlight(cockpit));
  }
  const double floor = medianOf(without, &Costs::server);
  const double server = medianOf(with, &Costs::server);
  const double both = server + medianOf(with, &Costs::recorder);
  printRow("vorlentd, 8 displays, recorded: CPU of the server", percent(floor) + " without",
           percent(server) + ", " + fixed(server / floor, 2) + " x", "≤ 1.1 x");
  printRow("the same with its recorder beside it", percent(floor) + " without",
           percent(both) + ", " + fixed(both / floor, 2) + " x", "≤ 1.1 x");
  printRow("a recording of the built-in aircraft on its autopilot", "",
           fixed(medianOf(with, &Costs::MB_per_hour), 1) + " MB an hour", "≤ 30 MB an hour");
}
