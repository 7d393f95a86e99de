#include "autoflight/AutoflightTest.h"

namespace vorlent {
namespace {

class N1Targets : public AutoflightTest {
 protected:
  /// Bugs at 91 and 92, computed values of 85 (climb) and 88 (take-off), the selector at
  /// `position`.
  void select(int position) {
    renew();
    afds().ClimbN1(85);
    afds().TakeoffN1(88);
    engine(1).N1Target = 91;
    engine(2).N1Target = 92;
    at().apRpm(1);
    if (position != 3) afds().N1SwitchStatus(static_cast<std::int16_t>(position));
  }
};

TEST_F(N1Targets, ComputedPositionSetsBothBugsToTheClimbValue) {
  select(0);
  afds().N1SwitchStatus(3);
  EXPECT_EQ(engine(1).N1Target, 85);
  EXPECT_EQ(engine(2).N1Target, 85);
  EXPECT_EQ(at().apRpm(), 1);
}

TEST_F(N1Targets, PositionsOneAndTwoTakeTheOtherEnginesBug) {
  struct Row {
    int position;
    float rpm;
  };
  constexpr Row Rows[] = {{0, 1}, {1, 92}, {2, 91}, {4, 91}, {5, 1}};
  for (const auto& [position, rpm] : Rows)
    for (void (clsAfds::*set)() :
         {&clsAfds::SetEngineN1TargetClimb, &clsAfds::SetEngineN1TargetTakeoff,
          &clsAfds::SetEngineN1TargetIdle}) {
      select(position);
      (afds().*set)();
      EXPECT_EQ(at().apRpm(), rpm) << position;
      EXPECT_EQ(engine(1).N1Target, 91) << position;
      EXPECT_EQ(engine(2).N1Target, 92) << position;
    }
}

TEST_F(N1Targets, ComputedPositionTakesTheValueOfTheMoment) {
  struct Row {
    void (clsAfds::*set)();
    float rpm;
  };
  constexpr Row Rows[] = {{&clsAfds::SetEngineN1TargetClimb, 85},
                          {&clsAfds::SetEngineN1TargetTakeoff, 88},
                          {&clsAfds::SetEngineN1TargetIdle, 0}};
  for (const auto& [set, rpm] : Rows) {
    select(0);
    afds().N1SwitchStatus(3);
    (afds().*set)();
    EXPECT_EQ(at().apRpm(), rpm);
    EXPECT_EQ(engine(1).N1Target, rpm);
    EXPECT_EQ(engine(2).N1Target, rpm);
  }
}

TEST_F(N1Targets, TakeoffN1IsRoundedToAWholeNumber) {
  afds().TakeoffN1(88.5F);
  EXPECT_EQ(afds().TakeoffN1(), 88);
  afds().TakeoffN1(89.5F);
  EXPECT_EQ(afds().TakeoffN1(), 90);
}

struct MachRow {
  double altitude_ft;
  float ias_kt;
  float outside_C;
  float mach;
};

TEST_F(N1Targets, MachOfAnAirspeedByAltitudeAndTemperature) {
  constexpr MachRow Rows[] = {
      {0, 250, 15, 0.38F},       // 250 x 1.005591 / 660.43 = 0.38066
      {35000, 280, -54, 0.89F},  // 280 x 1.821747 / 575.91 = 0.88572
      {10049, 250, 5, 0.45F},    // flight level 100: 289.79 / 648.86 = 0.44661
      {0, 0, 15, 0},
  };
  for (const auto& [altitude, ias, outside, expected] : Rows) {
    store().AircraftAltitude = altitude;
    store().OutsideAirTemp = outside;
    float mach = -1;
    afds().CalcCurrentMach(ias, mach);
    EXPECT_EQ(mach, expected) << altitude;
  }
}

TEST_F(N1Targets, MachAtAbsoluteZeroIsAFault) {
  float mach = 0.5F;
  store().OutsideAirTemp = -273;
  EXPECT_EQ(raisedBy([&] { afds().CalcCurrentMach(250, mach); }), 11);
  store().OutsideAirTemp = -280;
  EXPECT_EQ(raisedBy([&] { afds().CalcCurrentMach(250, mach); }), 5);
  EXPECT_EQ(mach, 0.5F);
}

TEST_F(N1Targets, CruiseAltitudesAreFlightLevelsInOneMember) {
  afds().performance.CruiseAlt(330);
  afds().performance.MaxCruiseAlt(310);
  EXPECT_EQ(afds().performance.CruiseAlt(), 31000);
  EXPECT_EQ(afds().performance.MaxCruiseAlt(), 31000);
  afds().performance.CruiseAlt(350);
  EXPECT_EQ(afds().performance.MaxCruiseAlt(), 35000);
}

class ThrottleRun : public AutoflightTest {
 protected:
  void SetUp() override {
    AutoflightTest::SetUp();
    at().apAutoThrottle(1);
    at().apThrottleControlFactor(0.1F);
    engine(1).ThrustLever = 60;
    engine(1).N1 = 80;
    engine(2).N1 = 81;
    store().AvgIas = 250;
  }
};

// A throttle goes out to both engines as percent x 163.83.

TEST_F(ThrottleRun, N1TargetIsReachedByATenthEachCycle) {
  at().apRpmHold(1);
  const float start = at().RpmRamp();  // 74.819...: where a lever of 60 settles
  EXPECT_NEAR(start, -0.00198213 * 3600 + 0.9820824 * 60 + 23.03027, 1e-4);
  at().apRpm(start + 10);
  at().HoldRpm(0);
  EXPECT_NEAR(at().RpmRamp(), start + 1, 1e-4);
  at().HoldRpm(0);
  EXPECT_NEAR(at().RpmRamp(), start + 1.9, 1e-4);
}

TEST_F(ThrottleRun, N1GoesOutToEveryEngine) {
  engine(1).N1 = 0;
  at().apRpm(100);  // the ramp stands at 0 and comes to 10: 60 + 1 percent
  bus.writes.clear();
  at().HoldRpm(0);
  EXPECT_EQ(written(), (Texts{"88C=9994", "924=9994"}));
}

TEST_F(ThrottleRun, N1LeverAtOrBelowZeroIsNotSent) {
  bus.writes.clear();
  engine(1).ThrustLever = 8;  // 8 - 80 x 0.1
  at().HoldRpm(0);
  EXPECT_EQ(written(), Texts{});
  engine(1).ThrustLever = 9;
  at().HoldRpm(0);
  EXPECT_EQ(written(), (Texts{"88C=164", "924=164"}));
}

TEST_F(ThrottleRun, SpeedMovesTheLeverAndTheBugsFollowTheEngines) {
  at().apAirSpeed(270);
  bus.writes.clear();
  at().HoldAirspeedByRpm(0);  // 62 percent
  EXPECT_EQ(written(), (Texts{"88C=10157", "924=10157"}));
  EXPECT_EQ(engine(1).N1Target, 80);
  EXPECT_EQ(engine(2).N1Target, 81);
}

TEST_F(ThrottleRun, SpeedNeverStartsFromBelow20Percent) {
  engine(1).ThrustLever = 0;
  at().apAirSpeed(250);
  bus.writes.clear();
  at().HoldAirspeedByRpm(0);
  EXPECT_EQ(written(), (Texts{"88C=3277", "924=3277"}));
}

TEST_F(ThrottleRun, RetardClosesTheLeversUntilN1IsBelow40) {
  at().apRpmHold(1);  // for the ramp
  at().apRetard(1);
  at().apRpm(0);
  engine(1).N1 = 40;
  bus.writes.clear();
  at().run(0, 0);
  EXPECT_EQ(state(), "apAutoThrottle apRetard AT=RETARD");
  EXPECT_EQ(bus.writes.size(), 2U);
  engine(1).N1 = 39.9F;
  bus.writes.clear();
  at().run(0, 0);
  EXPECT_EQ(state(), "apAutoThrottle AT=ARM");
  EXPECT_EQ(bus.writes.size(), 0U);
}

TEST_F(ThrottleRun, NoModeMovesNoLever) {
  bus.writes.clear();
  at().run(0, 0);
  at().apThrottleHold(1);
  at().run(0, 0);
  EXPECT_EQ(written(), Texts{});
}

}  // namespace
}  // namespace vorlent
