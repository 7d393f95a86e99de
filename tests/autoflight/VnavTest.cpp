#include "autoflight/PlannedTest.h"

namespace vorlent {
namespace {

/// VNAV on, cruise altitude 30000 ft, row TO at 12000 ft, row FROM at 14000 ft, FMC speed 251 kt.
class Vnav : public PlannedTest {
 protected:
  void begin(std::int16_t in, double altitude_ft = 10000, float panel_ft = 20000) {
    takeOff();
    afds().performance.CruiseAlt(300);
    afds().performance.FmcSpeed = 251;
    row(0).Altitude = 14000;
    row(1).Altitude = 12000;
    ap().apMcpAltitude(panel_ft);
    afds().VNAV(1);
    ap().apAltitude(777);
    store().AircraftAltitude = altitude_ft;
    phase() = in;
    bus.writes.clear();
  }
  float targetAfterwards() {
    autoflight::FlyVnavProfile(autoflight());
    return ap().apAltitude();
  }
};

TEST_F(Vnav, FliesThePlansSpeedInEveryPhase) {
  for (std::int16_t in = Phase::Reset; in <= Phase::Landed; ++in) {
    begin(in);
    targetAfterwards();
    EXPECT_EQ(ap().apAirSpeed(), 251) << in;
    EXPECT_EQ(at().apAirSpeed(), 251);
  }
}

TEST_F(Vnav, CommandsNothingElseOutsideItsPhases) {
  for (const std::int16_t in : {Phase::Reset, Phase::Initial, Phase::TakeoffRoll, Phase::Landed}) {
    begin(in);
    EXPECT_EQ(targetAfterwards(), 777) << in;
    EXPECT_EQ(state(), "VNAV AT=FMC_SPD pitch=VNAV_SPD");
  }
}

TEST_F(Vnav, ClimbsToThePanelsAltitudeBelowTheRowsAndToCruiseOtherwise) {
  struct Row {
    double altitude_ft;
    float panel_ft;
    float target_ft;
  };
  constexpr Row Rows[] = {
      {10000, 11999, 11999}, {10000, 12000, 30000}, {11999, 11999, 30000}, {10000, 20000, 30000}};
  for (const auto& [altitude, panel, target] : Rows) {
    begin(Phase::Climb, altitude, panel);
    ap().apAltitudeHold(1);
    EXPECT_EQ(targetAfterwards(), target) << panel;
  }
}

TEST_F(Vnav, ClimbAndDescentStartALevelChangeWhichTakesThePanelsAltitudeFirst) {
  for (const std::int16_t in : {Phase::Climb, Phase::Descent}) {
    begin(in, 25000, 20000);
    EXPECT_EQ(targetAfterwards(), 20000);
    EXPECT_EQ(ap().apLevelChange(), 1);
    EXPECT_EQ(shown().PitchEngagedMode, "VNAV_SPD");
    EXPECT_EQ(targetAfterwards(), in == Phase::Climb ? 30000 : 20000);
  }
}

TEST_F(Vnav, NoLevelChangeStartsWhileAnAltitudeIsCapturedOrHeld) {
  for (const std::int16_t in : {Phase::Climb, Phase::Descent}) {
    begin(in, 25000);
    ap().apAltAcquire(1);
    targetAfterwards();
    EXPECT_EQ(ap().apLevelChange(), 0);
    begin(in, 25000);
    ap().apAltitudeHold(1);
    targetAfterwards();
    EXPECT_EQ(ap().apLevelChange(), 0);
  }
}

TEST_F(Vnav, CruiseHoldsTheRowAheadAndPreDescentTheRowBehind) {
  for (const auto& [in, target] :
       {std::pair<std::int16_t, float>{Phase::Cruise, 12000.F}, {Phase::PreDescent, 14000.F}}) {
    begin(in);
    at().apAutoThrottle(1);
    EXPECT_EQ(targetAfterwards(), target);
    EXPECT_EQ(ap().apAltitudeHold(), 1);
    EXPECT_EQ(at().apAirspeedHoldByRpm(), 1);
    EXPECT_EQ(shown().ATEngagedMode, "FMC_SPD");
    bus.writes.clear();
    targetAfterwards();
    EXPECT_EQ(written(), Texts{}) << "modes that are on are left alone";
  }
}

TEST_F(Vnav, DescendsToTheRowButNotBelowThePanel) {
  struct Row {
    const char* name;
    double altitude_ft;
    float panel_ft;
    float target_ft;
  };
  constexpr Row Rows[] = {{"TO   ", 25000, 13000, 13000}, {"TO   ", 25000, 5000, 12000},
                          {"E/D  ", 25000, 5000, 12400},  {"E/D  ", 25000, 12500, 12500},
                          {"RX-08", 25000, 5000, 12000},  {"TO   ", 13000, 13000, 777},
                          {"TO   ", 12999, 13000, 777},   {"TO   ", 31000, 30000, 777},
                          {"TO   ", 31000, 29999, 29999}};
  for (const auto& [name, altitude, panel, target] : Rows) {
    begin(Phase::Descent, altitude, panel);
    row(1).Name = name;
    ap().apAltAcquire(1);
    EXPECT_EQ(targetAfterwards(), target) << name << " " << altitude << " " << panel;
  }
}

TEST_F(Vnav, ApproachTakesTheRowsAltitudeAndHoldsSpeedByThrust) {
  begin(Phase::Approach);
  EXPECT_EQ(targetAfterwards(), 12000);
  EXPECT_EQ(at().apAirspeedHoldByRpm(), 1);
  EXPECT_EQ(ap().apAltitudeHold(), 0);
  EXPECT_EQ(ap().apLevelChange(), 0);
}

TEST_F(Vnav, ApproachClosesTheLeversBelow100Feet) {
  struct Row {
    std::int32_t height_ft;
    float lever_pct;
    int held;
  };
  for (const auto& [height, lever, held] : {Row{100, 5, 0}, Row{99, 0, 0}, Row{99, 0.1F, 1}}) {
    begin(Phase::Approach);
    at().apRpm(80);
    store().RadioAltitude = height;
    engine(1).ThrustLever = lever;
    targetAfterwards();
    EXPECT_EQ(at().apThrottleHold(), held) << height << " " << lever;
    EXPECT_EQ(at().apAirspeedHoldByRpm(), 1 - held);
    EXPECT_EQ(at().apRpm(), held == 1 ? 0 : 80);
  }
}

TEST_F(Vnav, RowsThatAreMissingAreAFaultOnlyWhereTheyAreFlown) {
  begin(Phase::Cruise);
  afds().leg.LegToRow = 3;
  EXPECT_EQ(raisedBy([&] { targetAfterwards(); }), 9);
  phase() = Phase::PreDescent;
  EXPECT_EQ(raisedBy([&] { targetAfterwards(); }), 0);
  phase() = Phase::Landed;
  EXPECT_EQ(raisedBy([&] { targetAfterwards(); }), 0);
}

TEST_F(Vnav, IsAStepOfTheCycleAndLeavesTheSpeedToIt) {
  begin(Phase::Cruise);
  afds().plan.ProfilePlan[1].Name = "AAAAA";
  ap().apMcpAirSpeed(200);
  afds().AFDS();
  EXPECT_EQ(ap().apAirSpeed(), 251);
  EXPECT_EQ(ap().apAltitude(), 12000);
  afds().VNAV(0);
  afds().AFDS();
  EXPECT_EQ(ap().apAirSpeed(), 200);
}

TEST_F(Vnav, EngagedBelowCruiseBeginsTheClimb) {
  for (std::int16_t in = Phase::Reset; in <= Phase::Landed; ++in) {
    takeOff();
    phase() = in;
    ap().apToGa(1);
    afds().VNAV(1);
    EXPECT_EQ(phase(), in < Phase::Cruise ? 3 : in);
    EXPECT_EQ(ap().apToGa(), 0);
  }
}

TEST_F(Vnav, WithToGaOnItStaysInTheTakeoffPhaseAboveTheAccelerationAltitude) {
  begin(Phase::Climb);
  store().FdActive = 1;
  store().VerticalSpeed = 1000;
  store().AircraftAltitude = 5000;
  ap().apToGa(1);
  for (int cycle = 0; cycle < 3; ++cycle) {
    afds().AFDS();
    EXPECT_EQ(phase(), Phase::TakeoffRoll);
    EXPECT_EQ(ap().apToGa(), 1);
  }
}

TEST_F(Vnav, TopOfDescentAtCruiseLevelIsCapturedAtOnceAndVnavDrops) {
  begin(Phase::Descent, 30000, 5000);
  row(1).Altitude = 30000;
  afds().AFDS();
  afds().AFDS();
  EXPECT_EQ(ap().apAltAcquire() + ap().apAltitudeHold(), 1);
  EXPECT_EQ(afds().VNAV(), 0);
}

}  // namespace
}  // namespace vorlent
