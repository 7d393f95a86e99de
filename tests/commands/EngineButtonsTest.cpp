#include "commands/CommandTest.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

constexpr std::uint32_t Selected = 0x0888;
constexpr std::uint32_t StartLevers[] = {0x08B2, 0x094A, 0x09E2, 0x0A7A};
constexpr std::uint32_t Magnetos[] = {0x0892, 0x092A, 0x09C2, 0x0A5A};
constexpr std::uint32_t Mixtures[] = {0x0890, 0x0928, 0x09C0, 0x0A58};

class EngineButtons : public CommandTest {
 protected:
  void SetUp() override {
    CommandTest::SetUp();
    v.EngineCount = 4;
  }
  static Write byte(std::uint32_t offset, int value) {
    return {offset, {static_cast<std::uint8_t>(value)}};
  }
};

TEST_F(EngineButtons, StartLeversFlipOneHeldValueAndSelectTheirEngine) {
  for (int engine = 1; engine <= 4; ++engine) {
    v.StateValues(11) = 0;
    const std::uint32_t lever = StartLevers[engine - 1];
    EXPECT_THAT(press(16 + engine), ElementsAre(byte(lever, 1), byte(Selected, engine)));
    EXPECT_EQ(v.StateValues(11), 1);
    EXPECT_THAT(press(16 + engine), ElementsAre(byte(lever, 0), byte(Selected, engine)));
    EXPECT_EQ(v.StateValues(11), 0);
  }
}

TEST_F(EngineButtons, AllStartLeversMoveAndTheNumberOfEnginesIsSelected) {
  v.EngineCount = 2;
  EXPECT_THAT(press(21), ElementsAre(byte(0x08B2, 1), byte(0x094A, 1), byte(0x09E2, 1),
                                     byte(0x0A7A, 1), byte(Selected, 2)));
  EXPECT_THAT(press(21), ElementsAre(byte(0x08B2, 0), byte(0x094A, 0), byte(0x09E2, 0),
                                     byte(0x0A7A, 0), byte(Selected, 2)));
  EXPECT_EQ(v.StateValues(11), 0);
}

TEST_F(EngineButtons, TankSelectionsWriteTheirNumber) {
  for (const auto& [code, tank] : {std::pair(56, 1), {58, 2}, {59, 4}, {61, 3}, {62, 5}}) {
    EXPECT_THAT(press(code), ElementsAre(byte(0x0AF8, tank))) << code;
    EXPECT_EQ(v.StateValues(8), tank) << code;
  }
}

TEST_F(EngineButtons, Code57GoesBackTo0WhenTheSelectorIsOff) {
  v.FuelSelector = 3;
  EXPECT_THAT(press(57), ElementsAre(byte(0x0AF8, 1)));
  EXPECT_EQ(v.StateValues(8), 1);
  v.FuelSelector = 0;
  EXPECT_THAT(press(57), ElementsAre(byte(0x0AF8, 1), byte(0x0AF8, 0)));
  EXPECT_EQ(v.StateValues(8), 0);
}

TEST_F(EngineButtons, Code60DoesNothing) {
  v.StateValues(8) = 2;
  EXPECT_THAT(press(60), IsEmpty());
  EXPECT_EQ(v.StateValues(8), 2);
}

TEST_F(EngineButtons, MixturesFlipBetweenCutOffAndFull) {
  for (int engine = 1; engine <= 4; ++engine) {
    v.StateValues(3) = 0;
    const std::uint32_t mixture = Mixtures[engine - 1];
    EXPECT_THAT(press(69 + engine), ElementsAre(Write{mixture, {0xFF, 0x3F}}));
    EXPECT_EQ(v.StateValues(3), 1);
    EXPECT_THAT(press(69 + engine), ElementsAre(Write{mixture, {0, 0}}));
    EXPECT_EQ(v.StateValues(3), 0);
  }
}

TEST_F(EngineButtons, MixtureOfAllReachesTheEnginesThatThereAre) {
  v.EngineCount = 2;
  EXPECT_THAT(press(69), ElementsAre(Write{0x0890, {0xFF, 0x3F}}, Write{0x0928, {0xFF, 0x3F}}));
  EXPECT_EQ(v.StateValues(3), 1);
  EXPECT_THAT(press(69), ElementsAre(Write{0x0890, {0, 0}}, Write{0x0928, {0, 0}}));
}

TEST_F(EngineButtons, Magnetos74To78DoNotKeepWhatTheySend) {
  for (int engine = 1; engine <= 4; ++engine) {
    v.StateValues(3) = 0;
    EXPECT_THAT(press(74 + engine), ElementsAre(byte(Magnetos[engine - 1], 1)));
    EXPECT_THAT(press(74 + engine), ElementsAre(byte(Magnetos[engine - 1], 1)));
    EXPECT_EQ(v.StateValues(3), 0);
    v.StateValues(3) = 4;
    EXPECT_THAT(press(74 + engine), ElementsAre(byte(Magnetos[engine - 1], 0)));
    EXPECT_EQ(v.StateValues(3), 4);
  }
  v.EngineCount = 2;
  v.StateValues(3) = 0;
  EXPECT_THAT(press(74), ElementsAre(byte(0x0892, 1), byte(0x092A, 1)));
  EXPECT_EQ(v.StateValues(3), 0);
}

TEST_F(EngineButtons, Magnetos79To83KeepItAndSelectTheirEngine) {
  for (int engine = 1; engine <= 4; ++engine) {
    v.StateValues(3) = 0;
    const std::uint32_t magneto = Magnetos[engine - 1];
    EXPECT_THAT(press(79 + engine), ElementsAre(byte(magneto, 1), byte(Selected, engine)));
    EXPECT_EQ(v.StateValues(3), 1);
    EXPECT_THAT(press(79 + engine), ElementsAre(byte(magneto, 0), byte(Selected, engine)));
    EXPECT_EQ(v.StateValues(3), 0);
  }
  v.EngineCount = 2;
  EXPECT_THAT(press(79), ElementsAre(byte(0x0892, 1), byte(0x092A, 1), byte(Selected, 2)));
  EXPECT_EQ(v.StateValues(3), 1);
}

TEST_F(EngineButtons, MagnetosOfOneEngineTurnDownUpAndToStart) {
  struct Codes {
    int down, up, start;
  };
  int engine = 0;
  for (const auto& [down, up, start] :
       {Codes{87, 88, 128}, {89, 90, 129}, {91, 92, 130}, {93, 94, 131}}) {
    const std::uint32_t magneto = Magnetos[engine++];
    v.StateValues(3) = 2;
    EXPECT_THAT(press(down), ElementsAre(byte(magneto, 1), byte(Selected, engine)));
    EXPECT_EQ(v.StateValues(3), 1);
    EXPECT_THAT(press(up), ElementsAre(byte(magneto, 2), byte(Selected, engine)));
    EXPECT_EQ(v.StateValues(3), 2);
    EXPECT_THAT(press(start), ElementsAre(byte(magneto, 4), byte(Selected, engine)));
    EXPECT_EQ(v.StateValues(3), 4);
    EXPECT_EQ(v.Engines(engine).Starter, 4);
  }
}

TEST_F(EngineButtons, MagnetosOfAllTurnDownUpAndToStart) {
  v.EngineCount = 2;
  v.StateValues(3) = 2;
  const auto all = [](int position) {
    return Writes{byte(0x0892, position), byte(0x092A, position), byte(Selected, 2)};
  };
  EXPECT_THAT(press(85), ElementsAreArray(all(1)));
  EXPECT_THAT(press(86), ElementsAreArray(all(2)));
  EXPECT_THAT(press(127), ElementsAreArray(all(4)));
  EXPECT_EQ(v.StateValues(3), 4);
}

TEST_F(EngineButtons, AMagnetoBelow0IsToldAndStaysHeld) {
  v.StateValues(3) = 0;
  EXPECT_THAT(press(87), IsEmpty());
  EXPECT_EQ(status(), "SetButtonValues Overflow");
  EXPECT_EQ(v.StateValues(3), -1);
}

TEST_F(EngineButtons, PropellerSyncTakesTheValue) {
  EXPECT_THAT(press(238, 1), ElementsAre(Write{0x2EC8, {1, 0}}));
  EXPECT_THAT(press(238, 0), ElementsAre(Write{0x2EC8, {0, 0}}));
}

}  // namespace
}  // namespace vorlent
