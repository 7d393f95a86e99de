#include <gtest/gtest.h>

#include "support/TestServer.h"

namespace vorlent {
namespace {

/// A running server with one display, whose simulator then fails.
class LinkFailure : public ::testing::Test {
 protected:
  static constexpr int Poll_ms = 60;
  /// One request and its ten retries.
  static constexpr int WholeRequest = 11;

  void SetUp() override {
    t.bus.put<std::uint32_t>(0x02BC, 250 * 128);
    t.start();
    t.greet(0);
    t.loop.advance(Poll_ms);
    ASSERT_EQ(t.store.Ias, 250);
  }
  void poll() { t.loop.advance(Poll_ms); }
  void expectEnd(const std::string& text) const {
    EXPECT_EQ(t.exitStatus(), 1);
    EXPECT_EQ(t.form.sbStatusBar.panelText(1), text);
    EXPECT_TRUE(
        t.log().ends_with("The simulator does not answer as it should: start it again, then "
                          "Vorlent\r\n" +
                          text + "\r\n"));
  }

  TestServer t;
};

TEST_F(LinkFailure, OnePollThatFailsReadsZero) {
  t.bus.unansweredRequests = WholeRequest;
  poll();
  EXPECT_EQ(t.store.Ias, 0);
  EXPECT_EQ(t.store.EngineCount, 0);
  EXPECT_EQ(t.exitStatus(), std::nullopt);
}

TEST_F(LinkFailure, OnePollThatFailsIsForgottenByTheNext) {
  t.bus.unansweredRequests = WholeRequest;
  poll();
  poll();
  EXPECT_EQ(t.store.Ias, 250);
  EXPECT_EQ(t.exitStatus(), std::nullopt);
}

TEST_F(LinkFailure, DisplayGetsItsRecordWhileAPollFails) {
  t.bus.unansweredRequests = WholeRequest;
  poll();
  t.network.takeSent();
  t.loop.advance(100);
  const auto sent = t.network.takeSent();
  ASSERT_FALSE(sent.empty());
  EXPECT_TRUE(sent.front().text.starts_with("Data "));
}

TEST_F(LinkFailure, TwoPollsInARowThatFailEndTheProcess) {
  t.bus.unansweredRequests = 2 * WholeRequest;
  poll();
  poll();
  expectEnd("FSUIPC Process error IPC timed out all retries");
}

TEST_F(LinkFailure, PollsThatFailInTurnWithGoodOnesAreSurvived) {
  for (int round = 0; round < 5; ++round) {
    t.bus.unansweredRequests = WholeRequest;
    poll();
    EXPECT_EQ(t.store.Ias, 0);
    poll();
    EXPECT_EQ(t.store.Ias, 250);
  }
  EXPECT_EQ(t.exitStatus(), std::nullopt);
}

TEST_F(LinkFailure, SimulatorThatRefusesTwiceEndsTheProcess) {
  t.bus.onRequest = [](SendResult, std::byte*) { return SendResult{true, 0, 0}; };
  poll();
  EXPECT_EQ(t.exitStatus(), std::nullopt);
  poll();
  expectEnd("FSUIPC Process error IPC request contains bad data");
}

TEST_F(LinkFailure, SimulatorWhoseWindowIsGoneEndsTheProcess) {
  t.bus.errorOfUnanswered = 1400;
  t.bus.unansweredRequests = 1000;
  poll();
  EXPECT_EQ(t.exitStatus(), std::nullopt);
  poll();
  expectEnd("FSUIPC Process error IPC sendmessage failed all retries");
}

TEST_F(LinkFailure, DamagedReplyToAPollReadsZeroOnce) {
  t.bus.onRequest = [](SendResult served, std::byte* block) {
    store(block, std::uint32_t{9});
    return served;
  };
  poll();
  EXPECT_EQ(t.store.Ias, 0);
  EXPECT_EQ(t.exitStatus(), std::nullopt);
  t.bus.onRequest = nullptr;
  poll();
  EXPECT_EQ(t.store.Ias, 250);
}

TEST_F(LinkFailure, ReplyThatIsDamagedHalfWayLeavesNoHalfSnapshot) {
  t.bus.onRequest = [](SendResult served, std::byte* block) {
    // Behind the five bytes of the time and the large block.
    store(block + 5 * 17 + 16 + 4352, std::uint32_t{9});
    return served;
  };
  poll();
  EXPECT_EQ(t.store.Ias, 0);
}

TEST_F(LinkFailure, SimulatorThatAnswersLateIsWaitedFor) {
  t.bus.unansweredRequests = 9;
  poll();
  EXPECT_EQ(t.store.Ias, 250);
  EXPECT_EQ(t.exitStatus(), std::nullopt);
}

TEST_F(LinkFailure, TypedReadThatFailsEndsTheProcessAtOnce) {
  t.bus.unansweredRequests = WholeRequest;
  t.greet(1, "100", "fmc1", 40001);
  expectEnd("FSUIPC Process error IPC timed out all retries");
}

TEST_F(LinkFailure, NothingRunsAfterTheEnd) {
  t.bus.unansweredRequests = 1000;
  poll();
  poll();
  ASSERT_EQ(t.exitStatus(), 1);
  t.network.takeSent();
  t.bus.requests = 0;
  t.loop.advance(10000);
  t.deliver(0, "p P 1 2 ");
  EXPECT_TRUE(t.network.takeSent().empty());
  EXPECT_EQ(t.bus.requests, 0);
}

}  // namespace
}  // namespace vorlent
