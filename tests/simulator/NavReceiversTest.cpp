#include "simulator/NavReceivers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/StationTable.h"

namespace vorlent {
namespace {

constexpr double mile_m = 1852;
constexpr double foot_m = 0.3048;
/// A degree of a great circle: pi / 180 of 6371008.8 m.
constexpr double degree_m = 111195.08;

/// Everything lies at sea level about 0 N 0 E, so that metres are degrees in both directions. The
/// localiser stands 3300 m east of the threshold and is 1.8554 degrees wide to either side, the
/// glide path antenna 290.8 m east of it.
const std::string table = R"(
runway TEST 09  0 0  90 3000 0 2
runway TEST 27  0 0.5  270 3000 0 2
ils TST 110.30 TEST 09 3 50 300 7400 1050 250 yes no  TEST ILS
ils BCK 109.50 TEST 09 3 50 300 - - -         yes yes BACK ILS
ils NOD 108.10 TEST 09 3 50 300 - - -         no  no  NO DME
vor VVV 113.00 H 0 0 0 2 yes  HIGH VOR
vor LOW 113.10 L 0 0 0 2 yes  LOW VOR
vor TER 113.20 T 0 0 0 2 yes  TERMINAL VOR
vor BAR 113.30 H 0 0 0 2 no   BARE VOR
ndb N 381.0 H 0 0   BEACON
ndb T 1745.5 H 0 0  HIGH BEACON
)";

class NavReceiversTest : public testing::Test {
 protected:
  NavReceiversTest() {
    state.heading_deg = 90;
    state.track_deg = 90;
  }

  void tune(std::size_t at, std::uint16_t frequency) { memory.write(at, frequency); }
  void course(std::size_t at, int course_deg) {
    memory.write(at, static_cast<std::uint16_t>(course_deg));
  }
  void place(double east_m, double north_m, double altitude_m) {
    state.place = {north_m / degree_m, east_m / degree_m};
    state.altitude_m = altitude_m;
    receivers.show(state);
  }
  void placeFrom0(double bearing_deg, double distance_m, double altitude_m) {
    state.place = placeFrom({0, 0}, bearing_deg, distance_m);
    state.altitude_m = altitude_m;
    receivers.show(state);
  }
  /// So far from the localiser, so many degrees to the left of who comes in.
  void placeFromLocaliser(double left_deg, double distance_m, double altitude_m) {
    state.place = placeFrom({0, 3300 / degree_m}, 270 + left_deg, distance_m);
    state.altitude_m = altitude_m;
    receivers.show(state);
  }
  int s8(std::size_t at) const { return memory.read<std::int8_t>(at); }
  int u8(std::size_t at) const { return memory.read<std::uint8_t>(at); }
  int u16(std::size_t at) const { return memory.read<std::uint16_t>(at); }
  std::string text(std::size_t at) const {
    std::string found;
    for (; memory.read<char>(at) != 0; ++at) found += memory.read<char>(at);
    return found;
  }

  OffsetMemory memory;
  AircraftState state;
  NavReceivers receivers{memory, stationsFrom(table)};
};

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

class VorTest : public NavReceiversTest {
 protected:
  VorTest() { tune(0x0352, 0x1300); }
  bool heard(double distance_nm, double height_ft) {
    placeFrom0(45, distance_nm * mile_m, height_ft * foot_m);
    return u8(0x0C5A) == 0x80;
  }
};

TEST_F(VorTest, NeedleToAndFromFollowTheCourse) {
  placeFrom0(90, 20 * mile_m, 1800);  // radial 88 magnetic
  EXPECT_EQ(u16(0x0C60), 16020);      // 88 / 360 of 65536
  const auto shown = [this](int course_deg) {
    course(0x0C5E, course_deg);
    receivers.show(state);
    return std::vector<int>{s8(0x0C59), u8(0x0C5B)};
  };
  // The station lies at 268: from a course of 270 it is 2 degrees to the left, 25.4 of 127.
  EXPECT_EQ(shown(270), (std::vector<int>{-25, 1}));
  EXPECT_EQ(shown(268), (std::vector<int>{0, 1}));
  EXPECT_EQ(shown(264), (std::vector<int>{51, 1}));
  EXPECT_EQ(shown(258), (std::vector<int>{127, 1}));
  EXPECT_EQ(shown(230), (std::vector<int>{127, 1}));
  // Outbound on 84 the course is 4 degrees to the left of radial 88.
  EXPECT_EQ(shown(84), (std::vector<int>{-51, 2}));
  EXPECT_EQ(shown(90), (std::vector<int>{25, 2}));
  EXPECT_EQ(u8(0x0C5A), 0x80);
}

TEST_F(VorTest, ToTurnsToFromWhenTheCourseIsSquareToTheRadial) {
  placeFrom0(90, 20 * mile_m, 1800);
  const auto toFrom = [this](int course_deg) {
    course(0x0C5E, course_deg);
    receivers.show(state);
    return u8(0x0C5B);
  };
  EXPECT_EQ(toFrom(179), 1);
  EXPECT_EQ(toFrom(177), 2);
  EXPECT_EQ(toFrom(357), 1);
  EXPECT_EQ(toFrom(359), 2);
}

TEST_F(VorTest, ToTurnsToFromInFlightOverTheStation) {
  course(0x0C5E, 88);
  placeFrom0(270, 3 * mile_m, 600);
  EXPECT_EQ(u8(0x0C5B), 1);
  placeFrom0(90, 3 * mile_m, 600);
  EXPECT_EQ(u8(0x0C5B), 2);
  EXPECT_NEAR(s8(0x0C59), 0, 1);
}

TEST_F(VorTest, ServiceVolumesEndByClassAndHeight) {
  EXPECT_TRUE(heard(39.9, 14400));
  EXPECT_FALSE(heard(40.1, 14400));
  EXPECT_TRUE(heard(99.9, 14600));
  EXPECT_FALSE(heard(100.1, 17900));
  EXPECT_TRUE(heard(129.9, 18100));
  EXPECT_FALSE(heard(130.1, 35000));
  EXPECT_TRUE(heard(99.9, 45100));
  EXPECT_FALSE(heard(100.1, 45100));
  EXPECT_FALSE(heard(50, 60100));
  tune(0x0352, 0x1310);
  EXPECT_TRUE(heard(39.9, 17900));
  EXPECT_FALSE(heard(40.1, 17900));
  EXPECT_FALSE(heard(30, 18100));
  tune(0x0352, 0x1320);
  EXPECT_TRUE(heard(24.9, 11900));
  EXPECT_FALSE(heard(25.1, 11900));
  EXPECT_FALSE(heard(20, 12100));
}

TEST_F(VorTest, LowFlightLosesItAtTheRadioHorizon) {
  // 10 m above 500 feet one sees 52527 m far and the station's antenna 9217 m: 33.34 miles.
  EXPECT_TRUE(heard(33.3, 500));
  EXPECT_FALSE(heard(33.4, 500));
  EXPECT_TRUE(heard(11.9, 0));  // 13034 m and 9217 m are 12.01 miles
  EXPECT_FALSE(heard(12.1, 0));
}

TEST_F(VorTest, OverItThereIsAConeWithoutACourseButDmeAndIdentStay) {
  // 10000 feet are 40 degrees high at 3632 m.
  placeFrom0(45, 3660, 3048);
  EXPECT_EQ(u8(0x0C5A), 0x80);
  placeFrom0(45, 3600, 3048);
  EXPECT_EQ(u8(0x0C5A), 0);
  EXPECT_EQ(u8(0x0C5B), 0);
  EXPECT_EQ(s8(0x0C59), 0);
  EXPECT_EQ(u16(0x0C60), 0);
  EXPECT_EQ(text(0x301F), "VVV");
  EXPECT_EQ(text(0x0C33), "02.5");  // the root of 3600 and 3048 squared is 4717 m, 2.55 miles
}

TEST_F(VorTest, DmeMeasuresTheSlantRangeAndItsRate) {
  // 20 miles at 30000 feet: 37093 m across and 9036 m up are 38178 m, 20.61 miles.
  state.track_deg = 45;
  state.groundSpeed_m_s = 200 * mile_m / 3600;
  placeFrom0(90, 20 * mile_m, 9144);
  EXPECT_EQ(text(0x0C33), "20.6");
  // 200 knots, 45 degrees off the radial and seen 13.69 degrees high: 200 x 0.7071 x 0.9716.
  EXPECT_EQ(text(0x0C38), "137.");
  // Climbing with 20 m/s adds 20 x 0.2367 m/s, 9.2 knots; coming in it is taken off.
  state.verticalSpeed_m_s = 20;
  receivers.show(state);
  EXPECT_EQ(text(0x0C38), "147.");
  state.track_deg = 225;
  receivers.show(state);
  EXPECT_EQ(text(0x0C38), "128.");
}

TEST_F(VorTest, ADistanceFromAHundredMilesOnHasNoDecimal) {
  // 119.6 miles at 36000 feet: 221882 m across and 7115 m up are 119.87 miles.
  placeFrom0(0, 119.6 * mile_m, 36000 * foot_m);
  EXPECT_EQ(text(0x0C33), "120.");
  placeFrom0(0, 4.5 * mile_m, 0);
  EXPECT_EQ(text(0x0C33), "04.5");
  EXPECT_EQ(text(0x0C38), "000.");
}

TEST_F(VorTest, WithoutADmeTheTextsAreSemicolons) {
  tune(0x0352, 0x1330);
  EXPECT_TRUE(heard(20, 5000));
  EXPECT_EQ(text(0x0C33), ";;.;");
  EXPECT_EQ(text(0x0C38), ";;;.");
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
