#include <gtest/gtest.h>

#include "Flying.h"
#include "Mode.h"

namespace vorlent {
namespace {

struct Condition {
  const char* name;
  StartingState state;
};

void PrintTo(const Condition& condition, std::ostream* out) { *out << condition.name; }

/// In cruise and on the approach.
class StabilityTest : public testing::TestWithParam<Condition> {
 protected:
  void say(const char* what, double value, const char* unit) const {
    report((std::string(what) + ", " + GetParam().name).c_str(), value, unit);
  }
  Flying flight{GetParam().state};
};

INSTANTIATE_TEST_SUITE_P(, StabilityTest,
                         testing::Values(Condition{"Cruise", StartingState::Cruise},
                                         Condition{"Approach", StartingState::Final}),
                         [](const auto& made) { return made.param.name; });

TEST_P(StabilityTest, ShortPeriodIsQuickAndDamped) {
  flight.nudgeRates({0, 1, 0});
  const auto mode =
      modeOf(flight.record(4, 0.1, [](const Flying& f) { return f.state.angleOfAttack_deg; }), 0.1);
  say("short period", mode.period_s(), "s");
  say("short period damping ratio", mode.dampingRatio, "");
  EXPECT_GE(mode.dampingRatio, 0.3);
  EXPECT_LE(mode.dampingRatio, 1.0);
  EXPECT_GE(mode.period_s(), 2);
  EXPECT_LE(mode.period_s(), 8);
}

// Lanchester's frequency, sqrt(2) g / V, with two corrections of the textbooks: air that is denser
// below adds g / H to its square, where the density falls by e over H; and pitch damping holds the
// nose back, which takes away the share of the static margin in the manoeuvre margin (Etkin and
// Reid, Dynamics of Flight): 0.22 chords of margin, and 30 rho S c / (4 m) of damping.
TEST_P(StabilityTest, PhugoidHasItsTextbookPeriodAndDoesNotGrow) {
  const double v = flight.state.trueAirspeed_m_s;
  const double density = standardAir(flight.state.altitude_m).density_kg_m3;
  const double below = standardAir(flight.state.altitude_m - 50).density_kg_m3;
  const double above = standardAir(flight.state.altitude_m + 50).density_kg_m3;
  const double perMetre = std::log(below / above) / 100;
  const double damping = 30 * density * 124.6 * 3.96 / (4 * flight.state.mass_kg);
  const double frequency =
      std::sqrt((2 * 9.80665 * 9.80665 / v / v + 9.80665 * perMetre) * 0.22 / (0.22 + damping));
  const double expected_s = 2 * 3.14159265 / frequency;

  const Vector3 forward = unit(flight.model.body().velocity_m_s);
  flight.model.body().velocity_m_s += forward * 3;
  flight.fly(10);
  const auto mode =
      modeOf(flight.record(300, 5, [](const Flying& f) { return f.state.altitude_m; }), 5);
  say("phugoid period", mode.period_s(), "s");
  say("phugoid period, textbook", expected_s, "s");
  say("phugoid period, Lanchester", 3.14159265 * 1.41421356 * v / 9.80665, "s");
  say("phugoid damping ratio", mode.dampingRatio, "");
  EXPECT_NEAR(mode.period_s(), expected_s, 0.2 * expected_s);
  EXPECT_GE(mode.dampingRatio, 0);
}

// MIL-F-8785C, 3.3.1.1, level 1, category B: ratio 0.08, ratio times frequency 0.15.
TEST_P(StabilityTest, DutchRollIsDampedWithTheYawDamper) {
  flight.nudgeRates({0, 0, 2});
  const auto mode =
      modeOf(flight.record(12, 0.2, [](const Flying& f) { return f.state.slip; }), 0.2);
  say("Dutch roll period", mode.period_s(), "s");
  say("Dutch roll damping ratio", mode.dampingRatio, "");
  EXPECT_GE(mode.dampingRatio, 0.08);
  EXPECT_GE(mode.dampingRatio * mode.naturalFrequency_rad_s, 0.15);
}

TEST_P(StabilityTest, YawDamperAddsToTheDampingOfDutchRoll) {
  Flying undamped(GetParam().state);
  undamped.controls.yawDamper = false;
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
