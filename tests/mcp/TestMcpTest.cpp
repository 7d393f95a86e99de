#include "mcp/frmTestMCP.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "commands/commands.h"
#include "core/Transcript.h"
#include "support/PolledServer.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

/// A started server in which the panel shows.
class TestMcp : public ::testing::Test {
 protected:
  TestMcp() { host.form.Command2.press(); }
  std::vector<std::string> readOuts() {
    std::vector<std::string> texts;
    for (int i = 0; i < frmTestMCP::ReadOuts; ++i) texts.push_back(panel.Text1(i).Text());
    return texts;
  }
  std::vector<int> lit() {
    std::vector<int> buttons;
    for (int i = 0; i < frmTestMCP::Buttons; ++i) {
      const bool on = panel.Command1(i).BackColor() == frmTestMCP::Lit;
      EXPECT_EQ(panel.Shape1(i).FillColor(), on ? frmTestMCP::Lit : Shape::White);
      if (on) buttons.push_back(i);
    }
    return buttons;
  }
  void enter(int index, const std::string& text) {
    panel.Text1(index).Text(text);
    panel.Text1(index).loseFocus();
  }

  PolledServer host;
  frmTestMCP& panel = *host.server.testMcp;
  clsXAutoP& autopilot = *host.server.autoflight.xAutoP;
  clsXAutoT& autothrottle = *host.server.autoflight.xAutoT;
};

/// Remembers the button codes.
class CodesAlone : public Commands {
 public:
  explicit CodesAlone(TestServer& host) : Commands(host.server.commandContext()) {}
  void SetButtonValues(std::int16_t code, float value) override { codes.push_back({code, value}); }
  static inline std::vector<std::pair<int, float>> codes;
};

TEST_F(TestMcp, EachButtonSendsItsCode) {
  CodesAlone::codes.clear();
  host.server.commands = std::make_unique<CodesAlone>(host);
  for (int i = 0; i < frmTestMCP::Buttons; ++i) panel.Command1(i).press();
  std::vector<int> codes;
  for (const auto& [code, value] : CodesAlone::codes) {
    codes.push_back(code);
    EXPECT_EQ(value, 1);
  }
  EXPECT_THAT(codes, ElementsAre(163, 164, 165, 166, 167, 168, 169, 170, 171, 172, 174, 175, 183,
                                 185, 186, 187, 162, 188));
}

TEST_F(TestMcp, TogaButtonSetsTakeOffThrustGoing) {
  panel.Command2.press();
  EXPECT_EQ(autopilot.apToGa(), 1);
}

TEST_F(TestMcp, BeginsWithTheSimulatorsValues) {
  panel.close();
  host.store.NavRadios(1).Obs = 271;
  host.store.ApIasSim = 250;
  host.store.ApHeadingSim = 93.5F;
  host.store.ApAltitudeSim = 12000;
  host.store.ApVsSim = -700;
  host.store.sDecimal = ",";
  autopilot.apBankLimit(25);
  host.form.Command2.press();
  EXPECT_THAT(readOuts(), ElementsAre("271", "250", "93,5", "12000", "-700", "25"));
}

TEST_F(TestMcp, ShowingItAgainWhileItShowsKeepsWhatIsTyped) {
  panel.Text1(frmTestMCP::Altitude).Text("35");
  host.form.Command2.press();
  EXPECT_EQ(panel.Text1(frmTestMCP::Altitude).Text(), "35");
  EXPECT_TRUE(panel.Visible());
}

TEST_F(TestMcp, SaysWhetherWhatIsPressedCountsYet) {
  EXPECT_EQ(panel.lblCycle.Caption(), "The autopilot waits for the first display");
  EXPECT_TRUE(panel.lblCycle.Alarm());
  host.loop.advance(2000);
  EXPECT_EQ(panel.lblCycle.Caption(), "The autopilot waits for the first display");
  host.deliver(0, "Connection on a b 50 display");
  host.loop.advance(400);
  EXPECT_EQ(panel.lblCycle.Caption(), "The autopilot is ready");
  EXPECT_FALSE(panel.lblCycle.Alarm());
  host.form.Command2.press();
  EXPECT_EQ(panel.lblCycle.Caption(), "The autopilot starts");
  host.loop.advance(400);
  EXPECT_EQ(panel.lblCycle.Caption(), "The autopilot is ready");
}

TEST_F(TestMcp, UpdateShowsWhatTheAutoflightHolds) {
  host.store.NavRadios(1).Obs = 5;
  autopilot.apMcpAirSpeed(221);
  autopilot.apHeading(180);
  autopilot.apMcpAltitude(8000);
  autopilot.apVertSpeed(-1500);
  autopilot.apBankLimit(15);
  panel.UpdateMcpDisplay();
  EXPECT_THAT(readOuts(), ElementsAre("5", "221", "180", "8000", "-1500", "15"));
}

TEST_F(TestMcp, ChangeoverButtonSwapsTheSpeedWindowBetweenKnotsAndMach) {
  autopilot.apMcpAirSpeed(290);
  host.store.Mach = 0.62F;
  panel.Command1(3).press();
  EXPECT_EQ(autothrottle.apChangeover(), 1);
  EXPECT_EQ(panel.Text1(frmTestMCP::Speed).Text(), "0.62");
  panel.Command1(3).press();
  EXPECT_EQ(autothrottle.apChangeover(), 0);
  EXPECT_EQ(panel.Text1(frmTestMCP::Speed).Text(), "290");
}

TEST_F(TestMcp, LampsTellTheSixteenModesAndTheFlightDirectorAndTheChangeoverHasNone) {
  EXPECT_THAT(lit(), ElementsAre());
  autothrottle.apAutoThrottle(1);
  autothrottle.apChangeover(1);
  panel.follow();
  EXPECT_THAT(lit(), ElementsAre(0));
  autopilot.apMaster(1);
  autopilot.apCmdLeft(1);
  autopilot.apHeadingHold(1);
  autopilot.apAltitudeHold(1);
  host.store.FdActive = 1;
  panel.follow();
  EXPECT_THAT(lit(), ElementsAre(0, 9, 10, 12, 16, 17));
}

TEST_F(TestMcp, EveryLampFollowsItsOwnMode) {
  const auto alone = [&](auto&& set, auto&& clear) {
    set();
    panel.follow();
    const auto on = lit();
    clear();
    return on;
  };
  using Flag = void (clsXAutoP::*)(std::int16_t);
  using ThrottleFlag = void (clsXAutoT::*)(std::int16_t);
  for (const auto& [flag, index] :
       std::vector<std::pair<Flag, int>>{{&clsXAutoP::apLevelChange, 4},
                                         {&clsXAutoP::apNav1Hold, 7},
                                         {&clsXAutoP::apApproachHold, 8},
                                         {&clsXAutoP::apHeadingHold, 9},
                                         {&clsXAutoP::apAltitudeHold, 10},
                                         {&clsXAutoP::apVSpeedHold, 11},
                                         {&clsXAutoP::apCmdLeft, 12},
                                         {&clsXAutoP::apCmdRight, 13},
                                         {&clsXAutoP::apCwsLeft, 14},
                                         {&clsXAutoP::apCwsRight, 15},
                                         {&clsXAutoP::apMaster, 16}}) {
    EXPECT_THAT(
        alone([&, on = flag] { (autopilot.*on)(1); }, [&, off = flag] { (autopilot.*off)(0); }),
        ::testing::Contains(index));
    panel.follow();
    EXPECT_THAT(lit(), ::testing::Not(::testing::Contains(index)));
  }
  for (const auto& [flag, index] :
       std::vector<std::pair<ThrottleFlag, int>>{{&clsXAutoT::apAutoThrottle, 0},
                                                 {&clsXAutoT::apRpmHold, 1},
                                                 {&clsXAutoT::apAirspeedHoldByRpm, 2}})
    EXPECT_THAT(alone([&, on = flag] { (autothrottle.*on)(1); },
                      [&, off = flag] { (autothrottle.*off)(0); }),
                ::testing::Contains(index));
}

TEST_F(TestMcp, ANumberGoesToItsTargetWhenItsBoxIsLeft) {
  enter(frmTestMCP::Speed, "230");
  enter(frmTestMCP::Heading, " 275 ");
  enter(frmTestMCP::Altitude, "11000");
  enter(frmTestMCP::VertSpeed, "-1200");
  enter(frmTestMCP::BankAngle, "20");
  EXPECT_EQ(autopilot.apMcpAirSpeed(), 230);
  EXPECT_EQ(autopilot.apHeading(), 275);
  EXPECT_EQ(autopilot.apMcpAltitude(), 11000);
  EXPECT_EQ(autopilot.apVertSpeed(), -1200);
  EXPECT_EQ(autopilot.apBankLimit(), 20);
}

TEST_F(TestMcp, TheCourseGoesToTheRadioAlone) {
  const float course = autopilot.apCourse();
  enter(frmTestMCP::Course, "123");
  EXPECT_EQ(host.bus.get<std::uint16_t>(0x0C4E), 123);
  EXPECT_EQ(autopilot.apCourse(), course);
}

TEST_F(TestMcp, ABoxThatIsLeftSendsWhatItShowsAlsoWhenNothingWasTyped) {
  panel.close();
  host.store.ApHeadingSim = 93.5F;
  host.form.Command2.press();
  autopilot.apHeading(10);
  panel.Text1(frmTestMCP::Heading).loseFocus();
  EXPECT_EQ(autopilot.apHeading(), 93.5F);
}

TEST_F(TestMcp, TheReadOutsHaveTheirTitles) {
  std::vector<std::string> titles;
  for (int i = 0; i < frmTestMCP::ReadOuts; ++i) titles.push_back(panel.Text1(i).ToolTipText());
  EXPECT_THAT(titles,
              ElementsAre("COURSE", "IAS/MACH", "HEADING", "ALTITUDE", "VERTSPEED", "BANK ANGLE"));
  EXPECT_EQ(panel.Command2.Caption(), "TOGA");
}

TEST_F(TestMcp, WithTheChangeoverSetTheSpeedIsAMachNumber) {
  autothrottle.apChangeover(1);
  enter(frmTestMCP::Speed, "0.74");
  EXPECT_FLOAT_EQ(autopilot.ApMachNumber(), 0.74F);
}

TEST_F(TestMcp, TakesAPointAndTheRegionalMark) {
  host.store.sDecimal = ",";
  autothrottle.apChangeover(1);
  enter(frmTestMCP::Speed, "0,71");
  EXPECT_FLOAT_EQ(autopilot.ApMachNumber(), 0.71F);
  enter(frmTestMCP::Speed, "0.72");
  EXPECT_FLOAT_EQ(autopilot.ApMachNumber(), 0.72F);
}

TEST_F(TestMcp, WhatIsNoNumberDoesNothing) {
  autopilot.apHeading(90);
  for (const std::string text : {"", "-", "abc", "12x", "1.2.3", "1 2", "1\r\n2", "0x10"}) {
    enter(frmTestMCP::Heading, text);
    EXPECT_EQ(autopilot.apHeading(), 90) << text;
    EXPECT_EQ(panel.Text1(frmTestMCP::Heading).Complaint(), "Needs a number") << text;
  }
}

TEST_F(TestMcp, ANumberThatDoesNotFitIsToldAndTheServerGoesOn) {
  const std::string digits(40, '9');
  for (int i = 0; i < frmTestMCP::ReadOuts; ++i) {
    host.form.SetStatusText(1, "before");
    enter(i, digits);
    EXPECT_EQ(host.form.sbStatusBar.panelText(1), "ApplyMcpText Overflow") << i;
  }
  EXPECT_EQ(host.exitStatus(), std::nullopt);
}

TEST_F(TestMcp, ABoxThatIsBeingEditedIsLeftAloneWhileTheOthersFollow) {
  panel.Text1(frmTestMCP::Altitude).Text("350");
  autopilot.apMcpAltitude(9000);
  autopilot.apHeading(10);
  panel.follow();
  EXPECT_EQ(panel.Text1(frmTestMCP::Altitude).Text(), "350");
  EXPECT_EQ(panel.Text1(frmTestMCP::Heading).Text(), "10");
  panel.Text1(frmTestMCP::Altitude).Text("35000");
  panel.Text1(frmTestMCP::Altitude).loseFocus();
  EXPECT_EQ(autopilot.apMcpAltitude(), 35000);
  autopilot.apMcpAltitude(9000);
  panel.follow();
  EXPECT_EQ(panel.Text1(frmTestMCP::Altitude).Text(), "9000");
}

TEST_F(TestMcp, FollowsAtEveryCycleWhileItShows) {
  host.poll();
  autopilot.apMcpAltitude(7000);
  host.server.main->CycleCallback();
  EXPECT_EQ(panel.Text1(frmTestMCP::Altitude).Text(), "7000");
  autopilot.apMcpAltitude(6000);
  panel.close();
  host.server.main->CycleCallback();
  EXPECT_EQ(panel.Text1(frmTestMCP::Altitude).Text(), "7000");
}

TEST_F(TestMcp, TheVerticalSpeedButtonOfTheCockpitShowsTheSpeedThatItTakes) {
  host.store.VerticalSpeed = 1800;
  panel.close();
  host.server.commands->SetButtonValues(175, 1);
  EXPECT_EQ(panel.Text1(frmTestMCP::VertSpeed).Text(), "1800");
}

TEST_F(TestMcp, ClosingItForgetsWhatIsTyped) {
  panel.Text1(frmTestMCP::Altitude).Text("35");
  panel.close();
  EXPECT_FALSE(panel.Visible());
  autopilot.apMcpAltitude(4000);
  panel.UpdateMcpDisplay();
  EXPECT_EQ(panel.Text1(frmTestMCP::Altitude).Text(), "4000");
}

TEST(TestMcpBeforeTheStart, ShowsAndDoesNothing) {
  TestServer host;
  frmTestMCP& panel = *host.server.testMcp;
  panel.Form_Load();
  panel.Visible(true);
  for (int i = 0; i < frmTestMCP::Buttons; ++i) panel.Command1(i).press();
  panel.Command2.press();
  panel.follow();
  panel.Text1(2).Text("90");
  panel.Text1(2).loseFocus();
  EXPECT_EQ(panel.Text1(2).Text(), "90");
}

}  // namespace
}  // namespace vorlent
