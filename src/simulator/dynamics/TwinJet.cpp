#include "simulator/dynamics/TwinJet.h"

#include <algorithm>

#include "base/units.h"
#include "simulator/OffsetWriter.h"
#include "simulator/dynamics/ControlOffsets.h"
#include "simulator/dynamics/RadioSwap.h"

namespace vorlent {
namespace {

constexpr std::size_t PauseOffset = 0x0264;
constexpr std::size_t PropellerLeverOffset = 0x088E;
constexpr std::size_t SpoilersArmedOffset = 0x0BCC;
constexpr std::size_t SpoilerLeverOffset = 0x0BD0;

FuelLoad fuelIn(const FuelTanks& tanks) {
  return {tanks.centre_lb() * KilogramsPerPound, tanks.leftMain_lb() * KilogramsPerPound,
          tanks.rightMain_lb() * KilogramsPerPound};
}

/// The controls go through the offsets, so that the first step flies what everybody can read.
FlightModel modelFor(OffsetMemory& memory, const TwinJet::Settings& settings,
                     const FuelLoad& fuel) {
  const auto from = [&](const auto& start) {
    return departureFor(start, *settings.plant, settings.addedMass_kg, fuel);
  };
  const Departure departure = settings.level ? from(*settings.level) : from(settings.start);
  writeControls(memory, departure.controls);
  if (!settings.level && settings.start == StartingState::Cold) switchEverythingOff(memory);
  FlightModel::Settings model;
  model.wind = settings.wind;
  model.addedMass_kg = settings.addedMass_kg;
  return {*settings.plant, model, departure.start, controlsFrom(memory, settings.plant->controls),
          fuel};
}

}  // namespace

TwinJet::TwinJet(OffsetMemory& memory, const Settings& settings)
    : memory_(memory),
      cockpit_(memory),
      tanks_(memory),
      receivers_(memory, settings.stations),
      model_(modelFor(memory, settings, fuelIn(tanks_))),
      electrics_(electricalInputs()),
      slew_(memory, settings.scales),
      scales_(settings.scales) {
  show();
}

void TwinJet::step(double dt_s) {
  stopAtEnds(memory_);
  tanks_.takeUpWrites(dt_s);
  swapFrequencies(memory_);
  if (slew_.on())
    slew_.takeUpWrites(model_);
  else if (memory_.read<std::uint8_t>(PauseOffset) == 0)
    steps_.pass(dt_s, [this] { advance(); });
  show();
}

void TwinJet::advance() {
  ControlInputs controls = controlsFrom(memory_, model_.plant().controls);
  for (std::size_t i = 0; i < EngineCount; ++i) {
    controls.fuelOn[i] = controls.fuelOn[i] && tanks_.feeds(i);
    controls.starter[i] = controls.starter[i] && electrics_.canStart();
  }
  workSpoilers(controls);
  model_.step(controls, fuel());
  electrics_.step(electricalInputs(), FlightModel::TimeStep_s);
  tanks_.burn({model_.fuelUsed_lb(0), model_.fuelUsed_lb(1)});
}

/// The wheels must spin up for the armed lever to move: 60 knots in the type's operations manual.
void TwinJet::workSpoilers(const ControlInputs& controls) {
  constexpr double Idle = 0.05;
  constexpr double Pushed = 0.20;
  constexpr double Spinning_m_s = 60 * MetresPerSecondPerKnot;
  if (!model_.onGround()) return;
  const double high = std::max(controls.thrustLever[0], controls.thrustLever[1]);
  if (high < Idle && length(model_.body().velocity_m_s) > Spinning_m_s &&
      memory_.read<std::uint8_t>(SpoilersArmedOffset) != 0) {
    memory_.write<std::uint32_t>(SpoilerLeverOffset, 16383);
    memory_.write<std::uint8_t>(SpoilersArmedOffset, 0);
  } else if (high > Pushed) {
    memory_.write<std::uint32_t>(SpoilerLeverOffset, 0);
  }
}

void TwinJet::show() {
  tanks_.show();
  AircraftState state = model_.state();
  state.avionicsPowered = electrics_.avionicsPowered();
  writeAircraftState(memory_, state, scales_);
  showSystems(state);
  receivers_.show(state);
  slew_.remember();
}

void TwinJet::showSystems(const AircraftState& state) {
  writeElectrics(memory_, electrics_.state());
  // What sucks at the gyros' case hangs on the engines, as does what pushes the hydraulic fluid.
  constexpr double GyroSuction_inHg = 5.0;
  constexpr double FullFromN2_pct = 50;
  const double n2_pct = std::max(state.engines[0].n2_pct, state.engines[1].n2_pct);
  memory_.write(0x0B18, GyroSuction_inHg * std::min(1.0, n2_pct / FullFromN2_pct));
  // There is no propeller: its lever shows where it stands, in percent.
  for (std::size_t i = 0; i < EngineCount; ++i)
    memory_.write(0x2408 + 0x100 * i,
                  memory_.read<std::uint16_t>(PropellerLeverOffset + 0x98 * i) / 163.84);
}

ElectricalInputs TwinJet::electricalInputs() const {
  return electricalInputsFrom(memory_,
                              {model_.engine(0).state().n2_pct, model_.engine(1).state().n2_pct});
}

FuelLoad TwinJet::fuel() const { return fuelIn(tanks_); }

}  // namespace vorlent
