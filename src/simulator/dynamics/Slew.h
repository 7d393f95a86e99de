#pragma once

#include <cstdint>

#include "simulator/OffsetMemory.h"
#include "simulator/OffsetScales.h"
#include "simulator/dynamics/FlightModel.h"

namespace vorlent {

/// Moving the aircraft by hand: while the slew flag is set it does not fly, and what is written to
/// place, altitude or attitude is where it is.
class Slew {
 public:
  Slew(const OffsetMemory& memory, const OffsetScales& scales) : memory_(memory), scales_(scales) {}

  bool on() const;
  /// Takes up what was written since the last remember().
  void takeUpWrites(FlightModel& model) const;
  /// What the offsets hold now is what the aircraft shows of itself.
  void remember() { shown_ = read(); }

 private:
  struct Shown {
    std::int64_t latitude = 0;
    std::int64_t longitude = 0;
    std::int64_t altitude = 0;
    std::int32_t pitch = 0;
    std::int32_t bank = 0;
    std::int32_t heading = 0;
    bool operator==(const Shown&) const = default;
  };
  Shown read() const;

  const OffsetMemory& memory_;
  OffsetScales scales_;
  Shown shown_;
};

}  // namespace vorlent
