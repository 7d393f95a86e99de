#include "core/frmStatus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Sticks.h"
#include "support/TestServer.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using Row = Table::Row;

constexpr int Refresh_ms = 250;

class Status : public ::testing::Test {
 protected:
  /// Lets the texts be made anew once, with no poll and no other tick at that moment.
  const std::vector<Row>& sessions() {
    host.loop.advance(Refresh_ms);
    return status.lstSessions.Rows();
  }
  const std::string& textOf(const Label& label) {
    host.loop.advance(Refresh_ms);
    return label.Caption();
  }

  TestServer host;
  frmStatus& status = *host.server.status;
};

TEST_F(Status, IsEmptyBeforeTheStart) {
  for (const Control* control : status.controls()) EXPECT_EQ(control->content(), "");
}

TEST_F(Status, TellsOfTheStartBeforeTheFirstQuarterOfASecond) {
  host.start();
  EXPECT_EQ(status.lblPoll.Caption(), "waits for a client");
}

TEST_F(Status, NamesTheSimulator) {
  host.start();
  EXPECT_EQ(textOf(status.lblSimulator), "FSX");
  EXPECT_FALSE(status.lblSimulator.Alarm());
}

TEST_F(Status, ASimulatorThatIsNotThereIsAnAlarm) {
  host.bus.windows.clear();
  host.op.onShow = [this](const Form&) {
    EXPECT_EQ(status.lblSimulator.Caption(), "none");
    EXPECT_TRUE(status.lblSimulator.Alarm());
  };
  host.start();
  EXPECT_EQ(host.op.takeBoxes().size(), 1U);
}

TEST_F(Status, APollWithinASecondIsToldInMilliseconds) {
  host.start();
  host.greet(0);
  // Polls follow the greeting by 60, 120, 180, 240 ms, and the texts are made 250 ms after the
  // start.
  EXPECT_EQ(textOf(status.lblPoll), "polled 10 ms ago");
  EXPECT_FALSE(status.lblPoll.Alarm());
}

TEST_F(Status, APollThatStaysAwayIsToldInSecondsAsAnAlarm) {
  host.start();
  host.greet(0);
  host.loop.advance(60);
  host.loop.sleep(3000);
  host.server.status->start();
  EXPECT_EQ(status.lblPoll.Caption(), "no poll for 3 s");
  EXPECT_TRUE(status.lblPoll.Alarm());
}

TEST_F(Status, APollMissedForMinutesIsToldInMinutes) {
  host.start();
  host.greet(0);
  host.loop.advance(60);
  host.loop.sleep(119000);
  host.server.status->start();
  EXPECT_EQ(status.lblPoll.Caption(), "no poll for 119 s");
  host.loop.sleep(62000);
  host.server.status->start();
  EXPECT_EQ(status.lblPoll.Caption(), "no poll for 3 min");
}

TEST_F(Status, APollThatComesBackEndsTheAlarm) {
  host.start();
  host.greet(0);
  host.loop.sleep(3000);
  host.server.status->start();
  EXPECT_TRUE(status.lblPoll.Alarm());
  host.loop.advance(500);
  EXPECT_FALSE(status.lblPoll.Alarm());
  EXPECT_TRUE(status.lblPoll.Caption().starts_with("polled ")) << status.lblPoll.Caption();
}

TEST_F(Status, SessionsWithoutAClientWaitAtTheirPorts) {
  host.start();
  EXPECT_THAT(sessions(), ElementsAre(Row{"0", "5000", "waiting", "", "", ""},
                                      Row{"1", "5001", "waiting", "", "", ""}));
}

TEST_F(Status, ASessionTellsItsClientRateAndLastWord) {
  host.start();
  host.greet(1, "250", "captain");
  EXPECT_EQ(sessions().at(1), (Row{"1", "5001", "captain", "127.0.0.1", "250 ms", "0 s ago"}));
  host.loop.advance(2000);
  EXPECT_EQ(sessions().at(1), (Row{"1", "5001", "captain", "127.0.0.1", "250 ms", "2 s ago"}));
  host.deliver(1, "p ");
  EXPECT_EQ(sessions().at(1).back(), "0 s ago");
}

TEST_F(Status, AStrangersMessageIsNoWordOfTheClient) {
  host.start();
  host.greet(0);
  host.loop.advance(5000);
  host.deliver(0, "p ", {"127.0.0.9", 40000});
  EXPECT_EQ(sessions().at(0).back(), "5 s ago");
}

TEST_F(Status, AClientWithoutANameHasNone) {
  host.start();
  host.greet(0, "100", "");
  EXPECT_EQ(sessions().at(0).at(2), "no name");
}

TEST_F(Status, AStoppedStreamIsTold) {
  host.start();
  host.greet(0);
  host.form.cmdStop.press();
  EXPECT_EQ(sessions().at(0).at(4), "100 ms, stopped");
  host.form.cmdStop.press();
  EXPECT_EQ(sessions().at(0).at(4), "100 ms");
}

TEST_F(Status, AnEndedSessionWaitsAgain) {
  host.start();
  host.greet(0, "1000");
  host.form.cmdStopCts.press();
  EXPECT_EQ(sessions().at(0).at(2), "fmc1, ending");
  host.loop.advance(1000);
  EXPECT_EQ(sessions().at(0), (Row{"0", "5000", "waiting", "", "", ""}));
}

TEST_F(Status, ASessionThatIsNotBoundHasNoPort) {
  host.start();
  host.form.txtClients.Text("3");
  EXPECT_EQ(sessions().at(2), (Row{"2", "none", "waiting", "", "", ""}));
}

TEST_F(Status, ATypedPortIsASessionsOnlyWhenItIsBoundThere) {
  host.start();
  host.form.txtPort.Text("6000");
  host.form.txtPort.loseFocus();
  EXPECT_EQ(sessions().at(0).at(1), "5000");
  host.form.mnuNetwork(0).press();
  EXPECT_EQ(sessions().at(0).at(1), "6000");
  EXPECT_EQ(sessions().at(1).at(1), "6001");
}

TEST_F(Status, APortThatCannotBeBoundIsNone) {
  host.start();
  host.form.txtIP.Text("10.0.0.7");
  host.form.txtIP.loseFocus();
  EXPECT_EQ(host.op.takeBoxes().size(), 1U);
  EXPECT_EQ(sessions().at(0).at(1), "none");
  EXPECT_EQ(sessions().at(1).at(1), "5001");
}

TEST_F(Status, SticksAreOffUntilTheyAreEnabled) {
  host.start();
  EXPECT_EQ(textOf(status.lblSticks), "off");
}

TEST_F(Status, SticksInUseAreCounted) {
  addSticks(host, 3);
  host.start();
  host.form.txtSticks.Text("2");
  host.form.chkStick.Value(1);
  EXPECT_EQ(textOf(status.lblSticks), "2 on");
  EXPECT_FALSE(status.lblSticks.Alarm());
}

TEST_F(Status, AnUnpluggedStickIsAnAlarmUntilItIsBack) {
  addSticks(host, 3);
  host.start();
  host.form.txtSticks.Text("3");
  host.form.chkStick.Value(1);
  host.controllers.all.at(0).pluggedIn = false;
  host.controllers.all.at(2).pluggedIn = false;
  EXPECT_EQ(textOf(status.lblSticks), "3 on, unplugged: 1 3");
  EXPECT_TRUE(status.lblSticks.Alarm());
  host.controllers.all.at(0).pluggedIn = true;
  host.controllers.all.at(2).pluggedIn = true;
  EXPECT_EQ(textOf(status.lblSticks), "3 on");
  EXPECT_FALSE(status.lblSticks.Alarm());
}

TEST_F(Status, AnnunciatorsAreBlankAtFirstAndTheAutopilotIsAFlightDirector) {
  host.start();
  for (const Label* blank :
       {&status.lblATEngaged, &status.lblRollEngaged, &status.lblPitchEngaged, &status.lblRollArmed,
        &status.lblPitchArmed, &status.lblCwsRoll, &status.lblCwsPitch})
    EXPECT_EQ(textOf(*blank), "") << blank->name();
  EXPECT_EQ(textOf(status.lblAutopilot), "FD");
}

TEST_F(Status, AnnunciatorsFollowTheAutoflight) {
  host.start();
  Annunciators& shown = host.server.autoflight.annunciators;
  shown.ATEngagedMode = "MCP_SPD";
  shown.RollEngagedMode = "HDG_SEL";
  shown.PitchEngagedMode = "V/S";
  shown.RollArmedMode = "VOR/LOC";
  shown.PitchArmedMode = "G/S";
  shown.CwsRollEngagedMode = "CWS_R";
  shown.CwsPitchEngagedMode = "CWS_P";
  shown.AutopilotMode = "CMD";
  host.loop.advance(Refresh_ms);
  EXPECT_EQ(status.lblATEngaged.Caption(), "MCP_SPD");
  EXPECT_EQ(status.lblRollEngaged.Caption(), "HDG_SEL");
  EXPECT_EQ(status.lblPitchEngaged.Caption(), "V/S");
  EXPECT_EQ(status.lblRollArmed.Caption(), "VOR/LOC");
  EXPECT_EQ(status.lblPitchArmed.Caption(), "G/S");
  EXPECT_EQ(status.lblCwsRoll.Caption(), "CWS_R");
  EXPECT_EQ(status.lblCwsPitch.Caption(), "CWS_P");
  EXPECT_EQ(status.lblAutopilot.Caption(), "CMD");
}

TEST_F(Status, StandsStillAfterTheExit) {
  host.start();
  host.server.failureDomain.run([this] { host.form.cmdExit4.press(); });
  host.loop.advance(1000);
  EXPECT_EQ(status.lblPoll.Caption(), "waits for a client");
}

}  // namespace
}  // namespace vorlent
