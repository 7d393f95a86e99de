#pragma once

#include <array>

#include "simulator/AircraftState.h"
#include "simulator/OffsetMemory.h"

namespace vorlent {

/// What feeds the aircraft and what it feeds.
struct ElectricalInputs {
  bool battery = true;   ///< switch
  bool avionics = true;  ///< switch
  bool navigationLights = false;
  bool strobeLights = false;
  bool landingLights = false;
  bool pitotHeat = false;
  std::array<double, EngineCount> n2_pct{};
};

struct ElectricalFlow {
  double voltage_V = 0;
  double current_A = 0;
};

struct ElectricalState {
  double totalLoad_A = 0;
  double batteryLoad_A = 0;  ///< out of the battery positive, into it negative
  double battery_V = 0;
  ElectricalFlow mainBus, avionicsBus, hotBatteryBus, batteryBus;
  std::array<ElectricalFlow, EngineCount> generators{};
};

/// Direct current all through: a generator on each engine, one battery. Generators that turn fast
/// enough feed the buses and charge the battery; without them it feeds the buses through its switch
/// until it is empty. The battery bus holds the contactor of the avionics bus, so both need the
/// battery switch; the hot battery bus has no switch.
class Electrics {
 public:
  /// With a full battery.
  explicit Electrics(const ElectricalInputs& inputs);

  void step(const ElectricalInputs& inputs, double dt_s);

  const ElectricalState& state() const { return state_; }
  bool avionicsPowered() const { return state_.avionicsBus.voltage_V > 0; }
  /// Starters and ignition hang on the main bus.
  bool canStart() const { return state_.mainBus.voltage_V > 0; }

 private:
  void distribute(const ElectricalInputs& inputs);

  double charge_ = 1;  ///< of the battery, 0 to 1
  ElectricalState state_;
};

/// The switches as the offsets have them.
ElectricalInputs electricalInputsFrom(const OffsetMemory& memory,
                                      const std::array<double, EngineCount>& n2_pct);
void writeElectrics(OffsetMemory& memory, const ElectricalState& state);
/// Every switch as on an aircraft that is left alone: battery, avionics, lights and heat off.
void switchEverythingOff(OffsetMemory& memory);

}  // namespace vorlent
