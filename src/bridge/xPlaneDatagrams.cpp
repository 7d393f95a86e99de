#include "bridge/xPlaneDatagrams.h"

#include "base/bytes.h"

namespace vorlent {
namespace {

constexpr std::size_t HeaderSize = 5;
constexpr std::size_t ReadingSize = 8;
constexpr std::size_t PositionSize = HeaderSize + 3 * sizeof(double) + 10 * sizeof(float);
constexpr std::size_t BeaconSize = HeaderSize + 16;
constexpr std::size_t RequestName = 400;
constexpr std::size_t WriteName = 500;

bool begins(std::string_view datagram, std::string_view name) {
  return datagram.size() >= HeaderSize && datagram.starts_with(name);
}

template <class T>
T numberAt(std::string_view datagram, std::size_t at) {
  return load<T>(datagram.data() + at);
}

std::string headed(const char* name) { return std::string(name) + '\0'; }

template <class T>
void append(std::string& datagram, T value) {
  datagram.append(reinterpret_cast<const char*>(&value), sizeof value);
}

/// At least one zero closes the name.
void appendName(std::string& datagram, const std::string& name, std::size_t size) {
  datagram += name.substr(0, size - 1);
  datagram.append(size - std::min(name.size(), size - 1), '\0');
}

}  // namespace

std::optional<Beacon> beaconFrom(std::string_view datagram) {
  if (!begins(datagram, "BECN") || datagram.size() < BeaconSize) return std::nullopt;
  const auto major = numberAt<std::uint8_t>(datagram, 5);
  const auto application = numberAt<std::int32_t>(datagram, 7);
  const auto role = numberAt<std::uint32_t>(datagram, 15);
  const Beacon beacon{numberAt<std::int32_t>(datagram, 11), numberAt<std::uint16_t>(datagram, 19)};
  constexpr int XPlane = 1;
  constexpr unsigned Master = 1;
  if (major != 1 || application != XPlane || role != Master || beacon.port == 0)
    return std::nullopt;
  return beacon;
}

std::optional<std::vector<Reading>> readingsFrom(std::string_view datagram) {
  if (!begins(datagram, "RREF")) return std::nullopt;
  const std::string_view pairs = datagram.substr(HeaderSize);
  if (pairs.empty() || pairs.size() % ReadingSize != 0) return std::nullopt;
  std::vector<Reading> readings(pairs.size() / ReadingSize);
  for (std::size_t i = 0; i < readings.size(); ++i)
    readings[i] = {numberAt<std::int32_t>(pairs, i * ReadingSize),
                   numberAt<float>(pairs, i * ReadingSize + sizeof(std::int32_t))};
  return readings;
}

std::optional<AircraftPosition> positionFrom(std::string_view datagram) {
  if (!begins(datagram, "RPOS") || datagram.size() != PositionSize) return std::nullopt;
  const auto wide = [&](std::size_t i) { return numberAt<double>(datagram, HeaderSize + 8 * i); };
  const auto narrow = [&](std::size_t i) {
    return numberAt<float>(datagram, HeaderSize + 3 * sizeof(double) + sizeof(float) * i);
  };
  return AircraftPosition{wide(0), wide(1), wide(2), narrow(0), narrow(1), narrow(2), narrow(3)};
}

std::string readingRequest(std::int32_t perSecond, std::int32_t index, const std::string& dataref) {
  std::string datagram = headed("RREF");
  append(datagram, perSecond);
  append(datagram, index);
  appendName(datagram, dataref, RequestName);
  return datagram;
}

std::string positionRequest(int perSecond) {
  return headed("RPOS") + std::to_string(perSecond) + '\0';
}

std::string datarefWrite(const std::string& dataref, float value) {
  std::string datagram = headed("DREF");
  append(datagram, value);
  appendName(datagram, dataref, WriteName);
  return datagram;
}

std::string commandRequest(const std::string& command) { return headed("CMND") + command + '\0'; }

}  // namespace vorlent
