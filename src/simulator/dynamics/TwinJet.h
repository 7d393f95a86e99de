#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "simulator/Aircraft.h"
#include "simulator/CockpitControls.h"
#include "simulator/FixedSteps.h"
#include "simulator/FuelTanks.h"
#include "simulator/NavReceivers.h"
#include "simulator/OffsetMemory.h"
#include "simulator/OffsetScales.h"
#include "simulator/dynamics/Electrics.h"
#include "simulator/dynamics/FlightModel.h"
#include "simulator/dynamics/PlantData.h"
#include "simulator/dynamics/Slew.h"
#include "simulator/dynamics/StartingStates.h"

namespace vorlent {

/// The built-in aircraft: a twin jet that is flown through the offsets. It reads levers, trims and
/// switches in every step and shows there what becomes of them; it never moves a control by itself,
/// but for the spoiler lever, which goes up by itself at touchdown when it is armed and down when a
/// thrust lever is pushed forward again.
class TwinJet : public Aircraft {
 public:
  struct Settings {
    const PlantData* plant = &plant737();
    StartingState start = StartingState::Level;
    std::optional<LevelStart> level;  ///< in place of `start`
    WindSettings wind;
    double addedMass_kg = 0;  ///< payload beyond the plant's mass without fuel
    NavStations stations;     ///< what the radios can hear
    OffsetScales scales = FsuipcScales;
  };

  /// Raises Overflow when the aircraft cannot fly steadily as it is to start.
  TwinJet(OffsetMemory& memory, const Settings& settings);

  /// Time goes on in parts of FlightModel::TimeStep_s, however it is cut.
  void step(double dt_s) override;
  AircraftState state() const override { return model_.state(); }

  const FlightModel& model() const { return model_; }

 private:
  void advance();
  void workSpoilers(const ControlInputs& controls);
  void showSystems(const AircraftState& state);
  void show();
  FuelLoad fuel() const;
  ElectricalInputs electricalInputs() const;

  OffsetMemory& memory_;
  CockpitControls cockpit_;
  FuelTanks tanks_;
  NavReceivers receivers_;
  FlightModel model_;
  Electrics electrics_;
  Slew slew_;
  OffsetScales scales_;
  FixedSteps steps_{FlightModel::TimeStep_s};
};

}  // namespace vorlent
