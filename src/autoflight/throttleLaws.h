#pragma once

namespace vorlent {

/// N1, percent, at which the engine settles with a lever, percent.
double GetN1Target(double lever_pct);

struct RpmInput {
  double target_pct;  ///< N1, already eased
  double n1_pct;
  double trend_pct_s;
  double lever_pct;
};
/// Lever, percent, toward an N1.
double leverForN1(const RpmInput& in);

struct SpeedByThrottleInput {
  double target_kt;
  double averageIas_kt;
  double trend_kt_s;
  double lever_pct;
  double factor;
};
/// Lever, percent, toward an airspeed.
double leverForSpeed(const SpeedByThrottleInput& in);

}  // namespace vorlent
