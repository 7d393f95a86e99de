#pragma once

#include <cstdint>

#include "base/RuntimeError.h"
#include "base/numbers.h"

namespace vorlent {

/// Stores a number that was worked out in double, by the rules of the variable's type; raises
/// Overflow and then leaves the variable alone.
inline void set(float& variable, double x) { variable = toSingle(x); }
inline void set(double& variable, double x) { variable = finite(x); }
inline void set(std::int16_t& variable, double x) { variable = toInt16(x); }
inline void set(std::int32_t& variable, double x) { variable = toInt32(x); }

/// Runs one statement of the poll: a fault in it is passed over.
template <class Statement>
void attempt(const Statement& statement) {
  try {
    statement();
  } catch (const RuntimeError&) {
  }
}

}  // namespace vorlent
