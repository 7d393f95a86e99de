#include "simulator/dynamics/PlantData.h"

#include <algorithm>

#include "base/units.h"

// Sources, by their marks beside the numbers:
// [O]  OpenAP (Sun, Hoekstra and Ellerbroek, TU Delft), its data of the 737-700 and the CFM56-7B24:
//      dimensions, limits, drag, and the row of the ICAO Engine Emissions Databank.
// [S]  Speeds of the type by weight and flaps, from its operations manual as Flight Data Services'
//      open FlightDataAnalyzer tabulates them: V2 and VREF.
// [J]  The 747 on the approach, after Heffley and Jewell, NASA CR-2144, and Roskam: damping in
//      pitch -20.8 (by the lag of the downwash -3.2), roll -0.50, yaw -0.36; by sideslip side force
//      -1.08, roll -0.28 at a lift of 1.76, yaw 0.18; by rudder side force 0.18, yaw 0.11. Marks an
//      estimate near these.
// [K]  computed by textbook formulas: Datcom's lift slope, tail volumes (Etkin and Reid; Roskam).
// [Y]  Bartel and Young, Simplified Thrust and Fuel Consumption Models for Modern Two-Shaft
//      Turbofan Engines, Journal of Aircraft 45(4), 2008, as OpenAP has it.
// [E]  estimate of a plausible value; where it follows a source that could not be consulted, the
//      name stands behind "after".
namespace vorlent {
namespace {

// The tail has 32.8 m2 [E] and an arm of 15.1 m [E]: its quarter chord lies 30.5 m behind the nose
// (length 33.6 m [O], tail span 14.35 m and sweep 30 degrees [E]), the centre of gravity 15.4 m
// (where the wheels stand [E]). Its volume is 32.8 x 15.1 / (124.6 x 3.96) = 1.004. With a lift
// slope of 4.07 [K] and 0.9 of the dynamic pressure a radian of stabiliser gives 0.9 x 4.07 x 1.004
// = 3.68 of moment, and the pitch rate -2 x 3.68 x 15.1 / 3.96 = -28 of damping by the tail alone.
// The textbooks' tenth for wing and body would make it -31; the same sum for the 747, which bends,
// is some 1.18 times its published -20.8 [J], which would make it -26.
// Downwash at the tail grows with 2 x 4.6 / (pi x 9.45) = 0.31 of the angle of attack. That it
// arrives late damps like -28 x 0.31 = -9 of the rate of the angle of attack, which acts on the
// short period and not on the phugoid.
constexpr AeroData Aero737{
    .wingArea_m2 = 124.6,           // [O]
    .span_m = 34.32,                // [O]
    .chord_m = 3.96,                // [E] mean aerodynamic
    .aspectRatio = 9.45,            // span squared over area
    .quarterChordSweep_deg = 25.0,  // [O]
    .wingHeight_m = 2.6,            // [E]
    .liftSlope = 5.2,               // [K] wing 4.6, body and tail the rest
    .zeroLiftAngle_deg = -1.5,      // [E] gives 2.4 degrees of body angle in cruise
    .flapLift = {0, 0.12, 0.20, 0.40, 0.50, 0.60, 0.74, 0.80, 0.92},        // [E] after Torenbeek
    .maximumLift = {1.30, 2.06, 2.11, 2.16, 2.37, 2.39, 2.50, 2.55, 2.63},  // [S] up and 2: [E]
    .liftPerStabiliser = 0.96,  // [K] 0.9 x 4.07 x 32.8 / 124.6
    .liftPerElevator = 0.43,    // [K] effectiveness 0.45 [E]
    .spoilerLift = -0.35,       // [E] all panels
    .parasiteDrag = 0.0185,     // [E] lift-drag ratio near 16.5 in cruise; [O] has 0.022
    .spanEfficiency = 0.82,     // [E] [O] has 0.78
    .flapDrag = {0, 0.006, 0.009, 0.015, 0.022, 0.030, 0.045, 0.060, 0.090},  // [E] after Torenbeek
    .gearDrag = 0.020,                                                        // [E] [O] has 0.016
    .spoilerDrag = 0.050,                                                     // [E]
    .sideslipDrag = 0.35,                                                     // [E]
    .airfoilTechnology = 0.935,  // [E] after Mason: 0.87 conventional, 0.95 supercritical
    .thicknessRatio = 0.125,     // [E]
    .pitchAtZeroAngle = 0.05,    // [E] 4 units of trim in cruise
    .staticMargin = 0.22,        // [E] [J] has 0.22: -1.26 over 5.7
    .flapPitch = {0, -0.010, -0.015, -0.030, -0.045, -0.060, -0.085, -0.100, -0.130},  // [E]
    .gearPitch = -0.010,                                                               // [E]
    .spoilerPitch = 0.077,            // [E] static margin x the lost lift: the trimmed speed stays
    .groundEffectPitch = -0.040,      // [E]
    .pitchDamping = -28,              // [K] as told above
    .pitchPerStabiliser = -3.68,      // [K]
    .pitchPerElevator = -1.65,        // [K] effectiveness 0.45 [E]
    .downwashSlope = 0.31,            // [K] as told above
    .tailArm_m = 15.1,                // [E] as told above
    .sideForcePerSideslip = -0.90,    // [J]
    .sideForcePerRudder = -0.22,      // [J]
    .rollPerSideslip = -0.075,        // [J]
    .rollPerSideslipAndLift = -0.08,  // [E] sweep
    .rollDamping = -0.45,             // [J]
    .rollPerYawRate = 0.05,           // [E] fin
    .rollPerYawRateAndLift = 0.25,    // [K] CL / 4
    .rollOfFullAileron = 0.055,       // [E] with the roll spoilers
    .rollPerRudder = -0.015,          // [J]
    .yawPerSideslip = 0.15,           // [J]
    .yawPerRollRateAndLift = -0.10,   // [K] CL / 8 less the fin's part
    .yawDamping = -0.24,              // [K] fin: -2 x 2.5 x 0.096 x 0.46, sizes [E]
    .yawDampingPerLiftSquared = -0.02,  // [E]
    .yawOfFullAileron = -0.002,         // [E] the roll spoilers nearly cancel it
    .yawPerRudder = 0.10,               // [J]
};

constexpr ControlData Controls737{
    .elevatorTravel_deg = 20.0,     // [E]
    .aileronTravel_deg = 20.0,      // [E]
    .rudderTravel_deg = 26.0,       // [E]
    .stabiliserNoseDown_deg = 4.2,  // [E] 17 units from end to end
    .stabiliserNoseUp_deg = -12.9,  // [E]
    .elevatorFullUpTo_Pa = 4000,    // [E] 157 knots
    .rudderFullUpTo_Pa = 4000,      // [E]
    .aileronHalvedAt_Pa = 9000,     // [E]
    .surfaceLag_s = 0.08,           // [E] hydraulic actuators
    .trimLag_s = 0.30,              // [E]
    .flapRate_detents_s = 0.25,     // [E] 32 s from up to 40
    .gearTime_s = 8.0,              // [E]
    .spoilerTime_s = 1.2,           // [E]
    .spoilersInFlight = 0.45,       // [E] eight of twelve panels, at two thirds of the angle
    .yawDamperGain_s = 0.6,         // [E]
    .yawDamperWashout_s = 3.0,      // [E]
    .yawDamperAuthority_deg = 3.0,  // [E]
};

constexpr EngineData Engine737{
    .ratedThrust_N = 107650,          // [O] ICAO databank
    .ratedN1_pct = 101.0,             // [E] red line 104
    .maximumN1_pct = 101.4,           // [E]
    .maximumCorrectedN1_pct = 108.5,  // [E] climbs with 8 percent more than [O] cruises with
    .groundIdleN1_pct = 21.5,         // [E]
    .flightIdleN1_pct = 32.0,         // [E]
    .idleRiseToVacuum_pct = 25.0,     // [E]
    .thrustExponent = 2.2,            // [E]
    .thrustExponentPerMach = 2.0,     // [E] ram drag makes net thrust steeper
    .thrustPerMach = -1.00,           // [E] [Y] has -1.05 for a bypass ratio of 5.2
    .thrustPerMachSquared = 0.93,     // [O] consumption of 0.0178 kg/s/kN in cruise; [Y] 0.66
    .accelerationAtZero_pct_s = 4.0,  // [E] within the 8 s to go-around thrust of 14 CFR 25.119
    .accelerationPerN1_1_s = 0.12,    // [E]
    .deceleration = 1.3,              // [E]
    .approach_1_s = 1.2,              // [E]
    .reverseShare = 0.40,             // [E]
    .reverserTime_s = 2.0,            // [E]
    .reverseN1_pct = 80.0,            // [E]
    .place = {2.0, 4.83, 1.2},        // [E]
};

// A main strut carries 265 kN at 0.25 m; the nose strut 56 kN at 0.20 m. Damping is 0.4 to 0.5 of
// critical. [E]
constexpr GearData Gear737{
    .nose = {{11.4, 0, 3.05}, 2.8e5, 4.0e4, true},
    .main = {{-1.2, 2.86, 3.10}, 1.06e6, 1.35e5, false},
    .rollingFriction = 0.015,    // [E] concrete
    .brakeFriction = 0.45,       // [E] dry, all the anti-skid gives
    .sideFriction = 0.60,        // [E]
    .pedalSteering_deg = 7.0,    // [E]
    .tillerSteering_deg = 60.0,  // [E] the rudder does the tiller's work at taxi speed
    .bellyBelow_m = 2.3,         // [E] nacelles
};

// 51256 kg are 113000 lb, under the 54.6 t to 55.2 t that are the most allowed [E]. Radii of
// gyration 0.25 of half the span, 0.38 of half the length of 33.6 m [O], 0.46 of half their mean
// [E], after Raymer.
constexpr MassData Mass737{
    .emptyMass_kg = 83000 * KilogramsPerPound,            // [E] [O] has 37600 kg
    .maximumTakeOffMass_kg = 154500 * KilogramsPerPound,  // [E] [O] has 70000 kg
    .zeroFuelMass_kg = 51256,
    .inertiaX_kgm2 = 0.943e6,
    .inertiaY_kgm2 = 2.09e6,
    .inertiaZ_kgm2 = 3.13e6,
    .inertiaXZ_kgm2 = 0.10e6,      // [E]
    .centreTank = {0.5, 0, 0.3},   // [E]
    .mainTank = {-0.4, 6.5, 0.0},  // [E]
};

PlantData makeHeavyTwin() {
  PlantData plant = plant737();
  plant.name = "heavy-twin";
  constexpr double Heavier = 1.25;
  plant.mass.emptyMass_kg *= Heavier;
  plant.mass.maximumTakeOffMass_kg *= Heavier;
  plant.mass.zeroFuelMass_kg *= Heavier;
  plant.mass.inertiaX_kgm2 *= 1.4;
  plant.mass.inertiaY_kgm2 *= 1.4;
  plant.mass.inertiaZ_kgm2 *= 1.4;
  plant.aero.wingArea_m2 *= 1.12;
  plant.aero.span_m *= 1.06;
  plant.aero.chord_m *= 1.06;
  plant.aero.tailArm_m *= 1.06;
  plant.aero.parasiteDrag *= 1.05;
  plant.engine.ratedThrust_N *= Heavier;
  plant.engine.accelerationAtZero_pct_s /= 1.5;
  plant.engine.accelerationPerN1_1_s /= 1.5;
  plant.engine.approach_1_s /= 1.5;
  plant.controls.surfaceLag_s *= 2.5;
  plant.controls.trimLag_s *= 2;
  for (WheelData* wheel : {&plant.gear.nose, &plant.gear.main}) {
    wheel->spring_N_m *= Heavier;
    wheel->damping_Ns_m *= Heavier;
  }
  return plant;
}

}  // namespace

const PlantData& plant737() {
  static constexpr PlantData Plant{"737-700", Mass737, Aero737, Controls737,
                                   Engine737, Gear737, 340,     0.82};  // limits [O]
  return Plant;
}

const PlantData& plantHeavyTwin() {
  static const PlantData plant = makeHeavyTwin();
  return plant;
}

const PlantData* plantNamed(std::string_view name) {
  for (const PlantData* plant : {&plant737(), &plantHeavyTwin()})
    if (plant->name == name) return plant;
  return nullptr;
}

double atFlaps(const FlapTable& table, double flaps_deg) {
  const auto above = std::upper_bound(FlapAngles_deg.begin(), FlapAngles_deg.end() - 1, flaps_deg);
  const auto i =
      static_cast<std::size_t>(std::max<std::ptrdiff_t>(above - FlapAngles_deg.begin(), 1));
  const double share =
      (flaps_deg - FlapAngles_deg[i - 1]) / (FlapAngles_deg[i] - FlapAngles_deg[i - 1]);
  return table[i - 1] + std::clamp(share, 0.0, 1.0) * (table[i] - table[i - 1]);
}

}  // namespace vorlent
