#include <set>

#include "commands/CommandTest.h"

namespace vorlent {
namespace {

using ::testing::IsEmpty;

class PanelAnalog : public CommandTest {};

TEST_F(PanelAnalog, Code0IsHeldAlone) {
  EXPECT_THAT(analog(0, 270), IsEmpty());
  EXPECT_EQ(v.RadioValues(12), 270);
}

TEST_F(PanelAnalog, Codes90And999AreHeldAlone) {
  EXPECT_THAT(analog(90, 2.5F), IsEmpty());
  EXPECT_EQ(v.StateValues(21), 2.5F);
  EXPECT_THAT(analog(999, 7), IsEmpty());
  EXPECT_EQ(v.StateValues(20), 7);
}

TEST_F(PanelAnalog, Codes102To106AreTheLastPanelWordsRounded) {
  for (int code = 102; code <= 106; ++code) {
    EXPECT_THAT(analog(code, static_cast<float>(code) + 0.25F), IsEmpty());
    EXPECT_EQ(v.PanelWord(code - 92), code);
  }
}

TEST_F(PanelAnalog, Code107IsTheClientsValue) {
  EXPECT_THAT(analog(107, -39.5F), IsEmpty());
  EXPECT_EQ(v.ClientValueC, -39.5F);
}

TEST_F(PanelAnalog, CodesWithoutAnActionDoNothingAndRaiseNothing) {
  for (const int code : {61, 75, 77, 86, 91, 92, 93, 108, 500, 998, 1000, 32767, -1, -32768}) {
    EXPECT_THAT(analog(code, 1), IsEmpty()) << code;
    EXPECT_EQ(status(), "") << code;
  }
}

TEST_F(PanelAnalog, ValueThatIsNoNumberIsToldAndNotHeld) {
  EXPECT_THAT(analog(107, NaN), IsEmpty());
  EXPECT_EQ(v.ClientValueC, 0);
  EXPECT_EQ(status(), "SetAnalogValues Overflow");
}

TEST(AnalogRows, AreTheCodesWithAnActionAndTheOneForNoneInOrder) {
  const std::set<int> without = {75, 77, 86, 91, 92, 93};
  std::vector<int> expected;
  for (int code = 0; code <= 107; ++code)
    if (!without.contains(code)) expected.push_back(code);
  expected.push_back(999);
  std::vector<int> codes;
  for (const CommandRow& row : analogRows())
    if (row.act != nullptr) codes.push_back(row.code);
  EXPECT_EQ(codes, expected);
}

}  // namespace
}  // namespace vorlent
