#pragma once

#include "simulator/RoundEarth.h"
#include "simulator/dynamics/Aerodynamics.h"
#include "simulator/dynamics/MassProperties.h"
#include "simulator/dynamics/Vector3.h"

namespace vorlent {

/// North, east and down at a place, as directions from the centre of the earth: x to 0 N 0 E,
/// z to the north pole.
struct LocalAxes {
  Vector3 north;
  Vector3 east;
  Vector3 down;
};

/// Place and motion over an earth that is round and does not turn. Gravity is the standard one at
/// any height, so altitudes are geopotential ones, as the standard atmosphere wants them.
struct RigidBody {
  Vector3 position_m;  ///< from the centre of the earth
  Vector3 velocity_m_s;
  Quaternion attitude;  ///< from body axes to those of the earth
  Vector3 rates_rad_s;  ///< in body axes

  double altitude_m() const { return length(position_m) - EarthRadius_m; }
  Place place() const;
  LocalAxes axes() const;
  /// Velocity towards north, east and down.
  Vector3 localVelocity_m_s() const;
};

struct EulerAngles {
  double pitch_deg;    ///< nose up positive
  double bank_deg;     ///< right wing down positive
  double heading_deg;  ///< true, 0 to 360
};

EulerAngles eulerAngles(const RigidBody& body);

/// A body at this place and attitude that moves with this velocity (north, east, down) along the
/// round earth.
RigidBody bodyAt(Place place, double altitude_m, const EulerAngles& attitude,
                 const Vector3& localVelocity_m_s);

/// A step of the classical method of Runge and Kutta, fourth order; `loadIn(body)` is the force and
/// the moment about the centre of gravity in that state, without gravity.
template <class LoadFunction>
void integrate(RigidBody& body, const MassProperties& mass, double dt_s,
               const LoadFunction& loadIn);

/// How the state changes in a second.
struct BodyRates {
  Vector3 velocity;
  Vector3 acceleration;
  Quaternion turning;
  Vector3 angularAcceleration;
};

BodyRates bodyRates(const RigidBody& body, const MassProperties& mass, const Load& load);
RigidBody advanced(const RigidBody& body, const BodyRates& rates, double dt_s);
BodyRates weighted(const BodyRates& a, const BodyRates& b, const BodyRates& c, const BodyRates& d);

template <class LoadFunction>
void integrate(RigidBody& body, const MassProperties& mass, double dt_s,
               const LoadFunction& loadIn) {
  const auto rates = [&](const RigidBody& at) { return bodyRates(at, mass, loadIn(at)); };
  const BodyRates a = rates(body);
  const BodyRates b = rates(advanced(body, a, dt_s / 2));
  const BodyRates c = rates(advanced(body, b, dt_s / 2));
  const BodyRates d = rates(advanced(body, c, dt_s));
  body = advanced(body, weighted(a, b, c, d), dt_s);
  body.attitude = normalised(body.attitude);
}

}  // namespace vorlent
