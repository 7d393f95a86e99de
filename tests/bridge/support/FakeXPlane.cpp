#include "bridge/support/FakeXPlane.h"

#include <cstring>
#include <stdexcept>

namespace vorlent {
namespace {

constexpr std::size_t MostInAPacket = 183;

template <class T>
void put(std::string& bytes, T value) {
  bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

template <class T>
T get(const std::string& bytes, std::size_t at) {
  T value;
  std::memcpy(&value, bytes.data() + at, sizeof value);
  return value;
}

std::string nameAt(const std::string& bytes, std::size_t at) { return bytes.c_str() + at; }

void expectSize(const std::string& bytes, std::size_t size) {
  if (bytes.size() != size)
    throw std::runtime_error(bytes.substr(0, 4) + " of " + std::to_string(bytes.size()));
}

}  // namespace

void FakeXPlane::start(const std::string& aircraft) {
  asked_.clear();
  sendsPosition_ = false;
  latitude_deg = 45;
  longitude_deg = -90;
  elevation_m = 1524;
  values = {
      {"sim/flightmodel/position/true_psi", 270.0F},
      {"sim/flightmodel/position/mag_psi", 273.0F},
      {"sim/flightmodel/position/groundspeed", 130.0F},
      {"sim/flightmodel/position/true_airspeed", 129.0F},
      {"sim/flightmodel/position/indicated_airspeed", 250.0F},
      {"sim/flightmodel/position/vh_ind", -3.0F},
      {"sim/flightmodel/misc/machno", 0.41F},
      {"sim/aircraft/view/acf_Vmo", 340.0F},
      {"sim/aircraft/engine/acf_num_engines", 2.0F},
      {"sim/flightmodel/engine/ENGN_running[0]", 1.0F},
      {"sim/flightmodel/engine/ENGN_running[1]", 1.0F},
      {"sim/flightmodel2/engines/N1_percent[0]", 62.5F},
      {"sim/cockpit2/engine/actuators/throttle_ratio[0]", 0.5F},
      {"sim/cockpit2/engine/actuators/throttle_ratio[1]", 0.5F},
      {"sim/flightmodel/weight/m_total", 54431.0F},
      {"sim/cockpit2/gauges/actuators/barometer_setting_in_hg_pilot", 29.92F},
      {"sim/cockpit2/controls/gear_handle_down", 1.0F},
      {"sim/cockpit/radios/nav1_freq_hz", 11030.0F},
      {"sim/cockpit2/clock_timer/zulu_time_hours", 12.0F},
      {"sim/cockpit2/autopilot/altitude_dial_ft", 5000.0F},
  };
  for (std::size_t i = 0; i < 4; ++i)
    values["sim/aircraft/view/acf_ICAO[" + std::to_string(i) + "]"] =
        i < aircraft.size() ? static_cast<float>(aircraft[i]) : 0.0F;
}

std::string FakeXPlane::beacon(std::uint16_t port, std::uint32_t role) const {
  std::string bytes("BECN\0\1\2", 7);
  put<std::int32_t>(bytes, 1);
  put<std::int32_t>(bytes, 120105);
  put(bytes, role);
  put(bytes, port);
  return bytes + "cockpit" + '\0';
}

void FakeXPlane::takeDatagram(const std::string& bytes) {
  const std::string kind(bytes.c_str());
  if (kind == "RREF") {
    expectSize(bytes, 413);
    ++requests;
    const auto index = get<std::int32_t>(bytes, 9);
    if (get<std::int32_t>(bytes, 5) == 0)
      asked_.erase(index);
    else
      asked_[index] = nameAt(bytes, 13);
  } else if (kind == "RPOS") {
    sendsPosition_ = std::stoi(nameAt(bytes, 5)) > 0;
  } else if (kind == "DREF") {
    expectSize(bytes, 509);
    values[nameAt(bytes, 9)] = get<float>(bytes, 5);
  } else if (kind == "CMND") {
    commands.push_back(nameAt(bytes, 5));
  } else {
    throw std::runtime_error("X-Plane knows no " + kind);
  }
}

std::vector<std::string> FakeXPlane::frame() {
  std::vector<std::string> packets;
  if (sendsPosition_) {
    std::string& position = packets.emplace_back("RPOS4");
    for (const double number : {longitude_deg, latitude_deg, elevation_m}) put(position, number);
    for (const float number : {1424.0F, 2.5F, 270.0F, -15.0F, 0.F, 0.F, 0.F, 0.F, 0.F, 0.F})
      put(position, number);
  }
  std::size_t inPacket = MostInAPacket;
  for (const auto& [index, name] : asked_) {
    if (inPacket++ == MostInAPacket) packets.emplace_back("RREF,"), inPacket = 1;
    put(packets.back(), index);
    put(packets.back(), values[name]);
  }
  return packets;
}

}  // namespace vorlent
