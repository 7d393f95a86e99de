#include "simulator/FlightMotion.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/units.h"
#include "simulator/angles.h"

namespace vorlent {
namespace {

constexpr double G = StandardGravity_m_s2;

// The scripted flight has to be consistent, not to be a certain type: its sizes, rates and drag are
// estimates for a twin jet.

constexpr std::array FlapsAngle_deg{0.0, 1.0, 2.0, 5.0, 10.0, 15.0, 25.0, 30.0, 40.0};

// A wing of 125 square metres with the usual drag polar CD = CD0 + k CL^2.
constexpr double WingArea_m2 = 124.6;
constexpr double LiftPerRadian = 5.3;
constexpr double LiftAtZero = 0.18;
constexpr double LiftOfFullFlaps = 0.75;
constexpr double DragAtZero = 0.019;
constexpr double DragPerLiftSquared = 0.043;
constexpr double DragPerFlapDegree = 0.0011;
constexpr double DragOfGear = 0.018;
constexpr double DragOfSpoilers = 0.030;
constexpr double RollingFriction = 0.015;

constexpr double RotationSpeed_kt = 138;
constexpr double SlowestFlight_kt = 100;
constexpr double MaximumBank_deg = 25;
constexpr double LimitSpeed_kt = 340;
constexpr double LimitMach = 0.82;

constexpr FollowerLimits FlapsMotion{1.5, 1.0, 0.5};
constexpr FollowerLimits GearMotion{0.12, 0.12, 0.5};
constexpr FollowerLimits SpoilersMotion{0.3, 0.3, 0.5};
constexpr FollowerLimits BankMotion{6.0, 4.0, 1.5};
constexpr FollowerLimits VerticalMotion{1.0, 0.4, 3.0};
constexpr double SpeedJerk_m_s3 = 0.5;
constexpr double SpeedSettling_s = 6.0;
constexpr double CaptureAcceleration_m_s2 = 0.5;
constexpr double CaptureSettling_s = 8.0;
constexpr double BankPerHeadingError = 1.2;
constexpr double RotationRate_deg_s = 2.5;
constexpr double RotationAcceleration_deg_s2 = 1.5;

constexpr double SurfaceWind_kt = 10;
constexpr double WindGain_kt_per_m = 45.0 / 8000;
constexpr double WindTop_m = 8000;
constexpr double WindVeer_deg_per_m = 40.0 / 8000;

}  // namespace

FlightMotion::FlightMotion(const Runway& runway)
    : runway_(runway),
      air_(standardAir(runway.elevation_m)),
      flaps_deg_(FlapsAngle_deg[3]),
      gear_(1) {
  state_.place = runway.threshold;
  state_.altitude_m = state_.groundElevation_m = runway.elevation_m;
  state_.heading_deg = runway.course_deg;
  state_.magneticVariation_deg = runway.magneticVariation_deg;
  showAir();
  airspeed_m_s_ = SmoothFollower(standingAirspeed_m_s());
  showSpeeds();
  showSurfaces();
  previousTrueAirspeed_m_s_ = state_.trueAirspeed_m_s;
}

void FlightMotion::step(const FlightSegment& segment, double mass_kg, double dt_s) {
  state_.mass_kg = mass_kg;
  moveSurfaces(segment, dt_s);
  changeAltitude(segment, dt_s);
  air_ = standardAir(state_.altitude_m);
  changeSpeed(segment, dt_s);
  turn(segment, dt_s);
  showAttitude(dt_s);
  showAir();
  moveOverGround(dt_s);
  findThrust(dt_s);
}

void FlightMotion::moveSurfaces(const FlightSegment& segment, double dt_s) {
  flaps_deg_.step(FlapsAngle_deg[static_cast<std::size_t>(segment.flapsDetent)], FlapsMotion, dt_s);
  gear_.step(segment.gearDown ? 1 : 0, GearMotion, dt_s);
  spoilers_.step(segment.spoilers, SpoilersMotion, dt_s);
  showSurfaces();
}

void FlightMotion::showSurfaces() {
  state_.flaps_deg = std::clamp(flaps_deg_.value(), 0.0, FlapsAngle_deg.back());
  state_.gearDown = std::clamp(gear_.value(), 0.0, 1.0);
  state_.spoilers = std::clamp(spoilers_.value(), 0.0, 1.0);
}

void FlightMotion::changeSpeed(const FlightSegment& segment, double dt_s) {
  const double slowest_m_s =
      state_.onGround ? standingAirspeed_m_s() : SlowestFlight_kt * MetresPerSecondPerKnot;
  const double target_m_s = std::max(segment.airspeed_kt * MetresPerSecondPerKnot, slowest_m_s);
  airspeed_m_s_.step(
      target_m_s,
      {segment.acceleration_kt_s * MetresPerSecondPerKnot, SpeedJerk_m_s3, SpeedSettling_s}, dt_s);
  showSpeeds();
}

void FlightMotion::showSpeeds() {
  state_.calibratedAirspeed_m_s = airspeed_m_s_.value();
  state_.mach = machOfCalibrated(state_.calibratedAirspeed_m_s, air_.pressure_Pa);
  state_.trueAirspeed_m_s = state_.mach * air_.soundSpeed_m_s;
}

void FlightMotion::changeAltitude(const FlightSegment& segment, double dt_s) {
  if (state_.onGround) return;
  const double gap_m = segment.altitude_ft * MetresPerFoot - state_.altitude_m;
  const double most_m_s = std::min(segment.verticalSpeed_ft_min * MetresPerSecondPerFpm,
                                   std::sqrt(CaptureAcceleration_m_s2 * std::fabs(gap_m)));
  verticalSpeed_m_s_.step(std::clamp(gap_m / CaptureSettling_s, -most_m_s, most_m_s),
                          VerticalMotion, dt_s);
  state_.verticalSpeed_m_s = verticalSpeed_m_s_.value();
  state_.altitude_m += state_.verticalSpeed_m_s * dt_s;
  if (state_.verticalSpeed_m_s < 0 && state_.altitude_m <= runway_.elevation_m) touchDown();
}

void FlightMotion::touchDown() {
  landed_ = state_.onGround = true;
  state_.altitude_m = runway_.elevation_m;
  state_.loadFactor = 1;
  state_.bank_deg = state_.turnRate_deg_s = 0;
  bank_ = SmoothFollower(0);
}

/// The struts give way, and the nose comes down.
void FlightMotion::rollOut(double dt_s) {
  constexpr double Struts_s = 0.3;
  constexpr double Lowering_deg_s = 2;
  state_.verticalSpeed_m_s *= std::exp(-dt_s / Struts_s);
  state_.pitch_deg = std::max(0.0, state_.pitch_deg - Lowering_deg_s * dt_s);
  state_.angleOfAttack_deg = state_.pitch_deg;
}

void FlightMotion::turn(const FlightSegment& segment, double dt_s) {
  if (state_.onGround) return;
  const double error_deg = signedAngle(headingFor(segment.path) - state_.heading_deg);
  bank_.step(std::clamp(BankPerHeadingError * error_deg, -MaximumBank_deg, MaximumBank_deg),
             BankMotion, dt_s);
  state_.bank_deg = bank_.value();
  // A turn in which the wings carry all of the sideways force.
  state_.turnRate_deg_s =
      G * std::tan(state_.bank_deg * RadiansPerDegree) / state_.trueAirspeed_m_s / RadiansPerDegree;
  state_.heading_deg = compass(state_.heading_deg + state_.turnRate_deg_s * dt_s);
}

/// To the centreline at up to 30 degrees, gently near it; the heading leads the track by the drift.
double FlightMotion::headingFor(const FlightPath& path) const {
  if (!path.onCentreline) return path.heading_deg;
  constexpr double Steepest_deg = 30;
  constexpr double PerMetre_deg = 0.006;
  const double fromThreshold_deg = bearing_deg(runway_.threshold, state_.place);
  const double offset_m = distanceBetween_m(state_.place, runway_.threshold) *
                          std::sin((fromThreshold_deg - 180 - path.heading_deg) * RadiansPerDegree);
  const double track_deg =
      path.heading_deg + std::clamp(offset_m * PerMetre_deg, -Steepest_deg, Steepest_deg);
  return state_.heading_deg + signedAngle(track_deg - state_.track_deg);
}

void FlightMotion::showAttitude(double dt_s) {
  const double before_deg = state_.pitch_deg;
  if (landed_) {
    rollOut(dt_s);
  } else if (state_.onGround) {
    rotate(dt_s);
  } else {
    const double cosineOfBank = std::cos(state_.bank_deg * RadiansPerDegree);
    state_.loadFactor = (1 + verticalSpeed_m_s_.rate() / G) / cosineOfBank;
    state_.angleOfAttack_deg = angleOfAttackFor(state_.loadFactor);
    const double path_deg =
        std::asin(state_.verticalSpeed_m_s / state_.trueAirspeed_m_s) / RadiansPerDegree;
    state_.pitch_deg = path_deg + state_.angleOfAttack_deg * cosineOfBank;
  }
  pitchRate_deg_s_ = (state_.pitch_deg - before_deg) / dt_s;
}

/// Lifts the nose from the rotation speed on, until the wing carries the weight.
void FlightMotion::rotate(double dt_s) {
  if (state_.calibratedAirspeed_m_s < RotationSpeed_kt * MetresPerSecondPerKnot) return;
  rotationRate_deg_s_ =
      std::min(RotationRate_deg_s, rotationRate_deg_s_ + RotationAcceleration_deg_s2 * dt_s);
  const double liftOff_deg = angleOfAttackFor(1);
  state_.pitch_deg = std::min(state_.pitch_deg + rotationRate_deg_s_ * dt_s, liftOff_deg);
  state_.angleOfAttack_deg = state_.pitch_deg;
  state_.onGround = state_.pitch_deg < liftOff_deg;
}

void FlightMotion::showAir() {
  const double above_m = state_.altitude_m - runway_.elevation_m;
  state_.windFrom_deg = compass(runway_.course_deg + WindVeer_deg_per_m * above_m);
  state_.windSpeed_m_s = (SurfaceWind_kt + WindGain_kt_per_m * above_m) * MetresPerSecondPerKnot;
  state_.surfaceWindTop_m = WindTop_m;
  state_.temperature_K = air_.temperature_K;
  state_.totalTemperature_K = totalTemperature(air_.temperature_K, state_.mach);
  state_.limitSpeed_m_s = std::min(LimitSpeed_kt * MetresPerSecondPerKnot,
                                   calibratedOfMach(LimitMach, air_.pressure_Pa));
}

void FlightMotion::moveOverGround(double dt_s) {
  const double level_m_s =
      std::sqrt(std::max(0.0, state_.trueAirspeed_m_s * state_.trueAirspeed_m_s -
                                  state_.verticalSpeed_m_s * state_.verticalSpeed_m_s));
  const double heading = state_.heading_deg * RadiansPerDegree;
  const double windFrom = state_.windFrom_deg * RadiansPerDegree;
  const double north_m_s =
      level_m_s * std::cos(heading) - state_.windSpeed_m_s * std::cos(windFrom);
  const double east_m_s = level_m_s * std::sin(heading) - state_.windSpeed_m_s * std::sin(windFrom);
  state_.groundSpeed_m_s = std::hypot(north_m_s, east_m_s);
  state_.track_deg = state_.onGround ? state_.heading_deg
                                     : compass(std::atan2(east_m_s, north_m_s) / RadiansPerDegree);
  state_.place = placeFrom(state_.place, state_.track_deg, state_.groundSpeed_m_s * dt_s);
}

void FlightMotion::findThrust(double dt_s) {
  const double weight_N = state_.mass_kg * G;
  const double acceleration_m_s2 = (state_.trueAirspeed_m_s - previousTrueAirspeed_m_s_) / dt_s;
  previousTrueAirspeed_m_s_ = state_.trueAirspeed_m_s;

  const double lift = state_.onGround
                          ? LiftAtZero + LiftPerRadian * state_.angleOfAttack_deg * RadiansPerDegree
                          : liftCoefficientFor(state_.loadFactor);
  const double drag = DragAtZero + DragPerLiftSquared * lift * lift +
                      DragPerFlapDegree * state_.flaps_deg + DragOfGear * state_.gearDown +
                      DragOfSpoilers * state_.spoilers;
  requiredThrust_N_ = dynamicPressure_Pa() * WingArea_m2 * drag +
                      state_.mass_kg * acceleration_m_s2 +
                      weight_N * state_.verticalSpeed_m_s / state_.trueAirspeed_m_s;
  if (state_.onGround) requiredThrust_N_ += RollingFriction * weight_N;
  if (standing()) requiredThrust_N_ = 0;
}

/// Held by the brakes against the wind.
bool FlightMotion::standing() const {
  constexpr double SlowestRoll_m_s = 0.01;
  return state_.onGround && state_.groundSpeed_m_s < SlowestRoll_m_s;
}

double FlightMotion::dynamicPressure_Pa() const {
  return 0.5 * air_.density_kg_m3 * state_.trueAirspeed_m_s * state_.trueAirspeed_m_s;
}

double FlightMotion::liftCoefficientFor(double loadFactor) const {
  return loadFactor * state_.mass_kg * G / (dynamicPressure_Pa() * WingArea_m2);
}

double FlightMotion::angleOfAttackFor(double loadFactor) const {
  const double flapsLift = LiftOfFullFlaps * (1 - std::exp(-state_.flaps_deg / 6));
  return (liftCoefficientFor(loadFactor) - LiftAtZero - flapsLift) / LiftPerRadian /
         RadiansPerDegree;
}

/// What the wind alone makes on the aircraft at rest.
double FlightMotion::standingAirspeed_m_s() const {
  return calibratedOfMach(state_.windSpeed_m_s / air_.soundSpeed_m_s, air_.pressure_Pa);
}

}  // namespace vorlent
