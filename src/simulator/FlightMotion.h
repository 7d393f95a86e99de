#pragma once

#include "simulator/AircraftState.h"
#include "simulator/FlightScript.h"
#include "simulator/SmoothFollower.h"
#include "simulator/StandardAtmosphere.h"

namespace vorlent {

/// The motion of a twin-jet of 60 tons that makes for what a segment of the script asks, within
/// the accelerations of normal flying. From the motion follow attitude, angle of attack and the
/// thrust that it takes: lift carries the weight, thrust what drag, climb and acceleration take. It
/// touches down where it comes down to the runway's height.
class FlightMotion {
 public:
  /// Stands at the runway's threshold, nose along it, into the wind.
  explicit FlightMotion(const Runway& runway);

  void step(const FlightSegment& segment, double mass_kg, double dt_s);

  const AircraftState& state() const { return state_; }
  const Air& air() const { return air_; }
  /// Of all engines together; negative when even idle is too much.
  double requiredThrust_N() const { return requiredThrust_N_; }
  double rollRate_deg_s() const { return bank_.rate(); }
  double pitchRate_deg_s() const { return pitchRate_deg_s_; }

 private:
  void moveSurfaces(const FlightSegment& segment, double dt_s);
  void changeSpeed(const FlightSegment& segment, double dt_s);
  void changeAltitude(const FlightSegment& segment, double dt_s);
  void touchDown();
  void rollOut(double dt_s);
  void turn(const FlightSegment& segment, double dt_s);
  double headingFor(const FlightPath& path) const;
  void showAttitude(double dt_s);
  void rotate(double dt_s);
  void moveOverGround(double dt_s);
  void showSurfaces();
  void showSpeeds();
  void showAir();
  void findThrust(double dt_s);

  bool standing() const;
  double dynamicPressure_Pa() const;
  double liftCoefficientFor(double loadFactor) const;
  double angleOfAttackFor(double loadFactor) const;
  double standingAirspeed_m_s() const;

  Runway runway_;
  AircraftState state_;
  Air air_;
  SmoothFollower airspeed_m_s_;
  SmoothFollower verticalSpeed_m_s_;
  SmoothFollower bank_;
  SmoothFollower flaps_deg_;
  SmoothFollower gear_;
  SmoothFollower spoilers_;
  bool landed_ = false;
  double rotationRate_deg_s_ = 0;
  double pitchRate_deg_s_ = 0;
  double previousTrueAirspeed_m_s_ = 0;
  double requiredThrust_N_ = 0;
};

}  // namespace vorlent
