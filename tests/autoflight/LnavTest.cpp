#include <gmock/gmock.h>

#include "autoflight/PlannedTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;

const std::string Active = "\\\\fmc1\\Tarnwick\\FMS\\ACTIVE";

class Lnav : public PlannedTest {
 protected:
  void update() { autoflight::updateLegGeometry(autoflight()); }
  /// Two miles before TO, past the turn point, which lies farther behind in each cycle.
  void passTurnPoint() {
    store().Latitude = 50.47F;
    store().Longitude = 10.47F;
    afds().leg.DxToTurnPoint = 0.001F;
  }
  /// Off to the left of the leg by 6 miles, in two cycles.
  void strayLeft(float heading_deg) {
    store().TrueHeading = heading_deg;
    afds().leg.CourseDirect = 45;
    for (const float longitude : {10.2F, 10.2005F}) {
      store().Latitude = 50.3F;
      store().Longitude = longitude;
      update();
    }
  }
};

TEST_F(Lnav, TurnRangeIsTheDiameterAtTheTrueAirspeed) {
  store().Tas = 180;
  update();
  EXPECT_NEAR(ap().tuning.apTurnRangeWpt, 1.9098593, 1e-6);  // 6 / pi
}

TEST_F(Lnav, GeometryIsShown) {
  store().Latitude = 50.26F;
  store().Longitude = 10.24F;
  update();
  store().Latitude = 50.251F;
  store().Longitude = 10.25F;
  update();
  EXPECT_NEAR(afds().fmc.DxToNextWaypoint,
              sphere::nauticalMiles(sphere::at(50.251, 10.25), sphere::at(50.5, 10.5)), 1e-3);
  EXPECT_NEAR(afds().fmc.CrsToNextWaypoint,
              sphere::course(sphere::at(50.251, 10.25), sphere::at(50.5, 10.5)), 1e-2);
  EXPECT_EQ(store().CrossingLat, afds().leg.CrossingLat);
  EXPECT_EQ(store().CrossingLon, afds().leg.CrossingLon);
  EXPECT_GT(store().CrossingLon, 10);
  EXPECT_EQ(afds().fmc.LnavCriteria, 1);
}

TEST_F(Lnav, GeometryThatAFaultCutsIsShownAsFarAsItCame) {
  store().Latitude = 50.5F;
  store().Longitude = 10.5F;
  afds().fmc.DxToNextWaypoint = 9;
  afds().leg.DxToNextWpt = 9;
  EXPECT_EQ(raisedBy([&] { update(); }), 11);
  EXPECT_EQ(afds().fmc.DxToNextWaypoint, afds().leg.DxToNextWpt);
}

TEST_F(Lnav, OverTheWaypointTheCycleIsCut) {
  store().Latitude = 50.5F;
  store().Longitude = 10.5F;
  EXPECT_EQ(relayAfterCycleAt(5), 5);
}

TEST_F(Lnav, TurnIsAnnouncedInFileRecordAndLog) {
  passTurnPoint();
  update();
  EXPECT_EQ(afds().fmc.LnavCriteria, 1);
  EXPECT_EQ(afds().fmc.ActiveWpt, "NEXT ");
  EXPECT_TRUE(store().LogVerbose);
  EXPECT_THAT(t.networkFiles.changes,
              ElementsAre("remove " + Active, "write " + Active + ": NEXT \r\n"));
  EXPECT_THAT(logged(), ElementsAre("DX within turningrange", "TO   ", "Coordinates: 50.5 10.5",
                                    "Position: 50.47 10.47", "Waypoint: TO   ",
                                    ::testing::StartsWith("Course in GC proj:"),
                                    ::testing::StartsWith("Course directly to wpt:"),
                                    ::testing::StartsWith("Course to crossing:"),
                                    ::testing::StartsWith("Dx to CG proj:"),
                                    ::testing::StartsWith("Dx to Crossing:"),
                                    ::testing::StartsWith("DxToNextWpt:")));
}

TEST_F(Lnav, TurnIsAnnouncedInEveryCycleUntilTheClientAnswers) {
  passTurnPoint();
  for (int cycle = 0; cycle < 3; ++cycle) {
    afds().leg.DxToTurnPoint = 0.001F;
    t.networkFiles.changes.clear();
    update();
    EXPECT_EQ(t.networkFiles.changes.size(), 2U);
    EXPECT_EQ(afds().ActiveFpIndex(), 1);
    EXPECT_EQ(afds().leg.LegToRow, 1);
  }
}

TEST_F(Lnav, FirstCycleAnnouncesNothing) {
  passTurnPoint();
  afds().leg.DxToTurnPoint = 0;
  update();
  EXPECT_TRUE(t.networkFiles.changes.empty());
  EXPECT_EQ(logged(), Texts{});
}

TEST_F(Lnav, LastLegAnnouncesNothing) {
  afds().plan.FlightPlan.resize(2);
  setLastRows(1, 2);
  passTurnPoint();
  update();
  EXPECT_EQ(afds().fmc.LnavCriteria, 1);
  EXPECT_TRUE(t.networkFiles.changes.empty());
  EXPECT_FALSE(store().LogVerbose);
  EXPECT_EQ(logged(), Texts{});
}

TEST_F(Lnav, LegThatCannotBeReachedDropsLnavAndTellsTheDisplays) {
  afds().LNAV(1);
  store().LogVerbose = true;
  strayLeft(300);
  EXPECT_EQ(afds().fmc.LnavCriteria, 0);
  EXPECT_EQ(afds().fmc.MessageId, 1);
  EXPECT_EQ(afds().LNAV(), 0);
  EXPECT_EQ(ap().apWaypointHold(), 0);
  EXPECT_EQ(logged().at(0), "Impossible Intercept");
}

TEST_F(Lnav, LostLegIsLoggedInAVerboseLogOnly) {
  strayLeft(300);
  EXPECT_EQ(afds().fmc.MessageId, 1);
  EXPECT_EQ(logged(), Texts{});
}

TEST_F(Lnav, LegLostInATurnKeepsTheBankAndCentresTheTrim) {
  ap().ApEngaged(1);
  afds().LNAV(1);
  store().Bank = 20;
  bus.writes.clear();
  strayLeft(300);
  // LNAV off: the aileron trim goes to 0 twice, its lamp goes out.
  EXPECT_EQ(written(), (Texts{"2EB0=0", "2EB0=0", "lamp 2=0"}));
  setLastRows(0, 0);
  afds().AFDS();
  EXPECT_EQ(bus.writesTo(0x2EB0).size(), 0U) << "nobody levels the wings";
}

TEST_F(Lnav, Below50FeetTheLegStands) {
  store().RadioAltitude = 50;
  strayLeft(300);
  EXPECT_EQ(afds().fmc.LnavCriteria, 1);
  EXPECT_EQ(afds().fmc.MessageId, 0);
}

TEST_F(Lnav, SouthernAndWesternPositionsNeverLookOffTheTrack) {
  struct Row {
    double latitude;
    double longitude;
  };
  for (const auto& [latitude, longitude] : {Row{-50, 10}, Row{50, -10}, Row{-50, -10}}) {
    takeOff();
    row(0) = sphere::waypoint("FROM ", latitude, longitude);
    row(1) = sphere::waypoint("TO   ", latitude + 0.5, longitude + 0.5);
    row(2) = sphere::waypoint("NEXT ", latitude, longitude + 1);
    sphere::connect(row(0), row(1));
    sphere::connect(row(1), row(2));
    store().TrueHeading = 300;
    for (const double east : {0.2, 0.2005}) {
      store().Latitude = static_cast<float>(latitude + 0.3);
      store().Longitude = static_cast<float>(longitude + east);
      update();
    }
    EXPECT_EQ(afds().leg.PrevCrossTrack, 0);
    EXPECT_EQ(afds().fmc.LnavCriteria, 1);
    EXPECT_GT(afds().leg.CrossTrack * 60 / sphere::degree, 3) << "miles";
  }
}

class LnavCycle : public Lnav {
 protected:
  void SetUp() override {
    Lnav::SetUp();
    ap().ApEngaged(1);
    ap().tuning.apMaxBankCourseDeviation = 30;
    ap().tuning.apIntCourseDeflectionWpt = 30;
    ap().apBank(25);
    phase() = Phase::Climb;
    afds().LNAV(1);
    bus.writes.clear();
  }
};

TEST_F(LnavCycle, SteersToTheLegFromItsSide) {
  // North of the leg, so to the right of its course, by 30 degrees for 3 miles, less the variation.
  store().Latitude = 50.26F;
  store().MagVar = 2;
  const double onLeg = sphere::latitudeOn(sphere::at(row(0)), sphere::at(row(1)), 10.25);
  const double offTrack_nm = (double{50.26F} - onLeg) * 60;
  const double course = sphere::course(sphere::at(onLeg, 10.25), sphere::at(row(1)));
  afds().AFDS();
  EXPECT_EQ(afds().leg.InterceptSide, 1);
  EXPECT_NEAR(ap().apHeading(), course + offTrack_nm * 10 - 2, 0.02);
  EXPECT_EQ(bus.writesTo(0x2EB0).size(), 1U);
}

TEST_F(LnavCycle, CrossTrackIsAtMostTheMilesFromTheLastWaypointTakenAsRadians) {
  store().Latitude = 50.0000004F;
  store().Longitude = 10.00001F;
  afds().AFDS();
  EXPECT_LT(afds().leg.DxFromPrevWpt, 0.01);
  EXPECT_LE(afds().leg.CrossTrack, afds().leg.DxFromPrevWpt);
}

TEST_F(LnavCycle, LostLegGoesOnToTheNextRowAndBehindTheLastButOneAnew) {
  row(1).Name = "TO   ";
  afds().plan.FlightPlan.push_back(sphere::waypoint("LAST ", 49.5, 11));
  sphere::connect(row(2), row(3));
  setLastRows(3, 2);
  afds().fmc.LnavCriteria = 0;
  const auto sequence = [&] {
    SequenceLeg(afds().leg, 0, afds().fmc.MaxWaypointId, 0);
    return std::pair<int, int>(afds().leg.LegFromRow, afds().leg.LegToRow);
  };
  EXPECT_EQ(sequence(), std::pair(1, 2));
  EXPECT_EQ(sequence(), std::pair(0, 1));
}

TEST_F(LnavCycle, LegThatStandsIsKept) {
  afds().AFDS();
  EXPECT_EQ(afds().leg.LegToRow, 1);
}

TEST_F(LnavCycle, RadioModesKeepTheGeometryAndStopSequenceAndSteering) {
  nav1().LocNeedle = 127;
  ap().apLocalizerHold(1);
  const float before = ap().apHeading();
  afds().AFDS();
  EXPECT_GT(afds().fmc.DxToNextWaypoint, 0);
  EXPECT_EQ(afds().LNAV(), 1);
  EXPECT_NE(before, afds().leg.CourseGcProjection);
  EXPECT_NEAR(ap().apHeading(), store().TrueHeading, 1e-3) << "the needle is out of sight";
}

TEST_F(LnavCycle, PlanWhoseRowsAreMissingCutsTheCycle) {
  afds().plan.FlightPlan.clear();
  EXPECT_EQ(relayAfterCycleAt(5), 5);
}

}  // namespace
}  // namespace vorlent
