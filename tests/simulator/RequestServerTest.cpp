#include "simulator/RequestServer.h"

#include <gmock/gmock.h>

#include <random>
#include <string>
#include <vector>

#include "simulator/RequestBlock.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using Bytes = std::vector<std::uint8_t>;

class RequestServerTest : public testing::Test {
 protected:
  std::int32_t serve(RequestBlock& block) { return server.serve(block.bytes()); }

  OffsetMemory memory;
  std::vector<std::string> notes;
  RequestServer server{memory, [this](const std::string& text) { notes.push_back(text); }};
};

TEST_F(RequestServerTest, AReadIsFilledBehindItsHeader) {
  memory.write<std::uint32_t>(0x0570, 0x04030201);
  RequestBlock block;
  const std::size_t data = block.read(0x0570, 4);
  block.close();
  EXPECT_EQ(serve(block), 1);
  EXPECT_EQ(data, 16u);
  EXPECT_THAT(block.at(data, 4), ElementsAre(1, 2, 3, 4));
}

TEST_F(RequestServerTest, TheDestinationIsLeftAlone) {
  RequestBlock block;
  block.read(0x0570, 4, 0xDEADBEEF);
  block.close();
  EXPECT_EQ(serve(block), 1);
  EXPECT_THAT(block.at(12, 4), ElementsAre(0xEF, 0xBE, 0xAD, 0xDE));
}

TEST_F(RequestServerTest, AWriteChangesTheMemory) {
  RequestBlock block;
  block.write(0x034E, {0x25, 0x18}).close();
  EXPECT_EQ(serve(block), 1);
  EXPECT_EQ(memory.read<std::uint16_t>(0x034E), 0x1825);
  EXPECT_EQ(memory.read<std::uint8_t>(0x0350), 0);
}

TEST_F(RequestServerTest, RecordsAreCarriedOutInTheirOrder) {
  RequestBlock block;
  const std::size_t before = block.read(0x0264, 1);
  block.write(0x0264, {1});
  const std::size_t after = block.read(0x0264, 1);
  block.close();
  EXPECT_EQ(serve(block), 1);
  EXPECT_THAT(block.at(before, 1), ElementsAre(0));
  EXPECT_THAT(block.at(after, 1), ElementsAre(1));
}

TEST_F(RequestServerTest, WhatStandsBehindTheClosingZeroIsNotLookedAt) {
  RequestBlock block;
  block.write(0x0264, {1}).close().write(0x0265, {1}).close();
  EXPECT_EQ(serve(block), 1);
  EXPECT_EQ(memory.read<std::uint16_t>(0x0264), 1);
}

TEST_F(RequestServerTest, AnEmptyRequestIsGood) {
  RequestBlock block;
  EXPECT_EQ(serve(block), 1);
}

TEST_F(RequestServerTest, AReadOfNothingIsGood) {
  RequestBlock block;
  block.read(0x0570, 0);
  block.close();
  EXPECT_EQ(serve(block), 1);
}

TEST_F(RequestServerTest, TheWholeMemoryWithinReachCanBeRead) {
  memory.write<std::uint8_t>(0xFFFF, 9);
  RequestBlock block;
  const std::size_t data = block.read(0xFFFF, 1);
  block.close();
  EXPECT_EQ(serve(block), 1);
  EXPECT_THAT(block.at(data, 1), ElementsAre(9));
}

TEST_F(RequestServerTest, AnUnknownIdIsMalformedAndNothingIsCarriedOut) {
  for (const std::uint32_t id : {3u, 0x10001u, 0xFFFFFFFFu, 0x100u}) {
    RequestBlock block;
    block.write(0x0264, {1}).header({id, 0x0264, 1, 0}).close();
    EXPECT_EQ(serve(block), 0) << id;
    EXPECT_EQ(memory.read<std::uint8_t>(0x0264), 0) << id;
  }
}

TEST_F(RequestServerTest, ADamagedRecordKeepsEarlierReadsFromBeingFilled) {
  memory.write<std::uint8_t>(0x0264, 5);
  RequestBlock block;
  const std::size_t data = block.read(0x0264, 1);
  block.header({7}).close();
  EXPECT_EQ(serve(block), 0);
  EXPECT_THAT(block.at(data, 1), ElementsAre(0));
}

TEST_F(RequestServerTest, ASizeBeyondTheBlockIsMalformed) {
  for (const std::uint32_t size :
       {32753u, 65536u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFF0u, 0xFFFFFFFFu}) {
    RequestBlock reading;
    reading.header({1, 0, size, 0});
    EXPECT_EQ(serve(reading), 0) << size;
    RequestBlock writing;
    writing.header({2, 0, size});
    EXPECT_EQ(serve(writing), 0) << size;
  }
}

TEST_F(RequestServerTest, AnOffsetBeyondTheMemoryIsMalformed) {
  for (const std::uint32_t offset : {0xFFFDu, 0x10000u, 0x7FFFFFFFu, 0xFFFFFFFCu, 0xFFFFFFFFu}) {
    RequestBlock reading;
    reading.read(offset, 4);
    reading.close();
    EXPECT_EQ(serve(reading), 0) << offset;
    RequestBlock writing;
    writing.write(offset, {1, 2, 3, 4}).close();
    EXPECT_EQ(serve(writing), 0) << offset;
  }
  EXPECT_EQ(memory.read<std::uint32_t>(0xFFFC), 0u);
}

TEST_F(RequestServerTest, AMissingClosingZeroIsMalformed) {
  RequestBlock block;
  block.read(0, 32768 - 16);
  EXPECT_EQ(serve(block), 0);
  EXPECT_THAT(block.at(32764, 4), ElementsAre(0, 0, 0, 0));
}

TEST_F(RequestServerTest, AClosingZeroInTheLastFourBytesIsGood) {
  RequestBlock block;
  block.read(0, 32768 - 16 - 4);
  block.close();
  EXPECT_EQ(serve(block), 1);
}

TEST_F(RequestServerTest, AHeaderThatReachesBeyondTheBlockIsMalformed) {
  for (std::uint32_t left = 4; left < 16; ++left) {
    RequestBlock block;
    block.read(0, 32768 - 16 - left);
    const std::size_t last = 32768 - left;
    block.bytes()[last] = std::byte{1};
    EXPECT_EQ(serve(block), 0) << left;
  }
}

TEST_F(RequestServerTest, ABlockTooSmallForAZeroIsMalformed) {
  for (const std::size_t size : {0u, 1u, 3u}) {
    RequestBlock block(size);
    EXPECT_EQ(serve(block), 0) << size;
  }
}

TEST_F(RequestServerTest, NothingBehindTheBlockIsTouchedWhateverStandsInIt) {
  std::mt19937 generator(1);
  const auto below = [&](std::uint32_t end) {
    return std::uniform_int_distribution<std::uint32_t>(0, end - 1)(generator);
  };
  int good = 0;
  for (int round = 0; round < 3000; ++round) {
    // Sizes and offsets near the limits, so that many records fit and many do not.
    std::vector<std::byte> guarded(256 + 64, std::byte{0xA5});
    RequestBlock block(256);
    for (std::uint32_t used = 0; used < 100; used += 32)
      block.header({1 + below(2), below(2) == 0 ? 0xFFF0U : 0x100U, below(36), below(4)});
    std::copy(block.bytes().begin(), block.bytes().end(), guarded.begin());
    good += server.serve(std::span(guarded).first(256));
    for (std::size_t i = 256; i < guarded.size(); ++i) ASSERT_EQ(guarded[i], std::byte{0xA5});
  }
  EXPECT_GT(good, 100);
  EXPECT_LT(good, 2900);
}

TEST_F(RequestServerTest, TheVersionIsNotChangedByTheLibraryVersionOfAClient) {
  memory.write<std::uint32_t>(0x3304, 0x49500000);
  memory.write<std::uint32_t>(0x3308, 0xFADE0008);
  RequestBlock block;
  block.write(0x330A, {0x00, 0x00}).close();
  EXPECT_EQ(serve(block), 1);
  EXPECT_EQ(memory.read<std::uint32_t>(0x3304), 0x49500000u);
  EXPECT_EQ(memory.read<std::uint32_t>(0x3308), 0xFADE0008u);
  EXPECT_THAT(notes, ElementsAre("Write of 2 bytes to offset 0x330A not carried out: the version "
                                 "stands there"));
}

TEST_F(RequestServerTest, AWriteAcrossTheVersionChangesOnlyWhatLiesAroundIt) {
  const Bytes data(14, 0x77);
  RequestBlock block;
  block.write(0x3303, data).close();
  EXPECT_EQ(serve(block), 1);
  EXPECT_EQ(memory.read<std::uint8_t>(0x3303), 0x77);
  EXPECT_EQ(memory.read<std::uint64_t>(0x3304), 0u);
  EXPECT_EQ(memory.read<std::uint8_t>(0x330C), 0x77);
  EXPECT_EQ(memory.read<std::uint32_t>(0x330D), 0x77777777u);
  EXPECT_THAT(notes, ElementsAre("Write of 8 bytes to offset 0x3304 not carried out: the version "
                                 "stands there"));
}

TEST_F(RequestServerTest, WritesBesideTheVersionAreCarriedOutWithoutANote) {
  RequestBlock block;
  block.write(0x3300, {1, 2, 3, 4}).write(0x330C, {5}).close();
  EXPECT_EQ(serve(block), 1);
  EXPECT_EQ(memory.read<std::uint32_t>(0x3300), 0x04030201u);
  EXPECT_EQ(memory.read<std::uint8_t>(0x330C), 5);
  EXPECT_TRUE(notes.empty());
}

}  // namespace
}  // namespace vorlent
