#pragma once

#include <cstdint>

namespace vorlent {

struct Annunciators;
struct Autoflight;

/// The external autothrottle. Setting one of its modes is what a press or a decision of the cycle
/// does: of speed, N1, retard and throttle hold at most one is on. Mode flags are 1 when on.
class clsXAutoT {
 public:
  explicit clsXAutoT(Autoflight& autoflight) : autoflight_(autoflight) {}

  std::int16_t apAutoThrottle() const { return apAutoThrottle_; }
  /// Armed. Without it no law runs, and the modes stay as they are.
  void apAutoThrottle(std::int16_t value);
  std::int16_t apMachNumberHoldByRpm() const { return apMachNumberHoldByRpm_; }
  void apMachNumberHoldByRpm(std::int16_t value);
  std::int16_t apThrottleHold() const { return apThrottleHold_; }
  void apThrottleHold(std::int16_t value);
  std::int16_t apAirspeedHoldByRpm() const { return apAirspeedHoldByRpm_; }
  void apAirspeedHoldByRpm(std::int16_t value);
  std::int16_t apChangeover() const { return apChangeover_; }
  /// Takes the present Mach number as the target.
  void apChangeover(std::int16_t value);
  std::int16_t apRetard() const { return apRetard_; }
  void apRetard(std::int16_t value);
  std::int16_t apRpmHold() const { return apRpmHold_; }
  void apRpmHold(std::int16_t value);
  void KillThrottleModes();

  float apRpm() const { return apRpm_; }
  void apRpm(float percentN1) { apRpm_ = percentN1; }
  float apAirSpeed() const { return apAirSpeed_; }
  void apAirSpeed(float knots) { apAirSpeed_ = knots; }
  float ApMachNumber() const { return ApMachNumber_; }
  void ApMachNumber(float mach) { ApMachNumber_ = mach; }
  float apThrottleControlFactor() const { return apThrottleControlFactor_; }
  /// Percent of lever per knot.
  void apThrottleControlFactor(float factor) { apThrottleControlFactor_ = factor; }
  float RpmRamp() const { return RpmRamp_; }

  /// Shows what flies the thrust; nothing while the autothrottle is not armed.
  void annunciate(void (Annunciators::*flies)());

  /// The throttle laws of one cycle; trends in percent and knots a second.
  void run(double n1Trend_pct_s, double iasTrend_kt_s);
  /// A lever that would be at or below idle is not sent.
  void HoldRpm(double trend_pct_s);
  void HoldAirspeedByRpm(double trend_kt_s);

 private:
  Autoflight& autoflight_;
  std::int16_t apAutoThrottle_ = 0;
  std::int16_t apMachNumberHoldByRpm_ = 0;
  std::int16_t apThrottleHold_ = 0;
  std::int16_t apAirspeedHoldByRpm_ = 0;
  std::int16_t apChangeover_ = 0;
  std::int16_t apRetard_ = 0;
  std::int16_t apRpmHold_ = 0;
  float apRpm_ = 0;
  float apAirSpeed_ = 0;
  float ApMachNumber_ = 0;
  float apThrottleControlFactor_ = 0;
  float RpmRamp_ = 0;
};

}  // namespace vorlent
