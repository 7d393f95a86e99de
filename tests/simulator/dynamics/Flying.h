#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "FlightData.h"
#include "base/units.h"
#include "simulator/dynamics/StartingStates.h"

namespace vorlent {

/// 18410 pounds in the tanks, as before a flight: 59.6 tons with the 737-700.
constexpr FuelLoad ordinaryFuel{1306, 3522, 3522};

/// A flight model with its fuel and its controls.
struct Flying {
  explicit Flying(StartingState start, const PlantData& plant = plant737(), double addedMass_kg = 0,
                  FuelLoad load = ordinaryFuel, const WindSettings& wind = {})
      : Flying(departureFor(start, plant, addedMass_kg, load), plant, addedMass_kg, load, wind) {}
  Flying(const Departure& from, const PlantData& plant, double addedMass_kg, FuelLoad load,
         const WindSettings& wind = {})
      : fuel(load),
        departure(from),
        controls(departure.controls),
        model(plant, settings(wind, addedMass_kg), departure.start, controls, fuel) {}

  void tick() {
    model.step(controls, fuel);
    const double used_kg = (model.fuelUsed_lb(0) + model.fuelUsed_lb(1)) * KilogramsPerPound;
    const double fromCentre_kg = std::min(used_kg, fuel.centre_kg);
    fuel.centre_kg -= fromCentre_kg;
    fuel.left_kg -= (used_kg - fromCentre_kg) / 2;
    fuel.right_kg -= (used_kg - fromCentre_kg) / 2;
    state = model.state();
    if (data && ++flown % 12 == 0) writeRow();
  }
  /// Writes a table for the plots from now on, a row every tenth of a second.
  void writeTo(const std::string& name) {
    data = std::make_shared<FlightData>(
        name,
        "time_s,altitude_ft,speed_kt,mach,climb_fpm,pitch_deg,bank_deg,attack_deg,n1_pct,"
        "fuel_kg_h,flaps_deg,gear,load,slip_g,yawRate_deg_s,groundSpeed_kt");
    if (!data->wanted()) data.reset();
  }
  void fly(double seconds) {
    const long ticks = std::lround(seconds * 120);
    for (long i = 0; i < ticks; ++i) tick();
  }
  /// Flies on and takes a sample every `interval_s`.
  std::vector<double> record(double seconds, double interval_s,
                             const std::function<double(const Flying&)>& sample) {
    std::vector<double> samples;
    for (double t = 0; t < seconds; t += interval_s) {
      fly(interval_s);
      samples.push_back(sample(*this));
    }
    return samples;
  }
  /// Sets it turning, about the body axes, beside what it does already.
  void nudgeRates(const Vector3& by_deg_s) {
    model.body().rates_rad_s += by_deg_s * RadiansPerDegree;
  }

  static FlightModel::Settings settings(const WindSettings& wind, double addedMass_kg) {
    FlightModel::Settings s;
    s.wind = wind;
    s.addedMass_kg = addedMass_kg;
    return s;
  }
  double cas_kt() const { return state.calibratedAirspeed_m_s * 3600 / 1852; }
  double altitude_ft() const { return state.altitude_m / 0.3048; }
  double climb_fpm() const { return state.verticalSpeed_m_s / 0.3048 * 60; }

  void writeRow() const {
    const AircraftState& s = state;
    const double fuel_kg_h =
        (s.engines[0].fuelFlow_lb_h + s.engines[1].fuelFlow_lb_h) * KilogramsPerPound;
    data->row({s.elapsed_s, altitude_ft(), cas_kt(), s.mach, climb_fpm(), s.pitch_deg, s.bank_deg,
               s.angleOfAttack_deg, s.engines[0].n1_pct, fuel_kg_h, s.flaps_deg, s.gearDown,
               s.loadFactor, s.slip, model.body().rates_rad_s.z / RadiansPerDegree,
               s.groundSpeed_m_s * 3600 / 1852});
  }

  FuelLoad fuel;
  Departure departure;
  ControlInputs controls;
  FlightModel model;
  AircraftState state = model.state();
  std::shared_ptr<FlightData> data{};
  long flown = 0;  ///< ticks
};

/// A figure for the tables of docs/aircraft.md.
inline void report(const char* name, double value, const char* unit) {
  std::printf("FIGURE %-52s %10.4g %s\n", name, value, unit);
}

}  // namespace vorlent
