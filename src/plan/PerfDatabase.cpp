#include "plan/PerfDatabase.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "base/RuntimeError.h"
#include "base/numbers.h"
#include "plan/planRows.h"

// The shipped temp.mdb is a Jet 4 database whose table PerfData has a first row of columns of fixed
// width. They stand in its file one behind the other, little-endian, so that new numbers of the
// same width can take the place of the old without a change of anything else in the file.
// tests/plan/PerfDatabaseTest.cpp reads every field back with libmdb.

namespace vorlent {
namespace {

constexpr std::size_t FirstField = 110544;
constexpr std::size_t ShippedSize_bytes = 114688;
/// What the shipped row says.
constexpr PerfData Shipped = {88.5F,  310,    330,   5500, 18000, 105000,
                              112000, 130000, 93.4F, 280,  0.76F, 0.74F};

void append(std::string& row, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) row += static_cast<char>(value >> 8 * i & 0xFFU);
}

void appendSingle(std::string& row, float value) {
  std::uint32_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  append(row, bits, 4);
}

void appendWhole(std::string& row, std::int32_t value) {
  append(row, static_cast<std::uint32_t>(value), 4);
}

void appendShort(std::string& row, std::int16_t value) {
  append(row, static_cast<std::uint16_t>(value), 2);
}

/// In the order of the columns.
std::string fieldsOf(const PerfData& data) {
  std::string row;
  appendSingle(row, data.ClimbN1);
  appendWhole(row, data.MaxCruiseAlt);
  appendWhole(row, data.CruiseAlt);
  for (const float weight : {data.FuelReserve, data.TripFuel, data.ZeroFuelWeight,
                             data.LandingWeight, data.TakeoffWeight, data.TakeoffN1})
    appendSingle(row, weight);
  appendShort(row, toInt16(data.FMCspeed));
  appendSingle(row, data.ClimbMach);
  appendSingle(row, data.DescentMach);
  return row;
}

int flightLevel(double altitude_ft) { return static_cast<int>(std::lround(altitude_ft / 100)); }

}  // namespace

PerfData perfDataOf(const PlannedFlight& flight, std::size_t leg) {
  const AircraftPerformance& aircraft = flight.aircraft;
  return {toSingle(aircraft.climbN1_pct),
          flightLevel(aircraft.ceiling_ft),
          flightLevel(flight.cruise_ft),
          toSingle(std::round(flight.reserve_lb)),
          toSingle(std::round(flight.tripFuel_lb)),
          toSingle(std::round(flight.withoutFuel_lb)),
          toSingle(std::round(flight.landing_lb)),
          toSingle(std::round(flight.takeoff_lb)),
          toSingle(aircraft.takeoffN1_pct),
          static_cast<int>(std::lround(legSpeed_kt(flight, leg))),
          toSingle(aircraft.climbMach),
          toSingle(aircraft.descentMach)};
}

std::string perfDatabase(std::string_view shipped, const PerfData& data) {
  const std::string before = fieldsOf(Shipped);
  if (shipped.size() != ShippedSize_bytes || shipped.substr(FirstField, before.size()) != before)
    throw RuntimeError(RuntimeError::InvalidCall,
                       "the database is not the shipped temp.mdb, its fields are not known");
  std::string database(shipped);
  return database.replace(FirstField, before.size(), fieldsOf(data));
}

}  // namespace vorlent
