#pragma once

#include <random>
#include <vector>

#include "simulator/dynamics/Vector3.h"

namespace vorlent {

enum class Turbulence { None, Light, Moderate, Severe };

/// The wind at an altitude above the sea.
struct WindLayer {
  double altitude_ft;
  double from_deg;  ///< true
  double speed_kt;
};

struct WindSettings {
  double from_deg = 240;  ///< true
  double speed_kt = 0;    ///< 6 m above the ground
  Turbulence turbulence = Turbulence::None;
  unsigned seed = 1;
  /// Winds aloft in any order; without them the wind at 1000 feet blows at every greater height.
  std::vector<WindLayer> layers{};
};

struct SteadyWind {
  double from_deg;  ///< true, 0 to 360
  double speed_m_s;
};

/// Height above the ground, in metres, at which the wind near the ground ends.
constexpr double SurfaceWindTop_m = 304.8;

/// The wind without gusts at a height above ground of this elevation. Up to 1000 feet the speed
/// grows with the logarithm of the height (MIL-F-8785C, 3.7.3.2, roughness of a take-off). Above,
/// north and east parts run straight with the altitude from there to the lowest layer and from
/// layer to layer; above the highest the wind stays. Layers below 1000 feet do not count.
SteadyWind steadyWind(const WindSettings& settings, double height_m, double groundElevation_m);

/// Gusts against the body axes. Positive are the directions of the axes.
struct Gust {
  Vector3 velocity_m_s;
  Vector3 rates_rad_s;
};

/// Turbulence with the spectra of Dryden and the scales and intensities of MIL-F-8785C: below 1000
/// feet by height, above 2000 feet isotropic with 1750 feet, in between in proportion. White noise
/// runs through the forming filters of MIL-HDBK-1797; the rates follow from the filters of the
/// velocities. The same seed gives the same gusts.
class DrydenTurbulence {
 public:
  DrydenTurbulence(Turbulence level, unsigned seed, double span_m);

  void step(double height_m, double airspeed_m_s, double dt_s);
  const Gust& gust() const { return gust_; }

  struct Scale {
    double lengthAlong_m;
    double lengthUp_m;
    double along_m_s;  ///< standard deviation of the horizontal gusts
    double up_m_s;
  };
  /// What the standard gives for a height above the ground.
  static Scale scaleAt(Turbulence level, double height_m);

 private:
  /// A filter of second order, 1 + sqrt(3) T s over the square of 1 + T s.
  struct Transverse {
    double first = 0;
    double second = 0;
    double step(double noise, double deviation, double time_s, double dt_s);
  };
  void turn(const Scale& scale, double speed_m_s, double dt_s);
  double noise();

  Turbulence level_;
  double span_m_;
  std::mt19937_64 random_;
  Transverse side_;
  Transverse up_;
  double smoothUp_m_s_ = 0;
  double smoothSide_m_s_ = 0;
  Gust gust_;
};

}  // namespace vorlent
