#include "bridge/flightGearProtocol.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace vorlent {
namespace {

constexpr std::uint32_t Mark = 0x564F524C;
constexpr const char* TimeProperty = "/sim/time/elapsed-sec";

/// The order of the bytes in the network: the highest first.
template <class T>
T swapped(T value) {
  std::array<char, sizeof(T)> bytes;
  std::memcpy(bytes.data(), &value, sizeof value);
  std::reverse(bytes.begin(), bytes.end());
  std::memcpy(&value, bytes.data(), sizeof value);
  return value;
}

template <class T>
T swappedAt(std::string_view record, std::size_t at) {
  T value;
  std::memcpy(&value, record.data() + at, sizeof value);
  return swapped(value);
}

template <class T>
void append(std::string& record, T value) {
  value = swapped(value);
  record.append(reinterpret_cast<const char*>(&value), sizeof value);
}

std::string chunksOf(const std::vector<std::string>& properties) {
  std::string text;
  for (const std::string& property : properties)
    text.append("      <chunk>\n        <name>")
        .append(property)
        .append(
            "</name>\n        <type>double</type>\n        <format>%.9f</format>\n        <node>")
        .append(property)
        .append("</node>\n      </chunk>\n");
  return text;
}

std::string fileOf(const std::string& direction, const std::string& settings,
                   const std::vector<std::string>& properties) {
  return "<?xml version=\"1.0\"?>\n<!-- Written by vorlent-bridge. -->\n"
         "<PropertyList>\n  <generic>\n    <" +
         direction + ">\n" + settings + chunksOf(properties) + "    </" + direction +
         ">\n  </generic>\n</PropertyList>\n";
}

}  // namespace

std::vector<std::string> recordProperties(const Mapping& mapping) {
  std::vector<std::string> names{TimeProperty};
  for (const std::string& name : propertiesOf(mapping.rows)) names.push_back(name);
  return names;
}

std::vector<std::string> streamProperties(const Mapping& mapping) {
  std::vector<MappingRow> streamed;
  std::copy_if(mapping.rows.begin(), mapping.rows.end(), std::back_inserter(streamed),
               [](const MappingRow& row) {
                 return row.direction == Direction::Both && row.route == Route::Stream;
               });
  return propertiesOf(streamed);
}

std::string recordProtocolFile(const Mapping& mapping) {
  return fileOf("output",
                fmt::format("      <binary_mode>true</binary_mode>\n"
                            "      <byte_order>network</byte_order>\n"
                            "      <binary_footer>magic,0x{:08X}</binary_footer>\n",
                            Mark),
                recordProperties(mapping));
}

std::string controlProtocolFile(const Mapping& mapping) {
  return fileOf("input",
                "      <line_separator>newline</line_separator>\n"
                "      <var_separator>tab</var_separator>\n",
                streamProperties(mapping));
}

std::optional<std::vector<double>> valuesFrom(std::string_view record, std::size_t count) {
  if (record.size() != count * sizeof(double) + sizeof Mark) return std::nullopt;
  if (swappedAt<std::uint32_t>(record, count * sizeof(double)) != Mark) return std::nullopt;
  std::vector<double> values(count);
  for (std::size_t i = 0; i < count; ++i)
    values[i] = std::bit_cast<double>(swappedAt<std::uint64_t>(record, i * sizeof(double)));
  return values;
}

std::string recordOf(const std::vector<double>& values) {
  std::string record;
  for (const double value : values) append(record, std::bit_cast<std::uint64_t>(value));
  append(record, Mark);
  return record;
}

std::string controlLine(const std::vector<double>& values) {
  std::string line;
  for (const double value : values)
    line += fmt::format("{}{:.7f}", line.empty() ? "" : "\t", value);
  return line + "\n";
}

}  // namespace vorlent
