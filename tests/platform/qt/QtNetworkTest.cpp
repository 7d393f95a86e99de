#include "platform/qt/QtNetwork.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtFixture.h"
#include "platform/qt/SocketErrors.h"
#include "platform/qt/UdpPeer.h"

namespace vorlent {
namespace {

const std::string Loopback = "127.0.0.1";

std::uint16_t freePort() { return UdpPeer().port(); }

/// Number of the error that `work` raises, 0 without one.
template <class Work>
int errorOf(const Work& work) {
  try {
    work();
    return 0;
  } catch (const RuntimeError& error) {
    return error.number();
  }
}

class QtNetworkTest : public QtFixture {
 protected:
  QtNetworkTest() {
    socket->onDatagram([this](const Endpoint& sender, const std::string& text) {
      senders.push_back(sender);
      texts.push_back(text);
    });
  }
  /// Binds, and learns the port.
  void bind() {
    socket->bind(0, Loopback);
    socket->send({Loopback, peer.port()}, "hello");
    peer.receive();
    port = peer.lastSenderPort();
  }
  bool receives(std::size_t count) {
    return comes([&] { return texts.size() >= count; });
  }

  /// As comes(), and no turn of the event loop runs any more once the condition holds.
  static bool comesByTurns(const std::function<bool()>& condition) {
    QElapsedTimer waited;
    for (waited.start(); !condition() && waited.elapsed() < 10000;)
      QCoreApplication::processEvents();
    return condition();
  }

  QtNetwork network;
  UdpPeer peer;
  std::unique_ptr<UdpSocket> socket = network.createSocket();
  std::uint16_t port = 0;
  std::vector<Endpoint> senders;
  std::vector<std::string> texts;
};

TEST_F(QtNetworkTest, ADatagramArrivesWithItsBytesAndSender) {
  bind();
  const std::string text("p P \0\xFF 1 ", 9);
  peer.sendTo(port, text);
  ASSERT_TRUE(receives(1));
  EXPECT_EQ(texts[0], text);
  EXPECT_EQ(senders[0].address, "127.0.0.1");
  EXPECT_EQ(senders[0].port, peer.port());
}

TEST_F(QtNetworkTest, ADatagramIsCutOffBehind2048Bytes) {
  bind();
  peer.sendTo(port, std::string(2048, 'a') + "b");
  peer.sendTo(port, "next");
  ASSERT_TRUE(receives(2));
  EXPECT_EQ(texts[0], std::string(2048, 'a'));
  EXPECT_EQ(texts[1], "next");
}

TEST_F(QtNetworkTest, AReceiverThatAsksForMoreGetsMore) {
  socket->receiveUpTo(60000);
  bind();
  peer.sendTo(port, std::string(5000, 'a'));
  ASSERT_TRUE(receives(1));
  EXPECT_EQ(texts[0], std::string(5000, 'a'));
}

TEST_F(QtNetworkTest, AnEmptyDatagramIsADatagramAndStopsNothing) {
  bind();
  peer.sendTo(port, "");
  peer.sendTo(port, "");
  peer.sendTo(port, "next");
  ASSERT_TRUE(receives(3));
  EXPECT_EQ(texts, (std::vector<std::string>{"", "", "next"}));
}

TEST_F(QtNetworkTest, ManyDatagramsArriveInTheirOrder) {
  bind();
  constexpr int count = 200;
  for (int i = 0; i < count; ++i) peer.sendTo(port, std::to_string(i));
  ASSERT_TRUE(receives(count));
  for (int i = 0; i < count; ++i) EXPECT_EQ(texts[static_cast<std::size_t>(i)], std::to_string(i));
}

TEST_F(QtNetworkTest, TimersHaveTheirTurnWhileDatagramsPourIn) {
  bind();
  QtEventLoop loop;
  bool ticked = false;
  const auto timer = loop.createTimer([&] { ticked = true; });
  socket->onDatagram([&](const Endpoint&, const std::string&) { peer.sendTo(port, "again"); });
  timer->start(1);
  peer.sendTo(port, "first");
  EXPECT_TRUE(comes([&] { return ticked; }));
}

/// Works for some time, as a handler of many commands does.
void workFor(std::chrono::milliseconds duration) {
  const auto end = std::chrono::steady_clock::now() + duration;
  while (std::chrono::steady_clock::now() < end) continue;
}

TEST_F(QtNetworkTest, AHandlerLearnsThatItsTurnIsOverAndHasItsRestCalledLater) {
  bind();
  std::vector<bool> over;
  socket->onDatagram([&](const Endpoint&, const std::string& text) {
    over.push_back(socket->turnIsOver());
    workFor(std::chrono::milliseconds(6));
    over.push_back(socket->turnIsOver());
    socket->continueLater([this, text] { texts.push_back("rest of " + text); });
  });
  peer.sendTo(port, "one");
  ASSERT_TRUE(comesByTurns([&] { return over.size() == 2; }));
  EXPECT_EQ(over, (std::vector<bool>{false, true}));
  EXPECT_TRUE(texts.empty());
  ASSERT_TRUE(receives(1));
  EXPECT_EQ(texts[0], "rest of one");
}

TEST_F(QtNetworkTest, LaterDatagramsWaitBehindTheRest) {
  bind();
  socket->onDatagram([&](const Endpoint&, const std::string& text) {
    texts.push_back(text);
    if (text != "one") return;
    workFor(std::chrono::milliseconds(6));
    socket->continueLater([this] {
      texts.push_back("more of one");
      workFor(std::chrono::milliseconds(6));
      socket->continueLater([this] { texts.push_back("end of one"); });
    });
  });
  peer.sendTo(port, "one");
  peer.sendTo(port, "two");
  ASSERT_TRUE(receives(4));
  EXPECT_EQ(texts, (std::vector<std::string>{"one", "more of one", "end of one", "two"}));
}

TEST_F(QtNetworkTest, AFloodOnOneSocketDoesNotKeepAnotherWaiting) {
  bind();
  socket->onDatagram([&](const Endpoint&, const std::string&) {
    peer.sendTo(port, "again");
    workFor(std::chrono::milliseconds(6));
  });
  UdpPeer otherPeer;
  const auto other = network.createSocket();
  bool heard = false;
  other->onDatagram([&](const Endpoint&, const std::string&) { heard = true; });
  other->bind(0, Loopback);
  other->send({Loopback, otherPeer.port()}, "hello");
  otherPeer.receive();
  peer.sendTo(port, "first");
  QCoreApplication::processEvents();
  otherPeer.sendTo(otherPeer.lastSenderPort(), "and I?");
  for (int turn = 0; turn < 10 && !heard; ++turn) QCoreApplication::processEvents();
  EXPECT_TRUE(heard);
}

TEST_F(QtNetworkTest, ASocketThatGoesTakesItsRestAlong) {
  bind();
  bool left = false;
  bool called = false;
  socket->onDatagram([&](const Endpoint&, const std::string&) {
    workFor(std::chrono::milliseconds(6));
    socket->continueLater([&called] { called = true; });
    left = true;
  });
  peer.sendTo(port, "one");
  ASSERT_TRUE(comesByTurns([&] { return left; }));
  socket.reset();
  for (int turn = 0; turn < 10; ++turn) QCoreApplication::processEvents();
  EXPECT_FALSE(called);
}

TEST_F(QtNetworkTest, EveryDatagramOfASocketLeavesFromItsPort) {
  const auto own = freePort();
  socket->bind(own, Loopback);
  for (const std::string text : {"one", "two"}) {
    socket->send({Loopback, peer.port()}, text);
    EXPECT_EQ(peer.receive(), text);
    EXPECT_EQ(peer.lastSenderPort(), own);
  }
}

TEST_F(QtNetworkTest, TheReceiverMayChangeFromOneDatagramToTheNext) {
  bind();
  UdpPeer other;
  socket->send({Loopback, other.port()}, "to the other");
  socket->send({Loopback, peer.port()}, "to the peer");
  EXPECT_EQ(other.receive(), "to the other");
  EXPECT_EQ(peer.receive(), "to the peer");
  EXPECT_EQ(errorOf([&] { socket->send({"nowhere", 1}, "x"); }), 10049);
}

TEST_F(QtNetworkTest, AnAnswerReachesASocketThatNeverBound) {
  socket->send({Loopback, peer.port()}, "hello");
  EXPECT_EQ(peer.receive(), "hello");
  peer.sendTo(peer.lastSenderPort(), "answer");
  ASSERT_TRUE(receives(1));
  EXPECT_EQ(texts[0], "answer");
}

TEST_F(QtNetworkTest, ADisplayThatWentAwayStopsNothing) {
  bind();
  const auto gone = freePort();
  for (int i = 0; i < 5; ++i) {
    socket->send({Loopback, gone}, "record");
    QCoreApplication::processEvents();
  }
  peer.sendTo(port, "still here?");
  ASSERT_TRUE(receives(1));
  EXPECT_EQ(texts[0], "still here?");
  socket->send({Loopback, peer.port()}, "yes");
  EXPECT_EQ(peer.receive(), "yes");
}

TEST_F(QtNetworkTest, APortCanBeBoundAgainRightAfterItsClose) {
  const auto own = freePort();
  for (int i = 0; i < 3; ++i) {
    socket->bind(own, Loopback);
    peer.sendTo(own, "datagram");
    ASSERT_TRUE(receives(static_cast<std::size_t>(i + 1)));
    socket->close();
  }
}

TEST_F(QtNetworkTest, AClosedSocketHearsNothing) {
  bind();
  socket->close();
  peer.sendTo(port, "too late");
  const auto other = network.createSocket();
  bool arrived = false;
  other->onDatagram([&](const Endpoint&, const std::string&) { arrived = true; });
  other->bind(port, Loopback);
  peer.sendTo(port, "for the other");
  ASSERT_TRUE(comes([&] { return arrived; }));
  EXPECT_TRUE(texts.empty());
}

TEST_F(QtNetworkTest, APortInUseIs10048) {
  bind();
  const auto other = network.createSocket();
  EXPECT_EQ(errorOf([&] { other->bind(port, Loopback); }), 10048);
  socket->close();
  EXPECT_EQ(errorOf([&] { other->bind(port, Loopback); }), 0);
}

TEST_F(QtNetworkTest, AnAddressOfAnotherMachineIs10049) {
  // A documentation address, RFC 5737.
  EXPECT_EQ(errorOf([&] { socket->bind(0, "192.0.2.1"); }), 10049);
  EXPECT_EQ(errorOf([&] { socket->bind(0, Loopback); }), 0);
}

TEST_F(QtNetworkTest, WhatIsNoDottedAddressIs10049) {
  for (const std::string text : {"", "1", "127.1", "localhost", "::1", "127.0.0.1 ", "127.0.0.256"})
    EXPECT_EQ(errorOf([&] { socket->bind(0, text); }), 10049) << text;
}

TEST_F(QtNetworkTest, ADatagramThatNoNetworkCarriesIs10040) {
  bind();
  EXPECT_EQ(errorOf([&] {
              socket->send({Loopback, peer.port()}, std::string(70000, 'x'));
            }),
            10040);
}

TEST_F(QtNetworkTest, AHandlerMayCloseItsSocket) {
  bind();
  socket->onDatagram([&](const Endpoint&, const std::string& text) {
    texts.push_back(text);
    socket->close();
  });
  peer.sendTo(port, "one");
  peer.sendTo(port, "two");
  ASSERT_TRUE(receives(1));
  QCoreApplication::processEvents();
  EXPECT_EQ(texts, std::vector<std::string>{"one"});
}

TEST_F(QtNetworkTest, AHandlerMayDestroyItsSocket) {
  bind();
  socket->onDatagram([&](const Endpoint&, const std::string& text) {
    texts.push_back(text);
    socket.reset();
  });
  peer.sendTo(port, "one");
  peer.sendTo(port, "two");
  ASSERT_TRUE(receives(1));
  QCoreApplication::processEvents();
  EXPECT_EQ(texts, std::vector<std::string>{"one"});
}

TEST_F(QtNetworkTest, DatagramsThatComeWhileAHandlerPumpsArriveAfterIt) {
  bind();
  bool inside = false;
  bool nested = false;
  socket->onDatagram([&](const Endpoint&, const std::string& text) {
    nested |= inside;
    inside = true;
    if (text == "first") {
      peer.sendTo(port, "second");
      QCoreApplication::processEvents();
      QCoreApplication::processEvents();
    }
    inside = false;
    texts.push_back(text);
  });
  peer.sendTo(port, "first");
  ASSERT_TRUE(receives(2));
  peer.sendTo(port, "third");
  ASSERT_TRUE(receives(3));
  EXPECT_EQ(texts, (std::vector<std::string>{"first", "second", "third"}));
  EXPECT_FALSE(nested);
}

TEST_F(QtNetworkTest, ASocketWhoseHandlersAllPumpNeitherNestsNorGoesDeaf) {
  bind();
  constexpr int waiting = 200;
  int depth = 0;
  int deepest = 0;
  socket->onDatagram([&](const Endpoint&, const std::string& text) {
    deepest = std::max(deepest, ++depth);
    // The one more comes inside the pump of the last handler of a batch.
    if (texts.size() % 64 == 63) peer.sendTo(port, "more");
    QCoreApplication::processEvents();
    --depth;
    texts.push_back(text);
  });
  for (int i = 0; i < waiting; ++i) peer.sendTo(port, "x");
  EXPECT_TRUE(receives(waiting + 3));
  EXPECT_EQ(deepest, 1);
}

TEST_F(QtNetworkTest, ASocketHearsOnWhenADatagramComesInTheLastHandlerOfABatch) {
  bind();
  socket->onDatagram([&](const Endpoint&, const std::string& text) {
    texts.push_back(text);
    if (texts.size() != 64) return;
    peer.sendTo(port, "last");
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
  });
  for (int i = 0; i < 64; ++i) peer.sendTo(port, "x");
  ASSERT_TRUE(receives(65));
  EXPECT_EQ(texts.back(), "last");
}

TEST_F(QtNetworkTest, TheAddressOfTheSettingsIsTheMachinesOwn) {
  EXPECT_EQ(QtNetwork("10.1.2.3").localIp(), "10.1.2.3");
}

TEST_F(QtNetworkTest, TheMachinesOwnAddressCanBeBoundTo) {
  EXPECT_EQ(errorOf([&] { socket->bind(0, network.localIp()); }), 0);
}

TEST_F(QtNetworkTest, TheHostNameIsTheSystems) {
  char name[256] = "";
  ASSERT_EQ(gethostname(name, sizeof name - 1), 0);
  EXPECT_EQ(network.localHostName(), name);
}

TEST(SocketErrors, AWouldBlockIs10035WithItsOwnDescription) {
  const auto error = socketError(QAbstractSocket::TemporaryError, "Unable to send a datagram");
  EXPECT_EQ(error.number(), 10035);
  EXPECT_EQ(error.description(), "SckWouldBlock");
}

TEST(SocketErrors, ProtocolsThatTheMachineLacksAre10047) {
  EXPECT_EQ(socketError(QAbstractSocket::UnsupportedSocketOperationError, "").number(), 10047);
}

TEST(SocketErrors, OthersKeepTheirDescription) {
  const auto error = socketError(QAbstractSocket::NetworkError, "Network unreachable");
  EXPECT_EQ(error.number(), 10050);
  EXPECT_EQ(error.description(), "Network unreachable");
}

}  // namespace
}  // namespace vorlent
