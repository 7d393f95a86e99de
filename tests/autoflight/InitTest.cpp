#include "support/TestServer.h"

namespace vorlent {
namespace {

using Write = FakeSimulatorBus::Write;

/// The start of the cycle in a running server that a client from 127.0.0.1 has greeted as "fmc1".
class Init : public ::testing::Test {
 protected:
  Init() {
    t.start();
    t.greet(0);
    t.server.accessors.autoP->Do_Write_Offsets = 1;
    t.server.accessors.autoP->Offset_AP = 0x660B;
    t.bus.writes.clear();
    t.bus.requests = 0;
  }
  clsXAutoP& ap() { return *t.server.autoflight.xAutoP; }
  clsAfds& afds() { return *t.server.autoflight.afds; }
  Annunciators& shown() { return t.server.autoflight.annunciators; }
  void useAircraft(const std::string& name) {
    const std::string folder = "\\\\fmc1\\Tarnwick\\FMS\\";
    t.networkFiles.files[folder + "plan.cfg"] = "[Flight]\r\nAircraft=" + name + "\r\n";
    t.networkFiles.files[folder + "Acft\\" + name + "\\" + name + ".acf"] =
        "[ApConfig]\r\nTurningRangeVor=6\r\n";
    t.store.CycleRunning = true;
  }

  TestServer t;
};

TEST_F(Init, WritesInItsOrder) {
  ap().ApEngaged(1);
  afds().Init();
  const std::vector<Write> expected = {{0x2EB0, {0, 0, 0, 0, 0, 0, 0, 0}},
                                       {0x07BC, {0}},
                                       {0x07D0, {0}},
                                       {0x0810, {0}},
                                       {0x660B, {1}},
                                       {0x07F2, {0xDC, 0x05}},
                                       {0x0278, {1}}};
  EXPECT_EQ(t.bus.writes, expected);
}

TEST_F(Init, PollComesAfterTheLastWrite) {
  std::vector<std::size_t> writesAtRequest;
  t.bus.onArrival = [&](const std::byte*) { writesAtRequest.push_back(t.bus.writes.size()); };
  t.bus.put(0x02BC, std::uint32_t{250 * 128});
  afds().Init();
  EXPECT_EQ(t.store.Ias, 250);
  EXPECT_EQ(writesAtRequest.back(), t.bus.writes.size());
}

TEST_F(Init, SetsTheDefaultsOfTheAutopilot) {
  afds().Init();
  EXPECT_EQ(ap().apTurnRate(), 1);
  EXPECT_EQ(ap().tuning.apMaxTrackOffset, 3);
  EXPECT_EQ(ap().apBank(), 25);
  EXPECT_EQ(ap().apBankLimit(), 30);
  EXPECT_EQ(ap().apRollControlFactor(), 0.4F);
  EXPECT_EQ(ap().tuning.apTurnRangeVor, 5);
  EXPECT_EQ(ap().tuning.apTurnRangeWpt, 3);
  EXPECT_EQ(ap().tuning.apBankLimitLowAlt, 8);
  EXPECT_EQ(ap().tuning.apBankLimitHighAlt, 30);
  EXPECT_EQ(ap().tuning.apMaxBankCourseDeviation, 30);
  EXPECT_EQ(ap().tuning.apIntCourseDeflectionWpt, 30);
  EXPECT_EQ(ap().apVertSpeedMax(), 1500);
  EXPECT_EQ(ap().apVertSpeed(), 1500);
  EXPECT_EQ(ap().apMaster(), 1);
  EXPECT_EQ(afds().fmc.PhaseOfFlightEnum, 1);
}

TEST_F(Init, BlanksTheAnnunciators) {
  std::string Annunciators::*const modes[] = {
      &Annunciators::ATEngagedMode,       &Annunciators::RollEngagedMode,
      &Annunciators::PitchEngagedMode,    &Annunciators::RollArmedMode,
      &Annunciators::PitchArmedMode,      &Annunciators::CwsRollEngagedMode,
      &Annunciators::CwsPitchEngagedMode, &Annunciators::AutopilotMode};
  for (std::string Annunciators::*mode : modes) shown().*mode = "before";
  afds().Init();
  for (std::string Annunciators::*mode : modes)
    EXPECT_EQ(shown().*mode, mode == &Annunciators::AutopilotMode ? "FD" : "_");
}

TEST_F(Init, ComputedN1AndMachBecomeTheTargets) {
  afds().ClimbN1(77);
  afds().performance.ClimbMach = 0.78F;
  afds().Init();
  EXPECT_EQ(afds().N1SwitchStatus(), 3);
  EXPECT_EQ(t.store.Engines(1).N1Target, 77);
  EXPECT_EQ(t.store.Engines(2).N1Target, 77);
  EXPECT_EQ(t.server.autoflight.xAutoT->apRpm(), 77);
  EXPECT_EQ(ap().ApMachNumber(), 0.78F);
}

struct AircraftRow {
  const char* name;
  int takeoffN1;
  float climbN1;
  int speed;
  int cruise;
};

TEST_F(Init, KnownAircraftHaveDefaultsByTheFirst7CharactersOfTheirName) {
  const AircraftRow rows[] = {
      {"737-300", 88, 75, 251, 3000000},
      {"737-400", 93, 85, 251, 3000000},
      {"737-700", 88, 85, 251, 3000000},
      {"737-700NG winglets", 88, 85, 251, 3000000},
  };
  for (const auto& [name, takeoffN1, climbN1, speed, cruise] : rows) {
    SCOPED_TRACE(name);
    afds().TakeoffN1(1);
    afds().ClimbN1(2);
    afds().performance.FmcSpeed = 3;
    afds().performance.CruiseAlt(4);
    useAircraft(name);
    afds().Init();
    EXPECT_EQ(afds().TakeoffN1(), takeoffN1);
    EXPECT_EQ(afds().ClimbN1(), climbN1);
    EXPECT_EQ(afds().performance.FmcSpeed, speed);
    EXPECT_EQ(afds().performance.CruiseAlt(), cruise);
    EXPECT_EQ(afds().performance.MaxCruiseAlt(), cruise);
    EXPECT_EQ(t.server.autoflight.xAutoT->apRpm(), climbN1);
  }
}

TEST_F(Init, UnknownAircraftKeepsTheDefaultsOfThePreviousOne) {
  useAircraft("737-400");
  afds().Init();
  useAircraft("747-400");
  afds().Init();
  EXPECT_EQ(afds().TakeoffN1(), 93);
  EXPECT_EQ(afds().ClimbN1(), 85);
}

TEST_F(Init, WithoutAMachineNameThatIsOneNoAircraftIsKnownAndItsNumbersStay) {
  useAircraft("737-400");
  afds().Init();
  afds().ClimbN1(91.5);
  t.form.FmcName("..\\elsewhere");
  afds().Init();
  EXPECT_EQ(afds().ClimbN1(), 91.5);
}

TEST_F(Init, AircraftIsReadOnlyForARunningCycle) {
  useAircraft("737-700");
  t.store.CycleRunning = false;
  afds().Init();
  EXPECT_EQ(ap().tuning.apTurnRangeVor, 5);
  EXPECT_EQ(afds().ClimbN1(), 0);
}

TEST_F(Init, ShortTuningFileDoesNotStopTheStart) {
  useAircraft("737-700");
  afds().Init();
  EXPECT_EQ(ap().tuning.apTurnRangeVor, 6);
  EXPECT_EQ(ap().tuning.apTurnRangeWpt, 3);
  EXPECT_EQ(afds().AccelerationAltitude(), 0);
  EXPECT_EQ(afds().N1SwitchStatus(), 3);
}

TEST_F(Init, OperatorsStartTakesTheFirstSessionsHostAndAsksForThePlan) {
  ASSERT_EQ(t.form.FmcName(), "fmc1");
  t.store.OperatorStart = 1;
  afds().Init();
  EXPECT_EQ(t.form.FmcName(), "127.0.0.1");
  EXPECT_EQ(afds().ExecFlightplan(), 1);
}

TEST_F(Init, StartByAClientLeavesHostAndPlan) {
  afds().Init();
  EXPECT_EQ(t.form.FmcName(), "fmc1");
  EXPECT_EQ(afds().ExecFlightplan(), 0);
}

TEST_F(Init, OperatorsStartPollsAtTheEndOfEachCycle) {
  t.store.OperatorStart = 1;
  afds().Init();
  t.bus.requests = 0;
  afds().AFDS();
  EXPECT_EQ(t.bus.requests, 0) << "the plan that is not there cuts this one";
  t.bus.put(0x02BC, std::uint32_t{200 * 128});
  afds().AFDS();
  EXPECT_GT(t.bus.requests, 0);
  EXPECT_EQ(t.store.Ias, 200);
}

TEST_F(Init, StartByAClientPollsAtItsTimerOnly) {
  afds().Init();
  t.bus.requests = 0;
  afds().AFDS();
  EXPECT_EQ(t.bus.requests, 0);
}

TEST_F(Init, RunsAgainWithTheModesAsTheyAre) {
  ap().apHeadingHold(1);
  afds().fmc.MaxWaypointId = 4;
  afds().Init();
  EXPECT_EQ(ap().apHeadingHold(), 1);
  EXPECT_EQ(afds().fmc.MaxWaypointId, 4);
}

}  // namespace
}  // namespace vorlent
