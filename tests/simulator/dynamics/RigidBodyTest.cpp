#include "simulator/dynamics/RigidBody.h"

#include <gtest/gtest.h>

#include "Flying.h"

namespace vorlent {
namespace {

TEST(RigidBody, GivesBackThePlaceAttitudeAndVelocityItWasMadeOf) {
  for (const Place place : {Place{52, 5}, Place{-33, 151}, Place{10, -120}, Place{0, 0}}) {
    const RigidBody body = bodyAt(place, 3000, {-12, 35, 285}, {100, -50, 7});
    EXPECT_NEAR(body.place().latitude_deg, place.latitude_deg, 1e-9);
    EXPECT_NEAR(body.place().longitude_deg, place.longitude_deg, 1e-9);
    EXPECT_NEAR(body.altitude_m(), 3000, 1e-6);
    const EulerAngles angles = eulerAngles(body);
    EXPECT_NEAR(angles.pitch_deg, -12, 1e-9);
    EXPECT_NEAR(angles.bank_deg, 35, 1e-9);
    EXPECT_NEAR(angles.heading_deg, 285, 1e-9);
    EXPECT_NEAR(body.localVelocity_m_s().x, 100, 1e-9);
    EXPECT_NEAR(body.localVelocity_m_s().y, -50, 1e-9);
    EXPECT_NEAR(body.localVelocity_m_s().z, 7, 1e-9);
  }
}

TEST(RigidBody, FallsFreelyWithStandardGravity) {
  const MassProperties mass = massProperties(plant737().mass, 0, ordinaryFuel);
  RigidBody body = bodyAt({52, 5}, 5000, {0, 0, 0}, {});
  for (int i = 0; i < 1200; ++i)
    integrate(body, mass, 1.0 / 120, [](const RigidBody&) { return Load{}; });
  EXPECT_NEAR(body.altitude_m(), 5000 - 490.3325, 1e-6);
  EXPECT_NEAR(body.localVelocity_m_s().z, 98.0665, 1e-9);
}

TEST(RigidBody, ACoupleTurnsItByItsInertia) {
  const MassProperties mass{1000, {}, 100, 200, 300, 0};
  RigidBody body = bodyAt({52, 5}, 5000, {0, 0, 90}, {});
  for (int i = 0; i < 120; ++i)
    integrate(body, mass, 1.0 / 120, [](const RigidBody&) { return Load{{}, {0, 20, 0}}; });
  EXPECT_NEAR(body.rates_rad_s.y, 0.1, 1e-12);
  EXPECT_NEAR(eulerAngles(body).pitch_deg, 0.05 * 57.29578, 1e-5);
  EXPECT_NEAR(eulerAngles(body).heading_deg, 90, 1e-6);
}

// 51256 kg and 8350 kg of fuel; the mains add 7044 x (6.5^2 + 0) to the roll inertia, the centre
// tank 1306 x 0.3^2.
TEST(RigidBody, MassAndInertiaFollowTheFuel) {
  const MassProperties full = massProperties(plant737().mass, 0, ordinaryFuel);
  EXPECT_NEAR(full.mass_kg, 59606, 1e-9);
  EXPECT_NEAR(full.x_kgm2, 943000 + 7044 * 42.25 + 1306 * 0.09, 1e-6);
  EXPECT_NEAR(full.centre_m.x, (1306 * 0.5 - 7044 * 0.4) / 59606, 1e-9);
  EXPECT_NEAR(full.centre_m.y, 0, 1e-12);
  const MassProperties leftHeavy = massProperties(plant737().mass, 0, {0, 3000, 1000});
  EXPECT_NEAR(leftHeavy.centre_m.y, -2000 * 6.5 / 55256, 1e-9);
}

TEST(RigidBody, AnAircraftKeepsToTheGreatCircle) {
  Flying flight(StartingState::Cruise);
  const Place start = flight.state.place;
  const double course_deg = flight.state.track_deg;
  flight.fly(900);
  const double flown_m = distanceBetween_m(start, flight.state.place);
  const Place expected = placeFrom(start, course_deg, flown_m);
  EXPECT_GT(flown_m, 200000);
  EXPECT_LT(distanceBetween_m(flight.state.place, expected), 100);
}

}  // namespace
}  // namespace vorlent
