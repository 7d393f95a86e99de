#include <gtest/gtest.h>

#include <cmath>

#include "autoflight/clsAfds.h"
#include "core/singletons.h"
#include "flights/support/Flight.h"

// The server flies an aircraft behind XPUIPC by what that tells, in the scales of its own.

namespace vorlent {
namespace {

Condition behindXpuipc(const PlantData& plant, double weight_lb) {
  Condition condition;
  condition.plant = &plant;
  condition.weight_lb = weight_lb;
  condition.asXPlane = true;
  return condition;
}

class XPlaneFlight : public testing::TestWithParam<Condition> {};

TEST_P(XPlaneFlight, ClimbsAndTurnsToWhereThePanelSays) {
  Flight flight(GetParam());
  ASSERT_EQ(flight.server().fsuipc->FSVersion(), "X-Plane");
  flight.engageLevel();
  flight.fly(60);
  flight.dial(Dial::Altitude, 7000);
  flight.dial(Dial::Heading, 330);
  flight.press(Press::LevelChange);
  flight.fly(360);
  EXPECT_EQ(flight.shown().PitchEngagedMode, "ALT_HOLD");
  for (const Sample& sample : flight.last(60)) {
    ASSERT_NEAR(sample.altitude_ft, 7000, 60);
    ASSERT_NEAR(sample.heading_deg, 330, 2);
    ASSERT_NEAR(sample.speed_kt, 250, 8);
    ASSERT_NEAR(sample.bank_deg, 0, 2);
  }
}

INSTANTIATE_TEST_SUITE_P(BothPlants, XPlaneFlight,
                         testing::Values(behindXpuipc(plant737(), 131411),
                                         behindXpuipc(plantHeavyTwin(), 190000)));

/// The same flight behind either interface: what the autopilot sees is the same aircraft.
TEST(XPlaneFlight, DescendsAsBehindTheOtherInterface) {
  Condition condition;
  condition.altitude_ft = 9000;
  std::vector<double> altitudes_ft;
  for (const bool asXPlane : {false, true}) {
    condition.asXPlane = asXPlane;
    Flight flight(condition);
    flight.engageLevel();
    flight.fly(30);
    flight.dial(Dial::Altitude, 6000);
    flight.press(Press::VerticalSpeed);
    flight.dial(Dial::VerticalSpeed, -1500);
    flight.fly(60);
    altitudes_ft.push_back(flight.now().altitude_ft);
  }
  EXPECT_LT(altitudes_ft[0], 8000);
  EXPECT_NEAR(altitudes_ft[0], altitudes_ft[1], 50);
}

}  // namespace
}  // namespace vorlent
