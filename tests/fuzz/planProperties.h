#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "base/RuntimeError.h"
#include "flightplan/FlightPlanRecord.h"
#include "flightplan/PlanFile.h"
#include "independentPlan.h"

/// What holds of every plan file, by the second reading of independentPlan.h.
namespace plan_properties {

using vorlent::FlightPlanRecord;
using vorlent::PlanFile;

inline std::string storedName(std::string name) {
  name = (name + "     ").substr(0, 5);
  for (char& c : name)
    if (static_cast<unsigned char>(c) < 32 || c == 127) c = ' ';
  return name;
}

using Value = std::variant<std::string, double>;

/// The row's fields in the order of the file.
inline std::vector<Value> valuesOf(const FlightPlanRecord& r) {
  const auto d = [](auto x) { return static_cast<double>(x); };
  return {r.Name,         r.Text2,       r.Text3,      d(r.Value4),   d(r.Value5),   d(r.Course),
          d(r.Value7),    d(r.Value8),   d(r.Value9),  d(r.Distance), d(r.Value11),  d(r.Value12),
          d(r.Value13),   d(r.Value14),  d(r.Value15), d(r.Value16),  d(r.Value17),  d(r.Altitude),
          d(r.Value19),   d(r.Value20),  r.Kind,       d(r.Value22),  d(r.Latitude), d(r.Longitude),
          d(r.VertexLat), d(r.VertexLon)};
}

inline Value expected(std::size_t field, const std::string& text) {
  if (field == 0) return storedName(text);
  if (independent::isTextField(field)) return text;
  const double value = *independent::number(independent::stripped(text));
  if (field == 17 || field == 19 || field == 21) return std::nearbyint(value) + 0.0;
  return static_cast<double>(static_cast<float>(value));
}

/// How many of the row's fields, from `first` on in the file, stand and fit.
inline std::size_t goodFields(const std::vector<std::string>& fields, std::size_t first) {
  std::size_t good = 0;
  while (good < independent::FieldsOfARow && first + good < fields.size() &&
         independent::fits(good, fields[first + good]))
    ++good;
  return good;
}

inline void requireRow(const FlightPlanRecord& row, const std::vector<std::string>& fields,
                       std::size_t first, std::size_t good) {
  if (good == 0) {
    VORLENT_REQUIRE(row == FlightPlanRecord());
    return;
  }
  const auto values = valuesOf(row);
  const auto empty = valuesOf(FlightPlanRecord());
  for (std::size_t i = 0; i < independent::FieldsOfARow; ++i)
    VORLENT_REQUIRE(values[i] == (i < good ? expected(i, fields[first + i]) : empty[i]));
}

inline void requireRows(const PlanFile& file, const std::vector<std::string>& fields) {
  bool whole = true;
  std::size_t wholeRows = 0;
  for (std::size_t row = 0; row < file.rows.size(); ++row) {
    const std::size_t first = 1 + row * independent::FieldsOfARow;
    const std::size_t good = whole ? goodFields(fields, first) : 0;
    requireRow(file.rows[row], fields, first, good);
    whole = whole && good == independent::FieldsOfARow;
    if (whole) ++wholeRows;
  }
  VORLENT_REQUIRE(file.wholeRows == wholeRows);
  VORLENT_REQUIRE(file.fault.has_value() != whole);
}

inline PlanFile readAndRequire(const std::string& text) {
  const PlanFile file = vorlent::readPlanFile(text);
  const auto head = independent::planFields(text, 1);
  const auto n = head.empty()
                     ? std::nullopt
                     : independent::wholeNumber(independent::stripped(head[0]), -32768, 32767);
  VORLENT_REQUIRE(file.n.has_value() == n.has_value());
  VORLENT_REQUIRE(!n || *file.n == *n);
  VORLENT_REQUIRE(n.has_value() || file.fault.has_value());
  const std::size_t rows = n && *n > 0 ? static_cast<std::size_t>(*n) + 1 : 0;
  VORLENT_REQUIRE(file.rows.size() == rows);
  if (rows > 0)
    requireRows(file, independent::planFields(text, 1 + rows * independent::FieldsOfARow));
  else
    VORLENT_REQUIRE(file.fault.has_value() == !n.has_value());
  return file;
}

}  // namespace plan_properties
