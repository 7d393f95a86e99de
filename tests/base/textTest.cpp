#include "base/text.h"

#include <gtest/gtest.h>

#include "support/raisedBy.h"

namespace vorlent {
namespace {

TEST(Trimmed, DropsBlanksAtBothEndsOnly) {
  EXPECT_EQ(trimmed("  a b  "), "a b");
  EXPECT_EQ(trimmed("\ta "), "\ta");
  EXPECT_EQ(trimmed("   "), "");
  EXPECT_EQ(trimmed(""), "");
}

TEST(LetterCase, IsThatOfTheLatinLettersWhateverTheLocale) {
  EXPECT_EQ(upperCase("az-AZ{\xFC"), "AZ-AZ{\xFC");
  EXPECT_TRUE(equalIgnoringCase("Vorlent.INI", "vORLENT.ini"));
  EXPECT_FALSE(equalIgnoringCase("a", "ab"));
  EXPECT_FALSE(equalIgnoringCase("[", "{"));
  EXPECT_TRUE(lessIgnoringCase("abc", "ABD"));
  EXPECT_FALSE(lessIgnoringCase("B", "a"));
  EXPECT_FALSE(lessIgnoringCase("a", "A"));
}

TEST(Replaced, TakesEveryOccurrenceOnceFromTheLeft) {
  EXPECT_EQ(replaced("1,2,3", ",", "."), "1.2.3");
  EXPECT_EQ(replaced("aaa", "aa", "b"), "ba");
  EXPECT_EQ(replaced("a", "a", "aa"), "aa");
  EXPECT_EQ(replaced("", "a", "b"), "");
}

TEST(HexText, IsInCapitalsWithoutPrefix) {
  EXPECT_EQ(hexText(0), "0");
  EXPECT_EQ(hexText(0x66C0), "66C0");
  EXPECT_EQ(hexText(0xFFFFFFFF), "FFFFFFFF");
}

TEST(SingleAsText, HasAtMostSevenDigits) {
  EXPECT_EQ(singleText(0.1f), "0.1");
  EXPECT_EQ(singleText(1.5f), "1.5");
  EXPECT_EQ(singleText(-123.25f), "-123.25");
  EXPECT_EQ(singleText(118.275f), "118.275");
  EXPECT_EQ(singleText(9999999.0f), "9999999");
  EXPECT_EQ(singleText(1.0f / 3.0f), "0.3333333");
}

TEST(SingleAsText, TakesAnExponentFromTenMillionOn) {
  EXPECT_EQ(singleText(1e7f), "1E+07");
  EXPECT_EQ(singleText(16777216.0f), "1.677722E+07");
  EXPECT_EQ(singleText(-2e12f), "-2E+12");
}

TEST(SingleAsText, TakesAnExponentBelowATenThousandth) {
  EXPECT_EQ(singleText(0.0001f), "0.0001");
  EXPECT_EQ(singleText(0.00001f), "1E-05");
}

TEST(SingleAsText, GoesToTheEndsOfTheRange) {
  EXPECT_EQ(singleText(3.40282347e38f), "3.402823E+38");
  EXPECT_EQ(singleText(-3.40282347e38f), "-3.402823E+38");
  EXPECT_EQ(singleText(1.40129846e-45f), "1.401298E-45");
}

TEST(DoubleAsText, HasAtMostFifteenDigits) {
  EXPECT_EQ(doubleText(0.1), "0.1");
  EXPECT_EQ(doubleText(0.1 + 0.2), "0.3");
  EXPECT_EQ(doubleText(2.0 / 3.0), "0.666666666666667");
  EXPECT_EQ(doubleText(123456789012345.0), "123456789012345");
  EXPECT_EQ(doubleText(1e15), "1E+15");
  EXPECT_EQ(doubleText(1.7976931348623157e308), "1.79769313486232E+308");
  EXPECT_EQ(doubleText(4.94065645841246544e-324), "4.94065645841247E-324");
}

TEST(RealAsText, HasNoNegativeZero) {
  EXPECT_EQ(singleText(-0.0f), "0");
  EXPECT_EQ(doubleText(-0.0), "0");
}

TEST(RealAsText, TakesTheDecimalMarkThatIsAsked) {
  EXPECT_EQ(singleText(1.5f, ","), "1,5");
  EXPECT_EQ(singleText(16777216.0f, ","), "1,677722E+07");
  EXPECT_EQ(doubleText(-0.25, ","), "-0,25");
}

TEST(RealAsText, IsAppended) {
  std::string text = "a ";
  appendSingle(text, 2.5f);
  text += ' ';
  appendDouble(text, -3.5, ",");
  text += ' ';
  appendInteger(text, -9223372036854775807 - 1);
  EXPECT_EQ(text, "a 2.5 -3,5 -9223372036854775808");
}

TEST(Numeric, IsAWholeTextThatIsANumber) {
  EXPECT_EQ(numeric("50"), 50.0);
  EXPECT_EQ(numeric("-1.5"), -1.5);
  EXPECT_EQ(numeric("1E+07"), 1e7);
  EXPECT_EQ(numeric(".5"), 0.5);
  EXPECT_EQ(numeric(" \t7 "), 7.0);
  EXPECT_EQ(numeric("+1"), 1.0);
  EXPECT_EQ(numeric("+.5"), 0.5);
}

TEST(Numeric, IsNothingElse) {
  for (const char* text :
       {"", " ", "a", "5x", "1 2", "1,5", "--1", "+-1", "++1", "+", "0x10", "1e", "192.168.0.1"})
    EXPECT_EQ(numeric(text), std::nullopt) << text;
}

TEST(Numeric, IsNeverInfiniteOrNotANumber) {
  for (const char* text : {"inf", "-Infinity", "nan", "NaN(1)", "1e309"})
    EXPECT_EQ(numeric(text), std::nullopt) << text;
}

TEST(NumberOfText, TellsNoNumberFromTooLarge) {
  EXPECT_EQ(numberOf(" 2.5 "), 2.5);
  EXPECT_EQ(raisedBy([] { numberOf(""); }), 13);
  EXPECT_EQ(raisedBy([] { numberOf("2.5 kt"); }), 13);
  EXPECT_EQ(raisedBy([] { numberOf("nan"); }), 13);
  EXPECT_EQ(raisedBy([] { numberOf("1e309"); }), 6);
}

TEST(NumberOfText, ThatIsTooSmallIsZero) {
  EXPECT_EQ(numberOf("1e-400"), 0.0);
  EXPECT_EQ(numberOf("-1E-400"), 0.0);
  EXPECT_EQ(numberOf(" 123456.75e-99999999999999999999 "), 0.0);
  EXPECT_EQ(numberOf("0." + std::string(400, '0') + "1"), 0.0);
  EXPECT_EQ(numberOf(std::string(50, '9') + "e-400"), 0.0);
  EXPECT_EQ(numeric("1e-400"), 0.0);
  EXPECT_EQ(int16Of("1e-400"), 0);
}

TEST(NumberOfText, GoesDownToTheSmallestNumberThereIs) {
  // Between the largest denormal number and the smallest normal one, nearer to the former.
  EXPECT_EQ(numberOf("2.2250738585072011e-308"), 0x0.fffffffffffffp-1022);
  EXPECT_EQ(numberOf("4.9e-324"), 0x1p-1074);
  EXPECT_EQ(numberOf("2.5e-324"), 0x1p-1074);
  EXPECT_EQ(numberOf("2.4e-324"), 0.0);
  EXPECT_EQ(numberOf("0." + std::string(400, '0') + "1e400"), 0.1);
}

TEST(NumberOfText, ThatIsTooLargeOverflowsHoweverItIsWritten) {
  for (const std::string& text :
       {std::string("1e400"), std::string("-1E+400"), std::string("0.001e99999999999999999999"),
        "1" + std::string(400, '0') + ".5", "1" + std::string(400, '0') + "e-2"})
    EXPECT_EQ(raisedBy([&] { numberOf(text); }), 6) << text;
}

TEST(RegionalNumberOfText, HasTheRegionalMarkOnly) {
  EXPECT_EQ(regionalNumberOf("1,5", ","), 1.5);
  EXPECT_EQ(regionalNumberOf("1.5", "."), 1.5);
  EXPECT_EQ(raisedBy([] { regionalNumberOf("1.5", ","); }), 13);
  EXPECT_EQ(raisedBy([] { regionalNumberOf("1,5", "."); }), 13);
  EXPECT_EQ(raisedBy([] { regionalNumberOf("1,5,5", ","); }), 13);
  EXPECT_EQ(regionalNumberOf("7", ""), 7.0);
}

TEST(Int16OfText, RoundsHalfToEvenAndOverflows) {
  EXPECT_EQ(int16Of("5000"), 5000);
  EXPECT_EQ(int16Of("2.5"), 2);
  EXPECT_EQ(int16Of("-32768"), -32768);
  EXPECT_EQ(raisedBy([] { int16Of("32768"); }), 6);
  EXPECT_EQ(raisedBy([] { int16Of("many"); }), 13);
}

TEST(BooleanOfText, IsAWordOrANumber) {
  EXPECT_TRUE(booleanOf("True"));
  EXPECT_TRUE(booleanOf(" true "));
  EXPECT_FALSE(booleanOf("FALSE"));
  EXPECT_TRUE(booleanOf("-1"));
  EXPECT_TRUE(booleanOf("0.5"));
  EXPECT_FALSE(booleanOf("0"));
  EXPECT_EQ(raisedBy([] { booleanOf("yes"); }), 13);
  EXPECT_EQ(raisedBy([] { booleanOf(""); }), 13);
  EXPECT_EQ(booleanText(true), "True");
  EXPECT_EQ(booleanText(false), "False");
}

TEST(GetNext, CutsTheFirstFieldWithItsDelimiter) {
  std::string text = "Connection on  5";
  EXPECT_EQ(GetNext(text, " "), "Connection");
  EXPECT_EQ(text, "on  5");
  EXPECT_EQ(GetNext(text, " "), "on");
  EXPECT_EQ(GetNext(text, " "), "");
  EXPECT_EQ(text, "5");
}

TEST(GetNext, GivesTheWholeTextWithoutADelimiterAndLeavesIt) {
  std::string text = "last";
  EXPECT_EQ(GetNext(text, ","), "last");
  EXPECT_EQ(text, "last");
}

TEST(FilterNumber, GivesZeroForAnEmptyText) {
  EXPECT_EQ(FilterNumber("", DotMode::NoDot, false), "0");
  EXPECT_EQ(FilterNumber("", DotMode::OneDot, true), "0");
}

TEST(FilterNumber, GivesANumberOfDigitsItself) {
  EXPECT_EQ(FilterNumber("007", DotMode::NoDot, false), "007");
  EXPECT_EQ(FilterNumber("1.5", DotMode::OneDot, false), "1.5");
  EXPECT_EQ(FilterNumber("-12", DotMode::NoDot, true), "-12");
}

TEST(FilterNumber, GivesAnEmptyTextForAnythingElse) {
  EXPECT_EQ(FilterNumber("12a", DotMode::NoDot, false), "");
  EXPECT_EQ(FilterNumber(" 1", DotMode::NoDot, false), "");
  EXPECT_EQ(FilterNumber("1.5", DotMode::NoDot, false), "");
  EXPECT_EQ(FilterNumber("1.5.5", DotMode::OneDot, false), "");
  EXPECT_EQ(FilterNumber("-12", DotMode::NoDot, false), "");
  EXPECT_EQ(FilterNumber("1-2", DotMode::NoDot, true), "");
  EXPECT_EQ(FilterNumber("-", DotMode::NoDot, true), "");
  EXPECT_EQ(FilterNumber(".", DotMode::OneDot, false), "");
  EXPECT_EQ(FilterNumber("-.", DotMode::OneDot, true), "");
  EXPECT_EQ(FilterNumber("--1", DotMode::NoDot, true), "");
}

TEST(HostName, IsOneNameThatCannotLeaveItsShare) {
  for (const char* name : {"DISPLAY-1", "fmc_left", "192.168.0.2", "a", "..."})
    EXPECT_TRUE(isHostName(name)) << name;
  for (const char* name : {"", ".", "..", "a/b", "a\\b", "..\\..", "a b", "a:b", "caf\xC3\xA9"})
    EXPECT_FALSE(isHostName(name)) << name;
  EXPECT_FALSE(isHostName(std::string_view("a\0b", 3)));
}

}  // namespace
}  // namespace vorlent
