#pragma once

#include <array>
#include <cstdint>
#include <functional>

/// Rotary encoders on two lines each, one count for every change that a tick sees.
namespace vorlent {

/// +1 when the new level of line A is the old one of line B, else -1.
std::int16_t edgeDirection(std::int16_t newA, std::int16_t oldB);

/// How many steps an edge counts, `dt_ms` after the last one of its group. One that comes later
/// than `pause_ms` counts 1, as does one in the same millisecond; a faster one counts the whole
/// part of acceleration * pause / dt and `extra` more.
double acceleratedStep(std::uint32_t dt_ms, double pause_ms, double acceleration, int extra);

/// The last two directions that were handed to it.
class DirectionHistory {
 public:
  /// True when the direction is the same as the one before.
  bool push(std::int16_t direction);

 private:
  std::array<std::int16_t, 2> directions_{};
};

/// What the two encoders of a group share: their timing and the direction in which they turn.
///
/// An edge against that direction is bounce, unless a pause went before it and the direction before
/// it after a pause was the same. So a reversal takes two slow edges.
class EncoderGroup {
 public:
  /// Milliseconds since the group's last edge, which is now the last one.
  std::uint32_t sinceLastEdge_ms(std::uint32_t now_ms);
  /// False for an edge that is dropped. `push` is told of an edge against the direction after a
  /// pause, and of no other; it says whether the direction before was the same.
  bool accept(std::int16_t direction, bool afterPause,
              const std::function<bool(std::int16_t)>& push);

 private:
  std::uint32_t LastEncTime_ = 0;
  std::int16_t LastDir_ = 0;
};

}  // namespace vorlent
