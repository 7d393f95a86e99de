#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vorlent {

/// A sound in memory: stereo, 16 bits, at the rate of its file.
struct Wave {
  int rate_Hz = 0;
  std::vector<std::int16_t> samples;  ///< left and right in turn

  std::size_t frames() const { return samples.size() / 2; }
};

/// Reads a RIFF wave file: PCM of 8, 16, 24 or 32 bits or floats of 32, mono (both channels) or
/// stereo, 1000 to 192000 Hz. Raises InvalidCall and says what is wrong with any other: one that
/// ends before its data do is one of them.
Wave waveFrom(std::string_view bytes);

/// A file's sound. Raises RuntimeError with the file's name in the description: as readFile() for
/// one that cannot be read, PathAccess for one above 64 MB, and as waveFrom().
Wave readWave(const std::string& path);

}  // namespace vorlent
