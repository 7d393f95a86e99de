#include "simlink/LinkTest.h"

namespace vorlent {
namespace {

class ClsFSUIPCProcess : public LinkTest {
 protected:
  void SetUp() override {
    open();
    bus.put<std::uint8_t>(0x0AEC, 4);
  }
  bool readEngineCount() {
    EXPECT_TRUE(link.QueueRead(0x0AEC, 1, &engineCount, result));
    result = 99;
    return link.Process(result);
  }

  std::uint8_t engineCount = 0x77;
};

TEST_F(ClsFSUIPCProcess, NothingQueuedIsNothingSent) {
  EXPECT_FALSE(link.Process(result));
  EXPECT_EQ(result, 10);
  EXPECT_EQ(bus.requests, 0);
}

TEST_F(ClsFSUIPCProcess, EachRequestIsSentOnce) {
  ASSERT_TRUE(readEngineCount());
  EXPECT_FALSE(link.Process(result));
  EXPECT_EQ(result, 10);
  EXPECT_EQ(bus.requests, 1);
  EXPECT_EQ(sleptSinceOpening_ms(), 0);
}

TEST_F(ClsFSUIPCProcess, SuccessOnTheFirstNineRetriesCounts) {
  for (int retry = 1; retry <= 9; ++retry) {
    const int sleptBefore_ms = sleptSinceOpening_ms();
    engineCount = 0;
    bus.requests = 0;
    bus.unansweredRequests = retry;
    EXPECT_TRUE(readEngineCount()) << retry;
    EXPECT_EQ(result, 0) << retry;
    EXPECT_EQ(engineCount, 4) << retry;
    EXPECT_EQ(bus.requests, 1 + retry);
    EXPECT_EQ(sleptSinceOpening_ms() - sleptBefore_ms, 100 * retry);
  }
}

TEST_F(ClsFSUIPCProcess, SuccessOnTheTenthRetryCountsAsFailure) {
  bus.unansweredRequests = 10;
  EXPECT_FALSE(readEngineCount());
  EXPECT_EQ(result, 11);
  EXPECT_EQ(engineCount, 0x77);
  EXPECT_EQ(bus.requests, 11);
  EXPECT_EQ(sleptSinceOpening_ms(), 1000);
}

TEST_F(ClsFSUIPCProcess, NoAnswerAtAllIsATimeOutAfterTenRetries) {
  bus.unansweredRequests = 1000;
  EXPECT_FALSE(readEngineCount());
  EXPECT_EQ(result, 11);
  EXPECT_EQ(bus.requests, 11);
  EXPECT_EQ(sleptSinceOpening_ms(), 1000);
}

TEST_F(ClsFSUIPCProcess, ErrorInsteadOfATimeOutIsAFailedSend) {
  bus.unansweredRequests = 1000;
  bus.errorOfUnanswered = 1400;
  EXPECT_FALSE(readEngineCount());
  EXPECT_EQ(result, 12);
  EXPECT_EQ(bus.requests, 11);
}

TEST_F(ClsFSUIPCProcess, TheLastRetryTellsAnErrorFromATimeOut) {
  bus.unansweredRequests = 1000;
  bus.errorOfUnanswered = 5;
  bus.onArrival = [this](const std::byte*) {
    if (bus.requests == 11) bus.errorOfUnanswered = 0;
  };
  EXPECT_FALSE(readEngineCount());
  EXPECT_EQ(result, 11);
}

TEST_F(ClsFSUIPCProcess, EveryTryWaitsTwoSecondsForTheSameMessage) {
  bus.unansweredRequests = 1000;
  EXPECT_FALSE(readEngineCount());
  EXPECT_EQ(bus.lastMessage, (FakeSimulatorBus::Message{11, 0xC123, 0xC200, 2000}));
}

TEST_F(ClsFSUIPCProcess, ReplyOtherThanOneIsBadData) {
  for (const std::int32_t reply : {0, 2, -1, 0x7FFFFFFF}) {
    bus.onRequest = [reply](SendResult, std::byte*) { return SendResult{true, reply, 0}; };
    EXPECT_FALSE(readEngineCount()) << reply;
    EXPECT_EQ(result, 13) << reply;
    EXPECT_EQ(engineCount, 0x77) << reply;
  }
}

TEST_F(ClsFSUIPCProcess, BadReplyIsNotRetried) {
  bus.onRequest = [](SendResult, std::byte*) { return SendResult{true, 0, 0}; };
  EXPECT_FALSE(readEngineCount());
  EXPECT_EQ(bus.requests, 1);
  EXPECT_EQ(sleptSinceOpening_ms(), 0);
}

TEST_F(ClsFSUIPCProcess, NothingOfAFailedRequestIsSentAgain) {
  bus.unansweredRequests = 11;
  EXPECT_FALSE(readEngineCount());
  EXPECT_FALSE(link.Process(result));
  EXPECT_EQ(result, 10);
  bus.put<std::uint16_t>(0x0366, 1);
  std::uint16_t onGround = 0;
  ASSERT_TRUE(link.QueueRead(0x0366, 2, &onGround, result));
  ASSERT_TRUE(link.Process(result));
  EXPECT_EQ(onGround, 1);
  EXPECT_EQ(engineCount, 0x77);
}

TEST_F(ClsFSUIPCProcess, UnknownRecordFailsAndLeavesTheResultCode) {
  for (const std::uint32_t id : {3U, 4U, 0x0100U, 0x7FFFU, 0xFFFFU, 0x00010003U}) {
    answerWith({id});
    EXPECT_FALSE(readEngineCount()) << id;
    EXPECT_EQ(result, 99) << id;
    EXPECT_EQ(engineCount, 0x77) << id;
  }
}

TEST_F(ClsFSUIPCProcess, UnknownRecordBehindAGoodOneComesTooLateForTheGoodOne) {
  std::uint8_t second = 0x77;
  ASSERT_TRUE(link.QueueRead(0x0AEC, 1, &engineCount, result));
  ASSERT_TRUE(link.QueueRead(0x0AEC, 1, &second, result));
  bus.onRequest = [](SendResult served, std::byte* block) {
    store(block + 17, std::uint32_t{7});
    return served;
  };
  result = 99;
  EXPECT_FALSE(link.Process(result));
  EXPECT_EQ(result, 99);
  EXPECT_EQ(engineCount, 4);
  EXPECT_EQ(second, 0x77);
}

TEST_F(ClsFSUIPCProcess, RequestAfterAnUnknownRecordWorks) {
  answerWith({3});
  EXPECT_FALSE(readEngineCount());
  bus.onRequest = nullptr;
  EXPECT_FALSE(link.Process(result));
  EXPECT_EQ(result, 10);
  EXPECT_TRUE(readEngineCount());
  EXPECT_EQ(engineCount, 4);
}

TEST_F(ClsFSUIPCProcess, KindOfARecordIsItsLow16Bits) {
  answerWith({0xABCD0001});
  EXPECT_TRUE(readEngineCount());
  EXPECT_EQ(engineCount, 4);
}

TEST_F(ClsFSUIPCProcess, ZeroInTheLow16BitsEndsTheBlock) {
  answerWith({0x00010000});
  EXPECT_TRUE(readEngineCount());
  EXPECT_EQ(result, 0);
  EXPECT_EQ(engineCount, 0x77);
}

TEST_F(ClsFSUIPCProcess, WritesAreSteppedOver) {
  const std::uint8_t data[3] = {1, 2, 3};
  ASSERT_TRUE(link.QueueWrite(0x0C00, 3, data, result));
  ASSERT_TRUE(readEngineCount());
  EXPECT_EQ(engineCount, 4);
  EXPECT_EQ(bus.writes, (std::vector<FakeSimulatorBus::Write>{{0x0C00, {1, 2, 3}}}));
}

}  // namespace
}  // namespace vorlent
