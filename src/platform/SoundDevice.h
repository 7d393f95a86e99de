#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorlent {

/// One sound, silent until it is played. Going, it falls silent.
class SoundBuffer {
 public:
  static constexpr int QuietestVolume = -10000;
  static constexpr int OneSide = 10000;

  virtual ~SoundBuffer() = default;
  /// Hundredths of a decibel, QuietestVolume to 0, which it has at first. Raises InvalidCall for
  /// another, and the volume stays.
  virtual void volume(int hundredths_dB) = 0;
  /// Hundredths of a decibel, -OneSide to OneSide: above 0 the left channel is weakened by as much,
  /// below 0 the right one. Raises InvalidCall for another, and the pan stays.
  virtual void pan(int hundredths_dB) = 0;
  /// From where it stands; one that plays goes on.
  virtual void playOnce() = 0;
  virtual void playLooping() = 0;
  /// It stands where it stopped.
  virtual void stop() = 0;
  /// Back to the start.
  virtual void rewind() = 0;
};

/// The machine's sound devices, one of which can be open. Nothing here waits for a device: what
/// takes longer than a second counts as failed.
class SoundDevice {
 public:
  virtual ~SoundDevice() = default;
  /// The names of what open() can open, in order.
  virtual std::vector<std::string> devices() = 0;
  /// The device at this place of the list, from 1; it is heard while `window` has the focus, where
  /// the system asks for one. False when there is none there, or it cannot be opened.
  virtual bool open(int position, std::intptr_t window) = 0;
  /// A wave file for the open device. Raises RuntimeError with the file's name for one that is
  /// missing, cannot be read or is no wave file.
  virtual std::unique_ptr<SoundBuffer> createBuffer(const std::string& path) = 0;
  /// What the operator should know and was not told yet: a device that went away, or came back.
  virtual std::optional<std::string> news() = 0;
};

/// Raise InvalidCall outside what a buffer takes.
void checkVolume(int hundredths_dB);
void checkPan(int hundredths_dB);

}  // namespace vorlent
