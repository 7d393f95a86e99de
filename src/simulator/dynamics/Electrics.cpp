#include "simulator/dynamics/Electrics.h"

#include <algorithm>

#include "base/numbers.h"

namespace vorlent {
namespace {

// Voltages and loads are estimates of a plausible size; the battery has the 48 Ah of the type.
constexpr double generator_V = 28.5;
constexpr double bus_V = 28.0;  ///< behind the regulators
constexpr double fullBattery_V = 25.4;
constexpr double emptyBattery_V = 22.0;
constexpr double capacity_As = 48 * 3600.0;
constexpr double fastestCharge_A = 20;
constexpr double onLineFromN2_pct = 55;

constexpr double mainBus_A = 16;
constexpr double navigationLights_A = 3;
constexpr double strobeLights_A = 4;
constexpr double landingLights_A = 14;
constexpr double pitotHeat_A = 8;
constexpr double avionicsBus_A = 20;
constexpr double batteryBus_A = 8;
constexpr double hotBatteryBus_A = 2;

constexpr std::size_t navigationLightsOffset = 0x0280;
constexpr std::size_t strobeLightsOffset = 0x0281;
constexpr std::size_t landingLightsOffset = 0x028C;
constexpr std::size_t pitotHeatOffset = 0x029C;
constexpr std::size_t batteryOffset = 0x281C;
constexpr std::size_t avionicsOffset = 0x2E80;

/// The last twentieth of the charge takes the voltage down with it.
double batteryVoltage_V(double charge) {
  constexpr double knee = 0.05;
  return (emptyBattery_V + charge * (fullBattery_V - emptyBattery_V)) *
         std::min(1.0, charge / knee);
}

ElectricalFlow flowOf(bool fed, double voltage_V, double load_A) {
  return fed && voltage_V > 0 ? ElectricalFlow{voltage_V, load_A} : ElectricalFlow{};
}

double mainLoad_A(const ElectricalInputs& in) {
  return mainBus_A + (in.navigationLights ? navigationLights_A : 0) +
         (in.strobeLights ? strobeLights_A : 0) + (in.landingLights ? landingLights_A : 0) +
         (in.pitotHeat ? pitotHeat_A : 0);
}

void writeFlow(OffsetMemory& memory, std::size_t offset, const ElectricalFlow& flow) {
  memory.write(offset, finite(flow.voltage_V));
  memory.write(offset + 8, finite(flow.current_A));
}

}  // namespace

Electrics::Electrics(const ElectricalInputs& inputs) { distribute(inputs); }

void Electrics::step(const ElectricalInputs& inputs, double dt_s) {
  charge_ = std::clamp(charge_ - state_.batteryLoad_A * dt_s / capacity_As, 0.0, 1.0);
  distribute(inputs);
}

void Electrics::distribute(const ElectricalInputs& in) {
  const auto turning = std::count_if(in.n2_pct.begin(), in.n2_pct.end(),
                                     [](double n2_pct) { return n2_pct >= onLineFromN2_pct; });
  state_.battery_V = batteryVoltage_V(charge_);
  const double source_V = turning > 0 ? bus_V : state_.battery_V;
  state_.mainBus = flowOf(turning > 0 || in.battery, source_V, mainLoad_A(in));
  state_.avionicsBus = flowOf(in.battery && in.avionics, source_V, avionicsBus_A);
  state_.batteryBus = flowOf(in.battery, source_V, batteryBus_A);
  state_.hotBatteryBus = flowOf(true, state_.battery_V, hotBatteryBus_A);
  state_.totalLoad_A = state_.mainBus.current_A + state_.avionicsBus.current_A +
                       state_.batteryBus.current_A + state_.hotBatteryBus.current_A;
  const double charging_A = fastestCharge_A * (1 - charge_);
  state_.batteryLoad_A = turning > 0 ? -charging_A : state_.totalLoad_A;
  for (std::size_t i = 0; i < engineCount; ++i)
    state_.generators[i] = flowOf(in.n2_pct[i] >= onLineFromN2_pct, generator_V,
                                  (state_.totalLoad_A + charging_A) /
                                      static_cast<double>(std::max<std::ptrdiff_t>(turning, 1)));
}

ElectricalInputs electricalInputsFrom(const OffsetMemory& memory,
                                      const std::array<double, engineCount>& n2_pct) {
  const auto isOn = [&memory](std::size_t offset) {
    return memory.read<std::uint8_t>(offset) != 0;
  };
  ElectricalInputs in;
  in.battery = isOn(batteryOffset);
  in.avionics = isOn(avionicsOffset);
  in.navigationLights = isOn(navigationLightsOffset);
  in.strobeLights = isOn(strobeLightsOffset);
  in.landingLights = isOn(landingLightsOffset);
  in.pitotHeat = isOn(pitotHeatOffset);
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
  for (std::size_t i = 0; i < engineCount; ++i)
    writeFlow(memory, 0x2880 + 0x10 * i, state.generators[i]);
}

void switchEverythingOff(OffsetMemory& memory) {
  for (const std::size_t offset : {navigationLightsOffset, strobeLightsOffset, landingLightsOffset,
                                   pitotHeatOffset, batteryOffset, avionicsOffset})
    memory.write<std::uint8_t>(offset, 0);
}

}  // namespace vorlent
