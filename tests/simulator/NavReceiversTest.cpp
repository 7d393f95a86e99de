#include "simulator/NavReceiversTest.h"

namespace vorlent {
namespace {

class LocaliserTest : public NavReceiversTest {
 protected:
  LocaliserTest() { tune(0x0350, 0x1030); }
};

TEST_F(LocaliserTest, OnTheCourseTheNeedleIsCentredAndTheFlagsSayLocaliserAndActive) {
  placeFromLocaliser(0, 10 * mile_m, 600);
  EXPECT_EQ(s8(0x0C48), 0);
  EXPECT_EQ(u8(0x0C4A), 0x82);
  EXPECT_EQ(u8(0x0C4B), 1);
  EXPECT_EQ(text(0x3000), "TST");
  EXPECT_EQ(text(0x3006), "TEST ILS");
}

TEST_F(LocaliserTest, RightOfTheCourseTheNeedleIsLeftByPartsOfTheCourseWidth) {
  // 20000 m before the localiser a degree is 349.1 m: 127 / 1.8554 is 68.4.
  place(3300 - 20000, -349.1, 600);
  EXPECT_EQ(s8(0x0C48), -68);
  place(3300 - 20000, 349.1, 600);
  EXPECT_EQ(s8(0x0C48), 68);
  place(3300 - 20000, 698.4, 600);  // 2 degrees
  EXPECT_EQ(s8(0x0C48), 127);
  place(3300 - 20000, -698.4, 600);
  EXPECT_EQ(s8(0x0C48), -127);
}

TEST_F(LocaliserTest, OverTheThresholdAHundredAndSevenMetresAreFullDeflection) {
  place(0, -53.4, 15);
  EXPECT_NEAR(s8(0x0C48), -63, 1);
  place(0, -106.5, 15);
  EXPECT_NEAR(s8(0x0C48), -127, 1);
}

TEST_F(LocaliserTest, CarriesTwentyFiveMilesWithinTenDegreesAndSeventeenWithinThirtyFive) {
  const auto heard = [this](double left_deg, double distance_nm) {
    placeFromLocaliser(left_deg, distance_nm * mile_m, 1000);
    return u8(0x0C4A) == 0x82;
  };
  EXPECT_TRUE(heard(9.9, 24.9));
  EXPECT_TRUE(heard(-9.9, 24.9));
  EXPECT_FALSE(heard(0, 25.1));
  EXPECT_FALSE(heard(10.1, 24.9));
  EXPECT_TRUE(heard(34.9, 16.9));
  EXPECT_TRUE(heard(-34.9, 16.9));
  EXPECT_FALSE(heard(34.9, 17.1));
  EXPECT_FALSE(heard(35.1, 5));
  EXPECT_FALSE(heard(180, 5));
}

TEST_F(LocaliserTest, IsNotHeardMoreThanSevenDegreesHigh) {
  // At 10000 m that is 1227.8 m and 7.8 m for the earth's curve.
  placeFromLocaliser(0, 10000, 1230);
  EXPECT_EQ(u8(0x0C4A), 0x82);
  placeFromLocaliser(0, 10000, 1241);
  EXPECT_EQ(u8(0x0C4A), 0);
}

TEST_F(LocaliserTest, BelowTheHorizonNothingIsHeard) {
  // Horizons: 9217 m for the antenna and 31928 m for that of an aircraft at 50 m, which is 10 m
  // higher: 22.2 miles.
  placeFromLocaliser(0, 22.3 * mile_m, 50);
  EXPECT_EQ(u8(0x0C4A), 0);
  placeFromLocaliser(0, 22.1 * mile_m, 50);
  EXPECT_EQ(u8(0x0C4A), 0x82);
}

TEST_F(LocaliserTest, WithoutABackCourseOnlyIdentAndDmeAreLeftBehindIt) {
  placeFromLocaliser(180, 5 * mile_m, 500);
  EXPECT_EQ(u8(0x0C4A), 0);
  EXPECT_EQ(u8(0x0C4B), 0);
  EXPECT_EQ(s8(0x0C48), 0);
  EXPECT_EQ(u16(0x0870), 0);
  EXPECT_EQ(text(0x3000), "TST");
  EXPECT_EQ(text(0x0C29), "06.6");  // 5 miles and 3009.2 m
}

TEST_F(LocaliserTest, OnTheBackCourseTheNeedleStaysOnItsSideOfTheLine) {
  tune(0x0350, 0x0950);
  placeFromLocaliser(0, 5 * mile_m, 500);
  EXPECT_EQ(u8(0x0C4A), 0x83);
  // East of the localiser and north of the line, as to its left from in front.
  placeFromLocaliser(180 - 1, 5 * mile_m, 500);
  EXPECT_EQ(u8(0x0C4A), 0x87);
  EXPECT_EQ(s8(0x0C48), 68);
  placeFromLocaliser(180 + 1, 5 * mile_m, 500);
  EXPECT_EQ(s8(0x0C48), -68);
}

TEST_F(LocaliserTest, ShowsTheDirectionBackFromTheRunwayAndItsRadialMagnetic) {
  placeFromLocaliser(0, 5 * mile_m, 480);
  EXPECT_EQ(u16(0x0870), 49151);  // 270 / 360 of 65535
  EXPECT_EQ(u16(0x0872), 64989);  // 357 / 360 of 65535
  EXPECT_EQ(u16(0x0C50), 48788);  // 268 / 360 of 65536
}

TEST_F(LocaliserTest, WithoutADmeTheTextsAreSemicolons) {
  tune(0x0350, 0x0810);
  placeFromLocaliser(0, 5 * mile_m, 480);
  EXPECT_EQ(u8(0x0C4A), 0x82);
  EXPECT_EQ(text(0x0C29), ";;.;");
  EXPECT_EQ(text(0x0C2E), ";;;.");
}

TEST_F(LocaliserTest, IsHeardBySecondReceiverToo) {
  tune(0x0352, 0x1030);
  place(3300 - 20000, -349.1, 600);
  EXPECT_EQ(s8(0x0C59), -68);
  EXPECT_EQ(u8(0x0C5A), 0x82);
  EXPECT_EQ(text(0x301F), "TST");
}

class GlidePathTest : public LocaliserTest {
 protected:
  /// 10000 m from its antenna; 7.85 m is how far the earth falls away there.
  void placeAt(double height_m) { place(290.8 - 10000, 0, height_m + 7.85); }
};

TEST_F(GlidePathTest, OnThePathTheNeedleIsCentred) {
  placeAt(524.1);  // 10000 m x tangent of 3 degrees
  EXPECT_EQ(s8(0x0C49), 0);
  EXPECT_EQ(u8(0x0C4C), 1);
}

TEST_F(GlidePathTest, BelowThePathTheNeedleIsNegativeAndFullAtSevenTenthsOfADegree) {
  placeAt(471.6);  // 2.7 degrees: 0.3 / 0.7 of 127 is 54.4
  EXPECT_EQ(s8(0x0C49), -54);
  placeAt(559.1);  // 3.2 degrees
  EXPECT_EQ(s8(0x0C49), 36);
  placeAt(399);  // 2.28 degrees
  EXPECT_EQ(s8(0x0C49), -127);
  placeAt(650);  // 3.72 degrees
  EXPECT_EQ(s8(0x0C49), 127);
}

TEST_F(GlidePathTest, IsHeardFromThreeTenthsToSevenQuartersOfItsSlope) {
  placeAt(155);  // 0.9 degrees are 157.1 m
  EXPECT_EQ(u8(0x0C4C), 0);
  placeAt(159);
  EXPECT_EQ(u8(0x0C4C), 1);
  placeAt(917);  // 5.25 degrees are 918.9 m
  EXPECT_EQ(u8(0x0C4C), 1);
  placeAt(921);
  EXPECT_EQ(u8(0x0C4C), 0);
  EXPECT_EQ(s8(0x0C49), 0);
}

TEST_F(GlidePathTest, CarriesTenMilesWithinEightDegreesOfTheCentreline) {
  const auto heard = [this](double left_deg, double distance_nm) {
    state.place = placeFrom({0, 290.8 / degree_m}, 270 + left_deg, distance_nm * mile_m);
    state.altitude_m = distance_nm * 97;  // 3 degrees
    receivers.show(state);
    return u8(0x0C4C) == 1;
  };
  EXPECT_TRUE(heard(0, 9.9));
  EXPECT_FALSE(heard(0, 10.1));
  EXPECT_TRUE(heard(7.9, 5));
  EXPECT_TRUE(heard(-7.9, 5));
  EXPECT_FALSE(heard(8.1, 5));
  EXPECT_FALSE(heard(180, 5));
}

TEST_F(NavReceiversTest, WithoutAStationEverythingIsZeroAndTheTextsAreSemicolons) {
  tune(0x0350, 0x1030);
  tune(0x0352, 0x1300);
  placeFromLocaliser(0, 5 * mile_m, 480);
  EXPECT_EQ(text(0x3000), "TST");
  tune(0x0350, 0x1040);
  tune(0x0352, 0x1340);
  receivers.show(state);
  for (const std::size_t shown : {0x0C48u, 0x0C49u, 0x0C4Au, 0x0C4Bu, 0x0C4Cu, 0x0C59u, 0x0C5Au,
                                  0x0C5Bu, 0x3000u, 0x3006u, 0x301Fu, 0x3025u})
    EXPECT_EQ(u8(shown), 0) << std::hex << shown;
  for (const std::size_t shown : {0x0C50u, 0x0C60u, 0x0870u, 0x0872u})
    EXPECT_EQ(u16(shown), 0) << std::hex << shown;
  for (const std::size_t distance : {0x0C29u, 0x0C33u}) EXPECT_EQ(text(distance), ";;.;");
  for (const std::size_t speed : {0x0C2Eu, 0x0C38u}) EXPECT_EQ(text(speed), ";;;.");
}

TEST_F(NavReceiversTest, WithoutPowerNothingIsHeard) {
  tune(0x0350, 0x1030);
  tune(0x034C, 0x0381);
  place(-7400, 0, 400);
  EXPECT_EQ(text(0x3000) + text(0x303E), "TSTN");
  EXPECT_EQ(u8(0x0BB0), 1);
  state.avionicsPowered = false;
  receivers.show(state);
  EXPECT_EQ(text(0x3000) + text(0x303E), "");
  EXPECT_EQ(u8(0x0BB0), 0);
  EXPECT_EQ(u8(0x0C4A), 0);
  EXPECT_EQ(u8(0x0C4C), 0);
  EXPECT_EQ(text(0x0C29), ";;.;");
}

TEST_F(NavReceiversTest, TheAdfNeedleIsRelativeToTheNose) {
  tune(0x034C, 0x0381);
  placeFrom0(270, 10 * mile_m, 900);
  EXPECT_EQ(u16(0x0C6A), 0);
  EXPECT_EQ(text(0x303E), "N");
  state.heading_deg = 0;
  receivers.show(state);
  EXPECT_EQ(u16(0x0C6A), 16384);  // 90 degrees to the right
  state.heading_deg = 180;
  receivers.show(state);
  EXPECT_EQ(u16(0x0C6A), 49152);
}

TEST_F(NavReceiversTest, ABeaconEndsByItsClassAtAnyHeight) {
  tune(0x034C, 0x0381);
  placeFrom0(270, 49.9 * mile_m, 0);
  EXPECT_EQ(text(0x303E), "N");
  placeFrom0(270, 50.1 * mile_m, 9000);
  EXPECT_EQ(text(0x303E), "");
  EXPECT_EQ(u16(0x0C6A), 0);
}

TEST_F(NavReceiversTest, TheAdfHearsThousandsAndTenthsOfAKilohertz) {
  tune(0x02D4, 0x0745);
  tune(0x02D6, 0x0105);  // thousands above, tenths below
  placeFrom0(270, 10 * mile_m, 900);
  EXPECT_EQ(text(0x02DC), "T");
  EXPECT_EQ(text(0x02E2), "HIGH BEACON");
  EXPECT_EQ(u16(0x02D8), 0);
  for (const int extension : {0x0104, 0x0005}) {
    tune(0x02D6, static_cast<std::uint16_t>(extension));
    receivers.show(state);
    EXPECT_EQ(text(0x02DC), "");
  }
}

/// Two stations a degree apart, which is 60.04 miles.
class SharedFrequencyTest : public NavReceiversTest {
 protected:
  std::string heardAt(const std::string& rows, double east_nm, double altitude_m) {
    NavReceivers both(memory, stationsFrom(rows));
    state.place = {0, east_nm * mile_m / degree_m};
    state.altitude_m = altitude_m;
    both.show(state);
    return text(0x3000) + text(0x303E);
  }
};

TEST_F(SharedFrequencyTest, TheNearerOneIsHeard) {
  tune(0x0350, 0x1300);
  const std::string rows = "vor WST 113.00 H 0 0 0 0 yes W\nvor EST 113.00 H 0 1 0 0 yes E\n";
  EXPECT_EQ(heardAt(rows, 25, 3000), "WST");
  EXPECT_EQ(heardAt(rows, 35, 3000), "EST");
}

TEST_F(SharedFrequencyTest, AFartherOneIsHeardWhereTheNearerOneDoesNotCarry) {
  tune(0x0350, 0x1300);
  const std::string rows = "vor WST 113.00 T 0 0 0 0 yes W\nvor EST 113.00 H 0 1 0 0 yes E\n";
  EXPECT_EQ(heardAt(rows, 24, 3000), "WST");
  EXPECT_EQ(heardAt(rows, 26, 3000), "EST");
}

TEST_F(SharedFrequencyTest, OfTwoBeaconsTheNearerOneIsHeard) {
  tune(0x034C, 0x0381);
  const std::string rows = "ndb W 381 H 0 0 W\nndb E 381 H 0 1 E\n";
  EXPECT_EQ(heardAt(rows, 25, 3000), "W");
  EXPECT_EQ(heardAt(rows, 35, 3000), "E");
}

TEST_F(SharedFrequencyTest, OfTheTwoEndsOfARunwayTheOneInFrontIsHeard) {
  tune(0x0350, 0x1030);
  const std::string rows =
      "runway A 09 0 0 90 3000 0 0\nrunway A 27 0 0.02698 270 3000 0 0\n"
      "ils EST 110.3 A 09 3 50 300 - - - yes no E\nils WST 110.3 A 27 3 50 300 - - - yes no W\n";
  EXPECT_EQ(heardAt(rows, -8, 700), "EST");
  EXPECT_EQ(heardAt(rows, 10, 700), "WST");
}

TEST_F(NavReceiversTest, MarkersLightOverTheirPlacesAlone) {
  const auto lamps = [&](double beforeThreshold_m, double north_m, double height_m) {
    place(-beforeThreshold_m, north_m, height_m);
    return std::vector<int>{u8(0x0BB0), u8(0x0BAE), u8(0x0BAC)};
  };
  EXPECT_EQ(lamps(7400, 0, 400), (std::vector<int>{1, 0, 0}));
  EXPECT_EQ(lamps(1050, 0, 70), (std::vector<int>{0, 1, 0}));
  EXPECT_EQ(lamps(250, 0, 28), (std::vector<int>{0, 0, 1}));
  EXPECT_EQ(lamps(4000, 0, 200), (std::vector<int>{0, 0, 0}));
  EXPECT_EQ(lamps(7400, 520, 400), (std::vector<int>{1, 0, 0}));
  EXPECT_EQ(lamps(7400, -530, 400), (std::vector<int>{0, 0, 0}));
  EXPECT_EQ(lamps(7400, 0, 1010), (std::vector<int>{0, 0, 0}));
  EXPECT_EQ(lamps(0, 0, 15), (std::vector<int>{0, 0, 0}));
}

/// Down the glide path in steps of 10 m, which the lamps count.
TEST_F(NavReceiversTest, DownTheGlidePathTheMarkersComeInOrderAndTheNeedlesStayCentred) {
  tune(0x0350, 0x1030);
  std::string order;
  std::vector<int> length_m(3);
  for (double before_m = 17003; before_m >= 0; before_m -= 10) {
    const double away_m = before_m + 290.8;
    place(-before_m, 0, away_m * 0.0524078 + away_m * away_m / (2 * 6371008.8));
    ASSERT_EQ(s8(0x0C48), 0) << before_m;
    ASSERT_NEAR(s8(0x0C49), 0, 1) << before_m;
    ASSERT_EQ(u8(0x0C4C), 1) << before_m;
    const std::vector<std::size_t> lamps{0x0BB0, 0x0BAE, 0x0BAC};
    for (std::size_t i = 0; i < 3; ++i) {
      if (u8(lamps[i]) == 0) continue;
      length_m[i] += 10;
      if (order.empty() || order.back() != "OMI"[i]) order += "OMI"[i];
    }
  }
  EXPECT_EQ(order, "OMI");
  EXPECT_EQ(length_m, (std::vector<int>{600, 300, 150}));
}

}  // namespace
}  // namespace vorlent
