#include "simulator/SimulatorOptions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <memory>
#include <optional>

#include "base/CommandLine.h"
#include "base/text.h"
#include "simulator/FuelTanks.h"
#include "simulator/dynamics/Loading.h"

namespace vorlent {
namespace {

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

double number(std::string_view text, const std::string& what, double lowest, double highest) {
  const std::optional<double> value = numeric(text);
  if (!value || *value < lowest || *value > highest)
    refuseArgument(what + " is a number from " + doubleText(lowest) + " to " + doubleText(highest) +
                   ", not " + quoted(text));
  return *value;
}

unsigned seed(std::string_view text) {
  unsigned value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size())
    refuseArgument("the seed is a whole number from 0 to " +
                   std::to_string(std::numeric_limits<unsigned>::max()) + ", not " + quoted(text));
  return value;
}

StartingState startingState(std::string_view name) {
  const auto state = startingStateNamed(name);
  if (!state)
    refuseArgument(
        "the flight starts \"cold\", \"runway\", \"level\", \"cruise\" or \"final\", not " +
        quoted(name));
  return *state;
}

Turbulence turbulence(std::string_view name) {
  constexpr std::array<std::string_view, 4> Names{"none", "light", "moderate", "severe"};
  const auto* const found = std::find(Names.begin(), Names.end(), name);
  if (found == Names.end())
    refuseArgument("the turbulence is \"none\", \"light\", \"moderate\" or \"severe\", not " +
                   quoted(name));
  return static_cast<Turbulence>(found - Names.begin());
}

const PlantData& plant(std::string_view name) {
  const PlantData* const known = plantNamed(name);
  if (known == nullptr)
    refuseArgument("the aircraft is \"" + std::string(plant737().name) + "\" or \"" +
                   std::string(plantHeavyTwin().name) + "\", not " + quoted(name));
  return *known;
}

std::string fileName(std::string_view text) {
  if (text.empty()) refuseArgument("the name of a file is missing");
  return std::string(text);
}

/// What is in the tanks before a flight.
double startingFuel_lb() {
  const auto memory = std::make_unique<OffsetMemory>();
  return FuelTanks(*memory).total_lb();
}

/// Reads the arguments one by one.
class Arguments {
 public:
  explicit Arguments(std::span<const std::string_view> all) : line_(all) {}

  SimulatorOptions read() {
    while (!line_.empty()) take(line_.next());
    if (options_.help) return options_;
    if (!options_.script.empty() && !ofTheAircraft_.empty())
      refuseArgument(ofTheAircraft_ +
                     " is for the built-in aircraft and does not go with --script");
    if (grossWeight_lb_)
      options_.flight.addedMass_kg =
          addedMassFor_kg(*options_.flight.plant, *grossWeight_lb_, startingFuel_lb());
    return options_;
  }

 private:
  void take(std::string_view option) {
    if (option == "--help")
      options_.help = true;
    else if (option == "--xplane")
      options_.host.asXPlane = true;
    else if (!takeForTheProgram(option) && !takeForTheAircraft(option))
      refuseArgument("there is no option " + std::string(option));
  }

  bool takeForTheProgram(std::string_view option) {
    if (option == "--speed")
      options_.host.speed = number(line_.valueOf(option), "the speed", 0.01, 100);
    else if (option == "--not-ready")
      options_.host.notReady_s = number(line_.valueOf(option), "the time in seconds", 0, 3600);
    else if (option == "--trace")
      options_.trace = fileName(line_.valueOf(option));
    else if (option == "--script")
      options_.script = fileName(line_.valueOf(option));
    else
      return false;
    return true;
  }

  bool takeForTheAircraft(std::string_view option) {
    if (option == "--start")
      options_.flight.start = startingState(line_.valueOf(option));
    else if (option == "--wind")
      takeWind(line_.valueOf(option));
    else if (option == "--turbulence")
      options_.flight.wind.turbulence = turbulence(line_.valueOf(option));
    else if (option == "--seed")
      options_.flight.wind.seed = seed(line_.valueOf(option));
    else if (option == "--mass")
      grossWeight_lb_ = number(line_.valueOf(option), "the mass in pounds", 0, 1'000'000);
    else if (option == "--aircraft")
      options_.flight.plant = &plant(line_.valueOf(option));
    else
      return false;
    ofTheAircraft_ = option;
    return true;
  }

  void takeWind(std::string_view text) {
    const auto slash = text.find('/');
    if (slash == std::string_view::npos)
      refuseArgument("the wind is where it comes from and its speed, such as 270/15, not " +
                     quoted(text));
    options_.flight.wind.from_deg =
        number(text.substr(0, slash), "the direction of the wind in degrees", 0, 360);
    options_.flight.wind.speed_kt =
        number(text.substr(slash + 1), "the speed of the wind in knots", 0, 60);
  }

  CommandLine line_;
  SimulatorOptions options_;
  std::optional<double> grossWeight_lb_;
  std::string ofTheAircraft_;  ///< the last option that is for the built-in aircraft only
};

}  // namespace

SimulatorOptions readSimulatorOptions(std::span<const std::string_view> arguments) {
  return Arguments(arguments).read();
}

std::string_view simulatorUsage() {
  return "usage: vorlent-sim [options]\n"
         "\n"
         "Flies the built-in aircraft behind the simulator interface until it is ended.\n"
         "\n"
         "  --start STATE          cold, runway, level, cruise or final (level)\n"
         "  --wind FROM/KT         true direction and knots near the ground, such as 270/15 "
         "(calm)\n"
         "  --turbulence STRENGTH  none, light, moderate or severe (none)\n"
         "  --seed N               of the turbulence; the same gives the same gusts (1)\n"
         "  --mass LB              gross weight at the start in pounds, by payload\n"
         "  --aircraft NAME        737-700 or heavy-twin (737-700)\n"
         "  --script FILE          a scripted flight in place of the built-in aircraft\n"
         "  --speed FACTOR         seconds of flight in a second, 0.01 to 100 (1)\n"
         "  --trace FILE           write the flight down as CSV, ten rows a second of flight\n"
         "  --xplane               answer as XPUIPC (X-Plane) instead of FSUIPC\n"
         "  --not-ready SECONDS    stay not ready for that long after the start, 0 to 3600 (0)\n"
         "  --help                 show this\n"
         "\n"
         "docs/simulator-interface.md tells more.\n";
}

}  // namespace vorlent
