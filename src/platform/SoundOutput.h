#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/Wave.h"

namespace vorlent {

/// A wave that plays, or has played to its end. Going, it falls silent.
class SoundVoice {
 public:
  virtual ~SoundVoice() = default;
  /// Hundredths of a decibel, as of a SoundBuffer.
  virtual void levels(int volume, int pan) = 0;
  virtual void start(std::size_t frame, bool looping) = 0;
  virtual bool playing() = 0;
  /// Where it plays.
  virtual std::size_t frame() = 0;
};

/// A system's sound library. Any call may wait for the device, so it belongs to a thread of its own
/// (ThreadedSoundDevice); nothing raises.
class SoundOutput {
 public:
  virtual ~SoundOutput() = default;
  virtual std::vector<std::string> devices() = 0;
  /// The device at this place of the list, from 0; false when it cannot be opened.
  virtual bool open(std::size_t index, std::intptr_t window) = 0;
  /// The device that was opened last, once more.
  virtual bool openAgain() = 0;
  /// The device is still there.
  virtual bool connected() = 0;
  /// After its voices are gone.
  virtual void close() = 0;
  /// Nothing when the device plays no more voices.
  virtual std::unique_ptr<SoundVoice> voice(std::shared_ptr<const Wave> wave) = 0;
};

}  // namespace vorlent
