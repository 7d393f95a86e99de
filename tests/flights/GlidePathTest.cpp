#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

#include "autoflight/clsXAutoP.h"
#include "flights/support/Flight.h"
#include "flights/support/conditions.h"

namespace vorlent {
namespace {

/// Of the needle's 127, which are two dots.
constexpr double ADot = 127.0 / 2;

/// Level at 3000 ft and 170 kt with the gear down, 15 miles before the runway on its localizer.
Condition beforeTheRunway(Condition condition) {
  condition.altitude_ft = 3000;
  condition.speed_kt = 170;
  condition.gearDown = true;
  condition.at.place =
      placeFrom(HomeRunway.threshold, HomeRunway.course_deg + 180, 15 * MetresPerNauticalMile);
  condition.at.heading_deg = HomeRunway.course_deg;
  return condition;
}

class GlidePath : public testing::TestWithParam<NamedCondition> {
 protected:
  GlidePath() : flight(beforeTheRunway(GetParam().condition)) {
    flight.server().autoflight.Glideslope = true;
    flight.memory().write(0x0350, std::uint16_t{0x1030});
    flight.engageLevel();
    flight.fly(20);
    flight.press(Press::Approach);
  }
  double height_ft() { return flight.server().store.RadioAltitude; }
  double needle() { return flight.memory().read<std::int8_t>(0x0C49); }
  /// The needle farthest from its middle on the way down to a height.
  double farthestDownTo(double lowest_ft) {
    double most = 0;
    const auto below = [&] {
      most = std::max(most, std::fabs(needle()));
      return height_ft() <= lowest_ft;
    };
    return flight.flyUntil(below, 400) ? most : 999;
  }

  Flight flight;
};

TEST_P(GlidePath, IsMetInLevelFlightAndFollowedToTheGround) {
  const double press_ft = flight.now().altitude_ft;
  const auto begun = flight.mark();
  ASSERT_TRUE(flight.flyUntil([&] { return flight.autopilot().apGsCapture() == 1; }, 300));
  for (const Sample& s : flight.since(begun)) ASSERT_NEAR(s.altitude_ft, press_ft, 50);
  EXPECT_LE(farthestDownTo(1000), ADot / 2);
  EXPECT_LE(farthestDownTo(200), ADot);
  EXPECT_TRUE(flight.flyUntil([&] { return height_ft() <= 50; }, 60));
}

std::vector<NamedCondition> slowConditions() {
  std::vector<NamedCondition> slow = conditions();
  std::erase_if(slow, [](const NamedCondition& at) { return at.condition.flapDetent == 0; });
  return slow;
}

std::string testName(const testing::TestParamInfo<NamedCondition>& at) {
  std::string name = at.param.name;
  std::ranges::replace(name, '-', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Slow, GlidePath, testing::ValuesIn(slowConditions()), testName);

}  // namespace
}  // namespace vorlent
