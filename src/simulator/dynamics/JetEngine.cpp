#include "simulator/dynamics/JetEngine.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/units.h"

namespace vorlent {
namespace {

// No published figure was at hand for times, temperatures, pressures and the speed of the core:
// what has no source beside it is an estimate of a plausible size, here and in the functions below.
constexpr double StarterN2_pct = 24.0;   // motoring speed
constexpr double FuelFromN2_pct = 18.0;  // below it the start lever gives no fuel
constexpr double ColdEngine_C = 15.0;
constexpr double IdleN2_pct = 60.0;
constexpr double LightOff_s = 2.5;
constexpr double StartingRate_pct_s = 1.6;

double lagged(double value, double target, double time_s, double dt_s) {
  return value + (target - value) * (1 - std::exp(-dt_s / time_s));
}

double rootOfTotalRatio(const Air& air, double mach) {
  return std::sqrt(totalTemperature(air.temperature_K, mach) / SeaLevelTemperature_K);
}

double idleN1_pct(const EngineData& data, bool onGround, const Air& air) {
  if (onGround) return data.groundIdleN1_pct;
  return data.flightIdleN1_pct +
         data.idleRiseToVacuum_pct * (1 - air.pressure_Pa / SeaLevelPressure_Pa);
}

double netThrust_N(const EngineData& data, double n1_pct, const Air& air, double mach) {
  const double ratio = n1_pct / rootOfTotalRatio(air, mach) / data.ratedN1_pct;
  const double lapse = 1 + data.thrustPerMach * mach + data.thrustPerMachSquared * mach * mach;
  return data.ratedThrust_N * air.pressure_Pa / SeaLevelPressure_Pa * lapse *
         std::pow(ratio, data.thrustExponent + data.thrustExponentPerMach * mach);
}

/// Static fuel flow in kilograms a second by the share of rated thrust: the four modes of the ICAO
/// databank for the CFM56-7B24, for other ratings in proportion.
double staticFuel_kg_s(double share, double ratedThrust_N) {
  constexpr std::array<std::array<double, 2>, 5> Modes{
      {{0.0, 0.080}, {0.07, 0.109}, {0.30, 0.316}, {0.85, 0.910}, {1.0, 1.103}}};
  std::size_t i = 1;
  while (i + 1 < Modes.size() && share > Modes[i][0]) ++i;
  const auto& [low, lowFuel] = Modes[i - 1];
  const auto& [high, highFuel] = Modes[i];
  return (lowFuel + (share - low) / (high - low) * (highFuel - lowFuel)) * ratedThrust_N / 107650;
}

double n2Of(double n1_pct) { return 51.5 + 0.48 * n1_pct - 0.02 * std::max(0.0, n1_pct - 100); }

}  // namespace

double commandedN1_pct(const EngineData& data, double lever, bool onGround, const Air& air,
                       double mach) {
  const double idle_pct = idleN1_pct(data, onGround, air);
  const double most_pct =
      std::min(data.maximumN1_pct, data.maximumCorrectedN1_pct * rootOfTotalRatio(air, mach));
  return idle_pct + (most_pct - idle_pct) * std::clamp(lever, 0.0, 1.0);
}

double leverForThrust(const EngineData& data, double thrust_N, const Air& air, double mach) {
  double low = 0;
  double high = 1;
  constexpr int Halvings = 50;
  for (int i = 0; i < Halvings; ++i) {
    const double middle = (low + high) / 2;
    const double n1_pct = commandedN1_pct(data, middle, false, air, mach);
    (netThrust_N(data, n1_pct, air, mach) < thrust_N ? low : high) = middle;
  }
  return (low + high) / 2;
}

JetEngine::JetEngine(const EngineData& data, bool running)
    : data_(&data), phase_(running ? Phase::Running : Phase::Off) {
  state_.running = running;
  state_.oilQuantity_pct = 85;
  state_.hydraulicQuantity_pct = 88;
  state_.exhaustGas_C = ColdEngine_C;
  state_.oilTemperature_C = ColdEngine_C;
  if (running) settle({}, standardAir(0), 0);
}

void JetEngine::settle(const EngineInputs& inputs, const Air& air, double mach) {
  state_.n1_pct = commandedN1_pct(*data_, inputs.lever, inputs.onGround, air, mach);
  state_.n2_pct = n2Of(state_.n1_pct);
  showPower(air, mach);
  constexpr double LongEnough_s = 1e6;
  const double oil_pct = state_.oilQuantity_pct;
  showAuxiliaries(LongEnough_s);
  state_.oilQuantity_pct = oil_pct;
}

void JetEngine::step(const EngineInputs& inputs, const Air& air, double mach, double dt_s) {
  if (!inputs.fuelOn) phase_ = Phase::Off;
  const double wanted = inputs.lever < 0 && inputs.onGround ? 1 : 0;
  const double most = dt_s / data_->reverserTime_s;
  reverser_ += std::clamp(wanted - reverser_, -most, most);
  if (phase_ == Phase::Running)
    moveSpools(inputs, air, mach, dt_s);
  else
    crank(inputs, dt_s);
  state_.running = phase_ == Phase::Running || sinceLightOff_s_ > LightOff_s;
  showPower(air, mach);
  showAuxiliaries(dt_s);
}

void JetEngine::moveSpools(const EngineInputs& inputs, const Air& air, double mach, double dt_s) {
  double target_pct = commandedN1_pct(*data_, inputs.lever, inputs.onGround, air, mach);
  if (inputs.lever < 0 && reverser_ >= 1) {
    constexpr double FullReverseLever = 0.25;
    const double share = std::min(1.0, -inputs.lever / FullReverseLever);
    target_pct += (data_->reverseN1_pct - target_pct) * share;
  }
  const double rate =
      data_->accelerationAtZero_pct_s + data_->accelerationPerN1_1_s * state_.n1_pct;
  const double wanted = (target_pct - state_.n1_pct) * data_->approach_1_s;
  state_.n1_pct += std::clamp(wanted, -rate * data_->deceleration, rate) * dt_s;
  constexpr double CoreTime_s = 0.3;
  state_.n2_pct = lagged(state_.n2_pct, n2Of(state_.n1_pct), CoreTime_s, dt_s);
}

void JetEngine::crank(const EngineInputs& inputs, double dt_s) {
  constexpr double RunUp_s = 8;
  constexpr double RunDown_s = 12;
  const bool burning = sinceLightOff_s_ > LightOff_s && inputs.fuelOn;
  if (burning)
    state_.n2_pct = std::min(IdleN2_pct + 2, state_.n2_pct + StartingRate_pct_s * dt_s);
  else
    state_.n2_pct = lagged(state_.n2_pct, inputs.starter ? StarterN2_pct : 0,
                           inputs.starter ? RunUp_s : RunDown_s, dt_s);
  const bool fed = inputs.fuelOn && (burning || state_.n2_pct > FuelFromN2_pct);
  sinceLightOff_s_ = fed ? sinceLightOff_s_ + dt_s : 0;
  phase_ = fed ? Phase::Starting : Phase::Off;
  // The fan is dragged along by the gas of the core.
  const double fan_pct =
      data_->groundIdleN1_pct *
      std::clamp((state_.n2_pct - StarterN2_pct / 2) / (IdleN2_pct - StarterN2_pct / 2), 0.0, 1.0);
  state_.n1_pct = lagged(state_.n1_pct, fan_pct, burning ? 1.0 : RunDown_s, dt_s);
  if (burning && state_.n2_pct >= IdleN2_pct) {
    phase_ = Phase::Running;
    sinceLightOff_s_ = 0;
  }
}

void JetEngine::showPower(const Air& air, double mach) {
  constexpr double KilogramsPerSecondPerPoundPerHour = KilogramsPerPound / 3600;
  const double root = rootOfTotalRatio(air, mach);
  const double totalPressureRatio =
      air.pressure_Pa / SeaLevelPressure_Pa * std::pow(1 + 0.2 * mach * mach, 3.5);
  const double share = std::pow(state_.n1_pct / root / data_->ratedN1_pct, data_->thrustExponent);
  const bool lit = state_.running;
  state_.thrust_N = phase_ == Phase::Running ? netThrust_N(*data_, state_.n1_pct, air, mach) : 0;
  state_.thrust_N *= 1 - reverser_ * (1 + data_->reverseShare);
  state_.pressureRatio = 1 + 0.75 * share;
  // Fuel corrected to the total pressure and temperature ahead of the fan belongs to corrected N1.
  state_.fuelFlow_lb_h = lit ? staticFuel_kg_s(share, data_->ratedThrust_N) * totalPressureRatio *
                                   root / KilogramsPerSecondPerPoundPerHour
                             : 0;
  const double hot_K = root * root * (690 + 430 * share * std::sqrt(share));
  const double startPeak_C = phase_ == Phase::Starting ? 120 : 0;
  gasTarget_C_ =
      lit ? hot_K - KelvinAtZeroCelsius + startPeak_C : air.temperature_K - KelvinAtZeroCelsius;
}

void JetEngine::showAuxiliaries(double dt_s) {
  constexpr double GasTime_s = 2.5;
  constexpr double OilTime_s = 60;
  constexpr double OilUse_pct_h = 0.5;
  state_.exhaustGas_C = lagged(state_.exhaustGas_C, gasTarget_C_, GasTime_s, dt_s);
  state_.oilTemperature_C =
      lagged(state_.oilTemperature_C, ColdEngine_C + 0.9 * state_.n2_pct, OilTime_s, dt_s);
  state_.oilPressure_psi = 0.55 * state_.n2_pct;
  if (state_.running)
    state_.oilQuantity_pct = std::max(0.0, state_.oilQuantity_pct - OilUse_pct_h * dt_s / 3600);
  state_.vibration = 0.012 * state_.n1_pct * (0.4 + 0.006 * state_.n1_pct);
  state_.hydraulicPressure_psi = 3000 * std::clamp(state_.n2_pct / 50, 0.0, 1.0);
}

}  // namespace vorlent
