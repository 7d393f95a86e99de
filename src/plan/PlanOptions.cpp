#include "plan/PlanOptions.h"

#include <tuple>

#include "base/files.h"
#include "base/text.h"
#include "commandline/CommandLine.h"

namespace vorlent {
namespace {

constexpr double FeetPerLevel = 100;
constexpr int LowestLevel = 10;
constexpr int HighestLevel = 450;
constexpr int HeaviestWeight_lb = 200'000;
// ICAO Annex 10 Volume I, 3.1.3.2.
constexpr double LowestLocalizer_MHz = 108;
constexpr double HighestLocalizer_MHz = 111.975;

const std::string RunwayForm =
    "it takes latitude, longitude, true course and elevation in feet, such as "
    "51.75,0.1,265,65.6";

std::optional<std::vector<double>> numbersOf(std::string text) {
  std::vector<double> numbers;
  for (bool last = false; !last;) {
    last = text.find(',') == std::string::npos;
    const auto number = numeric(GetNext(text, ","));
    if (!number) return std::nullopt;
    numbers.push_back(*number);
  }
  return numbers;
}

bool isWithin(double value, double lowest, double highest) {
  return value >= lowest && value <= highest;
}

std::optional<ArrivalRunway> runwayOf(const std::string& text) {
  const auto n = numbersOf(text);
  if (!n || n->size() != 4) return std::nullopt;
  const auto& [latitude, longitude, course, elevation] =
      std::tie((*n)[0], (*n)[1], (*n)[2], (*n)[3]);
  if (!isWithin(latitude, -90, 90) || !isWithin(longitude, -180, 180) ||
      !isWithin(course, 0, 360) || !isWithin(elevation, -1500, 15000))
    return std::nullopt;
  return ArrivalRunway{{latitude, longitude}, course, elevation};
}

std::string whyNoRunway(const std::string& text) {
  return runwayOf(text) ? "" : RunwayForm + ", not \"" + text + "\"";
}

std::string whyNoMachine(const std::string& text) {
  if (isHostName(text)) return "";
  return "the name of a machine is made of letters, digits, \"-\", \"_\" and \".\"";
}

std::string whyNoFolder(const std::string& text) {
  return folderExists(text) ? "" : "there is no folder \"" + text + "\"";
}

struct Texts {
  std::string aircraft = "737-700";
  std::string runway;
  std::optional<int> cruiseLevel;
};

void addFlightOptions(CommandLine& line, PlanOptions& options, Texts& texts) {
  line.option("--aircraft", "NAME", texts.aircraft, "737-300, 737-400 or 737-700 (737-700)")
      .check(oneOf(knownAircraft()));
  line.option("--cruise", "LEVEL", texts.cruiseLevel,
              "Flight level of the cruise, 10 to 450; without it the route's")
      .check(wholeNumberFrom(LowestLevel, HighestLevel));
  line.option("--runway", "PLACE", texts.runway,
              "Where the flight ends: latitude, longitude and true course of the threshold\n"
              "in degrees and its elevation in feet, as --runway=51.75,0.1,265,65.6")
      .check(whyNoRunway);
  line.option("--zero-fuel-weight", "LB", options.task.weightWithoutFuel_lb,
              "Weight without fuel, pounds; without it a usual one")
      .check(wholeNumberFrom(0, HeaviestWeight_lb));
  line.option("--reserve", "LB", options.task.reserve_lb,
              "Fuel that is left after the flight, pounds; without it a usual one")
      .check(wholeNumberFrom(0, HeaviestWeight_lb));
}

void addSessionOptions(CommandLine& line, PlanOptions& options) {
  line.option("--share", "FOLDER", options.share,
              "The folder that is this machine's share Tarnwick")
      .check(whyNoFolder);
  line.option("--name", "NAME", options.name,
              "Machine name in the greeting: the machine whose share it is;\n"
              "without it this machine's own")
      .check(whyNoMachine);
  line.flag("--print", options.print, "Show the plan as a table and end");
}

void addPilotOptions(CommandLine& line, PlanOptions& options) {
  line.flag("--pilot", options.pilot,
            "Fly, too: from the runway on which the aircraft stands to 50 feet above\n"
            "the other one, where the program ends; with --runway and --ils");
  line.option("--ils", "MHZ", options.localizer_MHz,
              "Frequency of the landing system of the runway, such as 108.9")
      .check(numberFrom(LowestLocalizer_MHz, HighestLocalizer_MHz));
  line.option("--speed", "FACTOR", options.flightSeconds,
              "Seconds of flight in a second for the pilot, as vorlent-sim's; 0.1 to 10 (1)")
      .check(numberFrom(0.1, 10));
}

void checkPilotOptions(const CommandLine& line, const PlanOptions& options) {
  if (!options.pilot) return;
  if (!options.task.runway) line.refuse("--pilot needs --runway: where he is to land");
  if (options.localizer_MHz == 0) line.refuse("--pilot needs --ils: the frequency of the runway");
}

}  // namespace

PlanOptions readPlanOptions(const std::vector<std::string>& arguments) {
  PlanOptions options;
  Texts texts;
  CommandLine line("vorlent-plan",
                   "Plans a flight along a route file (.fms, .fpl, .lnmpln), puts the plan into a "
                   "share and leads a Vorlent server along it, leg by leg.");
  line.option("FILE", "", options.route, "The route file");
  line.option("HOST", "", options.host, "Name or address of the server; without it this machine");
  line.option("PORT", "", options.port, "UDP port of the session (5001)")
      .check(wholeNumberFrom(1, 65535));
  addFlightOptions(line, options, texts);
  addSessionOptions(line, options);
  addPilotOptions(line, options);
  line.footer("Every session has a port of its own: the first display is on 5000 as a rule.");
  line.read(arguments);
  if (options.route.empty()) line.refuse("the route file is missing");
  if (options.share.empty() && !options.print)
    line.refuse("--share is missing: the folder into which the plan is put");
  options.task.aircraft = *performanceOf(texts.aircraft);
  options.task.runway = runwayOf(texts.runway);
  checkPilotOptions(line, options);
  if (texts.cruiseLevel) options.task.cruise_ft = *texts.cruiseLevel * FeetPerLevel;
  return options;
}

}  // namespace vorlent
