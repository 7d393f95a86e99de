#pragma once

#include <cmath>
#include <cstdint>
#include <numbers>

#include "simulator/OffsetMemory.h"

namespace vorlent {

/// What a reader of the offsets makes of them, by rules of its own.
struct FlightSample {
  double latitude_deg, longitude_deg, altitude_m, groundElevation_m;
  double pitchUp_deg, bankRight_deg, heading_deg, turnRate_deg_s, angleOfAttack_deg;
  double groundSpeed_m_s, trueAirspeed_kt, indicated_kt, barberPole_kt, mach;
  double verticalSpeed_m_s, load;
  double outside_C, total_C, wind_kt, windFrom_deg;
  double n1_pct, n2_pct, fuelFlow_lb_h, exhaust_C, exhaustWord_C, lever_pct;
  double fuel_lb, weight_lb;
  double flaps, gear, spoilers;
  bool onGround;
  int utc_s;
};

inline double turns(std::uint32_t value, double full) { return value * 360.0 / full; }

inline FlightSample sampleOf(const OffsetMemory& memory) {
  const auto u8 = [&](std::size_t at) { return memory.read<std::uint8_t>(at); };
  const auto u16 = [&](std::size_t at) { return memory.read<std::uint16_t>(at); };
  const auto s16 = [&](std::size_t at) { return memory.read<std::int16_t>(at); };
  const auto u32 = [&](std::size_t at) { return memory.read<std::uint32_t>(at); };
  const auto s32 = [&](std::size_t at) { return memory.read<std::int32_t>(at); };
  const auto s64 = [&](std::size_t at) {
    return static_cast<double>(memory.read<std::int64_t>(at));
  };
  const auto d = [&](std::size_t at) { return memory.read<double>(at); };
  FlightSample s{};
  s.latitude_deg = s64(0x0560) / 4294967296.0 * 90 / 10001750;
  s.longitude_deg = s64(0x0568) / 4294967296.0 * 360 / 4294967296.0;
  s.altitude_m = s64(0x0570) / 4294967296.0;
  s.groundElevation_m = s16(0x0B4C);
  s.pitchUp_deg = -s32(0x0578) * 360.0 / 4294967296.0;
  s.bankRight_deg = -s32(0x057C) * 360.0 / 4294967296.0;
  s.heading_deg = turns(u32(0x0580), 4294967296.0);
  s.turnRate_deg_s = s16(0x037C) * 3.0 / 512;
  s.angleOfAttack_deg = 180 - turns(u16(0x11BE), 65536);
  s.groundSpeed_m_s = u32(0x02B4) / 65536.0;
  s.trueAirspeed_kt = u32(0x02B8) / 128.0;
  s.indicated_kt = u32(0x02BC) / 128.0;
  s.barberPole_kt = u16(0x02C4) / 128.0;
  s.mach = u16(0x11C6) / 20480.0;
  s.verticalSpeed_m_s = s32(0x02C8) / 256.0;
  s.load = u16(0x11BA) / 625.0;
  s.outside_C = s16(0x0E8C) / 256.0;
  s.total_C = s16(0x11D0) / 256.0;
  s.wind_kt = u16(0x0E90);
  s.windFrom_deg = turns(u16(0x0E92), 65536);
  s.n1_pct = u16(0x0898) / 163.84;
  s.n2_pct = u16(0x0896) / 163.84;
  s.fuelFlow_lb_h = d(0x0918) + d(0x09B0);
  s.exhaust_C = (d(0x3B70) - 491.67) / 1.8;
  s.exhaustWord_C = (u16(0x08BE) * 860.0 / 16384 - 32) / 1.8;
  s.lever_pct = u16(0x088C) / 163.84;
  for (std::size_t tank = 0x0B74; tank <= 0x0BA4; tank += 8)
    s.fuel_lb += u32(tank) / 8388608.0 * u32(tank + 4) * u16(0x0AF4) / 256;
  s.weight_lb = d(0x30C0);
  s.flaps = u32(0x0BE0);
  s.gear = u32(0x0BEC);
  s.spoilers = u32(0x0BD4);
  s.onGround = u16(0x0366) != 0;
  s.utc_s = u8(0x023B) * 3600 + u8(0x023C) * 60 + u8(0x023A);
  return s;
}

}  // namespace vorlent
