#include <fmt/format.h>

#include <array>

#include "bridge/mappings.h"

namespace vorlent {
namespace {

constexpr std::array WidthNames{"u8", "s8", "u16", "s16", "u32", "s32", "s64", "double", "text"};
constexpr std::array DirectionNames{"in", "in/out", "kept", "const"};

template <class Names, class Value>
const char* nameOf(const Names& names, Value value) {
  return names.at(static_cast<std::size_t>(value));
}

std::string propertiesOf(const MappingRow& row) {
  std::string text;
  for (const Term& term : row.terms) text += (text.empty() ? "" : " + ") + term.property;
  return text;
}

std::string lineOf(const MappingRow& row) {
  std::string line =
      fmt::format("{:04X}  {:6}  {:6}  {}", row.offset, nameOf(WidthNames, row.width),
                  nameOf(DirectionNames, row.direction), row.name);
  if (!row.aircraft.empty()) line += " (" + row.aircraft + ")";
  if (const std::string names = propertiesOf(row); !names.empty()) line += ": " + names;
  return line + "\n";
}

std::string lineOf(const Mapping::Missing& missing) {
  std::string place = fmt::format("{:04X}", missing.offset);
  if (missing.last != missing.offset) place += fmt::format("-{:04X}", missing.last);
  return place + "  " + missing.name + ": " + missing.why + "\n";
}

}  // namespace

std::string listing(const Mapping& mapping) {
  std::string text = mapping.simulator + ", by the names in " + mapping.source + ".\n\n";
  for (const MappingRow& row : mapping.rows) text += lineOf(row);
  text += "\nReads 0:\n";
  for (const Mapping::Missing& missing : mapping.missing) text += lineOf(missing);
  return text;
}

}  // namespace vorlent
