#pragma once

#include <cmath>
#include <numbers>

#include "Flying.h"

namespace vorlent {

struct PhugoidEstimate {
  double period_s;
  double withoutPitchDamping_s;  ///< Mq left out
  double withoutPitch_s;         ///< Mq and Mu left out: the frequency is sqrt(-g Zu / V)
  double lanchester_s;           ///< pi sqrt(2) V / g
};

/// Derivatives by the speed, the downward speed and the pitch rate along and across the path, over
/// the mass and the moment of inertia.
struct LongitudinalDerivatives {
  double xu, xw, zu, zw, mu, mw, mq;
};

/// Steady forces in level flight around a trimmed state.
class TrimmedForces {
 public:
  TrimmedForces(const FlightModel& model, const Departure& departure)
      : model_(model), lever_(departure.controls.thrustLever[0]) {}

  LongitudinalDerivatives derivatives() const {
    constexpr double step_m_s = 0.5;
    constexpr double step_rad_s = 0.01;
    const auto slope = [](const Sum& more, const Sum& less, double by) {
      return Sum{(more.x - less.x) / by, (more.z - less.z) / by, (more.m - less.m) / by};
    };
    const Sum u = slope(at(step_m_s, 0, 0), at(-step_m_s, 0, 0), 2 * step_m_s);
    const Sum w = slope(at(0, step_m_s, 0), at(0, -step_m_s, 0), 2 * step_m_s);
    const Sum q = slope(at(0, 0, step_rad_s), at(0, 0, -step_rad_s), 2 * step_rad_s);
    return {u.x, w.x, u.z, w.z, u.m, w.m, q.m};
  }

 private:
  /// Accelerations along the path and down, m/s2, and in pitch, rad/s2.
  struct Sum {
    double x, z, m;
  };

  double thrust_N(const Air& air, double mach) const {
    JetEngine engine(model_.plant().engine, true);
    engine.settle({lever_, true, false, false}, air, mach);
    return 2 * engine.thrust_N();
  }

  Sum at(double u_m_s, double w_m_s, double q_rad_s) const {
    const FlowState flow = model_.flow();
    const double altitude_m = model_.body().altitude_m();
    const Air air = standardAir(altitude_m);
    const double sine = std::sin(flow.attack_rad);
    const double cosine = std::cos(flow.attack_rad);
    const double along_m_s = flow.speed_m_s + u_m_s;
    const Vector3 velocity{along_m_s * cosine - w_m_s * sine, 0, along_m_s * sine + w_m_s * cosine};
    const MassProperties& mass = model_.mass();
    const PlantData& plant = model_.plant();
    Load load =
        airLoad(plant.aero, {velocity, {0, q_rad_s, 0}, air, altitude_m}, model_.surfaces());
    load.moment_Nm += cross(mass.centre_m * -1, load.force_N);
    const double push_N = thrust_N(air, length(velocity) / air.soundSpeed_m_s);
    load.force_N.x += push_N;
    load.moment_Nm.y += (plant.engine.place.z - mass.centre_m.z) * push_N;
    const Vector3& f = load.force_N;
    return {(f.x * cosine + f.z * sine) / mass.mass_kg, (-f.x * sine + f.z * cosine) / mass.mass_kg,
            load.moment_Nm.y / mass.y_kgm2};
  }

  const FlightModel& model_;
  double lever_;
};

/// Accelerations in pitch and across the path left out, which is the finer of the approximations of
/// Mulder, van Staveren and van der Vaart, Flight Dynamics (lecture notes of TU Delft):
///   0 = Zu u + Zw w + V q,  0 = Mu u + Mw w + Mq q,  u' = Xu u + Xw w - g theta,  theta' = q
/// and so theta' = k u with k = (Mw Zu - Mu Zw) / (Mq Zw - Mw V).
inline double phugoidPeriod_s(const LongitudinalDerivatives& d, double speed_m_s) {
  const double determinant = d.mq * d.zw - d.mw * speed_m_s;
  const double turning = (d.mw * d.zu - d.mu * d.zw) / determinant;
  const double damping = -(d.xu + d.xw * (d.mu * speed_m_s - d.mq * d.zu) / determinant) / 2;
  return 2 * std::numbers::pi / std::sqrt(9.80665 * turning - damping * damping);
}

/// Where the air grows denser by a share b for a metre down, an aircraft that is faster by u is
/// lower by V u / g, which adds -b V to Zu.
inline PhugoidEstimate phugoidEstimate(const FlightModel& model, const Departure& departure) {
  LongitudinalDerivatives d = TrimmedForces(model, departure).derivatives();
  const double speed_m_s = model.flow().speed_m_s;
  const double altitude_m = model.body().altitude_m();
  const double perMetre = std::log(standardAir(altitude_m - 50).density_kg_m3 /
                                   standardAir(altitude_m + 50).density_kg_m3) /
                          100;
  d.zu -= perMetre * speed_m_s;
  PhugoidEstimate result{};
  result.period_s = phugoidPeriod_s(d, speed_m_s);
  d.mq = 0;
  result.withoutPitchDamping_s = phugoidPeriod_s(d, speed_m_s);
  d.mu = 0;
  result.withoutPitch_s = phugoidPeriod_s(d, speed_m_s);
  result.lanchester_s = std::numbers::pi * std::sqrt(2.0) * speed_m_s / 9.80665;
  return result;
}

}  // namespace vorlent
