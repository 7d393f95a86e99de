#pragma once

#include <cstdint>

namespace vorlent {

/// The external autopilot's modes and targets. It only stores them yet: the mode logic of the
/// setters and the hold laws are not there.
class clsXAutoP {
 public:
  std::int16_t apMaster() const { return apMaster_; }
  void apMaster(std::int16_t value) { apMaster_ = value; }
  std::int16_t ApEngaged() const { return ApEngaged_; }
  void ApEngaged(std::int16_t value) { ApEngaged_ = value; }
  std::int16_t apCmdLeft() const { return apCmdLeft_; }
  void apCmdLeft(std::int16_t value) { apCmdLeft_ = value; }
  std::int16_t apCmdRight() const { return apCmdRight_; }
  void apCmdRight(std::int16_t value) { apCmdRight_ = value; }
  std::int16_t apCwsLeft() const { return apCwsLeft_; }
  void apCwsLeft(std::int16_t value) { apCwsLeft_ = value; }
  std::int16_t apCwsRight() const { return apCwsRight_; }
  void apCwsRight(std::int16_t value) { apCwsRight_ = value; }
  std::int16_t apNav1Hold() const { return apNav1Hold_; }
  void apNav1Hold(std::int16_t value) { apNav1Hold_ = value; }
  std::int16_t apHeadingHold() const { return apHeadingHold_; }
  void apHeadingHold(std::int16_t value) { apHeadingHold_ = value; }
  std::int16_t apAltitudeHold() const { return apAltitudeHold_; }
  void apAltitudeHold(std::int16_t value) { apAltitudeHold_ = value; }
  std::int16_t apAttitudeHold() const { return apAttitudeHold_; }
  void apAttitudeHold(std::int16_t value) { apAttitudeHold_ = value; }
  std::int16_t apAirspeedHoldByPitch() const { return apAirspeedHoldByPitch_; }
  void apAirspeedHoldByPitch(std::int16_t value) { apAirspeedHoldByPitch_ = value; }
  std::int16_t apVSpeedHold() const { return apVSpeedHold_; }
  void apVSpeedHold(std::int16_t value) { apVSpeedHold_ = value; }
  std::int16_t apGlideslopeHold() const { return apGlideslopeHold_; }
  void apGlideslopeHold(std::int16_t value) { apGlideslopeHold_ = value; }
  std::int16_t apLocalizerHold() const { return apLocalizerHold_; }
  void apLocalizerHold(std::int16_t value) { apLocalizerHold_ = value; }
  std::int16_t apApproachHold() const { return apApproachHold_; }
  void apApproachHold(std::int16_t value) { apApproachHold_ = value; }
  std::int16_t apBackCourseHold() const { return apBackCourseHold_; }
  void apBackCourseHold(std::int16_t value) { apBackCourseHold_ = value; }
  std::int16_t apToGa() const { return apToGa_; }
  void apToGa(std::int16_t value) { apToGa_ = value; }
  std::int16_t apLevelChange() const { return apLevelChange_; }
  void apLevelChange(std::int16_t value) { apLevelChange_ = value; }
  float apCourse() const { return apCourse_; }
  void apCourse(float value) { apCourse_ = value; }
  float apMcpAirSpeed() const { return apMcpAirSpeed_; }
  void apMcpAirSpeed(float value) { apMcpAirSpeed_ = value; }
  float ApMachNumber() const { return ApMachNumber_; }
  void ApMachNumber(float value) { ApMachNumber_ = value; }
  float apVertSpeed() const { return apVertSpeed_; }
  void apVertSpeed(float value) { apVertSpeed_ = value; }
  /// Feet. Kept with AltitudeBias on top, so that it reads -25 until it is set.
  float apMcpAltitude() const { return apMcpAltitude_ - AltitudeBias; }
  void apMcpAltitude(float feet) { apMcpAltitude_ = feet + AltitudeBias; }

 private:
  std::int16_t apMaster_ = 0;
  std::int16_t ApEngaged_ = 0;
  std::int16_t apCmdLeft_ = 0;
  std::int16_t apCmdRight_ = 0;
  std::int16_t apCwsLeft_ = 0;
  std::int16_t apCwsRight_ = 0;
  std::int16_t apNav1Hold_ = 0;
  std::int16_t apHeadingHold_ = 0;
  std::int16_t apAltitudeHold_ = 0;
  std::int16_t apAttitudeHold_ = 0;
  std::int16_t apAirspeedHoldByPitch_ = 0;
  std::int16_t apVSpeedHold_ = 0;
  std::int16_t apGlideslopeHold_ = 0;
  std::int16_t apLocalizerHold_ = 0;
  std::int16_t apApproachHold_ = 0;
  std::int16_t apBackCourseHold_ = 0;
  std::int16_t apToGa_ = 0;
  std::int16_t apLevelChange_ = 0;
  float apCourse_ = 0;
  float apMcpAirSpeed_ = 0;
  float ApMachNumber_ = 0;
  float apVertSpeed_ = 0;
  static constexpr float AltitudeBias = 25;
  float apMcpAltitude_ = 0;
};

}  // namespace vorlent
