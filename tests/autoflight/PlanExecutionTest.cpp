#include <gmock/gmock.h>

#include "autoflight/PlannedTest.h"
#include "core/frmMainClient.h"
#include "flightplan/planText.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;

const std::string Folder = "\\\\fmc1\\Tarnwick\\FMS\\";

/// No plan has been read; EXEC has rows A, B and C, PROF D, T/C, T/D and E.
class PlanExecution : public AutoflightTest {
 protected:
  void SetUp() override {
    AutoflightTest::SetUp();
    store().FmcName = "fmc1";
    store().CycleRunning = true;
    giveExec("2\r\n" + rowText("A") + rowText("B") + rowText("C"));
    giveProf("3\r\n" + rowText("D") + rowText("T/C") + rowText("T/D") + rowText("E"));
  }
  void giveExec(const std::string& text) { t.networkFiles.files[Folder + "EXEC"] = text; }
  void giveProf(const std::string& text) { t.networkFiles.files[Folder + "PROF"] = text; }
  /// A cycle that reads the plan; false when it was cut.
  bool execute() {
    afds().ExecFlightplan(1);
    t.networkFiles.changes.clear();
    return relayAfterCycleAt(5) == 6;
  }
  std::string told() { return t.form.sbStatusBar.panelText(1); }
};

TEST_F(PlanExecution, ReadsBothFilesAndAnnouncesTheActiveRow) {
  EXPECT_TRUE(execute());
  EXPECT_EQ(afds().ExecFlightplan(), 0);
  EXPECT_EQ(afds().fmc.MaxWaypointId, 2);
  EXPECT_EQ(afds().plan.FlightPlan, (std::vector{rowOf("A    "), rowOf("B    "), rowOf("C    ")}));
  EXPECT_EQ(afds().plan.ProfilePlan.size(), 4U);
  EXPECT_EQ(afds().plan.TocRow, 1);
  EXPECT_EQ(afds().plan.TodRow, 2);
  EXPECT_EQ(afds().leg.LegFromRow, 0);
  EXPECT_EQ(afds().leg.LegToRow, 1);
  EXPECT_EQ(afds().fmc.ActiveWpt, "B    ");
  EXPECT_THAT(t.networkFiles.changes,
              ElementsAre("remove " + Folder + "ACTIVE", "write " + Folder + "ACTIVE: B    \r\n"));
  EXPECT_EQ(told(), "");
}

TEST_F(PlanExecution, NewPlanBeginsAtItsFirstLeg) {
  execute();
  afds().leg.LegFromRow = 1;
  afds().leg.LegToRow = 2;
  execute();
  EXPECT_EQ(afds().leg.LegFromRow, 0);
  EXPECT_EQ(afds().leg.LegToRow, 1);
}

struct BadFile {
  const char* exec;
  const char* what;
};

TEST_F(PlanExecution, BadExecIsToldByFileRowAndFieldAndCutsTheCycle) {
  const BadFile rows[] = {
      {"", "EXEC: number of the last row: Input past end of file"},
      {"two\r\n", "EXEC: number of the last row: Type mismatch"},
      {"40000\r\n", "EXEC: number of the last row: Overflow"},
      {"1\r\n\"A\",\"\",\"\",0,0,east\r\n", "EXEC: row 0, Course: Type mismatch"},
      {"1\r\n\"A\",\"\",\"\",0,0,1E99\r\n", "EXEC: row 0, Course: Overflow"},
      {"1\r\n\"A\",\"\",\"\",0,0\r\n", "EXEC: row 0, Course: Input past end of file"},
  };
  for (const auto& [exec, what] : rows) {
    giveExec(exec);
    EXPECT_FALSE(execute());
    EXPECT_EQ(told(), "Flight plan: " + Folder + what);
    EXPECT_EQ(t.form.sbStatusBar.panelText(2), told());
    EXPECT_EQ(afds().ExecFlightplan(), 0) << "it is not tried again";
    EXPECT_TRUE(t.networkFiles.changes.empty());
  }
}

TEST_F(PlanExecution, FileThatIsMissingOrTooLargeIsTold) {
  t.networkFiles.files.erase(Folder + "EXEC");
  EXPECT_FALSE(execute());
  EXPECT_EQ(told(), "Flight plan: " + Folder + "EXEC is not there");
  giveExec(std::string((std::size_t{16} << 20) + 1, ' '));
  EXPECT_FALSE(execute());
  EXPECT_EQ(told(), "Flight plan: " + Folder + "EXEC: larger than 16 MB, not read");
}

TEST_F(PlanExecution, WithoutADisplaysNameNoFileIsLookedFor) {
  store().FmcName = "";
  EXPECT_FALSE(execute());
  EXPECT_EQ(told(), "Flight plan: no display has told its machine's name");
}

TEST_F(PlanExecution, BadExecLeavesProfUnread) {
  giveExec("2\r\n" + rowText("A") + rowText("B"));
  EXPECT_FALSE(execute());
  EXPECT_EQ(told(), "Flight plan: " + Folder + "EXEC: row 2, Name: Input past end of file");
  EXPECT_EQ(afds().fmc.MaxWaypointId, 2) << "the rows that were read stand";
  EXPECT_EQ(afds().plan.FlightPlan[1], rowOf("B    "));
  EXPECT_EQ(afds().plan.FlightPlan[2], FlightPlanRecord());
  EXPECT_TRUE(afds().plan.ProfilePlan.empty());
}

TEST_F(PlanExecution, BadProfLeavesTheNewPlan) {
  giveProf("1\r\n" + rowText("D"));
  EXPECT_FALSE(execute());
  EXPECT_EQ(told(), "Flight plan: " + Folder + "PROF: row 1, Name: Input past end of file");
  EXPECT_EQ(afds().fmc.MaxWaypointId, 2);
  EXPECT_EQ(afds().fmc.ActiveWpt, "") << "the cycle ended before";
}

TEST_F(PlanExecution, BadPlanLeavesTheOldOneFlown) {
  execute();
  t.networkFiles.files.erase(Folder + "EXEC");
  EXPECT_FALSE(execute());
  EXPECT_EQ(afds().fmc.MaxWaypointId, 2);
  EXPECT_EQ(afds().plan.FlightPlan[1], rowOf("B    "));
  EXPECT_EQ(relayAfterCycleAt(5), 6);
}

TEST_F(PlanExecution, ExecWithoutRowsEndsThePlanAndKeepsTheOldRowsNames) {
  execute();
  giveExec("0\r\n");
  EXPECT_TRUE(execute());
  EXPECT_EQ(afds().fmc.MaxWaypointId, 0);
  EXPECT_EQ(afds().fmc.ActiveWpt, "B    ");
  afds().LNAV(1);
  EXPECT_EQ(afds().LNAV(), 0);
}

TEST_F(PlanExecution, ExecWithoutRowsAndWithoutAnOldPlanHasNoActiveRow) {
  giveExec("0\r\n");
  EXPECT_FALSE(execute());
  EXPECT_EQ(told(), "") << "the files have no fault";
  EXPECT_EQ(afds().plan.ProfilePlan.size(), 4U);
}

TEST_F(PlanExecution, ProfWithoutRowsKeepsTheOldOneToItsNumber) {
  execute();
  giveProf("0\r\n");
  EXPECT_TRUE(execute());
  EXPECT_EQ(afds().plan.ProfileMaxId, 0);
  EXPECT_EQ(afds().plan.ProfilePlan.size(), 4U);
  EXPECT_EQ(afds().plan.TodRow, 2);
}

TEST_F(PlanExecution, ClimbThrustIsTakenAnewInARunningCycleWithN1) {
  for (const bool running : {false, true}) {
    store().CycleRunning = running;
    afds().N1SwitchStatus(3);
    afds().ClimbN1(85);
    at().apRpmHold(1);
    at().apRpm(50);
    execute();
    EXPECT_EQ(at().apRpm(), running ? 85 : 50);
  }
}

/// Performance data: a database that the start finds or does not.
class PlansPerformance : public PlanExecution {
 protected:
  FakePerformanceDb& db() { return t.performanceDb; }
  void SetUp() override {
    PlanExecution::SetUp();
    db().reading.row =
        PerfDataRow{{"CruiseAlt", "330"}, {"MaxCruiseAlt", "310"}, {"ClimbN1", "91.5"}};
  }
};

TEST_F(PlansPerformance, IsOpenedByTheStartAndReadThenAndWithEachPlan) {
  db().present = true;
  afds().Init();
  EXPECT_THAT(db().opened, ElementsAre(Folder + "db\\temp.mdb"));
  EXPECT_EQ(db().readings, 1);
  EXPECT_EQ(afds().performance.CruiseAlt(), 33000);
  EXPECT_EQ(afds().performance.MaxCruiseAlt(), 33000) << "one member, the later field wins";
  EXPECT_EQ(at().apRpm(), 91.5F);
  db().reading.row = PerfDataRow{{"CruiseAlt", "350"}};
  execute();
  EXPECT_EQ(db().readings, 2);
  EXPECT_EQ(afds().performance.CruiseAlt(), 35000);
  EXPECT_EQ(afds().ClimbN1(), 91.5F) << "a field that is missing keeps its value";
}

TEST_F(PlansPerformance, ThatIsNotThereAtTheStartStaysUnreadUntilTheNextOne) {
  afds().Init();
  db().present = true;
  execute();
  EXPECT_EQ(db().readings, 0);
  EXPECT_EQ(afds().performance.CruiseAlt(), 0);
  afds().Init();
  EXPECT_EQ(db().readings, 1);
}

TEST_F(PlansPerformance, IsNotReadWhileTheCycleIsNotRunning) {
  db().present = true;
  store().CycleRunning = false;
  afds().Init();
  execute();
  EXPECT_EQ(db().readings, 0);
}

TEST_F(PlansPerformance, DamagedIsToldAndThePlanIsFlown) {
  db().present = true;
  afds().Init();
  db().reading = {std::nullopt, "page 3 is cut off"};
  EXPECT_TRUE(execute());
  EXPECT_EQ(told(), "temp.mdb: page 3 is cut off");
  EXPECT_EQ(afds().performance.CruiseAlt(), 33000);
  EXPECT_EQ(afds().fmc.ActiveWpt, "B    ");
}

TEST_F(PlansPerformance, EmptyTableChangesNothing) {
  db().present = true;
  db().reading = {};
  afds().Init();
  EXPECT_EQ(afds().performance.CruiseAlt(), 0);
  EXPECT_EQ(told(),
            "No tuning for the autopilot, do not engage it: " + Folder + "plan.cfg is not there");
}

TEST_F(PlansPerformance, IsNotLookedForWithoutADisplaysName) {
  store().FmcName = "..\\elsewhere";
  afds().Init();
  EXPECT_TRUE(db().opened.empty());
}

}  // namespace
}  // namespace vorlent
