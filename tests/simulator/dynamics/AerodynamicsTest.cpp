#include "simulator/dynamics/Aerodynamics.h"

#include <gtest/gtest.h>

#include <cmath>

#include "FlightData.h"
namespace vorlent {
namespace {

constexpr double clear_m = 1000;

/// Coefficients of the 737-700 at sea level.
class AerodynamicsTest : public testing::Test {
 protected:
  LiftAndDrag at(double angle_deg, double mach, double height_m = clear_m) const {
    FlowState flow{};
    flow.mach = mach;
    flow.attack_rad = angle_deg * 0.01745329252;
    return liftAndDrag(plant737().aero, flow, surfaces, height_m);
  }
  /// The moment at 100 m/s, straight and with these rates.
  Vector3 moment(const Vector3& velocity_m_s, const Vector3& rates_rad_s = {}) const {
    return airLoad(plant737().aero, {velocity_m_s, rates_rad_s, standardAir(0), clear_m}, surfaces)
        .moment_Nm;
  }
  Surfaces surfaces{.gear = 0};
};

// 5.2 a radian from -1.5 degrees on: 5.2 x 5.5 x 0.0174533.
TEST_F(AerodynamicsTest, LiftIsTheSlopeTimesTheAngleFromNoLift) {
  EXPECT_NEAR(at(-1.5, 0).lift, 0, 1e-9);
  EXPECT_NEAR(at(4, 0).lift, 0.4992, 0.0001);
}

TEST_F(AerodynamicsTest, LiftSlopeGrowsByAThirdToCruiseMach) {
  EXPECT_NEAR(compressibility(plant737().aero, 0.78), 1.33, 0.03);
}

TEST_F(AerodynamicsTest, DragRisesSteeplyBehindTheCriticalMach) {
  const double before = at(2, 0.60).drag - at(2, 0.55).drag;
  const double behind = at(2, 0.84).drag - at(2, 0.79).drag;
  EXPECT_GT(behind, 0.003);
  EXPECT_GT(behind, 3 * before);
}

TEST_F(AerodynamicsTest, LiftStopsAtItsMaximumAndFallsBehindIt) {
  double most = 0;
  for (double angle_deg = 0; angle_deg < 30; angle_deg += 0.1)
    most = std::max(most, at(angle_deg, 0.2).lift);
  EXPECT_NEAR(most, 1.30, 0.01);
  EXPECT_LT(at(25, 0.2).lift, 1.2);
}

TEST_F(AerodynamicsTest, EachFlapSettingLiftsAndDragsMore) {
  double lift = -1;
  double drag = 0;
  for (const double flaps_deg : {0, 1, 2, 5, 10, 15, 25, 30, 40}) {
    surfaces.flaps_deg = flaps_deg;
    EXPECT_GT(at(4, 0.2).lift, lift) << flaps_deg;
    EXPECT_GT(at(4, 0.2).drag, drag) << flaps_deg;
    lift = at(4, 0.2).lift;
    drag = at(4, 0.2).drag;
  }
}

// OpenAP's drag polar of the 737-700 (TU Delft): 0.022 + 0.043 CL^2 without flaps, which is 2 /
// sqrt(4 x 0.022 x 0.043) = 16.3 of lift over drag at best.
TEST_F(AerodynamicsTest, TheBestGlideIsNearThePublishedPolarsAndEachFlapSettingTakesFromIt) {
  FlightData data("polar", "flaps_deg,attack_deg,lift,drag");
  double before = 100;
  for (const double flaps_deg : FlapAngles_deg) {
    surfaces.flaps_deg = flaps_deg;
    double best = 0;
    for (double angle_deg = -2; angle_deg < 20; angle_deg += 0.25) {
      const LiftAndDrag c = at(angle_deg, 0.25);
      data.row({flaps_deg, angle_deg, c.lift, c.drag});
      best = std::max(best, c.lift / c.drag);
    }
    if (flaps_deg == 0) {
      EXPECT_NEAR(best, 16.3, 0.15 * 16.3);
    }
    EXPECT_LT(best, before) << flaps_deg;
    before = best;
  }
}

// On the wheels the wing is 2.6 m high: 16 x 2.6 / 34.32 = 1.2121, squared over itself and one
// 0.595.
TEST_F(AerodynamicsTest, TheGroundTakesInducedDragAndGivesLift) {
  EXPECT_GT(at(6, 0.2, 0).lift, at(6, 0.2).lift * 1.02);
  const double lift = at(6, 0.2, 0).lift;
  EXPECT_NEAR(at(6, 0.2, 0).drag, 0.0185 + 0.595 * lift * lift / (3.14159 * 9.45 * 0.82), 0.0002);
  EXPECT_NEAR(at(6, 0.2, 100).lift, at(6, 0.2).lift, 0.001);
}

TEST_F(AerodynamicsTest, MomentsTurnTheAircraftBackIntoTheFlow) {
  const double straight = moment({100, 0, 2}).y;
  EXPECT_LT(moment({100, 0, 6}).y, straight);
  EXPECT_GT(moment({100, 5, 2}).z, 0);
  EXPECT_LT(moment({100, 5, 2}).x, 0);
  EXPECT_LT(moment({100, 0, 2}, {0.1, 0, 0}).x, 0);
  EXPECT_LT(moment({100, 0, 2}, {0, 0.1, 0}).y, straight);
  EXPECT_LT(moment({100, 0, 2}, {0, 0, 0.1}).z, 0);
}

TEST_F(AerodynamicsTest, SurfacesActInTheirDirections) {
  const Vector3 neutral = moment({100, 0, 5});
  surfaces.elevator_deg = 5;
  surfaces.aileron = 0.5;
  surfaces.rudder_deg = 5;
  const Vector3 moved = moment({100, 0, 5});
  EXPECT_GT(moved.x, neutral.x);
  EXPECT_GT(moved.y, neutral.y);
  EXPECT_GT(moved.z, neutral.z);
  surfaces = {.gear = 0, .stabiliser_deg = 2};
  EXPECT_LT(moment({100, 0, 5}).y, neutral.y);
}

TEST_F(AerodynamicsTest, StillAirDoesNothing) {
  const Load load = airLoad(plant737().aero, {{}, {}, standardAir(0), 0}, surfaces);
  EXPECT_EQ(length(load.force_N), 0);
  EXPECT_EQ(length(load.moment_Nm), 0);
}

}  // namespace
}  // namespace vorlent
