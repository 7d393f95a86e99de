#include "commands/CommandTest.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class RadioButtons : public CommandTest {
 protected:
  /// A frequency as its radio takes it: the whole megahertz above 100 first, then the hundredths,
  /// in binary coded decimal.
  static Writes frequency(std::uint32_t low, std::uint8_t whole, std::uint8_t hundredths) {
    return {{low + 1, {whole}}, {low, {hundredths}}};
  }
  /// Four digits before the point and one behind it, in binary coded decimal.
  static Writes adf(std::uint8_t hundreds, std::uint8_t units, std::uint8_t tenths = 0) {
    return {{0x034D, {hundreds}}, {0x034C, {units}}, {0x0356, {tenths}}, {0x0357, {0}}};
  }
};

TEST_F(RadioButtons, RoseStepsWithoutALowerLimit) {
  struct Case {
    int code;
    float before, after;
  };
  for (const auto& [code, before, after] : {Case{0, 45, 35},
                                            {0, 5, -5},
                                            {1, 45, 55},
                                            {1, 349, 359},
                                            {1, 350, 10},
                                            {1, 359, 10},
                                            {2, 45, 44},
                                            {2, 0, -1},
                                            {3, 45, 46},
                                            {3, 358, 359},
                                            {3, 359, 0}}) {
    v.RadioValues(12) = before;
    EXPECT_THAT(press(code), IsEmpty());
    EXPECT_EQ(v.RadioValues(12), after) << code << " from " << before;
  }
}

TEST_F(RadioButtons, AdfStepsInFourSizes) {
  v.RadioValues(4) = 350;
  EXPECT_THAT(press(5), ElementsAreArray(adf(0x04, 0x50)));
  EXPECT_THAT(press(4), ElementsAreArray(adf(0x03, 0x50)));
  EXPECT_THAT(press(7), ElementsAreArray(adf(0x03, 0x60)));
  EXPECT_THAT(press(6), ElementsAreArray(adf(0x03, 0x50)));
  EXPECT_THAT(press(9), ElementsAreArray(adf(0x03, 0x51)));
  EXPECT_THAT(press(8), ElementsAreArray(adf(0x03, 0x50)));
  EXPECT_THAT(press(11), ElementsAreArray(adf(0x03, 0x50, 1)));
  EXPECT_EQ(v.RadioValues(4), 350.1F);
  EXPECT_THAT(press(10), ElementsAreArray(adf(0x03, 0x50)));
  EXPECT_EQ(v.RadioValues(4), 350);
}

TEST_F(RadioButtons, AdfGoesTo200BeyondEitherEnd) {
  for (const auto& [code, before] : {std::pair(5, 900.F),
                                     {5, 950.F},
                                     {9, 998.F},
                                     {4, 250.F},
                                     {8, 200.F},
                                     {10, 200.F},
                                     {11, 998.9F}}) {
    v.RadioValues(4) = before;
    EXPECT_THAT(press(code), ElementsAreArray(adf(0x02, 0x00))) << code;
    EXPECT_EQ(v.RadioValues(4), 200) << code;
  }
}

TEST_F(RadioButtons, AdfSelectSendsWhatIsHeldAboveZero) {
  EXPECT_THAT(press(12), IsEmpty());
  v.RadioValues(4) = 412.5F;
  EXPECT_THAT(press(12), ElementsAreArray(adf(0x04, 0x12, 5)));
}

TEST_F(RadioButtons, Com1FractionStepsOnTheRasterFromTheSimulatorsFrequency) {
  v.RadioValues(1) = 120;
  v.Com1Freq = 118.02F;
  EXPECT_THAT(press(48), ElementsAreArray(frequency(0x034E, 0x18, 0x05)));
  EXPECT_FLOAT_EQ(v.RadioValues(1), 118.05F);
  v.Com1Freq = 118.07F;
  EXPECT_THAT(press(48), ElementsAreArray(frequency(0x034E, 0x18, 0x10)));
  v.Com1Freq = 118.1F;
  EXPECT_THAT(press(47), ElementsAreArray(frequency(0x034E, 0x18, 0x07)));
  v.Com1Freq = 118.05F;
  EXPECT_THAT(press(47), ElementsAreArray(frequency(0x034E, 0x18, 0x02)));
}

TEST_F(RadioButtons, Com1WholeMegahertzWrapAtEitherEnd) {
  v.RadioValues(1) = 121.5F;
  EXPECT_THAT(press(50), ElementsAreArray(frequency(0x034E, 0x22, 0x50)));
  EXPECT_THAT(press(49), ElementsAreArray(frequency(0x034E, 0x21, 0x50)));
  v.RadioValues(1) = 118.5F;
  EXPECT_THAT(press(49), ElementsAreArray(frequency(0x034E, 0x36, 0x97)));
  EXPECT_EQ(v.RadioValues(1), 136.97F);
  EXPECT_THAT(press(50), ElementsAreArray(frequency(0x034E, 0x18, 0x00)));
  EXPECT_EQ(v.RadioValues(1), 118);
  v.RadioValues(1) = 135.95F;
  EXPECT_THAT(press(50), ElementsAreArray(frequency(0x034E, 0x36, 0x95)));
}

TEST_F(RadioButtons, Com2FractionStepsByAHundredthOffTheRaster) {
  v.Com2Freq = 121.02F;
  EXPECT_THAT(press(141), ElementsAreArray(frequency(0x3118, 0x21, 0x03)));
  EXPECT_FLOAT_EQ(v.RadioValues(8), 121.03F);
  EXPECT_THAT(press(140), ElementsAreArray(frequency(0x3118, 0x21, 0x01)));
}

TEST_F(RadioButtons, Com2WholeMegahertzWrapAsThoseOfCom1) {
  v.RadioValues(8) = 118;
  EXPECT_THAT(press(142), ElementsAreArray(frequency(0x3118, 0x36, 0x97)));
  EXPECT_THAT(press(143), ElementsAreArray(frequency(0x3118, 0x18, 0x00)));
  EXPECT_THAT(press(143), ElementsAreArray(frequency(0x3118, 0x19, 0x00)));
  EXPECT_EQ(v.RadioValues(8), 119);
}

struct NavButtons {
  int fractionDown;  ///< the other three follow
  int item;
  float modPublic::*simulator_MHz;
  std::uint32_t offset;
};

class NavRadioButtons : public RadioButtons, public testing::WithParamInterface<NavButtons> {};

TEST_P(NavRadioButtons, FractionStepsFromTheSimulatorsFrequencyWithoutALimit) {
  const auto& [first, item, simulator_MHz, offset] = GetParam();
  v.*simulator_MHz = 110.3F;
  EXPECT_THAT(press(first + 1), ElementsAreArray(frequency(offset, 0x10, 0x35)));
  EXPECT_FLOAT_EQ(v.RadioValues(item), 110.35F);
  EXPECT_THAT(press(first), ElementsAreArray(frequency(offset, 0x10, 0x25)));
  v.*simulator_MHz = 117.95F;
  EXPECT_THAT(press(first + 1), ElementsAreArray(frequency(offset, 0x18, 0x00)));
}

TEST_P(NavRadioButtons, WholeMegahertzGoTo108From117OnAndBelow108) {
  const auto& [first, item, simulator_MHz, offset] = GetParam();
  v.RadioValues(item) = 110.3F;
  EXPECT_THAT(press(first + 3), ElementsAreArray(frequency(offset, 0x11, 0x30)));
  EXPECT_FLOAT_EQ(v.RadioValues(item), 111.3F);
  EXPECT_THAT(press(first + 2), ElementsAreArray(frequency(offset, 0x10, 0x30)));
  v.RadioValues(item) = 117.3F;
  EXPECT_THAT(press(first + 3), ElementsAreArray(frequency(offset, 0x08, 0x00)));
  v.RadioValues(item) = 108.3F;
  EXPECT_THAT(press(first + 2), ElementsAreArray(frequency(offset, 0x08, 0x00)));
}

INSTANTIATE_TEST_SUITE_P(Radios, NavRadioButtons,
                         testing::Values(NavButtons{96, 2, &modPublic::Nav1Freq, 0x0350},
                                         NavButtons{101, 3, &modPublic::Nav2Freq, 0x0352},
                                         NavButtons{152, 15, &modPublic::Nav1Standby, 0x311E},
                                         NavButtons{156, 16, &modPublic::Nav2Standby, 0x3120}),
                         [](const auto& row) {
                           return "From" + std::to_string(row.param.fractionDown);
                         });

TEST_F(RadioButtons, ObsStepsWithoutALimit) {
  v.RadioValues(6) = 180;
  EXPECT_THAT(press(112), ElementsAre(Write{0x0C4E, {170, 0}}));
  EXPECT_THAT(press(113), ElementsAre(Write{0x0C4E, {180, 0}}));
  EXPECT_THAT(press(114), ElementsAre(Write{0x0C4E, {179, 0}}));
  EXPECT_THAT(press(115), ElementsAre(Write{0x0C4E, {180, 0}}));
  v.RadioValues(6) = 359;
  EXPECT_THAT(press(115), ElementsAre(Write{0x0C4E, {0x68, 0x01}}));  // 360
  v.RadioValues(7) = 90;
  EXPECT_THAT(press(116), ElementsAre(Write{0x0C5E, {80, 0}}));
  EXPECT_THAT(press(117), ElementsAre(Write{0x0C5E, {90, 0}}));
  EXPECT_THAT(press(118), ElementsAre(Write{0x0C5E, {89, 0}}));
  EXPECT_THAT(press(119), ElementsAre(Write{0x0C5E, {90, 0}}));
  v.RadioValues(7) = 0;
  EXPECT_THAT(press(118), ElementsAre(Write{0x0C5E, {0xFF, 0xFF}}));  // -1
  EXPECT_EQ(v.RadioValues(7), -1);
}

TEST_F(RadioButtons, TransponderFlipsBetween0And1) {
  v.RadioValues(5) = 1200;
  EXPECT_THAT(press(120), ElementsAre(Write{0x0355, {0}}, Write{0x0354, {0}}));
  EXPECT_EQ(v.RadioValues(5), 0);
  EXPECT_THAT(press(120), ElementsAre(Write{0x0355, {0}}, Write{0x0354, {1}}));
  EXPECT_EQ(v.RadioValues(5), 1);
}

TEST_F(RadioButtons, TransponderDigitsGoUpFromTheLastToTheFirst) {
  v.RadioValues(5) = 1276;
  EXPECT_THAT(press(121), ElementsAre(Write{0x0355, {0x12}}, Write{0x0354, {0x77}}));
  EXPECT_THAT(press(122), ElementsAre(Write{0x0355, {0x12}}, Write{0x0354, {0x07}}));
  EXPECT_THAT(press(123), ElementsAre(Write{0x0355, {0x13}}, Write{0x0354, {0x07}}));
  EXPECT_THAT(press(124), ElementsAre(Write{0x0355, {0x23}}, Write{0x0354, {0x07}}));
  EXPECT_EQ(v.RadioValues(5), 2307);
}

TEST_F(RadioButtons, DmeFlipsWithAndWithoutTellingTheSimulator) {
  EXPECT_THAT(press(68), ElementsAre(Write{0x0378, {2}}));
  EXPECT_EQ(v.RadioValues(9), 1);
  EXPECT_THAT(press(68), ElementsAre(Write{0x0378, {1}}));
  EXPECT_EQ(v.RadioValues(9), 0);
  EXPECT_THAT(press(51), IsEmpty());
  EXPECT_EQ(v.RadioValues(9), 1);
  press(51);
  EXPECT_EQ(v.RadioValues(9), 0);
}

struct StoreButton {
  int store, recall;
  float modPublic::*simulator_MHz;
  int item;     ///< of the held values
  int current;  ///< of ButtonStates
  std::uint8_t swapBit;
};

class FrequencyMemoryButtons : public RadioButtons,
                               public testing::WithParamInterface<StoreButton> {
 protected:
  void storeAll(std::initializer_list<float> frequencies_MHz) {
    for (const float frequency_MHz : frequencies_MHz) {
      v.*GetParam().simulator_MHz = frequency_MHz;
      press(GetParam().store);
    }
  }
  float recalled() {
    EXPECT_THAT(press(GetParam().recall), IsEmpty());
    return v.ButtonStates(GetParam().current);
  }
};

TEST_P(FrequencyMemoryButtons, StoringExchangesActiveAndStandby) {
  v.*GetParam().simulator_MHz = 110.3F;
  v.RadioValues(GetParam().item) = 110.3F;
  v.FsVersionCode = 3;
  EXPECT_THAT(press(GetParam().store), ElementsAre(Write{0x3123, {GetParam().swapBit}}));
  EXPECT_EQ(v.RadioValues(GetParam().item), 110.3F);
}

TEST_P(FrequencyMemoryButtons, WithoutStandbyTheHeldValueFlips) {
  v.FsVersionCode = 2;
  v.RadioValues(GetParam().item) = 110.3F;
  EXPECT_THAT(press(GetParam().store), IsEmpty());
  EXPECT_EQ(v.RadioValues(GetParam().item), 0);
  press(GetParam().store);
  EXPECT_EQ(v.RadioValues(GetParam().item), 1);
}

TEST_P(FrequencyMemoryButtons, RecallGoesRoundTheStoredFrequencies) {
  storeAll({110.3F, 112.5F, 109.1F});
  for (const float expected : {110.3F, 112.5F, 109.1F, 110.3F}) EXPECT_EQ(recalled(), expected);
}

TEST_P(FrequencyMemoryButtons, AFrequencyInTheListIsNotStoredTwice) {
  storeAll({110.3F, 112.5F, 110.3F, 112.5F});
  for (const float expected : {110.3F, 112.5F, 110.3F}) EXPECT_EQ(recalled(), expected);
}

TEST_P(FrequencyMemoryButtons, RecallFromAnEmptyListLeavesTheCurrentItem) {
  v.ButtonStates(GetParam().current) = 5;
  EXPECT_EQ(recalled(), 5);
}

INSTANTIATE_TEST_SUITE_P(Radios, FrequencyMemoryButtons,
                         testing::Values(StoreButton{46, 132, &modPublic::Com1Freq, 1, 1, 8},
                                         StoreButton{139, 138, &modPublic::Com2Freq, 8, 2, 4},
                                         StoreButton{95, 133, &modPublic::Nav1Freq, 2, 3, 2},
                                         StoreButton{100, 134, &modPublic::Nav2Freq, 3, 4, 1}),
                         [](const auto& row) { return "Code" + std::to_string(row.param.store); });

TEST_F(RadioButtons, TheComRadiosShareTheirStoredFrequencies) {
  v.Com1Freq = 118.5F;
  press(46);
  press(138);
  EXPECT_EQ(v.ButtonStates(2), 118.5F);
  EXPECT_EQ(v.ButtonStates(1), 0);
}

TEST_F(RadioButtons, NoButtonStoresAnAdfFrequencySoTheRecallLeavesTheCurrentItem) {
  v.ButtonStates(5) = 350;
  EXPECT_THAT(press(135), IsEmpty());
  EXPECT_EQ(v.ButtonStates(5), 350);
}

TEST_F(RadioButtons, ABadDigitIsToldOnTheStatusLine) {
  v.RadioValues(5) = -200;
  EXPECT_THAT(press(124), IsEmpty());
  EXPECT_EQ(status(), "SetButtonValues Type mismatch");
  EXPECT_EQ(v.RadioValues(5), -200);
}

TEST_F(RadioButtons, AnObsThatDoesNotFitIsToldAndStaysHeld) {
  v.RadioValues(6) = 32767;
  EXPECT_THAT(press(115), IsEmpty());
  EXPECT_EQ(status(), "SetButtonValues Overflow");
  EXPECT_EQ(v.RadioValues(6), 32768);
}

}  // namespace
}  // namespace vorlent
