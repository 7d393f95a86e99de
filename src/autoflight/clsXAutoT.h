#pragma once

#include <cstdint>

namespace vorlent {

/// The external autothrottle's modes and targets. It only stores them yet: the throttle laws and
/// the speed-unit changeover are not there.
class clsXAutoT {
 public:
  std::int16_t apAutoThrottle() const { return apAutoThrottle_; }
  void apAutoThrottle(std::int16_t value) { apAutoThrottle_ = value; }
  std::int16_t apAirspeedHoldByRpm() const { return apAirspeedHoldByRpm_; }
  void apAirspeedHoldByRpm(std::int16_t value) { apAirspeedHoldByRpm_ = value; }
  std::int16_t apRpmHold() const { return apRpmHold_; }
  void apRpmHold(std::int16_t value) { apRpmHold_ = value; }
  std::int16_t apChangeover() const { return apChangeover_; }
  void apChangeover(std::int16_t value) { apChangeover_ = value; }
  float apRpm() const { return apRpm_; }
  void apRpm(float value) { apRpm_ = value; }

 private:
  std::int16_t apAutoThrottle_ = 0;
  std::int16_t apAirspeedHoldByRpm_ = 0;
  std::int16_t apRpmHold_ = 0;
  std::int16_t apChangeover_ = 0;
  float apRpm_ = 0;
};

}  // namespace vorlent
