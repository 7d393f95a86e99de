#include "platform/Wave.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <optional>

#include "base/RuntimeError.h"
#include "base/files.h"

namespace vorlent {
namespace {

constexpr std::size_t LargestFile_bytes = std::size_t{64} << 20U;
constexpr std::size_t ChunkHead_bytes = 8;
constexpr unsigned Pcm = 1;
constexpr unsigned Float = 3;
/// The true format stands behind the others then.
constexpr unsigned Extensible = 0xFFFE;

[[noreturn]] void refuse(const std::string& why) {
  throw RuntimeError(RuntimeError::InvalidCall, why);
}

/// Little-endian; the place is there.
std::uint32_t number(std::string_view bytes, std::size_t at, std::size_t width_bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = width_bytes; i-- > 0;)
    value = value << 8U | static_cast<std::uint8_t>(bytes[at + i]);
  return value;
}

struct Format {
  unsigned coding = 0;
  unsigned channels = 0;
  unsigned rate_Hz = 0;
  unsigned bits = 0;

  std::size_t sample_bytes() const { return bits / 8; }
  std::size_t frame_bytes() const { return channels * sample_bytes(); }
};

Format formatFrom(std::string_view chunk) {
  constexpr std::size_t Least_bytes = 16;
  constexpr std::size_t TrueCoding = 24;
  if (chunk.size() < Least_bytes) refuse("its format is cut");
  Format format{number(chunk, 0, 2), number(chunk, 2, 2), number(chunk, 4, 4),
                number(chunk, 14, 2)};
  if (format.coding == Extensible) {
    if (chunk.size() < TrueCoding + 2) refuse("its format is cut");
    format.coding = number(chunk, TrueCoding, 2);
  }
  return format;
}

void check(const Format& format) {
  constexpr unsigned SlowestRate_Hz = 1000;
  constexpr unsigned FastestRate_Hz = 192000;
  const bool wholeBytes = format.bits == 8 || format.bits == 16 || format.bits == 24;
  const bool pcm = format.coding == Pcm && (wholeBytes || format.bits == 32);
  if (!pcm && !(format.coding == Float && format.bits == 32))
    refuse("it holds " + std::to_string(format.bits) + " bits in coding " +
           std::to_string(format.coding) + ", not PCM of 8, 16, 24 or 32 bits");
  if (format.channels != 1 && format.channels != 2)
    refuse("it has " + std::to_string(format.channels) + " channels, not 1 or 2");
  if (format.rate_Hz < SlowestRate_Hz || format.rate_Hz > FastestRate_Hz)
    refuse("its rate is " + std::to_string(format.rate_Hz) + " Hz, not 1000 to 192000");
}

std::int16_t fromFloat(float value) {
  constexpr float FullScale = 32768;
  if (std::isnan(value)) return 0;
  return static_cast<std::int16_t>(
      std::lround(std::clamp(value * FullScale, -FullScale, FullScale - 1)));
}

/// The upper 16 bits; 8 bits count from 128, the others from 0.
std::int16_t sample(std::string_view data, std::size_t at, const Format& format) {
  const std::uint32_t raw = number(data, at, format.sample_bytes());
  if (format.coding == Float) return fromFloat(std::bit_cast<float>(raw));
  if (format.bits == 8) return static_cast<std::int16_t>((static_cast<int>(raw) - 128) * 256);
  return static_cast<std::int16_t>(raw >> (format.bits - 16));
}

Wave waveOf(std::string_view data, const Format& format) {
  const std::size_t frames = data.size() / format.frame_bytes();
  if (frames == 0) refuse("it holds no sound");
  Wave wave{static_cast<int>(format.rate_Hz), {}};
  wave.samples.reserve(2 * frames);
  for (std::size_t frame = 0; frame < frames; ++frame) {
    const std::size_t left = frame * format.frame_bytes();
    const std::size_t right = format.channels == 1 ? left : left + format.sample_bytes();
    wave.samples.push_back(sample(data, left, format));
    wave.samples.push_back(sample(data, right, format));
  }
  return wave;
}

/// The chunk that begins the rest, which goes with it and the byte that makes its length even.
std::string_view cutChunk(std::string_view& rest) {
  const std::size_t length = number(rest, 4, 4);
  if (length > rest.size() - ChunkHead_bytes)
    refuse("it is cut: a part of " + std::to_string(length) + " bytes has " +
           std::to_string(rest.size() - ChunkHead_bytes));
  const std::string_view chunk = rest.substr(ChunkHead_bytes, length);
  rest.remove_prefix(std::min(rest.size(), ChunkHead_bytes + length + length % 2));
  return chunk;
}

}  // namespace

Wave waveFrom(std::string_view bytes) {
  constexpr std::size_t Head_bytes = 12;
  if (bytes.size() < Head_bytes || !bytes.starts_with("RIFF") || bytes.substr(8, 4) != "WAVE")
    refuse("it is no wave file");
  std::string_view rest = bytes.substr(Head_bytes);
  std::optional<Format> format;
  while (rest.size() >= ChunkHead_bytes) {
    const std::string_view name = rest.substr(0, 4);
    const std::string_view chunk = cutChunk(rest);
    if (name == "fmt ") {
      format = formatFrom(chunk);
      check(*format);
    }
    if (name == "data" && format) return waveOf(chunk, *format);
  }
  refuse(format ? "it has no data" : "it tells no format before its data");
}

Wave readWave(const std::string& path) {
  try {
    const auto bytes = readFileUpTo(path, LargestFile_bytes);
    if (!bytes) throw RuntimeError(RuntimeError::PathAccess, "it is larger than 64 MB");
    return waveFrom(*bytes);
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.number(), "Sound " + path + ": " + error.description());
  }
}

}  // namespace vorlent
