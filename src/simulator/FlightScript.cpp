#include "simulator/FlightScript.h"

#include <algorithm>
#include <array>
#include <span>

#include "base/RuntimeError.h"
#include "base/TextLines.h"
#include "base/files.h"
#include "base/text.h"

namespace vorlent {
namespace {

constexpr std::size_t ColumnCount = 10;
constexpr std::array<std::string_view, 9> FlapNames{"0",  "1",  "2",  "5", "10",
                                                    "15", "25", "30", "40"};

[[noreturn]] void refuse(const std::string& why) {
  throw RuntimeError(RuntimeError::InvalidCall, why);
}

std::string quoted(const std::string& field) { return "\"" + field + "\""; }

double number(const std::string& field, const std::string& what, double lowest, double highest) {
  const std::optional<double> value = numeric(field);
  if (!value || *value < lowest || *value > highest)
    refuse(what + " is a number from " + doubleText(lowest) + " to " + doubleText(highest) +
           ", not " + quoted(field));
  return *value;
}

/// Standing, or fast enough to be in the air.
double airspeed_kt(const std::string& field) {
  const double speed_kt = number(field, "the airspeed in knots", 0, 350);
  constexpr double Slowest_kt = 100;
  if (speed_kt != 0 && speed_kt < Slowest_kt)
    refuse("the airspeed is 0, to stand, or from 100 to 350 knots, not " + quoted(field));
  return speed_kt;
}

FlightPath path(const std::string& field) {
  if (field == "centreline") return {HomeRunway.course_deg, true};
  if (!numeric(field)) refuse("the heading is a number or \"centreline\", not " + quoted(field));
  return {number(field, "the true heading", 0, 360), false};
}

int flapsDetent(const std::string& field) {
  const auto* const found = std::find(FlapNames.begin(), FlapNames.end(), field);
  if (found == FlapNames.end())
    refuse("the flaps are 0, 1, 2, 5, 10, 15, 25, 30 or 40, not " + quoted(field));
  return static_cast<int>(found - FlapNames.begin());
}

bool gearDown(const std::string& field) {
  if (field != "up" && field != "down")
    refuse("the gear is \"up\" or \"down\", not " + quoted(field));
  return field == "down";
}

std::array<EngineUse, EngineCount> engines(const std::string& field) {
  using enum EngineUse;
  if (field == "off") return {Off, Off};
  if (field == "start 1") return {Starting, Off};
  if (field == "start 2") return {Running, Starting};
  if (field != "running")
    refuse("the engines are \"off\", \"start 1\", \"start 2\" or \"running\", not " +
           quoted(field));
  return {Running, Running};
}

FlightSegment segmentFrom(const std::string& line) {
  std::vector<std::string> fields = commaFields(line);
  if (fields.size() != ColumnCount && fields.size() != ColumnCount + 1)
    refuse("a segment has " + std::to_string(ColumnCount) + " fields between commas, this has " +
           std::to_string(fields.size()));
  for (std::string& field : fields) field = trimmed(field);
  FlightSegment segment;
  segment.name = fields[0];
  segment.duration_s = number(fields[1], "the duration in seconds", 1, 86400);
  segment.airspeed_kt = airspeed_kt(fields[2]);
  segment.acceleration_kt_s = number(fields[3], "the acceleration in knots a second", 0.1, 10);
  segment.altitude_ft = number(fields[4], "the altitude in feet", 0, 41000);
  segment.verticalSpeed_ft_min = number(fields[5], "the vertical speed in feet a minute", 0, 6000);
  segment.path = path(fields[6]);
  segment.flapsDetent = flapsDetent(fields[7]);
  segment.gearDown = gearDown(fields[8]);
  segment.spoilers = number(fields[9], "the spoilers", 0, 1);
  if (fields.size() > ColumnCount) segment.engines = engines(fields[ColumnCount]);
  return segment;
}

bool hasFlown(const FlightScript& script) {
  return std::any_of(script.begin(), script.end(),
                     [](const FlightSegment& segment) { return segment.airspeed_kt != 0; });
}

void append(FlightScript& script, FlightSegment segment) {
  if (segment.airspeed_kt != 0 && hasFlown(script) && script.back().airspeed_kt == 0)
    refuse("behind a landing the airspeed stays 0");
  script.push_back(std::move(segment));
}

}  // namespace

FlightScript flightScriptFrom(std::string_view text) {
  FlightScript script;
  TextLines lines(text);
  for (int lineNumber = 1; !lines.atEnd(); ++lineNumber) {
    const std::string line = trimmed(lines.next());
    if (line.empty() || line.front() == '#') continue;
    try {
      append(script, segmentFrom(line));
    } catch (const RuntimeError& error) {
      refuse("line " + std::to_string(lineNumber) + ": " + error.description());
    }
  }
  if (script.empty()) refuse("no line has a segment");
  return script;
}

FlightScript readFlightScript(const std::string& path) {
  try {
    return flightScriptFrom(readFile(path));
  } catch (const RuntimeError& error) {
    refuse("flight script " + path + ": " + error.description());
  }
}

double durationOf_s(const FlightScript& script) {
  double sum_s = 0;
  for (const FlightSegment& segment : script) sum_s += segment.duration_s;
  return sum_s;
}

}  // namespace vorlent
