#pragma once

#include <array>

#include "simulator/dynamics/Aerodynamics.h"
#include "simulator/dynamics/MassProperties.h"
#include "simulator/dynamics/RigidBody.h"

namespace vorlent {

/// What the wheels are told. Brakes 0 to 1.
struct WheelInputs {
  double leftBrake = 0;
  double rightBrake = 0;
  double steering_deg = 0;  ///< right positive
  bool down = true;
};

/// What the ground does to the wheels, about the centre of gravity. The ground is a sphere of this
/// elevation. Struts are a spring and a damper, tyres a friction that saturates with the slip.
Load wheelLoad(const GearData& data, const RigidBody& body, const MassProperties& mass,
               double elevation_m, const WheelInputs& inputs);

/// Whether a wheel touches.
bool onGround(const GearData& data, const RigidBody& body, const MassProperties& mass,
              double elevation_m);

/// Height of the lowest wheel's tyre above the ground with struts unloaded, negative when pressed.
double wheelHeight_m(const GearData& data, const RigidBody& body, const MassProperties& mass,
                     double elevation_m);

}  // namespace vorlent
