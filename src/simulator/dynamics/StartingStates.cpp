#include "simulator/dynamics/StartingStates.h"

#include <array>

namespace vorlent {
namespace {

struct NamedState {
  std::string_view name;
  StartingState state;
};

constexpr std::array<NamedState, 5> Names{{{"cold", StartingState::Cold},
                                           {"runway", StartingState::Runway},
                                           {"level", StartingState::Level},
                                           {"cruise", StartingState::Cruise},
                                           {"final", StartingState::Final}}};

constexpr double TakeOffFlaps = 3;     // 5 degrees
constexpr double TakeOffTrim = -0.35;  // 5.5 units of 17

Departure onTheRunway(bool running) {
  Departure departure;
  departure.start.enginesRunning = running;
  departure.controls.fuelOn = {running, running};
  departure.controls.parkingBrake = true;
  departure.controls.flapDetent = running ? TakeOffFlaps : 0;
  departure.controls.elevatorTrim = TakeOffTrim;
  departure.controls.yawDamper = running;
  return departure;
}

double trueAirspeed_m_s(double calibrated_kt, double altitude_m) {
  const Air air = standardAir(altitude_m);
  return machOfCalibrated(calibrated_kt * MetresPerSecondPerKnot, air.pressure_Pa) *
         air.soundSpeed_m_s;
}

TrimPoint pointOf(StartingState state) {
  constexpr double Level_m = 5000 * MetresPerFoot;
  constexpr double Cruise_m = 35000 * MetresPerFoot;
  constexpr double Final_m = HomeRunway.elevation_m + 3000 * MetresPerFoot;
  constexpr double Flaps15 = 5;
  if (state == StartingState::Level) return {Level_m, trueAirspeed_m_s(250, Level_m)};
  if (state == StartingState::Cruise)
    return {Cruise_m, 0.78 * standardAir(Cruise_m).soundSpeed_m_s};
  return {Final_m, trueAirspeed_m_s(160, Final_m), Flaps15, false};
}

LevelStart levelStartOf(StartingState state) {
  constexpr double Final_m = 10 * MetresPerNauticalMile;
  LevelStart start{pointOf(state)};
  if (state == StartingState::Final) start.place = onApproach(HomeRunway, Final_m);
  return start;
}

}  // namespace

std::optional<StartingState> startingStateNamed(std::string_view name) {
  for (const NamedState& known : Names)
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
