#include "simulator/dynamics/RigidBody.h"

#include <algorithm>
#include <cmath>

#include "base/units.h"
#include "simulator/StandardAtmosphere.h"
#include "simulator/angles.h"

namespace vorlent {
namespace {

LocalAxes axesAt(const Vector3& position) {
  const Vector3 up = unit(position);
  const Vector3 east = unit(cross({0, 0, 1}, up));
  return {cross(up, east), east, up * -1};
}

/// From the axes of the earth's centre to north, east and down at a place, then by heading, pitch
/// and bank.
Quaternion attitudeOf(Place place, const EulerAngles& attitude) {
  const Quaternion toEast = turnAbout({0, 0, 1}, place.longitude_deg * RadiansPerDegree);
  // At 0 N 0 E north is z, east is y and down is -x: a turn by -90 degrees about y.
  const Quaternion toNorth = turnAbout({0, 1, 0}, -(90 + place.latitude_deg) * RadiansPerDegree);
  const Quaternion heading = turnAbout({0, 0, 1}, attitude.heading_deg * RadiansPerDegree);
  const Quaternion pitch = turnAbout({0, 1, 0}, attitude.pitch_deg * RadiansPerDegree);
  const Quaternion bank = turnAbout({1, 0, 0}, attitude.bank_deg * RadiansPerDegree);
  return product(product(product(product(toEast, toNorth), heading), pitch), bank);
}

}  // namespace

Place RigidBody::place() const {
  const Vector3 up = unit(position_m);
  return {std::asin(std::clamp(up.z, -1.0, 1.0)) / RadiansPerDegree,
          std::atan2(up.y, up.x) / RadiansPerDegree};
}

LocalAxes RigidBody::axes() const { return axesAt(position_m); }

Vector3 RigidBody::localVelocity_m_s() const {
  const LocalAxes at = axes();
  return {dot(velocity_m_s, at.north), dot(velocity_m_s, at.east), dot(velocity_m_s, at.down)};
}

EulerAngles eulerAngles(const RigidBody& body) {
  const LocalAxes at = body.axes();
  const Vector3 nose = rotate(body.attitude, {1, 0, 0});
  const Vector3 wing = rotate(body.attitude, {0, 1, 0});
  const Vector3 belly = rotate(body.attitude, {0, 0, 1});
  return {std::asin(std::clamp(-dot(nose, at.down), -1.0, 1.0)) / RadiansPerDegree,
          std::atan2(dot(wing, at.down), dot(belly, at.down)) / RadiansPerDegree,
          compass(std::atan2(dot(nose, at.east), dot(nose, at.north)) / RadiansPerDegree)};
}

RigidBody bodyAt(Place place, double altitude_m, const EulerAngles& attitude,
                 const Vector3& localVelocity_m_s) {
  const double latitude = place.latitude_deg * RadiansPerDegree;
  const double longitude = place.longitude_deg * RadiansPerDegree;
  const double radius_m = EarthRadius_m + altitude_m;
  RigidBody body;
  body.position_m = Vector3{std::cos(latitude) * std::cos(longitude),
                            std::cos(latitude) * std::sin(longitude), std::sin(latitude)} *
                    radius_m;
  const LocalAxes at = body.axes();
  body.velocity_m_s = at.north * localVelocity_m_s.x + at.east * localVelocity_m_s.y +
                      at.down * localVelocity_m_s.z;
  body.attitude = attitudeOf(place, attitude);
  const Vector3 alongEarth = cross(body.position_m, body.velocity_m_s) * (1 / radius_m / radius_m);
  body.rates_rad_s = rotateBack(body.attitude, alongEarth);
  return body;
}

BodyRates bodyRates(const RigidBody& body, const MassProperties& mass, const Load& load) {
  const Vector3& w = body.rates_rad_s;
  const Vector3 momentum = mass.angularMomentum(w);
  return {body.velocity_m_s,
          rotate(body.attitude, load.force_N * (1 / mass.mass_kg)) -
              unit(body.position_m) * StandardGravity_m_s2,
          product(body.attitude, {0, w.x, w.y, w.z}) * 0.5,
          mass.ratesOf(load.moment_Nm - cross(w, momentum))};
}

RigidBody advanced(const RigidBody& body, const BodyRates& rates, double dt_s) {
  return {body.position_m + rates.velocity * dt_s, body.velocity_m_s + rates.acceleration * dt_s,
          body.attitude + rates.turning * dt_s,
          body.rates_rad_s + rates.angularAcceleration * dt_s};
}

BodyRates weighted(const BodyRates& a, const BodyRates& b, const BodyRates& c, const BodyRates& d) {
  const auto mean = [](const auto& p, const auto& q, const auto& r, const auto& s) {
    return (p + (q + r) * 2 + s) * (1.0 / 6);
  };
  return {mean(a.velocity, b.velocity, c.velocity, d.velocity),
          mean(a.acceleration, b.acceleration, c.acceleration, d.acceleration),
          mean(a.turning, b.turning, c.turning, d.turning),
          mean(a.angularAcceleration, b.angularAcceleration, c.angularAcceleration,
               d.angularAcceleration)};
}

}  // namespace vorlent
