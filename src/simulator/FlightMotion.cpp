#include "simulator/FlightMotion.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/units.h"
#include "simulator/angles.h"

namespace vorlent {
namespace {

constexpr double g = standardGravity_m_s2;

// The scripted flight has to be consistent, not to be a certain type: its sizes, rates and drag are
// estimates for a twin jet.

constexpr std::array flapsAngle_deg{0.0, 1.0, 2.0, 5.0, 10.0, 15.0, 25.0, 30.0, 40.0};

// A wing of 125 square metres with the usual drag polar CD = CD0 + k CL^2.
constexpr double wingArea_m2 = 124.6;
constexpr double liftPerRadian = 5.3;
constexpr double liftAtZero = 0.18;
constexpr double liftOfFullFlaps = 0.75;
constexpr double dragAtZero = 0.019;
constexpr double dragPerLiftSquared = 0.043;
constexpr double dragPerFlapDegree = 0.0011;
constexpr double dragOfGear = 0.018;
constexpr double dragOfSpoilers = 0.030;
constexpr double rollingFriction = 0.015;

constexpr double rotationSpeed_kt = 138;
constexpr double maximumBank_deg = 25;
constexpr double limitSpeed_kt = 340;
constexpr double limitMach = 0.82;

constexpr FollowerLimits flapsMotion{1.5, 1.0, 0.5};
constexpr FollowerLimits gearMotion{0.12, 0.12, 0.5};
constexpr FollowerLimits spoilersMotion{0.3, 0.3, 0.5};
constexpr FollowerLimits bankMotion{6.0, 4.0, 1.5};
constexpr FollowerLimits verticalMotion{1.0, 0.4, 3.0};
constexpr double speedJerk_m_s3 = 0.5;
constexpr double speedSettling_s = 6.0;
constexpr double captureAcceleration_m_s2 = 0.5;
constexpr double captureSettling_s = 8.0;
constexpr double bankPerHeadingError = 1.2;
constexpr double rotationRate_deg_s = 2.5;
constexpr double rotationAcceleration_deg_s2 = 1.5;

constexpr double surfaceWind_kt = 10;
constexpr double windGain_kt_per_m = 45.0 / 8000;
constexpr double windTop_m = 8000;
constexpr double windVeer_deg_per_m = 40.0 / 8000;

}  // namespace

FlightMotion::FlightMotion(const Runway& runway)
    : runway_(runway),
      air_(standardAir(runway.elevation_m)),
      flaps_deg_(flapsAngle_deg[3]),
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
  flaps_deg_.step(flapsAngle_deg[static_cast<std::size_t>(segment.flapsDetent)], flapsMotion, dt_s);
  gear_.step(segment.gearDown ? 1 : 0, gearMotion, dt_s);
  spoilers_.step(segment.spoilers, spoilersMotion, dt_s);
  showSurfaces();
}

void FlightMotion::showSurfaces() {
  state_.flaps_deg = std::clamp(flaps_deg_.value(), 0.0, flapsAngle_deg.back());
  state_.gearDown = std::clamp(gear_.value(), 0.0, 1.0);
  state_.spoilers = std::clamp(spoilers_.value(), 0.0, 1.0);
}

void FlightMotion::changeSpeed(const FlightSegment& segment, double dt_s) {
  const double target_m_s =
      std::max(segment.airspeed_kt * MetresPerSecondPerKnot, standingAirspeed_m_s());
  airspeed_m_s_.step(
      target_m_s,
      {segment.acceleration_kt_s * MetresPerSecondPerKnot, speedJerk_m_s3, speedSettling_s}, dt_s);
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
                                   std::sqrt(captureAcceleration_m_s2 * std::fabs(gap_m)));
  verticalSpeed_m_s_.step(std::clamp(gap_m / captureSettling_s, -most_m_s, most_m_s),
                          verticalMotion, dt_s);
  state_.verticalSpeed_m_s = verticalSpeed_m_s_.value();
  state_.altitude_m += state_.verticalSpeed_m_s * dt_s;
}

void FlightMotion::turn(const FlightSegment& segment, double dt_s) {
  if (state_.onGround) return;
  const double error_deg = signedAngle(headingFor(segment.path) - state_.heading_deg);
  bank_.step(std::clamp(bankPerHeadingError * error_deg, -maximumBank_deg, maximumBank_deg),
             bankMotion, dt_s);
  state_.bank_deg = bank_.value();
  // A turn in which the wings carry all of the sideways force.
  state_.turnRate_deg_s =
      g * std::tan(state_.bank_deg * RadiansPerDegree) / state_.trueAirspeed_m_s / RadiansPerDegree;
  state_.heading_deg = compass(state_.heading_deg + state_.turnRate_deg_s * dt_s);
}

/// To the centreline at up to 30 degrees, gently near it; the heading leads the track by the drift.
double FlightMotion::headingFor(const FlightPath& path) const {
  if (!path.onCentreline) return path.heading_deg;
  constexpr double steepest_deg = 30;
  constexpr double perMetre_deg = 0.006;
  const double fromThreshold_deg = bearing_deg(runway_.threshold, state_.place);
  const double offset_m = distanceBetween_m(state_.place, runway_.threshold) *
                          std::sin((fromThreshold_deg - 180 - path.heading_deg) * RadiansPerDegree);
  const double track_deg =
      path.heading_deg + std::clamp(offset_m * perMetre_deg, -steepest_deg, steepest_deg);
  return state_.heading_deg + signedAngle(track_deg - state_.track_deg);
}

void FlightMotion::showAttitude(double dt_s) {
  const double before_deg = state_.pitch_deg;
  if (state_.onGround) {
    rotate(dt_s);
  } else {
    const double cosineOfBank = std::cos(state_.bank_deg * RadiansPerDegree);
    state_.loadFactor = (1 + verticalSpeed_m_s_.rate() / g) / cosineOfBank;
    state_.angleOfAttack_deg = angleOfAttackFor(state_.loadFactor);
    const double path_deg =
        std::asin(state_.verticalSpeed_m_s / state_.trueAirspeed_m_s) / RadiansPerDegree;
    state_.pitch_deg = path_deg + state_.angleOfAttack_deg * cosineOfBank;
  }
  pitchRate_deg_s_ = (state_.pitch_deg - before_deg) / dt_s;
}

/// Lifts the nose from the rotation speed on, until the wing carries the weight.
void FlightMotion::rotate(double dt_s) {
  if (state_.calibratedAirspeed_m_s < rotationSpeed_kt * MetresPerSecondPerKnot) return;
  rotationRate_deg_s_ =
      std::min(rotationRate_deg_s, rotationRate_deg_s_ + rotationAcceleration_deg_s2 * dt_s);
  const double liftOff_deg = angleOfAttackFor(1);
  state_.pitch_deg = std::min(state_.pitch_deg + rotationRate_deg_s_ * dt_s, liftOff_deg);
  state_.angleOfAttack_deg = state_.pitch_deg;
  state_.onGround = state_.pitch_deg < liftOff_deg;
}

void FlightMotion::showAir() {
  const double above_m = state_.altitude_m - runway_.elevation_m;
  state_.windFrom_deg = compass(runway_.course_deg + windVeer_deg_per_m * above_m);
  state_.windSpeed_m_s = (surfaceWind_kt + windGain_kt_per_m * above_m) * MetresPerSecondPerKnot;
  state_.surfaceWindTop_m = windTop_m;
  state_.temperature_K = air_.temperature_K;
  state_.totalTemperature_K = totalTemperature(air_.temperature_K, state_.mach);
  state_.limitSpeed_m_s = std::min(limitSpeed_kt * MetresPerSecondPerKnot,
                                   calibratedOfMach(limitMach, air_.pressure_Pa));
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
  const double weight_N = state_.mass_kg * g;
  const double acceleration_m_s2 = (state_.trueAirspeed_m_s - previousTrueAirspeed_m_s_) / dt_s;
  previousTrueAirspeed_m_s_ = state_.trueAirspeed_m_s;

  const double lift = state_.onGround
                          ? liftAtZero + liftPerRadian * state_.angleOfAttack_deg * RadiansPerDegree
                          : liftCoefficientFor(state_.loadFactor);
  const double drag = dragAtZero + dragPerLiftSquared * lift * lift +
                      dragPerFlapDegree * state_.flaps_deg + dragOfGear * state_.gearDown +
                      dragOfSpoilers * state_.spoilers;
  requiredThrust_N_ = dynamicPressure_Pa() * wingArea_m2 * drag +
                      state_.mass_kg * acceleration_m_s2 +
                      weight_N * state_.verticalSpeed_m_s / state_.trueAirspeed_m_s;
  if (state_.onGround) requiredThrust_N_ += rollingFriction * weight_N;
  if (standing()) requiredThrust_N_ = 0;
}

/// Held by the brakes against the wind.
bool FlightMotion::standing() const {
  constexpr double slowestRoll_m_s = 0.01;
  return state_.onGround && state_.groundSpeed_m_s < slowestRoll_m_s;
}

double FlightMotion::dynamicPressure_Pa() const {
  return 0.5 * air_.density_kg_m3 * state_.trueAirspeed_m_s * state_.trueAirspeed_m_s;
}

double FlightMotion::liftCoefficientFor(double loadFactor) const {
  return loadFactor * state_.mass_kg * g / (dynamicPressure_Pa() * wingArea_m2);
}

double FlightMotion::angleOfAttackFor(double loadFactor) const {
  const double flapsLift = liftOfFullFlaps * (1 - std::exp(-state_.flaps_deg / 6));
  return (liftCoefficientFor(loadFactor) - liftAtZero - flapsLift) / liftPerRadian /
         RadiansPerDegree;
}

/// What the wind alone makes on the aircraft at rest.
double FlightMotion::standingAirspeed_m_s() const {
  return calibratedOfMach(state_.windSpeed_m_s / air_.soundSpeed_m_s, air_.pressure_Pa);
}

}  // namespace vorlent
