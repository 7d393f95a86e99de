#include "simulator/dynamics/Electrics.h"

#include <algorithm>

#include "base/numbers.h"

namespace vorlent {
namespace {

// Voltages and loads are estimates of a plausible size; the battery has the 48 Ah of the type.
constexpr double Generator_V = 28.5;
constexpr double Bus_V = 28.0;  ///< behind the regulators
constexpr double FullBattery_V = 25.4;
constexpr double EmptyBattery_V = 22.0;
constexpr double Capacity_As = 48 * 3600.0;
constexpr double FastestCharge_A = 20;
constexpr double OnLineFromN2_pct = 55;

constexpr double MainBus_A = 16;
constexpr double NavigationLights_A = 3;
constexpr double StrobeLights_A = 4;
constexpr double LandingLights_A = 14;
constexpr double PitotHeat_A = 8;
constexpr double AvionicsBus_A = 20;
constexpr double BatteryBus_A = 8;
constexpr double HotBatteryBus_A = 2;

constexpr std::size_t NavigationLightsOffset = 0x0280;
constexpr std::size_t StrobeLightsOffset = 0x0281;
constexpr std::size_t LandingLightsOffset = 0x028C;
constexpr std::size_t PitotHeatOffset = 0x029C;
constexpr std::size_t BatteryOffset = 0x281C;
constexpr std::size_t AvionicsOffset = 0x2E80;

/// The last twentieth of the charge takes the voltage down with it.
double batteryVoltage_V(double charge) {
  constexpr double Knee = 0.05;
  return (EmptyBattery_V + charge * (FullBattery_V - EmptyBattery_V)) *
         std::min(1.0, charge / Knee);
}

ElectricalFlow flowOf(bool fed, double voltage_V, double load_A) {
  return fed && voltage_V > 0 ? ElectricalFlow{voltage_V, load_A} : ElectricalFlow{};
}

double mainLoad_A(const ElectricalInputs& in) {
  return MainBus_A + (in.navigationLights ? NavigationLights_A : 0) +
         (in.strobeLights ? StrobeLights_A : 0) + (in.landingLights ? LandingLights_A : 0) +
         (in.pitotHeat ? PitotHeat_A : 0);
}

void writeFlow(OffsetMemory& memory, std::size_t offset, const ElectricalFlow& flow) {
  memory.write(offset, finite(flow.voltage_V));
  memory.write(offset + 8, finite(flow.current_A));
}

}  // namespace

Electrics::Electrics(const ElectricalInputs& inputs) { distribute(inputs); }

void Electrics::step(const ElectricalInputs& inputs, double dt_s) {
  charge_ = std::clamp(charge_ - state_.batteryLoad_A * dt_s / Capacity_As, 0.0, 1.0);
  distribute(inputs);
}

void Electrics::distribute(const ElectricalInputs& in) {
  const auto turning = std::count_if(in.n2_pct.begin(), in.n2_pct.end(),
                                     [](double n2_pct) { return n2_pct >= OnLineFromN2_pct; });
  state_.battery_V = batteryVoltage_V(charge_);
  const double source_V = turning > 0 ? Bus_V : state_.battery_V;
  state_.mainBus = flowOf(turning > 0 || in.battery, source_V, mainLoad_A(in));
  state_.avionicsBus = flowOf(in.battery && in.avionics, source_V, AvionicsBus_A);
  state_.batteryBus = flowOf(in.battery, source_V, BatteryBus_A);
  state_.hotBatteryBus = flowOf(true, state_.battery_V, HotBatteryBus_A);
  state_.totalLoad_A = state_.mainBus.current_A + state_.avionicsBus.current_A +
                       state_.batteryBus.current_A + state_.hotBatteryBus.current_A;
  const double charging_A = FastestCharge_A * (1 - charge_);
  state_.batteryLoad_A = turning > 0 ? -charging_A : state_.totalLoad_A;
  for (std::size_t i = 0; i < EngineCount; ++i)
    state_.generators[i] = flowOf(in.n2_pct[i] >= OnLineFromN2_pct, Generator_V,
                                  (state_.totalLoad_A + charging_A) /
                                      static_cast<double>(std::max<std::ptrdiff_t>(turning, 1)));
}

ElectricalInputs electricalInputsFrom(const OffsetMemory& memory,
                                      const std::array<double, EngineCount>& n2_pct) {
  const auto isOn = [&memory](std::size_t offset) {
    return memory.read<std::uint8_t>(offset) != 0;
  };
  ElectricalInputs in;
  in.battery = isOn(BatteryOffset);
  in.avionics = isOn(AvionicsOffset);
  in.navigationLights = isOn(NavigationLightsOffset);
  in.strobeLights = isOn(StrobeLightsOffset);
  in.landingLights = isOn(LandingLightsOffset);
  in.pitotHeat = isOn(PitotHeatOffset);
  in.n2_pct = n2_pct;
  return in;
}

void writeElectrics(OffsetMemory& memory, const ElectricalState& state) {
  memory.write(0x2824, finite(state.totalLoad_A));
  memory.write(0x282C, finite(state.batteryLoad_A));
  memory.write(0x2834, finite(state.battery_V));
  writeFlow(memory, 0x2840, state.mainBus);
  writeFlow(memory, 0x2850, state.avionicsBus);
  writeFlow(memory, 0x2860, state.hotBatteryBus);
  writeFlow(memory, 0x2870, state.batteryBus);
  for (std::size_t i = 0; i < EngineCount; ++i)
    writeFlow(memory, 0x2880 + 0x10 * i, state.generators[i]);
}

void switchEverythingOff(OffsetMemory& memory) {
  for (const std::size_t offset : {NavigationLightsOffset, StrobeLightsOffset, LandingLightsOffset,
                                   PitotHeatOffset, BatteryOffset, AvionicsOffset})
    memory.write<std::uint8_t>(offset, 0);
}

}  // namespace vorlent
