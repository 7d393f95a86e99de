#include "simulator/ScriptedFlight.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "simulator/FlightSample.h"
#include "simulator/RoundTrip.h"

namespace vorlent {
namespace {

constexpr double degree = std::numbers::pi / 180;
constexpr double knot_m_s = 1852.0 / 3600;
constexpr double earth_m = 6371008.8;
constexpr int flight_s = 2055;

double folded(double angle_deg) { return std::remainder(angle_deg, 360); }

/// One flight, a sample each second.
const std::vector<FlightSample>& flight() {
  static const std::vector<FlightSample> samples = [] {
    auto memory = std::make_unique<OffsetMemory>();
    ScriptedFlight aircraft(*memory, roundTrip());
    std::vector<FlightSample> found;
    for (int second = 0; second < flight_s; ++second) {
      found.push_back(sampleOf(*memory));
      aircraft.step(1);
    }
    return found;
  }();
  return samples;
}

/// The standard atmosphere below 11 km, written apart from the aircraft's.
double temperatureAt(double altitude_m) { return 288.15 - 0.0065 * altitude_m; }
double pressureRatioAt(double altitude_m) {
  return std::pow(temperatureAt(altitude_m) / 288.15, 5.25588);
}

template <class Check>
void forEachSecond(Check check) {
  for (std::size_t i = 1; i < flight().size(); ++i) {
    check(flight()[i - 1], flight()[i]);
    if (testing::Test::HasFailure()) FAIL() << "in second " << i;
  }
}

TEST(ScriptedFlight, TemperatureIsThatOfTheStandardAtmosphere) {
  forEachSecond([](const FlightSample&, const FlightSample& s) {
    EXPECT_NEAR(s.outside_C, temperatureAt(s.altitude_m) - 273.15, 0.003);
  });
}

TEST(ScriptedFlight, TotalTemperatureFollowsFromMach) {
  forEachSecond([](const FlightSample&, const FlightSample& s) {
    const double outside_K = s.outside_C + 273.15;
    EXPECT_NEAR(s.total_C + 273.15, outside_K * (1 + 0.2 * s.mach * s.mach), 0.02);
  });
}

TEST(ScriptedFlight, MachFollowsFromIndicatedAirspeedAndAltitude) {
  forEachSecond([](const FlightSample&, const FlightSample& s) {
    const double atSeaLevel = s.indicated_kt * knot_m_s / 340.294;
    const double impact = std::pow(1 + 0.2 * atSeaLevel * atSeaLevel, 3.5) - 1;
    const double ratio = impact / pressureRatioAt(s.altitude_m) + 1;
    EXPECT_NEAR(s.mach, std::sqrt(5 * (std::pow(ratio, 2 / 7.0) - 1)), 0.0001);
  });
}

TEST(ScriptedFlight, TrueAirspeedIsMachTimesTheSpeedOfSound) {
  forEachSecond([](const FlightSample&, const FlightSample& s) {
    const double sound_kt = 661.479 * std::sqrt(temperatureAt(s.altitude_m) / 288.15);
    EXPECT_NEAR(s.trueAirspeed_kt, s.mach * sound_kt, 0.03);
  });
}

TEST(ScriptedFlight, ThePlaceMovesWithTheGroundSpeed) {
  forEachSecond([](const FlightSample& before, const FlightSample& s) {
    const double north_m = (s.latitude_deg - before.latitude_deg) * degree * earth_m;
    const double east_m = (s.longitude_deg - before.longitude_deg) * degree * earth_m *
                          std::cos(s.latitude_deg * degree);
    EXPECT_NEAR(std::hypot(north_m, east_m), (before.groundSpeed_m_s + s.groundSpeed_m_s) / 2, 0.1);
  });
}

TEST(ScriptedFlight, GroundSpeedIsAirspeedAlongTheHeadingPlusTheWind) {
  forEachSecond([](const FlightSample&, const FlightSample& s) {
    const double air_m_s = s.trueAirspeed_kt * knot_m_s;
    const double level_m_s = std::sqrt(air_m_s * air_m_s - std::pow(s.verticalSpeed_m_s, 2));
    const double north = level_m_s * std::cos(s.heading_deg * degree) -
                         s.wind_kt * knot_m_s * std::cos(s.windFrom_deg * degree);
    const double east = level_m_s * std::sin(s.heading_deg * degree) -
                        s.wind_kt * knot_m_s * std::sin(s.windFrom_deg * degree);
    EXPECT_NEAR(std::hypot(north, east), s.groundSpeed_m_s, 0.55 * knot_m_s);
  });
}

TEST(ScriptedFlight, TheHeadingTurnsWithTheTurnRate) {
  forEachSecond([](const FlightSample& before, const FlightSample& s) {
    EXPECT_NEAR(folded(s.heading_deg - before.heading_deg),
                (before.turnRate_deg_s + s.turnRate_deg_s) / 2, 0.03);
  });
}

TEST(ScriptedFlight, TheTurnRateIsThatOfACoordinatedTurn) {
  forEachSecond([](const FlightSample&, const FlightSample& s) {
    const double rate =
        9.80665 * std::tan(s.bankRight_deg * degree) / (s.trueAirspeed_kt * knot_m_s) / degree;
    EXPECT_NEAR(s.turnRate_deg_s, rate, 0.005);
  });
}

TEST(ScriptedFlight, TheAltitudeChangesWithTheVerticalSpeed) {
  forEachSecond([](const FlightSample& before, const FlightSample& s) {
    EXPECT_NEAR(s.altitude_m - before.altitude_m,
                (before.verticalSpeed_m_s + s.verticalSpeed_m_s) / 2, 0.1);
  });
}

TEST(ScriptedFlight, PitchIsThePathPlusTheAngleOfAttack) {
  forEachSecond([](const FlightSample&, const FlightSample& s) {
    const double path_deg =
        std::asin(s.verticalSpeed_m_s / (s.trueAirspeed_kt * knot_m_s)) / degree;
    EXPECT_NEAR(s.pitchUp_deg, path_deg + s.angleOfAttack_deg * std::cos(s.bankRight_deg * degree),
                0.02);
  });
}

TEST(ScriptedFlight, LiftCarriesTheWeightAndTheVerticalAcceleration) {
  forEachSecond([](const FlightSample& before, const FlightSample& s) {
    const double upward = (s.verticalSpeed_m_s - before.verticalSpeed_m_s) / 9.80665;
    const double meanLoad = (s.load * std::cos(s.bankRight_deg * degree) +
                             before.load * std::cos(before.bankRight_deg * degree)) /
                            2;
    EXPECT_NEAR(meanLoad, 1 + upward, 0.015);
  });
}

// Flow and burn are compared over a second by the mean of the flows at its ends, which misses a
// little while the engines spool up.
TEST(ScriptedFlight, FuelBurnsByTheFuelFlow) {
  double byFlow_lb = 0;
  forEachSecond([&](const FlightSample& before, const FlightSample& s) {
    const double flow_lb = (before.fuelFlow_lb_h + s.fuelFlow_lb_h) / 2 / 3600;
    EXPECT_NEAR(before.fuel_lb - s.fuel_lb, flow_lb, 0.05);
    byFlow_lb += flow_lb;
  });
  EXPECT_NEAR(flight().front().fuel_lb - flight().back().fuel_lb, byFlow_lb, 0.5);
}

TEST(ScriptedFlight, TheWeightFallsWithTheFuel) {
  const FlightSample& start = flight().front();
  forEachSecond([&](const FlightSample& before, const FlightSample& s) {
    EXPECT_NEAR(start.weight_lb - s.weight_lb, start.fuel_lb - s.fuel_lb, 0.05);
    EXPECT_LT(s.weight_lb, before.weight_lb);
  });
}

TEST(ScriptedFlight, BothFormsOfTheExhaustTemperatureAgree) {
  forEachSecond([](const FlightSample&, const FlightSample& s) {
    EXPECT_NEAR(s.exhaust_C, s.exhaustWord_C, 0.02);
  });
}

TEST(ScriptedFlight, TheClockRunsWithTheFlight) {
  EXPECT_EQ(flight().front().utc_s, 12 * 3600);
  EXPECT_EQ(flight()[2000].utc_s, 12 * 3600 + 2000);
}

TEST(ScriptedFlight, NothingJumps) {
  forEachSecond([](const FlightSample& before, const FlightSample& s) {
    EXPECT_LT(std::fabs(s.pitchUp_deg - before.pitchUp_deg), 2.6);
    EXPECT_LT(std::fabs(s.bankRight_deg - before.bankRight_deg), 6.1);
    EXPECT_LT(std::fabs(folded(s.heading_deg - before.heading_deg)), 3);
    EXPECT_LT(std::fabs(s.indicated_kt - before.indicated_kt), 5.5);
    EXPECT_LT(std::fabs(s.verticalSpeed_m_s - before.verticalSpeed_m_s), 1.1);
    EXPECT_LT(std::fabs(s.n1_pct - before.n1_pct), 12.1);
    EXPECT_LT(std::fabs(s.exhaust_C - before.exhaust_C), 60);
    EXPECT_LT(std::fabs(s.load - before.load), 0.06);
    EXPECT_LT(std::fabs(s.angleOfAttack_deg - before.angleOfAttack_deg), 2.6);
  });
}

TEST(ScriptedFlight, EveryFigureIsThatOfAnAirlinerInNormalFlight) {
  forEachSecond([](const FlightSample&, const FlightSample& s) {
    EXPECT_TRUE(s.altitude_m > 19.9 && s.altitude_m < 7330);
    EXPECT_TRUE(s.pitchUp_deg > -5 && s.pitchUp_deg < 16) << s.pitchUp_deg;
    EXPECT_LT(std::fabs(s.bankRight_deg), 25.1);
    EXPECT_TRUE(s.load > 0.85 && s.load < 1.25) << s.load;
    EXPECT_TRUE(s.angleOfAttack_deg > -2 && s.angleOfAttack_deg < 12) << s.angleOfAttack_deg;
    EXPECT_LT(s.indicated_kt, s.barberPole_kt);
    EXPECT_TRUE(s.verticalSpeed_m_s > -15 && s.verticalSpeed_m_s < 12);
    EXPECT_TRUE(s.n1_pct >= 20 && s.n1_pct <= 104) << s.n1_pct;
    EXPECT_TRUE(s.n2_pct >= 60 && s.n2_pct <= 104) << s.n2_pct;
    EXPECT_TRUE(s.exhaust_C > 400 && s.exhaust_C < 950) << s.exhaust_C;
    EXPECT_TRUE(s.fuelFlow_lb_h > 800 && s.fuelFlow_lb_h < 20000) << s.fuelFlow_lb_h;
    EXPECT_TRUE(s.lever_pct >= 0 && s.lever_pct <= 100);
    EXPECT_TRUE(s.weight_lb > 113000 && s.weight_lb < 154500);
  });
}

TEST(ScriptedFlight, StandsStillWithEnginesIdlingAtTheStart) {
  const FlightSample& start = flight().front();
  EXPECT_TRUE(start.onGround);
  EXPECT_EQ(start.groundSpeed_m_s, 0);
  EXPECT_NEAR(start.indicated_kt, 10, 0.02);  // the wind on the runway
  EXPECT_NEAR(start.heading_deg, 240, 0.001);
  EXPECT_NEAR(start.n1_pct, 21, 0.1);
  EXPECT_EQ(start.groundElevation_m, 20);
  EXPECT_EQ(start.gear, 16383);
}

TEST(ScriptedFlight, LeavesTheRunwayBetween138And160KnotsWithinTwoAndAHalfKilometres) {
  const auto airborne = std::find_if(flight().begin(), flight().end(),
                                     [](const FlightSample& s) { return !s.onGround; });
  ASSERT_NE(airborne, flight().end());
  EXPECT_GT(airborne->indicated_kt, 138);
  EXPECT_LT(airborne->indicated_kt, 160);
  const FlightSample& start = flight().front();
  EXPECT_LT(std::hypot((airborne->latitude_deg - start.latitude_deg) * 111195,
                       (airborne->longitude_deg - start.longitude_deg) * 68460),
            2500);
  EXPECT_TRUE(
      std::none_of(airborne, flight().end(), [](const FlightSample& s) { return s.onGround; }));
}

TEST(ScriptedFlight, RetractsGearAndFlapsUsesSpoilersAndLowersThemAgain) {
  EXPECT_NEAR(flight()[60].flaps, 16383.0 * 5 / 40, 1);
  EXPECT_EQ(flight()[300].flaps, 0);
  EXPECT_EQ(flight()[300].gear, 0);
  EXPECT_NEAR(flight()[1300].spoilers, 16383 * 0.5, 2);
  EXPECT_EQ(flight()[1500].spoilers, 0);
  EXPECT_NEAR(flight().back().flaps, 16383.0 * 15 / 40, 1);
  EXPECT_EQ(flight().back().gear, 16383);
}

TEST(ScriptedFlight, ClimbsTurnsFliesLevelDescendsAndComesBackToTheRunwaysCentreline) {
  EXPECT_NEAR(flight()[390].heading_deg, 330, 1);
  EXPECT_NEAR(flight()[1000].altitude_m, 24000 * 0.3048, 3);
  EXPECT_NEAR(flight()[1000].heading_deg, 60, 0.1);
  EXPECT_NEAR(flight()[1000].verticalSpeed_m_s, 0, 0.02);
  const FlightSample& end = flight().back();
  EXPECT_NEAR(end.altitude_m, 3000 * 0.3048, 3);
  // Off the line that leaves the threshold at 52 N 5 E with a bearing of 60 degrees, by the sine
  // of the difference of bearings.
  const double north_m = (end.latitude_deg - 52) * 111195;
  const double east_m = (end.longitude_deg - 5) * 111195 * std::cos(52 * degree);
  EXPECT_LT(std::fabs(north_m * std::sin(60 * degree) - east_m * std::cos(60 * degree)), 100);
}

TEST(ScriptedFlight, EveryDoubleIsANumber) {
  auto memory = std::make_unique<OffsetMemory>();
  ScriptedFlight aircraft(*memory, roundTrip());
  std::vector<std::size_t> doubles{0x08E8, 0x0918, 0x0980, 0x09B0, 0x0A18, 0x0A48, 0x0AB0,
                                   0x0AE0, 0x0B18, 0x2408, 0x2508, 0x2608, 0x2708, 0x2824,
                                   0x282C, 0x2834, 0x2EB0, 0x2EC0, 0x2EE8, 0x2EF0, 0x30C0,
                                   0x3B70, 0x3AB0, 0x39F0, 0x3930};
  for (std::size_t engine = 0x2000; engine <= 0x2300; engine += 0x100)
    for (std::size_t k = 0; k <= 0x60; k += 8) doubles.push_back(engine + k);
  for (std::size_t at = 0x2840; at <= 0x28B8; at += 8) doubles.push_back(at);
  for (int second = 0; second < flight_s; second += 5) {
    for (const std::size_t at : doubles)
      ASSERT_TRUE(std::isfinite(memory->read<double>(at))) << std::hex << at;
    aircraft.step(5);
  }
}

TEST(ScriptedFlight, BeginsAgainOnTheRunwayWhenTheScriptIsThrough) {
  auto memory = std::make_unique<OffsetMemory>();
  ScriptedFlight aircraft(*memory, roundTrip());
  for (int second = 0; second < flight_s + 5; ++second) aircraft.step(1);
  const FlightSample s = sampleOf(*memory);
  EXPECT_TRUE(s.onGround);
  EXPECT_NEAR(s.latitude_deg, 52, 1e-6);
  EXPECT_EQ(s.groundSpeed_m_s, 0);
  EXPECT_EQ(s.gear, 16383);
  EXPECT_NEAR(s.fuel_lb, flight()[5].fuel_lb, 0.1);
}

std::vector<std::byte> wholeMemoryAfter(int steps, double step_s) {
  auto memory = std::make_unique<OffsetMemory>();
  ScriptedFlight aircraft(*memory, roundTrip());
  for (int i = 0; i < steps; ++i) aircraft.step(step_s);
  std::vector<std::byte> bytes(OffsetMemory::Size);
  memory->copyOut(0, bytes);
  return bytes;
}

TEST(ScriptedFlight, IsTheSameEveryTimeHoweverTimeIsCut) {
  const auto inSeconds = wholeMemoryAfter(600, 1);
  EXPECT_EQ(wholeMemoryAfter(600, 1), inSeconds);
  EXPECT_EQ(wholeMemoryAfter(10000, 0.06), inSeconds);
  EXPECT_EQ(wholeMemoryAfter(120, 5), inSeconds);
}

}  // namespace
}  // namespace vorlent
