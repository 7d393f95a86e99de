#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "independentText.h"
#include "require.h"
#include "simulator/ScriptedFlight.h"

// An input is the file of a scripted flight. What it says is read a second time here; a good one is
// flown for as long as a minute.

namespace {

using namespace vorlent;

std::string withoutBlanks(std::string text) {
  while (!text.empty() && text.front() == ' ') text.erase(0, 1);
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text;
}

/// As a text field may have it, with blanks and tabulators around it.
std::optional<double> numberBetween(std::string text, double least, double most) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.erase(0, 1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.pop_back();
  const auto value = independent::number(text);
  if (!value || *value < least || *value > most) return std::nullopt;
  return value;
}

struct Limits {
  std::size_t field;
  double least;
  double most;
};

constexpr std::array<Limits, 6> numbers{
    {{1, 1, 86400}, {2, 0, 350}, {3, 0.1, 10}, {4, 0, 41000}, {5, 0, 6000}, {9, 0, 1}}};
constexpr std::array<std::string_view, 9> flaps{"0", "1", "2", "5", "10", "15", "25", "30", "40"};

struct EngineField {
  std::string_view text;
  EngineUse first, second;
};
constexpr std::array<EngineField, 4> engines{{{"off", EngineUse::Off, EngineUse::Off},
                                              {"start 1", EngineUse::Starting, EngineUse::Off},
                                              {"start 2", EngineUse::Running, EngineUse::Starting},
                                              {"running", EngineUse::Running, EngineUse::Running}}};

/// Without the field they run.
const EngineField* enginesOf(const std::vector<std::string>& fields) {
  const std::string text = fields.size() > 10 ? fields[10] : "running";
  for (const EngineField& field : engines)
    if (field.text == text) return &field;
  return nullptr;
}

bool isGood(const std::vector<std::string>& fields, bool landed) {
  if (fields.size() != 10 && fields.size() != 11) return false;
  for (const Limits& limits : numbers)
    if (!numberBetween(fields[limits.field], limits.least, limits.most)) return false;
  const double speed_kt = *numberBetween(fields[2], 0, 350);
  if (speed_kt != 0 && (speed_kt < 100 || landed)) return false;
  if (fields[6] != "centreline" && !numberBetween(fields[6], 0, 360)) return false;
  if (std::find(flaps.begin(), flaps.end(), fields[7]) == flaps.end()) return false;
  return (fields[8] == "up" || fields[8] == "down") && enginesOf(fields);
}

struct Expected {
  std::vector<std::vector<std::string>> segments;
  int faultyLine = 0;  ///< the first one, from 1; 0 where there is none
};

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines(1);
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '\r' && text[at] != '\n') {
      lines.back() += text[at];
      continue;
    }
    if (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n') ++at;
    lines.emplace_back();
  }
  return lines;
}

Expected expectedOf(const std::string& text) {
  Expected expected;
  bool flown = false;
  bool landed = false;  // for good
  int number = 0;
  for (const std::string& raw : linesOf(text)) {
    ++number;
    const std::string line = withoutBlanks(raw);
    if (line.empty() || line[0] == '#') continue;
    auto fields = independent::split(line, ',');
    for (std::string& field : fields) field = withoutBlanks(field);
    if (!isGood(fields, landed)) {
      expected.faultyLine = number;
      return expected;
    }
    const bool flies = *numberBetween(fields[2], 0, 350) != 0;
    flown = flown || flies;
    landed = flown && !flies;
    expected.segments.push_back(fields);
  }
  return expected;
}

void compare(const FlightSegment& segment, const std::vector<std::string>& fields) {
  constexpr double most = 1e9;
  VORLENT_REQUIRE(segment.name == fields[0]);
  VORLENT_REQUIRE(segment.duration_s == numberBetween(fields[1], -most, most));
  VORLENT_REQUIRE(segment.airspeed_kt == numberBetween(fields[2], -most, most));
  VORLENT_REQUIRE(segment.acceleration_kt_s == numberBetween(fields[3], -most, most));
  VORLENT_REQUIRE(segment.altitude_ft == numberBetween(fields[4], -most, most));
  VORLENT_REQUIRE(segment.verticalSpeed_ft_min == numberBetween(fields[5], -most, most));
  VORLENT_REQUIRE(segment.path.onCentreline == (fields[6] == "centreline"));
  if (!segment.path.onCentreline)
    VORLENT_REQUIRE(segment.path.heading_deg == numberBetween(fields[6], -most, most));
  VORLENT_REQUIRE(flaps[static_cast<std::size_t>(segment.flapsDetent)] == fields[7]);
  VORLENT_REQUIRE(segment.gearDown == (fields[8] == "down"));
  VORLENT_REQUIRE(segment.spoilers == numberBetween(fields[9], -most, most));
  VORLENT_REQUIRE(segment.engines[0] == enginesOf(fields)->first);
  VORLENT_REQUIRE(segment.engines[1] == enginesOf(fields)->second);
}

void fly(const FlightScript& script) {
  const auto memory = std::make_unique<OffsetMemory>();
  ScriptedFlight flight(*memory, script);
  const double whole_s = std::min(60.0, durationOf_s(script));
  for (double passed_s = 0; passed_s < whole_s; passed_s += 1) flight.step(1);
  VORLENT_REQUIRE(std::isfinite(flight.state().altitude_m));
  VORLENT_REQUIRE(std::isfinite(flight.state().trueAirspeed_m_s));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  const Expected expected = expectedOf(text);
  FlightScript script;
  std::string refusal;
  try {
    script = flightScriptFrom(text);
  } catch (const RuntimeError& error) {
    refusal = error.description();
  }
  if (expected.faultyLine > 0) {
    VORLENT_REQUIRE(refusal.starts_with("line " + std::to_string(expected.faultyLine) + ": "));
  } else if (expected.segments.empty()) {
    VORLENT_REQUIRE(refusal == "no line has a segment");
  } else {
    VORLENT_REQUIRE(refusal.empty() && script.size() == expected.segments.size());
    for (std::size_t i = 0; i < script.size(); ++i) compare(script[i], expected.segments[i]);
    fly(script);
  }
  return 0;
}
