// docs/display-protocol.md is what strangers write displays from: it has to say what the code does.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "base/text.h"
#include "display/Greeting.h"
#include "display/RecordLayout.h"
#include "display/RecordReader.h"
#include "support/places.h"

namespace vorlent {
namespace {

using Cells = std::vector<std::string>;

std::vector<std::string> documentLines() {
  std::ifstream file(docsFolder() + "/display-protocol.md");
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

/// The cells of a table's line without the blanks around them; none for any other line.
Cells cellsOf(const std::string& line) {
  Cells cells;
  if (line.empty() || line.front() != '|') return cells;
  std::istringstream rest(line.substr(1));
  for (std::string cell; std::getline(rest, cell, '|');) cells.push_back(trimmed(cell));
  return cells;
}

bool isNumber(const std::string& text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

struct DocumentedToken {
  int group;
  int position;
  std::string kind, name, unit;
  bool operator==(const DocumentedToken&) const = default;
};

std::ostream& operator<<(std::ostream& to, const DocumentedToken& token) {
  return to << token.group << "." << token.position << " " << token.kind << " " << token.name << " "
            << token.unit;
}

/// The rows of the tables under the headings "### Group n: ...".
std::vector<DocumentedToken> documentedTokens() {
  const std::string heading = "### Group ";
  std::vector<DocumentedToken> tokens;
  int group = 0;
  for (const std::string& line : documentLines()) {
    if (line.starts_with("#")) group = 0;
    if (line.starts_with(heading)) group = std::stoi(line.substr(heading.size()));
    const Cells cells = cellsOf(line);
    if (group == 0 || cells.size() != 5 || !isNumber(cells[0])) continue;
    EXPECT_FALSE(cells[4].empty()) << line;
    tokens.push_back({group, std::stoi(cells[0]), cells[1], cells[2], cells[3]});
  }
  return tokens;
}

/// The table's name as the document writes it: code in back-ticks, an engine's with its record.
DocumentedToken asDocumented(const TokenRow& row) {
  const std::string record = row.group == EngineGroup ? "Engines(n)." : "";
  return {row.group, row.position, std::string(1, static_cast<char>(row.kind)),
          "`" + record + std::string(row.name) + "`", std::string(row.unit)};
}

TEST(ProtocolDocument, TellsEveryTokenAsTheTableHasIt) {
  const auto documented = documentedTokens();
  ASSERT_EQ(documented.size(), 244u);
  ASSERT_EQ(tokenRows().size(), 244u);
  for (std::size_t i = 0; i < documented.size(); ++i)
    EXPECT_EQ(documented[i], asDocumented(tokenRows()[i]));
}

TEST(ProtocolDocument, TellsTheLengthOfEveryGroup) {
  std::vector<std::string> lengths;
  bool inTable = false;
  for (const std::string& line : documentLines()) {
    const Cells cells = cellsOf(line);
    if (cells.empty()) inTable = false;
    if (cells == Cells{"Group", "Tokens", "Content"}) inTable = true;
    if (inTable && cells.size() == 3 && isNumber(cells[0])) lengths.push_back(cells[1]);
  }
  ASSERT_EQ(lengths.size(), 21u);
  EXPECT_EQ(lengths[5], "34 × blocks");
  for (int group = 1; group <= 21; ++group) {
    const auto count = std::count_if(tokenRows().begin(), tokenRows().end(),
                                     [group](const TokenRow& row) { return row.group == group; });
    const auto expected =
        group == EngineGroup ? std::to_string(count) + " × blocks" : std::to_string(count);
    EXPECT_EQ(lengths[static_cast<std::size_t>(group - 1)], expected) << "group " << group;
  }
}

TEST(ProtocolDocument, TellsEveryAutopilotBitAsTheTableHasIt) {
  std::size_t bit = 0;
  bool inTable = false;
  for (const std::string& line : documentLines()) {
    const Cells cells = cellsOf(line);
    if (cells.empty()) inTable = false;
    if (inTable && cells.size() == 4 && isNumber(cells[0])) {
      ASSERT_LT(bit, 8u);
      EXPECT_EQ(cells[0], std::to_string(1 << bit));
      for (int set = 1; set <= ApBitSets; ++set)
        EXPECT_EQ(cells[static_cast<std::size_t>(set)],
                  "`" + std::string(apBitNames(set)[bit]) + "`");
      ++bit;
    }
    if (!cells.empty() && cells[0] == "Bit value") inTable = true;
  }
  EXPECT_EQ(bit, 8u);
}

/// The block of code that begins with this line, its lines put together as they travel.
std::string exampleBeginningWith(const std::string& firstLine) {
  std::string text;
  bool inside = false;
  for (const std::string& line : documentLines()) {
    if (line == firstLine) inside = true;
    if (inside && line == "```") break;
    if (inside) text += line;
  }
  return replaced(text, "·", " ");
}

TEST(ProtocolDocument, ItsExampleDecodesToWhatItTells) {
  const auto reply = readGreetingReply(exampleBeginningWith("81\\737-700\\1\\2047\\,"));
  ASSERT_TRUE(reply);
  EXPECT_EQ(reply->decimalMark, ",");
  EXPECT_EQ(reply->engineCount, 1);
  RecordReader reader;
  reader.decimalMark(reply->decimalMark);
  const Record record = reader.read(exampleBeginningWith("Data·"));
  EXPECT_EQ(record.fields().size(), 244u);
  EXPECT_EQ(record.number("Latitude"), 47.26035);
  EXPECT_EQ(record.number("Longitude"), 11.34391);
  EXPECT_EQ(record.number("AircraftAltitude"), 1906.5);
  EXPECT_EQ(record.number("Engines(1).FuelFlow"), 720.25);
  EXPECT_EQ(record.text("Vor1Id"), "INN");
  EXPECT_EQ(record.text("Vor2Id"), "");
  EXPECT_EQ(record.text("Adf1Id"), "AB");
  EXPECT_EQ(record.text("Adf2Id"), "");
  EXPECT_EQ(record.number("ZuluTime"), 12.05);
  for (const char* bit : {"apAltitudeHold", "apMaster", "apAutoThrottle", "LNAV"})
    EXPECT_TRUE(record.apBit(bit)) << bit;
  EXPECT_FALSE(record.apBit("VNAV"));
}

}  // namespace
}  // namespace vorlent
