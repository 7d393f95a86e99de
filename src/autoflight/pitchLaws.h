#pragma once

#include <optional>

namespace vorlent {

/// Bank without its side, degrees, from 0..360.
double bankSize(double bank_deg);

struct AltitudeInput {
  double error_ft;  ///< target less altitude
  double iasTrend_kt_s;
  double verticalSpeed_fpm;
  double sensitivity;     ///< of the vertical-speed target, with flaps
  double sensitivityFix;  ///< without
  float lastTarget_fpm;   ///< kept where the law has no better one
  double limit_fpm;       ///< largest size of the target
};
struct AltitudeTarget {
  float verticalSpeed_fpm;
  std::optional<int> relay;  ///< what the pacing counter is set to, if anything
};
/// Vertical speed toward a held altitude; nothing when the law leaves all as it is. Raises
/// DivisionByZero for an error of 0.
std::optional<AltitudeTarget> altitudeTarget(const AltitudeInput& in);

struct PitchFeedback {
  double verticalSpeed_fpm;
  double sensitivity;  ///< feet per minute per degree of pitch
  double pitch_deg;
};
struct PitchCommand {
  float pitch_deg;
  std::optional<int> relay;
};
/// Pitch for a vertical speed; in a turn with the lift that the bank takes. Raises DivisionByZero
/// for a sensitivity of 0.
PitchCommand altitudePitch(double target_fpm, const PitchFeedback& now, double bankSize_deg,
                           double bankRate_deg_s);
PitchCommand verticalSpeedPitch(double target_fpm, double averageVerticalSpeed_fpm,
                                const PitchFeedback& now, double bankSize_deg,
                                double bankRate_deg_s);

struct FlightPathInput {
  double pitch_deg;
  double climb_fpm;
  double groundSpeed_kt;
};
/// By how much the nose stands above the way over the ground, degrees.
double angleOfAttack_deg(const FlightPathInput& in);

/// How much steeper, degrees, an altitude is flown back to; the error is target less altitude.
double levelCorrection_deg(double error_ft, double groundSpeed_kt);

/// From here on the glide path is followed. The needle, -127 to 127, is positive with the path
/// below.
bool meetsGlidePath(double needle);

/// Of a glide path, degrees; 3 where none is told.
double slopeOf_deg(double told_deg);

/// How much steeper, degrees, the glide path is flown back to; the height is that above the ground.
double glidePathCorrection_deg(double needle, double height_ft, double groundSpeed_kt);

/// What the speed law remembers: the pitch from which it last sped up and slowed down, degrees.
struct SpeedPitchMemory {
  float slow = 0;
  float fast = 0;
};
struct SpeedInput {
  double target_kt;
  double averageIas_kt;
  double iasTrend_kt_s;
  double verticalSpeed_fpm;
  double pitch_deg;
};
/// Pitch that brings the speed to its target; nothing when the pitch stays.
std::optional<float> speedPitch(const SpeedInput& in, SpeedPitchMemory& memory);

}  // namespace vorlent
