#include <array>
#include <cstdio>

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
  std::array<char, 80> start{};
  std::snprintf(start.data(), start.size(), "%04X  %-6s  %-6s  ", row.offset,
                nameOf(WidthNames, row.width), nameOf(DirectionNames, row.direction));
  std::string line = start.data() + row.name;
  if (!row.aircraft.empty()) line += " (" + row.aircraft + ")";
  if (const std::string names = propertiesOf(row); !names.empty()) line += ": " + names;
  return line + "\n";
}

std::string lineOf(const Mapping::Missing& missing) {
  std::array<char, 16> start{};
  std::snprintf(start.data(), start.size(),
                missing.last == missing.offset ? "%04X  " : "%04X-%04X  ", missing.offset,
                missing.last);
  return start.data() + missing.name + ": " + missing.why + "\n";
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
