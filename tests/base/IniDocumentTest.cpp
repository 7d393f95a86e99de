#include "base/IniDocument.h"

#include <gtest/gtest.h>

#include "support/raisedBy.h"

namespace vorlent {
namespace {

using namespace std::string_literals;

std::string valueIn(std::string_view text, std::string_view section, std::string_view key) {
  return IniDocument(text).value(section, key).value_or("(none)");
}

std::string afterSet(std::string_view text, std::string_view section, std::string_view key,
                     std::string_view value) {
  IniDocument document(text);
  document.set(section, key, value);
  return document.text();
}

std::string afterRemove(std::string_view text, std::string_view section, std::string_view key) {
  IniDocument document(text);
  document.remove(section, key);
  return document.text();
}

/// In UTF-16 with its mark; `ascii` holds letters below 128 only.
std::string utf16(std::string_view ascii) {
  std::string units = "\xFF\xFE";
  for (const char c : ascii) units += {c, '\0'};
  return units;
}

TEST(IniLookup, FindsNamesInAnyCaseOfLetters) {
  EXPECT_EQ(valueIn("[vorLENT]\npORT=5000\n", "Vorlent", "Port"), "5000");
}

TEST(IniLookup, DropsBlanksAroundNamesAndValues) {
  EXPECT_EQ(valueIn("\t[ Vorlent ] \n Port \t=\t 5000 \n", "Vorlent", "Port"), "5000");
  EXPECT_EQ(valueIn("[Vorlent]\nPort=5000\n", " Vorlent ", "\tPort "), "5000");
  EXPECT_EQ(valueIn("[Vorlent]\nCockpit=737 800\n", "Vorlent", "Cockpit"), "737 800");
}

TEST(IniLookup, DropsOnePairOfQuotes) {
  EXPECT_EQ(valueIn("[a]\nk=\"x y\"\n", "a", "k"), "x y");
  EXPECT_EQ(valueIn("[a]\nk='x y'\n", "a", "k"), "x y");
  EXPECT_EQ(valueIn("[a]\nk=\" x \"\n", "a", "k"), " x ");
  EXPECT_EQ(valueIn("[a]\nk=\"\"x\"\"\n", "a", "k"), "\"x\"");
  EXPECT_EQ(valueIn("[a]\nk=\"\"\n", "a", "k"), "");
}

TEST(IniLookup, LeavesQuotesThatAreNoPair) {
  EXPECT_EQ(valueIn("[a]\nk=\"\n", "a", "k"), "\"");
  EXPECT_EQ(valueIn("[a]\nk=\"x'\n", "a", "k"), "\"x'");
  EXPECT_EQ(valueIn("[a]\nk=x\"\n", "a", "k"), "x\"");
}

TEST(IniLookup, TakesTheFirstSectionAndTheFirstKey) {
  const auto text = "[a]\nk=1\nK=2\n[b]\nk=3\n[A]\nk=4\nonly=5\n";
  EXPECT_EQ(valueIn(text, "a", "k"), "1");
  EXPECT_EQ(valueIn(text, "b", "k"), "3");
  EXPECT_EQ(valueIn(text, "a", "only"), "(none)");
}

TEST(IniLookup, PassesOverLinesOutsideSections) {
  EXPECT_EQ(valueIn("k=1\n[a]\nk=2\n", "a", "k"), "2");
  EXPECT_EQ(valueIn("k=1\n", "", "k"), "(none)");
}

TEST(IniLookup, PassesOverComments) {
  EXPECT_EQ(valueIn(";[a]\n;k=1\n[a]\n  ;k=2\nk=3;4\n", "a", "k"), "3;4");
  EXPECT_EQ(valueIn("[a]\n;k=2\n", "a", ";k"), "(none)");
}

TEST(IniLookup, SplitsAtTheFirstEqualsSign) {
  EXPECT_EQ(valueIn("[a]\nk=x=y\n", "a", "k"), "x=y");
  EXPECT_EQ(valueIn("[a]\nk=x=y\n", "a", "k=x"), "(none)");
}

TEST(IniLookup, TellsAnEmptyValueFromAMissingKey) {
  EXPECT_EQ(valueIn("[a]\nk=\n", "a", "k"), "");
  EXPECT_EQ(valueIn("[a]\nk\n", "a", "k"), "(none)");
  EXPECT_EQ(valueIn("[a]\n", "a", "k"), "(none)");
  EXPECT_EQ(valueIn("", "a", "k"), "(none)");
}

TEST(IniLookup, ReadsEveryLineBreakAndALastLineWithoutOne) {
  EXPECT_EQ(valueIn("[a]\r\nk=1\r\nj=2", "a", "k"), "1");
  EXPECT_EQ(valueIn("[a]\r\nk=1\nj=2", "a", "j"), "2");
}

TEST(IniLookup, PassesOverAHeadingThatIsNotClosed) {
  EXPECT_EQ(valueIn("[a]\n[b\nk=1\n", "a", "k"), "1");
  EXPECT_EQ(valueIn("[a]\n[b\nk=1\n", "b", "k"), "(none)");
}

TEST(IniLookup, EndsALineAtANul) {
  EXPECT_EQ(valueIn("[a]\nk=12\0003\nj=4\n"s, "a", "k"), "12");
  EXPECT_EQ(valueIn("[a]\nk=12\0003\nj=4\n"s, "a", "j"), "4");
  EXPECT_EQ(valueIn("[a]\n\0k=1\n"s, "a", "k"), "(none)");
}

TEST(IniText, ComesOutAsItWentIn) {
  std::string binary;
  for (int i = 0; i < 1000; ++i) binary += static_cast<char>(i * 7);
  const std::string texts[] = {
      "",
      "\n",
      "no section",
      "; note\r\n\r\n[a]\n k = 1 \r\n\n\n[b]",
      "\xEF\xBB\xBF[a]\r\nk=1\r\n",
      "\xEF\xBB\xBF",
      "\xFF\xFE",
      utf16("; note\r\n[a]\r\nk=1\r\n"),
      utf16("[a]\r\nk=1\r\n") + "x",
      utf16("[a]\nk=") + "\x3D\xD8\x3D\xD8\xEB\xDE",
      binary,
      "\xFF\xFE" + binary,
      "\xEF\xBB\xBF" + binary,
      "\xFE\xFF\0[\0a\0]"s,
  };
  for (const auto& text : texts) EXPECT_EQ(IniDocument(text).text(), text);
}

TEST(IniText, OfManyMegabytesIsReadAndChanged) {
  std::string text;
  while (text.size() < 8'000'000) text += "; a line of no weight\r\n";
  const std::string longLine(4'000'000, 'x');
  text += "[a]\r\nlong=" + longLine + "\r\nk=1\r\n";
  EXPECT_EQ(valueIn(text, "a", "long"), longLine);
  const auto changed = afterSet(text, "a", "k", "2");
  EXPECT_EQ(changed.size(), text.size());
  EXPECT_TRUE(changed.ends_with("x\r\nk=2\r\n"));
}

TEST(IniSet, ChangesAValueInItsPlace) {
  EXPECT_EQ(afterSet("; top\n[a]\nj=0\n  K =  1  \r\n; end\n", "a", "k", "25"),
            "; top\n[a]\nj=0\n  K =  25\r\n; end\n");
  EXPECT_EQ(afterSet("[a]\nk=1", "a", "k", "2"), "[a]\nk=2");
  EXPECT_EQ(afterSet("[a]\r\nk=\r\n", "a", "k", "2"), "[a]\r\nk=2\r\n");
  EXPECT_EQ(afterSet("[a]\nk=1\n", "a", "k", ""), "[a]\nk=\n");
}

TEST(IniSet, ChangesTheFirstOfSeveral) {
  EXPECT_EQ(afterSet("[a]\nk=1\nk=2\n[a]\nk=3\n", "a", "k", "9"), "[a]\nk=9\nk=2\n[a]\nk=3\n");
}

TEST(IniSet, LeavesALineThatAlreadyHasTheValue) {
  EXPECT_EQ(afterSet("[a]\nk = \"1\" \n", "a", "k", "1"), "[a]\nk = \"1\" \n");
}

TEST(IniSet, PutsANewKeyBehindTheLastLineOfTheSectionThatIsNotBlank) {
  EXPECT_EQ(afterSet("[a]\nj=1\n; note\n\n \t\n[b]\nk=2\n", "a", "k", "3"),
            "[a]\nj=1\n; note\nk=3\n\n \t\n[b]\nk=2\n");
  EXPECT_EQ(afterSet("[a]\n\n[b]\n", "a", "k", "3"), "[a]\nk=3\n\n[b]\n");
}

TEST(IniSet, EndsALastLineWithoutBreakBeforeItAddsOne) {
  EXPECT_EQ(afterSet("[a]\nj=1", "a", "k", "2"), "[a]\nj=1\nk=2\n");
  EXPECT_EQ(afterSet("[a]", "a", "k", "2"), "[a]\r\nk=2\r\n");
}

TEST(IniSet, AppendsAMissingSection) {
  EXPECT_EQ(afterSet("[a]\nj=1\n", "b", "k", "2"), "[a]\nj=1\n[b]\nk=2\n");
  EXPECT_EQ(afterSet("k=1", "b", "k", "2"), "k=1\r\n[b]\r\nk=2\r\n");
  EXPECT_EQ(afterSet("", "b", "k", "2"), "[b]\r\nk=2\r\n");
}

TEST(IniSet, UsesTheLineBreakThatTheTextMostlyUses) {
  EXPECT_EQ(afterSet("[a]\r\nj=1\r\ni=2\n", "a", "k", "3"), "[a]\r\nj=1\r\ni=2\nk=3\r\n");
  EXPECT_EQ(afterSet("[a]\r\nj=1\ni=2\n", "a", "k", "3"), "[a]\r\nj=1\ni=2\nk=3\n");
}

TEST(IniSet, KeepsAValueOnOneLine) {
  EXPECT_EQ(afterSet("[a]\nk=1\n", "a", "k", "2\r\n[b]\nx=\0003"s), "[a]\nk=2  [b] x= 3\n");
  EXPECT_EQ(afterSet("[a]\n", "a", "k", "2\n[b]"), "[a]\nk=2 [b]\n");
}

TEST(IniSet, RefusesNamesThatCouldNotBeFoundAgain) {
  const std::string text = "[a]\nk=1\n";
  IniDocument document(text);
  for (const auto& key : {""s, " "s, "x=y"s, ";x"s, " [x"s, "x\ny"s, "x\0y"s, "x\ry"s})
    EXPECT_EQ(raisedBy([&] { document.set("a", key, "2"); }), 5) << key;
  for (const auto& section : {"b]"s, "b\nc"s, "b\0c"s})
    EXPECT_EQ(raisedBy([&] { document.set(section, "k", "2"); }), 5) << section;
  EXPECT_EQ(document.text(), text);
}

TEST(IniRemove, TakesTheLineOfTheKeyAway) {
  EXPECT_EQ(afterRemove("[a]\r\nj=1\r\nK = 2\r\ni=3\r\n", "a", "k"), "[a]\r\nj=1\r\ni=3\r\n");
  EXPECT_EQ(afterRemove("[a]\nj=1\nk=2", "a", "k"), "[a]\nj=1\n");
  EXPECT_EQ(afterRemove("[a]\nk=\ni=3\n", "a", "k"), "[a]\ni=3\n");
  EXPECT_EQ(afterRemove("[a]\nk=1\nk=2\n", "a", "k"), "[a]\nk=2\n");
}

TEST(IniRemove, OfAMissingKeyChangesNothing) {
  EXPECT_EQ(afterRemove("[a]\nj=1\n[b]\nk=1\n", "a", "k"), "[a]\nj=1\n[b]\nk=1\n");
  EXPECT_EQ(afterRemove("[a]\nj=1\n", "c", "j"), "[a]\nj=1\n");
}

TEST(IniSectionText, HasEachLineEndedByNul) {
  const IniDocument document("x=0\n[a]\n j = \"1\" \n;note\n\nbare word\r\nk=\n[b]\nk=2\n");
  EXPECT_EQ(document.sectionText("A"), "j=\"1\"\0bare word\0k=\0"s);
  EXPECT_EQ(document.sectionText("b"), "k=2\0"s);
  EXPECT_EQ(document.sectionText("c"), "");
}

TEST(IniReplaceSection, PutsTheNewLinesWhereTheOldOnesStood) {
  IniDocument document("[a]\n; note\nj=1\n\nk=2\n; end\n\n[b]\nk=3\n");
  document.replaceSection("a", "x=1\0y=2\0\0z=3\0"s);
  EXPECT_EQ(document.text(), "[a]\n; note\nx=1\ny=2\n\n; end\n\n[b]\nk=3\n");
}

TEST(IniReplaceSection, NeedsNoLastNul) {
  IniDocument document("[a]\nj=1\n");
  document.replaceSection("a", "x=1\0y=2"s);
  EXPECT_EQ(document.text(), "[a]\nx=1\ny=2\n");
}

TEST(IniReplaceSection, FillsAnEmptySectionAndMakesAMissingOne) {
  IniDocument document("[a]\n; note\n\n[b]\n");
  document.replaceSection("a", "x=1\0"s);
  document.replaceSection("c", "y=2\0"s);
  EXPECT_EQ(document.text(), "[a]\n; note\nx=1\n\n[b]\n[c]\ny=2\n");
}

TEST(IniReplaceSection, ByAnEmptyTextLeavesTheHeading) {
  IniDocument document("[a]\nj=1\nbare\n; note\n[b]\nk=2\n");
  document.replaceSection("a", "");
  EXPECT_EQ(document.text(), "[a]\n; note\n[b]\nk=2\n");
}

TEST(IniReplaceSection, RefusesALineThatWouldBeAHeading) {
  const std::string text = "[a]\nj=1\n";
  IniDocument document(text);
  EXPECT_EQ(raisedBy([&] { document.replaceSection("a", "x=1\0[b]\0"s); }), 5);
  EXPECT_EQ(raisedBy([&] { document.replaceSection("b]", "x=1\0"s); }), 5);
  EXPECT_EQ(document.text(), text);
}

TEST(IniByteOrderMark, OfUtf8IsPassedOverAndKept) {
  EXPECT_EQ(valueIn("\xEF\xBB\xBF[a]\nk=1\n", "a", "k"), "1");
  EXPECT_EQ(afterSet("\xEF\xBB\xBF[a]\nk=1\n", "a", "k", "2"), "\xEF\xBB\xBF[a]\nk=2\n");
}

TEST(IniUtf16, IsReadAsUtf8AndWrittenAsItCame) {
  const auto text = utf16("[a]\r\nk=M") + "\xFC\0"s + utf16("nchen\r\n").substr(2);
  EXPECT_EQ(valueIn(text, "a", "k"), "M\xC3\xBCnchen");
  EXPECT_EQ(afterSet(text, "a", "k", "Z\xC3\xBCrich"),
            utf16("[a]\r\nk=Z") + "\xFC\0"s + utf16("rich\r\n").substr(2));
}

TEST(IniUtf16, KeepsAnOddLastByteLast) {
  EXPECT_EQ(afterSet(utf16("[a]\nj=1\n") + "x", "a", "k", "2"), utf16("[a]\nj=1\nk=2\n") + "x");
}

}  // namespace
}  // namespace vorlent
