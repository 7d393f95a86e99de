#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "simulator/AircraftState.h"
#include "simulator/dynamics/Vector3.h"

namespace vorlent {

constexpr std::size_t FlapDetentCount = 9;

/// Values at the flap detents.
using FlapTable = std::array<double, FlapDetentCount>;

constexpr FlapTable FlapAngles_deg{0, 1, 2, 5, 10, 15, 25, 30, 40};

/// Places are in metres from the reference centre of gravity, in body axes.
struct MassData {
  double emptyMass_kg;  ///< of the aircraft without payload and fuel
  double maximumTakeOffMass_kg;
  double zeroFuelMass_kg;
  double inertiaX_kgm2;  ///< of the aircraft without fuel
  double inertiaY_kgm2;
  double inertiaZ_kgm2;
  double inertiaXZ_kgm2;
  Vector3 centreTank;
  Vector3 mainTank;  ///< the right one
};

/// Coefficients are on wing area, mean chord and span, per radian where they belong to an angle;
/// rates are made dimensionless with half the chord or span over the airspeed. Positive are lift
/// up, pitch nose up, roll right, yaw nose right, side force right; sideslip is positive with the
/// wind from the right.
struct AeroData {
  double wingArea_m2;
  double span_m;
  double chord_m;
  double aspectRatio;
  double quarterChordSweep_deg;
  double wingHeight_m;  ///< of the wing above the wheels, which ground effect counts

  double liftSlope;  ///< below the speeds of compressibility
  double zeroLiftAngle_deg;
  FlapTable flapLift;
  FlapTable maximumLift;
  double liftPerStabiliser;
  double liftPerElevator;
  double spoilerLift;

  double parasiteDrag;
  double spanEfficiency;
  FlapTable flapDrag;
  double gearDrag;
  double spoilerDrag;
  double sideslipDrag;       ///< per radian squared
  double airfoilTechnology;  ///< of Korn's equation
  double thicknessRatio;

  double pitchAtZeroAngle;
  double staticMargin;  ///< at the reference centre of gravity, of the chord
  FlapTable flapPitch;
  double gearPitch;
  double spoilerPitch;
  double groundEffectPitch;
  double pitchDamping;  ///< of the pitch rate alone; the lag of the downwash comes on top
  double pitchPerStabiliser;
  double pitchPerElevator;
  double downwashSlope;  ///< of the downwash at the tail by the angle of attack
  double tailArm_m;      ///< which the downwash has to travel

  double sideForcePerSideslip;
  double sideForcePerRudder;
  double rollPerSideslip;
  double rollPerSideslipAndLift;
  double rollDamping;
  double rollPerYawRate;
  double rollPerYawRateAndLift;
  double rollOfFullAileron;
  double rollPerRudder;
  double yawPerSideslip;
  double yawPerRollRateAndLift;
  double yawDamping;
  double yawDampingPerLiftSquared;
  double yawOfFullAileron;
  double yawPerRudder;
};

struct ControlData {
  double elevatorTravel_deg;
  double aileronTravel_deg;
  double rudderTravel_deg;
  double stabiliserNoseDown_deg;  ///< leading edge up, at trim -1
  double stabiliserNoseUp_deg;    ///< leading edge down, at trim 1
  double elevatorFullUpTo_Pa;     ///< dynamic pressure up to which the hydraulics give full travel
  double rudderFullUpTo_Pa;
  double aileronHalvedAt_Pa;  ///< dynamic pressure at which twist of the wing takes half
  double surfaceLag_s;
  double trimLag_s;
  double flapRate_detents_s;
  double gearTime_s;
  double spoilerTime_s;
  double spoilersInFlight;  ///< of what all panels give, with the lever at full
  double yawDamperGain_s;
  double yawDamperWashout_s;
  double yawDamperAuthority_deg;
};

struct EngineData {
  double ratedThrust_N;  ///< static, at sea level
  double ratedN1_pct;    ///< corrected fan speed that gives it
  double maximumN1_pct;
  double maximumCorrectedN1_pct;
  double groundIdleN1_pct;
  double flightIdleN1_pct;      ///< at sea level
  double idleRiseToVacuum_pct;  ///< how much higher idle is where there is no pressure
  double thrustExponent;
  double thrustExponentPerMach;
  double thrustPerMach;
  double thrustPerMachSquared;
  double accelerationAtZero_pct_s;
  double accelerationPerN1_1_s;
  double deceleration;  ///< over acceleration
  double approach_1_s;  ///< how the last bit of a change closes
  double reverseShare;  ///< thrust in reverse over thrust forward
  double reverserTime_s;
  double reverseN1_pct;
  Vector3 place;  ///< of the right one
};

struct WheelData {
  Vector3 place;  ///< of the tyre's lowest point with the strut unloaded
  double spring_N_m;
  double damping_Ns_m;
  bool steered;
};

struct GearData {
  WheelData nose;
  WheelData main;  ///< the right one
  double rollingFriction;
  double brakeFriction;
  double sideFriction;
  double pedalSteering_deg;
  double tillerSteering_deg;
  double bellyBelow_m;  ///< lowest parts below the reference centre of gravity, gear up
};

/// Every number that makes one aircraft another.
struct PlantData {
  std::string_view name;
  MassData mass;
  AeroData aero;
  ControlData controls;
  EngineData engine;
  GearData gear;
  double limitSpeed_kt;
  double limitMach;
};

const PlantData& plant737();
/// The same interface, other numbers: heavier, with slower engines and controls.
const PlantData& plantHeavyTwin();
/// Nothing when there is no plant of that name.
const PlantData* plantNamed(std::string_view name);

/// Between the detents, by angle.
double atFlaps(const FlapTable& table, double flaps_deg);

}  // namespace vorlent
