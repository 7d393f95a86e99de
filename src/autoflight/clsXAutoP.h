#pragma once

#include <cstdint>

#include "autoflight/PitchTrim.h"
#include "autoflight/pitchLaws.h"

namespace vorlent {

struct Annunciators;
struct Autoflight;

/// The external autopilot. Setting one of its modes is what a press on the mode control panel or a
/// decision of the cycle does: it clears what the mode excludes, writes the annunciators, lights
/// the lamp. Mode flags are 1 when on. Clearing leaves a mode that is off already as it is, so that
/// the annunciation that stands at the end is that of the mode that flies.
class clsXAutoP {
 public:
  explicit clsXAutoP(Autoflight& autoflight);

  // Engagement.
  std::int16_t apMaster() const { return apMaster_; }
  void apMaster(std::int16_t value);
  std::int16_t ApEngaged() const;
  /// Writes the annunciators anew; a channel without a mode falls to control-wheel steering.
  void ApEngaged(std::int16_t value);
  std::int16_t apCmdLeft() const { return apCmdLeft_; }
  void apCmdLeft(std::int16_t value);
  std::int16_t apCmdCenter() const { return apCmdCenter_; }
  void apCmdCenter(std::int16_t value) { apCmdCenter_ = value; }
  std::int16_t apCmdRight() const { return apCmdRight_; }
  void apCmdRight(std::int16_t value);
  std::int16_t apCwsLeft() const { return apCwsLeft_; }
  void apCwsLeft(std::int16_t value);
  std::int16_t apCwsRight() const { return apCwsRight_; }
  void apCwsRight(std::int16_t value);
  std::int16_t apCwsRollMode() const { return apCwsRollMode_; }
  void apCwsRollMode(std::int16_t value) { apCwsRollMode_ = value; }
  std::int16_t apCwsPitchMode() const { return apCwsPitchMode_; }
  /// Takes the present attitude as the pitch target.
  void apCwsPitchMode(std::int16_t value);
  std::int16_t apToGa() const { return apToGa_; }
  void apToGa(std::int16_t value);
  void KillPitchModes();
  void KillRollModes();
  /// A channel has a mode of its own.
  std::int16_t PitchModeActive() const { return PitchModeActive_; }
  std::int16_t RollModeActive() const { return RollModeActive_; }

  // Roll modes.
  std::int16_t apNav1Hold() const { return apNav1Hold_; }
  void apNav1Hold(std::int16_t value);
  std::int16_t apWaypointHold() const { return apWaypointHold_; }
  void apWaypointHold(std::int16_t value);
  std::int16_t apHeadingHold() const { return apHeadingHold_; }
  void apHeadingHold(std::int16_t value);
  std::int16_t apLocalizerHold() const { return apLocalizerHold_; }
  void apLocalizerHold(std::int16_t value);
  std::int16_t apLocalizerCapture() const { return apLocalizerCapture_; }
  void apLocalizerCapture(std::int16_t value);
  std::int16_t apApproachHold() const { return apApproachHold_; }
  void apApproachHold(std::int16_t value);
  /// The approach is captured: its flag and lamp go out, localizer and glideslope stay.
  void endApproachArming();
  std::int16_t apBackCourseHold() const { return apBackCourseHold_; }
  void apBackCourseHold(std::int16_t value);
  std::int16_t apYawDamper() const { return apYawDamper_; }
  void apYawDamper(std::int16_t value) { apYawDamper_ = value; }

  // Pitch modes.
  std::int16_t apAltitudeHold() const { return apAltitudeHold_; }
  void apAltitudeHold(std::int16_t value);
  std::int16_t apAttitudeHold() const { return apAttitudeHold_; }
  void apAttitudeHold(std::int16_t value);
  std::int16_t apAirspeedHoldByPitch() const { return apAirspeedHoldByPitch_; }
  void apAirspeedHoldByPitch(std::int16_t value);
  std::int16_t apVSpeedHold() const { return apVSpeedHold_; }
  void apVSpeedHold(std::int16_t value);
  std::int16_t apGlideslopeHold() const { return apGlideslopeHold_; }
  void apGlideslopeHold(std::int16_t value);
  std::int16_t apGsCapture() const { return apGsCapture_; }
  void apGsCapture(std::int16_t value) { apGsCapture_ = value; }
  std::int16_t apLevelChange() const { return apLevelChange_; }
  void apLevelChange(std::int16_t value);
  std::int16_t apAltAcquire() const { return apAltAcquire_; }
  void apAltAcquire(std::int16_t value);

  // Targets. Altitudes are kept with AltitudeBias on top, so that apMcpAltitude reads -25 until it
  // is set.
  float apHeading() const { return apHeading_; }
  /// Degrees magnetic.
  void apHeading(float degrees);
  float apCourse() const { return apCourse_; }
  void apCourse(float degrees) { apCourse_ = degrees; }
  float apAltitude() const;
  /// Feet.
  void apAltitude(float feet);
  float apMcpAltitude() const;
  /// Feet. While altitude hold is off the working altitude follows.
  void apMcpAltitude(float feet);
  float apOldAltitude() const { return apOldAltitude_; }
  void apOldAltitude(float feet) { apOldAltitude_ = feet; }
  float apAirSpeed() const { return apAirSpeed_; }
  /// Knots. A new speed ends a Mach target.
  void apAirSpeed(float knots);
  float apMcpAirSpeed() const { return apMcpAirSpeed_; }
  void apMcpAirSpeed(float knots);
  float ApMachNumber() const { return ApMachNumber_; }
  void ApMachNumber(float mach);
  float apVertSpeed() const { return apVertSpeed_; }
  /// Feet per minute: from 6000 on 6000, from -7900 down -8000, else cut down to hundredths.
  void apVertSpeed(float feetPerMinute);
  float apVertSpeedMax() const { return apVertSpeedMax_; }
  void apVertSpeedMax(float feetPerMinute) { apVertSpeedMax_ = feetPerMinute; }
  float apPitch() const { return apPitch_; }
  /// Degrees, nose up positive.
  void apPitch(float degrees) { apPitch_ = degrees; }

  // Tuning and limits.
  float apRollControlFactor() const { return apRollControlFactor_; }
  /// Degrees of aileron per degree of bank; the working factor too.
  void apRollControlFactor(float factor);
  float apBank() const { return apBank_; }
  /// Degrees, at most apBankLimit.
  void apBank(float degrees);
  std::int16_t apBankLimit() const { return apBankLimit_; }
  /// Degrees, rounded.
  void apBankLimit(float degrees);
  float apTurnRate() const { return apTurnRate_; }
  /// In standard turns; sets apBank for the true airspeed.
  void apTurnRate(float rate);

  std::int16_t apBankLimitLowAlt = 0;       ///< degrees
  std::int16_t apBankLimitHighAlt = 0;      ///< degrees
  float apMaxBankCourseDeviation = 0;       ///< degrees of heading error for full bank
  float apTurnRangeVor = 0;                 ///< nautical miles
  float apTurnRangeWpt = 0;                 ///< nautical miles
  float apMaxTrackOffset = 0;               ///< nautical miles
  float apIntCourseDeflectionWpt = 0;       ///< degrees at apMaxTrackOffset
  float apInterceptCourse = 0;              ///< needle for the deflection below
  float apInterceptCourseDeflection50 = 0;  ///< degrees
  float apVspeedSensitivityFix = 0;
  float apVspeedSensitivity = 0;
  float apPitchSensitivityFix = 0;  ///< ft/min per degree of pitch at 250 kt
  float apPitchSensitivityDyn = 0;  ///< ft/min per degree of pitch
  float apPitchControlfactor = 0;   ///< trim units per degree of pitch
  float apClimbPitchFactor = 0;     ///< degrees of pitch per knot

  // Hold laws. Roll ends in the aileron trim, pitch in the elevator trim.
  void HoldBank(double bank_deg);
  void HoldHeading();
  void HoldNav1();
  void HoldLocalizer();
  /// `crossTrack` comes in radians and is turned into nautical miles.
  void HoldWpt(float& courseGc, float& courseDirect, float& crossTrack, std::int16_t side);
  void HoldPitch();
  void HoldAltitude(double altError_ft, double iasTrend_kt_s, double bankRate_deg_s);
  void HoldVspeed(double bankRate_deg_s, double avgVerticalSpeed_fpm);
  void HoldAirspeedByPitch(double iasTrend_kt_s);
  void KeepPitch4();
  /// The first NAV's needle and the heading are close enough to turn in.
  bool LocalizerInRange() const;

  float apNormbank() const { return apNormbank_; }  ///< degrees; as the last law took it
  float CourseTarget() const { return CourseTarget_; }
  float VsTarget() const { return VsTarget_; }
  float BankDeflection() const { return BankDeflection_; }
  const PitchTrimState& pitchTrim() const { return pitchTrim_; }

 private:
  void setCws(std::int16_t& flag, std::int16_t value, std::int16_t lamp);
  void setCmd(std::int16_t& flag, std::int16_t value, std::int16_t lamp);
  void steerWhereNoMode(std::int16_t engaged);
  void rewriteAnnunciators();
  void annunciateRoll(void (Annunciators::*flies)());
  void takeHeading();
  void leaveHeading();
  void fallToCwsRoll();
  void leaveNav1();
  void leavePitchMode();
  void leaveGlideslope();
  void SetBank(double target_deg);
  void TurnToHeading();
  void HoldRadioCourse();
  double WindCorrection(double course_deg) const;
  PitchFeedback pitchFeedback() const;
  void take(const PitchCommand& command);

  Autoflight& autoflight_;

  std::int16_t apMaster_ = 0;
  std::int16_t apCmdLeft_ = 0;
  std::int16_t apCmdCenter_ = 0;
  std::int16_t apCmdRight_ = 0;
  std::int16_t apCwsLeft_ = 0;
  std::int16_t apCwsRight_ = 0;
  std::int16_t apCwsRollMode_ = 0;
  std::int16_t apCwsPitchMode_ = 0;
  std::int16_t apToGa_ = 0;
  std::int16_t PitchModeActive_ = 0;
  std::int16_t RollModeActive_ = 0;

  std::int16_t apNav1Hold_ = 0;
  std::int16_t apWaypointHold_ = 0;
  std::int16_t apHeadingHold_ = 0;
  std::int16_t apLocalizerHold_ = 0;
  std::int16_t apLocalizerCapture_ = 0;
  std::int16_t apApproachHold_ = 0;
  std::int16_t apBackCourseHold_ = 0;
  std::int16_t apYawDamper_ = 0;

  std::int16_t apAltitudeHold_ = 0;
  std::int16_t apAttitudeHold_ = 0;
  std::int16_t apAirspeedHoldByPitch_ = 0;
  std::int16_t apVSpeedHold_ = 0;
  std::int16_t apGlideslopeHold_ = 0;
  std::int16_t apGsCapture_ = 0;
  std::int16_t apLevelChange_ = 0;
  std::int16_t apAltAcquire_ = 0;

  float apHeading_ = 0;
  float apCourse_ = 0;
  std::int32_t AltitudeBias_ = 25;  ///< feet
  float apAltitude_ = 25;
  float apMcpAltitude_ = 0;
  float apOldAltitude_ = 0;
  float apAirSpeed_ = 0;
  float apMcpAirSpeed_ = 0;
  float ApMachNumber_ = 0;
  float apVertSpeed_ = 0;
  float apVertSpeedMax_ = 0;
  float apPitch_ = 0;

  float apRollControlFactor_ = 0;
  float workingRollFactor_ = 0;
  float apBank_ = 0;
  std::int16_t apBankLimit_ = 0;
  float apTurnRate_ = 0;

  float CourseTarget_ = 0;
  float VsTarget_ = 0;
  float apNormbank_ = 0;
  float BankDeflection_ = 0;
  SpeedPitchMemory pitchMemory_;
  PitchTrimState pitchTrim_;
};

}  // namespace vorlent
