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
/// elevation. Struts are a spring and a damper, tyres a friction that saturates with the slip. With
/// the gear up the belly and the nacelles touch in the wheels' stead, and slide.
Load wheelLoad(const GearData& data, const RigidBody& body, const MassProperties& mass,
               double elevation_m, const WheelInputs& inputs);

/// Height of the lowest tyre above the ground with struts unloaded, negative when pressed; with the
/// gear up that of the belly.
double wheelHeight_m(const GearData& data, const RigidBody& body, const MassProperties& mass,
                     double elevation_m, bool down);

}  // namespace vorlent
