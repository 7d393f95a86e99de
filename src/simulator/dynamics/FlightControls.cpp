#include "simulator/dynamics/FlightControls.h"

#include <algorithm>
#include <cmath>

#include "base/units.h"

namespace vorlent {
namespace {

double limited(double value, double most) { return std::clamp(value, -most, most); }

double towards(double value, double target, double most) {
  return value + limited(target - value, most);
}

/// What the hydraulics can hold of a travel against the air.
double held(double fullUpTo_Pa, double dynamicPressure_Pa) {
  return std::min(1.0, fullUpTo_Pa / std::max(dynamicPressure_Pa, 1.0));
}

/// What the controls ask of the surfaces that follow with a lag.
struct Wanted {
  double elevator_deg;
  double aileron;
  double rudder_deg;
};

Wanted wantedBy(const ControlInputs& in, const ControlData& data, double dynamicPressure_Pa) {
  const double aileron_deg = limited(in.aileron, 1) * data.aileronTravel_deg + in.aileronTrim_deg;
  const double rudder_deg = limited(in.rudder, 1) * data.rudderTravel_deg + in.rudderTrim_deg;
  return {limited(in.elevator, 1) * data.elevatorTravel_deg *
              held(data.elevatorFullUpTo_Pa, dynamicPressure_Pa),
          limited(aileron_deg / data.aileronTravel_deg, 1) * aileronLeft(data, dynamicPressure_Pa),
          limited(rudder_deg, data.rudderTravel_deg) *
              held(data.rudderFullUpTo_Pa, dynamicPressure_Pa)};
}

}  // namespace

double stabiliserAngle_deg(const ControlData& data, double trim) {
  const double share = (limited(trim, 1) + 1) / 2;
  return data.stabiliserNoseDown_deg +
         share * (data.stabiliserNoseUp_deg - data.stabiliserNoseDown_deg);
}

double flapAngle_deg(double detent) {
  const double within = std::clamp(detent, 0.0, FlapDetentCount - 1.0);
  const auto i = std::min(static_cast<std::size_t>(within), FlapDetentCount - 2);
  return FlapAngles_deg[i] +
         (within - static_cast<double>(i)) * (FlapAngles_deg[i + 1] - FlapAngles_deg[i]);
}

void FlightControls::settle(const ControlInputs& in, bool onGround, double dynamicPressure_Pa) {
  const Wanted wanted = wantedBy(in, *data_, dynamicPressure_Pa);
  flapDetent_ = std::clamp(in.flapDetent, 0.0, FlapDetentCount - 1.0);
  surfaces_ = {flapAngle_deg(flapDetent_),
               in.gearDown ? 1.0 : 0.0,
               spoilersFor(in, onGround),
               wanted.elevator_deg,
               stabiliserAngle_deg(*data_, in.elevatorTrim),
               wanted.aileron,
               wanted.rudder_deg};
}

void FlightControls::step(const ControlInputs& in, bool onGround, double dynamicPressure_Pa,
                          double yawRate_rad_s, double dt_s) {
  const Wanted wanted = wantedBy(in, *data_, dynamicPressure_Pa);
  const double detent = std::clamp(in.flapDetent, 0.0, FlapDetentCount - 1.0);
  flapDetent_ = towards(flapDetent_, detent, data_->flapRate_detents_s * dt_s);
  surfaces_.flaps_deg = flapAngle_deg(flapDetent_);
  surfaces_.gear = towards(surfaces_.gear, in.gearDown ? 1 : 0, dt_s / data_->gearTime_s);
  surfaces_.spoilers =
      towards(surfaces_.spoilers, spoilersFor(in, onGround), dt_s / data_->spoilerTime_s);
  const double follow = 1 - std::exp(-dt_s / data_->surfaceLag_s);
  const double followTrim = 1 - std::exp(-dt_s / data_->trimLag_s);
  const double rudder_deg = wanted.rudder_deg + dampedYaw_deg(in.yawDamper, yawRate_rad_s, dt_s);
  surfaces_.elevator_deg += follow * (wanted.elevator_deg - surfaces_.elevator_deg);
  surfaces_.aileron += follow * (wanted.aileron - surfaces_.aileron);
  surfaces_.rudder_deg += follow * (rudder_deg - surfaces_.rudder_deg);
  surfaces_.stabiliser_deg +=
      followTrim * (stabiliserAngle_deg(*data_, in.elevatorTrim) - surfaces_.stabiliser_deg);
}

/// In the air the ground spoilers stay down (the type's operations manual).
double FlightControls::spoilersFor(const ControlInputs& in, bool onGround) const {
  return std::clamp(in.spoilers, 0.0, onGround ? 1.0 : data_->spoilersInFlight);
}

/// Rudder against the quick part of the yaw rate; a steady turn is washed out.
double FlightControls::dampedYaw_deg(bool on, double yawRate_rad_s, double dt_s) {
  washedOut_rad_s_ +=
      (1 - std::exp(-dt_s / data_->yawDamperWashout_s)) * (yawRate_rad_s - washedOut_rad_s_);
  if (!on) return 0;
  const double quick_rad_s = yawRate_rad_s - washedOut_rad_s_;
  return limited(-data_->yawDamperGain_s * quick_rad_s / RadiansPerDegree,
                 data_->yawDamperAuthority_deg);
}

}  // namespace vorlent
