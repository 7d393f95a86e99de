#include <bit>
#include <cmath>
#include <limits>

#include "bridge/FlightGearLink.h"
#include "bridge/flightGearProtocol.h"
#include "bridge/support/BridgeTest.h"
#include "bridge/support/FakeFlightGear.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

using testing::Contains;
using testing::Not;

constexpr const char* Here = "127.0.0.1";

class FlightGearBridge : public BridgeTest {
 protected:
  FlightGearBridge() : BridgeTest(flightGearMapping()) {
    fg.start("737-300");
    open(link);
  }

  /// FlightGear computes a frame, and the bridge has it.
  void frame() {
    fg.pass(0.025);
    deliver(fg.record());
    turn();
  }
  void deliver(const std::string& record, const std::string& from = Here) {
    sockets.deliver(5500, from, record);
  }
  void turn(double duration_s = 0.025) {
    now_s += duration_s;
    bridge->advance();
    exchange();
  }
  /// What the bridge sent arrives.
  void exchange() {
    for (const auto& sent : sockets.takeSent())
      if (sent.receiver.port == 5501) fg.takeDatagram(sent.bytes);
    if (!sockets.line) return;
    std::string said = std::exchange(sockets.line->fromBridge, {});
    for (std::size_t end; (end = said.find("\r\n")) != std::string::npos; said.erase(0, end + 2))
      sockets.line->toBridge += fg.answerTo(said.substr(0, end));
  }

  FakeFlightGear fg{recordProtocolFile(mapping), controlProtocolFile(mapping)};
  FlightGearLink link{sockets, Here, 5500, mapping,
                      [this](const std::string& text) { notes.push_back(text); }};
};

TEST_F(FlightGearBridge, ShowsWhatARecordSaysInTheScalesOfTheInterface) {
  frame();
  EXPECT_EQ(read<std::int32_t>(0x0564), 5000875);      // 45 degrees north
  EXPECT_EQ(read<std::int32_t>(0x056C), -1073741824);  // 90 degrees west
  EXPECT_EQ(read<std::int32_t>(0x0574), 1524);         // 5000 feet
  EXPECT_EQ(read<std::int16_t>(0x0B4C), 100);
  EXPECT_EQ(read<std::int32_t>(0x0578), -29826162);     // 2.5 degrees nose up
  EXPECT_EQ(read<std::int32_t>(0x057C), 178956971);     // 15 degrees to the left
  EXPECT_EQ(read<std::uint32_t>(0x0580), 3221225472U);  // 270 degrees
  EXPECT_EQ(read<std::uint16_t>(0x02A0), 64990);        // 3 degrees west
  EXPECT_EQ(read<std::uint32_t>(0x02BC), 32000U);       // 250 knots
  EXPECT_EQ(read<std::int16_t>(0x02C8), -780);          // -10 feet a second
  EXPECT_EQ(read<std::uint16_t>(0x11C6), 8397);         // Mach 0.41
  EXPECT_EQ(read<std::uint16_t>(0x0330), 16211);        // 29.92 inches, 1013.2 hPa
  EXPECT_EQ(read<std::int16_t>(0x0E8C), 1280);          // 5 degrees C
  EXPECT_EQ(read<std::uint16_t>(0x0898), 10240);        // N1 62.5 %
  EXPECT_DOUBLE_EQ(read<double>(0x3B70), 1359.67);      // 900 degrees F
  EXPECT_EQ(read<std::uint8_t>(0x0889), 3);
  EXPECT_EQ(read<std::int16_t>(0x088C), 8192);
  EXPECT_DOUBLE_EQ(read<double>(0x30C0), 120000);
  EXPECT_EQ(read<std::uint16_t>(0x0BE8), 16383);
  EXPECT_EQ(read<std::uint16_t>(0x0350), 0x1030);   // 110.30 MHz
  EXPECT_EQ(read<std::int32_t>(0x07D4), 99876864);  // 1524 m
  EXPECT_EQ(read<std::uint8_t>(0x023B), 12);
}

TEST_F(FlightGearBridge, SaysWhoItIsAndIsReadyWhileRecordsCome) {
  EXPECT_EQ(read<std::uint32_t>(0x3304), 0x49500000U);
  EXPECT_EQ(read<std::uint32_t>(0x3308), 0xFADE0008U);
  EXPECT_EQ(read<std::uint8_t>(0x6FFF), 0);
  EXPECT_FALSE(ready());
  frame();
  EXPECT_TRUE(ready());
  turn(1.9);
  EXPECT_TRUE(ready());
  turn(0.2);
  EXPECT_FALSE(ready());
  frame();
  EXPECT_TRUE(ready());
  EXPECT_EQ(told("FlightGear: no data"), 1);
}

TEST_F(FlightGearBridge, AThrottleGoesOutWithinTheRequestAndLeavesTheOtherAsItIs) {
  frame();
  write<std::int16_t>(0x088C, 12288);
  exchange();
  EXPECT_NEAR(fg.tree["/controls/engines/engine[0]/throttle"], 0.75, 1e-6);
  EXPECT_NEAR(fg.tree["/controls/engines/engine[1]/throttle"], 0.5, 1e-6);
}

TEST_F(FlightGearBridge, TheElevatorTrimIsNoseUpHereAndNoseDownThere) {
  frame();
  write<std::int16_t>(0x0BC0, 4096);
  exchange();
  EXPECT_NEAR(fg.tree["/controls/flight/elevator-trim"], -0.250015, 1e-6);
}

TEST_F(FlightGearBridge, ALeverStopsAtItsEndsAndReadsBackWhereItStopped) {
  frame();
  write<std::int16_t>(0x088C, 17039);  // 104 percent
  EXPECT_EQ(read<std::int16_t>(0x088C), 16384);
  write<std::int16_t>(0x0924, -1000);
  EXPECT_EQ(read<std::int16_t>(0x0924), 0);
  exchange();
  EXPECT_EQ(fg.tree["/controls/engines/engine[0]/throttle"], 1);
  EXPECT_EQ(fg.tree["/controls/engines/engine[1]/throttle"], 0);
}

TEST_F(FlightGearBridge, AWrittenValueStandsUntilFlightGearHasItOrHalfASecondIsOver) {
  frame();
  write<std::int16_t>(0x088C, 12288);
  sockets.takeSent();  // the datagrams are lost on their way
  deliver(fg.record());
  bridge->advance();
  EXPECT_EQ(read<std::int16_t>(0x088C), 12288);
  now_s += 0.6;
  fg.pass(0.6);
  deliver(fg.record());
  bridge->advance();
  EXPECT_EQ(read<std::int16_t>(0x088C), 8192);
}

TEST_F(FlightGearBridge, OnceFlightGearHasTheValueItsOwnCountsAgain) {
  frame();
  write<std::int16_t>(0x088C, 12288);
  exchange();
  frame();
  fg.tree["/controls/engines/engine[0]/throttle"] = 0.25;
  fg.pass(0.025);
  deliver(fg.record());
  bridge->advance();
  EXPECT_EQ(read<std::int16_t>(0x088C), 4096);
}

TEST_F(FlightGearBridge, ALostDatagramIsMadeUpForByTwoMore) {
  frame();
  write<std::int16_t>(0x088C, 12288);
  ASSERT_EQ(sockets.takeSent().size(), 1U);
  turn(0.06);
  EXPECT_NEAR(fg.tree["/controls/engines/engine[0]/throttle"], 0.75, 1e-6);
  turn(0.06);
  EXPECT_EQ(fg.datagrams, 2);
  turn(0.06);
  turn(0.06);
  EXPECT_EQ(fg.datagrams, 2);
}

TEST_F(FlightGearBridge, NothingIsSentWhileNobodyWrites) {
  for (int i = 0; i < 100; ++i) frame();
  EXPECT_EQ(fg.datagrams, 0);
  EXPECT_THAT(fg.lines, testing::ElementsAre("data", "get /sim/aircraft"));
}

TEST_F(FlightGearBridge, TheRestGoesToThePropertyServer) {
  frame();
  write<std::uint16_t>(0x0BE8, 0);
  write<std::uint16_t>(0x0350, 0x0955);
  exchange();
  EXPECT_THAT(fg.lines, Contains("set /controls/gear/gear-down 0"));
  EXPECT_THAT(fg.lines, Contains("set /instrumentation/nav[0]/frequencies/selected-mhz 109.55"));
  EXPECT_EQ(fg.datagrams, 0);
}

TEST_F(FlightGearBridge, AValueWrittenByteByByteGoesOutOnceWhenItIsWhole) {
  frame();
  write<std::uint8_t>(0x0330, 0x80);
  write<std::uint8_t>(0x0331, 0x3E);  // 16000 is 1000 hPa
  exchange();
  EXPECT_THAT(fg.lines, Not(Contains(testing::StartsWith("set "))));
  turn();
  EXPECT_THAT(fg.lines, Contains("set /instrumentation/altimeter/setting-inhg 29.5299831"));
}

TEST_F(FlightGearBridge, WhatIsWrittenWhileThePropertyServerIsAwayGoesOutWhenItIsThere) {
  frame();
  sockets.line->state = PolledConnection::State::Closed;
  sockets.servesLines = false;
  frame();
  write<std::uint16_t>(0x0BE8, 0);
  write<std::uint32_t>(0x0BDC, 16383);
  sockets.servesLines = true;
  turn(2.1);
  frame();
  EXPECT_THAT(fg.lines, Contains("set /controls/gear/gear-down 0"));
  EXPECT_THAT(fg.lines, Contains("set /controls/flight/flaps 1"));
}

TEST_F(FlightGearBridge, ThePropertyServerIsTriedEveryTwoSeconds) {
  sockets.servesLines = false;
  sockets.connections = 0;
  for (int i = 0; i < 410; ++i) frame();  // 10.25 seconds
  EXPECT_EQ(sockets.connections, 6);
}

TEST_F(FlightGearBridge, AnotherAircraftAfterANewStartHasItsOwnRows) {
  frame();
  turn();
  EXPECT_EQ(read<std::uint16_t>(0x0AEC), 2);
  EXPECT_EQ(read<std::uint8_t>(0x0609), 1);
  turn(3);
  fg.start("c172p");
  fg.tree["/sim/time/elapsed-sec"] = 1;
  frame();
  frame();
  EXPECT_EQ(read<std::uint16_t>(0x0AEC), 1);
  EXPECT_EQ(read<std::uint8_t>(0x0609), 0);
  EXPECT_EQ(told("the aircraft is c172p"), 1);
}

TEST_F(FlightGearBridge, TheAircraftIsWhatFlightGearWasStartedWithNotItsFlightModel) {
  fg.start("ufo");
  frame();
  frame();
  EXPECT_EQ(told("the aircraft is ufo"), 1);
  EXPECT_EQ(told("the aircraft is"), 1);
}

TEST_F(FlightGearBridge, ARecordThatWasOvertakenIsPassedOver) {
  fg.pass(0.025);
  const std::string early = fg.record();
  fg.tree["/velocities/airspeed-kt"] = 260;
  frame();
  deliver(early);
  turn();
  EXPECT_EQ(read<std::uint32_t>(0x02BC), 33280U);
}

TEST_F(FlightGearBridge, LostRecordsDoNotMatter) {
  frame();
  for (int i = 0; i < 20; ++i) fg.pass(0.025);
  fg.tree["/velocities/airspeed-kt"] = 260;
  frame();
  EXPECT_EQ(read<std::uint32_t>(0x02BC), 33280U);
}

TEST_F(FlightGearBridge, OfManyRecordsTheNewestCounts) {
  for (int knots = 200; knots <= 230; ++knots) {
    fg.tree["/velocities/airspeed-kt"] = knots;
    fg.pass(0.025);
    deliver(fg.record());
  }
  turn();
  EXPECT_EQ(read<std::uint32_t>(0x02BC), 29440U);
}

TEST_F(FlightGearBridge, DamagedRecordsChangeNothingAndAreToldOnce) {
  frame();
  fg.tree["/velocities/airspeed-kt"] = 99;
  fg.pass(0.025);
  std::string record = fg.record();
  deliver(record.substr(0, record.size() - 1));
  deliver(record + "x");
  deliver("");
  record.back() = static_cast<char>(record.back() ^ 1);  // of the mark
  deliver(record);
  turn();
  EXPECT_EQ(read<std::uint32_t>(0x02BC), 32000U);
  EXPECT_EQ(told("is none of ours"), 1);
}

TEST_F(FlightGearBridge, ClientsAreAnsweredInTheMidstOfAFlood) {
  frame();
  for (int i = 0; i < 1000; ++i) deliver("rubbish", "192.0.2.7");
  fg.tree["/velocities/airspeed-kt"] = 260;
  fg.pass(0.025);
  deliver(fg.record());
  for (int request = 0; request < 3; ++request) EXPECT_EQ(read<std::uint32_t>(0x02BC), 32000U);
  EXPECT_EQ(read<std::uint32_t>(0x02BC), 33280U);  // the fourth part of 256 has the record
}

TEST_F(FlightGearBridge, APropertyThatTheAircraftDoesNotHaveReadsZero) {
  write<std::uint32_t>(0x0BE0, 8191);
  frame();
  EXPECT_EQ(read<std::uint32_t>(0x0BE0), 0U);  // flaps
  EXPECT_EQ(read<std::uint16_t>(0x0350), 0x1030);
  EXPECT_EQ(read<std::uint16_t>(0x0352), 0);  // a second NAV radio
  EXPECT_EQ(read<std::uint16_t>(0x09C6), 0);  // N2 of the third engine
}

TEST_F(FlightGearBridge, AValueThatIsNoNumberLeavesWhatWasThere) {
  frame();
  fg.tree["/velocities/airspeed-kt"] = std::numeric_limits<double>::quiet_NaN();
  fg.tree["/velocities/mach"] = std::numeric_limits<double>::infinity();
  fg.tree["/velocities/groundspeed-kt"] = 100;
  frame();
  EXPECT_EQ(read<std::uint32_t>(0x02BC), 32000U);
  EXPECT_EQ(read<std::uint16_t>(0x11C6), 8397);
  EXPECT_EQ(read<std::uint32_t>(0x02B4), 3371463U);  // 51.444 m/s
}

TEST_F(FlightGearBridge, APlaceThatIsNoneOrFarAwayOnceIsPassedOver) {
  frame();
  for (const double latitude : {std::nan(""), 1e9, 46.0}) {
    fg.tree["/position/latitude-deg"] = latitude;
    frame();
    EXPECT_EQ(read<std::int32_t>(0x0564), 5000875);
    fg.tree["/position/latitude-deg"] = 45;
    frame();
  }
}

TEST_F(FlightGearBridge, APlaceThatStaysFarAwayIsTheNewOne) {
  frame();
  fg.tree["/position/latitude-deg"] = -45;
  frame();
  frame();
  EXPECT_EQ(read<std::int32_t>(0x0564), -5000875);
}

TEST_F(FlightGearBridge, DatagramsOfOtherMachinesArePassedOverAndToldOnce) {
  deliver(fg.record(), "192.0.2.7");
  deliver(fg.record(), "192.0.2.7");
  turn();
  EXPECT_FALSE(ready());
  EXPECT_EQ(told("192.0.2.7"), 1);
}

TEST_F(FlightGearBridge, AWriteThatMapsToNothingIsToldOnce) {
  frame();
  write<std::uint8_t>(0x3123, 8);
  write<std::uint8_t>(0x3123, 8);
  write<std::uint8_t>(0x07BC, 1);
  EXPECT_EQ(told("write of 1 bytes to 3123: FlightGear has nothing for it"), 1);
  EXPECT_EQ(told("07BC"), 0);
  EXPECT_EQ(read<std::uint8_t>(0x07BC), 1);
}

TEST_F(FlightGearBridge, ATrimThatIsNoNumberIsNotSent) {
  frame();
  write(0x2EB0, std::numeric_limits<double>::quiet_NaN());
  turn();
  EXPECT_EQ(fg.datagrams, 0);
  EXPECT_EQ(read<double>(0x2EB0), 0);
}

TEST_F(FlightGearBridge, NothingIsSentBeforeFlightGearIsThere) {
  write<std::int16_t>(0x088C, 12288);
  turn();
  frame();
  EXPECT_EQ(fg.datagrams, 0);
  EXPECT_EQ(read<std::int16_t>(0x088C), 8192);
}

TEST_F(FlightGearBridge, ATakenPortIsAFault) {
  sockets.taken.insert(5500);
  EXPECT_EQ(raisedBy([&] { FlightGearLink(sockets, Here, 5500, mapping, {}); }),
            SocketError::AddressInUse);
}

TEST_F(FlightGearBridge, AnswersThatAreNoNamesOfAircraftArePassedOver) {
  frame();
  sockets.line->toBridge += "\r\n" + std::string(9000, 'x') + "\r\n\x01\x02\r\n";
  frame();
  frame();
  EXPECT_EQ(told("the aircraft is 737-300"), 1);
  EXPECT_EQ(told("the aircraft is"), 1);
}

TEST_F(FlightGearBridge, TheLeversOfAC172pAreThoseOfItsPresentEngine) {
  fg.start("c172p");
  fg.tree["/controls/engines/engine[0]/throttle"] = 0.2;
  fg.tree["/controls/engines/current-engine/throttle"] = 0.75;
  frame();
  frame();
  EXPECT_EQ(read<std::int16_t>(0x088C), 12288);
  write<std::int16_t>(0x088C, 8192);
  write<std::uint16_t>(0x0890, 16384);
  exchange();
  EXPECT_NEAR(fg.tree["/controls/engines/current-engine/throttle"], 0.5, 1e-6);
  EXPECT_NEAR(fg.tree["/controls/engines/engine[0]/throttle"], 0.2, 1e-6);
  EXPECT_THAT(fg.lines, Contains("set /controls/engines/current-engine/mixture 1"));
}

TEST(FlightGearUfo, SteersItsAileronInPlaceOfATrim) {
  const auto rows = rowsFor(flightGearMapping(), "ufo");
  const auto row = std::find_if(rows.begin(), rows.end(),
                                [](const MappingRow& r) { return r.offset == 0x2EB0; });
  ASSERT_NE(row, rows.end());
  EXPECT_EQ(row->terms.front().property, "/controls/flight/aileron");
}

}  // namespace
}  // namespace vorlent
