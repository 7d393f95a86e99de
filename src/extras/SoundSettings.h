#pragma once

#include <cstdint>
#include <string>

namespace vorlent {

class Operator;

/// The aircraft's sounds. Volumes 0 to 100; Enabled 1 or 0. They play from the cockpit's sound
/// folder.
struct SoundSettings {
  struct Rumble {
    std::string file = "rumble.wav";
    std::int16_t Volume = 0;
    float Factor = 0;  ///< volume per knot above the threshold
    std::int16_t MaxVolume = 0;
    std::int16_t Enabled = 0;
    std::int16_t Threshold = 0;  ///< knots
  } rumble;
  struct Bump {
    std::string file = "bump.wav";
    std::int16_t Volume = 0;
    float Factor = 0;  ///< volume per foot per minute of descent
    std::int16_t MaxVolume = 0;
    std::int16_t Enabled = 0;
  } bump;
  struct OneShot {
    std::string file;
    std::int16_t Volume = 0;
    std::int16_t Enabled = 0;
  };
  OneShot tyres{"tyres.wav"};
  OneShot start{"start.wav"};

  /// Reads `sound.cfg`. With `soundOn` the second line is not read and all flags are 0: they stay
  /// so until the operator confirms them (docs/peculiarities.md: sounds wait). Raises a
  /// RuntimeError for a file that is missing, short or no numbers, and then leaves everything as it
  /// was.
  void read(const std::string& path, bool soundOn);
};

/// Rewrites `sound.cfg` in the folder, whose path ends with a separator: whatever cuts this off
/// leaves the old file or the new. A missing file is told in a box and ends the process; raises
/// what replaceFile() raises.
void WriteSoundPars(Operator& op, const std::string& folder, const SoundSettings& settings);

}  // namespace vorlent
