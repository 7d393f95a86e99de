#include <gtest/gtest.h>

#include "Flying.h"
#include "Mode.h"
#include "PhugoidEstimate.h"

namespace vorlent {
namespace {

struct Condition {
  const char* name;
  StartingState state;
  const PlantData& (*plant)();
};

void PrintTo(const Condition& condition, std::ostream* out) { *out << condition.name; }

/// In cruise and on the approach.
class StabilityTest : public testing::TestWithParam<Condition> {
 protected:
  void say(const char* what, double value, const char* unit) const {
    report((std::string(what) + ", " + GetParam().name).c_str(), value, unit);
  }
  void writeTo(const char* what) { flight.writeTo(std::string(what) + "-" + GetParam().name); }
  Flying flight{GetParam().state, GetParam().plant()};
};

INSTANTIATE_TEST_SUITE_P(
    , StabilityTest,
    testing::Values(Condition{"Cruise", StartingState::Cruise, plant737},
                    Condition{"Approach", StartingState::Final, plant737},
                    Condition{"HeavyTwinCruise", StartingState::Cruise, plantHeavyTwin},
                    Condition{"HeavyTwinApproach", StartingState::Final, plantHeavyTwin}),
    [](const auto& made) { return made.param.name; });

TEST_P(StabilityTest, ShortPeriodIsQuickAndDamped) {
  writeTo("short-period");
  flight.nudgeRates({0, 1, 0});
  const auto mode =
      modeOf(flight.record(4, 0.1, [](const Flying& f) { return f.state.angleOfAttack_deg; }), 0.1);
  flight.fly(4);  // the plot shows how it dies away
  say("short period", mode.period_s(), "s");
  say("short period damping ratio", mode.dampingRatio, "");
  EXPECT_GE(mode.dampingRatio, 0.3);
  EXPECT_LE(mode.dampingRatio, 1.0);
  EXPECT_GE(mode.period_s(), 2);
  EXPECT_LE(mode.period_s(), 8);
}

// Lanchester counts only lift that grows with the square of the speed; what pitches the aircraft
// makes the difference to him, and denser air below.
TEST_P(StabilityTest, PhugoidHasItsTextbookPeriodAndDoesNotGrow) {
  const PhugoidEstimate textbook = phugoidEstimate(flight.model, flight.departure);
  writeTo("phugoid");
  const Vector3 forward = unit(flight.model.body().velocity_m_s);
  flight.model.body().velocity_m_s += forward * 3;
  flight.fly(10);
  const auto mode =
      modeOf(flight.record(300, 5, [](const Flying& f) { return f.state.altitude_m; }), 5);
  say("phugoid period", mode.period_s(), "s");
  say("phugoid period, textbook", textbook.period_s, "s");
  say("phugoid period, textbook without Mq", textbook.withoutPitchDamping_s, "s");
  say("phugoid period, textbook without Mq and Mu", textbook.withoutPitch_s, "s");
  say("phugoid period, Lanchester", textbook.lanchester_s, "s");
  say("phugoid damping ratio", mode.dampingRatio, "");
  EXPECT_NEAR(mode.period_s(), textbook.period_s, 0.2 * textbook.period_s);
  EXPECT_GE(mode.dampingRatio, 0);
}

// MIL-F-8785C, 3.3.1.1, level 1, category B: ratio 0.08, ratio times frequency 0.15.
TEST_P(StabilityTest, DutchRollIsDampedWithTheYawDamper) {
  writeTo("dutch-roll");
  flight.nudgeRates({0, 0, 2});
  const auto mode =
      modeOf(flight.record(12, 0.2, [](const Flying& f) { return f.state.slip; }), 0.2);
  say("Dutch roll period", mode.period_s(), "s");
  say("Dutch roll damping ratio", mode.dampingRatio, "");
  EXPECT_GE(mode.dampingRatio, 0.08);
  EXPECT_GE(mode.dampingRatio * mode.naturalFrequency_rad_s, 0.15);
}

TEST_P(StabilityTest, YawDamperAddsToTheDampingOfDutchRoll) {
  Flying undamped(GetParam().state, GetParam().plant());
  undamped.controls.yawDamper = false;
  undamped.writeTo(std::string("dutch-roll-undamped-") + GetParam().name);
  const auto dampingOf = [](Flying& f) {
    f.nudgeRates({0, 0, 2});
    return modeOf(f.record(12, 0.2, [](const Flying& at) { return at.state.slip; }), 0.2)
        .dampingRatio;
  };
  const double without = dampingOf(undamped);
  say("Dutch roll damping ratio without yaw damper", without, "");
  EXPECT_GT(dampingOf(flight), without + 0.03);
}

TEST_P(StabilityTest, RollRateDiesAwayWithinSeconds) {
  flight.nudgeRates({2, 0, 0});
  const double first = flight.model.body().rates_rad_s.x;
  double time_s = 0;
  while (flight.model.body().rates_rad_s.x > first / 2.718281828 && time_s < 10) {
    flight.tick();
    time_s += 1.0 / 120;
  }
  say("roll time constant", time_s, "s");
  EXPECT_GE(time_s, 0.5);
  EXPECT_LE(time_s, 2.0);
}

TEST_P(StabilityTest, SpiralDoublesInMoreThanTwentySeconds) {
  EulerAngles banked = eulerAngles(flight.model.body());
  banked.bank_deg = 5;
  const RigidBody& level = flight.model.body();
  flight.model.body() =
      bodyAt(level.place(), level.altitude_m(), banked, level.localVelocity_m_s());
  flight.fly(15);
  const double early = flight.state.bank_deg;
  flight.fly(20);
  const double growth = flight.state.bank_deg / early;
  say("spiral: growth of the bank in 20 s", growth, "");
  EXPECT_GT(early, 1);
  EXPECT_LT(growth, 2);
}

}  // namespace
}  // namespace vorlent
