#include <cmath>

#include "commands/CommandTest.h"
#include "extras/Flaps.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;

AnalogResult I(int whole) { return static_cast<std::int16_t>(whole); }
AnalogResult R(float real) { return real; }
const AnalogResult Empty;

class LeverValues : public CommandTest {
 protected:
  void SetUp() override {
    CommandTest::SetUp();
    v.EngineCount = 2;
  }
  AnalogResult value(int code, float reading) {
    return commands.AnalogValue(static_cast<std::int16_t>(code), reading, 0);
  }
  std::vector<int> levers(const IndexedArray<std::int16_t, 1, 4>& array) {
    return {array(1), array(2), array(3), array(4)};
  }
};

struct Row {
  int code;
  AnalogResult at0, at10000, at20000, at32767;
};

TEST_F(LeverValues, EveryCodeAtFourPointsOfTheTravel) {
  const Row rows[] = {
      {0, I(0), I(110), I(220), I(360)},
      {1, I(0), I(3), I(5), I(9)},
      {2, I(0), I(3), I(5), I(9)},
      {3, I(0), I(3), I(5), I(9)},
      {4, I(0), I(3), I(5), I(9)},
      {5, I(950), I(981), I(1011), I(1050)},
      {6, R(0.0F), R(19500.0F), R(39500.0F), R(65000.0F)},
      {7, R(0.0F), R(12000.0F), R(24000.0F), R(40000.0F)},
      {8, R(0.0F), R(109.866631F), R(219.733261F), R(360.0F)},
      {9, R(0.0F), R(0.6103702F), R(1.22074044F), R(2.0F)},
      {10, I(0), I(153), I(305), I(500)},
      {11, R(6900.0F), R(2700.0F), R(-1500.0F), R(-7000.0F)},
      {12, R(3400.0F), R(1300.0F), R(-700.0F), R(-3500.0F)},
      {13, R(16383.0F), R(6383.0F), R(-3617.0F), R(-16384.0F)},
      {14, R(16383.0F), R(6383.0F), R(-3617.0F), R(-16384.0F)},
      {15, R(-16383.0F), R(-6383.0F), R(3617.0F), R(16384.0F)},
      {16, R(16383.0F), R(6383.0F), R(-3617.0F), R(-16384.0F)},
      {17, I(0), I(10000), I(20000), I(32767)},
      {18, I(0), I(10000), I(20000), I(32767)},
      {19, I(0), I(10000), I(20000), I(32767)},
      {20, I(118), I(123), I(129), I(136)},
      {21, R(0.0F), R(0.274F), R(0.574F), R(0.974F)},
      {23, I(0), I(2), I(4), I(7)},
      {24, I(0), I(1), I(1), I(2)},
      {25, I(0), I(1), I(1), I(2)},
      {26, I(0), I(1), I(1), I(2)},
      {27, I(0), I(1), I(1), I(2)},
      {28, I(0), I(1), I(1), I(2)},
      {29, I(0), I(1), I(2), I(4)},
      {30, I(0), I(1), I(2), I(4)},
      {31, I(0), I(1), I(2), I(4)},
      {32, I(0), I(1), I(2), I(4)},
      {33, I(0), I(1), I(2), I(4)},
      {34, I(0), I(31), I(61), I(100)},
      {35, I(0), I(31), I(61), I(100)},
      {36, I(0), I(31), I(61), I(100)},
      {37, I(0), I(31), I(61), I(100)},
      {38, I(0), I(31), I(61), I(100)},
      {39, I(108), I(111), I(113), I(117)},
      {40, R(0.0F), R(0.3F), R(0.6F), R(0.95F)},
      {41, I(108), I(111), I(113), I(117)},
      {42, R(0.0F), R(0.3F), R(0.6F), R(0.95F)},
      {43, I(0), I(31), I(61), I(100)},
      {44, I(0), I(31), I(61), I(100)},
      {45, I(0), I(31), I(61), I(100)},
      {46, I(0), I(31), I(61), I(100)},
      {47, I(0), I(31), I(61), I(100)},
      {48, I(0), I(5000), I(10000), I(16384)},
      {49, I(0), I(31), I(61), I(100)},
      {50, I(0), I(31), I(61), I(100)},
      {51, I(0), I(31), I(61), I(100)},
      {52, I(0), I(31), I(61), I(100)},
      {53, I(0), I(31), I(61), I(100)},
      {54, I(25), I(13), I(51), I(100)},
      {55, I(25), I(13), I(51), I(100)},
      {56, I(25), I(13), I(51), I(100)},
      {57, I(25), I(13), I(51), I(100)},
      {58, I(25), I(13), I(51), I(100)},
      {59, I(0), I(114), I(226), I(10)},
      {60, I(0), I(114), I(226), I(10)},
      {61, I(0), I(0), I(0), I(0)},
      {62, I(1), I(2), I(3), I(5)},
      {63, I(1), I(2), I(3), I(5)},
      {64, I(118), I(123), I(129), I(136)},
      {65, R(0.0F), R(0.274F), R(0.574F), R(0.974F)},
      {66, I(118), I(123), I(129), I(136)},
      {67, R(0.0F), R(0.274F), R(0.574F), R(0.974F)},
      {68, I(118), I(123), I(129), I(136)},
      {69, R(0.0F), R(0.274F), R(0.574F), R(0.974F)},
      {70, I(108), I(111), I(113), I(117)},
      {71, R(0.0F), R(0.3F), R(0.6F), R(0.95F)},
      {72, I(108), I(111), I(113), I(117)},
      {73, R(0.0F), R(0.3F), R(0.6F), R(0.95F)},
      {86, R(-249.992371F), R(-97.399826F), R(55.1927261F), R(250.007629F)},
      {87, R(-9.999695F), R(-3.895993F), R(2.207709F), R(10.0003052F)},
      {88, R(-9.999695F), R(-3.895993F), R(2.207709F), R(10.0003052F)},
      {107, R(-39.99878F), R(-15.583972F), R(8.830836F), R(40.00122F)},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.code);
    EXPECT_EQ(value(row.code, 0), row.at0);
    EXPECT_EQ(value(row.code, 10000), row.at10000);
    EXPECT_EQ(value(row.code, 20000), row.at20000);
    EXPECT_EQ(value(row.code, 32767), row.at32767);
  }
  EXPECT_EQ(status(), "");
}

TEST_F(LeverValues, CodesOfRemoteSticksAloneAreEmpty) {
  for (int code = 74; code <= 85; ++code) EXPECT_EQ(value(code, 20000), Empty) << code;
  for (int code = 89; code <= 106; ++code) EXPECT_EQ(value(code, 20000), Empty) << code;
}

TEST_F(LeverValues, UnknownCodesAreEmptyAndRaiseNothing) {
  for (const int code : {-32768, -1, 108, 998, 999, 1000, 32767})
    EXPECT_EQ(value(code, 20000), Empty) << code;
  EXPECT_EQ(status(), "");
}

TEST_F(LeverValues, BrakeOfExactly2000Gives0) {
  for (const int code : {17, 18, 19}) {
    EXPECT_EQ(value(code, 2000), I(0));
    EXPECT_EQ(value(code, 2001), I(2001));
  }
}

TEST_F(LeverValues, ObsOf361IsRaisedTo362AndGives2) {
  EXPECT_EQ(value(59, 31970), I(2));
  EXPECT_EQ(value(60, 31970), I(2));
}

TEST_F(LeverValues, ObsOf359IsRaisedTo360AndStays) { EXPECT_EQ(value(59, 31793), I(360)); }

TEST_F(LeverValues, ComFractionStopsAt97AtFullTravel) { EXPECT_EQ(value(21, 32767), R(0.974F)); }

TEST_F(LeverValues, AltitudeStepsUpOnlyAboveHalfAThousand) {
  EXPECT_EQ(value(6, 756), R(1000));  // 1.4997 thousand
  EXPECT_EQ(value(6, 757), R(1500));  // 1.5017 thousand
  EXPECT_EQ(value(6, 1008), R(1500));
  EXPECT_EQ(value(6, 1009), R(2000));
}

TEST_F(LeverValues, VerticalSpeedIsCutTowardsZero) {
  EXPECT_EQ(value(11, 16383 - 234), R(0));    // 0.9998 hundred
  EXPECT_EQ(value(11, 16383 - 235), R(100));  // 1.0041 hundred
  EXPECT_EQ(value(11, 16383 + 234), R(0));
  EXPECT_EQ(value(11, 16383 + 235), R(-100));
}

TEST_F(LeverValues, MixtureOfOneLeverIsKeptForEachEngineThereIs) {
  value(34, 32767);
  EXPECT_THAT(levers(v.MixtureLevers), ElementsAre(100, 100, 0, 0));
}

TEST_F(LeverValues, MixturesOfFourLeversAreKeptEngineByEngine) {
  for (int engine = 1; engine <= 4; ++engine)
    value(34 + engine, static_cast<float>(6553.4 * engine));
  EXPECT_THAT(levers(v.MixtureLevers), ElementsAre(20, 40, 60, 80));
}

TEST_F(LeverValues, ThrottleOfOneLeverIsKeptForEachEngineThereIs) {
  v.EngineCount = 3;
  value(49, 32767);
  EXPECT_THAT(levers(v.ThrottleLevers), ElementsAre(100, 100, 100, 0));
  value(54, 0);
  EXPECT_THAT(levers(v.ThrottleLevers), ElementsAre(25, 25, 25, 0));
}

TEST_F(LeverValues, ThrottlesOfFourLeversAreKeptEngineByEngine) {
  for (int engine = 1; engine <= 4; ++engine)
    value(49 + engine, static_cast<float>(6553.4 * engine));
  EXPECT_THAT(levers(v.ThrottleLevers), ElementsAre(20, 40, 60, 80));
  for (int engine = 1; engine <= 4; ++engine)
    value(54 + engine, static_cast<float>(6553.4 * engine));
  EXPECT_THAT(levers(v.ThrottleLevers), ElementsAre(0, 25, 50, 75));
}

TEST_F(LeverValues, SimulatorThatTellsMoreEnginesThanFourFillsFour) {
  v.EngineCount = 255;
  EXPECT_EQ(value(34, 32767), I(100));
  EXPECT_EQ(value(49, 32767), I(100));
  EXPECT_THAT(levers(v.MixtureLevers), ElementsAre(100, 100, 100, 100));
  EXPECT_THAT(levers(v.ThrottleLevers), ElementsAre(100, 100, 100, 100));
}

TEST_F(LeverValues, ReadingThatIsNoNumberIsToldAndGivesNothing) {
  EXPECT_EQ(value(0, NaN), Empty);
  EXPECT_EQ(status(), "SetAnalogValues Overflow");
}

class FlapLever : public LeverValues {
 protected:
  /// Up and the detents 10, 20 and 40 degrees, spread over the axis by steps of 5461.
  void SetUp() override {
    LeverValues::SetUp();
    auto& table = t.server.store.FlapTable;
    table(0) = {0, 4, 0};
    table(1) = {2730, 0, 5461};
    table(2) = {8192, 10, 10922};
    table(3) = {13652, 20, 16383};
    table(4) = {19114, 40, 16383};
    v.FlapIncrement = 5461;
  }
};

TEST_F(FlapLever, EachDetentIsAMultipleOfTheIncrement) {
  EXPECT_EQ(value(22, 0), I(0));
  EXPECT_EQ(value(22, 10922), I(5461));
  EXPECT_EQ(value(22, 21844), I(10922));
  EXPECT_EQ(value(22, 32767), I(16383));
}

TEST_F(FlapLever, DetentEndsAtItsLimit) {
  EXPECT_EQ(value(22, 5460), I(0));  // 2730
  EXPECT_EQ(value(22, 5461), I(0));  // 2730.5, cut
  EXPECT_EQ(value(22, 5462), I(5461));
  EXPECT_EQ(value(22, 16384), I(5461));  // 8192
  EXPECT_EQ(value(22, 16386), I(10922));
}

TEST_F(FlapLever, OldSimulatorTakesTheDegreesOfTheDetent) {
  v.FsVersionCode = 1;
  struct Case {
    int degrees;
    AnalogResult position;
  };
  const Case cases[] = {
      {-1, I(0)},     {0, I(0)},      {1, I(2047)},   {2, I(4094)},   {3, I(4776)},
      {4, I(5459)},   {5, I(6141)},   {8, I(7372)},   {10, I(8192)},  {13, I(9418)},
      {15, I(10235)}, {20, I(11258)}, {25, I(12282)}, {27, I(13101)}, {30, I(14329)},
      {40, I(15698)}, {45, I(16383)}, {46, Empty},
  };
  for (const Case& c : cases) {
    t.server.store.FlapTable(3).Degrees = static_cast<std::int16_t>(c.degrees);
    EXPECT_EQ(value(22, 21844), c.position) << c.degrees;
  }
}

TEST_F(FlapLever, TableThatWasNeverFilledGivesNothingAwayFromTheStop) {
  t.server.store.FlapTable = {};
  EXPECT_EQ(value(22, 0), I(0));
  EXPECT_EQ(value(22, 2), Empty);
}

TEST_F(FlapLever, IncrementThatDoesNotFitTheTableIsTold) {
  v.FlapIncrement = 16384;
  EXPECT_EQ(value(22, 32767), Empty);
  EXPECT_EQ(status(), "SetAnalogValues Overflow");
}

}  // namespace
}  // namespace vorlent
