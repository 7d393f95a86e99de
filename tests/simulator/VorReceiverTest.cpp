#include "simulator/NavReceiversTest.h"

namespace vorlent {
namespace {

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

}  // namespace
}  // namespace vorlent
