#include "simulator/dynamics/StartingStates.h"

#include <array>

namespace vorlent {
namespace {

struct NamedState {
  std::string_view name;
  StartingState state;
};

constexpr std::array<NamedState, 5> names{{{"cold", StartingState::Cold},
                                           {"runway", StartingState::Runway},
                                           {"level", StartingState::Level},
                                           {"cruise", StartingState::Cruise},
                                           {"final", StartingState::Final}}};

constexpr double takeOffFlaps = 3;     // 5 degrees
constexpr double takeOffTrim = -0.35;  // 5.5 units of 17

Departure onTheRunway(bool running) {
  Departure departure;
  departure.start.enginesRunning = running;
  departure.controls.fuelOn = {running, running};
  departure.controls.parkingBrake = true;
  departure.controls.flapDetent = running ? takeOffFlaps : 0;
  departure.controls.elevatorTrim = takeOffTrim;
  departure.controls.yawDamper = running;
  return departure;
}

double trueAirspeed_m_s(double calibrated_kt, double altitude_m) {
  const Air air = standardAir(altitude_m);
  return machOfCalibrated(calibrated_kt * MetresPerSecondPerKnot, air.pressure_Pa) *
         air.soundSpeed_m_s;
}

TrimPoint pointOf(StartingState state) {
  constexpr double level_m = 5000 * MetresPerFoot;
  constexpr double cruise_m = 35000 * MetresPerFoot;
  constexpr double final_m = homeRunway.elevation_m + 3000 * MetresPerFoot;
  constexpr double flaps15 = 5;
  if (state == StartingState::Level) return {level_m, trueAirspeed_m_s(250, level_m)};
  if (state == StartingState::Cruise)
    return {cruise_m, 0.78 * standardAir(cruise_m).soundSpeed_m_s};
  return {final_m, trueAirspeed_m_s(160, final_m), flaps15, false};
}

LevelStart levelStartOf(StartingState state) {
  constexpr double final_m = 10 * MetresPerNauticalMile;
  LevelStart start{pointOf(state)};
  if (state == StartingState::Final) start.place = onApproach(homeRunway, final_m);
  return start;
}

}  // namespace

std::optional<StartingState> startingStateNamed(std::string_view name) {
  for (const NamedState& known : names)
    if (known.name == name) return known.state;
  return std::nullopt;
}

Departure departureFor(StartingState state, const PlantData& plant, double addedMass_kg,
                       const FuelLoad& fuel) {
  if (state == StartingState::Cold || state == StartingState::Runway)
    return onTheRunway(state == StartingState::Runway);
  return departureFor(levelStartOf(state), plant, addedMass_kg, fuel);
}

Departure departureFor(const LevelStart& start, const PlantData& plant, double addedMass_kg,
                       const FuelLoad& fuel) {
  const TrimPoint& point = start.point;
  const TrimResult trim = trimmed(plant, massProperties(plant.mass, addedMass_kg, fuel), point);
  Departure departure;
  departure.start.place = start.place;
  departure.start.heading_deg = start.heading_deg;
  departure.start.altitude_m = point.altitude_m;
  departure.start.trueAirspeed_m_s = point.trueAirspeed_m_s;
  departure.start.pitch_deg = trim.pitch_deg;
  departure.controls.elevatorTrim = trim.elevatorTrim;
  departure.controls.thrustLever = {trim.lever, trim.lever};
  departure.controls.flapDetent = point.flapDetent;
  departure.controls.gearDown = point.gearDown;
  return departure;
}

}  // namespace vorlent
