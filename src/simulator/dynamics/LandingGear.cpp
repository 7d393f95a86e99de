#include "simulator/dynamics/LandingGear.h"

#include <algorithm>
#include <cmath>

#include "base/units.h"

namespace vorlent {
namespace {

struct Wheel {
  const WheelData* data;
  Vector3 place;
  double brake;
};

std::array<Wheel, 3> wheelsOf(const GearData& data, const WheelInputs& inputs) {
  std::array<Wheel, 3> wheels{{{&data.nose, data.nose.place, 0},
                               {&data.main, data.main.place, inputs.leftBrake},
                               {&data.main, data.main.place, inputs.rightBrake}}};
  wheels[1].place.y = -wheels[1].place.y;
  for (Wheel& wheel : wheels) {
    if (inputs.down) continue;
    wheel.place.z = data.bellyBelow_m;
    wheel.brake = 1;
  }
  return wheels;
}

double pressedBy_m(const Wheel& wheel, const RigidBody& body, const MassProperties& mass,
                   double elevation_m) {
  const Vector3 arm = rotate(body.attitude, wheel.place - mass.centre_m);
  // The ground is flat over the length of the aircraft.
  return elevation_m - (body.altitude_m() + dot(arm, unit(body.position_m)));
}

/// Coulomb friction, made smooth where the tyre hardly slips.
double friction(double slip_m_s, double most) {
  constexpr double Knee_m_s = 0.1;
  return -most * std::tanh(slip_m_s / Knee_m_s);
}

Load wheelLoadOf(const Wheel& wheel, const GearData& data, const RigidBody& body,
                 const MassProperties& mass, double elevation_m, double steering_deg) {
  const double pressed_m = pressedBy_m(wheel, body, mass, elevation_m);
  if (pressed_m <= 0) return {};
  const Vector3 arm = wheel.place - mass.centre_m;
  const Vector3 up = rotateBack(body.attitude, unit(body.position_m));
  const Vector3 velocity =
      rotateBack(body.attitude, body.velocity_m_s) + cross(body.rates_rad_s, arm);
  const double normal_N = std::max(
      0.0, wheel.data->spring_N_m * pressed_m - wheel.data->damping_Ns_m * dot(velocity, up));
  const double angle = wheel.data->steered ? steering_deg * RadiansPerDegree : 0;
  const Vector3 rolling{std::cos(angle), std::sin(angle), 0};
  const Vector3 along = unit(rolling - up * dot(rolling, up));
  const Vector3 across = cross(along, up);
  const double grip = data.rollingFriction + wheel.brake * data.brakeFriction;
  const Vector3 force = up * normal_N + along * friction(dot(velocity, along), grip * normal_N) +
                        across * friction(dot(velocity, across), data.sideFriction * normal_N);
  return {force, cross(arm, force)};
}

}  // namespace

Load wheelLoad(const GearData& data, const RigidBody& body, const MassProperties& mass,
               double elevation_m, const WheelInputs& inputs) {
  Load sum;
  constexpr double FarAbove_m = 20;
  if (body.altitude_m() > elevation_m + FarAbove_m) return sum;
  for (const Wheel& wheel : wheelsOf(data, inputs))
    sum += wheelLoadOf(wheel, data, body, mass, elevation_m, inputs.steering_deg);
  return sum;
}

double wheelHeight_m(const GearData& data, const RigidBody& body, const MassProperties& mass,
                     double elevation_m, bool down) {
  double height_m = 1e9;
  for (const Wheel& wheel : wheelsOf(data, {0, 0, 0, down}))
    height_m = std::min(height_m, -pressedBy_m(wheel, body, mass, elevation_m));
  return height_m;
}

}  // namespace vorlent
