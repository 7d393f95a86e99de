#pragma once

#include <cstdint>
#include <optional>

namespace vorlent {

/// What the pitch output remembers from pass to pass. Trim positions are in the simulator's units,
/// -16383..16383, positive nose up.
struct PitchTrimState {
  std::int16_t LastNeedle = 0;  ///< as last seen by HoldRadioCourse
  float LastTarget = 0;         ///< degrees; 0 before the first use, 99 after a trim at its end
  float TargetDelta = 0;        ///< degrees, target less pitch when the target last changed
  float TrimBase = 0;
  float TrimWork = 0;   ///< inside the dead band
  float PrevPitch = 0;  ///< degrees
  float PitchRate = 0;  ///< degrees per pass
  std::int16_t Counter = 0;
  float PrevError = 0;  ///< degrees, at the last step outside the dead band
};

struct PitchTrimInput {
  float target_deg;     ///< nose up positive
  float pitch_deg;      ///< nose up positive
  std::int32_t trim;    ///< where the simulator's trim stands
  float controlFactor;  ///< trim units per degree of error
};

/// One pass of the only pitch output.
struct PitchTrimPass {
  std::optional<float> trim;  ///< the position to send; nothing when none is to be sent
  PitchTrimState after;       ///< what to remember once the trim is out
};

/// Moves the trim step by step while the nose is more than 0.2 degrees away and does not already
/// come, and eases it by the pitch rate inside that band. `r` takes the new target and trim; rate,
/// error and saturation stand in the result, so that a trim that cannot be sent leaves them as they
/// were.
PitchTrimPass keepPitch(PitchTrimState& r, const PitchTrimInput& in);

}  // namespace vorlent
