#include "sticks/encoders.h"

#include <cmath>
#include <utility>

#include "base/numbers.h"

namespace vorlent {

std::int16_t edgeDirection(std::int16_t newA, std::int16_t oldB) { return newA == oldB ? 1 : -1; }

double acceleratedStep(std::uint32_t dt_ms, double pause_ms, double acceleration, int extra) {
  if (dt_ms > pause_ms || dt_ms == 0) return 1;
  return std::floor(finite(acceleration * pause_ms) / dt_ms) + extra;
}

bool DirectionHistory::push(std::int16_t direction) {
  directions_[1] = directions_[0];
  directions_[0] = direction;
  return directions_[0] == directions_[1];
}

std::uint32_t EncoderGroup::sinceLastEdge_ms(std::uint32_t now_ms) {
  return now_ms - std::exchange(LastEncTime_, now_ms);
}

bool EncoderGroup::accept(std::int16_t direction, bool afterPause,
                          const std::function<bool(std::int16_t)>& push) {
  if (direction == -LastDir_) {
    if (!afterPause || !push(direction)) return false;
    LastDir_ = direction;
  } else if (LastDir_ == 0) {
    LastDir_ = direction;
  }
  return true;
}

}  // namespace vorlent
