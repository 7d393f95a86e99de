#include <limits>
#include <optional>

#include "bridge/XPlaneLink.h"
#include "bridge/support/BridgeTest.h"
#include "bridge/support/FakeXPlane.h"

namespace vorlent {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* There = "192.0.2.1";

class XPlaneBridge : public BridgeTest {
 protected:
  XPlaneBridge() : BridgeTest(xPlaneMapping()) {}

  void start(const std::string& host = "") {
    link.emplace(sockets, host, 49000, mapping,
                 [this](const std::string& text) { notes.push_back(text); });
    open(*link);
  }
  void hearBeacon(const std::string& from = There, std::uint16_t port = 49000,
                  std::uint32_t role = 1) {
    sockets.deliver(49707, from, xp.beacon(port, role));
  }
  /// X-Plane takes what was sent to it, computes a frame and tells of it.
  void frame(double duration_s = 0.034) {
    now_s += duration_s;
    bridge->advance();
    arrive();
    for (const std::string& packet : xp.frame()) sockets.deliver(0, There, packet);
    bridge->advance();
  }
  void arrive() {
    for (const auto& sent : sockets.takeSent())
      if (sent.receiver.address == There) xp.takeDatagram(sent.bytes);
  }
  void fly() {
    start();
    hearBeacon();
    for (int i = 0; i < 10; ++i) frame();
  }

  FakeXPlane xp;
  std::optional<XPlaneLink> link;
};

TEST_F(XPlaneBridge, ShowsWhatXPlaneSaysInTheScalesOfTheInterface) {
  fly();
  EXPECT_EQ(read<std::int32_t>(0x0564), 5000875);
  EXPECT_EQ(read<std::int32_t>(0x056C), -1073741824);
  EXPECT_EQ(read<std::int32_t>(0x0574), 1524);
  EXPECT_EQ(read<std::int16_t>(0x0B4C), 100);  // 1524 m, 1424 m above the ground
  EXPECT_EQ(read<std::int32_t>(0x0578), -29826162);
  EXPECT_EQ(read<std::int32_t>(0x057C), 178956971);
  EXPECT_EQ(read<std::uint32_t>(0x0580), 3221225472U);
  EXPECT_EQ(read<std::uint16_t>(0x02A0), 64990);     // 270 true is 273 magnetic
  EXPECT_EQ(read<std::uint32_t>(0x02B4), 8519680U);  // 130 m/s
  EXPECT_EQ(read<std::uint32_t>(0x02B8), 32097U);    // 129 m/s are 250.756 knots
  EXPECT_EQ(read<std::uint32_t>(0x02BC), 32000U);
  EXPECT_EQ(read<std::uint32_t>(0x02C4), 43520U);
  EXPECT_EQ(read<std::int16_t>(0x02C8), -768);
  EXPECT_EQ(read<std::uint16_t>(0x0AEC), 2);
  EXPECT_EQ(read<std::uint8_t>(0x0889), 3);
  EXPECT_EQ(read<std::uint16_t>(0x0898), 10240);
  EXPECT_EQ(read<std::int16_t>(0x088C), 8192);
  EXPECT_NEAR(read<double>(0x30C0), 119999.8, 0.1);
  EXPECT_EQ(read<std::uint16_t>(0x0330), 16211);
  EXPECT_EQ(read<std::uint16_t>(0x0350), 0x1030);
  EXPECT_EQ(read<std::int32_t>(0x07D4), 99876864);
  EXPECT_EQ(told("the aircraft is B738"), 1);
}

TEST_F(XPlaneBridge, IsReadyWhilePositionAndValuesCome) {
  start();
  EXPECT_FALSE(ready());
  hearBeacon();
  for (int i = 0; i < 10; ++i) frame();
  EXPECT_TRUE(ready());
  now_s += 2.1;
  EXPECT_FALSE(ready());
}

TEST_F(XPlaneBridge, ThePositionAloneIsNotEnough) {
  start(There);
  bridge->advance();
  for (const auto& sent : sockets.takeSent())
    if (sent.bytes.starts_with("RPOS")) xp.takeDatagram(sent.bytes);
  for (const std::string& packet : xp.frame()) sockets.deliver(0, There, packet);
  EXPECT_FALSE(ready());
}

TEST_F(XPlaneBridge, RequestsAreAtMostAHundredInARow) {
  start(There);
  bridge->advance();
  EXPECT_LE(sockets.takeSent().size(), 101U);  // and the one for the position
  bridge->advance();
  EXPECT_THAT(sockets.takeSent(), IsEmpty());
  now_s += 0.11;
  bridge->advance();
  EXPECT_THAT(sockets.takeSent(), testing::Not(IsEmpty()));
}

TEST_F(XPlaneBridge, AnXPlaneThatWasStartedAgainIsAskedAgainWithinFiveSeconds) {
  fly();
  xp.start("C172");
  double waited_s = 0;
  for (; waited_s < 10 && (!ready() || read<std::uint8_t>(0x0609) != 0); waited_s += 0.034) frame();
  EXPECT_LE(waited_s, 5.5);
  EXPECT_EQ(told("the aircraft is C172"), 1);
}

TEST_F(XPlaneBridge, SubscriptionsAreRenewedEveryFiveSeconds) {
  fly();
  const int first = xp.requests;
  for (int i = 0; i < 150; ++i) frame();
  EXPECT_EQ(xp.requests, 2 * first);
}

TEST_F(XPlaneBridge, ValuesAreWrittenAtOnceByName) {
  fly();
  write<std::int16_t>(0x088C, 12288);
  write<std::uint16_t>(0x0BE8, 0);
  write(0x2EB0, 0.17453292519943295);  // 10 degrees of 20
  arrive();
  EXPECT_FLOAT_EQ(xp.values["sim/cockpit2/engine/actuators/throttle_ratio[0]"], 0.75F);
  EXPECT_FLOAT_EQ(xp.values["sim/cockpit2/engine/actuators/throttle_ratio[1]"], 0.5F);
  EXPECT_FLOAT_EQ(xp.values["sim/cockpit2/controls/gear_handle_down"], 0.0F);
  EXPECT_FLOAT_EQ(xp.values["sim/cockpit2/controls/aileron_trim"], 0.5F);
}

TEST_F(XPlaneBridge, ALostWriteIsMadeUpFor) {
  fly();
  write<std::int16_t>(0x088C, 12288);
  sockets.takeSent();
  frame(0.06);
  EXPECT_FLOAT_EQ(xp.values["sim/cockpit2/engine/actuators/throttle_ratio[0]"], 0.75F);
}

TEST_F(XPlaneBridge, TellsAReceivedStationAndALocalizerBesideIt) {
  fly();
  EXPECT_EQ(read<std::uint8_t>(0x0C4A), 0);
  xp.values["sim/cockpit2/radios/indicators/nav1_display_horizontal"] = 1;
  xp.values["sim/cockpit2/radios/indicators/nav2_display_horizontal"] = 1;
  frame();
  EXPECT_EQ(read<std::uint8_t>(0x0C4A), 128);
  EXPECT_EQ(read<std::uint8_t>(0x0C5A), 128);
  EXPECT_EQ(read<std::uint8_t>(0x0C4C), 0);
  xp.values["sim/cockpit2/radios/indicators/nav1_display_vertical"] = 1;
  frame();
  EXPECT_EQ(read<std::uint8_t>(0x0C4A), 130);
  EXPECT_EQ(read<std::uint8_t>(0x0C4C), 1);
}

TEST_F(XPlaneBridge, ALeverStopsAtItsEnds) {
  fly();
  write<std::int16_t>(0x088C, 17039);
  EXPECT_EQ(read<std::int16_t>(0x088C), 16384);
  arrive();
  EXPECT_FLOAT_EQ(xp.values["sim/cockpit2/engine/actuators/throttle_ratio[0]"], 1.0F);
}

TEST_F(XPlaneBridge, PauseIsACommandThatIsGivenOnlyWhereItChangesSomething) {
  fly();
  write<std::uint8_t>(0x0264, 0);
  arrive();
  EXPECT_THAT(xp.commands, IsEmpty());
  write<std::uint8_t>(0x0264, 1);
  arrive();
  EXPECT_THAT(xp.commands, ElementsAre("sim/operation/pause_toggle"));
}

TEST_F(XPlaneBridge, OnlyAnXPlaneThatFliesItselfIsTaken) {
  start();
  hearBeacon("192.0.2.9", 49000, 2);  // draws the outside view of another
  sockets.deliver(49707, "192.0.2.9", "BECN");
  sockets.deliver(49707, "192.0.2.9", std::string("BECN\0\2\1", 7) + std::string(20, '\1'));
  bridge->advance();
  EXPECT_THAT(sockets.takeSent(), IsEmpty());
}

TEST_F(XPlaneBridge, ItsBeaconTellsThePort) {
  start();
  hearBeacon(There, 49010);
  bridge->advance();
  EXPECT_EQ(sockets.takeSent().front().receiver.port, 49010);
}

TEST_F(XPlaneBridge, AnotherXPlaneDoesNotTakeOverWhileTheFirstFlies) {
  fly();
  hearBeacon("192.0.2.9");
  for (int i = 0; i < 200; ++i) frame();
  EXPECT_TRUE(ready());
  EXPECT_EQ(told("is at"), 1);
}

TEST_F(XPlaneBridge, TheBeaconsOfOthersDoNotTakeAwayItsTimeToAnswer) {
  start();
  hearBeacon();
  for (std::uint16_t port = 40000; port < 40050; ++port) {
    hearBeacon("192.0.2.9", port);
    frame();
  }
  EXPECT_TRUE(ready());
  EXPECT_EQ(told("is at"), 1);
}

TEST_F(XPlaneBridge, OneThatDoesNotAnswerIsLeftForAnotherAfterTwoSeconds) {
  start();
  hearBeacon("192.0.2.9");
  frame();
  hearBeacon();
  frame(1.9);
  EXPECT_EQ(told("is at 192.0.2.1"), 0);
  hearBeacon();
  frame(0.2);
  EXPECT_EQ(told("is at 192.0.2.1"), 1);
  for (int i = 0; i < 10; ++i) frame();
  EXPECT_TRUE(ready());
}

TEST_F(XPlaneBridge, AHostThatWasNamedIsAskedWithoutABeacon) {
  start(There);
  hearBeacon("192.0.2.9");
  for (int i = 0; i < 10; ++i) frame();
  EXPECT_TRUE(ready());
}

TEST_F(XPlaneBridge, WithoutMulticastItSaysWhatToDo) {
  sockets.multicast = false;
  start();
  EXPECT_EQ(told("no multicast here; say with --host where X-Plane is"), 1);
}

TEST_F(XPlaneBridge, WithoutMulticastAHostThatWasNamedIsFlown) {
  sockets.multicast = false;
  start(There);
  for (int i = 0; i < 10; ++i) frame();
  EXPECT_TRUE(ready());
  EXPECT_EQ(told("say with --host"), 0);
}

TEST_F(XPlaneBridge, ClientsAreAnsweredInTheMidstOfAFlood) {
  fly();
  for (int i = 0; i < 1000; ++i) sockets.deliver(0, "192.0.2.9", "rubbish");
  xp.values["sim/flightmodel/position/indicated_airspeed"] = 260;
  for (const std::string& packet : xp.frame()) sockets.deliver(0, There, packet);
  for (int request = 0; request < 3; ++request) EXPECT_EQ(read<std::uint32_t>(0x02BC), 32000U);
  EXPECT_EQ(read<std::uint32_t>(0x02BC), 33280U);  // the fourth part of 256 has the values
}

TEST_F(XPlaneBridge, DamagedAndForeignDatagramsChangeNothing) {
  fly();
  const std::string position = xp.frame().front();
  sockets.deliver(0, There, position.substr(0, position.size() - 1));
  sockets.deliver(0, There, "");
  sockets.deliver(0, There, "RREF");
  sockets.deliver(0, There, std::string("RREF,\xFF\xFF\xFF\x7F\0\0\0\0", 13));  // index 2^31 - 1
  sockets.deliver(0, There, std::string("RREF,\xFF\xFF\xFF\xFF\0\0\0\0", 13));  // index -1
  sockets.deliver(0, There, "RREF,12345");
  xp.latitude_deg = -45;
  sockets.deliver(0, "192.0.2.9", xp.frame().front());
  sockets.deliver(0, "192.0.2.9", xp.frame().front());
  EXPECT_EQ(read<std::int32_t>(0x0564), 5000875);
  EXPECT_EQ(read<std::uint32_t>(0x02BC), 32000U);
  EXPECT_EQ(told("192.0.2.9"), 1);
}

TEST_F(XPlaneBridge, NoNumbersAndALoneJumpChangeNothing) {
  fly();
  xp.values["sim/flightmodel/position/indicated_airspeed"] =
      std::numeric_limits<float>::quiet_NaN();
  for (const double latitude : {std::numeric_limits<double>::quiet_NaN(), 46.0}) {
    xp.latitude_deg = latitude;
    frame();
    EXPECT_EQ(read<std::int32_t>(0x0564), 5000875);
    xp.latitude_deg = 45;
    frame();
  }
  EXPECT_EQ(read<std::uint32_t>(0x02BC), 32000U);
}

TEST_F(XPlaneBridge, DatarefsThatXPlaneDoesNotAnswerAreToldOnce) {
  start(There);
  const auto silentAbout = [](const FakeSockets::Sent& sent) {
    return sent.bytes.find("acf_Vmo") != std::string::npos;
  };
  for (int i = 0; i < 500; ++i) {
    now_s += 0.034;
    bridge->advance();
    for (const auto& sent : sockets.takeSent())
      if (!silentAbout(sent)) xp.takeDatagram(sent.bytes);
    for (const std::string& packet : xp.frame()) sockets.deliver(0, There, packet);
  }
  EXPECT_EQ(told("X-Plane does not answer for sim/aircraft/view/acf_Vmo"), 1);
  EXPECT_EQ(told("does not answer"), 1);
  EXPECT_EQ(read<std::uint32_t>(0x02C4), 0U);
}

TEST_F(XPlaneBridge, AtTheEndXPlaneIsToldToSendNoMore) {
  fly();
  bridge.reset();
  link.reset();
  arrive();
  EXPECT_THAT(xp.frame(), IsEmpty());
}

}  // namespace
}  // namespace vorlent
