#include "simlink/clsFSUIPC.h"

#include <array>

#include "simlink/LinkTest.h"
#include "simlink/Snapshot.h"

namespace vorlent {
namespace {

class ClsFSUIPCRecords : public LinkTest {
 protected:
  void SetUp() override {
    open();
    dirtyTheBlock();
    recordRequests();
  }

  /// Leaves 0xFF in every byte, so that a byte that is not written shows.
  void dirtyTheBlock() {
    bus.onRequest = [](SendResult served, std::byte* block) {
      std::memset(block, 0xFF, clsFSUIPC::BlockSize_bytes);
      store(block, std::uint32_t{0});
      return served;
    };
    const std::uint8_t any = 0;
    ASSERT_TRUE(link.QueueWrite(0x0100, 1, &any, result));
    ASSERT_TRUE(link.Process(result));
    bus.onRequest = nullptr;
    bus.requests = 0;
    bus.writes.clear();
  }
};

TEST_F(ClsFSUIPCRecords, ReadHasSixteenBytesOfHeaderAndZeroedRoom) {
  Bytes data(3);
  ASSERT_TRUE(link.QueueRead(0x00013344, 3, data.data(), result));
  EXPECT_EQ(result, 0);
  ASSERT_TRUE(link.Process(result));
  EXPECT_EQ(requestFrom(0, 23), (Bytes{1, 0, 0, 0, 0x44, 0x33, 1, 0, 3, 0, 0, 0,  //
                                       1, 0, 0, 0, 0,    0,    0,                 //
                                       0, 0, 0, 0}));
}

TEST_F(ClsFSUIPCRecords, WriteHasTwelveBytesOfHeaderAndItsData) {
  const Bytes data = {0xCD, 0xAB, 0x99};
  ASSERT_TRUE(link.QueueWrite(0x00010BDC, 3, data.data(), result));
  EXPECT_EQ(result, 0);
  ASSERT_TRUE(link.Process(result));
  EXPECT_EQ(requestFrom(0, 19), (Bytes{2, 0, 0, 0, 0xDC, 0x0B, 1, 0, 3, 0, 0, 0,  //
                                       0xCD, 0xAB, 0x99,                          //
                                       0, 0, 0, 0}));
}

TEST_F(ClsFSUIPCRecords, FollowEachOtherWithoutGaps) {
  Bytes first(1);
  Bytes second(2);
  const Bytes data = {0x5A};
  ASSERT_TRUE(link.QueueRead(0x0264, 1, first.data(), result));
  ASSERT_TRUE(link.QueueWrite(0x0280, 1, data.data(), result));
  ASSERT_TRUE(link.QueueRead(0x3BFA, 2, second.data(), result));
  ASSERT_TRUE(link.Process(result));
  EXPECT_EQ(requestFrom(0, 52),
            (Bytes{1, 0, 0, 0, 0x64, 2,    0, 0, 1, 0, 0, 0, 1,    0, 0, 0, 0,     //
                   2, 0, 0, 0, 0x80, 2,    0, 0, 1, 0, 0, 0, 0x5A,                 //
                   1, 0, 0, 0, 0xFA, 0x3B, 0, 0, 2, 0, 0, 0, 2,    0, 0, 0, 0, 0,  //
                   0, 0, 0, 0}));
}

TEST_F(ClsFSUIPCRecords, ReadsReachTheReadersInTheirOrder) {
  bus.put<std::uint32_t>(0x0570, 0x11223344);
  bus.put<std::uint16_t>(0x0C4E, 0xBEEF);
  std::uint32_t altitude = 0;
  std::uint16_t obs = 0;
  ASSERT_TRUE(link.QueueRead(0x0570, 4, &altitude, result));
  ASSERT_TRUE(link.QueueRead(0x0C4E, 2, &obs, result));
  EXPECT_EQ(altitude, 0U);
  ASSERT_TRUE(link.Process(result));
  EXPECT_EQ(result, 0);
  EXPECT_EQ(altitude, 0x11223344U);
  EXPECT_EQ(obs, 0xBEEF);
  EXPECT_EQ(bus.requests, 1);
}

TEST_F(ClsFSUIPCRecords, ReadOfNothingQueuesAHeaderAndCopiesNothing) {
  std::uint8_t reader = 0x77;
  ASSERT_TRUE(link.QueueRead(0x0264, 0, &reader, result));
  ASSERT_TRUE(link.Process(result));
  EXPECT_EQ(requestFrom(0, 20),
            (Bytes{1, 0, 0, 0, 0x64, 2, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(reader, 0x77);
}

TEST_F(ClsFSUIPCRecords, ReadWithoutAReaderHasDestinationZero) {
  ASSERT_TRUE(link.QueueRead(0x0264, 1, nullptr, result));
  ASSERT_TRUE(link.Process(result));
  EXPECT_EQ(requestFrom(12, 4), (Bytes{0, 0, 0, 0}));
  EXPECT_EQ(result, 0);
}

TEST_F(ClsFSUIPCRecords, WriteOfNothingIsAHeader) {
  ASSERT_TRUE(link.QueueWrite(0x0264, 0, nullptr, result));
  ASSERT_TRUE(link.Process(result));
  EXPECT_EQ(requestFrom(0, 16), (Bytes{2, 0, 0, 0, 0x64, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(ClsFSUIPCRecords, OneReadFillsTheRequestWith32492Bytes) {
  Bytes data(32493);
  EXPECT_FALSE(link.QueueRead(0, 32493, data.data(), result));
  EXPECT_EQ(result, 15);
  EXPECT_TRUE(link.QueueRead(0, 32492, data.data(), result));
  EXPECT_EQ(result, 0);
}

TEST_F(ClsFSUIPCRecords, OneWriteFillsTheRequestWith32496Bytes) {
  const Bytes data(32497, 0xEE);
  EXPECT_FALSE(link.QueueWrite(0, 32497, data.data(), result));
  EXPECT_EQ(result, 15);
  EXPECT_TRUE(link.QueueWrite(0, 32496, data.data(), result));
  EXPECT_EQ(result, 0);
}

TEST_F(ClsFSUIPCRecords, FullRequestEndsWithItsZeroAt32512) {
  const Bytes data(32496, 0xEE);
  ASSERT_TRUE(link.QueueWrite(0, 32496, data.data(), result));
  ASSERT_TRUE(link.Process(result));
  EXPECT_EQ(requestFrom(32506, 7), (Bytes{0xEE, 0xEE, 0, 0, 0, 0, 0xFF}));
}

TEST_F(ClsFSUIPCRecords, SecondRecordMayUseWhatTheFirstLeft) {
  Bytes data(32497);
  ASSERT_TRUE(link.QueueRead(0, 100, data.data(), result));  // 116 bytes
  EXPECT_FALSE(link.QueueRead(0, 32377, data.data(), result));
  EXPECT_EQ(result, 15);
  EXPECT_FALSE(link.QueueWrite(0, 32381, data.data(), result));
  EXPECT_EQ(result, 15);
  EXPECT_TRUE(link.QueueWrite(0, 32380, data.data(), result));
  EXPECT_FALSE(link.QueueWrite(0, 0, nullptr, result));
  EXPECT_EQ(result, 15);
}

TEST_F(ClsFSUIPCRecords, SizesNearTheEndOfThirtyTwoBitsAreFull) {
  std::uint8_t reader = 0;
  for (const std::uint32_t size : {0x7F00U, 0x80000000U, 0xFFFFFFECU, 0xFFFFFFF0U, 0xFFFFFFFFU}) {
    EXPECT_FALSE(link.QueueRead(0, size, &reader, result)) << size;
    EXPECT_EQ(result, 15) << size;
    EXPECT_FALSE(link.QueueWrite(0, size, &reader, result)) << size;
    EXPECT_EQ(result, 15) << size;
  }
}

TEST_F(ClsFSUIPCRecords, WhatWasQueuedBeforeTheOverflowStays) {
  bus.put<std::uint16_t>(0x0AF4, 0x06B3);
  std::uint16_t weight = 0;
  Bytes tooMuch(32493);
  ASSERT_TRUE(link.QueueRead(0x0AF4, 2, &weight, result));
  ASSERT_FALSE(link.QueueRead(0, 32493, tooMuch.data(), result));
  ASSERT_TRUE(link.Process(result));
  EXPECT_EQ(result, 0);
  EXPECT_EQ(weight, 0x06B3);
  EXPECT_EQ(requestFrom(18, 4), (Bytes{0, 0, 0, 0}));
}

TEST_F(ClsFSUIPCRecords, ASnapshotThatDoesNotFitIsNotQueuedInPart) {
  constexpr std::array<SnapshotRead, 3> Reads = {
      {{"any", 0x0264, 2}, {"any", 0x0266, 2}, {"any", 0x0268, 1}}};  // 53 bytes
  bus.put<std::uint32_t>(0x0264, 0x04030201);
  Bytes before(32440);
  Snapshot snapshot;
  ASSERT_TRUE(link.QueueRead(0, 32440, before.data(), result));  // leaves 52
  EXPECT_FALSE(link.QueueSnapshot(Reads, snapshot, result));
  EXPECT_EQ(result, 15);
  ASSERT_TRUE(link.Process(result));
  EXPECT_EQ(requestFrom(32456, 4), (Bytes{0, 0, 0, 0}));
  EXPECT_EQ(before[0x0264], 1);
  EXPECT_EQ(snapshot.u32(0x0264), 0u);
}

TEST_F(ClsFSUIPCRecords, ASnapshotFillsARequestToItsEnd) {
  constexpr std::array<SnapshotRead, 1> Reads = {{{"any", 0x0264, 2}}};  // 18 bytes, its block 32
  bus.put<std::uint16_t>(0x0264, 0x0201);
  Bytes before(32442);
  Snapshot snapshot;
  ASSERT_TRUE(link.QueueRead(0, 32442, before.data(), result));  // leaves 50
  ASSERT_TRUE(link.QueueSnapshot(Reads, snapshot, result));
  ASSERT_TRUE(link.Process(result));
  EXPECT_EQ(snapshot.u16(0x0264), 0x0201);
  EXPECT_EQ(before[0x0264], 1);
}

TEST_F(ClsFSUIPCRecords, AsManyReadsAsFitCanWait) {
  std::uint8_t byte = 0;
  for (int i = 0; i < 2031; ++i) ASSERT_TRUE(link.QueueRead(0x0264, 0, &byte, result)) << i;
  EXPECT_FALSE(link.QueueRead(0x0264, 0, &byte, result));
  EXPECT_EQ(result, 15);
  EXPECT_TRUE(link.Process(result));
}

TEST_F(ClsFSUIPCRecords, AFullRequestLeavesRoomForTheNextOne) {
  Bytes data(32492);
  ASSERT_TRUE(link.QueueRead(0, 32492, data.data(), result));
  ASSERT_TRUE(link.Process(result));
  EXPECT_TRUE(link.QueueRead(0, 32492, data.data(), result));
}

using ClsFSUIPCClosed = LinkTest;

TEST_F(ClsFSUIPCClosed, QueuesAndProcessesNothing) {
  std::uint8_t byte = 0;
  EXPECT_FALSE(link.QueueRead(0x0264, 1, &byte, result));
  EXPECT_EQ(result, 9);
  result = -1;
  EXPECT_FALSE(link.QueueWrite(0x0264, 1, &byte, result));
  EXPECT_EQ(result, 9);
  result = -1;
  EXPECT_FALSE(link.Process(result));
  EXPECT_EQ(result, 9);
  EXPECT_EQ(bus.requests, 0);
}

TEST_F(ClsFSUIPCClosed, SaysSoBeforeItSaysThatARecordIsTooLarge) {
  std::uint8_t byte = 0;
  EXPECT_FALSE(link.QueueRead(0, 0xFFFFFFFF, &byte, result));
  EXPECT_EQ(result, 9);
}

TEST_F(ClsFSUIPCClosed, QueuesNothingAfterClose) {
  std::uint8_t byte = 0;
  open();
  ASSERT_TRUE(link.QueueRead(0x0264, 1, &byte, result));
  link.CloseLink();
  EXPECT_FALSE(link.QueueRead(0x0264, 1, &byte, result));
  EXPECT_EQ(result, 9);
  EXPECT_FALSE(link.Process(result));
  EXPECT_EQ(result, 9);
}

TEST_F(ClsFSUIPCClosed, RequestThatWasQueuedBeforeCloseIsGoneInTheNextLink) {
  std::uint8_t byte = 0;
  open();
  ASSERT_TRUE(link.QueueRead(0x0264, 1, &byte, result));
  link.CloseLink();
  open();
  EXPECT_FALSE(link.Process(result));
  EXPECT_EQ(result, 10);
}

using ClsFSUIPCResultTable = LinkTest;

TEST_F(ClsFSUIPCResultTable, SaysWhatUsersKnow) {
  const std::array texts = {
      "Okay",
      "Attempt to Open when already Open",
      "Cannot link to FSUIPC; Possible cause: FSUIPC not installed, inaccessible, or wrong version",
      "Failed to Register common message with Windows",
      "Failed to create Atom for mapping filename",
      "Failed to create a file mapping object",
      "Failed to open a view to the file map",
      "Incorrect version of FSUIPC, or not FSUIPC",
      "Sim is not version requested",
      "Call cannot execute, link not Open",
      "Call cannot execute: no requests accumulated",
      "IPC timed out all retries",
      "IPC sendmessage failed all retries",
      "IPC request contains bad data",
      "Maybe running on WideClient, but FS not running on Server, or wrong FSUIPC",
      "Read or Write request cannot be added, memory for Process is full"};
  for (int code = 0; code < 16; ++code)
    EXPECT_EQ(link.resultText(code), texts[static_cast<std::size_t>(code)]) << code;
}

TEST_F(ClsFSUIPCResultTable, NamesTheOriginalInterfaceBehindTheOtherOneToo) {
  bus.put<std::uint8_t>(0x6FFF, 1);
  ASSERT_TRUE(link.InitLink());
  EXPECT_EQ(link.resultText(7), "Incorrect version of FSUIPC, or not FSUIPC");
}

}  // namespace
}  // namespace vorlent
