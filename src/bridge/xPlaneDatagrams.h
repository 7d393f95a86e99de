#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// X-Plane's datagrams, as "Exchanging Data with X-Plane" tells them: a name of four letters, one
/// more byte, and little-endian numbers without gaps.
namespace vorlent {

/// Where X-Plane tells of itself.
inline constexpr const char* BeaconGroup = "239.255.1.1";
inline constexpr std::uint16_t BeaconPort = 49707;
/// Where X-Plane listens unless its beacon says otherwise.
inline constexpr std::uint16_t CommandPort = 49000;

struct Beacon {
  std::int32_t version = 0;  ///< 115501 is 11.55
  std::uint16_t port = 0;
};

struct Reading {
  std::int32_t index = 0;
  float value = 0;
};

struct AircraftPosition {
  double longitude_deg = 0;
  double latitude_deg = 0;
  double elevation_m = 0;
  float height_m = 0;  ///< above the ground
  float pitch_deg = 0;
  float heading_deg = 0;  ///< true
  float roll_deg = 0;
};

/// Of an X-Plane that flies its own aircraft; nothing for any other datagram.
std::optional<Beacon> beaconFrom(std::string_view datagram);
/// Nothing when the datagram is no whole answer.
std::optional<std::vector<Reading>> readingsFrom(std::string_view datagram);
std::optional<AircraftPosition> positionFrom(std::string_view datagram);

/// 413 bytes. A rate of 0 ends it.
std::string readingRequest(std::int32_t perSecond, std::int32_t index, const std::string& dataref);
std::string positionRequest(int perSecond);
/// 509 bytes.
std::string datarefWrite(const std::string& dataref, float value);
std::string commandRequest(const std::string& command);

}  // namespace vorlent
