#include "flightplan/PlanFile.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/text.h"
#include "planText.h"

namespace vorlent {
namespace {

TEST(PlanFile, ReadsEachOfThe26FieldsIntoItsPlace) {
  const PlanFile file = readPlanFile("1\r\n" + rowText("AAA") + rowText("BBBBB"));
  ASSERT_FALSE(file.fault) << file.fault->description();
  EXPECT_EQ(file.n, 1);
  EXPECT_EQ(file.wholeRows, 2U);
  ASSERT_EQ(file.rows.size(), 2U);
  EXPECT_EQ(file.rows[0], rowOf("AAA  "));
  EXPECT_EQ(file.rows[1], rowOf("BBBBB"));
}

TEST(PlanFile, LineEndsOfEverySystemAndAMissingLastOneAreAlike) {
  const std::string text = "1\r\n" + rowText("A") + rowText("B");
  const auto expected = readPlanFile(text).rows;
  ASSERT_EQ(expected.size(), 2U);
  EXPECT_EQ(readPlanFile(replaced(text, "\r\n", "\n")).rows, expected);
  EXPECT_EQ(readPlanFile(replaced(text, "\r\n", "\r")).rows, expected);
  EXPECT_EQ(readPlanFile(replaced(text, ",", "\n")).rows, expected);
  const PlanFile cut = readPlanFile(text.substr(0, text.size() - 2));
  EXPECT_EQ(cut.rows, expected);
  EXPECT_FALSE(cut.fault);
}

TEST(PlanFile, QuotesKeepCommasAndMayBeLeftOut) {
  std::string text = "1\n" + rowText("A") + rowText("B");
  EXPECT_EQ(readPlanFile(replaced(text, "\"", "")).rows, readPlanFile(text).rows);
  text = replaced(text, "\"text 2\"", "\" left, right \"");
  EXPECT_EQ(readPlanFile(text).rows[1].Text2, " left, right ");
}

TEST(PlanFile, ANameLongerThanFiveCharactersIsCutToFive) {
  EXPECT_EQ(readPlanFile("1\n" + rowText("RX-25L") + rowText("ABCDEFGH")).rows[0].Name, "RX-25");
}

TEST(PlanFile, ANameIsPaddedWithBlanksAndItsOwnBlanksStay) {
  const PlanFile file = readPlanFile("1\n" + rowText("") + rowText(" T/D"));
  EXPECT_EQ(file.rows[0].Name, "     ");
  EXPECT_EQ(file.rows[1].Name, " T/D ");
}

TEST(PlanFile, ControlCharactersInANameBecomeBlanks) {
  const PlanFile file = readPlanFile("1\n" + rowText("A\r\nB\tC") + rowText(std::string(1, '\0')));
  ASSERT_FALSE(file.fault);
  EXPECT_EQ(file.rows[0].Name, "A  B ");
  EXPECT_EQ(file.rows[1].Name, "     ");
}

TEST(PlanFile, WithoutRowsBelowOneOnlyTheNumberIsRead) {
  for (const auto& [text, n] : {std::pair{"0", 0}, {"-3\r\n", -3}, {"0\r\nnot a row", 0}}) {
    const PlanFile file = readPlanFile(text);
    EXPECT_EQ(file.n, n) << text;
    EXPECT_TRUE(file.rows.empty()) << text;
    EXPECT_FALSE(file.fault) << text;
  }
}

TEST(PlanFile, TheNumberIsRoundedHalfToEven) {
  const std::string rows = rowText("A") + rowText("B") + rowText("C") + rowText("D") + rowText("E");
  EXPECT_EQ(readPlanFile("2.5\n" + rows).n, 2);
  EXPECT_EQ(readPlanFile("3.5\n" + rows).n, 4);
  EXPECT_EQ(readPlanFile("2.5\n" + rows).rows.size(), 3U);
  EXPECT_EQ(readPlanFile(" +1e0 \n" + rows).n, 1);
}

TEST(PlanFile, ATextThatIsNoNumberIsAFaultBeforeAnythingElse) {
  for (const char* text : {"\n", " \n", "two\n", "NaN\n", "inf\n", "1#\n", "1%\n", "0x1\n", "1 1\n",
                           "\xEF\xBB\xBF\x31\n", "\"1,1\"\n"}) {
    const PlanFile file = readPlanFile(text + rowText("A") + rowText("B"));
    ASSERT_TRUE(file.fault) << text;
    EXPECT_EQ(file.fault->number(), RuntimeError::TypeMismatch) << text;
    EXPECT_EQ(file.fault->description(), "number of the last row: Type mismatch");
    EXPECT_FALSE(file.n) << text;
    EXPECT_TRUE(file.rows.empty()) << text;
  }
}

TEST(PlanFile, ANumberBeyond16BitsIsAnOverflow) {
  for (const char* text : {"32768", "-32769", "1e9", "1e999"}) {
    const PlanFile file = readPlanFile(text);
    ASSERT_TRUE(file.fault) << text;
    EXPECT_EQ(file.fault->number(), RuntimeError::Overflow) << text;
    EXPECT_FALSE(file.n) << text;
  }
}

TEST(PlanFile, AnEmptyFileEndsTooSoon) {
  const PlanFile file = readPlanFile("");
  ASSERT_TRUE(file.fault);
  EXPECT_EQ(file.fault->number(), RuntimeError::InputPastEnd);
  EXPECT_FALSE(file.n);
}

TEST(PlanFile, MissingRowsAreEmptyAndThoseBeforeThemStand) {
  const PlanFile file = readPlanFile("3\n" + rowText("A") + rowText("B"));
  EXPECT_EQ(file.n, 3);
  ASSERT_EQ(file.rows.size(), 4U);
  EXPECT_EQ(file.wholeRows, 2U);
  EXPECT_EQ(file.rows[1], rowOf("B    "));
  EXPECT_EQ(file.rows[2], FlightPlanRecord());
  EXPECT_EQ(file.rows[3], FlightPlanRecord());
  ASSERT_TRUE(file.fault);
  EXPECT_EQ(file.fault->number(), RuntimeError::InputPastEnd);
  EXPECT_EQ(file.fault->description(), "row 2, Name: Input past end of file");
}

TEST(PlanFile, TheFieldsBeforeAMalformedOneStand) {
  const std::string bad = replaced(rowText("B"), "18000", "FL180");
  const PlanFile file = readPlanFile("2\n" + rowText("A") + bad + rowText("C"));
  ASSERT_TRUE(file.fault);
  EXPECT_EQ(file.fault->number(), RuntimeError::TypeMismatch);
  EXPECT_EQ(file.fault->description(), "row 1, Altitude: Type mismatch");
  EXPECT_EQ(file.wholeRows, 1U);
  EXPECT_EQ(file.rows[0], rowOf("A    "));
  EXPECT_EQ(file.rows[1].Name, "B    ");
  EXPECT_EQ(file.rows[1].Value17, 17.5F);
  EXPECT_EQ(file.rows[1].Altitude, 0);
  EXPECT_EQ(file.rows[1].Latitude, 0);
  EXPECT_EQ(file.rows[2], FlightPlanRecord());
}

struct BadField {
  const char* good;
  const char* bad;
  int number;
  const char* description;
};

TEST(PlanFile, AFieldThatDoesNotFitItsTypeIsToldWithItsRow) {
  constexpr BadField Rows[] = {
      {"6.5", "1e39", RuntimeError::Overflow, "row 0, Course: Overflow"},
      {"6.5", "", RuntimeError::TypeMismatch, "row 0, Course: Type mismatch"},
      {"18000", "2147483648", RuntimeError::Overflow, "row 0, Altitude: Overflow"},
      {",20,", ",32768,", RuntimeError::Overflow, "row 0, Value20: Overflow"},
      {"22000", "-3e9", RuntimeError::Overflow, "row 0, Value22: Overflow"},
  };
  for (const BadField& row : Rows) {
    const PlanFile file = readPlanFile("1\n" + replaced(rowText("A"), row.good, row.bad));
    ASSERT_TRUE(file.fault) << row.bad;
    EXPECT_EQ(file.fault->number(), row.number) << row.bad;
    EXPECT_EQ(file.fault->description(), row.description);
  }
}

TEST(PlanFile, WholeNumbersAreRoundedHalfToEven) {
  const auto rows = [](const char* good, const char* value) {
    return readPlanFile("1\n" + replaced(rowText("A"), good, value) + rowText("B")).rows;
  };
  EXPECT_EQ(rows("18000", "18000.5")[0].Altitude, 18000);
  EXPECT_EQ(rows("18000", "18001.5")[0].Altitude, 18002);
  EXPECT_EQ(rows(",20,", ",20.5,")[0].Value20, 20);
}

TEST(PlanFile, WhatStandsBehindTheLastRowIsPassedOver) {
  const PlanFile file = readPlanFile("1\n" + rowText("A") + rowText("B") + "and more, of \"it");
  EXPECT_FALSE(file.fault);
  EXPECT_EQ(file.rows.size(), 2U);
}

TEST(PlanFile, TheLargestNumberOfRowsIsRead) {
  std::string text = "32767\n";
  for (int row = 0; row <= 32767; ++row) text += rowText("A");
  const PlanFile file = readPlanFile(text);
  EXPECT_FALSE(file.fault);
  EXPECT_EQ(file.wholeRows, 32768U);
}

TEST(PlanFile, AFileLargerThan16MegabytesIsRefused) {
  std::string text = "1\n" + rowText("A") + rowText("B");
  text.resize(16777216, ' ');
  EXPECT_FALSE(readPlanFile(text).fault);
  text += ' ';
  const PlanFile file = readPlanFile(text);
  ASSERT_TRUE(file.fault);
  EXPECT_EQ(file.fault->description(), "The file is larger than 16 MB");
  EXPECT_FALSE(file.n);
}

TEST(PlanFile, BytesThatAreNoTextAreKeptOrTold) {
  std::string bytes;
  for (int byte = 255; byte >= 0; --byte) bytes += static_cast<char>(byte);
  EXPECT_TRUE(readPlanFile(bytes).fault);
  const PlanFile file = readPlanFile("1\n" + replaced(rowText("A"), "text 2", "\x01\xFF\x80"));
  EXPECT_EQ(file.rows[0].Text2, "\x01\xFF\x80");
  EXPECT_EQ(file.wholeRows, 1U);
}

TEST(PlanCfg, NamesTheAircraft) {
  EXPECT_EQ(plannedAircraft("; mine\r\n[Flight]\r\nAircraft=737-700\r\n"), "737-700");
  EXPECT_EQ(plannedAircraft("[flight]\naircraft = 737-300"), "737-300");
}

TEST(PlanCfg, WithoutTheKeyNamesNone) {
  EXPECT_EQ(plannedAircraft(""), "");
  EXPECT_EQ(plannedAircraft("[Flight]\nRoute=A\n"), "");
  EXPECT_EQ(plannedAircraft("[Other]\nAircraft=737-700\n"), "");
}

TEST(ActiveFile, IsTheWaypointAsOneLine) { EXPECT_EQ(activeFileText("ABC  "), "ABC  \r\n"); }

/// The indented lines below a heading of the page.
std::string exampleUnder(const std::string& heading) {
  const std::string page =
      replaced(readFile(std::string(VORLENT_DOCS_FOLDER) + "/plan-files.md"), "\r\n", "\n");
  auto at = page.find("\n## " + heading + "\n");
  EXPECT_NE(at, std::string::npos) << heading;
  at = page.find("\n    ", at);
  std::string example;
  while (page.compare(at, 5, "\n    ") == 0) {
    const auto end = page.find('\n', at + 1);
    example += page.substr(at + 5, end - at - 5) + "\n";
    at = end;
  }
  return example;
}

TEST(PlanFilesPage, ItsExamplesAreReadWhole) {
  const PlanFile exec = readPlanFile(exampleUnder("EXEC"));
  ASSERT_FALSE(exec.fault) << exec.fault->description();
  EXPECT_EQ(exec.n, 3);
  EXPECT_EQ(exec.rows[1].Name, "ALPHA");
  EXPECT_EQ(exec.rows[3].Name, "RX-08");
  const PlanFile prof = readPlanFile(exampleUnder("PROF"));
  ASSERT_FALSE(prof.fault) << prof.fault->description();
  EXPECT_EQ(prof.rows[2].Name, "T/D  ");
  EXPECT_EQ(plannedAircraft(exampleUnder("plan.cfg")), "737-700");
}

}  // namespace
}  // namespace vorlent
