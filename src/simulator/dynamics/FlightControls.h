#pragma once

#include <array>

#include "simulator/AircraftState.h"
#include "simulator/dynamics/Aerodynamics.h"
#include "simulator/dynamics/PlantData.h"

namespace vorlent {

/// Where the cockpit's controls stand.
struct ControlInputs {
  std::array<double, EngineCount> thrustLever{};  ///< 0 idle to 1 full, negative is reverse
  std::array<bool, EngineCount> fuelOn{true, true};
  std::array<bool, EngineCount> starter{};
  double elevator = 0;         ///< -1 nose down to 1 nose up
  double aileron = 0;          ///< -1 left to 1 right
  double rudder = 0;           ///< -1 left to 1 right
  double elevatorTrim = 0;     ///< -1 nose down to 1 nose up
  double aileronTrim_deg = 0;  ///< of the surface, right positive
  double rudderTrim_deg = 0;
  double leftBrake = 0;  ///< 0 to 1
  double rightBrake = 0;
  bool parkingBrake = false;
  double flapDetent = 0;  ///< 0 up to 8 full
  bool gearDown = true;
  double spoilers = 0;  ///< 0 to 1
  bool yawDamper = true;
};

/// Turns controls into surfaces, with the time and the force that this takes.
class FlightControls {
 public:
  explicit FlightControls(const ControlData& data) : data_(&data) {}

  void step(const ControlInputs& inputs, bool onGround, double dynamicPressure_Pa,
            double yawRate_rad_s, double dt_s);
  /// All surfaces where the controls want them.
  void settle(const ControlInputs& inputs, bool onGround, double dynamicPressure_Pa);

  const Surfaces& surfaces() const { return surfaces_; }

 private:
  double spoilersFor(const ControlInputs& inputs, bool onGround) const;
  double dampedYaw_deg(bool on, double yawRate_rad_s, double dt_s);

  const ControlData* data_;
  Surfaces surfaces_;
  double flapDetent_ = 0;
  double washedOut_rad_s_ = 0;  ///< the slow part of the yaw rate
};

/// Angle of the stabiliser, leading edge up positive, at a trim of -1 to 1.
double stabiliserAngle_deg(const ControlData& data, double trim);
/// Between the detents, in degrees.
double flapAngle_deg(double detent);

}  // namespace vorlent
