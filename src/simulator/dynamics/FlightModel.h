#pragma once

#include <array>

#include "simulator/AircraftState.h"
#include "simulator/FlightScript.h"
#include "simulator/dynamics/FlightControls.h"
#include "simulator/dynamics/JetEngine.h"
#include "simulator/dynamics/LandingGear.h"
#include "simulator/dynamics/MassProperties.h"
#include "simulator/dynamics/RigidBody.h"
#include "simulator/dynamics/Wind.h"

namespace vorlent {

/// An aircraft in the air and on the ground: six degrees of freedom over a round earth, moved by
/// air, engines and wheels. Steps of TimeStep_s; the same inputs give the same flight.
class FlightModel {
 public:
  static constexpr double TimeStep_s = 1.0 / 120;

  struct Settings {
    WindSettings wind;
    double addedMass_kg = 0;  ///< beyond the plant's mass without fuel
    double groundElevation_m = HomeRunway.elevation_m;
    double magneticVariation_deg = HomeRunway.magneticVariation_deg;
  };

  /// How a flight begins. Airborne ones are in steady level flight once the trim has been found.
  struct Start {
    Place place = HomeRunway.threshold;
    double heading_deg = HomeRunway.course_deg;
    double altitude_m = 0;        ///< above the sea; counts in the air only
    double trueAirspeed_m_s = 0;  ///< 0 is standing on the wheels
    double pitch_deg = 0;
    bool enginesRunning = true;
  };

  FlightModel(const PlantData& plant, const Settings& settings, const Start& start,
              const ControlInputs& controls, const FuelLoad& fuel);

  /// One step of TimeStep_s.
  void step(const ControlInputs& controls, const FuelLoad& fuel);

  /// Puts the aircraft somewhere else; it keeps its speed, angle of attack and rates. Below the
  /// ground it is put on its wheels instead.
  void moveTo(const Place& place, double altitude_m, const EulerAngles& attitude);

  AircraftState state() const;
  const PlantData& plant() const { return *plant_; }
  const RigidBody& body() const { return body_; }
  RigidBody& body() { return body_; }
  const MassProperties& mass() const { return mass_; }
  const Surfaces& surfaces() const { return controls_.surfaces(); }
  const JetEngine& engine(std::size_t i) const { return engines_[i]; }
  bool onGround() const { return onGround_; }
  /// Fuel that an engine has taken in the last step.
  double fuelUsed_lb(std::size_t i) const {
    return engines_[i].state().fuelFlow_lb_h * TimeStep_s / 3600;
  }
  /// Force of air, engines and wheels in this state, in body axes.
  Load load(const RigidBody& body) const;
  FlowState flow() const { return flowOf(airMotion(body_)); }

 private:
  void findAir();
  AirMotion airMotion(const RigidBody& body) const;
  Surfaces surfacesInDownwash(double attack_rad) const;
  void followDownwash(const FlowState& at);
  Load thrustLoad() const;
  void runEngines(const ControlInputs& controls);
  void placeWheels(const ControlInputs& controls);
  void holdStill(const RigidBody& before);
  void keepAboveGround();
  void standOnGround();
  void showMotion(AircraftState& s) const;
  void showAir(AircraftState& s) const;

  const PlantData* plant_;
  Settings settings_;
  MassProperties mass_;
  RigidBody body_;
  FlightControls controls_;
  std::array<JetEngine, EngineCount> engines_;
  DrydenTurbulence turbulence_;
  WheelInputs wheels_;
  Air air_{};
  Vector3 wind_m_s_;  ///< in the axes of the earth's centre
  SteadyWind steadyWind_{};
  double height_m_ = 0;
  double downwashOf_rad_ = 0;  ///< angle of attack that made the downwash now at the tail
  bool onGround_ = false;
  Vector3 specificForce_m_s2_;  ///< in body axes, as an accelerometer shows it
  long steps_ = 0;
};

}  // namespace vorlent
