#include "simulator/FlightTrace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <sstream>
#include <vector>

#include "simulator/FlightSample.h"
#include "simulator/RoundTrip.h"
#include "simulator/dynamics/TwinJet.h"

namespace vorlent {
namespace {

using Row = std::map<std::string, double>;

std::vector<std::string> fieldsOf(const std::string& line) {
  std::vector<std::string> fields;
  std::istringstream in(line);
  for (std::string field; std::getline(in, field, ',');) fields.push_back(field);
  return fields;
}

/// The rows of a trace by the names of its columns.
std::vector<Row> rowsOf(const std::string& trace) {
  std::istringstream in(trace);
  std::string line;
  std::getline(in, line);
  const std::vector<std::string> names = fieldsOf(line);
  std::vector<Row> rows;
  while (std::getline(in, line)) {
    const std::vector<std::string> fields = fieldsOf(line);
    EXPECT_EQ(fields.size(), names.size());
    Row& row = rows.emplace_back();
    for (std::size_t i = 0; i < names.size(); ++i) row[names[i]] = std::stod(fields[i]);
  }
  return rows;
}

/// An aircraft that is traced from its start.
struct Traced {
  explicit Traced(const TwinJet::Settings& settings)
      : aircraft(std::make_unique<TwinJet>(memory, settings)) {}
  Traced() : aircraft(std::make_unique<ScriptedFlight>(memory, roundTrip())) {}

  void fly(int steps, double step_s) {
    for (int i = 0; i < steps; ++i) trace.step(step_s);
  }

  OffsetMemory memory;
  std::unique_ptr<Aircraft> aircraft;
  std::string text;
  FlightTrace trace{*aircraft, memory, [this](std::string_view line) { text += line; }};
};

TwinJet::Settings roughAir(unsigned seed) {
  TwinJet::Settings settings;
  settings.start = StartingState::Final;
  settings.wind = {210, 20, Turbulence::Moderate, seed};
  return settings;
}

std::string roughFlight(unsigned seed, int steps, double step_s) {
  Traced flight(roughAir(seed));
  flight.fly(steps, step_s);
  return flight.text;
}

TEST(FlightTrace, TheSameSeedGivesTheSameBytesHoweverTimeIsCut) {
  const std::string flight = roughFlight(7, 600, 0.1);
  EXPECT_EQ(roughFlight(7, 600, 0.1), flight);
  EXPECT_EQ(roughFlight(7, 7500, 0.008), flight);
  EXPECT_EQ(roughFlight(7, 60, 1), flight);
  EXPECT_EQ(roughFlight(7, 1, 60), flight);
  EXPECT_EQ(std::count(flight.begin(), flight.end(), '\n'), 602);
}

TEST(FlightTrace, AnotherSeedIsAnotherFlight) {
  EXPECT_NE(roughFlight(7, 10, 1), roughFlight(8, 10, 1));
}

TEST(FlightTrace, HasARowAtTheStartAndAfterEveryTenthOfASecond) {
  Traced flight((TwinJet::Settings()));
  EXPECT_EQ(rowsOf(flight.text).size(), 1U);
  flight.fly(40, 0.033);  // 1.32 s
  const std::vector<Row> rows = rowsOf(flight.text);
  ASSERT_EQ(rows.size(), 14U);
  for (std::size_t i = 0; i < rows.size(); ++i)
    EXPECT_NEAR(rows[i].at("time_s"), static_cast<double>(i) / 10, 1e-9);
}

TEST(FlightTrace, TimeInPauseIsNoFlight) {
  Traced flight((TwinJet::Settings()));
  flight.fly(10, 0.1);
  flight.memory.write<std::uint8_t>(0x0264, 1);
  flight.fly(10, 0.1);
  EXPECT_EQ(rowsOf(flight.text).size(), 11U);
  flight.memory.write<std::uint8_t>(0x0264, 0);
  flight.fly(10, 0.1);
  EXPECT_EQ(rowsOf(flight.text).size(), 21U);
}

TEST(FlightTrace, TheAircraftFliesAsIfItWereNotTraced) {
  Traced traced(roughAir(3));
  traced.fly(100, 0.03);
  OffsetMemory memory;
  TwinJet alone(memory, roughAir(3));
  for (int i = 0; i < 100; ++i) alone.step(0.03);
  std::vector<std::byte> expected(OffsetMemory::Size);
  memory.copyOut(0, expected);
  std::vector<std::byte> found(OffsetMemory::Size);
  traced.memory.copyOut(0, found);
  EXPECT_EQ(found, expected);
}

// In the offsets a value has the step of its scale, such as a whole knot of wind.
TEST(FlightTrace, ShowsWhatTheOffsetsShow) {
  Traced flight(roughAir(5));
  flight.memory.write<std::int16_t>(0x0BB6, 1638);
  flight.memory.write<std::int16_t>(0x088C, 9830);
  flight.fly(50, 0.1);
  const Row row = rowsOf(flight.text).back();
  const FlightSample s = sampleOf(flight.memory);
  EXPECT_NEAR(row.at("latitude_deg"), s.latitude_deg, 1e-6);
  EXPECT_NEAR(row.at("longitude_deg"), s.longitude_deg, 1e-6);
  EXPECT_NEAR(row.at("altitude_ft"), s.altitude_m / 0.3048, 0.01);
  EXPECT_NEAR(row.at("ground_ft"), s.groundElevation_m / 0.3048, 0.01);
  EXPECT_EQ(row.at("on_ground"), 0);
  EXPECT_NEAR(row.at("pitch_deg"), s.pitchUp_deg, 1e-4);
  EXPECT_NEAR(row.at("bank_right_deg"), s.bankRight_deg, 1e-4);
  EXPECT_GT(s.bankRight_deg, 5);
  EXPECT_NEAR(row.at("true_heading_deg"), s.heading_deg, 1e-4);
  EXPECT_NEAR(row.at("turn_rate_deg_s"), s.turnRate_deg_s, 0.006);
  EXPECT_NEAR(row.at("calibrated_airspeed_kt"), s.indicated_kt, 0.01);
  EXPECT_NEAR(row.at("true_airspeed_kt"), s.trueAirspeed_kt, 0.01);
  EXPECT_NEAR(row.at("mach"), s.mach, 1e-4);
  EXPECT_NEAR(row.at("ground_speed_kt") * 1852 / 3600, s.groundSpeed_m_s, 0.001);
  EXPECT_NEAR(row.at("vertical_speed_ft_min") * 0.3048 / 60, s.verticalSpeed_m_s, 0.003);
  EXPECT_NEAR(row.at("angle_of_attack_deg"), s.angleOfAttack_deg, 0.004);
  EXPECT_NEAR(row.at("load_factor_g"), s.load, 0.001);
  EXPECT_NEAR(row.at("left_n1_pct"), s.n1_pct, 0.005);
  EXPECT_NEAR(row.at("left_fuel_flow_lb_h") + row.at("right_fuel_flow_lb_h"), s.fuelFlow_lb_h,
              0.11);
  EXPECT_NEAR(row.at("fuel_lb"), s.fuel_lb, 0.01);
  EXPECT_NEAR(row.at("weight_lb"), s.weight_lb, 0.01);
  EXPECT_NEAR(row.at("outside_temperature_C"), s.outside_C, 0.01);
  EXPECT_NEAR(row.at("wind_kt"), s.wind_kt, 0.51);
  EXPECT_NEAR(row.at("wind_from_deg"), s.windFrom_deg, 0.1);
}

TEST(FlightTrace, ShowsWhereControlsAndSurfacesStand) {
  Traced flight(roughAir(5));
  const auto write16 = [&](std::size_t at, std::int16_t value) { flight.memory.write(at, value); };
  write16(0x0BB2, -1638);
  write16(0x0BB6, 3277);
  write16(0x0BBA, 4915);
  write16(0x0BC0, -8192);
  flight.memory.write<double>(0x2EB0, 0.0349066);
  flight.memory.write<double>(0x2EC0, -0.0174533);
  write16(0x088C, 8192);
  write16(0x0924, 12287);
  flight.memory.write<std::uint32_t>(0x0BE8, 16383);
  flight.memory.write<std::uint32_t>(0x0BD0, 16383);
  flight.fly(20, 0.1);
  const Row row = rowsOf(flight.text).back();
  EXPECT_NEAR(row.at("elevator_share"), -0.1, 1e-4);
  EXPECT_NEAR(row.at("aileron_share"), 0.2, 1e-4);
  EXPECT_NEAR(row.at("rudder_share"), 0.3, 1e-4);
  EXPECT_NEAR(row.at("elevator_trim_share"), -0.5, 1e-4);
  EXPECT_NEAR(row.at("aileron_trim_deg"), 2, 1e-4);
  EXPECT_NEAR(row.at("rudder_trim_deg"), -1, 1e-4);
  EXPECT_NEAR(row.at("left_lever_pct"), 50, 0.01);
  EXPECT_NEAR(row.at("right_lever_pct"), 75, 0.01);
  EXPECT_NEAR(row.at("flaps_deg"), 15, 0.01);
  EXPECT_NEAR(row.at("gear_down_pct"), 25, 0.5);  // 2 of 8 seconds
  EXPECT_NEAR(row.at("spoilers_pct"), 45, 0.1);   // no ground spoilers in the air
}

TEST(FlightTrace, AScriptedFlightIsTracedToo) {
  Traced flight;
  flight.fly(60, 1);
  const std::vector<Row> rows = rowsOf(flight.text);
  ASSERT_EQ(rows.size(), 601U);
  EXPECT_EQ(rows.front().at("on_ground"), 1);
  EXPECT_EQ(rows.back().at("on_ground"), 0);
  EXPECT_NEAR(rows.back().at("time_s"), 60, 1e-9);
  EXPECT_NEAR(rows.back().at("flaps_deg"), 5, 1e-6);
}

TEST(FlightTrace, TimeGoesOnWhenTheScriptBeginsAgain) {
  Traced flight;
  flight.fly(2060, 1);
  const std::vector<Row> rows = rowsOf(flight.text);
  ASSERT_EQ(rows.size(), 20601U);
  EXPECT_NEAR(rows.back().at("time_s"), 2060, 1e-9);
  EXPECT_EQ(rows.back().at("on_ground"), 1);
}

}  // namespace
}  // namespace vorlent
