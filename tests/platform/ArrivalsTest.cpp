#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include "platform/PolledSockets.h"
#include "platform/linux/Descriptor.h"
#include "support/eventually.h"

namespace vorlent {
namespace {

/// A listener on 127.0.0.1 for one connection.
class LineServer {
 public:
  LineServer() : listening_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    EXPECT_EQ(bind(listening_.number(), reinterpret_cast<const sockaddr*>(&address), size), 0);
    EXPECT_EQ(listen(listening_.number(), 1), 0);
    getsockname(listening_.number(), reinterpret_cast<sockaddr*>(&address), &size);
    port = ntohs(address.sin_port);
  }

  void take() { connection_ = Descriptor(accept(listening_.number(), nullptr, nullptr)); }
  void say(const std::string& text) const {
    EXPECT_EQ(send(connection_.number(), text.data(), text.size(), 0),
              static_cast<ssize_t>(text.size()));
  }
  void hangUp() { connection_ = Descriptor(); }
  void goAway() { listening_ = Descriptor(); }

  std::uint16_t port = 0;

 private:
  Descriptor listening_;
  Descriptor connection_;
};

class Arrivals : public testing::Test {
 protected:
  static constexpr const char* Here = "127.0.0.1";

  bool wait(int limit_ms) const {
    pollfd watched{sockets->arrivals(), POLLIN, 0};
    return poll(&watched, 1, limit_ms) == 1;
  }
  bool come() const { return wait(5000); }
  bool none() const { return !wait(0); }

  std::unique_ptr<PolledSockets> sockets = systemSockets();
};

TEST_F(Arrivals, ADatagramIsOneUntilItIsReceived) {
  const std::uint16_t port = LineServer().port;
  const auto receiver = sockets->datagrams(Here, port);
  const auto sender = systemSockets()->datagrams(Here, 0);
  EXPECT_TRUE(none());
  ASSERT_TRUE(sender->send({Here, port}, "record"));
  ASSERT_TRUE(come());
  EXPECT_EQ(receiver->receive()->bytes, "record");
  EXPECT_TRUE(none());
}

TEST_F(Arrivals, ALineOfAConnectionIsOneUntilItIsReceived) {
  LineServer server;
  const auto connection = sockets->connect({Here, server.port});
  server.take();
  ASSERT_TRUE(eventually([&] { return connection->state() == PolledConnection::State::Open; }));
  EXPECT_TRUE(none());
  server.say("c172p\r\n");
  ASSERT_TRUE(come());
  EXPECT_EQ(connection->receive(), "c172p\r\n");
  EXPECT_TRUE(none());
}

TEST_F(Arrivals, AConnectionThatWasRefusedIsNoneOnceThatIsKnown) {
  LineServer server;
  server.goAway();
  const auto connection = sockets->connect({Here, server.port});
  EXPECT_TRUE(eventually([&] { return connection->state() == PolledConnection::State::Closed; }));
  EXPECT_TRUE(none());
}

TEST_F(Arrivals, AConnectionWhoseOtherEndHungUpIsNoneOnceThatIsKnown) {
  LineServer server;
  const auto connection = sockets->connect({Here, server.port});
  server.take();
  ASSERT_TRUE(eventually([&] { return connection->state() == PolledConnection::State::Open; }));
  server.hangUp();
  ASSERT_TRUE(come());
  EXPECT_EQ(connection->receive(), "");
  EXPECT_EQ(connection->state(), PolledConnection::State::Closed);
  EXPECT_TRUE(none());
}

TEST_F(Arrivals, ASocketThatIsGoneIsNone) {
  const std::uint16_t port = LineServer().port;
  auto receiver = sockets->datagrams(Here, port);
  const auto sender = systemSockets()->datagrams(Here, 0);
  ASSERT_TRUE(sender->send({Here, port}, "record"));
  ASSERT_TRUE(come());
  receiver.reset();
  EXPECT_TRUE(none());
}

}  // namespace
}  // namespace vorlent
