#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "recording/sqlite/RecordingReader.h"
#include "recording/sqlite/RecordingWriter.h"
#include "replay/check.h"
#include "replay/series.h"
#include "replay/storeVariables.h"
#include "support/TempFolder.h"
#include "support/places.h"

namespace vorlent {
namespace {

std::string recordingOf(const std::string& flight) {
  return testsFolder() + "/recordings/" + flight + ".sqlite";
}

/// Gives every event of a recording to `change`, and writes what that leaves into a new one.
template <class Change>
std::string copyOf(const std::string& flight, const TempFolder& folder, Change change) {
  std::string path = folder / "changed.sqlite";
  RecordingReader reader(recordingOf(flight));
  RecordingWriter writer(path);
  while (auto event = reader.next())
    if (change(*event)) writer.add(*event);
  return path;
}

CheckResult checked(const std::string& path) {
  RecordingReader reader(path);
  return checkRecording(reader);
}

/// The writes of the flight to the simulator, as places in the row of its events.
bool isWrite(const recorded::Event& event) {
  const auto* exchanged = std::get_if<recorded::Exchanged>(&event.what);
  return exchanged != nullptr && exchanged->request->size() == 1 && !exchanged->written.empty();
}

class RecordedFlight : public testing::TestWithParam<const char*> {};

TEST_P(RecordedFlight, TheServerWritesWhatItWroteThen) {
  const CheckResult result = checked(recordingOf(GetParam()));
  EXPECT_TRUE(result.same) << result.report;
  EXPECT_THAT(result.report, testing::HasSubstr(", all as then"));
}

TEST_P(RecordedFlight, IsSmall) {
  EXPECT_LT(std::filesystem::file_size(recordingOf(GetParam())), 1'000'000U);
}

INSTANTIATE_TEST_SUITE_P(All, RecordedFlight, testing::Values("climb", "approach", "stick", "hands"));

class ChangedRecording : public testing::Test {
 protected:
  TempFolder folder;
};

TEST_F(ChangedRecording, OneByteOfOneWriteIsNoticed) {
  int count = 0;
  std::int64_t time_us = 0;
  std::uint32_t offset = 0;
  const std::string path = copyOf("climb", folder, [&](recorded::Event& event) {
    if (isWrite(event) && ++count == 500) {
      auto& exchanged = std::get<recorded::Exchanged>(event.what);
      time_us = event.time_us;
      offset = exchanged.request->front().offset;
      exchanged.written.back() = static_cast<char>(exchanged.written.back() ^ 1);
    }
    return true;
  });
  const CheckResult result = checked(path);
  EXPECT_FALSE(result.same);
  std::ostringstream place;
  place << std::uppercase << std::hex << offset;
  EXPECT_THAT(result.report, testing::ContainsRegex("^[0-9.]+ s  0*" + place.str() + "  then "));
  EXPECT_THAT(result.report, testing::HasSubstr(", 1 differences"));
  EXPECT_GT(time_us, 0);
}

TEST_F(ChangedRecording, AWriteThatIsMissingIsNoticed) {
  int count = 0;
  const std::string path = copyOf("climb", folder, [&count](const recorded::Event& event) {
    return !isWrite(event) || ++count != 500;
  });
  const CheckResult result = checked(path);
  EXPECT_FALSE(result.same);
  EXPECT_THAT(result.report, testing::HasSubstr("  then nothing  now "));
}

TEST_F(ChangedRecording, ATripleThatIsChangedIsNoticed) {
  const std::string path = copyOf("climb", folder, [](recorded::Event& event) {
    if (auto* came = std::get_if<recorded::DatagramCame>(&event.what))
      if (const auto at = came->text.find("A 82 360"); at != std::string::npos)
        came->text.replace(at, 8, "A 82 350");
    return true;
  });
  EXPECT_FALSE(checked(path).same);
}

TEST_F(ChangedRecording, OneThatWasCutOffIsCheckedUpToThere) {
  const std::string path = copyOf(
      "climb", folder, [](const recorded::Event& event) { return event.time_us < 60'000'000; });
  const CheckResult result = checked(path);
  EXPECT_TRUE(result.same) << result.report;
  EXPECT_THAT(result.report, testing::HasSubstr("the recording was cut off at 60.0 s\n"));
}

TEST_F(ChangedRecording, WhereEventsAreMissingTheCheckEnds) {
  bool dropped = false;
  const std::string path = copyOf("climb", folder, [&dropped](recorded::Event& event) {
    if (dropped || event.time_us < 60'000'000) return true;
    event.what = recorded::Dropped{1};
    return dropped = true;
  });
  const CheckResult result = checked(path);
  EXPECT_TRUE(result.same) << result.report;
  EXPECT_THAT(result.report, testing::HasSubstr("events are missing at 60.0 s"));
}

std::vector<std::string> csvRows(const std::string& flight, const std::vector<std::string>& names) {
  std::vector<const StoreVariable*> variables;
  for (const std::string& name : names) variables.push_back(&storeVariableNamed(name));
  RecordingReader reader(recordingOf(flight));
  std::string text;
  printCsv(reader, variables, [&text](std::string_view piece) { text += piece; });
  std::vector<std::string> rows;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) rows.push_back(line);
  return rows;
}

/// What stands in a row behind its n-th comma.
double numberIn(const std::string& row, int comma) {
  std::istringstream cells(row);
  std::string cell;
  for (int i = 0; i <= comma; ++i) std::getline(cells, cell, ',');
  return std::stod(cell);
}

TEST(RecordedSeries, TheClimbAsCsvHasARowAPollAndReachesItsAltitude) {
  const auto rows = csvRows("climb", {"AircraftAltitude", "Ias"});
  ASSERT_GT(rows.size(), 1000U);
  EXPECT_EQ(rows.front(), "time_s,AircraftAltitude,Ias");
  EXPECT_NEAR(numberIn(rows[1], 1), 5000, 50);
  EXPECT_NEAR(numberIn(rows.back(), 1), 6500, 150);
  EXPECT_NEAR(numberIn(rows.back(), 2), 230, 15);
  EXPECT_LT(numberIn(rows[1], 0), numberIn(rows.back(), 0));
}

TEST(RecordedSeries, ThePlotIsAScriptWithTheNumbersInIt) {
  RecordingReader reader(recordingOf("stick"));
  std::string text;
  printPlot(reader, {&storeVariableNamed("Bank"), &storeVariableNamed("Vor1Id")},
            [&text](std::string_view piece) { text += piece; });
  EXPECT_THAT(text, testing::StartsWith("$flight << EOD\n"));
  EXPECT_THAT(text, testing::HasSubstr("\nEOD\n"));
  EXPECT_THAT(text, testing::HasSubstr("plot $flight using 1:2 with lines title \"Bank\""));
}

}  // namespace
}  // namespace vorlent
