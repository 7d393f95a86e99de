#include "simulator/dynamics/FlightModel.h"

#include <algorithm>
#include <cmath>

#include "base/units.h"
#include "simulator/angles.h"

namespace vorlent {
namespace {

/// How far the weight presses the main struts of an aircraft that stands.
double standingSink_m(const GearData& gear, const MassProperties& mass) {
  const double weight_N = mass.mass_kg * StandardGravity_m_s2;
  const double wheelbase_m = gear.nose.place.x - gear.main.place.x;
  const double onMain = (gear.nose.place.x - mass.centre_m.x) / wheelbase_m;
  return weight_N * onMain / 2 / gear.main.spring_N_m;
}

/// Standing on three loaded struts.
double standingAltitude_m(const GearData& gear, const MassProperties& mass, double elevation_m) {
  return elevation_m + gear.main.place.z - mass.centre_m.z - standingSink_m(gear, mass);
}

Vector3 windBlowing(const LocalAxes& axes, const SteadyWind& wind) {
  const double from = wind.from_deg * RadiansPerDegree;
  return axes.north * (-wind.speed_m_s * std::cos(from)) +
         axes.east * (-wind.speed_m_s * std::sin(from));
}

}  // namespace

FlightModel::FlightModel(const PlantData& plant, const Settings& settings, const Start& start,
                         const ControlInputs& controls, const FuelLoad& fuel)
    : plant_(&plant),
      settings_(settings),
      mass_(massProperties(plant.mass, settings.addedMass_kg, fuel)),
      controls_(plant.controls),
      engines_{JetEngine(plant.engine, start.enginesRunning),
               JetEngine(plant.engine, start.enginesRunning)},
      turbulence_(settings.wind.turbulence, settings.wind.seed, plant.aero.span_m) {
  const bool airborne = start.trueAirspeed_m_s > 0;
  const double altitude_m = airborne
                                ? start.altitude_m
                                : standingAltitude_m(plant.gear, mass_, settings.groundElevation_m);
  body_ = bodyAt(start.place, altitude_m, {start.pitch_deg, 0, start.heading_deg}, {});
  onGround_ = !airborne;
  findAir();
  if (airborne) {
    const double heading = start.heading_deg * RadiansPerDegree;
    const LocalAxes axes = body_.axes();
    const Vector3 velocity = axes.north * (start.trueAirspeed_m_s * std::cos(heading)) +
                             axes.east * (start.trueAirspeed_m_s * std::sin(heading)) + wind_m_s_;
    body_ = bodyAt(start.place, altitude_m, {start.pitch_deg, 0, start.heading_deg},
                   {dot(velocity, axes.north), dot(velocity, axes.east), 0});
  }
  const FlowState at = flow();
  downwashOf_rad_ = at.attack_rad;
  controls_.settle(controls, onGround_, at.dynamicPressure_Pa);
  if (start.enginesRunning)
    for (std::size_t i = 0; i < EngineCount; ++i)
      engines_[i].settle({controls.thrustLever[i], true, false, onGround_}, air_, at.mach);
  placeWheels(controls);
  specificForce_m_s2_ = load(body_).force_N * (1 / mass_.mass_kg);
}

void FlightModel::step(const ControlInputs& controls, const FuelLoad& fuel) {
  ++steps_;
  mass_ = massProperties(plant_->mass, settings_.addedMass_kg, fuel);
  findAir();
  const FlowState at = flow();
  turbulence_.step(height_m_, at.speed_m_s, TimeStep_s);
  followDownwash(at);
  controls_.step(controls, onGround_, at.dynamicPressure_Pa, body_.rates_rad_s.z, TimeStep_s);
  runEngines(controls);
  placeWheels(controls);
  specificForce_m_s2_ = load(body_).force_N * (1 / mass_.mass_kg);
  const RigidBody before = body_;
  integrate(body_, mass_, TimeStep_s, [this](const RigidBody& b) { return load(b); });
  onGround_ =
      wheelHeight_m(plant_->gear, body_, mass_, settings_.groundElevation_m, wheels_.down) < 0;
  if (onGround_) holdStill(before);
  keepAboveGround();
}

void FlightModel::findAir() {
  const double altitude_m = body_.altitude_m();
  height_m_ = wheelHeight_m(plant_->gear, body_, mass_, settings_.groundElevation_m, true);
  air_ = standardAir(altitude_m);
  steadyWind_ = steadyWind(settings_.wind, altitude_m - settings_.groundElevation_m,
                           settings_.groundElevation_m);
  wind_m_s_ = windBlowing(body_.axes(), steadyWind_);
}

AirMotion FlightModel::airMotion(const RigidBody& body) const {
  const Gust& gust = turbulence_.gust();
  return {rotateBack(body.attitude, body.velocity_m_s - wind_m_s_) - gust.velocity_m_s,
          body.rates_rad_s - gust.rates_rad_s, air_, height_m_};
}

Load FlightModel::load(const RigidBody& body) const {
  const AirMotion motion = airMotion(body);
  Load sum = airLoad(plant_->aero, motion, surfacesInDownwash(flowOf(motion).attack_rad));
  sum.moment_Nm += cross(mass_.centre_m * -1, sum.force_N);
  sum += thrustLoad();
  sum += wheelLoad(plant_->gear, body, mass_, settings_.groundElevation_m, wheels_);
  return sum;
}

/// Downwash that is still missing, or still there, meets the tail like another angle of the
/// stabiliser.
Surfaces FlightModel::surfacesInDownwash(double attack_rad) const {
  constexpr double Most_rad = 0.2;  // on the ground the air may come from behind
  const double late_rad = std::clamp(attack_rad - downwashOf_rad_, -Most_rad, Most_rad);
  Surfaces surfaces = controls_.surfaces();
  surfaces.stabiliser_deg += plant_->aero.downwashSlope * late_rad / RadiansPerDegree;
  return surfaces;
}

/// A lag of first order as long as the air needs from the wing to the tail.
void FlightModel::followDownwash(const FlowState& at) {
  const double passed = at.speed_m_s * TimeStep_s / plant_->aero.tailArm_m;
  downwashOf_rad_ += (1 - std::exp(-passed)) * (at.attack_rad - downwashOf_rad_);
}

Load FlightModel::thrustLoad() const {
  Load sum;
  for (std::size_t i = 0; i < EngineCount; ++i) {
    const Vector3& right = plant_->engine.place;
    const Vector3 place{right.x, i == 0 ? -right.y : right.y, right.z};
    const Vector3 force{engines_[i].thrust_N(), 0, 0};
    sum += Load{force, cross(place - mass_.centre_m, force)};
  }
  return sum;
}

void FlightModel::runEngines(const ControlInputs& controls) {
  const double mach = flow().mach;
  for (std::size_t i = 0; i < EngineCount; ++i)
    engines_[i].step({controls.thrustLever[i], controls.fuelOn[i], controls.starter[i], onGround_},
                     air_, mach, TimeStep_s);
}

void FlightModel::placeWheels(const ControlInputs& controls) {
  constexpr double Taxi_m_s = 10;
  const double parked = controls.parkingBrake ? 1 : 0;
  const double speed_m_s = length(body_.velocity_m_s);
  const double tiller = std::clamp(1 - speed_m_s / Taxi_m_s, 0.0, 1.0);
  const double travel_deg =
      plant_->gear.pedalSteering_deg +
      tiller * (plant_->gear.tillerSteering_deg - plant_->gear.pedalSteering_deg);
  constexpr double Locked = 0.99;
  wheels_ = {std::max(controls.leftBrake, parked), std::max(controls.rightBrake, parked),
             std::clamp(controls.rudder, -1.0, 1.0) * travel_deg, surfaces().gear > Locked};
}

/// Friction that is smooth in the slip lets a braked aircraft creep; one that its brakes can hold
/// stands where it stood `before`.
void FlightModel::holdStill(const RigidBody& before) {
  constexpr double Creeping_m_s = 0.05;
  const double brake = std::min(wheels_.leftBrake, wheels_.rightBrake);
  if (brake < 0.5) return;
  constexpr double OnBrakedWheels = 0.9;  // estimate; the nose wheel carries the rest
  const double hold_N =
      brake * plant_->gear.brakeFriction * OnBrakedWheels * mass_.mass_kg * StandardGravity_m_s2;
  if (std::fabs(thrustLoad().force_N.x) > hold_N) return;
  const Vector3 up = unit(body_.position_m);
  const Vector3 level = body_.velocity_m_s - up * dot(body_.velocity_m_s, up);
  if (length(level) > Creeping_m_s) return;
  const EulerAngles now = eulerAngles(body_);
  const Vector3 sinking = body_.velocity_m_s - level;
  const Vector3 upInBody = rotateBack(body_.attitude, up);
  const Vector3 rates = body_.rates_rad_s - upInBody * dot(body_.rates_rad_s, upInBody);
  const double radius_m = length(body_.position_m);
  body_ = bodyAt(before.place(), body_.altitude_m(),
                 {now.pitch_deg, now.bank_deg, eulerAngles(before).heading_deg}, {});
  body_.position_m = unit(before.position_m) * radius_m;
  body_.velocity_m_s = sinking;
  body_.rates_rad_s = rates;
}

/// An aircraft that hit the ground with another part than its belly lies there.
void FlightModel::keepAboveGround() {
  const double below_m = settings_.groundElevation_m - body_.altitude_m();
  if (below_m <= 0) return;
  body_.position_m += unit(body_.position_m) * below_m;
  body_.velocity_m_s = {};
  body_.rates_rad_s = {};
}

void FlightModel::moveTo(const Place& place, double altitude_m, const EulerAngles& attitude) {
  const Vector3 velocity_m_s = rotateBack(body_.attitude, body_.velocity_m_s);
  const Vector3 rates_rad_s = body_.rates_rad_s;
  body_ = bodyAt(place, altitude_m, attitude, {});
  body_.velocity_m_s = rotate(body_.attitude, velocity_m_s);
  body_.rates_rad_s = rates_rad_s;
  standOnGround();
  findAir();
}

/// Lifts an aircraft that was put into the ground onto its wheels, or onto its belly.
void FlightModel::standOnGround() {
  const auto height_m = [this] {
    return wheelHeight_m(plant_->gear, body_, mass_, settings_.groundElevation_m, wheels_.down);
  };
  const double tooLow_m = -standingSink_m(plant_->gear, mass_) - height_m();
  if (tooLow_m > 0) body_.position_m += unit(body_.position_m) * tooLow_m;
  onGround_ = height_m() < 0;
}

AircraftState FlightModel::state() const {
  AircraftState s;
  s.elapsed_s = static_cast<double>(steps_) * TimeStep_s;
  s.place = body_.place();
  s.altitude_m = body_.altitude_m();
  s.groundElevation_m = settings_.groundElevation_m;
  s.onGround = onGround_;
  s.magneticVariation_deg = settings_.magneticVariation_deg;
  s.mass_kg = mass_.mass_kg;
  s.flaps_deg = surfaces().flaps_deg;
  s.gearDown = surfaces().gear;
  s.spoilers = surfaces().spoilers;
  for (std::size_t i = 0; i < EngineCount; ++i) s.engines[i] = engines_[i].state();
  showMotion(s);
  showAir(s);
  return s;
}

void FlightModel::showMotion(AircraftState& s) const {
  const EulerAngles attitude = eulerAngles(body_);
  s.pitch_deg = attitude.pitch_deg;
  s.bank_deg = attitude.bank_deg;
  s.heading_deg = attitude.heading_deg;
  const double bank = attitude.bank_deg * RadiansPerDegree;
  const double cosineOfPitch = std::max(0.01, std::cos(attitude.pitch_deg * RadiansPerDegree));
  // With the nose straight up or down there is no rate of heading; an instrument has an end.
  constexpr double MostTurn_deg_s = 180;
  s.turnRate_deg_s =
      std::clamp((body_.rates_rad_s.y * std::sin(bank) + body_.rates_rad_s.z * std::cos(bank)) /
                     cosineOfPitch / RadiansPerDegree,
                 -MostTurn_deg_s, MostTurn_deg_s);
  const Vector3 v = body_.localVelocity_m_s();
  s.verticalSpeed_m_s = -v.z;
  s.groundSpeed_m_s = std::hypot(v.x, v.y);
  s.track_deg = s.groundSpeed_m_s > 1 ? compass(std::atan2(v.y, v.x) / RadiansPerDegree)
                                      : attitude.heading_deg;
  // A crash has no bounds; an accelerometer has.
  constexpr double Most = 20;
  s.loadFactor = std::clamp(-specificForce_m_s2_.z / StandardGravity_m_s2, -Most, Most);
  s.slip = std::clamp(specificForce_m_s2_.y / StandardGravity_m_s2, -Most, Most);
}

void FlightModel::showAir(AircraftState& s) const {
  const FlowState at = flow();
  s.angleOfAttack_deg = at.attack_rad / RadiansPerDegree;
  // A pitot tube feels nothing of air that comes from behind.
  if (airMotion(body_).velocity_m_s.x > 0) {
    s.mach = at.mach;
    s.trueAirspeed_m_s = at.speed_m_s;
    s.calibratedAirspeed_m_s = calibratedOfMach(at.mach, air_.pressure_Pa);
  }
  s.limitSpeed_m_s = std::min(plant_->limitSpeed_kt * MetresPerSecondPerKnot,
                              calibratedOfMach(plant_->limitMach, air_.pressure_Pa));
  s.temperature_K = air_.temperature_K;
  s.totalTemperature_K = totalTemperature(air_.temperature_K, s.mach);
  s.windFrom_deg = steadyWind_.from_deg;
  s.windSpeed_m_s = steadyWind_.speed_m_s;
  s.surfaceWindTop_m = settings_.groundElevation_m + SurfaceWindTop_m;
}

}  // namespace vorlent
