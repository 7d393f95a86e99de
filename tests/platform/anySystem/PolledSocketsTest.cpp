#include "platform/PolledSockets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "base/RuntimeError.h"
#include "support/eventually.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

const std::string Here = "127.0.0.1";

class PolledSocketsTest : public testing::Test {
 protected:
  /// Bound to a port that nobody has.
  std::unique_ptr<PolledDatagrams> anyDatagrams() const { return sockets->datagrams(Here, 0); }
  /// The next datagram, or nothing after 10 s.
  static std::optional<PolledDatagrams::Datagram> next(PolledDatagrams& at) {
    std::optional<PolledDatagrams::Datagram> datagram;
    eventually([&] { return (datagram = at.receive()).has_value(); });
    return datagram;
  }
  /// The port of a socket, which another one is told by a datagram.
  std::uint16_t portOf(PolledDatagrams& socket) {
    constexpr std::uint16_t FirstPort = 47311;
    for (std::uint16_t port = FirstPort; port < FirstPort + 100; ++port) {
      std::unique_ptr<PolledDatagrams> listening;
      if (raisedBy([&] { listening = sockets->datagrams(Here, port); }) != 0) continue;
      EXPECT_TRUE(socket.send({Here, port}, "who"));
      const auto told = next(*listening);
      return told ? told->sender.port : std::uint16_t{0};
    }
    return 0;
  }

  std::unique_ptr<PolledSockets> sockets = systemSockets();
};

TEST_F(PolledSocketsTest, ADatagramArrivesWithWhereItCameFrom) {
  const auto receiver = anyDatagrams();
  const auto sender = anyDatagrams();
  const std::uint16_t senderPort = portOf(*sender);
  const std::string bytes("a\0\xFF\n", 4);
  ASSERT_TRUE(sender->send({Here, portOf(*receiver)}, bytes));
  const auto datagram = next(*receiver);
  ASSERT_TRUE(datagram.has_value());
  EXPECT_EQ(datagram->bytes, bytes);
  EXPECT_EQ(datagram->sender.address, Here);
  EXPECT_EQ(datagram->sender.port, senderPort);
}

TEST_F(PolledSocketsTest, TheLargestAndTheEmptyDatagramArriveWhole) {
  const auto receiver = anyDatagrams();
  const auto sender = anyDatagrams();
  const std::uint16_t port = portOf(*receiver);
  ASSERT_TRUE(sender->send({Here, port}, std::string(65507, 'x')));
  EXPECT_EQ(next(*receiver)->bytes, std::string(65507, 'x'));
  ASSERT_TRUE(sender->send({Here, port}, ""));
  EXPECT_EQ(next(*receiver)->bytes, "");
}

TEST_F(PolledSocketsTest, WhereNothingWaitsNothingIsReceived) {
  EXPECT_EQ(anyDatagrams()->receive(), std::nullopt);
}

TEST_F(PolledSocketsTest, AReceiverThatIsGoneIsNoFaultOfTheSender) {
  const auto sender = anyDatagrams();
  auto gone = anyDatagrams();
  const std::uint16_t port = portOf(*gone);
  gone.reset();
  for (int i = 0; i < 10; ++i) {
    sender->send({Here, port}, "anybody?");
    EXPECT_EQ(sender->receive(), std::nullopt);
  }
  const auto receiver = anyDatagrams();
  ASSERT_TRUE(receiver->send({Here, portOf(*sender)}, "still there"));
  EXPECT_EQ(next(*sender)->bytes, "still there");
}

TEST_F(PolledSocketsTest, APortThatIsTakenIsRefusedWithAReason) {
  const auto first = anyDatagrams();
  const std::uint16_t port = portOf(*first);
  try {
    sockets->datagrams(Here, port);
    FAIL() << "two sockets have port " << port;
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 10048);
    EXPECT_EQ(error.description(), "UDP port " + std::to_string(port) +
                                       " of 127.0.0.1 cannot be used: another program has it");
  }
}

TEST_F(PolledSocketsTest, TwoListenToOneGroup) {
  constexpr std::uint16_t Port = 47519;
  const auto one = sockets->group("239.255.1.1", Port);
  const auto other = sockets->group("239.255.1.1", Port);
  EXPECT_EQ(one->receive(), std::nullopt);
  EXPECT_EQ(other->receive(), std::nullopt);
}

TEST_F(PolledSocketsTest, AConnectionThatNobodyTakesIsClosed) {
  const auto free = anyDatagrams();
  const auto connection = sockets->connect({Here, portOf(*free)});
  EXPECT_TRUE(eventually([&] { return connection->state() == PolledConnection::State::Closed; }));
  EXPECT_FALSE(connection->send("GET"));
  EXPECT_EQ(connection->receive(), "");
}

TEST_F(PolledSocketsTest, KnowsThisMachineByNameAndNoOther) {
  EXPECT_EQ(sockets->addressOf("localhost"), Here);
  EXPECT_EQ(sockets->addressOf("no-such-machine.invalid"), "");
}

}  // namespace
}  // namespace vorlent
