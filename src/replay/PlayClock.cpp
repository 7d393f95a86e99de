#include "replay/PlayClock.h"

#include <algorithm>
#include <cmath>

#include "base/RuntimeError.h"

namespace vorlent {

void PlayClock::advance(double elapsed_s) {
  if (!playing_) return;
  position_s_ += elapsed_s * speed_;
  if (position_s_ < length_s_) return;
  const bool again = loop_ && length_s_ > 0;
  position_s_ = again ? std::fmod(position_s_, length_s_) : length_s_;
  playing_ = again;
}

/// From the end it goes on at the beginning.
void PlayClock::play() {
  if (atEnd()) position_s_ = 0;
  playing_ = true;
}

void PlayClock::seek(double position_s) {
  if (!(position_s >= 0 && position_s <= length_s_)) throw RuntimeError(RuntimeError::InvalidCall);
  position_s_ = position_s;
}

void PlayClock::speed(double factor) {
  if (!(factor >= Slowest && factor <= Fastest)) throw RuntimeError(RuntimeError::InvalidCall);
  speed_ = factor;
}

}  // namespace vorlent
