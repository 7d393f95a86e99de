#include "simulator/OffsetWriter.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "base/simulatorUnits.h"
#include "base/units.h"
#include "simulator/Encoding.h"

namespace vorlent {
namespace {

constexpr double FullFlaps_deg = 40;

double knots(double speed_m_s) { return speed_m_s / MetresPerSecondPerKnot; }
double celsius(double temperature_K) { return temperature_K - KelvinAtZeroCelsius; }
double fahrenheit(double temperature_C) { return temperature_C * 1.8 + 32; }
double rankine(double temperature_C) { return (temperature_C + KelvinAtZeroCelsius) * 1.8; }

/// Whole units in the upper 32 bits, the fraction in the lower ones.
void writeFixedPoint(OffsetMemory& memory, std::size_t offset, double units) {
  memory.write<std::int64_t>(offset, std::llround(finite(units) * FixedPoint));
}

void writePosition(OffsetMemory& memory, const AircraftState& state, const OffsetScales& scales) {
  writeFixedPoint(memory, 0x0560, state.place.latitude_deg * scales.latitude_deg);
  writeFixedPoint(memory, 0x0568, state.place.longitude_deg * FixedPoint / 360);
  writeFixedPoint(memory, 0x0570, state.altitude_m * scales.altitude_m);
  writeRounded<std::int16_t>(memory, 0x0B4C, state.groundElevation_m);
  memory.write<std::uint16_t>(0x0366, state.onGround ? 1 : 0);
  memory.write(0x02A0, angle16(state.magneticVariation_deg));
}

void writeAttitude(OffsetMemory& memory, const AircraftState& state) {
  memory.write(0x0578, angle32(-state.pitch_deg));  // nose down is positive
  memory.write(0x057C, angle32(-state.bank_deg));   // left is positive
  memory.write(0x0580, angle32(state.heading_deg));
  // The ball falls to the side that the load leaves: full deflection at an eighth of G.
  constexpr double BallPerG = 8 * 127;
  writeRounded<std::int8_t>(memory, 0x036E, std::clamp(-state.slip * BallPerG, -128.0, 127.0));
  constexpr double UnitsPerStandardTurn = 512;
  constexpr double StandardTurn_deg_s = 3;
  writeRounded<std::int16_t>(memory, 0x037C,
                             state.turnRate_deg_s * UnitsPerStandardTurn / StandardTurn_deg_s);
}

void writeSpeeds(OffsetMemory& memory, const AircraftState& state, const OffsetScales& scales) {
  writeRounded<std::uint32_t>(memory, 0x02B4, state.groundSpeed_m_s * scales.groundSpeed_m_s);
  writeRounded<std::uint32_t>(memory, 0x02B8, knots(state.trueAirspeed_m_s) * 128);
  writeRounded<std::uint32_t>(memory, 0x02BC, knots(state.calibratedAirspeed_m_s) * 128);
  writeRounded<std::uint32_t>(memory, 0x02C4, knots(state.limitSpeed_m_s) * 128);
  writeRounded<std::int32_t>(memory, 0x02C8, state.verticalSpeed_m_s * scales.verticalSpeed_m_s);
  writeRounded<std::uint16_t>(memory, 0x11C6, state.mach * 20480);
  writeRounded<std::int16_t>(memory, 0x11BA, state.loadFactor * 625);
  memory.write(0x11BE, angle16(180 - state.angleOfAttack_deg));
}

void writeAir(OffsetMemory& memory, const AircraftState& state, const OffsetScales& scales) {
  writeRounded<std::int16_t>(memory, 0x0E8C, celsius(state.temperature_K) * 256);
  writeRounded<std::int16_t>(memory, 0x11D0, celsius(state.totalTemperature_K) * 256);
  writeRounded<std::uint16_t>(memory, 0x0E90, knots(state.windSpeed_m_s));
  memory.write(0x0E92, angle16(state.windFrom_deg));
  writeRounded<std::uint16_t>(memory, 0x0EEE, state.surfaceWindTop_m * scales.windLayer_m);
  writeRounded<std::uint16_t>(memory, 0x0EC6, state.seaLevelPressure_hPa * 16);
}

void writeConfiguration(OffsetMemory& memory, const AircraftState& state) {
  const double flaps = state.flaps_deg / FullFlaps_deg * FullTravel;
  for (const std::size_t offset : {0x0BE0U, 0x0BE4U})
    writeRounded<std::uint32_t>(memory, offset, flaps);
  for (const std::size_t offset : {0x0BECU, 0x0BF0U, 0x0BF4U})
    writeRounded<std::uint32_t>(memory, offset, state.gearDown * FullTravel);
  for (const std::size_t offset : {0x0BD4U, 0x0BD8U})
    writeRounded<std::uint32_t>(memory, offset, state.spoilers * FullTravel);
  memory.write(0x30C0, finite(state.mass_kg / KilogramsPerPound));
}

/// The block of words of an engine, 0x98 bytes for each.
void writeEngineWords(OffsetMemory& memory, std::size_t base, const EngineState& engine) {
  memory.write<std::uint16_t>(base + 0x08, engine.running ? 1 : 0);
  memory.write(base + 0x0A, percent16(engine.n2_pct));
  memory.write(base + 0x0C, percent16(engine.n1_pct));
  writeRounded<std::uint16_t>(memory, base + 0x1C, engine.pressureRatio * FullScale / 16);
  writeRounded<std::int16_t>(memory, base + 0x2C, engine.oilTemperature_C * FullScale / 140);
  writeRounded<std::uint16_t>(memory, base + 0x2E, engine.oilPressure_psi * FullScale / 55);
  // No sign here: below zero Fahrenheit, as in an engine that is out in the cold, it shows zero.
  writeRounded<std::uint16_t>(memory, base + 0x32,
                              std::max(0.0, fahrenheit(engine.exhaustGas_C)) * FullScale / 860);
  memory.write(base + 0x44, percent16(engine.oilQuantity_pct));
  writeRounded<std::uint16_t>(memory, base + 0x48, engine.vibration * FullScale / 5);
  writeRounded<std::uint16_t>(memory, base + 0x4C, engine.hydraulicPressure_psi * 4);
  memory.write(base + 0x50, percent16(engine.hydraulicQuantity_pct));
  // Three words that are only forwarded: they show the engine's power, so that they move.
  for (const std::size_t word : {0x34U, 0x6CU, 0x7CU})
    memory.write(base + word, percent16(engine.n1_pct));
}

void writeEngineDoubles(OffsetMemory& memory, std::size_t index, const EngineState& engine) {
  const std::size_t turbine = 0x2000 + 0x100 * index;
  memory.write(turbine + 0x00, finite(engine.n1_pct));
  memory.write(turbine + 0x08, finite(engine.n2_pct));
  memory.write(turbine + 0x10, finite(engine.n1_pct));
  memory.write(turbine + 0x18, finite(engine.n2_pct));
  memory.write(turbine + 0x20, finite(engine.fuelFlow_lb_h));
  memory.write(turbine + 0x30, finite(engine.pressureRatio));
  memory.write(turbine + 0x38, finite(rankine(engine.exhaustGas_C)));
  memory.write(turbine + 0x60, finite(engine.fuelFlow_lb_h));
  memory.write(0x0918 + 0x98 * index, finite(engine.fuelFlow_lb_h));
  memory.write(0x3B70 - 0xC0 * index, finite(rankine(engine.exhaustGas_C)));
}

void writeEngines(OffsetMemory& memory, const AircraftState& state) {
  std::uint8_t combustion = 0;
  for (std::size_t i = 0; i < EngineCount; ++i) {
    writeEngineWords(memory, 0x088C + 0x98 * i, state.engines[i]);
    writeEngineDoubles(memory, i, state.engines[i]);
    if (state.engines[i].running) combustion = static_cast<std::uint8_t>(combustion | 1U << i);
  }
  memory.write(0x0889, combustion);
}

void writeTime(OffsetMemory& memory, const AircraftState& state) {
  constexpr int StartOfFlight_s = 12 * 3600;  // noon UTC
  constexpr int LocalAhead_h = 1;
  const int now_s = (StartOfFlight_s + rounded<int>(std::floor(state.elapsed_s))) % 86400;
  const auto second = static_cast<std::uint8_t>(now_s % 60);
  const auto minute = static_cast<std::uint8_t>(now_s / 60 % 60);
  const auto hourUtc = static_cast<std::uint8_t>(now_s / 3600);
  const auto hour = static_cast<std::uint8_t>((hourUtc + LocalAhead_h) % 24);
  const std::array<std::uint8_t, 5> clock{hour, minute, second, hourUtc, minute};
  memory.copyIn(0x0238, std::as_bytes(std::span(clock)));
  constexpr std::size_t FieldSize = 9;
  writeText(memory, 0x0C20, FieldSize, fmt::format("{:02}:{:02}:{:02}", hour, minute, second));
}

}  // namespace

void writeAircraftState(OffsetMemory& memory, const AircraftState& state,
                        const OffsetScales& scales) {
  writePosition(memory, state, scales);
  writeAttitude(memory, state);
  writeSpeeds(memory, state, scales);
  writeAir(memory, state, scales);
  writeConfiguration(memory, state);
  writeEngines(memory, state);
  writeTime(memory, state);
}

}  // namespace vorlent
