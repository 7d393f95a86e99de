#include "flightplan/PlanFile.h"

#include <algorithm>

#include "base/IniDocument.h"
#include "base/SequentialInput.h"
#include "base/clsIniRw.h"
#include "base/numbers.h"
#include "base/text.h"

namespace vorlent {
namespace {

using Row = FlightPlanRecord;

bool isControl(char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }

/// Without control characters, because names become lines of files and of the log.
void takeName(SequentialInput& input, Row& row) {
  row.Name = input.text();
  row.Name.resize(Row::NameLength, ' ');
  std::replace_if(row.Name.begin(), row.Name.end(), isControl, ' ');
}

void take(std::string& to, std::string&& text) { to = std::move(text); }
void take(float& to, std::string&& text) { to = toSingle(numberOf(text)); }
void take(std::int32_t& to, std::string&& text) { to = toInt32(numberOf(text)); }
void take(std::int16_t& to, std::string&& text) { to = int16Of(text); }

template <auto member>
void take(SequentialInput& input, Row& row) {
  take(row.*member, input.text());
}

struct Field {
  const char* name;
  void (*take)(SequentialInput&, Row&);
};

constexpr Field Fields[] = {
    {"Name", takeName},
    {"Text2", take<&Row::Text2>},
    {"Text3", take<&Row::Text3>},
    {"Value4", take<&Row::Value4>},
    {"Value5", take<&Row::Value5>},
    {"Course", take<&Row::Course>},
    {"Value7", take<&Row::Value7>},
    {"Value8", take<&Row::Value8>},
    {"Value9", take<&Row::Value9>},
    {"Distance", take<&Row::Distance>},
    {"Value11", take<&Row::Value11>},
    {"Value12", take<&Row::Value12>},
    {"Value13", take<&Row::Value13>},
    {"Value14", take<&Row::Value14>},
    {"Value15", take<&Row::Value15>},
    {"Value16", take<&Row::Value16>},
    {"Value17", take<&Row::Value17>},
    {"Altitude", take<&Row::Altitude>},
    {"Value19", take<&Row::Value19>},
    {"Value20", take<&Row::Value20>},
    {"Kind", take<&Row::Kind>},
    {"Value22", take<&Row::Value22>},
    {"Latitude", take<&Row::Latitude>},
    {"Longitude", take<&Row::Longitude>},
    {"VertexLat", take<&Row::VertexLat>},
    {"VertexLon", take<&Row::VertexLon>},
};

RuntimeError faultAt(const std::string& place, const RuntimeError& error) {
  return {error.number(), place + ": " + error.description()};
}

void readRow(SequentialInput& input, std::size_t number, Row& row) {
  for (const Field& field : Fields) {
    try {
      field.take(input, row);
    } catch (const RuntimeError& error) {
      throw faultAt("row " + std::to_string(number) + ", " + field.name, error);
    }
  }
}

std::int16_t readLastRow(SequentialInput& input) {
  try {
    return input.int16();
  } catch (const RuntimeError& error) {
    throw faultAt("number of the last row", error);
  }
}

void read(std::string_view text, PlanFile& file) {
  if (text.size() > PlanFile::LargestFile)
    throw RuntimeError(RuntimeError::Overflow, "The file is larger than 16 MB");
  SequentialInput input(text);
  file.n = readLastRow(input);
  if (*file.n < 1) return;
  file.rows.resize(static_cast<std::size_t>(*file.n) + 1);
  for (Row& row : file.rows) {
    readRow(input, file.wholeRows, row);
    ++file.wholeRows;
  }
}

}  // namespace

PlanFile readPlanFile(std::string_view text) {
  PlanFile file;
  try {
    read(text, file);
  } catch (const RuntimeError& error) {
    file.fault = error;
  }
  return file;
}

std::string plannedAircraft(std::string_view planCfg) {
  return clsIniRw::keyIn(IniDocument(planCfg), "Flight", "Aircraft").asText();
}

std::string activeFileText(std::string_view waypoint) { return std::string(waypoint) + "\r\n"; }

}  // namespace vorlent
