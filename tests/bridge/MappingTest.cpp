#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "bridge/Mapping.h"
#include "bridge/flightGearProtocol.h"
#include "bridge/mappings.h"
#include "bridge/xPlaneDatagrams.h"
#include "check/offsetRows.h"
#include "simlink/decodeXPlane.h"

namespace vorlent {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

class SimulatorMapping : public testing::TestWithParam<Mapping (*)()> {
 protected:
  Mapping mapping = GetParam()();
};

TEST_P(SimulatorMapping, EveryOffsetOfTheSmallestSetIsShownOrListedAsMissing) {
  for (const OffsetRow& wanted : offsetRows()) {
    const auto holds = [&](const MappingRow& row) {
      return row.offset <= wanted.offset &&
             wanted.offset + sizeOf(wanted.form) <= row.offset + sizeOf(row.width);
    };
    const auto isMissing = [&](const auto& missing) { return missing.offset == wanted.offset; };
    EXPECT_TRUE(std::any_of(mapping.rows.begin(), mapping.rows.end(), holds) ||
                std::any_of(mapping.missing.begin(), mapping.missing.end(), isMissing))
        << wanted.name;
  }
}

TEST_P(SimulatorMapping, WhateverAPollReadsIsShownOrListedAsMissing) {
  for (const SnapshotRead& read : xplaneReads()) {
    const auto begins = [&](const MappingRow& row) {
      return row.offset <= read.offset && read.offset < row.offset + sizeOf(row.width);
    };
    const auto isMissing = [&](const auto& missing) { return missing.holds(read.offset); };
    EXPECT_TRUE(std::any_of(mapping.rows.begin(), mapping.rows.end(), begins) ||
                std::any_of(mapping.missing.begin(), mapping.missing.end(), isMissing))
        << read.mirror << " at " << std::hex << read.offset;
  }
}

TEST_P(SimulatorMapping, NoTwoRowsOfAnAircraftLieOverEachOther) {
  for (const char* aircraft : {"", "c172p", "ufo", "C172"}) {
    const auto rows = rowsFor(mapping, aircraft);
    for (std::size_t i = 1; i < rows.size(); ++i)
      EXPECT_GE(rows[i].offset, rows[i - 1].offset + sizeOf(rows[i - 1].width))
          << rows[i - 1].name << " and " << rows[i].name;
  }
}

TEST_P(SimulatorMapping, WhatIsWrittenHasOnePropertyAndEnds) {
  for (const MappingRow& row : mapping.rows) {
    if (row.direction != Direction::Both) continue;
    ASSERT_EQ(row.terms.size(), 1U) << row.name;
    EXPECT_NE(row.terms.front().factor, 0) << row.name;
    EXPECT_LT(row.lowest, row.highest) << row.name;
  }
}

TEST_P(SimulatorMapping, TheListingNamesEveryRowAndWhatIsMissing) {
  const std::string list = listing(mapping);
  for (const MappingRow& row : mapping.rows) EXPECT_THAT(list, HasSubstr(row.name));
  for (const auto& missing : mapping.missing) EXPECT_THAT(list, HasSubstr(missing.why));
}

INSTANTIATE_TEST_SUITE_P(Both, SimulatorMapping, testing::Values(flightGearMapping, xPlaneMapping),
                         [](const auto& tested) {
                           return tested.param == xPlaneMapping ? "XPlane" : "FlightGear";
                         });

class RowCoding : public testing::Test {
 protected:
  template <class T>
  T shows(MappingRow row, double number) {
    row.offset = 0x100;
    show(*memory, row, number);
    return memory->read<T>(0x100);
  }
  static MappingRow rowOf(Width width, Coding coding = Coding::Number) {
    MappingRow row;
    row.width = width;
    row.coding = coding;
    return row;
  }

  std::unique_ptr<OffsetMemory> memory = std::make_unique<OffsetMemory>();
};

TEST_F(RowCoding, ANumberBeyondTheWidthStopsAtItsEnd) {
  EXPECT_EQ(shows<std::uint8_t>(rowOf(Width::U8), 300), 255);
  EXPECT_EQ(shows<std::int8_t>(rowOf(Width::S8), -300), -128);
  EXPECT_EQ(shows<std::int64_t>(rowOf(Width::S64), 1e30), 9223372036854775807);
  EXPECT_EQ(shows<std::uint32_t>(rowOf(Width::U32), -1), 0U);
}

TEST_F(RowCoding, ATurnGoesRound) {
  EXPECT_EQ(shows<std::uint16_t>(rowOf(Width::U16, Coding::Turn), 360), 0);
  EXPECT_EQ(shows<std::uint16_t>(rowOf(Width::U16, Coding::Turn), 540), 32768);
  EXPECT_EQ(shows<std::uint16_t>(rowOf(Width::U16, Coding::Turn), -90), 49152);
  EXPECT_EQ(shows<std::uint16_t>(rowOf(Width::U16, Coding::ApproachTurn), 180), 32768);
  EXPECT_EQ(shows<std::uint16_t>(rowOf(Width::U16, Coding::ApproachTurn), 90), 16384);
}

TEST_F(RowCoding, DigitsAreTwoAByte) {
  EXPECT_EQ(shows<std::uint16_t>(rowOf(Width::U16, Coding::Digits), 1825), 0x1825);
  EXPECT_EQ(shows<std::uint16_t>(rowOf(Width::U16, Coding::Digits), 9999.9), 0x0000);
  memory->write<std::uint16_t>(0x100, 0x0955);
  MappingRow row = rowOf(Width::U16, Coding::Digits);
  row.offset = 0x100;
  EXPECT_EQ(shown(*memory, row), 955);
}

TEST_F(RowCoding, ADistanceIsFourCharacters) {
  const auto text = [&](double distance_nm) {
    shows<char>(rowOf(Width::Text, Coding::Distance), distance_nm);
    std::string characters(4, ' ');
    memory->copyOut(0x100, std::as_writable_bytes(std::span(characters)));
    EXPECT_EQ(memory->read<char>(0x104), 0);
    return characters;
  };
  EXPECT_EQ(text(6.84), "06.8");
  EXPECT_EQ(text(99.94), "99.9");
  EXPECT_EQ(text(99.96), "100.");
  EXPECT_EQ(text(120.3), "120.");
  EXPECT_EQ(text(0), ";;.;");
  EXPECT_EQ(text(1000), ";;.;");
}

TEST_F(RowCoding, ARowOfAnAircraftTakesThePlaceOfTheOneForAll) {
  Mapping mapping;
  mapping.in(0x100, Width::U8, "all", {{"a", 1}});
  mapping.in(0x100, Width::U8, "one", {{"b", 1}}).onlyFor("c172");
  EXPECT_EQ(rowsFor(mapping, "c172p").front().name, "one");
  EXPECT_EQ(rowsFor(mapping, "c182").front().name, "all");
}

TEST(FlightGearProtocol, FilesNameWhatTheRecordHolds) {
  Mapping mapping;
  mapping.in(0x100, Width::U8, "first", {{"/a", 1}, {"/b", 1}});
  mapping.in(0x101, Width::U8, "second", {{"/a", 1}}).streamed(0, 1);
  EXPECT_THAT(recordProperties(mapping), ElementsAre("/sim/time/elapsed-sec", "/a", "/b"));
  EXPECT_THAT(streamProperties(mapping), ElementsAre("/a"));
  EXPECT_THAT(recordProtocolFile(mapping), HasSubstr("<node>/b</node>"));
  EXPECT_THAT(controlProtocolFile(mapping), HasSubstr("<node>/a</node>"));
}

/// FlightGear reads nothing of a file that is no XML: a comment holds no two hyphens.
TEST(FlightGearProtocol, FilesHaveNoHyphensInTheirComment) {
  for (const std::string& file :
       {recordProtocolFile(flightGearMapping()), controlProtocolFile(flightGearMapping())}) {
    const auto begin = file.find("<!--") + 4;
    const std::string comment = file.substr(begin, file.find("-->") - begin);
    EXPECT_EQ(comment.find("--"), std::string::npos);
    EXPECT_EQ(file.find("--", file.find("-->") + 3), std::string::npos);
  }
}

TEST(FlightGearProtocol, ARecordIsDoublesHighestByteFirstAndAMark) {
  const std::string record("\x3F\xF0\0\0\0\0\0\0\xC0\0\0\0\0\0\0\0\x56\x4F\x52\x4C", 20);
  EXPECT_EQ(recordOf({1, -2}), record);
  EXPECT_THAT(valuesFrom(record, 2).value(), ElementsAre(1, -2));
  EXPECT_FALSE(valuesFrom(record, 3));
}

TEST(FlightGearProtocol, AControlLineIsValuesBetweenTabs) {
  EXPECT_EQ(controlLine({0.5, -1}), "0.5000000\t-1.0000000\n");
}

TEST(XPlaneDatagrams, RequestsHaveTheirSizes) {
  const std::string request = readingRequest(30, 7, "sim/test");
  EXPECT_EQ(request.size(), 413U);
  EXPECT_EQ(request.substr(0, 22), std::string("RREF\0\x1E\0\0\0\7\0\0\0sim/test\0", 22));
  EXPECT_EQ(datarefWrite("sim/test", 1).size(), 509U);
  EXPECT_EQ(datarefWrite("sim/test", 1).substr(0, 18),
            std::string("DREF\0\0\0\x80\x3Fsim/test\0", 18));
  EXPECT_EQ(commandRequest("sim/go"), std::string("CMND\0sim/go\0", 12));
  EXPECT_EQ(positionRequest(30), std::string("RPOS\0"
                                             "30\0",
                                             8));
  EXPECT_EQ(readingRequest(30, 7, std::string(900, 'x')).size(), 413U);
}

}  // namespace
}  // namespace vorlent
