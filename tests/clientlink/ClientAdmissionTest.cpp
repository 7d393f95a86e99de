#include "clientlink/ClientAdmission.h"

#include "clientlink/SessionTest.h"
#include "platform/AddressRanges.h"

namespace vorlent {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(AddressRanges, AnAddressIsItselfAlone) {
  AddressRanges ranges;
  EXPECT_TRUE(ranges.add("192.168.0.7"));
  EXPECT_TRUE(ranges.contains("192.168.0.7"));
  EXPECT_FALSE(ranges.contains("192.168.0.8"));
}

TEST(AddressRanges, ANetworkHoldsWhatSharesItsPrefix) {
  AddressRanges ranges;
  EXPECT_TRUE(ranges.add("10.1.4.0/22"));
  EXPECT_TRUE(ranges.contains("10.1.4.0"));
  EXPECT_TRUE(ranges.contains("10.1.7.255"));
  EXPECT_FALSE(ranges.contains("10.1.8.0"));
  EXPECT_FALSE(ranges.contains("10.1.3.255"));
}

TEST(AddressRanges, PrefixZeroHoldsAll) {
  AddressRanges ranges;
  EXPECT_TRUE(ranges.add("0.0.0.0/0"));
  EXPECT_TRUE(ranges.contains("203.0.113.9"));
}

TEST(AddressRanges, WhatIsNoAddressIsRefused) {
  AddressRanges ranges;
  for (const char* text : {"", "10", "10.0.0", "10.0.0.0.0", "10.0.0.256", "10.0.0.-1", "10.0.0.01",
                           "10.0.0.0/33", "10.0.0.0/", "10.0.0.0/-1", " 10.0.0.1", "host", "::1"})
    EXPECT_FALSE(ranges.add(text)) << text;
  EXPECT_TRUE(ranges.empty());
}

TEST(AddressRanges, ATextThatIsNoAddressIsNowhere) {
  AddressRanges ranges;
  ranges.add("0.0.0.0/0");
  EXPECT_FALSE(ranges.contains(""));
  EXPECT_FALSE(ranges.contains("fe80::1"));
}

/// Settings of the section [Platform] for a server that has not started yet.
class ClientAdmissionTest : public SessionTest {
 protected:
  void startWith(const std::string& clientNetworks, bool networkKeys = false) {
    t.server.admission =
        std::make_unique<ClientAdmission>(t.loop, t.network, t.form, clientNetworks, networkKeys);
    start();
  }
  void greetFrom(const std::string& address) {
    t.deliver(0, "Connection on a b 100 fmc1", {address, DisplayPort});
  }
};

TEST_F(ClientAdmissionTest, AMachineOfAnAttachedNetworkMayGreet) {
  t.network.attached = {"192.168.7.0/24"};
  start();
  greetFrom("192.168.7.20");
  EXPECT_TRUE(live(0));
}

TEST_F(ClientAdmissionTest, ThisMachineMayGreet) {
  start();
  greetFrom("127.0.0.9");
  EXPECT_TRUE(live(0));
}

TEST_F(ClientAdmissionTest, AStrangersGreetingIsToldDroppedAndNotAnswered) {
  start();
  events.clear();
  greetFrom("203.0.113.5");
  EXPECT_TRUE(idle(0));
  EXPECT_THAT(sentTexts(), IsEmpty());
  EXPECT_THAT(events, ElementsAre("1| Client 0: dropped a message from 203.0.113.5, which "
                                  "ClientNetworks does not let in"));
}

TEST_F(ClientAdmissionTest, AStrangersCommandsDoNothing) {
  start();
  t.deliver(0, "p A 81 5000 ", {"203.0.113.5", DisplayPort});
  EXPECT_THAT(commands->take(), IsEmpty());
}

TEST_F(ClientAdmissionTest, AFloodFromAStrangerIsToldOnceASecond) {
  start();
  events.clear();
  for (int i = 0; i < 50; ++i) {
    greetFrom("203.0.113.5");
    t.loop.advance(100);
  }
  EXPECT_EQ(events.size(), 5U);
}

TEST_F(ClientAdmissionTest, ANetworkThatIsAttachedLaterLetsItsMachinesIn) {
  t.network.attached = {};
  start();
  greetFrom("192.168.9.4");
  EXPECT_TRUE(idle(0));
  t.network.attached = {"192.168.9.0/24"};
  t.loop.advance(1000);
  greetFrom("192.168.9.4");
  EXPECT_TRUE(live(0));
}

TEST_F(ClientAdmissionTest, AListLetsInWhatItNamesAndNobodyElse) {
  t.network.attached = {"192.168.7.0/24"};
  startWith("10.0.0.0/8, 172.16.4.1");
  greetFrom("192.168.7.20");
  greetFrom("127.0.0.1");
  EXPECT_TRUE(idle(0));
  greetFrom("172.16.4.1");
  EXPECT_TRUE(live(0));
}

TEST_F(ClientAdmissionTest, AnEntryThatIsNoNetworkIsToldAtTheStart) {
  t.server.admission =
      std::make_unique<ClientAdmission>(t.loop, t.network, t.form, "10.0.0.0/8,home,1.2.3", false);
  t.start();
  EXPECT_THAT(t.log(),
              HasSubstr("Vorlent.ini, [Platform], ClientNetworks: no address or network is "
                        "\"home\", \"1.2.3\"; it lets nobody in"));
}

TEST_F(ClientAdmissionTest, AClientsKeystrokeIsToldAndTheRestOfItsLineIsCarriedOut) {
  start();
  t.greet(0);
  events.clear();
  EXPECT_THAT(callsOf("p P 1082 1 P 167 1 "), ElementsAre(CommandCall{"button", 167, 1}));
  EXPECT_THAT(events, Contains("1| Client 0 sent keystroke code 1082, which NetworkKeys does not "
                               "let clients send"));
}

TEST_F(ClientAdmissionTest, AKeystrokeWithoutAGreetingIsDropped) {
  start();
  EXPECT_THAT(callsOf("p P 1082 1 "), IsEmpty());
}

TEST_F(ClientAdmissionTest, TheLastButtonCommandIsNoKeystroke) {
  start();
  EXPECT_THAT(callsOf("p P 1000 1 P 1001 1 "), ElementsAre(CommandCall{"button", 1000, 1}));
}

TEST_F(ClientAdmissionTest, CodesBeyondAreKeystrokesOfButtonsAlone) {
  start();
  EXPECT_THAT(callsOf("p A 1082 1 E 1082 2 T 1082 0 "),
              ElementsAre(CommandCall{"analog", 1082, 1}, CommandCall{"encoder", 1082, 2},
                          CommandCall{"toggle", 1082, 0}));
}

TEST_F(ClientAdmissionTest, NetworkKeysLetsClientsSendKeystrokes) {
  startWith("", true);
  EXPECT_THAT(callsOf("p P 1082 1 "), ElementsAre(CommandCall{"button", 1082, 1}));
}

}  // namespace
}  // namespace vorlent
