#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vorlent {

/// A number of `width` bytes, little-endian.
inline std::string littleEndian(std::uint32_t value, int width) {
  std::string bytes;
  for (int i = 0; i < width; ++i) bytes += static_cast<char>(value >> 8 * i);
  return bytes;
}

inline std::string chunk(const std::string& name, const std::string& content) {
  return name + littleEndian(static_cast<std::uint32_t>(content.size()), 4) + content +
         (content.size() % 2 != 0 ? std::string(1, '\0') : "");
}

struct WaveFormat {
  unsigned coding = 1;
  unsigned channels = 2;
  unsigned rate_Hz = 22050;
  unsigned bits = 16;
};

inline std::string formatChunk(const WaveFormat& f) {
  const unsigned frame = f.channels * f.bits / 8;
  return chunk("fmt ", littleEndian(f.coding, 2) + littleEndian(f.channels, 2) +
                           littleEndian(f.rate_Hz, 4) + littleEndian(f.rate_Hz * frame, 4) +
                           littleEndian(frame, 2) + littleEndian(f.bits, 2));
}

inline std::string riff(const std::string& chunks) { return chunk("RIFF", "WAVE" + chunks); }

inline std::string waveFile(const WaveFormat& format, const std::string& data) {
  return riff(formatChunk(format) + chunk("data", data));
}

/// 22050 Hz, 16 bits, stereo.
inline std::string waveFile(const std::vector<std::int16_t>& samples) {
  std::string data;
  for (const std::int16_t sample : samples)
    data += littleEndian(static_cast<std::uint16_t>(sample), 2);
  return waveFile({}, data);
}

}  // namespace vorlent
