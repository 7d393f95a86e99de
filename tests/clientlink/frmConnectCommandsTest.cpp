#include "clientlink/SessionTest.h"

namespace vorlent {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FrmConnectCommands : public RunningSessionTest {
 protected:
  void SetUp() override {
    RunningSessionTest::SetUp();
    t.greet(0);
  }
};

TEST_F(FrmConnectCommands, KindChoosesTheRoutine) {
  EXPECT_THAT(callsOf("p E 5 1 "), ElementsAre(encoder(5, 1)));
  EXPECT_THAT(callsOf("p T 6 0 "), ElementsAre(toggle(6, 0)));
  EXPECT_THAT(callsOf("p P 169 1 "), ElementsAre(button(169, 1)));
  EXPECT_THAT(callsOf("p A 87 -3 "), ElementsAre(analog(87, -3)));
}

TEST_F(FrmConnectCommands, AnyOtherKindIsAnalog) {
  for (const std::string kind : {"A", "a", "e", "t", "p", "EE", "PP", "X", "1", "\xFF"})
    EXPECT_THAT(callsOf("p " + kind + " 3 4 "), ElementsAre(analog(3, 4))) << kind;
}

TEST_F(FrmConnectCommands, EmptyKindIsAnalog) {
  EXPECT_THAT(callsOf("p  3 4 "), ElementsAre(analog(3, 4)));
}

TEST_F(FrmConnectCommands, TriplesAreCarriedOutInOrder) {
  EXPECT_THAT(callsOf("p E 1 2 T 3 4 P 5 6 A 7 8 "),
              ElementsAre(encoder(1, 2), toggle(3, 4), button(5, 6), analog(7, 8)));
}

TEST_F(FrmConnectCommands, NothingBehindTheFirstTokenDoesNothing) {
  for (const char* text : {"p", "p ", "pp", "px", "p  ", "p   "})
    EXPECT_THAT(callsOf(text), IsEmpty()) << text;
}

TEST_F(FrmConnectCommands, TripleWithoutItsFinalBlankIsDropped) {
  for (const char* text : {"p E", "p E ", "p E 5", "p E 5 ", "p E 5 1"})
    EXPECT_THAT(callsOf(text), IsEmpty()) << text;
}

TEST_F(FrmConnectCommands, TrailingPartIsDroppedAloneBehindWholeTriples) {
  for (const char* text :
       {"p P 1 2 E", "p P 1 2 E ", "p P 1 2 E 5", "p P 1 2 E 5 ", "p P 1 2 E 5 1", "p P 1 2 "})
    EXPECT_THAT(callsOf(text), ElementsAre(button(1, 2))) << text;
}

TEST_F(FrmConnectCommands, TwoCharactersAreCutWhateverTheSecondIs) {
  EXPECT_THAT(callsOf("p_E 5 1 "), ElementsAre(encoder(5, 1)));
  EXPECT_THAT(callsOf("panel 5 1 "), ElementsAre(analog(5, 1)));
}

TEST_F(FrmConnectCommands, FirstTokenOfMoreThanOneCharacterShiftsTheTriple) {
  EXPECT_THAT(callsOf("play P 5 1 "), IsEmpty());
}

TEST_F(FrmConnectCommands, MessageThatDoesNotStartWithPIsNone) {
  for (const char* text : {"P E 5 1 ", " p E 5 1 ", "E 5 1 ", "", "Xp E 5 1 "})
    EXPECT_THAT(callsOf(text), IsEmpty()) << text;
}

TEST_F(FrmConnectCommands, IdIsAWholeNumberOf16Bits) {
  EXPECT_THAT(callsOf("p E 32767 1 "), ElementsAre(encoder(32767, 1)));
  EXPECT_THAT(callsOf("p E -32768 1 "), ElementsAre(encoder(-32768, 1)));
  EXPECT_THAT(callsOf("p E 2.5 1 "), ElementsAre(encoder(2, 1)));
  EXPECT_THAT(callsOf("p E 3.5 1 "), ElementsAre(encoder(4, 1)));
}

TEST_F(FrmConnectCommands, IdThatIsNoneEndsTheMessage) {
  for (const std::string id : {"32768", "-32769", "1e9", "x", "5x", "", "nan", "0x5", "1,5"})
    EXPECT_THAT(callsOf("p P 1 2 E " + id + " 1 T 3 4 "), ElementsAre(button(1, 2))) << id;
}

TEST_F(FrmConnectCommands, ValueIsASingle) {
  EXPECT_THAT(callsOf("p E 1 0.1 "), ElementsAre(encoder(1, 0.1F)));
  EXPECT_THAT(callsOf("p E 1 -0.5 "), ElementsAre(encoder(1, -0.5F)));
  EXPECT_THAT(callsOf("p E 1 1e3 "), ElementsAre(encoder(1, 1000)));
  EXPECT_THAT(callsOf("p E 1 1E+07 "), ElementsAre(encoder(1, 10000000)));
  EXPECT_THAT(callsOf("p E 1 16777217 "), ElementsAre(encoder(1, 16777216)));
  EXPECT_THAT(callsOf("p E 1 3.4e38 "), ElementsAre(encoder(1, 3.4e38F)));
}

TEST_F(FrmConnectCommands, ValueThatIsNoneEndsTheMessage) {
  for (const std::string value :
       {"1e39", "-1e39", "1e999", "x", "1x", "", "nan", "inf", "-inf", "0,5", "1.2.3", "--1"})
    EXPECT_THAT(callsOf("p P 1 2 E 5 " + value + " T 3 4 "), ElementsAre(button(1, 2))) << value;
}

TEST_F(FrmConnectCommands, MalformedMessageLeavesTheSessionLive) {
  callsOf("p P x y ");
  EXPECT_TRUE(live(0));
  EXPECT_EQ(t.exitStatus(), std::nullopt);
  EXPECT_EQ(t.log().find("10035"), std::string::npos);
  EXPECT_THAT(callsOf("p P 1 2 "), ElementsAre(button(1, 2)));
}

TEST_F(FrmConnectCommands, MessageIsShownAndLogged) {
  events.clear();
  callsOf("p P 1 2 ");
  EXPECT_THAT(events, ElementsAre("1| p P 1 2 "));
  EXPECT_TRUE(t.log().ends_with("p P 1 2 \r\n"));
}

TEST_F(FrmConnectCommands, NothingIsSentInAnswer) {
  sentTexts();
  callsOf("p P 1 2 ");
  EXPECT_THAT(sentTexts(), IsEmpty());
}

TEST_F(FrmConnectCommands, OnlyTheFirst2048BytesAreRead) {
  std::string text = "p ";
  while (text.size() < 3000) text += "E 1 1 ";
  const auto calls = callsOf(text);
  EXPECT_EQ(calls.size(), 341U);
  EXPECT_THAT(calls, Each(encoder(1, 1)));
  EXPECT_EQ(t.store.ReceivedText.size(), 2048U);
}

TEST_F(FrmConnectCommands, SlotThatNobodyGreetedCarriesThemOut) {
  t.deliver(1, "p P 1 2 ", stranger);
  EXPECT_THAT(commands->take(), ElementsAre(button(1, 2)));
  EXPECT_TRUE(idle(1));
}

class FrmConnectCommandsWithAComma : public SessionTest {
 protected:
  void SetUp() override {
    t.regional.mark = ",";
    start();
    t.greet(0);
  }
};

TEST_F(FrmConnectCommandsWithAComma, ValueMayHaveThePointOrTheMark) {
  EXPECT_THAT(callsOf("p E 1 0,5 E 2 0.5 E 3 -1,25 E 4 7 "),
              ElementsAre(encoder(1, 0.5F), encoder(2, 0.5F), encoder(3, -1.25F), encoder(4, 7)));
}

TEST_F(FrmConnectCommandsWithAComma, ValueWithBothOrTwoMarksEndsTheMessage) {
  for (const std::string value : {"1.000,5", "1,000.5", "1,2,3", ",", "1.2.3"})
    EXPECT_THAT(callsOf("p P 1 2 E 5 " + value + " T 3 4 "), ElementsAre(button(1, 2))) << value;
}

}  // namespace
}  // namespace vorlent
