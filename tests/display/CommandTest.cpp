#include "display/Command.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

std::string messageOf(const std::string& line) { return commandMessage(readCommands(line)); }

std::string commandRefusalOf(const std::string& line) {
  try {
    messageOf(line);
  } catch (const RuntimeError& error) {
    return error.description();
  }
  return "";
}

TEST(Command, HasABlankBehindEveryElement) {
  EXPECT_EQ(messageOf("P 169 1"), "p P 169 1 ");
  EXPECT_EQ(messageOf("E 25 -1"), "p E 25 -1 ");
  EXPECT_EQ(messageOf("T 27 0"), "p T 27 0 ");
}

TEST(Command, AnyOtherKindIsAnAnalogValue) {
  EXPECT_EQ(messageOf("A 81 10000"), "p A 81 10000 ");
  EXPECT_EQ(messageOf("analog 21 0.975"), "p analog 21 0.975 ");
}

TEST(Command, SeveralTravelInOneMessage) {
  EXPECT_EQ(messageOf("P 169 1 T 27 1 E 25 -1"), "p P 169 1 T 27 1 E 25 -1 ");
}

TEST(Command, BlanksAroundTheWordsDoNotCount) {
  EXPECT_EQ(messageOf("  P \t169   1 \r"), "p P 169 1 ");
}

TEST(Command, ValuesTravelWithAPointAndAtMostSevenDigits) {
  EXPECT_EQ(messageOf("A 5 1013.25"), "p A 5 1013.25 ");
  EXPECT_EQ(messageOf("A 5 1013.250"), "p A 5 1013.25 ");
  EXPECT_EQ(messageOf("A 5 -0"), "p A 5 0 ");
  EXPECT_EQ(messageOf("A 5 123456.789"), "p A 5 123456.8 ");
}

TEST(Command, IdsAreSixteenBitIntegers) {
  EXPECT_EQ(messageOf("P 32767 1"), "p P 32767 1 ");
  EXPECT_EQ(messageOf("P -32768 1"), "p P -32768 1 ");
  const std::string why = " is no id: a whole number from -32768 to 32767 stands there";
  EXPECT_EQ(commandRefusalOf("P 32768 1"), "\"32768\"" + why);
  EXPECT_EQ(commandRefusalOf("P 1.5 1"), "\"1.5\"" + why);
  EXPECT_EQ(commandRefusalOf("P LNAV 1"), "\"LNAV\"" + why);
}

TEST(Command, ValuesAreFiniteNumbers) {
  const std::string why = " is no value: a number stands there, with a point as decimal mark";
  for (const std::string value : {"on", "1,5", "nan", "inf", "1E+39", "1E+999", "0x10"})
    EXPECT_EQ(commandRefusalOf("P 169 " + value), "\"" + value + "\"" + why);
}

TEST(Command, ALineIsMadeOfWholeTriples) {
  const std::string why = "a command has three words, kind, id and value, such as \"P 169 1\"";
  EXPECT_EQ(commandRefusalOf(""), why);
  EXPECT_EQ(commandRefusalOf("   "), why);
  EXPECT_EQ(commandRefusalOf("P 169"), why);
  EXPECT_EQ(commandRefusalOf("P 169 1 T"), why);
}

TEST(Command, ASmallLetterThatWouldBeTakenForAnAnalogValueIsRefused) {
  for (const std::string kind : {"p", "t", "e"})
    EXPECT_EQ(commandRefusalOf(kind + " 169 1"), "the kinds E, T and P are capital letters: \"" +
                                                     kind + "\" would be an analog value");
}

TEST(Command, AMessageIsNoLongerThanTheServerReads) {
  // 2 bytes of head, and 11 for each "PP 12345 1 ".
  std::vector<Command> commands(186, Command{"PP", 12345, 1});
  EXPECT_EQ(commandMessage(commands).size(), 2048u);
  commands.push_back({"P", 1, 1});
  EXPECT_THROW(commandMessage(commands), RuntimeError);
}

TEST(Command, AMessageWithoutCommandsIsNone) { EXPECT_THROW(commandMessage({}), RuntimeError); }

}  // namespace
}  // namespace vorlent
