#pragma once

#include "simulator/StandardAtmosphere.h"
#include "simulator/dynamics/PlantData.h"
#include "simulator/dynamics/Vector3.h"

namespace vorlent {

/// A force and a moment, in body axes.
struct Load {
  Vector3 force_N;
  Vector3 moment_Nm;

  Load& operator+=(const Load& o) {
    force_N += o.force_N;
    moment_Nm += o.moment_Nm;
    return *this;
  }
};

/// Where the surfaces stand.
struct Surfaces {
  double flaps_deg = 0;
  double gear = 1;            ///< 0 up, 1 down
  double spoilers = 0;        ///< 0 to 1
  double elevator_deg = 0;    ///< nose up positive
  double stabiliser_deg = 0;  ///< leading edge up positive: nose down
  double aileron = 0;         ///< 1 is full travel, right positive
  double rudder_deg = 0;      ///< nose right positive
};

/// How the aircraft moves through the air.
struct AirMotion {
  Vector3 velocity_m_s;  ///< against the air, in body axes
  Vector3 rates_rad_s;   ///< against the air, in body axes
  Air air;
  double height_m = 1000;  ///< of the wheels above the ground
};

/// Angles and pressure that follow from the motion.
struct FlowState {
  double speed_m_s;
  double mach;
  double dynamicPressure_Pa;
  double attack_rad;    ///< nose above the flow
  double sideslip_rad;  ///< wind from the right positive
};

FlowState flowOf(const AirMotion& motion);

struct LiftAndDrag {
  double lift;
  double drag;
};

/// Coefficients in steady flight, without sideslip.
LiftAndDrag liftAndDrag(const AeroData& data, const FlowState& flow, const Surfaces& surfaces,
                        double height_m);

/// Lift slope at this Mach number over that without compressibility.
double compressibility(const AeroData& data, double mach);

/// What the air does to the aircraft; the moment is about the reference centre of gravity.
Load airLoad(const AeroData& data, const AirMotion& motion, const Surfaces& surfaces);

/// How much of the aileron's effect twist of the wing leaves at this dynamic pressure.
double aileronLeft(const ControlData& data, double dynamicPressure_Pa);

}  // namespace vorlent
