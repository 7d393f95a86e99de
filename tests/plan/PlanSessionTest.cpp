#include "plan/PlanSession.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "base/files.h"
#include "display/displayNetwork.h"
#include "display/records.h"
#include "flightplan/PlanFile.h"
#include "support/TempFolder.h"
#include "support/VirtualEventLoop.h"

namespace vorlent {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

const Endpoint server{"10.0.0.1", 5001};
const std::string Greeting = "10.0.0.1:5001 Connection on vorlent display 1000 cockpit";
const std::string Execute = "10.0.0.1:5001 p P 218 1 ";
const std::string Reply = "81\\737-700\\2\\2047\\.";

PlannedFlight fiveLegs() {
  PlanTask task;
  task.aircraft = *performanceOf("737-700");
  return planFlight({{{"XAAA", {50, 8}, 0}, {"ALPHA", {51, 9}}, {"XBBB", {52, 12}, 0}}, 15000},
                    task);
}

class PlanSessionTest : public testing::Test {
 protected:
  /// As the server writes it: each time anew, with a later time.
  void announce(const std::string& waypoint) {
    folder.write("FMS/ACTIVE", waypoint + "\r\n");
    writtenAt += std::chrono::milliseconds(400);
    std::filesystem::last_write_time(folder / "FMS/ACTIVE", writtenAt);
  }
  std::string fromRow() { return readPlanFile(folder.read("FMS/EXEC")).rows[0].Name; }
  void connect() {
    session.start();
    network.deliverFrom(server, Reply);
    network.takeTexts();
  }
  /// A record a second, as the server sends them; what is sent meanwhile.
  std::vector<std::string> fly(int seconds) {
    for (int i = 0; i < seconds; ++i) {
      network.deliverFrom(server, RecordText(2).text());
      loop.advance(1000);
    }
    return network.takeTexts();
  }

  TempFolder folder;
  VirtualEventLoop loop;
  DisplayNetwork network;
  std::vector<std::string> notices;
  std::filesystem::file_time_type writtenAt = std::filesystem::file_time_type::clock::now();
  PlanSession session{loop,
                      network,
                      {server, 1000, "cockpit"},
                      fiveLegs(),
                      {folder.path(), readFile(VORLENT_DATA_FOLDER "/Templates/temp.mdb")},
                      [this](const std::string& notice) { notices.push_back(notice); }};
};

TEST_F(PlanSessionTest, TheFilesStandBeforeTheGreeting) {
  network.onSend = [this](const FakeNetwork::Sent&) { EXPECT_EQ(fromRow(), "XAAA "); };
  session.start();
  EXPECT_THAT(network.takeTexts(), ElementsAre(Greeting));
}

TEST_F(PlanSessionTest, TheAnswerToTheGreetingHasThePlanExecuted) {
  session.start();
  network.takeTexts();
  network.deliverFrom(server, Reply);
  EXPECT_THAT(network.takeTexts(), ElementsAre(Execute));
  EXPECT_THAT(notices, Contains("leg 1 of 5, from XAAA to ALPHA"));
}

TEST_F(PlanSessionTest, ARecordWithoutAnswerDoesToo) {
  session.start();
  network.takeTexts();
  network.deliverFrom(server, RecordText(2).text());
  network.deliverFrom(server, RecordText(2).text());
  EXPECT_THAT(network.takeTexts(), ElementsAre(Execute));
}

TEST_F(PlanSessionTest, WhatAnEarlierFlightAnnouncedDoesNotCount) {
  announce("T/D  ");
  connect();
  EXPECT_THAT(fly(3), IsEmpty());
  EXPECT_EQ(session.leg(), 1);
}

TEST_F(PlanSessionTest, APlanThatIsNotReadIsExecutedAgainAfterFiveSeconds) {
  connect();
  EXPECT_THAT(fly(4), IsEmpty());
  EXPECT_THAT(fly(2), ElementsAre(Execute));
  announce("ALPHA");
  EXPECT_THAT(fly(20), IsEmpty());
}

TEST_F(PlanSessionTest, WhoSteersSeesTheRecordsOnceThePlanIsRead) {
  std::vector<std::size_t> legs;
  session.steerBy([&legs](const Record&, std::size_t leg) {
    legs.push_back(leg);
    return std::vector<Command>{{"P", 65, 1}};
  });
  connect();
  fly(2);
  EXPECT_THAT(legs, IsEmpty());
  announce("ALPHA");
  EXPECT_THAT(fly(3), ElementsAre("10.0.0.1:5001 p P 65 1 ", "10.0.0.1:5001 p P 65 1 "));
  announce("T/D  ");
  fly(2);
  EXPECT_THAT(legs, ElementsAre(1, 1, 1, 2));
}

TEST_F(PlanSessionTest, WhoSteersMayDoNothing) {
  session.steerBy([](const Record&, std::size_t) { return std::vector<Command>(); });
  connect();
  announce("ALPHA");
  EXPECT_THAT(fly(3), IsEmpty());
}

TEST_F(PlanSessionTest, AnAnnouncedWaypointIsAnsweredWithItsLeg) {
  connect();
  announce("ALPHA");
  fly(60);
  announce("T/D  ");
  EXPECT_THAT(fly(1), ElementsAre(Execute));
  EXPECT_EQ(fromRow(), "ALPHA");
  EXPECT_EQ(session.leg(), 2);
  EXPECT_EQ(notices.back(), "leg 2 of 5, from ALPHA to T/D");
}

TEST_F(PlanSessionTest, TheServersOwnConfirmationIsNoAnnouncement) {
  connect();
  announce("ALPHA");
  fly(60);
  announce("T/D  ");
  fly(1);
  announce("T/D  ");
  EXPECT_THAT(fly(30), IsEmpty());
}

TEST_F(PlanSessionTest, AnAnnouncementThatGoesOnIsAnsweredAgain) {
  connect();
  announce("ALPHA");
  fly(60);
  announce("T/D  ");
  fly(1);
  announce("T/D  ");
  fly(3);
  announce("T/D  ");
  EXPECT_THAT(fly(1), ElementsAre(Execute));
}

TEST_F(PlanSessionTest, AnUnknownOrAnEarlierWaypointChangesNothing) {
  connect();
  announce("ALPHA");
  fly(1);
  announce("OTHER");
  announce("XAAA ");
  EXPECT_THAT(fly(10), IsEmpty());
  EXPECT_EQ(session.leg(), 1);
}

TEST_F(PlanSessionTest, TheLastLegIsFlownToItsEnd) {
  connect();
  for (const std::string name : {"ALPHA", "T/D", "8/ED", "E/D", "XBBB"}) {
    announce(name);
    fly(10);
  }
  EXPECT_EQ(session.leg(), 5);
  EXPECT_EQ(readPlanFile(folder.read("FMS/EXEC")).n, 1);
}

TEST_F(PlanSessionTest, AServerThatWasRestartedGetsTheLegAgain) {
  connect();
  announce("ALPHA");
  fly(1);
  announce("T/D  ");
  fly(1);
  announce("T/D  ");
  fly(1);
  loop.advance(12000);
  EXPECT_THAT(network.takeTexts(), Contains(Greeting));
  network.deliverFrom(server, Reply);
  EXPECT_THAT(network.takeTexts(), ElementsAre(Execute));
  EXPECT_EQ(fromRow(), "ALPHA");
}

TEST_F(PlanSessionTest, AShareThatCannotBeWrittenIsToldAndTriedAgain) {
  connect();
  announce("ALPHA");
  fly(1);
  std::filesystem::remove(folder / "FMS/EXEC");
  std::filesystem::create_directory(folder / "FMS/EXEC");
  announce("T/D  ");
  EXPECT_THAT(fly(1), IsEmpty());
  EXPECT_THAT(notices.back(), testing::StartsWith("the plan was not written: "));
  EXPECT_EQ(session.leg(), 1);
  std::filesystem::remove(folder / "FMS/EXEC");
  announce("T/D  ");
  EXPECT_THAT(fly(1), ElementsAre(Execute));
  EXPECT_EQ(session.leg(), 2);
}

}  // namespace
}  // namespace vorlent
