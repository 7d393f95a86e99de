#include "platform/SoundDevice.h"

#include <cstdlib>

#include "base/RuntimeError.h"

namespace vorlent {

void checkVolume(int hundredths_dB) {
  if (hundredths_dB < SoundBuffer::QuietestVolume || hundredths_dB > 0)
    throw RuntimeError(RuntimeError::InvalidCall);
}

void checkPan(int hundredths_dB) {
  if (std::abs(hundredths_dB) > SoundBuffer::OneSide) throw RuntimeError(RuntimeError::InvalidCall);
}

}  // namespace vorlent
