#include "flightplan/PerformanceData.h"

#include "base/RuntimeError.h"
#include "base/numbers.h"

namespace vorlent {
namespace {

using Data = PerformanceData;

struct AircraftDefaults {
  std::string_view name;
  std::int16_t takeoffN1_pct;
  float climbN1_pct;
  std::int16_t speed_kt;
};

constexpr std::size_t AircraftNameLength = 7;
constexpr AircraftDefaults KnownAircraft[] = {
    {"737-300", 88, 75, 251},
    {"737-400", 93, 85, 251},
    {"737-700", 88, 85, 251},
};
/// Feet, though the setters take a flight level. docs/peculiarities.md: default cruise altitude.
constexpr std::int32_t DefaultMaxCruiseAlt = 33000;
constexpr std::int32_t DefaultCruiseAlt = 30000;

float single(const std::string& text) { return toSingle(numberOf(text)); }

template <auto member>
void take(Data& data, const std::string& text) {
  data.*member = single(text);
}

struct Field {
  std::string_view name;
  void (*take)(Data&, const std::string&);
};

/// In the order in which they are taken: the cruise altitude wins over its limit.
constexpr Field Fields[] = {
    {"ClimbN1", take<&Data::ClimbN1>},
    {"MaxCruiseAlt", [](Data& d, const std::string& t) { d.MaxCruiseAlt(toInt32(numberOf(t))); }},
    {"CruiseAlt", [](Data& d, const std::string& t) { d.CruiseAlt(toInt32(numberOf(t))); }},
    {"FuelReserve", take<&Data::FuelReserve>},
    {"TripFuel", take<&Data::TripFuel>},
    {"ZeroFuelWeight", take<&Data::ZeroFuelWeight>},
    {"LandingWeight", take<&Data::LandingWeight>},
    {"TakeoffWeight", take<&Data::TakeoffWeight>},
    {"TakeoffN1", [](Data& d, const std::string& t) { d.TakeoffN1 = toInt16(single(t)); }},
    {"FMCspeed", [](Data& d, const std::string& t) { d.FmcSpeed = int16Of(t); }},
    {"ClimbMach", take<&Data::ClimbMach>},
    {"DescentMach", take<&Data::DescentMach>},
};

}  // namespace

void PerformanceData::CruiseAlt(std::int32_t flightLevel) {
  constexpr double FeetPerLevel = 100;
  cruiseAlt_ft_ = toInt32(flightLevel * FeetPerLevel);
}

void setAircraftDefaults(std::string_view aircraft, PerformanceData& data) {
  for (const AircraftDefaults& known : KnownAircraft) {
    if (known.name != aircraft.substr(0, AircraftNameLength)) continue;
    data.TakeoffN1 = known.takeoffN1_pct;
    data.ClimbN1 = known.climbN1_pct;
    data.FmcSpeed = known.speed_kt;
    data.MaxCruiseAlt(DefaultMaxCruiseAlt);
    data.CruiseAlt(DefaultCruiseAlt);
  }
}

void ReadPerformance(const PerfDataRow& row, PerformanceData& data) {
  for (const Field& field : Fields) {
    const auto found = row.find(field.name);
    if (found == row.end()) continue;
    try {
      field.take(data, found->second);
    } catch (const RuntimeError&) {
      // No number for this field: what stood there before stays.
    }
  }
}

}  // namespace vorlent
