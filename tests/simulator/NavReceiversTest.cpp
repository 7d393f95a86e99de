#include "simulator/NavReceivers.h"

#include <gtest/gtest.h>

#include <string>

namespace vorlent {
namespace {

constexpr double mile_m = 1852;

/// A runway at 52 N 5 E with a course of 240 degrees, 20 m high, variation 2.5 degrees east.
class NavReceiversTest : public testing::Test {
 protected:
  NavReceiversTest() {
    tune(0x0350, 0x1030);
    tune(0x0352, 0x1360);
    tune(0x034C, 0x0381);
    state.magneticVariation_deg = 2.5;
    state.heading_deg = 240;
    state.track_deg = 240;
  }

  void tune(std::size_t at, std::uint16_t frequency) { memory.write(at, frequency); }
  void placeOnApproach(double beforeThreshold_m, double height_m, double offBearing_deg = 0) {
    state.place = placeFrom({52, 5}, 60 + offBearing_deg, beforeThreshold_m);
    state.altitude_m = 20 + height_m;
  }
  void show() { receivers.show(state); }
  int s8(std::size_t at) const { return memory.read<std::int8_t>(at); }
  int u8(std::size_t at) const { return memory.read<std::uint8_t>(at); }
  int u16(std::size_t at) const { return memory.read<std::uint16_t>(at); }
  std::string text(std::size_t at, std::size_t size) const {
    std::string found;
    for (std::size_t i = 0; i < size; ++i) found += memory.read<char>(at + i);
    return found;
  }

  OffsetMemory memory;
  AircraftState state;
  NavReceivers receivers{memory, homeRunway};
};

TEST_F(NavReceiversTest, OnCentrelineAndGlideslopeBothNeedlesAreCentred) {
  // 300 m behind the threshold stands the antenna: 3 degrees at 18820 m are 986.3 m.
  placeOnApproach(10 * mile_m, 986.3);
  show();
  EXPECT_NEAR(s8(0x0C48), 0, 6);
  EXPECT_NEAR(s8(0x0C49), 0, 1);
  EXPECT_EQ(u8(0x0C4C), 1);
  EXPECT_EQ(u8(0x0C4A), 0x82);
}

TEST_F(NavReceiversTest, RightOfTheCentrelineTheNeedleIsLeft) {
  placeOnApproach(10 * mile_m, 900, -2);  // inbound, a smaller bearing is to the right
  show();
  EXPECT_LT(s8(0x0C48), -60);
}

TEST_F(NavReceiversTest, AboveTheGlideslopeTheNeedleIsPositiveAndEndsAt127) {
  placeOnApproach(5 * mile_m, 1200);
  show();
  EXPECT_EQ(s8(0x0C49), 127);
  placeOnApproach(5 * mile_m, 100);
  show();
  EXPECT_EQ(s8(0x0C49), -127);
}

TEST_F(NavReceiversTest, CourseAndInclinationOfTheIlsCountSixtyFiveThousandFiveHundredThirtyFive) {
  placeOnApproach(5 * mile_m, 480);
  show();
  EXPECT_EQ(u16(0x0870), 43690);  // 240 / 360 of 65535
  EXPECT_EQ(u16(0x0872), 64989);  // 357 / 360 of 65535
}

TEST_F(NavReceiversTest, DmeTextsAreFourCharacters) {
  // The ILS stands 3300 m beyond the threshold: 5 miles and 3300 m are 6.78 miles; the height adds
  // nothing to the first decimal.
  placeOnApproach(5 * mile_m, 300);
  state.groundSpeed_m_s = 140 * mile_m / 3600;
  show();
  EXPECT_EQ(text(0x0C29, 5), std::string("06.8\0", 5));
  EXPECT_EQ(text(0x0C2E, 5), std::string("140.\0", 5));
}

TEST_F(NavReceiversTest, ADistanceFromAHundredMilesOnHasNoDecimal) {
  state.place = placeFrom(placeFrom({52, 5}, 330, 8 * mile_m), 330, 120.4 * mile_m);
  state.altitude_m = 20;
  show();
  EXPECT_EQ(text(0x0C33, 5), std::string("120.\0", 5));
}

TEST_F(NavReceiversTest, WithoutAStationTheTextsAreSemicolonsAndTheFlagsZero) {
  tune(0x0350, 0x0800);
  placeOnApproach(5 * mile_m, 300);
  show();
  EXPECT_EQ(text(0x0C29, 5), std::string(";;.;\0", 5));
  EXPECT_EQ(text(0x0C2E, 5), std::string(";;;.\0", 5));
  EXPECT_EQ(text(0x3000, 1), std::string("\0", 1));
  for (const std::size_t flag : {0x0C48u, 0x0C49u, 0x0C4Au, 0x0C4Bu, 0x0C4Cu})
    EXPECT_EQ(u8(flag), 0) << std::hex << flag;
  EXPECT_EQ(u16(0x0C50), 0);
}

TEST_F(NavReceiversTest, ToAndFromNeedleAndRadialOfAVor) {
  const Place vor = placeFrom({52, 5}, 330, 8 * mile_m);
  state.place = placeFrom(vor, 90, 20 * mile_m);  // radial 90 true, 87.5 magnetic
  memory.write<std::uint16_t>(0x0C5E, 270);
  show();
  EXPECT_EQ(u8(0x0C5B), 1);
  EXPECT_NEAR(u16(0x0C60) * 360.0 / 65536, 87.5, 0.01);
  // Inbound that is the course 267.5: the one that is set lies 2.5 degrees to the left, a quarter
  // of the scale.
  EXPECT_EQ(s8(0x0C59), -32);
  memory.write<std::uint16_t>(0x0C5E, 90);
  show();
  EXPECT_EQ(u8(0x0C5B), 2);
  EXPECT_EQ(s8(0x0C59), 32);
  EXPECT_EQ(u8(0x0C5A), 0x80);
}

TEST_F(NavReceiversTest, TheAdfNeedleIsRelativeToTheNose) {
  placeOnApproach(10 * mile_m, 900);
  show();
  EXPECT_NEAR(std::remainder(u16(0x0C6A) * 360.0 / 65536, 360), 0, 0.3);
  state.heading_deg = 150;
  show();
  EXPECT_NEAR(u16(0x0C6A) * 360.0 / 65536, 90, 0.3);
  EXPECT_EQ(text(0x303E, 3), std::string("VR\0", 3));
}

TEST_F(NavReceiversTest, TheSecondAdfHearsTenthsOfAKilohertz) {
  tune(0x02D4, 0x0345);
  tune(0x02D6, 0x0005);
  placeOnApproach(0, 0);
  show();
  EXPECT_EQ(text(0x02DC, 4), std::string("KLB\0", 4));
  EXPECT_EQ(text(0x02E2, 9), std::string("KLEEBORG\0", 9));
  tune(0x02D6, 0x0004);
  show();
  EXPECT_EQ(text(0x02DC, 1), std::string("\0", 1));
}

TEST_F(NavReceiversTest, MarkersSoundOverTheirPlacesAlone) {
  const auto lamps = [&](double beforeThreshold_m) {
    placeOnApproach(beforeThreshold_m, 100);
    show();
    return std::vector<int>{u16(0x0BB0), u16(0x0BAE), u16(0x0BAC)};
  };
  EXPECT_EQ(lamps(7400), (std::vector<int>{1, 0, 0}));
  EXPECT_EQ(lamps(1050), (std::vector<int>{0, 1, 0}));
  EXPECT_EQ(lamps(250), (std::vector<int>{0, 0, 1}));
  EXPECT_EQ(lamps(4000), (std::vector<int>{0, 0, 0}));
}

}  // namespace
}  // namespace vorlent
