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

  std::int16_t apAutoThrottle() const { return modes_.autoThrottle; }
  /// Armed. Without it no law runs, and the modes stay as they are.
  void apAutoThrottle(std::int16_t value);
  std::int16_t apMachNumberHoldByRpm() const { return modes_.machHold; }
  /// Speed by pitch then takes its target from the Mach number.
  void apMachNumberHoldByRpm(std::int16_t value);
  std::int16_t apThrottleHold() const { return modes_.throttleHold; }
  void apThrottleHold(std::int16_t value);
  std::int16_t apAirspeedHoldByRpm() const { return modes_.airspeedHold; }
  void apAirspeedHoldByRpm(std::int16_t value);
  std::int16_t apChangeover() const { return modes_.changeover; }
  /// Takes the present Mach number as the target.
  void apChangeover(std::int16_t value);
  std::int16_t apRetard() const { return modes_.retard; }
  void apRetard(std::int16_t value);
  std::int16_t apRpmHold() const { return modes_.rpmHold; }
  void apRpmHold(std::int16_t value);
  void KillThrottleModes();

  float apRpm() const { return targets_.n1_pct; }
  /// N1 toward which HoldRpm goes.
  void apRpm(float percentN1) { targets_.n1_pct = percentN1; }
  float apAirSpeed() const { return targets_.airSpeed_kt; }
  void apAirSpeed(float knots) { targets_.airSpeed_kt = knots; }
  float ApMachNumber() const { return targets_.mach; }
  void ApMachNumber(float mach) { targets_.mach = mach; }
  float apThrottleControlFactor() const { return controlFactor_; }
  /// Percent of lever per knot.
  void apThrottleControlFactor(float factor) { controlFactor_ = factor; }
  /// Percent N1: where the target stands on its way to apRpm.
  float RpmRamp() const { return targets_.easedN1_pct; }

  /// Shows what flies the thrust; nothing while the autothrottle is not armed.
  void annunciate(void (Annunciators::*flies)());

  /// The throttle laws of one cycle; trends in percent and knots a second.
  void run(double n1Trend_pct_s, double iasTrend_kt_s);
  /// A lever that would be at or below idle is not sent.
  void HoldRpm(double trend_pct_s);
  void HoldAirspeedByRpm(double trend_kt_s);

 private:
  /// 1 when on.
  struct Modes {
    std::int16_t autoThrottle = 0;
    std::int16_t machHold = 0;
    std::int16_t throttleHold = 0;
    std::int16_t airspeedHold = 0;
    std::int16_t changeover = 0;
    std::int16_t retard = 0;
    std::int16_t rpmHold = 0;
  };
  struct Targets {
    float n1_pct = 0;
    float easedN1_pct = 0;  ///< on its way to n1_pct
    float airSpeed_kt = 0;
    float mach = 0;
  };

  Autoflight& autoflight_;
  Modes modes_;
  Targets targets_;
  float controlFactor_ = 0;
};

}  // namespace vorlent
