#include <gtest/gtest.h>

#include <chrono>

#include "Flying.h"

namespace vorlent {
namespace {

constexpr double g = 9.80665;

double energyPerMass(const RigidBody& body) {
  return dot(body.velocity_m_s, body.velocity_m_s) / 2 + g * body.altitude_m();
}

TEST(Conservation, WithoutForcesEnergyAndMomentumStayForAnHour) {
  const MassProperties mass = massProperties(plant737().mass, 0, ordinaryFuel);
  RigidBody body = bodyAt({50, 10}, 200000, {5, 10, 70}, {7000, 2000, -50});
  body.rates_rad_s = {0.02, 0.3, 0.01};
  const double energy = energyPerMass(body);
  const auto momentumOf = [&] {
    return rotate(body.attitude, mass.angularMomentum(body.rates_rad_s));
  };
  const Vector3 turning = momentumOf();
  const Vector3 orbit = cross(body.position_m, body.velocity_m_s);
  for (int i = 0; i < 3600 * 120; ++i)
    integrate(body, mass, 1.0 / 120, [](const RigidBody&) { return Load{}; });
  EXPECT_NEAR(energyPerMass(body), energy, 1e-6 * energy);
  EXPECT_LT(length(momentumOf() - turning), 1e-6 * length(turning));
  EXPECT_LT(length(cross(body.position_m, body.velocity_m_s) - orbit), 1e-6 * length(orbit));
}

// The change of energy over an hour of flight in which levers move is the work of thrust and drag,
// added up step by step.
TEST(Conservation, AnHoursEnergyIsTheWorkOfTheForces) {
  Flying flight(StartingState::Cruise);
  const RigidBody& body = flight.model.body();
  const auto power = [&] {
    return dot(rotate(body.attitude, flight.model.load(body).force_N), body.velocity_m_s) /
           flight.model.mass().mass_kg;
  };
  const double first = energyPerMass(body);
  double work = 0;
  double moved = 0;
  for (int i = 0; i < 3600 * 120; ++i) {
    const double lever = flight.departure.controls.thrustLever[0];
    flight.controls.thrustLever = {lever + 0.02 * std::sin(i / 12000.0),
                                   lever + 0.02 * std::sin(i / 12000.0)};
    const double before = power();
    flight.tick();
    const double step = (before + power()) / 2 / 120;
    work += step;
    moved += std::fabs(step);
  }
  report("energy over an hour: error over the energy", (energyPerMass(body) - first - work) / first,
         "");
  EXPECT_GT(moved, 0.01 * first);
  EXPECT_NEAR(energyPerMass(body) - first, work, 0.001 * first);
}

TEST(Conservation, AnHoursLossOfMassIsTheFuelThatTheEnginesShow) {
  Flying flight(StartingState::Cruise);
  const double before_kg = flight.state.mass_kg;
  double burned_kg = 0;
  for (int i = 0; i < 3600; ++i) {
    flight.fly(1);
    for (const EngineState& engine : flight.state.engines)
      burned_kg += engine.fuelFlow_lb_h * 0.45359237 / 3600;
  }
  EXPECT_GT(burned_kg, 2000);
  EXPECT_NEAR(before_kg - flight.state.mass_kg, burned_kg, 0.001 * burned_kg);
}

struct Fingerprint {
  Vector3 position, velocity, rates;
  double n1;
};

Fingerprint flyThroughSevereAir(unsigned seed) {
  WindSettings wind;
  wind.turbulence = Turbulence::Severe;
  wind.seed = seed;
  wind.speed_kt = 20;
  Flying flight(StartingState::Final, plant737(), 0, ordinaryFuel, wind);
  flight.fly(60);
  const RigidBody& body = flight.model.body();
  return {body.position_m, body.velocity_m_s, body.rates_rad_s, flight.state.engines[0].n1_pct};
}

TEST(Determinism, TheSameSeedGivesTheSameFlightBitForBit) {
  const Fingerprint a = flyThroughSevereAir(7);
  const Fingerprint b = flyThroughSevereAir(7);
  for (const auto part : {&Fingerprint::position, &Fingerprint::velocity, &Fingerprint::rates}) {
    EXPECT_EQ((a.*part).x, (b.*part).x);
    EXPECT_EQ((a.*part).y, (b.*part).y);
    EXPECT_EQ((a.*part).z, (b.*part).z);
  }
  EXPECT_EQ(a.n1, b.n1);
}

TEST(Determinism, AnotherSeedGivesAnotherFlight) {
  const Fingerprint a = flyThroughSevereAir(7);
  const Fingerprint b = flyThroughSevereAir(8);
  EXPECT_GT(length(a.position - b.position), 1);
}

// Told, not asserted: it depends on the machine and on the build.
TEST(Speed, IsTold) {
  Flying flight(StartingState::Cruise);
  const auto start = std::chrono::steady_clock::now();
  flight.fly(60);
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
  report("speed of the flight model over real time", 60 / took.count(), "x");
  EXPECT_NEAR(flight.state.elapsed_s, 60, 0.001);
}

}  // namespace
}  // namespace vorlent
