#include "commands/CommandTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RadioAnalog : public CommandTest {
 protected:
  /// The two bytes of a frequency, the high one first, which stands behind the low one.
  static Writes tuned(std::uint32_t lowOffset, std::uint8_t high, std::uint8_t low) {
    return {{lowOffset + 1, {high}}, {lowOffset, {low}}};
  }
  /// Main high and low, tenths, thousands of the first ADF.
  static Writes adfTuned(std::uint8_t high, std::uint8_t low, std::uint8_t tenths,
                         std::uint8_t thousands) {
    return {{0x034D, {high}}, {0x034C, {low}}, {0x0356, {tenths}}, {0x0357, {thousands}}};
  }

  void expectAdf(int code, float held, float digit, const Writes& writes, float after) {
    SCOPED_TRACE(std::to_string(code) + " at " + std::to_string(held));
    v.RadioValues(4) = held;
    EXPECT_EQ(analog(code, digit), writes);
    EXPECT_EQ(v.RadioValues(4), after);
    EXPECT_EQ(status(), "");
  }
};

/// The codes of one dial, the place of what it holds, and the offset of its low byte.
struct Dial {
  int whole;
  int fraction;
  int held;
  std::uint32_t offset;
};

constexpr Dial ComDials[] = {
    {20, 21, 1, 0x034E}, {64, 65, 8, 0x3118}, {66, 67, 13, 0x311A}, {68, 69, 14, 0x311C}};
constexpr Dial NavDials[] = {
    {39, 40, 2, 0x0350}, {41, 42, 3, 0x0352}, {70, 71, 15, 0x311E}, {72, 73, 16, 0x3120}};

TEST_F(RadioAnalog, WholeMegahertzOfEachComKeepTheFraction) {
  for (const Dial& dial : ComDials) {
    SCOPED_TRACE(dial.whole);
    v.RadioValues(dial.held) = 121.5F;
    EXPECT_EQ(analog(dial.whole, 134), tuned(dial.offset, 0x34, 0x50));
    EXPECT_EQ(v.RadioValues(dial.held), 134.5F);
  }
}

TEST_F(RadioAnalog, FractionOfEachComKeepsTheWholeMegahertz) {
  for (const Dial& dial : ComDials) {
    SCOPED_TRACE(dial.fraction);
    v.RadioValues(dial.held) = 121.5F;
    EXPECT_EQ(analog(dial.fraction, 0.25F), tuned(dial.offset, 0x21, 0x25));
    EXPECT_EQ(v.RadioValues(dial.held), 121.25F);
  }
}

TEST_F(RadioAnalog, WholeMegahertzOfEachNavKeepTheFraction) {
  for (const Dial& dial : NavDials) {
    SCOPED_TRACE(dial.whole);
    v.RadioValues(dial.held) = 110.25F;
    EXPECT_EQ(analog(dial.whole, 117), tuned(dial.offset, 0x17, 0x25));
    EXPECT_EQ(v.RadioValues(dial.held), 117.25F);
  }
}

TEST_F(RadioAnalog, FractionOfEachNavKeepsTheWholeMegahertz) {
  for (const Dial& dial : NavDials) {
    SCOPED_TRACE(dial.fraction);
    v.RadioValues(dial.held) = 110.25F;
    EXPECT_EQ(analog(dial.fraction, 0.75F), tuned(dial.offset, 0x10, 0x75));
    EXPECT_EQ(v.RadioValues(dial.held), 110.75F);
  }
}

TEST_F(RadioAnalog, Codes100And101RoundTheirValueFirst) {
  v.RadioValues(1) = 121.25F;
  EXPECT_EQ(analog(100, 128.5F), tuned(0x034E, 0x28, 0x25));
  EXPECT_EQ(v.RadioValues(1), 128.25F);
  EXPECT_EQ(analog(101, 0.6F), tuned(0x034E, 0x29, 0x00));
  EXPECT_EQ(v.RadioValues(1), 129);
  EXPECT_EQ(analog(101, 0.4F), tuned(0x034E, 0x29, 0x00));
}

TEST_F(RadioAnalog, Codes100And101TakeNoValueBeyond16Bits) {
  v.RadioValues(1) = 121.25F;
  for (const int code : {100, 101}) {
    EXPECT_THAT(analog(code, 40000), IsEmpty()) << code;
    EXPECT_EQ(v.RadioValues(1), 121.25F) << code;
    EXPECT_EQ(status(), "SetAnalogValues Overflow");
  }
}

TEST_F(RadioAnalog, Code1IsTheFirstDigitOfTheAdfAndEndsAt2) {
  expectAdf(1, 350.5F, 1, adfTuned(0x01, 0x50, 5, 0), 150.5F);
  expectAdf(1, 350.5F, 2, adfTuned(0x02, 0x50, 5, 0), 250.5F);
  expectAdf(1, 350.5F, 9, adfTuned(0x02, 0x50, 5, 0), 250.5F);
  expectAdf(1, 350.5F, 0, adfTuned(0x00, 0x50, 5, 0), 50.5F);
}

TEST_F(RadioAnalog, Codes2And3AreTheSecondAndThirdDigitOfTheAdf) {
  expectAdf(2, 350.5F, 7, adfTuned(0x03, 0x70, 5, 0), 370.5F);
  expectAdf(3, 350.5F, 9, adfTuned(0x03, 0x59, 5, 0), 359.5F);
}

TEST_F(RadioAnalog, Code4IsTheTenthOfTheAdf) {
  expectAdf(4, 350.5F, 8, adfTuned(0x03, 0x50, 8, 0), 350.8F);
  expectAdf(4, 350, 8, adfTuned(0x03, 0x50, 8, 0), 350.8F);
}

TEST_F(RadioAnalog, AdfDigitBehindTheEndIsPutThere) {
  expectAdf(3, 35, 4, adfTuned(0x03, 0x54, 0, 0), 354);
  expectAdf(3, 0, 4, adfTuned(0x00, 0x04, 0, 0), 4);
  expectAdf(4, 1234, 5, adfTuned(0x03, 0x45, 0, 12), 12345);
}

TEST_F(RadioAnalog, AdfDigitThatMakesNoNumberIsToldAndChangesNothing) {
  v.RadioValues(4) = 350.5F;
  EXPECT_THAT(analog(2, 1.5F), IsEmpty());
  EXPECT_EQ(v.RadioValues(4), 350.5F);
  EXPECT_EQ(status(), "SetAnalogValues Type mismatch");
}

TEST_F(RadioAnalog, Codes98And99AreTheFractionsOfTheAdfs) {
  expectAdf(98, 350.5F, 0.25F, adfTuned(0x03, 0x50, 2, 0), 350.25F);
  v.RadioValues(0) = 420.5F;
  EXPECT_THAT(analog(99, 0.75F), ElementsAre(Write{0x02D5, {0x04}}, Write{0x02D4, {0x20}},
                                             Write{0x02D6, {8}}, Write{0x02D7, {0}}));
  EXPECT_EQ(v.RadioValues(0), 420.75F);
}

TEST_F(RadioAnalog, Code74TunesTheFirstNavUnlessTheValueIsZero) {
  v.RadioValues(2) = 108;
  EXPECT_THAT(analog(74, 0), IsEmpty());
  EXPECT_THAT(analog(74, -110), IsEmpty());
  EXPECT_EQ(v.RadioValues(2), 108);
  EXPECT_EQ(analog(74, 110.25F), tuned(0x0350, 0x10, 0x25));
  EXPECT_EQ(v.RadioValues(2), 110.25F);
}

TEST_F(RadioAnalog, Code76TunesTheSecondNav) {
  EXPECT_EQ(analog(76, 110.25F), tuned(0x0352, 0x10, 0x25));
  EXPECT_EQ(v.RadioValues(3), 110.25F);
}

TEST_F(RadioAnalog, Code76HoldsWhatTheRadioDoesNotTake) {
  EXPECT_THAT(analog(76, 0), IsEmpty());
  EXPECT_EQ(v.RadioValues(3), 0);
  EXPECT_EQ(status(), "SetAnalogValues Overflow");
}

TEST_F(RadioAnalog, Codes59And60TurnTheObs) {
  EXPECT_THAT(analog(59, 300), ElementsAre(Write{0x0C4E, {0x2C, 0x01}}));
  EXPECT_THAT(analog(60, 44.5F), ElementsAre(Write{0x0C5E, {0x2C, 0x00}}));
}

TEST_F(RadioAnalog, Code97IsTheTransponder) {
  EXPECT_THAT(analog(97, 7700), ElementsAre(Write{0x0355, {0x77}}, Write{0x0354, {0x00}}));
}

TEST_F(RadioAnalog, LeverAtFullTravelTunes97) {
  v.RadioValues(1) = 118;
  EXPECT_EQ(analog(21, 0.974F), tuned(0x034E, 0x18, 0x97));
}

TEST_F(RadioAnalog, FrequencyBeyondTheRadioIsToldAndHeld) {
  v.RadioValues(1) = 121.5F;
  EXPECT_THAT(analog(20, 3e9F), IsEmpty());
  EXPECT_EQ(v.RadioValues(1), 3e9F);
  EXPECT_EQ(status(), "SetAnalogValues Overflow");
}

}  // namespace
}  // namespace vorlent
