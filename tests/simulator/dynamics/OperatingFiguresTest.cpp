#include <gtest/gtest.h>

#include "TestPilot.h"

// The ranges are those of the 737-700 in the statistics of WRAP (Sun, Ellerbroek and Hoekstra,
// WRAP: An open-source kinematic aircraft performance model, Transportation Research Part C 98,
// 2019).
namespace vorlent {
namespace {

constexpr double field_ft = 20 / 0.3048;

/// 63 tons on the runway.
constexpr FuelLoad departureFuel{4700, 3522, 3522};
/// 55.3 tons on the approach.
constexpr FuelLoad arrivalFuel{0, 2000, 2000};

void within(const char* what, double value, const char* unit, double low, double high) {
  report(what, value, unit);
  EXPECT_GE(value, low) << what;
  EXPECT_LE(value, high) << what;
}

double calibratedOf(double mach, double altitude_m) {
  return calibratedOfMach(mach, standardAir(altitude_m).pressure_Pa) * 3600 / 1852;
}

class OperatingFigures : public testing::Test {
 protected:
  void takeOff(Flying& f, TestPilot& pilot) {
    f.controls.parkingBrake = false;
    pilot.levers(0.90);  // thrust for an assumed temperature, as is usual
    while (f.cas_kt() < 140) pilot.holdPitch(0);
    for (double pitch_deg = 0; f.state.onGround;
         pitch_deg = std::min(15.0, pitch_deg + 2.5 / 120)) {
      pilot.holdPitch(pitch_deg);
      ASSERT_LT(f.state.elapsed_s, 90);
    }
  }
  void climbOut(Flying& f, TestPilot& pilot) {
    while (f.state.altitude_m < 20 + 15) pilot.holdPitch(12);
    f.controls.gearDown = false;
    while (f.altitude_ft() < field_ft + 1500) {
      pilot.holdSpeedByPitch(160);
      speed_kt.add(f.cas_kt());
      climb_fpm.add(f.climb_fpm());
    }
  }

  Mean speed_kt;
  Mean climb_fpm;
};

TEST_F(OperatingFigures, TakeOffAndInitialClimb) {
  Flying f(StartingState::Runway, plant737(), 0, departureFuel);
  f.writeTo("take-off");
  TestPilot pilot(f);
  const Place start = f.state.place;
  takeOff(f, pilot);
  const double run_m = distanceBetween_m(start, f.state.place);
  const double liftOff_m_s = f.state.groundSpeed_m_s;
  within("take-off run", run_m / 1000, "km", 1.03, 2.58);
  within("take-off acceleration", liftOff_m_s * liftOff_m_s / 2 / run_m, "m/s2", 1.31, 2.23);
  within("lift-off speed", liftOff_m_s * 3600 / 1852, "kt", 141, 184);
  EXPECT_NEAR(f.state.heading_deg, 240, 0.5);
  climbOut(f, pilot);
  within("initial climb speed", speed_kt.value(), "kt", 138, 177);
  within("initial climb rate", climb_fpm.value(), "ft/min", 1585, 3115);
}

TEST_F(OperatingFigures, ClimbAtConstantSpeedAndThenAtConstantMach) {
  Flying f(StartingState::Level, plant737(), 0, departureFuel);
  f.writeTo("climb");
  TestPilot pilot(f);
  pilot.levers(0.95);  // climb thrust
  while (f.altitude_ft() < 10000) pilot.holdSpeedByPitch(250);
  while (f.cas_kt() < 290) pilot.holdSpeedByPitch(294);
  while (f.state.mach < 0.775) {
    pilot.holdSpeedByPitch(294);
    speed_kt.add(f.cas_kt());
    climb_fpm.add(f.climb_fpm());
  }
  within("climb speed", speed_kt.value(), "kt", 270, 319);
  within("climb rate", climb_fpm.value(), "ft/min", 1670, 2940);
  within("crossover altitude of the climb", f.altitude_ft(), "ft", 25900, 32200);
  Mean mach;
  Mean machClimb_fpm;
  while (f.altitude_ft() < 35000) {
    pilot.holdSpeedByPitch(calibratedOf(0.78, f.state.altitude_m));
    mach.add(f.state.mach);
    machClimb_fpm.add(f.climb_fpm());
  }
  within("climb Mach", mach.value(), "", 0.72, 0.81);
  within("climb rate at constant Mach", machClimb_fpm.value(), "ft/min", 865, 1790);
}

TEST_F(OperatingFigures, CruiseHoldsItsMach) {
  Flying f(StartingState::Cruise);
  f.writeTo("cruise");
  TestPilot pilot(f);
  Mean mach;
  for (int i = 0; i < 600 * 120; ++i) {
    pilot.holdSpeedByThrust(calibratedOf(0.78, f.state.altitude_m));
    pilot.holdAltitude(35000);
    mach.add(f.state.mach);
    EXPECT_NEAR(f.altitude_ft(), 35000, 50);
  }
  within("cruise Mach", mach.value(), "", 0.74, 0.80);
}

TEST_F(OperatingFigures, DescentAtConstantMachThenAtConstantSpeed) {
  Flying f(StartingState::Cruise, plant737(), 0, arrivalFuel);
  f.writeTo("descent");
  TestPilot pilot(f);
  pilot.levers(0);
  Mean mach;
  Mean machDescent_fpm;
  while (f.cas_kt() < 284) {
    pilot.holdSpeedByPitch(calibratedOf(0.78, f.state.altitude_m));
    mach.add(f.state.mach);
    machDescent_fpm.add(f.climb_fpm());
  }
  within("descent Mach", mach.value(), "", 0.70, 0.81);
  within("descent rate at constant Mach", machDescent_fpm.value(), "ft/min", -2585, -450);
  while (f.altitude_ft() > 10000) {
    pilot.holdSpeedByPitch(284);
    speed_kt.add(f.cas_kt());
    climb_fpm.add(f.climb_fpm());
  }
  within("descent speed", speed_kt.value(), "kt", 259, 309);
  within("descent rate", climb_fpm.value(), "ft/min", -2800, -895);
  while (f.cas_kt() > 245) pilot.holdClimb(-500);
  Mean low_fpm;
  pilot.levers(0);
  while (f.altitude_ft() > 3500) {
    pilot.holdSpeedByPitch(240);
    low_fpm.add(f.climb_fpm());
  }
  within("descent rate below", low_fpm.value(), "ft/min", -1545, -760);
}

TEST_F(OperatingFigures, FinalTouchdownAndBraking) {
  Flying f(StartingState::Final, plant737(), 0, arrivalFuel);
  f.writeTo("landing");
  TestPilot pilot(f);
  const Place threshold{52, 5};
  const Place aim = placeFrom(threshold, 240, 300);
  const auto slope_ft = [&] {
    return field_ft + 10 + distanceBetween_m(f.state.place, aim) * std::tan(3 * 0.0174533) / 0.3048;
  };
  while (slope_ft() > f.altitude_ft() + 100) {
    f.controls.gearDown = true;
    pilot.holdSpeedByThrust(150);
    pilot.holdAltitude(field_ft + 3000);
  }
  f.controls.flapDetent = 7;
  while (f.altitude_ft() > field_ft + 60) {
    pilot.holdSpeedByThrust(137);
    const double slope_fpm = -f.state.groundSpeed_m_s * std::tan(3 * 0.0174533) / 0.3048 * 60;
    pilot.holdClimb(slope_fpm + 6 * (slope_ft() - f.altitude_ft()));
    if (f.altitude_ft() > field_ft + 1500) continue;
    speed_kt.add(f.cas_kt());
    climb_fpm.add(f.climb_fpm());
  }
  within("final approach speed", speed_kt.value(), "kt", 126, 156);
  within("final approach rate", climb_fpm.value(), "ft/min", -875, -530);
  const double flareFrom_deg = f.state.pitch_deg;
  double flare_deg = 0;
  double sink_fpm = 0;
  while (!f.state.onGround) {
    pilot.levers(std::max(0.0, f.controls.thrustLever[0] - 0.15 / 120));
    flare_deg = std::min(5.0, flare_deg + 1.6 / 120);
    sink_fpm = f.climb_fpm();
    pilot.holdPitch(flareFrom_deg + flare_deg);
    ASSERT_LT(f.state.elapsed_s, 600);
  }
  within("touchdown speed", f.state.groundSpeed_m_s * 3600 / 1852, "kt", 122, 145);
  report("touchdown rate", sink_fpm, "ft/min");
  EXPECT_GT(sink_fpm, -400);
  EXPECT_LT(distanceBetween_m(f.state.place, aim), 900);
  const double touchdown_s = f.state.elapsed_s;
  const double fast_m_s = f.state.groundSpeed_m_s;
  f.controls.spoilers = 1;
  pilot.levers(0);
  while (f.state.groundSpeed_m_s > 15) {
    f.controls.leftBrake = f.controls.rightBrake = 0.15;
    pilot.holdPitch(0);
    ASSERT_LT(f.state.elapsed_s, touchdown_s + 200);
  }
  within("braking", (f.state.groundSpeed_m_s - fast_m_s) / (f.state.elapsed_s - touchdown_s),
         "m/s2", -1.90, -0.31);
  EXPECT_NEAR(f.state.heading_deg, 240, 1);
}

}  // namespace
}  // namespace vorlent
