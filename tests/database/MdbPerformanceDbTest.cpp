#include "platform/MdbPerformanceDb.h"

#include <chrono>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "gtest/gtest.h"
#include "platform/FolderNetworkFiles.h"
#include "support/TempFolder.h"
#include "support/places.h"
#include "testedHelpers.h"  // of this system

namespace vorlent {
namespace {

const std::string Path = "\\\\fmc-pc\\Tarnwick\\FMS\\db\\temp.mdb";

std::string fixture(const std::string& name) {
  std::ifstream file(testsFolder() + "/database/files/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// What every good database of the tests has in its first row.
const PerfDataRow FirstRow{
    {"ClimbN1", "88.5"},         {"MaxCruiseAlt", "310"},     {"CruiseAlt", "330"},
    {"FuelReserve", "5500"},     {"TripFuel", "18000"},       {"ZeroFuelWeight", "105000"},
    {"LandingWeight", "112000"}, {"TakeoffWeight", "130000"}, {"TakeoffN1", "93.4"},
    {"FMCspeed", "280"},         {"ClimbMach", "0.76"},       {"DescentMach", "0.74"},
};

class MdbPerformanceDbTest : public testing::Test {
 protected:
  void put(const std::string& bytes) const { net.write("fmc-pc/Tarnwick/FMS/db/temp.mdb", bytes); }
  PerformanceReading reading(const std::string& bytes) {
    put(bytes);
    EXPECT_TRUE(db.open(Path));
    return db.read();
  }
  PerfDataRow rowOf(const std::string& name) {
    const PerformanceReading read = reading(fixture(name));
    EXPECT_EQ(read.fault, "");
    return read.row.value_or(PerfDataRow());
  }
  std::string faultOf(const std::string& bytes) {
    const PerformanceReading read = reading(bytes);
    EXPECT_EQ(read.row, std::nullopt);
    return read.fault;
  }

  TempFolder net;
  FolderNetworkFiles files{net.path()};
  MdbPerformanceDb db{files, askOnce(databaseHelper())};
};

TEST_F(MdbPerformanceDbTest, ReadsTheFirstRow) { EXPECT_EQ(rowOf("temp.mdb"), FirstRow); }

TEST_F(MdbPerformanceDbTest, NamesOfFieldsAreFoundInAnyCaseOfLetters) {
  EXPECT_EQ(rowOf("temp.mdb").at("fmcSPEED"), "280");
}

TEST_F(MdbPerformanceDbTest, AnEmptyTableHasNeitherRowNorFault) {
  const PerformanceReading none = reading(fixture("perf_empty.mdb"));
  EXPECT_EQ(none.row, std::nullopt);
  EXPECT_EQ(none.fault, "");
}

TEST_F(MdbPerformanceDbTest, WithoutTheTableItSaysSo) {
  EXPECT_EQ(faultOf(fixture("perf_no_table.mdb")), "There is no table PerfData");
}

TEST_F(MdbPerformanceDbTest, FieldsThatTheTableDoesNotHaveAreMissing) {
  EXPECT_EQ(rowOf("perf_missing_fields.mdb"),
            (PerfDataRow{{"ClimbN1", "77.5"}, {"CruiseAlt", "290"}, {"FMCspeed", "265"}}));
}

TEST_F(MdbPerformanceDbTest, FieldsWithoutAValueAreMissing) {
  PerfDataRow expected = FirstRow;
  for (const std::string name : {"TripFuel", "FMCspeed", "DescentMach"}) expected.erase(name);
  EXPECT_EQ(rowOf("perf_nulls.mdb"), expected);
}

TEST_F(MdbPerformanceDbTest, ReadsFieldsOfOtherTypesInAnotherOrder) {
  EXPECT_EQ(rowOf("perf_reordered.mdb"), FirstRow);
}

TEST_F(MdbPerformanceDbTest, ADeletedRowIsPassedOver) {
  EXPECT_EQ(rowOf("perf_many_rows.mdb"), FirstRow);
}

TEST_F(MdbPerformanceDbTest, ADatabaseThatIsCutOffIsDamaged) {
  EXPECT_EQ(faultOf(fixture("truncated.mdb")), "The file is damaged");
}

TEST_F(MdbPerformanceDbTest, WhatIsNoDatabaseIsToldAsThat) {
  EXPECT_EQ(faultOf(fixture("garbage.mdb")), "The file is no Access database");
  EXPECT_EQ(faultOf(""), "The file is no Access database");
  EXPECT_EQ(faultOf("EXEC"), "The file is no Access database");
}

TEST_F(MdbPerformanceDbTest, OneThatIsTooLargeIsNotRead) {
  EXPECT_EQ(faultOf(std::string(16'777'217, 'x')), "The file is larger than 16 MB");
  EXPECT_EQ(faultOf(std::string(16'777'216, 'x')), "The file is no Access database");
}

TEST_F(MdbPerformanceDbTest, OneThatIsNotThereIsNotOpened) {
  EXPECT_FALSE(db.open(Path));
  put(fixture("temp.mdb"));
  EXPECT_EQ(db.read().row, std::nullopt);
  EXPECT_EQ(db.read().fault, "");
}

TEST_F(MdbPerformanceDbTest, OneThatWentAwayIsToldAndThereAgainWhenItComesBack) {
  EXPECT_EQ(reading(fixture("temp.mdb")).row, FirstRow);
  ASSERT_TRUE(files.remove(Path));
  EXPECT_EQ(db.read().fault, "The file is gone, or cannot be read");
  put(fixture("perf_nulls.mdb"));
  EXPECT_FALSE(db.read().row->contains("TripFuel")) << "each reading is a new one";
}

TEST_F(MdbPerformanceDbTest, WithoutItsHelperItSaysSo) {
  put(fixture("temp.mdb"));
  MdbPerformanceDb helpless(files, askOnce(net / "no-helper"));
  ASSERT_TRUE(helpless.open(Path));
  EXPECT_EQ(helpless.read().fault, "The program vorlent-mdb is missing");
}

TEST_F(MdbPerformanceDbTest, ANumberHasAllTheDigitsThatTellItFromItsNeighbours) {
  std::string bytes = fixture("temp.mdb");
  const std::string single("\xCD\xCC\xBA\x42", 4);  // 93.4
  const auto at = bytes.find(single);
  ASSERT_NE(at, std::string::npos);
  bytes[at] = '\xCE';
  EXPECT_EQ(reading(bytes).row->at("TakeoffN1"), "93.40001");
  bytes.replace(at, 4, std::string("\x00\x00\xC0\x7F", 4));  // no number
  EXPECT_FALSE(reading(bytes).row->contains("TakeoffN1"));
}

TEST_F(MdbPerformanceDbTest, AReadingThatHangsCostsItsDeadlineAndIsTold) {
  put("hang");
  MdbPerformanceDb hanging(files, askOnce(hangingHelper(net)));
  ASSERT_TRUE(hanging.open(Path));
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(hanging.read().fault, "The file is damaged, or takes more than a second to read");
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_GE(took, std::chrono::milliseconds(1000));
  EXPECT_LT(took, std::chrono::seconds(10));
}

/// Bytes anywhere, single bits, and whole pages that became others or were never written.
std::string corrupted(std::string bytes, std::mt19937& random) {
  constexpr std::size_t Page_bytes = 4096;
  const auto any = [&random](std::size_t end) {
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
  };
  const std::size_t pages = bytes.size() / Page_bytes;
  switch (any(4)) {
    case 0:
      for (std::size_t i = 1 + any(200); i > 0; --i)
        bytes[any(bytes.size())] = static_cast<char>(any(256));
      break;
    case 1:
      for (std::size_t i = 1 + any(50); i > 0; --i)
        bytes[any(bytes.size())] ^= static_cast<char>(1 << any(8));
      break;
    case 2:
      bytes.replace(any(pages) * Page_bytes, Page_bytes,
                    bytes.substr(any(pages) * Page_bytes, Page_bytes));
      break;
    default: {
      const std::size_t page = any(pages) * Page_bytes;
      for (std::size_t i = 1 + any(64); i > 0; --i)
        bytes[page + any(64)] = static_cast<char>(any(256));
      break;
    }
  }
  return bytes;
}

TEST_F(MdbPerformanceDbTest, NoDamageCostsMoreThanTheDeadline) {
  std::mt19937 random(4711);
  int rows = 0;
  int faults = 0;
  for (int i = 0; i < 200; ++i) {
    const std::string bytes = corrupted(fixture("temp.mdb"), random);
    const auto start = std::chrono::steady_clock::now();
    const PerformanceReading read = reading(bytes);
    const auto took = std::chrono::steady_clock::now() - start;
    EXPECT_LT(took, std::chrono::milliseconds(5000)) << "damage number " << i;
    rows += read.row ? 1 : 0;
    faults += read.fault.empty() ? 0 : 1;
    EXPECT_FALSE(read.row && !read.fault.empty()) << "damage number " << i;
  }
  // Most damage lies where nothing is read.
  EXPECT_GT(rows, 50);
  EXPECT_GT(faults, 20);
}

}  // namespace
}  // namespace vorlent
