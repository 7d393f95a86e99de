#include "display/DisplayClient.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "display/displayNetwork.h"
#include "display/records.h"
#include "support/VirtualEventLoop.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Endpoint server{"10.0.0.1", 5000};
const std::string greetingSent = "10.0.0.1:5000 Connection on vorlent display 100 cockpit";

class DisplayClientTest : public testing::Test {
 protected:
  DisplayClient::Events events() {
    return {[this](const Record& record) { altitudes.push_back(record.number("RadioAltitude")); },
            [this](const GreetingReply& reply) { folders.push_back(reply.folder); },
            [this](const std::string& notice) { notices.push_back(notice); }};
  }

  void fromServer(const std::string& text) { network.deliverFrom(server, text); }
  std::vector<std::string> takeNotices() { return std::exchange(notices, {}); }
  void connect() {
    client.start();
    fromServer("81\\737-700\\2\\2047\\.");
    network.takeSent();
    notices.clear();
  }

  VirtualEventLoop loop;
  DisplayNetwork network;
  std::vector<double> altitudes;
  std::vector<std::string> folders;
  std::vector<std::string> notices;
  DisplayClient client{loop, network, {server, 100, "cockpit"}, events()};
};

TEST_F(DisplayClientTest, GreetsAtOnceAndThenEverySecond) {
  client.start();
  EXPECT_THAT(network.takeTexts(), ElementsAre(greetingSent));
  loop.advance(999);
  EXPECT_THAT(network.takeTexts(), IsEmpty());
  loop.advance(2001);
  EXPECT_THAT(network.takeTexts(), ElementsAre(greetingSent, greetingSent, greetingSent));
}

TEST_F(DisplayClientTest, SaysOnceThatNoAnswerHasCome) {
  client.start();
  loop.advance(10000);
  EXPECT_THAT(notices,
              ElementsAre("greeting 10.0.0.1:5000",
                          "no answer from 10.0.0.1:5000 yet; greeting again every second"));
}

TEST_F(DisplayClientTest, GreetsEveryAddressUntilOneAnswersAndKeepsToThatOne) {
  DisplayNetwork ownNetwork;
  DisplayClient client2(loop, ownNetwork, {{"127.0.0.1", 5000}, 100, "cockpit", {"10.0.0.1"}},
                        events());
  client2.start();
  const std::string toLoopback = "127.0.0.1:5000 Connection on vorlent display 100 cockpit";
  EXPECT_THAT(ownNetwork.takeTexts(), ElementsAre(toLoopback, greetingSent));
  ownNetwork.deliverFrom(server, RecordText(2).text());
  EXPECT_EQ(notices.back(), "connected to 10.0.0.1:5000");
  EXPECT_TRUE(client2.send(readCommands("P 169 1")));
  EXPECT_THAT(ownNetwork.takeTexts(), ElementsAre("10.0.0.1:5000 p P 169 1 "));
  ownNetwork.deliverFrom(server, "Xterm");
  loop.advance(1000);
  EXPECT_THAT(ownNetwork.takeTexts(), ElementsAre(toLoopback, greetingSent));
}

TEST_F(DisplayClientTest, AReplyEndsTheGreeting) {
  client.start();
  fromServer("81\\737-700\\2\\2047\\.");
  network.takeSent();
  loop.advance(2000);
  EXPECT_THAT(network.takeTexts(), IsEmpty());
  EXPECT_THAT(folders, ElementsAre("737-700"));
  EXPECT_EQ(notices.back(), "connected to 10.0.0.1:5000");
}

TEST_F(DisplayClientTest, ARecordWithoutReplyEndsTheGreetingToo) {
  client.start();
  fromServer(RecordText(2).text());
  network.takeSent();
  loop.advance(2000);
  EXPECT_THAT(network.takeTexts(), IsEmpty());
  EXPECT_THAT(altitudes, ElementsAre(10234));
}

TEST_F(DisplayClientTest, RecordsAreReadWithTheMarkOfTheReply) {
  client.start();
  fromServer("81\\737-700\\2\\2047\\,");
  fromServer(RecordText(2).text());
  EXPECT_THAT(altitudes, IsEmpty());
  EXPECT_EQ(notices.back(),
            "a record was dropped: `Latitude` (group 2, token 1) is no number: \"47.26035\"");
}

TEST_F(DisplayClientTest, AStopMarkIsToldOnceAndGreetedAgainAfterASecond) {
  connect();
  fromServer("Xterm");
  fromServer("Xterm");
  EXPECT_THAT(takeNotices(), ElementsAre("the server ended the session; greeting again"));
  EXPECT_THAT(network.takeTexts(), IsEmpty());
  loop.advance(1000);
  EXPECT_THAT(network.takeTexts(), ElementsAre(greetingSent));
  loop.advance(1000);
  EXPECT_THAT(network.takeTexts(), ElementsAre(greetingSent));
}

TEST_F(DisplayClientTest, ASessionThatOutlivesAStopMarkGoesOnWithoutAGreeting) {
  connect();
  fromServer("Xterm");
  fromServer(RecordText(2).text());
  loop.advance(2000);
  EXPECT_THAT(network.takeTexts(), IsEmpty());
  EXPECT_THAT(altitudes, ElementsAre(10234));
}

TEST_F(DisplayClientTest, GreetsAfterThreeSecondsOfSilenceAndThenEverySecond) {
  connect();
  loop.advance(2999);
  EXPECT_THAT(network.takeTexts(), IsEmpty());
  loop.advance(1);
  EXPECT_THAT(network.takeTexts(), ElementsAre(greetingSent));
  EXPECT_THAT(takeNotices(),
              ElementsAre("nothing has come from 10.0.0.1:5000 for 3 s; greeting again until it "
                          "answers"));
  loop.advance(999);
  EXPECT_THAT(network.takeTexts(), IsEmpty());
  loop.advance(1001);
  EXPECT_THAT(network.takeTexts(), ElementsAre(greetingSent, greetingSent));
}

TEST_F(DisplayClientTest, EveryRecordBeginsTheSilenceAnew) {
  connect();
  for (int second = 0; second < 20; ++second) {
    loop.advance(1000);
    fromServer(RecordText(2).text());
  }
  EXPECT_THAT(network.takeTexts(), IsEmpty());
}

TEST_F(DisplayClientTest, ALongIntervalIsNoSilence) {
  DisplayNetwork ownNetwork;
  DisplayClient slow(loop, ownNetwork, {server, 10000, "cockpit"}, events());
  slow.start();
  ownNetwork.deliverFrom(server, RecordText(2).text());
  ownNetwork.takeSent();
  loop.advance(30000);
  EXPECT_THAT(ownNetwork.takeTexts(), IsEmpty());
  loop.advance(1000);
  EXPECT_THAT(ownNetwork.takeTexts(),
              ElementsAre("10.0.0.1:5000 Connection on vorlent display 10000 cockpit"));
}

TEST_F(DisplayClientTest, AServerThatComesBackCanHaveAnotherDecimalMark) {
  connect();
  loop.advance(5000);
  std::string commas = RecordText(2).text();
  std::replace(commas.begin(), commas.end(), '.', ',');
  fromServer(commas);
  EXPECT_THAT(altitudes, ElementsAre(10234));
}

TEST_F(DisplayClientTest, DatagramsFromElsewhereAreDropped) {
  client.start();
  network.deliverFrom({"10.0.0.2", 5000}, RecordText(2).text());
  network.deliverFrom({"10.0.0.1", 5001}, RecordText(2).text());
  EXPECT_THAT(altitudes, IsEmpty());
  EXPECT_EQ(notices.back(), "a datagram from 10.0.0.1:5001 was dropped");
  network.takeSent();
  loop.advance(1000);
  EXPECT_THAT(network.takeTexts(), ElementsAre(greetingSent));
}

TEST_F(DisplayClientTest, ADamagedRecordIsToldOnceAndDoesNotConnect) {
  client.start();
  notices.clear();
  fromServer("Data 2 1 47.2");
  fromServer("Data 2 1 47.2");
  EXPECT_THAT(takeNotices(),
              ElementsAre("a record was dropped: the record is cut off: no blank follows its last "
                          "token"));
  network.takeSent();
  loop.advance(1000);
  EXPECT_THAT(network.takeTexts(), ElementsAre(greetingSent));
}

TEST_F(DisplayClientTest, WhatIsNeitherRecordNorReplyIsTold) {
  client.start();
  fromServer("hello\x1b there, this is a text of more than forty bytes");
  EXPECT_EQ(notices.back(),
            "neither a record nor a reply was dropped: \"hello? there, this is a text of more "
            "tha\"");
}

TEST_F(DisplayClientTest, TheEmptyRecordOfAServerThatHasNotPolledYetIsNoFault) {
  client.start();
  notices.clear();
  fromServer("");
  EXPECT_THAT(notices, IsEmpty());
}

TEST_F(DisplayClientTest, CommandsGoToTheServer) {
  connect();
  client.send(readCommands("P 169 1"));
  EXPECT_THAT(network.takeTexts(), ElementsAre("10.0.0.1:5000 p P 169 1 "));
}

TEST_F(DisplayClientTest, ASocketThatCannotSendIsToldAndTriedAgain) {
  network.sendError = std::make_shared<RuntimeError>(SocketError::WouldBlock, "SckWouldBlock");
  client.start();
  EXPECT_EQ(notices.back(), "cannot send to 10.0.0.1:5000: SckWouldBlock");
  network.sendError.reset();
  loop.advance(1000);
  EXPECT_THAT(network.takeTexts(), ElementsAre(greetingSent));
}

TEST_F(DisplayClientTest, AnIntervalThatCannotBeAskedForIsRefused) {
  EXPECT_THROW(DisplayClient(loop, network, {server, 0, "cockpit"}, events()), RuntimeError);
}

}  // namespace
}  // namespace vorlent
