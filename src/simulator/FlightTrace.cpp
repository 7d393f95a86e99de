#include "simulator/FlightTrace.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "base/simulatorUnits.h"
#include "base/units.h"

namespace vorlent {
namespace {

constexpr std::size_t PauseOffset = 0x0264;

/// The aircraft at the moment of a row.
struct Moment {
  double time_s;
  const AircraftState& state;
  const OffsetMemory& memory;

  double control(std::size_t offset) const {
    return memory.read<std::int16_t>(offset) / double{FullTravel};
  }
  double degrees(std::size_t offset) const {
    return memory.read<double>(offset) / RadiansPerDegree;
  }
};

struct Column {
  std::string_view name;
  int decimals;
  double (*value)(const Moment& moment);
};

double knots(double speed_m_s) { return speed_m_s / MetresPerSecondPerKnot; }
double feet(double length_m) { return length_m / MetresPerFoot; }

/// Each tank has its level, and behind it its capacity in US gallons; the
/// density is in 256ths of a pound per gallon.
double fuel_lb(const OffsetMemory& memory) {
  double sum_gal = 0;
  for (std::size_t tank = 0x0B74; tank <= 0x0BA4; tank += 8)
    sum_gal += memory.read<std::uint32_t>(tank) / FullTank * memory.read<std::uint32_t>(tank + 4);
  return sum_gal * memory.read<std::uint16_t>(0x0AF4) / 256;
}

// clang-format off
constexpr std::array Columns{
    Column{"time_s", 1, [](const Moment& m) { return m.time_s; }},
    Column{"latitude_deg", 7, [](const Moment& m) { return m.state.place.latitude_deg; }},
    Column{"longitude_deg", 7, [](const Moment& m) { return m.state.place.longitude_deg; }},
    Column{"altitude_ft", 2, [](const Moment& m) { return feet(m.state.altitude_m); }},
    Column{"ground_ft", 2, [](const Moment& m) { return feet(m.state.groundElevation_m); }},
    Column{"on_ground", 0, [](const Moment& m) { return m.state.onGround ? 1.0 : 0.0; }},
    Column{"pitch_deg", 4, [](const Moment& m) { return m.state.pitch_deg; }},
    Column{"bank_right_deg", 4, [](const Moment& m) { return m.state.bank_deg; }},
    Column{"true_heading_deg", 4, [](const Moment& m) { return m.state.heading_deg; }},
    Column{"true_track_deg", 4, [](const Moment& m) { return m.state.track_deg; }},
    Column{"turn_rate_deg_s", 4, [](const Moment& m) { return m.state.turnRate_deg_s; }},
    Column{"calibrated_airspeed_kt", 3, [](const Moment& m) { return knots(m.state.calibratedAirspeed_m_s); }},
    Column{"true_airspeed_kt", 3, [](const Moment& m) { return knots(m.state.trueAirspeed_m_s); }},
    Column{"mach", 5, [](const Moment& m) { return m.state.mach; }},
    Column{"ground_speed_kt", 3, [](const Moment& m) { return knots(m.state.groundSpeed_m_s); }},
    Column{"vertical_speed_ft_min", 2, [](const Moment& m) { return m.state.verticalSpeed_m_s / MetresPerSecondPerFpm; }},
    Column{"angle_of_attack_deg", 4, [](const Moment& m) { return m.state.angleOfAttack_deg; }},
    Column{"load_factor_g", 4, [](const Moment& m) { return m.state.loadFactor; }},
    Column{"side_load_g", 4, [](const Moment& m) { return m.state.slip; }},
    Column{"elevator_share", 4, [](const Moment& m) { return m.control(0x0BB2); }},
    Column{"aileron_share", 4, [](const Moment& m) { return m.control(0x0BB6); }},
    Column{"rudder_share", 4, [](const Moment& m) { return m.control(0x0BBA); }},
    Column{"elevator_trim_share", 5, [](const Moment& m) { return m.control(0x0BC0); }},
    Column{"aileron_trim_deg", 4, [](const Moment& m) { return m.degrees(0x2EB0); }},
    Column{"rudder_trim_deg", 4, [](const Moment& m) { return m.degrees(0x2EC0); }},
    Column{"left_lever_pct", 2, [](const Moment& m) { return 100 * m.control(0x088C); }},
    Column{"right_lever_pct", 2, [](const Moment& m) { return 100 * m.control(0x0924); }},
    Column{"left_n1_pct", 3, [](const Moment& m) { return m.state.engines[0].n1_pct; }},
    Column{"right_n1_pct", 3, [](const Moment& m) { return m.state.engines[1].n1_pct; }},
    Column{"left_thrust_kN", 3, [](const Moment& m) { return m.state.engines[0].thrust_N / 1000; }},
    Column{"right_thrust_kN", 3, [](const Moment& m) { return m.state.engines[1].thrust_N / 1000; }},
    Column{"left_fuel_flow_lb_h", 1, [](const Moment& m) { return m.state.engines[0].fuelFlow_lb_h; }},
    Column{"right_fuel_flow_lb_h", 1, [](const Moment& m) { return m.state.engines[1].fuelFlow_lb_h; }},
    Column{"fuel_lb", 2, [](const Moment& m) { return fuel_lb(m.memory); }},
    Column{"weight_lb", 2, [](const Moment& m) { return m.state.mass_kg / KilogramsPerPound; }},
    Column{"flaps_deg", 2, [](const Moment& m) { return m.state.flaps_deg; }},
    Column{"gear_down_pct", 1, [](const Moment& m) { return 100 * m.state.gearDown; }},
    Column{"spoilers_pct", 1, [](const Moment& m) { return 100 * m.state.spoilers; }},
    Column{"outside_temperature_C", 2, [](const Moment& m) { return m.state.temperature_K - KelvinAtZeroCelsius; }},
    Column{"wind_from_deg", 1, [](const Moment& m) { return m.state.windFrom_deg; }},
    Column{"wind_kt", 2, [](const Moment& m) { return knots(m.state.windSpeed_m_s); }},
};
// clang-format on

/// Digits with a point, whatever the process's locale.
void append(std::string& to, double value, int decimals) {
  std::array<char, 400> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                 std::chars_format::fixed, decimals);
  to.append(text.data(), end.ptr);
}

/// The commas between the values, and the line feed behind the last.
void close(std::string& line) { line.back() = '\n'; }

}  // namespace

FlightTrace::FlightTrace(Aircraft& aircraft, const OffsetMemory& memory, Write write)
    : aircraft_(aircraft), memory_(memory), write_(std::move(write)) {
  for (const Column& column : Columns) row_.append(column.name) += ',';
  close(row_);
  write_(row_);
  writeRow();
}

void FlightTrace::step(double dt_s) {
  if (memory_.read<std::uint8_t>(PauseOffset) != 0) {
    aircraft_.step(dt_s);
    return;
  }
  // A rounding error in the sum of the parts must not put a row off.
  constexpr double Tolerance_s = 1e-9;
  do {
    const double part_s = std::min(dt_s, Interval_s - sinceRow_s_);
    aircraft_.step(part_s);
    dt_s -= part_s;
    sinceRow_s_ += part_s;
    if (sinceRow_s_ < Interval_s - Tolerance_s) continue;
    sinceRow_s_ -= Interval_s;
    writeRow();
  } while (dt_s > 0);
}

void FlightTrace::writeRow() {
  const AircraftState shown = aircraft_.state();
  const Moment moment{static_cast<double>(rows_++) * Interval_s, shown, memory_};
  row_.clear();
  for (const Column& column : Columns) {
    append(row_, column.value(moment), column.decimals);
    row_ += ',';
  }
  close(row_);
  write_(row_);
}

}  // namespace vorlent
