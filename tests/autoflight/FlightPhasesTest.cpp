#include "autoflight/PlannedTest.h"

namespace vorlent {
namespace {

class FlightPhases : public PlannedTest {
 protected:
  void begin(std::int16_t from) {
    takeOff();
    afds().performance.CruiseAlt(300);
    afds().performance.TakeoffN1 = 88;
    ap().apVertSpeed(0);
    store().LogVerbose = true;
    afds().leg.DxToNextWpt = 20;
    afds().leg.DxToTurnPoint = 20;
    phase() = from;
    bus.writes.clear();
    logged();
  }
  std::int16_t update() {
    autoflight::UpdateFlightPhase(autoflight());
    return phase();
  }
  std::int16_t after(std::int16_t from, const Act& change) {
    begin(from);
    change();
    return update();
  }
  void setProfile(std::initializer_list<const char*> names) {
    auto& rows = afds().plan.ProfilePlan;
    rows.clear();
    for (const char* name : names) rows.push_back(sphere::waypoint(name, 0, 0));
    setLastRows(2, static_cast<int>(rows.size()) - 1);
  }
  void commandDescent() { ap().apVertSpeed(-499.5F); }
  /// Level change down to 2000 ft has begun.
  void changeLevelDown() {
    ap().apMcpAltitude(2000);
    ap().apLevelChange(1);
    const std::int16_t kept = phase();
    setLastRows(0, 2);
    afds().AFDS();
    setLastRows(2, 2);
    phase() = kept;
    ASSERT_EQ(afds().DescentFlag(), 1);
  }
};

TEST_F(FlightPhases, ToGaIsTheTakeoffRollFromAnyPhase) {
  for (std::int16_t from = Phase::Reset; from <= Phase::Landed; ++from)
    EXPECT_EQ(after(from, [&] { ap().apToGa(1); }), Phase::TakeoffRoll) << from;
}

TEST_F(FlightPhases, RollWithTakeoffThrustIsClimbInTheSameCycleWithoutToGa) {
  for (const std::int16_t from : {Phase::Reset, Phase::Initial}) {
    const auto reached = after(from, [&] {
      store().RadioAltitude = 3000;
      store().Ias = 10.1F;
      engine(1).N1 = 88;
    });
    EXPECT_EQ(reached, Phase::Climb);
    EXPECT_EQ(logged(), Texts{"switch to FlightPhases.eclimb"});
  }
}

TEST_F(FlightPhases, SlowOrWithLessThrustItIsNoTakeoff) {
  const auto at = [&](float ias, float n1) {
    return after(Phase::Initial, [&] {
      store().RadioAltitude = 0;
      store().Ias = ias;
      engine(1).N1 = n1;
    });
  };
  EXPECT_EQ(at(10, 88), Phase::Initial);
  EXPECT_EQ(at(10.1F, 87.9F), Phase::Initial);
}

TEST_F(FlightPhases, HighUpItIsClimbWithoutALine) {
  for (const std::int16_t from : {Phase::Reset, Phase::Initial}) {
    EXPECT_EQ(after(from, [&] { store().RadioAltitude = 3000; }), from);
    EXPECT_EQ(after(from, [&] { store().RadioAltitude = 3001; }), Phase::Climb);
    EXPECT_EQ(logged(), Texts{});
  }
}

TEST_F(FlightPhases, EndOfTakeoffGivesTheWholeBank) {
  EXPECT_EQ(after(Phase::TakeoffRoll, [&] { ap().apBankLimit(8); }), Phase::Climb);
  EXPECT_EQ(ap().apBankLimit(), 30);
  EXPECT_EQ(logged(), Texts{"switch to FlightPhases.eclimb"});
}

TEST_F(FlightPhases, CruiseBeginsWithin500FeetInAltitudeHold) {
  const auto at = [&](double altitude, std::int16_t hold) {
    return after(Phase::Climb, [&] {
      setProfile({"FROM ", "TO   ", "T/D  "});
      store().AircraftAltitude = altitude;
      ap().apAltitudeHold(hold);
    });
  };
  EXPECT_EQ(at(29500, 1), Phase::Climb);
  EXPECT_EQ(at(29500.1, 0), Phase::Climb);
  EXPECT_EQ(at(29500.1, 1), Phase::Cruise);
  EXPECT_EQ(logged(), Texts{"switch to FlightPhases.ecruise"});
}

TEST_F(FlightPhases, DefaultCruiseAltitudeIsNeverReached) {
  EXPECT_EQ(after(Phase::Climb,
                  [&] {
                    setAircraftDefaults("737-700", afds().performance);
                    store().AircraftAltitude = 60000;
                    ap().apAltitudeHold(1);
                  }),
            Phase::Climb);
}

TEST_F(FlightPhases, OnTheGroundClimbCruiseAndPreDescentAreReset) {
  for (const std::int16_t from : {Phase::Climb, Phase::Cruise, Phase::PreDescent})
    EXPECT_EQ(after(from, [&] { store().OnGround = 1; }), Phase::Reset) << from;
}

TEST_F(FlightPhases, PreDescentBeginsWithTheActiveRowAtOrPastTheTopOfDescent) {
  const auto with = [&](std::initializer_list<const char*> names) {
    return after(Phase::Cruise, [&] { setProfile(names); });
  };
  EXPECT_EQ(with({"FROM ", "TO   ", "T/D  ", "NEXT "}), Phase::Cruise);
  EXPECT_EQ(with({"FROM ", "T/D  ", "TO   ", "NEXT "}), Phase::PreDescent);
  EXPECT_EQ(logged(), Texts{"switch to FlightPhases.epredescent"});
  EXPECT_EQ(after(Phase::Cruise,
                  [&] {
                    setProfile({"FROM ", "T/D  "});
                    row(1).Name = "T/D  ";
                  }),
            Phase::PreDescent);
}

TEST_F(FlightPhases, ProfileWithoutATopOfDescentCountsEveryRowAsPast) {
  EXPECT_EQ(after(Phase::Cruise, [&] { setProfile({"TO   ", "AAAAA"}); }), Phase::PreDescent);
  EXPECT_EQ(after(Phase::Cruise, [&] { setProfile({"AAAAA", "BBBBB"}); }), Phase::Cruise);
}

TEST_F(FlightPhases, ProfileIsWalkedToItsLastNumberOnly) {
  EXPECT_EQ(after(Phase::Cruise,
                  [&] {
                    setProfile({"AAAAA", "T/D  ", "TO   "});
                    setLastRows(2, 0);
                  }),
            Phase::Cruise);
  EXPECT_EQ(after(Phase::Cruise,
                  [&] {
                    setProfile({"TO   ", "T/D  ", "BBBBB"});
                    setLastRows(2, 0);
                  }),
            Phase::PreDescent)
      << "row 0 is walked where there is no T/D";
}

TEST_F(FlightPhases, ProfileThatWasNeverReadIsAFaultOnlyWhereItIsWalked) {
  begin(Phase::Climb);
  afds().plan.ProfilePlan.clear();
  setLastRows(2, 0);
  EXPECT_EQ(update(), Phase::Climb);
  phase() = Phase::Cruise;
  EXPECT_EQ(raisedBy([&] { update(); }), 9);
}

TEST_F(FlightPhases, VerticalSpeedDownFromCruiseIsDescent) {
  EXPECT_EQ(after(Phase::Cruise,
                  [&] {
                    setProfile({"FROM ", "TO   ", "T/D  "});
                    ap().apVertSpeed(-499);
                  }),
            Phase::Cruise);
  EXPECT_EQ(after(Phase::Cruise,
                  [&] {
                    setProfile({"FROM ", "TO   ", "T/D  "});
                    commandDescent();
                  }),
            Phase::Descent);
  EXPECT_EQ(logged(), Texts{"switch to FlightPhases.edescent"});
}

TEST_F(FlightPhases, PastTheTopOfDescentAndDescendingBothLinesComeInOneCycle) {
  EXPECT_EQ(after(Phase::Cruise,
                  [&] {
                    setProfile({"FROM ", "T/D  ", "TO   "});
                    commandDescent();
                  }),
            Phase::Descent);
  EXPECT_EQ(logged(),
            (Texts{"switch to FlightPhases.epredescent", "switch to FlightPhases.edescent"}));
}

TEST_F(FlightPhases, LevelChangeDownFromCruiseIsDescent) {
  EXPECT_EQ(after(Phase::Cruise,
                  [&] {
                    setProfile({"FROM ", "TO   ", "T/D  "});
                    changeLevelDown();
                  }),
            Phase::Descent);
}

TEST_F(FlightPhases, PreDescentDescendsPastTheTurnPointInsideTheRowsDistance) {
  const auto at = [&](float toWaypoint, float toTurnPoint) {
    return after(Phase::PreDescent, [&] {
      row(1).Distance = 30;
      afds().leg.DxToNextWpt = toWaypoint;
      afds().leg.DxToTurnPoint = toTurnPoint;
      ap().apMcpAltitude(20000);
    });
  };
  EXPECT_EQ(at(30, 29), Phase::PreDescent);
  EXPECT_EQ(at(29, 29), Phase::PreDescent);
  EXPECT_EQ(at(29.9F, 29), Phase::Descent);
  EXPECT_EQ(logged(), Texts{"switch to FlightPhases.edescent"});
}

TEST_F(FlightPhases, DescentOfThePlanTakesVnavAndLeavesAltitudeHoldWithThePanelBelow) {
  struct Row {
    float panel_ft;
    int vnav;
  };
  // At 25000 ft with a cruise altitude of 30000 ft.
  for (const auto& [panel, vnav] :
       {Row{24999, 1}, Row{25000, 0}, Row{26000, 0}, Row{30000, 0}, Row{31000, 0}}) {
    begin(Phase::PreDescent);
    row(1).Distance = 30;
    afds().leg.DxToTurnPoint = 19;
    store().AircraftAltitude = 25000;
    ap().apMcpAltitude(panel);
    ap().apAltitudeHold(1);
    EXPECT_EQ(update(), Phase::Descent);
    EXPECT_EQ(afds().VNAV(), vnav) << panel;
    EXPECT_EQ(ap().apAltitudeHold(), 1 - vnav) << panel;
  }
}

TEST_F(FlightPhases, PreDescentDescendsByCommandWithoutALine) {
  EXPECT_EQ(after(Phase::PreDescent, [&] { commandDescent(); }), Phase::Descent);
  EXPECT_EQ(logged(), Texts{});
  EXPECT_EQ(afds().VNAV(), 0);
  EXPECT_EQ(after(Phase::PreDescent, [&] { changeLevelDown(); }), Phase::Descent);
  EXPECT_EQ(logged(), Texts{});
}

TEST_F(FlightPhases, ApproachBeginsBeforeTheEndOfDescentOrOnTheCentreLine) {
  const auto at = [&](const char* name, float distance) {
    return after(Phase::Descent, [&] {
      row(1).Name = name;
      afds().leg.DxToNextWpt = distance;
    });
  };
  EXPECT_EQ(at("E/D  ", 8), Phase::Descent);
  EXPECT_EQ(at("RX-08", 4), Phase::Descent);
  EXPECT_EQ(at(" RX-8", 1), Phase::Descent);
  EXPECT_EQ(at("TO   ", 1), Phase::Descent);
  EXPECT_EQ(at("E/D  ", 7.9F), Phase::Approach);
  EXPECT_EQ(logged(), Texts{"switch to FlightPhases.eapproach"});
  EXPECT_EQ(at("RX-08", 3.9F), Phase::Approach);
  EXPECT_EQ(logged(), Texts{"switch to FlightPhases.eapproach"});
}

TEST_F(FlightPhases, SlowOnTheGroundADescentIsLandedAndTheModesOfThePlanGoOff) {
  const auto at = [&](float ias, std::int16_t onGround) {
    return after(Phase::Descent, [&] {
      store().Ias = ias;
      store().OnGround = onGround;
      afds().LNAV(1);
      afds().VNAV(1);
      phase() = Phase::Descent;
    });
  };
  EXPECT_EQ(at(30, 1), Phase::Descent);
  EXPECT_EQ(at(29.9F, 0), Phase::Descent);
  EXPECT_EQ(afds().VNAV(), 1);
  EXPECT_EQ(at(29.9F, 1), Phase::Landed);
  EXPECT_EQ(afds().VNAV(), 0);
  EXPECT_EQ(afds().LNAV(), 0);
}

TEST_F(FlightPhases, ApproachSwitchesTheDirectorOffBelow50Feet) {
  for (const std::int32_t height : {50, 49}) {
    EXPECT_EQ(after(Phase::Approach,
                    [&] {
                      store().FdActive = 1;
                      store().Tas = 130;
                      store().RadioAltitude = height;
                    }),
              Phase::Approach);
    EXPECT_EQ(store().FdActive, height < 50 ? 0 : 1);
  }
}

TEST_F(FlightPhases, ApproachEndsAtRestBelow100Feet) {
  const auto at = [&](std::int32_t height, std::int16_t tas) {
    return after(Phase::Approach, [&] {
      store().RadioAltitude = height;
      store().Tas = tas;
      ap().apLocalizerCapture(1);
      ap().apGsCapture(1);
    });
  };
  EXPECT_EQ(at(100, 0), Phase::Approach);
  EXPECT_EQ(at(99, 1), Phase::Approach);
  EXPECT_EQ(ap().apGsCapture(), 1);
  EXPECT_EQ(at(99, 0), Phase::Landed);
  EXPECT_EQ(ap().apLocalizerCapture(), 0);
  EXPECT_EQ(ap().apGsCapture(), 0);
}

TEST_F(FlightPhases, LandedStays) {
  EXPECT_EQ(after(Phase::Landed, [&] { store().OnGround = 1; }), Phase::Landed);
}

TEST_F(FlightPhases, LinesComeInAVerboseLogOnly) {
  begin(Phase::TakeoffRoll);
  store().LogVerbose = false;
  EXPECT_EQ(update(), Phase::Climb);
  EXPECT_EQ(logged(), Texts{});
}

TEST_F(FlightPhases, LateGoAroundGoesOnAbove400FeetWithoutTheDirector) {
  begin(Phase::Approach);
  store().FdActive = 1;
  store().RadioAltitude = 49;
  store().Tas = 130;
  afds().AFDS();
  ASSERT_EQ(store().FdActive, 0);
  store().RadioAltitude = 401;
  ap().apToGa(1);
  afds().AFDS();
  EXPECT_EQ(ap().apToGa(), 1);
  store().RadioAltitude = 399;
  afds().AFDS();
  EXPECT_EQ(ap().apToGa(), 0);
}

TEST_F(FlightPhases, AreAStepOfTheCycleWithAPlanOnly) {
  begin(Phase::TakeoffRoll);
  setLastRows(0, 2);
  afds().AFDS();
  EXPECT_EQ(phase(), Phase::TakeoffRoll);
  setLastRows(2, 2);
  afds().AFDS();
  EXPECT_EQ(phase(), Phase::Climb);
}

}  // namespace
}  // namespace vorlent
