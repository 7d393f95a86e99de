#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bridge/Mapping.h"

/// FlightGear's generic protocol, as its README.protocol tells it: a file of properties makes a
/// datagram of their values.
namespace vorlent {

/// The names under which FlightGear finds the files.
inline constexpr const char* RecordProtocol = "vorlent-out";
inline constexpr const char* ControlProtocol = "vorlent-in";
inline constexpr int RecordsPerSecond = 40;

/// What a record holds: the simulator's time, then what the rows name.
std::vector<std::string> recordProperties(const Mapping& mapping);
/// What a datagram to FlightGear sets: all of them at once.
std::vector<std::string> streamProperties(const Mapping& mapping);

std::string recordProtocolFile(const Mapping& mapping);
std::string controlProtocolFile(const Mapping& mapping);

/// The values of a record; nothing when it is not one of `count` values, whole and closed by the
/// mark. Values that are no numbers are as they came.
std::optional<std::vector<double>> valuesFrom(std::string_view record, std::size_t count);
/// The record of these values, as FlightGear makes it.
std::string recordOf(const std::vector<double>& values);
/// The datagram that sets these values.
std::string controlLine(const std::vector<double>& values);

}  // namespace vorlent
