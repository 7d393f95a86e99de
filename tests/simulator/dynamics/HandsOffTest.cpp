#include <gtest/gtest.h>

#include <tuple>

#include "Flying.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

struct Loading {
  const char* name;
  double added_kg;
  FuelLoad fuel;
};

// From few people and the last fuel, 43 tons with the 737-700, to its greatest take-off weight
// of 70.
constexpr Loading light{"Light", -10000, {0, 1000, 1000}};
constexpr Loading ordinary{"Ordinary", 0, ordinaryFuel};
constexpr Loading heavy{"Heavy", 3900, {7126, 3909, 3909}};

struct Trimmed {
  const char* name;
  StartingState state;
  const PlantData& (*plant)();
};

using Case = std::tuple<Trimmed, Loading>;

class HandsOffTest : public testing::TestWithParam<Case> {
 protected:
  std::string named(const char* what) const {
    const auto& [start, loading] = GetParam();
    return std::string(what) + ", " + start.name + ", " + loading.name;
  }
};

void PrintTo(const Trimmed& start, std::ostream* out) { *out << start.name; }
void PrintTo(const Loading& loading, std::ostream* out) { *out << loading.name; }

INSTANTIATE_TEST_SUITE_P(
    , HandsOffTest,
    testing::Combine(
        testing::Values(Trimmed{"Level", StartingState::Level, plant737},
                        Trimmed{"Cruise", StartingState::Cruise, plant737},
                        Trimmed{"Final", StartingState::Final, plant737},
                        Trimmed{"HeavyTwinLevel", StartingState::Level, plantHeavyTwin},
                        Trimmed{"HeavyTwinCruise", StartingState::Cruise, plantHeavyTwin},
                        Trimmed{"HeavyTwinFinal", StartingState::Final, plantHeavyTwin}),
        testing::Values(light, ordinary, heavy)),
    [](const auto& made) {
      return std::string(std::get<0>(made.param).name) + std::get<1>(made.param).name;
    });

TEST_P(HandsOffTest, AMinuteStaysWithinAHundredFeetAndTwoDegreesOfBank) {
  const auto& [start, loading] = GetParam();
  Flying flight(start.state, start.plant(), loading.added_kg, loading.fuel);
  flight.writeTo(std::string("hands-off-") + start.name + loading.name);
  const double altitude_ft = flight.altitude_ft();
  const double speed_kt = flight.cas_kt();
  double worst_ft = 0;
  double worst_deg = 0;
  for (int i = 0; i < 60 * 120; ++i) {
    flight.tick();
    worst_ft = std::max(worst_ft, std::fabs(flight.altitude_ft() - altitude_ft));
    worst_deg = std::max(worst_deg, std::fabs(flight.state.bank_deg));
  }
  report(named("hands off: mass").c_str(), flight.state.mass_kg, "kg");
  report(named("hands off: altitude").c_str(), worst_ft, "ft");
  report(named("hands off: bank").c_str(), worst_deg, "deg");
  EXPECT_LE(worst_ft, 100);
  EXPECT_LE(worst_deg, 2);
  EXPECT_NEAR(flight.cas_kt(), speed_kt, 3);
}

TEST(StartingStates, AreWhereTheyAreSaidToBe) {
  const Flying level(StartingState::Level);
  EXPECT_NEAR(level.altitude_ft(), 5000, 0.1);
  EXPECT_NEAR(level.cas_kt(), 250, 0.1);
  EXPECT_EQ(level.state.flaps_deg, 0);
  const Flying cruise(StartingState::Cruise);
  EXPECT_NEAR(cruise.altitude_ft(), 35000, 0.1);
  EXPECT_NEAR(cruise.state.mach, 0.78, 0.0001);
  const Flying final(StartingState::Final);
  EXPECT_NEAR(final.altitude_ft() - 20 / 0.3048, 3000, 0.1);
  EXPECT_EQ(final.state.flaps_deg, 15);
  EXPECT_NEAR(distanceBetween_m(final.state.place, {52, 5}), 18520, 1);
  EXPECT_NEAR(bearing_deg({52, 5}, final.state.place), 60, 0.01);
}

TEST(StartingStates, OnTheRunwayTheAircraftStandsStillOnItsWheels) {
  for (const StartingState state : {StartingState::Runway, StartingState::Cold}) {
    Flying flight(state);
    flight.fly(30);
    EXPECT_TRUE(flight.state.onGround);
    EXPECT_LT(distanceBetween_m(flight.state.place, {52, 5}), 0.05);
    EXPECT_NEAR(flight.state.pitch_deg, 0, 0.5);
    EXPECT_EQ(flight.state.engines[0].running, state == StartingState::Runway);
  }
}

TEST(StartingStates, AWindLeavesTheAirborneOnesInTrim) {
  WindSettings wind;
  wind.from_deg = 300;
  wind.speed_kt = 30;
  Flying flight(StartingState::Level, plant737(), 0, ordinaryFuel, wind);
  EXPECT_NEAR(flight.cas_kt(), 250, 0.1);
  flight.fly(60);
  EXPECT_NEAR(flight.altitude_ft(), 5000, 100);
  EXPECT_NEAR(flight.state.bank_deg, 0, 2);
  EXPECT_LT(flight.state.groundSpeed_m_s, flight.state.trueAirspeed_m_s - 5);
}

TEST(Turbulence, ShakesMoreWithEachLevel) {
  double before = 0;
  for (const auto& [name, level] :
       {std::pair{"none", Turbulence::None}, std::pair{"light", Turbulence::Light},
        std::pair{"moderate", Turbulence::Moderate}, std::pair{"severe", Turbulence::Severe}}) {
    WindSettings wind;
    wind.turbulence = level;
    Flying flight(StartingState::Level, plant737(), 0, ordinaryFuel, wind);
    flight.writeTo(std::string("turbulence-") + name);
    double sum = 0;
    for (int i = 0; i < 60 * 120; ++i) {
      flight.tick();
      sum += (flight.state.loadFactor - 1) * (flight.state.loadFactor - 1);
    }
    const double deviation = std::sqrt(sum / (60 * 120));
    report((std::string("deviation of the load at 5000 ft, turbulence ") + name).c_str(), deviation,
           "");
    if (level == Turbulence::None) {
      EXPECT_LT(deviation, 0.01);
    } else {
      EXPECT_GT(deviation, 1.2 * before) << name;
    }
    before = deviation;
  }
}

TEST(StartingStates, TheParkingBrakeHoldsInAStormFromAnySide) {
  for (const double from_deg : {240.0, 330.0, 60.0, 105.0}) {
    WindSettings wind;
    wind.from_deg = from_deg;
    wind.speed_kt = 40;
    wind.turbulence = Turbulence::Moderate;
    Flying flight(StartingState::Runway, plant737(), 0, ordinaryFuel, wind);
    flight.fly(60);
    EXPECT_TRUE(flight.state.onGround) << from_deg;
    EXPECT_LT(distanceBetween_m(flight.state.place, {52, 5}), 2) << from_deg;
    EXPECT_NEAR(flight.state.bank_deg, 0, 3) << from_deg;
  }
}

// The centre of gravity stands 9.3 feet high: ln(9.3 / 0.15) / ln(20 / 0.15) of 20 knots.
TEST(StartingStates, OnTheRunwayTheAirspeedIsThatOfTheWindFromAheadAndNothingFromBehind) {
  const auto standingIn = [](double from_deg) {
    WindSettings wind;
    wind.from_deg = from_deg;
    wind.speed_kt = 20;
    Flying flight(StartingState::Runway, plant737(), 0, ordinaryFuel, wind);
    flight.fly(2);
    return flight.state;
  };
  const AircraftState headwind = standingIn(240);
  EXPECT_NEAR(headwind.calibratedAirspeed_m_s * 3600 / 1852, 16.9, 0.2);
  EXPECT_NEAR(headwind.windSpeed_m_s * 3600 / 1852, 16.9, 0.2);
  const AircraftState tailwind = standingIn(60);
  EXPECT_EQ(tailwind.calibratedAirspeed_m_s, 0);
  EXPECT_EQ(tailwind.trueAirspeed_m_s, 0);
  EXPECT_EQ(tailwind.mach, 0);
  EXPECT_EQ(tailwind.totalTemperature_K, tailwind.temperature_K);
  EXPECT_NEAR(tailwind.windSpeed_m_s * 3600 / 1852, 16.9, 0.2);
}

TEST(StartingStates, WithTooMuchPayloadThereIsNoCruise) {
  EXPECT_EQ(raisedBy([] { departureFor(StartingState::Cruise, plant737(), 60000, ordinaryFuel); }),
            RuntimeError::Overflow);
}

}  // namespace
}  // namespace vorlent
