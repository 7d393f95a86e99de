#pragma once

#include "platform/SoundDevice.h"

namespace vorlent {

/// Refuses what a device would, and plays nothing.
class SilentBuffer : public SoundBuffer {
 public:
  void volume(int hundredths_dB) override { checkVolume(hundredths_dB); }
  void pan(int hundredths_dB) override { checkPan(hundredths_dB); }
  void playOnce() override {}
  void playLooping() override {}
  void stop() override {}
  void rewind() override {}
};

}  // namespace vorlent
