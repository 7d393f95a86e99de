#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include "base/clsIniRw.h"
#include "endtoend/Cockpit.h"
#include "flightplan/PlanFile.h"

namespace vorlent {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* Runway = "--runway=51.75,0.1,265,65.6";

/// The planner beside a server and its aircraft, in the share of the shipped network.
class Plan : public testing::Test {
 protected:
  Plan() { cockpit.addProgram("vorlent-plan"); }

  std::unique_ptr<Process> plan(const std::vector<std::string>& options) const {
    std::vector<std::string> arguments = {cockpit.folder / "Routes/varnholt-westerleigh.fms",
                                          "127.0.0.1", std::to_string(cockpit.basePort + 1),
                                          Runway};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return cockpit.program("vorlent-plan", arguments);
  }
  std::unique_ptr<Process> lead() const {
    return plan({"--share", cockpit.folder / "Network/display/Tarnwick", "--name", "display"});
  }
  /// As the server does at the turn points.
  void announce(const std::string& waypoint) const {
    cockpit.folder.write(Fms + "ACTIVE", waypoint + "\r\n");
  }
  std::string firstRow() const {
    return readPlanFile(cockpit.folder.read(Fms + "EXEC")).rows.at(0).Name;
  }

  const std::string Fms = "Network/display/Tarnwick/FMS/";
  Cockpit cockpit;
};

TEST_F(Plan, IsPrintedAsATable) {
  const auto printed = plan({"--print"});
  EXPECT_EQ(printed->waitForEnd(), 0);
  EXPECT_THAT(printed->output(), StartsWith("737-700  cruise 20000 ft"));
  EXPECT_THAT(printed->output(), HasSubstr("\nRX-27 "));
  EXPECT_FALSE(std::filesystem::exists(cockpit.folder / (Fms + "EXEC")));
}

TEST_F(Plan, LeadsAServerFromLegToLeg) {
  cockpit.startSimulator();
  cockpit.bringServerUp();
  const auto planner = lead();
  EXPECT_TRUE(cockpit.server->waitForLine("Connection on vorlent display 1000 display"));
  EXPECT_TRUE(cockpit.server->waitForLine("p P 218 1"));
  EXPECT_TRUE(planner->waitForLine("leg 1 of 16, from XAVR to VARNO"));
  EXPECT_EQ(firstRow(), "XAVR ");
  announce("ZEEDA");
  EXPECT_TRUE(planner->waitForLine("leg 2 of 16, from VARNO to ZEEDA"));
  EXPECT_TRUE(cockpit.server->waitForLine("p P 218 1"));
  EXPECT_EQ(firstRow(), "VARNO");
  planner->signal(SIGTERM);
  EXPECT_EQ(planner->waitForEnd(), 0);
}

TEST_F(Plan, AServerThatIsStartedAnewGetsTheLegAgain) {
  cockpit.startSimulator();
  cockpit.bringServerUp();
  const auto planner = lead();
  EXPECT_TRUE(planner->waitForLine("leg 1 of 16"));
  announce("ZEEDA");
  EXPECT_TRUE(planner->waitForLine("leg 2 of 16"));
  cockpit.server->type("exit");
  EXPECT_EQ(cockpit.server->waitForEnd(), 0);
  cockpit.bringServerUp();
  EXPECT_TRUE(planner->waitForLine("leg 2 of 16"));
  EXPECT_TRUE(cockpit.server->waitForLine("p P 218 1"));
}

/// Four times as fast: poll and cycle keep up with the flight.
TEST_F(Plan, APilotTakesOffAndClimbs) {
  constexpr auto limit = 120s;
  cockpit.configure("Polling", "5");
  clsIniRw().WriteKey("Platform", "CycleTime", "100", cockpit.folder / "Vorlent.ini");
  cockpit.startSimulator({"--start", "runway", "--speed", "4"});
  cockpit.bringServerUp();
  const auto pilot = plan({"--share", cockpit.folder / "Network/display/Tarnwick", "--name",
                           "display", "--pilot", "--ils", "108.9", "--speed", "4"});
  for (const std::string step : {"brakes released", "V1", "rotate", "gear up", "command A, LNAV",
                                 "LNAV holds", "column released"})
    EXPECT_TRUE(pilot->waitForLine(step, limit)) << step;
  EXPECT_TRUE(pilot->waitForLine("VNAV", limit));
  pilot->signal(SIGTERM);
  EXPECT_EQ(pilot->waitForEnd(), 0);
}

TEST_F(Plan, ARouteThatCannotBeReadIsToldAndEndsItWithStatus1) {
  cockpit.folder.write("bad.fms", "I\n1100 Version\nNUMENR 1\n11 A DRCT 0 91 0\n");
  const auto planner = cockpit.program("vorlent-plan", {cockpit.folder / "bad.fms", "--print"});
  EXPECT_EQ(planner->waitForEnd(), 1);
  EXPECT_EQ(planner->output(), "vorlent-plan: " + (cockpit.folder / "bad.fms") +
                                   ": line 4: the latitude 91 is not from -90 to 90\n");
}

}  // namespace
}  // namespace vorlent
