#include "simulator/ScriptedFlight.h"

#include <utility>

#include "base/units.h"
#include "simulator/OffsetWriter.h"

namespace vorlent {
namespace {

constexpr std::size_t PauseOffset = 0x0264;
constexpr double ZeroFuelMass_lb = 113000;
constexpr double RollRateOfFullAileron_deg_s = 30;
constexpr double PitchRateOfFullElevator_deg_s = 10;
constexpr double LandingLightsBelow_m = 10000 * MetresPerFoot;

}  // namespace

ScriptedFlight::ScriptedFlight(OffsetMemory& memory, FlightScript script,
                               const NavStations& stations, const OffsetScales& scales)
    : memory_(memory),
      script_(std::move(script)),
      controls_(memory),
      tanks_(memory),
      receivers_(memory, stations),
      motion_(HomeRunway),
      scales_(scales) {
  show();
}

void ScriptedFlight::step(double dt_s) {
  tanks_.takeUpWrites(dt_s);
  if (memory_.read<std::uint8_t>(PauseOffset) == 0) steps_.pass(dt_s, [this] { advance(); });
  show();
}

void ScriptedFlight::advance() {
  ++ticks_;
  if (static_cast<double>(ticks_) * TimeStep_s >= durationOf_s(script_)) beginAgain();
  motion_.step(segmentNow(), mass_kg(), TimeStep_s);
  std::array<double, EngineCount> used_lb;
  for (std::size_t i = 0; i < EngineCount; ++i) {
    engines_[i].step(motion_.requiredThrust_N() / EngineCount, motion_.air(), motion_.state().mach,
                     TimeStep_s);
    used_lb[i] = engineState(i).fuelFlow_lb_h * TimeStep_s / 3600;
  }
  tanks_.burn(used_lb);
}

void ScriptedFlight::beginAgain() {
  ticks_ = 0;
  motion_ = FlightMotion(HomeRunway);
  engines_ = {};
  tanks_.fill();
}

AircraftState ScriptedFlight::state() const {
  AircraftState state = motion_.state();
  state.elapsed_s = static_cast<double>(ticks_) * TimeStep_s;
  state.mass_kg = mass_kg();
  for (std::size_t i = 0; i < EngineCount; ++i) state.engines[i] = engineState(i);
  return state;
}

EngineState ScriptedFlight::engineState(std::size_t engine) const {
  constexpr double StarterN2_pct = 24;
  const EngineUse use = segmentNow().engines[engine];
  if (use == EngineUse::Running) return engines_[engine].state();
  EngineState cold;
  cold.running = false;
  cold.n2_pct = use == EngineUse::Starting ? StarterN2_pct : 0;
  return cold;
}

void ScriptedFlight::show() {
  const AircraftState shown = state();
  PilotControls pilot;
  for (std::size_t i = 0; i < EngineCount; ++i) pilot.thrustLever_pct[i] = engines_[i].lever_pct();
  for (std::size_t i = 0; i < EngineCount; ++i)
    pilot.starter[i] = segmentNow().engines[i] == EngineUse::Starting;
  pilot.flapsDetent = segmentNow().flapsDetent;
  pilot.gearDown = segmentNow().gearDown;
  pilot.spoilers = segmentNow().spoilers;
  pilot.parkingBrake = segmentNow().airspeed_kt == 0;
  pilot.aileron = motion_.rollRate_deg_s() / RollRateOfFullAileron_deg_s;
  pilot.elevator = motion_.pitchRate_deg_s() / PitchRateOfFullElevator_deg_s;
  pilot.landingLights = shown.altitude_m < LandingLightsBelow_m;
  tanks_.show();
  controls_.move(pilot);
  writeAircraftState(memory_, shown, scales_);
  receivers_.show(shown);
}

const FlightSegment& ScriptedFlight::segmentNow() const {
  double left_s = static_cast<double>(ticks_) * TimeStep_s;
  for (const FlightSegment& segment : script_) {
    if (left_s < segment.duration_s) return segment;
    left_s -= segment.duration_s;
  }
  return script_.back();
}

double ScriptedFlight::mass_kg() const {
  return (ZeroFuelMass_lb + tanks_.total_lb()) * KilogramsPerPound;
}

}  // namespace vorlent
