#include "simulator/dynamics/TrimSolver.h"

#include <array>
#include <cmath>

#include "base/RuntimeError.h"
#include "base/units.h"

namespace vorlent {
namespace {

/// Accelerations along the path, across it and in pitch, for an angle, a stabiliser and a thrust.
using Triple = std::array<double, 3>;

struct Problem {
  const PlantData& plant;
  const MassProperties& mass;
  const TrimPoint& point;
  Air air;

  /// Metres a second squared, and radians; x is angle of attack and stabiliser in degrees and the
  /// thrust over the weight.
  Triple rest(const Triple& x) const {
    const double angle = x[0] * RadiansPerDegree;
    const double v = point.trueAirspeed_m_s;
    const double weight_N = mass.mass_kg * StandardGravity_m_s2;
    Surfaces surfaces;
    surfaces.flaps_deg = flapAngle_deg(point.flapDetent);
    surfaces.gear = point.gearDown ? 1 : 0;
    surfaces.stabiliser_deg = x[1];
    const double pathRate = v / (EarthRadius_m + point.altitude_m);
    const AirMotion motion{
        {v * std::cos(angle), 0, v * std::sin(angle)}, {0, -pathRate, 0}, air, point.altitude_m};
    Load load = airLoad(plant.aero, motion, surfaces);
    load.moment_Nm += cross(mass.centre_m * -1, load.force_N);
    const double thrust_N = x[2] * weight_N;
    load.force_N.x += thrust_N;
    load.moment_Nm.y += (plant.engine.place.z - mass.centre_m.z) * thrust_N;
    const Vector3& f = load.force_N;
    const double along = f.x * std::cos(angle) + f.z * std::sin(angle);
    const double down = -f.x * std::sin(angle) + f.z * std::cos(angle);
    return {along / mass.mass_kg, down / mass.mass_kg + StandardGravity_m_s2 - v * pathRate,
            load.moment_Nm.y / mass.y_kgm2};
  }
};

/// Cramer's rule.
Triple solved(const std::array<Triple, 3>& columns, const Triple& right) {
  const auto determinant = [](const Triple& a, const Triple& b, const Triple& c) {
    return a[0] * (b[1] * c[2] - b[2] * c[1]) - b[0] * (a[1] * c[2] - a[2] * c[1]) +
           c[0] * (a[1] * b[2] - a[2] * b[1]);
  };
  const double all = determinant(columns[0], columns[1], columns[2]);
  return {determinant(right, columns[1], columns[2]) / all,
          determinant(columns[0], right, columns[2]) / all,
          determinant(columns[0], columns[1], right) / all};
}

/// Angle of attack, stabiliser and thrust as in Problem::rest, by Newton's method with derivatives
/// by differences.
Triple leastRest(const Problem& problem) {
  constexpr int Iterations = 30;
  constexpr double Nudge = 1e-4;
  Triple x{3, 0, 0.08};
  for (int i = 0; i < Iterations; ++i) {
    const Triple here = problem.rest(x);
    std::array<Triple, 3> columns;
    for (std::size_t k = 0; k < 3; ++k) {
      Triple beside = x;
      beside[k] += Nudge;
      const Triple there = problem.rest(beside);
      for (std::size_t row = 0; row < 3; ++row) columns[k][row] = (there[row] - here[row]) / Nudge;
    }
    const Triple change = solved(columns, here);
    for (std::size_t k = 0; k < 3; ++k) x[k] -= change[k];
  }
  return x;
}

}  // namespace

TrimResult trimmed(const PlantData& plant, const MassProperties& mass, const TrimPoint& point) {
  const Problem problem{plant, mass, point, standardAir(point.altitude_m)};
  const Triple x = leastRest(problem);
  const ControlData& c = plant.controls;
  const double share =
      (x[1] - c.stabiliserNoseDown_deg) / (c.stabiliserNoseUp_deg - c.stabiliserNoseDown_deg);
  const double mach = point.trueAirspeed_m_s / problem.air.soundSpeed_m_s;
  const double thrust_N = x[2] * mass.mass_kg * StandardGravity_m_s2 / EngineCount;
  const double lever = leverForThrust(plant.engine, thrust_N, problem.air, mach);
  const Triple left = problem.rest(x);
  constexpr double Tolerance = 1e-6;
  const bool found = std::fabs(left[0]) + std::fabs(left[1]) + std::fabs(left[2]) < Tolerance &&
                     share >= 0 && share <= 1 && lever > 0 && lever < 0.999;
  if (!found) throw RuntimeError(RuntimeError::Overflow);
  return {x[0], 2 * share - 1, lever};
}

}  // namespace vorlent
