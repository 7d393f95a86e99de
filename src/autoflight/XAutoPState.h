#pragma once

#include <algorithm>
#include <cstdint>

#include "autoflight/PitchTrim.h"
#include "autoflight/pitchLaws.h"

/// What the autopilot keeps between two calls. Flags are 1 when on.
namespace vorlent::autoflight {

struct Engagement {
  std::int16_t master = 0;
  std::int16_t cmdLeft = 0;
  std::int16_t cmdCenter = 0;
  std::int16_t cmdRight = 0;
  std::int16_t cwsLeft = 0;
  std::int16_t cwsRight = 0;
  std::int16_t toGa = 0;
};

struct RollModes {
  std::int16_t active = 0;  ///< the channel has a mode of its own
  std::int16_t cws = 0;     ///< steered by the wheel
  std::int16_t nav1Hold = 0;
  std::int16_t waypointHold = 0;
  std::int16_t headingHold = 0;
  std::int16_t localizerHold = 0;
  std::int16_t localizerCapture = 0;
  std::int16_t approachHold = 0;
  std::int16_t backCourseHold = 0;
  std::int16_t yawDamper = 0;
};

struct PitchModes {
  std::int16_t active = 0;  ///< the channel has a mode of its own
  std::int16_t cws = 0;     ///< steered by the column
  std::int16_t altitudeHold = 0;
  std::int16_t attitudeHold = 0;
  std::int16_t airspeedHold = 0;
  std::int16_t vSpeedHold = 0;
  std::int16_t glideslopeHold = 0;
  std::int16_t gsCapture = 0;
  std::int16_t levelChange = 0;
  std::int16_t altAcquire = 0;
};

/// On top of the kept altitudes. docs/peculiarities.md: altitude bias.
constexpr double AltitudeBias_ft = 25;

struct Targets {
  float heading_deg = 0;  ///< magnetic
  float course_deg = 0;
  float biasedAltitude_ft = static_cast<float>(AltitudeBias_ft);
  float biasedMcpAltitude_ft = 0;
  float oldAltitude_ft = 0;
  float airSpeed_kt = 0;
  float mcpAirSpeed_kt = 0;
  float mach = 0;
  float vertSpeed_fpm = 0;
  float vertSpeedMax_fpm = 0;
  float pitch_deg = 0;  ///< nose up positive
};

/// How steeply and how quickly the aircraft rolls.
struct Turning {
  float bank_deg = 0;
  std::int16_t bankLimit_deg = 0;
  float turnRate = 0;       ///< in standard turns
  float controlFactor = 0;  ///< degrees of aileron per degree of bank
  float workingFactor = 0;  ///< the same; doubled by an approach
};

/// What an approach remembers from pass to pass.
struct GlideslopeMemory {
  double pressAltitude_ft = 0;  ///< kept until the glide path is met
  double attack_deg = 0;        ///< angle of attack, eased, because the way follows the nose
  double trim_deg = 0;          ///< what corrections have left behind, so that no error stays
  bool lossTold = false;

  void easeAngleOfAttack(double now_deg) { attack_deg += 0.3 * (now_deg - attack_deg); }
  /// The pitch for a climb angle and what corrects it.
  double pitch_deg(double climb_deg, double correction_deg) {
    trim_deg = std::clamp(trim_deg + 0.01 * correction_deg, -1.0, 1.0);
    return attack_deg + climb_deg + correction_deg + trim_deg;
  }
};

/// What the laws remember from cycle to cycle.
struct LawMemory {
  float courseTarget_deg = 0;
  float vsTarget_fpm = 0;
  float normbank_deg = 0;
  float bankDeflection_deg = 0;
  SpeedPitchMemory speed;
  GlideslopeMemory glideslope;
  PitchTrimState trim;
};

}  // namespace vorlent::autoflight
