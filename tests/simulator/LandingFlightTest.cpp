#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "simulator/ScriptedFlight.h"
#include "support/places.h"

namespace vorlent {
namespace {

/// What a listener hears of the flight, five times a second.
struct Moment {
  bool onGround;
  double groundSpeed_kt;
  double descent_ft_min;
  int starter1, starter2, burning1, burning2;
};

const std::vector<Moment>& landing() {
  static const std::vector<Moment> moments = [] {
    const FlightScript script = readFlightScript(dataFolder() + "/Flights/landing.txt");
    OffsetMemory memory;
    ScriptedFlight aircraft(memory, script);
    std::vector<Moment> found;
    for (int i = 0; i < 5 * (durationOf_s(script) - 1); ++i) {
      aircraft.step(0.2);
      found.push_back({memory.read<std::uint16_t>(0x0366) == 1,
                       memory.read<std::uint32_t>(0x02B4) / 65536.0 * 3600 / 1852,
                       -memory.read<std::int32_t>(0x02C8) / 256.0 * 60 / 0.3048,
                       memory.read<std::uint8_t>(0x0892), memory.read<std::uint8_t>(0x092A),
                       memory.read<std::uint8_t>(0x0894), memory.read<std::uint8_t>(0x092C)});
    }
    return found;
  }();
  return moments;
}

const Moment& at(int second) { return landing().at(static_cast<std::size_t>(second) * 5); }

TEST(LandingFlight, StartsItsEnginesOneAfterTheOther) {
  EXPECT_EQ(at(2).starter1 + at(2).burning1 + at(2).starter2 + at(2).burning2, 0);
  EXPECT_EQ(at(9).starter1, 1);
  EXPECT_EQ(at(9).burning1, 0);
  EXPECT_EQ(at(17).starter1, 0);
  EXPECT_EQ(at(17).burning1, 1);
  EXPECT_EQ(at(17).starter2, 1);
  EXPECT_EQ(at(17).burning2, 0);
  EXPECT_EQ(at(23).starter2, 0);
  EXPECT_EQ(at(23).burning2, 1);
}

TEST(LandingFlight, LeavesTheGroundOnceAndComesBackOnce) {
  int changes = 0;
  for (std::size_t i = 1; i < landing().size(); ++i)
    changes += landing()[i].onGround != landing()[i - 1].onGround ? 1 : 0;
  EXPECT_EQ(changes, 2);
  EXPECT_TRUE(landing().back().onGround);
}

TEST(LandingFlight, TouchesDownFirmlyAndRollsOutToAStop) {
  const auto& moments = landing();
  const auto touchdown = std::adjacent_find(
      moments.begin(), moments.end(),
      [](const Moment& before, const Moment& after) { return !before.onGround && after.onGround; });
  ASSERT_NE(touchdown, moments.end());
  EXPECT_GT(touchdown->descent_ft_min, 200);
  EXPECT_LT(touchdown->descent_ft_min, 600);
  EXPECT_GT(touchdown->groundSpeed_kt, 110);
  constexpr int TwoSeconds = 10;
  for (auto after = touchdown + TwoSeconds; after + 1 != moments.end(); ++after)
    ASSERT_LE((after + 1)->groundSpeed_kt, after->groundSpeed_kt + 0.01);
  EXPECT_LT(moments.back().groundSpeed_kt, 1);
  EXPECT_NEAR(moments.back().descent_ft_min, 0, 0.5);
}

}  // namespace
}  // namespace vorlent
