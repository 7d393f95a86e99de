#pragma once

#include <algorithm>
#include <cmath>

#include "Flying.h"
#include "simulator/angles.h"

namespace vorlent {

/// Flies by the yoke, the trim and the levers, as a pilot does who follows a flight director.
class TestPilot {
 public:
  explicit TestPilot(Flying& flying) : f_(flying), pitch_deg_(flying.state.pitch_deg) {}

  void holdPitch(double pitch_deg) {
    pitch_deg_ = pitch_deg;
    steer();
  }
  /// The nose keeps the speed: the path goes up by what thrust leaves over drag, less what the
  /// speed is to take of it.
  void holdSpeedByPitch(double cas_kt) {
    const double wanted_kt_s = std::clamp(0.06 * (cas_kt - f_.cas_kt()), -0.7, 0.7);
    const double wanted_deg = energyAngle_deg_ - angleOf(wanted_kt_s) + attack_deg_;
    pitch_deg_ += std::clamp(wanted_deg - pitch_deg_, -1.5 * tick_s, 1.5 * tick_s);
    pitch_deg_ = std::clamp(pitch_deg_, -8.0, 18.0);
    steer();
  }
  void holdClimb(double climb_fpm) {
    const double error_fpm = std::clamp(climb_fpm - f_.climb_fpm(), -1500.0, 1500.0);
    pitch_deg_ += 0.0012 * error_fpm * tick_s * 100 / std::max(60.0, f_.state.trueAirspeed_m_s);
    pitch_deg_ = std::clamp(pitch_deg_, -8.0, 18.0);
    steer(pitch_deg_ + 0.002 * error_fpm * 70 / std::max(60.0, f_.state.trueAirspeed_m_s));
  }
  void holdAltitude(double altitude_ft) {
    holdClimb(std::clamp(8 * (altitude_ft - f_.altitude_ft()), -1000.0, 1000.0));
  }
  /// The levers keep the speed.
  void holdSpeedByThrust(double cas_kt) {
    const double wanted_kt_s = std::clamp(0.1 * (cas_kt - f_.cas_kt()), -1.0, 1.0);
    lever_ = std::clamp(
        f_.controls.thrustLever[0] + 0.06 * (wanted_kt_s - acceleration_kt_s_) * tick_s, 0.0, 1.0);
    levers(lever_);
  }
  void levers(double lever) { f_.controls.thrustLever = {lever, lever}; }

  double acceleration_kt_s() const { return acceleration_kt_s_; }

 private:
  static constexpr double tick_s = 1.0 / 120;

  void steer() { steer(pitch_deg_); }
  void steer(double pitch_deg) {
    const Vector3 rates_deg_s = f_.model.body().rates_rad_s * 57.29578;
    const double before_kt = f_.cas_kt();
    const double nose = 0.08 * (pitch_deg - f_.state.pitch_deg) - 0.06 * rates_deg_s.y;
    f_.controls.elevator = std::clamp(nose, -1.0, 1.0);
    if (!f_.state.onGround)
      f_.controls.elevatorTrim =
          std::clamp(f_.controls.elevatorTrim + 0.08 * f_.controls.elevator * tick_s, -1.0, 1.0);
    const double off_deg = signedAngle(240 - f_.state.heading_deg);
    const double bank_deg = std::clamp(1.5 * off_deg, -20.0, 20.0);
    f_.controls.aileron =
        std::clamp(0.03 * (bank_deg - f_.state.bank_deg) - 0.02 * rates_deg_s.x, -1.0, 1.0);
    f_.controls.rudder = f_.state.onGround ? std::clamp(0.1 * off_deg, -1.0, 1.0) : 0;
    f_.tick();
    const double now_kt_s = (f_.cas_kt() - before_kt) / tick_s;
    acceleration_kt_s_ += (now_kt_s - acceleration_kt_s_) * tick_s / 1.0;
    watchEnergy(now_kt_s);
  }
  /// The climb angle that would take this acceleration, in degrees.
  double angleOf(double acceleration_kt_s) const {
    const double stretch =
        f_.state.trueAirspeed_m_s / std::max(20.0, f_.state.calibratedAirspeed_m_s);
    return acceleration_kt_s * stretch * 1852 / 3600 / 9.80665 * 57.29578;
  }
  void watchEnergy(double acceleration_kt_s) {
    constexpr double calm_s = 3;
    const double path_deg =
        57.29578 * f_.state.verticalSpeed_m_s / std::max(20.0, f_.state.trueAirspeed_m_s);
    const double share = tick_s / calm_s;
    energyAngle_deg_ += (path_deg + angleOf(acceleration_kt_s) - energyAngle_deg_) * share;
    attack_deg_ += (f_.state.pitch_deg - path_deg - attack_deg_) * share;
  }

  Flying& f_;
  double pitch_deg_;
  double lever_ = 0;
  double acceleration_kt_s_ = 0;
  double energyAngle_deg_ = 0;
  double attack_deg_ = f_.state.angleOfAttack_deg;
};

/// A mean over the ticks at which it was fed.
class Mean {
 public:
  void add(double value) {
    sum_ += value;
    ++count_;
  }
  double value() const { return sum_ / static_cast<double>(count_); }

 private:
  double sum_ = 0;
  long count_ = 0;
};

}  // namespace vorlent
