#include "bridge/Mapping.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>

#include "base/simulatorUnits.h"
#include "simulator/Encoding.h"
#include "simulator/NavReceivers.h"

namespace vorlent {
namespace {

constexpr std::size_t DistanceField_bytes = 5;

struct WidthRow {
  std::size_t size;
  void (*write)(OffsetMemory&, std::size_t offset, double number);
  double (*read)(const OffsetMemory&, std::size_t offset);
};

/// The nearest number that the width holds.
template <class T>
T within(double number) {
  constexpr auto Least = static_cast<double>(std::numeric_limits<T>::min());
  constexpr auto Most = static_cast<double>(std::numeric_limits<T>::max());
  const double whole = std::nearbyint(number);
  if (whole <= Least) return std::numeric_limits<T>::min();
  if (whole >= Most) return std::numeric_limits<T>::max();
  return static_cast<T>(whole);
}

template <>
double within<double>(double number) {
  return number;
}

template <class T>
constexpr WidthRow plainRow() {
  return {sizeof(T),
          [](OffsetMemory& memory, std::size_t offset, double number) {
            memory.write(offset, within<T>(number));
          },
          [](const OffsetMemory& memory, std::size_t offset) {
            return static_cast<double>(memory.read<T>(offset));
          }};
}

/// In the order of Width; text has none of these.
constexpr std::array Widths{plainRow<std::uint8_t>(),  plainRow<std::int8_t>(),
                            plainRow<std::uint16_t>(), plainRow<std::int16_t>(),
                            plainRow<std::uint32_t>(), plainRow<std::int32_t>(),
                            plainRow<std::int64_t>(),  plainRow<double>()};

const WidthRow& rowOf(Width width) { return Widths[static_cast<std::size_t>(width)]; }

double turnOf(const MappingRow& row) {
  if (row.coding == Coding::ApproachTurn) return IlsTurn;
  return sizeOf(row.width) == sizeof(std::uint32_t) ? Turn32 : Turn16;
}

void showTurn(OffsetMemory& memory, const MappingRow& row, double angle_deg) {
  const double turn = turnOf(row);
  const double share = std::fmod(std::fmod(angle_deg, 360) + 360, 360) / 360;
  const auto steps = static_cast<std::uint64_t>(std::nearbyint(share * turn));
  if (sizeOf(row.width) == sizeof(std::uint32_t))
    memory.write(row.offset, static_cast<std::uint32_t>(steps));
  else
    memory.write(row.offset, static_cast<std::uint16_t>(steps));
}

void showDigits(OffsetMemory& memory, const MappingRow& row, double number) {
  const int digits = static_cast<int>(within<std::uint16_t>(std::fmod(std::fabs(number), 1e4)));
  const int last = digits % 10000;
  memory.write(row.offset, packedDigits(last % 100));
  memory.write(row.offset + 1U, packedDigits(last / 100));
}

void showDistance(OffsetMemory& memory, const MappingRow& row, double distance_nm) {
  const bool silent = distance_nm <= 0 || distance_nm >= 999.5;
  writeText(memory, row.offset, DistanceField_bytes,
            silent ? ";;.;" : dmeDistanceText(distance_nm));
}

double digitsAt(const OffsetMemory& memory, const MappingRow& row) {
  const auto packed = memory.read<std::uint16_t>(row.offset);
  double number = 0;
  for (int shift = 12; shift >= 0; shift -= 4) number = number * 10 + (packed >> shift & 0xF);
  return number;
}

}  // namespace

Term::Term(std::string_view name, double perUnit) : property(name), factor(perUnit) {}

MappingRow& MappingRow::written(double least, double most, Route by) {
  direction = Direction::Both;
  lowest = least;
  highest = most;
  route = by;
  return *this;
}

MappingRow& MappingRow::byCommand(const std::string& what) {
  command = what;
  return written(0, 1, Route::Command);
}

MappingRow& Mapping::in(std::uint16_t offset, Width width, const std::string& name,
                        const std::vector<Term>& terms) {
  MappingRow& row = rows.emplace_back();
  row.offset = offset;
  row.width = width;
  row.name = name;
  row.terms = terms;
  return row;
}

MappingRow& Mapping::constant(std::uint16_t offset, Width width, const std::string& name,
                              double value) {
  MappingRow& row = in(offset, width, name, {});
  row.direction = Direction::Constant;
  return row.add(value);
}

MappingRow& Mapping::kept(std::uint16_t offset, Width width, const std::string& name,
                          double first) {
  MappingRow& row = constant(offset, width, name, first);
  row.direction = Direction::Kept;
  return row;
}

std::size_t sizeOf(Width width) {
  return width == Width::Text ? DistanceField_bytes : rowOf(width).size;
}

std::vector<MappingRow> rowsFor(const Mapping& mapping, const std::string& aircraft) {
  std::map<std::uint16_t, const MappingRow*> chosen;
  for (const MappingRow& row : mapping.rows)
    if (row.aircraft.empty()) chosen[row.offset] = &row;
  for (const MappingRow& row : mapping.rows)
    if (!row.aircraft.empty() && aircraft.starts_with(row.aircraft)) chosen[row.offset] = &row;
  std::vector<MappingRow> rows;
  rows.reserve(chosen.size());
  for (const auto& [offset, row] : chosen) rows.push_back(*row);
  return rows;
}

std::vector<std::string> propertiesOf(const std::vector<MappingRow>& rows) {
  std::vector<std::string> names;
  for (const MappingRow& row : rows)
    for (const Term& term : row.terms)
      if (std::find(names.begin(), names.end(), term.property) == names.end())
        names.push_back(term.property);
  return names;
}

bool show(OffsetMemory& memory, const MappingRow& row, double number) {
  if (!std::isfinite(number)) return false;
  switch (row.coding) {
    case Coding::Number:
      rowOf(row.width).write(memory, row.offset, number);
      break;
    case Coding::Turn:
    case Coding::ApproachTurn:
      showTurn(memory, row, number);
      break;
    case Coding::Digits:
      showDigits(memory, row, number);
      break;
    case Coding::Distance:
      showDistance(memory, row, number);
      break;
  }
  return true;
}

std::optional<double> shown(const OffsetMemory& memory, const MappingRow& row) {
  if (row.width == Width::Text) return std::nullopt;
  if (row.coding == Coding::Digits) return digitsAt(memory, row);
  const double steps = rowOf(row.width).read(memory, row.offset);
  if (!std::isfinite(steps)) return std::nullopt;
  return row.coding == Coding::Number ? steps : steps / turnOf(row) * 360;
}

double propertyFrom(const MappingRow& row, double number) {
  return std::clamp((number - row.plus) / row.terms.front().factor, row.lowest, row.highest);
}

bool alike(const MappingRow& row, double a, double b) {
  const double difference = std::fabs(a - b);
  if (row.coding == Coding::Turn || row.coding == Coding::ApproachTurn)
    return std::fabs(std::remainder(a - b, 360)) <= 1.5 * 360 / turnOf(row);
  if (row.width == Width::Double) return difference <= 1e-4 * std::max(1.0, std::fabs(a));
  return difference <= 1.5;
}

}  // namespace vorlent
