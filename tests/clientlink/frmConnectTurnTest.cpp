#include <algorithm>

#include "clientlink/SessionTest.h"
#include "core/PollTick.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Datagrams have time for two commands a turn of the event loop.
class FrmConnectTurn : public RunningSessionTest {
 protected:
  void SetUp() override {
    RunningSessionTest::SetUp();
    t.greet(0);
    events.clear();
    t.network.turnIsOver = [this] { return ++askedThisTurn_ >= 2; };
  }
  std::vector<CommandCall> nextTurn() {
    askedThisTurn_ = 0;
    t.network.nextTurn();
    return commands->take();
  }

 private:
  int askedThisTurn_ = 0;
};

TEST_F(FrmConnectTurn, DatagramThatIsTooLongForItGoesOnInTheNextOnes) {
  EXPECT_THAT(callsOf("p P 1 1 P 2 1 P 3 1 P 4 1 P 5 1 "), ElementsAre(button(1, 1), button(2, 1)));
  EXPECT_THAT(nextTurn(), ElementsAre(button(3, 1), button(4, 1)));
  EXPECT_THAT(nextTurn(), ElementsAre(button(5, 1)));
  EXPECT_THAT(nextTurn(), IsEmpty());
}

TEST_F(FrmConnectTurn, DatagramThatFitsItLeavesNothing) {
  EXPECT_THAT(callsOf("p P 1 1 P 2 1 "), ElementsAre(button(1, 1), button(2, 1)));
  EXPECT_THAT(nextTurn(), IsEmpty());
}

TEST_F(FrmConnectTurn, LaterDatagramsOfTheClientWaitBehindTheRest) {
  callsOf("p P 1 1 P 2 1 P 3 1 ");
  EXPECT_THAT(callsOf("p P 4 1 "), IsEmpty());
  EXPECT_THAT(nextTurn(), ElementsAre(button(3, 1), button(4, 1)));
}

TEST_F(FrmConnectTurn, OtherClientsDoNotWait) {
  callsOf("p P 1 1 P 2 1 P 3 1 ");
  t.deliver(1, "p P 9 1 ", stranger);
  EXPECT_THAT(commands->take(), ElementsAre(button(9, 1)));
}

TEST_F(FrmConnectTurn, DatagramIsToldOnceWhenItArrives) {
  callsOf("p P 1 1 P 2 1 P 3 1 ");
  nextTurn();
  EXPECT_THAT(events, ElementsAre("1| p P 1 1 P 2 1 P 3 1 "));
}

TEST_F(FrmConnectTurn, TripleThatIsNoneInTheRestEndsThatDatagramAlone) {
  callsOf("p P 1 1 P 2 1 P 3 1 P x 1 P 4 1 ");
  callsOf("p P 5 1 ");
  EXPECT_THAT(nextTurn(), ElementsAre(button(3, 1), button(5, 1)));
  EXPECT_TRUE(live(0));
}

TEST_F(FrmConnectTurn, KeystrokeInTheRestIsDroppedAsAnyOther) {
  callsOf("p P 1 1 P 2 1 P 1082 1 P 3 1 ");
  EXPECT_THAT(nextTurn(), ElementsAre(button(3, 1)));
  EXPECT_THAT(t.keyboard.pressed, IsEmpty());
}

TEST_F(FrmConnectTurn, StreamGoesToThePortThatSpokeLastWhileTheRestWaits) {
  callsOf("p P 1 1 P 2 1 P 3 1 ");
  t.deliver(0, "p P 4 1 ", {"127.0.0.1", 41000});
  t.network.takeSent();
  t.loop.advance(100);
  EXPECT_EQ(t.network.takeSent().back().to.port, DisplayPort);
  nextTurn();
  t.loop.advance(100);
  EXPECT_EQ(t.network.takeSent().back().to.port, 41000);
}

/// A simulator that takes a millisecond for each request, so that a datagram of 200 writes takes
/// 200 ms, and an event loop that gives datagrams 5 ms a turn.
class FrmConnectFlood : public ::testing::Test {
 protected:
  static constexpr std::int64_t Turn_ms = 5;

  FrmConnectFlood() {
    t.start();
    t.greet(0);
    t.loop.advance(60);
    t.bus.onRequest = [this](SendResult served, std::byte*) {
      t.loop.sleep(1);
      return served;
    };
    t.network.turnIsOver = [this] { return t.loop.now_ms() - turnBegan_ms_ >= Turn_ms; };
  }

  void deliver(const std::string& datagram) {
    turnBegan_ms_ = t.loop.now_ms();
    t.deliver(0, datagram);
  }
  /// As the event loop does: datagrams, then the timers that are due.
  void turn() {
    turnBegan_ms_ = t.loop.now_ms();
    t.network.nextTurn();
    oldestPoll_ms_ = std::max(oldestPoll_ms_, t.server.pollTick->age_ms().value());
    t.loop.advance(0);
  }
  std::size_t aileronWrites() const { return t.bus.writesTo(0x0BB6).size(); }

  TestServer t;
  std::int64_t turnBegan_ms_ = 0;
  std::uint32_t oldestPoll_ms_ = 0;
};

TEST_F(FrmConnectFlood, PollsStayAtTheirPaceWhileADatagramOf200WritesIsCarriedOut) {
  std::string datagram = "p ";
  for (int i = 0; i < 200; ++i) datagram += "A 13 0 ";
  deliver(datagram);
  EXPECT_EQ(aileronWrites(), 5U);
  for (int turns = 0; turns < 100; ++turns) turn();
  EXPECT_EQ(aileronWrites(), 200U);
  EXPECT_LE(oldestPoll_ms_, 70U);
}

}  // namespace
}  // namespace vorlent
