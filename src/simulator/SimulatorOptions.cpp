#include "simulator/SimulatorOptions.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>

#include "base/RuntimeError.h"
#include "base/text.h"
#include "commandline/CommandLine.h"
#include "simulator/FuelTanks.h"
#include "simulator/dynamics/Loading.h"

namespace vorlent {
namespace {

constexpr double Heaviest_lb = 1'000'000;

/// In the order of Turbulence.
const std::vector<std::string> turbulenceNames{"none", "light", "moderate", "severe"};

Turbulence turbulenceNamed(const std::string& name) {
  const auto found = std::find(turbulenceNames.begin(), turbulenceNames.end(), name);
  return static_cast<Turbulence>(found - turbulenceNames.begin());
}

std::string whyNoFile(const std::string& text) {
  return text.empty() ? "the name of a file is missing" : "";
}

/// "270/15": where the wind comes from in degrees, and its speed in knots.
struct WindText {
  std::string from;
  std::string speed;
};

WindText windParts(const std::string& text) {
  const auto slash = text.find('/');
  if (slash == std::string::npos) return {};
  return {text.substr(0, slash), text.substr(slash + 1)};
}

std::string whyNoWind(const std::string& text) {
  WindText wind = windParts(text);
  if (numberFrom(0, 360)(wind.from).empty() && numberFrom(0, 60)(wind.speed).empty()) return "";
  return "it is where the wind comes from, 0 to 360 degrees, and its speed, 0 to 60 knots, such as "
         "270/15, not \"" +
         text + "\"";
}

/// What is in the tanks before a flight.
double startingFuel_lb() {
  const auto memory = std::make_unique<OffsetMemory>();
  return FuelTanks(*memory).total_lb();
}

/// The options of the built-in aircraft, as they are written.
struct AircraftOptions {
  std::string start = "level";
  std::string wind = "0/0";
  std::string turbulence = "none";
  std::string plant = std::string(plant737().name);
  std::optional<double> grossWeight_lb;
};

/// Gives the option of the script.
CommandLine::Option offer(CommandLine& line, SimulatorOptions& options) {
  CommandLine::Option script = line.option("--script", "FILE", options.script,
                                           "A scripted flight in place of the built-in aircraft");
  script.check(whyNoFile);
  line.option("--speed", "FACTOR", options.host.speed,
              "Seconds of flight in a second, 0.01 to 100 (1)")
      .check(numberFrom(0.01, 100));
  line.option("--trace", "FILE", options.trace,
              "Write the flight down as CSV, ten rows a second of flight")
      .check(whyNoFile);
  line.flag("--xplane", options.host.asXPlane, "Answer as XPUIPC (X-Plane) instead of FSUIPC");
  line.option("--not-ready", "SECONDS", options.host.notReady_s,
              "Stay not ready for that long after the start, 0 to 3600 (0)")
      .check(numberFrom(0, 3600));
  return script;
}

/// None of them goes with a script.
void offer(CommandLine& line, AircraftOptions& options, unsigned& seed,
           const CommandLine::Option& script) {
  const auto add = [&](const char* name, const char* value, auto& target, const char* meaning) {
    return line.option(name, value, target, meaning)
        .excludes(script)
        .group("The built-in aircraft, not with --script");
  };
  add("--start", "STATE", options.start, "cold, runway, level, cruise or final (level)")
      .check(oneOf({"cold", "runway", "level", "cruise", "final"}));
  add("--wind", "FROM/KT", options.wind,
      "True direction and knots near the ground, such as 270/15 (calm)")
      .check(whyNoWind);
  add("--turbulence", "STRENGTH", options.turbulence, "none, light, moderate or severe (none)")
      .check(oneOf(turbulenceNames));
  add("--seed", "N", seed, "Of the turbulence; the same gives the same gusts (1)")
      .check(wholeNumberFrom(0, std::numeric_limits<unsigned>::max()));
  add("--mass", "LB", options.grossWeight_lb, "Gross weight at the start in pounds, by payload")
      .check(numberFrom(0, Heaviest_lb));
  add("--aircraft", "NAME", options.plant, "737-700 or heavy-twin (737-700)")
      .check(oneOf({std::string(plant737().name), std::string(plantHeavyTwin().name)}));
}

/// What the texts ask for. Raises RuntimeError for a weight that the aircraft cannot have.
void prepare(TwinJet::Settings& flight, const AircraftOptions& options) {
  flight.plant = plantNamed(options.plant);
  flight.start = startingStateNamed(options.start).value();
  const WindText wind = windParts(options.wind);
  flight.wind.from_deg = numeric(wind.from).value();
  flight.wind.speed_kt = numeric(wind.speed).value();
  flight.wind.turbulence = turbulenceNamed(options.turbulence);
  if (options.grossWeight_lb)
    flight.addedMass_kg =
        addedMassFor_kg(*flight.plant, *options.grossWeight_lb, startingFuel_lb());
}

}  // namespace

SimulatorOptions readSimulatorOptions(const std::vector<std::string>& arguments) {
  SimulatorOptions options;
  AircraftOptions aircraft;
  CommandLine line("vorlent-sim",
                   "Flies the built-in aircraft behind the simulator interface until it is ended.");
  const CommandLine::Option script = offer(line, options);
  offer(line, aircraft, options.flight.wind.seed, script);
  line.footer("docs/simulator-interface.md tells more.");
  line.read(arguments);
  try {
    prepare(options.flight, aircraft);
  } catch (const RuntimeError& error) {
    line.refuse(error.description());
  }
  return options;
}

}  // namespace vorlent
