#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "../RoundTrip.h"
#include "base/units.h"
#include "simulator/ScriptedFlight.h"
#include "simulator/dynamics/TwinJet.h"
#include "support/XPlaneServer.h"

// What a server behind XPUIPC shows of an aircraft is how the aircraft is.

namespace vorlent {
namespace {

/// Half of a whole unit, where a variable has no fraction, and a little for how the offset rounds.
constexpr double Half = 0.501;

double knots(double speed_m_s) { return speed_m_s / MetresPerSecondPerKnot; }
double celsius(double temperature_K) { return temperature_K - KelvinAtZeroCelsius; }
double roundAbout(double a_deg, double b_deg) { return std::remainder(a_deg - b_deg, 360); }

class Shown {
 public:
  /// `memory` is what the aircraft lives in.
  const modPublic& polled(const OffsetMemory& memory) {
    for (std::size_t at = 0; at < 0x6FFF; ++at)
      server_.bus.offsets[at] = memory.read<std::uint8_t>(at);
    server_.poll();
    return server_.store;
  }

 private:
  XPlaneServer server_;
};

void expectPlaceAndSpeeds(const modPublic& v, const AircraftState& s) {
  EXPECT_NEAR(v.Latitude, s.place.latitude_deg, 4e-6);
  EXPECT_NEAR(v.Longitude, s.place.longitude_deg, 1e-6);
  EXPECT_NEAR(v.AircraftAltitude, s.altitude_m / MetresPerFoot, 1e-3);
  EXPECT_NEAR(v.RadioAltitude, (s.altitude_m - s.groundElevation_m) / MetresPerFoot, 1.1 + Half);
  EXPECT_NEAR(v.GroundSpeed, knots(s.groundSpeed_m_s), Half);
  EXPECT_NEAR(v.Tas, knots(s.trueAirspeed_m_s), Half);
  EXPECT_NEAR(v.Ias, knots(s.calibratedAirspeed_m_s), 0.005);
  EXPECT_NEAR(v.VerticalSpeed, s.verticalSpeed_m_s / MetresPerSecondPerFpm, Half);
  EXPECT_NEAR(v.Mach, s.mach, 1e-4);
  EXPECT_NEAR(v.OutsideAirTemp, celsius(s.temperature_K), 0.002);
  EXPECT_NEAR(v.TotalAirTemp, celsius(s.totalTemperature_K), 0.002);
  EXPECT_NEAR(v.Word0EEE, s.surfaceWindTop_m / MetresPerFoot, 1.7);
}

void expectAttitude(const modPublic& v, const AircraftState& s) {
  EXPECT_NEAR(v.Pitch, s.pitch_deg, 1e-5);
  EXPECT_NEAR(roundAbout(v.Bank, -s.bank_deg), 0, 3e-5);  // left is positive
  EXPECT_NEAR(roundAbout(v.TrueHeading, s.heading_deg), 0, 3e-5);
  EXPECT_GE(v.TrueHeading, 0);
  EXPECT_NEAR(v.MagVar, s.magneticVariation_deg, 0.003);
  EXPECT_NEAR(v.TurnRate, s.turnRate_deg_s * 512 / 3, Half);
  EXPECT_NEAR(v.AngleOfAttack, s.angleOfAttack_deg, 0.003);
}

void expectEngines(const modPublic& v, const AircraftState& s) {
  for (int n = 1; n <= 2; ++n) {
    const EngineState& e = s.engines[static_cast<std::size_t>(n - 1)];
    EXPECT_NEAR(v.Engines(n).N1, e.n1_pct, 0.004);
    EXPECT_NEAR(v.Engines(n).N2, e.n2_pct, 0.004);
    EXPECT_NEAR(v.Engines(n).Egt, std::max(e.exhaustGas_C, -17.8), 1.1);
    EXPECT_NEAR(v.Engines(n).FuelFlow, e.fuelFlow_lb_h, 1e-6);
    EXPECT_NEAR(v.Engines(n).Epr, e.pressureRatio, 0.001);
    EXPECT_NEAR(v.Engines(n).OilPressure, e.oilPressure_psi, 0.004);
  }
  EXPECT_EQ(v.EngineCombustionBits,
            (s.engines[0].running ? 1 : 0) + (s.engines[1].running ? 2 : 0));
}

void expectConfiguration(const modPublic& v, const AircraftState& s) {
  EXPECT_NEAR(v.FlapsPosition, s.flaps_deg / 40 * 16383, Half);
  EXPECT_EQ(v.FlapsPositionRight, v.FlapsPosition);
  EXPECT_NEAR(v.GearNose, s.gearDown * 16383, Half);
  EXPECT_NEAR(v.GrossWeight, s.mass_kg / KilogramsPerPound, Half);
}

void expectShownAsItIs(const modPublic& v, const AircraftState& s) {
  expectPlaceAndSpeeds(v, s);
  expectAttitude(v, s);
  expectEngines(v, s);
  expectConfiguration(v, s);
}

struct Start {
  const PlantData* plant;
  StartingState state;
};

class XPlaneInstruments : public testing::TestWithParam<Start> {};

TEST_P(XPlaneInstruments, ShowTheAircraftAsItIs) {
  OffsetMemory memory;
  TwinJet::Settings settings;
  settings.plant = GetParam().plant;
  settings.start = GetParam().state;
  settings.scales = XpuipcScales;
  settings.wind = {.from_deg = 300, .speed_kt = 15};
  TwinJet aircraft(memory, settings);
  Shown shown;
  expectShownAsItIs(shown.polled(memory), aircraft.state());
  for (const std::size_t lever : {0x088CU, 0x0924U}) memory.write<std::int16_t>(lever, 16383);
  memory.write<std::int16_t>(0x0BB6, -4000);
  for (int second = 0; second < 40; ++second) {
    aircraft.step(1);
    expectShownAsItIs(shown.polled(memory), aircraft.state());
  }
}

std::vector<Start> everyStart() {
  std::vector<Start> starts;
  for (const PlantData* plant : {&plant737(), &plantHeavyTwin()})
    for (const StartingState state :
         {StartingState::Cold, StartingState::Runway, StartingState::Level, StartingState::Cruise,
          StartingState::Final})
      starts.push_back({plant, state});
  return starts;
}

INSTANTIATE_TEST_SUITE_P(BothPlantsAllStarts, XPlaneInstruments, testing::ValuesIn(everyStart()));

TEST(XPlaneScriptedFlight, IsShownAsItIsFromTheRunwayBackToTheApproach) {
  OffsetMemory memory;
  ScriptedFlight aircraft(memory, roundTrip(), {}, XpuipcScales);
  Shown shown;
  for (int part = 0; part < 200; ++part) {
    aircraft.step(10);
    expectShownAsItIs(shown.polled(memory), aircraft.state());
    if (HasFailure()) FAIL() << "after " << aircraft.state().elapsed_s << " s";
  }
}

TEST(XPlaneSlew, WhatIsWrittenInTheInterfacesScalesIsWhereTheAircraftIs) {
  OffsetMemory memory;
  TwinJet::Settings settings;
  settings.scales = XpuipcScales;
  TwinJet aircraft(memory, settings);
  memory.write<std::uint8_t>(0x05DC, 1);
  aircraft.step(0.1);
  // 6 degrees south: 111130.53125 units each. 10000 ft of 3.28275 to the unit.
  memory.write<std::int64_t>(0x0560, std::int64_t{-666783} << 32);
  memory.write<std::int64_t>(0x0570, std::llround(10000 / 3.28275 * 4294967296.0));
  aircraft.step(0.1);
  EXPECT_NEAR(aircraft.state().place.latitude_deg, -6, 1e-5);
  EXPECT_NEAR(aircraft.state().altitude_m, 3048, 0.01);
}

}  // namespace
}  // namespace vorlent
