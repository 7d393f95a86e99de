#pragma once

#include <cstdint>

namespace vorlent {

/// What an aircraft's tuning file says about the autopilot. Init sets the angles and the distances
/// before the file is read.
struct XAutoPTuning {
  float apTurnRangeVor = 0;             ///< nautical miles
  float apTurnRangeWpt = 0;             ///< nautical miles
  float apPitchControlfactor = 0;       ///< trim units per degree of pitch
  float apClimbPitchFactor = 0;         ///< degrees of pitch per knot
  float apPitchSensitivityFix = 0;      ///< ft/min per degree of pitch at 250 kt
  float apVspeedSensitivityFix = 0;     ///< gain of the climb toward an altitude, without flaps
  float apMaxBankCourseDeviation = 0;   ///< degrees of heading error for full bank
  std::int16_t apBankLimitLowAlt = 0;   ///< degrees
  std::int16_t apBankLimitHighAlt = 0;  ///< degrees
  float apMaxTrackOffset = 0;           ///< nautical miles
  float apIntCourseDeflectionWpt = 0;   ///< degrees at apMaxTrackOffset; the file does not have it
};

/// What each cycle makes of the tuning.
struct PitchGains {
  float apPitchSensitivityDyn = 0;  ///< ft/min per degree of pitch at the present airspeed
  float apVspeedSensitivity = 0;    ///< as apVspeedSensitivityFix, with the present flaps
};

/// How a radio beam is turned onto: how many degrees toward it at which needle, and in proportion
/// below that.
struct Intercept {
  float apInterceptCourse = 0;              ///< needle, 1..127
  float apInterceptCourseDeflection50 = 0;  ///< degrees
};

}  // namespace vorlent
