#pragma once

#include <cstdint>
#include <span>
#include <variant>

#include "base/analogScale.h"

namespace vorlent {

struct Server;

/// What a lever's code makes of its reading: a whole or a real number in the unit of the code, or
/// nothing for a code that takes no lever.
using AnalogResult = std::variant<std::monostate, std::int16_t, float>;

struct LeverReading {
  Server& server;
  float value;  ///< 0..AnalogMax

  /// 0..1 of the travel.
  double travel() const { return value / double{AnalogMax}; }
  /// -16383..16384, 0 in the middle.
  double fromMiddle() const { return value - double{AnalogMiddle}; }
};

/// One code that takes a lever: what its reading is in the unit in which the command takes it.
struct LeverRow {
  std::int16_t code;
  AnalogResult (*convert)(const LeverReading& reading);
};

/// The rows in the order of their codes.
std::span<const LeverRow> leverRows();

/// The flap lever: the detent in which it stands as a position of the simulator's flap lever,
/// 0..16383.
AnalogResult flapLever(const LeverReading& lever);

}  // namespace vorlent
