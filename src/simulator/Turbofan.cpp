#include "simulator/Turbofan.h"

#include <algorithm>
#include <cmath>

#include "base/units.h"

namespace vorlent {
namespace {

// Estimates for an engine of that thrust, as all figures here.
constexpr double RatedThrust_N = 24000 * NewtonsPerPoundForce;
constexpr double ThrustExponent = 2.3;
constexpr double ThrustLossPerMach = 0.45;
constexpr double MaximumN1_pct = 104.0;
constexpr double GroundIdleN1_pct = 21.0;
constexpr double IdleRiseToVacuum_pct = 14.0;
constexpr double SpoolTime_s = 1.2;
constexpr double SpoolRate_pct_s = 12.0;

/// What the surrounding air does to the engine.
struct Conditions {
  double pressureRatio;
  double rootOfTotalTemperatureRatio;
  double thrustAtRatedSpeed_N;
  double idleN1_pct;
};

Conditions conditionsIn(const Air& air, double mach) {
  const double pressureRatio = air.pressure_Pa / SeaLevelPressure_Pa;
  return {pressureRatio,
          std::sqrt(totalTemperature(air.temperature_K, mach) / SeaLevelTemperature_K),
          RatedThrust_N * pressureRatio * (1 - ThrustLossPerMach * mach),
          GroundIdleN1_pct + IdleRiseToVacuum_pct * (1 - pressureRatio)};
}

double n1ForThrust(double thrust_N, const Conditions& at) {
  const double share = std::max(0.0, thrust_N) / at.thrustAtRatedSpeed_N;
  const double n1_pct = 100 * std::pow(share, 1 / ThrustExponent) * at.rootOfTotalTemperatureRatio;
  return std::clamp(n1_pct, at.idleN1_pct, MaximumN1_pct);
}

double lagged(double value, double target, double time_s, double dt_s) {
  return value + (target - value) * (1 - std::exp(-dt_s / time_s));
}

double exhaustAt(double correctedN1_pct) { return 400 + 0.045 * correctedN1_pct * correctedN1_pct; }

double oilTemperatureAt(double n2_pct) { return 40 + 0.65 * n2_pct; }

}  // namespace

Turbofan::Turbofan() {
  state_.n1_pct = GroundIdleN1_pct;
  state_.exhaustGas_C = exhaustAt(GroundIdleN1_pct);
  state_.oilQuantity_pct = 85;
  state_.hydraulicPressure_psi = 3000;
  state_.hydraulicQuantity_pct = 88;
  step(0, standardAir(0), 0, 0);
  state_.oilTemperature_C = oilTemperatureAt(state_.n2_pct);
}

void Turbofan::step(double thrust_N, const Air& air, double mach, double dt_s) {
  const Conditions at = conditionsIn(air, mach);
  const double wantedN1_pct = n1ForThrust(thrust_N, at);
  lever_pct_ = 100 * (wantedN1_pct - at.idleN1_pct) / (MaximumN1_pct - at.idleN1_pct);

  const double most_pct = SpoolRate_pct_s * dt_s;
  const double change_pct = lagged(state_.n1_pct, wantedN1_pct, SpoolTime_s, dt_s) - state_.n1_pct;
  state_.n1_pct += std::clamp(change_pct, -most_pct, most_pct);
  state_.n2_pct = 52 + 0.48 * state_.n1_pct;

  const double correctedN1_pct = state_.n1_pct / at.rootOfTotalTemperatureRatio;
  const double share = std::pow(correctedN1_pct / 100, ThrustExponent);
  state_.thrust_N = at.thrustAtRatedSpeed_N * share;
  state_.pressureRatio = 1 + 0.75 * share;
  state_.fuelFlow_lb_h = 450 * at.pressureRatio + (0.37 + 0.30 * mach) *
                                                      at.rootOfTotalTemperatureRatio *
                                                      state_.thrust_N / NewtonsPerPoundForce;
  exhaustTarget_C_ = exhaustAt(correctedN1_pct);
  showAuxiliaries(dt_s);
}

void Turbofan::showAuxiliaries(double dt_s) {
  constexpr double ExhaustTime_s = 2.5;
  constexpr double OilTime_s = 60;
  constexpr double OilUse_pct_h = 0.5;
  state_.exhaustGas_C = lagged(state_.exhaustGas_C, exhaustTarget_C_, ExhaustTime_s, dt_s);
  state_.oilTemperature_C =
      lagged(state_.oilTemperature_C, oilTemperatureAt(state_.n2_pct), OilTime_s, dt_s);
  state_.oilPressure_psi = 5 + 0.5 * state_.n2_pct;
  state_.oilQuantity_pct -= OilUse_pct_h * dt_s / 3600;
  state_.vibration = 0.4 + 0.006 * state_.n1_pct;
}

}  // namespace vorlent
