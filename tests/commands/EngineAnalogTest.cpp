#include "commands/CommandTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EngineAnalog : public CommandTest {
 protected:
  /// Where a lever of engine 1 to 4 stands, for that of engine 1.
  static std::uint32_t ofEngine(std::uint32_t first, int engine) {
    constexpr std::uint32_t offsets[] = {0, 0x98, 0x130, 0x1C8};
    return first + offsets[engine - 1];
  }
  Writes twice(std::uint32_t first, std::vector<std::uint8_t> bytes) {
    return {{first, bytes}, {first + 0x98, bytes}};
  }
};

TEST_F(EngineAnalog, Code23SelectsTheTank) {
  EXPECT_THAT(analog(23, 4), ElementsAre(Write{0x0AF8, {4}}));
  EXPECT_EQ(v.StateValues(8), 4);
}

TEST_F(EngineAnalog, MagnetosOfAllEnginesAreFollowedByTheirCount) {
  for (const int code : {24, 29}) {
    v.StateValues(3) = 0;
    EXPECT_THAT(analog(code, 2),
                ElementsAre(Write{0x0892, {2}}, Write{0x092A, {2}}, Write{0x0888, {2}}));
    EXPECT_EQ(v.StateValues(3), 2);
  }
}

TEST_F(EngineAnalog, MagnetoOfOneEngineIsFollowedByItsNumber) {
  for (const int firstCode : {25, 30})
    for (int engine = 1; engine <= 4; ++engine) {
      v.StateValues(3) = 0;
      EXPECT_THAT(analog(firstCode + engine - 1, 4),
                  ElementsAre(Write{ofEngine(0x0892, engine), {4}},
                              Write{0x0888, {static_cast<std::uint8_t>(engine)}}));
      EXPECT_EQ(v.StateValues(3), 4);
    }
}

TEST_F(EngineAnalog, MixtureOfAllEnginesIs99AtMost) {
  EXPECT_EQ(analog(34, 50), twice(0x0890, {0x00, 0x20}));
  EXPECT_EQ(analog(34, 99), twice(0x0890, {0x5B, 0x3F}));
  EXPECT_EQ(analog(34, 100), twice(0x0890, {0x5B, 0x3F}));
  EXPECT_EQ(analog(34, 150), twice(0x0890, {0x5B, 0x3F}));
}

TEST_F(EngineAnalog, MixtureOfOneEngineGoesToFullTravel) {
  for (int engine = 1; engine <= 4; ++engine)
    EXPECT_THAT(analog(34 + engine, 100),
                ElementsAre(Write{ofEngine(0x0890, engine), {0xFF, 0x3F}}));
}

TEST_F(EngineAnalog, PropellersOfAllEngines) {
  EXPECT_EQ(analog(43, 100), twice(0x088E, {0xFF, 0x3F}));
}

TEST_F(EngineAnalog, PropellerOfOneEngine) {
  for (int engine = 1; engine <= 4; ++engine)
    EXPECT_THAT(analog(43 + engine, 50),
                ElementsAre(Write{ofEngine(0x088E, engine), {0x00, 0x20}}));
}

TEST_F(EngineAnalog, ThrottlesOfAllEngines) {
  for (const int code : {49, 54}) EXPECT_EQ(analog(code, 50), twice(0x088C, {0x00, 0x20}));
}

TEST_F(EngineAnalog, ThrottleOfOneEngine) {
  for (const int firstCode : {50, 55})
    for (int engine = 1; engine <= 4; ++engine)
      EXPECT_THAT(analog(firstCode + engine - 1, 50),
                  ElementsAre(Write{ofEngine(0x088C, engine), {0x00, 0x20}}));
}

TEST_F(EngineAnalog, NegativeThrottleOfAClientIsReverse) {
  EXPECT_THAT(analog(50, -25), ElementsAre(Write{0x088C, {0xFF, 0xEF}}));
}

class ThrottleRule : public EngineAnalog {
 protected:
  void expectLevers(bool work) {
    for (int code = 49; code <= 58; ++code) EXPECT_EQ(!analog(code, 50).empty(), work) << code;
  }
  clsXAutoT& at() { return *t.server.autoflight.xAutoT; }
};

TEST_F(ThrottleRule, LeversWorkWithoutAnAutothrottleWhateverItsModes) {
  expectLevers(true);
  at().apAirspeedHoldByRpm(1);
  expectLevers(true);
  at().apRpmHold(1);
  expectLevers(true);
}

TEST_F(ThrottleRule, LeversWorkBesideAnArmedAutothrottleWithoutAMode) {
  at().apAutoThrottle(1);
  expectLevers(true);
}

TEST_F(ThrottleRule, LeversAreDroppedInSpeedMode) {
  at().apAutoThrottle(1);
  at().apAirspeedHoldByRpm(1);
  expectLevers(false);
}

TEST_F(ThrottleRule, LeversAreDroppedInN1Mode) {
  at().apAutoThrottle(1);
  at().apRpmHold(1);
  expectLevers(false);
}

TEST_F(ThrottleRule, LeversAreDroppedBelowOne) {
  t.server.accessors.autoP->Do_Write_Offsets = 0;  // a lamp cannot show it
  at().apAutoThrottle(-1);
  expectLevers(false);
}

TEST_F(ThrottleRule, OtherModesLeaveTheLeversAlone) {
  at().apAutoThrottle(1);
  at().apThrottleHold(1);
  expectLevers(true);
  at().apRetard(1);
  expectLevers(true);
}

class FuelSelectors : public EngineAnalog {
 protected:
  void SetUp() override {
    EngineAnalog::SetUp();
    v.SwitchPair(1) = 3;
    v.SwitchPair(2) = 4;
    t.form.txtFuelL.Text("Left Main");
    t.form.txtFuelR.Text("Right Main");
  }
};

TEST_F(FuelSelectors, DoNothingWhileTheyAreNotEnabled) {
  EXPECT_THAT(analog(62, 5), IsEmpty());
  EXPECT_THAT(analog(63, 5), IsEmpty());
  EXPECT_EQ(v.SwitchPair(1), 3);
  EXPECT_EQ(v.SwitchPair(2), 4);
  EXPECT_EQ(t.form.txtFuelL.Text(), "Left Main");
  EXPECT_EQ(t.form.txtFuelR.Text(), "Right Main");
}

TEST_F(FuelSelectors, TakeTheTankAndShowIt) {
  t.form.chkFuel.Value(1);
  const char* const texts[] = {"off", "Left Aux", "Left Main", "Right Main", "Right Aux"};
  for (int code = 1; code <= 5; ++code) {
    EXPECT_THAT(analog(62, static_cast<float>(code)), IsEmpty());
    EXPECT_EQ(v.SwitchPair(1), code);
    EXPECT_EQ(t.form.txtFuelL.Text(), texts[code - 1]);
    EXPECT_THAT(analog(63, static_cast<float>(6 - code)), IsEmpty());
    EXPECT_EQ(v.SwitchPair(2), 6 - code);
    EXPECT_EQ(t.form.txtFuelR.Text(), texts[5 - code]);
  }
}

TEST_F(FuelSelectors, Code6IsShownByTheRightSelectorAlone) {
  t.form.chkFuel.Value(1);
  analog(62, 6);
  EXPECT_EQ(v.SwitchPair(1), 6);
  EXPECT_EQ(t.form.txtFuelL.Text(), "Left Main");
  analog(63, 6);
  EXPECT_EQ(v.SwitchPair(2), 6);
  EXPECT_EQ(t.form.txtFuelR.Text(), "Disabled");
}

TEST_F(FuelSelectors, CodeWithoutATextKeepsTheText) {
  t.form.chkFuel.Value(1);
  analog(62, 0);
  EXPECT_EQ(v.SwitchPair(1), 0);
  EXPECT_EQ(t.form.txtFuelL.Text(), "Left Main");
}

}  // namespace
}  // namespace vorlent
