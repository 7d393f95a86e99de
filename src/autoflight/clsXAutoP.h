#pragma once

#include <cstdint>

#include "autoflight/PitchTrim.h"
#include "autoflight/XAutoPState.h"
#include "autoflight/XAutoPTuning.h"
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
  std::int16_t apMaster() const { return engagement_.master; }
  void apMaster(std::int16_t value);
  std::int16_t ApEngaged() const;
  /// Writes the annunciators anew; a channel without a mode falls to control-wheel steering.
  void ApEngaged(std::int16_t value);
  std::int16_t apCmdLeft() const { return engagement_.cmdLeft; }
  void apCmdLeft(std::int16_t value);
  std::int16_t apCmdCenter() const { return engagement_.cmdCenter; }
  void apCmdCenter(std::int16_t value) { engagement_.cmdCenter = value; }
  std::int16_t apCmdRight() const { return engagement_.cmdRight; }
  void apCmdRight(std::int16_t value);
  std::int16_t apCwsLeft() const { return engagement_.cwsLeft; }
  void apCwsLeft(std::int16_t value);
  std::int16_t apCwsRight() const { return engagement_.cwsRight; }
  void apCwsRight(std::int16_t value);
  std::int16_t apCwsRollMode() const { return roll_.cws; }
  void apCwsRollMode(std::int16_t value) { roll_.cws = value; }
  std::int16_t apCwsPitchMode() const { return pitch_.cws; }
  /// Takes the present attitude as the pitch target.
  void apCwsPitchMode(std::int16_t value);
  std::int16_t apToGa() const { return engagement_.toGa; }
  void apToGa(std::int16_t value);
  void KillPitchModes();
  void KillRollModes();
  /// 1 while the channel has a mode of its own.
  std::int16_t PitchModeActive() const { return pitch_.active; }
  std::int16_t RollModeActive() const { return roll_.active; }

  // Roll modes.
  std::int16_t apNav1Hold() const { return roll_.nav1Hold; }
  void apNav1Hold(std::int16_t value);
  std::int16_t apWaypointHold() const { return roll_.waypointHold; }
  void apWaypointHold(std::int16_t value);
  std::int16_t apHeadingHold() const { return roll_.headingHold; }
  void apHeadingHold(std::int16_t value);
  std::int16_t apLocalizerHold() const { return roll_.localizerHold; }
  void apLocalizerHold(std::int16_t value);
  std::int16_t apLocalizerCapture() const { return roll_.localizerCapture; }
  void apLocalizerCapture(std::int16_t value);
  std::int16_t apApproachHold() const { return roll_.approachHold; }
  void apApproachHold(std::int16_t value);
  /// The approach is captured: its flag and lamp go out, localizer and glideslope stay.
  void endApproachArming();
  std::int16_t apBackCourseHold() const { return roll_.backCourseHold; }
  void apBackCourseHold(std::int16_t value);
  std::int16_t apYawDamper() const { return roll_.yawDamper; }
  void apYawDamper(std::int16_t value) { roll_.yawDamper = value; }

  // Pitch modes.
  std::int16_t apAltitudeHold() const { return pitch_.altitudeHold; }
  void apAltitudeHold(std::int16_t value);
  std::int16_t apAttitudeHold() const { return pitch_.attitudeHold; }
  void apAttitudeHold(std::int16_t value);
  std::int16_t apAirspeedHoldByPitch() const { return pitch_.airspeedHold; }
  void apAirspeedHoldByPitch(std::int16_t value);
  std::int16_t apVSpeedHold() const { return pitch_.vSpeedHold; }
  void apVSpeedHold(std::int16_t value);
  std::int16_t apGlideslopeHold() const { return pitch_.glideslopeHold; }
  void apGlideslopeHold(std::int16_t value);
  std::int16_t apGsCapture() const { return pitch_.gsCapture; }
  void apGsCapture(std::int16_t value) { pitch_.gsCapture = value; }
  std::int16_t apLevelChange() const { return pitch_.levelChange; }
  void apLevelChange(std::int16_t value);
  std::int16_t apAltAcquire() const { return pitch_.altAcquire; }
  void apAltAcquire(std::int16_t value);

  // Targets. Altitudes are kept 25 feet high, so that apMcpAltitude reads -25 until it is set.
  float apHeading() const { return targets_.heading_deg; }
  /// Degrees magnetic, as given: neither end is wrapped.
  void apHeading(float degrees);
  float apCourse() const { return targets_.course_deg; }
  /// Degrees, of a radio beam.
  void apCourse(float degrees) { targets_.course_deg = degrees; }
  float apAltitude() const;
  /// Feet; what the laws fly to.
  void apAltitude(float feet);
  float apMcpAltitude() const;
  /// Feet. While altitude hold is off the working altitude follows.
  void apMcpAltitude(float feet);
  float apOldAltitude() const { return targets_.oldAltitude_ft; }
  /// Feet.
  void apOldAltitude(float feet) { targets_.oldAltitude_ft = feet; }
  float apAirSpeed() const { return targets_.airSpeed_kt; }
  /// Knots; what the laws fly. A new speed ends a Mach target.
  void apAirSpeed(float knots);
  float apMcpAirSpeed() const { return targets_.mcpAirSpeed_kt; }
  /// Knots; what the panel shows.
  void apMcpAirSpeed(float knots);
  float ApMachNumber() const { return targets_.mach; }
  /// The autothrottle's target too; 0 is none.
  void ApMachNumber(float mach);
  float apVertSpeed() const { return targets_.vertSpeed_fpm; }
  /// Feet per minute: from 6000 on 6000, from -7900 down -8000, else cut down to hundredths.
  void apVertSpeed(float feetPerMinute);
  float apVertSpeedMax() const { return targets_.vertSpeedMax_fpm; }
  /// Feet per minute, without a sign: how fast altitude hold climbs or descends at most.
  void apVertSpeedMax(float feetPerMinute) { targets_.vertSpeedMax_fpm = feetPerMinute; }
  float apPitch() const { return targets_.pitch_deg; }
  /// Degrees, nose up positive.
  void apPitch(float degrees) { targets_.pitch_deg = degrees; }

  // How the aircraft turns.
  float apRollControlFactor() const { return turning_.controlFactor; }
  /// Degrees of aileron per degree of bank; the working factor too.
  void apRollControlFactor(float factor);
  float apBank() const { return turning_.bank_deg; }
  /// Degrees, at most apBankLimit.
  void apBank(float degrees);
  std::int16_t apBankLimit() const { return turning_.bankLimit_deg; }
  /// Degrees, rounded.
  void apBankLimit(float degrees);
  float apTurnRate() const { return turning_.turnRate; }
  /// In standard turns; sets apBank for the true airspeed.
  void apTurnRate(float rate);

  XAutoPTuning tuning;
  PitchGains gains;     ///< of the last cycle
  Intercept intercept;  ///< of the radio mode that flew last

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
  /// Keeps the altitude of the press on APP or G/S until the glide path is met (`apGsCapture`),
  /// then follows that down to a radio altitude of 50 feet. Where the needle is dead, and below,
  /// the pitch target stays; a needle that dies on the glide path is told.
  void FlyGS();
  void KeepPitch4();
  /// The first NAV's needle and the heading are close enough to turn in.
  bool LocalizerInRange() const;

  /// Degrees, as the last law took it: left positive for roll, without a side for pitch.
  float apNormbank() const { return memory_.normbank_deg; }
  float CourseTarget() const { return memory_.courseTarget_deg; }  ///< degrees
  float VsTarget() const { return memory_.vsTarget_fpm; }          ///< ft/min, climbing positive
  /// Degrees of aileron, not negative; whether or not it was sent.
  float BankDeflection() const { return memory_.bankDeflection_deg; }
  const PitchTrimState& pitchTrim() const { return memory_.trim; }

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
  void takeGlideslope();
  double presentAngleOfAttack_deg() const;
  bool canFollow(bool alive);
  void SetBank(double target_deg);
  void TurnToHeading();
  void HoldRadioCourse();
  double WindCorrection(double course_deg) const;
  PitchFeedback pitchFeedback() const;
  void take(const PitchCommand& command);

  Autoflight& autoflight_;
  autoflight::Engagement engagement_;
  autoflight::RollModes roll_;
  autoflight::PitchModes pitch_;
  autoflight::Targets targets_;
  autoflight::Turning turning_;
  autoflight::LawMemory memory_;
};

}  // namespace vorlent
